#include <winsock2.h>

#include <algorithm>
#include <tuple>

#include "support/loaded_library.h"
#include "support/scarce_calls.h"
#include "support/scarce_calls_account.h"

namespace tolvex::test {
namespace {

constexpr long kLongestWaitS = 5;  // beyond what a busy machine needs for an answer
constexpr auto kError = CallFailure::kError;
constexpr CallFailure kHalf = {CallFailure::kHalf, 0, "half"};
constexpr CallFailure kNothing = {CallFailure::kNothing, 0, "nothing"};

#define ERROR_OF(number) \
  CallFailure { kError, static_cast<int>(number), #number }

enum Call : std::size_t {
  kStartup,
  kSocket,
  kConnect,
  kSelect,
  kSend,
  kRecv,
  kShutdown,
  kClosesocket,
  kIoctlsocket,
  kGetsockopt,
  kSetsockopt,
  kGethostbyname,
  kSetHandleInformation,
  kCreateFileA,
  kCreateFileW,
  kReadFile,
  kWriteFile,
  kCloseHandle,
  kGetFileSizeEx,
  kSetFilePointerEx,
  kGetFileType,
  kGetFileInformationByHandle,
  kGetFileAttributesExA,
  kGetModuleFileNameA,
  kGetModuleFileNameW,
  kToWide,
  kFromWide
};

// A socket that sent half a request: the service waits for the rest, and there is no reply.
thread_local SOCKET unanswered = INVALID_SOCKET;
constexpr timeval kShortWait = {0, 50000};

// How long a select() takes at most.
timeval longestWait(const fd_set* read, const timeval& asked) {
  const bool shortly = read != nullptr && read->fd_array[0] == unanswered;
  const timeval longest = shortly ? kShortWait : timeval{kLongestWaitS, 0};
  return timercmp(&asked, &longest, <) ? asked : longest;
}

constexpr bool isSocketCall(std::size_t call) { return call >= kSocket && call <= kSetsockopt; }

constexpr bool opens(std::size_t call) {
  return call == kSocket || call == kCreateFileA || call == kCreateFileW;
}

constexpr bool closes(std::size_t call) { return call == kClosesocket || call == kCloseHandle; }

// What a call that fails answers: -1, an invalid handle, FALSE or null.
template <std::size_t call, typename Result>
Result failed() {
  if constexpr (std::is_pointer_v<Result>) {
    return call == kGethostbyname ? nullptr : static_cast<Result>(INVALID_HANDLE_VALUE);
  } else {
    return static_cast<Result>(isSocketCall(call) ? -1 : 0);
  }
}

template <std::size_t call, typename Signature>
struct Passage;

// What the library calls in the place of the system's function.
template <std::size_t call, typename Result, typename... Arguments>
struct Passage<call, Result(Arguments...)> {
  using Real = Result(WINAPI*)(Arguments...);
  static inline Real real = nullptr;

  static Result WINAPI pass(Arguments... arguments) {
    const std::tuple<Arguments&...> all(arguments...);
    const CallFailure* const failure = account::next(call);
    timeval wait = {};
    if constexpr (call == kSelect) {
      wait = longestWait(std::get<1>(all), *std::get<4>(all));
      if (account::isWatching()) std::get<4>(all) = &wait;
    }
    if constexpr (closes(call)) {
      const auto handle = reinterpret_cast<std::uintptr_t>(as<void*>(std::get<0>(all)));
      account::closing(handle);
      if (handle == unanswered) unanswered = INVALID_SOCKET;
    }
    if (failure != nullptr && failure->kind == CallFailure::kNothing) return Result{};
    if (failure != nullptr && failure->kind == kError) {
      if constexpr (closes(call)) real(arguments...);  // the handle is gone all the same
      if constexpr (call == kStartup) return failure->error;
      SetLastError(static_cast<DWORD>(failure->error));
      return failed<call, Result>();
    }
    if constexpr (call == kSend || call == kRecv || call == kReadFile || call == kWriteFile) {
      if (failure != nullptr) std::get<2>(all) = (std::get<2>(all) + 1) / 2;
    }
    if constexpr (call == kSend) {
      if (failure != nullptr) unanswered = std::get<0>(all);
    }
    const Result result = real(arguments...);
    if constexpr (opens(call)) {
      const auto handle = reinterpret_cast<std::uintptr_t>(as<void*>(result));
      if (handle != ~std::uintptr_t{0}) account::opened(handle);
    }
    return result;
  }

  static void put(LoadedLibrary& library) {
    real = reinterpret_cast<Real>(account::takeIn(library, call, reinterpret_cast<void*>(pass)));
  }

 private:
  // A socket is a number, a handle a pointer.
  template <typename Target, typename Source>
  static Target as(Source source) {
    if constexpr (std::is_pointer_v<Source>) {
      return source;
    } else {
      return reinterpret_cast<Target>(static_cast<std::uintptr_t>(source));
    }
  }
};

const std::vector<CallFailure> kOfSockets = {
    ERROR_OF(WSAEINTR),     ERROR_OF(WSAEMFILE),     ERROR_OF(WSAENOBUFS),
    ERROR_OF(WSAENETDOWN),  ERROR_OF(WSAECONNRESET), ERROR_OF(WSAECONNABORTED),
    ERROR_OF(WSAETIMEDOUT), ERROR_OF(WSAENOTSOCK),   ERROR_OF(WSAEWOULDBLOCK)};

std::vector<CallFailure> ofSocketsAnd(std::vector<CallFailure> more) {
  more.insert(more.end(), kOfSockets.begin(), kOfSockets.end());
  return more;
}

const std::vector<CallFailure> kOfFiles = {
    ERROR_OF(ERROR_ACCESS_DENIED),     ERROR_OF(ERROR_TOO_MANY_OPEN_FILES),
    ERROR_OF(ERROR_DISK_FULL),         ERROR_OF(ERROR_SHARING_VIOLATION),
    ERROR_OF(ERROR_NOT_ENOUGH_MEMORY), ERROR_OF(ERROR_IO_DEVICE)};

}  // namespace

const CallFailure kConnectionGone = ERROR_OF(WSAECONNRESET);

const std::vector<ScarceCall>& scarceCalls() {
  static const std::vector<CallFailure> invalid = {ERROR_OF(ERROR_INVALID_HANDLE)};
  static const std::vector<CallFailure> noRoom = {ERROR_OF(ERROR_NOT_ENOUGH_MEMORY)};
  static const std::vector<ScarceCall> calls = {
      {"WSAStartup", {ERROR_OF(WSASYSNOTREADY), ERROR_OF(WSAEPROCLIM)}},
      {"socket", kOfSockets},
      {"connect", ofSocketsAnd({ERROR_OF(WSAECONNREFUSED), ERROR_OF(WSAEADDRNOTAVAIL)})},
      {"select", kOfSockets},
      {"send", ofSocketsAnd({kHalf, kNothing})},
      {"recv", kOfSockets},
      {"shutdown", kOfSockets},
      {"closesocket", kOfSockets},
      {"ioctlsocket", kOfSockets},
      {"getsockopt", kOfSockets},
      {"setsockopt", kOfSockets},
      {"gethostbyname", {ERROR_OF(WSAHOST_NOT_FOUND), ERROR_OF(WSATRY_AGAIN)}},
      {"SetHandleInformation", invalid},
      {"CreateFileA", kOfFiles},
      {"CreateFileW", kOfFiles},
      {"ReadFile", {ERROR_OF(ERROR_IO_DEVICE), ERROR_OF(ERROR_NOT_ENOUGH_MEMORY), kHalf}},
      {"WriteFile", {ERROR_OF(ERROR_DISK_FULL), ERROR_OF(ERROR_IO_DEVICE), kHalf}},
      {"CloseHandle", invalid},
      {"GetFileSizeEx", invalid},
      {"SetFilePointerEx", invalid},
      {"GetFileType", invalid},
      {"GetFileInformationByHandle", invalid},
      {"GetFileAttributesExA", kOfFiles},
      {"GetModuleFileNameA", noRoom},
      {"GetModuleFileNameW", noRoom},
      {"MultiByteToWideChar", noRoom},
      {"WideCharToMultiByte", noRoom},
  };
  return calls;
}

bool isHarmlessImport(const std::string& name) {
  // Of the compiler's run-time library, which is linked into it: threads, locks, exceptions, random
  // numbers, and what all programs begin with. Then what cannot fail, or is memory; messages on the
  // standard streams are lost where they cannot be written. With GetModuleHandleExA the library pins
  // itself: in the tests that fails always.
  static const char* const names[] = {
      "CryptAcquireContextA",
      "CryptGenRandom",
      "CryptReleaseContext",
      "AddVectoredExceptionHandler",
      "CreateEventA",
      "CreateSemaphoreA",
      "DeleteCriticalSection",
      "DisableThreadLibraryCalls",
      "DuplicateHandle",
      "EnterCriticalSection",
      "GetCurrentProcess",
      "GetCurrentProcessId",
      "GetCurrentThread",
      "GetCurrentThreadId",
      "GetHandleInformation",
      "GetLastError",
      "GetLocalTime",
      "GetModuleHandleExA",
      "GetModuleHandleW",
      "GetProcAddress",
      "GetProcessAffinityMask",
      "GetSystemTimeAsFileTime",
      "GetThreadContext",
      "GetThreadPriority",
      "GetTickCount64",
      "InitializeCriticalSection",
      "IsDBCSLeadByteEx",
      "IsDebuggerPresent",
      "LeaveCriticalSection",
      "LoadLibraryW",
      "OpenProcess",
      "OutputDebugStringA",
      "RaiseException",
      "ReleaseSemaphore",
      "RemoveVectoredExceptionHandler",
      "ResetEvent",
      "ResumeThread",
      "RtlCaptureContext",
      "RtlLookupFunctionEntry",
      "RtlUnwindEx",
      "RtlVirtualUnwind",
      "SetEvent",
      "SetLastError",
      "SetProcessAffinityMask",
      "SetThreadContext",
      "SetThreadPriority",
      "Sleep",
      "SuspendThread",
      "TlsAlloc",
      "TlsGetValue",
      "TlsSetValue",
      "TryEnterCriticalSection",
      "VirtualProtect",
      "VirtualQuery",
      "WaitForMultipleObjects",
      "WaitForSingleObject",
      "__C_specific_handler",
      "___lc_codepage_func",
      "___mb_cur_max_func",
      "__iob_func",
      "_amsg_exit",
      "_assert",
      "_beginthreadex",
      "_endthreadex",
      "_errno",
      "_exit",
      "_initterm",
      "_lock",
      "_setjmp",
      "_ultoa",
      "_unlock",
      "abort",
      "exit",
      "longjmp",
      "signal",
      "localeconv",
      "isxdigit",
      "calloc",
      "free",
      "malloc",
      "realloc",
      "_msize",
      "_strdup",
      "fflush",
      "fprintf",
      "fputc",
      "fputs",
      "fwrite",
      "printf",
      "vfprintf",
      "wcslen",
      "WSACleanup",
      "WSAGetLastError",
      "WSASetLastError",
      "__WSAFDIsSet",
      "htonl",
      "htons",
      "inet_addr",
      "ntohl",
      "_write",
      "_read",
      "_open",
      "_close"};  // of the run-time library's random numbers and pool
  if (name.rfind("mem", 0) == 0 || name.rfind("str", 0) == 0) return true;
  return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

void haveScarceCalls(LoadedLibrary& library) {
  using Text = const char*;
  using Wide = const wchar_t*;
  Passage<kStartup, int(WORD, WSADATA*)>::put(library);
  Passage<kSocket, SOCKET(int, int, int)>::put(library);
  Passage<kConnect, int(SOCKET, const sockaddr*, int)>::put(library);
  Passage<kSelect, int(int, fd_set*, fd_set*, fd_set*, const timeval*)>::put(library);
  Passage<kSend, int(SOCKET, Text, int, int)>::put(library);
  Passage<kRecv, int(SOCKET, char*, int, int)>::put(library);
  Passage<kShutdown, int(SOCKET, int)>::put(library);
  Passage<kClosesocket, int(SOCKET)>::put(library);
  Passage<kIoctlsocket, int(SOCKET, long, u_long*)>::put(library);
  Passage<kGetsockopt, int(SOCKET, int, int, char*, int*)>::put(library);
  Passage<kSetsockopt, int(SOCKET, int, int, Text, int)>::put(library);
  Passage<kGethostbyname, hostent*(Text)>::put(library);
  Passage<kSetHandleInformation, BOOL(HANDLE, DWORD, DWORD)>::put(library);
  Passage<kCreateFileA,
          HANDLE(Text, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE)>::put(library);
  Passage<kCreateFileW,
          HANDLE(Wide, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE)>::put(library);
  Passage<kReadFile, BOOL(HANDLE, void*, DWORD, DWORD*, OVERLAPPED*)>::put(library);
  Passage<kWriteFile, BOOL(HANDLE, const void*, DWORD, DWORD*, OVERLAPPED*)>::put(library);
  Passage<kCloseHandle, BOOL(HANDLE)>::put(library);
  Passage<kGetFileSizeEx, BOOL(HANDLE, LARGE_INTEGER*)>::put(library);
  Passage<kSetFilePointerEx, BOOL(HANDLE, LARGE_INTEGER, LARGE_INTEGER*, DWORD)>::put(library);
  Passage<kGetFileType, DWORD(HANDLE)>::put(library);
  Passage<kGetFileInformationByHandle, BOOL(HANDLE, BY_HANDLE_FILE_INFORMATION*)>::put(library);
  Passage<kGetFileAttributesExA, BOOL(Text, GET_FILEEX_INFO_LEVELS, void*)>::put(library);
  Passage<kGetModuleFileNameA, DWORD(HMODULE, char*, DWORD)>::put(library);
  Passage<kGetModuleFileNameW, DWORD(HMODULE, wchar_t*, DWORD)>::put(library);
  Passage<kToWide, int(UINT, DWORD, Text, int, wchar_t*, int)>::put(library);
  Passage<kFromWide, int(UINT, DWORD, Wide, int, char*, int, Text, BOOL*)>::put(library);
}

void closeLibraryHandles() {
  for (std::uintptr_t handle; account::takeHandle(handle);) {
    if (closesocket(handle) != 0) CloseHandle(reinterpret_cast<HANDLE>(handle));
  }
}

}  // namespace tolvex::test
