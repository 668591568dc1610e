#include "bundle/bundle.h"

#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>

#include "base/failure.h"
#include "bundle/mask.h"
#include "bundle/zip_writer.h"
#include "logs/line_reader.h"
#include "logs/log_ring.h"

namespace tolvex::ctl {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestIni = 1 << 20;
// A ring has files of 5 MiB each and one record; of anything larger the end is taken.
constexpr std::int64_t kMostOfLog = 64 << 20;

constexpr char kReadme[] =
    "This file was made by tolvexctl doctor --bundle, for support.\n"
    "\n"
    "report.txt, report.json  what the doctor found\n"
    "versions.json            versions of program, library and system\n"
    "environment.txt          environment variables that matter\n"
    "zelkad_ip_config.ini     as it is, if there is one\n"
    "log/                     the log of the last applications; NLog.ini as it is\n"
    "\n"
    "Texts of receipts and labels in the log are masked: every letter is an x, every digit a 9.\n"
    "What is not known to be harmless is masked as well. Weights, result codes, names of "
    "printers,\n"
    "addresses and paths stay, and paths may tell the names of users.\n"
    "Pictures that were printed are not in here.\n";

// Removes the unfinished file unless it was finished.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const std::string& path)
      : target_(fs::u8path(path)),
        path_(fs::u8path(path + ".part")),
        out_(path_, std::ios::binary) {}
  ~UnfinishedFile() {
    if (finished_) return;
    out_.close();
    std::error_code ignored;
    fs::remove(path_, ignored);
  }
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  std::ofstream& out() { return out_; }

  bool finish() {
    out_.close();
    if (!out_) return false;
    std::error_code error;
    fs::rename(path_, target_, error);
    finished_ = !error;
    return finished_;
  }

 private:
  fs::path target_;
  fs::path path_;
  std::ofstream out_;
  bool finished_ = false;
};

void addFileAsItIs(ZipWriter& zip, const fs::path& path, const std::string& name) {
  std::error_code ignored;
  if (!fs::is_regular_file(path, ignored)) return;
  std::ifstream file(path, std::ios::binary);
  if (!file) return;
  std::string text(kLongestIni, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  zip.add(name, text);
}

void addMaskedLog(ZipWriter& zip, const LogFile& file, const std::string& name) {
  zip.begin(name);
  const std::int64_t begin = file.size > kMostOfLog ? file.size - kMostOfLog : 0;
  LineReader lines(file.path, begin, file.size);
  std::string line;
  while (lines.next(line)) {
    std::string shown = maskLogLine(line);
    if (lines.leftOut() > 0) {
      shown += "[... " + std::to_string(lines.leftOut()) + " bytes left out]";
    }
    zip.write(shown + '\n');
  }
}

// "varn" and "corvane": the folder above "log".
std::string shortName(const std::string& folder) {
  fs::path path = fs::u8path(folder);
  if (!path.has_filename()) path = path.parent_path();
  return path.parent_path().filename().u8string();
}

void addLogs(ZipWriter& zip, const std::vector<std::string>& folders) {
  for (const std::string& folder : folders) {
    const std::string place = "log/" + shortName(folder) + '/';
    addFileAsItIs(zip, fs::u8path(folder) / "NLog.ini", place + "NLog.ini");
    for (const LogFile& file : findLogFiles({folder})) addMaskedLog(zip, file, place + file.name);
  }
}

[[noreturn]] void refuse(const std::string& path) {
  throw Failure(ExitCode::Failed, "cannot write the bundle " + path,
                "Name a file in a folder that is there and that you can write to, on a disk with "
                "room.");
}

}  // namespace

void checkBundlePath(const std::string& path, bool force) {
  std::error_code ignored;
  if (!fs::exists(fs::u8path(path), ignored)) return;
  // No device such as /dev/null: what is written takes the place of what is there.
  if (!fs::is_regular_file(fs::u8path(path), ignored)) refuse(path);
  if (force) return;
  throw Failure(ExitCode::Failed, "there is a file " + path + " already",
                "Name another one, or add --force to replace it.");
}

void writeBundle(const std::string& path, const BundleContents& contents) {
  UnfinishedFile file(path);
  if (!file.out()) refuse(path);
  ZipWriter zip(file.out(), zipTimeNow());
  zip.add("README.txt", kReadme);
  for (const BundleContents::File& made : contents.files) zip.add(made.name, made.text);
  if (!contents.iniPath.empty()) {
    addFileAsItIs(zip, fs::u8path(contents.iniPath), "zelkad_ip_config.ini");
  }
  addLogs(zip, contents.logFolders);
  if (!zip.finish() || !file.finish()) refuse(path);
}

}  // namespace tolvex::ctl
