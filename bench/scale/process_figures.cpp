#include "scale/process_figures.h"

#include <unistd.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace bench::scale {
namespace {

std::string fileOf(pid_t process, const char* name) {
  const std::string path = "/proc/" + std::to_string(process) + '/' + name;
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  if (text.str().empty()) throw std::runtime_error("cannot read " + path);
  return text.str();
}

double bytesOf(const std::string& status, const std::string& name) {
  const std::size_t at = status.find(name + ':');
  if (at == std::string::npos) throw std::runtime_error("no " + name);
  return std::stod(status.substr(at + name.size() + 1)) * 1024;
}

}  // namespace

MemoryFigures memoryOf(pid_t process) {
  const std::string status = fileOf(process, "status");
  return {bytesOf(status, "VmRSS"), bytesOf(status, "VmHWM")};
}

void resetPeak() {
  std::ofstream file("/proc/self/clear_refs");
  file << 5 << std::flush;
  if (!file) throw std::runtime_error("cannot reset the peak of memory");
}

double processorSeconds(pid_t process) {
  const std::string stat = fileOf(process, "stat");
  std::istringstream fields(stat.substr(stat.rfind(')') + 2));
  std::string skipped;
  for (int field = 3; field < 14; ++field) fields >> skipped;
  double user = 0, system = 0;
  fields >> user >> system;
  return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

}  // namespace bench::scale
