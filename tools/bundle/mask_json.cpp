#include <algorithm>
#include <array>

#include "bundle/mask.h"

namespace tolvex::ctl {
namespace {

// Members whose strings say nothing about what is sold: names of things, versions and units.
constexpr std::array<std::string_view, 14> kHarmlessMembers = {
    "result",   "printerName", "printerType",   "filename", "module",     "level",    "PrinterList",
    "tareType", "weightUnit",  "systemVersion", "version",  "VcoVersion", "fontsize", "unit"};

// Members that always are texts, even if they hold nothing but a number.
constexpr std::array<std::string_view, 2> kTexts = {"text", "paramList"};

constexpr std::size_t kLongestNumber = 12;  // no account or article numbers
constexpr std::size_t kLongestName = 40;

template <typename List>
bool isOneOf(std::string_view word, const List& list) {
  return std::find(list.begin(), list.end(), word) != list.end();
}

bool isFigure(char c) { return c >= '0' && c <= '9'; }

bool isNumber(std::string_view text) {
  return text.size() <= kLongestNumber && std::all_of(text.begin(), text.end(), [](char c) {
           return isFigure(c) || std::string_view("+-.,: ").find(c) != std::string_view::npos;
         });
}

// A word such as a program uses for a member or a command.
bool isIdentifier(std::string_view text) {
  return !text.empty() && text.size() <= kLongestName &&
         std::all_of(text.begin(), text.end(), [](char c) {
           return isFigure(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
         });
}

// What stands between the quotes, masked without spoiling its escapes.
std::string maskString(std::string_view raw) {
  std::string result;
  while (!raw.empty()) {
    const std::size_t escape = raw.find('\\');
    result += maskText(raw.substr(0, escape));
    if (escape == std::string_view::npos) break;
    raw.remove_prefix(escape);
    if (raw.size() > 1 && raw[1] == 'u') {
      const std::string_view code = raw.substr(0, 6);
      result += std::string_view("\\u0078").substr(0, code.size());
      raw.remove_prefix(code.size());
    } else {
      result += raw.substr(0, 2);
      raw.remove_prefix(std::min<std::size_t>(2, raw.size()));
    }
  }
  return result;
}

class JsonMasker {
 public:
  explicit JsonMasker(std::string_view json) : rest_(json) {}

  std::string run() {
    while (!rest_.empty()) {
      if (rest_.front() == '"') {
        string();
      } else {
        other();
      }
    }
    return std::move(result_);
  }

 private:
  void string() {
    std::size_t end = 1;
    while (end < rest_.size() && rest_[end] != '"') end += rest_[end] == '\\' ? 2U : 1U;
    const bool closed = end < rest_.size();
    const std::string_view raw = rest_.substr(1, closed ? end - 1 : std::string_view::npos);
    rest_.remove_prefix(closed ? end + 1 : rest_.size());
    const std::size_t next = rest_.find_first_not_of(" \t\r\n");
    const bool isKey = closed && next != std::string_view::npos && rest_[next] == ':';
    if (isKey) key_ = raw;
    const bool stays = closed && (isKey ? isIdentifier(raw) : valueStays(raw));
    result_ += '"';
    result_ += stays ? std::string(raw) : maskString(raw);
    if (closed) result_ += '"';
  }

  bool valueStays(std::string_view raw) const {
    if (isOneOf(key_, kTexts)) return false;
    if (key_ == "cmd") return isIdentifier(raw);
    return isOneOf(key_, kHarmlessMembers) || isNumber(raw);
  }

  // Brackets, commas, and words without quotes: numbers, true, false and null, or no JSON at all.
  void other() {
    std::size_t end = rest_.find_first_of("\"{}[]:, \t\r\n");
    end = end == 0 ? 1 : std::min(end, rest_.size());
    const std::string_view word = rest_.substr(0, end);
    const bool literal = word == "true" || word == "false" || word == "null";
    const bool stays = literal || (isNumber(word) && !isOneOf(key_, kTexts));
    result_ += stays ? std::string(word) : maskText(word);
    rest_.remove_prefix(end);
  }

  std::string_view rest_;
  std::string_view key_;
  std::string result_;
};

}  // namespace

std::string maskJson(std::string_view json) { return JsonMasker(json).run(); }

}  // namespace tolvex::ctl
