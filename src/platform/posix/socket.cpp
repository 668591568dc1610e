#include "platform/socket.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <ctime>

#include "platform/clock.h"

namespace tolvex::platform::net {
namespace {

constexpr int kUnknownError = 10045;  // an error that Winsock has no number for

struct ErrorPair {
  int system;
  int winsock;
};

constexpr ErrorPair kErrors[] = {
    {EINTR, 10004},           {EBADF, 10009},        {EACCES, 10013},       {EPERM, 10013},
    {EFAULT, 10014},          {EINVAL, 10022},       {EMFILE, 10024},       {ENFILE, 10024},
    {EAGAIN, 10035},          {EINPROGRESS, 10035},  {EALREADY, 10036},     {ENOTSOCK, 10038},
    {EPROTONOSUPPORT, 10043}, {EAFNOSUPPORT, 10047}, {EADDRINUSE, 10048},   {EADDRNOTAVAIL, 10049},
    {ENETDOWN, 10050},        {ENETUNREACH, 10051},  {ECONNABORTED, 10053}, {ECONNRESET, 10054},
    {EPIPE, 10054},           {ENOBUFS, 10055},      {ENOMEM, 10055},       {ENOTCONN, 10057},
    {ETIMEDOUT, 10060},       {ECONNREFUSED, 10061}, {EHOSTUNREACH, 10065},
};

constexpr ErrorPair kLookUpErrors[] = {{EAI_NONAME, 11001}, {EAI_AGAIN, 11002}, {EAI_FAIL, 11003}};
constexpr int kNoData = 11004;
constexpr int kWouldBlock = 10035;
constexpr int kNotASocket = 10038;
constexpr int kNoBuffers = 10055;
constexpr int kTimedOut = 10060;
constexpr int kMicrosecondsOfOne = 1000;  // millisecond
constexpr int kRefused = 10061;

thread_local int lastErrorOfThread = 0;

int toWinsock(int systemError) {
  if (systemError == 0) return 0;
  for (const ErrorPair& pair : kErrors) {
    if (pair.system == systemError) return pair.winsock;
  }
  return kUnknownError;
}

// Keeps the error of a finished call and passes its result on.
template <typename Result>
Result noted(Result result) {
  lastErrorOfThread = result < 0 ? toWinsock(errno) : 0;
  return result;
}

// A signal is the host application's affair: the call that it interrupted is made again.
template <typename Call>
auto resumed(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return noted(result);
}

int descriptor(Socket socket) { return static_cast<int>(socket); }

using Clock = std::chrono::steady_clock;

std::int64_t millisecondsUntil(Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  return std::max<std::int64_t>(left.count(), 0);
}

// poll() for so many milliseconds, however often a signal interrupts it. What is left after a signal is
// told by the clock that costs nothing to read, and rounded up by its step.
int pollFor(pollfd& entry, std::int64_t timeoutMs) {
  constexpr std::int64_t kStepMs = 16;
  const std::int64_t begin = coarseMilliseconds();
  std::int64_t left = timeoutMs;
  for (;;) {
    const int slice = static_cast<int>(std::min<std::int64_t>(left, INT_MAX));
    const int count = poll(&entry, 1, slice);
    if (count > 0 || (count < 0 && errno != EINTR)) return count;
    if (count == 0 && slice == left) return 0;
    const std::int64_t gone = std::max<std::int64_t>(coarseMilliseconds() - begin - kStepMs, 0);
    left = std::max<std::int64_t>(timeoutMs - gone, 0);
  }
}

// Waits until the socket takes bytes again, or is broken. Returns false when it does neither until
// the deadline, and behind that, or cannot be asked.
bool waitForRoom(Socket socket, Clock::time_point deadline) {
  pollfd entry = {descriptor(socket), POLLOUT, 0};
  const int count = noted(pollFor(entry, millisecondsUntil(deadline)));
  if (count > 0 && Clock::now() < deadline) return true;
  if (lastErrorOfThread == 0 || lastErrorOfThread == kWouldBlock) lastErrorOfThread = kTimedOut;
  return false;
}

std::chrono::milliseconds sendTimeout(Socket socket) {
  timeval timeout = {};
  socklen_t length = sizeof(timeout);
  getsockopt(descriptor(socket), SOL_SOCKET, SO_SNDTIMEO, &timeout, &length);
  return std::chrono::seconds(timeout.tv_sec) +
         std::chrono::milliseconds(timeout.tv_usec / kMicrosecondsOfOne);
}

// For a socket that would take bytes, had the system memory for them: it says both again at once.
void waitForMemory() {
  const timespec aWhile = {0, 20000000};
  nanosleep(&aWhile, nullptr);
}

// Sends what a socket did not take at once, for as long as a blocking send may. Returns what it took.
int sendRest(Socket socket, const char* data, unsigned length) {
  const auto deadline = Clock::now() + sendTimeout(socket);
  unsigned sent = 0;
  while (sent < length && waitForRoom(socket, deadline)) {
    const auto taken = resumed([&] {
      return ::send(descriptor(socket), data + sent, length - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
    });
    if (taken < 0 && lastErrorOfThread != kWouldBlock) break;
    if (taken > 0) {
      sent += static_cast<unsigned>(taken);
    } else {
      waitForMemory();
    }
  }
  return sent > 0 ? static_cast<int>(sent) : -1;
}

}  // namespace

void startUp() {}

void cleanUp() {}

int lastError() { return lastErrorOfThread; }

Socket createTcp(std::uint32_t sendTimeoutMs) {
  const int socket = noted(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (socket < 0) return kInvalidSocket;
  timeval timeout = {};
  timeout.tv_sec = sendTimeoutMs / 1000;
  timeout.tv_usec = static_cast<suseconds_t>(sendTimeoutMs % 1000) * kMicrosecondsOfOne;
  if (noted(setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof(timeout))) != 0) {
    ::close(socket);
    return kInvalidSocket;
  }
  return static_cast<Socket>(socket);
}

void shutDown(Socket socket) { noted(::shutdown(descriptor(socket), SHUT_RDWR)); }

// Not repeated on EINTR: the descriptor is gone then, and may be another thread's already.
void release(Socket socket) { noted(::close(descriptor(socket))); }

bool setNonBlocking(Socket socket, bool on) {
  const int flags = noted(fcntl(descriptor(socket), F_GETFL));
  if (flags < 0) return false;
  return noted(fcntl(descriptor(socket), F_SETFL, on ? flags | O_NONBLOCK : flags & ~O_NONBLOCK)) ==
         0;
}

std::uint32_t parseAddress(const char* text) { return ntohl(inet_addr(text)); }

std::uint32_t lookUpHost(const char* name) {
  addrinfo hints = {};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  const int failure = getaddrinfo(name, nullptr, &hints, &found);
  if (failure == 0 && found != nullptr) {
    const std::uint32_t address =
        ntohl(reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr.s_addr);
    freeaddrinfo(found);
    lastErrorOfThread = 0;
    return address;
  }
  lastErrorOfThread = kNoData;
  for (const ErrorPair& pair : kLookUpErrors) {
    if (pair.system == failure) lastErrorOfThread = pair.winsock;
  }
  return kNoAddress;
}

int connectTo(Socket socket, std::uint32_t hostOrderAddress, std::uint16_t port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(hostOrderAddress);
  address.sin_port = htons(port);
  const int result = noted(
      ::connect(descriptor(socket), reinterpret_cast<const sockaddr*>(&address), sizeof(address)));
  // A refusal that is known at once is told as Winsock tells it: by the wait that follows.
  if (result < 0 && lastErrorOfThread == kRefused) lastErrorOfThread = kWouldBlock;
  return result;
}

Readiness wait(Socket socket, std::uint32_t timeoutMs, bool forWrite) {
  pollfd entry = {descriptor(socket), static_cast<short>(forWrite ? POLLOUT : POLLIN), 0};
  const int count = noted(pollFor(entry, timeoutMs));
  // The system lacks memory; it is no wait that would block, which is to be begun again.
  if (count < 0 && lastErrorOfThread == kWouldBlock) lastErrorOfThread = kNoBuffers;
  if (count < 1) return {count, false, false};
  if ((entry.revents & POLLNVAL) != 0) {
    lastErrorOfThread = kNotASocket;
    return {-1, false, false};
  }
  const bool broken = (entry.revents & (POLLERR | POLLHUP)) != 0;
  // Winsock reports a refused connect as exceptional and not as writable. While reading, an end
  // of the connection is something to be read there.
  if (forWrite) return {count, !broken, broken};
  return {count, true, false};
}

bool pendingError(Socket socket, int& error) {
  int pending = 0;
  socklen_t length = sizeof(pending);
  const bool read =
      noted(getsockopt(descriptor(socket), SOL_SOCKET, SO_ERROR, &pending, &length)) == 0;
  error = toWinsock(pending);
  return read;
}

int send(Socket socket, const char* data, unsigned length) {
  const auto sent = resumed(
      [&] { return ::send(descriptor(socket), data, length, MSG_NOSIGNAL | MSG_DONTWAIT); });
  if (sent < 0) return lastErrorOfThread == kWouldBlock ? sendRest(socket, data, length) : -1;
  const auto taken = static_cast<unsigned>(sent);
  if (taken == length) return static_cast<int>(sent);
  const int rest = sendRest(socket, data + taken, length - taken);
  lastErrorOfThread = 0;
  return static_cast<int>(taken) + std::max(rest, 0);
}

int receive(Socket socket, char* buffer, unsigned length) {
  return static_cast<int>(resumed([&] { return ::recv(descriptor(socket), buffer, length, 0); }));
}

}  // namespace tolvex::platform::net
