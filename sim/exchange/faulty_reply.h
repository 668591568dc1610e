// Replies as no service should give them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// The reply with its "result" as a JSON number; one that is no number becomes 0. What is no JSON
/// object stays as it is.
std::string withNumberAsResult(std::string_view reply);

/// The reply, still well-formed, with a member "padding" that makes it `bytes` long. It is always
/// added, so a reply that is nearly as long already becomes somewhat longer.
std::string padded(std::string_view reply, std::size_t bytes);

/// So many bytes (at least 1) that are neither JSON nor UTF-8, the same ones each time.
std::string garbage(std::size_t bytes);

}  // namespace tolvex::sim
