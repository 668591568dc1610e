#include "commands/job_type.h"

#include <algorithm>
#include <cctype>

#include "base/whole_number.h"
#include "printing/job_names.h"

namespace tolvex::ctl {
namespace {

constexpr int kHighestJobType = 9999;

std::string lowered(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// Behind the number.
std::string nameAlone(const JobName& job) {
  const std::string name = lowered(job.name);
  return name.substr(name.find('_') + 1);
}

}  // namespace

std::optional<int> parseJobType(const std::string& text) {
  const auto number = parseWholeNumber(text);
  if (number && *number >= 0 && *number <= kHighestJobType) return static_cast<int>(*number);
  const std::string wanted = lowered(text);
  for (const JobName& job : kJobNames) {
    if (wanted == lowered(job.name) || wanted == nameAlone(job)) return job.jobType;
  }
  return std::nullopt;
}

std::vector<std::string> jobTypeNames() {
  std::vector<std::string> names;
  for (const JobName& job : kJobNames) {
    const std::string name = nameAlone(job);
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  return names;
}

std::string jobTypeName(int jobType) {
  for (const JobName& job : kJobNames) {
    if (job.jobType == jobType) return job.name;
  }
  return std::to_string(jobType);
}

CLI::Validator jobTypeCheck() {
  return CLI::Validator(
      [](const std::string& text) -> std::string {
        if (parseJobType(text)) return "";
        std::string names;
        for (const std::string& name : jobTypeNames()) names += (names.empty() ? "" : ", ") + name;
        return "\"" + text + "\" is no job type; they are numbers such as 8, or one of " + names;
      },
      "");
}

}  // namespace tolvex::ctl
