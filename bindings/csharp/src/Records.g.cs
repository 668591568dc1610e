// Written by ./run bindings from src/api/exports.h. Do not edit.
using System.Runtime.InteropServices;

namespace Tolvex
{
    /// <summary>
    /// <para>What read_baseinfo fills in: 64 bytes, little-endian. Pass its address as (char *)&amp;info.</para>
    /// </summary>
    [StructLayout(LayoutKind.Sequential, Pack = 1, Size = 64)]
    public struct BaseInfoRecord
    {
        /// <summary>
        /// Bytes of the record.
        /// </summary>
        public const int ByteCount = 64;

        /// <summary>
        /// capacity of each range, in the service's unit, whole numbers
        /// </summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 3)]
        public int[] MaxRange;

        /// <summary>
        /// least weight, in thousandths of the unit
        /// </summary>
        public int MinRange;

        /// <summary>
        /// in thousandths of the unit
        /// </summary>
        public int MaxTare;

        /// <summary>
        /// in thousandths of the unit
        /// </summary>
        public int MaxPresetTare;

        /// <summary>
        /// division of each range, in thousandths of the unit
        /// </summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 3)]
        public int[] Resolution;

        /// <summary>
        /// for example "kg"; no NUL after four characters
        /// </summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 4)]
        public byte[] WeightUnit;

        /// <summary>
        /// zero
        /// </summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 4)]
        public byte[] Reserved;

        /// <summary>
        /// no NUL after twenty characters
        /// </summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 20)]
        public byte[] SystemVersion;

        /// <summary>
        /// Reads the record from the bytes that the library wrote.
        /// </summary>
        public static BaseInfoRecord From(byte[] bytes)
        {
            return (BaseInfoRecord)Records.Read(bytes, ByteCount, typeof(BaseInfoRecord));
        }
    }

    /// <summary>
    /// <para>What read_standard fills in: 24 bytes. Pass its address as (char *)&amp;weight.</para>
    /// </summary>
    [StructLayout(LayoutKind.Sequential, Pack = 1, Size = 24)]
    public struct WeightRecord
    {
        /// <summary>
        /// Bytes of the record.
        /// </summary>
        public const int ByteCount = 24;

        /// <summary>
        /// TOLVEX_WEIGHT_ bits
        /// </summary>
        public byte Status;

        /// <summary>
        /// net weight as text, for example "01.5000" or "-12.500"; no NUL
        /// </summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 7)]
        public byte[] Net;

        /// <summary>
        /// 'P'; NUL in the all-zero record of an invalid weight
        /// </summary>
        public byte Mark;

        /// <summary>
        /// tare weight as text, four decimals; a longer one runs on into rest
        /// </summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 7)]
        public byte[] Tare;

        /// <summary>
        /// NUL behind the tare text
        /// </summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 8)]
        public byte[] Rest;

        /// <summary>
        /// Reads the record from the bytes that the library wrote.
        /// </summary>
        public static WeightRecord From(byte[] bytes)
        {
            return (WeightRecord)Records.Read(bytes, ByteCount, typeof(WeightRecord));
        }
    }
}
