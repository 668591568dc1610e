/* tolvex - device adapter library for point-of-sale applications (x64).
 *
 * The public interface of tolvex_dll.dll and libtolvex_dll.so, for C and C++.
 *
 * Conventions, which hold for every function unless its own text says otherwise:
 *
 *  1. Results. A function "returning a verdict" gives TOLVEX_OK (240) or TOLVEX_FAILED (255). A
 *     function "returning a code" gives a result code: 0 for success, otherwise one of enum
 *     tolvex_result or whatever code the service answered; TOLVEX_UNREADABLE_REPLY (-1) is a reply
 *     that could not be read.
 *  2. Last error. Behind every verdict stands a code; getLastErrCode() reads that of the latest
 *     command. Functions that send no command leave it alone.
 *  3. First call. The first function that needs the service creates the library's context: it reads
 *     zelkad_ip_config.ini beside the running executable (section [zelkad], key ip_addr), opens the
 *     log in c:\VARN\Log\ (Linux: ${XDG_STATE_HOME:-$HOME/.local/state}/varn/log/) and connects to
 *     ports 53264 (weighing) and 53265 (printing). It lives until the process ends.
 *  4. Time. Every function returns when its work is done. One that talks to the service takes at
 *     most the 40 s wait for the reply, plus up to 1 s for each connect.
 *  5. Threads. Any thread may call. Commands on one connection wait for each other.
 *  6. Text going in is NUL-terminated 8-bit text, sent as it is. A null text counts as empty where
 *     nothing else is said.
 *  7. Buffers belong to the caller. They are written on success only, never beyond the stated size,
 *     and copied like strncpy: a text as long as the size or longer has NO terminating NUL, and a
 *     shorter one is followed by NULs up to the size. "Exact" copies write no NUL at all: zero the
 *     buffer beforehand. A null buffer is never written.
 *  8. Log. Failures are logged at level 5, entry and success at level 6, as said with the function;
 *     the request and the reply at level 2 (off by default), a failed connection under "Socket".
 *  9. Exceptions and memory. No exception leaves a function. When memory runs out a verdict is 255
 *     and a code is 1.
 * 10. Names. On x64 there is one calling convention. A function with a twin exists under a second
 *     name with the suffix _stdcall, which does exactly the same.
 */
#ifndef TOLVEX_EXPORTS_H
#define TOLVEX_EXPORTS_H

#include <stdint.h> /* NOLINT(modernize-deprecated-headers): C too */

#if defined(_WIN32) && defined(TOLVEX_BUILDING_LIBRARY)
#define TOLVEX_API __declspec(dllexport)
#elif defined(_WIN32)
#define TOLVEX_API __declspec(dllimport)
#elif defined(__GNUC__)
#define TOLVEX_API __attribute__((visibility("default")))
#else
#define TOLVEX_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Results ---- */

#define TOLVEX_OK 240
#define TOLVEX_FAILED 255
#define TOLVEX_UNDER_LOAD (-1) /* read_standard only */
#define TOLVEX_OVER_LOAD (-2)  /* read_standard only */
#define TOLVEX_UNREADABLE_REPLY (-1)

/* Result codes, shared with the service. */
enum tolvex_result {
  TOLVEX_RESULT_OK = 0,
  TOLVEX_RESULT_UNKNOWN = 1,
  TOLVEX_RESULT_INVALID_PARAM = 2,
  TOLVEX_RESULT_SOCKET_LISTEN_FAIL = 3,
  TOLVEX_RESULT_SOCKET_INTERRUPT = 4,
  TOLVEX_RESULT_BUFFER_NOT_ENOUGH = 5,
  TOLVEX_RESULT_TOO_MUCH_TO_PRINT = 6,
  TOLVEX_RESULT_JSON_ERR = 7,
  TOLVEX_RESULT_MISS_PARAM = 8,
  TOLVEX_RESULT_VERSION_INCOMPATIBLE = 9,
  TOLVEX_RESULT_COMMAND_RETURN_FAIL = 10,
  TOLVEX_RESULT_LC_CONNECTION_FAIL = 1001,
  TOLVEX_RESULT_UNSUPPORT_WEIGHT_CMD = 1002,
  TOLVEX_RESULT_UNDER_LOAD = 1003,
  TOLVEX_RESULT_OVER_LOAD = 1004,
  TOLVEX_RESULT_WEIGHT_NOT_STABLE = 1005,
  TOLVEX_RESULT_INVALID_WEIGHT = 1006,
  TOLVEX_RESULT_LC_NOT_CONNECTED = 1007,
  TOLVEX_RESULT_PRT_CONNECTION_FAIL = 2001,
  TOLVEX_RESULT_UNSUPPORT_PRINT_CMD = 2002,
  TOLVEX_RESULT_PRT_DRV_RETURN_ERROR = 2003,
  TOLVEX_RESULT_PRINTER_IS_BUSY = 2005,
  TOLVEX_RESULT_OUT_OF_PAPER = 2006,
  TOLVEX_RESULT_PRINT_HEAD_IS_HOT = 2007,
  TOLVEX_RESULT_PRINTER_NOT_FOUND = 2008,
  TOLVEX_RESULT_ILLEGAL_PRINT_HEAD = 2009,
  TOLVEX_RESULT_PRT_STATUS_ABNORMAL = 2010
};

/* ---- Records ---- */

/* What read_baseinfo fills in: 64 bytes, little-endian. Pass its address as (char *)&info. */
typedef struct tolvex_base_info {
  int32_t max_range[3];    /* capacity of each range, in the service's unit, whole numbers */
  int32_t min_range;       /* least weight, in thousandths of the unit */
  int32_t max_tare;        /* in thousandths of the unit */
  int32_t max_preset_tare; /* in thousandths of the unit */
  int32_t resolution[3];   /* division of each range, in thousandths of the unit */
  char weight_unit[4];     /* for example "kg"; no NUL after four characters */
  char reserved[4];        /* zero */
  char system_version[20]; /* no NUL after twenty characters */
} tolvex_base_info;

/* Bits of tolvex_weight.status. */
#define TOLVEX_WEIGHT_STABLE 0x01
#define TOLVEX_WEIGHT_AT_ZERO 0x02
#define TOLVEX_WEIGHT_TARE_ACTIVE 0x04

/* What read_standard fills in: 24 bytes. Pass its address as (char *)&weight. */
typedef struct tolvex_weight {
  unsigned char status; /* TOLVEX_WEIGHT_ bits */
  char net[7];          /* net weight as text, for example "01.5000" or "-12.500"; no NUL */
  char mark;            /* 'P'; NUL in the all-zero record of an invalid weight */
  char tare[7];         /* tare weight as text, four decimals; a longer one runs on into rest */
  char rest[8];         /* NUL behind the tare text */
} tolvex_weight;

/* ---- Weighing ---- */

/* Reads the scale's base information into record (64 bytes, tolvex_base_info).
 * Returns a verdict. Log: level 6 "[client][read_baseinfo] Enter", and at the end, success or not,
 * "[client][read_baseinfo] End, RESULT,REPLY"; level 5 "[read_baseinfo] Input param is NULL". */
TOLVEX_API int read_baseinfo(char *record);
TOLVEX_API int read_baseinfo_stdcall(char *record);

/* Reads the weight into record (24 bytes, tolvex_weight).
 * Returns TOLVEX_OK: the record holds a stable or an unstable weight (see the status bits), or
 * nothing but zeros when the scale reports an invalid weight; TOLVEX_UNDER_LOAD or
 * TOLVEX_OVER_LOAD: the record is untouched; TOLVEX_FAILED.
 * Log: level 6 "[client][getWeight] Oh Ye~"; level 5 "[client][read_standard] Err:CODE",
 * "[read_standard] Input param is NULL". */
TOLVEX_API int read_standard(char *record);
TOLVEX_API int read_standard_stdcall(char *record);

/* Sets the scale to zero. Returns a verdict. Log: level 6 "[client][send_zero] Enter" and
 * "[client][send_zero] OK"; level 5 "[send_zero] Err:CODE". */
TOLVEX_API int send_zero(void);
TOLVEX_API int send_zero_stdcall(void);

/* Takes what lies on the scale as the tare. reply (at least 10 bytes) gets the tare as text, unless
 * the host application is "Kelvarin" or "Lumidesk": for those it is left as it was.
 * Returns a verdict. Log: level 6 "[client][set_tare_bykey] Enter" and "... OK"; level 5
 * "[set_tare_bykey] Err:CODE", "[set_tare_bykey] Input param is NULL". */
TOLVEX_API int set_tare_bykey(char *reply);
TOLVEX_API int set_tare_bykey_stdcall(char *reply);

/* The same as set_tare_bykey, with one more line at its head: level 6 "[client][send_tare] Enter".
 */
TOLVEX_API int send_tare(char *reply);
TOLVEX_API int send_tare_stdcall(char *reply);

/* Clears the tare. The text that the caller passes is logged and goes no further: the scale is
 * asked to clear its tare, and text (at least 10 bytes) gets the tare that is left, with the same
 * exception as set_tare_bykey.
 * Returns a verdict. Log: level 6 "[client][send_pre_tare] Enter TEXT" and "... OK"; level 5
 * "[send_pre_tare] Err:CODE", "[send_pre_tare] Input param is NULL". */
TOLVEX_API int send_pre_tare(char *text);
TOLVEX_API int send_pre_tare_stdcall(char *text);

/* Clears the tare; reply (at least 10 bytes) as for set_tare_bykey. Returns a verdict.
 * Log: level 6 "[client][clear_tare] Enter" and "... OK"; level 5 "[clear_tare] Err:CODE",
 * "[clear_tare] Input param is NULL". */
TOLVEX_API int clear_tare(char *reply);
TOLVEX_API int clear_tare_stdcall(char *reply);

/* Copies the reply with the weighing service's version, as JSON text, into buffer of size bytes.
 * Returns a code; 5 when the reply is longer than size or buffer is null. Whatever the code, a
 * reply that came is copied, a longer one up to size. */
TOLVEX_API int getLCVersion(char *buffer, unsigned int size);

/* Switches the scale's overload alarm on (non-zero) or off (0); the number is sent as it is, on the
 * printing connection. Returns a code. */
TOLVEX_API int setOverloadAlarm(unsigned int enable);

/* Chooses what read_standard reads as the net weight: 0 the ordinary one (the state at start),
 * anything else the high-resolution one. Sends nothing. Returns 0. */
TOLVEX_API int setHighResWeightMode(int on);

/* Returns 1 when the high-resolution net weight is read, else 0. Sends nothing. */
TOLVEX_API int getHighResWeightMode(void);

/* Sends any command to the weighing service. parameters becomes the request's "paramList" unless it
 * is null or empty. reply of size bytes gets the whole reply as JSON text; it may be null. wait is
 * the longest wait for the reply, in milliseconds.
 * Returns a code; 5 for a null command, and when the reply is longer than size. Whatever the code,
 * a reply that came is copied, a longer one up to size. The last error is set by a null command
 * only. */
TOLVEX_API int sendRawCmdToLC(char *command, char *parameters, char *reply, unsigned int size,
                              unsigned int wait);

/* ---- Information ---- */

/* Returns 1 when the service answers on the weighing connection, whatever it answers; 0 when it
 * does not. */
TOLVEX_API int checkConnection(void);

/* Returns the code of the latest command, 0 before the first one. Sends nothing. */
TOLVEX_API int getLastErrCode(void);

/* ---- The service's log ---- */

/* Copies the log level of the service's module "print" or "loadcell" into buffer of size bytes:
 * exactly its text, so zero the buffer beforehand. Returns a code: 1 for any other module, 5 when
 * the text is longer than size or buffer is null, 7 when the reply holds no level. */
TOLVEX_API int getLogLevel(char *module, char *buffer, unsigned int size);

/* Sets the log level (text) of the service's module "print" or "loadcell". Returns a code: 1 for
 * any other module, 2 when an argument is null. */
TOLVEX_API int setLogLevel(char *module, char *level);

/* ---- Configuration ---- */

/* Takes the dotted IPv4 address as that of the service. Call it before every other function that
 * needs the service: connections that exist keep their address, and the INI file is read only when
 * no address was set this way.
 * Returns a verdict; 255 for everything that is not such an address. Log: level 5 "[DLL] setting
 * Server IP from SetServerIpForRemoteAccess API, IP: TEXT", or "[DLL] setting Server IP failed from
 * ..."; these lines open the logger before the library has named its folder, so the log of this
 * process lies in c:\Corvane\Log\ (Linux: .../corvane/log/). */
TOLVEX_API int SetServerIpForRemoteAccess(const char *ip);
TOLVEX_API int SetServerIpForRemoteAccess_stdcall(const char *ip);

/* ---- Functions without a device ---- */

/* They exist so that applications written for a fuller interface still bind. Whatever arguments an
 * application passes are ignored; nothing is sent, logged or connected, and the last error stays.
 * Each returns TOLVEX_OK ... */
TOLVEX_API int ClosePrinterEx(void);
TOLVEX_API int ClosePrinterEx_stdcall(void);
TOLVEX_API int DisplayUpdate(void);
TOLVEX_API int DisplayUpdate_stdcall(void);
TOLVEX_API int OpenDisplay(void);
TOLVEX_API int OpenDisplay_stdcall(void);
#ifndef OpenPrinter /* <windows.h> makes this name one of the spooler's; there it is not declared \
                     */
TOLVEX_API int OpenPrinter(void);
#endif
TOLVEX_API int OpenPrinter_stdcall(void);
TOLVEX_API int SetDataRows(void);
TOLVEX_API int SetDataRows_stdcall(void);
TOLVEX_API int SetHeaderReserveRows(void);
TOLVEX_API int SetHeaderReserveRows_stdcall(void);
TOLVEX_API int SetInvoiceParameter(void);
TOLVEX_API int SetInvoiceParameter_stdcall(void);
TOLVEX_API int SetPrintContrast(void);
TOLVEX_API int SetPrintContrast_stdcall(void);
TOLVEX_API int SetPrintOffset(void);
TOLVEX_API int SetPrintOffset_stdcall(void);
TOLVEX_API int SetPrintSpeed(void);
TOLVEX_API int SetPrintSpeed_stdcall(void);
TOLVEX_API int SetRealPrintHeaderWidth(void);
TOLVEX_API int SetRealPrintHeaderWidth_stdcall(void);
TOLVEX_API int SetScaleType(void);
TOLVEX_API int SetScaleType_stdcall(void);
TOLVEX_API int SetTakeLabelSensor(void);
TOLVEX_API int SetTakeLabelSensor_stdcall(void);
TOLVEX_API int SetTakeupMotorDirection(void);
TOLVEX_API int SetTakeupMotorDirection_stdcall(void);
TOLVEX_API int SetUSBPrinterDirection(void);
TOLVEX_API int SetUSBPrinterDirection_stdcall(void);
TOLVEX_API int SetUnitPrice(void);
TOLVEX_API int SetUnitPrice_stdcall(void);
TOLVEX_API int ShowBalance(void);
TOLVEX_API int ShowBalance_stdcall(void);
TOLVEX_API int ShowDisplayText(void);
TOLVEX_API int ShowDisplayText_stdcall(void);
TOLVEX_API int ShowOrHideForm(void);
TOLVEX_API int ShowOrHideForm_stdcall(void);
TOLVEX_API int ShowProduct(void);
TOLVEX_API int ShowProduct_stdcall(void);
TOLVEX_API int switch_resolution(void);
TOLVEX_API int switch_resolution_stdcall(void);

/* ... this one returns TOLVEX_FAILED ... */
TOLVEX_API int PrintLabelImage(void);
TOLVEX_API int PrintLabelImage_stdcall(void);

/* ... and what these return has no meaning. */
TOLVEX_API int Version(void);
TOLVEX_API int Version_stdcall(void);
TOLVEX_API int DisplayText(void);
TOLVEX_API int DisplayText_stdcall(void);
TOLVEX_API int IncreaseResolution(void);
TOLVEX_API int IncreaseResolution_stdcall(void);
TOLVEX_API int SetClientName(void);
TOLVEX_API int SetClientName_stdcall(void);

#ifdef __cplusplus
}
#endif

#endif /* TOLVEX_EXPORTS_H */
