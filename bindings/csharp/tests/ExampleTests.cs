using System;
using System.Diagnostics;
using System.IO;
using System.Linq;
using System.Text;
using NUnit.Framework;

namespace Tolvex.Tests
{
    /// <summary>The example as a program of its own, at a scale that the test loads.</summary>
    [TestFixture]
    public class ExampleTests
    {
        private static Process Begin()
        {
            return Process.Start(new ProcessStartInfo("mono", Simulator.Needed("TOLVEX_EXAMPLE") + " " + Simulator.Address)
            {
                UseShellExecute = false,
                RedirectStandardOutput = true,
                StandardOutputEncoding = Encoding.UTF8
            });
        }

        // The program waits 60 s at most for everything that it asks for, then ends.
        private static void Until(Process program, string said)
        {
            var all = new StringBuilder();
            string line;
            while ((line = program.StandardOutput.ReadLine()) != null)
            {
                all.AppendLine(line);
                if (line.Contains(said)) return;
            }
            Assert.Fail("waited for \"" + said + "\", but the program said\n" + all);
        }

        [Test]
        public void TheSaleGoesThroughAlsoWhenThePaperEnds()
        {
            using (var sim = new Simulator())
            using (Process program = Begin())
            {
                sim.Do("paper-left 10");
                Until(program, "> Please put the empty bowl on the scale.");
                sim.Do("load 0.2");
                Until(program, "tare 0.200 kg");
                Until(program, "> Please put the apples into the bowl.");
                sim.Do("load 0.682");
                Until(program, "0.482 kg, to pay: 1.44 EUR");
                Until(program, "BeginPrint: 2006 OutOfPaper (Out of Paper).");
                Until(program, "> Please look at the printer.");
                sim.Do("load-paper endless");
                Until(program, "Receipt printed, drawer opened.");
                sim.Do("load 0");
                Until(program, "The sale is complete.");
                Assert.IsTrue(program.WaitForExit(30000), "waited for the end of the program");
                Assert.AreEqual(0, program.ExitCode);

                string paper = File.ReadAllText(sim.PaperFiles().Last());
                StringAssert.Contains("Äpfel Boskoop", paper);
                StringAssert.Contains("  0.482 kg x 2.99 EUR/kg                1.44 EUR", paper);
                StringAssert.Contains("TOTAL", paper);
                Assert.AreEqual("{\"cmd\":\"opencashbox\"}", sim.Requests("printing").Last());
                Assert.AreEqual("{\"cmd\":\"clear_tare\"}", sim.Requests("weighing").Last());
            }
        }

        [Test]
        public void WithoutAServiceItSaysWhatToDo()
        {
            using (Process program = Begin())
            {
                Until(program, "read_baseinfo: 4 SocketInterrupt");
                Assert.IsTrue(program.WaitForExit(30000), "waited for the end of the program");
                Assert.AreEqual(1, program.ExitCode);
            }
        }
    }
}
