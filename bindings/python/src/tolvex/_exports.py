"""The library's functions under their own names, its records and its constants.

Written by ./run bindings from src/api/exports.h. Do not edit.
"""

import ctypes
from typing import Optional

from ._native import Buffer, Export, Int, OutBuffer, Text, UInt

__all__ = [
    "TOLVEX_OK",
    "TOLVEX_FAILED",
    "TOLVEX_UNDER_LOAD",
    "TOLVEX_OVER_LOAD",
    "TOLVEX_FONT_TOO_SMALL",
    "TOLVEX_FONT_TOO_BIG",
    "TOLVEX_UNREADABLE_REPLY",
    "TOLVEX_DEFAULT_PRINTER",
    "TOLVEX_WEIGHT_STABLE",
    "TOLVEX_WEIGHT_AT_ZERO",
    "TOLVEX_WEIGHT_TARE_ACTIVE",
    "tolvex_base_info",
    "tolvex_weight",
    "read_baseinfo",
    "read_baseinfo_stdcall",
    "read_standard",
    "read_standard_stdcall",
    "send_zero",
    "send_zero_stdcall",
    "set_tare_bykey",
    "set_tare_bykey_stdcall",
    "send_tare",
    "send_tare_stdcall",
    "send_pre_tare",
    "send_pre_tare_stdcall",
    "clear_tare",
    "clear_tare_stdcall",
    "getLCVersion",
    "setOverloadAlarm",
    "setHighResWeightMode",
    "getHighResWeightMode",
    "sendRawCmdToLC",
    "PrintText",
    "PrintText_stdcall",
    "PrintTextByPaperWidth",
    "PrintTextByPaperWidth_stdcall",
    "PrintBitmapFile",
    "PrintBitmapFile_stdcall",
    "PrintBitmapFileWithAlign",
    "BeginPrint",
    "BeginPrint_stdcall",
    "printTextById",
    "printTextByPaperWidthById",
    "printBitmapFileById",
    "sendRawCmdToPrt",
    "printBlanks",
    "printBlanks_stdcall",
    "feedPaper",
    "feedPaper_stdcall",
    "feedPaperById",
    "cutPaper",
    "cutPaper_stdcall",
    "cutPaperById",
    "calibrateLabel",
    "testPaper",
    "setDefaultPaperWidth",
    "SetDefaultPaperWidth",
    "SetDefaultPaperWidth_stdcall",
    "setGapType",
    "setPrinterDirection",
    "setTextWrapMode",
    "setLeftMargin",
    "setRightMargin",
    "setPaperOffset",
    "setPrintContrast",
    "setPrintSpeed",
    "setPrtAutoPrint",
    "setRollback",
    "setTakeupPaperSensor",
    "GetPrinterList",
    "GetPrinterList_stdcall",
    "GetPrinterStatus",
    "GetPrinterStatus_stdcall",
    "getPrinterVersion",
    "OpenCashDrawerEx",
    "OpenCashDrawerEx_stdcall",
    "checkConnection",
    "getLastErrCode",
    "getLogLevel",
    "setLogLevel",
    "SetServerIpForRemoteAccess",
    "SetServerIpForRemoteAccess_stdcall",
    "ClosePrinterEx",
    "ClosePrinterEx_stdcall",
    "DisplayUpdate",
    "DisplayUpdate_stdcall",
    "OpenDisplay",
    "OpenDisplay_stdcall",
    "OpenPrinter",
    "OpenPrinter_stdcall",
    "SetDataRows",
    "SetDataRows_stdcall",
    "SetHeaderReserveRows",
    "SetHeaderReserveRows_stdcall",
    "SetInvoiceParameter",
    "SetInvoiceParameter_stdcall",
    "SetPrintContrast",
    "SetPrintContrast_stdcall",
    "SetPrintOffset",
    "SetPrintOffset_stdcall",
    "SetPrintSpeed",
    "SetPrintSpeed_stdcall",
    "SetRealPrintHeaderWidth",
    "SetRealPrintHeaderWidth_stdcall",
    "SetScaleType",
    "SetScaleType_stdcall",
    "SetTakeLabelSensor",
    "SetTakeLabelSensor_stdcall",
    "SetTakeupMotorDirection",
    "SetTakeupMotorDirection_stdcall",
    "SetUSBPrinterDirection",
    "SetUSBPrinterDirection_stdcall",
    "SetUnitPrice",
    "SetUnitPrice_stdcall",
    "ShowBalance",
    "ShowBalance_stdcall",
    "ShowDisplayText",
    "ShowDisplayText_stdcall",
    "ShowOrHideForm",
    "ShowOrHideForm_stdcall",
    "ShowProduct",
    "ShowProduct_stdcall",
    "switch_resolution",
    "switch_resolution_stdcall",
    "PrintLabelImage",
    "PrintLabelImage_stdcall",
    "Version",
    "Version_stdcall",
    "DisplayText",
    "DisplayText_stdcall",
    "IncreaseResolution",
    "IncreaseResolution_stdcall",
    "SetClientName",
    "SetClientName_stdcall",
]

TOLVEX_OK = 240  # done
TOLVEX_FAILED = 255  # failed; getLastErrCode() says why
TOLVEX_UNDER_LOAD = -1  # read_standard only
TOLVEX_OVER_LOAD = -2  # read_standard only
TOLVEX_FONT_TOO_SMALL = 242  # PrintText and PrintTextByPaperWidth only
TOLVEX_FONT_TOO_BIG = 243  # PrintText and PrintTextByPaperWidth only
TOLVEX_UNREADABLE_REPLY = -1  # of functions returning a code, and of getLastErrCode
TOLVEX_DEFAULT_PRINTER = 100  # a printer type
TOLVEX_WEIGHT_STABLE = 1  # the weight has settled
TOLVEX_WEIGHT_AT_ZERO = 2  # nothing is on the scale
TOLVEX_WEIGHT_TARE_ACTIVE = 4  # a tare is subtracted


class tolvex_base_info(ctypes.Structure):
    """What read_baseinfo fills in: 64 bytes, little-endian. Pass its address as (char *)&info.
    """

    _fields_ = [
        ("max_range", ctypes.c_int32 * 3),  # capacity of each range, in the service's unit, whole numbers
        ("min_range", ctypes.c_int32),  # least weight, in thousandths of the unit
        ("max_tare", ctypes.c_int32),  # in thousandths of the unit
        ("max_preset_tare", ctypes.c_int32),  # in thousandths of the unit
        ("resolution", ctypes.c_int32 * 3),  # division of each range, in thousandths of the unit
        ("weight_unit", ctypes.c_char * 4),  # for example "kg"; no NUL after four characters
        ("reserved", ctypes.c_char * 4),  # zero
        ("system_version", ctypes.c_char * 20),  # no NUL after twenty characters
    ]


class tolvex_weight(ctypes.Structure):
    """What read_standard fills in: 24 bytes. Pass its address as (char *)&weight.
    """

    _fields_ = [
        ("status", ctypes.c_uint8),  # TOLVEX_WEIGHT_ bits
        ("net", ctypes.c_char * 7),  # net weight as text, for example "01.5000" or "-12.500"; no NUL
        ("mark", ctypes.c_char),  # 'P'; NUL in the all-zero record of an invalid weight
        ("tare", ctypes.c_char * 7),  # tare weight as text, four decimals; a longer one runs on into rest
        ("rest", ctypes.c_char * 8),  # NUL behind the tare text
    ]


# ---- Weighing ----

_read_baseinfo = Export("read_baseinfo", Buffer(64))


def read_baseinfo(record: OutBuffer) -> int:
    """Reads the scale's base information into record (64 bytes, tolvex_base_info). Returns a verdict.

    In C: int read_baseinfo(char *record)
    """
    return _read_baseinfo(record)


_read_baseinfo_stdcall = Export("read_baseinfo_stdcall", Buffer(64))


def read_baseinfo_stdcall(record: OutBuffer) -> int:
    """Does exactly what read_baseinfo does:

    Reads the scale's base information into record (64 bytes, tolvex_base_info). Returns a verdict.

    In C: int read_baseinfo_stdcall(char *record)
    """
    return _read_baseinfo_stdcall(record)


_read_standard = Export("read_standard", Buffer(24))


def read_standard(record: OutBuffer) -> int:
    """Reads the weight into record (24 bytes, tolvex_weight).
    Returns TOLVEX_OK: the record holds a stable or an unstable weight (see the status bits), or
    nothing but zeros when the scale reports an invalid weight; TOLVEX_UNDER_LOAD or
    TOLVEX_OVER_LOAD: the record is untouched; TOLVEX_FAILED.

    In C: int read_standard(char *record)
    """
    return _read_standard(record)


_read_standard_stdcall = Export("read_standard_stdcall", Buffer(24))


def read_standard_stdcall(record: OutBuffer) -> int:
    """Does exactly what read_standard does:

    Reads the weight into record (24 bytes, tolvex_weight).
    Returns TOLVEX_OK: the record holds a stable or an unstable weight (see the status bits), or
    nothing but zeros when the scale reports an invalid weight; TOLVEX_UNDER_LOAD or
    TOLVEX_OVER_LOAD: the record is untouched; TOLVEX_FAILED.

    In C: int read_standard_stdcall(char *record)
    """
    return _read_standard_stdcall(record)


_send_zero = Export("send_zero")


def send_zero() -> int:
    """Sets the scale to zero. Returns a verdict.

    In C: int send_zero(void)
    """
    return _send_zero()


_send_zero_stdcall = Export("send_zero_stdcall")


def send_zero_stdcall() -> int:
    """Does exactly what send_zero does:

    Sets the scale to zero. Returns a verdict.

    In C: int send_zero_stdcall(void)
    """
    return _send_zero_stdcall()


_set_tare_bykey = Export("set_tare_bykey", Buffer(10))


def set_tare_bykey(reply: OutBuffer) -> int:
    """Takes what lies on the scale as the tare. reply (at least 10 bytes) gets the tare as text, unless
    the host application is "Kelvarin" or "Lumidesk": for those it is left as it was.
    Returns a verdict.

    In C: int set_tare_bykey(char *reply)
    """
    return _set_tare_bykey(reply)


_set_tare_bykey_stdcall = Export("set_tare_bykey_stdcall", Buffer(10))


def set_tare_bykey_stdcall(reply: OutBuffer) -> int:
    """Does exactly what set_tare_bykey does:

    Takes what lies on the scale as the tare. reply (at least 10 bytes) gets the tare as text, unless
    the host application is "Kelvarin" or "Lumidesk": for those it is left as it was.
    Returns a verdict.

    In C: int set_tare_bykey_stdcall(char *reply)
    """
    return _set_tare_bykey_stdcall(reply)


_send_tare = Export("send_tare", Buffer(10))


def send_tare(reply: OutBuffer) -> int:
    """The same as set_tare_bykey, with one more line at its head.

    In C: int send_tare(char *reply)
    """
    return _send_tare(reply)


_send_tare_stdcall = Export("send_tare_stdcall", Buffer(10))


def send_tare_stdcall(reply: OutBuffer) -> int:
    """Does exactly what send_tare does:

    The same as set_tare_bykey, with one more line at its head.

    In C: int send_tare_stdcall(char *reply)
    """
    return _send_tare_stdcall(reply)


_send_pre_tare = Export("send_pre_tare", Buffer(10, terminated=True))


def send_pre_tare(text: OutBuffer) -> int:
    """Clears the tare. The text that the caller passes is logged and goes no further: the scale is
    asked to clear its tare, and text (at least 10 bytes) gets the tare that is left, with the same
    exception as set_tare_bykey.
    Returns a verdict.

    In C: int send_pre_tare(char *text)
    """
    return _send_pre_tare(text)


_send_pre_tare_stdcall = Export("send_pre_tare_stdcall", Buffer(10, terminated=True))


def send_pre_tare_stdcall(text: OutBuffer) -> int:
    """Does exactly what send_pre_tare does:

    Clears the tare. The text that the caller passes is logged and goes no further: the scale is
    asked to clear its tare, and text (at least 10 bytes) gets the tare that is left, with the same
    exception as set_tare_bykey.
    Returns a verdict.

    In C: int send_pre_tare_stdcall(char *text)
    """
    return _send_pre_tare_stdcall(text)


_clear_tare = Export("clear_tare", Buffer(10))


def clear_tare(reply: OutBuffer) -> int:
    """Clears the tare; reply (at least 10 bytes) as for set_tare_bykey. Returns a verdict.

    In C: int clear_tare(char *reply)
    """
    return _clear_tare(reply)


_clear_tare_stdcall = Export("clear_tare_stdcall", Buffer(10))


def clear_tare_stdcall(reply: OutBuffer) -> int:
    """Does exactly what clear_tare does:

    Clears the tare; reply (at least 10 bytes) as for set_tare_bykey. Returns a verdict.

    In C: int clear_tare_stdcall(char *reply)
    """
    return _clear_tare_stdcall(reply)


_getLCVersion = Export("getLCVersion", Buffer(), UInt(), sized=(0, 1))


def getLCVersion(buffer: OutBuffer, size: int) -> int:
    """Copies the reply with the weighing service's version, as JSON text, into buffer of size bytes.
    Returns a code; 5 when the reply is longer than size or buffer is null. Whatever the code, a
    reply that came is copied, a longer one up to size.

    In C: int getLCVersion(char *buffer, unsigned int size)
    """
    return _getLCVersion(buffer, size)


_setOverloadAlarm = Export("setOverloadAlarm", UInt())


def setOverloadAlarm(enable: int) -> int:
    """Switches the scale's overload alarm on (non-zero) or off (0); the number is sent as it is, on the
    printing connection. Returns a code.

    In C: int setOverloadAlarm(unsigned int enable)
    """
    return _setOverloadAlarm(enable)


_setHighResWeightMode = Export("setHighResWeightMode", Int(), needs_service=False)


def setHighResWeightMode(on: int) -> int:
    """Chooses what read_standard reads as the net weight: 0 the ordinary one (the state at start),
    anything else the high-resolution one. Sends nothing. Returns 0.

    In C: int setHighResWeightMode(int on)
    """
    return _setHighResWeightMode(on)


_getHighResWeightMode = Export("getHighResWeightMode", needs_service=False)


def getHighResWeightMode() -> int:
    """Returns 1 when the high-resolution net weight is read, else 0. Sends nothing.

    In C: int getHighResWeightMode(void)
    """
    return _getHighResWeightMode()


_sendRawCmdToLC = Export("sendRawCmdToLC", Text(), Text(), Buffer(), UInt(), UInt(), sized=(2, 3))


def sendRawCmdToLC(command: Optional[bytes], parameters: Optional[bytes], reply: OutBuffer, size: int, wait: int) -> int:
    """Sends any command to the weighing service. parameters becomes the request's "paramList" unless it
    is null or empty. reply of size bytes gets the whole reply as JSON text; it may be null. wait is
    the longest wait for the reply, in milliseconds.
    Returns a code; 5 for a null command, and when the reply is longer than size. Whatever the code,
    a reply that came is copied, a longer one up to size. The last error is set by a null command
    only.

    In C: int sendRawCmdToLC(const char *command, const char *parameters, char *reply, unsigned int size, unsigned int wait)
    """
    return _sendRawCmdToLC(command, parameters, reply, size, wait)


# ---- Printing: the job ----

_PrintText = Export("PrintText", Text(), UInt())


def PrintText(text: Optional[bytes], fontSize: int) -> int:
    """Queues ANSI text for BeginPrint: one line, or one for each line feed in it (LF or CR LF; an empty
    line prints as a blank one; a line feed at the end begins no further line). fontSize is the
    height of the characters in dots, 12 to 72. A line of more than 2048 bytes of UTF-8 is queued,
    but refused when it is printed: BeginPrint then fails with code 6.
    Returns a verdict, TOLVEX_FONT_TOO_SMALL or TOLVEX_FONT_TOO_BIG; an empty text is TOLVEX_OK and
    queues nothing. The last error stays.

    In C: int PrintText(const char *text, unsigned int fontSize)
    """
    return _PrintText(text, fontSize)


_PrintText_stdcall = Export("PrintText_stdcall", Text(), UInt())


def PrintText_stdcall(text: Optional[bytes], fontSize: int) -> int:
    """Does exactly what PrintText does:

    Queues ANSI text for BeginPrint: one line, or one for each line feed in it (LF or CR LF; an empty
    line prints as a blank one; a line feed at the end begins no further line). fontSize is the
    height of the characters in dots, 12 to 72. A line of more than 2048 bytes of UTF-8 is queued,
    but refused when it is printed: BeginPrint then fails with code 6.
    Returns a verdict, TOLVEX_FONT_TOO_SMALL or TOLVEX_FONT_TOO_BIG; an empty text is TOLVEX_OK and
    queues nothing. The last error stays.

    In C: int PrintText_stdcall(const char *text, unsigned int fontSize)
    """
    return _PrintText_stdcall(text, fontSize)


_PrintTextByPaperWidth = Export("PrintTextByPaperWidth", Text(), UInt(), UInt())


def PrintTextByPaperWidth(text: Optional[bytes], fontSize: int, width: int) -> int:
    """The same for paper of the given width in millimetres, with lines of any length: more than 80
    counts as 80, and 0 goes out as 0.

    In C: int PrintTextByPaperWidth(const char *text, unsigned int fontSize, unsigned int width)
    """
    return _PrintTextByPaperWidth(text, fontSize, width)


_PrintTextByPaperWidth_stdcall = Export("PrintTextByPaperWidth_stdcall", Text(), UInt(), UInt())


def PrintTextByPaperWidth_stdcall(text: Optional[bytes], fontSize: int, width: int) -> int:
    """Does exactly what PrintTextByPaperWidth does:

    The same for paper of the given width in millimetres, with lines of any length: more than 80
    counts as 80, and 0 goes out as 0.

    In C: int PrintTextByPaperWidth_stdcall(const char *text, unsigned int fontSize, unsigned int width)
    """
    return _PrintTextByPaperWidth_stdcall(text, fontSize, width)


_PrintBitmapFile = Export("PrintBitmapFile", Text(), Int())


def PrintBitmapFile(path: Optional[bytes], angle: int) -> int:
    """Queues an image file for BeginPrint; path is ANSI text. angle goes out as a 16-bit number,
    usually 0, 90, 180 or 270.

    The service opens the image when the job is printed. So that the application may change its own
    file meanwhile, the library copies it into its folder (convention 3), as prt_0 to prt_199 with
    the extension of the path, and begins again with prt_0: a job of more than 200 images shows the
    later ones in the place of the first, and two applications on one machine share the names. Where
    copying fails (no such folder, no such file), the path itself goes out: give an absolute one. The
    service must be on this machine and able to read the copy.

    Returns a verdict; a missing file fails in BeginPrint only, an empty path queues nothing. The
    last error stays.

    In C: int PrintBitmapFile(const char *path, int angle)
    """
    return _PrintBitmapFile(path, angle)


_PrintBitmapFile_stdcall = Export("PrintBitmapFile_stdcall", Text(), Int())


def PrintBitmapFile_stdcall(path: Optional[bytes], angle: int) -> int:
    """Does exactly what PrintBitmapFile does:

    Queues an image file for BeginPrint; path is ANSI text. angle goes out as a 16-bit number,
    usually 0, 90, 180 or 270.

    The service opens the image when the job is printed. So that the application may change its own
    file meanwhile, the library copies it into its folder (convention 3), as prt_0 to prt_199 with
    the extension of the path, and begins again with prt_0: a job of more than 200 images shows the
    later ones in the place of the first, and two applications on one machine share the names. Where
    copying fails (no such folder, no such file), the path itself goes out: give an absolute one. The
    service must be on this machine and able to read the copy.

    Returns a verdict; a missing file fails in BeginPrint only, an empty path queues nothing. The
    last error stays.

    In C: int PrintBitmapFile_stdcall(const char *path, int angle)
    """
    return _PrintBitmapFile_stdcall(path, angle)


_PrintBitmapFileWithAlign = Export("PrintBitmapFileWithAlign", Text(), UInt(), UInt())


def PrintBitmapFileWithAlign(path: Optional[bytes], angle: int, align: int) -> int:
    """The same with an alignment: 0, 1 or 2; anything else counts as 1. It is kept with the image and
    not sent: the service has no such parameter.
    Returns a verdict, as PrintBitmapFile.

    In C: int PrintBitmapFileWithAlign(const char *path, unsigned int angle, unsigned int align)
    """
    return _PrintBitmapFileWithAlign(path, angle, align)


_BeginPrint = Export("BeginPrint", Int())


def BeginPrint(jobType: int) -> int:
    """Ends a job: prints what is queued, confirms the job, and does what else the job type says.

      job types                              what is done
      0, 2, 7, 204, 205, and any other one   print; nothing queued is a failure (code 1)
      4, 104, 206, 208, 304                  print what is queued, if anything is, and feed 13
      8, 105, 207, 305                       print what is queued, if anything is, and cut
      80, 90                                 calibrate the label gap; the queue stays
      81, 91                                 calibrate for the end of the paper; the queue stays
      6, 106, 209, 306                       nothing; the queue stays

    Job types 2, 80, 90, 204, 205, 206 and 208 go to printer type 0, 301 to 311 to printer type 2,
    all others to printer type 1.

    One command goes out for each line or image (convention 4 holds for each). The first that fails
    ends the job: the rest of the queue is dropped, and nothing is confirmed, fed or cut. What went
    out before it is with the printer already: cut it off (BeginPrint(8) with nothing queued, or
    cutPaperById) before the job is repeated.

    Returns a verdict. With a feed or a cut it is that of the feed or cut alone: a confirmation that
    was refused shows in the log only.

    In C: int BeginPrint(int jobType)
    """
    return _BeginPrint(jobType)


_BeginPrint_stdcall = Export("BeginPrint_stdcall", Int())


def BeginPrint_stdcall(jobType: int) -> int:
    """Does exactly what BeginPrint does:

    Ends a job: prints what is queued, confirms the job, and does what else the job type says.

      job types                              what is done
      0, 2, 7, 204, 205, and any other one   print; nothing queued is a failure (code 1)
      4, 104, 206, 208, 304                  print what is queued, if anything is, and feed 13
      8, 105, 207, 305                       print what is queued, if anything is, and cut
      80, 90                                 calibrate the label gap; the queue stays
      81, 91                                 calibrate for the end of the paper; the queue stays
      6, 106, 209, 306                       nothing; the queue stays

    Job types 2, 80, 90, 204, 205, 206 and 208 go to printer type 0, 301 to 311 to printer type 2,
    all others to printer type 1.

    One command goes out for each line or image (convention 4 holds for each). The first that fails
    ends the job: the rest of the queue is dropped, and nothing is confirmed, fed or cut. What went
    out before it is with the printer already: cut it off (BeginPrint(8) with nothing queued, or
    cutPaperById) before the job is repeated.

    Returns a verdict. With a feed or a cut it is that of the feed or cut alone: a confirmation that
    was refused shows in the log only.

    In C: int BeginPrint_stdcall(int jobType)
    """
    return _BeginPrint_stdcall(jobType)


# ---- Printing past the queue ----

_printTextById = Export("printTextById", Text(), UInt(), UInt())


def printTextById(text: Optional[bytes], fontSize: int, printerType: int) -> int:
    """Sends UTF-8 text to a printer of this type now. Nothing is converted or cut into lines; an empty
    text goes out as one blank, font size 0 as 28. The line belongs to whatever that printer prints
    next: end it with cutPaperById, or the next BeginPrint takes it along.
    Returns a code: 2 for a null text, 6 for one of more than 2048 bytes.

    In C: int printTextById(const char *text, unsigned int fontSize, unsigned int printerType)
    """
    return _printTextById(text, fontSize, printerType)


_printTextByPaperWidthById = Export("printTextByPaperWidthById", Text(), UInt(), UInt(), UInt())


def printTextByPaperWidthById(text: Optional[bytes], fontSize: int, width: int, printerType: int) -> int:
    """The same for paper of the given width in millimetres (sent times eight, in dots), with a text of
    any length. Returns a code: 2 for a null text.

    In C: int printTextByPaperWidthById(const char *text, unsigned int fontSize, unsigned int width, unsigned int printerType)
    """
    return _printTextByPaperWidthById(text, fontSize, width, printerType)


_printBitmapFileById = Export("printBitmapFileById", Text(), UInt(), UInt())


def printBitmapFileById(path: Optional[bytes], angle: int, printerType: int) -> int:
    """The same for an image file. path is UTF-8 and opened by the service, so make it an absolute one;
    no copy is made. Returns a code: 2 for a null or empty path.

    In C: int printBitmapFileById(const char *path, unsigned int angle, unsigned int printerType)
    """
    return _printBitmapFileById(path, angle, printerType)


_sendRawCmdToPrt = Export("sendRawCmdToPrt", Text(), Text(), Int(), Text(), Buffer(), UInt(), UInt(), sized=(4, 5))


def sendRawCmdToPrt(printerName: Optional[bytes], command: Optional[bytes], number: int, parameters: Optional[bytes], reply: OutBuffer, size: int, wait: int) -> int:
    """Sends any command to the printing service. number becomes the request's "intParam", parameters
    its "paramList" unless it is null or empty. reply of size bytes gets the whole reply as JSON
    text; it may be null. wait is the longest wait for the reply, in milliseconds.
    Returns a code; 2 for a null command or an unusable printer name, 5 when the reply is longer than
    size. Whatever the code, a reply that came is copied, a longer one up to size. The last error is
    set by a null command only.

    In C: int sendRawCmdToPrt(const char *printerName, const char *command, int number, const char *parameters, char *reply, unsigned int size, unsigned int wait)
    """
    return _sendRawCmdToPrt(printerName, command, number, parameters, reply, size, wait)


# ---- Paper ----

_printBlanks = Export("printBlanks", UInt())


def printBlanks(distance: int) -> int:
    """Feeds blank paper on the default printer. distance is 1 to 1000, in the service's unit; any other
    is refused: 255, last error 2, nothing sent.
    Returns a verdict.

    In C: int printBlanks(unsigned int distance)
    """
    return _printBlanks(distance)


_printBlanks_stdcall = Export("printBlanks_stdcall", UInt())


def printBlanks_stdcall(distance: int) -> int:
    """Does exactly what printBlanks does:

    Feeds blank paper on the default printer. distance is 1 to 1000, in the service's unit; any other
    is refused: 255, last error 2, nothing sent.
    Returns a verdict.

    In C: int printBlanks_stdcall(unsigned int distance)
    """
    return _printBlanks_stdcall(distance)


_feedPaper = Export("feedPaper")


def feedPaper() -> int:
    """Feeds a distance of 13 on the default printer. Returns a verdict.

    In C: int feedPaper(void)
    """
    return _feedPaper()


_feedPaper_stdcall = Export("feedPaper_stdcall")


def feedPaper_stdcall() -> int:
    """Does exactly what feedPaper does:

    Feeds a distance of 13 on the default printer. Returns a verdict.

    In C: int feedPaper_stdcall(void)
    """
    return _feedPaper_stdcall()


_feedPaperById = Export("feedPaperById", UInt())


def feedPaperById(printerType: int) -> int:
    """The same on a printer of this type. Returns a verdict.

    In C: int feedPaperById(unsigned int printerType)
    """
    return _feedPaperById(printerType)


_cutPaper = Export("cutPaper")


def cutPaper() -> int:
    """Cuts the paper of the default printer, through 70 percent of its width. Returns a verdict.

    In C: int cutPaper(void)
    """
    return _cutPaper()


_cutPaper_stdcall = Export("cutPaper_stdcall")


def cutPaper_stdcall() -> int:
    """Does exactly what cutPaper does:

    Cuts the paper of the default printer, through 70 percent of its width. Returns a verdict.

    In C: int cutPaper_stdcall(void)
    """
    return _cutPaper_stdcall()


_cutPaperById = Export("cutPaperById", UInt())


def cutPaperById(printerType: int) -> int:
    """The same on a printer of this type. Returns a code.

    In C: int cutPaperById(unsigned int printerType)
    """
    return _cutPaperById(printerType)


_calibrateLabel = Export("calibrateLabel", UInt())


def calibrateLabel(printerType: int) -> int:
    """Measures the gap between the labels. Returns a verdict.

    In C: int calibrateLabel(unsigned int printerType)
    """
    return _calibrateLabel(printerType)


_testPaper = Export("testPaper", UInt())


def testPaper(printerType: int) -> int:
    """Calibrates the sensor for the end of the paper. Returns a code.

    In C: int testPaper(unsigned int printerType)
    """
    return _testPaper(printerType)


# ---- Printer settings ----

_setDefaultPaperWidth = Export("setDefaultPaperWidth", UInt(), UInt())


def setDefaultPaperWidth(width: int, printerType: int) -> int:
    """Paper width in millimetres (sent times eight, in dots) of a printer of this type. Returns a code.

    In C: int setDefaultPaperWidth(unsigned int width, unsigned int printerType)
    """
    return _setDefaultPaperWidth(width, printerType)


_SetDefaultPaperWidth = Export("SetDefaultPaperWidth", UInt())


def SetDefaultPaperWidth(width: int) -> int:
    """The same of the default printer. Returns a code.

    In C: int SetDefaultPaperWidth(unsigned int width)
    """
    return _SetDefaultPaperWidth(width)


_SetDefaultPaperWidth_stdcall = Export("SetDefaultPaperWidth_stdcall", UInt())


def SetDefaultPaperWidth_stdcall(width: int) -> int:
    """Does exactly what SetDefaultPaperWidth does:

    The same of the default printer. Returns a code.

    In C: int SetDefaultPaperWidth_stdcall(unsigned int width)
    """
    return _SetDefaultPaperWidth_stdcall(width)


_setGapType = Export("setGapType", UInt(), UInt())


def setGapType(gapType: int, printerType: int) -> int:
    """How labels are told apart, of a printer of this type. Returns a code.

    In C: int setGapType(unsigned int gapType, unsigned int printerType)
    """
    return _setGapType(gapType, printerType)


_setPrinterDirection = Export("setPrinterDirection", UInt(), UInt())


def setPrinterDirection(direction: int, printerType: int) -> int:
    """Which way round a printer of this type prints. Returns a code.

    In C: int setPrinterDirection(unsigned int direction, unsigned int printerType)
    """
    return _setPrinterDirection(direction, printerType)


_setTextWrapMode = Export("setTextWrapMode", UInt(), UInt())


def setTextWrapMode(wrapMode: int, printerType: int) -> int:
    """What a printer of this type does with a line that is too long. Returns a code, and leaves the
    last error as it was.

    In C: int setTextWrapMode(unsigned int wrapMode, unsigned int printerType)
    """
    return _setTextWrapMode(wrapMode, printerType)


_setLeftMargin = Export("setLeftMargin", UInt(), Text())


def setLeftMargin(leftMargin: int, printerName: Optional[bytes]) -> int:
    """Margins of the printer of this name. Each returns a code.

    In C: int setLeftMargin(unsigned int leftMargin, const char *printerName)
    """
    return _setLeftMargin(leftMargin, printerName)


_setRightMargin = Export("setRightMargin", UInt(), Text())


def setRightMargin(rightMargin: int, printerName: Optional[bytes]) -> int:
    """Margins of the printer of this name. Each returns a code.

    In C: int setRightMargin(unsigned int rightMargin, const char *printerName)
    """
    return _setRightMargin(rightMargin, printerName)


_setPaperOffset = Export("setPaperOffset", UInt(), Text())


def setPaperOffset(offset: int, printerName: Optional[bytes]) -> int:
    """Where on the paper the printer of this name begins. Returns a code.

    In C: int setPaperOffset(unsigned int offset, const char *printerName)
    """
    return _setPaperOffset(offset, printerName)


_setPrintContrast = Export("setPrintContrast", UInt(), Text())


def setPrintContrast(contrast: int, printerName: Optional[bytes]) -> int:
    """How dark and how fast the printer of this name prints. Each returns a code.

    In C: int setPrintContrast(unsigned int contrast, const char *printerName)
    """
    return _setPrintContrast(contrast, printerName)


_setPrintSpeed = Export("setPrintSpeed", UInt(), Text())


def setPrintSpeed(speed: int, printerName: Optional[bytes]) -> int:
    """How dark and how fast the printer of this name prints. Each returns a code.

    In C: int setPrintSpeed(unsigned int speed, const char *printerName)
    """
    return _setPrintSpeed(speed, printerName)


_setPrtAutoPrint = Export("setPrtAutoPrint", UInt(), Text())


def setPrtAutoPrint(enable: int, printerName: Optional[bytes]) -> int:
    """Switches automatic printing, or rolling the paper back, of the printer of this name. The number
    is sent as it is. Each returns a code.

    In C: int setPrtAutoPrint(unsigned int enable, const char *printerName)
    """
    return _setPrtAutoPrint(enable, printerName)


_setRollback = Export("setRollback", UInt(), Text())


def setRollback(enable: int, printerName: Optional[bytes]) -> int:
    """Switches automatic printing, or rolling the paper back, of the printer of this name. The number
    is sent as it is. Each returns a code.

    In C: int setRollback(unsigned int enable, const char *printerName)
    """
    return _setRollback(enable, printerName)


_setTakeupPaperSensor = Export("setTakeupPaperSensor", Int(), Text())


def setTakeupPaperSensor(enable: int, printerName: Optional[bytes]) -> int:
    """Switches the sensor for taken paper on (non-zero, sent as 1) or off (0). Returns a verdict.

    In C: int setTakeupPaperSensor(int enable, const char *printerName)
    """
    return _setTakeupPaperSensor(enable, printerName)


# ---- Information and drawer ----

_GetPrinterList = Export("GetPrinterList", Buffer(), UInt(), sized=(0, 1))


def GetPrinterList(buffer: OutBuffer, size: int) -> int:
    """Copies the names of the printers, as the service lists them, into buffer of size bytes: exactly
    the text, so zero the buffer beforehand. The result in the reply does not count: a list that came
    is success, a reply without one is code 7, whatever the service's own code.
    Returns a verdict; the last error is 2 when buffer is null, 5 when the text is longer than size.

    In C: int GetPrinterList(char *buffer, unsigned int size)
    """
    return _GetPrinterList(buffer, size)


_GetPrinterList_stdcall = Export("GetPrinterList_stdcall", Buffer(), UInt(), sized=(0, 1))


def GetPrinterList_stdcall(buffer: OutBuffer, size: int) -> int:
    """Does exactly what GetPrinterList does:

    Copies the names of the printers, as the service lists them, into buffer of size bytes: exactly
    the text, so zero the buffer beforehand. The result in the reply does not count: a list that came
    is success, a reply without one is code 7, whatever the service's own code.
    Returns a verdict; the last error is 2 when buffer is null, 5 when the text is longer than size.

    In C: int GetPrinterList_stdcall(char *buffer, unsigned int size)
    """
    return _GetPrinterList_stdcall(buffer, size)


_GetPrinterStatus = Export("GetPrinterStatus", UInt())


def GetPrinterStatus(printerType: int) -> int:
    """Returns a printer's state as a code: 0 ready, 2005 busy, 2006 out of paper, 2007 head hot ...

    In C: int GetPrinterStatus(unsigned int printerType)
    """
    return _GetPrinterStatus(printerType)


_GetPrinterStatus_stdcall = Export("GetPrinterStatus_stdcall", UInt())


def GetPrinterStatus_stdcall(printerType: int) -> int:
    """Does exactly what GetPrinterStatus does:

    Returns a printer's state as a code: 0 ready, 2005 busy, 2006 out of paper, 2007 head hot ...

    In C: int GetPrinterStatus_stdcall(unsigned int printerType)
    """
    return _GetPrinterStatus_stdcall(printerType)


_getPrinterVersion = Export("getPrinterVersion", Buffer(), UInt(), Text(), sized=(0, 1))


def getPrinterVersion(buffer: OutBuffer, size: int, printerName: Optional[bytes]) -> int:
    """Copies the reply with the printer's firmware version, as JSON text, into buffer of size bytes.
    Returns a verdict; the last error is 2 for an unusable printer name, 5 when the reply is longer
    than size or buffer is null. A reply that came is copied whatever the verdict, a longer one up to
    size.

    In C: int getPrinterVersion(char *buffer, unsigned int size, const char *printerName)
    """
    return _getPrinterVersion(buffer, size, printerName)


_OpenCashDrawerEx = Export("OpenCashDrawerEx")


def OpenCashDrawerEx() -> int:
    """Opens the cash drawer. Returns a verdict.

    In C: int OpenCashDrawerEx(void)
    """
    return _OpenCashDrawerEx()


_OpenCashDrawerEx_stdcall = Export("OpenCashDrawerEx_stdcall")


def OpenCashDrawerEx_stdcall() -> int:
    """Does exactly what OpenCashDrawerEx does:

    Opens the cash drawer. Returns a verdict.

    In C: int OpenCashDrawerEx_stdcall(void)
    """
    return _OpenCashDrawerEx_stdcall()


_checkConnection = Export("checkConnection")


def checkConnection() -> int:
    """Returns 1 when the service answers on the weighing connection, whatever it answers; 0 when it
    does not.

    In C: int checkConnection(void)
    """
    return _checkConnection()


_getLastErrCode = Export("getLastErrCode")


def getLastErrCode() -> int:
    """Returns the code of the latest command, 0 before the first one. Sends nothing.

    In C: int getLastErrCode(void)
    """
    return _getLastErrCode()


# ---- The service's log ----

_getLogLevel = Export("getLogLevel", Text(), Buffer(), UInt(), sized=(1, 2))


def getLogLevel(module: Optional[bytes], buffer: OutBuffer, size: int) -> int:
    """Copies the log level of the service's module "print" or "loadcell" into buffer of size bytes:
    exactly its text, so zero the buffer beforehand. Returns a code: 1 for any other module, 5 when
    the text is longer than size or buffer is null, 7 when the reply holds no level.

    In C: int getLogLevel(const char *module, char *buffer, unsigned int size)
    """
    return _getLogLevel(module, buffer, size)


_setLogLevel = Export("setLogLevel", Text(), Text())


def setLogLevel(module: Optional[bytes], level: Optional[bytes]) -> int:
    """Sets the log level (text) of the service's module "print" or "loadcell". Returns a code: 1 for
    any other module, 2 when an argument is null.

    In C: int setLogLevel(const char *module, const char *level)
    """
    return _setLogLevel(module, level)


# ---- Configuration ----

_SetServerIpForRemoteAccess = Export("SetServerIpForRemoteAccess", Text(), needs_service=False)


def SetServerIpForRemoteAccess(ip: Optional[bytes]) -> int:
    """Takes the dotted IPv4 address as that of the service. Call it before every other function that
    needs the service: connections that exist keep their address, and the INI file is read only when
    no address was set this way.
    Returns a verdict; 255 for everything that is not such an address.

    In C: int SetServerIpForRemoteAccess(const char *ip)
    """
    return _SetServerIpForRemoteAccess(ip)


_SetServerIpForRemoteAccess_stdcall = Export("SetServerIpForRemoteAccess_stdcall", Text(), needs_service=False)


def SetServerIpForRemoteAccess_stdcall(ip: Optional[bytes]) -> int:
    """Does exactly what SetServerIpForRemoteAccess does:

    Takes the dotted IPv4 address as that of the service. Call it before every other function that
    needs the service: connections that exist keep their address, and the INI file is read only when
    no address was set this way.
    Returns a verdict; 255 for everything that is not such an address.

    In C: int SetServerIpForRemoteAccess_stdcall(const char *ip)
    """
    return _SetServerIpForRemoteAccess_stdcall(ip)


# ---- Functions without a device ----

_ClosePrinterEx = Export("ClosePrinterEx", needs_service=False)


def ClosePrinterEx() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int ClosePrinterEx(void)
    """
    return _ClosePrinterEx()


_ClosePrinterEx_stdcall = Export("ClosePrinterEx_stdcall", needs_service=False)


def ClosePrinterEx_stdcall() -> int:
    """Does exactly what ClosePrinterEx does:

    Does nothing. Returns TOLVEX_OK.

    In C: int ClosePrinterEx_stdcall(void)
    """
    return _ClosePrinterEx_stdcall()


_DisplayUpdate = Export("DisplayUpdate", needs_service=False)


def DisplayUpdate() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int DisplayUpdate(void)
    """
    return _DisplayUpdate()


_DisplayUpdate_stdcall = Export("DisplayUpdate_stdcall", needs_service=False)


def DisplayUpdate_stdcall() -> int:
    """Does exactly what DisplayUpdate does:

    Does nothing. Returns TOLVEX_OK.

    In C: int DisplayUpdate_stdcall(void)
    """
    return _DisplayUpdate_stdcall()


_OpenDisplay = Export("OpenDisplay", needs_service=False)


def OpenDisplay() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int OpenDisplay(void)
    """
    return _OpenDisplay()


_OpenDisplay_stdcall = Export("OpenDisplay_stdcall", needs_service=False)


def OpenDisplay_stdcall() -> int:
    """Does exactly what OpenDisplay does:

    Does nothing. Returns TOLVEX_OK.

    In C: int OpenDisplay_stdcall(void)
    """
    return _OpenDisplay_stdcall()


_OpenPrinter = Export("OpenPrinter", needs_service=False)


def OpenPrinter() -> int:
    """Does nothing. Returns TOLVEX_OK. Not declared where <windows.h> has made this name one of the
    spooler's.

    In C: int OpenPrinter(void)
    """
    return _OpenPrinter()


_OpenPrinter_stdcall = Export("OpenPrinter_stdcall", needs_service=False)


def OpenPrinter_stdcall() -> int:
    """Does exactly what OpenPrinter does:

    Does nothing. Returns TOLVEX_OK. Not declared where <windows.h> has made this name one of the
    spooler's.

    In C: int OpenPrinter_stdcall(void)
    """
    return _OpenPrinter_stdcall()


_SetDataRows = Export("SetDataRows", needs_service=False)


def SetDataRows() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetDataRows(void)
    """
    return _SetDataRows()


_SetDataRows_stdcall = Export("SetDataRows_stdcall", needs_service=False)


def SetDataRows_stdcall() -> int:
    """Does exactly what SetDataRows does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetDataRows_stdcall(void)
    """
    return _SetDataRows_stdcall()


_SetHeaderReserveRows = Export("SetHeaderReserveRows", needs_service=False)


def SetHeaderReserveRows() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetHeaderReserveRows(void)
    """
    return _SetHeaderReserveRows()


_SetHeaderReserveRows_stdcall = Export("SetHeaderReserveRows_stdcall", needs_service=False)


def SetHeaderReserveRows_stdcall() -> int:
    """Does exactly what SetHeaderReserveRows does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetHeaderReserveRows_stdcall(void)
    """
    return _SetHeaderReserveRows_stdcall()


_SetInvoiceParameter = Export("SetInvoiceParameter", needs_service=False)


def SetInvoiceParameter() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetInvoiceParameter(void)
    """
    return _SetInvoiceParameter()


_SetInvoiceParameter_stdcall = Export("SetInvoiceParameter_stdcall", needs_service=False)


def SetInvoiceParameter_stdcall() -> int:
    """Does exactly what SetInvoiceParameter does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetInvoiceParameter_stdcall(void)
    """
    return _SetInvoiceParameter_stdcall()


_SetPrintContrast = Export("SetPrintContrast", needs_service=False)


def SetPrintContrast() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetPrintContrast(void)
    """
    return _SetPrintContrast()


_SetPrintContrast_stdcall = Export("SetPrintContrast_stdcall", needs_service=False)


def SetPrintContrast_stdcall() -> int:
    """Does exactly what SetPrintContrast does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetPrintContrast_stdcall(void)
    """
    return _SetPrintContrast_stdcall()


_SetPrintOffset = Export("SetPrintOffset", needs_service=False)


def SetPrintOffset() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetPrintOffset(void)
    """
    return _SetPrintOffset()


_SetPrintOffset_stdcall = Export("SetPrintOffset_stdcall", needs_service=False)


def SetPrintOffset_stdcall() -> int:
    """Does exactly what SetPrintOffset does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetPrintOffset_stdcall(void)
    """
    return _SetPrintOffset_stdcall()


_SetPrintSpeed = Export("SetPrintSpeed", needs_service=False)


def SetPrintSpeed() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetPrintSpeed(void)
    """
    return _SetPrintSpeed()


_SetPrintSpeed_stdcall = Export("SetPrintSpeed_stdcall", needs_service=False)


def SetPrintSpeed_stdcall() -> int:
    """Does exactly what SetPrintSpeed does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetPrintSpeed_stdcall(void)
    """
    return _SetPrintSpeed_stdcall()


_SetRealPrintHeaderWidth = Export("SetRealPrintHeaderWidth", needs_service=False)


def SetRealPrintHeaderWidth() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetRealPrintHeaderWidth(void)
    """
    return _SetRealPrintHeaderWidth()


_SetRealPrintHeaderWidth_stdcall = Export("SetRealPrintHeaderWidth_stdcall", needs_service=False)


def SetRealPrintHeaderWidth_stdcall() -> int:
    """Does exactly what SetRealPrintHeaderWidth does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetRealPrintHeaderWidth_stdcall(void)
    """
    return _SetRealPrintHeaderWidth_stdcall()


_SetScaleType = Export("SetScaleType", needs_service=False)


def SetScaleType() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetScaleType(void)
    """
    return _SetScaleType()


_SetScaleType_stdcall = Export("SetScaleType_stdcall", needs_service=False)


def SetScaleType_stdcall() -> int:
    """Does exactly what SetScaleType does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetScaleType_stdcall(void)
    """
    return _SetScaleType_stdcall()


_SetTakeLabelSensor = Export("SetTakeLabelSensor", needs_service=False)


def SetTakeLabelSensor() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetTakeLabelSensor(void)
    """
    return _SetTakeLabelSensor()


_SetTakeLabelSensor_stdcall = Export("SetTakeLabelSensor_stdcall", needs_service=False)


def SetTakeLabelSensor_stdcall() -> int:
    """Does exactly what SetTakeLabelSensor does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetTakeLabelSensor_stdcall(void)
    """
    return _SetTakeLabelSensor_stdcall()


_SetTakeupMotorDirection = Export("SetTakeupMotorDirection", needs_service=False)


def SetTakeupMotorDirection() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetTakeupMotorDirection(void)
    """
    return _SetTakeupMotorDirection()


_SetTakeupMotorDirection_stdcall = Export("SetTakeupMotorDirection_stdcall", needs_service=False)


def SetTakeupMotorDirection_stdcall() -> int:
    """Does exactly what SetTakeupMotorDirection does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetTakeupMotorDirection_stdcall(void)
    """
    return _SetTakeupMotorDirection_stdcall()


_SetUSBPrinterDirection = Export("SetUSBPrinterDirection", needs_service=False)


def SetUSBPrinterDirection() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetUSBPrinterDirection(void)
    """
    return _SetUSBPrinterDirection()


_SetUSBPrinterDirection_stdcall = Export("SetUSBPrinterDirection_stdcall", needs_service=False)


def SetUSBPrinterDirection_stdcall() -> int:
    """Does exactly what SetUSBPrinterDirection does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetUSBPrinterDirection_stdcall(void)
    """
    return _SetUSBPrinterDirection_stdcall()


_SetUnitPrice = Export("SetUnitPrice", needs_service=False)


def SetUnitPrice() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int SetUnitPrice(void)
    """
    return _SetUnitPrice()


_SetUnitPrice_stdcall = Export("SetUnitPrice_stdcall", needs_service=False)


def SetUnitPrice_stdcall() -> int:
    """Does exactly what SetUnitPrice does:

    Does nothing. Returns TOLVEX_OK.

    In C: int SetUnitPrice_stdcall(void)
    """
    return _SetUnitPrice_stdcall()


_ShowBalance = Export("ShowBalance", needs_service=False)


def ShowBalance() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int ShowBalance(void)
    """
    return _ShowBalance()


_ShowBalance_stdcall = Export("ShowBalance_stdcall", needs_service=False)


def ShowBalance_stdcall() -> int:
    """Does exactly what ShowBalance does:

    Does nothing. Returns TOLVEX_OK.

    In C: int ShowBalance_stdcall(void)
    """
    return _ShowBalance_stdcall()


_ShowDisplayText = Export("ShowDisplayText", needs_service=False)


def ShowDisplayText() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int ShowDisplayText(void)
    """
    return _ShowDisplayText()


_ShowDisplayText_stdcall = Export("ShowDisplayText_stdcall", needs_service=False)


def ShowDisplayText_stdcall() -> int:
    """Does exactly what ShowDisplayText does:

    Does nothing. Returns TOLVEX_OK.

    In C: int ShowDisplayText_stdcall(void)
    """
    return _ShowDisplayText_stdcall()


_ShowOrHideForm = Export("ShowOrHideForm", needs_service=False)


def ShowOrHideForm() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int ShowOrHideForm(void)
    """
    return _ShowOrHideForm()


_ShowOrHideForm_stdcall = Export("ShowOrHideForm_stdcall", needs_service=False)


def ShowOrHideForm_stdcall() -> int:
    """Does exactly what ShowOrHideForm does:

    Does nothing. Returns TOLVEX_OK.

    In C: int ShowOrHideForm_stdcall(void)
    """
    return _ShowOrHideForm_stdcall()


_ShowProduct = Export("ShowProduct", needs_service=False)


def ShowProduct() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int ShowProduct(void)
    """
    return _ShowProduct()


_ShowProduct_stdcall = Export("ShowProduct_stdcall", needs_service=False)


def ShowProduct_stdcall() -> int:
    """Does exactly what ShowProduct does:

    Does nothing. Returns TOLVEX_OK.

    In C: int ShowProduct_stdcall(void)
    """
    return _ShowProduct_stdcall()


_switch_resolution = Export("switch_resolution", needs_service=False)


def switch_resolution() -> int:
    """Does nothing. Returns TOLVEX_OK.

    In C: int switch_resolution(void)
    """
    return _switch_resolution()


_switch_resolution_stdcall = Export("switch_resolution_stdcall", needs_service=False)


def switch_resolution_stdcall() -> int:
    """Does exactly what switch_resolution does:

    Does nothing. Returns TOLVEX_OK.

    In C: int switch_resolution_stdcall(void)
    """
    return _switch_resolution_stdcall()


_PrintLabelImage = Export("PrintLabelImage", needs_service=False)


def PrintLabelImage() -> int:
    """Does nothing. Returns TOLVEX_FAILED.

    In C: int PrintLabelImage(void)
    """
    return _PrintLabelImage()


_PrintLabelImage_stdcall = Export("PrintLabelImage_stdcall", needs_service=False)


def PrintLabelImage_stdcall() -> int:
    """Does exactly what PrintLabelImage does:

    Does nothing. Returns TOLVEX_FAILED.

    In C: int PrintLabelImage_stdcall(void)
    """
    return _PrintLabelImage_stdcall()


_Version = Export("Version", needs_service=False)


def Version() -> int:
    """Does nothing. What it returns has no meaning.

    In C: int Version(void)
    """
    return _Version()


_Version_stdcall = Export("Version_stdcall", needs_service=False)


def Version_stdcall() -> int:
    """Does exactly what Version does:

    Does nothing. What it returns has no meaning.

    In C: int Version_stdcall(void)
    """
    return _Version_stdcall()


_DisplayText = Export("DisplayText", needs_service=False)


def DisplayText() -> int:
    """Does nothing. What it returns has no meaning.

    In C: int DisplayText(void)
    """
    return _DisplayText()


_DisplayText_stdcall = Export("DisplayText_stdcall", needs_service=False)


def DisplayText_stdcall() -> int:
    """Does exactly what DisplayText does:

    Does nothing. What it returns has no meaning.

    In C: int DisplayText_stdcall(void)
    """
    return _DisplayText_stdcall()


_IncreaseResolution = Export("IncreaseResolution", needs_service=False)


def IncreaseResolution() -> int:
    """Does nothing. What it returns has no meaning.

    In C: int IncreaseResolution(void)
    """
    return _IncreaseResolution()


_IncreaseResolution_stdcall = Export("IncreaseResolution_stdcall", needs_service=False)


def IncreaseResolution_stdcall() -> int:
    """Does exactly what IncreaseResolution does:

    Does nothing. What it returns has no meaning.

    In C: int IncreaseResolution_stdcall(void)
    """
    return _IncreaseResolution_stdcall()


_SetClientName = Export("SetClientName", needs_service=False)


def SetClientName() -> int:
    """Does nothing. What it returns has no meaning.

    In C: int SetClientName(void)
    """
    return _SetClientName()


_SetClientName_stdcall = Export("SetClientName_stdcall", needs_service=False)


def SetClientName_stdcall() -> int:
    """Does exactly what SetClientName does:

    Does nothing. What it returns has no meaning.

    In C: int SetClientName_stdcall(void)
    """
    return _SetClientName_stdcall()
