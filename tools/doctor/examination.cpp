#include "doctor/examination.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "base/printable.h"
#include "base/version.h"
#include "doctor/code_page_check.h"
#include "doctor/ini_examination.h"
#include "doctor/log_folder_check.h"
#include "doctor/threshold_examination.h"
#include "library/application.h"
#include "library/export_table.h"
#include "logs/log_ring.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/system.h"
#include "platform/text_encoding.h"

namespace tolvex::ctl {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kUsualLimit(5000);
constexpr char kIniName[] = "zelkad_ip_config.ini";
constexpr char kDefaultAddress[] = "127.0.0.1";

std::string folderOf(const std::string& path) { return fs::u8path(path).parent_path().u8string(); }

std::string missingExports(const Library& library) {
  std::string names;
  for (const ExportRow& row : exportTable()) {
    if (library.find(row.name.c_str()) == nullptr) names += (names.empty() ? "" : ", ") + row.name;
  }
  return names;
}

// Files whose name begins like that of the INI file, as editors and the Explorer make them.
std::vector<std::string> similarFiles(const std::string& folder) {
  const std::string stem = fs::u8path(kIniName).stem().u8string();
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(fs::u8path(folder), error), end; !error && entry != end;
       entry.increment(error)) {
    std::string name = entry->path().filename().u8string();
    std::string lower = name;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (lower.compare(0, stem.size(), stem) == 0) names.push_back(printable(name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool isLogEmpty(const std::vector<LogFile>& files) {
  return std::all_of(files.begin(), files.end(),
                     [](const LogFile& file) { return file.size == 0; });
}

// Something on this machine that keeps a layer from being examined.
Finding localTrouble(const Failure& failure) {
  Finding finding = failed(failure.what(), failure.remedy, failure.exit);
  finding.code = failure.code;
  return finding;
}

}  // namespace

// One layer: what it is called, and how it is examined.
struct LayerRow {
  const char* name;
  const char* title;
  std::vector<Finding> (Examination::*examine)();

  static const std::vector<LayerRow>& all() {
    static const std::vector<LayerRow>* const rows = new std::vector<LayerRow>{
        {"library", "Library", &Examination::library},
        {"address", "Address of the service", &Examination::address},
        {"log", "Log folder", &Examination::log},
        {"thresholds", "Log thresholds", &Examination::thresholds},
        {"ports", "Ports", &Examination::ports},
        {"service", "Service", &Examination::service},
        {"scale", "Scale", &Examination::scale},
        {"printers", "Printers", &Examination::printers},
        {"code-page", "Code page", &Examination::codePage},
    };
    return *rows;
  }
};

std::vector<std::string> layerNames() {
  std::vector<std::string> names;
  for (const LayerRow& row : LayerRow::all()) names.emplace_back(row.name);
  return names;
}

Finding outcomeOf(const std::string& who, const Failure& failure) {
  Finding finding = failed(failure.what(), failure.remedy, failure.exit);
  finding.code = failure.code;
  // Only the time limit ends a call without a code.
  if (!failure.code && failure.exit == ExitCode::Unreachable) {
    finding.code = TOLVEX_RESULT_SOCKET_INTERRUPT;
    finding.text = who + ": " + failure.what();
    finding.fix =
        "Restart the service, and read its own log. Until then such a command of an "
        "application takes 40 s.";
  }
  return finding;
}

Examination::Examination(Context& context, const DoctorOptions& options)
    : context_(context), options_(options), globals_(context.globals) {
  if (!globals_.timeout) globals_.timeout = kUsualLimit;
}

Report Examination::run() {
  Report report;
  std::string failedTitle;
  for (const LayerRow& row : LayerRow::all()) {
    Layer layer{row.name, row.title, {}};
    Finding skipped;
    skipped.mark = Mark::Skipped;
    if (!failedTitle.empty()) {
      skipped.text = "not looked at, because this failed first: " + failedTitle;
      layer.findings.push_back(skipped);
    } else if (options_.skip.count(row.name) != 0) {
      skipped.text = "left out, as --skip says";
      layer.findings.push_back(skipped);
    } else {
      layer.findings = (this->*row.examine)();
      if (layer.mark() == Mark::Failed) failedTitle = row.title;
    }
    report.layers.push_back(std::move(layer));
  }
  report.address = address_;
  return report;
}

Examination::Findings Examination::library() {
  Findings findings = {fine("tolvexctl is version " + std::string(version()) + ", x64, on " +
                            platform::systemName())};
  findings.back().facts = {{"version", version()}, {"system", platform::systemName()}};
  try {
    const Library& library = context_.library();
    const std::string libraryVersion = library.version();
    const std::string shown = libraryVersion.empty() ? "unknown" : libraryVersion;
    findings.push_back(fine(library.path() + ", version " + shown + ", x64, loads"));
    findings.back().facts = {{"path", library.path()}, {"version", libraryVersion}};
    const std::string missing = missingExports(library);
    if (!missing.empty()) {
      findings.push_back(
          failed("the library lacks " + missing, "Install library and tolvexctl of one version."));
    } else {
      findings.push_back(
          fine("all " + std::to_string(exportTable().size()) + " exports are there"));
    }
    if (libraryVersion != version()) {
      findings.push_back(
          warning("tolvexctl is version " + std::string(version()) + ", the library " + shown,
                  "Install library and tolvexctl of one version."));
    }
  } catch (const Failure& failure) {
    findings.push_back(localTrouble(failure));
  }
  return findings;
}

Examination::Findings Examination::address() {
  if (!globals_.host.empty()) {
    address_ = globals_.host;
    source_ = "--host";
    Findings findings = {
        info("the address is " + address_ + ", as --host says; no INI file is read")};
    for (Finding& finding : examineZeros(address_)) findings.push_back(std::move(finding));
    return findings;
  }
  try {
    return addressFromIni(globals_.app.empty() ? folderOf(tolvex::platform::hostExecutableUtf8())
                                               : applicationFolder(globals_.app));
  } catch (const Failure& failure) {
    return {localTrouble(failure)};
  }
}

Examination::Findings Examination::addressFromIni(const std::string& folder) {
  iniPath_ = (fs::u8path(folder) / kIniName).u8string();
  address_ = kDefaultAddress;
  source_ = "the default";
  std::string bytes;
  std::error_code error;
  if (!fs::exists(fs::u8path(iniPath_), error)) {
    Findings findings = {
        info("the address is " + address_ + ", the default: there is no " + iniPath_)};
    for (const std::string& name : similarFiles(folder)) {
      findings.push_back(warning("the library does not read " + name + " in that folder",
                                 std::string("If it is to tell the address, call it ") + kIniName +
                                     " (Windows may hide what stands behind the last point)."));
    }
    return findings;
  }
  if (!tolvex::platform::readFile(iniPath_.c_str(), bytes)) {
    return {failed(iniPath_ + " can not be read",
                   "Give the user of the POS application the right to read it, and look whether it "
                   "is a file.")};
  }
  IniExamination examined = examineIni(bytes, iniPath_);
  if (examined.address.empty()) {
    examined.findings.push_back(info("the address in force is " + address_ + ", the default"));
  } else {
    address_ = examined.address;
    source_ = iniPath_;
    fromIni_ = true;
  }
  return std::move(examined.findings);
}

Examination::Findings Examination::log() {
  const std::vector<std::string> folders = logFolders();
  Findings findings = checkLogFolder(folders[0], options_.fix);
  for (Finding& finding : checkSecondLogFolder(folders[1], options_.fix)) {
    findings.push_back(std::move(finding));
  }
  if (isLogEmpty(findLogFiles(folders))) findings.push_back(info("the log is empty"));
  return findings;
}

Examination::Findings Examination::thresholds() {
  Findings findings;
  for (const std::string& folder : logFolders()) {
    const std::string path = (fs::u8path(folder) / "NLog.ini").u8string();
    std::string bytes;
    if (!tolvex::platform::readFile(path.c_str(), bytes)) continue;
    for (Finding& finding : examineThresholds(bytes, path)) findings.push_back(std::move(finding));
  }
  if (findings.empty()) {
    findings.push_back(
        fine("no NLog.ini: failures and calls are logged (levels 5 to 7), requests "
             "and replies are not"));
  }
  return findings;
}

Service& Examination::serviceOfLibrary() {
  if (!service_) service_ = std::make_unique<Service>(context_.library(), globals_, context_.out);
  return *service_;
}

Examination::Findings Examination::codePage() {
  return checkCodePage(platform::codePageName(), tolvex::platform::AnsiToUtf8,
                       platform::adviceForUtf8());
}

}  // namespace tolvex::ctl
