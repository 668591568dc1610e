#include "support/json_model.h"

#include <cctype>
#include <cstdlib>

namespace tolvex::fuzz {
namespace {

struct NotJson {};

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  JsonModel read() {
    JsonModel model;
    try {
      skipBlanks();
      const bool isObject = at('{');
      value(isObject ? &model.members : nullptr);
      skipBlanks();
      if (!text_.empty()) throw NotJson();
      model.verdict = doubtful_ ? JsonModel::Verdict::kEither : JsonModel::Verdict::kJson;
    } catch (const NotJson&) {
      model = JsonModel();
      // What stands behind a doubtful number was not looked at by the other reader, perhaps.
    }
    return model;
  }

 private:
  bool at(char c) const { return !text_.empty() && text_.front() == c; }

  char take() {
    if (text_.empty()) throw NotJson();
    const char c = text_.front();
    text_.remove_prefix(1);
    return c;
  }

  bool taken(char c) {
    if (!at(c)) return false;
    take();
    return true;
  }

  void expect(std::string_view word) {
    for (const char c : word) {
      if (take() != c) throw NotJson();
    }
  }

  void skipBlanks() {
    while (at(' ') || at('\t') || at('\r') || at('\n')) take();
  }

  // The members go where somebody wants them.
  void value(std::vector<JsonModel::Member>* members, std::optional<std::string>* text = nullptr) {
    skipBlanks();
    if (at('{')) {
      object(members);
    } else if (at('[')) {
      array();
    } else if (at('"')) {
      const std::string read = string();
      if (text != nullptr) *text = read;
    } else if (at('t')) {
      expect("true");
    } else if (at('f')) {
      expect("false");
    } else if (at('n')) {
      expect("null");
    } else {
      number();
    }
  }

  void object(std::vector<JsonModel::Member>* members) {
    expect("{");
    skipBlanks();
    if (taken('}')) return;
    do {
      skipBlanks();
      JsonModel::Member member;
      member.name = string();
      skipBlanks();
      expect(":");
      value(nullptr, &member.text);
      if (members != nullptr) members->push_back(member);
      skipBlanks();
    } while (taken(','));
    expect("}");
  }

  void array() {
    expect("[");
    skipBlanks();
    if (taken(']')) return;
    do {
      value(nullptr);
      skipBlanks();
    } while (taken(','));
    expect("]");
  }

  std::string string() {
    expect("\"");
    std::string read;
    for (char c = take(); c != '"'; c = take()) {
      if (static_cast<unsigned char>(c) < 0x20) throw NotJson();
      if (c == '\\') {
        escape(read);
      } else {
        read += c;
      }
    }
    return read;
  }

  void escape(std::string& read) {
    const char c = take();
    const std::string_view names = "\"\\/bfnrt";
    const std::size_t at = names.find(c);
    if (at != std::string_view::npos) {
      read += "\"\\/\b\f\n\r\t"[at];
      return;
    }
    if (c != 'u') throw NotJson();
    unsigned point = fourDigits();
    if (point >= 0xD800 && point < 0xDC00) {
      expect("\\u");
      const unsigned second = fourDigits();
      if (second < 0xDC00 || second > 0xDFFF) throw NotJson();
      point = 0x10000 + (point - 0xD800) * 0x400 + (second - 0xDC00);
    }
    addUtf8(read, point);  // a second half alone is written like any other number
  }

  unsigned fourDigits() {
    unsigned number = 0;
    for (int digit = 0; digit < 4; ++digit) {
      const char c = take();
      if (std::isxdigit(static_cast<unsigned char>(c)) == 0) throw NotJson();
      number = number * 16 + static_cast<unsigned>(std::stoi(std::string(1, c), nullptr, 16));
    }
    return number;
  }

  static void addUtf8(std::string& to, unsigned point) {
    const auto add = [&to](unsigned byte) { to += static_cast<char>(byte); };
    if (point < 0x80) {
      add(point);
      return;
    }
    if (point < 0x800) {
      add(0xC0 | point >> 6);
    } else {
      if (point < 0x10000) {
        add(0xE0 | point >> 12);
      } else {
        add(0xF0 | point >> 18);
        add(0x80 | (point >> 12 & 0x3F));
      }
      add(0x80 | (point >> 6 & 0x3F));
    }
    add(0x80 | (point & 0x3F));
  }

  void digits(std::string& number) {
    if (text_.empty() || std::isdigit(static_cast<unsigned char>(text_.front())) == 0) {
      throw NotJson();
    }
    while (!text_.empty() && std::isdigit(static_cast<unsigned char>(text_.front())) != 0) {
      number += take();
    }
  }

  void number() {
    std::string number;
    if (taken('-')) number += '-';
    if (taken('0')) {
      number += '0';
    } else {
      digits(number);
    }
    if (taken('.')) {
      number += '.';
      digits(number);
    }
    if (at('e') || at('E')) {
      number += take();
      const bool isPositive = !at('-');
      if (at('-') || at('+')) number += take();
      std::string exponent;
      digits(exponent);
      doubtful_ = doubtful_ || (isPositive && std::strtod(exponent.c_str(), nullptr) > 290);
    }
    // Of more digits than a double's exponent the library may think differently.
    doubtful_ = doubtful_ || number.size() > 290;
  }

  std::string_view text_;
  bool doubtful_ = false;
};

}  // namespace

std::optional<std::string> JsonModel::text(std::string_view name) const {
  for (const Member& member : members) {
    if (member.name != name) continue;
    if (!member.text) return {};
    return std::string(member.text->c_str());
  }
  return {};
}

JsonModel readJson(std::string_view text) { return Reader(text).read(); }

int numberIn(const std::string& text) {
  std::size_t at = text.find_first_not_of(" \t\n\v\f\r");
  if (at == std::string::npos) return 0;
  const bool negative = text[at] == '-';
  if (negative || text[at] == '+') ++at;
  std::string digits;
  while (at < text.size() && text[at] >= '0' && text[at] <= '9') digits += text[at++];
  digits.erase(0, digits.find_first_not_of('0'));
  if (digits.size() > 10) digits = "9999999999";
  const long long number = digits.empty() ? 0 : std::stoll(digits);
  if (negative) return number > 2147483648 ? -2147483647 - 1 : static_cast<int>(-number);
  return number > 2147483647 ? 2147483647 : static_cast<int>(number);
}

int resultOf(const JsonModel& reply) {
  const std::optional<std::string> code = reply.text("result");
  return code ? numberIn(*code) : -1;
}

}  // namespace tolvex::fuzz
