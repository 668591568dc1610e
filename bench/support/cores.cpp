#include "support/cores.h"

#include <sched.h>

#include <stdexcept>

namespace bench {
namespace {

cpu_set_t usable() {
  cpu_set_t cores;
  if (sched_getaffinity(0, sizeof(cores), &cores) != 0) {
    throw std::runtime_error("cannot learn which cores there are");
  }
  return cores;
}

}  // namespace

int usableCores() {
  const cpu_set_t cores = usable();
  return CPU_COUNT(&cores);
}

void pinTo(int core) {
  cpu_set_t cores;
  CPU_ZERO(&cores);
  CPU_SET(static_cast<unsigned>(core), &cores);
  if (sched_setaffinity(0, sizeof(cores), &cores) != 0) {
    throw std::runtime_error("cannot stay on one core");
  }
}

Cores pinned(int cores) {
  const cpu_set_t allowed = usable();
  const int here = sched_getcpu();
  int other = here;
  if (cores == 2) {
    for (int core = 0; core < CPU_SETSIZE && other == here; ++core) {
      if (CPU_ISSET(static_cast<unsigned>(core), &allowed)) other = core;
    }
    if (other == here) throw std::runtime_error("there is only one core");
  }
  pinTo(here);
  return {here, other};
}

}  // namespace bench
