// tolvex for Free Pascal, Lazarus and Delphi: scale, printers and cash drawer of a shop.
//
// The unit has two layers. The upper one is classes and functions that take and give UnicodeString and
// Currency, check their arguments, and raise exceptions that say what to do. The lower one is each export
// of the library under its own name, as in C. README.md beside this file tells how to use them.
//
// Free Pascal 3.2 or later, and Delphi XE2 or later for Win64. The library has 64 bits only: a program
// of 32 bits compiles, and learns at its first call what to do.
unit tolvex;

{$IFDEF FPC}
  // The mode of this unit is its own, so that it compiles in projects of every mode. With
  // TOLVEX_MODE_OF_PROJECT it is that of the compiler's option -M: objfpc, delphi or delphiunicode.
  {$IFNDEF TOLVEX_MODE_OF_PROJECT}
    {$MODE OBJFPC}
  {$ENDIF}
  {$H+}
  {$MODESWITCH ADVANCEDRECORDS}
  // Texts of this unit become UnicodeString from literals of ASCII, which no conversion can spoil.
  {$WARN IMPLICIT_STRING_CAST OFF}
  // Which code is never reached depends on the processor.
  {$WARN 6018 OFF}
{$ELSE}
  {$IFNDEF MSWINDOWS}
    {$MESSAGE FATAL 'The library is for Windows and Linux; with Delphi choose the platform Win64.'}
  {$ENDIF}
{$ENDIF}
// What a project may have set otherwise for all of its units.
{$BOOLEVAL OFF} {$TYPEDADDRESS OFF} {$EXTENDEDSYNTAX ON} {$LONGSTRINGS ON} {$SCOPEDENUMS OFF}
{$IFNDEF FPC}
  {$IF CompilerVersion >= 24.0} {$ZEROBASEDSTRINGS OFF} {$IFEND}
{$ENDIF}
{$IFDEF MSWINDOWS}
  {$DEFINE TOLVEX_WINDOWS}
{$ENDIF}
{$IFDEF CPUX64} // Delphi
  {$DEFINE TOLVEX_X64}
{$ENDIF}
{$IFDEF CPUX86_64} // Free Pascal
  {$DEFINE TOLVEX_X64}
{$ENDIF}

interface

uses
{$IFDEF FPC}
  {$IFDEF TOLVEX_WINDOWS} Windows, {$ELSE} BaseUnix, dl, {$ENDIF}
  SysUtils, Classes, SyncObjs;
{$ELSE}
  Winapi.Windows, System.SysUtils, System.Classes, System.SyncObjs;
{$ENDIF}

// ---- The library's constants and records ----

// generated: types
// Written by ./run bindings from src/api/exports.h. Do not edit.
const
  TOLVEX_OK = 240; // done
  TOLVEX_FAILED = 255; // failed; getLastErrCode() says why
  TOLVEX_UNDER_LOAD = -1; // read_standard only
  TOLVEX_OVER_LOAD = -2; // read_standard only
  TOLVEX_FONT_TOO_SMALL = 242; // PrintText and PrintTextByPaperWidth only
  TOLVEX_FONT_TOO_BIG = 243; // PrintText and PrintTextByPaperWidth only
  TOLVEX_UNREADABLE_REPLY = -1; // of functions returning a code, and of getLastErrCode
  TOLVEX_DEFAULT_PRINTER = 100; // a printer type
  TOLVEX_WEIGHT_STABLE = 1; // the weight has settled
  TOLVEX_WEIGHT_AT_ZERO = 2; // nothing is on the scale
  TOLVEX_WEIGHT_TARE_ACTIVE = 4; // a tare is subtracted

  // The result codes.
  TOLVEX_RESULT_OK = 0; // OK
  TOLVEX_RESULT_UNKNOWN = 1; // Unknown
  TOLVEX_RESULT_INVALID_PARAM = 2; // Invalid Param
  TOLVEX_RESULT_SOCKET_LISTEN_FAIL = 3; // Socket Listen Fail
  TOLVEX_RESULT_SOCKET_INTERRUPT = 4; // Socket Interrupt
  TOLVEX_RESULT_BUFFER_NOT_ENOUGH = 5; // Buffer Not Enough
  TOLVEX_RESULT_TOO_MUCH_TO_PRINT = 6; // Too Much To Print
  TOLVEX_RESULT_JSON_ERR = 7; // Json Err
  TOLVEX_RESULT_MISS_PARAM = 8; // Miss param
  TOLVEX_RESULT_VERSION_INCOMPATIBLE = 9; // Version Incompatible
  TOLVEX_RESULT_COMMAND_RETURN_FAIL = 10; // Command return fail
  TOLVEX_RESULT_LC_CONNECTION_FAIL = 1001; // LC Connection Fail
  TOLVEX_RESULT_UNSUPPORT_WEIGHT_CMD = 1002; // Unsupport Weight Cmd
  TOLVEX_RESULT_UNDER_LOAD = 1003; // Under Load
  TOLVEX_RESULT_OVER_LOAD = 1004; // Over Load
  TOLVEX_RESULT_WEIGHT_NOT_STABLE = 1005; // Weight Not Stable
  TOLVEX_RESULT_INVALID_WEIGHT = 1006; // Invalid Weight
  TOLVEX_RESULT_LC_NOT_CONNECTED = 1007; // LC not connected
  TOLVEX_RESULT_PRT_CONNECTION_FAIL = 2001; // Prt Connection Fail
  TOLVEX_RESULT_UNSUPPORT_PRINT_CMD = 2002; // Unsupport Print Cmd
  TOLVEX_RESULT_PRT_DRV_RETURN_ERROR = 2003; // Prt-drv Return Error
  TOLVEX_RESULT_PRINTER_IS_BUSY = 2005; // Printer is Busy
  TOLVEX_RESULT_OUT_OF_PAPER = 2006; // Out of Paper
  TOLVEX_RESULT_PRINT_HEAD_IS_HOT = 2007; // Print Head is Hot
  TOLVEX_RESULT_PRINTER_NOT_FOUND = 2008; // Printer Not Found
  TOLVEX_RESULT_ILLEGAL_PRINT_HEAD = 2009; // Illegal Print Head
  TOLVEX_RESULT_PRT_STATUS_ABNORMAL = 2010; // Prt Status Abnormal

type
  // What read_baseinfo fills in: 64 bytes, little-endian. Pass its address as @info.
  // C: tolvex_base_info, 64 bytes
  TTolvexBaseInfo = packed record
    MaxRange: array[0..2] of Integer; // offset 0: capacity of each range, in the service's unit, whole numbers
    MinRange: Integer; // offset 12: least weight, in thousandths of the unit
    MaxTare: Integer; // offset 16: in thousandths of the unit
    MaxPresetTare: Integer; // offset 20: in thousandths of the unit
    Resolution: array[0..2] of Integer; // offset 24: division of each range, in thousandths of the unit
    WeightUnit: array[0..3] of AnsiChar; // offset 36: for example "kg"; no NUL after four characters
    Reserved: array[0..3] of AnsiChar; // offset 40: zero
    SystemVersion: array[0..19] of AnsiChar; // offset 44: no NUL after twenty characters
  end;

  // What read_standard fills in: 24 bytes. Pass its address as @weight.
  // C: tolvex_weight, 24 bytes
  TTolvexWeight = packed record
    Status: Byte; // offset 0: TOLVEX_WEIGHT_ bits
    Net: array[0..6] of AnsiChar; // offset 1: net weight as text, for example "01.5000" or "-12.500"; no NUL
    Mark: AnsiChar; // offset 8: 'P'; NUL in the all-zero record of an invalid weight
    Tare: array[0..6] of AnsiChar; // offset 9: tare weight as text, four decimals; a longer one runs on into rest
    Rest: array[0..7] of AnsiChar; // offset 16: NUL behind the tare text
  end;
// generated: end

// ---- Errors ----

type
  // A command failed: at the service, at a device, or on the way. Message holds all of it.
  ETolvexError = class(Exception)
  private
    FCode: Integer;
    FName, FText, FMeaning, FRemedy, FOperation, FReply: UnicodeString;
    procedure Fill(const AOperation, AHead, AMeaning, ARemedy: UnicodeString);
  public
    // From a code, as functions of the library return it, or from the last error behind a verdict.
    constructor CreateOf(const AOperation: UnicodeString; ACode: Integer; const AReply: UnicodeString = '');
    // A failure that has no code.
    constructor CreateWithoutCode(const AOperation, AMeaning, ARemedy: UnicodeString);
    // A reply that came, and holds something else than it has to.
    constructor CreateUnreadable(const AOperation, AWhat: UnicodeString);
    // The result code, TOLVEX_RESULT_..., or TOLVEX_UNREADABLE_REPLY; 0 if none is known.
    property Code: Integer read FCode;
    // Such as OutOfPaper.
    property Name: UnicodeString read FName;
    // Such as "Out of Paper": the service's own words.
    property Text: UnicodeString read FText;
    property Meaning: UnicodeString read FMeaning;
    // What the person at the till, or the administrator, can do.
    property Remedy: UnicodeString read FRemedy;
    // The export that failed, such as BeginPrint.
    property Operation: UnicodeString read FOperation;
    // The reply of a raw command, where one came.
    property Reply: UnicodeString read FReply;
  end;

  // The library could not be loaded. Message lists each file tried, what was wrong with it, and what to do.
  ELibraryNotLoaded = class(Exception)
  end;

  // A text that the system's code page can not hold; an argument error.
  EUnencodableText = class(EArgumentException)
  private
    FCharacter: Cardinal;
    FPosition: Integer;
    FCodePage: UnicodeString;
  public
    constructor CreateAt(ACharacter: Cardinal; APosition: Integer; const ACodePage: UnicodeString;
      AInPath: Boolean = False);
    // The character's number in Unicode, such as $20AC.
    property Character: Cardinal read FCharacter;
    // Where it stands in the text, from 1.
    property Position: Integer read FPosition;
    property CodePage: UnicodeString read FCodePage;
  end;

  // A weight was asked of a reading that has none. Look at its State first.
  ENoWeight = class(Exception)
  end;

// ---- Loading ----

// Loads the library. Nobody has to call this: the first call of anything else does. Without a path it is
// looked for where the environment variable TOLVEX_LIBRARY says (if it is set, only there), beside the
// program (and beside the DLL or package that holds this unit), and where the system looks for libraries.
// It stays loaded until the process ends.
procedure LoadTolvex(const APath: UnicodeString = '');

// The file that was loaded; empty before.
function TolvexLibraryPath: UnicodeString;

// ---- Scale ----

type
  TReadingState = (
    rsWeight,    // a weight, stable or not
    rsUnderLoad, // less than the scale can show: a plate is missing
    rsOverLoad,  // more than the scale can weigh
    rsInvalid);  // the scale has no valid weight, for example before its zero is found

  // What the scale shows at one moment.
  TReading = record
  private
    FNet, FTare: Currency;
    FHasTare: Boolean;
    function GetNet: Currency;
    function GetTare: Currency;
    procedure NeedWeight;
  public
    State: TReadingState;
    Stable: Boolean;     // the weight has settled
    AtZero: Boolean;     // nothing is on the scale
    TareActive: Boolean; // a tare is subtracted
    NetText, TareText: UnicodeString; // as the library gave them, such as 01.5000
    function HasWeight: Boolean;
    // Net weight and tare in the scale's unit, exactly. Raise ENoWeight unless State is rsWeight, so that
    // no sale is made with a weight of 0 that is none.
    property Net: Currency read GetNet;
    property Tare: Currency read GetTare;
  end;

  // What the scale is. Weights are in WeightUnit.
  TScaleInfo = record
    MaxRange: array[0..2] of Currency;   // capacity of each range; 0 for a range that the scale lacks
    Resolution: array[0..2] of Currency; // division of each range
    MinRange, MaxTare, MaxPresetTare: Currency;
    WeightUnit, SystemVersion: UnicodeString;
  end;

  // No stable weight came in time.
  EScaleTimeout = class(Exception)
  private
    FLast: TReading;
  public
    // The last one that came.
    property LastReading: TReading read FLast;
  end;

  TScale = class
  private
    FPollInterval: Integer;
    function GetHighResolution: Boolean;
    procedure SetHighResolution(AOn: Boolean);
  public
    constructor Create;
    function Read: TReading;
    // Reads until the weight is stable, at most so many milliseconds; then EScaleTimeout. Under load, over load
    // and an invalid weight are waited out.
    function WaitStable(ATimeoutMs: Integer): TReading;
    function Info: TScaleInfo;
    procedure Zero;
    // Takes what lies on the scale as the tare, or clears the tare. The functions tell the tare that is then in
    // force; False if the library tells none, which it does to some applications by their name.
    procedure TakeTare; overload;
    function TakeTare(out ATare: Currency): Boolean; overload;
    procedure ClearTare; overload;
    function ClearTare(out ATare: Currency): Boolean; overload;
    // The version of the weighing service.
    function Version: UnicodeString;
    procedure SetOverloadAlarm(AOn: Boolean);
    // Any command to the weighing service; the reply is JSON text, see ReplyMember.
    function RawCommand(const ACommand: UnicodeString; const AParameters: UnicodeString = '';
      AWaitMs: Integer = 40000): UnicodeString;
    // Finer steps, where the scale has them. One setting for the whole process.
    property HighResolution: Boolean read GetHighResolution write SetHighResolution;
    // How often WaitStable reads, in milliseconds.
    property PollInterval: Integer read FPollInterval write FPollInterval;
  end;

// A weight with a point, whatever the system's decimal separator is: 0.4820 with 3 decimals is 0.482.
function WeightToText(AWeight: Currency; ADecimals: Integer = 3): UnicodeString;

// ---- Printers ----

const
  ptLabel = 0;
  ptTicket = 1;
  ptThird = 2;
  ptDefault = TOLVEX_DEFAULT_PRINTER;

type
  TPrinterStatus = record
    Code: Integer; // TOLVEX_RESULT_..., 0 if it is ready
    Name, Text, Meaning, Remedy: UnicodeString;
    function Ready: Boolean;
  end;

  // A printer by its type. Not called TPrinter, which the VCL and the LCL have.
  TPosPrinter = class
  private
    FType: Cardinal;
  public
    constructor Create(AType: Cardinal = ptDefault);
    // The printer's state. Raises ETolvexError if the service does not answer.
    function Status: TPrinterStatus;
    // Print at once, past the queue of receipts, in any script. What comes out belongs to the next job of this
    // printer unless it is cut off.
    procedure PrintText(const AText: UnicodeString; AFontSize: Integer = 24);
    // For paper of this width in millimetres.
    procedure PrintWrapped(const AText: UnicodeString; AFontSize, AWidth: Integer);
    // The service opens the file: it has to be on the service's machine. A relative path counts from the
    // current folder.
    procedure PrintImage(const APath: UnicodeString; AAngle: Integer = 0);
    procedure Cut;
    procedure Feed;
    // Measures the gap between the labels.
    procedure Calibrate;
    // Calibrates the sensor for the end of the paper.
    procedure CalibratePaperEnd;
    procedure SetPaperWidth(AMillimetres: Integer);
    procedure SetGapType(AGapType: Integer);
    procedure SetDirection(ADirection: Integer);
    procedure SetTextWrapMode(AMode: Integer);
    property PrinterType: Cardinal read FType;
  end;

  // Settings of a printer by its name, one of PrinterNames.
  TPrinterSettings = class
  private
    FName: UnicodeString;
    FBytes: RawByteString;
  public
    constructor Create(const AName: UnicodeString);
    procedure SetLeftMargin(ADots: Integer);
    procedure SetRightMargin(ADots: Integer);
    procedure SetPaperOffset(ADots: Integer);
    procedure SetContrast(AContrast: Integer);
    procedure SetSpeed(ASpeed: Integer);
    procedure SetAutoPrint(AOn: Boolean);
    procedure SetRollback(AOn: Boolean);
    procedure SetTakeUpSensor(AOn: Boolean);
    function FirmwareVersion: UnicodeString;
    property Name: UnicodeString read FName;
  end;

  TPrinterNames = array of UnicodeString;

function PrinterNames: TPrinterNames;
// Feeds blank paper on the default printer, 1 to 1000.
procedure FeedBlank(ADistance: Integer);
// Any command to the printing service; the reply is JSON text.
function PrinterRawCommand(const APrinterName, ACommand: UnicodeString; ANumber: Integer = 0;
  const AParameters: UnicodeString = ''; AWaitMs: Integer = 40000): UnicodeString;

// ---- Receipts ----

type
  // What becomes of a receipt. The numbers are those of BeginPrint; types that are the same to the library may
  // not be to the service. FP, FLP and FLLP are its own abbreviations.
  TJobType = (
    jtTicket = 0,        // ticket printer: print
    jtLabel = 2,         // label printer: print
    jtTicketFeed = 4,    // ticket printer: print and feed
    jtTicketImage = 7,   // as jtTicket
    jtTicketCut = 8,     // ticket printer: print and cut
    jtFpFeed = 104,      // as jtTicketFeed
    jtFpCut = 105,       // as jtTicketCut
    jtLabelImage = 204,  // as jtLabel
    jtLabelDots = 205,   // as jtLabel
    jtLabelFeedAuto = 206, // label printer: print and feed
    jtFlpCut = 207,      // as jtTicketCut
    jtLabelFeed = 208,   // as jtLabelFeedAuto
    jtThird = 301,       // third printer: print
    jtFllpFeed = 304,   // third printer: print and feed
    jtFllpCut = 305);   // third printer: print and cut

  TReceiptPartKind = (rpText, rpWrapped, rpImage);

  TReceiptPart = record
    Kind: TReceiptPartKind;
    Text: UnicodeString; // or the path of an image
    Size: Integer;       // or its angle
    Width: Integer;
  end;

  TReceiptBytes = array of RawByteString;

  // The lines and images of a receipt or label. Nothing reaches the library before Print, so what failed is
  // printed again by calling Print again. One receipt of a process prints at a time; others wait.
  TReceipt = class
  private
    FParts: array of TReceiptPart;
    FReplaceUnknown: Boolean;
    function Add(AKind: TReceiptPartKind; const AText: UnicodeString; ASize, AWidth: Integer): TReceipt;
    function GetCount: Integer;
    function Encoded: TReceiptBytes;
    procedure Queue(const ABytes: TReceiptBytes);
  public
    // A line, or several with line feeds between them. Characters are ASize dots high, 12 to 72.
    function Text(const AText: UnicodeString; ASize: Integer = 24): TReceipt;
    // The same for paper of this width in millimetres, at most 80, with a text of any length.
    function Wrapped(const AText: UnicodeString; ASize, AWidth: Integer): TReceipt;
    function Image(const APath: UnicodeString; AAngle: Integer = 0): TReceipt;
    function Blank(ASize: Integer = 24): TReceipt;
    // Checks everything, then prints. What is wrong with the receipt raises EArgumentException before anything
    // is printed. After an ETolvexError lines may be on the paper already: cut them off, and print again.
    procedure Print(AJob: TJobType = jtTicketCut);
    procedure PrintLabel;
    procedure Clear;
    property Count: Integer read GetCount;
    // Print "?" for characters that the code page lacks, instead of raising EUnencodableText.
    property ReplaceUnknown: Boolean read FReplaceUnknown write FReplaceUnknown;
  end;

// The code page that receipts are printed in: a number of Windows, or a name of Linux.
function ReceiptCodePage: UnicodeString;

// ---- Service and drawer ----

type
  TServiceModule = (smWeighing, smPrinting);

// Opens the cash drawer. Whether it opened nobody can ask.
procedure OpenCashDrawer;
// Whether the service answers on the weighing connection.
function ServiceAnswers: Boolean;
// The service's IPv4 address, in the place of zelkad_ip_config.ini. Before everything else.
procedure SetServer(const AAddress: UnicodeString);
function ServiceLogLevel(AModule: TServiceModule): UnicodeString;
procedure SetServiceLogLevel(AModule: TServiceModule; const ALevel: UnicodeString);
// A member of a reply of the service, which is one JSON object of texts; empty if it is not there.
function ReplyMember(const AReply, AName: UnicodeString): UnicodeString;

// ---- Threads ----

type
  TReadingEvent = procedure(ASender: TObject; const AReading: TReading) of object;
  TScaleErrorEvent = procedure(ASender: TObject; AError: Exception) of object;

  // Reads the scale in a thread of its own. The events come in the main thread. Created suspended: set the
  // events, then Start. Free ends it, and waits for a reading that is under way: not in one of its events, which
  // the thread itself waits for.
  TScaleThread = class(TThread)
  private
    FScale: TScale;
    FWake: TEvent;
    FInterval: Integer;
    FReading: TReading;
    FError: Exception;
    FOnReading: TReadingEvent;
    FOnError: TScaleErrorEvent;
    procedure Deliver;
  protected
    procedure Execute; override;
  public
    constructor Create(AIntervalMs: Integer = 200);
    destructor Destroy; override;
    property OnReading: TReadingEvent read FOnReading write FOnReading;
    property OnError: TScaleErrorEvent read FOnError write FOnError;
  end;

  TWorkerCall = procedure of object;
  // AError is nil if all went well, and is freed afterwards.
  TWorkerDone = procedure(AError: Exception) of object;

  // Runs calls one after the other in a thread of its own, so that no form waits for the printer. ADone comes
  // in the main thread. Free waits for the call that is under way, whose ADone may not come any more, and drops
  // those that have not begun; not in ADone.
  TTolvexWorker = class(TThread)
  private
    FLock: TCriticalSection;
    FWake: TEvent;
    FWaiting, FDone: TList;
    procedure Report;
    function Take(AList: TList): TObject;
    procedure Put(AList: TList; AItem: TObject);
  protected
    procedure Execute; override;
  public
    constructor Create;
    destructor Destroy; override;
    procedure Run(ACall: TWorkerCall; ADone: TWorkerDone = nil);
  end;

// ---- The library's functions ----

// Each export under its own name. Texts are bytes, NUL-terminated: use RawByteString and PAnsiChar(...), never
// a UnicodeString. Pascal knows no case: of SetPrintContrast and setPrintContrast the parameters tell which
// one is meant. OpenPrinter is also a function of Windows' spooler: write tolvex.OpenPrinter where that unit is used.
// Functions without a device that applications may call with arguments of their own take none here.

// generated: functions
// Written by ./run bindings from src/api/exports.h. Do not edit.
// tolvex - device adapter library for point-of-sale applications (x64).
// The public interface of tolvex_dll.dll and libtolvex_dll.so, for C and C++.
// Conventions, which hold for every function unless its own text says otherwise:
//  1. Results. A function "returning a verdict" gives TOLVEX_OK (240) or TOLVEX_FAILED (255). A
//     function "returning a code" gives a result code: 0 for success, otherwise one of enum
//     tolvex_result or whatever code the service answered; TOLVEX_UNREADABLE_REPLY (-1) is a reply
//     that could not be read.
//  2. Last error. Behind every verdict stands a code; getLastErrCode() reads that of the latest
//     command. Functions that send no command leave it alone.
//  3. First call. The first function that needs the service creates the library's context: it reads
//     zelkad_ip_config.ini beside the running executable (section [zelkad], key ip_addr), opens the
//     log in c:\VARN\Log\ (Linux: ${XDG_STATE_HOME:-$HOME/.local/state}/varn/log/) and connects to
//     ports 53264 (weighing) and 53265 (printing). It lives until the process ends.
//  4. Time. Every function returns when its work is done. One that talks to the service takes at
//     most the 40 s wait for the reply, plus up to 1 s for each connect.
//  5. Threads. Any thread may call. Commands on one connection wait for each other. The print job
//     is the exception: one thread queues it and ends it with BeginPrint.
//  6. Text going in is NUL-terminated 8-bit text, sent as it is. "ANSI text" is in the system's
//     ANSI code page (Linux: the character set of the user's locale - LC_ALL, LC_CTYPE or LANG -
//     and UTF-8 where none is set) and goes out as UTF-8. A null text counts as empty where nothing
//     else is said.
//  7. Buffers belong to the caller. They are written on success only, never beyond the stated size,
//     and copied like strncpy: a text as long as the size or longer has NO terminating NUL, and a
//     shorter one is followed by NULs up to the size. "Exact" copies write no NUL at all: zero the
//     buffer beforehand. A null buffer is never written.
//  8. Printers. A printer type is a number that the service understands: 0 the label printer, 1 the
//     ticket printer, 2 a third one, TOLVEX_DEFAULT_PRINTER (100) whichever is the default. A
//     printer name is one of those that GetPrinterList tells, at most 255 bytes; a longer one or a
//     null is result code 2. Values of settings go out as they are: their meaning and range are the
//     service's.
//  9. Log. Each function says which lines it writes, with their levels (5 failures, 6 entry and
//     outcome); "client" is the host application's name. Behind them stand the request and the
//     reply at level 2 (off by default), failures of the exchange at level 5, and those of a
//     connection under "Socket".
// 10. Exceptions and memory. No exception leaves a function. When memory runs out a verdict is 255
//     and a code is 1.
// 11. Names. On x64 there is one calling convention. A function with a twin exists under a second
//     name with the suffix _stdcall, which does exactly the same.

// ---- Weighing ----

// Reads the scale's base information into record (64 bytes, tolvex_base_info). Returns a verdict.
// Log: 6 "[client][read_baseinfo] Enter"
//      6 "[client][read_baseinfo] End, RESULT,REPLY", success or not
//      5 "[read_baseinfo] Input param is NULL"
function read_baseinfo(ARecord: PAnsiChar): Integer;
function read_baseinfo_stdcall(ARecord: PAnsiChar): Integer;

// Reads the weight into record (24 bytes, tolvex_weight).
// Returns TOLVEX_OK: the record holds a stable or an unstable weight (see the status bits), or
// nothing but zeros when the scale reports an invalid weight; TOLVEX_UNDER_LOAD or
// TOLVEX_OVER_LOAD: the record is untouched; TOLVEX_FAILED.
// Log: 6 "[client][getWeight] Oh Ye~"
//      5 "[client][read_standard] Err:CODE"
//      5 "[read_standard] Input param is NULL"
function read_standard(ARecord: PAnsiChar): Integer;
function read_standard_stdcall(ARecord: PAnsiChar): Integer;

// Sets the scale to zero. Returns a verdict.
// Log: 6 "[client][send_zero] Enter", "[client][send_zero] OK"
//      5 "[send_zero] Err:CODE"
function send_zero: Integer;
function send_zero_stdcall: Integer;

// Takes what lies on the scale as the tare. reply (at least 10 bytes) gets the tare as text, unless
// the host application is "Kelvarin" or "Lumidesk": for those it is left as it was.
// Returns a verdict.
// Log: 6 "[client][set_tare_bykey] Enter", "[client][set_tare_bykey] OK"
//      5 "[set_tare_bykey] Err:CODE", "[set_tare_bykey] Input param is NULL"
function set_tare_bykey(AReply: PAnsiChar): Integer;
function set_tare_bykey_stdcall(AReply: PAnsiChar): Integer;

// The same as set_tare_bykey, with one more line at its head.
// Log: 6 "[client][send_tare] Enter", then as set_tare_bykey
function send_tare(AReply: PAnsiChar): Integer;
function send_tare_stdcall(AReply: PAnsiChar): Integer;

// Clears the tare. The text that the caller passes is logged and goes no further: the scale is
// asked to clear its tare, and text (at least 10 bytes) gets the tare that is left, with the same
// exception as set_tare_bykey.
// Returns a verdict.
// Log: 6 "[client][send_pre_tare] Enter TEXT", "[client][send_pre_tare] OK"
//      5 "[send_pre_tare] Err:CODE", "[send_pre_tare] Input param is NULL"
function send_pre_tare(AText: PAnsiChar): Integer;
function send_pre_tare_stdcall(AText: PAnsiChar): Integer;

// Clears the tare; reply (at least 10 bytes) as for set_tare_bykey. Returns a verdict.
// Log: 6 "[client][clear_tare] Enter", "[client][clear_tare] OK"
//      5 "[clear_tare] Err:CODE", "[clear_tare] Input param is NULL"
function clear_tare(AReply: PAnsiChar): Integer;
function clear_tare_stdcall(AReply: PAnsiChar): Integer;

// Copies the reply with the weighing service's version, as JSON text, into buffer of size bytes.
// Returns a code; 5 when the reply is longer than size or buffer is null. Whatever the code, a
// reply that came is copied, a longer one up to size.
function getLCVersion(ABuffer: PAnsiChar; ASize: Cardinal): Integer;

// Switches the scale's overload alarm on (non-zero) or off (0); the number is sent as it is, on the
// printing connection. Returns a code.
function setOverloadAlarm(AEnable: Cardinal): Integer;

// Chooses what read_standard reads as the net weight: 0 the ordinary one (the state at start),
// anything else the high-resolution one. Sends nothing. Returns 0.
function setHighResWeightMode(AOn: Integer): Integer;

// Returns 1 when the high-resolution net weight is read, else 0. Sends nothing.
function getHighResWeightMode: Integer;

// Sends any command to the weighing service. parameters becomes the request's "paramList" unless it
// is null or empty. reply of size bytes gets the whole reply as JSON text; it may be null. wait is
// the longest wait for the reply, in milliseconds.
// Returns a code; 5 for a null command, and when the reply is longer than size. Whatever the code,
// a reply that came is copied, a longer one up to size. The last error is set by a null command
// only.
function sendRawCmdToLC(ACommand: PAnsiChar; AParameters: PAnsiChar; AReply: PAnsiChar; ASize:
  Cardinal; AWait: Cardinal): Integer;

// ---- Printing: the job ----

// Queues ANSI text for BeginPrint: one line, or one for each line feed in it (LF or CR LF; an empty
// line prints as a blank one; a line feed at the end begins no further line). fontSize is the
// height of the characters in dots, 12 to 72. A line of more than 2048 bytes of UTF-8 is queued,
// but refused when it is printed: BeginPrint then fails with code 6.
// Returns a verdict, TOLVEX_FONT_TOO_SMALL or TOLVEX_FONT_TOO_BIG; an empty text is TOLVEX_OK and
// queues nothing. The last error stays.
// Log: 6 "[client][PrintText] font:SIZE [TEXT]"
//      5 "[PrintText] Input param is NULL"
//      5 "[PrintText] Input param len is 0"
//      5 "[PrintText] font size too big:SIZE", "[PrintText] font size too small:SIZE"
function PrintText(AText: PAnsiChar; AFontSize: Cardinal): Integer;
function PrintText_stdcall(AText: PAnsiChar; AFontSize: Cardinal): Integer;

// The same for paper of the given width in millimetres, with lines of any length: more than 80
// counts as 80, and 0 goes out as 0.
// Log: 6 "[PrintTextByPaperWidth] TEXT"
//      5 "[PrintTextByPaperWidth] Input param is NULL"
//      5 "[PrintTextByPaperWidth] Input param len is 0"
//      5 the font size, under PrintText's name
function PrintTextByPaperWidth(AText: PAnsiChar; AFontSize: Cardinal; AWidth: Cardinal): Integer;
function PrintTextByPaperWidth_stdcall(AText: PAnsiChar; AFontSize: Cardinal; AWidth: Cardinal):
  Integer;

// Queues an image file for BeginPrint; path is ANSI text. angle goes out as a 16-bit number,
// usually 0, 90, 180 or 270.
//
// The service opens the image when the job is printed. So that the application may change its own
// file meanwhile, the library copies it into its folder (convention 3), as prt_0 to prt_199 with
// the extension of the path, and begins again with prt_0: a job of more than 200 images shows the
// later ones in the place of the first, and two applications on one machine share the names. Where
// copying fails (no such folder, no such file), the path itself goes out: give an absolute one. The
// service must be on this machine and able to read the copy.
//
// Returns a verdict; a missing file fails in BeginPrint only, an empty path queues nothing. The
// last error stays.
// Log: 6 "[client][PrintBitmapFile] Angle:ANGLE [PATH]", then as PrintBitmapFileWithAlign, which it
//        calls with alignment 1
function PrintBitmapFile(APath: PAnsiChar; AAngle: Integer): Integer;
function PrintBitmapFile_stdcall(APath: PAnsiChar; AAngle: Integer): Integer;

// The same with an alignment: 0, 1 or 2; anything else counts as 1. It is kept with the image and
// not sent: the service has no such parameter.
// Returns a verdict, as PrintBitmapFile.
// Log: 6 "[client][PrintBitmapFileWithAlign] Angle:ANGLE, Align:ALIGN [PATH]"
//      6 "[cacheImage] Copy PATH(size:BYTES) to COPY"
//      5 "[cacheImage] Copy PATH to COPY Fail"
//      5 "[PrintBitmapFileWithAlign] Input param is NULL"
function PrintBitmapFileWithAlign(APath: PAnsiChar; AAngle: Cardinal; AAlign: Cardinal): Integer;

// Ends a job: prints what is queued, confirms the job, and does what else the job type says.
//
//   job types                              what is done
//   0, 2, 7, 204, 205, and any other one   print; nothing queued is a failure (code 1)
//   4, 104, 206, 208, 304                  print what is queued, if anything is, and feed 13
//   8, 105, 207, 305                       print what is queued, if anything is, and cut
//   80, 90                                 calibrate the label gap; the queue stays
//   81, 91                                 calibrate for the end of the paper; the queue stays
//   6, 106, 209, 306                       nothing; the queue stays
//
// Job types 2, 80, 90, 204, 205, 206 and 208 go to printer type 0, 301 to 311 to printer type 2,
// all others to printer type 1.
//
// One command goes out for each line or image (convention 4 holds for each). The first that fails
// ends the job: the rest of the queue is dropped, and nothing is confirmed, fed or cut. What went
// out before it is with the printer already: cut it off (BeginPrint(8) with nothing queued, or
// cutPaperById) before the job is repeated.
//
// Returns a verdict. With a feed or a cut it is that of the feed or cut alone: a confirmation that
// was refused shows in the log only.
// Log, where NAME is the type's name or its number ("0_Ticket", "8_CUT", "42"):
//      6 "[client][BeginPrint] NAME Begin", "[client][BeginPrint] NAME OK"
//      6 "[client][Feed - BeginPrint] NAME OK", "[client][Cut - BeginPrint] NAME OK": printed and
//        confirmed, before the feed or cut
//      5 "[client][BeginPrint] NAME Err when printing, ret:CODE" (also Feed - and Cut -): a line or
//        image
//      5 "[client][BeginPrint] NAME Err, ret:0xCODE" (also Feed - and Cut -): the confirmation
//      5 "[client][BeginPrint] NAME Err, ret:0xff": the feed, cut or calibration
function BeginPrint(AJobType: Integer): Integer;
function BeginPrint_stdcall(AJobType: Integer): Integer;

// ---- Printing past the queue ----

// Sends UTF-8 text to a printer of this type now. Nothing is converted or cut into lines; an empty
// text goes out as one blank, font size 0 as 28. The line belongs to whatever that printer prints
// next: end it with cutPaperById, or the next BeginPrint takes it along.
// Returns a code: 2 for a null text, 6 for one of more than 2048 bytes.
// Log: 5 "printText Input params is too long(TEXT)!"
function printTextById(AText: PAnsiChar; AFontSize: Cardinal; APrinterType: Cardinal): Integer;

// The same for paper of the given width in millimetres (sent times eight, in dots), with a text of
// any length. Returns a code: 2 for a null text.
// Log: 5 "[printTextByPaperWidth] str is NULL"
function printTextByPaperWidthById(AText: PAnsiChar; AFontSize: Cardinal; AWidth: Cardinal;
  APrinterType: Cardinal): Integer;

// The same for an image file. path is UTF-8 and opened by the service, so make it an absolute one;
// no copy is made. Returns a code: 2 for a null or empty path.
function printBitmapFileById(APath: PAnsiChar; AAngle: Cardinal; APrinterType: Cardinal): Integer;

// Sends any command to the printing service. number becomes the request's "intParam", parameters
// its "paramList" unless it is null or empty. reply of size bytes gets the whole reply as JSON
// text; it may be null. wait is the longest wait for the reply, in milliseconds.
// Returns a code; 2 for a null command or an unusable printer name, 5 when the reply is longer than
// size. Whatever the code, a reply that came is copied, a longer one up to size. The last error is
// set by a null command only.
// Log: 6 "[sendRawCmdToPrt] Req: REQUEST"
function sendRawCmdToPrt(APrinterName: PAnsiChar; ACommand: PAnsiChar; ANumber: Integer;
  AParameters: PAnsiChar; AReply: PAnsiChar; ASize: Cardinal; AWait: Cardinal): Integer;

// ---- Paper ----

// Feeds blank paper on the default printer. distance is 1 to 1000, in the service's unit; any other
// is refused: 255, last error 2, nothing sent.
// Returns a verdict.
// Log: 6 "[printBlanks] Entry", "[printBlanks] OK"
//      5 "[printBlanks] Invalid Param:DISTANCE", "[printBlanks] Err:CODE"
function printBlanks(ADistance: Cardinal): Integer;
function printBlanks_stdcall(ADistance: Cardinal): Integer;

// Feeds a distance of 13 on the default printer. Returns a verdict.
// Log: 6 "[client][feedPaper] Entry", "[client][feedPaper] OK"
//      5 "[feedPaper] Err:CODE"
function feedPaper: Integer;
function feedPaper_stdcall: Integer;

// The same on a printer of this type. Returns a verdict.
// Log: 6 "[feedPaperById] Entry", "[feedPaperById] OK"
//      5 "[feedPaperById] Err:CODE"
function feedPaperById(APrinterType: Cardinal): Integer;

// Cuts the paper of the default printer, through 70 percent of its width. Returns a verdict.
// Log: 6 "[cutPaper] Entry", "[cutPaper] OK"
//      5 "[cutPaper] Err: CODE"
function cutPaper: Integer;
function cutPaper_stdcall: Integer;

// The same on a printer of this type. Returns a code.
function cutPaperById(APrinterType: Cardinal): Integer;

// Measures the gap between the labels. Returns a verdict.
// Log: 6 "[calibrateLabel] Entry", "[calibrateLabel] OK"
//      5 "[calibrateLabel] Err: CODE"
function calibrateLabel(APrinterType: Cardinal): Integer;

// Calibrates the sensor for the end of the paper. Returns a code.
function testPaper(APrinterType: Cardinal): Integer;

// ---- Printer settings ----

// Paper width in millimetres (sent times eight, in dots) of a printer of this type. Returns a code.
function setDefaultPaperWidth(AWidth: Cardinal; APrinterType: Cardinal): Integer; overload;

// The same of the default printer. Returns a code.
function SetDefaultPaperWidth(AWidth: Cardinal): Integer; overload;
function SetDefaultPaperWidth_stdcall(AWidth: Cardinal): Integer;

// How labels are told apart, of a printer of this type. Returns a code.
function setGapType(AGapType: Cardinal; APrinterType: Cardinal): Integer;

// Which way round a printer of this type prints. Returns a code.
function setPrinterDirection(ADirection: Cardinal; APrinterType: Cardinal): Integer;

// What a printer of this type does with a line that is too long. Returns a code, and leaves the
// last error as it was.
function setTextWrapMode(AWrapMode: Cardinal; APrinterType: Cardinal): Integer;

// Margins of the printer of this name. Each returns a code.
function setLeftMargin(ALeftMargin: Cardinal; APrinterName: PAnsiChar): Integer;
function setRightMargin(ARightMargin: Cardinal; APrinterName: PAnsiChar): Integer;

// Where on the paper the printer of this name begins. Returns a code.
function setPaperOffset(AOffset: Cardinal; APrinterName: PAnsiChar): Integer;

// How dark and how fast the printer of this name prints. Each returns a code.
function setPrintContrast(AContrast: Cardinal; APrinterName: PAnsiChar): Integer; overload;
function setPrintSpeed(ASpeed: Cardinal; APrinterName: PAnsiChar): Integer; overload;

// Switches automatic printing, or rolling the paper back, of the printer of this name. The number
// is sent as it is. Each returns a code.
function setPrtAutoPrint(AEnable: Cardinal; APrinterName: PAnsiChar): Integer;
function setRollback(AEnable: Cardinal; APrinterName: PAnsiChar): Integer;

// Switches the sensor for taken paper on (non-zero, sent as 1) or off (0). Returns a verdict.
// Log: 6 "[client][setTakeupPaperSensor] Entry"
//      6 "[client][setTakeupPaperSensor] OK, iEnable: ENABLE"
//      5 "[setTakeupPaperSensor] Err: CODE"
function setTakeupPaperSensor(AEnable: Integer; APrinterName: PAnsiChar): Integer;

// ---- Information and drawer ----

// Copies the names of the printers, as the service lists them, into buffer of size bytes: exactly
// the text, so zero the buffer beforehand. The result in the reply does not count: a list that came
// is success, a reply without one is code 7, whatever the service's own code.
// Returns a verdict; the last error is 2 when buffer is null, 5 when the text is longer than size.
// Log: 6 "[client][GetPrinterList] Enter", "[client][GetPrinterList] OK, BUFFER"
//      5 "[GetPrinterList] Err:CODE"
//      5 "[client][getPrinterList] json parse fail:REPLY"
function GetPrinterList(ABuffer: PAnsiChar; ASize: Cardinal): Integer;
function GetPrinterList_stdcall(ABuffer: PAnsiChar; ASize: Cardinal): Integer;

// Returns a printer's state as a code: 0 ready, 2005 busy, 2006 out of paper, 2007 head hot ...
function GetPrinterStatus(APrinterType: Cardinal): Integer;
function GetPrinterStatus_stdcall(APrinterType: Cardinal): Integer;

// Copies the reply with the printer's firmware version, as JSON text, into buffer of size bytes.
// Returns a verdict; the last error is 2 for an unusable printer name, 5 when the reply is longer
// than size or buffer is null. A reply that came is copied whatever the verdict, a longer one up to
// size.
// Log: 6 "[client][getPrinterVersion] Entry", "[client][getPrinterVersion] OK, ver:BUFFER"
//      5 "[getPrinterVersion] Err: CODE"
function getPrinterVersion(ABuffer: PAnsiChar; ASize: Cardinal; APrinterName: PAnsiChar): Integer;

// Opens the cash drawer. Returns a verdict.
// Log: 6 "[client][OpenCashDrawerEx] Enter", "[client][OpenCashDrawerEx] OK"
//      5 "[OpenCashDrawerEx] Err: CODE"
function OpenCashDrawerEx: Integer;
function OpenCashDrawerEx_stdcall: Integer;

// Returns 1 when the service answers on the weighing connection, whatever it answers; 0 when it
// does not.
function checkConnection: Integer;

// Returns the code of the latest command, 0 before the first one. Sends nothing.
function getLastErrCode: Integer;

// ---- The service's log ----

// Copies the log level of the service's module "print" or "loadcell" into buffer of size bytes:
// exactly its text, so zero the buffer beforehand. Returns a code: 1 for any other module, 5 when
// the text is longer than size or buffer is null, 7 when the reply holds no level.
function getLogLevel(AModule: PAnsiChar; ABuffer: PAnsiChar; ASize: Cardinal): Integer;

// Sets the log level (text) of the service's module "print" or "loadcell". Returns a code: 1 for
// any other module, 2 when an argument is null.
function setLogLevel(AModule: PAnsiChar; ALevel: PAnsiChar): Integer;

// ---- Configuration ----

// Takes the dotted IPv4 address as that of the service. Call it before every other function that
// needs the service: connections that exist keep their address, and the INI file is read only when
// no address was set this way.
// Returns a verdict; 255 for everything that is not such an address.
// Log: 5 "[DLL] setting Server IP from SetServerIpForRemoteAccess API, IP: TEXT"
//      5 "[DLL] setting Server IP failed from SetServerIpForRemoteAccess API, IP: TEXT"
// These lines open the logger before the library has named its folder, so the log of this process
// lies in c:\Corvane\Log\ (Linux: .../corvane/log/).
function SetServerIpForRemoteAccess(AIp: PAnsiChar): Integer;
function SetServerIpForRemoteAccess_stdcall(AIp: PAnsiChar): Integer;

// ---- Functions without a device ----

// Does nothing. Returns TOLVEX_OK.
function ClosePrinterEx: Integer;
function ClosePrinterEx_stdcall: Integer;
function DisplayUpdate: Integer;
function DisplayUpdate_stdcall: Integer;
function OpenDisplay: Integer;
function OpenDisplay_stdcall: Integer;

// Does nothing. Returns TOLVEX_OK. Not declared where <windows.h> has made this name one of the
// spooler's.
function OpenPrinter: Integer;
function OpenPrinter_stdcall: Integer;

// Does nothing. Returns TOLVEX_OK.
function SetDataRows: Integer;
function SetDataRows_stdcall: Integer;
function SetHeaderReserveRows: Integer;
function SetHeaderReserveRows_stdcall: Integer;
function SetInvoiceParameter: Integer;
function SetInvoiceParameter_stdcall: Integer;
function SetPrintContrast: Integer; overload;
function SetPrintContrast_stdcall: Integer;
function SetPrintOffset: Integer;
function SetPrintOffset_stdcall: Integer;
function SetPrintSpeed: Integer; overload;
function SetPrintSpeed_stdcall: Integer;
function SetRealPrintHeaderWidth: Integer;
function SetRealPrintHeaderWidth_stdcall: Integer;
function SetScaleType: Integer;
function SetScaleType_stdcall: Integer;
function SetTakeLabelSensor: Integer;
function SetTakeLabelSensor_stdcall: Integer;
function SetTakeupMotorDirection: Integer;
function SetTakeupMotorDirection_stdcall: Integer;
function SetUSBPrinterDirection: Integer;
function SetUSBPrinterDirection_stdcall: Integer;
function SetUnitPrice: Integer;
function SetUnitPrice_stdcall: Integer;
function ShowBalance: Integer;
function ShowBalance_stdcall: Integer;
function ShowDisplayText: Integer;
function ShowDisplayText_stdcall: Integer;
function ShowOrHideForm: Integer;
function ShowOrHideForm_stdcall: Integer;
function ShowProduct: Integer;
function ShowProduct_stdcall: Integer;
function switch_resolution: Integer;
function switch_resolution_stdcall: Integer;

// Does nothing. Returns TOLVEX_FAILED.
function PrintLabelImage: Integer;
function PrintLabelImage_stdcall: Integer;

// Does nothing. What it returns has no meaning.
function Version: Integer;
function Version_stdcall: Integer;
function DisplayText: Integer;
function DisplayText_stdcall: Integer;
function IncreaseResolution: Integer;
function IncreaseResolution_stdcall: Integer;
function SetClientName: Integer;
function SetClientName_stdcall: Integer;
// generated: end

implementation

type
  TResultRow = record
    Code: Integer;
    Name, Text, Meaning, Remedy: UnicodeString;
  end;

const
// generated: tables
// Written by ./run bindings from src/api/exports.h. Do not edit.
  ResultRows: array[0..26] of TResultRow = (
    (Code: 0; Name: 'Ok'; Text: 'OK';
     Meaning: 'The command was carried out.';
     Remedy: 'Nothing.'),
    (Code: 1; Name: 'Unknown'; Text: 'Unknown';
     Meaning: 'A failure without a more exact code; also a print job with nothing queued, and a name that' +
      ' the command does not know.';
     Remedy: 'Queue a line or an image before BeginPrint, and check the arguments. The log and the ' +
      'service''s own log say more.'),
    (Code: 2; Name: 'InvalidParam'; Text: 'Invalid Param';
     Meaning: 'An argument is out of its range, null where it must not be, or not known to the device.';
     Remedy: 'Check the arguments against exports.h; printer names are those of GetPrinterList.'),
    (Code: 3; Name: 'SocketListenFail'; Text: 'Socket Listen Fail';
     Meaning: 'The service could not listen on one of its ports.';
     Remedy: 'Find the other program that uses port 53264 or 53265, end it, and restart the service.'),
    (Code: 4; Name: 'SocketInterrupt'; Text: 'Socket Interrupt';
     Meaning: 'The service did not take the command or did not answer it: it is not running, is at ' +
      'another address, closed the connection, or kept silent for the whole wait.';
     Remedy: 'Start the service, check the address in zelkad_ip_config.ini and the firewall (ports 53264' +
      ' and 53265), and try again. A print command may have been carried out: look at the paper ' +
      'first.'),
    (Code: 5; Name: 'BufferNotEnough'; Text: 'Buffer Not Enough';
     Meaning: 'The answer does not fit the caller''s buffer, or no buffer was given.';
     Remedy: 'Pass a larger buffer; a reply has at most 2048 bytes.'),
    (Code: 6; Name: 'TooMuchToPrint'; Text: 'Too Much To Print';
     Meaning: 'A line has more than 2048 bytes of UTF-8, or a job is longer than the printer takes.';
     Remedy: 'Break the text into shorter lines, or print it with PrintTextByPaperWidth; print a long ' +
      'job as several.'),
    (Code: 7; Name: 'JsonErr'; Text: 'Json Err';
     Meaning: 'The request or the reply is not the JSON that the other side expects.';
     Remedy: 'Check that library and service are of the same version; with DLL=2 in NLog.ini the log ' +
      'shows both texts.'),
    (Code: 8; Name: 'MissParam'; Text: 'Miss param';
     Meaning: 'The request lacks a parameter that the command needs.';
     Remedy: 'Check that library and service are of the same version; with a raw command, add the ' +
      'parameter.'),
    (Code: 9; Name: 'VersionIncompatible'; Text: 'Version Incompatible';
     Meaning: 'The service does not work with this version of the library.';
     Remedy: 'Bring library and service to versions that belong together.'),
    (Code: 10; Name: 'CommandReturnFail'; Text: 'Command return fail';
     Meaning: 'The device took the command and reported that it failed.';
     Remedy: 'Try again; if it stays, switch the device off and on, and read the service''s log.'),
    (Code: 1001; Name: 'LcConnectionFail'; Text: 'LC Connection Fail';
     Meaning: 'There is no connection for weighing.';
     Remedy: 'Check that the service is running and that port 53264 can be reached, then restart the ' +
      'application.'),
    (Code: 1002; Name: 'UnsupportWeightCmd'; Text: 'Unsupport Weight Cmd';
     Meaning: 'This scale or this service does not know the weighing command.';
     Remedy: 'Bring the service up to date, or do without the command on this scale.'),
    (Code: 1003; Name: 'UnderLoad'; Text: 'Under Load';
     Meaning: 'The scale carries less than it can show: a plate is missing, or it was zeroed with a load ' +
      'on it.';
     Remedy: 'Put the plate back, empty the scale and zero it.'),
    (Code: 1004; Name: 'OverLoad'; Text: 'Over Load';
     Meaning: 'There is more on the scale than it can weigh.';
     Remedy: 'Take the load off at once and weigh it in parts.'),
    (Code: 1005; Name: 'WeightNotStable'; Text: 'Weight Not Stable';
     Meaning: 'The weight has not settled.';
     Remedy: 'Wait until the goods lie still, and read again.'),
    (Code: 1006; Name: 'InvalidWeight'; Text: 'Invalid Weight';
     Meaning: 'The scale has no valid weight, for example before its zero is found.';
     Remedy: 'Empty the scale and zero it; if that does not help, switch it off and on.'),
    (Code: 1007; Name: 'LcNotConnected'; Text: 'LC not connected';
     Meaning: 'The service cannot reach the scale.';
     Remedy: 'Check the scale''s cable and power, then its port in the service''s settings.'),
    (Code: 2001; Name: 'PrtConnectionFail'; Text: 'Prt Connection Fail';
     Meaning: 'There is no connection for printing, or the service cannot reach the printer.';
     Remedy: 'Check the printer''s cable and power, that the service is running, and that port 53265 can ' +
      'be reached.'),
    (Code: 2002; Name: 'UnsupportPrintCmd'; Text: 'Unsupport Print Cmd';
     Meaning: 'This printer or this service does not know the print command.';
     Remedy: 'Bring the service up to date, or do without the command on this printer.'),
    (Code: 2003; Name: 'PrtDrvReturnError'; Text: 'Prt-drv Return Error';
     Meaning: 'The printer''s driver reported an error.';
     Remedy: 'Switch the printer off and on; if it stays, read the service''s log and renew the driver.'),
    (Code: 2005; Name: 'PrinterIsBusy'; Text: 'Printer is Busy';
     Meaning: 'The printer is still at work on something else.';
     Remedy: 'Wait a moment and try again.'),
    (Code: 2006; Name: 'OutOfPaper'; Text: 'Out of Paper';
     Meaning: 'The printer has no paper left.';
     Remedy: 'Put in new paper, close the cover, and print the job again: what came out before is not ' +
      'complete.'),
    (Code: 2007; Name: 'PrintHeadIsHot'; Text: 'Print Head is Hot';
     Meaning: 'The print head is too hot to print.';
     Remedy: 'Let it cool down, then print the job again; a lower contrast heats it less.'),
    (Code: 2008; Name: 'PrinterNotFound'; Text: 'Printer Not Found';
     Meaning: 'There is no printer of this name or type.';
     Remedy: 'Take a name of GetPrinterList, or a printer type that the service has (100 is its ' +
      'default).'),
    (Code: 2009; Name: 'IllegalPrintHead'; Text: 'Illegal Print Head';
     Meaning: 'The printer does not accept its print head.';
     Remedy: 'Put in the head that belongs to the printer, and have it serviced.'),
    (Code: 2010; Name: 'PrtStatusAbnormal'; Text: 'Prt Status Abnormal';
     Meaning: 'The printer reports a state in which it does not print, such as an open cover.';
     Remedy: 'Close the cover, look for jammed paper, and switch the printer off and on.'));

  // What functions answer beside the result codes.
  AnswerRows: array[0..6] of TResultRow = (
    (Code: TOLVEX_OK; Name: 'Ok'; Text: 'Done';
     Meaning: 'The function did what it was called for.';
     Remedy: 'Nothing.'),
    (Code: TOLVEX_FAILED; Name: 'Failed'; Text: 'Failed';
     Meaning: 'The function failed; a missing argument is one reason, a command that failed another.';
     Remedy: 'Ask getLastErrCode() for the result code behind it, and read the log.'),
    (Code: TOLVEX_FONT_TOO_SMALL; Name: 'FontTooSmall'; Text: 'Font too small';
     Meaning: 'PrintText and PrintTextByPaperWidth: the font size is below 12.';
     Remedy: 'Pass a size of 12 to 72.'),
    (Code: TOLVEX_FONT_TOO_BIG; Name: 'FontTooBig'; Text: 'Font too big';
     Meaning: 'PrintText and PrintTextByPaperWidth: the font size is above 72.';
     Remedy: 'Pass a size of 12 to 72.'),
    (Code: TOLVEX_UNREADABLE_REPLY; Name: 'UnreadableReply'; Text: 'Unreadable reply';
     Meaning: 'A function returning a code, or the last error: the reply is not JSON, was cut off or came' +
      ' in pieces, or has no text as its "result".';
     Remedy: 'Check that the program at ports 53264 and 53265 is the service; with DLL=2 in NLog.ini the' +
      ' log shows the reply.'),
    (Code: TOLVEX_UNDER_LOAD; Name: 'UnderLoad'; Text: 'Under load';
     Meaning: 'read_standard: the scale carries less than it can show (result code 1003).';
     Remedy: 'Put the plate back, empty the scale and zero it.'),
    (Code: TOLVEX_OVER_LOAD; Name: 'OverLoad'; Text: 'Over load';
     Meaning: 'read_standard: there is more on the scale than it can weigh (result code 1004).';
     Remedy: 'Take the load off at once and weigh it in parts.'));

  ExportNames: array[0..120] of PAnsiChar = (
    'read_baseinfo',
    'read_baseinfo_stdcall',
    'read_standard',
    'read_standard_stdcall',
    'send_zero',
    'send_zero_stdcall',
    'set_tare_bykey',
    'set_tare_bykey_stdcall',
    'send_tare',
    'send_tare_stdcall',
    'send_pre_tare',
    'send_pre_tare_stdcall',
    'clear_tare',
    'clear_tare_stdcall',
    'getLCVersion',
    'setOverloadAlarm',
    'setHighResWeightMode',
    'getHighResWeightMode',
    'sendRawCmdToLC',
    'PrintText',
    'PrintText_stdcall',
    'PrintTextByPaperWidth',
    'PrintTextByPaperWidth_stdcall',
    'PrintBitmapFile',
    'PrintBitmapFile_stdcall',
    'PrintBitmapFileWithAlign',
    'BeginPrint',
    'BeginPrint_stdcall',
    'printTextById',
    'printTextByPaperWidthById',
    'printBitmapFileById',
    'sendRawCmdToPrt',
    'printBlanks',
    'printBlanks_stdcall',
    'feedPaper',
    'feedPaper_stdcall',
    'feedPaperById',
    'cutPaper',
    'cutPaper_stdcall',
    'cutPaperById',
    'calibrateLabel',
    'testPaper',
    'setDefaultPaperWidth',
    'SetDefaultPaperWidth',
    'SetDefaultPaperWidth_stdcall',
    'setGapType',
    'setPrinterDirection',
    'setTextWrapMode',
    'setLeftMargin',
    'setRightMargin',
    'setPaperOffset',
    'setPrintContrast',
    'setPrintSpeed',
    'setPrtAutoPrint',
    'setRollback',
    'setTakeupPaperSensor',
    'GetPrinterList',
    'GetPrinterList_stdcall',
    'GetPrinterStatus',
    'GetPrinterStatus_stdcall',
    'getPrinterVersion',
    'OpenCashDrawerEx',
    'OpenCashDrawerEx_stdcall',
    'checkConnection',
    'getLastErrCode',
    'getLogLevel',
    'setLogLevel',
    'SetServerIpForRemoteAccess',
    'SetServerIpForRemoteAccess_stdcall',
    'ClosePrinterEx',
    'ClosePrinterEx_stdcall',
    'DisplayUpdate',
    'DisplayUpdate_stdcall',
    'OpenDisplay',
    'OpenDisplay_stdcall',
    'OpenPrinter',
    'OpenPrinter_stdcall',
    'SetDataRows',
    'SetDataRows_stdcall',
    'SetHeaderReserveRows',
    'SetHeaderReserveRows_stdcall',
    'SetInvoiceParameter',
    'SetInvoiceParameter_stdcall',
    'SetPrintContrast',
    'SetPrintContrast_stdcall',
    'SetPrintOffset',
    'SetPrintOffset_stdcall',
    'SetPrintSpeed',
    'SetPrintSpeed_stdcall',
    'SetRealPrintHeaderWidth',
    'SetRealPrintHeaderWidth_stdcall',
    'SetScaleType',
    'SetScaleType_stdcall',
    'SetTakeLabelSensor',
    'SetTakeLabelSensor_stdcall',
    'SetTakeupMotorDirection',
    'SetTakeupMotorDirection_stdcall',
    'SetUSBPrinterDirection',
    'SetUSBPrinterDirection_stdcall',
    'SetUnitPrice',
    'SetUnitPrice_stdcall',
    'ShowBalance',
    'ShowBalance_stdcall',
    'ShowDisplayText',
    'ShowDisplayText_stdcall',
    'ShowOrHideForm',
    'ShowOrHideForm_stdcall',
    'ShowProduct',
    'ShowProduct_stdcall',
    'switch_resolution',
    'switch_resolution_stdcall',
    'PrintLabelImage',
    'PrintLabelImage_stdcall',
    'Version',
    'Version_stdcall',
    'DisplayText',
    'DisplayText_stdcall',
    'IncreaseResolution',
    'IncreaseResolution_stdcall',
    'SetClientName',
    'SetClientName_stdcall');
// generated: end

const
  WholeReply = 2048; // bytes; no reply is longer
  MaxLine = 2048;    // bytes of UTF-8 of a line without a width
  MaxImages = 200;   // copies that the library keeps
  MinFont = 12;
  MaxFont = 72;
  MaxWidth = 80;      // millimetres, of a line that is queued
  DotsPerMillimetre = 8;
  LongestName = 255;

{$IFDEF TOLVEX_WINDOWS}
  LibraryFile = 'tolvex_dll.dll';
  WantedSystem = '64-bit Windows';
{$ELSE}
  LibraryFile = 'libtolvex_dll.so';
  WantedSystem = '64-bit Linux';
{$ENDIF}

type
  // Locks of the unit's own stay until the process ends, for a thread may still be calling then. As objects they would
  // show up among the memory that the application did not free.
  TLock = record
  private
    FSection: TRTLCriticalSection;
  public
    procedure Prepare;
    procedure Acquire;
    procedure Release;
  end;
  PLock = ^TLock;

var
  // One lock for each connection, around a call and the getLastErrCode behind it. The printing one is held for
  // a whole receipt, too.
  WeighingLock, PrintingLock: TLock;
  LoadingLock: TLock;
  Handle: Pointer;
  LoadedFrom: UnicodeString;
  Entries: array[Low(ExportNames)..High(ExportNames)] of Pointer;
  // Lines that could not be taken back are in the library's queue.
  QueueIsSpoiled: Boolean;

procedure TLock.Prepare;
begin
{$IFDEF FPC}
  InitCriticalSection(FSection);
{$ELSE}
  InitializeCriticalSection(FSection);
{$ENDIF}
end;

procedure TLock.Acquire;
begin
  EnterCriticalSection(FSection);
end;

procedure TLock.Release;
begin
  LeaveCriticalSection(FSection);
end;

// ---- Texts ----

function Num(ANumber: Int64): UnicodeString;
begin
  Result := UnicodeString(IntToStr(ANumber));
end;

function Hex(ANumber: Cardinal): UnicodeString;
begin
  Result := 'U+' + UnicodeString(IntToHex(Int64(ANumber), 4));
end;

procedure AppendMemory(var ATo: RawByteString; AFrom: Pointer; ACount: Integer);
var
  Before: Integer;
begin
  if ACount <= 0 then
    Exit;
  Before := Length(ATo);
  SetLength(ATo, Before + ACount);
  Move(AFrom^, ATo[Before + 1], ACount);
end;

// Not "+", which may convert bytes from one code page to another.
procedure AppendRaw(var ATo: RawByteString; const AFrom: RawByteString);
begin
  AppendMemory(ATo, PAnsiChar(AFrom), Length(AFrom));
end;

procedure AppendByte(var ATo: RawByteString; AByte: Cardinal);
var
  Plain: Byte;
begin
  Plain := AByte and $FF;
  AppendMemory(ATo, @Plain, 1);
end;

// The character at a position, which moves behind it; a lone surrogate is itself.
function NextCharacter(const AText: UnicodeString; var APosition: Integer): Cardinal;
var
  Second: Cardinal;
begin
  Result := Ord(AText[APosition]);
  Inc(APosition);
  if (Result and $FC00 = $D800) and (APosition <= Length(AText)) then
  begin
    Second := Ord(AText[APosition]);
    if Second and $FC00 = $DC00 then
    begin
      Inc(APosition);
      Result := $10000 + (Result - $D800) shl 10 + (Second - $DC00);
    end;
  end;
end;

function IsSurrogate(ACharacter: Cardinal): Boolean;
begin
  Result := ACharacter and $FFFFF800 = $D800;
end;

procedure AppendUtf8(var ATo: RawByteString; ACharacter: Cardinal);
begin
  if ACharacter < $80 then
    AppendByte(ATo, ACharacter)
  else
  begin
    if ACharacter < $800 then
      AppendByte(ATo, $C0 or (ACharacter shr 6))
    else
    begin
      if ACharacter < $10000 then
        AppendByte(ATo, $E0 or (ACharacter shr 12))
      else
      begin
        AppendByte(ATo, $F0 or (ACharacter shr 18));
        AppendByte(ATo, $80 or ((ACharacter shr 12) and $3F));
      end;
      AppendByte(ATo, $80 or ((ACharacter shr 6) and $3F));
    end;
    AppendByte(ATo, $80 or (ACharacter and $3F));
  end;
end;

// The text in UTF-8. A lone surrogate raises, or becomes "?".
function Utf8Of(const AText: UnicodeString; AReplace: Boolean = False): RawByteString;
var
  Position, Start: Integer;
  Character: Cardinal;
begin
  Result := '';
  Position := 1;
  while Position <= Length(AText) do
  begin
    Start := Position;
    Character := NextCharacter(AText, Position);
    if IsSurrogate(Character) then
    begin
      if not AReplace then
        raise EUnencodableText.CreateAt(Character, Start, 'UTF-8');
      Character := Ord('?');
    end;
    AppendUtf8(Result, Character);
  end;
end;

procedure AppendCharacter(var ATo: UnicodeString; ACharacter: Cardinal);
begin
  if ACharacter < $10000 then
    ATo := ATo + WideChar(ACharacter)
  else
    ATo := ATo + WideChar($D800 + (ACharacter - $10000) shr 10) + WideChar($DC00 + (ACharacter - $10000) and $3FF);
end;

// The text of bytes in UTF-8; what is none becomes U+FFFD. Never raises.
function TextOf(const ABytes: RawByteString): UnicodeString;
var
  Position, Rest, I: Integer;
  Character, Least, Next: Cardinal;
begin
  Result := '';
  Position := 1;
  while Position <= Length(ABytes) do
  begin
    Character := Ord(ABytes[Position]);
    Inc(Position);
    Rest := 0;
    Least := 0;
    if Character >= $80 then
    begin
      if Character and $E0 = $C0 then begin Rest := 1; Least := $80; Character := Character and $1F; end
      else if Character and $F0 = $E0 then begin Rest := 2; Least := $800; Character := Character and $0F; end
      else if Character and $F8 = $F0 then begin Rest := 3; Least := $10000; Character := Character and $07; end
      else Character := $FFFD;
      for I := 1 to Rest do
      begin
        Next := 0;
        if Position <= Length(ABytes) then
          Next := Ord(ABytes[Position]);
        if Next and $C0 <> $80 then
        begin
          Least := $FFFFFFFF; // cut off
          Break;
        end;
        Character := Character shl 6 or Next and $3F;
        Inc(Position);
      end;
      if (Character < Least) or (Character > $10FFFF) or IsSurrogate(Character) then
        Character := $FFFD;
    end;
    AppendCharacter(Result, Character);
  end;
end;

// Bytes up to the first NUL, at most so many.
function BytesOf(AStart: PAnsiChar; AMost: Integer): RawByteString;
var
  Count: Integer;
begin
  Count := 0;
  while (Count < AMost) and (AStart[Count] <> #0) do
    Inc(Count);
  Result := '';
  AppendMemory(Result, AStart, Count);
end;

// The text of an exception. Free Pascal's has bytes, which are UTF-8 here and say so.
{$IFDEF FPC}
function MessageOf(const AText: UnicodeString): RawByteString;
begin
  Result := Utf8Of(AText, True);
  SetCodePage(Result, CP_UTF8, False);
end;
{$ELSE}
function MessageOf(const AText: UnicodeString): string;
begin
  Result := AText;
end;
{$ENDIF}

procedure RefuseArgument(const AText: UnicodeString);
begin
  raise EArgumentException.Create(MessageOf(AText));
end;

procedure CheckRange(const AWhat: UnicodeString; AValue, ALeast, AMost: Int64);
begin
  if (AValue < ALeast) or (AValue > AMost) then
    RefuseArgument(AWhat + ' is ' + Num(AValue) + ', but it has to be from ' + Num(ALeast) + ' to ' + Num(AMost) + '.');
end;

procedure CheckUnsigned(const AWhat: UnicodeString; AValue: Integer);
begin
  CheckRange(AWhat, AValue, 0, High(Integer));
end;

// A text with a NUL would end there, silently.
procedure CheckText(const AWhat, AText: UnicodeString);
var
  Position: Integer;
begin
  Position := Pos(WideChar(#0), AText);
  if Position > 0 then
    RefuseArgument(AWhat + ' has a NUL at position ' + Num(Position) + ', where the library would end it.');
end;

function CheckedUtf8(const AWhat, AText: UnicodeString): RawByteString;
begin
  CheckText(AWhat, AText);
  Result := Utf8Of(AText);
end;

function CheckedName(const AName: UnicodeString): RawByteString;
begin
  Result := CheckedUtf8('The printer name', AName);
  if Result = '' then
    RefuseArgument('The printer name is empty; take one of PrinterNames.');
  if Length(Result) > LongestName then
    RefuseArgument('The printer name has ' + Num(Length(Result)) + ' bytes, but it has to have at most ' +
      Num(LongestName) + '.');
end;

// ---- Errors ----

function RowOf(ACode: Integer; out ARow: TResultRow): Boolean;
var
  I: Integer;
begin
  Result := True;
  for I := Low(ResultRows) to High(ResultRows) do
    if ResultRows[I].Code = ACode then
    begin
      ARow := ResultRows[I];
      Exit;
    end;
  // Of the two answers -1 the first is that of functions returning a code.
  for I := Low(AnswerRows) to High(AnswerRows) do
    if AnswerRows[I].Code = ACode then
    begin
      ARow := AnswerRows[I];
      Exit;
    end;
  Result := False;
  ARow.Code := ACode;
  ARow.Name := 'Unknown code ' + Num(ACode);
  ARow.Text := ARow.Name;
  ARow.Meaning := 'The service answered a code of its own.';
  ARow.Remedy := 'Look into the library''s log and the service''s own log.';
end;

procedure ETolvexError.Fill(const AOperation, AHead, AMeaning, ARemedy: UnicodeString);
begin
  FOperation := AOperation;
  FMeaning := AMeaning;
  FRemedy := ARemedy;
  Message := MessageOf(AOperation + ': ' + AHead + '. ' + AMeaning + ' What to do: ' + ARemedy);
end;

constructor ETolvexError.CreateOf(const AOperation: UnicodeString; ACode: Integer; const AReply: UnicodeString);
var
  Row: TResultRow;
  Head: UnicodeString;
begin
  inherited Create('');
  if RowOf(ACode, Row) then
    Head := Num(ACode) + ' ' + Row.Name + ' (' + Row.Text + ')'
  else
    Head := Row.Text;
  FCode := ACode;
  FName := Row.Name;
  FText := Row.Text;
  FReply := AReply;
  Fill(AOperation, Head, Row.Meaning, Row.Remedy);
end;

constructor ETolvexError.CreateWithoutCode(const AOperation, AMeaning, ARemedy: UnicodeString);
begin
  inherited Create('');
  FName := 'NoCode';
  FText := 'no code';
  Fill(AOperation, FText, AMeaning, ARemedy);
end;

constructor ETolvexError.CreateUnreadable(const AOperation, AWhat: UnicodeString);
begin
  CreateOf(AOperation, TOLVEX_UNREADABLE_REPLY);
  Fill(AOperation, Num(FCode) + ' ' + FName + ' (' + FText + ')', AWhat, FRemedy);
end;

constructor EUnencodableText.CreateAt(ACharacter: Cardinal; APosition: Integer; const ACodePage: UnicodeString;
  AInPath: Boolean);
var
  Text: UnicodeString;
begin
  FCharacter := ACharacter;
  FPosition := APosition;
  FCodePage := ACodePage;
  if IsSurrogate(ACharacter) then
    Text := Hex(ACharacter) + ' at position ' + Num(APosition) + ' is half of a surrogate pair, and no character. ' +
      'What to do: find out where the text was cut in two.'
  else
  begin
    Text := 'The character ' + Hex(ACharacter) + ' at position ' + Num(APosition);
    if AInPath then
      Text := Text + ' of the image''s path';
    Text := Text + ' is not in the code page ' + ACodePage + ', in which receipts are queued. What to do: ';
    if AInPath then
      Text := Text + 'give the file another name, print it past the queue with TPosPrinter.PrintImage, or '
    else
      Text := Text + 'print the line past the queue with TPosPrinter.PrintText, set ReplaceUnknown to print "?", or ';
    Text := Text + 'run the program under UTF-8 (Windows: activeCodePage in its manifest; Linux: LC_ALL=C.UTF-8).';
  end;
  inherited Create(MessageOf(Text));
end;

// Of a function returning a code.
procedure CheckCode(const AOperation: UnicodeString; ACode: Integer);
begin
  if ACode <> TOLVEX_RESULT_OK then
    raise ETolvexError.CreateOf(AOperation, ACode);
end;

// Of a function returning a verdict that sent a command. Within the lock of its connection, since the last error
// is one number for the whole process. A call on the other connection may still come between.
procedure CheckVerdict(const AOperation: UnicodeString; AVerdict: Integer);
var
  Code: Integer;
begin
  if AVerdict = TOLVEX_OK then
    Exit;
  if AVerdict <> TOLVEX_FAILED then
    raise ETolvexError.CreateOf(AOperation, AVerdict);
  Code := getLastErrCode;
  if Code = TOLVEX_RESULT_OK then
    raise ETolvexError.CreateWithoutCode(AOperation,
      'Another call ended at the same time, or an argument was refused.',
      'Look into the library''s log, which has the reason.');
  raise ETolvexError.CreateOf(AOperation, Code);
end;

// ---- Paths, files and the environment ----

{$IFDEF TOLVEX_WINDOWS}
function Environment(const AName: UnicodeString): UnicodeString;
var
  Size: Cardinal;
begin
  Result := '';
  Size := GetEnvironmentVariableW(PWideChar(AName), nil, 0);
  if Size = 0 then
    Exit;
  SetLength(Result, Size);
  SetLength(Result, GetEnvironmentVariableW(PWideChar(AName), PWideChar(Result), Size));
end;

function AbsolutePath(const APath: UnicodeString): UnicodeString;
var
  Size: Cardinal;
  FilePart: PWideChar;
begin
  FilePart := nil;
  Result := APath;
  Size := GetFullPathNameW(PWideChar(APath), 0, nil, FilePart);
  if Size = 0 then
    Exit;
  SetLength(Result, Size);
  SetLength(Result, GetFullPathNameW(PWideChar(APath), Size, PWideChar(Result), FilePart));
end;

function IsFile(const APath: UnicodeString): Boolean;
var
  Attributes: Cardinal;
begin
  Attributes := GetFileAttributesW(PWideChar(APath));
  Result := (Attributes <> $FFFFFFFF) and (Attributes and FILE_ATTRIBUTE_DIRECTORY = 0);
end;

// The first bytes of a file, and the number of all.
function HeadOf(const APath: UnicodeString; out ASize: Int64): RawByteString;
var
  Opened: THandle;
  Count, High32: Cardinal;
begin
  Result := '';
  ASize := 0;
  Opened := CreateFileW(PWideChar(APath), GENERIC_READ, FILE_SHARE_READ, nil, OPEN_EXISTING, 0, 0);
  if Opened = INVALID_HANDLE_VALUE then
    Exit;
  High32 := 0;
  ASize := GetFileSize(Opened, @High32);
  ASize := ASize or Int64(High32) shl 32;
  SetLength(Result, 4096);
  Count := 0;
  if not ReadFile(Opened, PAnsiChar(Result)^, Length(Result), Count, nil) then
    Count := 0;
  CloseHandle(Opened);
  SetLength(Result, Count);
end;

function FolderOfModule(AModule: HMODULE): UnicodeString;
var
  Size: Cardinal;
begin
  SetLength(Result, 32768);
  Size := GetModuleFileNameW(AModule, PWideChar(Result), Length(Result));
  SetLength(Result, Size);
  while (Result <> '') and (Result[Length(Result)] <> '\') do
    SetLength(Result, Length(Result) - 1);
end;

function TryToLoad(const APath: UnicodeString; out AProblem: UnicodeString): Pointer;
begin
  AProblem := '';
  // What the DLL needs is looked for beside it, too, if its path is a full one.
  if Pos('\', APath) > 0 then
    Result := Pointer(LoadLibraryExW(PWideChar(APath), 0, LOAD_WITH_ALTERED_SEARCH_PATH))
  else
    Result := Pointer(LoadLibraryW(PWideChar(APath)));
  if Result = nil then
    AProblem := UnicodeString(SysErrorMessage(GetLastError));
end;

function Symbol(AName: PAnsiChar): Pointer;
begin
  Result := Pointer(GetProcAddress(HMODULE(Handle), AName));
end;
{$ELSE}
function c_getenv(AName: PAnsiChar): PAnsiChar; cdecl; external 'c' name 'getenv';
function c_iconv_open(ATo, AFrom: PAnsiChar): Pointer; cdecl; external 'c' name 'iconv_open';
function c_iconv(AHandle: Pointer; AFrom, AFromSize, ATo, AToSize: Pointer): NativeUInt; cdecl; external 'c' name 'iconv';
function c_iconv_close(AHandle: Pointer): Integer; cdecl; external 'c' name 'iconv_close';
function c_newlocale(AMask: Integer; AName: PAnsiChar; ABase: Pointer): Pointer; cdecl; external 'c' name 'newlocale';
procedure c_freelocale(ALocale: Pointer); cdecl; external 'c' name 'freelocale';
function c_nl_langinfo_l(AItem: Integer; ALocale: Pointer): PAnsiChar; cdecl; external 'c' name 'nl_langinfo_l';

function EnvironmentBytes(AName: PAnsiChar): RawByteString;
var
  Value: PAnsiChar;
begin
  Value := c_getenv(AName);
  if Value = nil then
    Result := ''
  else
    Result := BytesOf(Value, High(Integer));
end;

function Environment(const AName: UnicodeString): UnicodeString;
begin
  Result := TextOf(EnvironmentBytes(PAnsiChar(Utf8Of(AName))));
end;

function AbsolutePath(const APath: UnicodeString): UnicodeString;
var
  Folder: array[0..4096] of AnsiChar;
begin
  Result := APath;
  if (APath <> '') and (APath[1] <> '/') and (FpGetcwd(@Folder, SizeOf(Folder)) <> nil) then
    Result := TextOf(BytesOf(@Folder, SizeOf(Folder))) + '/' + APath;
end;

function IsFileOf(const APath: RawByteString): Boolean;
var
  Info: TStat;
begin
  Result := (FpStat(PAnsiChar(APath), Info) = 0) and FpS_ISREG(Info.st_mode);
end;

function IsFile(const APath: UnicodeString): Boolean;
begin
  Result := IsFileOf(Utf8Of(APath));
end;

function HeadOf(const APath: UnicodeString; out ASize: Int64): RawByteString;
var
  Opened: cint;
  Count: TsSize;
begin
  Result := '';
  ASize := 0;
  Opened := FpOpen(PAnsiChar(Utf8Of(APath)), O_RDONLY);
  if Opened < 0 then
    Exit;
  ASize := FpLseek(Opened, 0, SEEK_END);
  FpLseek(Opened, 0, SEEK_SET);
  SetLength(Result, 4096);
  Count := FpRead(Opened, PAnsiChar(Result), Length(Result));
  FpClose(Opened);
  if Count < 0 then
    Count := 0;
  SetLength(Result, Count);
end;

function FolderOfProgram: UnicodeString;
var
  Buffer: array[0..4096] of AnsiChar;
  Count: TsSize;
begin
  Result := '';
  Count := FpReadLink('/proc/self/exe', @Buffer, SizeOf(Buffer) - 1);
  if Count <= 0 then
    Exit;
  Buffer[Count] := #0;
  Result := TextOf(BytesOf(@Buffer, Count));
  while (Result <> '') and (Result[Length(Result)] <> '/') do
    SetLength(Result, Length(Result) - 1);
end;

function TryToLoad(const APath: UnicodeString; out AProblem: UnicodeString): Pointer;
var
  Said: PAnsiChar;
begin
  AProblem := '';
  Result := dlopen(PAnsiChar(Utf8Of(APath)), RTLD_NOW);
  if Result <> nil then
    Exit;
  Said := dlerror;
  if Said <> nil then
    AProblem := TextOf(BytesOf(Said, High(Integer)));
end;

function Symbol(AName: PAnsiChar): Pointer;
begin
  Result := dlsym(Handle, AName);
end;
{$ENDIF}

// ---- Loading ----

function ByteAt(const AHead: RawByteString; AOffset: Integer): Cardinal;
begin
  if AOffset + 1 > Length(AHead) then
    Result := 0
  else
    Result := Ord(AHead[AOffset + 1]);
end;

function Bits(AMachine: Cardinal; const ASystem: UnicodeString): UnicodeString;
begin
  case AMachine of
    $8664, 62: Result := '64-bit ' + ASystem;
    $014C, 3: Result := '32-bit ' + ASystem;
    $AA64, 183: Result := '64-bit ' + ASystem + ' on ARM';
  else
    Result := ASystem + ' on another processor';
  end;
end;

function Two(const AHead: RawByteString; AOffset: Integer): Cardinal;
begin
  Result := ByteAt(AHead, AOffset) or ByteAt(AHead, AOffset + 1) shl 8;
end;

function Four(const AHead: RawByteString; AOffset: Integer): Int64;
begin
  Result := Two(AHead, AOffset) or Int64(Two(AHead, AOffset + 2)) shl 16;
end;

// An offset in a file; what is beyond all files counts as the longest one.
function OffsetAt(const AHead: RawByteString; AOffset: Integer): Int64;
begin
  if Four(AHead, AOffset + 4) > $FFFF then
    Result := Int64(1) shl 48
  else
    Result := Four(AHead, AOffset) or Four(AHead, AOffset + 4) shl 32;
end;

// Up to where the head of a library says that there is something.
function EndOfElf(const AHead: RawByteString): Int64;
const
  SegmentSize = 56;
var
  Start, Behind: Int64;
  I: Integer;
begin
  Result := 64;
  if Length(AHead) < Result then
    Exit;
  Result := OffsetAt(AHead, 40) + Int64(Two(AHead, 58)) * Two(AHead, 60);
  Start := OffsetAt(AHead, 32);
  for I := 1 to Integer(Two(AHead, 56)) do
  begin
    if Start + SegmentSize > Length(AHead) then
      Exit;
    Behind := OffsetAt(AHead, Start + 8) + OffsetAt(AHead, Start + 32);
    if Behind > Result then
      Result := Behind;
    Start := Start + Two(AHead, 54);
  end;
end;

function EndOfPe(const AHead: RawByteString; AStart: Integer): Int64;
const
  SectionSize = 40;
var
  Start, I: Integer;
  Behind: Int64;
begin
  Result := 0;
  Start := AStart + 24 + Integer(Two(AHead, AStart + 20));
  for I := 1 to Integer(Two(AHead, AStart + 6)) do
  begin
    if Start + SectionSize > Length(AHead) then
      Exit;
    Behind := Four(AHead, Start + 16) + Four(AHead, Start + 20);
    if Behind > Result then
      Result := Behind;
    Start := Start + SectionSize;
  end;
end;

// What is wrong with a file as a library, by its head; nothing if it is one for this system. One that is cut short would
// end the process when it is loaded.
function ProblemOfFile(const APath: UnicodeString): UnicodeString;
var
  Head: RawByteString;
  Start: Cardinal;
  Size, Needed: Int64;
  ForSystem: UnicodeString;
begin
  ForSystem := '';
  Needed := 0;
  Head := HeadOf(APath, Size);
  if Copy(Head, 1, 4) = RawByteString(#127'ELF') then
  begin
    ForSystem := Bits(Two(Head, 18), 'Linux');
    Needed := EndOfElf(Head);
  end
  else if Copy(Head, 1, 2) = RawByteString('MZ') then
  begin
    Start := Two(Head, $3C);
    if Copy(Head, Start + 1, 4) = RawByteString('PE'#0#0) then
    begin
      ForSystem := Bits(Two(Head, Start + 4), 'Windows');
      Needed := EndOfPe(Head, Start);
    end;
  end;
  Result := '';
  if ForSystem = '' then
    Result := 'is no library: the file is damaged, or something else'
  else if ForSystem <> WantedSystem then
    Result := 'is for ' + ForSystem + ', needed is ' + WantedSystem
  else if Size < Needed then
    Result := 'is cut short: it has ' + Num(Size) + ' bytes of at least ' + Num(Needed);
end;

// Pascal has floating point exceptions switched on, in which code in C does not expect any: they would end a function
// of the library in its middle. So they are off during each call, in the processor's registers themselves:
// SetExceptionMask also keeps its mask for all threads that begin meanwhile.
type
  TFloatState = record
    Mxcsr: Cardinal;      // exceptions that came, their masks seven bits higher, rounding
    ControlWord: Cardinal; // of the older unit: masks, rounding; a word
  end;

  TCall = record
    Entry: Pointer;
    Floats: TFloatState;
  end;

{$IFDEF TOLVEX_X64}
{$IFDEF FPC} {$ASMMODE INTEL} {$ENDIF}
procedure KeepFloats(var AState: TFloatState); {$IFDEF FPC} assembler; nostackframe; {$ENDIF}
asm
{$IFDEF TOLVEX_WINDOWS}
  stmxcsr dword ptr [rcx]
  fnstcw word ptr [rcx + 4]
{$ELSE}
  stmxcsr dword ptr [rdi]
  fnstcw word ptr [rdi + 4]
{$ENDIF}
end;

// What came meanwhile is forgotten first: switching an exception on would raise it.
procedure SetFloats(var AState: TFloatState); {$IFDEF FPC} assembler; nostackframe; {$ENDIF}
asm
  fnclex
{$IFDEF TOLVEX_WINDOWS}
  fldcw word ptr [rcx + 4]
  ldmxcsr dword ptr [rcx]
{$ELSE}
  fldcw word ptr [rdi + 4]
  ldmxcsr dword ptr [rdi]
{$ENDIF}
end;
{$ELSE}
// No library is loaded here.
procedure KeepFloats(var AState: TFloatState);
begin
  AState.Mxcsr := 0;
  AState.ControlWord := 0;
end;

procedure SetFloats(var AState: TFloatState);
begin
end;
{$ENDIF}

function FloatExceptionsOff: TFloatState;
var
  Off: TFloatState;
begin
  Result.ControlWord := 0;
  KeepFloats(Result);
  Result.Mxcsr := Result.Mxcsr and not Cardinal($3F);
  Off.Mxcsr := Result.Mxcsr or $1F80;
  Off.ControlWord := Result.ControlWord or $3F;
  SetFloats(Off);
end;

procedure FloatExceptionsAsBefore(const AState: TFloatState);
var
  Before: TFloatState;
begin
  Before := AState;
  SetFloats(Before);
end;

// Tries one file; tells what was wrong with it. A name without a folder is the system's to find.
function LoadFile(const APath: UnicodeString; out AProblem: UnicodeString): Boolean;
var
  Own: Boolean;
  Floats: TFloatState;
begin
  Result := False;
  Own := (Pos('/', APath) > 0) or (Pos('\', APath) > 0);
  if Own and not IsFile(APath) then
  begin
    AProblem := 'missing';
    Exit;
  end;
  if Own then
  begin
    AProblem := ProblemOfFile(APath);
    if AProblem <> '' then
      Exit;
  end;
  Floats := FloatExceptionsOff; // as code that runs when a library is loaded may change it
  Handle := TryToLoad(APath, AProblem);
  FloatExceptionsAsBefore(Floats);
  if Handle = nil then
  begin
    if AProblem = '' then
      AProblem := 'the system does not load it';
    Exit;
  end;
  if (Symbol('read_standard') = nil) or (Symbol('BeginPrint') = nil) then
  begin
    Handle := nil;
    AProblem := 'is another library: it has no read_standard and BeginPrint';
    Exit;
  end;
  LoadedFrom := APath;
  Result := True;
end;

procedure FailToLoad(const ATried: UnicodeString);
var
  Text: UnicodeString;
begin
  Text := 'The tolvex library is not loaded.' + ATried + UnicodeString(sLineBreak) + 'This program has ' +
    Num(SizeOf(Pointer) * 8) + ' bits; needed is a program and a library for ' + WantedSystem + '. What to do: ';
  if SizeOf(Pointer) <> 8 then
    Text := Text + 'build the program for 64 bits. Lazarus: Project Options, Config and Target, CPU x86_64. ' +
      'Delphi: target platform Windows 64-bit.'
  else
    Text := Text + 'put ' + LibraryFile + ' of the package beside the program, or name its path in the environment ' +
      'variable TOLVEX_LIBRARY.';
  raise ELibraryNotLoaded.Create(MessageOf(Text));
end;

procedure LoadLocked(const APath: UnicodeString);
var
  Files: array of UnicodeString;
  Tried, Problem: UnicodeString;
  I: Integer;

  procedure AddFile(const AFile: UnicodeString);
  var
    J: Integer;
  begin
    for J := 0 to High(Files) do
      if Files[J] = AFile then
        Exit;
    SetLength(Files, Length(Files) + 1);
    Files[High(Files)] := AFile;
  end;

begin
  Files := nil;
  if SizeOf(Pointer) <> 8 then
    FailToLoad('');
  if APath <> '' then
    AddFile(AbsolutePath(APath))
  else if Environment('TOLVEX_LIBRARY') <> '' then
    AddFile(AbsolutePath(Environment('TOLVEX_LIBRARY')))
  else
  begin
{$IFDEF TOLVEX_WINDOWS}
    AddFile(FolderOfModule(HInstance) + LibraryFile);
    AddFile(FolderOfModule(0) + LibraryFile);
{$ELSE}
    AddFile(FolderOfProgram + LibraryFile);
{$ENDIF}
    AddFile(LibraryFile);
  end;
  Tried := '';
  for I := 0 to High(Files) do
  begin
    Problem := '';
    if LoadFile(Files[I], Problem) then
      Exit;
    Tried := Tried + UnicodeString(sLineBreak) + '  ' + Files[I] + ': ' + Problem;
  end;
  FailToLoad(Tried);
end;

procedure LoadTolvex(const APath: UnicodeString);
begin
  LoadingLock.Acquire;
  try
    if Handle = nil then
      LoadLocked(APath)
    else if (APath <> '') and (AbsolutePath(APath) <> LoadedFrom) then
      FailToLoad(UnicodeString(sLineBreak) + '  ' + AbsolutePath(APath) + ': another one is loaded already, ' +
        LoadedFrom + ', and stays. Load it before the first other call.');
  finally
    LoadingLock.Release;
  end;
end;

function TolvexLibraryPath: UnicodeString;
begin
  LoadingLock.Acquire;
  try
    Result := LoadedFrom;
  finally
    LoadingLock.Release;
  end;
end;

function Resolved(AIndex: Integer): Pointer;
begin
  LoadTolvex;
  Result := Symbol(ExportNames[AIndex]);
  if Result = nil then
    raise ELibraryNotLoaded.Create(MessageOf('The library ' + LoadedFrom + ' has no ' +
      TextOf(RawByteString(ExportNames[AIndex])) + ': it is older than this unit. What to do: take both from one package.'));
  Entries[AIndex] := Result;
end;

function Begun(AIndex: Integer): TCall;
begin
  Result.Entry := Entries[AIndex];
  if Result.Entry = nil then
    Result.Entry := Resolved(AIndex);
  Result.Floats := FloatExceptionsOff;
end;

procedure Ended(const ACall: TCall);
begin
  FloatExceptionsAsBefore(ACall.Floats);
end;

// ---- Code pages ----

{$IFDEF TOLVEX_WINDOWS}
const
  NoBestFit = $400; // WC_NO_BEST_FIT_CHARS
  CodePageGb18030 = 54936;

function ReceiptCodePage: UnicodeString;
begin
  if GetACP = 65001 then
    Result := 'UTF-8'
  else
    Result := 'Windows ' + Num(GetACP);
end;

// The bytes of one character; False if the code page lacks it.
function AppendAnsi(var ATo: RawByteString; const AText: UnicodeString; AStart, ACount: Integer): Boolean;
var
  Bytes: array[0..15] of Byte;
  Count: Integer;
  IsMissing: BOOL;
begin
  IsMissing := False;
  // A page of all Unicode takes neither a flag nor the question.
  if GetACP = CodePageGb18030 then
    Count := WideCharToMultiByte(CP_ACP, 0, @AText[AStart], ACount, @Bytes, SizeOf(Bytes), nil, nil)
  else
    Count := WideCharToMultiByte(CP_ACP, NoBestFit, @AText[AStart], ACount, @Bytes, SizeOf(Bytes), nil, @IsMissing);
  Result := (Count > 0) and not IsMissing;
  if Result then
    AppendMemory(ATo, @Bytes, Count);
end;

function Ansi(const AText: UnicodeString; AReplace, AIsPath: Boolean): RawByteString;
var
  Position, Start: Integer;
  Character: Cardinal;
begin
  if GetACP = 65001 then
    Exit(Utf8Of(AText, AReplace));
  Result := '';
  Position := 1;
  while Position <= Length(AText) do
  begin
    Start := Position;
    Character := NextCharacter(AText, Position);
    if IsSurrogate(Character) or not AppendAnsi(Result, AText, Start, Position - Start) then
    begin
      if not AReplace then
        raise EUnencodableText.CreateAt(Character, Start, ReceiptCodePage, AIsPath);
      AppendByte(Result, Ord('?'));
    end;
  end;
end;
{$ELSE}
const
  CtypeMask = 1;   // LC_CTYPE_MASK
  CodesetItem = 14; // CODESET

var
  Charset: RawByteString; // found out at the first receipt, as the library does

function Converter(const ATo, AFrom: RawByteString): Pointer;
begin
  Result := c_iconv_open(PAnsiChar(ATo), PAnsiChar(AFrom));
  if Result = Pointer(NativeInt(-1)) then
    Result := nil;
end;

// Converts all of it; False if something can not be.
function Converted(AConverter: Pointer; const AFrom: RawByteString; out ATo: RawByteString): Boolean;
var
  Buffer: array[0..255] of Byte;
  From, Target: PAnsiChar;
  FromSize, Room: NativeUInt;
begin
  ATo := '';
  From := PAnsiChar(AFrom);
  FromSize := Length(AFrom);
  Target := @Buffer;
  Room := SizeOf(Buffer);
  Result := (c_iconv(AConverter, @From, @FromSize, @Target, @Room) <> NativeUInt(-1)) and (FromSize = 0);
  if Result then
    AppendMemory(ATo, @Buffer, SizeOf(Buffer) - Room);
end;

// Ends a text: appends what the conversion still holds back.
procedure Flush(AConverter: Pointer; var ATo: RawByteString);
var
  Buffer: array[0..63] of Byte;
  Target: PAnsiChar;
  Room: NativeUInt;
begin
  Target := @Buffer;
  Room := SizeOf(Buffer);
  if c_iconv(AConverter, nil, nil, @Target, @Room) <> NativeUInt(-1) then
    AppendMemory(ATo, @Buffer, SizeOf(Buffer) - Room);
end;

function InstalledCharset: RawByteString;
var
  Locale: Pointer;
begin
  Result := '';
  Locale := c_newlocale(CtypeMask, '', nil);
  if Locale = nil then
    Exit;
  Result := BytesOf(c_nl_langinfo_l(CodesetItem, Locale), 255);
  c_freelocale(Locale);
end;

function CharsetInName(const ALocale: RawByteString): RawByteString;
var
  Dot, Modifier: Integer;
begin
  Dot := Pos('.', ALocale);
  Modifier := Pos('@', ALocale);
  if Modifier = 0 then
    Modifier := Length(ALocale) + 1;
  if (Dot = 0) or (Dot > Modifier) then
    Result := ''
  else
    Result := Copy(ALocale, Dot + 1, Modifier - Dot - 1);
end;

function IsUsable(const ACharset: RawByteString): Boolean;
var
  ToUtf8: Pointer;
  Back: RawByteString;
begin
  Result := False;
  if (ACharset = '') or (Pos('/', ACharset) > 0) then
    Exit;
  ToUtf8 := Converter('UTF-8', ACharset);
  if ToUtf8 = nil then
    Exit;
  Result := Converted(ToUtf8, 'AZaz09', Back) and (Back = 'AZaz09');
  c_iconv_close(ToUtf8);
  if Result then
  begin
    ToUtf8 := Converter(ACharset, 'UTF-16LE');
    Result := ToUtf8 <> nil;
    if Result then
      c_iconv_close(ToUtf8);
  end;
end;

function IsUtf8(const ACharset: RawByteString): Boolean;
var
  Plain: RawByteString;
  I: Integer;
begin
  Plain := '';
  for I := 1 to Length(ACharset) do
    if not (ACharset[I] in ['-', '_']) then
      AppendByte(Plain, Ord(UpCase(ACharset[I])));
  Result := Plain = 'UTF8';
end;

// The rule of the library: see "Character sets" in its documents.
function UserCharset: RawByteString;
var
  Locale: RawByteString;
begin
  Locale := EnvironmentBytes('LC_ALL');
  if Locale = '' then
    Locale := EnvironmentBytes('LC_CTYPE');
  if Locale = '' then
    Locale := EnvironmentBytes('LANG');
  if (Locale = '') or (Locale = 'C') or (Locale = 'POSIX') then
    Exit('UTF-8');
  Result := InstalledCharset;
  if Result = '' then
    Result := CharsetInName(Locale);
  if not IsUsable(Result) or IsUtf8(Result) then
    Result := 'UTF-8';
end;

function ReceiptCharset: RawByteString;
begin
  LoadingLock.Acquire;
  try
    if Charset = '' then
      Charset := UserCharset;
    Result := Charset;
  finally
    LoadingLock.Release;
  end;
end;

function ReceiptCodePage: UnicodeString;
begin
  Result := TextOf(ReceiptCharset);
end;

function Ansi(const AText: UnicodeString; AReplace, AIsPath: Boolean): RawByteString;
var
  FromUtf16: Pointer;
  Position, Start: Integer;
  Character: Cardinal;
  Bytes, Wide: RawByteString;
begin
  if ReceiptCharset = 'UTF-8' then
    Exit(Utf8Of(AText, AReplace));
  FromUtf16 := Converter(ReceiptCharset, 'UTF-16LE');
  if FromUtf16 = nil then
    raise EUnencodableText.CreateAt(Ord('?'), 1, ReceiptCodePage);
  try
    Result := '';
    Position := 1;
    while Position <= Length(AText) do
    begin
      Start := Position;
      Character := NextCharacter(AText, Position);
      Wide := '';
      AppendMemory(Wide, @AText[Start], (Position - Start) * 2);
      if IsSurrogate(Character) or not Converted(FromUtf16, Wide, Bytes) then
      begin
        if not AReplace then
          raise EUnencodableText.CreateAt(Character, Start, ReceiptCodePage, AIsPath);
        Bytes := '?';
      end;
      AppendRaw(Result, Bytes);
    end;
    // Some sets hold a letter back until it is known whether an accent follows.
    Flush(FromUtf16, Result);
  finally
    c_iconv_close(FromUtf16);
  end;
end;
{$ENDIF}

// ---- Weights ----

function CurrencyOf(ATenThousandths: Int64): Currency;
begin
  PInt64(@Result)^ := ATenThousandths;
end;

// Reads a decimal with a point, exactly, whatever the system's separator is; False if it is none, or has more than
// four decimals.
function ReadDecimal(const AText: UnicodeString; AHasPoint: Boolean; out AValue: Currency): Boolean;
var
  Position, Before, Behind: Integer;
  Value: Int64;
  Negative: Boolean;
begin
  AValue := 0;
  Result := False;
  Position := 1;
  Negative := (AText <> '') and (AText[1] = '-');
  if Negative then
    Inc(Position);
  Value := 0;
  Before := 0;
  Behind := -1; // no point yet
  while Position <= Length(AText) do
  begin
    case AText[Position] of
      '0'..'9':
        begin
          Value := Value * 10 + Ord(AText[Position]) - Ord('0');
          if Behind >= 0 then
            Inc(Behind)
          else
            Inc(Before);
          if (Behind > 4) or (Before > 12) then
            Exit;
        end;
      '.':
        begin
          if Behind >= 0 then
            Exit;
          Behind := 0;
        end;
    else
      Exit;
    end;
    Inc(Position);
  end;
  if (Before = 0) or (Behind = 0) or (AHasPoint and (Behind < 0)) then
    Exit;
  while Behind < 4 do
  begin
    if Behind < 0 then
      Behind := 0;
    Value := Value * 10;
    Inc(Behind);
  end;
  if Negative then
    Value := -Value;
  AValue := CurrencyOf(Value);
  Result := True;
end;

function WeightToText(AWeight: Currency; ADecimals: Integer): UnicodeString;
var
  Value, Step: Int64;
  I: Integer;
  Negative: Boolean;
begin
  CheckRange('The number of decimals', ADecimals, 0, 4);
  Value := PInt64(@AWeight)^;
  Negative := Value < 0;
  Value := Abs(Value);
  Step := 1;
  for I := ADecimals to 3 do
    Step := Step * 10;
  Value := (Value + Step div 2) div Step; // half a step up
  Negative := Negative and (Value <> 0);
  Result := Num(Value);
  while Length(Result) <= ADecimals do
    Result := '0' + Result;
  if ADecimals > 0 then
    Insert('.', Result, Length(Result) - ADecimals + 1);
  if Negative then
    Result := '-' + Result;
end;

function TReading.HasWeight: Boolean;
begin
  Result := State = rsWeight;
end;

procedure TReading.NeedWeight;
const
  Names: array[TReadingState] of UnicodeString = ('has a weight', 'is under load', 'is over load', 'has no valid weight');
begin
  if State <> rsWeight then
    raise ENoWeight.Create(MessageOf('The scale ' + Names[State] + '; look at State before Net and Tare.'));
end;

function TReading.GetNet: Currency;
begin
  NeedWeight;
  Result := FNet;
end;

function TReading.GetTare: Currency;
begin
  NeedWeight;
  if not FHasTare then
    raise ETolvexError.CreateUnreadable('read_standard', 'The service''s reply has no tare that is a number: "' + TareText + '".');
  Result := FTare;
end;

function EmptyReading: TReading;
begin
  Result.FNet := 0;
  Result.FTare := 0;
  Result.FHasTare := False;
  Result.State := rsInvalid;
  Result.Stable := False;
  Result.AtZero := False;
  Result.TareActive := False;
  Result.NetText := '';
  Result.TareText := '';
end;

function ReadingOf(const ARecord: TTolvexWeight): TReading;
var
  Tare: array[0..14] of AnsiChar;
begin
  Result := EmptyReading;
  if ARecord.Mark = #0 then
    Exit;
  Result.State := rsWeight;
  Result.Stable := ARecord.Status and TOLVEX_WEIGHT_STABLE <> 0;
  Result.AtZero := ARecord.Status and TOLVEX_WEIGHT_AT_ZERO <> 0;
  Result.TareActive := ARecord.Status and TOLVEX_WEIGHT_TARE_ACTIVE <> 0;
  Result.NetText := TextOf(BytesOf(@ARecord.Net, SizeOf(ARecord.Net)));
  // A longer tare runs on into the bytes behind its field.
  Move(ARecord.Tare, Tare, SizeOf(ARecord.Tare));
  Move(ARecord.Rest, Tare[SizeOf(ARecord.Tare)], SizeOf(ARecord.Rest));
  Result.TareText := TextOf(BytesOf(@Tare, SizeOf(Tare)));
  // Without a point the field may have been too narrow for the number.
  if not ReadDecimal(Result.NetText, True, Result.FNet) then
    raise ETolvexError.CreateUnreadable('read_standard', 'The net weight is no number: "' + Result.NetText + '".');
  Result.FHasTare := ReadDecimal(Result.TareText, True, Result.FTare);
end;

// ---- TScale ----

function Ticks: UInt64;
{$IFDEF FPC}
begin
  Result := GetTickCount64;
end;
{$ELSE}
type
  TTicks = function: UInt64; stdcall;
begin
  Result := TTicks(GetProcAddress(GetModuleHandle('kernel32.dll'), 'GetTickCount64'))();
end;
{$ENDIF}

constructor TScale.Create;
begin
  inherited Create;
  FPollInterval := 100;
end;

function TScale.Read: TReading;
var
  Weight: TTolvexWeight;
  Verdict: Integer;
begin
  Result := EmptyReading;
  FillChar(Weight, SizeOf(Weight), 0);
  WeighingLock.Acquire;
  try
    Verdict := read_standard(@Weight);
    case Verdict of
      TOLVEX_UNDER_LOAD: Result.State := rsUnderLoad;
      TOLVEX_OVER_LOAD: Result.State := rsOverLoad;
    else
      CheckVerdict('read_standard', Verdict);
    end;
  finally
    WeighingLock.Release;
  end;
  if Verdict = TOLVEX_OK then
    Result := ReadingOf(Weight);
end;

function TScale.WaitStable(ATimeoutMs: Integer): TReading;
var
  Start: UInt64;
  Failure: EScaleTimeout;
begin
  CheckUnsigned('The timeout', ATimeoutMs);
  CheckRange('The poll interval', FPollInterval, 1, 60000);
  Start := Ticks;
  repeat
    Result := Read;
    if Result.HasWeight and Result.Stable then
      Exit;
    if Ticks - Start >= UInt64(ATimeoutMs) then
      Break;
    Sleep(FPollInterval);
  until False;
  Failure := EScaleTimeout.Create(MessageOf('The weight was not stable within ' + Num(ATimeoutMs) + ' ms.'));
  Failure.FLast := Result;
  raise Failure;
end;

function TScale.Info: TScaleInfo;
var
  Base: TTolvexBaseInfo;
  I: Integer;
begin
  FillChar(Base, SizeOf(Base), 0);
  WeighingLock.Acquire;
  try
    CheckVerdict('read_baseinfo', read_baseinfo(@Base));
  finally
    WeighingLock.Release;
  end;
  for I := 0 to 2 do
  begin
    Result.MaxRange[I] := CurrencyOf(Int64(Base.MaxRange[I]) * 10000);
    Result.Resolution[I] := CurrencyOf(Int64(Base.Resolution[I]) * 10);
  end;
  Result.MinRange := CurrencyOf(Int64(Base.MinRange) * 10);
  Result.MaxTare := CurrencyOf(Int64(Base.MaxTare) * 10);
  Result.MaxPresetTare := CurrencyOf(Int64(Base.MaxPresetTare) * 10);
  Result.WeightUnit := TextOf(BytesOf(@Base.WeightUnit, SizeOf(Base.WeightUnit)));
  Result.SystemVersion := TextOf(BytesOf(@Base.SystemVersion, SizeOf(Base.SystemVersion)));
end;

procedure TScale.Zero;
begin
  WeighingLock.Acquire;
  try
    CheckVerdict('send_zero', send_zero);
  finally
    WeighingLock.Release;
  end;
end;

function TareBy(const AOperation: UnicodeString; AClear: Boolean; out ATare: Currency): Boolean;
var
  Reply: array[0..15] of AnsiChar; // ten characters, which may lack a NUL
  Text: UnicodeString;
  Verdict: Integer;
begin
  ATare := 0;
  FillChar(Reply, SizeOf(Reply), 0);
  WeighingLock.Acquire;
  try
    if AClear then
      Verdict := clear_tare(@Reply)
    else
      Verdict := send_tare(@Reply);
    CheckVerdict(AOperation, Verdict);
  finally
    WeighingLock.Release;
  end;
  Text := TextOf(BytesOf(@Reply, SizeOf(Reply)));
  Result := Text <> '';
  if Result and not ReadDecimal(Text, False, ATare) then
    raise ETolvexError.CreateUnreadable(AOperation, 'The tare is no number: "' + Text + '".');
end;

procedure TScale.TakeTare;
var
  Tare: Currency;
begin
  TareBy('send_tare', False, Tare);
end;

function TScale.TakeTare(out ATare: Currency): Boolean;
begin
  Result := TareBy('send_tare', False, ATare);
end;

procedure TScale.ClearTare;
var
  Tare: Currency;
begin
  TareBy('clear_tare', True, Tare);
end;

function TScale.ClearTare(out ATare: Currency): Boolean;
begin
  Result := TareBy('clear_tare', True, ATare);
end;

// The member "version" of a reply, or all of it.
function VersionIn(const AReply: UnicodeString): UnicodeString;
begin
  Result := ReplyMember(AReply, 'version');
  if Result = '' then
    Result := AReply;
end;

type
  TReplyBuffer = array[0..WholeReply] of AnsiChar; // and a NUL

function TScale.Version: UnicodeString;
var
  Reply: TReplyBuffer;
begin
  FillChar(Reply, SizeOf(Reply), 0);
  WeighingLock.Acquire;
  try
    CheckCode('getLCVersion', getLCVersion(@Reply, WholeReply));
  finally
    WeighingLock.Release;
  end;
  Result := VersionIn(TextOf(BytesOf(@Reply, WholeReply)));
end;

procedure TScale.SetOverloadAlarm(AOn: Boolean);
begin
  PrintingLock.Acquire; // the alarm is on the printing connection
  try
    CheckCode('setOverloadAlarm', tolvex.setOverloadAlarm(Ord(AOn)));
  finally
    PrintingLock.Release;
  end;
end;

function TScale.RawCommand(const ACommand, AParameters: UnicodeString; AWaitMs: Integer): UnicodeString;
var
  Command, Parameters: RawByteString;
  Reply: TReplyBuffer;
  Code: Integer;
begin
  CheckUnsigned('The wait', AWaitMs);
  Command := CheckedUtf8('The command', ACommand);
  if Command = '' then
    RefuseArgument('The command is empty.');
  Parameters := CheckedUtf8('The parameters', AParameters);
  FillChar(Reply, SizeOf(Reply), 0);
  WeighingLock.Acquire;
  try
    Code := sendRawCmdToLC(PAnsiChar(Command), PAnsiChar(Parameters), @Reply, WholeReply, AWaitMs);
  finally
    WeighingLock.Release;
  end;
  Result := TextOf(BytesOf(@Reply, WholeReply));
  if Code <> TOLVEX_RESULT_OK then
    raise ETolvexError.CreateOf('sendRawCmdToLC', Code, Result);
end;

function TScale.GetHighResolution: Boolean;
begin
  Result := getHighResWeightMode <> 0;
end;

procedure TScale.SetHighResolution(AOn: Boolean);
begin
  CheckCode('setHighResWeightMode', setHighResWeightMode(Ord(AOn)));
end;

// ---- TPosPrinter ----

function TPrinterStatus.Ready: Boolean;
begin
  Result := Code = TOLVEX_RESULT_OK;
end;

constructor TPosPrinter.Create(AType: Cardinal);
begin
  inherited Create;
  FType := AType;
end;

function TPosPrinter.Status: TPrinterStatus;
var
  Row: TResultRow;
  Code: Integer;
begin
  PrintingLock.Acquire;
  try
    Code := GetPrinterStatus(FType);
  finally
    PrintingLock.Release;
  end;
  if (Code <> TOLVEX_RESULT_OK) and
    ((Code < TOLVEX_RESULT_PRT_CONNECTION_FAIL) or (Code > TOLVEX_RESULT_PRT_STATUS_ABNORMAL)) then
    raise ETolvexError.CreateOf('GetPrinterStatus', Code);
  RowOf(Code, Row);
  Result.Code := Code;
  Result.Name := Row.Name;
  Result.Text := Row.Text;
  Result.Meaning := Row.Meaning;
  Result.Remedy := Row.Remedy;
end;

procedure TPosPrinter.PrintText(const AText: UnicodeString; AFontSize: Integer);
var
  Text: RawByteString;
begin
  CheckRange('The font size', AFontSize, 1, High(Word)); // the library would make 28 of 0
  Text := CheckedUtf8('The text', AText);
  PrintingLock.Acquire;
  try
    CheckCode('printTextById', printTextById(PAnsiChar(Text), AFontSize, FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.PrintWrapped(const AText: UnicodeString; AFontSize, AWidth: Integer);
var
  Text: RawByteString;
begin
  CheckRange('The font size', AFontSize, 1, High(Word));
  CheckRange('The width', AWidth, 0, High(Word) div DotsPerMillimetre);
  Text := CheckedUtf8('The text', AText);
  PrintingLock.Acquire;
  try
    CheckCode('printTextByPaperWidthById', printTextByPaperWidthById(PAnsiChar(Text), AFontSize, AWidth, FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.PrintImage(const APath: UnicodeString; AAngle: Integer);
var
  Path: RawByteString;
begin
  CheckText('The path', APath);
  if APath = '' then
    RefuseArgument('The path of the image is empty.');
  CheckRange('The angle', AAngle, 0, High(Word));
  Path := Utf8Of(AbsolutePath(APath));
  PrintingLock.Acquire;
  try
    CheckCode('printBitmapFileById', printBitmapFileById(PAnsiChar(Path), AAngle, FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.Cut;
begin
  PrintingLock.Acquire;
  try
    CheckCode('cutPaperById', cutPaperById(FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.Feed;
begin
  PrintingLock.Acquire;
  try
    CheckVerdict('feedPaperById', feedPaperById(FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.Calibrate;
begin
  PrintingLock.Acquire;
  try
    CheckVerdict('calibrateLabel', calibrateLabel(FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.CalibratePaperEnd;
begin
  PrintingLock.Acquire;
  try
    CheckCode('testPaper', testPaper(FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.SetPaperWidth(AMillimetres: Integer);
begin
  CheckRange('The paper width', AMillimetres, 0, High(Word) div DotsPerMillimetre);
  PrintingLock.Acquire;
  try
    CheckCode('setDefaultPaperWidth', setDefaultPaperWidth(AMillimetres, FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.SetGapType(AGapType: Integer);
begin
  CheckUnsigned('The gap type', AGapType);
  PrintingLock.Acquire;
  try
    CheckCode('setGapType', tolvex.setGapType(AGapType, FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.SetDirection(ADirection: Integer);
begin
  CheckUnsigned('The direction', ADirection);
  PrintingLock.Acquire;
  try
    CheckCode('setPrinterDirection', setPrinterDirection(ADirection, FType));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPosPrinter.SetTextWrapMode(AMode: Integer);
begin
  CheckUnsigned('The wrap mode', AMode);
  PrintingLock.Acquire;
  try
    CheckCode('setTextWrapMode', tolvex.setTextWrapMode(AMode, FType));
  finally
    PrintingLock.Release;
  end;
end;

// ---- TPrinterSettings ----

constructor TPrinterSettings.Create(const AName: UnicodeString);
begin
  inherited Create;
  FBytes := CheckedName(AName);
  FName := AName;
end;

procedure TPrinterSettings.SetLeftMargin(ADots: Integer);
begin
  CheckUnsigned('The left margin', ADots);
  PrintingLock.Acquire;
  try
    CheckCode('setLeftMargin', tolvex.setLeftMargin(ADots, PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPrinterSettings.SetRightMargin(ADots: Integer);
begin
  CheckUnsigned('The right margin', ADots);
  PrintingLock.Acquire;
  try
    CheckCode('setRightMargin', tolvex.setRightMargin(ADots, PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPrinterSettings.SetPaperOffset(ADots: Integer);
begin
  CheckUnsigned('The paper offset', ADots);
  PrintingLock.Acquire;
  try
    CheckCode('setPaperOffset', tolvex.setPaperOffset(ADots, PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPrinterSettings.SetContrast(AContrast: Integer);
begin
  CheckUnsigned('The contrast', AContrast);
  PrintingLock.Acquire;
  try
    CheckCode('setPrintContrast', setPrintContrast(AContrast, PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPrinterSettings.SetSpeed(ASpeed: Integer);
begin
  CheckUnsigned('The speed', ASpeed);
  PrintingLock.Acquire;
  try
    CheckCode('setPrintSpeed', setPrintSpeed(ASpeed, PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPrinterSettings.SetAutoPrint(AOn: Boolean);
begin
  PrintingLock.Acquire;
  try
    CheckCode('setPrtAutoPrint', setPrtAutoPrint(Ord(AOn), PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPrinterSettings.SetRollback(AOn: Boolean);
begin
  PrintingLock.Acquire;
  try
    CheckCode('setRollback', tolvex.setRollback(Ord(AOn), PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
end;

procedure TPrinterSettings.SetTakeUpSensor(AOn: Boolean);
begin
  PrintingLock.Acquire;
  try
    CheckVerdict('setTakeupPaperSensor', setTakeupPaperSensor(Ord(AOn), PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
end;

function TPrinterSettings.FirmwareVersion: UnicodeString;
var
  Reply: TReplyBuffer;
begin
  FillChar(Reply, SizeOf(Reply), 0);
  PrintingLock.Acquire;
  try
    CheckVerdict('getPrinterVersion', getPrinterVersion(@Reply, WholeReply, PAnsiChar(FBytes)));
  finally
    PrintingLock.Release;
  end;
  Result := VersionIn(TextOf(BytesOf(@Reply, WholeReply)));
end;

// ---- Printers ----

function PrinterNames: TPrinterNames;
var
  Reply: TReplyBuffer;
  Rest, Name: UnicodeString;
  Comma: Integer;
begin
  Result := nil;
  FillChar(Reply, SizeOf(Reply), 0);
  PrintingLock.Acquire;
  try
    CheckVerdict('GetPrinterList', GetPrinterList(@Reply, WholeReply));
  finally
    PrintingLock.Release;
  end;
  Rest := TextOf(BytesOf(@Reply, WholeReply));
  while Rest <> '' do
  begin
    Comma := Pos(WideChar(','), Rest);
    if Comma = 0 then
      Comma := Length(Rest) + 1;
    Name := Trim(Copy(Rest, 1, Comma - 1));
    Delete(Rest, 1, Comma);
    if Name <> '' then
    begin
      SetLength(Result, Length(Result) + 1);
      Result[High(Result)] := Name;
    end;
  end;
end;

procedure FeedBlank(ADistance: Integer);
begin
  CheckRange('The distance', ADistance, 1, 1000);
  PrintingLock.Acquire;
  try
    CheckVerdict('printBlanks', printBlanks(ADistance));
  finally
    PrintingLock.Release;
  end;
end;

function PrinterRawCommand(const APrinterName, ACommand: UnicodeString; ANumber: Integer;
  const AParameters: UnicodeString; AWaitMs: Integer): UnicodeString;
var
  Name, Command, Parameters: RawByteString;
  Reply: TReplyBuffer;
  Code: Integer;
begin
  CheckUnsigned('The wait', AWaitMs);
  Name := CheckedName(APrinterName);
  Command := CheckedUtf8('The command', ACommand);
  if Command = '' then
    RefuseArgument('The command is empty.');
  Parameters := CheckedUtf8('The parameters', AParameters);
  FillChar(Reply, SizeOf(Reply), 0);
  PrintingLock.Acquire;
  try
    Code := sendRawCmdToPrt(PAnsiChar(Name), PAnsiChar(Command), ANumber, PAnsiChar(Parameters), @Reply,
      WholeReply, AWaitMs);
  finally
    PrintingLock.Release;
  end;
  Result := TextOf(BytesOf(@Reply, WholeReply));
  if Code <> TOLVEX_RESULT_OK then
    raise ETolvexError.CreateOf('sendRawCmdToPrt', Code, Result);
end;

// ---- TReceipt ----

function TReceipt.Add(AKind: TReceiptPartKind; const AText: UnicodeString; ASize, AWidth: Integer): TReceipt;
var
  Part: TReceiptPart;
begin
  Part.Kind := AKind;
  Part.Text := AText;
  Part.Size := ASize;
  Part.Width := AWidth;
  SetLength(FParts, Length(FParts) + 1);
  FParts[High(FParts)] := Part;
  Result := Self;
end;

function TReceipt.GetCount: Integer;
begin
  Result := Length(FParts);
end;

procedure TReceipt.Clear;
begin
  FParts := nil;
end;

procedure CheckFont(ASize: Integer);
begin
  CheckRange('The font size', ASize, MinFont, MaxFont);
end;

function TReceipt.Text(const AText: UnicodeString; ASize: Integer): TReceipt;
begin
  CheckFont(ASize);
  CheckText('The text', AText);
  Result := Add(rpText, AText, ASize, 0);
end;

function TReceipt.Wrapped(const AText: UnicodeString; ASize, AWidth: Integer): TReceipt;
begin
  CheckFont(ASize);
  CheckRange('The width', AWidth, 0, MaxWidth); // the library would make 80 of more
  CheckText('The text', AText);
  Result := Add(rpWrapped, AText, ASize, AWidth);
end;

function TReceipt.Image(const APath: UnicodeString; AAngle: Integer): TReceipt;
begin
  CheckText('The path', APath);
  if APath = '' then
    RefuseArgument('The path of the image is empty.');
  CheckRange('The angle', AAngle, 0, High(Word)); // the library keeps 16 bits
  Result := Add(rpImage, AbsolutePath(APath), AAngle, 0);
end;

function TReceipt.Blank(ASize: Integer): TReceipt;
begin
  Result := Text('', ASize);
end;

// A line without a width must not be too long for the service: the job would end in its middle.
procedure CheckLines(const AText: UnicodeString; AReplace: Boolean);
var
  Bytes: RawByteString;
  Position, Start: Integer;
begin
  Bytes := Utf8Of(AText, AReplace);
  Start := 1;
  for Position := 1 to Length(Bytes) + 1 do
    if (Position > Length(Bytes)) or (Bytes[Position] = #10) then
    begin
      if Position - Start > MaxLine then
        RefuseArgument('A line of the receipt has ' + Num(Position - Start) + ' bytes of UTF-8, but it has to have ' +
          'at most ' + Num(MaxLine) + '; Wrapped takes any length.');
      Start := Position + 1;
    end;
end;

{$IFDEF TOLVEX_WINDOWS}
procedure CheckImage(const APath: UnicodeString; const ABytes: RawByteString);
begin
  if not IsFile(APath) then
    RefuseArgument('The image ' + APath + ' is missing.');
end;
{$ELSE}
procedure CheckImage(const APath: UnicodeString; const ABytes: RawByteString);
begin
  if not IsFileOf(ABytes) then // as the library opens it
    RefuseArgument('The image ' + APath + ' is missing.');
end;
{$ENDIF}

// All parts as the library takes them. Raises for everything that the library, or the service for certain, would refuse.
function TReceipt.Encoded: TReceiptBytes;
var
  I, Images: Integer;
begin
  Result := nil;
  if FParts = nil then
    RefuseArgument('The receipt is empty. To cut off what is out, use TPosPrinter.Cut.');
  SetLength(Result, Length(FParts));
  Images := 0;
  for I := 0 to High(FParts) do
  begin
    Result[I] := Ansi(FParts[I].Text, FReplaceUnknown and (FParts[I].Kind <> rpImage), FParts[I].Kind = rpImage);
    case FParts[I].Kind of
      rpText:
        CheckLines(FParts[I].Text, FReplaceUnknown);
      rpImage:
        begin
          CheckImage(FParts[I].Text, Result[I]);
          Inc(Images);
        end;
    end;
    if Result[I] = '' then
      Result[I] := ' '; // an empty text would queue nothing
  end;
  if Images > MaxImages then
    RefuseArgument('The receipt has ' + Num(Images) + ' images, but it has to have at most ' + Num(MaxImages) + '.');
end;

// Nothing but memory that runs out can fail here, after Encoded. There is no way then to take back what is queued
// already: it would come out with the next receipt, so no other is printed.
procedure TReceipt.Queue(const ABytes: TReceiptBytes);
var
  I, Verdict: Integer;
begin
  if QueueIsSpoiled then
    raise ETolvexError.CreateWithoutCode('PrintText', 'An earlier receipt could not be queued to its end; its first ' +
      'lines are still in the library and would come out with this one.', 'Restart the program.');
  for I := 0 to High(ABytes) do
  begin
    case FParts[I].Kind of
      rpText: Verdict := tolvex.PrintText(PAnsiChar(ABytes[I]), FParts[I].Size);
      rpWrapped: Verdict := PrintTextByPaperWidth(PAnsiChar(ABytes[I]), FParts[I].Size, FParts[I].Width);
    else
      Verdict := PrintBitmapFile(PAnsiChar(ABytes[I]), FParts[I].Size);
    end;
    if Verdict <> TOLVEX_OK then
    begin
      QueueIsSpoiled := I > 0;
      if Verdict = TOLVEX_FAILED then // which leaves no code behind
        raise ETolvexError.CreateWithoutCode('PrintText', 'A line could not be queued; memory may have run out.',
          'Look into the library''s log, and restart the program.');
      raise ETolvexError.CreateOf('PrintText', Verdict);
    end;
  end;
end;

procedure TReceipt.Print(AJob: TJobType);
var
  Bytes: TReceiptBytes;
begin
  case Ord(AJob) of
    0, 2, 4, 7, 8, 104, 105, 204..208, 301, 304, 305: ;
  else
    RefuseArgument('There is no job type ' + Num(Ord(AJob)) + ' that prints a receipt.');
  end;
  // What is loaded, or not, shows before a file is looked at.
  LoadTolvex;
  PrintingLock.Acquire;
  try
    Bytes := Encoded;
    Queue(Bytes);
    CheckVerdict('BeginPrint', BeginPrint(Ord(AJob)));
  finally
    PrintingLock.Release;
  end;
end;

procedure TReceipt.PrintLabel;
begin
  Print(jtLabel);
end;

// ---- Service and drawer ----

procedure OpenCashDrawer;
begin
  PrintingLock.Acquire;
  try
    CheckVerdict('OpenCashDrawerEx', OpenCashDrawerEx);
  finally
    PrintingLock.Release;
  end;
end;

function ServiceAnswers: Boolean;
begin
  WeighingLock.Acquire;
  try
    Result := checkConnection = 1;
  finally
    WeighingLock.Release;
  end;
end;

procedure SetServer(const AAddress: UnicodeString);
var
  Address: RawByteString;
begin
  Address := CheckedUtf8('The address', AAddress);
  if SetServerIpForRemoteAccess(PAnsiChar(Address)) <> TOLVEX_OK then
    RefuseArgument('"' + AAddress + '" is no IPv4 address such as 192.168.1.20.');
end;

const
  ModuleNames: array[TServiceModule] of RawByteString = ('loadcell', 'print');

function LockOf(AModule: TServiceModule): PLock;
begin
  if AModule = smWeighing then
    Result := @WeighingLock
  else
    Result := @PrintingLock;
end;

function ServiceLogLevel(AModule: TServiceModule): UnicodeString;
var
  Reply: TReplyBuffer;
begin
  FillChar(Reply, SizeOf(Reply), 0);
  LockOf(AModule)^.Acquire;
  try
    CheckCode('getLogLevel', getLogLevel(PAnsiChar(ModuleNames[AModule]), @Reply, WholeReply));
  finally
    LockOf(AModule)^.Release;
  end;
  Result := TextOf(BytesOf(@Reply, WholeReply));
end;

procedure SetServiceLogLevel(AModule: TServiceModule; const ALevel: UnicodeString);
var
  Level: RawByteString;
begin
  Level := CheckedUtf8('The level', ALevel);
  LockOf(AModule)^.Acquire;
  try
    CheckCode('setLogLevel', setLogLevel(PAnsiChar(ModuleNames[AModule]), PAnsiChar(Level)));
  finally
    LockOf(AModule)^.Release;
  end;
end;

// A text in quotes; the position moves behind it. What is no such text ends at the end.
function QuotedAt(const AText: UnicodeString; var APosition: Integer): UnicodeString;
var
  Sign: WideChar;
  Digit, Number, I: Integer;
begin
  Result := '';
  Inc(APosition);
  while (APosition <= Length(AText)) and (AText[APosition] <> '"') do
  begin
    Sign := AText[APosition];
    Inc(APosition);
    if (Sign = '\') and (APosition <= Length(AText)) then
    begin
      Sign := AText[APosition];
      Inc(APosition);
      case Sign of
        'b': Sign := #8;
        'f': Sign := #12;
        'n': Sign := #10;
        'r': Sign := #13;
        't': Sign := #9;
        'u':
          begin
            Number := 0;
            for I := 0 to 3 do
            begin
              Digit := 0;
              if APosition <= Length(AText) then
                case AText[APosition] of
                  '0'..'9': Digit := Ord(AText[APosition]) - Ord('0');
                  'A'..'F': Digit := Ord(AText[APosition]) - Ord('A') + 10;
                  'a'..'f': Digit := Ord(AText[APosition]) - Ord('a') + 10;
                end;
              Number := Number * 16 + Digit;
              Inc(APosition);
            end;
            Sign := WideChar(Number);
          end;
      end;
    end;
    Result := Result + Sign;
  end;
  Inc(APosition);
end;

function ReplyMember(const AReply, AName: UnicodeString): UnicodeString;
var
  Position, Start, Depth: Integer;
  Name: UnicodeString;
  IsName: Boolean;
begin
  Result := '';
  Position := 1;
  Depth := 0;
  Name := '';
  IsName := True;
  while Position <= Length(AReply) do
    case AReply[Position] of
      '{', '[':
        begin
          Inc(Depth);
          Inc(Position);
          IsName := True;
        end;
      '}', ']':
        begin
          Dec(Depth);
          Inc(Position);
        end;
      ',':
        begin
          IsName := True;
          Inc(Position);
        end;
      ':':
        begin
          IsName := False;
          Inc(Position);
        end;
      '"':
        if IsName then
          Name := QuotedAt(AReply, Position)
        else if (Depth = 1) and (Name = AName) then
          Exit(QuotedAt(AReply, Position))
        else
          QuotedAt(AReply, Position);
      #9, #10, #13, ' ':
        Inc(Position);
    else
      Start := Position; // a number, true, false or null
      while (Position <= Length(AReply)) and (Pos(AReply[Position], UnicodeString(',}] '#9#10#13)) = 0) do
        Inc(Position);
      if (Depth = 1) and not IsName and (Name = AName) then
        Exit(Copy(AReply, Start, Position - Start));
    end;
end;

// ---- TScaleThread ----

constructor TScaleThread.Create(AIntervalMs: Integer);
begin
  // First, since a thread that was not created can not be destroyed.
  inherited Create(True);
  CheckRange('The interval', AIntervalMs, 1, 60000);
  FInterval := AIntervalMs;
  FScale := TScale.Create;
  FWake := TEvent.Create(nil, True, False, '');
end;

destructor TScaleThread.Destroy;
begin
  Terminate;
  if FWake <> nil then
    FWake.SetEvent;
  inherited Destroy; // waits for the thread
  FWake.Free;
  FScale.Free;
end;

procedure TScaleThread.Deliver;
begin
  if Terminated then
    Exit;
  try
    if FError = nil then
    begin
      if Assigned(FOnReading) then
        FOnReading(Self, FReading);
    end
    else if Assigned(FOnError) then
      FOnError(Self, FError);
  except
    // What an event raises is shown by the application, and does not end the thread.
    if not Assigned(ApplicationHandleException) then
      raise;
    ApplicationHandleException(Self);
  end;
end;

procedure TScaleThread.Execute;
begin
  while not Terminated do
  begin
    FError := nil;
    try
      FReading := FScale.Read;
    except
      FError := Exception(AcquireExceptionObject);
    end;
    try
      if not Terminated then
        Synchronize({$IFDEF FPC_OBJFPC}@{$ENDIF}Deliver);
    finally
      FreeAndNil(FError);
    end;
    FWake.WaitFor(FInterval);
  end;
end;

// ---- TTolvexWorker ----

type
  TWorkerItem = class
    Call: TWorkerCall;
    Done: TWorkerDone;
    Error: Exception;
    destructor Destroy; override;
  end;

destructor TWorkerItem.Destroy;
begin
  Error.Free;
  inherited Destroy;
end;

constructor TTolvexWorker.Create;
begin
  FLock := TCriticalSection.Create;
  FWake := TEvent.Create(nil, False, False, '');
  FWaiting := TList.Create;
  FDone := TList.Create;
  inherited Create(False);
end;

destructor TTolvexWorker.Destroy;
var
  I: Integer;
begin
  Terminate;
  if FWake <> nil then
    FWake.SetEvent;
  inherited Destroy; // waits for the thread, and takes back what it has not reported yet
  if FWaiting <> nil then
    for I := 0 to FWaiting.Count - 1 do
      TObject(FWaiting[I]).Free;
  if FDone <> nil then
    for I := 0 to FDone.Count - 1 do
      TObject(FDone[I]).Free;
  FWaiting.Free;
  FDone.Free;
  FWake.Free;
  FLock.Free;
end;

function TTolvexWorker.Take(AList: TList): TObject;
begin
  Result := nil;
  FLock.Acquire;
  try
    if AList.Count > 0 then
    begin
      Result := TObject(AList[0]);
      AList.Delete(0);
    end;
  finally
    FLock.Release;
  end;
end;

procedure TTolvexWorker.Put(AList: TList; AItem: TObject);
begin
  FLock.Acquire;
  try
    AList.Add(AItem);
  finally
    FLock.Release;
  end;
end;

procedure TTolvexWorker.Run(ACall: TWorkerCall; ADone: TWorkerDone);
var
  Item: TWorkerItem;
begin
  Item := TWorkerItem.Create;
  Item.Call := ACall;
  Item.Done := ADone;
  Put(FWaiting, Item);
  FWake.SetEvent;
end;

procedure TTolvexWorker.Report;
var
  Item: TWorkerItem;
begin
  Item := TWorkerItem(Take(FDone));
  if Item = nil then
    Exit;
  try
    if Assigned(Item.Done) then
      Item.Done(Item.Error);
  finally
    Item.Free;
  end;
end;

procedure TTolvexWorker.Execute;
var
  Item: TWorkerItem;
begin
  while not Terminated do
  begin
    Item := TWorkerItem(Take(FWaiting));
    if Item = nil then
    begin
      FWake.WaitFor(INFINITE);
      Continue;
    end;
    try
      Item.Call;
    except
      Item.Error := Exception(AcquireExceptionObject);
    end;
    Put(FDone, Item);
    Queue({$IFDEF FPC_OBJFPC}@{$ENDIF}Report);
  end;
end;

// ---- The library's functions ----

// generated: bodies
// Written by ./run bindings from src/api/exports.h. Do not edit.
type
  TRaw = function: Integer; cdecl;
  TRawI = function(A0: Integer): Integer; cdecl;
  TRawIP = function(A0: Integer; A1: PAnsiChar): Integer; cdecl;
  TRawP = function(A0: PAnsiChar): Integer; cdecl;
  TRawPI = function(A0: PAnsiChar; A1: Integer): Integer; cdecl;
  TRawPP = function(A0: PAnsiChar; A1: PAnsiChar): Integer; cdecl;
  TRawPPIPPUU = function(A0: PAnsiChar; A1: PAnsiChar; A2: Integer; A3: PAnsiChar; A4: PAnsiChar; A5:
    Cardinal; A6: Cardinal): Integer; cdecl;
  TRawPPPUU = function(A0: PAnsiChar; A1: PAnsiChar; A2: PAnsiChar; A3: Cardinal; A4: Cardinal):
    Integer; cdecl;
  TRawPPU = function(A0: PAnsiChar; A1: PAnsiChar; A2: Cardinal): Integer; cdecl;
  TRawPU = function(A0: PAnsiChar; A1: Cardinal): Integer; cdecl;
  TRawPUP = function(A0: PAnsiChar; A1: Cardinal; A2: PAnsiChar): Integer; cdecl;
  TRawPUU = function(A0: PAnsiChar; A1: Cardinal; A2: Cardinal): Integer; cdecl;
  TRawPUUU = function(A0: PAnsiChar; A1: Cardinal; A2: Cardinal; A3: Cardinal): Integer; cdecl;
  TRawU = function(A0: Cardinal): Integer; cdecl;
  TRawUP = function(A0: Cardinal; A1: PAnsiChar): Integer; cdecl;
  TRawUU = function(A0: Cardinal; A1: Cardinal): Integer; cdecl;

function read_baseinfo(ARecord: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(0);
  Result := TRawP(Call.Entry)(ARecord);
  Ended(Call);
end;

function read_baseinfo_stdcall(ARecord: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(1);
  Result := TRawP(Call.Entry)(ARecord);
  Ended(Call);
end;

function read_standard(ARecord: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(2);
  Result := TRawP(Call.Entry)(ARecord);
  Ended(Call);
end;

function read_standard_stdcall(ARecord: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(3);
  Result := TRawP(Call.Entry)(ARecord);
  Ended(Call);
end;

function send_zero: Integer;
var
  Call: TCall;
begin
  Call := Begun(4);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function send_zero_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(5);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function set_tare_bykey(AReply: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(6);
  Result := TRawP(Call.Entry)(AReply);
  Ended(Call);
end;

function set_tare_bykey_stdcall(AReply: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(7);
  Result := TRawP(Call.Entry)(AReply);
  Ended(Call);
end;

function send_tare(AReply: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(8);
  Result := TRawP(Call.Entry)(AReply);
  Ended(Call);
end;

function send_tare_stdcall(AReply: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(9);
  Result := TRawP(Call.Entry)(AReply);
  Ended(Call);
end;

function send_pre_tare(AText: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(10);
  Result := TRawP(Call.Entry)(AText);
  Ended(Call);
end;

function send_pre_tare_stdcall(AText: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(11);
  Result := TRawP(Call.Entry)(AText);
  Ended(Call);
end;

function clear_tare(AReply: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(12);
  Result := TRawP(Call.Entry)(AReply);
  Ended(Call);
end;

function clear_tare_stdcall(AReply: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(13);
  Result := TRawP(Call.Entry)(AReply);
  Ended(Call);
end;

function getLCVersion(ABuffer: PAnsiChar; ASize: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(14);
  Result := TRawPU(Call.Entry)(ABuffer, ASize);
  Ended(Call);
end;

function setOverloadAlarm(AEnable: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(15);
  Result := TRawU(Call.Entry)(AEnable);
  Ended(Call);
end;

function setHighResWeightMode(AOn: Integer): Integer;
var
  Call: TCall;
begin
  Call := Begun(16);
  Result := TRawI(Call.Entry)(AOn);
  Ended(Call);
end;

function getHighResWeightMode: Integer;
var
  Call: TCall;
begin
  Call := Begun(17);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function sendRawCmdToLC(ACommand: PAnsiChar; AParameters: PAnsiChar; AReply: PAnsiChar; ASize:
  Cardinal; AWait: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(18);
  Result := TRawPPPUU(Call.Entry)(ACommand, AParameters, AReply, ASize, AWait);
  Ended(Call);
end;

function PrintText(AText: PAnsiChar; AFontSize: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(19);
  Result := TRawPU(Call.Entry)(AText, AFontSize);
  Ended(Call);
end;

function PrintText_stdcall(AText: PAnsiChar; AFontSize: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(20);
  Result := TRawPU(Call.Entry)(AText, AFontSize);
  Ended(Call);
end;

function PrintTextByPaperWidth(AText: PAnsiChar; AFontSize: Cardinal; AWidth: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(21);
  Result := TRawPUU(Call.Entry)(AText, AFontSize, AWidth);
  Ended(Call);
end;

function PrintTextByPaperWidth_stdcall(AText: PAnsiChar; AFontSize: Cardinal; AWidth: Cardinal):
  Integer;
var
  Call: TCall;
begin
  Call := Begun(22);
  Result := TRawPUU(Call.Entry)(AText, AFontSize, AWidth);
  Ended(Call);
end;

function PrintBitmapFile(APath: PAnsiChar; AAngle: Integer): Integer;
var
  Call: TCall;
begin
  Call := Begun(23);
  Result := TRawPI(Call.Entry)(APath, AAngle);
  Ended(Call);
end;

function PrintBitmapFile_stdcall(APath: PAnsiChar; AAngle: Integer): Integer;
var
  Call: TCall;
begin
  Call := Begun(24);
  Result := TRawPI(Call.Entry)(APath, AAngle);
  Ended(Call);
end;

function PrintBitmapFileWithAlign(APath: PAnsiChar; AAngle: Cardinal; AAlign: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(25);
  Result := TRawPUU(Call.Entry)(APath, AAngle, AAlign);
  Ended(Call);
end;

function BeginPrint(AJobType: Integer): Integer;
var
  Call: TCall;
begin
  Call := Begun(26);
  Result := TRawI(Call.Entry)(AJobType);
  Ended(Call);
end;

function BeginPrint_stdcall(AJobType: Integer): Integer;
var
  Call: TCall;
begin
  Call := Begun(27);
  Result := TRawI(Call.Entry)(AJobType);
  Ended(Call);
end;

function printTextById(AText: PAnsiChar; AFontSize: Cardinal; APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(28);
  Result := TRawPUU(Call.Entry)(AText, AFontSize, APrinterType);
  Ended(Call);
end;

function printTextByPaperWidthById(AText: PAnsiChar; AFontSize: Cardinal; AWidth: Cardinal;
  APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(29);
  Result := TRawPUUU(Call.Entry)(AText, AFontSize, AWidth, APrinterType);
  Ended(Call);
end;

function printBitmapFileById(APath: PAnsiChar; AAngle: Cardinal; APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(30);
  Result := TRawPUU(Call.Entry)(APath, AAngle, APrinterType);
  Ended(Call);
end;

function sendRawCmdToPrt(APrinterName: PAnsiChar; ACommand: PAnsiChar; ANumber: Integer;
  AParameters: PAnsiChar; AReply: PAnsiChar; ASize: Cardinal; AWait: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(31);
  Result := TRawPPIPPUU(Call.Entry)(APrinterName, ACommand, ANumber, AParameters, AReply, ASize, AWait);
  Ended(Call);
end;

function printBlanks(ADistance: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(32);
  Result := TRawU(Call.Entry)(ADistance);
  Ended(Call);
end;

function printBlanks_stdcall(ADistance: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(33);
  Result := TRawU(Call.Entry)(ADistance);
  Ended(Call);
end;

function feedPaper: Integer;
var
  Call: TCall;
begin
  Call := Begun(34);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function feedPaper_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(35);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function feedPaperById(APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(36);
  Result := TRawU(Call.Entry)(APrinterType);
  Ended(Call);
end;

function cutPaper: Integer;
var
  Call: TCall;
begin
  Call := Begun(37);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function cutPaper_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(38);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function cutPaperById(APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(39);
  Result := TRawU(Call.Entry)(APrinterType);
  Ended(Call);
end;

function calibrateLabel(APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(40);
  Result := TRawU(Call.Entry)(APrinterType);
  Ended(Call);
end;

function testPaper(APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(41);
  Result := TRawU(Call.Entry)(APrinterType);
  Ended(Call);
end;

function setDefaultPaperWidth(AWidth: Cardinal; APrinterType: Cardinal): Integer; overload;
var
  Call: TCall;
begin
  Call := Begun(42);
  Result := TRawUU(Call.Entry)(AWidth, APrinterType);
  Ended(Call);
end;

function SetDefaultPaperWidth(AWidth: Cardinal): Integer; overload;
var
  Call: TCall;
begin
  Call := Begun(43);
  Result := TRawU(Call.Entry)(AWidth);
  Ended(Call);
end;

function SetDefaultPaperWidth_stdcall(AWidth: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(44);
  Result := TRawU(Call.Entry)(AWidth);
  Ended(Call);
end;

function setGapType(AGapType: Cardinal; APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(45);
  Result := TRawUU(Call.Entry)(AGapType, APrinterType);
  Ended(Call);
end;

function setPrinterDirection(ADirection: Cardinal; APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(46);
  Result := TRawUU(Call.Entry)(ADirection, APrinterType);
  Ended(Call);
end;

function setTextWrapMode(AWrapMode: Cardinal; APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(47);
  Result := TRawUU(Call.Entry)(AWrapMode, APrinterType);
  Ended(Call);
end;

function setLeftMargin(ALeftMargin: Cardinal; APrinterName: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(48);
  Result := TRawUP(Call.Entry)(ALeftMargin, APrinterName);
  Ended(Call);
end;

function setRightMargin(ARightMargin: Cardinal; APrinterName: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(49);
  Result := TRawUP(Call.Entry)(ARightMargin, APrinterName);
  Ended(Call);
end;

function setPaperOffset(AOffset: Cardinal; APrinterName: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(50);
  Result := TRawUP(Call.Entry)(AOffset, APrinterName);
  Ended(Call);
end;

function setPrintContrast(AContrast: Cardinal; APrinterName: PAnsiChar): Integer; overload;
var
  Call: TCall;
begin
  Call := Begun(51);
  Result := TRawUP(Call.Entry)(AContrast, APrinterName);
  Ended(Call);
end;

function setPrintSpeed(ASpeed: Cardinal; APrinterName: PAnsiChar): Integer; overload;
var
  Call: TCall;
begin
  Call := Begun(52);
  Result := TRawUP(Call.Entry)(ASpeed, APrinterName);
  Ended(Call);
end;

function setPrtAutoPrint(AEnable: Cardinal; APrinterName: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(53);
  Result := TRawUP(Call.Entry)(AEnable, APrinterName);
  Ended(Call);
end;

function setRollback(AEnable: Cardinal; APrinterName: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(54);
  Result := TRawUP(Call.Entry)(AEnable, APrinterName);
  Ended(Call);
end;

function setTakeupPaperSensor(AEnable: Integer; APrinterName: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(55);
  Result := TRawIP(Call.Entry)(AEnable, APrinterName);
  Ended(Call);
end;

function GetPrinterList(ABuffer: PAnsiChar; ASize: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(56);
  Result := TRawPU(Call.Entry)(ABuffer, ASize);
  Ended(Call);
end;

function GetPrinterList_stdcall(ABuffer: PAnsiChar; ASize: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(57);
  Result := TRawPU(Call.Entry)(ABuffer, ASize);
  Ended(Call);
end;

function GetPrinterStatus(APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(58);
  Result := TRawU(Call.Entry)(APrinterType);
  Ended(Call);
end;

function GetPrinterStatus_stdcall(APrinterType: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(59);
  Result := TRawU(Call.Entry)(APrinterType);
  Ended(Call);
end;

function getPrinterVersion(ABuffer: PAnsiChar; ASize: Cardinal; APrinterName: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(60);
  Result := TRawPUP(Call.Entry)(ABuffer, ASize, APrinterName);
  Ended(Call);
end;

function OpenCashDrawerEx: Integer;
var
  Call: TCall;
begin
  Call := Begun(61);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function OpenCashDrawerEx_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(62);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function checkConnection: Integer;
var
  Call: TCall;
begin
  Call := Begun(63);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function getLastErrCode: Integer;
var
  Call: TCall;
begin
  Call := Begun(64);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function getLogLevel(AModule: PAnsiChar; ABuffer: PAnsiChar; ASize: Cardinal): Integer;
var
  Call: TCall;
begin
  Call := Begun(65);
  Result := TRawPPU(Call.Entry)(AModule, ABuffer, ASize);
  Ended(Call);
end;

function setLogLevel(AModule: PAnsiChar; ALevel: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(66);
  Result := TRawPP(Call.Entry)(AModule, ALevel);
  Ended(Call);
end;

function SetServerIpForRemoteAccess(AIp: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(67);
  Result := TRawP(Call.Entry)(AIp);
  Ended(Call);
end;

function SetServerIpForRemoteAccess_stdcall(AIp: PAnsiChar): Integer;
var
  Call: TCall;
begin
  Call := Begun(68);
  Result := TRawP(Call.Entry)(AIp);
  Ended(Call);
end;

function ClosePrinterEx: Integer;
var
  Call: TCall;
begin
  Call := Begun(69);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ClosePrinterEx_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(70);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function DisplayUpdate: Integer;
var
  Call: TCall;
begin
  Call := Begun(71);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function DisplayUpdate_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(72);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function OpenDisplay: Integer;
var
  Call: TCall;
begin
  Call := Begun(73);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function OpenDisplay_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(74);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function OpenPrinter: Integer;
var
  Call: TCall;
begin
  Call := Begun(75);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function OpenPrinter_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(76);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetDataRows: Integer;
var
  Call: TCall;
begin
  Call := Begun(77);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetDataRows_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(78);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetHeaderReserveRows: Integer;
var
  Call: TCall;
begin
  Call := Begun(79);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetHeaderReserveRows_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(80);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetInvoiceParameter: Integer;
var
  Call: TCall;
begin
  Call := Begun(81);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetInvoiceParameter_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(82);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetPrintContrast: Integer; overload;
var
  Call: TCall;
begin
  Call := Begun(83);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetPrintContrast_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(84);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetPrintOffset: Integer;
var
  Call: TCall;
begin
  Call := Begun(85);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetPrintOffset_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(86);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetPrintSpeed: Integer; overload;
var
  Call: TCall;
begin
  Call := Begun(87);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetPrintSpeed_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(88);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetRealPrintHeaderWidth: Integer;
var
  Call: TCall;
begin
  Call := Begun(89);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetRealPrintHeaderWidth_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(90);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetScaleType: Integer;
var
  Call: TCall;
begin
  Call := Begun(91);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetScaleType_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(92);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetTakeLabelSensor: Integer;
var
  Call: TCall;
begin
  Call := Begun(93);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetTakeLabelSensor_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(94);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetTakeupMotorDirection: Integer;
var
  Call: TCall;
begin
  Call := Begun(95);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetTakeupMotorDirection_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(96);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetUSBPrinterDirection: Integer;
var
  Call: TCall;
begin
  Call := Begun(97);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetUSBPrinterDirection_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(98);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetUnitPrice: Integer;
var
  Call: TCall;
begin
  Call := Begun(99);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetUnitPrice_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(100);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ShowBalance: Integer;
var
  Call: TCall;
begin
  Call := Begun(101);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ShowBalance_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(102);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ShowDisplayText: Integer;
var
  Call: TCall;
begin
  Call := Begun(103);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ShowDisplayText_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(104);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ShowOrHideForm: Integer;
var
  Call: TCall;
begin
  Call := Begun(105);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ShowOrHideForm_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(106);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ShowProduct: Integer;
var
  Call: TCall;
begin
  Call := Begun(107);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function ShowProduct_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(108);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function switch_resolution: Integer;
var
  Call: TCall;
begin
  Call := Begun(109);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function switch_resolution_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(110);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function PrintLabelImage: Integer;
var
  Call: TCall;
begin
  Call := Begun(111);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function PrintLabelImage_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(112);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function Version: Integer;
var
  Call: TCall;
begin
  Call := Begun(113);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function Version_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(114);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function DisplayText: Integer;
var
  Call: TCall;
begin
  Call := Begun(115);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function DisplayText_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(116);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function IncreaseResolution: Integer;
var
  Call: TCall;
begin
  Call := Begun(117);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function IncreaseResolution_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(118);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetClientName: Integer;
var
  Call: TCall;
begin
  Call := Begun(119);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;

function SetClientName_stdcall: Integer;
var
  Call: TCall;
begin
  Call := Begun(120);
  Result := TRaw(Call.Entry)();
  Ended(Call);
end;
// generated: end

initialization
  WeighingLock.Prepare;
  PrintingLock.Prepare;
  LoadingLock.Prepare;
end.
