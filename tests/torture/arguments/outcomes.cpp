#include "outcomes.h"

#include <utility>

namespace tolvex::test {
namespace {

constexpr std::size_t kLongestName = 255;

std::string escaped(const std::string& text) {
  std::string json;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const std::size_t special = std::string("\"\\\b\f\n\r\t").find(c);
    if (special != std::string::npos) {
      json += {'\\', "\"\\bfnrt"[special]};
    } else if (byte < 0x20) {
      constexpr char kDigits[] = "0123456789ABCDEF";
      json += {'\\', 'u', '0', '0', kDigits[byte / 16], kDigits[byte % 16]};
    } else {
      json += c;
    }
  }
  return json;
}

}  // namespace

std::string request(const std::string& command, const std::vector<Member>& members) {
  std::string json = R"({"cmd":")" + escaped(command) + "\"";
  for (const Member& member : members) {
    json += ",\"" + member.key + "\":\"" + escaped(member.text) + "\"";
  }
  return json + "}";
}

Expected refused(int result) { return {result, false, {}, false, ""}; }
Expected silently(int result) { return refused(result); }

Expected sent(int result, const std::string& text) { return {result, false, {text}, false, ""}; }

Expected writing(Expected expected, const std::string& bytes) {
  expected.writes = true;
  expected.written = bytes;
  return expected;
}

std::string padded(std::string text, std::size_t size) {
  text.resize(size, '\0');
  return text;
}

Expected wholeReply(const std::string& text, const Value& buffer, const Value& size, int good,
                    int tooLong) {
  const bool fits = !buffer.isNull && kReplyToAll.size() <= static_cast<unsigned>(size.number);
  const Expected expected = sent(fits ? good : tooLong, text);
  return buffer.isNull ? expected : writing(expected, padded(kReplyToAll, buffer.room));
}

Expected exactText(const std::string& command, const Value& buffer, const Value& size,
                   const std::string& text, int good, int tooLong) {
  const bool fits = !buffer.isNull && text.size() <= static_cast<unsigned>(size.number);
  const Expected expected = sent(fits ? good : tooLong, command);
  return fits ? writing(expected, text) : expected;
}

bool isName(const Value& v) { return !v.isNull && v.terminated && v.text.size() <= kLongestName; }

}  // namespace tolvex::test
