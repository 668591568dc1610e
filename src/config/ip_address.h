// What the library accepts as the address of the service.
#pragma once

#include <string_view>

namespace tolvex::config {

// Whether the whole text is a dotted IPv4 address: four parts of one to three decimal digits, the
// first from 1 to 255 and the others from 0 to 255. Leading zeros count for nothing (010 is 10).
bool isIpv4Address(std::string_view text);

}  // namespace tolvex::config
