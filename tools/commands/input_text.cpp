#include "commands/input_text.h"

#include <exports.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "base/failure.h"
#include "base/printable.h"
#include "platform/ansi_text.h"
#include "platform/streams.h"

namespace tolvex::ctl {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestText = 8u << 20;
constexpr std::size_t kLongestLine = 2048;  // in UTF-8, as the library sends it at once
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string readFile(const std::string& file) {
  std::error_code ignored;
  if (fs::is_directory(fs::u8path(file), ignored)) {
    throw Failure(ExitCode::Failed, file + " is a folder",
                  "Name a file with text, or - for "
                  "standard input.");
  }
  std::ifstream in(fs::u8path(file), std::ios::binary);
  std::string text(kLongestText + 1, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (!in.is_open() || in.bad()) {
    throw Failure(ExitCode::Failed, "cannot read " + file,
                  "Check the name and the rights of the file; - reads standard input.");
  }
  text.resize(static_cast<std::size_t>(in.gcount()));
  return text;
}

std::string lineNumber(std::size_t index) { return "line " + std::to_string(index + 1); }

// The bytes of the character that the text begins with; it is well-formed.
std::size_t lengthOfFirst(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0u) == 0x80u) {
    ++length;
  }
  return length;
}

void check(const std::string& text) {
  const std::vector<std::string> lines = linesOf(text);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].find('\0') != std::string::npos) {
      throw Failure(ExitCode::Failed, lineNumber(i) + " of the text has a NUL",
                    "Name a file with text; images are printed with tolvexctl image.");
    }
    if (!isUtf8(lines[i])) {
      throw Failure(ExitCode::Failed, lineNumber(i) + " of the text is not UTF-8",
                    "Save the text as UTF-8, or convert it: iconv -f WINDOWS-1252 -t UTF-8.");
    }
  }
}

// Found when the text as a whole could not be converted.
[[noreturn]] void refuseCharacter(const std::string& text) {
  const std::vector<std::string> lines = linesOf(text);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::string_view rest = lines[i];
    while (!rest.empty()) {
      const std::string character(rest.substr(0, lengthOfFirst(rest)));
      if (!platform::toAnsi(character)) {
        throw Failure(ExitCode::Failed,
                      "the system's ANSI code page (" + platform::ansiName() + ") has no \"" +
                          printable(character) + "\" (" + lineNumber(i) + ")",
                      "Print it with --direct, which takes every character, or leave it out.");
      }
      rest.remove_prefix(character.size());
    }
  }
  throw Failure(ExitCode::Failed, "cannot convert the text to " + platform::ansiName(),
                "Print it with --direct.");
}

}  // namespace

std::string readText(const std::string& file) {
  std::string text = file == "-" ? platform::readStandardInput(kLongestText) : readFile(file);
  if (text.size() > kLongestText) {
    throw Failure(ExitCode::Failed, "the text is longer than 8 MiB", "Print it in parts.");
  }
  if (text.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0) {
    text.erase(0, kByteOrderMark.size());
  }
  if (text.empty()) {
    throw Failure(ExitCode::Failed, "there is nothing to print", "The text is empty.");
  }
  check(text);
  return text;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    std::string line = text.substr(begin, end - begin);
    if (end < text.size() && !line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    begin = end + 1;
  }
  return lines;
}

void checkLineLengths(const std::string& text) {
  const std::vector<std::string> lines = linesOf(text);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].size() <= kLongestLine) continue;
    throw Failure("cannot print " + lineNumber(i), TOLVEX_RESULT_TOO_MUCH_TO_PRINT);
  }
}

std::string inAnsi(const std::string& text) {
  const auto ansi = platform::toAnsi(text);
  if (!ansi) refuseCharacter(text);
  return *ansi;
}

std::string imagePath(const std::string& file) {
  std::error_code problem;
  if (!fs::is_regular_file(fs::u8path(file), problem)) {
    throw Failure(ExitCode::Failed, "there is no image " + file,
                  "Name a file with an image, such as a BMP.");
  }
  return fs::absolute(fs::u8path(file)).u8string();
}

}  // namespace tolvex::ctl
