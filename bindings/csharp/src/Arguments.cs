using System;
using System.Threading;

namespace Tolvex
{
    /// <summary>What the library would take for something else is refused before the call.</summary>
    internal static class Arguments
    {
        private const int MaxNameBytes = 255;

        internal static uint Unsigned(int value, string parameter, int min = 0, int max = int.MaxValue)
        {
            if (value < min || value > max)
            {
                string range = max == int.MaxValue ? min + " or more" : min + " to " + max;
                throw new ArgumentOutOfRangeException(parameter, value, "It has to be " + range + ".");
            }
            return (uint)value;
        }

        internal static byte[] PrinterName(string name, string parameter)
        {
            byte[] bytes = Texts.Utf8(name, parameter);
            if (bytes.Length == 1) throw new ArgumentException("The name of the printer is empty.", parameter);
            if (bytes.Length - 1 > MaxNameBytes)
            {
                throw new ArgumentException("The name of the printer has " + (bytes.Length - 1) + " bytes of UTF-8; at most " +
                    MaxNameBytes + " are possible.", parameter);
            }
            return bytes;
        }

        // In whole milliseconds; what is less than one is one.
        internal static uint Milliseconds(TimeSpan time, string parameter)
        {
            if (time < TimeSpan.Zero || time.TotalMilliseconds > int.MaxValue)
            {
                throw new ArgumentOutOfRangeException(parameter, time, "It has to be a time of 0 to 24 days.");
            }
            return (uint)Math.Ceiling(time.TotalMilliseconds);
        }

        internal static void Interval(TimeSpan interval, string parameter)
        {
            Milliseconds(interval, parameter);
            if (interval == TimeSpan.Zero) throw new ArgumentOutOfRangeException(parameter, interval, "It has to be more than 0.");
        }
    }
}
