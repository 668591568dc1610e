#include "torture/log_ring/sample_calls.h"

#include <random>

#include "support/os_support.h"

namespace tolvex::test {
namespace {

constexpr std::size_t kLongestRecord = 510;
constexpr std::size_t kLongestShortText = 520;  // some are cut

}  // namespace

const std::string& shortTextHeader() {
  static const std::string text = "[T] L:528 M:DLL [log_ring_torture][PrintText] font:99 [";
  return text;
}

const std::string& longTextHeader() {
  static const std::string text = "[T] L:555 M:DLL ";
  return text;
}

const std::string& longTextStart() {
  static const std::string text = "[PrintTextByPaperWidth] ";
  return text;
}

const std::string& refusalLine() {
  static const std::string text = "[W] L:532 M:DLL [PrintText] font size too big:99";
  return text;
}

SampleCall sampleCall(unsigned writer, unsigned number) {
  std::minstd_rand random(writer * 7919U + number);
  random.discard(2);
  const bool isLong = number % 16 == 3;
  const std::size_t size = random() % (isLong ? kLongestText : kLongestShortText);
  std::string text = std::to_string(writer) + ' ' + std::to_string(number) + ' ';
  const auto first = static_cast<unsigned>(random() % 26);
  for (std::size_t i = text.size(); i < size; ++i) {
    text += static_cast<char>('a' + (first + i) % 26);
  }
  return {isLong, text};
}

std::vector<std::string> sampleLines(const SampleCall& call) {
  if (call.isLong) return {longTextHeader(), longTextStart() + call.text, refusalLine()};
  std::string record = shortTextHeader() + call.text + ']';
  if (record.size() > kLongestRecord - kStampSize) record.resize(kLongestRecord - kStampSize);
  return {record, refusalLine()};
}

std::size_t sampleBytes(const SampleCall& call) {
  std::size_t bytes = 2 * kStampSize;  // of two of them, be it two lines or three
  for (const std::string& line : sampleLines(call)) bytes += line.size() + kLineEnd.size();
  return bytes;
}

}  // namespace tolvex::test
