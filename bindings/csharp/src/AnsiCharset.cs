using System;

namespace Tolvex
{
    /// <summary>
    /// The character set in which the library takes what is queued. .NET's own encodings are not complete on every
    /// runtime, so that the system converts: then both sides agree.
    /// </summary>
    internal abstract class AnsiCharset
    {
        private static readonly Lazy<AnsiCharset> system = new Lazy<AnsiCharset>(
            () => NativeLoader.IsWindows ? (AnsiCharset)new WindowsCodePage() : new PosixCharset());

        // Of this process, as it was at the first text.
        internal static AnsiCharset OfTheSystem
        {
            get { return system.Value; }
        }

        internal abstract string Name { get; }

        internal abstract bool IsUtf8 { get; }

        // Null, and the position of the first character that the set does not have, unless such are replaced by "?".
        // The text has no half surrogate pairs.
        internal abstract byte[] Encode(string text, bool replace, out int unknown);
    }
}
