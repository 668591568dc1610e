// The faults that are switched on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <string_view>
#include <vector>

#include "faults/fault_rule.h"

namespace tolvex::sim {

/// Keeps the rules and counts down those that act a number of times. Not thread-safe.
class FaultBoard {
 public:
  /// More rules than this are not taken.
  static constexpr std::size_t kMaxRules = 100;

  /// `listener` is called after each change, counting down included. There may be several.
  void listen(std::function<void()> listener);

  /// Switches a fault on, under an id of its own, which is returned; 0 if there are too many. The
  /// rule is taken as it is: bounds are checked by whoever takes it from people (control/).
  std::uint64_t add(FaultRule rule);

  /// Switches one fault off; false if there is none with this id.
  bool remove(std::uint64_t id);
  void clear();

  /// In the order in which they were added.
  const std::vector<FaultRule>& rules() const { return rules_; }

  /// The rules (Refuse never) that act on this exchange, in the order in which they were added, as
  /// they were before; counts each of them down. `command` is empty for what is no command.
  std::vector<FaultRule> take(Half half, std::string_view command);

  /// Whether a rule refuses connections to this port, and whether it resets those that exist.
  bool refuses(Half half) const;
  bool drops(Half half) const;

 private:
  void changed();

  std::vector<FaultRule> rules_;
  // A list, so that a listener may bring another one.
  std::list<std::function<void()>> listeners_;
  std::uint64_t lastId_ = 0;
};

}  // namespace tolvex::sim
