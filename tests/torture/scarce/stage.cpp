#include "torture/scarce/stage.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "support/os_support.h"
#include "support/scarce_calls.h"
#include "support/scarce_memory.h"

namespace tolvex::test {
namespace {

namespace fs = std::filesystem;

constexpr char kOrdinaryReply[] =
    R"({"result":"0","net":"%s","tare":"0.25","zero":"0","tareType":"N","weightUnit":"kg",)"
    R"("maxRange1":"15","minRange":"40","resolution1":"5","systemVersion":"7.1",)"
    R"("PrinterList":"ticket,label","level":"3"%s})";

// One for each connection, that leave the queue of the job as it is.
constexpr const char* kReconnecting[] = {"feedPaper", "read_standard"};

// So many members more than an ordinary reply has, in a reply that is not too long for a weight.
std::string manyMembers() {
  std::string members;
  for (int i = 0; i < 110; ++i) members += R"(,"":0)";
  return members;
}

// A number of its own for each process, so that two of them do not share an address.
std::string addressOfProcess() {
  const unsigned long id = processId();
  return "127.72." + std::to_string(id / 250 % 250 + 1) + "." + std::to_string(id % 250 + 1);
}

// An image is printed from its copy, whose name has a number that counts on, or as it is.
std::string withoutImage(const std::string& request) {
  static const std::regex image(R"("[^"]*(prt_|scarce-)[0-9]+\.bmp")");
  return std::regex_replace(request, image, "\"image\"");
}

}  // namespace

Stage::Stage(std::string libraryFile)
    : libraryFile_(std::move(libraryFile)),
      address_(addressOfProcess()),
      service_(std::make_unique<ScriptedService>(address_)) {
  resync(true);
  const std::string image =
      (fs::temp_directory_path() / ("scarce-" + std::to_string(processId()) + ".bmp"))
          .generic_u8string();
  std::ofstream(image, std::ios::binary) << std::string(3000, 'x');
  callTexts() = {address_, image, std::string(3000, '\xE4')};
  // No locale of the system, but a character set of which each text needs a conversion.
  setEnvironment("LC_ALL", "xx_XX.ISO-8859-1");
  for (ServicePort* const port : {&service_->weighing(), &service_->printing()}) {
    port->alwaysAnswers([this](const std::string& request) { return reply(request); });
  }
}

void Stage::resync(bool on) {
  resync_ = on;
  host_.withIni("[zelkad]\nip_addr=" + address_ + "\nresync=" + (on ? "1" : "0") + "\n");
}

void Stage::loadAfresh() {
  library_.reset();
  closeLibraryHandles();
  for (const fs::path& folder : {host_.logFolder(), host_.defaultLogFolder()}) {
    fs::remove_all(folder);
    fs::create_directories(folder);
  }
  host_.withLogConfig("DLL=2\n");
  library_ = std::make_unique<LoadedLibrary>(libraryFile_);
  haveScarceMemory(*library_);
  haveScarceCalls(*library_);
}

void Stage::chooseAddress() {
  CallBuffer unused;
  run(exportCall("SetServerIpForRemoteAccess"), unused);
}

std::string Stage::reply(const std::string& request) {
  const std::lock_guard<std::mutex> lock(mutex_);
  requests_.push_back(withoutImage(request));
  char net[16];
  std::snprintf(net, sizeof(net), "%u.5", weight_.load());
  char text[2048];
  std::snprintf(text, sizeof(text), kOrdinaryReply, net, long_ ? manyMembers().c_str() : "");
  return text;
}

std::vector<std::string> Stage::takeRequests() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return std::move(requests_);
}

// Other calls than the one that is looked at: counted all the same, in what they leave behind, and
// with waits as short.
int Stage::ask(const char* name, int argument) {
  const ScarceCalls calls;
  const ScarceMemory watched;
  return library_->find<int (*)(int)>(name)(argument);
}

int Stage::run(const ExportCall& call, CallBuffer& buffer) {
  const ScarceCalls calls;
  const ScarceMemory watched;
  return call.run(*library_, buffer);
}

void Stage::prepare(const ExportCall& call, bool isFirst) {
  weight_ = 1;
  if (!isFirst) {
    if (std::string(call.name).find("BeginPrint") == 0) {
      CallBuffer unused;
      for (const char* const line : {"PrintText", "PrintTextByPaperWidth", "PrintBitmapFile"}) {
        run(exportCall(line), unused);
      }
    }
    ask("printBlanks", 0);  // refused with kKnownError, and nothing sent
  }
  takeRequests();
}

void Stage::complete(Observation& seen, const CallBuffer& buffer) {
  seen.requests = takeRequests();
  seen.buffer = buffer.text();
  seen.wroteBuffer = seen.buffer != CallBuffer().text();
  seen.lastError = ask("getLastErrCode");
  if (!resync_) connectAnew(seen);
  seen.afterwards = checkNextCalls(seen);
  takeRequests();
}

// A connection that is found gone is made anew, and with it goes what nobody took from it. Requests
// of the call may have come only now: without resync it may have had its replies before them.
void Stage::connectAnew(Observation& seen) {
  CallBuffer unused;
  for (const char* const name : kReconnecting) {
    ScarceCalls::failOnce("send", kConnectionGone);
    run(exportCall(name), unused);
  }
  std::vector<std::string> late = takeRequests();
  late.resize(late.size() - std::min(late.size(), std::size(kReconnecting)));
  seen.requests.insert(seen.requests.end(), late.begin(), late.end());
}

// The next calls do what they do after any other one: a job, which shows the queue, and a weight.
std::string Stage::checkNextCalls(Observation& seen) {
  const int printed = ask("BeginPrint", 8);
  seen.printed = takeRequests();
  if (printed != 240) return "the next BeginPrint(8) gave " + std::to_string(printed);
  weight_ = weight_ % 90 + 7;
  CallBuffer record;
  const int read = run(exportCall("read_standard"), record);
  if (read != 240) return "the next read_standard gave " + std::to_string(read);
  char expected[16];
  std::snprintf(expected, sizeof(expected), "%02u.5000P", weight_.load());
  const std::string net = record.text().substr(1, 8);
  if (net != expected) return "the next weight is " + net + " in the place of " + expected;
  const int lastError = ask("getLastErrCode");
  if (lastError != 0) return "the next last error is " + std::to_string(lastError);
  return {};
}

std::string Stage::checkRecords() const {
  static const std::regex stamp("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9:]{8} Ms:[0-9]{3} .*\\r?");
  std::size_t torn = 0;
  bool wentOn = false;
  for (const fs::path& folder : {host_.logFolder(), host_.defaultLogFolder()}) {
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() != ".log") continue;
      std::ifstream file(entry.path(), std::ios::binary);
      std::vector<std::string> lines;
      for (std::string line; std::getline(file, line);) lines.push_back(line);
      torn += static_cast<std::size_t>(
          std::count_if(lines.begin(), lines.end(),
                        [](const std::string& line) { return !std::regex_match(line, stamp); }));
      // The weight that was read last; a connection may have had something to say after it.
      const std::size_t tail = std::min<std::size_t>(lines.size(), 4);
      wentOn = wentOn || std::any_of(lines.end() - static_cast<std::ptrdiff_t>(tail), lines.end(),
                                     [](const std::string& line) {
                                       return line.find("Oh Ye~") != std::string::npos;
                                     });
    }
  }
  if (torn > 1) return std::to_string(torn) + " records are torn";
  return wentOn ? "" : "the log did not go on";
}

std::string Stage::checkLog() const {
  for (const auto& entry : fs::directory_iterator(host_.defaultLogFolder())) {
    if (entry.path().extension() == ".log") return "a log is in the logger's default folder";
  }
  std::ifstream file(host_.logFile(), std::ios::binary);
  const std::string log{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (log.empty()) return "there is no log";
  if (log.find("==>[Zelkad]") == std::string::npos) return "the log knows nothing of NLog.ini";
  return {};
}

namespace {

int failureOf(Answers answers, int code) {
  if (answers == Answers::kVerdict) return 255;
  return answers == Answers::kConnection ? 0 : code;
}

template <typename List>
bool isPrefix(const List& part, const List& whole) {
  return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

// The requests of a call that failed. It need not have waited until the service had them, so that
// some stand beside the cut of the job after it, in which nothing was queued.
std::vector<std::string> sentByFailed(const Observation& seen, const std::string& cut) {
  std::vector<std::string> sent = seen.requests;
  sent.insert(sent.end(), seen.printed.begin(), seen.printed.end());
  const auto last = std::find(sent.rbegin(), sent.rend(), cut);
  if (last != sent.rend()) sent.erase(std::next(last).base());
  return sent;
}

// A job that is cut may lack its confirmation, which shows in the log only.
bool areAsExpected(const std::vector<std::string>& requests, std::vector<std::string> good) {
  if (requests == good) return true;
  const auto isConfirmation = [](const std::string& request) {
    return request.find("\"beginPrint\"") != std::string::npos;
  };
  good.erase(std::remove_if(good.begin(), good.end(), isConfirmation), good.end());
  return requests == good;
}

std::string asText(const std::vector<std::string>& list) {
  std::string text = std::to_string(list.size()) + " requests";
  for (const std::string& item : list) text += "\n      " + item.substr(0, 120);
  return text;
}

}  // namespace

std::string judge(const ExportCall& call, const Observation& good, const Observation& seen,
                  int failureCode, const std::vector<int>& lastErrors) {
  if (!seen.afterwards.empty()) return seen.afterwards;
  const std::string result = "result " + std::to_string(seen.result);
  const bool worked = seen.result == good.result;
  const int failure = failureOf(call.answers, failureCode);
  if (!worked && (call.answers == Answers::kConstant || seen.result != failure)) return result;
  if (worked && seen.buffer != good.buffer) return result + ", but another buffer";
  if (worked && !areAsExpected(seen.requests, good.requests))
    return result + ", but " + asText(seen.requests);
  if (worked && seen.lastError != good.lastError) {
    return result + ", but last error " + std::to_string(seen.lastError);
  }
  if (!worked && seen.wroteBuffer) return result + ", but the buffer was written";
  const std::string cut = good.printed.empty() ? "" : good.printed.back();
  const std::vector<std::string> sent = worked ? seen.requests : sentByFailed(seen, cut);
  if (!worked && !isPrefix(sent, good.requests)) return result + ", having sent " + asText(sent);
  if (!worked &&
      std::find(lastErrors.begin(), lastErrors.end(), seen.lastError) == lastErrors.end()) {
    return result + ", with last error " + std::to_string(seen.lastError);
  }
  const bool queued = seen.printed == good.printed;
  if (worked && !queued) return result + ", but the next job was " + asText(seen.printed);
  return {};
}

}  // namespace tolvex::test
