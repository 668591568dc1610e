#include "logs/utf8.h"

namespace tolvex::ctl {
namespace {

unsigned byteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

// The smallest second byte that does not make an overlong form, the largest that makes no surrogate
// and nothing beyond Unicode.
bool isSecond(unsigned lead, unsigned second) {
  const unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  return second >= least && second <= most;
}

}  // namespace

std::size_t utf8CharacterSize(std::string_view bytes) {
  if (bytes.empty()) return 0;
  const unsigned lead = byteAt(bytes, 0);
  if (lead < 0x80) return 1;
  const std::size_t size = lead >= 0xC2 && lead < 0xE0   ? 2
                           : lead >= 0xE0 && lead < 0xF0 ? 3
                           : lead >= 0xF0 && lead < 0xF5 ? 4
                                                         : 0;
  if (size == 0 || bytes.size() < size || !isSecond(lead, byteAt(bytes, 1))) return 0;
  for (std::size_t i = 2; i < size; ++i) {
    if ((byteAt(bytes, i) & 0xC0) != 0x80) return 0;
  }
  return size;
}

}  // namespace tolvex::ctl
