// Written by ./run bindings from src/api/exports.h. Do not edit.

/**
 * tolvex - device adapter library for point-of-sale applications (x64).
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
 *
 */

/** A text that goes in: a string, sent as UTF-8, or bytes of another character set with a NUL at their end. */
export type Text = string | Uint8Array | null;

/** An export. Called directly it keeps JavaScript waiting; async runs it in a thread of its own. */
export interface Export<Arguments extends unknown[]> {
  (...args: Arguments): number;
  async(...args: Arguments): Promise<number>;
}

/** Every export of the library, under its own name. */
export interface Raw {
  // ---- Weighing ----

  /**
   * Reads the scale's base information into record (64 bytes, tolvex_base_info). Returns a verdict.
   */
  read_baseinfo: Export<[record: Uint8Array | null]>;

  /**
   * Reads the scale's base information into record (64 bytes, tolvex_base_info). Returns a verdict.
   */
  read_baseinfo_stdcall: Export<[record: Uint8Array | null]>;

  /**
   * Reads the weight into record (24 bytes, tolvex_weight).
   * Returns TOLVEX_OK: the record holds a stable or an unstable weight (see the status bits), or
   * nothing but zeros when the scale reports an invalid weight; TOLVEX_UNDER_LOAD or
   * TOLVEX_OVER_LOAD: the record is untouched; TOLVEX_FAILED.
   */
  read_standard: Export<[record: Uint8Array | null]>;

  /**
   * Reads the weight into record (24 bytes, tolvex_weight).
   * Returns TOLVEX_OK: the record holds a stable or an unstable weight (see the status bits), or
   * nothing but zeros when the scale reports an invalid weight; TOLVEX_UNDER_LOAD or
   * TOLVEX_OVER_LOAD: the record is untouched; TOLVEX_FAILED.
   */
  read_standard_stdcall: Export<[record: Uint8Array | null]>;

  /**
   * Sets the scale to zero. Returns a verdict.
   */
  send_zero: Export<[]>;

  /**
   * Sets the scale to zero. Returns a verdict.
   */
  send_zero_stdcall: Export<[]>;

  /**
   * Takes what lies on the scale as the tare. reply (at least 10 bytes) gets the tare as text, unless
   * the host application is "Kelvarin" or "Lumidesk": for those it is left as it was.
   * Returns a verdict.
   */
  set_tare_bykey: Export<[reply: Uint8Array | null]>;

  /**
   * Takes what lies on the scale as the tare. reply (at least 10 bytes) gets the tare as text, unless
   * the host application is "Kelvarin" or "Lumidesk": for those it is left as it was.
   * Returns a verdict.
   */
  set_tare_bykey_stdcall: Export<[reply: Uint8Array | null]>;

  /**
   * The same as set_tare_bykey, with one more line at its head.
   */
  send_tare: Export<[reply: Uint8Array | null]>;

  /**
   * The same as set_tare_bykey, with one more line at its head.
   */
  send_tare_stdcall: Export<[reply: Uint8Array | null]>;

  /**
   * Clears the tare. The text that the caller passes is logged and goes no further: the scale is
   * asked to clear its tare, and text (at least 10 bytes) gets the tare that is left, with the same
   * exception as set_tare_bykey.
   * Returns a verdict.
   */
  send_pre_tare: Export<[text: Uint8Array | null]>;

  /**
   * Clears the tare. The text that the caller passes is logged and goes no further: the scale is
   * asked to clear its tare, and text (at least 10 bytes) gets the tare that is left, with the same
   * exception as set_tare_bykey.
   * Returns a verdict.
   */
  send_pre_tare_stdcall: Export<[text: Uint8Array | null]>;

  /**
   * Clears the tare; reply (at least 10 bytes) as for set_tare_bykey. Returns a verdict.
   */
  clear_tare: Export<[reply: Uint8Array | null]>;

  /**
   * Clears the tare; reply (at least 10 bytes) as for set_tare_bykey. Returns a verdict.
   */
  clear_tare_stdcall: Export<[reply: Uint8Array | null]>;

  /**
   * Copies the reply with the weighing service's version, as JSON text, into buffer of size bytes.
   * Returns a code; 5 when the reply is longer than size or buffer is null. Whatever the code, a
   * reply that came is copied, a longer one up to size.
   */
  getLCVersion: Export<[buffer: Uint8Array | null, size: number]>;

  /**
   * Switches the scale's overload alarm on (non-zero) or off (0); the number is sent as it is, on the
   * printing connection. Returns a code.
   */
  setOverloadAlarm: Export<[enable: number]>;

  /**
   * Chooses what read_standard reads as the net weight: 0 the ordinary one (the state at start),
   * anything else the high-resolution one. Sends nothing. Returns 0.
   */
  setHighResWeightMode: Export<[on: number]>;

  /**
   * Returns 1 when the high-resolution net weight is read, else 0. Sends nothing.
   */
  getHighResWeightMode: Export<[]>;

  /**
   * Sends any command to the weighing service. parameters becomes the request's "paramList" unless it
   * is null or empty. reply of size bytes gets the whole reply as JSON text; it may be null. wait is
   * the longest wait for the reply, in milliseconds.
   * Returns a code; 5 for a null command, and when the reply is longer than size. Whatever the code,
   * a reply that came is copied, a longer one up to size. The last error is set by a null command
   * only.
   */
  sendRawCmdToLC: Export<[command: Text, parameters: Text, reply: Uint8Array | null, size: number, wait: number]>;

  // ---- Printing: the job ----

  /**
   * Queues ANSI text for BeginPrint: one line, or one for each line feed in it (LF or CR LF; an empty
   * line prints as a blank one; a line feed at the end begins no further line). fontSize is the
   * height of the characters in dots, 12 to 72. A line of more than 2048 bytes of UTF-8 is queued,
   * but refused when it is printed: BeginPrint then fails with code 6.
   * Returns a verdict, TOLVEX_FONT_TOO_SMALL or TOLVEX_FONT_TOO_BIG; an empty text is TOLVEX_OK and
   * queues nothing. The last error stays.
   */
  PrintText: Export<[text: Text, fontSize: number]>;

  /**
   * Queues ANSI text for BeginPrint: one line, or one for each line feed in it (LF or CR LF; an empty
   * line prints as a blank one; a line feed at the end begins no further line). fontSize is the
   * height of the characters in dots, 12 to 72. A line of more than 2048 bytes of UTF-8 is queued,
   * but refused when it is printed: BeginPrint then fails with code 6.
   * Returns a verdict, TOLVEX_FONT_TOO_SMALL or TOLVEX_FONT_TOO_BIG; an empty text is TOLVEX_OK and
   * queues nothing. The last error stays.
   */
  PrintText_stdcall: Export<[text: Text, fontSize: number]>;

  /**
   * The same for paper of the given width in millimetres, with lines of any length: more than 80
   * counts as 80, and 0 goes out as 0.
   */
  PrintTextByPaperWidth: Export<[text: Text, fontSize: number, width: number]>;

  /**
   * The same for paper of the given width in millimetres, with lines of any length: more than 80
   * counts as 80, and 0 goes out as 0.
   */
  PrintTextByPaperWidth_stdcall: Export<[text: Text, fontSize: number, width: number]>;

  /**
   * Queues an image file for BeginPrint; path is ANSI text. angle goes out as a 16-bit number,
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
   */
  PrintBitmapFile: Export<[path: Text, angle: number]>;

  /**
   * Queues an image file for BeginPrint; path is ANSI text. angle goes out as a 16-bit number,
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
   */
  PrintBitmapFile_stdcall: Export<[path: Text, angle: number]>;

  /**
   * The same with an alignment: 0, 1 or 2; anything else counts as 1. It is kept with the image and
   * not sent: the service has no such parameter.
   * Returns a verdict, as PrintBitmapFile.
   */
  PrintBitmapFileWithAlign: Export<[path: Text, angle: number, align: number]>;

  /**
   * Ends a job: prints what is queued, confirms the job, and does what else the job type says.
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
   */
  BeginPrint: Export<[jobType: number]>;

  /**
   * Ends a job: prints what is queued, confirms the job, and does what else the job type says.
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
   */
  BeginPrint_stdcall: Export<[jobType: number]>;

  // ---- Printing past the queue ----

  /**
   * Sends UTF-8 text to a printer of this type now. Nothing is converted or cut into lines; an empty
   * text goes out as one blank, font size 0 as 28. The line belongs to whatever that printer prints
   * next: end it with cutPaperById, or the next BeginPrint takes it along.
   * Returns a code: 2 for a null text, 6 for one of more than 2048 bytes.
   */
  printTextById: Export<[text: Text, fontSize: number, printerType: number]>;

  /**
   * The same for paper of the given width in millimetres (sent times eight, in dots), with a text of
   * any length. Returns a code: 2 for a null text.
   */
  printTextByPaperWidthById: Export<[text: Text, fontSize: number, width: number, printerType: number]>;

  /**
   * The same for an image file. path is UTF-8 and opened by the service, so make it an absolute one;
   * no copy is made. Returns a code: 2 for a null or empty path.
   */
  printBitmapFileById: Export<[path: Text, angle: number, printerType: number]>;

  /**
   * Sends any command to the printing service. number becomes the request's "intParam", parameters
   * its "paramList" unless it is null or empty. reply of size bytes gets the whole reply as JSON
   * text; it may be null. wait is the longest wait for the reply, in milliseconds.
   * Returns a code; 2 for a null command or an unusable printer name, 5 when the reply is longer than
   * size. Whatever the code, a reply that came is copied, a longer one up to size. The last error is
   * set by a null command only.
   */
  sendRawCmdToPrt: Export<[printerName: Text, command: Text, number: number, parameters: Text, reply: Uint8Array | null, size: number, wait: number]>;

  // ---- Paper ----

  /**
   * Feeds blank paper on the default printer. distance is 1 to 1000, in the service's unit; any other
   * is refused: 255, last error 2, nothing sent.
   * Returns a verdict.
   */
  printBlanks: Export<[distance: number]>;

  /**
   * Feeds blank paper on the default printer. distance is 1 to 1000, in the service's unit; any other
   * is refused: 255, last error 2, nothing sent.
   * Returns a verdict.
   */
  printBlanks_stdcall: Export<[distance: number]>;

  /**
   * Feeds a distance of 13 on the default printer. Returns a verdict.
   */
  feedPaper: Export<[]>;

  /**
   * Feeds a distance of 13 on the default printer. Returns a verdict.
   */
  feedPaper_stdcall: Export<[]>;

  /**
   * The same on a printer of this type. Returns a verdict.
   */
  feedPaperById: Export<[printerType: number]>;

  /**
   * Cuts the paper of the default printer, through 70 percent of its width. Returns a verdict.
   */
  cutPaper: Export<[]>;

  /**
   * Cuts the paper of the default printer, through 70 percent of its width. Returns a verdict.
   */
  cutPaper_stdcall: Export<[]>;

  /**
   * The same on a printer of this type. Returns a code.
   */
  cutPaperById: Export<[printerType: number]>;

  /**
   * Measures the gap between the labels. Returns a verdict.
   */
  calibrateLabel: Export<[printerType: number]>;

  /**
   * Calibrates the sensor for the end of the paper. Returns a code.
   */
  testPaper: Export<[printerType: number]>;

  // ---- Printer settings ----

  /**
   * Paper width in millimetres (sent times eight, in dots) of a printer of this type. Returns a code.
   */
  setDefaultPaperWidth: Export<[width: number, printerType: number]>;

  /**
   * The same of the default printer. Returns a code.
   */
  SetDefaultPaperWidth: Export<[width: number]>;

  /**
   * The same of the default printer. Returns a code.
   */
  SetDefaultPaperWidth_stdcall: Export<[width: number]>;

  /**
   * How labels are told apart, of a printer of this type. Returns a code.
   */
  setGapType: Export<[gapType: number, printerType: number]>;

  /**
   * Which way round a printer of this type prints. Returns a code.
   */
  setPrinterDirection: Export<[direction: number, printerType: number]>;

  /**
   * What a printer of this type does with a line that is too long. Returns a code, and leaves the
   * last error as it was.
   */
  setTextWrapMode: Export<[wrapMode: number, printerType: number]>;

  /**
   * Margins of the printer of this name. Each returns a code.
   */
  setLeftMargin: Export<[leftMargin: number, printerName: Text]>;

  /**
   * Margins of the printer of this name. Each returns a code.
   */
  setRightMargin: Export<[rightMargin: number, printerName: Text]>;

  /**
   * Where on the paper the printer of this name begins. Returns a code.
   */
  setPaperOffset: Export<[offset: number, printerName: Text]>;

  /**
   * How dark and how fast the printer of this name prints. Each returns a code.
   */
  setPrintContrast: Export<[contrast: number, printerName: Text]>;

  /**
   * How dark and how fast the printer of this name prints. Each returns a code.
   */
  setPrintSpeed: Export<[speed: number, printerName: Text]>;

  /**
   * Switches automatic printing, or rolling the paper back, of the printer of this name. The number
   * is sent as it is. Each returns a code.
   */
  setPrtAutoPrint: Export<[enable: number, printerName: Text]>;

  /**
   * Switches automatic printing, or rolling the paper back, of the printer of this name. The number
   * is sent as it is. Each returns a code.
   */
  setRollback: Export<[enable: number, printerName: Text]>;

  /**
   * Switches the sensor for taken paper on (non-zero, sent as 1) or off (0). Returns a verdict.
   */
  setTakeupPaperSensor: Export<[enable: number, printerName: Text]>;

  // ---- Information and drawer ----

  /**
   * Copies the names of the printers, as the service lists them, into buffer of size bytes: exactly
   * the text, so zero the buffer beforehand. The result in the reply does not count: a list that came
   * is success, a reply without one is code 7, whatever the service's own code.
   * Returns a verdict; the last error is 2 when buffer is null, 5 when the text is longer than size.
   */
  GetPrinterList: Export<[buffer: Uint8Array | null, size: number]>;

  /**
   * Copies the names of the printers, as the service lists them, into buffer of size bytes: exactly
   * the text, so zero the buffer beforehand. The result in the reply does not count: a list that came
   * is success, a reply without one is code 7, whatever the service's own code.
   * Returns a verdict; the last error is 2 when buffer is null, 5 when the text is longer than size.
   */
  GetPrinterList_stdcall: Export<[buffer: Uint8Array | null, size: number]>;

  /**
   * Returns a printer's state as a code: 0 ready, 2005 busy, 2006 out of paper, 2007 head hot ...
   */
  GetPrinterStatus: Export<[printerType: number]>;

  /**
   * Returns a printer's state as a code: 0 ready, 2005 busy, 2006 out of paper, 2007 head hot ...
   */
  GetPrinterStatus_stdcall: Export<[printerType: number]>;

  /**
   * Copies the reply with the printer's firmware version, as JSON text, into buffer of size bytes.
   * Returns a verdict; the last error is 2 for an unusable printer name, 5 when the reply is longer
   * than size or buffer is null. A reply that came is copied whatever the verdict, a longer one up to
   * size.
   */
  getPrinterVersion: Export<[buffer: Uint8Array | null, size: number, printerName: Text]>;

  /**
   * Opens the cash drawer. Returns a verdict.
   */
  OpenCashDrawerEx: Export<[]>;

  /**
   * Opens the cash drawer. Returns a verdict.
   */
  OpenCashDrawerEx_stdcall: Export<[]>;

  /**
   * Returns 1 when the service answers on the weighing connection, whatever it answers; 0 when it
   * does not.
   */
  checkConnection: Export<[]>;

  /**
   * Returns the code of the latest command, 0 before the first one. Sends nothing.
   */
  getLastErrCode: Export<[]>;

  // ---- The service's log ----

  /**
   * Copies the log level of the service's module "print" or "loadcell" into buffer of size bytes:
   * exactly its text, so zero the buffer beforehand. Returns a code: 1 for any other module, 5 when
   * the text is longer than size or buffer is null, 7 when the reply holds no level.
   */
  getLogLevel: Export<[module: Text, buffer: Uint8Array | null, size: number]>;

  /**
   * Sets the log level (text) of the service's module "print" or "loadcell". Returns a code: 1 for
   * any other module, 2 when an argument is null.
   */
  setLogLevel: Export<[module: Text, level: Text]>;

  // ---- Configuration ----

  /**
   * Takes the dotted IPv4 address as that of the service. Call it before every other function that
   * needs the service: connections that exist keep their address, and the INI file is read only when
   * no address was set this way.
   * Returns a verdict; 255 for everything that is not such an address.
   */
  SetServerIpForRemoteAccess: Export<[ip: Text]>;

  /**
   * Takes the dotted IPv4 address as that of the service. Call it before every other function that
   * needs the service: connections that exist keep their address, and the INI file is read only when
   * no address was set this way.
   * Returns a verdict; 255 for everything that is not such an address.
   */
  SetServerIpForRemoteAccess_stdcall: Export<[ip: Text]>;

  // ---- Functions without a device ----

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ClosePrinterEx: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ClosePrinterEx_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  DisplayUpdate: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  DisplayUpdate_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  OpenDisplay: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  OpenDisplay_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK. Not declared where <windows.h> has made this name one of the
   * spooler's.
   */
  OpenPrinter: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK. Not declared where <windows.h> has made this name one of the
   * spooler's.
   */
  OpenPrinter_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetDataRows: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetDataRows_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetHeaderReserveRows: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetHeaderReserveRows_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetInvoiceParameter: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetInvoiceParameter_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetPrintContrast: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetPrintContrast_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetPrintOffset: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetPrintOffset_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetPrintSpeed: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetPrintSpeed_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetRealPrintHeaderWidth: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetRealPrintHeaderWidth_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetScaleType: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetScaleType_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetTakeLabelSensor: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetTakeLabelSensor_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetTakeupMotorDirection: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetTakeupMotorDirection_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetUSBPrinterDirection: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetUSBPrinterDirection_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetUnitPrice: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  SetUnitPrice_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ShowBalance: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ShowBalance_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ShowDisplayText: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ShowDisplayText_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ShowOrHideForm: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ShowOrHideForm_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ShowProduct: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  ShowProduct_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  switch_resolution: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_OK.
   */
  switch_resolution_stdcall: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_FAILED.
   */
  PrintLabelImage: Export<[]>;

  /**
   * Does nothing. Returns TOLVEX_FAILED.
   */
  PrintLabelImage_stdcall: Export<[]>;

  /**
   * Does nothing. What it returns has no meaning.
   */
  Version: Export<[]>;

  /**
   * Does nothing. What it returns has no meaning.
   */
  Version_stdcall: Export<[]>;

  /**
   * Does nothing. What it returns has no meaning.
   */
  DisplayText: Export<[]>;

  /**
   * Does nothing. What it returns has no meaning.
   */
  DisplayText_stdcall: Export<[]>;

  /**
   * Does nothing. What it returns has no meaning.
   */
  IncreaseResolution: Export<[]>;

  /**
   * Does nothing. What it returns has no meaning.
   */
  IncreaseResolution_stdcall: Export<[]>;

  /**
   * Does nothing. What it returns has no meaning.
   */
  SetClientName: Export<[]>;

  /**
   * Does nothing. What it returns has no meaning.
   */
  SetClientName_stdcall: Export<[]>;
}

/** The numbers of the results, by their names. */
export declare const ResultCode: {
  /**
   * OK: The command was carried out.
   */
  readonly Ok: 0;
  /**
   * Unknown: A failure without a more exact code; also a print job with nothing queued, and a name that the command does not know.
   */
  readonly Unknown: 1;
  /**
   * Invalid Param: An argument is out of its range, null where it must not be, or not known to the device.
   */
  readonly InvalidParam: 2;
  /**
   * Socket Listen Fail: The service could not listen on one of its ports.
   */
  readonly SocketListenFail: 3;
  /**
   * Socket Interrupt: The service did not take the command or did not answer it: it is not running, is at another address, closed the connection, or kept silent for the whole wait.
   */
  readonly SocketInterrupt: 4;
  /**
   * Buffer Not Enough: The answer does not fit the caller's buffer, or no buffer was given.
   */
  readonly BufferNotEnough: 5;
  /**
   * Too Much To Print: A line has more than 2048 bytes of UTF-8, or a job is longer than the printer takes.
   */
  readonly TooMuchToPrint: 6;
  /**
   * Json Err: The request or the reply is not the JSON that the other side expects.
   */
  readonly JsonErr: 7;
  /**
   * Miss param: The request lacks a parameter that the command needs.
   */
  readonly MissParam: 8;
  /**
   * Version Incompatible: The service does not work with this version of the library.
   */
  readonly VersionIncompatible: 9;
  /**
   * Command return fail: The device took the command and reported that it failed.
   */
  readonly CommandReturnFail: 10;
  /**
   * LC Connection Fail: There is no connection for weighing.
   */
  readonly LcConnectionFail: 1001;
  /**
   * Unsupport Weight Cmd: This scale or this service does not know the weighing command.
   */
  readonly UnsupportWeightCmd: 1002;
  /**
   * Under Load: The scale carries less than it can show: a plate is missing, or it was zeroed with a load on it.
   */
  readonly UnderLoad: 1003;
  /**
   * Over Load: There is more on the scale than it can weigh.
   */
  readonly OverLoad: 1004;
  /**
   * Weight Not Stable: The weight has not settled.
   */
  readonly WeightNotStable: 1005;
  /**
   * Invalid Weight: The scale has no valid weight, for example before its zero is found.
   */
  readonly InvalidWeight: 1006;
  /**
   * LC not connected: The service cannot reach the scale.
   */
  readonly LcNotConnected: 1007;
  /**
   * Prt Connection Fail: There is no connection for printing, or the service cannot reach the printer.
   */
  readonly PrtConnectionFail: 2001;
  /**
   * Unsupport Print Cmd: This printer or this service does not know the print command.
   */
  readonly UnsupportPrintCmd: 2002;
  /**
   * Prt-drv Return Error: The printer's driver reported an error.
   */
  readonly PrtDrvReturnError: 2003;
  /**
   * Printer is Busy: The printer is still at work on something else.
   */
  readonly PrinterIsBusy: 2005;
  /**
   * Out of Paper: The printer has no paper left.
   */
  readonly OutOfPaper: 2006;
  /**
   * Print Head is Hot: The print head is too hot to print.
   */
  readonly PrintHeadIsHot: 2007;
  /**
   * Printer Not Found: There is no printer of this name or type.
   */
  readonly PrinterNotFound: 2008;
  /**
   * Illegal Print Head: The printer does not accept its print head.
   */
  readonly IllegalPrintHead: 2009;
  /**
   * Prt Status Abnormal: The printer reports a state in which it does not print, such as an open cover.
   */
  readonly PrtStatusAbnormal: 2010;
};

/** The constants of the header. */
export declare const constants: {
  /**
   * done
   */
  readonly TOLVEX_OK: 240;
  /**
   * failed; getLastErrCode() says why
   */
  readonly TOLVEX_FAILED: 255;
  /**
   * read_standard only
   */
  readonly TOLVEX_UNDER_LOAD: -1;
  /**
   * read_standard only
   */
  readonly TOLVEX_OVER_LOAD: -2;
  /**
   * PrintText and PrintTextByPaperWidth only
   */
  readonly TOLVEX_FONT_TOO_SMALL: 242;
  /**
   * PrintText and PrintTextByPaperWidth only
   */
  readonly TOLVEX_FONT_TOO_BIG: 243;
  /**
   * of functions returning a code, and of getLastErrCode
   */
  readonly TOLVEX_UNREADABLE_REPLY: -1;
  /**
   * a printer type
   */
  readonly TOLVEX_DEFAULT_PRINTER: 100;
  /**
   * the weight has settled
   */
  readonly TOLVEX_WEIGHT_STABLE: 1;
  /**
   * nothing is on the scale
   */
  readonly TOLVEX_WEIGHT_AT_ZERO: 2;
  /**
   * a tare is subtracted
   */
  readonly TOLVEX_WEIGHT_TARE_ACTIVE: 4;
};
