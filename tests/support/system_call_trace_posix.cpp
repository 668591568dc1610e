#include <errno.h>
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>

#include "support/system_call_trace.h"

namespace tolvex::test {
namespace {

// The marks: a call that fails without doing anything, with a descriptor that nobody has.
constexpr int kBeginMark = -26401;
constexpr int kEndMark = -26402;

constexpr int kRefusedStatus = 101;
constexpr int kThrewStatus = 102;
constexpr int kSystemCallStop = SIGTRAP | 0x80;  // by PTRACE_O_TRACESYSGOOD

[[noreturn]] void stop(const std::string& why) {
  throw std::runtime_error("system calls cannot be counted: " + why);
}

std::string nameOfCall(std::uint64_t number) {
  switch (number) {
    case SYS_sendto:
      return "sendto";
    case SYS_poll:
      return "poll";
    case SYS_recvfrom:
      return "recvfrom";
    case SYS_write:
      return "write";
    case SYS_fstat:
    case SYS_newfstatat:
      return "fstat";
    case SYS_brk:
    case SYS_mmap:
    case SYS_munmap:
      return "memory";
    case SYS_futex:
      return "futex";
    case SYS_clock_gettime:
      return "clock_gettime";
    default:
      return "#" + std::to_string(number);
  }
}

[[noreturn]] void beTraced(const std::function<void()>& work) {
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(kRefusedStatus);
  raise(SIGSTOP);
  try {
    work();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "in the traced process: %s\n", failure.what());
    _exit(kThrewStatus);
  }
  _exit(0);
}

class Tracer {
 public:
  explicit Tracer(pid_t process) : process_(process) {}
  // Where it could not be followed to its end, it ends now.
  ~Tracer() {
    if (hasEnded_) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  Tracer(const Tracer&) = delete;
  Tracer& operator=(const Tracer&) = delete;

  TracedParts follow() {
    if (!goesOn()) stop("the process did not wait for it");
    request(PTRACE_SETOPTIONS, 0, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (std::uintptr_t signal = 0;;) {
      request(PTRACE_SYSCALL, 0, signal);
      if (!goesOn()) return parts_;
      const bool isCall = WSTOPSIG(status_) == kSystemCallStop;
      signal = isCall ? 0 : static_cast<std::uintptr_t>(WSTOPSIG(status_));
      if (isCall) note();
    }
  }

 private:
  void request(__ptrace_request what, std::uintptr_t address, std::uintptr_t data) {
    const long result = ptrace(what, process_, address, data);
    if (result < 0) stop(std::string("ptrace: ") + std::strerror(errno));
  }
  // Waits for the process; whether it has stopped only.
  bool goesOn() {
    pid_t found;
    do {
      found = waitpid(process_, &status_, 0);
    } while (found < 0 && errno == EINTR);
    if (found != process_) stop("the process is lost");
    if (WIFSTOPPED(status_)) return true;
    hasEnded_ = true;
    if (WIFSIGNALED(status_)) stop("the process was ended by " + std::to_string(WTERMSIG(status_)));
    if (WEXITSTATUS(status_) == kRefusedStatus) stop("ptrace is refused here");
    if (WEXITSTATUS(status_) != 0) stop("the work did not come to its end");
    return false;
  }

  void note() {
    __ptrace_syscall_info call = {};
    request(PTRACE_GET_SYSCALL_INFO, sizeof(call), reinterpret_cast<std::uintptr_t>(&call));
    if (call.op != PTRACE_SYSCALL_INFO_ENTRY) return;
    const int argument = static_cast<int>(call.entry.args[0]);
    const bool isMark = call.entry.nr == SYS_close;
    if (isMark && argument == kBeginMark) {
      parts_.emplace_back();
      isInside_ = true;
    } else if (isMark && argument == kEndMark) {
      isInside_ = false;
    } else if (isInside_) {
      ++parts_.back()[nameOfCall(call.entry.nr)];
    }
  }

  pid_t process_;
  int status_ = 0;
  bool hasEnded_ = false;
  bool isInside_ = false;
  TracedParts parts_;
};

}  // namespace

TracedParts traceSystemCalls(const std::function<void()>& work) {
  const pid_t process = fork();
  if (process < 0) stop(std::string("fork: ") + std::strerror(errno));
  if (process == 0) beTraced(work);
  return Tracer(process).follow();
}

void beginTracedPart() { syscall(SYS_close, kBeginMark); }

void endTracedPart() { syscall(SYS_close, kEndMark); }

}  // namespace tolvex::test
