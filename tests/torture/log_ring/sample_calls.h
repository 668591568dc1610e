// The calls that fill the log, and what each of them leaves there.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tolvex::test {

// A call of PrintText, or with a long text of PrintTextByPaperWidth, that the library logs and then
// refuses for its font size: nothing is queued, and no service is needed.
struct SampleCall {
  bool isLong;
  std::string text;
};

constexpr unsigned kRefusedFontSize = 99;
constexpr std::size_t kLongestText = 8000;  // a long text takes several buffers of the logger
constexpr std::size_t kLongestLine = kLongestText + 100;

// The text of each call is another one and can be told from its beginning "<writer> <number> ".
SampleCall sampleCall(unsigned writer, unsigned number);

// The lines of the log that the call makes, without their time stamp but for continued ones, which
// have none: the line with the text is the last but one.
std::vector<std::string> sampleLines(const SampleCall& call);

// What stands before the text in a line of the log.
const std::string& shortTextHeader();
const std::string& longTextHeader();
const std::string& longTextStart();
const std::string& refusalLine();

constexpr std::size_t kStampSize = sizeof("2026-11-21 14:07:09 Ms:042 ") - 1;

// The bytes of those lines in the file.
std::size_t sampleBytes(const SampleCall& call);

}  // namespace tolvex::test
