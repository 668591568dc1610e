#include "doctor/ini_examination.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "base/printable.h"
#include "base/trimmed.h"
#include "config/ini_reader.h"
#include "config/ip_address.h"

namespace tolvex::ctl {
namespace {

constexpr std::string_view kSection = "zelkad";
constexpr std::string_view kKey = "ip_addr";
constexpr std::string_view kResync = "resync";
constexpr char kWanted[] =
    "Write two lines, without any blank: \"[zelkad]\" and \"ip_addr=192.168.1.20\" (the address of "
    "the service).";

std::string lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return result;
}

bool isSection(std::string_view line) {
  return line.size() >= 2 && line.front() == '[' && line.back() == ']';
}

std::string inQuotes(std::string_view text) { return '"' + printable(text) + '"'; }

// A line that means to tell the address and does not: an entry of that name but for blanks and case,
// in the right section but for blanks and case, or in none.
struct NearMiss {
  unsigned line;
  std::string reason;
  std::string fix;
  bool sure = true;  // another name may be meant for something else
};

std::string reasonOfKey(std::string_view key) {
  if (key == kKey) return "";
  if (trimmed(key) != kKey)
    return "it is written " + inQuotes(trimmed(key)) + " instead of \"ip_addr\"";
  return key.front() == 'i' ? "there is a blank before the '='"
                            : "there is a blank before \"ip_addr\"";
}

std::string reasonOfSection(std::string_view section, bool anySection) {
  if (!anySection) return "it stands before the line [zelkad]";
  return "it stands in the section " + inQuotes("[" + std::string(section) + "]") +
         " instead of [zelkad]";
}

class LineWalk {
 public:
  explicit LineWalk(std::string_view text) : rest_(text) {}

  std::vector<NearMiss> run() {
    while (!rest_.empty()) {
      const std::size_t end = std::min(rest_.find('\n'), rest_.size());
      std::string_view line = rest_.substr(0, end);
      rest_.remove_prefix(std::min(end + 1, rest_.size()));
      ++number_;
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
      look(line);
    }
    return std::move(misses_);
  }

 private:
  void look(std::string_view line) {
    if (line.empty() || line.front() == ';') return;
    if (isSection(line)) {
      section_ = line.substr(1, line.size() - 2);
      anySection_ = true;
    } else if (isSection(trimmed(line)) && lower(trimmed(trimmed(line).substr(1))) == "zelkad]") {
      brokenSection_ = number_;
    } else {
      entry(line);
    }
  }

  void entry(std::string_view line) {
    const std::string_view key = line.substr(0, line.find('='));
    if (lower(trimmed(key)) != kKey) return otherName(line);
    std::string reason = reasonOfKey(key);
    const bool inSection = section_ == kSection && anySection_;
    if (reason.empty() && inSection) return;
    if (reason.empty() && brokenSection_ != 0) {
      misses_.push_back({brokenSection_, "there is a blank before or behind [zelkad]",
                         "Take the blank out, so that the line is \"[zelkad]\"."});
      return;
    }
    if (reason.empty()) reason = reasonOfSection(section_, anySection_);
    misses_.push_back({number_, reason, fixFor(line, inSection)});
  }

  // An address in the right section under no name that the library looks for.
  void otherName(std::string_view line) {
    const std::size_t sign = line.find_first_of("=:");
    if (sign == std::string_view::npos || section_ != kSection || line.front() == '#') return;
    const std::string_view name = trimmed(line.substr(0, sign));
    if (name.empty() || !config::isIpv4Address(trimmed(line.substr(sign + 1)))) return;
    const std::string reason =
        lower(name) == kKey ? "there is a ':' instead of the '='" : reasonOfKey(name);
    misses_.push_back({number_, reason, fixFor(line, true), false});
  }

  std::string fixFor(std::string_view line, bool inSection) const {
    const std::size_t equals = line.find_first_of("=:");
    const std::string_view value =
        equals == std::string_view::npos ? std::string_view() : trimmed(line.substr(equals + 1));
    const std::string address =
        config::isIpv4Address(value) ? std::string(value) : std::string("192.168.1.20");
    const std::string right = "\"ip_addr=" + address + "\"";
    return inSection ? "Write the line as " + right + ", without any blank."
                     : "Write it as " + right + " below a line \"[zelkad]\", without any blank.";
  }

  std::string_view rest_;
  std::string_view section_;
  bool anySection_ = false;
  unsigned brokenSection_ = 0;
  unsigned number_ = 0;
  std::vector<NearMiss> misses_;
};

std::string place(const std::string& path, unsigned line) {
  return path + ", line " + std::to_string(line);
}

bool startsWith(std::string_view bytes, std::string_view mark) {
  return bytes.substr(0, mark.size()) == mark;
}

std::string encodingTrouble(std::string_view bytes) {
  if (startsWith(bytes, "\xEF\xBB\xBF")) return "begins with a byte-order mark (UTF-8 with BOM)";
  if (startsWith(bytes, "\xFF\xFE") || startsWith(bytes, "\xFE\xFF")) return "is in UTF-16";
  return "";
}

// Whether what spoils the first line spoils the address: a section line behind a mark is none.
bool markHarms(std::string_view bytes) {
  return config::lookUp(config::parseIni(bytes), "zelkad.ip_addr").empty();
}

Finding wrongValue(const std::string& value, const std::string& path) {
  const std::string what = "the address " + inQuotes(value) + " in " + path;
  const std::string fix = "Write a dotted IPv4 address, as in \"ip_addr=192.168.1.20\".";
  if (value.empty()) return failed("ip_addr in " + path + " has no value", fix);
  const std::string_view inner = trimmed(value);
  if (inner.size() != value.size() && config::isIpv4Address(inner)) {
    return failed(what + " has a blank before or behind it, so the library ignores it",
                  "Write the line as \"ip_addr=" + std::string(inner) + "\", without any blank.");
  }
  return failed(what + " is no IPv4 address, so the library ignores it", fix);
}

// What the file means by lines about resync, and what the library makes of them.
std::vector<Finding> examineResync(std::string_view bytes, const config::IniMap& entries,
                                   const std::string& path) {
  const std::string value = config::lookUp(entries, "zelkad.resync");
  if (value == "1") return {fine(path + " switches resync on")};
  if (value == "0") return {};
  const std::string fix = "Write \"resync=1\" below the line \"[zelkad]\", without any blank.";
  unsigned number = 0;
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view line = trimmed(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    ++number;
    if (lower(trimmed(line.substr(0, line.find('=')))) != kResync) continue;
    return {warning(inQuotes(line) + " in " + place(path, number) + " leaves resync off", fix)};
  }
  return {};
}

Finding missFinding(const NearMiss& miss, const std::string& path, bool harms) {
  const std::string text = "ip_addr in " + place(path, miss.line) + " is not found: " + miss.reason;
  return harms ? failed(text, miss.fix) : warning(text, miss.fix);
}

}  // namespace

std::vector<Finding> examineZeros(const std::string& address) {
  std::string plain;
  bool differs = false;
  for (std::string_view rest = address; !rest.empty();) {
    const std::size_t end = std::min(rest.find('.'), rest.size());
    const std::string part(rest.substr(0, end));
    const int number = std::atoi(part.c_str());
    // Up to 7 both ways of reading give the same.
    differs = differs || (part.size() > 1 && part.front() == '0' && number > 7);
    plain += (plain.empty() ? "" : ".") + std::to_string(number);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (!differs) return {};
  return {failed("a number in the address " + address +
                     " begins with 0, and so is read as an octal number: it is another address",
                 "Write it without the zeros: " + plain + '.')};
}

IniExamination examineIni(std::string_view bytes, const std::string& path) {
  IniExamination result;
  const std::string encoding = encodingTrouble(bytes);
  if (!encoding.empty() && markHarms(bytes)) {
    result.findings.push_back(
        failed(path + ' ' + encoding + ", so the library does not find [zelkad] in it",
               "Save it as plain text (ANSI, or UTF-8 without BOM)."));
    return result;
  }
  const config::IniMap entries = config::parseIni(bytes);
  const bool present = entries.count("zelkad.ip_addr") != 0;
  const std::string value = config::lookUp(entries, "zelkad.ip_addr");
  const bool valid = config::isIpv4Address(value);
  const std::vector<NearMiss> misses = LineWalk(bytes).run();
  if (valid) {
    result.address = value;
    result.findings.push_back(fine(path + " names the address " + value));
  } else if (present) {
    result.findings.push_back(wrongValue(value, path));
  } else if (misses.empty()) {
    result.findings.push_back(warning(path + " has no ip_addr in [zelkad]", kWanted));
  }
  for (const NearMiss& miss : misses) {
    if (miss.sure || !valid) result.findings.push_back(missFinding(miss, path, !valid));
  }
  for (Finding& finding : examineZeros(result.address)) {
    result.findings.push_back(std::move(finding));
  }
  for (Finding& finding : examineResync(bytes, entries, path)) {
    result.findings.push_back(std::move(finding));
  }
  return result;
}

}  // namespace tolvex::ctl
