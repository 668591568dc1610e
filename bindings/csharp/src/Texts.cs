using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Tolvex
{
    /// <summary>Texts on their way to the library, as bytes with a terminating NUL, and back.</summary>
    internal static class Texts
    {
        private static readonly Encoding utf8 = new UTF8Encoding(false, false);

        internal static byte[] Utf8(string text, string parameter)
        {
            Check(text, parameter);
            CheckSurrogates(text, parameter, "UTF-8");
            return Utf8Ended(text);
        }

        internal static byte[] Ansi(string text, bool replace, string parameter)
        {
            Check(text, parameter);
            AnsiCharset charset = AnsiCharset.OfTheSystem;
            if (replace) text = WithoutLoneSurrogates(text);
            else CheckSurrogates(text, parameter, charset.Name);
            if (charset.IsUtf8) return Utf8Ended(text);
            int unknown;
            byte[] bytes = charset.Encode(text, replace, out unknown);
            if (bytes == null) throw UnprintableTextException.NotInCodePage(text, unknown, charset.Name, parameter);
            Array.Resize(ref bytes, bytes.Length + 1);
            return bytes;
        }

        // Without any check.
        internal static byte[] Utf8Ended(string text)
        {
            var bytes = new byte[utf8.GetByteCount(text) + 1];
            utf8.GetBytes(text, 0, text.Length, bytes, 0);
            return bytes;
        }

        internal static int Utf8Count(string text)
        {
            return utf8.GetByteCount(text);
        }

        // A NUL would end the text for the library.
        internal static void Check(string text, string parameter)
        {
            if (text == null) throw new ArgumentNullException(parameter);
            int nul = text.IndexOf('\0');
            if (nul >= 0)
            {
                throw new ArgumentException("The text has a NUL character at position " + nul +
                    ", where the library would take it to end.", parameter);
            }
        }

        // Up to the first NUL or the end; a bad byte becomes U+FFFD.
        internal static string FromBytes(byte[] bytes, int start, int count)
        {
            int end = Array.IndexOf(bytes, (byte)0, start, count);
            return utf8.GetString(bytes, start, (end < 0 ? start + count : end) - start);
        }

        internal static string FromPointer(IntPtr text)
        {
            int size = 0;
            while (Marshal.ReadByte(text, size) != 0) ++size;
            var bytes = new byte[size];
            Marshal.Copy(text, bytes, 0, size);
            return utf8.GetString(bytes);
        }

        // Of how many UTF-16 units the character here is; 0 for half of one.
        internal static int UnitsAt(string text, int index)
        {
            if (!char.IsSurrogate(text[index])) return 1;
            bool isPair = char.IsHighSurrogate(text[index]) && index + 1 < text.Length && char.IsLowSurrogate(text[index + 1]);
            return isPair ? 2 : 0;
        }

        private static void CheckSurrogates(string text, string parameter, string charset)
        {
            for (int index = 0; index < text.Length;)
            {
                int units = UnitsAt(text, index);
                if (units == 0) throw UnprintableTextException.HalfCharacter(text, index, charset, parameter);
                index += units;
            }
        }

        private static string WithoutLoneSurrogates(string text)
        {
            var result = new StringBuilder(text.Length);
            for (int index = 0; index < text.Length;)
            {
                int units = UnitsAt(text, index);
                if (units == 0) result.Append('?');
                else result.Append(text, index, units);
                index += Math.Max(units, 1);
            }
            return result.ToString();
        }
    }
}
