using System;
using System.IO;
using System.Linq;
using NUnit.Framework;

namespace Tolvex.Tests
{
    [TestFixture]
    public class ReceiptTests : DeviceTests
    {
        private static readonly Printer ticket = new Printer(PrinterType.Ticket);

        [Test]
        public void SendsItsLinesThenConfirmsAndCuts()
        {
            new Receipt().Text("Äpfel \"Boskoop\" 1.44 €", 36).Text("").Text("a\nb\r\n\nc\n").Wrapped("TOTAL 1.44", 48, 72).Blank().Print();
            CollectionAssert.AreEqual(new[]
            {
                Line("Äpfel \\\"Boskoop\\\" 1.44 €", 36), Line(" "), Line("a"), Line("b"), Line(" "), Line("c"),
                "{\"cmd\":\"print_text_width\",\"printerType\":\"1\",\"fontsize\":\"48\",\"width\":\"576\",\"text\":\"TOTAL 1.44\"}",
                Line(" "), Confirm, Cut
            }, Printed(10));
            string paper = File.ReadAllText(Sim.PaperFiles().Last());
            StringAssert.Contains("Äpfel \"Boskoop\" 1.44 €", paper);
            StringAssert.Contains("TOTAL 1.44", paper);
            StringAssert.Contains("- - - - -", paper);
        }

        [Test]
        public void PrintsImages()
        {
            new Receipt().Text("with a picture").Image(Picture("black.bmp"), 90).Print(JobType.Ticket);
            string request = Printed(3)[1];
            StringAssert.StartsWith("{\"cmd\":\"printbmpfile\",\"printerType\":\"1\",\"angle\":\"90\",\"filename\":\"/", request);
            StringAssert.EndsWith(".bmp\"}", request);
            Assert.AreEqual(Confirm, Printed(3)[2]);
        }

        [Test]
        public void PrintsALabel()
        {
            new Receipt().Text("Apples").PrintLabel();
            CollectionAssert.AreEqual(
                new[] { Line("Apples").Replace("\"1\"", "\"0\""), Confirm.Replace("\"1\"", "\"0\"") }, Printed(2));
        }

        [Test]
        public void EachJobTypeGoesToItsPrinter()
        {
            foreach (JobType type in Enum.GetValues(typeof(JobType)))
            {
                int before = Printed(0).Count;
                new Receipt().Text("x").Print(type);
                string[] requests = Printed(before + 2).Skip(before).ToArray();
                string name = type.ToString();
                string printer = name.StartsWith("Label") ? "0" : name.StartsWith("Third") ? "2" : "1";
                StringAssert.Contains("\"printerType\":\"" + printer + "\"", requests[0], name);
                Assert.AreEqual(name.Contains("Cut"), requests.Any(r => r.Contains("cutPaper")), name);
                Assert.AreEqual(name.Contains("Feed"), requests.Any(r => r.Contains("printblanks")), name);
            }
        }

        [Test]
        public void NothingIsSentBeforeAllOfItIsChecked()
        {
            var receipt = new Receipt().Text("fine");
            Assert.Throws<ArgumentNullException>(() => receipt.Text(null));
            StringAssert.Contains("position 3", Assert.Throws<ArgumentException>(() => receipt.Text("abc\0def")).Message);
            Assert.Throws<ArgumentOutOfRangeException>(() => receipt.Text("x", 11));
            Assert.Throws<ArgumentOutOfRangeException>(() => receipt.Text("x", 73));
            Assert.Throws<ArgumentOutOfRangeException>(() => receipt.Wrapped("x", 24, 81));
            Assert.Throws<ArgumentOutOfRangeException>(() => receipt.Wrapped("x", 24, -1));
            Assert.Throws<ArgumentOutOfRangeException>(() => receipt.Image("x.bmp", -90));
            Assert.Throws<ArgumentOutOfRangeException>(() => receipt.Image("x.bmp", 65536));
            StringAssert.Contains("Line 2 of the text has 2050 bytes",
                Assert.Throws<ArgumentException>(() => receipt.Text("x\n" + new string('é', 1025))).Message);
            Assert.Throws<ArgumentOutOfRangeException>(() => receipt.Print((JobType)80));
            Assert.Throws<ArgumentOutOfRangeException>(() => receipt.Print((JobType)6));
            Assert.Throws<InvalidOperationException>(() => new Receipt().Print());
            Assert.AreEqual(1, receipt.Count);

            receipt.Image(Path.Combine(Sim.Folder, "missing.bmp"));
            StringAssert.Contains("missing.bmp", Assert.Throws<FileNotFoundException>(() => receipt.Print()).Message);
            Assert.Throws<UnprintableTextException>(() => new Receipt().Text("fine").Text("half \uD83D").Print());
            Assert.AreEqual(0, Printed(0).Count);

            new Receipt().Text("the next one").Print(JobType.Ticket);
            CollectionAssert.AreEqual(new[] { Line("the next one"), Confirm }, Printed(2));
        }

        [Test]
        public void LinesOfFullLengthPrint()
        {
            new Receipt().Text(new string('é', 1024)).Wrapped(new string('x', 5000), 24, 80).Print(JobType.Ticket);
            Assert.AreEqual(3, Printed(3).Count);
        }

        [Test]
        public void MoreImagesThanTheLibraryKeepsAreRefused()
        {
            string picture = Picture("black.bmp");
            var receipt = new Receipt();
            for (int count = 0; count < 200; ++count) receipt.Image(picture);
            Assert.Throws<InvalidOperationException>(() => receipt.Image(picture));
        }

        [Test]
        public void OutOfPaperInTheMiddleIsToldAndTheReceiptPrintsAgain()
        {
            var receipt = new Receipt();
            for (int line = 1; line <= 8; ++line) receipt.Text("line " + line);
            Sim.Do("paper-left 12");
            var failure = Assert.Throws<TolvexException>(() => receipt.Print());
            Assert.AreEqual(ResultCode.OutOfPaper, failure.Code);
            Assert.AreEqual("BeginPrint: 2006 OutOfPaper (Out of Paper). The printer has no paper left. What to do: Put in new " +
                "paper, close the cover, and print the job again: what came out before is not complete.", failure.Message);
            Assert.AreEqual("OutOfPaper", failure.Name);
            Assert.AreEqual("Out of Paper", failure.Text);
            Assert.AreEqual("BeginPrint", failure.Operation);

            PrinterStatus status = ticket.Status();
            Assert.IsFalse(status.IsReady);
            Assert.AreEqual(ResultCode.OutOfPaper, status.Code);
            StringAssert.StartsWith("Put in new paper", status.Remedy);

            Sim.Do("load-paper endless");
            Assert.IsTrue(ticket.Status().IsReady);
            int before = Printed(0).Count;
            ticket.Cut();
            receipt.Print();
            Assert.AreEqual(Enumerable.Range(1, 8).Select(line => Line("line " + line)).Concat(new[] { Confirm, Cut }),
                Printed(before + 11).Skip(before + 1));
            string paper = File.ReadAllText(Sim.PaperFiles().Last());
            for (int line = 1; line <= 8; ++line) StringAssert.Contains("line " + line, paper);
        }

        [Test]
        public void AReplyThatIsNoJsonEndsTheJobAndLeavesNothingForTheNext()
        {
            Sim.Do("wire garbage command=printtext times=1");
            var failure = Assert.Throws<TolvexException>(() => new Receipt().Text("lost").Text("never sent").Print());
            Assert.AreEqual(ResultCode.UnreadableReply, failure.Code);
            new Receipt().Text("next").Print(JobType.Ticket);
            CollectionAssert.AreEqual(new[] { Line("lost"), Line("next"), Confirm }, Printed(3));
        }

        [Test]
        public void PrintsPastTheQueue()
        {
            ticket.PrintText("Äpfel 苹果 😀", 28);
            ticket.PrintWrapped("long", 24, 72);
            ticket.PrintImage(Picture("black.bmp"), 180);
            ticket.Cut();
            CollectionAssert.AreEqual(new[]
            {
                Line("Äpfel 苹果 😀", 28),
                "{\"cmd\":\"print_text_width\",\"printerType\":\"1\",\"fontsize\":\"24\",\"width\":\"576\",\"text\":\"long\"}",
                "{\"cmd\":\"printbmpfile\",\"printerType\":\"1\",\"angle\":\"180\",\"filename\":\"" + Picture("black.bmp") + "\"}",
                Cut
            }, Printed(4));
            Assert.Throws<ArgumentOutOfRangeException>(() => ticket.PrintText("x", 0));
            Assert.Throws<ArgumentException>(() => ticket.PrintText("a\0b"));
            Assert.Throws<UnprintableTextException>(() => ticket.PrintText("\uDE00"));
            var failure = Assert.Throws<TolvexException>(() => ticket.PrintText(new string('x', 2049)));
            Assert.AreEqual(ResultCode.TooMuchToPrint, failure.Code);
        }

        [Test]
        public void MovesPaperAndCalibrates()
        {
            var label = new Printer(PrinterType.Label);
            ticket.Feed();
            Printer.FeedBlank(40);
            label.Calibrate();
            ticket.CalibratePaperEnd();
            CollectionAssert.AreEqual(new[]
            {
                "{\"cmd\":\"printblanks\",\"distance\":\"13\",\"printerType\":\"1\"}",
                "{\"cmd\":\"printblanks\",\"distance\":\"40\",\"printerType\":\"100\"}",
                "{\"cmd\":\"calibrateLabelGap\",\"printerType\":\"0\"}",
                "{\"cmd\":\"calibrateOutOfPaper\",\"printerType\":\"1\"}"
            }, Printed(4));
            Assert.Throws<ArgumentOutOfRangeException>(() => Printer.FeedBlank(0));
            Assert.Throws<ArgumentOutOfRangeException>(() => Printer.FeedBlank(1001));
            Assert.Throws<ArgumentOutOfRangeException>(() => new Printer((PrinterType)(-1)));
        }

        [Test]
        public void SetsWhatAPrinterDoes()
        {
            ticket.SetPaperWidth(72);
            ticket.SetGapType(1);
            ticket.SetDirection(0);
            ticket.SetTextWrapMode(1);
            var settings = new PrinterSettings("Ticket");
            settings.SetLeftMargin(8);
            settings.SetRightMargin(4);
            settings.SetPaperOffset(3);
            settings.SetContrast(50);
            settings.SetSpeed(100);
            settings.SetAutoPrint(true);
            settings.SetRollback(false);
            settings.SetTakeUpSensor(true);
            settings.SetLeftMargin(0);
            settings.SetRightMargin(0);
            string[] requests = Printed(14).ToArray();
            Assert.AreEqual("{\"cmd\":\"setpaperwidth\",\"width\":\"576\",\"printerType\":\"1\"}", requests[0]);
            Assert.AreEqual("{\"cmd\":\"setTextWrapMode\",\"printerType\":\"1\",\"WrapMode\":\"1\"}", requests[3]);
            Assert.AreEqual("{\"cmd\":\"setLeftMargin\",\"printerName\":\"Ticket\",\"leftMargin\":\"8\"}", requests[4]);
            Assert.AreEqual("{\"cmd\":\"setRollback\",\"enable\":\"0\",\"printerName\":\"Ticket\"}", requests[10]);
            Assert.AreEqual("{\"cmd\":\"settakepapersensor\",\"enable\":\"1\",\"printerName\":\"Ticket\"}", requests[11]);
            Assert.AreEqual("Ticket SIM 1.0", settings.FirmwareVersion()["version"]);
            Assert.Throws<ArgumentOutOfRangeException>(() => settings.SetSpeed(-1));
            Assert.Throws<ArgumentOutOfRangeException>(() => ticket.SetPaperWidth(int.MaxValue));
            Assert.AreEqual(ResultCode.PrinterNotFound,
                Assert.Throws<TolvexException>(() => new PrinterSettings("Nobody").SetSpeed(1)).Code);
        }

        [Test]
        public void NamesOfPrintersAreChecked()
        {
            Assert.Throws<ArgumentNullException>(() => new PrinterSettings(null));
            Assert.Throws<ArgumentException>(() => new PrinterSettings(""));
            Assert.Throws<ArgumentException>(() => new PrinterSettings("a\0b"));
            Assert.Throws<ArgumentException>(() => new PrinterSettings(new string('é', 128)));
            Assert.AreEqual("é", new PrinterSettings("é").PrinterName);
        }

        [Test]
        public void ListsThePrintersAndOpensTheDrawer()
        {
            CollectionAssert.AreEqual(new[] { "Label", "Ticket", "Third" }, Service.Printers());
            CashDrawer.Open();
            Assert.AreEqual("{\"cmd\":\"opencashbox\"}", Printed(2)[1]);
        }

        [Test]
        public void SendsAnyCommandToThePrintingService()
        {
            var refused = Assert.Throws<TolvexException>(
                () => Service.RawCommand("Ticket", "beep", 3, null, TimeSpan.FromSeconds(20)));
            Assert.AreEqual(ResultCode.UnsupportPrintCmd, refused.Code);
            Assert.AreEqual("{\"cmd\":\"beep\",\"printerName\":\"Ticket\",\"intParam\":\"3\"}", Printed(1)[0]);
            StringAssert.Contains("PrinterList", Service.RawCommand("Ticket", "getPrinterList", 0, "x", TimeSpan.FromSeconds(20)));
            Assert.Throws<ArgumentOutOfRangeException>(
                () => Service.RawCommand("Ticket", "beep", 3, null, TimeSpan.FromSeconds(-1)));
        }

        [Test]
        public void WhatIsNoStateOfThePrinterIsAFailure()
        {
            Sim.Do("wire result code=7777 command=printerStatus times=1");
            var failure = Assert.Throws<TolvexException>(() => ticket.Status());
            Assert.AreEqual(7777, (int)failure.Code);
            Assert.AreEqual("Unknown code 7777", failure.Name);
            StringAssert.StartsWith("GetPrinterStatus: Unknown code 7777. ", failure.Message);
            StringAssert.Contains("log", failure.Remedy);
            Sim.Do("wire result code=2001 command=printerStatus times=1");
            Assert.AreEqual(ResultCode.PrtConnectionFail, ticket.Status().Code);
        }
    }
}
