#include "logs/log_record.h"

#include <algorithm>
#include <cstdio>

#include "base/printable.h"
#include "platform/text_encoding.h"

namespace tolvex::ctl {
namespace {

constexpr std::string_view kLetters = "VDINWTE";
// "2024-03-05 14:07:09 Ms:042 [W] L:"
constexpr std::size_t kFixedSize = 33;
constexpr std::size_t kMostLineDigits = 10;
constexpr char kReplacement[] = "\xEF\xBF\xBD";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Whether the text looks like the pattern, in which '0' stands for any digit and '?' for anything.
bool matches(std::string_view text, std::string_view pattern) {
  if (text.size() < pattern.size()) return false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const bool fits =
        pattern[i] == '0' ? isDigit(text[i]) : pattern[i] == '?' || pattern[i] == text[i];
    if (!fits) return false;
  }
  return true;
}

unsigned digits(std::string_view text, std::size_t at, std::size_t count) {
  unsigned value = 0;
  for (const char c : text.substr(at, count)) value = value * 10 + static_cast<unsigned>(c - '0');
  return value;
}

std::optional<LogTime> headerTime(std::string_view line) {
  return logTime(digits(line, 0, 4), digits(line, 5, 2), digits(line, 8, 2), digits(line, 11, 2),
                 digits(line, 14, 2), digits(line, 17, 2), digits(line, 23, 3));
}

// The bytes at the end of a text that begin a character without finishing it.
std::size_t unfinished(std::string_view bytes) {
  for (std::size_t count = 1; count <= 3 && count <= bytes.size(); ++count) {
    const auto lead = static_cast<unsigned char>(bytes[bytes.size() - count]);
    if (lead < 0x80) return 0;
    const std::size_t whole = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (whole != 0) return count < whole ? count : 0;
  }
  return 0;
}

}  // namespace

std::optional<LogHeader> parseLogHeader(std::string_view line) {
  if (!matches(line, "0000-00-00 00:00:00 Ms:000 [?] L:000")) return {};
  const std::optional<LogTime> time = headerTime(line);
  LogHeader header;
  header.letter = line[28];
  if (!time || (header.letter != '*' && levelOfLetter(header.letter) == 0)) return {};
  header.time = *time;
  std::size_t end = kFixedSize;
  while (end < line.size() && end < kFixedSize + kMostLineDigits && isDigit(line[end])) ++end;
  header.line = digits(line, kFixedSize, end - kFixedSize);
  std::string_view rest = line.substr(end);
  if (rest.empty() || rest.front() != ' ') return {};
  rest.remove_prefix(1);
  if (rest.substr(0, 2) == "M:") {
    const std::size_t blank = rest.find(' ');
    header.module = rest.substr(2, blank == std::string_view::npos ? blank : blank - 2);
    rest = blank == std::string_view::npos ? std::string_view() : rest.substr(blank + 1);
  }
  header.message = rest;
  return header;
}

int levelOfLetter(char letter) {
  const std::size_t at = kLetters.find(letter);
  return at == std::string_view::npos ? 0 : static_cast<int>(at) + 1;
}

char letterOfLevel(int level) {
  return level >= 1 && level <= 7 ? kLetters[static_cast<std::size_t>(level) - 1] : '*';
}

std::string logTextInUtf8(std::string_view bytes) {
  if (isUtf8(bytes)) return std::string(bytes);
  const std::size_t cut = unfinished(bytes);
  const std::string_view whole = bytes.substr(0, bytes.size() - cut);
  if (cut > 0 && isUtf8(whole)) return std::string(whole) + kReplacement;
  std::string text;
  for (std::size_t begin = 0; begin <= bytes.size();) {  // the conversion ends at a NUL
    const std::size_t end = std::min(bytes.find('\0', begin), bytes.size());
    text += tolvex::platform::AnsiToUtf8(std::string(bytes.substr(begin, end - begin)).c_str());
    if (end < bytes.size()) text += '\0';
    begin = end + 1;
  }
  return text;
}

std::string withoutControls(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    // C2 80 to C2 9F are the controls of eight bits.
    const bool eightBit =
        byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    if ((byte >= 0x20 && byte != 0x7F && !eightBit) || byte == '\t') {
      shown += text[i];
      continue;
    }
    char escape[8];
    std::snprintf(escape, sizeof(escape), "\\x%02X",
                  eightBit ? static_cast<unsigned char>(text[++i]) : static_cast<unsigned>(byte));
    shown += escape;
  }
  return shown;
}

}  // namespace tolvex::ctl
