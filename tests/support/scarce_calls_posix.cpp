#include <errno.h>
#include <fcntl.h>
#include <iconv.h>
#include <locale.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <tuple>

#include "support/loaded_library.h"
#include "support/scarce_calls.h"
#include "support/scarce_calls_account.h"
#include "support/scarce_memory_account.h"

namespace tolvex::test {
namespace {

constexpr int kLongestWaitMs = 5000;  // beyond what a busy machine needs for an answer
constexpr timespec kNoTime = {};
constexpr auto kError = CallFailure::kError;
constexpr CallFailure kHalf = {CallFailure::kHalf, 0, "half"};
constexpr CallFailure kNothing = {CallFailure::kNothing, 0, "nothing"};

#define ERROR_OF(number) \
  CallFailure { kError, number, #number }

enum Call : std::size_t {
  kSocket,
  kConnect,
  kPoll,
  kSend,
  kRecv,
  kShutdown,
  kClose,
  kFcntl,
  kGetsockopt,
  kSetsockopt,
  kGetaddrinfo,
  kOpen,
  kRead,
  kPread,
  kLseek,
  kWrite,
  kFstat,
  kStat,
  kMkdir,
  kReadlink,
  kNewlocale,
  kIconvOpen,
  kNanosleep
};

// What a call that fails answers.
template <typename Result>
Result failed() {
  return static_cast<Result>(-1);
}
template <>
locale_t failed<locale_t>() {
  return nullptr;
}
template <>
iconv_t failed<iconv_t>() {
  return reinterpret_cast<iconv_t>(-1);
}

template <std::size_t call, typename Signature>
struct Passage;

// What the library calls in the place of the system's function.
template <std::size_t call, typename Result, typename... Arguments>
struct Passage<call, Result(Arguments...)> {
  static inline Result (*real)(Arguments...) = nullptr;

  static Result pass(Arguments... arguments) {
    const std::tuple<Arguments&...> all(arguments...);
    const CallFailure* const failure = account::next(call);
    if constexpr (call == kPoll) {
      if (account::isWatching()) std::get<2>(all) = std::min(std::get<2>(all), kLongestWaitMs);
    }
    if constexpr (call == kNanosleep) {
      if (account::isWatching()) std::get<0>(all) = &kNoTime;
    }
    if constexpr (call == kClose) account::closing(static_cast<std::uintptr_t>(std::get<0>(all)));
    if (failure != nullptr && failure->kind == CallFailure::kNothing) return Result{};
    if (failure != nullptr && failure->kind == kError) {
      if constexpr (call == kClose) real(arguments...);  // the descriptor is gone all the same
      if constexpr (call == kGetaddrinfo) return failure->error;
      errno = failure->error;
      return failed<Result>();
    }
    if constexpr (call == kSend || call == kWrite || call == kRead || call == kRecv) {
      if (failure != nullptr) std::get<2>(all) = (std::get<2>(all) + 1) / 2;
    }
    // Without memory newlocale() gives nothing, and not back what it read so far.
    if constexpr (call == kNewlocale) account::systemBegins();
    const Result result = real(arguments...);
    if constexpr (call == kNewlocale) account::systemEnds(result == nullptr);
    if constexpr (call == kSocket || call == kOpen) {
      if (result >= 0) account::opened(static_cast<std::uintptr_t>(result));
    }
    return result;
  }

  static void put(LoadedLibrary& library) {
    real = reinterpret_cast<Result (*)(Arguments...)>(
        account::takeIn(library, call, reinterpret_cast<void*>(pass)));
  }
};

}  // namespace

const CallFailure kConnectionGone = ERROR_OF(EPIPE);

const std::vector<ScarceCall>& scarceCalls() {
  static const std::vector<ScarceCall> calls = {
      {"socket",
       {ERROR_OF(EMFILE), ERROR_OF(ENFILE), ERROR_OF(ENOBUFS), ERROR_OF(ENOMEM), ERROR_OF(EACCES)}},
      {"connect",
       {ERROR_OF(EINTR), ERROR_OF(EAGAIN), ERROR_OF(ECONNREFUSED), ERROR_OF(ENETUNREACH),
        ERROR_OF(ETIMEDOUT), ERROR_OF(EADDRNOTAVAIL), ERROR_OF(EACCES)}},
      {"poll", {ERROR_OF(EINTR), ERROR_OF(ENOMEM), ERROR_OF(EINVAL), ERROR_OF(EAGAIN)}},
      {"send",
       {ERROR_OF(EINTR), ERROR_OF(EAGAIN), ERROR_OF(EPIPE), ERROR_OF(ECONNRESET), ERROR_OF(ENOBUFS),
        ERROR_OF(ENOMEM), kHalf, kNothing}},
      {"recv",
       {ERROR_OF(EINTR), ERROR_OF(EAGAIN), ERROR_OF(ECONNRESET), ERROR_OF(ENOMEM), ERROR_OF(EIO)}},
      {"shutdown", {ERROR_OF(ENOTCONN), ERROR_OF(ENOBUFS)}},
      {"close", {ERROR_OF(EINTR), ERROR_OF(EIO), ERROR_OF(ENOSPC)}},
      {"fcntl", {ERROR_OF(EINTR), ERROR_OF(EBADF)}},
      {"getsockopt", {ERROR_OF(ENOBUFS)}},
      {"setsockopt", {ERROR_OF(ENOBUFS), ERROR_OF(ENOMEM), ERROR_OF(EINVAL)}},
      {"getaddrinfo", {{kError, EAI_AGAIN, "EAI_AGAIN"}, {kError, EAI_MEMORY, "EAI_MEMORY"}}},
      {"open",
       {ERROR_OF(EINTR), ERROR_OF(EMFILE), ERROR_OF(ENFILE), ERROR_OF(ENOSPC), ERROR_OF(EACCES),
        ERROR_OF(EIO), ERROR_OF(ENOENT)}},
      {"read", {ERROR_OF(EINTR), ERROR_OF(EIO), ERROR_OF(EAGAIN), kHalf}},
      {"pread", {ERROR_OF(EINTR), ERROR_OF(EIO), kNothing}},
      {"lseek", {ERROR_OF(ESPIPE), ERROR_OF(EOVERFLOW)}},
      {"write",
       {ERROR_OF(EINTR), ERROR_OF(ENOSPC), ERROR_OF(EIO), ERROR_OF(EAGAIN), kHalf, kNothing}},
      {"fstat", {ERROR_OF(EIO), ERROR_OF(EOVERFLOW)}},
      {"stat", {ERROR_OF(EACCES), ERROR_OF(ENOENT)}},
      {"mkdir", {ERROR_OF(ENOSPC), ERROR_OF(EACCES), ERROR_OF(EROFS)}},
      {"readlink", {ERROR_OF(EACCES), ERROR_OF(EIO)}},
      {"newlocale", {ERROR_OF(ENOMEM), ERROR_OF(ENOENT)}},
      {"iconv_open", {ERROR_OF(EMFILE), ERROR_OF(ENOMEM), ERROR_OF(EINVAL)}},
      {"nanosleep", {ERROR_OF(EINTR)}},
  };
  return calls;
}

bool isHarmlessImport(const std::string& name) {
  // What the compiler and its library put there: strings, trees, exceptions, numbers and the clock,
  // but nothing that works with files, threads or streams.
  static const char* const families[] = {"_ITM_",
                                         "_Unwind_",
                                         "__cxa_",
                                         "__gmon_",
                                         "__gxx_",
                                         "_ZNKSt7__cxx1112basic_string",
                                         "_ZNSt7__cxx1112basic_string",
                                         "_ZNSt6chrono",
                                         "_ZSt18_Rb_tree",
                                         "_ZSt29_Rb_tree",
                                         "_ZSt19__throw",
                                         "_ZSt20__throw",
                                         "_ZSt24__throw",
                                         "_ZSt28__throw",
                                         "_ZNSt13runtime_error",
                                         "_ZNSt9bad_alloc",
                                         "_ZNSt9exception",
                                         "_ZSt8to_chars",
                                         "_ZSt10from_chars",
                                         "_ZSt9terminate",
                                         "_ZTI",
                                         "_ZTV",
                                         "_Zna",
                                         "_Znw",
                                         "_Zda",
                                         "_Zdl",
                                         "__stack_chk",
                                         "__tls_get",
                                         "__errno",
                                         "pthread_mutex_",
                                         "mem",
                                         "str"};
  // Messages on the standard streams are lost where they cannot be written, and nobody looks.
  // pthread_setcancelstate() refuses only what is no state.
  static const char* const names[] = {"malloc",
                                      "realloc",
                                      "free",
                                      "clock_gettime",
                                      "localtime_r",
                                      "getenv",
                                      "inet_addr",
                                      "isxdigit",
                                      "freeaddrinfo",
                                      "freelocale",
                                      "nl_langinfo_l",
                                      "iconv",
                                      "iconv_close",
                                      "stdout",
                                      "stderr",
                                      "fflush",
                                      "printf",
                                      "fprintf",
                                      "snprintf",
                                      "vsnprintf",
                                      "__printf_chk",
                                      "__fprintf_chk",
                                      "__snprintf_chk",
                                      "__vsnprintf_chk",
                                      "fwrite",
                                      "puts",
                                      "putchar",
                                      "__memcpy_chk",
                                      "pthread_setcancelstate",
                                      "_ZSt7nothrow"};
  for (const char* const family : families) {
    if (name.rfind(family, 0) == 0) return true;
  }
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

// open() and fcntl() take their last argument in a register, be they variadic or not.
void haveScarceCalls(LoadedLibrary& library) {
  Passage<kSocket, int(int, int, int)>::put(library);
  Passage<kConnect, int(int, const sockaddr*, socklen_t)>::put(library);
  Passage<kPoll, int(pollfd*, nfds_t, int)>::put(library);
  Passage<kSend, ssize_t(int, const void*, size_t, int)>::put(library);
  Passage<kRecv, ssize_t(int, void*, size_t, int)>::put(library);
  Passage<kShutdown, int(int, int)>::put(library);
  Passage<kClose, int(int)>::put(library);
  Passage<kFcntl, int(int, int, int)>::put(library);
  Passage<kGetsockopt, int(int, int, int, void*, socklen_t*)>::put(library);
  Passage<kSetsockopt, int(int, int, int, const void*, socklen_t)>::put(library);
  Passage<kGetaddrinfo, int(const char*, const char*, const addrinfo*, addrinfo**)>::put(library);
  Passage<kOpen, int(const char*, int, mode_t)>::put(library);
  Passage<kRead, ssize_t(int, void*, size_t)>::put(library);
  Passage<kPread, ssize_t(int, void*, size_t, off_t)>::put(library);
  Passage<kLseek, off_t(int, off_t, int)>::put(library);
  Passage<kWrite, ssize_t(int, const void*, size_t)>::put(library);
  Passage<kFstat, int(int, struct stat*)>::put(library);
  Passage<kStat, int(const char*, struct stat*)>::put(library);
  Passage<kMkdir, int(const char*, mode_t)>::put(library);
  Passage<kReadlink, ssize_t(const char*, char*, size_t)>::put(library);
  Passage<kNewlocale, locale_t(int, const char*, locale_t)>::put(library);
  Passage<kIconvOpen, iconv_t(const char*, const char*)>::put(library);
  Passage<kNanosleep, int(const timespec*, timespec*)>::put(library);
}

void closeLibraryHandles() {
  for (std::uintptr_t handle; account::takeHandle(handle);) close(static_cast<int>(handle));
}

}  // namespace tolvex::test
