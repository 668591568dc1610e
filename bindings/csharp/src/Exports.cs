using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

namespace Tolvex
{
    public static partial class Exports
    {
        /// <summary>A text for exports that take UTF-8 (printTextById and its kind, raw commands, printer names).</summary>
        public static byte[] Utf8(string text)
        {
            return Texts.Utf8(text, "text");
        }

        /// <summary>
        /// A text for exports that take the system's ANSI code page (PrintText, PrintTextByPaperWidth,
        /// PrintBitmapFile).
        /// </summary>
        /// <exception cref="UnprintableTextException">The code page does not have one of the characters.</exception>
        public static byte[] Ansi(string text)
        {
            return Texts.Ansi(text, false, "text");
        }

        /// <summary>The text in a buffer that an export has filled: UTF-8, up to the first NUL or the end.</summary>
        public static string TextOf(byte[] buffer)
        {
            if (buffer == null) throw new ArgumentNullException("buffer");
            return Texts.FromBytes(buffer, 0, buffer.Length);
        }

        // Null, or what is wrong with the library.
        internal static string BindTo(IntPtr library)
        {
            var found = new Dictionary<string, IntPtr>();
            var missing = new List<string>();
            foreach (string name in Names)
            {
                found[name] = NativeLoader.Find(library, name);
                if (found[name] == IntPtr.Zero) missing.Add(name);
            }
            if (missing.Count > 0)
            {
                return "lacks " + missing.Count + " functions, such as " + missing[0] +
                    "; it is another library, or of another version";
            }
            Bind(name => found[name]);
            return null;
        }

        private static Delegate Function(IntPtr address, Type type)
        {
            return Marshal.GetDelegateForFunctionPointer(address, type);
        }

        // The library trusts the stated size.
        private static void CheckRoom(byte[] buffer, uint size, string name)
        {
            if (buffer != null && size > buffer.Length)
            {
                throw new ArgumentException("The buffer has " + buffer.Length + " bytes, but " + size + " are needed.", name);
            }
        }

        private static void CheckEnd(byte[] text, string name)
        {
            if (text != null && Array.IndexOf(text, (byte)0) < 0)
            {
                throw new ArgumentException("The text has no terminating NUL.", name);
            }
        }

        // The library reads up to the NUL.
        private static byte[] Ended(byte[] text)
        {
            if (text == null || Array.IndexOf(text, (byte)0) >= 0) return text;
            var ended = new byte[text.Length + 1];
            Array.Copy(text, ended, text.Length);
            return ended;
        }
    }
}
