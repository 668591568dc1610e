using System;
using System.Collections.Generic;
using System.IO;
using NUnit.Framework;

namespace Tolvex.Tests
{
    /// <summary>Tests with a simulator, which is as new before each of them.</summary>
    public abstract class DeviceTests
    {
        protected Simulator Sim;
        private int weighed, printed;

        [TestFixtureSetUp]
        public void StartSimulator()
        {
            Sim = new Simulator();
            Service.SetServer(Simulator.Address);
        }

        [TestFixtureTearDown]
        public void StopSimulator()
        {
            if (Sim != null) Sim.Dispose();
        }

        [SetUp]
        public void Forget()
        {
            Sim.Reset();
            weighed = Sim.Requests("weighing").Count;
            printed = Sim.Requests("printing").Count;
        }

        protected List<string> Weighed(int count)
        {
            return Sim.Requests("weighing", weighed, count);
        }

        protected List<string> Printed(int count)
        {
            return Sim.Requests("printing", printed, count);
        }

        // A picture of 8 x 1 black pixels.
        protected string Picture(string name)
        {
            string file = Path.Combine(Sim.Folder, name);
            var bytes = new byte[54 + 24];
            bytes[0] = (byte)'B';
            bytes[1] = (byte)'M';
            bytes[2] = (byte)bytes.Length;
            bytes[10] = 54;
            bytes[14] = 40;
            bytes[18] = 8;
            bytes[22] = 1;
            bytes[26] = 1;
            bytes[28] = 24;
            File.WriteAllBytes(file, bytes);
            return file;
        }

        protected static string Line(string text, int size = 24)
        {
            return "{\"cmd\":\"printtext\",\"printerType\":\"1\",\"fontsize\":\"" + size + "\",\"text\":\"" + text + "\"}";
        }

        protected const string Confirm = "{\"cmd\":\"beginPrint\",\"printerType\":\"1\"}";
        protected const string Cut = "{\"cmd\":\"cutPaper\",\"printerType\":\"1\",\"Percent\":\"70\"}";
    }
}
