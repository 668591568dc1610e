#include "platform/posix/charset.h"

#include <iconv.h>
#include <langinfo.h>

#include <cerrno>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <new>

#include "platform/posix/utf8.h"

namespace tolvex::platform {
namespace {

// A conversion to UTF-8. iconv keeps its state in it, so each call of AnsiToUtf8 opens its own,
// which takes less than a microsecond.
class Conversion {
 public:
  // Throws std::bad_alloc where the system has no means for it now. A set that it does not know is no
  // such failure: the conversion is not open then.
  explicit Conversion(const std::string& charset) : handle_(iconv_open(kUtf8, charset.c_str())) {
    if (!isOpen() && errno != EINVAL) throw std::bad_alloc();
  }
  ~Conversion() {
    if (isOpen()) iconv_close(handle_);
  }
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;

  bool isOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  // Converts as far as characters go and moves text and size behind them.
  void convert(const char*& text, std::size_t& size, std::string& utf8) {
    char* input = const_cast<char*>(text);  // iconv only reads it
    run(&input, &size, utf8);
    text = input;
  }

  // Ends the text here. Some sets hold a letter back until it is known whether an accent follows.
  void end(std::string& utf8) { run(nullptr, nullptr, utf8); }

 private:
  void run(char** input, std::size_t* size, std::string& utf8) {
    char block[4096];
    bool isFull = true;
    while (isFull) {
      char* output = block;
      std::size_t room = sizeof(block);
      isFull = iconv(handle_, input, size, &output, &room) == static_cast<std::size_t>(-1) &&
               errno == E2BIG;
      utf8.append(block, sizeof(block) - room);
    }
  }

  iconv_t handle_;
};

std::string installedCharset() {
  errno = 0;  // which stays where there is no such locale
  const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (locale == nullptr && errno == ENOMEM) throw std::bad_alloc();
  if (locale == nullptr) return {};
  try {
    std::string charset = nl_langinfo_l(CODESET, locale);
    freelocale(locale);
    return charset;
  } catch (const std::bad_alloc&) {
    freelocale(locale);
    throw;
  }
}

}  // namespace

const char* const kUtf8 = "UTF-8";

std::string localeName(const char* lcAll, const char* lcCtype, const char* lang) {
  for (const char* const value : {lcAll, lcCtype, lang}) {
    if (value != nullptr && value[0] != '\0') return value;
  }
  return {};
}

std::string charsetInName(const std::string& locale) {
  const std::size_t dot = locale.find('.');
  const std::size_t modifier = locale.find('@');
  if (dot == std::string::npos || dot > modifier) return {};
  return locale.substr(dot + 1, modifier - dot - 1);
}

bool isUsable(const std::string& charset) {
  // iconv would take an empty name for the host's locale, and options behind a slash.
  if (charset.empty() || charset.find('/') != std::string::npos) return false;
  if (!Conversion(charset).isOpen()) return false;
  const std::string ascii = "AZaz09";
  return convertedToUtf8(charset, ascii.data(), ascii.size()) == ascii;
}

bool isUtf8(const std::string& charset) {
  std::string plain;
  for (const char c : charset) {
    if (c != '-' && c != '_') plain += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return plain == "UTF8";
}

std::string userCharset() {
  const std::string locale =
      localeName(std::getenv("LC_ALL"), std::getenv("LC_CTYPE"), std::getenv("LANG"));
  if (locale.empty() || locale == "C" || locale == "POSIX") return kUtf8;
  std::string charset = installedCharset();
  if (charset.empty()) charset = charsetInName(locale);
  return isUsable(charset) && !isUtf8(charset) ? charset : kUtf8;
}

std::string convertedToUtf8(const std::string& charset, const char* text, std::size_t size) {
  Conversion conversion(charset);
  // The system knew the set when it was chosen: now it cannot open the file of its conversion.
  if (!conversion.isOpen()) throw std::bad_alloc();
  std::string utf8;
  for (;;) {
    conversion.convert(text, size, utf8);
    conversion.end(utf8);
    if (size == 0) return utf8;
    // What was held back stands before the replacement. A set with shift states begins anew; no
    // locale has one.
    utf8.append(kReplacement);
    ++text;
    --size;
  }
}

}  // namespace tolvex::platform
