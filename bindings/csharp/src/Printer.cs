using System;
using System.IO;
using System.Threading;
using System.Threading.Tasks;

namespace Tolvex
{
    /// <summary>Which printer is meant, as the service numbers them.</summary>
    public enum PrinterType
    {
        /// <summary>The label printer.</summary>
        Label = 0,

        /// <summary>The ticket printer.</summary>
        Ticket = 1,

        /// <summary>A third printer.</summary>
        Third = 2,

        /// <summary>Whichever is the service's default.</summary>
        Default = 100
    }

    /// <summary>
    /// A printer, for what is done at once: its state, paper, and lines past the queue. A receipt is printed by
    /// <see cref="Receipt"/>. A call takes 42 s at most, and waits for its turn before that: use the ...Async methods in
    /// a user interface. Their tokens end the waiting for the turn, never a call that has begun.
    /// </summary>
    /// <exception cref="TolvexException">The printer or the service refused.</exception>
    public sealed class Printer
    {
        private const int MaxDistance = 1000;
        private const int DotsPerMillimetre = 8;
        private const int MaxWidth = int.MaxValue / DotsPerMillimetre; // is sent in dots

        private readonly uint type;

        /// <summary>The printer of this type.</summary>
        public Printer(PrinterType type)
        {
            this.type = Arguments.Unsigned((int)type, "type");
        }

        /// <summary>The printer's type.</summary>
        public PrinterType Type
        {
            get { return (PrinterType)type; }
        }

        // ---- State ----

        /// <summary>Asks for the printer's state. Out of paper and its like are states, not failures.</summary>
        public PrinterStatus Status()
        {
            return Connection.Printing.Run(new Func<PrinterStatus>(StatusNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<PrinterStatus> StatusAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(new Func<PrinterStatus>(StatusNow), token);
        }

        private PrinterStatus StatusNow()
        {
            int code = Exports.GetPrinterStatus(type);
            if (!PrinterStatus.IsState(code)) Results.CheckCode("GetPrinterStatus", code);
            return new PrinterStatus(ResultInfo.Of(code));
        }

        // ---- Lines past the queue ----

        /// <summary>
        /// Prints a line now, of any script: it is sent as UTF-8. It belongs to whatever this printer prints next;
        /// <see cref="Cut"/> ends it.
        /// </summary>
        /// <param name="text">At most 2048 bytes of UTF-8.</param>
        /// <param name="size">Height of the characters in dots.</param>
        public void PrintText(string text, int size = 24)
        {
            Connection.Printing.Run(PreparedText(text, size));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task PrintTextAsync(string text, int size = 24, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(PreparedText(text, size), token);
        }

        private Action PreparedText(string text, int size)
        {
            byte[] bytes = Texts.Utf8(text, "text");
            uint height = Arguments.Unsigned(size, "size", 1);
            return () => Results.CheckCode("printTextById", Exports.printTextById(bytes, height, type));
        }

        /// <summary>The same for paper of the given width in millimetres, with a text of any length.</summary>
        public void PrintWrapped(string text, int size, int widthMm)
        {
            Connection.Printing.Run(PreparedWrapped(text, size, widthMm));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task PrintWrappedAsync(string text, int size, int widthMm, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(PreparedWrapped(text, size, widthMm), token);
        }

        private Action PreparedWrapped(string text, int size, int widthMm)
        {
            byte[] bytes = Texts.Utf8(text, "text");
            uint height = Arguments.Unsigned(size, "size", 1), width = Arguments.Unsigned(widthMm, "widthMm", 0, MaxWidth);
            return () => Results.CheckCode("printTextByPaperWidthById",
                Exports.printTextByPaperWidthById(bytes, height, width, type));
        }

        /// <summary>Prints an image now. The service opens the file, so it has to be on the service's machine.</summary>
        /// <param name="path">The file; a relative one counts from this process's current folder.</param>
        /// <param name="angle">0, 90, 180 or 270.</param>
        public void PrintImage(string path, int angle = 0)
        {
            Connection.Printing.Run(PreparedImage(path, angle));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task PrintImageAsync(string path, int angle = 0, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(PreparedImage(path, angle), token);
        }

        private Action PreparedImage(string path, int angle)
        {
            Texts.Check(path, "path");
            byte[] bytes = Texts.Utf8(Path.GetFullPath(path), "path");
            uint turned = Arguments.Unsigned(angle, "angle");
            return () => Results.CheckCode("printBitmapFileById", Exports.printBitmapFileById(bytes, turned, type));
        }

        // ---- Paper ----

        /// <summary>Cuts the paper, through 70 percent of its width.</summary>
        public void Cut()
        {
            Connection.Printing.Run(new Action(CutNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task CutAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(new Action(CutNow), token);
        }

        private void CutNow()
        {
            Results.CheckCode("cutPaperById", Exports.cutPaperById(type));
        }

        /// <summary>Feeds a distance of 13.</summary>
        public void Feed()
        {
            Connection.Printing.Run(new Action(FeedNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task FeedAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(new Action(FeedNow), token);
        }

        private void FeedNow()
        {
            Results.CheckVerdict("feedPaperById", Exports.feedPaperById(type));
        }

        /// <summary>Feeds blank paper on the default printer, whatever the type of this one would be.</summary>
        /// <param name="distance">1 to 1000, in the service's unit.</param>
        public static void FeedBlank(int distance)
        {
            Connection.Printing.Run(PreparedFeed(distance));
        }

        /// <summary>The same, asynchronously.</summary>
        public static Task FeedBlankAsync(int distance, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(PreparedFeed(distance), token);
        }

        private static Action PreparedFeed(int distance)
        {
            uint length = Arguments.Unsigned(distance, "distance", 1, MaxDistance);
            return () => Results.CheckVerdict("printBlanks", Exports.printBlanks(length));
        }

        /// <summary>Measures the gap between the labels.</summary>
        public void Calibrate()
        {
            Connection.Printing.Run(new Action(CalibrateNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task CalibrateAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(new Action(CalibrateNow), token);
        }

        private void CalibrateNow()
        {
            Results.CheckVerdict("calibrateLabel", Exports.calibrateLabel(type));
        }

        /// <summary>Calibrates the sensor for the end of the paper.</summary>
        public void CalibratePaperEnd()
        {
            Connection.Printing.Run(new Action(CalibratePaperEndNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task CalibratePaperEndAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(new Action(CalibratePaperEndNow), token);
        }

        private void CalibratePaperEndNow()
        {
            Results.CheckCode("testPaper", Exports.testPaper(type));
        }

        // ---- Settings ----

        /// <summary>Sets the width of the paper, in millimetres.</summary>
        public void SetPaperWidth(int widthMm)
        {
            Connection.Printing.Run(PreparedPaperWidth(widthMm));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetPaperWidthAsync(int widthMm, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(PreparedPaperWidth(widthMm), token);
        }

        private Action PreparedPaperWidth(int widthMm)
        {
            uint width = Arguments.Unsigned(widthMm, "widthMm", 0, MaxWidth);
            return () => Results.CheckCode("setDefaultPaperWidth", Exports.setDefaultPaperWidth(width, type));
        }

        /// <summary>Sets how labels are told apart. The numbers are the service's.</summary>
        public void SetGapType(int gapType)
        {
            Connection.Printing.Run(Prepared("setGapType", gapType, "gapType", Exports.setGapType));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetGapTypeAsync(int gapType, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared("setGapType", gapType, "gapType", Exports.setGapType), token);
        }

        /// <summary>Sets which way round the printer prints. The numbers are the service's.</summary>
        public void SetDirection(int direction)
        {
            Connection.Printing.Run(Prepared("setPrinterDirection", direction, "direction", Exports.setPrinterDirection));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetDirectionAsync(int direction, CancellationToken token = default(CancellationToken))
        {
            Action call = Prepared("setPrinterDirection", direction, "direction", Exports.setPrinterDirection);
            return Connection.Printing.RunAsync(call, token);
        }

        /// <summary>Sets what becomes of a line that is too long. The numbers are the service's.</summary>
        public void SetTextWrapMode(int wrapMode)
        {
            Connection.Printing.Run(Prepared("setTextWrapMode", wrapMode, "wrapMode", Exports.setTextWrapMode));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetTextWrapModeAsync(int wrapMode, CancellationToken token = default(CancellationToken))
        {
            Action call = Prepared("setTextWrapMode", wrapMode, "wrapMode", Exports.setTextWrapMode);
            return Connection.Printing.RunAsync(call, token);
        }

        private Action Prepared(string operation, int value, string parameter, Func<uint, uint, int> export)
        {
            uint number = Arguments.Unsigned(value, parameter);
            return () => Results.CheckCode(operation, export(number, type));
        }
    }

    /// <summary>The state of a printer.</summary>
    public sealed class PrinterStatus
    {
        private const int FirstState = 2001, LastState = 2010;

        internal PrinterStatus(ResultInfo info)
        {
            Info = info;
        }

        /// <summary>Whether it can print.</summary>
        public bool IsReady
        {
            get { return Code == ResultCode.Ok; }
        }

        /// <summary>The state as a result code, such as <see cref="ResultCode.OutOfPaper"/>.</summary>
        public ResultCode Code
        {
            get { return Info.Code; }
        }

        /// <summary>Its name, such as "OutOfPaper".</summary>
        public string Name
        {
            get { return Info.Name; }
        }

        /// <summary>Its text, such as "Out of Paper".</summary>
        public string Text
        {
            get { return Info.Text; }
        }

        /// <summary>What to do about it.</summary>
        public string Remedy
        {
            get { return Info.Remedy; }
        }

        /// <summary>All of the code in one.</summary>
        public ResultInfo Info { get; private set; }

        /// <summary>The state in one line.</summary>
        public override string ToString()
        {
            return IsReady ? "ready" : Info.ToString();
        }

        internal static bool IsState(int code)
        {
            return code == 0 || (code >= FirstState && code <= LastState);
        }
    }
}
