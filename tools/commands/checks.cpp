#include "commands/checks.h"

#include <string>

#include "base/duration.h"
#include "base/whole_number.h"
#include "config/ip_address.h"

namespace tolvex::ctl {

CLI::Validator durationCheck() {
  return CLI::Validator(
      [](const std::string& text) -> std::string {
        if (parseDuration(text)) return "";
        return "\"" + text + "\" is no time such as 500, 500ms, 5s or 2m, from 1 ms to a day";
      },
      "");
}

CLI::Validator addressCheck() {
  return CLI::Validator(
      [](const std::string& text) -> std::string {
        if (config::isIpv4Address(text)) return "";
        return "\"" + text + "\" is no IPv4 address such as 192.168.1.20";
      },
      "");
}

CLI::Validator numberCheck(std::int64_t least, std::int64_t most) {
  return CLI::Validator(
      [least, most](const std::string& text) -> std::string {
        const auto number = parseWholeNumber(text);
        if (number && *number >= least && *number <= most) return "";
        return "\"" + text + "\" is no whole number from " + std::to_string(least) + " to " +
               std::to_string(most);
      },
      "");
}

}  // namespace tolvex::ctl
