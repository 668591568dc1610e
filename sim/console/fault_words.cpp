#include "console/fault_words.h"

#include <algorithm>

#include "base/integer.h"
#include "base/list.h"
#include "base/printable.h"
#include "console/console_command.h"

namespace tolvex::sim {

namespace {

constexpr int kMostTimes = 1'000'000;
constexpr std::size_t kLongestCommand = 64;

// One KEY of the settings.
struct FaultSetting {
  const char* key;
  /// What its value is, and one of them.
  const char* meaning;
  const char* example;
  bool (*belongsTo)(FaultKind kind);
  /// False if the value is not allowed.
  bool (*set)(FaultRule& rule, const std::string& value);
  /// The value; empty if it goes without saying.
  std::string (*get)(const FaultRule& rule);
};

bool isAny(FaultKind) { return true; }
bool isOfExchanges(FaultKind kind) { return kind != FaultKind::Refuse; }
bool hasTime(FaultKind kind) { return kind == FaultKind::Delay || kind == FaultKind::TwoPieces; }
bool hasPieces(FaultKind kind) { return kind == FaultKind::TwoPieces; }
bool hasBytes(FaultKind kind) { return kind == FaultKind::Oversized || kind == FaultKind::Garbage; }
bool hasCode(FaultKind kind) { return kind == FaultKind::Result; }
bool isRefusal(FaultKind kind) { return kind == FaultKind::Refuse; }

std::optional<int> numberFrom(const std::string& value, int least, int most) {
  const auto number = parseInteger(value);
  return number && *number >= least && *number <= most ? number : std::nullopt;
}

bool setSwitch(bool& flag, const std::string& value) {
  flag = value == "yes";
  return flag || value == "no";
}

bool setBytes(std::size_t& bytes, const std::string& value) {
  const auto number = numberFrom(value, 1, static_cast<int>(FaultRule::kMaxBytes));
  if (number) bytes = static_cast<std::size_t>(*number);
  return number.has_value();
}

bool setPort(FaultRule& rule, const std::string& value) {
  for (const Half half : {Half::Weighing, Half::Printing}) {
    if (value == name(half)) rule.half = half;
  }
  return rule.half || value == "both";
}

bool setCommand(FaultRule& rule, const std::string& value) {
  rule.command = value;
  return !value.empty() && value.size() <= kLongestCommand;
}

bool setTimes(FaultRule& rule, const std::string& value) {
  const auto number = numberFrom(value, 1, kMostTimes);
  if (number) rule.remaining = static_cast<std::uint64_t>(*number);
  return number.has_value();
}

bool setMilliseconds(FaultRule& rule, const std::string& value) {
  const auto number = numberFrom(value, 0, static_cast<int>(FaultRule::kMaxTime.count()));
  if (number) rule.time = std::chrono::milliseconds(*number);
  return number.has_value();
}

bool setCode(FaultRule& rule, const std::string& value) {
  const auto number = parseInteger(value);
  rule.code = number.value_or(0);
  return number.has_value();
}

const char* yesOrNo(bool flag) { return flag ? "yes" : "no"; }

const std::vector<FaultSetting>& allSettings() {
  static const std::vector<FaultSetting> settings = {
      {"port", "weighing, printing or both", "weighing", isAny, setPort,
       [](const FaultRule& rule) { return std::string(rule.half ? name(*rule.half) : ""); }},
      {"command", "the name of a command", "getweight", isOfExchanges, setCommand,
       [](const FaultRule& rule) { return rule.command; }},
      {"ms", "a number from 0 to 600000", "1500", hasTime, setMilliseconds,
       [](const FaultRule& rule) { return std::to_string(rule.time.count()); }},
      {"first", "a number from 1 to 16777216", "12", hasPieces,
       [](FaultRule& rule, const std::string& value) { return setBytes(rule.firstPiece, value); },
       [](const FaultRule& rule) {
         return rule.firstPiece == 0 ? "" : std::to_string(rule.firstPiece);
       }},
      {"bytes", "a number from 1 to 16777216", "5000", hasBytes,
       [](FaultRule& rule, const std::string& value) { return setBytes(rule.bytes, value); },
       [](const FaultRule& rule) { return std::to_string(rule.bytes); }},
      {"code", "a whole number of 32 bits", "2006", hasCode, setCode,
       [](const FaultRule& rule) { return std::to_string(rule.code); }},
      {"carried-out", "yes or no", "no", isOfExchanges,
       [](FaultRule& rule, const std::string& value) { return setSwitch(rule.carriedOut, value); },
       [](const FaultRule& rule) {
         const bool isUsual = rule.carriedOut == defaultRule(rule.kind).carriedOut;
         return std::string(isUsual ? "" : yesOrNo(rule.carriedOut));
       }},
      {"drop", "yes or no", "no", isRefusal,
       [](FaultRule& rule, const std::string& value) {
         return setSwitch(rule.dropsConnections, value);
       },
       [](const FaultRule& rule) { return std::string(rule.dropsConnections ? "" : "no"); }},
      {"times", "a number from 1 to 1000000", "3", isOfExchanges, setTimes,
       [](const FaultRule& rule) {
         return rule.remaining ? std::to_string(*rule.remaining) : std::string();
       }},
  };
  return settings;
}

std::string keysOf(FaultKind kind) {
  std::string list;
  for (const FaultSetting& setting : allSettings()) {
    if (setting.belongsTo(kind)) addToList(list, setting.key);
  }
  return list;
}

// Makes one setting; the answer is what is wrong with it.
std::string apply(const std::string& word, FaultRule& rule) {
  const std::size_t equals = std::min(word.find('='), word.size());
  const std::string key = word.substr(0, equals);
  const auto& settings = allSettings();
  const auto setting =
      std::find_if(settings.begin(), settings.end(), [&](const FaultSetting& candidate) {
        return candidate.key == key && candidate.belongsTo(rule.kind);
      });
  if (setting == settings.end()) {
    return std::string(name(rule.kind)) + " has no setting \"" + printable(key, kMaxEchoBytes) +
           "\"; it has: " + keysOf(rule.kind);
  }
  if (equals < word.size() && setting->set(rule, word.substr(equals + 1))) return "";
  return key + " needs " + setting->meaning + ", as in: " + key + "=" + setting->example;
}

// The setting that has to be made, if there is one.
std::string requiredKey(FaultKind kind) {
  if (kind == FaultKind::Delay) return "ms";
  return kind == FaultKind::Result ? "code" : "";
}

bool isSet(const std::vector<std::string>& words, const std::string& key) {
  return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
    return word.compare(0, key.size() + 1, key + "=") == 0;
  });
}

}  // namespace

ParsedFault parseFault(const std::vector<std::string>& words) {
  ParsedFault parsed;
  const auto kind = findFaultKind(words.front());
  if (!kind) {
    parsed.error =
        "unknown fault \"" + printable(words.front(), kMaxEchoBytes) + "\"; " + wordsForKinds();
    return parsed;
  }
  parsed.rule = defaultRule(*kind);
  for (std::size_t i = 1; i < words.size() && parsed.error.empty(); ++i) {
    parsed.error = apply(words[i], parsed.rule);
  }
  const std::string required = requiredKey(*kind);
  if (parsed.error.empty() && !required.empty() && !isSet(words, required)) {
    parsed.error = words.front() + " needs " + required + ", as in: wire " + words.front() + " " +
                   required + (required == "ms" ? "=1500" : "=2006");
  }
  return parsed;
}

std::string wordsOf(const FaultRule& rule) {
  std::string words = name(rule.kind);
  for (const FaultSetting& setting : allSettings()) {
    if (!setting.belongsTo(rule.kind)) continue;
    const std::string value = setting.get(rule);
    if (!value.empty()) words += std::string(" ") + setting.key + "=" + value;
  }
  return words;
}

std::string wordsForKinds() {
  std::string list;
  for (const FaultKind kind : faultKinds()) addToList(list, name(kind));
  return "the faults on the wire are: " + list;
}

}  // namespace tolvex::sim
