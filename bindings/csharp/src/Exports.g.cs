// Written by ./run bindings from src/api/exports.h. Do not edit.
using System;
using System.Runtime.InteropServices;

namespace Tolvex
{
    /// <summary>
    /// Every function of the library, under its own name.
    /// </summary>
    /// <remarks>
    /// <para>The public interface of tolvex_dll.dll and libtolvex_dll.so, for C and C++.</para>
    /// <para>Conventions, which hold for every function unless its own text says otherwise:</para>
    /// <para>1. Results. A function "returning a verdict" gives TOLVEX_OK (240) or TOLVEX_FAILED (255). A
    /// function "returning a code" gives a result code: 0 for success, otherwise one of enum
    /// tolvex_result or whatever code the service answered; TOLVEX_UNREADABLE_REPLY (-1) is a reply
    /// that could not be read.</para>
    /// <para>2. Last error. Behind every verdict stands a code; getLastErrCode() reads that of the latest
    /// command. Functions that send no command leave it alone.</para>
    /// <para>3. First call. The first function that needs the service creates the library's context: it reads
    /// zelkad_ip_config.ini beside the running executable (section [zelkad], key ip_addr), opens the
    /// log in c:\VARN\Log\ (Linux: ${XDG_STATE_HOME:-$HOME/.local/state}/varn/log/) and connects to
    /// ports 53264 (weighing) and 53265 (printing). It lives until the process ends.</para>
    /// <para>4. Time. Every function returns when its work is done. One that talks to the service takes at
    /// most the 40 s wait for the reply, plus up to 1 s for each connect.</para>
    /// <para>5. Threads. Any thread may call. Commands on one connection wait for each other. The print job
    /// is the exception: one thread queues it and ends it with BeginPrint.</para>
    /// <para>6. Text going in is NUL-terminated 8-bit text, sent as it is. "ANSI text" is in the system's
    /// ANSI code page (Linux: the character set of the user's locale - LC_ALL, LC_CTYPE or LANG -
    /// and UTF-8 where none is set) and goes out as UTF-8. A null text counts as empty where nothing
    /// else is said.</para>
    /// <para>7. Buffers belong to the caller. They are written on success only, never beyond the stated size,
    /// and copied like strncpy: a text as long as the size or longer has NO terminating NUL, and a
    /// shorter one is followed by NULs up to the size. "Exact" copies write no NUL at all: zero the
    /// buffer beforehand. A null buffer is never written.</para>
    /// <para>8. Printers. A printer type is a number that the service understands: 0 the label printer, 1 the
    /// ticket printer, 2 a third one, TOLVEX_DEFAULT_PRINTER (100) whichever is the default. A
    /// printer name is one of those that GetPrinterList tells, at most 255 bytes; a longer one or a
    /// null is result code 2. Values of settings go out as they are: their meaning and range are the
    /// service's.</para>
    /// <para>9. Log. Each function says which lines it writes, with their levels (5 failures, 6 entry and
    /// outcome); "client" is the host application's name. Behind them stand the request and the
    /// reply at level 2 (off by default), failures of the exchange at level 5, and those of a
    /// connection under "Socket".</para>
    /// <para>10. Exceptions and memory. No exception leaves a function. When memory runs out a verdict is 255
    /// and a code is 1.</para>
    /// <para>11. Names. On x64 there is one calling convention. A function with a twin exists under a second
    /// name with the suffix _stdcall, which does exactly the same.</para>
    /// </remarks>
    public static partial class Exports
    {
        /// <summary>
        /// done
        /// </summary>
        public const int TOLVEX_OK = 240;

        /// <summary>
        /// failed; getLastErrCode() says why
        /// </summary>
        public const int TOLVEX_FAILED = 255;

        /// <summary>
        /// read_standard only
        /// </summary>
        public const int TOLVEX_UNDER_LOAD = -1;

        /// <summary>
        /// read_standard only
        /// </summary>
        public const int TOLVEX_OVER_LOAD = -2;

        /// <summary>
        /// PrintText and PrintTextByPaperWidth only
        /// </summary>
        public const int TOLVEX_FONT_TOO_SMALL = 242;

        /// <summary>
        /// PrintText and PrintTextByPaperWidth only
        /// </summary>
        public const int TOLVEX_FONT_TOO_BIG = 243;

        /// <summary>
        /// of functions returning a code, and of getLastErrCode
        /// </summary>
        public const int TOLVEX_UNREADABLE_REPLY = -1;

        /// <summary>
        /// a printer type
        /// </summary>
        public const int TOLVEX_DEFAULT_PRINTER = 100;

        /// <summary>
        /// the weight has settled
        /// </summary>
        public const int TOLVEX_WEIGHT_STABLE = 1;

        /// <summary>
        /// nothing is on the scale
        /// </summary>
        public const int TOLVEX_WEIGHT_AT_ZERO = 2;

        /// <summary>
        /// a tare is subtracted
        /// </summary>
        public const int TOLVEX_WEIGHT_TARE_ACTIVE = 4;

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int F();

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FB([In, Out] byte[] a);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FBU([In, Out] byte[] a, uint b);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FBUT([In, Out] byte[] a, uint b, [In] byte[] c);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FI(int a);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FIT(int a, [In] byte[] b);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FT([In] byte[] a);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FTBU([In] byte[] a, [In, Out] byte[] b, uint c);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FTI([In] byte[] a, int b);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FTT([In] byte[] a, [In] byte[] b);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FTTBUU([In] byte[] a, [In] byte[] b, [In, Out] byte[] c, uint d, uint e);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FTTITBUU([In] byte[] a, [In] byte[] b, int c, [In] byte[] d, [In, Out] byte[] e, uint f, uint g);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FTU([In] byte[] a, uint b);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FTUU([In] byte[] a, uint b, uint c);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FTUUU([In] byte[] a, uint b, uint c, uint d);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FU(uint a);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FUT(uint a, [In] byte[] b);

        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        private delegate int FUU(uint a, uint b);

        private static FB _read_baseinfo;
        private static FB _read_baseinfo_stdcall;
        private static FB _read_standard;
        private static FB _read_standard_stdcall;
        private static F _send_zero;
        private static F _send_zero_stdcall;
        private static FB _set_tare_bykey;
        private static FB _set_tare_bykey_stdcall;
        private static FB _send_tare;
        private static FB _send_tare_stdcall;
        private static FB _send_pre_tare;
        private static FB _send_pre_tare_stdcall;
        private static FB _clear_tare;
        private static FB _clear_tare_stdcall;
        private static FBU _getLCVersion;
        private static FU _setOverloadAlarm;
        private static FI _setHighResWeightMode;
        private static F _getHighResWeightMode;
        private static FTTBUU _sendRawCmdToLC;
        private static FTU _PrintText;
        private static FTU _PrintText_stdcall;
        private static FTUU _PrintTextByPaperWidth;
        private static FTUU _PrintTextByPaperWidth_stdcall;
        private static FTI _PrintBitmapFile;
        private static FTI _PrintBitmapFile_stdcall;
        private static FTUU _PrintBitmapFileWithAlign;
        private static FI _BeginPrint;
        private static FI _BeginPrint_stdcall;
        private static FTUU _printTextById;
        private static FTUUU _printTextByPaperWidthById;
        private static FTUU _printBitmapFileById;
        private static FTTITBUU _sendRawCmdToPrt;
        private static FU _printBlanks;
        private static FU _printBlanks_stdcall;
        private static F _feedPaper;
        private static F _feedPaper_stdcall;
        private static FU _feedPaperById;
        private static F _cutPaper;
        private static F _cutPaper_stdcall;
        private static FU _cutPaperById;
        private static FU _calibrateLabel;
        private static FU _testPaper;
        private static FUU _setDefaultPaperWidth;
        private static FU _SetDefaultPaperWidth;
        private static FU _SetDefaultPaperWidth_stdcall;
        private static FUU _setGapType;
        private static FUU _setPrinterDirection;
        private static FUU _setTextWrapMode;
        private static FUT _setLeftMargin;
        private static FUT _setRightMargin;
        private static FUT _setPaperOffset;
        private static FUT _setPrintContrast;
        private static FUT _setPrintSpeed;
        private static FUT _setPrtAutoPrint;
        private static FUT _setRollback;
        private static FIT _setTakeupPaperSensor;
        private static FBU _GetPrinterList;
        private static FBU _GetPrinterList_stdcall;
        private static FU _GetPrinterStatus;
        private static FU _GetPrinterStatus_stdcall;
        private static FBUT _getPrinterVersion;
        private static F _OpenCashDrawerEx;
        private static F _OpenCashDrawerEx_stdcall;
        private static F _checkConnection;
        private static F _getLastErrCode;
        private static FTBU _getLogLevel;
        private static FTT _setLogLevel;
        private static FT _SetServerIpForRemoteAccess;
        private static FT _SetServerIpForRemoteAccess_stdcall;
        private static F _ClosePrinterEx;
        private static F _ClosePrinterEx_stdcall;
        private static F _DisplayUpdate;
        private static F _DisplayUpdate_stdcall;
        private static F _OpenDisplay;
        private static F _OpenDisplay_stdcall;
        private static F _OpenPrinter;
        private static F _OpenPrinter_stdcall;
        private static F _SetDataRows;
        private static F _SetDataRows_stdcall;
        private static F _SetHeaderReserveRows;
        private static F _SetHeaderReserveRows_stdcall;
        private static F _SetInvoiceParameter;
        private static F _SetInvoiceParameter_stdcall;
        private static F _SetPrintContrast;
        private static F _SetPrintContrast_stdcall;
        private static F _SetPrintOffset;
        private static F _SetPrintOffset_stdcall;
        private static F _SetPrintSpeed;
        private static F _SetPrintSpeed_stdcall;
        private static F _SetRealPrintHeaderWidth;
        private static F _SetRealPrintHeaderWidth_stdcall;
        private static F _SetScaleType;
        private static F _SetScaleType_stdcall;
        private static F _SetTakeLabelSensor;
        private static F _SetTakeLabelSensor_stdcall;
        private static F _SetTakeupMotorDirection;
        private static F _SetTakeupMotorDirection_stdcall;
        private static F _SetUSBPrinterDirection;
        private static F _SetUSBPrinterDirection_stdcall;
        private static F _SetUnitPrice;
        private static F _SetUnitPrice_stdcall;
        private static F _ShowBalance;
        private static F _ShowBalance_stdcall;
        private static F _ShowDisplayText;
        private static F _ShowDisplayText_stdcall;
        private static F _ShowOrHideForm;
        private static F _ShowOrHideForm_stdcall;
        private static F _ShowProduct;
        private static F _ShowProduct_stdcall;
        private static F _switch_resolution;
        private static F _switch_resolution_stdcall;
        private static F _PrintLabelImage;
        private static F _PrintLabelImage_stdcall;
        private static F _Version;
        private static F _Version_stdcall;
        private static F _DisplayText;
        private static F _DisplayText_stdcall;
        private static F _IncreaseResolution;
        private static F _IncreaseResolution_stdcall;
        private static F _SetClientName;
        private static F _SetClientName_stdcall;

        internal static readonly string[] Names =
        {
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
        };

        private static void Bind(Func<string, IntPtr> find)
        {
            _read_baseinfo = (FB)Function(find("read_baseinfo"), typeof(FB));
            _read_baseinfo_stdcall = (FB)Function(find("read_baseinfo_stdcall"), typeof(FB));
            _read_standard = (FB)Function(find("read_standard"), typeof(FB));
            _read_standard_stdcall = (FB)Function(find("read_standard_stdcall"), typeof(FB));
            _send_zero = (F)Function(find("send_zero"), typeof(F));
            _send_zero_stdcall = (F)Function(find("send_zero_stdcall"), typeof(F));
            _set_tare_bykey = (FB)Function(find("set_tare_bykey"), typeof(FB));
            _set_tare_bykey_stdcall = (FB)Function(find("set_tare_bykey_stdcall"), typeof(FB));
            _send_tare = (FB)Function(find("send_tare"), typeof(FB));
            _send_tare_stdcall = (FB)Function(find("send_tare_stdcall"), typeof(FB));
            _send_pre_tare = (FB)Function(find("send_pre_tare"), typeof(FB));
            _send_pre_tare_stdcall = (FB)Function(find("send_pre_tare_stdcall"), typeof(FB));
            _clear_tare = (FB)Function(find("clear_tare"), typeof(FB));
            _clear_tare_stdcall = (FB)Function(find("clear_tare_stdcall"), typeof(FB));
            _getLCVersion = (FBU)Function(find("getLCVersion"), typeof(FBU));
            _setOverloadAlarm = (FU)Function(find("setOverloadAlarm"), typeof(FU));
            _setHighResWeightMode = (FI)Function(find("setHighResWeightMode"), typeof(FI));
            _getHighResWeightMode = (F)Function(find("getHighResWeightMode"), typeof(F));
            _sendRawCmdToLC = (FTTBUU)Function(find("sendRawCmdToLC"), typeof(FTTBUU));
            _PrintText = (FTU)Function(find("PrintText"), typeof(FTU));
            _PrintText_stdcall = (FTU)Function(find("PrintText_stdcall"), typeof(FTU));
            _PrintTextByPaperWidth = (FTUU)Function(find("PrintTextByPaperWidth"), typeof(FTUU));
            _PrintTextByPaperWidth_stdcall = (FTUU)Function(find("PrintTextByPaperWidth_stdcall"), typeof(FTUU));
            _PrintBitmapFile = (FTI)Function(find("PrintBitmapFile"), typeof(FTI));
            _PrintBitmapFile_stdcall = (FTI)Function(find("PrintBitmapFile_stdcall"), typeof(FTI));
            _PrintBitmapFileWithAlign = (FTUU)Function(find("PrintBitmapFileWithAlign"), typeof(FTUU));
            _BeginPrint = (FI)Function(find("BeginPrint"), typeof(FI));
            _BeginPrint_stdcall = (FI)Function(find("BeginPrint_stdcall"), typeof(FI));
            _printTextById = (FTUU)Function(find("printTextById"), typeof(FTUU));
            _printTextByPaperWidthById = (FTUUU)Function(find("printTextByPaperWidthById"), typeof(FTUUU));
            _printBitmapFileById = (FTUU)Function(find("printBitmapFileById"), typeof(FTUU));
            _sendRawCmdToPrt = (FTTITBUU)Function(find("sendRawCmdToPrt"), typeof(FTTITBUU));
            _printBlanks = (FU)Function(find("printBlanks"), typeof(FU));
            _printBlanks_stdcall = (FU)Function(find("printBlanks_stdcall"), typeof(FU));
            _feedPaper = (F)Function(find("feedPaper"), typeof(F));
            _feedPaper_stdcall = (F)Function(find("feedPaper_stdcall"), typeof(F));
            _feedPaperById = (FU)Function(find("feedPaperById"), typeof(FU));
            _cutPaper = (F)Function(find("cutPaper"), typeof(F));
            _cutPaper_stdcall = (F)Function(find("cutPaper_stdcall"), typeof(F));
            _cutPaperById = (FU)Function(find("cutPaperById"), typeof(FU));
            _calibrateLabel = (FU)Function(find("calibrateLabel"), typeof(FU));
            _testPaper = (FU)Function(find("testPaper"), typeof(FU));
            _setDefaultPaperWidth = (FUU)Function(find("setDefaultPaperWidth"), typeof(FUU));
            _SetDefaultPaperWidth = (FU)Function(find("SetDefaultPaperWidth"), typeof(FU));
            _SetDefaultPaperWidth_stdcall = (FU)Function(find("SetDefaultPaperWidth_stdcall"), typeof(FU));
            _setGapType = (FUU)Function(find("setGapType"), typeof(FUU));
            _setPrinterDirection = (FUU)Function(find("setPrinterDirection"), typeof(FUU));
            _setTextWrapMode = (FUU)Function(find("setTextWrapMode"), typeof(FUU));
            _setLeftMargin = (FUT)Function(find("setLeftMargin"), typeof(FUT));
            _setRightMargin = (FUT)Function(find("setRightMargin"), typeof(FUT));
            _setPaperOffset = (FUT)Function(find("setPaperOffset"), typeof(FUT));
            _setPrintContrast = (FUT)Function(find("setPrintContrast"), typeof(FUT));
            _setPrintSpeed = (FUT)Function(find("setPrintSpeed"), typeof(FUT));
            _setPrtAutoPrint = (FUT)Function(find("setPrtAutoPrint"), typeof(FUT));
            _setRollback = (FUT)Function(find("setRollback"), typeof(FUT));
            _setTakeupPaperSensor = (FIT)Function(find("setTakeupPaperSensor"), typeof(FIT));
            _GetPrinterList = (FBU)Function(find("GetPrinterList"), typeof(FBU));
            _GetPrinterList_stdcall = (FBU)Function(find("GetPrinterList_stdcall"), typeof(FBU));
            _GetPrinterStatus = (FU)Function(find("GetPrinterStatus"), typeof(FU));
            _GetPrinterStatus_stdcall = (FU)Function(find("GetPrinterStatus_stdcall"), typeof(FU));
            _getPrinterVersion = (FBUT)Function(find("getPrinterVersion"), typeof(FBUT));
            _OpenCashDrawerEx = (F)Function(find("OpenCashDrawerEx"), typeof(F));
            _OpenCashDrawerEx_stdcall = (F)Function(find("OpenCashDrawerEx_stdcall"), typeof(F));
            _checkConnection = (F)Function(find("checkConnection"), typeof(F));
            _getLastErrCode = (F)Function(find("getLastErrCode"), typeof(F));
            _getLogLevel = (FTBU)Function(find("getLogLevel"), typeof(FTBU));
            _setLogLevel = (FTT)Function(find("setLogLevel"), typeof(FTT));
            _SetServerIpForRemoteAccess = (FT)Function(find("SetServerIpForRemoteAccess"), typeof(FT));
            _SetServerIpForRemoteAccess_stdcall = (FT)Function(find("SetServerIpForRemoteAccess_stdcall"), typeof(FT));
            _ClosePrinterEx = (F)Function(find("ClosePrinterEx"), typeof(F));
            _ClosePrinterEx_stdcall = (F)Function(find("ClosePrinterEx_stdcall"), typeof(F));
            _DisplayUpdate = (F)Function(find("DisplayUpdate"), typeof(F));
            _DisplayUpdate_stdcall = (F)Function(find("DisplayUpdate_stdcall"), typeof(F));
            _OpenDisplay = (F)Function(find("OpenDisplay"), typeof(F));
            _OpenDisplay_stdcall = (F)Function(find("OpenDisplay_stdcall"), typeof(F));
            _OpenPrinter = (F)Function(find("OpenPrinter"), typeof(F));
            _OpenPrinter_stdcall = (F)Function(find("OpenPrinter_stdcall"), typeof(F));
            _SetDataRows = (F)Function(find("SetDataRows"), typeof(F));
            _SetDataRows_stdcall = (F)Function(find("SetDataRows_stdcall"), typeof(F));
            _SetHeaderReserveRows = (F)Function(find("SetHeaderReserveRows"), typeof(F));
            _SetHeaderReserveRows_stdcall = (F)Function(find("SetHeaderReserveRows_stdcall"), typeof(F));
            _SetInvoiceParameter = (F)Function(find("SetInvoiceParameter"), typeof(F));
            _SetInvoiceParameter_stdcall = (F)Function(find("SetInvoiceParameter_stdcall"), typeof(F));
            _SetPrintContrast = (F)Function(find("SetPrintContrast"), typeof(F));
            _SetPrintContrast_stdcall = (F)Function(find("SetPrintContrast_stdcall"), typeof(F));
            _SetPrintOffset = (F)Function(find("SetPrintOffset"), typeof(F));
            _SetPrintOffset_stdcall = (F)Function(find("SetPrintOffset_stdcall"), typeof(F));
            _SetPrintSpeed = (F)Function(find("SetPrintSpeed"), typeof(F));
            _SetPrintSpeed_stdcall = (F)Function(find("SetPrintSpeed_stdcall"), typeof(F));
            _SetRealPrintHeaderWidth = (F)Function(find("SetRealPrintHeaderWidth"), typeof(F));
            _SetRealPrintHeaderWidth_stdcall = (F)Function(find("SetRealPrintHeaderWidth_stdcall"), typeof(F));
            _SetScaleType = (F)Function(find("SetScaleType"), typeof(F));
            _SetScaleType_stdcall = (F)Function(find("SetScaleType_stdcall"), typeof(F));
            _SetTakeLabelSensor = (F)Function(find("SetTakeLabelSensor"), typeof(F));
            _SetTakeLabelSensor_stdcall = (F)Function(find("SetTakeLabelSensor_stdcall"), typeof(F));
            _SetTakeupMotorDirection = (F)Function(find("SetTakeupMotorDirection"), typeof(F));
            _SetTakeupMotorDirection_stdcall = (F)Function(find("SetTakeupMotorDirection_stdcall"), typeof(F));
            _SetUSBPrinterDirection = (F)Function(find("SetUSBPrinterDirection"), typeof(F));
            _SetUSBPrinterDirection_stdcall = (F)Function(find("SetUSBPrinterDirection_stdcall"), typeof(F));
            _SetUnitPrice = (F)Function(find("SetUnitPrice"), typeof(F));
            _SetUnitPrice_stdcall = (F)Function(find("SetUnitPrice_stdcall"), typeof(F));
            _ShowBalance = (F)Function(find("ShowBalance"), typeof(F));
            _ShowBalance_stdcall = (F)Function(find("ShowBalance_stdcall"), typeof(F));
            _ShowDisplayText = (F)Function(find("ShowDisplayText"), typeof(F));
            _ShowDisplayText_stdcall = (F)Function(find("ShowDisplayText_stdcall"), typeof(F));
            _ShowOrHideForm = (F)Function(find("ShowOrHideForm"), typeof(F));
            _ShowOrHideForm_stdcall = (F)Function(find("ShowOrHideForm_stdcall"), typeof(F));
            _ShowProduct = (F)Function(find("ShowProduct"), typeof(F));
            _ShowProduct_stdcall = (F)Function(find("ShowProduct_stdcall"), typeof(F));
            _switch_resolution = (F)Function(find("switch_resolution"), typeof(F));
            _switch_resolution_stdcall = (F)Function(find("switch_resolution_stdcall"), typeof(F));
            _PrintLabelImage = (F)Function(find("PrintLabelImage"), typeof(F));
            _PrintLabelImage_stdcall = (F)Function(find("PrintLabelImage_stdcall"), typeof(F));
            _Version = (F)Function(find("Version"), typeof(F));
            _Version_stdcall = (F)Function(find("Version_stdcall"), typeof(F));
            _DisplayText = (F)Function(find("DisplayText"), typeof(F));
            _DisplayText_stdcall = (F)Function(find("DisplayText_stdcall"), typeof(F));
            _IncreaseResolution = (F)Function(find("IncreaseResolution"), typeof(F));
            _IncreaseResolution_stdcall = (F)Function(find("IncreaseResolution_stdcall"), typeof(F));
            _SetClientName = (F)Function(find("SetClientName"), typeof(F));
            _SetClientName_stdcall = (F)Function(find("SetClientName_stdcall"), typeof(F));
        }

        // ---- Weighing ----

        /// <summary>
        /// <para>Reads the scale's base information into record (64 bytes, tolvex_base_info). Returns a verdict.</para>
        /// </summary>
        public static int read_baseinfo(byte[] record)
        {
            CheckRoom(record, 64, "record");
            Library.EnsureLoaded();
            return _read_baseinfo(record);
        }

        /// <summary>
        /// <para>The same as read_baseinfo, under a second name.</para>
        /// </summary>
        public static int read_baseinfo_stdcall(byte[] record)
        {
            CheckRoom(record, 64, "record");
            Library.EnsureLoaded();
            return _read_baseinfo_stdcall(record);
        }

        /// <summary>
        /// <para>Reads the weight into record (24 bytes, tolvex_weight).
        /// Returns TOLVEX_OK: the record holds a stable or an unstable weight (see the status bits), or
        /// nothing but zeros when the scale reports an invalid weight; TOLVEX_UNDER_LOAD or
        /// TOLVEX_OVER_LOAD: the record is untouched; TOLVEX_FAILED.</para>
        /// </summary>
        public static int read_standard(byte[] record)
        {
            CheckRoom(record, 24, "record");
            Library.EnsureLoaded();
            return _read_standard(record);
        }

        /// <summary>
        /// <para>The same as read_standard, under a second name.</para>
        /// </summary>
        public static int read_standard_stdcall(byte[] record)
        {
            CheckRoom(record, 24, "record");
            Library.EnsureLoaded();
            return _read_standard_stdcall(record);
        }

        /// <summary>
        /// <para>Sets the scale to zero. Returns a verdict.</para>
        /// </summary>
        public static int send_zero()
        {
            Library.EnsureLoaded();
            return _send_zero();
        }

        /// <summary>
        /// <para>The same as send_zero, under a second name.</para>
        /// </summary>
        public static int send_zero_stdcall()
        {
            Library.EnsureLoaded();
            return _send_zero_stdcall();
        }

        /// <summary>
        /// <para>Takes what lies on the scale as the tare. reply (at least 10 bytes) gets the tare as text, unless
        /// the host application is "Kelvarin" or "Lumidesk": for those it is left as it was.
        /// Returns a verdict.</para>
        /// </summary>
        public static int set_tare_bykey(byte[] reply)
        {
            CheckRoom(reply, 10, "reply");
            Library.EnsureLoaded();
            return _set_tare_bykey(reply);
        }

        /// <summary>
        /// <para>The same as set_tare_bykey, under a second name.</para>
        /// </summary>
        public static int set_tare_bykey_stdcall(byte[] reply)
        {
            CheckRoom(reply, 10, "reply");
            Library.EnsureLoaded();
            return _set_tare_bykey_stdcall(reply);
        }

        /// <summary>
        /// <para>The same as set_tare_bykey, with one more line at its head.</para>
        /// </summary>
        public static int send_tare(byte[] reply)
        {
            CheckRoom(reply, 10, "reply");
            Library.EnsureLoaded();
            return _send_tare(reply);
        }

        /// <summary>
        /// <para>The same as send_tare, under a second name.</para>
        /// </summary>
        public static int send_tare_stdcall(byte[] reply)
        {
            CheckRoom(reply, 10, "reply");
            Library.EnsureLoaded();
            return _send_tare_stdcall(reply);
        }

        /// <summary>
        /// <para>Clears the tare. The text that the caller passes is logged and goes no further: the scale is
        /// asked to clear its tare, and text (at least 10 bytes) gets the tare that is left, with the same
        /// exception as set_tare_bykey.
        /// Returns a verdict.</para>
        /// </summary>
        public static int send_pre_tare(byte[] text)
        {
            CheckRoom(text, 10, "text");
            CheckEnd(text, "text");
            Library.EnsureLoaded();
            return _send_pre_tare(text);
        }

        /// <summary>
        /// <para>The same as send_pre_tare, under a second name.</para>
        /// </summary>
        public static int send_pre_tare_stdcall(byte[] text)
        {
            CheckRoom(text, 10, "text");
            CheckEnd(text, "text");
            Library.EnsureLoaded();
            return _send_pre_tare_stdcall(text);
        }

        /// <summary>
        /// <para>Clears the tare; reply (at least 10 bytes) as for set_tare_bykey. Returns a verdict.</para>
        /// </summary>
        public static int clear_tare(byte[] reply)
        {
            CheckRoom(reply, 10, "reply");
            Library.EnsureLoaded();
            return _clear_tare(reply);
        }

        /// <summary>
        /// <para>The same as clear_tare, under a second name.</para>
        /// </summary>
        public static int clear_tare_stdcall(byte[] reply)
        {
            CheckRoom(reply, 10, "reply");
            Library.EnsureLoaded();
            return _clear_tare_stdcall(reply);
        }

        /// <summary>
        /// <para>Copies the reply with the weighing service's version, as JSON text, into buffer of size bytes.
        /// Returns a code; 5 when the reply is longer than size or buffer is null. Whatever the code, a
        /// reply that came is copied, a longer one up to size.</para>
        /// </summary>
        public static int getLCVersion(byte[] buffer, uint size)
        {
            CheckRoom(buffer, size, "buffer");
            Library.EnsureLoaded();
            return _getLCVersion(buffer, size);
        }

        /// <summary>
        /// <para>Switches the scale's overload alarm on (non-zero) or off (0); the number is sent as it is, on the
        /// printing connection. Returns a code.</para>
        /// </summary>
        public static int setOverloadAlarm(uint enable)
        {
            Library.EnsureLoaded();
            return _setOverloadAlarm(enable);
        }

        /// <summary>
        /// <para>Chooses what read_standard reads as the net weight: 0 the ordinary one (the state at start),
        /// anything else the high-resolution one. Sends nothing. Returns 0.</para>
        /// </summary>
        public static int setHighResWeightMode(int on)
        {
            Library.EnsureLoaded();
            return _setHighResWeightMode(on);
        }

        /// <summary>
        /// <para>Returns 1 when the high-resolution net weight is read, else 0. Sends nothing.</para>
        /// </summary>
        public static int getHighResWeightMode()
        {
            Library.EnsureLoaded();
            return _getHighResWeightMode();
        }

        /// <summary>
        /// <para>Sends any command to the weighing service. parameters becomes the request's "paramList" unless it
        /// is null or empty. reply of size bytes gets the whole reply as JSON text; it may be null. wait is
        /// the longest wait for the reply, in milliseconds.
        /// Returns a code; 5 for a null command, and when the reply is longer than size. Whatever the code,
        /// a reply that came is copied, a longer one up to size. The last error is set by a null command
        /// only.</para>
        /// </summary>
        public static int sendRawCmdToLC(byte[] command, byte[] parameters, byte[] reply, uint size, uint wait)
        {
            CheckRoom(reply, size, "reply");
            Library.EnsureLoaded();
            return _sendRawCmdToLC(Ended(command), Ended(parameters), reply, size, wait);
        }

        // ---- Printing: the job ----

        /// <summary>
        /// <para>Queues ANSI text for BeginPrint: one line, or one for each line feed in it (LF or CR LF; an empty
        /// line prints as a blank one; a line feed at the end begins no further line). fontSize is the
        /// height of the characters in dots, 12 to 72. A line of more than 2048 bytes of UTF-8 is queued,
        /// but refused when it is printed: BeginPrint then fails with code 6.
        /// Returns a verdict, TOLVEX_FONT_TOO_SMALL or TOLVEX_FONT_TOO_BIG; an empty text is TOLVEX_OK and
        /// queues nothing. The last error stays.</para>
        /// </summary>
        public static int PrintText(byte[] text, uint fontSize)
        {
            Library.EnsureLoaded();
            return _PrintText(Ended(text), fontSize);
        }

        /// <summary>
        /// <para>The same as PrintText, under a second name.</para>
        /// </summary>
        public static int PrintText_stdcall(byte[] text, uint fontSize)
        {
            Library.EnsureLoaded();
            return _PrintText_stdcall(Ended(text), fontSize);
        }

        /// <summary>
        /// <para>The same for paper of the given width in millimetres, with lines of any length: more than 80
        /// counts as 80, and 0 goes out as 0.</para>
        /// </summary>
        public static int PrintTextByPaperWidth(byte[] text, uint fontSize, uint width)
        {
            Library.EnsureLoaded();
            return _PrintTextByPaperWidth(Ended(text), fontSize, width);
        }

        /// <summary>
        /// <para>The same as PrintTextByPaperWidth, under a second name.</para>
        /// </summary>
        public static int PrintTextByPaperWidth_stdcall(byte[] text, uint fontSize, uint width)
        {
            Library.EnsureLoaded();
            return _PrintTextByPaperWidth_stdcall(Ended(text), fontSize, width);
        }

        /// <summary>
        /// <para>Queues an image file for BeginPrint; path is ANSI text. angle goes out as a 16-bit number,
        /// usually 0, 90, 180 or 270.</para>
        /// <para>The service opens the image when the job is printed. So that the application may change its own
        /// file meanwhile, the library copies it into its folder (convention 3), as prt_0 to prt_199 with
        /// the extension of the path, and begins again with prt_0: a job of more than 200 images shows the
        /// later ones in the place of the first, and two applications on one machine share the names. Where
        /// copying fails (no such folder, no such file), the path itself goes out: give an absolute one. The
        /// service must be on this machine and able to read the copy.</para>
        /// <para>Returns a verdict; a missing file fails in BeginPrint only, an empty path queues nothing. The
        /// last error stays.</para>
        /// </summary>
        public static int PrintBitmapFile(byte[] path, int angle)
        {
            Library.EnsureLoaded();
            return _PrintBitmapFile(Ended(path), angle);
        }

        /// <summary>
        /// <para>The same as PrintBitmapFile, under a second name.</para>
        /// </summary>
        public static int PrintBitmapFile_stdcall(byte[] path, int angle)
        {
            Library.EnsureLoaded();
            return _PrintBitmapFile_stdcall(Ended(path), angle);
        }

        /// <summary>
        /// <para>The same with an alignment: 0, 1 or 2; anything else counts as 1. It is kept with the image and
        /// not sent: the service has no such parameter.
        /// Returns a verdict, as PrintBitmapFile.</para>
        /// </summary>
        public static int PrintBitmapFileWithAlign(byte[] path, uint angle, uint align)
        {
            Library.EnsureLoaded();
            return _PrintBitmapFileWithAlign(Ended(path), angle, align);
        }

        /// <summary>
        /// <para>Ends a job: prints what is queued, confirms the job, and does what else the job type says.</para>
        /// <code>  job types                              what is done
        ///   0, 2, 7, 204, 205, and any other one   print; nothing queued is a failure (code 1)
        ///   4, 104, 206, 208, 304                  print what is queued, if anything is, and feed 13
        ///   8, 105, 207, 305                       print what is queued, if anything is, and cut
        ///   80, 90                                 calibrate the label gap; the queue stays
        ///   81, 91                                 calibrate for the end of the paper; the queue stays
        ///   6, 106, 209, 306                       nothing; the queue stays</code>
        /// <para>Job types 2, 80, 90, 204, 205, 206 and 208 go to printer type 0, 301 to 311 to printer type 2,
        /// all others to printer type 1.</para>
        /// <para>One command goes out for each line or image (convention 4 holds for each). The first that fails
        /// ends the job: the rest of the queue is dropped, and nothing is confirmed, fed or cut. What went
        /// out before it is with the printer already: cut it off (BeginPrint(8) with nothing queued, or
        /// cutPaperById) before the job is repeated.</para>
        /// <para>Returns a verdict. With a feed or a cut it is that of the feed or cut alone: a confirmation that
        /// was refused shows in the log only.</para>
        /// </summary>
        public static int BeginPrint(int jobType)
        {
            Library.EnsureLoaded();
            return _BeginPrint(jobType);
        }

        /// <summary>
        /// <para>The same as BeginPrint, under a second name.</para>
        /// </summary>
        public static int BeginPrint_stdcall(int jobType)
        {
            Library.EnsureLoaded();
            return _BeginPrint_stdcall(jobType);
        }

        // ---- Printing past the queue ----

        /// <summary>
        /// <para>Sends UTF-8 text to a printer of this type now. Nothing is converted or cut into lines; an empty
        /// text goes out as one blank, font size 0 as 28. The line belongs to whatever that printer prints
        /// next: end it with cutPaperById, or the next BeginPrint takes it along.
        /// Returns a code: 2 for a null text, 6 for one of more than 2048 bytes.</para>
        /// </summary>
        public static int printTextById(byte[] text, uint fontSize, uint printerType)
        {
            Library.EnsureLoaded();
            return _printTextById(Ended(text), fontSize, printerType);
        }

        /// <summary>
        /// <para>The same for paper of the given width in millimetres (sent times eight, in dots), with a text of
        /// any length. Returns a code: 2 for a null text.</para>
        /// </summary>
        public static int printTextByPaperWidthById(byte[] text, uint fontSize, uint width, uint printerType)
        {
            Library.EnsureLoaded();
            return _printTextByPaperWidthById(Ended(text), fontSize, width, printerType);
        }

        /// <summary>
        /// <para>The same for an image file. path is UTF-8 and opened by the service, so make it an absolute one;
        /// no copy is made. Returns a code: 2 for a null or empty path.</para>
        /// </summary>
        public static int printBitmapFileById(byte[] path, uint angle, uint printerType)
        {
            Library.EnsureLoaded();
            return _printBitmapFileById(Ended(path), angle, printerType);
        }

        /// <summary>
        /// <para>Sends any command to the printing service. number becomes the request's "intParam", parameters
        /// its "paramList" unless it is null or empty. reply of size bytes gets the whole reply as JSON
        /// text; it may be null. wait is the longest wait for the reply, in milliseconds.
        /// Returns a code; 2 for a null command or an unusable printer name, 5 when the reply is longer than
        /// size. Whatever the code, a reply that came is copied, a longer one up to size. The last error is
        /// set by a null command only.</para>
        /// </summary>
        public static int sendRawCmdToPrt(byte[] printerName, byte[] command, int number, byte[] parameters, byte[] reply, uint size, uint wait)
        {
            CheckRoom(reply, size, "reply");
            Library.EnsureLoaded();
            return _sendRawCmdToPrt(Ended(printerName), Ended(command), number, Ended(parameters), reply, size, wait);
        }

        // ---- Paper ----

        /// <summary>
        /// <para>Feeds blank paper on the default printer. distance is 1 to 1000, in the service's unit; any other
        /// is refused: 255, last error 2, nothing sent.
        /// Returns a verdict.</para>
        /// </summary>
        public static int printBlanks(uint distance)
        {
            Library.EnsureLoaded();
            return _printBlanks(distance);
        }

        /// <summary>
        /// <para>The same as printBlanks, under a second name.</para>
        /// </summary>
        public static int printBlanks_stdcall(uint distance)
        {
            Library.EnsureLoaded();
            return _printBlanks_stdcall(distance);
        }

        /// <summary>
        /// <para>Feeds a distance of 13 on the default printer. Returns a verdict.</para>
        /// </summary>
        public static int feedPaper()
        {
            Library.EnsureLoaded();
            return _feedPaper();
        }

        /// <summary>
        /// <para>The same as feedPaper, under a second name.</para>
        /// </summary>
        public static int feedPaper_stdcall()
        {
            Library.EnsureLoaded();
            return _feedPaper_stdcall();
        }

        /// <summary>
        /// <para>The same on a printer of this type. Returns a verdict.</para>
        /// </summary>
        public static int feedPaperById(uint printerType)
        {
            Library.EnsureLoaded();
            return _feedPaperById(printerType);
        }

        /// <summary>
        /// <para>Cuts the paper of the default printer, through 70 percent of its width. Returns a verdict.</para>
        /// </summary>
        public static int cutPaper()
        {
            Library.EnsureLoaded();
            return _cutPaper();
        }

        /// <summary>
        /// <para>The same as cutPaper, under a second name.</para>
        /// </summary>
        public static int cutPaper_stdcall()
        {
            Library.EnsureLoaded();
            return _cutPaper_stdcall();
        }

        /// <summary>
        /// <para>The same on a printer of this type. Returns a code.</para>
        /// </summary>
        public static int cutPaperById(uint printerType)
        {
            Library.EnsureLoaded();
            return _cutPaperById(printerType);
        }

        /// <summary>
        /// <para>Measures the gap between the labels. Returns a verdict.</para>
        /// </summary>
        public static int calibrateLabel(uint printerType)
        {
            Library.EnsureLoaded();
            return _calibrateLabel(printerType);
        }

        /// <summary>
        /// <para>Calibrates the sensor for the end of the paper. Returns a code.</para>
        /// </summary>
        public static int testPaper(uint printerType)
        {
            Library.EnsureLoaded();
            return _testPaper(printerType);
        }

        // ---- Printer settings ----

        /// <summary>
        /// <para>Paper width in millimetres (sent times eight, in dots) of a printer of this type. Returns a code.</para>
        /// </summary>
        public static int setDefaultPaperWidth(uint width, uint printerType)
        {
            Library.EnsureLoaded();
            return _setDefaultPaperWidth(width, printerType);
        }

        /// <summary>
        /// <para>The same of the default printer. Returns a code.</para>
        /// </summary>
        public static int SetDefaultPaperWidth(uint width)
        {
            Library.EnsureLoaded();
            return _SetDefaultPaperWidth(width);
        }

        /// <summary>
        /// <para>The same as SetDefaultPaperWidth, under a second name.</para>
        /// </summary>
        public static int SetDefaultPaperWidth_stdcall(uint width)
        {
            Library.EnsureLoaded();
            return _SetDefaultPaperWidth_stdcall(width);
        }

        /// <summary>
        /// <para>How labels are told apart, of a printer of this type. Returns a code.</para>
        /// </summary>
        public static int setGapType(uint gapType, uint printerType)
        {
            Library.EnsureLoaded();
            return _setGapType(gapType, printerType);
        }

        /// <summary>
        /// <para>Which way round a printer of this type prints. Returns a code.</para>
        /// </summary>
        public static int setPrinterDirection(uint direction, uint printerType)
        {
            Library.EnsureLoaded();
            return _setPrinterDirection(direction, printerType);
        }

        /// <summary>
        /// <para>What a printer of this type does with a line that is too long. Returns a code, and leaves the
        /// last error as it was.</para>
        /// </summary>
        public static int setTextWrapMode(uint wrapMode, uint printerType)
        {
            Library.EnsureLoaded();
            return _setTextWrapMode(wrapMode, printerType);
        }

        /// <summary>
        /// <para>Margins of the printer of this name. Each returns a code.</para>
        /// </summary>
        public static int setLeftMargin(uint leftMargin, byte[] printerName)
        {
            Library.EnsureLoaded();
            return _setLeftMargin(leftMargin, Ended(printerName));
        }

        /// <summary>
        /// <para>Margins of the printer of this name. Each returns a code.</para>
        /// </summary>
        public static int setRightMargin(uint rightMargin, byte[] printerName)
        {
            Library.EnsureLoaded();
            return _setRightMargin(rightMargin, Ended(printerName));
        }

        /// <summary>
        /// <para>Where on the paper the printer of this name begins. Returns a code.</para>
        /// </summary>
        public static int setPaperOffset(uint offset, byte[] printerName)
        {
            Library.EnsureLoaded();
            return _setPaperOffset(offset, Ended(printerName));
        }

        /// <summary>
        /// <para>How dark and how fast the printer of this name prints. Each returns a code.</para>
        /// </summary>
        public static int setPrintContrast(uint contrast, byte[] printerName)
        {
            Library.EnsureLoaded();
            return _setPrintContrast(contrast, Ended(printerName));
        }

        /// <summary>
        /// <para>How dark and how fast the printer of this name prints. Each returns a code.</para>
        /// </summary>
        public static int setPrintSpeed(uint speed, byte[] printerName)
        {
            Library.EnsureLoaded();
            return _setPrintSpeed(speed, Ended(printerName));
        }

        /// <summary>
        /// <para>Switches automatic printing, or rolling the paper back, of the printer of this name. The number
        /// is sent as it is. Each returns a code.</para>
        /// </summary>
        public static int setPrtAutoPrint(uint enable, byte[] printerName)
        {
            Library.EnsureLoaded();
            return _setPrtAutoPrint(enable, Ended(printerName));
        }

        /// <summary>
        /// <para>Switches automatic printing, or rolling the paper back, of the printer of this name. The number
        /// is sent as it is. Each returns a code.</para>
        /// </summary>
        public static int setRollback(uint enable, byte[] printerName)
        {
            Library.EnsureLoaded();
            return _setRollback(enable, Ended(printerName));
        }

        /// <summary>
        /// <para>Switches the sensor for taken paper on (non-zero, sent as 1) or off (0). Returns a verdict.</para>
        /// </summary>
        public static int setTakeupPaperSensor(int enable, byte[] printerName)
        {
            Library.EnsureLoaded();
            return _setTakeupPaperSensor(enable, Ended(printerName));
        }

        // ---- Information and drawer ----

        /// <summary>
        /// <para>Copies the names of the printers, as the service lists them, into buffer of size bytes: exactly
        /// the text, so zero the buffer beforehand. The result in the reply does not count: a list that came
        /// is success, a reply without one is code 7, whatever the service's own code.
        /// Returns a verdict; the last error is 2 when buffer is null, 5 when the text is longer than size.</para>
        /// </summary>
        public static int GetPrinterList(byte[] buffer, uint size)
        {
            CheckRoom(buffer, size, "buffer");
            Library.EnsureLoaded();
            return _GetPrinterList(buffer, size);
        }

        /// <summary>
        /// <para>The same as GetPrinterList, under a second name.</para>
        /// </summary>
        public static int GetPrinterList_stdcall(byte[] buffer, uint size)
        {
            CheckRoom(buffer, size, "buffer");
            Library.EnsureLoaded();
            return _GetPrinterList_stdcall(buffer, size);
        }

        /// <summary>
        /// <para>Returns a printer's state as a code: 0 ready, 2005 busy, 2006 out of paper, 2007 head hot ...</para>
        /// </summary>
        public static int GetPrinterStatus(uint printerType)
        {
            Library.EnsureLoaded();
            return _GetPrinterStatus(printerType);
        }

        /// <summary>
        /// <para>The same as GetPrinterStatus, under a second name.</para>
        /// </summary>
        public static int GetPrinterStatus_stdcall(uint printerType)
        {
            Library.EnsureLoaded();
            return _GetPrinterStatus_stdcall(printerType);
        }

        /// <summary>
        /// <para>Copies the reply with the printer's firmware version, as JSON text, into buffer of size bytes.
        /// Returns a verdict; the last error is 2 for an unusable printer name, 5 when the reply is longer
        /// than size or buffer is null. A reply that came is copied whatever the verdict, a longer one up to
        /// size.</para>
        /// </summary>
        public static int getPrinterVersion(byte[] buffer, uint size, byte[] printerName)
        {
            CheckRoom(buffer, size, "buffer");
            Library.EnsureLoaded();
            return _getPrinterVersion(buffer, size, Ended(printerName));
        }

        /// <summary>
        /// <para>Opens the cash drawer. Returns a verdict.</para>
        /// </summary>
        public static int OpenCashDrawerEx()
        {
            Library.EnsureLoaded();
            return _OpenCashDrawerEx();
        }

        /// <summary>
        /// <para>The same as OpenCashDrawerEx, under a second name.</para>
        /// </summary>
        public static int OpenCashDrawerEx_stdcall()
        {
            Library.EnsureLoaded();
            return _OpenCashDrawerEx_stdcall();
        }

        /// <summary>
        /// <para>Returns 1 when the service answers on the weighing connection, whatever it answers; 0 when it
        /// does not.</para>
        /// </summary>
        public static int checkConnection()
        {
            Library.EnsureLoaded();
            return _checkConnection();
        }

        /// <summary>
        /// <para>Returns the code of the latest command, 0 before the first one. Sends nothing.</para>
        /// </summary>
        public static int getLastErrCode()
        {
            Library.EnsureLoaded();
            return _getLastErrCode();
        }

        // ---- The service's log ----

        /// <summary>
        /// <para>Copies the log level of the service's module "print" or "loadcell" into buffer of size bytes:
        /// exactly its text, so zero the buffer beforehand. Returns a code: 1 for any other module, 5 when
        /// the text is longer than size or buffer is null, 7 when the reply holds no level.</para>
        /// </summary>
        public static int getLogLevel(byte[] module, byte[] buffer, uint size)
        {
            CheckRoom(buffer, size, "buffer");
            Library.EnsureLoaded();
            return _getLogLevel(Ended(module), buffer, size);
        }

        /// <summary>
        /// <para>Sets the log level (text) of the service's module "print" or "loadcell". Returns a code: 1 for
        /// any other module, 2 when an argument is null.</para>
        /// </summary>
        public static int setLogLevel(byte[] module, byte[] level)
        {
            Library.EnsureLoaded();
            return _setLogLevel(Ended(module), Ended(level));
        }

        // ---- Configuration ----

        /// <summary>
        /// <para>Takes the dotted IPv4 address as that of the service. Call it before every other function that
        /// needs the service: connections that exist keep their address, and the INI file is read only when
        /// no address was set this way.
        /// Returns a verdict; 255 for everything that is not such an address.</para>
        /// </summary>
        public static int SetServerIpForRemoteAccess(byte[] ip)
        {
            Library.EnsureLoaded();
            return _SetServerIpForRemoteAccess(Ended(ip));
        }

        /// <summary>
        /// <para>The same as SetServerIpForRemoteAccess, under a second name.</para>
        /// </summary>
        public static int SetServerIpForRemoteAccess_stdcall(byte[] ip)
        {
            Library.EnsureLoaded();
            return _SetServerIpForRemoteAccess_stdcall(Ended(ip));
        }

        // ---- Functions without a device ----

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int ClosePrinterEx()
        {
            Library.EnsureLoaded();
            return _ClosePrinterEx();
        }

        /// <summary>
        /// <para>The same as ClosePrinterEx, under a second name.</para>
        /// </summary>
        public static int ClosePrinterEx_stdcall()
        {
            Library.EnsureLoaded();
            return _ClosePrinterEx_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int DisplayUpdate()
        {
            Library.EnsureLoaded();
            return _DisplayUpdate();
        }

        /// <summary>
        /// <para>The same as DisplayUpdate, under a second name.</para>
        /// </summary>
        public static int DisplayUpdate_stdcall()
        {
            Library.EnsureLoaded();
            return _DisplayUpdate_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int OpenDisplay()
        {
            Library.EnsureLoaded();
            return _OpenDisplay();
        }

        /// <summary>
        /// <para>The same as OpenDisplay, under a second name.</para>
        /// </summary>
        public static int OpenDisplay_stdcall()
        {
            Library.EnsureLoaded();
            return _OpenDisplay_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK. Not declared where &lt;windows.h&gt; has made this name one of the
        /// spooler's.</para>
        /// </summary>
        public static int OpenPrinter()
        {
            Library.EnsureLoaded();
            return _OpenPrinter();
        }

        /// <summary>
        /// <para>The same as OpenPrinter, under a second name.</para>
        /// </summary>
        public static int OpenPrinter_stdcall()
        {
            Library.EnsureLoaded();
            return _OpenPrinter_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetDataRows()
        {
            Library.EnsureLoaded();
            return _SetDataRows();
        }

        /// <summary>
        /// <para>The same as SetDataRows, under a second name.</para>
        /// </summary>
        public static int SetDataRows_stdcall()
        {
            Library.EnsureLoaded();
            return _SetDataRows_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetHeaderReserveRows()
        {
            Library.EnsureLoaded();
            return _SetHeaderReserveRows();
        }

        /// <summary>
        /// <para>The same as SetHeaderReserveRows, under a second name.</para>
        /// </summary>
        public static int SetHeaderReserveRows_stdcall()
        {
            Library.EnsureLoaded();
            return _SetHeaderReserveRows_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetInvoiceParameter()
        {
            Library.EnsureLoaded();
            return _SetInvoiceParameter();
        }

        /// <summary>
        /// <para>The same as SetInvoiceParameter, under a second name.</para>
        /// </summary>
        public static int SetInvoiceParameter_stdcall()
        {
            Library.EnsureLoaded();
            return _SetInvoiceParameter_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetPrintContrast()
        {
            Library.EnsureLoaded();
            return _SetPrintContrast();
        }

        /// <summary>
        /// <para>The same as SetPrintContrast, under a second name.</para>
        /// </summary>
        public static int SetPrintContrast_stdcall()
        {
            Library.EnsureLoaded();
            return _SetPrintContrast_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetPrintOffset()
        {
            Library.EnsureLoaded();
            return _SetPrintOffset();
        }

        /// <summary>
        /// <para>The same as SetPrintOffset, under a second name.</para>
        /// </summary>
        public static int SetPrintOffset_stdcall()
        {
            Library.EnsureLoaded();
            return _SetPrintOffset_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetPrintSpeed()
        {
            Library.EnsureLoaded();
            return _SetPrintSpeed();
        }

        /// <summary>
        /// <para>The same as SetPrintSpeed, under a second name.</para>
        /// </summary>
        public static int SetPrintSpeed_stdcall()
        {
            Library.EnsureLoaded();
            return _SetPrintSpeed_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetRealPrintHeaderWidth()
        {
            Library.EnsureLoaded();
            return _SetRealPrintHeaderWidth();
        }

        /// <summary>
        /// <para>The same as SetRealPrintHeaderWidth, under a second name.</para>
        /// </summary>
        public static int SetRealPrintHeaderWidth_stdcall()
        {
            Library.EnsureLoaded();
            return _SetRealPrintHeaderWidth_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetScaleType()
        {
            Library.EnsureLoaded();
            return _SetScaleType();
        }

        /// <summary>
        /// <para>The same as SetScaleType, under a second name.</para>
        /// </summary>
        public static int SetScaleType_stdcall()
        {
            Library.EnsureLoaded();
            return _SetScaleType_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetTakeLabelSensor()
        {
            Library.EnsureLoaded();
            return _SetTakeLabelSensor();
        }

        /// <summary>
        /// <para>The same as SetTakeLabelSensor, under a second name.</para>
        /// </summary>
        public static int SetTakeLabelSensor_stdcall()
        {
            Library.EnsureLoaded();
            return _SetTakeLabelSensor_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetTakeupMotorDirection()
        {
            Library.EnsureLoaded();
            return _SetTakeupMotorDirection();
        }

        /// <summary>
        /// <para>The same as SetTakeupMotorDirection, under a second name.</para>
        /// </summary>
        public static int SetTakeupMotorDirection_stdcall()
        {
            Library.EnsureLoaded();
            return _SetTakeupMotorDirection_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetUSBPrinterDirection()
        {
            Library.EnsureLoaded();
            return _SetUSBPrinterDirection();
        }

        /// <summary>
        /// <para>The same as SetUSBPrinterDirection, under a second name.</para>
        /// </summary>
        public static int SetUSBPrinterDirection_stdcall()
        {
            Library.EnsureLoaded();
            return _SetUSBPrinterDirection_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int SetUnitPrice()
        {
            Library.EnsureLoaded();
            return _SetUnitPrice();
        }

        /// <summary>
        /// <para>The same as SetUnitPrice, under a second name.</para>
        /// </summary>
        public static int SetUnitPrice_stdcall()
        {
            Library.EnsureLoaded();
            return _SetUnitPrice_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int ShowBalance()
        {
            Library.EnsureLoaded();
            return _ShowBalance();
        }

        /// <summary>
        /// <para>The same as ShowBalance, under a second name.</para>
        /// </summary>
        public static int ShowBalance_stdcall()
        {
            Library.EnsureLoaded();
            return _ShowBalance_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int ShowDisplayText()
        {
            Library.EnsureLoaded();
            return _ShowDisplayText();
        }

        /// <summary>
        /// <para>The same as ShowDisplayText, under a second name.</para>
        /// </summary>
        public static int ShowDisplayText_stdcall()
        {
            Library.EnsureLoaded();
            return _ShowDisplayText_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int ShowOrHideForm()
        {
            Library.EnsureLoaded();
            return _ShowOrHideForm();
        }

        /// <summary>
        /// <para>The same as ShowOrHideForm, under a second name.</para>
        /// </summary>
        public static int ShowOrHideForm_stdcall()
        {
            Library.EnsureLoaded();
            return _ShowOrHideForm_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int ShowProduct()
        {
            Library.EnsureLoaded();
            return _ShowProduct();
        }

        /// <summary>
        /// <para>The same as ShowProduct, under a second name.</para>
        /// </summary>
        public static int ShowProduct_stdcall()
        {
            Library.EnsureLoaded();
            return _ShowProduct_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_OK.</para>
        /// </summary>
        public static int switch_resolution()
        {
            Library.EnsureLoaded();
            return _switch_resolution();
        }

        /// <summary>
        /// <para>The same as switch_resolution, under a second name.</para>
        /// </summary>
        public static int switch_resolution_stdcall()
        {
            Library.EnsureLoaded();
            return _switch_resolution_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. Returns TOLVEX_FAILED.</para>
        /// </summary>
        public static int PrintLabelImage()
        {
            Library.EnsureLoaded();
            return _PrintLabelImage();
        }

        /// <summary>
        /// <para>The same as PrintLabelImage, under a second name.</para>
        /// </summary>
        public static int PrintLabelImage_stdcall()
        {
            Library.EnsureLoaded();
            return _PrintLabelImage_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. What it returns has no meaning.</para>
        /// </summary>
        public static int Version()
        {
            Library.EnsureLoaded();
            return _Version();
        }

        /// <summary>
        /// <para>The same as Version, under a second name.</para>
        /// </summary>
        public static int Version_stdcall()
        {
            Library.EnsureLoaded();
            return _Version_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. What it returns has no meaning.</para>
        /// </summary>
        public static int DisplayText()
        {
            Library.EnsureLoaded();
            return _DisplayText();
        }

        /// <summary>
        /// <para>The same as DisplayText, under a second name.</para>
        /// </summary>
        public static int DisplayText_stdcall()
        {
            Library.EnsureLoaded();
            return _DisplayText_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. What it returns has no meaning.</para>
        /// </summary>
        public static int IncreaseResolution()
        {
            Library.EnsureLoaded();
            return _IncreaseResolution();
        }

        /// <summary>
        /// <para>The same as IncreaseResolution, under a second name.</para>
        /// </summary>
        public static int IncreaseResolution_stdcall()
        {
            Library.EnsureLoaded();
            return _IncreaseResolution_stdcall();
        }

        /// <summary>
        /// <para>Does nothing. What it returns has no meaning.</para>
        /// </summary>
        public static int SetClientName()
        {
            Library.EnsureLoaded();
            return _SetClientName();
        }

        /// <summary>
        /// <para>The same as SetClientName, under a second name.</para>
        /// </summary>
        public static int SetClientName_stdcall()
        {
            Library.EnsureLoaded();
            return _SetClientName_stdcall();
        }
    }
}
