#include <windows.h>

#include <algorithm>
#include <stdexcept>

#include "support/os_child.h"

namespace tolvex::test::os {
namespace {

HANDLE handleOf(std::intptr_t stream) { return reinterpret_cast<HANDLE>(stream); }
std::intptr_t numberOf(HANDLE handle) { return reinterpret_cast<std::intptr_t>(handle); }

std::wstring wide(const std::string& utf8) {
  const int size =
      ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), text.data(), size);
  return text;
}

// A pipe of which the program gets one end.
struct Pipe {
  explicit Pipe(bool programReads) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (::CreatePipe(&reading, &writing, &inherited, 0) == FALSE) {
      throw std::runtime_error("no pipe");
    }
    ::SetHandleInformation(programReads ? writing : reading, HANDLE_FLAG_INHERIT, 0);
  }
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
};

// As the program takes its command line apart again: a quotation mark gets a backslash, and so do
// the backslashes before it.
std::wstring quoted(const std::string& word) {
  std::wstring text = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : wide(word)) {
    if (c == L'"') text.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    text += c;
  }
  text.append(backslashes, L'\\');
  return text + L"\"";
}

// The variables of the test while a program starts, which inherits them.
class Variables {
 public:
  explicit Variables(const Environment& environment) {
    for (const auto& [name, value] : environment) {
      wchar_t before[32768];
      const bool wasSet = ::GetEnvironmentVariableW(wide(name).c_str(), before, 32768) > 0;
      before_.emplace_back(wide(name), wasSet ? std::optional<std::wstring>(before) : std::nullopt);
      ::SetEnvironmentVariableW(wide(name).c_str(), value ? wide(*value).c_str() : nullptr);
    }
  }
  ~Variables() {
    for (const auto& [name, value] : before_) {
      ::SetEnvironmentVariableW(name.c_str(), value ? value->c_str() : nullptr);
    }
  }
  Variables(const Variables&) = delete;
  Variables& operator=(const Variables&) = delete;

 private:
  std::vector<std::pair<std::wstring, std::optional<std::wstring>>> before_;
};

}  // namespace

Process start(const std::vector<std::string>& command, const Environment& environment) {
  const Pipe input(true);
  const Pipe output(false);
  const Pipe error(false);
  std::wstring line;
  for (const std::string& word : command) line += (line.empty() ? L"" : L" ") + quoted(word);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input.reading;
  startup.hStdOutput = output.writing;
  startup.hStdError = error.writing;
  PROCESS_INFORMATION started{};
  const Variables variables(environment);
  const BOOL isStarted = ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                          nullptr, &startup, &started);
  for (HANDLE handle : {input.reading, output.writing, error.writing}) ::CloseHandle(handle);
  if (isStarted == FALSE) throw std::runtime_error(command.front() + " does not start");
  ::CloseHandle(started.hThread);
  return {numberOf(started.hProcess), numberOf(input.writing), numberOf(output.reading),
          numberOf(error.reading)};
}

std::size_t read(std::intptr_t stream, char* buffer, std::size_t size) {
  DWORD count = 0;
  if (::ReadFile(handleOf(stream), buffer, static_cast<DWORD>(size), &count, nullptr) == FALSE) {
    return 0;
  }
  return count;
}

bool write(std::intptr_t stream, const std::string& text) {
  DWORD count = 0;
  return text.empty() || ::WriteFile(handleOf(stream), text.data(), static_cast<DWORD>(text.size()),
                                     &count, nullptr) != FALSE;
}

void close(std::intptr_t stream) { ::CloseHandle(handleOf(stream)); }

void kill(const Process& process) { ::TerminateProcess(handleOf(process.process), 1); }

int wait(const Process& process) {
  ::WaitForSingleObject(handleOf(process.process), INFINITE);
  DWORD exitCode = 0;
  ::GetExitCodeProcess(handleOf(process.process), &exitCode);
  ::CloseHandle(handleOf(process.process));
  return static_cast<int>(exitCode);
}

}  // namespace tolvex::test::os
