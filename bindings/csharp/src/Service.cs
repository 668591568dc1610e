using System;
using System.Collections.Generic;
using System.Threading;
using System.Threading.Tasks;

namespace Tolvex
{
    /// <summary>The two modules of the service, each with a log level of its own.</summary>
    public enum ServiceModule
    {
        /// <summary>Printing.</summary>
        Print,

        /// <summary>Weighing.</summary>
        LoadCell
    }

    /// <summary>The local service behind all devices.</summary>
    /// <exception cref="TolvexException">The service refused.</exception>
    public static class Service
    {
        private const int LevelBytes = 255;

        /// <summary>
        /// Tells where the service is, in the place of zelkad_ip_config.ini beside the executable. It has to come before
        /// all other calls.
        /// </summary>
        /// <param name="address">Four decimal numbers, such as "192.168.1.20".</param>
        /// <exception cref="ArgumentException">It is no such address.</exception>
        /// <exception cref="InvalidOperationException">A call came before, and has connected already.</exception>
        public static void SetServer(string address)
        {
            byte[] text = Texts.Utf8(address, "address");
            if (Connection.IsUsed)
            {
                throw new InvalidOperationException("Service.SetServer comes too late: the library has connected, and would " +
                    "keep the old address. Call it before everything else.");
            }
            if (Exports.SetServerIpForRemoteAccess(text) != Exports.TOLVEX_OK)
            {
                throw new ArgumentException("\"" + address + "\" is no IPv4 address of four decimal numbers, the first of them " +
                    "1 to 255. Names such as localhost are none either.", "address");
            }
        }

        /// <summary>Whether the service answers on the connection for weighing. A good first call.</summary>
        public static bool CheckConnection()
        {
            return Connection.Weighing.Run(new Func<bool>(CheckConnectionNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public static Task<bool> CheckConnectionAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Weighing.RunAsync(new Func<bool>(CheckConnectionNow), token);
        }

        private static bool CheckConnectionNow()
        {
            return Exports.checkConnection() == 1;
        }

        /// <summary>The names of the printers, for <see cref="PrinterSettings"/>.</summary>
        public static IReadOnlyList<string> Printers()
        {
            return Connection.Printing.Run(new Func<IReadOnlyList<string>>(PrintersNow));
        }

        /// <summary>The same, asynchronously.</summary>
        public static Task<IReadOnlyList<string>> PrintersAsync(CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(new Func<IReadOnlyList<string>>(PrintersNow), token);
        }

        private static IReadOnlyList<string> PrintersNow()
        {
            var buffer = new byte[RawReply.Bytes + 1];
            Results.CheckVerdict("GetPrinterList", Exports.GetPrinterList(buffer, RawReply.Bytes));
            var names = new List<string>();
            foreach (string part in Texts.FromBytes(buffer, 0, buffer.Length).Split(new[] { ',' }))
            {
                string name = part.Trim();
                if (name.Length > 0) names.Add(name);
            }
            return names;
        }

        // ---- The service's log ----

        /// <summary>The log level of a module of the service.</summary>
        public static string GetLogLevel(ServiceModule module)
        {
            byte[] name = NameOf(module);
            return ConnectionOf(module).Run(() => GetLogLevelNow(name));
        }

        /// <summary>The same, asynchronously.</summary>
        public static Task<string> GetLogLevelAsync(ServiceModule module, CancellationToken token = default(CancellationToken))
        {
            byte[] name = NameOf(module);
            return ConnectionOf(module).RunAsync(() => GetLogLevelNow(name), token);
        }

        private static string GetLogLevelNow(byte[] module)
        {
            var buffer = new byte[LevelBytes + 1];
            Results.CheckCode("getLogLevel", Exports.getLogLevel(module, buffer, LevelBytes));
            return Texts.FromBytes(buffer, 0, buffer.Length);
        }

        /// <summary>Sets the log level of a module of the service.</summary>
        public static void SetLogLevel(ServiceModule module, string level)
        {
            ConnectionOf(module).Run(PreparedLevel(module, level));
        }

        /// <summary>The same, asynchronously.</summary>
        public static Task SetLogLevelAsync(ServiceModule module, string level,
            CancellationToken token = default(CancellationToken))
        {
            return ConnectionOf(module).RunAsync(PreparedLevel(module, level), token);
        }

        private static Action PreparedLevel(ServiceModule module, string level)
        {
            byte[] name = NameOf(module), text = Texts.Utf8(level, "level");
            return () => Results.CheckCode("setLogLevel", Exports.setLogLevel(name, text));
        }

        private static byte[] NameOf(ServiceModule module)
        {
            switch (module)
            {
                case ServiceModule.Print: return Texts.Utf8Ended("print");
                case ServiceModule.LoadCell: return Texts.Utf8Ended("loadcell");
                default: throw new ArgumentOutOfRangeException("module", module, "There is no such module.");
            }
        }

        private static Connection ConnectionOf(ServiceModule module)
        {
            return module == ServiceModule.LoadCell ? Connection.Weighing : Connection.Printing;
        }

        // ---- Raw commands ----

        /// <summary>Sends any command to the printing service. Those to the weighing one: <see cref="Scale.RawCommand"/>.</summary>
        /// <param name="printerName">One of <see cref="Printers"/>.</param>
        /// <param name="command">The command's name.</param>
        /// <param name="number">The request's "intParam".</param>
        /// <param name="parameters">Its "paramList", or null.</param>
        /// <param name="timeout">How long to wait for the reply. After a wait that was too short, the replies to later
        /// calls may be those of the calls before them.</param>
        /// <returns>The whole reply, as JSON text.</returns>
        public static string RawCommand(string printerName, string command, int number, string parameters, TimeSpan timeout)
        {
            return Connection.Printing.Run(Prepared(printerName, command, number, parameters, timeout));
        }

        /// <summary>The same, asynchronously.</summary>
        public static Task<string> RawCommandAsync(string printerName, string command, int number, string parameters,
            TimeSpan timeout, CancellationToken token = default(CancellationToken))
        {
            return Connection.Printing.RunAsync(Prepared(printerName, command, number, parameters, timeout), token);
        }

        private static Func<string> Prepared(string printerName, string command, int number, string parameters,
            TimeSpan timeout)
        {
            byte[] printer = Arguments.PrinterName(printerName, "printerName");
            byte[] name = Texts.Utf8(command, "command");
            byte[] list = parameters == null ? null : Texts.Utf8(parameters, "parameters");
            uint wait = Arguments.Milliseconds(timeout, "timeout");
            return () => RawReply.Text("sendRawCmdToPrt",
                reply => Exports.sendRawCmdToPrt(printer, name, number, list, reply, RawReply.Bytes, wait));
        }
    }
}
