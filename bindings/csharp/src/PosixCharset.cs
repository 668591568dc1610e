using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Tolvex
{
    /// <summary>The character set of the user's locale, found as the library finds it, and its conversion by iconv.</summary>
    internal sealed class PosixCharset : AnsiCharset
    {
        private const int CtypeMask = 1, Codeset = 14;
        private const int TooBig = 7; // E2BIG
        private const string Utf8Name = "UTF-8", Utf16 = "UTF-16LE";

        private readonly string name;

        [DllImport("libc.so.6")]
        private static extern IntPtr getenv(byte[] name);

        [DllImport("libc.so.6")]
        private static extern IntPtr newlocale(int mask, byte[] name, IntPtr basis);

        [DllImport("libc.so.6")]
        private static extern IntPtr nl_langinfo_l(int item, IntPtr locale);

        [DllImport("libc.so.6")]
        private static extern void freelocale(IntPtr locale);

        [DllImport("libc.so.6")]
        private static extern IntPtr iconv_open(byte[] to, byte[] from);

        [DllImport("libc.so.6")]
        private static extern int iconv_close(IntPtr conversion);

        [DllImport("libc.so.6", SetLastError = true)]
        private static extern IntPtr iconv(IntPtr conversion, ref IntPtr input, ref UIntPtr inputLeft, ref IntPtr output,
            ref UIntPtr outputLeft);

        [DllImport("libc.so.6", EntryPoint = "iconv", SetLastError = true)]
        private static extern IntPtr iconvEnd(IntPtr conversion, IntPtr none, IntPtr nothing, ref IntPtr output,
            ref UIntPtr outputLeft);

        internal PosixCharset()
        {
            name = UserCharset();
        }

        internal override string Name
        {
            get { return name; }
        }

        internal override bool IsUtf8
        {
            get { return name == Utf8Name; }
        }

        internal override byte[] Encode(string text, bool replace, out int unknown)
        {
            return Encode(name, text, replace, out unknown);
        }

        // ---- Which set ----

        private static string UserCharset()
        {
            string locale = LocaleName(Variable("LC_ALL"), Variable("LC_CTYPE"), Variable("LANG"));
            if (locale.Length == 0 || locale == "C" || locale == "POSIX") return Utf8Name;
            string charset = InstalledCharset();
            if (charset.Length == 0) charset = CharsetInName(locale);
            return IsUsable(charset) && !MeansUtf8(charset) ? charset : Utf8Name;
        }

        internal static string LocaleName(params string[] values)
        {
            foreach (string value in values)
            {
                if (!string.IsNullOrEmpty(value)) return value;
            }
            return "";
        }

        internal static string CharsetInName(string locale)
        {
            int dot = locale.IndexOf('.'), modifier = locale.IndexOf('@');
            if (modifier < 0) modifier = locale.Length;
            return dot < 0 || dot > modifier ? "" : locale.Substring(dot + 1, modifier - dot - 1);
        }

        internal static bool MeansUtf8(string charset)
        {
            return charset.Replace("-", "").Replace("_", "").ToUpperInvariant() == "UTF8";
        }

        // The native environment: runtimes keep a copy of their own, which the library does not see.
        private static string Variable(string variable)
        {
            IntPtr value = getenv(Texts.Utf8Ended(variable));
            return value == IntPtr.Zero ? null : Texts.FromPointer(value);
        }

        private static string InstalledCharset()
        {
            IntPtr locale = newlocale(CtypeMask, Texts.Utf8Ended(""), IntPtr.Zero);
            if (locale == IntPtr.Zero) return "";
            string charset = Texts.FromPointer(nl_langinfo_l(Codeset, locale));
            freelocale(locale);
            return charset;
        }

        // iconv would take an empty name for the host's locale, and options behind a slash.
        internal static bool IsUsable(string charset)
        {
            if (charset.Length == 0 || charset.IndexOf('/') >= 0) return false;
            IntPtr conversion = Open(charset);
            if (conversion == Failed) return false;
            iconv_close(conversion);
            const string ascii = "AZaz09";
            int unknown;
            byte[] bytes = Encode(charset, ascii, false, out unknown);
            return bytes != null && Encoding.ASCII.GetString(bytes) == ascii;
        }

        // ---- Conversion ----

        private static readonly IntPtr Failed = new IntPtr(-1);

        private static IntPtr Open(string charset)
        {
            return iconv_open(Texts.Utf8Ended(charset), Texts.Utf8Ended(Utf16));
        }

        // iconv keeps its state in the conversion, so each text opens its own.
        private static byte[] Encode(string charset, string text, bool replace, out int unknown)
        {
            unknown = -1;
            IntPtr conversion = Open(charset);
            if (conversion == Failed) throw new InvalidOperationException("iconv cannot convert to " + charset + ".");
            var output = new Output(text.Length * 4 + 64);
            GCHandle pinned = GCHandle.Alloc(Encoding.Unicode.GetBytes(text), GCHandleType.Pinned);
            try
            {
                IntPtr start = pinned.AddrOfPinnedObject(), input = start;
                long left = text.Length * 2L;
                while (left > 0)
                {
                    if (output.Convert(conversion, ref input, ref left)) break;
                    if (output.IsFull) continue;
                    int index = (int)((input.ToInt64() - start.ToInt64()) / 2);
                    if (!replace)
                    {
                        unknown = index;
                        return null;
                    }
                    output.End(conversion);
                    output.Append((byte)'?');
                    int skipped = Math.Max(Texts.UnitsAt(text, index), 1) * 2;
                    input = new IntPtr(input.ToInt64() + skipped);
                    left -= skipped;
                }
                output.End(conversion);
                return output.ToArray();
            }
            finally
            {
                pinned.Free();
                iconv_close(conversion);
                output.Dispose();
            }
        }

        // What iconv writes, in memory that does not move.
        private sealed class Output : IDisposable
        {
            private byte[] bytes;
            private int size;
            private GCHandle pinned;

            internal Output(int capacity)
            {
                bytes = new byte[capacity];
                pinned = GCHandle.Alloc(bytes, GCHandleType.Pinned);
            }

            // Whether the latest conversion stopped for want of room, which there is now.
            internal bool IsFull { get; private set; }

            internal bool Convert(IntPtr conversion, ref IntPtr input, ref long left)
            {
                IntPtr at = At, result;
                UIntPtr room = Room, inputLeft = new UIntPtr((ulong)left);
                result = iconv(conversion, ref input, ref inputLeft, ref at, ref room);
                return Took(result, room, ref left, (long)inputLeft.ToUInt64());
            }

            private bool Took(IntPtr result, UIntPtr room, ref long left, long inputLeft)
            {
                int error = Marshal.GetLastWin32Error();
                left = inputLeft;
                size = bytes.Length - (int)room.ToUInt64();
                IsFull = result == Failed && error == TooBig;
                if (IsFull) Grow();
                return result != Failed;
            }

            // Some sets hold a letter back until it is known whether an accent follows.
            internal void End(IntPtr conversion)
            {
                do
                {
                    IntPtr at = At, result;
                    UIntPtr room = Room;
                    long nothing = 0;
                    result = iconvEnd(conversion, IntPtr.Zero, IntPtr.Zero, ref at, ref room);
                    Took(result, room, ref nothing, 0);
                }
                while (IsFull);
            }

            internal void Append(byte value)
            {
                if (size == bytes.Length) Grow();
                bytes[size++] = value;
            }

            internal byte[] ToArray()
            {
                var result = new byte[size];
                Array.Copy(bytes, result, size);
                return result;
            }

            public void Dispose()
            {
                pinned.Free();
            }

            private IntPtr At
            {
                get { return new IntPtr(pinned.AddrOfPinnedObject().ToInt64() + size); }
            }

            private UIntPtr Room
            {
                get { return new UIntPtr((ulong)(bytes.Length - size)); }
            }

            private void Grow()
            {
                pinned.Free();
                Array.Resize(ref bytes, bytes.Length * 2);
                pinned = GCHandle.Alloc(bytes, GCHandleType.Pinned);
            }
        }
    }
}
