// IPv4 TCP sockets with Winsock's vocabulary. Every system's failures are told in Winsock's error
// numbers, so that the code above, and the log, know one set of numbers only.
#pragma once

#include <cstdint>

namespace tolvex::platform::net {

using Socket = std::uintptr_t;
constexpr Socket kInvalidSocket = ~static_cast<Socket>(0);
constexpr std::uint32_t kNoAddress = 0xFFFFFFFF;  // also what 255.255.255.255 reads as
constexpr std::uint32_t kSendTimeoutMs = 40000;

// Starts and ends the use of the socket library (Winsock 2.2); calls nest. POSIX needs neither.
void startUp();
void cleanUp();

// The calling thread's last socket error as a Winsock number (10035 "would block", 10054 "reset by
// peer" ...), 0 when its latest call here succeeded.
int lastError();

// A blocking IPv4 stream socket that child processes do not inherit, whose sends wait for room at most
// sendTimeoutMs; kInvalidSocket on failure.
Socket createTcp(std::uint32_t sendTimeoutMs = kSendTimeoutMs);

// Shuts both directions down. The handle stays in use until release().
void shutDown(Socket socket);
void release(Socket socket);

bool setNonBlocking(Socket socket, bool on);

// Reads a dotted address (the forms of inet_addr); kNoAddress when it is none. Host byte order.
std::uint32_t parseAddress(const char* text);

// Asks the system for the first IPv4 address of a host name, in host byte order. Returns kNoAddress
// and sets lastError() when there is none.
std::uint32_t lookUpHost(const char* name);

// Starts a connection. Returns 0 when it is made, -1 otherwise; 10035 means that it is under way.
int connectTo(Socket socket, std::uint32_t hostOrderAddress, std::uint16_t port);

struct Readiness {
  int count;         // as select() returns it: 1 something happened, 0 time-out, -1 failure
  bool ready;        // readable, or writable when asked for that
  bool exceptional;  // a failed connect, in Winsock's way of reporting it
};

// Waits until the socket is readable (or writable) or in error, at most timeoutMs. A signal does
// not shorten the wait.
Readiness wait(Socket socket, std::uint32_t timeoutMs, bool forWrite);

// The socket's own pending error (SO_ERROR), as a Winsock number. Returns whether it could be read.
bool pendingError(Socket socket, int& error);

// One send() or recv(); the result is theirs (-1 with lastError() set on failure). A send waits for
// room within the socket's time, and fails with 10060 when nothing was taken then, never with 10035,
// whether the socket is blocking or not. Sending to a closed connection raises no signal.
int send(Socket socket, const char* data, unsigned length);
int receive(Socket socket, char* buffer, unsigned length);

}  // namespace tolvex::platform::net
