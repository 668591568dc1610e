using System;
using System.Globalization;
using System.Threading;
using System.Threading.Tasks;

namespace Tolvex
{
    /// <summary>
    /// The scale. There is one; objects of this class have no state of their own. A call takes 42 s at most, and waits
    /// for its turn before that: use the ...Async methods in a user interface. Their tokens end the waiting for the
    /// turn, never a call that has begun.
    /// </summary>
    /// <exception cref="TolvexException">The scale or the service refused.</exception>
    public sealed class Scale
    {
        private const int TareBytes = 10;

        /// <summary>How often WaitStable asks, unless told otherwise.</summary>
        public static readonly TimeSpan DefaultInterval = TimeSpan.FromMilliseconds(100);

        private static Connection Weighing
        {
            get { return Connection.Weighing; }
        }

        // ---- Reading ----

        /// <summary>Reads the weight. Under load, over load and an invalid weight are states, not failures.</summary>
        public Reading Read()
        {
            return Weighing.Run(new Func<Reading>(ReadNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<Reading> ReadAsync(CancellationToken token = default(CancellationToken))
        {
            return Weighing.RunAsync(new Func<Reading>(ReadNow), token);
        }

        private static Reading ReadNow()
        {
            var record = new byte[WeightRecord.ByteCount];
            int answer = Exports.read_standard(record);
            bool isReading = answer == Exports.TOLVEX_OK || answer == Exports.TOLVEX_UNDER_LOAD || answer == Exports.TOLVEX_OVER_LOAD;
            if (!isReading) throw Results.OfVerdict("read_standard", answer);
            return Reading.Of(answer, record);
        }

        /// <summary>Reads until there is a stable weight.</summary>
        /// <param name="timeout">How long to try. A call that has begun is not broken off: it may take 42 s more.</param>
        /// <param name="interval">How often to ask; 100 ms if null.</param>
        /// <param name="token">Ends the waiting.</param>
        /// <exception cref="ScaleTimeoutException">There was none in that time; it has the last reading.</exception>
        public Reading WaitStable(TimeSpan timeout, TimeSpan? interval = null,
            CancellationToken token = default(CancellationToken))
        {
            var patience = new Patience(timeout, interval);
            for (;;)
            {
                token.ThrowIfCancellationRequested();
                Reading reading = Read();
                if (patience.IsEnough(reading)) return reading;
                token.WaitHandle.WaitOne(patience.Pause);
            }
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<Reading> WaitStableAsync(TimeSpan timeout, TimeSpan? interval = null,
            CancellationToken token = default(CancellationToken))
        {
            return WaitStableAsync(new Patience(timeout, interval), token);
        }

        private async Task<Reading> WaitStableAsync(Patience patience, CancellationToken token)
        {
            for (;;)
            {
                Reading reading = await ReadAsync(token).ConfigureAwait(false);
                if (patience.IsEnough(reading)) return reading;
                await Task.Delay(patience.Pause, token).ConfigureAwait(false);
            }
        }

        private sealed class Patience
        {
            private readonly TimeSpan timeout, interval;
            private readonly int start = Environment.TickCount; // goes on whatever is done to the clock

            internal Patience(TimeSpan timeout, TimeSpan? interval)
            {
                Arguments.Milliseconds(timeout, "timeout");
                this.interval = interval ?? DefaultInterval;
                Arguments.Interval(this.interval, "interval");
                this.timeout = timeout;
            }

            // Until it is time to ask again: for the last time when the time is up.
            internal TimeSpan Pause
            {
                get
                {
                    double left = Math.Max(Math.Ceiling(timeout.TotalMilliseconds - Elapsed), 0);
                    return TimeSpan.FromMilliseconds(Math.Min(Math.Ceiling(interval.TotalMilliseconds), left));
                }
            }

            private uint Elapsed
            {
                get { return unchecked((uint)(Environment.TickCount - start)); }
            }

            internal bool IsEnough(Reading reading)
            {
                if (reading.State == ScaleState.Weight && reading.IsStable) return true;
                if (Elapsed >= timeout.TotalMilliseconds) throw new ScaleTimeoutException(timeout, reading);
                return false;
            }
        }

        /// <summary>
        /// Whether <see cref="Reading.Net"/> is read in the finer steps that some services have. Sends nothing, and holds
        /// for the whole process.
        /// </summary>
        public bool IsHighResolution
        {
            get { return Exports.getHighResWeightMode() != 0; }
            set { Exports.setHighResWeightMode(value ? 1 : 0); }
        }

        // ---- Zero and tare ----

        /// <summary>Sets the scale to zero. It refuses unless it is at rest.</summary>
        public void Zero()
        {
            Weighing.Run(ZeroNow);
        }

        /// <summary>The same, asynchronously.</summary>
        public Task ZeroAsync(CancellationToken token = default(CancellationToken))
        {
            return Weighing.RunAsync(ZeroNow, token);
        }

        private static void ZeroNow()
        {
            Results.CheckVerdict("send_zero", Exports.send_zero());
        }

        /// <summary>Takes what lies on the scale as the tare.</summary>
        /// <returns>The tare that is in force now, or null where the library does not tell it (see the README).</returns>
        public decimal? Tare()
        {
            return Weighing.Run(new Func<decimal?>(TareNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<decimal?> TareAsync(CancellationToken token = default(CancellationToken))
        {
            return Weighing.RunAsync(new Func<decimal?>(TareNow), token);
        }

        private static decimal? TareNow()
        {
            var reply = new byte[TareBytes + 1];
            Results.CheckVerdict("set_tare_bykey", Exports.set_tare_bykey(reply));
            return TareIn("set_tare_bykey", reply);
        }

        /// <summary>Clears the tare.</summary>
        /// <returns>The tare that is left, or null where the library does not tell it.</returns>
        public decimal? ClearTare()
        {
            return Weighing.Run(new Func<decimal?>(ClearTareNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<decimal?> ClearTareAsync(CancellationToken token = default(CancellationToken))
        {
            return Weighing.RunAsync(new Func<decimal?>(ClearTareNow), token);
        }

        private static decimal? ClearTareNow()
        {
            var reply = new byte[TareBytes + 1];
            Results.CheckVerdict("clear_tare", Exports.clear_tare(reply));
            return TareIn("clear_tare", reply);
        }

        private static decimal? TareIn(string operation, byte[] reply)
        {
            string text = Texts.FromBytes(reply, 0, reply.Length);
            return text.Length == 0 ? (decimal?)null : Decimals.Read(operation, "tare", text);
        }

        // ---- The scale itself ----

        /// <summary>Ranges, divisions, unit and version of the scale.</summary>
        public ScaleInfo Info()
        {
            return Weighing.Run(new Func<ScaleInfo>(InfoNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<ScaleInfo> InfoAsync(CancellationToken token = default(CancellationToken))
        {
            return Weighing.RunAsync(new Func<ScaleInfo>(InfoNow), token);
        }

        private static ScaleInfo InfoNow()
        {
            var record = new byte[BaseInfoRecord.ByteCount];
            Results.CheckVerdict("read_baseinfo", Exports.read_baseinfo(record));
            return new ScaleInfo(BaseInfoRecord.From(record));
        }

        /// <summary>The reply of the weighing service with its version, such as <c>Version()["version"]</c>.</summary>
        public Reply Version()
        {
            return Weighing.Run(new Func<Reply>(VersionNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<Reply> VersionAsync(CancellationToken token = default(CancellationToken))
        {
            return Weighing.RunAsync(new Func<Reply>(VersionNow), token);
        }

        private static Reply VersionNow()
        {
            var buffer = new byte[RawReply.Bytes + 1];
            Results.CheckCode("getLCVersion", Exports.getLCVersion(buffer, RawReply.Bytes));
            return Reply.Of("getLCVersion", buffer);
        }

        /// <summary>Switches the alarm for over load on or off. It goes over the connection for printing.</summary>
        public void SetOverloadAlarm(bool on)
        {
            Connection.Printing.Run(() => SetOverloadAlarmNow(on));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetOverloadAlarmAsync(bool on, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(() => SetOverloadAlarmNow(on), token);
        }

        private static void SetOverloadAlarmNow(bool on)
        {
            Results.CheckCode("setOverloadAlarm", Exports.setOverloadAlarm(on ? 1u : 0u));
        }

        /// <summary>Sends any command to the weighing service.</summary>
        /// <param name="command">The command's name.</param>
        /// <param name="parameters">The request's "paramList", or null.</param>
        /// <param name="timeout">How long to wait for the reply. After a wait that was too short, the replies to later
        /// calls may be those of the calls before them; do not sell by them.</param>
        /// <returns>The whole reply, as JSON text.</returns>
        public string RawCommand(string command, string parameters, TimeSpan timeout)
        {
            return Weighing.Run(Prepared(command, parameters, timeout));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<string> RawCommandAsync(string command, string parameters, TimeSpan timeout,
            CancellationToken token = default(CancellationToken))
        {
            return Weighing.RunAsync(Prepared(command, parameters, timeout), token);
        }

        private static Func<string> Prepared(string command, string parameters, TimeSpan timeout)
        {
            byte[] name = Texts.Utf8(command, "command");
            byte[] list = parameters == null ? null : Texts.Utf8(parameters, "parameters");
            uint wait = Arguments.Milliseconds(timeout, "timeout");
            return () => RawReply.Text("sendRawCmdToLC",
                reply => Exports.sendRawCmdToLC(name, list, reply, RawReply.Bytes, wait));
        }
    }

    /// <summary>There was no stable weight in time.</summary>
    public class ScaleTimeoutException : TimeoutException
    {
        internal ScaleTimeoutException(TimeSpan timeout, Reading lastReading)
            : base("There was no stable weight within " + timeout.TotalSeconds.ToString(CultureInfo.InvariantCulture) +
                " s. The last reading: " + lastReading + ". What to do: wait until the goods lie still, and read again.")
        {
            LastReading = lastReading;
        }

        /// <summary>The last reading before the time was up.</summary>
        public Reading LastReading { get; private set; }
    }
}
