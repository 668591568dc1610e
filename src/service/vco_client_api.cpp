#include "service/vco_client_api.h"

#include "platform/paths.h"
#include "service/identity.h"

namespace tolvex {

VcoClientApi::VcoClientApi(CTcpClient* weighing, CTcpClient* printing)
    : weighing_(weighing),
      printing_(printing),
      identity_(identityOf(platform::hostExecutable(), platform::kPathSeparator)) {}

}  // namespace tolvex
