#include <windows.h>

#include <algorithm>
#include <stdexcept>

#include "support/child_process.h"

namespace tolvex::test {

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments) {
  std::string line = "\"" + program + "\"";
  for (const std::string& argument : arguments) line += " \"" + argument + "\"";
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  if (CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &start, &process) == FALSE) {
    throw std::runtime_error("cannot start " + program);
  }
  CloseHandle(process.hThread);
  handle_ = reinterpret_cast<std::intptr_t>(process.hProcess);
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : handle_(other.handle_) {
  other.handle_ = 0;
}

ChildProcess::~ChildProcess() {
  if (handle_ == 0) return;
  const HANDLE process = reinterpret_cast<HANDLE>(handle_);
  TerminateProcess(process, 1);
  WaitForSingleObject(process, INFINITE);
  CloseHandle(process);
}

bool ChildProcess::endsUntil(std::chrono::steady_clock::time_point limit, bool& well) {
  const HANDLE process = reinterpret_cast<HANDLE>(handle_);
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
      limit - std::chrono::steady_clock::now());
  const auto wait = static_cast<DWORD>(std::max<long long>(left.count(), 0));
  if (WaitForSingleObject(process, wait) != WAIT_OBJECT_0) return false;
  DWORD code = 1;
  GetExitCodeProcess(process, &code);
  CloseHandle(process);
  handle_ = 0;
  well = code == 0;
  return true;
}

std::string ownProgram() {
  char path[1024] = {};
  GetModuleFileNameA(nullptr, path, sizeof(path) - 1);
  return path;
}

}  // namespace tolvex::test
