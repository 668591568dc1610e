#include "app/shield.h"

#include <algorithm>

namespace tolvex::ctl {
namespace {

// No shell hands over a word with this at its head by chance.
constexpr char kShield = '\x1';

bool isInBrackets(const std::string& word) {
  return word.size() >= 2 && word.front() == '[' && word.back() == ']';
}

std::string withoutShield(std::string& word) {
  if (!word.empty() && word.front() == kShield) word.erase(0, 1);
  return "";
}

}  // namespace

std::vector<std::string> shielded(std::vector<std::string> words) {
  const auto end = std::find(words.begin(), words.end(), "--");
  for (auto word = words.begin(); word != words.end(); ++word) {
    if (word > end || isInBrackets(*word)) word->insert(word->begin(), kShield);
  }
  if (end != words.end()) words.erase(end);
  return words;
}

void takeShieldsOff(CLI::App& app) {
  for (CLI::Option* const option : app.get_options()) {
    if (option->get_items_expected_max() != 0) option->transform(CLI::Validator(withoutShield, ""));
  }
  for (CLI::App* const command : app.get_subcommands([](CLI::App*) { return true; })) {
    takeShieldsOff(*command);
  }
}

}  // namespace tolvex::ctl
