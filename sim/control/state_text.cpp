#include "control/state_text.h"

#include <nlohmann/json.hpp>

#include "control/views.h"

namespace tolvex::sim {

std::shared_ptr<const std::string> StateText::message() {
  const TimePoint now = clock_();
  const bool isFresh = message_ && epoch_ == simulation_.epoch && now - composedAt_ < kLife;
  if (isFresh) return message_;
  std::string text = textOf({{"type", "state"}, {"state", stateView(simulation_, now)}});
  if (!message_ || *message_ != text)
    message_ = std::make_shared<const std::string>(std::move(text));
  composedAt_ = now;
  epoch_ = simulation_.epoch;
  return message_;
}

}  // namespace tolvex::sim
