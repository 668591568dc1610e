using System;
using System.Globalization;

namespace Tolvex
{
    /// <summary>A text has a character that cannot be sent.</summary>
    public class UnprintableTextException : ArgumentException
    {
        private const int ShownUnits = 60;

        private UnprintableTextException(string message, string parameter, string character, int index, string codePage)
            : base(message, parameter)
        {
            Character = character;
            Index = index;
            CodePage = codePage;
        }

        /// <summary>The character: one UTF-16 unit, or a pair.</summary>
        public string Character { get; private set; }

        /// <summary>Its position in the text, in UTF-16 units from 0.</summary>
        public int Index { get; private set; }

        /// <summary>The character set of which it is none, such as "GBK" or "Windows code page 1252".</summary>
        public string CodePage { get; private set; }

        internal static UnprintableTextException NotInCodePage(string text, int index, string codePage, string parameter)
        {
            string character = text.Substring(index, Math.Max(Texts.UnitsAt(text, index), 1));
            int number = character.Length == 2 ? char.ConvertToUtf32(character[0], character[1]) : character[0];
            return new UnprintableTextException("The character " + Hexadecimal(number) + " (" + character + ") at position " +
                index + " of \"" + Shown(text, index) + "\" is not in " + codePage + ", the system's ANSI code page, in which " +
                "receipts are queued. What to do: " + Remedy(parameter == "path") + ", or have the application run under UTF-8 " +
                "(Windows: in its manifest; Linux: LC_ALL=C.UTF-8).", parameter, character, index, codePage);
        }

        internal static UnprintableTextException HalfCharacter(string text, int index, string codePage, string parameter)
        {
            return new UnprintableTextException("The unit " + Hexadecimal(text[index]) + " at position " + index +
                " of the text is half of a surrogate pair, which is no character. What to do: look at where the text was " +
                "cut or joined.", parameter, text.Substring(index, 1), index, codePage);
        }

        private static string Remedy(bool isPath)
        {
            return isPath ? "give the file another name, print it past the queue with Printer.PrintImage"
                : "print this text past the queue with Printer.PrintText, let the receipt replace such characters by \"?\"";
        }

        private static string Hexadecimal(int number)
        {
            return "U+" + number.ToString("X4", CultureInfo.InvariantCulture);
        }

        // Of a long text what is around the position, cut between characters.
        private static string Shown(string text, int index)
        {
            int start = Math.Max(index - ShownUnits / 2, 0), end = Math.Min(start + ShownUnits, text.Length);
            if (start > 0 && char.IsLowSurrogate(text[start])) --start;
            if (end < text.Length && char.IsLowSurrogate(text[end])) ++end;
            return (start > 0 ? "..." : "") + text.Substring(start, end - start) + (end < text.Length ? "..." : "");
        }
    }
}
