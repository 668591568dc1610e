using System;
using NUnit.Framework;

namespace Tolvex.Tests
{
    /// <summary>With a library that cannot queue a line, see native/short_of_memory.c.</summary>
    [TestFixture]
    public class QueueTests : DeviceTests
    {
        [Test]
        public void LinesOfAReceiptThatCouldNotBeQueuedNeverPrintWithTheNext()
        {
            var failure = Assert.Throws<TolvexException>(() => new Receipt().Text("no memory").Text("x").Print());
            Assert.AreEqual(ResultCode.Failed, failure.Code);
            Assert.AreEqual("PrintText", failure.Operation);
            new Receipt().Text("nothing was queued").Print(JobType.Ticket);
            CollectionAssert.AreEqual(new[] { Line("nothing was queued"), Confirm }, Printed(2));

            Assert.Throws<TolvexException>(() => new Receipt().Text("queued").Text("no memory").Print());
            var refused = Assert.Throws<InvalidOperationException>(() => new Receipt().Text("the next").Print());
            StringAssert.Contains("restart the application", refused.Message);
            new Printer(PrinterType.Ticket).Cut();
            CollectionAssert.AreEqual(new[] { Line("nothing was queued"), Confirm, Cut }, Printed(3));
        }
    }
}
