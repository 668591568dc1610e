#include "place.h"

#include <sched.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>

namespace bench::scale {
namespace {

void allow(const cpu_set_t& cores) {
  if (sched_setaffinity(0, sizeof(cores), &cores) != 0) throw std::runtime_error("cannot pin");
}

// The value behind the colon of the first line that begins with the name.
std::string lineOf(const char* file, const std::string& name) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t colon = line.find(": ");
    if (line.compare(0, name.size(), name) == 0 && colon != std::string::npos) {
      return line.substr(colon + 2);
    }
  }
  return "unknown";
}

}  // namespace

void pinToOneCore() {
  cpu_set_t cores;
  CPU_ZERO(&cores);
  CPU_SET(static_cast<unsigned>(std::max(sched_getcpu(), 0)), &cores);
  allow(cores);
}

void useAllCores() {
  cpu_set_t cores;
  CPU_ZERO(&cores);
  const long count = sysconf(_SC_NPROCESSORS_CONF);
  for (long core = 0; core < count; ++core) CPU_SET(static_cast<unsigned>(core), &cores);
  allow(cores);
}

std::string privateAddress() {
  const auto id = static_cast<unsigned>(getpid());
  return "127." + std::to_string(130 + (id >> 16) % 100) + '.' + std::to_string(id >> 8 & 255) +
         '.' + std::to_string(1 + id % 254);
}

std::string describeMachine() {
  utsname system = {};
  uname(&system);
  const std::string release = system.release;  // of which major and minor number say enough
  return lineOf("/proc/cpuinfo", "model name") + ", " +
         std::to_string(sysconf(_SC_NPROCESSORS_ONLN)) + " cores, Linux " +
         release.substr(0, release.find('.', release.find('.') + 1));
}

}  // namespace bench::scale
