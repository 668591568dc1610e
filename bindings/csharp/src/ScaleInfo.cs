using System;
using System.Collections.Generic;

namespace Tolvex
{
    /// <summary>What the scale tells of itself. Weights are in <see cref="Unit"/>.</summary>
    public sealed class ScaleInfo
    {
        internal ScaleInfo(BaseInfoRecord record)
        {
            MaxRanges = new[] { (decimal)record.MaxRange[0], record.MaxRange[1], record.MaxRange[2] };
            MinWeight = Decimals.Thousandths(record.MinRange);
            MaxTare = Decimals.Thousandths(record.MaxTare);
            MaxPresetTare = Decimals.Thousandths(record.MaxPresetTare);
            Resolutions = Array.ConvertAll(record.Resolution, Decimals.Thousandths);
            Unit = Texts.FromBytes(record.WeightUnit, 0, record.WeightUnit.Length);
            SystemVersion = Texts.FromBytes(record.SystemVersion, 0, record.SystemVersion.Length);
        }

        /// <summary>Capacity of each of the three ranges; 0 for one that the scale does not have.</summary>
        public IReadOnlyList<decimal> MaxRanges { get; private set; }

        /// <summary>The least weight that may be sold.</summary>
        public decimal MinWeight { get; private set; }

        /// <summary>The largest tare.</summary>
        public decimal MaxTare { get; private set; }

        /// <summary>The largest preset tare.</summary>
        public decimal MaxPresetTare { get; private set; }

        /// <summary>Division of each of the three ranges; 0 for one that the scale does not have.</summary>
        public IReadOnlyList<decimal> Resolutions { get; private set; }

        /// <summary>The unit of all weights, such as "kg".</summary>
        public string Unit { get; private set; }

        /// <summary>Version of the scale's system.</summary>
        public string SystemVersion { get; private set; }
    }
}
