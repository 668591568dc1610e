#include "exchange/exchanger.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/integer.h"
#include "base/result_code.h"
#include "devices/job_log.h"
#include "exchange/faulty_reply.h"
#include "protocol/command.h"
#include "protocol/reply.h"
#include "protocol/request.h"

namespace tolvex::sim {

namespace {

// The value of a member that is a text; empty if there is none.
std::string memberOf(std::string_view json, std::string_view member) {
  const auto object = Request::parse(json);
  const std::string* value = object ? object->find(member) : nullptr;
  return value == nullptr ? "" : *value;
}

// The one that was switched on last; null if there is none of this kind.
const FaultRule* latest(const std::vector<FaultRule>& rules, FaultKind kind) {
  const auto found = std::find_if(rules.rbegin(), rules.rend(),
                                  [kind](const FaultRule& rule) { return rule.kind == kind; });
  return found == rules.rend() ? nullptr : &*found;
}

std::string replyWithCode(std::int64_t code) {
  return R"({"result":")" + std::to_string(code) + R"("})";
}

bool areCarriedOut(const std::vector<FaultRule>& rules) {
  return std::all_of(rules.begin(), rules.end(),
                     [](const FaultRule& rule) { return rule.carriedOut; });
}

// What the service would say: its answer, a refusal, or that it does not know. Where an answer is
// no reply, it stays that.
std::string plainReply(const std::vector<FaultRule>& rules,
                       const std::optional<Answerer::Answer>& answer) {
  if (answer && answer->reply.empty()) return "";
  if (const FaultRule* refusal = latest(rules, FaultKind::Result)) {
    return replyWithCode(refusal->code);
  }
  return answer ? answer->reply : Reply(ResultCode::Unknown).json();
}

std::string disfigured(const std::vector<FaultRule>& rules, std::string reply) {
  if (reply.empty()) return reply;
  if (latest(rules, FaultKind::WrongType) != nullptr) reply = withNumberAsResult(reply);
  if (const FaultRule* rule = latest(rules, FaultKind::Oversized)) {
    reply = padded(reply, rule->bytes);
  }
  if (const FaultRule* rule = latest(rules, FaultKind::Garbage)) reply = garbage(rule->bytes);
  return reply;
}

// Puts silence or an end in the place of the reply.
void withhold(const std::vector<FaultRule>& rules, Delivery& delivery) {
  for (const FaultRule& rule : rules) {
    const bool closes = rule.kind == FaultKind::Close;
    const bool resets = rule.kind == FaultKind::Reset;
    if (!closes && !resets && rule.kind != FaultKind::NoAnswer) continue;
    delivery.reply.clear();
    delivery.after = closes ? After::Close : resets ? After::Reset : After::Keep;
  }
}

void setTimes(const std::vector<FaultRule>& rules, Delivery& delivery) {
  for (const FaultRule& rule : rules) {
    if (rule.kind == FaultKind::Delay) delivery.delay += rule.time;
  }
  const FaultRule* split = latest(rules, FaultKind::TwoPieces);
  if (split == nullptr || delivery.reply.size() < 2) return;
  const bool fits = split->firstPiece > 0 && split->firstPiece < delivery.reply.size();
  delivery.firstPiece = fits ? split->firstPiece : delivery.reply.size() / 2;
  delivery.pause = split->time;
}

std::vector<std::string> namesOf(const std::vector<FaultRule>& rules) {
  std::vector<std::string> names;
  names.reserve(rules.size());
  for (const FaultRule& rule : rules) names.emplace_back(name(rule.kind));
  return names;
}

Outcome outcomeOf(const Delivery& delivery) {
  if (!delivery.reply.empty()) return Outcome::Answered;
  switch (delivery.after) {
    case After::Close:
      return Outcome::Closed;
    case After::Reset:
      return Outcome::Reset;
    case After::Keep:
      break;
  }
  return Outcome::Unanswered;
}

std::string beginningOf(std::string_view text) {
  return std::string(text.substr(0, TrafficLog::kMaxTextBytes));
}

}  // namespace

Exchanger::Exchanger(Answerer& answerer, FaultBoard& faults, TrafficLog& traffic, JobLog& jobs)
    : answerer_(answerer), faults_(faults), traffic_(traffic) {
  jobs.listen([changed = job_](const Job& job) { *changed = job.number(); });
}

void Exchanger::observe(std::function<void(const Exchange& exchange)> observer) {
  observers_.push_back(std::move(observer));
}

Delivery Exchanger::exchange(const Caller& caller, const JsonSplitter::Piece& piece, TimePoint now,
                             WallTime time) {
  TrafficEntry entry;
  entry.time = time;
  entry.command = memberOf(piece.text, "cmd");
  entry.known = findCommand(caller.half, entry.command) != nullptr;
  const std::vector<FaultRule> rules = faults_.take(caller.half, entry.command);
  const std::vector<std::string> faults = namesOf(rules);
  entry.faults = faults;

  *job_ = 0;
  std::optional<Answerer::Answer> answer;
  if (areCarriedOut(rules)) answer = answerer_.answer(caller.half, piece.text, now);
  entry.job = *job_;

  Delivery delivery;
  delivery.reply = plainReply(rules, answer);
  if (answer || latest(rules, FaultKind::Result) != nullptr) {
    entry.result = parseInteger(memberOf(delivery.reply, "result"));
  }
  if (piece.kind == JsonSplitter::Kind::TooLong) delivery.after = After::Close;
  if (answer && answer->reply.empty()) delivery.after = answer->after;
  delivery.reply = disfigured(rules, std::move(delivery.reply));
  withhold(rules, delivery);
  setTimes(rules, delivery);
  delivery.began = now;
  delivery.restarts = traffic_.restarts();
  delivery.number = record(caller, std::move(entry), piece.text, delivery);

  const std::string_view reply = answer ? answer->reply : std::string_view();
  const Exchange exchange{caller, time, now, piece.text, reply, delivery, faults};
  for (const auto& observer : observers_) observer(exchange);
  return delivery;
}

void Exchanger::delivered(const Delivery& delivery, TimePoint now) {
  complete(delivery, outcomeOf(delivery), now);
}

void Exchanger::lost(const Delivery& delivery, TimePoint now) {
  complete(delivery, Outcome::Lost, now);
}

std::uint64_t Exchanger::record(const Caller& caller, TrafficEntry entry, std::string_view request,
                                const Delivery& delivery) {
  entry.half = caller.half;
  entry.connection = caller.connection;
  entry.client = caller.client;
  entry.request = beginningOf(request);
  entry.requestBytes = request.size();
  entry.reply = beginningOf(delivery.reply);
  entry.replyBytes = delivery.reply.size();
  return traffic_.add(std::move(entry));
}

void Exchanger::complete(const Delivery& delivery, Outcome outcome, TimePoint now) {
  if (delivery.restarts != traffic_.restarts()) return;
  traffic_.complete(delivery.number, outcome,
                    std::chrono::duration_cast<std::chrono::microseconds>(now - delivery.began));
}

}  // namespace tolvex::sim
