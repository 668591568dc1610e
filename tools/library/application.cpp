#include "library/application.h"

#include <filesystem>
#include <system_error>

#include "base/failure.h"
#include "config/ini_reader.h"
#include "config/ip_address.h"

namespace tolvex::ctl {
namespace {

namespace fs = std::filesystem;

constexpr char kIniName[] = "zelkad_ip_config.ini";
constexpr char kAddressKey[] = "zelkad.ip_addr";
constexpr char kDefaultAddress[] = "127.0.0.1";

std::string addressInIni(const std::string& folder) {
  const std::string path = (fs::u8path(folder) / kIniName).u8string();
  const std::string address =
      config::lookUp(config::readIniFile(path).value_or(config::IniMap()), kAddressKey);
  return config::isIpv4Address(address) ? address : kDefaultAddress;  // as the library takes it
}

}  // namespace

std::string applicationFolder(const std::string& application) {
  const fs::path path = fs::u8path(application);
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) return path.u8string();
  if (fs::exists(path, ignored)) return fs::absolute(path).parent_path().u8string();
  throw Failure(ExitCode::Failed, "there is no application " + application,
                "Name its executable, or the folder that it lies in, with --app.");
}

std::string addressToSet(const Globals& globals) {
  if (!globals.host.empty()) return globals.host;
  return globals.app.empty() ? "" : addressInIni(applicationFolder(globals.app));
}

}  // namespace tolvex::ctl
