#include "api/context.h"

#include <atomic>
#include <cstdio>
#include <exception>
#include <memory>
#include <new>
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

// The address and whether it is settled. Never destroyed: calls may come until the process is gone.
struct ServerAddress {
  RecursiveLock lock;
  std::string text = "127.0.0.1";
  bool chosen = false;  // from then on the INI file is not read

  static ServerAddress& instance() {
    static ServerAddress* const address = new ServerAddress;
    return *address;
  }
};

std::atomic<bool> highResolution{false};

std::string iniPath() {
  const std::string executable = platform::hostExecutableUtf8();
  return executable.substr(0, executable.rfind(platform::kPathSeparator)) +
         platform::kPathSeparator + kIniName;
}

void readAddressFromIni(ServerAddress& server) {
  try {
    const std::string address = config::lookUp(config::readIniFile(iniPath()), kAddressKey);
    if (!config::isIpv4Address(address)) return;
    server.text = address;
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 172,
              "[DLL] setting Server IP from zelkad_ip_config.ini file, IP: %s", address.c_str());
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "Error: %s\n", failure.what());
    std::fflush(stderr);
  }
}

std::string settledAddress() {
  ServerAddress& server = ServerAddress::instance();
  const ScopedLock lock(server.lock);
  if (!server.chosen) {
    server.chosen = true;  // before anything can fail: the file is tried once
    readAddressFromIni(server);
  }
  return server.text;
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
  NLog::GetInstance("DLL", platform::libraryLogDirectory().c_str());
  const std::string address = settledAddress();
  logBanner();
  auto connections = std::make_unique<Connections>(address.c_str());
  openConnection(connections->weighing, "LC", address, kWeighingPort, 187);
  openConnection(connections->printing, "Prt", address, kPrintingPort, 193);
  auto* const client = new VcoClientApi(&connections->weighing, &connections->printing);
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
  ServerAddress& server = ServerAddress::instance();
  const ScopedLock lock(server.lock);
  server.chosen = true;
  server.text = text;
  NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 123,
            "[DLL] setting Server IP from SetServerIpForRemoteAccess API, IP: %s", text.c_str());
  return true;
}

bool highResolutionWeights() { return highResolution.load(std::memory_order_relaxed); }

void setHighResolutionWeights(bool on) { highResolution.store(on, std::memory_order_relaxed); }

}  // namespace tolvex
