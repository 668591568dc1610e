#include "support/host.h"

#ifdef _WIN32
#include <windows.h>
#endif

#include <cstdlib>
#include <fstream>

#include "support/os_support.h"

namespace tolvex::test {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
fs::path executable() {
  wchar_t path[1024] = {};
  GetModuleFileNameW(nullptr, path, 1023);
  return path;
}
#else
fs::path executable() { return fs::read_symlink("/proc/self/exe"); }
#endif

// TOLVEX_TEST_NETWORK, for example 127.76, keeps the tests of several build trees apart that run at
// the same time in containers of their own, where processes may share a number.
std::string ownAddress() {
  const unsigned long id = processId();
  const char* const chosen = std::getenv("TOLVEX_TEST_NETWORK");
  const std::string network =
      chosen != nullptr ? chosen : "127." + std::to_string(64 + id / 62500 % 64);
  return network + "." + std::to_string(1 + id / 250 % 250) + "." + std::to_string(1 + id % 250);
}

fs::path iniFile() { return executable().parent_path() / "zelkad_ip_config.ini"; }

void write(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

}  // namespace

Host::Host() : address_(ownAddress()) {
#ifdef _WIN32
  logFolder_ = "c:/VARN/Log";
  defaultLogFolder_ = "c:/Corvane/Log";
  fs::remove_all(logFolder_);
  fs::remove_all(defaultLogFolder_);
#else
  scratch_ = fs::temp_directory_path() / ("tolvex-test-" + std::to_string(processId()));
  fs::remove_all(scratch_);
  setenv("XDG_STATE_HOME", scratch_.c_str(), 1);
  logFolder_ = scratch_ / "varn/log";
  defaultLogFolder_ = scratch_ / "corvane/log";
#endif
  fs::create_directories(logFolder_);
  fs::create_directories(defaultLogFolder_);
  withIni("[zelkad]\nip_addr=" + address_ + "\n");
}

Host::~Host() {
  withoutIni();
  std::error_code ignored;
  if (!scratch_.empty()) fs::remove_all(scratch_, ignored);
}

void Host::withIni(const std::string& text) { write(iniFile(), text); }

void Host::withoutIni() { fs::remove(iniFile()); }

void Host::withLogConfig(const std::string& text) { write(logFolder_ / "NLog.ini", text); }

void Host::withoutLogFolder() { fs::remove_all(logFolder_); }

}  // namespace tolvex::test
