// Where two texts part.
#pragma once

#include <string>
#include <string_view>

namespace tolvex::sim {

/// Three lines for people, without a line end behind the last one: what was expected, what came, and
/// a mark below the first byte that differs, with its number (from 1 on):
///
///   expected  {"cmd":"printblanks","printerType":"1","distance":"5"}
///   came      {"cmd":"printblanks","printerType":"1","distance":"7"}
///                                                                ^ byte 52
///
/// Of long texts only the surroundings of that byte are shown. The texts differ.
std::string describeDifference(std::string_view expected, std::string_view came);

}  // namespace tolvex::sim
