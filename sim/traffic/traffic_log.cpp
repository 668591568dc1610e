#include "traffic/traffic_log.h"

#include <algorithm>
#include <utility>

namespace tolvex::sim {

namespace {

constexpr std::int64_t kOk = 0;
constexpr std::int64_t kWeightNotStable = 1005;

void cut(std::string& text, std::size_t bytes) {
  if (text.size() <= bytes) return;
  text.resize(bytes);
  text.shrink_to_fit();
}

std::size_t bytesOf(const TrafficEntry& entry) {
  return entry.request.size() + entry.reply.size() + entry.command.size();
}

bool wentWrong(const TrafficEntry& entry) {
  return !entry.known || !entry.faults.empty() ||
         (entry.result && *entry.result != kOk && *entry.result != kWeightNotStable);
}

}  // namespace

const char* name(Outcome outcome) {
  switch (outcome) {
    case Outcome::Pending:
      return "pending";
    case Outcome::Answered:
      return "answered";
    case Outcome::Unanswered:
      return "unanswered";
    case Outcome::Closed:
      return "closed";
    case Outcome::Reset:
      return "reset";
    case Outcome::Lost:
      break;
  }
  return "lost";
}

void TrafficLog::listen(std::function<void(const TrafficEntry& entry)> listener) {
  listeners_.push_back(std::move(listener));
}

void TrafficLog::listenToConnections(std::function<void(Half half)> listener) {
  connectionListeners_.push_back(std::move(listener));
}

std::uint64_t TrafficLog::add(TrafficEntry entry) {
  const std::uint64_t number = ++lastNumber_;
  entry.number = number;
  cut(entry.request, kMaxTextBytes);
  cut(entry.reply, kMaxTextBytes);
  cut(entry.command, kMaxCommandBytes);
  lastClient_ = entry.client;
  lastRequest_ = entry.time;
  if (wentWrong(entry)) lastError_ = number;
  bytes_ += bytesOf(entry);
  entries_.push_back(std::move(entry));
  forgetOldest();
  changed(entries_.back());
  return number;
}

void TrafficLog::complete(std::uint64_t number, Outcome outcome,
                          std::chrono::microseconds duration) {
  if (number < oldest() || number > lastNumber_) return;
  TrafficEntry& entry = entries_[number - oldest()];
  entry.outcome = outcome;
  entry.duration = duration;
  changed(entry);
}

const TrafficEntry* TrafficLog::find(std::uint64_t number) const {
  if (number < oldest() || number > lastNumber_) return nullptr;
  return &entries_[number - oldest()];
}

std::vector<const TrafficEntry*> TrafficLog::changedSince(std::uint64_t since,
                                                          std::size_t most) const {
  std::vector<const TrafficEntry*> found;
  auto change = std::upper_bound(
      history_.begin(), history_.end(), since,
      [](std::uint64_t value, const Change& candidate) { return value < candidate.change; });
  for (; change != history_.end() && found.size() < most; ++change) {
    if (isLatest(*change)) found.push_back(find(change->number));
  }
  return found;
}

std::uint64_t TrafficLog::connected(Half half, const std::string& client) {
  ++connections_.at(indexOf(half));
  ++changes_;
  lastClient_ = client;
  ++lastConnection_;
  for (const auto& listener : connectionListeners_) listener(half);
  return lastConnection_;
}

void TrafficLog::disconnected(Half half) {
  --connections_.at(indexOf(half));
  ++changes_;
}

void TrafficLog::clear() {
  entries_.clear();
  history_.clear();
  bytes_ = 0;
  lastClient_.clear();
  lastRequest_.reset();
  lastError_ = 0;
  ++changes_;
}

void TrafficLog::restart() {
  clear();
  lastNumber_ = 0;
  ++restarts_;
}

bool TrafficLog::isLatest(const Change& change) const {
  const TrafficEntry* entry = find(change.number);
  return entry != nullptr && entry->change == change.change;
}

void TrafficLog::changed(TrafficEntry& entry) {
  entry.change = ++changes_;
  history_.push_back({entry.change, entry.number});
  while (!isLatest(history_.front())) history_.pop_front();
  if (listeners_.empty()) return;
  // A listener may change the log, and with it the entry.
  const TrafficEntry copy = entry;
  for (const auto& listener : listeners_) listener(copy);
}

// The newest entry is kept in any case: its texts are short enough.
void TrafficLog::forgetOldest() {
  while (entries_.size() > kMaxEntries || bytes_ > kMaxBytes) {
    bytes_ -= bytesOf(entries_.front());
    entries_.pop_front();
  }
}

}  // namespace tolvex::sim
