#include "doctor/threshold_examination.h"

#include <algorithm>
#include <map>

#include "base/printable.h"
#include "base/trimmed.h"
#include "log/log_config.h"

namespace tolvex::ctl {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr int kTraffic = 2;
constexpr int kFailures = 5;
constexpr int kTrace = 6;
constexpr std::size_t kMostIgnored = 20;  // that are told one by one

bool isModule(const std::string& name) {
  return name == "DLL" || name == "Socket" || name == "NLog";
}

// What a line says that the logger does not take; empty for lines that are to say nothing.
std::string whyIgnored(std::string_view line) {
  if (line.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    line.remove_prefix(kByteOrderMark.size());
  }
  line = trimmed(line);
  if (line.empty() || line.front() == ';' || line.front() == '#') return "";
  if (line.front() == '[' && line.back() == ']') return "";
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return "it has no '='";
  if (trimmed(line.substr(0, equals)).empty()) return "it names no module";
  const std::string_view value = trimmed(line.substr(equals + 1));
  if (value.empty()) return "it has no level";
  if (value == "5") return "5 is what every module has anyway, and the file can not set it";
  return "the level has to be a number from 1 to 7 but 5, or a negative one";
}

std::string place(const std::string& path, unsigned line, std::string_view text) {
  return path + ", line " + std::to_string(line) + ": \"" + printable(trimmed(text)) + "\"";
}

class NLogIni {
 public:
  NLogIni(std::string_view bytes, const std::string& path) : rest_(bytes), path_(path) {}

  std::vector<Finding> run() {
    while (!rest_.empty()) {
      const std::size_t end = std::min(rest_.find('\n'), rest_.size());
      look(rest_.substr(0, end));
      rest_.remove_prefix(std::min(end + 1, rest_.size()));
    }
    if (ignored_ > kMostIgnored) {
      findings_.push_back(warning(path_ + " has " + std::to_string(ignored_ - kMostIgnored) +
                                      " more lines that are ignored",
                                  "Take them out."));
    }
    for (const auto& [module, level] : levels_) tell(module, level);
    if (levels_.empty()) {
      findings_.push_back(info(path_ + " sets nothing: the modules log from level 5 on"));
    }
    return std::move(findings_);
  }

 private:
  void look(std::string_view line) {
    ++number_;
    Threshold threshold{};
    if (readThreshold(line, threshold)) {
      levels_[std::string(threshold.module)] = threshold.level;
      return;
    }
    const std::string reason = whyIgnored(line);
    if (reason.empty() || ++ignored_ > kMostIgnored) return;
    findings_.push_back(warning(place(path_, number_, line) + " is ignored: " + reason,
                                "Write MODULE=LEVEL, as in \"DLL=2\", or take the line out."));
  }

  void tell(const std::string& module, int level) {
    const std::string what = printable(module) + "=" + std::to_string(level) + " in " + path_;
    if (!isModule(module)) {
      findings_.push_back(warning(what + " has no effect: there is no module of this name",
                                  "The modules are DLL, Socket and NLog, in this spelling."));
    } else if (module != "NLog" && level > kTrace) {
      findings_.push_back(warning(what + " keeps failures and calls out of the log, which may stay "
                                         "empty",
                                  "Take the line out, to see failures (level 5) again."));
    } else if (module != "NLog" && level > kFailures) {
      findings_.push_back(warning(what + " keeps failures (level 5) out of the log",
                                  "Take the line out, to see them again."));
    } else if (module == "DLL" && level <= kTraffic) {
      findings_.push_back(info(what + " logs every request and reply, with the texts of receipts",
                               "Take the line out when nobody needs them any more."));
    } else {
      findings_.push_back(info(what));
    }
  }

  std::string_view rest_;
  const std::string& path_;
  unsigned number_ = 0;
  std::size_t ignored_ = 0;
  std::map<std::string, int> levels_;
  std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> examineThresholds(std::string_view bytes, const std::string& path) {
  return NLogIni(bytes, path).run();
}

}  // namespace tolvex::ctl
