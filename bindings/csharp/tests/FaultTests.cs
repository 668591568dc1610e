using System;
using NUnit.Framework;

namespace Tolvex.Tests
{
    [TestFixture]
    public class FaultTests : DeviceTests
    {
        private readonly Scale scale = new Scale();

        [Test]
        public void AServiceThatIsGoneIsToldAndFoundAgain()
        {
            scale.Read();
            Sim.Kill();
            var failure = Assert.Throws<TolvexException>(() => scale.Read());
            Assert.AreEqual(ResultCode.SocketInterrupt, failure.Code);
            StringAssert.Contains("Start the service", failure.Remedy);
            StringAssert.Contains(failure.Remedy, failure.Message);
            Assert.IsFalse(Service.CheckConnection());
            Assert.AreEqual(ResultCode.SocketInterrupt,
                Assert.Throws<TolvexException>(() => new Receipt().Text("nowhere").Print()).Code);
            Assert.AreEqual(ResultCode.SocketInterrupt, Assert.Throws<TolvexException>(() => CashDrawer.Open()).Code);

            Sim.Start();
            // The library learns with a send that a connection was lost, and that may go well for a while.
            Simulator.Await("a connection for weighing", () => Service.CheckConnection());
            Simulator.Await("a connection for printing", () => Exports.GetPrinterStatus(1) == 0);
            Assert.AreEqual(0m, scale.Read().Net);
            new Receipt().Text("back").Print(JobType.Ticket);
            CollectionAssert.AreEqual(new[] { Line("back"), Confirm }, Sim.Requests("printing", 1, 2));
        }

        [Test]
        public void AConnectionThatWasLostIsOpenedAgain()
        {
            Sim.Do("wire reset command=getweight times=1");
            Assert.AreEqual(ResultCode.SocketInterrupt, Assert.Throws<TolvexException>(() => scale.Read()).Code);
            Assert.IsTrue(scale.Read().IsStable);
        }

        [Test]
        public void AVerdictWithoutACodeSaysSo()
        {
            Assert.IsTrue(scale.Read().IsStable);
            Assert.AreEqual(0, Exports.getLastErrCode());
            TolvexException failure = Results.OfVerdict("send_zero", Exports.TOLVEX_FAILED);
            Assert.AreEqual(ResultCode.Failed, failure.Code);
            StringAssert.Contains("another call ended at the same time, or an argument was refused", failure.Message);
            StringAssert.Contains("log", failure.Remedy);
        }
    }
}
