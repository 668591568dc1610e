// Written by ./run bindings from src/api/exports.h. Do not edit.
using System.Collections.Generic;

namespace Tolvex
{
    /// <summary>
    /// What the library and the service answer. A service may use codes of its own.
    /// </summary>
    public enum ResultCode
    {
        /// <summary>
        /// A function returning a code, or the last error: the reply is not JSON, was cut off or came in pieces, or has no text as its "result".
        /// </summary>
        UnreadableReply = -1,

        /// <summary>
        /// The command was carried out.
        /// </summary>
        Ok = 0,

        /// <summary>
        /// A failure without a more exact code; also a print job with nothing queued, and a name that the command does not know.
        /// </summary>
        Unknown = 1,

        /// <summary>
        /// An argument is out of its range, null where it must not be, or not known to the device.
        /// </summary>
        InvalidParam = 2,

        /// <summary>
        /// The service could not listen on one of its ports.
        /// </summary>
        SocketListenFail = 3,

        /// <summary>
        /// The service did not take the command or did not answer it: it is not running, is at another address, closed the connection, or kept silent for the whole wait.
        /// </summary>
        SocketInterrupt = 4,

        /// <summary>
        /// The answer does not fit the caller's buffer, or no buffer was given.
        /// </summary>
        BufferNotEnough = 5,

        /// <summary>
        /// A line has more than 2048 bytes of UTF-8, or a job is longer than the printer takes.
        /// </summary>
        TooMuchToPrint = 6,

        /// <summary>
        /// The request or the reply is not the JSON that the other side expects.
        /// </summary>
        JsonErr = 7,

        /// <summary>
        /// The request lacks a parameter that the command needs.
        /// </summary>
        MissParam = 8,

        /// <summary>
        /// The service does not work with this version of the library.
        /// </summary>
        VersionIncompatible = 9,

        /// <summary>
        /// The device took the command and reported that it failed.
        /// </summary>
        CommandReturnFail = 10,

        /// <summary>
        /// There is no connection for weighing.
        /// </summary>
        LcConnectionFail = 1001,

        /// <summary>
        /// This scale or this service does not know the weighing command.
        /// </summary>
        UnsupportWeightCmd = 1002,

        /// <summary>
        /// The scale carries less than it can show: a plate is missing, or it was zeroed with a load on it.
        /// </summary>
        UnderLoad = 1003,

        /// <summary>
        /// There is more on the scale than it can weigh.
        /// </summary>
        OverLoad = 1004,

        /// <summary>
        /// The weight has not settled.
        /// </summary>
        WeightNotStable = 1005,

        /// <summary>
        /// The scale has no valid weight, for example before its zero is found.
        /// </summary>
        InvalidWeight = 1006,

        /// <summary>
        /// The service cannot reach the scale.
        /// </summary>
        LcNotConnected = 1007,

        /// <summary>
        /// There is no connection for printing, or the service cannot reach the printer.
        /// </summary>
        PrtConnectionFail = 2001,

        /// <summary>
        /// This printer or this service does not know the print command.
        /// </summary>
        UnsupportPrintCmd = 2002,

        /// <summary>
        /// The printer's driver reported an error.
        /// </summary>
        PrtDrvReturnError = 2003,

        /// <summary>
        /// The printer is still at work on something else.
        /// </summary>
        PrinterIsBusy = 2005,

        /// <summary>
        /// The printer has no paper left.
        /// </summary>
        OutOfPaper = 2006,

        /// <summary>
        /// The print head is too hot to print.
        /// </summary>
        PrintHeadIsHot = 2007,

        /// <summary>
        /// There is no printer of this name or type.
        /// </summary>
        PrinterNotFound = 2008,

        /// <summary>
        /// The printer does not accept its print head.
        /// </summary>
        IllegalPrintHead = 2009,

        /// <summary>
        /// The printer reports a state in which it does not print, such as an open cover.
        /// </summary>
        PrtStatusAbnormal = 2010,

        /// <summary>
        /// The function failed, and there is no code of it: another call ended at the same time, or an argument was refused.
        /// </summary>
        Failed = 255,
    }

    internal static class ResultTable
    {
        internal static readonly Dictionary<int, ResultInfo> Rows = new Dictionary<int, ResultInfo>
        {
            { -1, new ResultInfo(-1, "UnreadableReply", "Unreadable reply",
                "A function returning a code, or the last error: the reply is not JSON, was cut off or came in pieces, or has no text as its \"result\".",
                "Check that the program at ports 53264 and 53265 is the service; with DLL=2 in NLog.ini the log shows the reply.") },
            { 0, new ResultInfo(0, "Ok", "OK",
                "The command was carried out.",
                "Nothing.") },
            { 1, new ResultInfo(1, "Unknown", "Unknown",
                "A failure without a more exact code; also a print job with nothing queued, and a name that the command does not know.",
                "Queue a line or an image before BeginPrint, and check the arguments. The log and the service's own log say more.") },
            { 2, new ResultInfo(2, "InvalidParam", "Invalid Param",
                "An argument is out of its range, null where it must not be, or not known to the device.",
                "Check the arguments against exports.h; printer names are those of GetPrinterList.") },
            { 3, new ResultInfo(3, "SocketListenFail", "Socket Listen Fail",
                "The service could not listen on one of its ports.",
                "Find the other program that uses port 53264 or 53265, end it, and restart the service.") },
            { 4, new ResultInfo(4, "SocketInterrupt", "Socket Interrupt",
                "The service did not take the command or did not answer it: it is not running, is at another address, closed the connection, or kept silent for the whole wait.",
                "Start the service, check the address in zelkad_ip_config.ini and the firewall (ports 53264 and 53265), and try again. A print command may have been carried out: look at the paper first.") },
            { 5, new ResultInfo(5, "BufferNotEnough", "Buffer Not Enough",
                "The answer does not fit the caller's buffer, or no buffer was given.",
                "Pass a larger buffer; a reply has at most 2048 bytes.") },
            { 6, new ResultInfo(6, "TooMuchToPrint", "Too Much To Print",
                "A line has more than 2048 bytes of UTF-8, or a job is longer than the printer takes.",
                "Break the text into shorter lines, or print it with PrintTextByPaperWidth; print a long job as several.") },
            { 7, new ResultInfo(7, "JsonErr", "Json Err",
                "The request or the reply is not the JSON that the other side expects.",
                "Check that library and service are of the same version; with DLL=2 in NLog.ini the log shows both texts.") },
            { 8, new ResultInfo(8, "MissParam", "Miss param",
                "The request lacks a parameter that the command needs.",
                "Check that library and service are of the same version; with a raw command, add the parameter.") },
            { 9, new ResultInfo(9, "VersionIncompatible", "Version Incompatible",
                "The service does not work with this version of the library.",
                "Bring library and service to versions that belong together.") },
            { 10, new ResultInfo(10, "CommandReturnFail", "Command return fail",
                "The device took the command and reported that it failed.",
                "Try again; if it stays, switch the device off and on, and read the service's log.") },
            { 1001, new ResultInfo(1001, "LcConnectionFail", "LC Connection Fail",
                "There is no connection for weighing.",
                "Check that the service is running and that port 53264 can be reached, then restart the application.") },
            { 1002, new ResultInfo(1002, "UnsupportWeightCmd", "Unsupport Weight Cmd",
                "This scale or this service does not know the weighing command.",
                "Bring the service up to date, or do without the command on this scale.") },
            { 1003, new ResultInfo(1003, "UnderLoad", "Under Load",
                "The scale carries less than it can show: a plate is missing, or it was zeroed with a load on it.",
                "Put the plate back, empty the scale and zero it.") },
            { 1004, new ResultInfo(1004, "OverLoad", "Over Load",
                "There is more on the scale than it can weigh.",
                "Take the load off at once and weigh it in parts.") },
            { 1005, new ResultInfo(1005, "WeightNotStable", "Weight Not Stable",
                "The weight has not settled.",
                "Wait until the goods lie still, and read again.") },
            { 1006, new ResultInfo(1006, "InvalidWeight", "Invalid Weight",
                "The scale has no valid weight, for example before its zero is found.",
                "Empty the scale and zero it; if that does not help, switch it off and on.") },
            { 1007, new ResultInfo(1007, "LcNotConnected", "LC not connected",
                "The service cannot reach the scale.",
                "Check the scale's cable and power, then its port in the service's settings.") },
            { 2001, new ResultInfo(2001, "PrtConnectionFail", "Prt Connection Fail",
                "There is no connection for printing, or the service cannot reach the printer.",
                "Check the printer's cable and power, that the service is running, and that port 53265 can be reached.") },
            { 2002, new ResultInfo(2002, "UnsupportPrintCmd", "Unsupport Print Cmd",
                "This printer or this service does not know the print command.",
                "Bring the service up to date, or do without the command on this printer.") },
            { 2003, new ResultInfo(2003, "PrtDrvReturnError", "Prt-drv Return Error",
                "The printer's driver reported an error.",
                "Switch the printer off and on; if it stays, read the service's log and renew the driver.") },
            { 2005, new ResultInfo(2005, "PrinterIsBusy", "Printer is Busy",
                "The printer is still at work on something else.",
                "Wait a moment and try again.") },
            { 2006, new ResultInfo(2006, "OutOfPaper", "Out of Paper",
                "The printer has no paper left.",
                "Put in new paper, close the cover, and print the job again: what came out before is not complete.") },
            { 2007, new ResultInfo(2007, "PrintHeadIsHot", "Print Head is Hot",
                "The print head is too hot to print.",
                "Let it cool down, then print the job again; a lower contrast heats it less.") },
            { 2008, new ResultInfo(2008, "PrinterNotFound", "Printer Not Found",
                "There is no printer of this name or type.",
                "Take a name of GetPrinterList, or a printer type that the service has (100 is its default).") },
            { 2009, new ResultInfo(2009, "IllegalPrintHead", "Illegal Print Head",
                "The printer does not accept its print head.",
                "Put in the head that belongs to the printer, and have it serviced.") },
            { 2010, new ResultInfo(2010, "PrtStatusAbnormal", "Prt Status Abnormal",
                "The printer reports a state in which it does not print, such as an open cover.",
                "Close the cover, look for jammed paper, and switch the printer off and on.") },
            { 255, new ResultInfo(255, "Failed", "Failed",
                "The function failed, and there is no code of it: another call ended at the same time, or an argument was refused.",
                "Read the library's log, which has the reason.") },
        };
    }
}
