#include "service/vco_client_api.h"

#include "platform/paths.h"
#include "service/identity.h"

namespace tolvex {

VcoClientApi::VcoClientApi(CTcpClient* weighing, CTcpClient* printing, bool resync)
    : weighing_(weighing),
      printing_(printing),
      resync_(resync),
      identity_(identityOf(platform::hostExecutable(), platform::kPathSeparator)) {}

unsigned VcoClientApi::takeImageNumber() {
  const unsigned number = imageNumber_;
  imageNumber_ = (number + 1) % kCachedImages;
  return number;
}

}  // namespace tolvex
