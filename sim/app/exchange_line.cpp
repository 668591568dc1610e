#include "app/exchange_line.h"

#include "base/list.h"
#include "base/printable.h"

namespace tolvex::sim {

namespace {

constexpr std::size_t kMaxLoggedBytes = 400;

std::string replyText(const Delivery& delivery) {
  if (!delivery.reply.empty()) return printable(delivery.reply, kMaxLoggedBytes);
  switch (delivery.after) {
    case After::Close:
      return "(closed)";
    case After::Reset:
      return "(reset)";
    case After::Keep:
      break;
  }
  return "(no answer)";
}

std::string faultsText(const std::vector<std::string>& faults) {
  std::string list;
  for (const std::string& fault : faults) addToList(list, fault);
  return list.empty() ? "" : " [" + list + "]";
}

}  // namespace

std::string exchangeLine(const Exchange& exchange) {
  return std::string(name(exchange.caller.half)) + " " + exchange.caller.client + " " +
         printable(exchange.request, kMaxLoggedBytes) + " -> " + replyText(exchange.delivery) +
         faultsText(exchange.faults);
}

}  // namespace tolvex::sim
