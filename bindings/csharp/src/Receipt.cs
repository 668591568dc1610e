using System;
using System.Collections.Generic;
using System.IO;
using System.Threading;
using System.Threading.Tasks;

namespace Tolvex
{
    /// <summary>
    /// A receipt or label: lines and images that are printed as one job. Nothing reaches the library before
    /// <see cref="Print"/>, which first checks all of it. The lines stay, so that a receipt can be printed again after a
    /// failure. While one thread prints a receipt, others that print wait.
    /// </summary>
    public sealed class Receipt
    {
        private const int MinSize = 12, MaxSize = 72;
        private const int MaxWidth = 80;
        private const int MaxLineBytes = 2048;
        private const int MaxImages = 200; // the library keeps so many copies
        private const int MaxAngle = 65535; // is sent as a 16-bit number

        // There is one queue in the process, which nothing but printing empties. Set where a receipt could be queued in
        // part only: no other one may come out with its lines.
        private static bool isQueueSpoilt;

        private readonly List<Item> items = new List<Item>();

        /// <summary>
        /// Whether a character that the system's ANSI code page does not have is printed as "?" instead of being refused.
        /// </summary>
        public bool ReplacesUnprintable { get; set; }

        /// <summary>How many lines and images there are.</summary>
        public int Count
        {
            get { return items.Count; }
        }

        // ---- What is on it ----

        /// <summary>Adds a line, or several with line feeds between them. An empty one is a blank line.</summary>
        /// <param name="text">Lines of at most 2048 bytes of UTF-8.</param>
        /// <param name="size">Height of the characters in dots, 12 to 72.</param>
        public Receipt Text(string text, int size = 24)
        {
            Texts.Check(text, "text");
            CheckLines(text);
            uint height = Arguments.Unsigned(size, "size", MinSize, MaxSize);
            string queued = text.Length > 0 ? text : " "; // the library would queue nothing
            return Add("PrintText", replace =>
            {
                byte[] bytes = Texts.Ansi(queued, replace, "text");
                return () => Exports.PrintText(bytes, height);
            });
        }

        /// <summary>The same for paper of the given width, with lines of any length.</summary>
        /// <param name="text">The text.</param>
        /// <param name="size">Height of the characters in dots, 12 to 72.</param>
        /// <param name="widthMm">Width of the paper in millimetres, 0 to 80; 0 leaves it to the service.</param>
        public Receipt Wrapped(string text, int size, int widthMm)
        {
            Texts.Check(text, "text");
            uint height = Arguments.Unsigned(size, "size", MinSize, MaxSize);
            uint width = Arguments.Unsigned(widthMm, "widthMm", 0, MaxWidth);
            string queued = text.Length > 0 ? text : " ";
            return Add("PrintTextByPaperWidth", replace =>
            {
                byte[] bytes = Texts.Ansi(queued, replace, "text");
                return () => Exports.PrintTextByPaperWidth(bytes, height, width);
            });
        }

        /// <summary>Adds blank lines.</summary>
        public Receipt Blank(int lines = 1, int size = 24)
        {
            for (uint left = Arguments.Unsigned(lines, "lines"); left > 0; --left) Text(" ", size);
            return this;
        }

        /// <summary>
        /// Adds an image, which is read when the receipt is printed. The service has to be on this machine.
        /// </summary>
        /// <param name="path">The file; a relative one counts from the current folder.</param>
        /// <param name="angle">0, 90, 180 or 270.</param>
        public Receipt Image(string path, int angle = 0)
        {
            Texts.Check(path, "path");
            string file = Path.GetFullPath(path);
            int turned = (int)Arguments.Unsigned(angle, "angle", 0, MaxAngle);
            int images = 1;
            foreach (Item item in items) images += item.IsImage ? 1 : 0;
            if (images > MaxImages)
            {
                throw new InvalidOperationException("A receipt has at most " + MaxImages + " images: the library keeps as many " +
                    "copies, and later ones would take the place of the first.");
            }
            Add("PrintBitmapFile", replace =>
            {
                if (!File.Exists(file)) throw new FileNotFoundException("The image " + file + " of the receipt is missing.", file);
                byte[] bytes = Texts.Ansi(file, false, "path"); // another name would be another file
                return () => Exports.PrintBitmapFile(bytes, turned);
            });
            items[items.Count - 1].IsImage = true;
            return this;
        }

        private Receipt Add(string operation, Func<bool, Func<int>> prepare)
        {
            items.Add(new Item { Operation = operation, Prepare = prepare });
            return this;
        }

        private static void CheckLines(string text)
        {
            string[] lines = text.Split(new[] { '\n' });
            for (int index = 0; index < lines.Length; ++index)
            {
                int size = Texts.Utf8Count(lines[index].TrimEnd(new[] { '\r' }));
                if (size > MaxLineBytes)
                {
                    throw new ArgumentException("Line " + (index + 1) + " of the text has " + size + " bytes of UTF-8; at most " +
                        MaxLineBytes + " are printed. What to do: break it into shorter lines, or add it with Wrapped.", "text");
                }
            }
        }

        // ---- Printing ----

        /// <summary>
        /// Prints the receipt. If it fails, what went out before is with the printer already: cut it off with
        /// <see cref="Printer.Cut"/> before the receipt is printed again. Takes 42 s at most for each line and 84 s more,
        /// and ends with the first line that fails.
        /// </summary>
        /// <exception cref="TolvexException">The printer or the service refused.</exception>
        /// <exception cref="UnprintableTextException">The code page does not have a character. Nothing was printed.</exception>
        /// <exception cref="FileNotFoundException">An image is missing. Nothing was printed.</exception>
        /// <exception cref="InvalidOperationException">There is nothing on the receipt.</exception>
        public void Print(JobType type = JobType.TicketCut)
        {
            Connection.Printing.Run(Prepared(type));
        }

        /// <summary>The same, asynchronously. The token ends the waiting for the turn, never the printing.</summary>
        public Task PrintAsync(JobType type = JobType.TicketCut, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared(type), token);
        }

        /// <summary>Prints it on the label printer.</summary>
        public void PrintLabel()
        {
            Print(JobType.Label);
        }

        /// <summary>The same, asynchronously.</summary>
        public Task PrintLabelAsync(CancellationToken token = default(CancellationToken))
        {
            return PrintAsync(JobType.Label, token);
        }

        // All is converted and checked before the first line is queued. Lines that are added meanwhile do not count.
        private Action Prepared(JobType type)
        {
            if (!Enum.IsDefined(typeof(JobType), type))
            {
                throw new ArgumentOutOfRangeException("type", type, "There is no such type of print job.");
            }
            if (items.Count == 0) throw new InvalidOperationException("There is nothing on the receipt.");
            var calls = new List<KeyValuePair<string, Func<int>>>();
            foreach (Item item in items)
            {
                calls.Add(new KeyValuePair<string, Func<int>>(item.Operation, item.Prepare(ReplacesUnprintable)));
            }
            return () => PrintNow(calls, type);
        }

        private static void PrintNow(List<KeyValuePair<string, Func<int>>> calls, JobType type)
        {
            if (isQueueSpoilt)
            {
                throw new InvalidOperationException("An earlier receipt could not be queued in full, and its lines would come " +
                    "out with this one. What to do: restart the application.");
            }
            bool isBegun = false;
            foreach (KeyValuePair<string, Func<int>> call in calls)
            {
                int verdict = call.Value();
                if (verdict != Exports.TOLVEX_OK)
                {
                    isQueueSpoilt = isBegun;
                    // Queueing leaves no code behind: the last error is that of something else.
                    int code = verdict == Exports.TOLVEX_FAILED ? (int)ResultCode.Failed : verdict;
                    throw new TolvexException(call.Key, ResultInfo.Of(code));
                }
                isBegun = true;
            }
            Results.CheckVerdict("BeginPrint", Exports.BeginPrint((int)type));
        }

        private sealed class Item
        {
            internal string Operation;
            internal Func<bool, Func<int>> Prepare;
            internal bool IsImage;
        }
    }
}
