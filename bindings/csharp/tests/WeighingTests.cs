using System;
using System.Text;
using System.Threading;
using NUnit.Framework;

namespace Tolvex.Tests
{
    [TestFixture]
    public class WeighingTests : DeviceTests
    {
        private readonly Scale scale = new Scale();

        [Test]
        public void ReadsAStableWeight()
        {
            Sim.Do("load 1.234");
            Reading reading = scale.Read();
            Assert.AreEqual(ScaleState.Weight, reading.State);
            Assert.AreEqual(1.234m, reading.Net);
            Assert.AreEqual(0m, reading.Tare);
            Assert.AreEqual("01.2340", reading.NetText);
            Assert.IsTrue(reading.IsStable);
            Assert.IsFalse(reading.IsZero);
            Assert.IsFalse(reading.IsTareActive);
            Assert.AreEqual("net 1.2340", reading.ToString());
        }

        [Test]
        public void TellsThatNothingIsOnTheScale()
        {
            Reading reading = scale.Read();
            Assert.AreEqual(0m, reading.Net);
            Assert.IsTrue(reading.IsZero);
        }

        [Test]
        public void SubtractsTheTare()
        {
            Sim.Do("load 0.2");
            Assert.AreEqual(0.2m, scale.Tare());
            Sim.Do("load 0.75");
            Reading reading = scale.Read();
            Assert.AreEqual(0.55m, reading.Net);
            Assert.AreEqual(0.2m, reading.Tare);
            Assert.IsTrue(reading.IsTareActive);
            Sim.Do("load 0");
            Assert.AreEqual(-0.2m, scale.Read().Net);
            Assert.AreEqual(0m, scale.ClearTare());
            Assert.IsFalse(scale.Read().IsTareActive);
        }

        [Test]
        public void ReadsAWeightThatMoves()
        {
            Sim.Do("load 0.5", "unstable on");
            Reading reading = scale.Read();
            Assert.AreEqual(ScaleState.Weight, reading.State);
            Assert.IsFalse(reading.IsStable);
            Assert.IsNotNull(reading.Net);
        }

        [Test]
        public void TellsUnderLoadOverLoadAndAnInvalidWeight()
        {
            Sim.Do("load -1");
            CheckNoWeight(ScaleState.UnderLoad);
            Sim.Do("load 16");
            CheckNoWeight(ScaleState.OverLoad);
            Sim.Do("load 1", "invalid on");
            CheckNoWeight(ScaleState.Invalid);
        }

        private void CheckNoWeight(ScaleState state)
        {
            Reading reading = scale.Read();
            Assert.AreEqual(state, reading.State);
            Assert.IsNull(reading.Net);
            Assert.IsNull(reading.Tare);
            Assert.IsNull(reading.NetText);
            Assert.IsFalse(reading.IsStable || reading.IsZero || reading.IsTareActive);
        }

        [Test]
        public void ReadsFinerSteps()
        {
            Sim.Do("load 0.48213");
            Assert.IsFalse(scale.IsHighResolution);
            scale.IsHighResolution = true;
            Assert.IsTrue(scale.IsHighResolution);
            Assert.AreEqual(0.4821m, scale.Read().Net);
            scale.IsHighResolution = false;
            Assert.AreEqual(0.482m, scale.Read().Net);
        }

        [Test]
        public void ZeroesAndTellsWhyItCanNot()
        {
            Sim.Do("load 0.1");
            scale.Zero();
            Assert.IsTrue(scale.Read().IsZero);
            Sim.Do("load 5");
            var refused = Assert.Throws<TolvexException>(() => scale.Zero());
            Assert.AreEqual(ResultCode.CommandReturnFail, refused.Code);
            Assert.AreEqual("send_zero", refused.Operation);
            Sim.Do("load 0");
            scale.Zero();
        }

        [Test]
        public void KnowsTheScale()
        {
            ScaleInfo info = scale.Info();
            CollectionAssert.AreEqual(new[] { 3m, 6m, 15m }, info.MaxRanges);
            CollectionAssert.AreEqual(new[] { 0.001m, 0.002m, 0.005m }, info.Resolutions);
            Assert.AreEqual(0.02m, info.MinWeight);
            Assert.AreEqual(6m, info.MaxTare);
            Assert.AreEqual(3m, info.MaxPresetTare);
            Assert.AreEqual("kg", info.Unit);
            Assert.AreEqual("SIM 1.0", info.SystemVersion);
        }

        [Test]
        public void WaitsUntilTheWeightIsStable()
        {
            Sim.Do("load 0.3", "unstable on");
            var settles = new Thread(() =>
            {
                Weighed(3);
                Sim.Do("unstable off");
            });
            settles.Start();
            Reading reading = scale.WaitStable(TimeSpan.FromSeconds(60), TimeSpan.FromMilliseconds(20));
            settles.Join();
            Assert.IsTrue(reading.IsStable);
            Assert.Greater(Weighed(4).Count, 3);
        }

        [Test]
        public void GivesUpWithTheLastReading()
        {
            Sim.Do("load 20");
            var late = Assert.Throws<ScaleTimeoutException>(
                () => scale.WaitStable(TimeSpan.FromMilliseconds(50), TimeSpan.FromMilliseconds(10)));
            Assert.AreEqual(ScaleState.OverLoad, late.LastReading.State);
            StringAssert.Contains("0.05 s. The last reading: OverLoad.", late.Message);
        }

        [Test]
        public void GivesUpInTimeWhateverTheInterval()
        {
            Sim.Do("load 20");
            TimeSpan timeout = TimeSpan.FromMilliseconds(50), interval = TimeSpan.FromDays(20);
            using (var limit = new CancellationTokenSource(TimeSpan.FromSeconds(60)))
            {
                Assert.Throws<ScaleTimeoutException>(() => scale.WaitStable(timeout, interval, limit.Token));
                Assert.Throws<ScaleTimeoutException>(
                    () => scale.WaitStableAsync(timeout, interval, limit.Token).GetAwaiter().GetResult());
            }
        }

        [Test]
        public void ReadsTheVersionOfTheService()
        {
            Reply reply = scale.Version();
            Assert.AreEqual("0", reply["result"]);
            Assert.AreEqual("3.0.3.2", reply["version"]);
            StringAssert.StartsWith("{\"result\":\"0\"", reply.Text);
        }

        [Test]
        public void SwitchesTheAlarmOverTheConnectionForPrinting()
        {
            scale.SetOverloadAlarm(true);
            scale.SetOverloadAlarm(false);
            CollectionAssert.AreEqual(
                new[] { "{\"cmd\":\"setOverloadAlarm\",\"enable\":\"1\"}", "{\"cmd\":\"setOverloadAlarm\",\"enable\":\"0\"}" },
                Printed(2));
        }

        [Test]
        public void SendsAnyCommand()
        {
            StringAssert.StartsWith("{\"result\":\"0\"", scale.RawCommand("setzero", null, TimeSpan.FromSeconds(20)));
            var refused = Assert.Throws<TolvexException>(() => scale.RawCommand("sing", "é", TimeSpan.FromSeconds(20)));
            Assert.AreEqual(ResultCode.UnsupportWeightCmd, refused.Code);
            Assert.AreEqual("{\"result\":\"1002\"}", refused.Reply);
            Assert.AreEqual("{\"cmd\":\"sing\",\"paramList\":\"é\"}", Weighed(2)[1]);
        }

        [Test]
        public void AnUnpluggedScaleIsAFailure()
        {
            Sim.Do("unplug");
            var failure = Assert.Throws<TolvexException>(() => scale.Read());
            Assert.AreEqual(ResultCode.LcNotConnected, failure.Code);
            Assert.AreEqual("LcNotConnected", failure.Name);
        }

        [Test]
        public void AReplyThatIsNoJsonIsAFailureOnce()
        {
            Sim.Do("load 1", "wire garbage command=getweight times=1");
            var failure = Assert.Throws<TolvexException>(() => scale.Read());
            Assert.AreEqual(ResultCode.UnreadableReply, failure.Code);
            StringAssert.StartsWith("read_standard: -1 UnreadableReply (Unreadable reply). ", failure.Message);
            Assert.AreEqual(1m, scale.Read().Net);
        }

        [Test]
        public void LevelsOfTheServicesLogAreThoseOfItsModules()
        {
            Service.SetLogLevel(ServiceModule.LoadCell, "2");
            Service.SetLogLevel(ServiceModule.Print, "6");
            Assert.AreEqual("2", Service.GetLogLevel(ServiceModule.LoadCell));
            Assert.AreEqual("6", Service.GetLogLevel(ServiceModule.Print));
            Assert.AreEqual("{\"cmd\":\"setloglevel\",\"module\":\"loadcell\",\"level\":\"2\"}", Weighed(1)[0]);
            var refused = Assert.Throws<TolvexException>(() => Service.SetLogLevel(ServiceModule.Print, "9"));
            Assert.AreEqual(ResultCode.InvalidParam, refused.Code);
        }

        [Test]
        public void TheServersAddressComesFirst()
        {
            scale.Read();
            Assert.Throws<InvalidOperationException>(() => Service.SetServer(Simulator.Address));
        }
    }

    /// <summary>Records as no scale has them at hand.</summary>
    [TestFixture]
    public class ReadingTests
    {
        private static Reading Of(byte status, string net, char mark, string tareAndRest)
        {
            var record = new byte[24];
            record[0] = status;
            Encoding.ASCII.GetBytes(net).CopyTo(record, 1);
            record[8] = (byte)mark;
            Encoding.ASCII.GetBytes(tareAndRest).CopyTo(record, 9);
            return Reading.Of(240, record);
        }

        [Test]
        public void ATareRunsOnBehindItsField()
        {
            Reading reading = Of(5, "-12.500", 'P', "123.4000");
            Assert.AreEqual(-12.5m, reading.Net);
            Assert.AreEqual(123.4m, reading.Tare);
            Assert.AreEqual("123.4000", reading.TareText);
            Assert.AreEqual(-12.5m, Of(1, "00.0000", 'P', "-12.5000").Tare);
            Assert.AreEqual("net -12.500, tare 123.4000", reading.ToString());
        }

        [Test]
        public void ATextOfFullLengthNeedsNoEnd()
        {
            Assert.AreEqual("00012345678.900", Of(1, "01.0000", 'P', "00012345678.900").TareText);
        }

        [Test]
        public void WhatIsNoNumberIsNeverZero()
        {
            foreach (string net in new[] { "", "kg", "1,5", "1.5 kg", " 1.5", "1e3", "0x10", "--1", "(1)" })
            {
                var failure = Assert.Throws<TolvexException>(() => Of(1, net, 'P', "00.0000"), net);
                Assert.AreEqual(ResultCode.UnreadableReply, failure.Code);
            }
            Assert.Throws<TolvexException>(() => Of(1, "01.0000", 'P', ""));
            StringAssert.Contains("The net weight is missing.", Assert.Throws<TolvexException>(() => Of(1, "", 'P', "0.0")).Message);
        }

        [Test]
        public void AZeroRecordIsAnInvalidWeight()
        {
            Assert.AreEqual(ScaleState.Invalid, Reading.Of(240, new byte[24]).State);
        }
    }
}
