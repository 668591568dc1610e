using System;
using System.Threading;
using System.Threading.Tasks;

namespace Tolvex
{
    /// <summary>The cash drawer. Whether it is open, nobody can ask: the service has no such command.</summary>
    public static class CashDrawer
    {
        /// <summary>Opens the drawer. Takes 42 s at most, and waits for its turn before that.</summary>
        /// <exception cref="TolvexException">The service refused.</exception>
        public static void Open()
        {
            Connection.Printing.Run(new Action(OpenNow));
        }

        /// <summary>The same, asynchronously. The token ends the waiting for the turn.</summary>
        public static Task OpenAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(new Action(OpenNow), token);
        }

        private static void OpenNow()
        {
            Results.CheckVerdict("OpenCashDrawerEx", Exports.OpenCashDrawerEx());
        }
    }
}
