#include "platform/socket.h"

#include <winsock2.h>

#include <cstring>

namespace tolvex::platform::net {

void startUp() {
  WSADATA details;
  WSAStartup(MAKEWORD(2, 2), &details);
}

void cleanUp() { WSACleanup(); }

int lastError() { return WSAGetLastError(); }

Socket createTcp(std::uint32_t sendTimeoutMs) {
  const SOCKET socket = ::socket(AF_INET, SOCK_STREAM, 0);
  if (socket == INVALID_SOCKET) return kInvalidSocket;
  SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
  const DWORD timeout = sendTimeoutMs;
  if (::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, reinterpret_cast<const char*>(&timeout),
                   sizeof(timeout)) != 0) {
    const int error = WSAGetLastError();
    ::closesocket(socket);
    WSASetLastError(error);
    return kInvalidSocket;
  }
  return socket;
}

void shutDown(Socket socket) { ::shutdown(socket, SD_BOTH); }

void release(Socket socket) { ::closesocket(socket); }

bool setNonBlocking(Socket socket, bool on) {
  u_long mode = on ? 1 : 0;
  return ::ioctlsocket(socket, static_cast<long>(FIONBIO), &mode) == 0;
}

std::uint32_t parseAddress(const char* text) { return ntohl(::inet_addr(text)); }

std::uint32_t lookUpHost(const char* name) {
  const hostent* host = ::gethostbyname(name);
  if (host == nullptr || host->h_addrtype != AF_INET || host->h_length != sizeof(u_long)) {
    return kNoAddress;
  }
  u_long address = 0;
  std::memcpy(&address, host->h_addr_list[0], sizeof(address));
  // 255.255.255.255 is found and reads as kNoAddress: not to be told as a failure.
  WSASetLastError(0);
  return ntohl(address);
}

int connectTo(Socket socket, std::uint32_t hostOrderAddress, std::uint16_t port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(hostOrderAddress);
  address.sin_port = htons(port);
  return ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
}

Readiness wait(Socket socket, std::uint32_t timeoutMs, bool forWrite) {
  timeval timeout;
  timeout.tv_sec = static_cast<long>(timeoutMs / 1000);
  timeout.tv_usec = static_cast<long>((timeoutMs % 1000) * 1000);
  fd_set wanted;
  fd_set exceptional;
  wanted.fd_count = 1;
  wanted.fd_array[0] = socket;
  exceptional.fd_count = 1;
  exceptional.fd_array[0] = socket;
  const int count = ::select(static_cast<int>(socket + 1), forWrite ? nullptr : &wanted,
                             forWrite ? &wanted : nullptr, &exceptional, &timeout);
  if (count < 1) return {count, false, false};
  return {count, FD_ISSET(socket, &wanted) != 0, FD_ISSET(socket, &exceptional) != 0};
}

bool pendingError(Socket socket, int& error) {
  int length = sizeof(error);
  return ::getsockopt(socket, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length) == 0;
}

int send(Socket socket, const char* data, unsigned length) {
  const int sent = ::send(socket, data, static_cast<int>(length), 0);
  if (sent >= 0 || WSAGetLastError() != WSAEWOULDBLOCK) return sent;
  // A socket that is not blocking, since it could not be made so again.
  DWORD timeout = 0;
  int size = sizeof(timeout);
  ::getsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, reinterpret_cast<char*>(&timeout), &size);
  if (wait(socket, timeout, true).ready) {
    const int again = ::send(socket, data, static_cast<int>(length), 0);
    if (again >= 0 || WSAGetLastError() != WSAEWOULDBLOCK) return again;
  }
  WSASetLastError(WSAETIMEDOUT);
  return -1;
}

int receive(Socket socket, char* buffer, unsigned length) {
  return ::recv(socket, buffer, static_cast<int>(length), 0);
}

}  // namespace tolvex::platform::net
