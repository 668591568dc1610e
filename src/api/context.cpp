#include "api/context.h"

#include <atomic>
#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "api/call_frame.h"
#include "config/ini_reader.h"
#include "config/ip_address.h"
#include "log/nlog.h"
#include "platform/library.h"
#include "platform/paths.h"
#include "service/vco_client_api.h"

namespace tolvex {
namespace {

constexpr unsigned kWeighingPort = 53264;
constexpr unsigned kPrintingPort = 53265;
constexpr char kIniName[] = "zelkad_ip_config.ini";
constexpr char kAddressKey[] = "zelkad.ip_addr";
constexpr char kResyncKey[] = "zelkad.resync";

// What the context is made of.
struct Settings {
  std::string address = "127.0.0.1";
  bool resync = false;
};

// The settings so far, and which are settled. Never destroyed: calls may come until the process is gone.
struct SettledSettings {
  RecursiveLock lock;
  Settings now;
  bool addressChosen = false;  // from then on not taken from the INI file
  bool iniTried = false;

  static SettledSettings& instance() {
    static SettledSettings* const settings = new SettledSettings;
    return *settings;
  }
};

std::atomic<bool> highResolutionMode{false};

std::string iniPath() {
  const std::string executable = platform::hostExecutableUtf8();
  return executable.substr(0, executable.rfind(platform::kPathSeparator)) +
         platform::kPathSeparator + kIniName;
}

void takeAddress(const config::IniMap& ini, Settings& settings) {
  const std::string address = config::lookUp(ini, kAddressKey);
  if (!config::isIpv4Address(address)) return;
  settings.address = address;
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 172,
            "[DLL] setting Server IP from zelkad_ip_config.ini file, IP: %s", address.c_str());
}

void takeResync(const config::IniMap& ini, Settings& settings) {
  settings.resync = config::lookUp(ini, kResyncKey) == "1";
  if (!settings.resync) return;
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 175,
            "[DLL] resync is on by zelkad_ip_config.ini file");
}

// The file is for the address above all: an application that chose one may do without it. Memory that
// runs out fails the call, lest the library goes on with an address that nobody chose.
void readIni(Settings& settings, bool addressChosen) {
  const std::optional<config::IniMap> ini = config::readIniFile(iniPath());
  if (!ini) {
    if (addressChosen) return;
    std::fprintf(stderr, "Error: Failed to open INI file\n");
    std::fflush(stderr);
    return;
  }
  if (!addressChosen) takeAddress(*ini, settings);
  takeResync(*ini, settings);
}

Settings settle() {
  SettledSettings& settled = SettledSettings::instance();
  const ScopedLock lock(settled.lock);
  if (!settled.iniTried) {
    readIni(settled.now, settled.addressChosen);
    settled.iniTried = settled.addressChosen = true;
  }
  return settled.now;
}

void logBanner() {
  NLog* const log = NLog::GetInstance();
  NLog::Log(log, kModuleDll, kLevelTrace, 180, "===========================================");
  NLog::Log(log, kModuleDll, kLevelTrace, 181,
            // Whole in the library's file, where tools look for the version.
            "======= tolvex_dll V" TOLVEX_LIBRARY_VERSION "  ================");
  NLog::Log(log, kModuleDll, kLevelTrace, 182, "===========================================");
}

// Both connections to the service.
struct Connections {
  explicit Connections(const char* address)
      : weighing(address, kWeighingPort), printing(address, kPrintingPort) {}
  CTcpClient weighing;
  CTcpClient printing;
};

void openConnection(CTcpClient& connection, const char* name, const std::string& address,
                    unsigned port, unsigned line) {
  if (connection.Open()) return;
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, line,
            "[DLL] Init conn to %s %s:%d Fail", name, address.c_str(), static_cast<int>(port));
}

VcoClientApi* createContext() {
  platform::keepLoaded();
  // Without it the next record would make the logger, with another name and in another folder.
  if (NLog::GetInstance("DLL", platform::libraryLogDirectory().c_str()) == nullptr) {
    throw std::bad_alloc();
  }
  const Settings settings = settle();
  const std::string& address = settings.address;
  logBanner();
  auto connections = std::make_unique<Connections>(address.c_str());
  openConnection(connections->weighing, "LC", address, kWeighingPort, 187);
  openConnection(connections->printing, "Prt", address, kPrintingPort, 193);
  auto* const client =
      new VcoClientApi(&connections->weighing, &connections->printing, settings.resync);
  static_cast<void>(connections.release());  // from here on they live as long as the process
  return client;
}

}  // namespace

VcoClientApi* libraryClient() {
  static VcoClientApi* const client = createContext();
  return client;
}

bool chooseServerAddress(const char* address) {
  platform::keepLoaded();  // for the log
  const std::string text = address != nullptr ? address : "";
  if (!config::isIpv4Address(text)) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 127,
              "[DLL] setting Server IP failed from SetServerIpForRemoteAccess API, IP: %s",
              printable(address));
    return false;
  }
  SettledSettings& settled = SettledSettings::instance();
  const ScopedLock lock(settled.lock);
  settled.addressChosen = true;
  settled.now.address = text;
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 123,
            "[DLL] setting Server IP from SetServerIpForRemoteAccess API, IP: %s", text.c_str());
  return true;
}

bool highResolutionWeights() { return highResolutionMode.load(std::memory_order_relaxed); }

void setHighResolutionWeights(bool on) { highResolutionMode.store(on, std::memory_order_relaxed); }

}  // namespace tolvex
