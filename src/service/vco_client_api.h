// The command client: every operation of the service as one call.
#pragma once

#include <atomic>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "log/recursive_lock.h"
#include "service/print_job_buffer.h"
#include "service/reply.h"
#include "transport/tcp_client.h"

namespace tolvex {

class Envelope;

#define TOLVEX_LIBRARY_VERSION "3.0.3.2"
constexpr char kLibraryVersion[] = TOLVEX_LIBRARY_VERSION;

// How long a reply is waited for, unless the caller of a raw command says otherwise.
constexpr unsigned kReplyTimeoutMs = 40000;
// The least room that a base-information or weight reply is taken with, in bytes.
constexpr unsigned kLeastReadBuffer = 200;
// The longest printer name, in bytes.
constexpr unsigned kLongestPrinterName = 255;
// The longest text that printText sends, in bytes.
constexpr unsigned kLongestText = 2048;
// The printer that is meant where a caller names none.
constexpr int kDefaultPrinter = 100;
// The distances that paper can be fed, and the one that feedPaper feeds.
constexpr int kLeastBlanks = 1;
constexpr int kMostBlanks = 1000;
constexpr int kFeedDistance = 13;
// How much of the paper's width is cut through, in percent.
constexpr int kCutPercent = 70;
// Images in the cache before the first one is overwritten.
constexpr unsigned kCachedImages = 200;

// Client of the local service `zelkad`: turns each operation into one JSON request, exchanges it on
// the weighing ("LC") or the printing ("Prt") connection, and reads the reply's result code.
//
// Unless said otherwise an operation returns the result code as unsigned (service/result_codes.h;
// 0xFFFFFFFF for an unreadable reply) and keeps it as the last error. Its failures:
//   2 a null argument or one out of its range, 4 sending or receiving failed, 5 the caller's buffer
//   is null or too small, 6 too long a text, 7 the reply lacks the text asked for, 1001 / 2001
//   there is no connection object, and whatever code the service answers.
// Texts go out byte for byte; a null text counts as empty. Reply data is copied into the caller's
// buffers with the bounds of service/reply_copy.h. Each operation waits for its reply, at most
// kReplyTimeoutMs plus the connect and send times.
//
// Any thread may call. One lock for each connection keeps a request and its reply together; the
// print job and the image numbers are not locked, one thread queues and prints. Throws
// std::bad_alloc only. Lives until the process ends; nobody deletes it.
class VcoClientApi {
 public:
  // Keeps both pointers, of which either may be null; the connections belong to the caller. The
  // client identity is read off the host executable.
  //
  // With resync no reply of an exchange that failed is taken for that of the next one: a connection is
  // closed when its exchange ended without a reply, with one that cannot be read or with one that
  // fills the buffer, and made anew when something waits on it before a request. Each time is logged.
  VcoClientApi(CTcpClient* weighing, CTcpClient* printing, bool resync = false);
  VcoClientApi(const VcoClientApi&) = delete;
  VcoClientApi& operator=(const VcoClientApi&) = delete;

  // Base information, whole reply. out null or outLen below 200: 5, last error unchanged.
  virtual unsigned getBaseInfo(char* out, unsigned outLen);
  // The same for a caller who reads the reply's members. The reply is left parsed; one of more than so
  // many bytes is 5.
  unsigned readBaseInfo(Reply& reply, unsigned most);
  virtual unsigned setZero();
  // Presets the tare to the text; a text of nothing but '0' and '.' clears the tare instead. On
  // success the tare that the service took is copied back, at most 10 characters. len below 10: 5.
  // To clear it calls clearTare with len and a buffer of its own that holds kTareTextSize
  // characters and a NUL, whatever len says.
  virtual unsigned setPresetTare(char* tareText, unsigned len);
  // Tare by key and clearing it; out gets the tare text, at most 10 characters. outLen below 10: 5.
  virtual unsigned setTare(char* out, unsigned outLen);
  virtual unsigned clearTare(char* out, unsigned outLen);
  // Weight, whole reply. out null or outLen below 200: 5.
  virtual unsigned getWeight(char* out, unsigned outLen);
  unsigned readWeight(Reply& reply, unsigned most);  // as readBaseInfo
  // Any command. paramList is sent when it is neither null nor empty; out may be null, otherwise it
  // gets the whole reply. Only the 5 for a null cmd is kept as the last error.
  virtual unsigned sendRawCmdToLC(const char* cmd, const char* paramList, char* out,
                                  unsigned outLen, unsigned timeoutMs);
  // The same on the printing connection, for one printer; a null cmd is 2 here. A printer name that
  // is null or longer than kLongestPrinterName: 2, last error unchanged.
  virtual unsigned sendRawCmdToPrt(const char* printerName, const char* cmd, int intParam,
                                   const char* paramList, char* out, unsigned outLen,
                                   unsigned timeoutMs);

  // Version of the weighing service, whole reply, without a least size.
  unsigned getLCVersion(char* out, unsigned outLen);
  // Whether the service answers: false when the exchange itself failed, true for every reply, a
  // service error or an unreadable one included. The code is kept as the last error.
  bool checkConnection();
  // The service's log level of module "print" or "loadcell" (any other: 1), exactly its text.
  unsigned getLogLevel(const char* module, char* out, unsigned outLen);
  // Null module or level: 2, last error unchanged. Other modules: 1.
  unsigned setLogLevel(const char* module, const char* level);

  // Commands of the printers. The service addresses one by its type (a number that it understands,
  // kDefaultPrinter among them) or by its name. A name that is null or longer than
  // kLongestPrinterName: 2. Numbers go out as they are unless said otherwise; their meaning is the
  // service's.

  // Ends the job that was printed.
  unsigned beginPrint(int printerType);
  // Prints one line. An empty text goes out as one blank, font size 0 as 28. Null: 2; longer than
  // kLongestText: 6.
  unsigned printText(const char* text, int fontSize, int printerType);
  // The same within a paper width, which goes out times eight. Any length.
  unsigned printTextByPaperWidth(const char* text, int fontSize, int width, int printerType);
  // Prints a picture, which the service reads from disk. A null or empty file name: 2.
  unsigned printBmpFile(const char* fileName, int angle, int printerType);
  // Feeds paper. A distance outside kLeastBlanks to kMostBlanks: 2.
  unsigned printBlanks(int distance, int printerType);
  unsigned feedPaper(int printerType);  // printBlanks of a fixed distance
  unsigned cutPaper(int printerType, int percent);
  unsigned calibrateLabelGap(int printerType);
  unsigned calibrateOutOfPaper(int printerType);
  // The printer's state is the result code.
  unsigned printerStatus(int printerType);
  unsigned openCashBox();
  // The names of the printers, exactly the text. A null out: 2.
  unsigned getPrinterList(char* out, unsigned outLen);
  // Firmware version, whole reply.
  unsigned getPrinterVersion(char* out, unsigned outLen, const char* printerName);
  unsigned setPaperWidth(int width, int printerType);  // the width goes out times eight
  unsigned setGapType(int gapType, int printerType);
  unsigned setDirection(int direction, int printerType);
  unsigned setTextWrapMode(int wrapMode, int printerType);  // last error unchanged
  unsigned setLeftMargin(int leftMargin, const char* printerName);
  unsigned setRightMargin(int rightMargin, const char* printerName);
  unsigned setPrtAutoPrint(int enable, const char* printerName);
  unsigned setPaperOffset(int offset, const char* printerName);
  unsigned setContrast(int contrast, const char* printerName);
  unsigned setPrintSpeed(int speed, const char* printerName);
  unsigned setRollback(int enable, const char* printerName);
  unsigned setTakePaperSensor(int enable, const char* printerName);  // goes out as 1 or 0
  // Goes out on the printing connection although it concerns the scale.
  unsigned setOverloadAlarm(int enable);

  // What the buffered exports have queued.
  PrintJobBuffer& printJob() { return printJob_; }
  // The number of the next image in the cache: 0 to kCachedImages - 1, over and over.
  unsigned takeImageNumber();

  // The code of the latest operation that keeps its code; 0 before the first one.
  std::int32_t getLastErrCode() const { return lastError_.load(std::memory_order_relaxed); }
  // For results that come about outside this class. Returns the code.
  unsigned keepAsLastError(unsigned code) { return kept(static_cast<std::int32_t>(code)); }

  // The host application's name, as the log lines show it.
  const std::string& getClientName() const { return identity_; }

  // One exchange: sends length bytes of the request and fills reply, which must be one byte larger than
  // capacity, with what one receive delivers, and a NUL. Returns 0, 2, 4, or 1001 / 2001; the reply is
  // not written unless it is 0.
  unsigned SndCmdToLC(const char* request, unsigned length, char* reply, unsigned capacity,
                      unsigned timeoutMs);
  unsigned SndCmdToPrinter(const char* request, unsigned length, char* reply, unsigned capacity,
                           unsigned timeoutMs);

 private:
  struct RouteWords;
  struct Route;  // one of the two connections with its lock and its log lines
  static const RouteWords kWeighingWords;
  static const RouteWords kPrintingWords;

  // How an exchange ended: with a reply and the code in it, or with the code of its failure.
  struct Outcome {
    bool answered;
    std::int32_t code;
  };

  Route weighingRoute();
  Route printingRoute();
  template <typename IsReadable>
  unsigned exchange(const Route& route, const char* request, unsigned length, char* reply,
                    unsigned capacity, unsigned timeoutMs, IsReadable isReadable);

  // What resync does before a request, and whether it finds fault with a reply; both log it.
  static void dropUnasked(const Route& route);
  static bool isOutOfStep(const Route& route, bool readable, bool full);

  // Leaves the parsed reply, where there is one.
  Outcome command(const Route& route, Envelope& request, Reply& reply,
                  unsigned timeoutMs = kReplyTimeoutMs);
  struct Member;  // one parameter of a printer command
  static Member printer(int type);
  static Member printer(const char* name);
  // A printer command whose reply holds nothing but its code: 2 for a printer name that is none,
  // otherwise the outcome. Neither is kept.
  std::int32_t printerCommand(const char* cmd, std::initializer_list<Member> members);
  // The same, kept as the last error.
  unsigned printing(const char* cmd, std::initializer_list<Member> members);
  // A command whose reply holds nothing but its code; kept as the last error.
  unsigned plainCommand(const Route& route, Envelope& request);
  // A command whose whole reply goes to the caller; not kept.
  std::int32_t wholeReplyCommand(const Route& route, Envelope& request, char* out, unsigned outLen,
                                 unsigned timeoutMs = kReplyTimeoutMs);
  // A reading of the scale, left parsed in reply; kBufferNotEnough for a reply of more than so many
  // bytes. Not kept.
  std::int32_t readCommand(Envelope& request, Reply& reply, unsigned most);
  // A command of the caller's making, whose whole reply goes to out unless that is null; not kept.
  unsigned rawCommand(const Route& route, Envelope& request, char* out, unsigned outLen,
                      unsigned timeoutMs);
  // A tare command; out has room for kTareTextSize bytes. logMissing(text) tells of a reply
  // without a tare.
  template <typename LogMissing>
  unsigned tareCommand(Envelope& request, char* out, LogMissing logMissing);

  unsigned kept(std::int32_t code);
  void logGetWeight() const;

  CTcpClient* weighing_;
  CTcpClient* printing_;
  const bool resync_;
  RecursiveLock weighingLock_;
  RecursiveLock printingLock_;
  PrintJobBuffer printJob_;
  unsigned imageNumber_ = 0;
  std::atomic<std::int32_t> lastError_{0};
  std::string identity_;
};

}  // namespace tolvex
