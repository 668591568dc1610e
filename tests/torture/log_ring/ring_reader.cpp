#include "torture/log_ring/ring_reader.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/os_support.h"
#include "torture/log_ring/sample_calls.h"

namespace tolvex::test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostProblems = 8;
constexpr char kClearLine[] = " ===== Clear All logs =====";

bool startsWith(const std::string& text, std::size_t at, const std::string& start) {
  return text.compare(at, start.size(), start) == 0;
}

// What every time stamp looks like: 'd' is a digit.
bool hasStamp(const std::string& line, std::size_t at = 0) {
  static const std::string shape = "dddd-dd-dd dd:dd:dd Ms:ddd ";
  if (line.size() < at + shape.size()) return false;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    const char c = line[at + i];
    if (shape[i] == 'd' ? c < '0' || c > '9' : c != shape[i]) return false;
  }
  return true;
}

// "[W] L:532 M:DLL " and the like: one of the library's modules, and what the library says at its
// start.
bool isRecordOfTheStart(const std::string& rest) {
  const auto digit = [&rest](std::size_t at) { return rest[at] >= '0' && rest[at] <= '9'; };
  if (rest.size() < 12 || rest[0] != '[' || rest[2] != ']' || rest[3] != ' ') return false;
  if (std::string("VDINWTE").find(rest[1]) == std::string::npos) return false;
  if (!startsWith(rest, 4, "L:") || !digit(6) || !digit(7) || !digit(8)) return false;
  for (const char* text :
       {"M:NLog [NLog] No config file in: ", "M:DLL ======", "M:DLL [DLL] setting Server IP from ",
        "M:DLL [DLL] Init conn to ", "M:Socket Error: "}) {
    if (startsWith(rest, 10, text)) return rest.find("Ms:") == std::string::npos;
  }
  return false;
}

}  // namespace

std::string RingReader::path(unsigned index) const {
  return folder_ + "DLL_" + std::to_string(index) + ".log";
}

void RingReader::expect(bool good, const std::string& otherwise) {
  if (!good && problems_.size() < kMostProblems) problems_.push_back(otherwise);
}

void RingReader::checkSizes(std::uint64_t bound) {
  unsigned count = 0;
  for (const auto& entry : fs::directory_iterator(fs::u8path(folder_))) {
    ++count;
    const std::uint64_t size = fs::file_size(entry);
    largest_ = std::max(largest_, size);
    expect(size <= bound, entry.path().filename().u8string() + " has " + std::to_string(size) +
                              " bytes, the bound is " + std::to_string(bound));
  }
  expect(count <= kFilesOfTheRing, std::to_string(count) + " files in the log's folder");
}

void RingReader::readOn() {
  for (unsigned i = 0; i < kFilesOfTheRing; ++i) readFile(i);
}

void RingReader::readFile(unsigned index) {
  File& file = files_[index];
  std::ifstream stream(fs::u8path(path(index)), std::ios::binary | std::ios::ate);
  if (!stream.is_open()) return;
  const auto size = static_cast<std::uint64_t>(stream.tellg());
  if (size < file.offset) file = File();  // it was emptied
  std::string bytes(size - file.offset, '\0');
  stream.seekg(static_cast<std::streamoff>(file.offset));
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.offset = size;
  bytes.insert(0, file.piece);
  std::size_t start = 0;
  for (std::size_t end; (end = bytes.find(kLineEnd, start)) != std::string::npos;) {
    const std::uint64_t at = size - (bytes.size() - start);
    checkLine(file, bytes.substr(start, end - start),
              "DLL_" + std::to_string(index) + ".log at byte " + std::to_string(at));
    start = end + kLineEnd.size();
  }
  file.piece = bytes.substr(start);
}

void RingReader::checkLine(File& file, const std::string& line, const std::string& place) {
  ++lines_;
  if (isWhole(file, line)) return;
  ++torn_;
  if (isJoined(file, line)) {
    ++joined_;
    return;
  }
  // The beginning of a line that could have become whole.
  const bool isStart = hasStamp(line) || line.size() < kStampSize ||
                       startsWith(line, 0, longTextStart().substr(0, line.size()));
  const bool holdsAnother = line.find(" Ms:", kStampSize) != std::string::npos;
  expect(isStart && !holdsAnother, place + ": no record: " + line.substr(0, 200));
}

bool RingReader::isWhole(File& file, const std::string& line) {
  if (line == kClearLine) return true;
  if (startsWith(line, 0, longTextStart())) {
    return countCall(file, line, longTextStart().size(), true);
  }
  if (!hasStamp(line)) return false;
  const std::string rest = line.substr(kStampSize);
  if (rest == longTextHeader() || rest == refusalLine()) return true;
  if (startsWith(rest, 0, shortTextHeader())) {
    return countCall(file, rest, shortTextHeader().size(), false);
  }
  return isRecordOfTheStart(rest);
}

bool RingReader::countCall(File& file, const std::string& line, std::size_t textAt, bool isLong) {
  char* end = nullptr;
  const auto writer = static_cast<unsigned>(std::strtoul(line.c_str() + textAt, &end, 10));
  const auto number = static_cast<unsigned>(std::strtoul(end, nullptr, 10));
  const SampleCall call = sampleCall(writer, number);
  const std::vector<std::string> lines = sampleLines(call);
  if (call.isLong != isLong || line != lines[lines.size() - 2]) return false;
  Calls& calls = file.calls.emplace(writer, Calls{number, number, 0}).first->second;
  expect(calls.count == 0 || calls.latest < number, "call " + std::to_string(number) +
                                                        " of writer " + std::to_string(writer) +
                                                        " stands behind a later one");
  calls.latest = number;
  ++calls.count;
  return true;
}

// Another record directly behind an incomplete one.
bool RingReader::isJoined(File& file, const std::string& line) {
  for (std::size_t at = 1; at + 1 < line.size(); ++at) {
    const bool isBegin = hasStamp(line, at) || startsWith(line, at, longTextStart());
    if (isBegin && isWhole(file, line.substr(at))) return true;
  }
  return false;
}

void RingReader::forgetCalls() {
  for (File& file : files_) file.calls.clear();
}

void RingReader::expectSuffix(unsigned writer, unsigned last, unsigned least) {
  Calls all{last, 0, 0};
  for (const File& file : files_) {
    const auto found = file.calls.find(writer);
    if (found == file.calls.end()) continue;
    all.first = std::min(all.first, found->second.first);
    all.latest = std::max(all.latest, found->second.latest);
    all.count += found->second.count;
  }
  const std::string found = "of writer " + std::to_string(writer) + " there are " +
                            std::to_string(all.count) + " calls from " + std::to_string(all.first) +
                            " to " + std::to_string(all.latest);
  expect(all.latest == last && all.count == last - all.first + 1 && all.count >= least,
         found + ", and its last one was " + std::to_string(last));
}

}  // namespace tolvex::test
