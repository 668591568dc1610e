using System;
using System.Collections.Generic;
using System.Text;

namespace Tolvex
{
    /// <summary>
    /// The native library cannot be loaded. The message lists each file that was tried and what is wrong with it.
    /// It is a DllNotFoundException, because that is what programs that call native libraries catch already, whatever
    /// was wrong with the one file or the other.
    /// </summary>
    public class LibraryNotLoadedException : DllNotFoundException
    {
        /// <summary>Makes the exception.</summary>
        public LibraryNotLoadedException(string message) : base(message)
        {
        }

        internal static LibraryNotLoadedException OfThisProcess()
        {
            return new LibraryNotLoadedException("This process is 32-bit, and tolvex is 64-bit only. " +
                "Build the application for x64: platform target x64 (<PlatformTarget>x64</PlatformTarget>), or AnyCPU with " +
                "\"Prefer 32-bit\" switched off (<Prefer32Bit>false</Prefer32Bit>). In IIS, switch off \"Enable 32-bit " +
                "applications\".");
        }

        internal static LibraryNotLoadedException AfterTrying(IEnumerable<string> tried, string why)
        {
            string needed = NativeLoader.IsWindows ? "Windows" : "Linux";
            var text = new StringBuilder("The library ");
            text.Append(LibraryFiles.Name(NativeLoader.IsWindows)).Append(" cannot be loaded. This process is 64-bit and needs ");
            text.Append("the one for 64-bit ").Append(needed).Append(" (x86-64).");
            foreach (string line in tried) text.Append("\n  ").Append(line);
            text.Append("\nWhat to do: ");
            if (why != null)
            {
                text.Append("correct ").Append(why).Append(", or do without it to have the usual places looked at.");
            }
            else
            {
                text.Append("put the library beside the application, or set the environment variable ");
                text.Append(Library.EnvironmentVariable).Append(" to its path, or call Library.Load(path).");
            }
            return new LibraryNotLoadedException(text.ToString());
        }
    }
}
