#include "transport/socket_errors.h"

namespace tolvex {
namespace {

struct Translation {
  int winsockError;
  SocketErrorCode code;
};

constexpr Translation kTranslations[] = {
    {0, kSocketOk},
    {10004, kSocketInterrupted},
    {10009, kSocketNotConnected},
    {10057, kSocketNotConnected},
    {10013, kSocketRefusedByLocal},
    {10022, kSocketRefusedByLocal},
    {10024, kSocketRefusedByLocal},
    {10038, kSocketRefusedByLocal},
    {10043, kSocketRefusedByLocal},
    {10047, kSocketRefusedByLocal},
    {10055, kSocketRefusedByLocal},
    {10014, kSocketFault},
    {10035, kSocketWouldBlock},
    {10036, kSocketInProgress},
    {10048, kSocketAddressInUse},
    {10053, kSocketAborted},
    {10054, kSocketReset},
    {10060, kSocketTimedOut},
    {10061, kSocketConnectionRefused},
    {11004, kSocketNoData},
};

}  // namespace

SocketErrorCode translateSocketError(int winsockError) {
  for (const Translation& translation : kTranslations) {
    if (translation.winsockError == winsockError) return translation.code;
  }
  return kSocketOther;
}

}  // namespace tolvex
