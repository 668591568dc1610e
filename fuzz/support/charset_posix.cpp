#include <iterator>

#include "platform/posix/charset.h"
#include "platform/posix/utf8.h"
#include "platform/text_encoding.h"
#include "support/charset.h"

namespace tolvex::fuzz {
namespace {

struct Set {
  const char* name;
  bool keepsAscii;
};

// Those of the locales that tills have, with the ones that hold letters back or give two for one.
constexpr Set kSets[] = {{"GBK", true},    {"GB18030", true},    {"BIG5-HKSCS", true},
                         {"CP1251", true}, {"CP1252", true},     {"CP1255", true},
                         {"KOI8-R", true}, {"ISO-8859-1", true}, {"EUC-KR", true},
                         {"EUC-JP", true}, {"SHIFT_JIS", false}, {"TCVN5712-1", false}};

}  // namespace

std::vector<Conversion> conversions(char letter, const std::string& text) {
  static const bool isUtf8 = platform::userCharset() == platform::kUtf8;
  std::vector<Conversion> all = {
      {platform::AnsiToUtf8(text.c_str()), isUtf8, true},
      {platform::repairedUtf8(text.data(), text.size()), true, true},
  };
  const Set& set = kSets[static_cast<unsigned char>(letter) % std::size(kSets)];
  all.push_back(
      {platform::convertedToUtf8(set.name, text.data(), text.size()), false, set.keepsAscii});
  return all;
}

}  // namespace tolvex::fuzz
