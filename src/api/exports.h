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
 *  5. Threads. Any thread may call. Commands on one connection wait for each other. The print job
 *     is the exception: one thread queues it and ends it with BeginPrint.
 *  6. Text going in is NUL-terminated 8-bit text, sent as it is. "ANSI text" is in the system's
 *     ANSI code page (Linux: the character set of the user's locale - LC_ALL, LC_CTYPE or LANG -
 *     and UTF-8 where none is set) and goes out as UTF-8. A null text counts as empty where nothing
 *     else is said.
 *  7. Buffers belong to the caller. They are written on success only, never beyond the stated size,
 *     and copied like strncpy: a text as long as the size or longer has NO terminating NUL, and a
 *     shorter one is followed by NULs up to the size. "Exact" copies write no NUL at all: zero the
 *     buffer beforehand. A null buffer is never written.
 *  8. Printers. A printer type is a number that the service understands: 0 the label printer, 1 the
 *     ticket printer, 2 a third one, TOLVEX_DEFAULT_PRINTER (100) whichever is the default. A
 *     printer name is one of those that GetPrinterList tells, at most 255 bytes; a longer one or a
 *     null is result code 2. Values of settings go out as they are: their meaning and range are the
 *     service's.
 *  9. Log. Each function says which lines it writes, with their levels (5 failures, 6 entry and
 *     outcome); "client" is the host application's name. Behind them stand the request and the
 *     reply at level 2 (off by default), failures of the exchange at level 5, and those of a
 *     connection under "Socket".
 * 10. Exceptions and memory. No exception leaves a function. When memory runs out a verdict is 255
 *     and a code is 1.
 * 11. Names. On x64 there is one calling convention. A function with a twin exists under a second
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

#define TOLVEX_OK 240                /* done */
#define TOLVEX_FAILED 255            /* failed; getLastErrCode() says why */
#define TOLVEX_UNDER_LOAD (-1)       /* read_standard only */
#define TOLVEX_OVER_LOAD (-2)        /* read_standard only */
#define TOLVEX_FONT_TOO_SMALL 242    /* PrintText and PrintTextByPaperWidth only */
#define TOLVEX_FONT_TOO_BIG 243      /* PrintText and PrintTextByPaperWidth only */
#define TOLVEX_UNREADABLE_REPLY (-1) /* of functions returning a code, and of getLastErrCode */

#define TOLVEX_DEFAULT_PRINTER 100 /* a printer type */

/* The result codes, shared with the service: number, name, the same in mixed case, the code's own
 * text, what it means, and what to do about it (texts in ASCII). This is the one list: the enum
 * below is made of it, and an application's own table can be, too:
 *
 *   #define ROW(code, NAME, Name, text, meaning, remedy) {code, text, remedy},
 *   static const struct { int code; const char *text, *remedy; } rows[] = {TOLVEX_RESULT_CODES(ROW)};
 */
#define TOLVEX_RESULT_CODES(CODE)                                                               \
  CODE(0, OK, Ok, "OK", "The command was carried out.", "Nothing.")                             \
  CODE(1, UNKNOWN, Unknown, "Unknown",                                                          \
       "A failure without a more exact code; also a print job with nothing queued, and a name " \
       "that the command does not know.",                                                       \
       "Queue a line or an image before BeginPrint, and check the arguments. The log and the "  \
       "service's own log say more.")                                                           \
  CODE(2, INVALID_PARAM, InvalidParam, "Invalid Param",                                         \
       "An argument is out of its range, null where it must not be, or not known to the "       \
       "device.",                                                                               \
       "Check the arguments against exports.h; printer names are those of GetPrinterList.")     \
  CODE(3, SOCKET_LISTEN_FAIL, SocketListenFail, "Socket Listen Fail",                           \
       "The service could not listen on one of its ports.",                                     \
       "Find the other program that uses port 53264 or 53265, end it, and restart the "         \
       "service.")                                                                              \
  CODE(4, SOCKET_INTERRUPT, SocketInterrupt, "Socket Interrupt",                                \
       "The service did not take the command or did not answer it: it is not running, is at "   \
       "another address, closed the connection, or kept silent for the whole wait.",            \
       "Start the service, check the address in zelkad_ip_config.ini and the firewall (ports "  \
       "53264 and 53265), and try again. A print command may have been carried out: look at "   \
       "the paper first.")                                                                      \
  CODE(5, BUFFER_NOT_ENOUGH, BufferNotEnough, "Buffer Not Enough",                              \
       "The answer does not fit the caller's buffer, or no buffer was given.",                  \
       "Pass a larger buffer; a reply has at most 2048 bytes.")                                 \
  CODE(6, TOO_MUCH_TO_PRINT, TooMuchToPrint, "Too Much To Print",                               \
       "A line has more than 2048 bytes of UTF-8, or a job is longer than the printer takes.",  \
       "Break the text into shorter lines, or print it with PrintTextByPaperWidth; print a "    \
       "long job as several.")                                                                  \
  CODE(7, JSON_ERR, JsonErr, "Json Err",                                                        \
       "The request or the reply is not the JSON that the other side expects.",                 \
       "Check that library and service are of the same version; with DLL=2 in NLog.ini the "    \
       "log shows both texts.")                                                                 \
  CODE(8, MISS_PARAM, MissParam, "Miss param",                                                  \
       "The request lacks a parameter that the command needs.",                                 \
       "Check that library and service are of the same version; with a raw command, add the "   \
       "parameter.")                                                                            \
  CODE(9, VERSION_INCOMPATIBLE, VersionIncompatible, "Version Incompatible",                    \
       "The service does not work with this version of the library.",                           \
       "Bring library and service to versions that belong together.")                           \
  CODE(10, COMMAND_RETURN_FAIL, CommandReturnFail, "Command return fail",                       \
       "The device took the command and reported that it failed.",                              \
       "Try again; if it stays, switch the device off and on, and read the service's log.")     \
  CODE(1001, LC_CONNECTION_FAIL, LcConnectionFail, "LC Connection Fail",                        \
       "There is no connection for weighing.",                                                  \
       "Check that the service is running and that port 53264 can be reached, then restart "    \
       "the application.")                                                                      \
  CODE(1002, UNSUPPORT_WEIGHT_CMD, UnsupportWeightCmd, "Unsupport Weight Cmd",                  \
       "This scale or this service does not know the weighing command.",                        \
       "Bring the service up to date, or do without the command on this scale.")                \
  CODE(1003, UNDER_LOAD, UnderLoad, "Under Load",                                               \
       "The scale carries less than it can show: a plate is missing, or it was zeroed with a "  \
       "load on it.",                                                                           \
       "Put the plate back, empty the scale and zero it.")                                      \
  CODE(1004, OVER_LOAD, OverLoad, "Over Load", "There is more on the scale than it can weigh.", \
       "Take the load off at once and weigh it in parts.")                                      \
  CODE(1005, WEIGHT_NOT_STABLE, WeightNotStable, "Weight Not Stable",                           \
       "The weight has not settled.", "Wait until the goods lie still, and read again.")        \
  CODE(1006, INVALID_WEIGHT, InvalidWeight, "Invalid Weight",                                   \
       "The scale has no valid weight, for example before its zero is found.",                  \
       "Empty the scale and zero it; if that does not help, switch it off and on.")             \
  CODE(1007, LC_NOT_CONNECTED, LcNotConnected, "LC not connected",                              \
       "The service cannot reach the scale.",                                                   \
       "Check the scale's cable and power, then its port in the service's settings.")           \
  CODE(2001, PRT_CONNECTION_FAIL, PrtConnectionFail, "Prt Connection Fail",                     \
       "There is no connection for printing, or the service cannot reach the printer.",         \
       "Check the printer's cable and power, that the service is running, and that port 53265 " \
       "can be reached.")                                                                       \
  CODE(2002, UNSUPPORT_PRINT_CMD, UnsupportPrintCmd, "Unsupport Print Cmd",                     \
       "This printer or this service does not know the print command.",                         \
       "Bring the service up to date, or do without the command on this printer.")              \
  CODE(2003, PRT_DRV_RETURN_ERROR, PrtDrvReturnError, "Prt-drv Return Error",                   \
       "The printer's driver reported an error.",                                               \
       "Switch the printer off and on; if it stays, read the service's log and renew the "      \
       "driver.")                                                                               \
  CODE(2005, PRINTER_IS_BUSY, PrinterIsBusy, "Printer is Busy",                                 \
       "The printer is still at work on something else.", "Wait a moment and try again.")       \
  CODE(2006, OUT_OF_PAPER, OutOfPaper, "Out of Paper", "The printer has no paper left.",        \
       "Put in new paper, close the cover, and print the job again: what came out before is "   \
       "not complete.")                                                                         \
  CODE(2007, PRINT_HEAD_IS_HOT, PrintHeadIsHot, "Print Head is Hot",                            \
       "The print head is too hot to print.",                                                   \
       "Let it cool down, then print the job again; a lower contrast heats it less.")           \
  CODE(2008, PRINTER_NOT_FOUND, PrinterNotFound, "Printer Not Found",                           \
       "There is no printer of this name or type.",                                             \
       "Take a name of GetPrinterList, or a printer type that the service has (100 is its "     \
       "default).")                                                                             \
  CODE(2009, ILLEGAL_PRINT_HEAD, IllegalPrintHead, "Illegal Print Head",                        \
       "The printer does not accept its print head.",                                           \
       "Put in the head that belongs to the printer, and have it serviced.")                    \
  CODE(2010, PRT_STATUS_ABNORMAL, PrtStatusAbnormal, "Prt Status Abnormal",                     \
       "The printer reports a state in which it does not print, such as an open cover.",        \
       "Close the cover, look for jammed paper, and switch the printer off and on.")

/* What functions answer beside the result codes, in the same way: constant, text, meaning, remedy.
 * -1 stands here twice, with a meaning for each kind of function. */
#define TOLVEX_ANSWERS(ANSWER)                                                                 \
  ANSWER(TOLVEX_OK, "Done", "The function did what it was called for.", "Nothing.")            \
  ANSWER(TOLVEX_FAILED, "Failed",                                                              \
         "The function failed; a missing argument is one reason, a command that failed "       \
         "another.",                                                                           \
         "Ask getLastErrCode() for the result code behind it, and read the log.")              \
  ANSWER(TOLVEX_FONT_TOO_SMALL, "Font too small",                                              \
         "PrintText and PrintTextByPaperWidth: the font size is below 12.",                    \
         "Pass a size of 12 to 72.")                                                           \
  ANSWER(TOLVEX_FONT_TOO_BIG, "Font too big",                                                  \
         "PrintText and PrintTextByPaperWidth: the font size is above 72.",                    \
         "Pass a size of 12 to 72.")                                                           \
  ANSWER(TOLVEX_UNREADABLE_REPLY, "Unreadable reply",                                          \
         "A function returning a code, or the last error: the reply is not JSON, was cut off " \
         "or came in pieces, or has no text as its \"result\".",                               \
         "Check that the program at ports 53264 and 53265 is the service; with DLL=2 in "      \
         "NLog.ini the log shows the reply.")                                                  \
  ANSWER(TOLVEX_UNDER_LOAD, "Under load",                                                      \
         "read_standard: the scale carries less than it can show (result code 1003).",         \
         "Put the plate back, empty the scale and zero it.")                                   \
  ANSWER(TOLVEX_OVER_LOAD, "Over load",                                                        \
         "read_standard: there is more on the scale than it can weigh (result code 1004).",    \
         "Take the load off at once and weigh it in parts.")

/* TOLVEX_RESULT_OK, TOLVEX_RESULT_OUT_OF_PAPER and so on. */
enum tolvex_result {
#define TOLVEX_RESULT_NAME(code, NAME, Name, text, meaning, remedy) TOLVEX_RESULT_##NAME = code,
  TOLVEX_RESULT_CODES(TOLVEX_RESULT_NAME)
#undef TOLVEX_RESULT_NAME
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
#define TOLVEX_WEIGHT_STABLE 0x01      /* the weight has settled */
#define TOLVEX_WEIGHT_AT_ZERO 0x02     /* nothing is on the scale */
#define TOLVEX_WEIGHT_TARE_ACTIVE 0x04 /* a tare is subtracted */

/* What read_standard fills in: 24 bytes. Pass its address as (char *)&weight. */
typedef struct tolvex_weight {
  unsigned char status; /* TOLVEX_WEIGHT_ bits */
  char net[7];          /* net weight as text, for example "01.5000" or "-12.500"; no NUL */
  char mark;            /* 'P'; NUL in the all-zero record of an invalid weight */
  char tare[7];         /* tare weight as text, four decimals; a longer one runs on into rest */
  char rest[8];         /* NUL behind the tare text */
} tolvex_weight;

/* ---- Weighing ---- */

/* Reads the scale's base information into record (64 bytes, tolvex_base_info). Returns a verdict.
 * Log: 6 "[client][read_baseinfo] Enter"
 *      6 "[client][read_baseinfo] End, RESULT,REPLY", success or not
 *      5 "[read_baseinfo] Input param is NULL" */
TOLVEX_API int read_baseinfo(char *record);
TOLVEX_API int read_baseinfo_stdcall(char *record);

/* Reads the weight into record (24 bytes, tolvex_weight).
 * Returns TOLVEX_OK: the record holds a stable or an unstable weight (see the status bits), or
 * nothing but zeros when the scale reports an invalid weight; TOLVEX_UNDER_LOAD or
 * TOLVEX_OVER_LOAD: the record is untouched; TOLVEX_FAILED.
 * Log: 6 "[client][getWeight] Oh Ye~"
 *      5 "[client][read_standard] Err:CODE"
 *      5 "[read_standard] Input param is NULL" */
TOLVEX_API int read_standard(char *record);
TOLVEX_API int read_standard_stdcall(char *record);

/* Sets the scale to zero. Returns a verdict.
 * Log: 6 "[client][send_zero] Enter", "[client][send_zero] OK"
 *      5 "[send_zero] Err:CODE" */
TOLVEX_API int send_zero(void);
TOLVEX_API int send_zero_stdcall(void);

/* Takes what lies on the scale as the tare. reply (at least 10 bytes) gets the tare as text, unless
 * the host application is "Kelvarin" or "Lumidesk": for those it is left as it was.
 * Returns a verdict.
 * Log: 6 "[client][set_tare_bykey] Enter", "[client][set_tare_bykey] OK"
 *      5 "[set_tare_bykey] Err:CODE", "[set_tare_bykey] Input param is NULL" */
TOLVEX_API int set_tare_bykey(char *reply);
TOLVEX_API int set_tare_bykey_stdcall(char *reply);

/* The same as set_tare_bykey, with one more line at its head.
 * Log: 6 "[client][send_tare] Enter", then as set_tare_bykey */
TOLVEX_API int send_tare(char *reply);
TOLVEX_API int send_tare_stdcall(char *reply);

/* Clears the tare. The text that the caller passes is logged and goes no further: the scale is
 * asked to clear its tare, and text (at least 10 bytes) gets the tare that is left, with the same
 * exception as set_tare_bykey.
 * Returns a verdict.
 * Log: 6 "[client][send_pre_tare] Enter TEXT", "[client][send_pre_tare] OK"
 *      5 "[send_pre_tare] Err:CODE", "[send_pre_tare] Input param is NULL" */
TOLVEX_API int send_pre_tare(char *text);
TOLVEX_API int send_pre_tare_stdcall(char *text);

/* Clears the tare; reply (at least 10 bytes) as for set_tare_bykey. Returns a verdict.
 * Log: 6 "[client][clear_tare] Enter", "[client][clear_tare] OK"
 *      5 "[clear_tare] Err:CODE", "[clear_tare] Input param is NULL" */
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
TOLVEX_API int sendRawCmdToLC(const char *command, const char *parameters, char *reply,
                              unsigned int size, unsigned int wait);

/* ---- Printing: the job ---- */

/* A job is queued line by line and image by image - PrintText, PrintTextByPaperWidth,
 * PrintBitmapFile, PrintBitmapFileWithAlign, which send nothing - and goes to the printer with
 * BeginPrint. There is one queue in the process. It holds any number of lines, up to 2.5 GiB. */

/* Queues ANSI text for BeginPrint: one line, or one for each line feed in it (LF or CR LF; an empty
 * line prints as a blank one; a line feed at the end begins no further line). fontSize is the
 * height of the characters in dots, 12 to 72. A line of more than 2048 bytes of UTF-8 is queued,
 * but refused when it is printed: BeginPrint then fails with code 6.
 * Returns a verdict, TOLVEX_FONT_TOO_SMALL or TOLVEX_FONT_TOO_BIG; an empty text is TOLVEX_OK and
 * queues nothing. The last error stays.
 * Log: 6 "[client][PrintText] font:SIZE [TEXT]"
 *      5 "[PrintText] Input param is NULL"
 *      5 "[PrintText] Input param len is 0"
 *      5 "[PrintText] font size too big:SIZE", "[PrintText] font size too small:SIZE" */
TOLVEX_API int PrintText(const char *text, unsigned int fontSize);
TOLVEX_API int PrintText_stdcall(const char *text, unsigned int fontSize);

/* The same for paper of the given width in millimetres, with lines of any length: more than 80
 * counts as 80, and 0 goes out as 0.
 * Log: 6 "[PrintTextByPaperWidth] TEXT"
 *      5 "[PrintTextByPaperWidth] Input param is NULL"
 *      5 "[PrintTextByPaperWidth] Input param len is 0"
 *      5 the font size, under PrintText's name */
TOLVEX_API int PrintTextByPaperWidth(const char *text, unsigned int fontSize, unsigned int width);
TOLVEX_API int PrintTextByPaperWidth_stdcall(const char *text, unsigned int fontSize,
                                             unsigned int width);

/* Queues an image file for BeginPrint; path is ANSI text. angle goes out as a 16-bit number,
 * usually 0, 90, 180 or 270.
 *
 * The service opens the image when the job is printed. So that the application may change its own
 * file meanwhile, the library copies it into its folder (convention 3), as prt_0 to prt_199 with
 * the extension of the path, and begins again with prt_0: a job of more than 200 images shows the
 * later ones in the place of the first, and two applications on one machine share the names. Where
 * copying fails (no such folder, no such file), the path itself goes out: give an absolute one. The
 * service must be on this machine and able to read the copy.
 *
 * Returns a verdict; a missing file fails in BeginPrint only, an empty path queues nothing. The
 * last error stays.
 * Log: 6 "[client][PrintBitmapFile] Angle:ANGLE [PATH]", then as PrintBitmapFileWithAlign, which it
 *        calls with alignment 1 */
TOLVEX_API int PrintBitmapFile(const char *path, int angle);
TOLVEX_API int PrintBitmapFile_stdcall(const char *path, int angle);

/* The same with an alignment: 0, 1 or 2; anything else counts as 1. It is kept with the image and
 * not sent: the service has no such parameter.
 * Returns a verdict, as PrintBitmapFile.
 * Log: 6 "[client][PrintBitmapFileWithAlign] Angle:ANGLE, Align:ALIGN [PATH]"
 *      6 "[cacheImage] Copy PATH(size:BYTES) to COPY"
 *      5 "[cacheImage] Copy PATH to COPY Fail"
 *      5 "[PrintBitmapFileWithAlign] Input param is NULL" */
TOLVEX_API int PrintBitmapFileWithAlign(const char *path, unsigned int angle, unsigned int align);

/* Ends a job: prints what is queued, confirms the job, and does what else the job type says.
 *
 *   job types                              what is done
 *   0, 2, 7, 204, 205, and any other one   print; nothing queued is a failure (code 1)
 *   4, 104, 206, 208, 304                  print what is queued, if anything is, and feed 13
 *   8, 105, 207, 305                       print what is queued, if anything is, and cut
 *   80, 90                                 calibrate the label gap; the queue stays
 *   81, 91                                 calibrate for the end of the paper; the queue stays
 *   6, 106, 209, 306                       nothing; the queue stays
 *
 * Job types 2, 80, 90, 204, 205, 206 and 208 go to printer type 0, 301 to 311 to printer type 2,
 * all others to printer type 1.
 *
 * One command goes out for each line or image (convention 4 holds for each). The first that fails
 * ends the job: the rest of the queue is dropped, and nothing is confirmed, fed or cut. What went
 * out before it is with the printer already: cut it off (BeginPrint(8) with nothing queued, or
 * cutPaperById) before the job is repeated.
 *
 * Returns a verdict. With a feed or a cut it is that of the feed or cut alone: a confirmation that
 * was refused shows in the log only.
 * Log, where NAME is the type's name or its number ("0_Ticket", "8_CUT", "42"):
 *      6 "[client][BeginPrint] NAME Begin", "[client][BeginPrint] NAME OK"
 *      6 "[client][Feed - BeginPrint] NAME OK", "[client][Cut - BeginPrint] NAME OK": printed and
 *        confirmed, before the feed or cut
 *      5 "[client][BeginPrint] NAME Err when printing, ret:CODE" (also Feed - and Cut -): a line or
 *        image
 *      5 "[client][BeginPrint] NAME Err, ret:0xCODE" (also Feed - and Cut -): the confirmation
 *      5 "[client][BeginPrint] NAME Err, ret:0xff": the feed, cut or calibration */
TOLVEX_API int BeginPrint(int jobType);
TOLVEX_API int BeginPrint_stdcall(int jobType);

/* ---- Printing past the queue ---- */

/* Sends UTF-8 text to a printer of this type now. Nothing is converted or cut into lines; an empty
 * text goes out as one blank, font size 0 as 28. The line belongs to whatever that printer prints
 * next: end it with cutPaperById, or the next BeginPrint takes it along.
 * Returns a code: 2 for a null text, 6 for one of more than 2048 bytes.
 * Log: 5 "printText Input params is too long(TEXT)!" */
TOLVEX_API int printTextById(const char *text, unsigned int fontSize, unsigned int printerType);

/* The same for paper of the given width in millimetres (sent times eight, in dots), with a text of
 * any length. Returns a code: 2 for a null text.
 * Log: 5 "[printTextByPaperWidth] str is NULL" */
TOLVEX_API int printTextByPaperWidthById(const char *text, unsigned int fontSize,
                                         unsigned int width, unsigned int printerType);

/* The same for an image file. path is UTF-8 and opened by the service, so make it an absolute one;
 * no copy is made. Returns a code: 2 for a null or empty path. */
TOLVEX_API int printBitmapFileById(const char *path, unsigned int angle, unsigned int printerType);

/* Sends any command to the printing service. number becomes the request's "intParam", parameters
 * its "paramList" unless it is null or empty. reply of size bytes gets the whole reply as JSON
 * text; it may be null. wait is the longest wait for the reply, in milliseconds.
 * Returns a code; 2 for a null command or an unusable printer name, 5 when the reply is longer than
 * size. Whatever the code, a reply that came is copied, a longer one up to size. The last error is
 * set by a null command only.
 * Log: 6 "[sendRawCmdToPrt] Req: REQUEST" */
TOLVEX_API int sendRawCmdToPrt(const char *printerName, const char *command, int number,
                               const char *parameters, char *reply, unsigned int size,
                               unsigned int wait);

/* ---- Paper ---- */

/* Feeds blank paper on the default printer. distance is 1 to 1000, in the service's unit; any other
 * is refused: 255, last error 2, nothing sent.
 * Returns a verdict.
 * Log: 6 "[printBlanks] Entry", "[printBlanks] OK"
 *      5 "[printBlanks] Invalid Param:DISTANCE", "[printBlanks] Err:CODE" */
TOLVEX_API int printBlanks(unsigned int distance);
TOLVEX_API int printBlanks_stdcall(unsigned int distance);

/* Feeds a distance of 13 on the default printer. Returns a verdict.
 * Log: 6 "[client][feedPaper] Entry", "[client][feedPaper] OK"
 *      5 "[feedPaper] Err:CODE" */
TOLVEX_API int feedPaper(void);
TOLVEX_API int feedPaper_stdcall(void);

/* The same on a printer of this type. Returns a verdict.
 * Log: 6 "[feedPaperById] Entry", "[feedPaperById] OK"
 *      5 "[feedPaperById] Err:CODE" */
TOLVEX_API int feedPaperById(unsigned int printerType);

/* Cuts the paper of the default printer, through 70 percent of its width. Returns a verdict.
 * Log: 6 "[cutPaper] Entry", "[cutPaper] OK"
 *      5 "[cutPaper] Err: CODE" */
TOLVEX_API int cutPaper(void);
TOLVEX_API int cutPaper_stdcall(void);

/* The same on a printer of this type. Returns a code. */
TOLVEX_API int cutPaperById(unsigned int printerType);

/* Measures the gap between the labels. Returns a verdict.
 * Log: 6 "[calibrateLabel] Entry", "[calibrateLabel] OK"
 *      5 "[calibrateLabel] Err: CODE" */
TOLVEX_API int calibrateLabel(unsigned int printerType);

/* Calibrates the sensor for the end of the paper. Returns a code. */
TOLVEX_API int testPaper(unsigned int printerType);

/* ---- Printer settings ---- */

/* Paper width in millimetres (sent times eight, in dots) of a printer of this type. Returns a code.
 */
TOLVEX_API int setDefaultPaperWidth(unsigned int width, unsigned int printerType);

/* The same of the default printer. Returns a code. */
TOLVEX_API int SetDefaultPaperWidth(unsigned int width);
TOLVEX_API int SetDefaultPaperWidth_stdcall(unsigned int width);

/* How labels are told apart, of a printer of this type. Returns a code. */
TOLVEX_API int setGapType(unsigned int gapType, unsigned int printerType);

/* Which way round a printer of this type prints. Returns a code. */
TOLVEX_API int setPrinterDirection(unsigned int direction, unsigned int printerType);

/* What a printer of this type does with a line that is too long. Returns a code, and leaves the
 * last error as it was. */
TOLVEX_API int setTextWrapMode(unsigned int wrapMode, unsigned int printerType);

/* Margins of the printer of this name. Each returns a code. */
TOLVEX_API int setLeftMargin(unsigned int leftMargin, const char *printerName);
TOLVEX_API int setRightMargin(unsigned int rightMargin, const char *printerName);

/* Where on the paper the printer of this name begins. Returns a code. */
TOLVEX_API int setPaperOffset(unsigned int offset, const char *printerName);

/* How dark and how fast the printer of this name prints. Each returns a code. */
TOLVEX_API int setPrintContrast(unsigned int contrast, const char *printerName);
TOLVEX_API int setPrintSpeed(unsigned int speed, const char *printerName);

/* Switches automatic printing, or rolling the paper back, of the printer of this name. The number
 * is sent as it is. Each returns a code. */
TOLVEX_API int setPrtAutoPrint(unsigned int enable, const char *printerName);
TOLVEX_API int setRollback(unsigned int enable, const char *printerName);

/* Switches the sensor for taken paper on (non-zero, sent as 1) or off (0). Returns a verdict.
 * Log: 6 "[client][setTakeupPaperSensor] Entry"
 *      6 "[client][setTakeupPaperSensor] OK, iEnable: ENABLE"
 *      5 "[setTakeupPaperSensor] Err: CODE" */
TOLVEX_API int setTakeupPaperSensor(int enable, const char *printerName);

/* ---- Information and drawer ---- */

/* Copies the names of the printers, as the service lists them, into buffer of size bytes: exactly
 * the text, so zero the buffer beforehand. The result in the reply does not count: a list that came
 * is success, a reply without one is code 7, whatever the service's own code.
 * Returns a verdict; the last error is 2 when buffer is null, 5 when the text is longer than size.
 * Log: 6 "[client][GetPrinterList] Enter", "[client][GetPrinterList] OK, BUFFER"
 *      5 "[GetPrinterList] Err:CODE"
 *      5 "[client][getPrinterList] json parse fail:REPLY" */
TOLVEX_API int GetPrinterList(char *buffer, unsigned int size);
TOLVEX_API int GetPrinterList_stdcall(char *buffer, unsigned int size);

/* Returns a printer's state as a code: 0 ready, 2005 busy, 2006 out of paper, 2007 head hot ... */
TOLVEX_API int GetPrinterStatus(unsigned int printerType);
TOLVEX_API int GetPrinterStatus_stdcall(unsigned int printerType);

/* Copies the reply with the printer's firmware version, as JSON text, into buffer of size bytes.
 * Returns a verdict; the last error is 2 for an unusable printer name, 5 when the reply is longer
 * than size or buffer is null. A reply that came is copied whatever the verdict, a longer one up to
 * size.
 * Log: 6 "[client][getPrinterVersion] Entry", "[client][getPrinterVersion] OK, ver:BUFFER"
 *      5 "[getPrinterVersion] Err: CODE" */
TOLVEX_API int getPrinterVersion(char *buffer, unsigned int size, const char *printerName);

/* Opens the cash drawer. Returns a verdict.
 * Log: 6 "[client][OpenCashDrawerEx] Enter", "[client][OpenCashDrawerEx] OK"
 *      5 "[OpenCashDrawerEx] Err: CODE" */
TOLVEX_API int OpenCashDrawerEx(void);
TOLVEX_API int OpenCashDrawerEx_stdcall(void);

/* Returns 1 when the service answers on the weighing connection, whatever it answers; 0 when it
 * does not. */
TOLVEX_API int checkConnection(void);

/* Returns the code of the latest command, 0 before the first one. Sends nothing. */
TOLVEX_API int getLastErrCode(void);

/* ---- The service's log ---- */

/* Copies the log level of the service's module "print" or "loadcell" into buffer of size bytes:
 * exactly its text, so zero the buffer beforehand. Returns a code: 1 for any other module, 5 when
 * the text is longer than size or buffer is null, 7 when the reply holds no level. */
TOLVEX_API int getLogLevel(const char *module, char *buffer, unsigned int size);

/* Sets the log level (text) of the service's module "print" or "loadcell". Returns a code: 1 for
 * any other module, 2 when an argument is null. */
TOLVEX_API int setLogLevel(const char *module, const char *level);

/* ---- Configuration ---- */

/* Takes the dotted IPv4 address as that of the service. Call it before every other function that
 * needs the service: connections that exist keep their address, and the INI file is read only when
 * no address was set this way.
 * Returns a verdict; 255 for everything that is not such an address.
 * Log: 5 "[DLL] setting Server IP from SetServerIpForRemoteAccess API, IP: TEXT"
 *      5 "[DLL] setting Server IP failed from SetServerIpForRemoteAccess API, IP: TEXT"
 * These lines open the logger before the library has named its folder, so the log of this process
 * lies in c:\Corvane\Log\ (Linux: .../corvane/log/). */
TOLVEX_API int SetServerIpForRemoteAccess(const char *ip);
TOLVEX_API int SetServerIpForRemoteAccess_stdcall(const char *ip);

/* ---- Functions without a device ---- */

/* They exist so that applications written for a fuller interface still bind. Whatever arguments
 * such an application passes, having its own declarations, are ignored; nothing is sent, logged or
 * connected, and the last error stays. */

/* Does nothing. Returns TOLVEX_OK. */
TOLVEX_API int ClosePrinterEx(void);
TOLVEX_API int ClosePrinterEx_stdcall(void);
TOLVEX_API int DisplayUpdate(void);
TOLVEX_API int DisplayUpdate_stdcall(void);
TOLVEX_API int OpenDisplay(void);
TOLVEX_API int OpenDisplay_stdcall(void);
/* Does nothing. Returns TOLVEX_OK. Not declared where <windows.h> has made this name one of the
 * spooler's. */
#ifndef OpenPrinter
TOLVEX_API int OpenPrinter(void);
#endif
TOLVEX_API int OpenPrinter_stdcall(void);
/* Does nothing. Returns TOLVEX_OK. */
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

/* Does nothing. Returns TOLVEX_FAILED. */
TOLVEX_API int PrintLabelImage(void);
TOLVEX_API int PrintLabelImage_stdcall(void);

/* Does nothing. What it returns has no meaning. */
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
