using System;
using System.Globalization;
using System.Text;

namespace Tolvex
{
    /// <summary>What the scale can say of what is on it.</summary>
    public enum ScaleState
    {
        /// <summary>There is a weight, stable or not.</summary>
        Weight,

        /// <summary>The scale carries less than it can show.</summary>
        UnderLoad,

        /// <summary>There is more on the scale than it can weigh.</summary>
        OverLoad,

        /// <summary>The scale has no valid weight, for example before its zero is found.</summary>
        Invalid
    }

    /// <summary>One reading of the scale.</summary>
    public sealed class Reading
    {
        private const int NetBytes = 7, NetAt = 1, MarkAt = 8, TareAt = 9, TareBytes = 15;

        private Reading(ScaleState state)
        {
            State = state;
        }

        /// <summary>Which kind of reading this is. All else is of a <see cref="ScaleState.Weight"/> only.</summary>
        public ScaleState State { get; private set; }

        /// <summary>The net weight, exactly as the scale shows it, or null without a weight.</summary>
        public decimal? Net { get; private set; }

        /// <summary>The tare that is subtracted, or null without a weight.</summary>
        public decimal? Tare { get; private set; }

        /// <summary>Whether the weight has settled. Sell only what is stable.</summary>
        public bool IsStable { get; private set; }

        /// <summary>Whether nothing is on the scale.</summary>
        public bool IsZero { get; private set; }

        /// <summary>Whether a tare is subtracted.</summary>
        public bool IsTareActive { get; private set; }

        /// <summary>The net weight as the library wrote it, such as "01.5000", or null.</summary>
        public string NetText { get; private set; }

        /// <summary>The tare as the library wrote it, such as "00.1200", or null.</summary>
        public string TareText { get; private set; }

        /// <summary>The reading in words.</summary>
        public override string ToString()
        {
            if (State != ScaleState.Weight) return State.ToString();
            string text = "net " + Net.Value.ToString(CultureInfo.InvariantCulture);
            if (IsTareActive) text += ", tare " + Tare.Value.ToString(CultureInfo.InvariantCulture);
            return text + (IsStable ? "" : ", not stable");
        }

        // Of read_standard's answer, other than a failure, and its record.
        internal static Reading Of(int answer, byte[] record)
        {
            if (answer == Exports.TOLVEX_UNDER_LOAD) return new Reading(ScaleState.UnderLoad);
            if (answer == Exports.TOLVEX_OVER_LOAD) return new Reading(ScaleState.OverLoad);
            if (record[MarkAt] == 0) return new Reading(ScaleState.Invalid);
            string net = Texts.FromBytes(record, NetAt, NetBytes), tare = Texts.FromBytes(record, TareAt, TareBytes);
            return new Reading(ScaleState.Weight)
            {
                NetText = net,
                TareText = tare,
                Net = Decimals.Read("read_standard", "net weight", net),
                Tare = Decimals.Read("read_standard", "tare", tare),
                IsStable = (record[0] & Exports.TOLVEX_WEIGHT_STABLE) != 0,
                IsZero = (record[0] & Exports.TOLVEX_WEIGHT_AT_ZERO) != 0,
                IsTareActive = (record[0] & Exports.TOLVEX_WEIGHT_TARE_ACTIVE) != 0
            };
        }
    }

    internal static class Decimals
    {
        internal static decimal Read(string operation, string what, string text)
        {
            decimal value;
            const NumberStyles plain = NumberStyles.AllowLeadingSign | NumberStyles.AllowDecimalPoint;
            if (decimal.TryParse(text, plain, CultureInfo.InvariantCulture, out value)) return value;
            string said = text.Length == 0 ? "is missing" : "is \"" + text + "\", which is no number";
            throw TolvexException.Unreadable(operation, "The " + what + " " + said + ".");
        }

        internal static decimal Thousandths(int value)
        {
            return new decimal(value) / 1000m;
        }
    }
}
