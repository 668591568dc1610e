#pragma once

namespace tolvex::ctl {

/// The longest reply that the library reads, in bytes.
constexpr unsigned kLongestReply = 2048;

/// Room for any reply, with as much to spare.
constexpr unsigned kReplySize = 2 * kLongestReply;

}  // namespace tolvex::ctl
