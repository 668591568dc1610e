#include "platform/ansi_text.h"

#include <iconv.h>

#include <cstdint>

#include "platform/posix/charset.h"

namespace tolvex::ctl::platform {

// Nothing is put in the place of a character that is lacking: the answer is that there is one.
std::optional<std::string> toAnsi(const std::string& utf8) {
  const std::string charset = tolvex::platform::userCharset();
  if (charset == tolvex::platform::kUtf8) return utf8;
  iconv_t conversion = ::iconv_open(charset.c_str(), tolvex::platform::kUtf8);
  if (reinterpret_cast<std::intptr_t>(conversion) == -1) return std::nullopt;
  std::string in = utf8;
  std::string out(utf8.size() * 4 + 16, '\0');
  char* input = in.data();
  char* output = out.data();
  std::size_t left = in.size();
  std::size_t room = out.size();
  const std::size_t replaced = ::iconv(conversion, &input, &left, &output, &room);
  ::iconv_close(conversion);
  if (replaced != 0) return std::nullopt;
  out.resize(out.size() - room);
  return out;
}

std::string ansiName() { return tolvex::platform::userCharset(); }

}  // namespace tolvex::ctl::platform
