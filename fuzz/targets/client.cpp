// The first line is two digits, whether the weighing and the printing port listen (1) or not (0), and an
// "r" behind them for resync. Then commands, one a line: LETTER NUMBER BEHAVIOUR TEXT TAB REPLY, as in
// "w200.<tab>{"result":"0"}". The letters are in the table below, the behaviours in
// support/hostile_service.h.
#include <algorithm>
#include <string>

#include "printing/drain.h"
#include "printing/queue_text.h"
#include "service/result_codes.h"
#include "service/vco_client_api.h"
#include "support/guarded_buffer.h"
#include "support/hostile_service.h"
#include "support/json_model.h"
#include "support/lines.h"
#include "support/log.h"
#include "support/target.h"
#include "weighing/records.h"

namespace tolvex::fuzz {
namespace {

constexpr int kMostCommands = 10;  // in one input: more of them find no more in the same time

class Session {
 public:
  explicit Session(std::string_view ports)
      : weighing_(port(ports, 0), isUp(ports, 0), hasResync(ports)),
        printing_(port(ports, 1), isUp(ports, 1), hasResync(ports)),
        client_(&weighing_, &printing_, hasResync(ports)) {}

  void obey(std::string_view line);

 private:
  using Command = void (Session::*)();
  struct Row {
    char letter;
    Command command;
  };
  static const Row kCommands[];

  static bool isUp(std::string_view ports, std::size_t which) {
    return which >= ports.size() || ports[which] != '0';
  }
  static bool hasResync(std::string_view ports) { return ports.size() > 2 && ports[2] == 'r'; }
  static const test::Port& port(std::string_view ports, std::size_t which) {
    static const test::Listener listening;
    static const test::Port closed;
    if (isUp(ports, which)) return listening;
    return closed;
  }

  // ---- What became of the command ----

  std::vector<Exchange> exchanges() {
    std::vector<Exchange> all = weighing_.takeExchanges();
    for (Exchange& exchange : printing_.takeExchanges()) all.push_back(std::move(exchange));
    for (const Exchange& exchange : all) {
      const JsonModel request = readJson(exchange.request);
      require(request.verdict == JsonModel::Verdict::kJson && !request.members.empty() &&
                  request.members[0].name == "cmd",
              "a request is an object that begins with its command");
      for (const auto& member : request.members) require(member.text.has_value(), "of texts only");
      require(exchange.waitMs == waitMs_ || !exchange.reply,
              "a reply is waited for as long as asked");
    }
    return all;
  }

  // The one exchange of a command: the reply as the library reads it.
  bool answered() {
    const std::vector<Exchange> all = exchanges();
    require(all.size() == 1, "a command is one exchange");
    reply_.clear();
    if (!all[0].reply) return false;
    reply_ = all[0].reply->c_str();
    parsed_ = readJson(reply_);
    return true;
  }
  int code() const { return resultOf(parsed_); }
  bool isDoubtful() const { return parsed_.verdict == JsonModel::Verdict::kEither; }

  void notSent(unsigned code, int expected) {
    require(exchanges().empty(), "a refused argument is not sent");
    require(static_cast<int>(code) == expected, "a refused argument has its code");
  }

  // A command whose reply holds nothing but its code.
  void plain(unsigned code) {
    const int expected = answered() ? this->code() : result::kSocketInterrupt;
    if (isDoubtful()) return;
    require(static_cast<int>(code) == expected, "the code is that of the reply");
    require(client_.getLastErrCode() == expected, "the last error is the command's code");
  }

  void whole(unsigned code, const GuardedBuffer& out, bool isNull = false) {
    if (!answered()) {
      require(code == result::kSocketInterrupt && out.isUntouched(), "no reply, nothing copied");
      return;
    }
    const bool fits = !isNull && reply_.size() <= out.contents().size();
    if (!isNull) require(out.holdsLikeStrncpy(reply_), "the whole reply is copied");
    if (isDoubtful()) return;
    require(static_cast<int>(code) == (fits || isNull ? this->code() : result::kBufferNotEnough),
            "the code is that of the reply, or of a buffer that is too small");
  }

  // A text of the reply, copied exactly.
  void exact(unsigned code, const GuardedBuffer& out, const char* member, bool needsSuccess) {
    int expected = result::kSocketInterrupt;
    if (answered()) {
      if (isDoubtful()) return;
      const auto text = parsed_.text(member);
      if (needsSuccess && this->code() != 0) {
        expected = this->code();
      } else if (!text) {
        expected = result::kJsonErr;
      } else if (text->size() > out.contents().size()) {
        expected = result::kBufferNotEnough;
      } else {
        expected = result::kOk;
        require(out.holdsExactly(*text), "the text of the reply is copied exactly");
      }
    }
    require(static_cast<int>(code) == expected, "the code says whether there is a text");
    require(expected == 0 || out.isUntouched(), "without success nothing is copied");
    require(client_.getLastErrCode() == expected, "the last error is the command's code");
  }

  // The tare of a reply in the first ten bytes of out.
  void tare(unsigned code, const char* out) {
    int expected = result::kSocketInterrupt;
    if (answered()) {
      if (isDoubtful()) return;
      const auto text = parsed_.text("tare");
      expected = this->code();
      if (expected == 0 && !text) expected = result::kJsonErr;
      if (expected == 0) {
        std::string wanted = text->substr(0, kTareSize);
        wanted.resize(kTareSize, '\0');
        require(std::string(out, kTareSize) == wanted, "the tare is copied like strncpy");
      }
    }
    require(static_cast<int>(code) == expected, "the code says whether there is a tare");
  }

  // ---- The commands ----

  void setZero() { plain(client_.setZero()); }
  void checkConnection() {
    const bool there = client_.checkConnection();
    require(there == answered(), "the service is there when it answers");
  }
  void baseInfo() { read(&VcoClientApi::getBaseInfo); }
  void weight() { read(&VcoClientApi::getWeight); }
  void read(unsigned (VcoClientApi::*command)(char*, unsigned)) {
    const int before = client_.getLastErrCode();
    GuardedBuffer out(number_);
    const unsigned code = (client_.*command)(out.data(), number_);
    if (number_ < 200) {
      notSent(code, result::kBufferNotEnough);
      if (command == &VcoClientApi::getBaseInfo) {
        require(client_.getLastErrCode() == before, "the last error stays");
      }
      return;
    }
    whole(code, out);
    GuardedBuffer record(kBaseInfoSize);
    WeightInfo(reply_.c_str(), (number_ & 1) != 0, record.data());
    FormatBaseInfo(reply_.c_str(), record.data());
    require(record.isIntactAround(), "a record keeps to its size");
  }
  void scaleVersion() {
    GuardedBuffer out(number_);
    whole(client_.getLCVersion(out.data(), number_), out);
  }
  void tareByKey() { takeTare(&VcoClientApi::setTare); }
  void clearTare() { takeTare(&VcoClientApi::clearTare); }
  void takeTare(unsigned (VcoClientApi::*command)(char*, unsigned)) {
    GuardedBuffer out(number_);
    const unsigned code = (client_.*command)(out.data(), number_);
    if (number_ < kTareSize) {
      notSent(code, result::kBufferNotEnough);
    } else {
      tare(code, out.data());
    }
    require(out.isIntactAround(), "a tare keeps to its ten bytes");
  }
  void presetTare() {
    const unsigned length = std::max<unsigned>(number_, static_cast<unsigned>(text_.size()) + 1);
    GuardedBuffer out(length);
    std::copy(text_.c_str(), text_.c_str() + text_.size() + 1, out.data());
    const unsigned code = client_.setPresetTare(out.data(), number_);
    if (number_ < kTareSize) {
      notSent(code, result::kBufferNotEnough);
    } else {
      tare(code, out.data());
    }
    require(out.isIntactAround(), "a tare keeps to its buffer");
  }
  void rawToScale() {
    GuardedBuffer out(number_);
    waitMs_ = number_ + 7;
    char* const buffer = number_ == 0 ? nullptr : out.data();
    whole(client_.sendRawCmdToLC(text_.c_str(), text_.c_str(), buffer, number_, waitMs_), out,
          buffer == nullptr);
  }
  void rawToPrinter() {
    GuardedBuffer out(number_);
    waitMs_ = number_ + 9;
    char* const buffer = number_ == 0 ? nullptr : out.data();
    const unsigned code = client_.sendRawCmdToPrt(text_.c_str(), text_.c_str(), -1, text_.c_str(),
                                                  buffer, number_, waitMs_);
    if (text_.size() > kLongestPrinterName) {
      notSent(code, result::kInvalidParam);
    } else {
      whole(code, out, buffer == nullptr);
    }
  }
  void scaleLogLevel() { logLevel("loadcell"); }
  void printerLogLevel() { logLevel("print"); }
  void logLevel(const char* module) {
    GuardedBuffer out(number_);
    exact(client_.getLogLevel(module, out.data(), number_), out, "level", true);
  }
  void setLogLevel() { plain(client_.setLogLevel("print", text_.c_str())); }

  void beginPrint() { plain(client_.beginPrint(asNumber())); }
  void printText() {
    const unsigned code = client_.printText(text_.c_str(), asNumber(), 1);
    if (text_.size() > kLongestText) {
      notSent(code, result::kTooMuchToPrint);
    } else {
      plain(code);
    }
  }
  void printByWidth() {
    plain(client_.printTextByPaperWidth(text_.c_str(), asNumber(), asNumber(), 1));
  }
  void printImage() {
    const unsigned code = client_.printBmpFile(text_.c_str(), asNumber(), 1);
    if (text_.empty()) {
      notSent(code, result::kInvalidParam);
    } else {
      plain(code);
    }
  }
  void feed() {
    const unsigned code = client_.printBlanks(asNumber(), 1);
    if (number_ < 1 || number_ > 1000) {
      notSent(code, result::kInvalidParam);
    } else {
      plain(code);
    }
  }
  void cut() { plain(client_.cutPaper(1, asNumber())); }
  void status() { plain(client_.printerStatus(asNumber())); }
  void drawer() { plain(client_.openCashBox()); }
  void printers() {
    GuardedBuffer out(number_);
    exact(client_.getPrinterList(out.data(), number_), out, "PrinterList", false);
  }
  void printerVersion() {
    GuardedBuffer out(number_);
    const unsigned code = client_.getPrinterVersion(out.data(), number_, text_.c_str());
    if (text_.size() > kLongestPrinterName) {
      notSent(code, result::kInvalidParam);
    } else {
      whole(code, out);
    }
  }
  void margin() {
    const unsigned code = client_.setLeftMargin(asNumber(), text_.c_str());
    if (text_.size() > kLongestPrinterName) {
      notSent(code, result::kInvalidParam);
    } else {
      plain(code);
    }
  }
  // A job of a line for each "|": it stops at the first that fails.
  void job() {
    std::string text = text_;
    std::replace(text.begin(), text.end(), '|', '\n');
    queueText(client_.printJob(), PrintJobKind::kTextByWidth, 24, 80, text.c_str());
    const unsigned code = drainPrintJob(client_, 1);
    const std::vector<Exchange> all = exchanges();
    require(client_.printJob().isEmpty(), "the queue is empty after a job");
    require(all.empty() == text.empty(), "each line is sent");
    for (std::size_t at = 0; at < all.size(); ++at) {
      parsed_ = readJson(all[at].reply ? all[at].reply->c_str() : "");
      if (isDoubtful()) return;
      const int expected = all[at].reply ? this->code() : result::kSocketInterrupt;
      const bool isLast = at + 1 == all.size();
      require(isLast || expected == 0, "a job goes on as long as all goes well");
      require(!isLast || static_cast<int>(code) == expected,
              "a job's code is that of its last line");
    }
  }

  int asNumber() const { return static_cast<int>(number_); }

  static constexpr std::size_t kTareSize = 10;

  HostileService weighing_;
  HostileService printing_;
  VcoClientApi client_;
  unsigned number_ = 0;
  std::string text_;
  unsigned waitMs_ = kReplyTimeoutMs;
  std::string reply_;
  JsonModel parsed_;
};

const Session::Row Session::kCommands[] = {
    {'z', &Session::setZero},
    {'k', &Session::checkConnection},
    {'b', &Session::baseInfo},
    {'w', &Session::weight},
    {'v', &Session::scaleVersion},
    {'t', &Session::tareByKey},
    {'c', &Session::clearTare},
    {'p', &Session::presetTare},
    {'q', &Session::rawToScale},
    {'Q', &Session::rawToPrinter},
    {'g', &Session::scaleLogLevel},
    {'G', &Session::printerLogLevel},
    {'l', &Session::setLogLevel},
    {'B', &Session::beginPrint},
    {'T', &Session::printText},
    {'W', &Session::printByWidth},
    {'I', &Session::printImage},
    {'F', &Session::feed},
    {'C', &Session::cut},
    {'S', &Session::status},
    {'O', &Session::drawer},
    {'L', &Session::printers},
    {'V', &Session::printerVersion},
    {'M', &Session::margin},
    {'J', &Session::job},
};

void Session::obey(std::string_view line) {
  const char letter = takeLetter(line);
  number_ = std::min(takeNumber(line), 5000U);
  const char behaviour = takeLetter(line);
  const std::size_t tab = std::min(line.find('\t'), line.size());
  text_ = std::string(line.substr(0, tab)).c_str();
  line.remove_prefix(std::min(tab + 1, line.size()));
  weighing_.behave(behaviour, line);
  printing_.behave(behaviour, line);
  waitMs_ = kReplyTimeoutMs;
  reply_.clear();
  parsed_ = JsonModel();
  for (const Row& row : kCommands) {
    if (row.letter == letter) (this->*row.command)();
  }
}

}  // namespace

void targets::client(std::string_view input) {
  startLog();
  Lines lines(input);
  std::string_view line;
  if (!lines.next(line)) return;
  Session session(line);
  for (int count = 0; count < kMostCommands && lines.next(line); ++count) session.obey(line);
}

}  // namespace tolvex::fuzz
