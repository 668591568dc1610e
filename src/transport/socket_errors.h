// The transport's own error numbers.
#pragma once

#include <cstdint>

namespace tolvex {

// Translated from Winsock's. Named where the code tells one from another; 3, 11, 12 and 13 do not
// occur.
enum SocketErrorCode : std::uint32_t {
  kSocketOk = 0,
  kSocketRefusedByLocal = 1,  // access, argument, resources or protocol: the local side said no
  kSocketNoData = 2,
  kSocketConnectionRefused = 4,
  kSocketTimedOut = 5,
  kSocketWouldBlock = 6,
  kSocketNotConnected = 7,
  kSocketInProgress = 8,
  kSocketInterrupted = 9,
  kSocketAborted = 10,
  kSocketReset = 14,
  kSocketAddressInUse = 15,
  kSocketFault = 16,
  kSocketOther = 17,
};

// The code for a Winsock error number.
SocketErrorCode translateSocketError(int winsockError);

}  // namespace tolvex
