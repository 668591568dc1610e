#include "scale/client_process.h"

#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "scale/spread.h"
#include "support/library.h"
#include "support/shared_memory.h"

namespace bench::scale {
namespace {

constexpr double kPatience = 30e6;
constexpr useconds_t kLook = 1000;  // between two looks how far the clients are

// How far a client is; at first it is nowhere.
constexpr int kFailed = -1, kLoaded = 1, kAnswered = 2, kDone = 3;

// The first call connects, and is the one that a restarted till would wait for.
void callOnce(const Library& library, const std::string& address, ClientSlot& slot) {
  char record[24];
  connectLibrary(library, address);
  if (library.readStandard(record) != TOLVEX_OK) throw std::runtime_error("no weight");
  slot.answered = now();
  slot.stage = kAnswered;
}

void callOften(const Library& library, double end, ClientSlot& slot) {
  char record[24];
  // One at least: on a machine that is very busy the time may be over before the process runs.
  for (double start = now();
       slot.calls == 0 || (start < end && slot.calls < ClientSlot::kMostTimes);) {
    if (library.readStandard(record) != TOLVEX_OK || record[0] != TOLVEX_WEIGHT_STABLE) {
      ++slot.failures;
    }
    const double done = now();
    slot.times[slot.calls++] = static_cast<float>(done - start);
    start = done;
  }
}

}  // namespace

Clients::Gate::Gate() {
  int ends[2];
  if (pipe(ends) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  waiting_ = ends[0];
  held_ = ends[1];
}

Clients::Gate::~Gate() {
  close(waiting_);
  open();
}

void Clients::Gate::open() {
  if (held_ >= 0) close(held_);
  held_ = -1;
}

void Clients::Gate::pass() {
  char nothing;
  open();  // the client's own copy of that end
  while (read(waiting_, &nothing, 1) < 0 && errno == EINTR) {
  }
}

Clients::Clients(const Equipment& equipment, const std::string& address, std::size_t count)
    : callUntil_(shareMemory<std::atomic<double>>()), slots_(shareMemory<ClientSlot>(count)) {
  for (std::size_t i = 0; i < count; ++i) {
    const int process = fork();
    if (process == 0) beClient(equipment, address, i);
    if (process < 0) throw std::system_error(errno, std::generic_category(), "fork");
    processes_.push_back(process);
  }
}

Clients::~Clients() {
  for (const int process : processes_) kill(process, SIGKILL);
  for (const int process : processes_) waitpid(process, nullptr, 0);
  munmap(callUntil_, sizeof(*callUntil_));
  munmap(slots_, sizeof(ClientSlot) * processes_.size());
}

void Clients::beClient(const Equipment& equipment, const std::string& address, std::size_t number) {
  ClientSlot& slot = slots_[number];
  try {
    const std::string folder = state_.path() + "/client" + std::to_string(number);
    std::filesystem::create_directory(folder);
    setenv("XDG_STATE_HOME", folder.c_str(), 1);
    const Library library = loadLibrary(equipment.library);
    slot.stage = kLoaded;
    call_.open();  // the client's own copy
    connect_.pass();
    callOnce(library, address, slot);
    call_.pass();
    callOften(library, *callUntil_, slot);
    slot.stage = kDone;
  } catch (const std::exception&) {
    slot.stage = kFailed;
  }
  _exit(0);
}

void Clients::await(int stage) {
  const double end = now() + kPatience;
  for (std::size_t i = 0; i < processes_.size();) {
    if (slots_[i].stage < 0) throw std::runtime_error("a client failed");
    if (slots_[i].stage >= stage) {
      ++i;
    } else {
      if (now() > end) throw std::runtime_error("a client did not come to its end");
      usleep(kLook);
    }
  }
}

double Clients::connect() {
  await(kLoaded);
  const double start = now();
  connect_.open();
  await(kAnswered);
  double last = start;
  for (std::size_t i = 0; i < processes_.size(); ++i) last = std::max(last, slots_[i].answered);
  return last - start;
}

Clients::Calls Clients::call(double length) {
  *callUntil_ = now() + length;
  call_.open();
  usleep(static_cast<useconds_t>(length));
  await(kDone);
  Calls calls;
  calls.fewest = calls.most = slots_[0].calls;
  for (std::size_t i = 0; i < processes_.size(); ++i) {
    const ClientSlot& slot = slots_[i];
    calls.failures += slot.failures;
    calls.fewest = std::min<std::uint64_t>(calls.fewest, slot.calls);
    calls.most = std::max<std::uint64_t>(calls.most, slot.calls);
    calls.times.insert(calls.times.end(), slot.times, slot.times + slot.calls);
  }
  return calls;
}

}  // namespace bench::scale
