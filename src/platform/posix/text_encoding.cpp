#include "platform/text_encoding.h"

#include <cstring>
#include <utility>

#include "platform/posix/charset.h"
#include "platform/posix/utf8.h"

namespace tolvex::platform {
namespace {

// Found first, made then: the compiler gives back no memory when finding throws in the midst of "new".
const std::string* madeOfUserCharset() {
  std::string charset = userCharset();
  return new std::string(std::move(charset));
}

}  // namespace

std::string AnsiToUtf8(const char* text) {
  // Never freed: threads of the host may still print while the process ends.
  static const std::string* const charset = madeOfUserCharset();
  if (text == nullptr) return {};
  const std::size_t size = std::strlen(text);
  return *charset == kUtf8 ? repairedUtf8(text, size) : convertedToUtf8(*charset, text, size);
}

}  // namespace tolvex::platform
