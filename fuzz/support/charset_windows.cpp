#include "platform/text_encoding.h"
#include "support/charset.h"

namespace tolvex::fuzz {

std::vector<Conversion> conversions(char, const std::string& text) {
  return {{platform::AnsiToUtf8(text.c_str()), false, true}};
}

}  // namespace tolvex::fuzz
