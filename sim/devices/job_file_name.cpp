#include "devices/job_file_name.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "base/integer.h"

namespace tolvex::sim {

namespace {

constexpr std::string_view kBeginning = "job-";
constexpr int kNumberWidth = 4;

}  // namespace

std::string jobFileName(int number, std::string_view printer) {
  std::ostringstream name;
  name << kBeginning << std::setw(kNumberWidth) << std::setfill('0') << number << "-" << printer;
  return name.str();
}

// A name is compared with the one that its number would make, which leaves no room for others.
bool isJobFile(std::string_view fileName, const std::vector<std::string>& printers) {
  const std::size_t end = fileName.find('-', kBeginning.size());
  if (end == std::string_view::npos) return false;
  const std::string digits(fileName.substr(kBeginning.size(), end - kBeginning.size()));
  const std::size_t significant = std::min(digits.find_first_not_of('0'), digits.size());
  const auto number = parseInteger(digits.substr(significant));
  if (!number || *number < 1) return false;
  return std::any_of(printers.begin(), printers.end(), [&](const std::string& printer) {
    const std::string name = jobFileName(*number, printer);
    return fileName == name + std::string(kPictureSuffix) ||
           fileName == name + std::string(kTextSuffix);
  });
}

}  // namespace tolvex::sim
