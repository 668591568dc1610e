#include "platform/streams.h"

#include <windows.h>
// io.h and fcntl.h: the C library's file numbers.
#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdint>

#include "platform/windows/utf16.h"

namespace tolvex::ctl::platform {
namespace {

constexpr std::size_t kCapturePiece = 65536;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// A handle of our own, which outlives what the C library does to the original.
HANDLE ownHandle(DWORD which) {
  HANDLE own = INVALID_HANDLE_VALUE;
  ::DuplicateHandle(::GetCurrentProcess(), ::GetStdHandle(which), ::GetCurrentProcess(), &own, 0,
                    FALSE, DUPLICATE_SAME_ACCESS);
  return own;
}

bool isConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != FALSE;
}

// A console takes UTF-16, whatever its code page; a file or a pipe gets the bytes.
bool writeAll(HANDLE handle, const std::string& text) {
  if (isConsole(handle)) {
    const std::wstring wide = toUtf16(text);
    DWORD count = 0;
    return ::WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), &count, nullptr) !=
           FALSE;
  }
  std::size_t done = 0;
  while (done < text.size()) {
    DWORD count = 0;
    const auto size = static_cast<DWORD>(std::min<std::size_t>(text.size() - done, 1u << 20));
    if (::WriteFile(handle, text.data() + done, size, &count, nullptr) == FALSE) return false;
    done += count;
  }
  return true;
}

std::wstring capturePath() {
  wchar_t folder[MAX_PATH + 1] = {};
  ::GetTempPathW(MAX_PATH + 1, folder);
  return std::wstring(folder) + L"tolvexctl-" + std::to_wstring(::GetCurrentProcessId()) + L".tmp";
}

class WindowsStreams : public Streams {
 public:
  WindowsStreams() : output_(ownHandle(STD_OUTPUT_HANDLE)), error_(ownHandle(STD_ERROR_HANDLE)) {
    const std::wstring path = capturePath();
    HANDLE file =
        ::CreateFileW(path.c_str(), FILE_APPEND_DATA | DELETE | SYNCHRONIZE, kShareAll, nullptr,
                      CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      capture_ =
          ::CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
    } else {
      file = ::CreateFileW(L"NUL", GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
    }
    const int number = ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY);
    ::_dup2(number, 1);
    ::_dup2(number, 2);
  }

  bool output(const std::string& text) override { return writeAll(output_, text); }
  void error(const std::string& text) override { writeAll(error_, text); }

  bool outputIsTerminal() override {
    DWORD mode = 0;
    return ::GetConsoleMode(output_, &mode) != FALSE &&
           ::SetConsoleMode(output_, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
  }

  std::string captured(std::size_t offset) override {
    LARGE_INTEGER position;
    position.QuadPart = static_cast<LONGLONG>(offset);
    std::string text(kCapturePiece, '\0');
    DWORD count = 0;
    if (capture_ == INVALID_HANDLE_VALUE ||
        ::SetFilePointerEx(capture_, position, nullptr, FILE_BEGIN) == FALSE ||
        ::ReadFile(capture_, text.data(), static_cast<DWORD>(text.size()), &count, nullptr) ==
            FALSE) {
      return "";
    }
    text.resize(count);
    return text;
  }

 private:
  HANDLE output_;
  HANDLE error_;
  HANDLE capture_ = INVALID_HANDLE_VALUE;
};

}  // namespace

// Never destroyed: a thread that nobody waits for may still write when the process ends.
Streams& standardStreams() {
  static Streams* const streams = new WindowsStreams;
  return *streams;
}

std::string readStandardInput(std::size_t most) {
  const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
  std::string text;
  char piece[65536];
  DWORD count = 0;
  while (text.size() <= most && ::ReadFile(input, piece, sizeof(piece), &count, nullptr) != FALSE &&
         count > 0) {
    text.append(piece, count);
  }
  return text;
}

}  // namespace tolvex::ctl::platform
