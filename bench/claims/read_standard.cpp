// A warm call against what it cannot do without.
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>
#include <system_error>

#include "claims/claims.h"
#include "claims/warm_call.h"

namespace bench {
namespace {

// The records that one call leaves in the log, as they stand there. Throws unless every call leaves
// as many bytes.
std::vector<std::string> recordsOfACall(const WarmCall& warm, const StateFolder& state) {
  constexpr int kCalls = 10;
  const std::uint64_t before = state.logSize();
  for (int call = 0; call < kCalls; ++call) warm.call();
  const std::string text = state.logText().substr(before);
  const std::size_t size = text.size() / kCalls;
  if (size == 0 || size * kCalls != text.size() || text[size - 1] != '\n') {
    throw std::runtime_error("the calls do not log the same");
  }
  std::vector<std::string> records;
  for (std::size_t at = 0; at < size;) {
    const std::size_t end = text.find('\n', at) + 1;
    records.push_back(text.substr(at, end - at));
    at = end;
  }
  return records;
}

// A file beside the library's log, written to as the log is.
class PlainFile {
 public:
  explicit PlainFile(const std::string& path)
      : file_(open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)) {
    if (file_ < 0) throw std::system_error(errno, std::generic_category(), path);
  }
  ~PlainFile() { close(file_); }
  PlainFile(const PlainFile&) = delete;
  PlainFile& operator=(const PlainFile&) = delete;

  void write(const std::string& text) const {
    if (::write(file_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
      throw std::runtime_error("a bare write failed");
    }
  }

 private:
  int file_;
};

constexpr int kCallsInABatch = 5;

}  // namespace

Figure readStandardSilent(const Setting& setting) {
  const StateFolder state(Logging::kSilenced);
  const WarmCall warm(setting, kWeightReply);
  const std::uint64_t logged = state.logSize();
  const Paired paired = measurePairs(
      setting.pairs, kCallsInABatch, [&] { warm.call(); }, [&] { warm.bare(); });
  if (state.logSize() != logged) throw std::runtime_error("the log is not silent");
  return ratioOf(paired, "library_us", "bare_us");
}

Figure readStandardLogged(const Setting& setting) {
  const StateFolder state;
  const WarmCall warm(setting, kWeightReply);
  const std::vector<std::string> records = recordsOfACall(warm, state);
  std::size_t bytes = 0;
  for (const std::string& record : records) bytes += record.size();
  const PlainFile file(state.logFolder() + "/plain");
  const std::uint64_t logged = state.logSize();
  const Paired paired = measurePairs(
      setting.pairs, kCallsInABatch, [&] { warm.call(); },
      [&] {
        for (const std::string& record : records) file.write(record);
        warm.bare();
      });
  if (state.logSize() - logged != setting.pairs * kCallsInABatch * bytes) {
    throw std::runtime_error("the log does not hold the records of each call");
  }
  Figure figure = ratioOf(paired, "library_us", "bare_us");
  figure.details["records_per_call"] = static_cast<double>(records.size());
  figure.details["bytes_per_call"] = static_cast<double>(bytes);
  return figure;
}

Figure longReply(const Setting& setting) {
  constexpr std::size_t kLength = 2048;
  const std::string reply = replyOfLength(kLength);
  const StateFolder state(Logging::kSilenced);
  const WarmCall warm(setting, reply, [&reply](const Library& library) {
    char buffer[kLength + 1] = {};
    if (library.sendRawCmdToLC("getweight", nullptr, buffer, sizeof(buffer), kWaitMs) != 0 ||
        std::memcmp(buffer, reply.data(), kLength) != 0) {
      throw std::runtime_error("the raw command failed, or got another reply");
    }
  });
  const Paired paired = measurePairs(
      setting.pairs, kCallsInABatch, [&] { warm.call(); }, [&] { warm.bare(); });
  return ratioOf(paired, "library_us", "bare_us");
}

}  // namespace bench
