// Written by ./run bindings from src/api/exports.h. Do not edit.
'use strict';

// Name, kind of the result, parameters.
const functions = [
  ["read_baseinfo", "verdict", [["record", "buffer", 64]]],
  ["read_baseinfo_stdcall", "verdict", [["record", "buffer", 64]]],
  ["read_standard", "verdict", [["record", "buffer", 24]]],
  ["read_standard_stdcall", "verdict", [["record", "buffer", 24]]],
  ["send_zero", "verdict", []],
  ["send_zero_stdcall", "verdict", []],
  ["set_tare_bykey", "verdict", [["reply", "buffer", 10]]],
  ["set_tare_bykey_stdcall", "verdict", [["reply", "buffer", 10]]],
  ["send_tare", "verdict", [["reply", "buffer", 10]]],
  ["send_tare_stdcall", "verdict", [["reply", "buffer", 10]]],
  ["send_pre_tare", "verdict", [["text", "buffer", 10]]],
  ["send_pre_tare_stdcall", "verdict", [["text", "buffer", 10]]],
  ["clear_tare", "verdict", [["reply", "buffer", 10]]],
  ["clear_tare_stdcall", "verdict", [["reply", "buffer", 10]]],
  ["getLCVersion", "code", [["buffer", "buffer", "size"], ["size", "uint"]]],
  ["setOverloadAlarm", "code", [["enable", "uint"]]],
  ["setHighResWeightMode", "code", [["on", "int"]]],
  ["getHighResWeightMode", "other", []],
  ["sendRawCmdToLC", "code", [["command", "text"], ["parameters", "text"], ["reply", "buffer", "size"], ["size", "uint"], ["wait", "uint"]]],
  ["PrintText", "verdict", [["text", "text"], ["fontSize", "uint"]]],
  ["PrintText_stdcall", "verdict", [["text", "text"], ["fontSize", "uint"]]],
  ["PrintTextByPaperWidth", "verdict", [["text", "text"], ["fontSize", "uint"], ["width", "uint"]]],
  ["PrintTextByPaperWidth_stdcall", "verdict", [["text", "text"], ["fontSize", "uint"], ["width", "uint"]]],
  ["PrintBitmapFile", "verdict", [["path", "text"], ["angle", "int"]]],
  ["PrintBitmapFile_stdcall", "verdict", [["path", "text"], ["angle", "int"]]],
  ["PrintBitmapFileWithAlign", "verdict", [["path", "text"], ["angle", "uint"], ["align", "uint"]]],
  ["BeginPrint", "verdict", [["jobType", "int"]]],
  ["BeginPrint_stdcall", "verdict", [["jobType", "int"]]],
  ["printTextById", "code", [["text", "text"], ["fontSize", "uint"], ["printerType", "uint"]]],
  ["printTextByPaperWidthById", "code", [["text", "text"], ["fontSize", "uint"], ["width", "uint"], ["printerType", "uint"]]],
  ["printBitmapFileById", "code", [["path", "text"], ["angle", "uint"], ["printerType", "uint"]]],
  ["sendRawCmdToPrt", "code", [["printerName", "text"], ["command", "text"], ["number", "int"], ["parameters", "text"], ["reply", "buffer", "size"], ["size", "uint"], ["wait", "uint"]]],
  ["printBlanks", "verdict", [["distance", "uint"]]],
  ["printBlanks_stdcall", "verdict", [["distance", "uint"]]],
  ["feedPaper", "verdict", []],
  ["feedPaper_stdcall", "verdict", []],
  ["feedPaperById", "verdict", [["printerType", "uint"]]],
  ["cutPaper", "verdict", []],
  ["cutPaper_stdcall", "verdict", []],
  ["cutPaperById", "code", [["printerType", "uint"]]],
  ["calibrateLabel", "verdict", [["printerType", "uint"]]],
  ["testPaper", "code", [["printerType", "uint"]]],
  ["setDefaultPaperWidth", "code", [["width", "uint"], ["printerType", "uint"]]],
  ["SetDefaultPaperWidth", "code", [["width", "uint"]]],
  ["SetDefaultPaperWidth_stdcall", "code", [["width", "uint"]]],
  ["setGapType", "code", [["gapType", "uint"], ["printerType", "uint"]]],
  ["setPrinterDirection", "code", [["direction", "uint"], ["printerType", "uint"]]],
  ["setTextWrapMode", "code", [["wrapMode", "uint"], ["printerType", "uint"]]],
  ["setLeftMargin", "code", [["leftMargin", "uint"], ["printerName", "text"]]],
  ["setRightMargin", "code", [["rightMargin", "uint"], ["printerName", "text"]]],
  ["setPaperOffset", "code", [["offset", "uint"], ["printerName", "text"]]],
  ["setPrintContrast", "code", [["contrast", "uint"], ["printerName", "text"]]],
  ["setPrintSpeed", "code", [["speed", "uint"], ["printerName", "text"]]],
  ["setPrtAutoPrint", "code", [["enable", "uint"], ["printerName", "text"]]],
  ["setRollback", "code", [["enable", "uint"], ["printerName", "text"]]],
  ["setTakeupPaperSensor", "verdict", [["enable", "int"], ["printerName", "text"]]],
  ["GetPrinterList", "verdict", [["buffer", "buffer", "size"], ["size", "uint"]]],
  ["GetPrinterList_stdcall", "verdict", [["buffer", "buffer", "size"], ["size", "uint"]]],
  ["GetPrinterStatus", "code", [["printerType", "uint"]]],
  ["GetPrinterStatus_stdcall", "code", [["printerType", "uint"]]],
  ["getPrinterVersion", "verdict", [["buffer", "buffer", "size"], ["size", "uint"], ["printerName", "text"]]],
  ["OpenCashDrawerEx", "verdict", []],
  ["OpenCashDrawerEx_stdcall", "verdict", []],
  ["checkConnection", "other", []],
  ["getLastErrCode", "code", []],
  ["getLogLevel", "code", [["module", "text"], ["buffer", "buffer", "size"], ["size", "uint"]]],
  ["setLogLevel", "code", [["module", "text"], ["level", "text"]]],
  ["SetServerIpForRemoteAccess", "verdict", [["ip", "text"]]],
  ["SetServerIpForRemoteAccess_stdcall", "verdict", [["ip", "text"]]],
  ["ClosePrinterEx", "verdict", []],
  ["ClosePrinterEx_stdcall", "verdict", []],
  ["DisplayUpdate", "verdict", []],
  ["DisplayUpdate_stdcall", "verdict", []],
  ["OpenDisplay", "verdict", []],
  ["OpenDisplay_stdcall", "verdict", []],
  ["OpenPrinter", "verdict", []],
  ["OpenPrinter_stdcall", "verdict", []],
  ["SetDataRows", "verdict", []],
  ["SetDataRows_stdcall", "verdict", []],
  ["SetHeaderReserveRows", "verdict", []],
  ["SetHeaderReserveRows_stdcall", "verdict", []],
  ["SetInvoiceParameter", "verdict", []],
  ["SetInvoiceParameter_stdcall", "verdict", []],
  ["SetPrintContrast", "verdict", []],
  ["SetPrintContrast_stdcall", "verdict", []],
  ["SetPrintOffset", "verdict", []],
  ["SetPrintOffset_stdcall", "verdict", []],
  ["SetPrintSpeed", "verdict", []],
  ["SetPrintSpeed_stdcall", "verdict", []],
  ["SetRealPrintHeaderWidth", "verdict", []],
  ["SetRealPrintHeaderWidth_stdcall", "verdict", []],
  ["SetScaleType", "verdict", []],
  ["SetScaleType_stdcall", "verdict", []],
  ["SetTakeLabelSensor", "verdict", []],
  ["SetTakeLabelSensor_stdcall", "verdict", []],
  ["SetTakeupMotorDirection", "verdict", []],
  ["SetTakeupMotorDirection_stdcall", "verdict", []],
  ["SetUSBPrinterDirection", "verdict", []],
  ["SetUSBPrinterDirection_stdcall", "verdict", []],
  ["SetUnitPrice", "verdict", []],
  ["SetUnitPrice_stdcall", "verdict", []],
  ["ShowBalance", "verdict", []],
  ["ShowBalance_stdcall", "verdict", []],
  ["ShowDisplayText", "verdict", []],
  ["ShowDisplayText_stdcall", "verdict", []],
  ["ShowOrHideForm", "verdict", []],
  ["ShowOrHideForm_stdcall", "verdict", []],
  ["ShowProduct", "verdict", []],
  ["ShowProduct_stdcall", "verdict", []],
  ["switch_resolution", "verdict", []],
  ["switch_resolution_stdcall", "verdict", []],
  ["PrintLabelImage", "verdict", []],
  ["PrintLabelImage_stdcall", "verdict", []],
  ["Version", "other", []],
  ["Version_stdcall", "other", []],
  ["DisplayText", "other", []],
  ["DisplayText_stdcall", "other", []],
  ["IncreaseResolution", "other", []],
  ["IncreaseResolution_stdcall", "other", []],
  ["SetClientName", "other", []],
  ["SetClientName_stdcall", "other", []],
];

const codes = [
  {"code": 0, "name": "Ok", "text": "OK", "meaning": "The command was carried out.", "remedy": "Nothing."},
  {"code": 1, "name": "Unknown", "text": "Unknown", "meaning": "A failure without a more exact code; also a print job with nothing queued, and a name that the command does not know.", "remedy": "Queue a line or an image before BeginPrint, and check the arguments. The log and the service's own log say more."},
  {"code": 2, "name": "InvalidParam", "text": "Invalid Param", "meaning": "An argument is out of its range, null where it must not be, or not known to the device.", "remedy": "Check the arguments against exports.h; printer names are those of GetPrinterList."},
  {"code": 3, "name": "SocketListenFail", "text": "Socket Listen Fail", "meaning": "The service could not listen on one of its ports.", "remedy": "Find the other program that uses port 53264 or 53265, end it, and restart the service."},
  {"code": 4, "name": "SocketInterrupt", "text": "Socket Interrupt", "meaning": "The service did not take the command or did not answer it: it is not running, is at another address, closed the connection, or kept silent for the whole wait.", "remedy": "Start the service, check the address in zelkad_ip_config.ini and the firewall (ports 53264 and 53265), and try again. A print command may have been carried out: look at the paper first."},
  {"code": 5, "name": "BufferNotEnough", "text": "Buffer Not Enough", "meaning": "The answer does not fit the caller's buffer, or no buffer was given.", "remedy": "Pass a larger buffer; a reply has at most 2048 bytes."},
  {"code": 6, "name": "TooMuchToPrint", "text": "Too Much To Print", "meaning": "A line has more than 2048 bytes of UTF-8, or a job is longer than the printer takes.", "remedy": "Break the text into shorter lines, or print it with PrintTextByPaperWidth; print a long job as several."},
  {"code": 7, "name": "JsonErr", "text": "Json Err", "meaning": "The request or the reply is not the JSON that the other side expects.", "remedy": "Check that library and service are of the same version; with DLL=2 in NLog.ini the log shows both texts."},
  {"code": 8, "name": "MissParam", "text": "Miss param", "meaning": "The request lacks a parameter that the command needs.", "remedy": "Check that library and service are of the same version; with a raw command, add the parameter."},
  {"code": 9, "name": "VersionIncompatible", "text": "Version Incompatible", "meaning": "The service does not work with this version of the library.", "remedy": "Bring library and service to versions that belong together."},
  {"code": 10, "name": "CommandReturnFail", "text": "Command return fail", "meaning": "The device took the command and reported that it failed.", "remedy": "Try again; if it stays, switch the device off and on, and read the service's log."},
  {"code": 1001, "name": "LcConnectionFail", "text": "LC Connection Fail", "meaning": "There is no connection for weighing.", "remedy": "Check that the service is running and that port 53264 can be reached, then restart the application."},
  {"code": 1002, "name": "UnsupportWeightCmd", "text": "Unsupport Weight Cmd", "meaning": "This scale or this service does not know the weighing command.", "remedy": "Bring the service up to date, or do without the command on this scale."},
  {"code": 1003, "name": "UnderLoad", "text": "Under Load", "meaning": "The scale carries less than it can show: a plate is missing, or it was zeroed with a load on it.", "remedy": "Put the plate back, empty the scale and zero it."},
  {"code": 1004, "name": "OverLoad", "text": "Over Load", "meaning": "There is more on the scale than it can weigh.", "remedy": "Take the load off at once and weigh it in parts."},
  {"code": 1005, "name": "WeightNotStable", "text": "Weight Not Stable", "meaning": "The weight has not settled.", "remedy": "Wait until the goods lie still, and read again."},
  {"code": 1006, "name": "InvalidWeight", "text": "Invalid Weight", "meaning": "The scale has no valid weight, for example before its zero is found.", "remedy": "Empty the scale and zero it; if that does not help, switch it off and on."},
  {"code": 1007, "name": "LcNotConnected", "text": "LC not connected", "meaning": "The service cannot reach the scale.", "remedy": "Check the scale's cable and power, then its port in the service's settings."},
  {"code": 2001, "name": "PrtConnectionFail", "text": "Prt Connection Fail", "meaning": "There is no connection for printing, or the service cannot reach the printer.", "remedy": "Check the printer's cable and power, that the service is running, and that port 53265 can be reached."},
  {"code": 2002, "name": "UnsupportPrintCmd", "text": "Unsupport Print Cmd", "meaning": "This printer or this service does not know the print command.", "remedy": "Bring the service up to date, or do without the command on this printer."},
  {"code": 2003, "name": "PrtDrvReturnError", "text": "Prt-drv Return Error", "meaning": "The printer's driver reported an error.", "remedy": "Switch the printer off and on; if it stays, read the service's log and renew the driver."},
  {"code": 2005, "name": "PrinterIsBusy", "text": "Printer is Busy", "meaning": "The printer is still at work on something else.", "remedy": "Wait a moment and try again."},
  {"code": 2006, "name": "OutOfPaper", "text": "Out of Paper", "meaning": "The printer has no paper left.", "remedy": "Put in new paper, close the cover, and print the job again: what came out before is not complete."},
  {"code": 2007, "name": "PrintHeadIsHot", "text": "Print Head is Hot", "meaning": "The print head is too hot to print.", "remedy": "Let it cool down, then print the job again; a lower contrast heats it less."},
  {"code": 2008, "name": "PrinterNotFound", "text": "Printer Not Found", "meaning": "There is no printer of this name or type.", "remedy": "Take a name of GetPrinterList, or a printer type that the service has (100 is its default)."},
  {"code": 2009, "name": "IllegalPrintHead", "text": "Illegal Print Head", "meaning": "The printer does not accept its print head.", "remedy": "Put in the head that belongs to the printer, and have it serviced."},
  {"code": 2010, "name": "PrtStatusAbnormal", "text": "Prt Status Abnormal", "meaning": "The printer reports a state in which it does not print, such as an open cover.", "remedy": "Close the cover, look for jammed paper, and switch the printer off and on."},
];

const answers = {
  TOLVEX_OK: {"code": 240, "name": "Ok", "text": "Done", "meaning": "The function did what it was called for.", "remedy": "Nothing."},
  TOLVEX_FAILED: {"code": 255, "name": "Failed", "text": "Failed", "meaning": "The function failed; a missing argument is one reason, a command that failed another.", "remedy": "Ask getLastErrCode() for the result code behind it, and read the log."},
  TOLVEX_FONT_TOO_SMALL: {"code": 242, "name": "FontTooSmall", "text": "Font too small", "meaning": "PrintText and PrintTextByPaperWidth: the font size is below 12.", "remedy": "Pass a size of 12 to 72."},
  TOLVEX_FONT_TOO_BIG: {"code": 243, "name": "FontTooBig", "text": "Font too big", "meaning": "PrintText and PrintTextByPaperWidth: the font size is above 72.", "remedy": "Pass a size of 12 to 72."},
  TOLVEX_UNREADABLE_REPLY: {"code": -1, "name": "UnreadableReply", "text": "Unreadable reply", "meaning": "A function returning a code, or the last error: the reply is not JSON, was cut off or came in pieces, or has no text as its \"result\".", "remedy": "Check that the program at ports 53264 and 53265 is the service; with DLL=2 in NLog.ini the log shows the reply."},
  TOLVEX_UNDER_LOAD: {"code": -1, "name": "UnderLoad", "text": "Under load", "meaning": "read_standard: the scale carries less than it can show (result code 1003).", "remedy": "Put the plate back, empty the scale and zero it."},
  TOLVEX_OVER_LOAD: {"code": -2, "name": "OverLoad", "text": "Over load", "meaning": "read_standard: there is more on the scale than it can weigh (result code 1004).", "remedy": "Take the load off at once and weigh it in parts."},
};

const constants = {
  TOLVEX_OK: 240, // done
  TOLVEX_FAILED: 255, // failed; getLastErrCode() says why
  TOLVEX_UNDER_LOAD: -1, // read_standard only
  TOLVEX_OVER_LOAD: -2, // read_standard only
  TOLVEX_FONT_TOO_SMALL: 242, // PrintText and PrintTextByPaperWidth only
  TOLVEX_FONT_TOO_BIG: 243, // PrintText and PrintTextByPaperWidth only
  TOLVEX_UNREADABLE_REPLY: -1, // of functions returning a code, and of getLastErrCode
  TOLVEX_DEFAULT_PRINTER: 100, // a printer type
  TOLVEX_WEIGHT_STABLE: 1, // the weight has settled
  TOLVEX_WEIGHT_AT_ZERO: 2, // nothing is on the scale
  TOLVEX_WEIGHT_TARE_ACTIVE: 4, // a tare is subtracted
};

const records = {
  tolvex_base_info: {
    size: 64,
    max_range: {"offset": 0, "size": 12, "type": "int32_t", "count": 3}, // capacity of each range, in the service's unit, whole numbers
    min_range: {"offset": 12, "size": 4, "type": "int32_t", "count": 0}, // least weight, in thousandths of the unit
    max_tare: {"offset": 16, "size": 4, "type": "int32_t", "count": 0}, // in thousandths of the unit
    max_preset_tare: {"offset": 20, "size": 4, "type": "int32_t", "count": 0}, // in thousandths of the unit
    resolution: {"offset": 24, "size": 12, "type": "int32_t", "count": 3}, // division of each range, in thousandths of the unit
    weight_unit: {"offset": 36, "size": 4, "type": "char", "count": 4}, // for example "kg"; no NUL after four characters
    reserved: {"offset": 40, "size": 4, "type": "char", "count": 4}, // zero
    system_version: {"offset": 44, "size": 20, "type": "char", "count": 20}, // no NUL after twenty characters
  },
  tolvex_weight: {
    size: 24,
    status: {"offset": 0, "size": 1, "type": "unsigned char", "count": 0}, // TOLVEX_WEIGHT_ bits
    net: {"offset": 1, "size": 7, "type": "char", "count": 7}, // net weight as text, for example "01.5000" or "-12.500"; no NUL
    mark: {"offset": 8, "size": 1, "type": "char", "count": 0}, // 'P'; NUL in the all-zero record of an invalid weight
    tare: {"offset": 9, "size": 7, "type": "char", "count": 7}, // tare weight as text, four decimals; a longer one runs on into rest
    rest: {"offset": 16, "size": 8, "type": "char", "count": 8}, // NUL behind the tare text
  },
};

module.exports = { functions, codes, answers, constants, records };
