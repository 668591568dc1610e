#pragma once

#include <string_view>

namespace tolvex::sim {

/// Whether `text` is an IPv4 address in full: four numbers from 0 to 255 with dots between them.
/// Stricter than the systems, which know abbreviations and octal numbers, each its own.
bool isIpv4Address(std::string_view text);

}  // namespace tolvex::sim
