using System;
using System.Collections.Generic;
using System.Linq;
using System.Threading;
using System.Threading.Tasks;
using NUnit.Framework;

namespace Tolvex.Tests
{
    [TestFixture]
    public class ThreadTests : DeviceTests
    {
        private static readonly TimeSpan limit = TimeSpan.FromSeconds(60);
        private readonly Scale scale = new Scale();

        private static void InThreads(params Action[] works)
        {
            var failures = new List<Exception>();
            Thread[] threads = works.Select(work => new Thread(() =>
            {
                try
                {
                    work();
                }
                catch (Exception e)
                {
                    lock (failures) failures.Add(e);
                }
            })).ToArray();
            foreach (Thread thread in threads) thread.Start();
            foreach (Thread thread in threads) Assert.IsTrue(thread.Join(limit), "waited " + limit + " for a thread to end");
            if (failures.Count > 0) throw new AggregateException(failures);
        }

        private static void PrintReceipts(string name)
        {
            for (int count = 0; count < 20; ++count)
            {
                var receipt = new Receipt();
                for (int line = 0; line < 5; ++line) receipt.Text(name + " " + count + " " + line);
                receipt.Print(JobType.Ticket);
            }
        }

        [Test]
        public void ReceiptsOfTwoThreadsDoNotMix()
        {
            InThreads(() => PrintReceipts("one"), () => PrintReceipts("two"));
            List<string> requests = Printed(2 * 20 * 6);
            Assert.AreEqual(2 * 20 * 6, requests.Count);
            for (int at = 0; at < requests.Count; at += 6)
            {
                string first = requests[at].Replace(" 0\"}", "");
                for (int line = 0; line < 5; ++line) Assert.AreEqual(first + " " + line + "\"}", requests[at + line]);
                Assert.AreEqual(Confirm, requests[at + 5]);
            }
        }

        [Test]
        public void OneThreadWeighsWhileAnotherPrints()
        {
            Sim.Do("load 0.482");
            InThreads(() => PrintReceipts("receipt"), () =>
            {
                for (int count = 0; count < 100; ++count) Assert.AreEqual(0.482m, scale.Read().Net);
            });
            Assert.AreEqual(100, Weighed(100).Count);
            Assert.AreEqual(120, Printed(120).Count);
        }

        // ---- Asynchronous calls ----

        // Has a connection's turn until it is disposed of.
        private sealed class Turn : IDisposable
        {
            private readonly ManualResetEventSlim taken = new ManualResetEventSlim(), end = new ManualResetEventSlim();
            private readonly Thread holder;

            internal Turn(Connection connection)
            {
                holder = new Thread(() => connection.Run(() =>
                {
                    taken.Set();
                    end.Wait(limit);
                }));
                holder.Start();
                Assert.IsTrue(taken.Wait(limit), "waited for the turn");
            }

            public void Dispose()
            {
                end.Set();
                Assert.IsTrue(holder.Join(limit), "waited for the turn to end");
            }
        }

        private static T Ended<T>(Task<T> task)
        {
            Assert.IsTrue(((IAsyncResult)task).AsyncWaitHandle.WaitOne(limit), "waited " + limit + " for a task");
            return task.GetAwaiter().GetResult();
        }

        [Test]
        public void AsynchronousCallsReturnBeforeTheyAreDone()
        {
            Sim.Do("load 0.482");
            Task<Reading> reading;
            Task printing;
            using (new Turn(Connection.Weighing))
            using (new Turn(Connection.Printing))
            {
                reading = scale.ReadAsync();
                printing = new Receipt().Text("later").PrintAsync(JobType.Ticket);
                Assert.IsFalse(reading.IsCompleted || printing.IsCompleted);
                Assert.AreEqual(0, Printed(0).Count);
            }
            Assert.AreEqual(0.482m, Ended(reading).Net);
            Assert.IsTrue(printing.Wait(limit));
            Assert.AreEqual(Line("later"), Printed(2)[0]);
        }

        [Test]
        public void WaitingCallsKeepNoThreadOfThePool()
        {
            var readings = new List<Task<Reading>>();
            using (new Turn(Connection.Weighing))
            {
                for (int count = 0; count < 200; ++count) readings.Add(scale.ReadAsync());
                var ran = new ManualResetEventSlim();
                ThreadPool.QueueUserWorkItem(nothing => ran.Set());
                Assert.IsTrue(ran.Wait(limit), "waited for the pool");
            }
            foreach (Task<Reading> reading in readings) Assert.AreEqual(0m, Ended(reading).Net);
        }

        [Test]
        public void ATokenEndsTheWaitingForTheTurn()
        {
            using (var source = new CancellationTokenSource())
            {
                Task<Reading> first, second;
                using (new Turn(Connection.Weighing))
                {
                    first = scale.ReadAsync(source.Token);
                    second = scale.ReadAsync();
                    source.Cancel();
                    Assert.Throws<TaskCanceledException>(() => Ended(first));
                    Assert.IsFalse(second.IsCompleted);
                }
                Ended(second);
                Assert.AreEqual(1, Weighed(1).Count);
                Assert.Throws<TaskCanceledException>(() => Ended(scale.ReadAsync(source.Token)));
            }
        }

        [Test]
        public void ATokenDoesNotBreakOffACall()
        {
            using (var source = new CancellationTokenSource())
            {
                var begun = new ManualResetEventSlim();
                var end = new ManualResetEventSlim();
                Task<int> call = Connection.Weighing.RunAsync(() =>
                {
                    begun.Set();
                    Assert.IsTrue(end.Wait(limit));
                    return 7;
                }, source.Token);
                Assert.IsTrue(begun.Wait(limit), "waited for the call");
                source.Cancel();
                Assert.IsFalse(call.IsCompleted);
                end.Set();
                Assert.AreEqual(7, Ended(call));
            }
        }

        [Test]
        public void AnAbortOfAThreadWaitsForItsCall()
        {
            ManualResetEventSlim begun = new ManualResetEventSlim(), end = new ManualResetEventSlim();
            bool isDone = false;
            var caller = new Thread(() => Connection.Printing.Run(() =>
            {
                begun.Set();
                isDone = end.Wait(limit);
            }));
            caller.Start();
            Assert.IsTrue(begun.Wait(limit), "waited for the call");
            var abort = new Thread(() => caller.Abort()); // may wait itself
            abort.Start();
            while ((caller.ThreadState & (ThreadState.AbortRequested | ThreadState.Aborted | ThreadState.Stopped)) == 0) Thread.Yield();
            end.Set();
            Assert.IsTrue(caller.Join(limit) && abort.Join(limit), "waited for the thread to end");
            Assert.IsTrue(isDone);
            new Receipt().Text("next").Print(JobType.Ticket);
        }

        [Test]
        public void TheThreadOfAConnectionHasNothingOfItsFirstCaller()
        {
            var value = new AsyncLocal<string> { Value = "the first caller's" };
            Assert.IsNull(Ended(new Connection("another").RunAsync(() => value.Value, CancellationToken.None)));
            using (ExecutionContext.SuppressFlow())
            {
                Assert.IsNull(Ended(new Connection("one more").RunAsync(() => value.Value, CancellationToken.None)));
            }
        }

        [Test]
        public void AFailureComesOutOfTheTask()
        {
            Sim.Do("fault out-of-paper on");
            var failure = Assert.Throws<AggregateException>(() => new Receipt().Text("x").PrintAsync().Wait(limit));
            Assert.AreEqual(ResultCode.OutOfPaper, ((TolvexException)failure.InnerException).Code);
            Sim.Do("load 20");
            Assert.Throws<ScaleTimeoutException>(() => Ended(scale.WaitStableAsync(TimeSpan.FromMilliseconds(1))));
            Assert.Throws<ArgumentNullException>(() => new Printer(PrinterType.Ticket).PrintTextAsync(null));
        }

        [Test]
        public void WhatGoesOnBehindATaskDoesNotKeepTheConnection()
        {
            Task<Reading> nested;
            using (new Turn(Connection.Weighing))
            {
                nested = scale.ReadAsync().ContinueWith(
                    first => Ended(scale.ReadAsync()), TaskContinuationOptions.ExecuteSynchronously);
            }
            Assert.AreEqual(0m, Ended(nested).Net);
        }

        // Runs what is posted in one thread, as a user interface does.
        private sealed class UserInterface : SynchronizationContext
        {
            private readonly System.Collections.Concurrent.BlockingCollection<Action> posted =
                new System.Collections.Concurrent.BlockingCollection<Action>();

            public override void Post(SendOrPostCallback callback, object state)
            {
                posted.Add(() => callback(state));
            }

            internal void Run(Func<Task> work)
            {
                InThreads(() =>
                {
                    SetSynchronizationContext(this);
                    Task all = work();
                    all.ContinueWith(nothing => posted.CompleteAdding(), TaskScheduler.Default);
                    foreach (Action action in posted.GetConsumingEnumerable()) action();
                    all.GetAwaiter().GetResult();
                });
            }
        }

        [Test]
        public void AUserInterfaceGoesOnWhileACallWaits()
        {
            Sim.Do("load 0.5");
            var ui = new UserInterface();
            bool wentOn = false;
            ui.Run(async () =>
            {
                int thread = Thread.CurrentThread.ManagedThreadId;
                Task<Reading> reading;
                using (new Turn(Connection.Weighing))
                {
                    reading = scale.ReadAsync();
                    await Task.Yield();
                    wentOn = !reading.IsCompleted;
                }
                Assert.AreEqual(0.5m, (await reading).Net);
                Assert.AreEqual(thread, Thread.CurrentThread.ManagedThreadId);
            });
            Assert.IsTrue(wentOn);
        }

        [Test]
        public void WaitingInAUserInterfaceIsNoDeadlock()
        {
            Sim.Do("load 0.5");
            new UserInterface().Run(() =>
            {
                Task<Reading> reading;
                Task printing;
                using (new Turn(Connection.Weighing))
                using (new Turn(Connection.Printing))
                {
                    reading = scale.WaitStableAsync(limit);
                    printing = new Receipt().Text("x").PrintAsync(JobType.Ticket);
                }
                Assert.AreEqual(0.5m, Ended(reading).Net);
                Assert.IsTrue(printing.Wait(limit), "waited for the receipt");
                return Task.FromResult(true);
            });
        }
    }
}
