using System;
using System.Threading;
using System.Threading.Tasks;

namespace Tolvex
{
    /// <summary>
    /// Settings of a printer that goes by its name. Values go out as they are: their range is the service's. A call takes
    /// 42 s at most, and waits for its turn before that: use the ...Async methods in a user interface.
    /// </summary>
    /// <exception cref="TolvexException">The printer or the service refused.</exception>
    public sealed class PrinterSettings
    {
        private readonly byte[] name;

        /// <summary>Settings of this printer.</summary>
        /// <param name="printerName">One of <see cref="Service.Printers"/>.</param>
        public PrinterSettings(string printerName)
        {
            name = Arguments.PrinterName(printerName, "printerName");
            PrinterName = printerName;
        }

        /// <summary>The printer's name.</summary>
        public string PrinterName { get; private set; }

        /// <summary>Sets the left margin. The unit is the service's.</summary>
        public void SetLeftMargin(int margin)
        {
            Connection.Printing.Run(Prepared("setLeftMargin", margin, "margin", Exports.setLeftMargin));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetLeftMarginAsync(int margin, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared("setLeftMargin", margin, "margin", Exports.setLeftMargin), token);
        }

        /// <summary>Sets the right margin. The unit is the service's.</summary>
        public void SetRightMargin(int margin)
        {
            Connection.Printing.Run(Prepared("setRightMargin", margin, "margin", Exports.setRightMargin));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetRightMarginAsync(int margin, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared("setRightMargin", margin, "margin", Exports.setRightMargin), token);
        }

        /// <summary>Sets where on the paper the printer begins. The unit is the service's.</summary>
        public void SetPaperOffset(int offset)
        {
            Connection.Printing.Run(Prepared("setPaperOffset", offset, "offset", Exports.setPaperOffset));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetPaperOffsetAsync(int offset, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared("setPaperOffset", offset, "offset", Exports.setPaperOffset), token);
        }

        /// <summary>Sets how dark the printer prints.</summary>
        public void SetContrast(int contrast)
        {
            Connection.Printing.Run(Prepared("setPrintContrast", contrast, "contrast", Exports.setPrintContrast));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetContrastAsync(int contrast, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared("setPrintContrast", contrast, "contrast", Exports.setPrintContrast), token);
        }

        /// <summary>Sets how fast the printer prints.</summary>
        public void SetSpeed(int speed)
        {
            Connection.Printing.Run(Prepared("setPrintSpeed", speed, "speed", Exports.setPrintSpeed));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetSpeedAsync(int speed, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared("setPrintSpeed", speed, "speed", Exports.setPrintSpeed), token);
        }

        /// <summary>Switches automatic printing on or off.</summary>
        public void SetAutoPrint(bool on)
        {
            Connection.Printing.Run(Prepared("setPrtAutoPrint", on ? 1 : 0, "on", Exports.setPrtAutoPrint));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetAutoPrintAsync(bool on, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared("setPrtAutoPrint", on ? 1 : 0, "on", Exports.setPrtAutoPrint), token);
        }

        /// <summary>Switches rolling the paper back on or off.</summary>
        public void SetRollback(bool on)
        {
            Connection.Printing.Run(Prepared("setRollback", on ? 1 : 0, "on", Exports.setRollback));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetRollbackAsync(bool on, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared("setRollback", on ? 1 : 0, "on", Exports.setRollback), token);
        }

        /// <summary>Switches the sensor for taken paper on or off.</summary>
        public void SetTakeUpSensor(bool on)
        {
            Connection.Printing.Run(() => SetTakeUpSensorNow(on));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task SetTakeUpSensorAsync(bool on, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(() => SetTakeUpSensorNow(on), token);
        }

        private void SetTakeUpSensorNow(bool on)
        {
            Results.CheckVerdict("setTakeupPaperSensor", Exports.setTakeupPaperSensor(on ? 1 : 0, name));
        }

        /// <summary>The reply with the printer's firmware version, such as <c>FirmwareVersion()["version"]</c>.</summary>
        public Reply FirmwareVersion()
        {
            return Connection.Printing.Run(new Func<Reply>(FirmwareVersionNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public Task<Reply> FirmwareVersionAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(new Func<Reply>(FirmwareVersionNow), token);
        }

        private Reply FirmwareVersionNow()
        {
            var buffer = new byte[RawReply.Bytes + 1];
            Results.CheckVerdict("getPrinterVersion", Exports.getPrinterVersion(buffer, RawReply.Bytes, name));
            return Reply.Of("getPrinterVersion", buffer);
        }

        private Action Prepared(string operation, int value, string parameter, Func<uint, byte[], int> export)
        {
            uint number = Arguments.Unsigned(value, parameter);
            return () => Results.CheckCode(operation, export(number, name));
        }
    }
}
