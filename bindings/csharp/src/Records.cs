using System;
using System.Runtime.InteropServices;

namespace Tolvex
{
    internal static class Records
    {
        internal static object Read(byte[] bytes, int size, Type type)
        {
            if (bytes == null) throw new ArgumentNullException("bytes");
            if (bytes.Length < size)
            {
                throw new ArgumentException("The record needs " + size + " bytes, not " + bytes.Length + ".", "bytes");
            }
            GCHandle pinned = GCHandle.Alloc(bytes, GCHandleType.Pinned);
            try
            {
                return Marshal.PtrToStructure(pinned.AddrOfPinnedObject(), type);
            }
            finally
            {
                pinned.Free();
            }
        }
    }
}
