namespace Tolvex
{
    /// <summary>From what an export answers to an exception. Called with the connection taken.</summary>
    internal static class Results
    {
        internal static void CheckVerdict(string operation, int verdict)
        {
            if (verdict != Exports.TOLVEX_OK) throw OfVerdict(operation, verdict);
        }

        internal static void CheckCode(string operation, int code)
        {
            if (code != 0) throw new TolvexException(operation, ResultInfo.Of(code));
        }

        internal static TolvexException OfVerdict(string operation, int verdict)
        {
            if (verdict != Exports.TOLVEX_FAILED) return new TolvexException(operation, ResultInfo.Of(verdict));
            int code = Exports.getLastErrCode();
            return new TolvexException(operation, ResultInfo.Of(code == 0 ? (int)ResultCode.Failed : code));
        }
    }
}
