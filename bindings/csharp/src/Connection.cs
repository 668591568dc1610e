using System;
using System.Collections.Generic;
using System.Threading;
using System.Threading.Tasks;

namespace Tolvex
{
    /// <summary>
    /// One of the library's two connections: who calls on it waits for his turn, so that a failure and the code behind
    /// it belong together. Asynchronous calls run one after the other on a thread of their own, so that a call of 40 s
    /// neither stops a user interface nor keeps a thread of the pool.
    /// </summary>
    internal sealed class Connection
    {
        internal static readonly Connection Weighing = new Connection("tolvex weighing");
        internal static readonly Connection Printing = new Connection("tolvex printing");

        private static volatile bool isUsed;

        private readonly string name;
        private readonly object turn = new object();
        private readonly object queueLock = new object();
        private readonly List<Pending> queue = new List<Pending>();
        private Thread worker;

        internal Connection(string name)
        {
            this.name = name;
        }

        // Whether a call may have made the library connect.
        internal static bool IsUsed
        {
            get { return isUsed; }
        }

        internal T Run<T>(Func<T> call)
        {
            Library.EnsureLoaded();
            T result;
            lock (turn)
            {
                isUsed = true;
                // .NET Framework has Thread.Abort, which waits for the end of a finally block: a receipt that is queued is
                // printed, too, and does not come out with the next one.
                try
                {
                }
                finally
                {
                    result = call();
                }
            }
            return result;
        }

        internal void Run(Action call)
        {
            Run(AsFunction(call));
        }

        // The token ends waiting for the turn, never the call itself: the library has no way to.
        internal Task<T> RunAsync<T>(Func<T> call, CancellationToken token)
        {
            var pending = new Pending<T>(call, token);
            if (pending.IsOver) return pending.Task;
            lock (queueLock)
            {
                if (worker == null) worker = Started();
                queue.Add(pending);
                Monitor.Pulse(queueLock);
            }
            return pending.Task;
        }

        // It outlives whoever calls first, and must not keep what belongs to him: his values, and on Windows his identity.
        private Thread Started()
        {
            var thread = new Thread(Work) { IsBackground = true, Name = name };
            if (ExecutionContext.IsFlowSuppressed())
            {
                thread.Start();
            }
            else
            {
                using (ExecutionContext.SuppressFlow()) thread.Start();
            }
            return thread;
        }

        internal Task RunAsync(Action call, CancellationToken token)
        {
            return RunAsync(AsFunction(call), token);
        }

        private static Func<bool> AsFunction(Action call)
        {
            return () =>
            {
                call();
                return true;
            };
        }

        private void Work()
        {
            for (;;)
            {
                Pending next;
                lock (queueLock)
                {
                    while (queue.Count == 0) Monitor.Wait(queueLock);
                    next = queue[0];
                    queue.RemoveAt(0);
                }
                next.RunOn(this);
            }
        }

        private abstract class Pending
        {
            internal abstract void RunOn(Connection connection);
        }

        private sealed class Pending<T> : Pending
        {
            private const int Waiting = 0, Running = 1, Cancelled = 2;

            private readonly TaskCompletionSource<T> source = new TaskCompletionSource<T>();
            private readonly Func<T> call;
            private readonly CancellationTokenRegistration registration;
            private int state = Waiting;

            internal Pending(Func<T> call, CancellationToken token)
            {
                this.call = call;
                registration = token.Register(Cancel);
            }

            internal Task<T> Task
            {
                get { return source.Task; }
            }

            internal bool IsOver
            {
                get { return Volatile.Read(ref state) == Cancelled; }
            }

            internal override void RunOn(Connection connection)
            {
                T result = default(T);
                Exception failure = null;
                bool mayRun = false;
                try
                {
                    if (IsOver) return;
                    result = connection.Run(() =>
                    {
                        mayRun = Interlocked.CompareExchange(ref state, Running, Waiting) == Waiting;
                        return mayRun ? call() : default(T);
                    });
                }
                catch (Exception e)
                {
                    failure = e;
                    mayRun = mayRun || Interlocked.CompareExchange(ref state, Running, Waiting) == Waiting;
                }
                registration.Dispose();
                if (!mayRun) return;
                if (failure == null) Complete(() => source.TrySetResult(result));
                else Complete(() => source.TrySetException(failure));
            }

            private void Cancel()
            {
                if (Interlocked.CompareExchange(ref state, Cancelled, Waiting) == Waiting)
                {
                    Complete(() => source.TrySetCanceled());
                }
            }

            // What awaits the task may go on at once in the thread that completes it, and must not keep this
            // connection's thread.
            private static void Complete(Func<bool> complete)
            {
                ThreadPool.QueueUserWorkItem(nothing => complete());
            }
        }
    }
}
