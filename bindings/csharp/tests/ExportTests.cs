using System;
using System.Collections.Generic;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using NUnit.Framework;

namespace Tolvex.Tests
{
    [TestFixture]
    public class ExportTests : DeviceTests
    {
        private static readonly string[] stubs =
        {
            "ClosePrinterEx", "DisplayUpdate", "OpenDisplay", "OpenPrinter", "SetDataRows", "SetHeaderReserveRows",
            "SetInvoiceParameter", "SetPrintContrast", "SetPrintOffset", "SetPrintSpeed", "SetRealPrintHeaderWidth", "SetScaleType",
            "SetTakeLabelSensor", "SetTakeupMotorDirection", "SetUSBPrinterDirection", "SetUnitPrice", "ShowBalance",
            "ShowDisplayText", "ShowOrHideForm", "ShowProduct", "switch_resolution"
        };

        private static MethodInfo[] All()
        {
            return typeof(Exports).GetMethods(BindingFlags.Public | BindingFlags.Static).Where(m => m.ReturnType == typeof(int)).ToArray();
        }

        [Test]
        public void ThereIsAMethodForEachFunctionOfTheLibrary()
        {
            Assert.AreEqual(121, Exports.Names.Length);
            CollectionAssert.AreEquivalent(Exports.Names, All().Select(m => m.Name));
        }

        [Test]
        public void StubsAnswerAtOnce()
        {
            foreach (string stub in stubs)
            {
                Assert.AreEqual(240, typeof(Exports).GetMethod(stub).Invoke(null, null), stub);
                Assert.AreEqual(240, typeof(Exports).GetMethod(stub + "_stdcall").Invoke(null, null), stub);
            }
            Assert.AreEqual(255, Exports.PrintLabelImage());
            Assert.AreEqual(255, Exports.PrintLabelImage_stdcall());
            Exports.Version();
            Exports.DisplayText();
            Exports.IncreaseResolution();
            Exports.SetClientName();
            Assert.AreEqual(0, Weighed(0).Count + Printed(0).Count);
        }

        // What the arguments are does not matter here: that they arrive in order, the other tests show.
        private static object Argument(ParameterInfo parameter)
        {
            if (parameter.ParameterType == typeof(byte[])) return new byte[2049];
            if (parameter.ParameterType == typeof(int)) return 1;
            return parameter.Name == "size" ? 2048u : parameter.Name == "wait" ? 20000u : 20u;
        }

        [Test]
        public void EachFunctionCanBeCalled()
        {
            foreach (MethodInfo method in All())
            {
                var answer = (int)method.Invoke(null, method.GetParameters().Select(Argument).ToArray());
                bool isVerdict = answer == 240 || answer == 255, isCode = answer >= -2 && answer < 3000;
                Assert.IsTrue(isVerdict || isCode, method.Name + ": " + answer);
            }
            Exports.setHighResWeightMode(0);
        }

        [Test]
        public void TextsNeedNoEndAndBuffersHaveToBeLargeEnough()
        {
            Assert.AreEqual(0, Exports.printTextById(new[] { (byte)'h', (byte)'i' }, 24, 1));
            Assert.AreEqual(Line("hi"), Printed(1)[0]);
            Assert.AreEqual(2, Exports.printTextById(null, 24, 1));
            Assert.Throws<ArgumentException>(() => Exports.read_standard(new byte[23]));
            Assert.Throws<ArgumentException>(() => Exports.read_baseinfo(new byte[63]));
            Assert.Throws<ArgumentException>(() => Exports.set_tare_bykey(new byte[9]));
            Assert.Throws<ArgumentException>(() => Exports.send_pre_tare(Enumerable.Repeat((byte)'1', 10).ToArray()));
            Assert.Throws<ArgumentException>(() => Exports.GetPrinterList(new byte[9], 10));
            Assert.AreEqual(255, Exports.read_standard(null));
            Assert.AreEqual(255, Exports.GetPrinterList(null, 10));
        }

        [Test]
        public void BuffersComeBackFilled()
        {
            var buffer = new byte[100];
            Assert.AreEqual(Exports.TOLVEX_OK, Exports.GetPrinterList(buffer, 99));
            Assert.AreEqual("Label,Ticket,Third", Exports.TextOf(buffer));
            Assert.AreEqual("{\"result\":\"0\"}", Raw("setzero"));
            CollectionAssert.AreEqual(new byte[] { 0xC3, 0xA9, 0 }, Exports.Utf8("é"));
            CollectionAssert.AreEqual(new byte[] { 0xC3, 0xA9, 0 }, Exports.Ansi("é"));
        }

        private static string Raw(string command)
        {
            var reply = new byte[100];
            Assert.AreEqual(0, Exports.sendRawCmdToLC(Exports.Utf8(command), null, reply, 99, 20000));
            return Exports.TextOf(reply);
        }

        [Test]
        public void RecordsLieAsInC()
        {
            Assert.AreEqual(64, Marshal.SizeOf(typeof(BaseInfoRecord)));
            Assert.AreEqual(24, Marshal.SizeOf(typeof(WeightRecord)));
            CollectionAssert.AreEqual(new[] { 0, 12, 16, 20, 24, 36, 40, 44 }, Offsets(typeof(BaseInfoRecord)));
            CollectionAssert.AreEqual(new[] { 0, 1, 8, 9, 16 }, Offsets(typeof(WeightRecord)));
        }

        private static IEnumerable<int> Offsets(Type type)
        {
            return type.GetFields(BindingFlags.Public | BindingFlags.Instance).Select(f => Marshal.OffsetOf(type, f.Name).ToInt32());
        }

        [Test]
        public void RecordsAreReadMemberByMember()
        {
            byte[] bytes = Enumerable.Range(0, 64).Select(i => (byte)i).ToArray();
            BaseInfoRecord info = BaseInfoRecord.From(bytes);
            CollectionAssert.AreEqual(new[] { 0x03020100, 0x07060504, 0x0B0A0908 }, info.MaxRange);
            Assert.AreEqual(0x0F0E0D0C, info.MinRange);
            Assert.AreEqual(0x17161514, info.MaxPresetTare);
            CollectionAssert.AreEqual(bytes.Skip(36).Take(4), info.WeightUnit);
            CollectionAssert.AreEqual(bytes.Skip(44), info.SystemVersion);
            WeightRecord weight = WeightRecord.From(bytes);
            CollectionAssert.AreEqual(bytes.Skip(1).Take(7), weight.Net);
            Assert.AreEqual(8, weight.Mark);
            CollectionAssert.AreEqual(bytes.Skip(16).Take(8), weight.Rest);
            Assert.Throws<ArgumentException>(() => BaseInfoRecord.From(new byte[63]));
        }

        [Test]
        public void ResultCodesHaveNameTextMeaningAndRemedy()
        {
            foreach (ResultCode code in Enum.GetValues(typeof(ResultCode)))
            {
                ResultInfo info = ResultInfo.Of((int)code);
                Assert.AreEqual(code, info.Code);
                Assert.AreEqual(code.ToString(), info.Name);
                Assert.IsTrue(info.Text.Length > 0 && info.Meaning.EndsWith(".") && info.Remedy.EndsWith("."), info.Name);
            }
            Assert.AreEqual(27 + 2, Enum.GetValues(typeof(ResultCode)).Length);
            Assert.AreEqual("2006 OutOfPaper (Out of Paper)", ResultInfo.Of(2006).ToString());
        }
    }
}
