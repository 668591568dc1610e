using System;
using System.IO;
using System.Runtime.InteropServices;
using System.Text;

namespace Tolvex
{
    /// <summary>Loads a native library by the system's own means: DllImport by name depends on each runtime's search.</summary>
    internal static class NativeLoader
    {
        internal static readonly bool IsWindows = Path.DirectorySeparatorChar == '\\';

        // Zero, and what the system says, if the file cannot be loaded.
        internal static IntPtr Open(string file, out string wrong)
        {
            try
            {
                return IsWindows ? Windows.Open(file, out wrong) : Posix.Open(file, out wrong);
            }
            catch (DllNotFoundException e)
            {
                wrong = "this system has no " + e.Message + "; tolvex runs on 64-bit Windows and on Linux with glibc";
                return IntPtr.Zero;
            }
        }

        // Zero if the library has no such function.
        internal static IntPtr Find(IntPtr handle, string name)
        {
            return IsWindows ? Windows.GetProcAddress(handle, name) : Posix.Find(handle, name);
        }

        private static class Windows
        {
            private const uint AlteredSearchPath = 8; // what the library needs is looked for beside it first
            private const uint FromSystem = 0x1000, IgnoreInserts = 0x200;
            private const int BadExeFormat = 193, ModuleNotFound = 126;

            [DllImport("kernel32", CharSet = CharSet.Unicode, SetLastError = true, ExactSpelling = true)]
            private static extern IntPtr LoadLibraryExW(string file, IntPtr reserved, uint flags);

            [DllImport("kernel32", CharSet = CharSet.Ansi, ExactSpelling = true)]
            internal static extern IntPtr GetProcAddress(IntPtr module, string name);

            [DllImport("kernel32", CharSet = CharSet.Unicode, ExactSpelling = true)]
            private static extern uint FormatMessageW(uint flags, IntPtr source, uint id, uint language,
                StringBuilder buffer, uint size, IntPtr arguments);

            internal static IntPtr Open(string file, out string wrong)
            {
                IntPtr handle = LoadLibraryExW(file, IntPtr.Zero, Path.IsPathRooted(file) ? AlteredSearchPath : 0);
                wrong = handle == IntPtr.Zero ? LastError() : null;
                return handle;
            }

            private static string LastError()
            {
                int error = Marshal.GetLastWin32Error();
                var text = new StringBuilder(512);
                uint size = FormatMessageW(FromSystem | IgnoreInserts, IntPtr.Zero, (uint)error, 0, text,
                    (uint)text.Capacity, IntPtr.Zero);
                string said = size > 0 ? text.ToString().Trim() : "no text";
                string hint = error == ModuleNotFound ? " The file, or a library that it needs, is missing."
                    : error == BadExeFormat ? " It is damaged or for another processor."
                    : "";
                return "Windows error " + error + ": " + said + hint;
            }
        }

        // dlopen moved from libdl.so.2 to libc.so.6; newer systems have an empty libdl.so.2, or none.
        private static class Posix
        {
            private const int Now = 2, NeverUnload = 0x1000;

            [DllImport("libdl.so.2", EntryPoint = "dlopen")]
            private static extern IntPtr OpenByDl(byte[] file, int flags);

            [DllImport("libdl.so.2", EntryPoint = "dlsym")]
            private static extern IntPtr FindByDl(IntPtr handle, byte[] name);

            [DllImport("libdl.so.2", EntryPoint = "dlerror")]
            private static extern IntPtr ErrorByDl();

            [DllImport("libc.so.6", EntryPoint = "dlopen")]
            private static extern IntPtr OpenByC(byte[] file, int flags);

            [DllImport("libc.so.6", EntryPoint = "dlsym")]
            private static extern IntPtr FindByC(IntPtr handle, byte[] name);

            [DllImport("libc.so.6", EntryPoint = "dlerror")]
            private static extern IntPtr ErrorByC();

            private static readonly bool hasDl = HasDl();

            private static bool HasDl()
            {
                try
                {
                    ErrorByDl();
                    return true;
                }
                catch (TypeLoadException) // no such library, or no such function in it
                {
                    return false;
                }
            }

            // The reason is asked for at once: the runtime uses the same functions, and would leave its own there.
            internal static IntPtr Open(string file, out string wrong)
            {
                byte[] name = Texts.Utf8Ended(file);
                IntPtr handle, reason;
                if (hasDl)
                {
                    handle = OpenByDl(name, Now | NeverUnload);
                    reason = handle == IntPtr.Zero ? ErrorByDl() : IntPtr.Zero;
                }
                else
                {
                    handle = OpenByC(name, Now | NeverUnload);
                    reason = handle == IntPtr.Zero ? ErrorByC() : IntPtr.Zero;
                }
                wrong = handle != IntPtr.Zero ? null
                    : reason == IntPtr.Zero ? "the system gives no reason"
                    : Texts.FromPointer(reason);
                return handle;
            }

            internal static IntPtr Find(IntPtr handle, string name)
            {
                byte[] ended = Texts.Utf8Ended(name);
                return hasDl ? FindByDl(handle, ended) : FindByC(handle, ended);
            }
        }
    }
}
