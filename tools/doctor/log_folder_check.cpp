#include "doctor/log_folder_check.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "logs/log_ring.h"

namespace tolvex::ctl {
namespace {

namespace fs = std::filesystem;

constexpr char kTrialName[] = "tolvexctl-doctor.tmp";
constexpr char kTrialText[] = "tolvexctl doctor tries whether it can write here.\n";
constexpr std::uintmax_t kLittleSpace = 64u << 20;  // the ring alone takes 50 MiB

bool isFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

std::string reasonOf(int error) {
  return error != 0 ? std::generic_category().message(error) : "the system does not tell why";
}

// What keeps the folder from taking a file; empty when nothing does.
std::string writeTrouble(const fs::path& folder) {
  const fs::path path = folder / kTrialName;
  errno = 0;
  std::ofstream trial(path, std::ios::binary);
  if (!trial) return "no file can be made in it (" + reasonOf(errno) + ")";
  errno = 0;
  trial << kTrialText;
  trial.close();
  std::string trouble = trial ? "" : "nothing can be written in it (" + reasonOf(errno) + ")";
  std::error_code ignored;
  fs::remove(path, ignored);
  return trouble;
}

// A file of the ring that is there and cannot be written to; appending nothing changes nothing.
std::string unwritableFile(const std::string& folder, std::string& reason) {
  for (const LogFile& file : findLogFiles({folder})) {
    errno = 0;
    const std::ofstream trial(file.path, std::ios::binary | std::ios::app);
    if (trial) continue;
    reason = reasonOf(errno);
    return file.path.u8string();
  }
  return "";
}

Finding missing(const std::string& folder, const std::error_code& error) {
  const std::string why = error ? " and cannot be made (" + error.message() + ")" : "";
  const std::string fix =
      error ? "Make the folder by hand, with the right to write in it for the user of the POS "
              "application; look whether a file is in its place."
            : "Run tolvexctl doctor --fix, which makes it, or make the folder by hand.";
  return failed("the log folder " + folder + " is missing" + why, fix);
}

std::vector<Finding> examineFolder(const std::string& folder) {
  const fs::path path = fs::u8path(folder);
  const std::string trouble = writeTrouble(path);
  if (!trouble.empty()) {
    return {
        failed("the log folder " + folder + " is read-only for this user: " + trouble,
               "Give the user of the POS application the right to write in it, and look whether "
               "its disk is full or mounted read-only.")};
  }
  std::vector<Finding> findings = {fine("the log folder " + folder + " can be written")};
  std::string reason;
  const std::string file = unwritableFile(folder, reason);
  if (!file.empty()) {
    findings.push_back(failed("the log file " + file + " can not be written (" + reason + ")",
                              "Give the user of the POS application the right to write to it, or "
                              "move it away."));
  }
  std::error_code error;
  const fs::space_info space = fs::space(path, error);
  if (!error && space.available < kLittleSpace) {
    findings.push_back(
        warning("only " + std::to_string(space.available >> 20) +
                    " MiB are free where the log folder " + folder + " lies",
                "Make room: the log takes up to 50 MiB, and is lost when the disk is "
                "full."));
  }
  return findings;
}

}  // namespace

std::vector<Finding> checkLogFolder(const std::string& folder, bool mend) {
  const fs::path path = fs::u8path(folder.substr(0, folder.find_last_not_of("/\\") + 1));
  if (isFolder(path)) return examineFolder(folder);
  std::error_code error;
  // Where the library makes its folder itself, being asked for it was the attempt.
  if (mend || fs::path::preferred_separator == '/') {
    fs::create_directories(path, error);
    if (!error && !isFolder(path)) error = std::make_error_code(std::errc::not_a_directory);
  }
  if (!isFolder(path)) return {missing(folder, error)};
  std::vector<Finding> findings = {info("the log folder " + folder + " was missing and is made")};
  for (Finding& finding : examineFolder(folder)) findings.push_back(std::move(finding));
  return findings;
}

std::vector<Finding> checkSecondLogFolder(const std::string& folder, bool mend) {
  std::vector<Finding> findings = checkLogFolder(folder, mend);
  for (Finding& finding : findings) {
    if (finding.mark == Mark::Fine) continue;
    finding.mark = Mark::Info;
    finding.text += "; only applications that name the service's address themselves log there";
  }
  return findings;
}

}  // namespace tolvex::ctl
