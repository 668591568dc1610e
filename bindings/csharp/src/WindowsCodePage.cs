using System;
using System.Runtime.InteropServices;

namespace Tolvex
{
    /// <summary>The ANSI code page of the process: the system's, unless the application's manifest asks for UTF-8.</summary>
    internal sealed class WindowsCodePage : AnsiCharset
    {
        private const uint OfTheProcess = 0, NoBestFit = 0x400;
        private const uint Utf8Number = 65001;

        // What stands in the place of a character that is not in the code page, with a NUL behind it.
        private static readonly byte[] replacement = { (byte)'?', 0 };

        private readonly uint number = GetACP();

        [DllImport("kernel32", ExactSpelling = true)]
        private static extern uint GetACP();

        [DllImport("kernel32", CharSet = CharSet.Unicode, ExactSpelling = true)]
        private static extern int WideCharToMultiByte(uint codePage, uint flags, string text, int count, byte[] bytes,
            int size, byte[] replacement, out int isReplaced);

        internal override string Name
        {
            get { return IsUtf8 ? "UTF-8" : "Windows code page " + number; }
        }

        // Then WideCharToMultiByte would refuse the flag and the answer about replacements.
        internal override bool IsUtf8
        {
            get { return number == Utf8Number; }
        }

        internal override byte[] Encode(string text, bool replace, out int unknown)
        {
            unknown = -1;
            if (text.Length == 0) return new byte[0];
            int isReplaced;
            int size = WideCharToMultiByte(OfTheProcess, NoBestFit, text, text.Length, null, 0, replacement, out isReplaced);
            var bytes = new byte[size];
            int written = WideCharToMultiByte(OfTheProcess, NoBestFit, text, text.Length, bytes, size, replacement, out isReplaced);
            if (size == 0 || written != size) throw new InvalidOperationException("Windows cannot convert to " + Name + ".");
            if (isReplaced == 0 || replace) return bytes;
            unknown = FirstUnknown(text);
            return null;
        }

        private static int FirstUnknown(string text)
        {
            for (int index = 0; index < text.Length;)
            {
                int units = Math.Max(Texts.UnitsAt(text, index), 1), isReplaced;
                WideCharToMultiByte(OfTheProcess, NoBestFit, text.Substring(index, units), units, null, 0, replacement,
                    out isReplaced);
                if (isReplaced != 0) return index;
                index += units;
            }
            return 0;
        }
    }
}
