#include "app/listen_advice.h"

namespace tolvex::sim {

namespace {

std::string webAdvice(const ListenError& error) {
  const std::string without = ", or do without the page with --no-web.";
  if (error.failure() == ListenFailure::NoSuchAddress) {
    return ". Choose an address of this machine with --web-address" + without;
  }
  return ". Is another zelkad-sim running? Stop it, choose another port with --web-port" + without;
}

}  // namespace

std::string adviceOn(const ListenError& error) {
  if (error.portName() == "web") return webAdvice(error);
  const std::string otherPort =
      "choose another port with --" + error.portName() + "-port or another address with --address";
  switch (error.failure()) {
    case ListenFailure::InUse:
      return ". Is another zelkad or zelkad-sim running? Stop it, or " + otherPort + ".";
    case ListenFailure::NoSuchAddress:
      return ". Choose an address of this machine with --address.";
    case ListenFailure::Denied:
    case ListenFailure::Other:
      break;
  }
  return ". Is another zelkad or zelkad-sim running, or is the port reserved? Stop it, or " +
         otherPort + ".";
}

}  // namespace tolvex::sim
