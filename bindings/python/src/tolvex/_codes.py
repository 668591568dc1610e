"""The result codes, with what they mean and what to do about them.

Written by ./run bindings from src/api/exports.h. Do not edit.
"""

from enum import IntEnum
from typing import Dict, NamedTuple


class ResultCode(IntEnum):
    """The result codes, shared with the service. It may have further ones of its own."""

    OK = 0
    UNKNOWN = 1
    INVALID_PARAM = 2
    SOCKET_LISTEN_FAIL = 3
    SOCKET_INTERRUPT = 4
    BUFFER_NOT_ENOUGH = 5
    TOO_MUCH_TO_PRINT = 6
    JSON_ERR = 7
    MISS_PARAM = 8
    VERSION_INCOMPATIBLE = 9
    COMMAND_RETURN_FAIL = 10
    LC_CONNECTION_FAIL = 1001
    UNSUPPORT_WEIGHT_CMD = 1002
    UNDER_LOAD = 1003
    OVER_LOAD = 1004
    WEIGHT_NOT_STABLE = 1005
    INVALID_WEIGHT = 1006
    LC_NOT_CONNECTED = 1007
    PRT_CONNECTION_FAIL = 2001
    UNSUPPORT_PRINT_CMD = 2002
    PRT_DRV_RETURN_ERROR = 2003
    PRINTER_IS_BUSY = 2005
    OUT_OF_PAPER = 2006
    PRINT_HEAD_IS_HOT = 2007
    PRINTER_NOT_FOUND = 2008
    ILLEGAL_PRINT_HEAD = 2009
    PRT_STATUS_ABNORMAL = 2010


class Explanation(NamedTuple):
    """What a code is called, what it means, and what to do about it."""

    code: int
    name: str
    text: str
    meaning: str
    remedy: str


RESULT_CODES: Dict[int, Explanation] = {
    0: Explanation(
        0,
        "Ok",
        "OK",
        "The command was carried out.",
        "Nothing.",
    ),
    1: Explanation(
        1,
        "Unknown",
        "Unknown",
        "A failure without a more exact code; also a print job with nothing queued, and a name that the command does not know.",
        "Queue a line or an image before BeginPrint, and check the arguments. The log and the service's own log say more.",
    ),
    2: Explanation(
        2,
        "InvalidParam",
        "Invalid Param",
        "An argument is out of its range, null where it must not be, or not known to the device.",
        "Check the arguments against exports.h; printer names are those of GetPrinterList.",
    ),
    3: Explanation(
        3,
        "SocketListenFail",
        "Socket Listen Fail",
        "The service could not listen on one of its ports.",
        "Find the other program that uses port 53264 or 53265, end it, and restart the service.",
    ),
    4: Explanation(
        4,
        "SocketInterrupt",
        "Socket Interrupt",
        "The service did not take the command or did not answer it: it is not running, is at another address, closed the connection, or kept silent for the whole wait.",
        "Start the service, check the address in zelkad_ip_config.ini and the firewall (ports 53264 and 53265), and try again. A print command may have been carried out: look at the paper first.",
    ),
    5: Explanation(
        5,
        "BufferNotEnough",
        "Buffer Not Enough",
        "The answer does not fit the caller's buffer, or no buffer was given.",
        "Pass a larger buffer; a reply has at most 2048 bytes.",
    ),
    6: Explanation(
        6,
        "TooMuchToPrint",
        "Too Much To Print",
        "A line has more than 2048 bytes of UTF-8, or a job is longer than the printer takes.",
        "Break the text into shorter lines, or print it with PrintTextByPaperWidth; print a long job as several.",
    ),
    7: Explanation(
        7,
        "JsonErr",
        "Json Err",
        "The request or the reply is not the JSON that the other side expects.",
        "Check that library and service are of the same version; with DLL=2 in NLog.ini the log shows both texts.",
    ),
    8: Explanation(
        8,
        "MissParam",
        "Miss param",
        "The request lacks a parameter that the command needs.",
        "Check that library and service are of the same version; with a raw command, add the parameter.",
    ),
    9: Explanation(
        9,
        "VersionIncompatible",
        "Version Incompatible",
        "The service does not work with this version of the library.",
        "Bring library and service to versions that belong together.",
    ),
    10: Explanation(
        10,
        "CommandReturnFail",
        "Command return fail",
        "The device took the command and reported that it failed.",
        "Try again; if it stays, switch the device off and on, and read the service's log.",
    ),
    1001: Explanation(
        1001,
        "LcConnectionFail",
        "LC Connection Fail",
        "There is no connection for weighing.",
        "Check that the service is running and that port 53264 can be reached, then restart the application.",
    ),
    1002: Explanation(
        1002,
        "UnsupportWeightCmd",
        "Unsupport Weight Cmd",
        "This scale or this service does not know the weighing command.",
        "Bring the service up to date, or do without the command on this scale.",
    ),
    1003: Explanation(
        1003,
        "UnderLoad",
        "Under Load",
        "The scale carries less than it can show: a plate is missing, or it was zeroed with a load on it.",
        "Put the plate back, empty the scale and zero it.",
    ),
    1004: Explanation(
        1004,
        "OverLoad",
        "Over Load",
        "There is more on the scale than it can weigh.",
        "Take the load off at once and weigh it in parts.",
    ),
    1005: Explanation(
        1005,
        "WeightNotStable",
        "Weight Not Stable",
        "The weight has not settled.",
        "Wait until the goods lie still, and read again.",
    ),
    1006: Explanation(
        1006,
        "InvalidWeight",
        "Invalid Weight",
        "The scale has no valid weight, for example before its zero is found.",
        "Empty the scale and zero it; if that does not help, switch it off and on.",
    ),
    1007: Explanation(
        1007,
        "LcNotConnected",
        "LC not connected",
        "The service cannot reach the scale.",
        "Check the scale's cable and power, then its port in the service's settings.",
    ),
    2001: Explanation(
        2001,
        "PrtConnectionFail",
        "Prt Connection Fail",
        "There is no connection for printing, or the service cannot reach the printer.",
        "Check the printer's cable and power, that the service is running, and that port 53265 can be reached.",
    ),
    2002: Explanation(
        2002,
        "UnsupportPrintCmd",
        "Unsupport Print Cmd",
        "This printer or this service does not know the print command.",
        "Bring the service up to date, or do without the command on this printer.",
    ),
    2003: Explanation(
        2003,
        "PrtDrvReturnError",
        "Prt-drv Return Error",
        "The printer's driver reported an error.",
        "Switch the printer off and on; if it stays, read the service's log and renew the driver.",
    ),
    2005: Explanation(
        2005,
        "PrinterIsBusy",
        "Printer is Busy",
        "The printer is still at work on something else.",
        "Wait a moment and try again.",
    ),
    2006: Explanation(
        2006,
        "OutOfPaper",
        "Out of Paper",
        "The printer has no paper left.",
        "Put in new paper, close the cover, and print the job again: what came out before is not complete.",
    ),
    2007: Explanation(
        2007,
        "PrintHeadIsHot",
        "Print Head is Hot",
        "The print head is too hot to print.",
        "Let it cool down, then print the job again; a lower contrast heats it less.",
    ),
    2008: Explanation(
        2008,
        "PrinterNotFound",
        "Printer Not Found",
        "There is no printer of this name or type.",
        "Take a name of GetPrinterList, or a printer type that the service has (100 is its default).",
    ),
    2009: Explanation(
        2009,
        "IllegalPrintHead",
        "Illegal Print Head",
        "The printer does not accept its print head.",
        "Put in the head that belongs to the printer, and have it serviced.",
    ),
    2010: Explanation(
        2010,
        "PrtStatusAbnormal",
        "Prt Status Abnormal",
        "The printer reports a state in which it does not print, such as an open cover.",
        "Close the cover, look for jammed paper, and switch the printer off and on.",
    ),
}

# What functions answer beside the result codes.
ANSWERS: Dict[int, Explanation] = {
    240: Explanation(
        240,
        "Ok",
        "Done",
        "The function did what it was called for.",
        "Nothing.",
    ),
    255: Explanation(
        255,
        "Failed",
        "Failed",
        "The function failed; a missing argument is one reason, a command that failed another.",
        "Ask getLastErrCode() for the result code behind it, and read the log.",
    ),
    242: Explanation(
        242,
        "FontTooSmall",
        "Font too small",
        "PrintText and PrintTextByPaperWidth: the font size is below 12.",
        "Pass a size of 12 to 72.",
    ),
    243: Explanation(
        243,
        "FontTooBig",
        "Font too big",
        "PrintText and PrintTextByPaperWidth: the font size is above 72.",
        "Pass a size of 12 to 72.",
    ),
    -1: Explanation(
        -1,
        "UnreadableReply",
        "Unreadable reply",
        "A function returning a code, or the last error: the reply is not JSON, was cut off or came in pieces, or has no text as its \"result\".",
        "Check that the program at ports 53264 and 53265 is the service; with DLL=2 in NLog.ini the log shows the reply.",
    ),
}
