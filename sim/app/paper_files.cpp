#include "app/paper_files.h"

#include <exception>
#include <filesystem>
#include <utility>

#include "app/unfinished_file.h"
#include "devices/job_file_name.h"
#include "paper/render.h"

namespace tolvex::sim {

namespace {

namespace fs = std::filesystem;

// Empty for a name that has no form in UTF-8, which no file of ours has.
std::string nameOf(const fs::path& file) {
  try {
    return file.filename().u8string();
  } catch (const std::exception&) {
    return "";
  }
}

std::vector<fs::path> jobFilesIn(const fs::path& directory,
                                 const std::vector<std::string>& printers, std::error_code& error) {
  std::vector<fs::path> files;
  for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    const bool isFile = fs::is_regular_file(entry->symlink_status(ignored));
    if (isFile && isJobFile(nameOf(entry->path()), printers)) files.push_back(entry->path());
  }
  return files;
}

std::string advice(const std::error_code& error) {
  const bool isFull = error == std::errc::no_space_on_device || error == std::errc::file_too_large;
  return std::string(isFull ? "Make room there, or choose" : "Choose") +
         " another folder with --paper-dir.";
}

}  // namespace

PaperFiles::PaperFiles(std::string directory, std::vector<std::string> printers,
                       std::function<void(const std::string&)> warn)
    : directory_(std::move(directory)), printers_(std::move(printers)), warn_(std::move(warn)) {
  restart();
}

void PaperFiles::restart() {
  if (createDirectory()) removeEarlier();
}

bool PaperFiles::createDirectory() {
  std::error_code error;
  fs::create_directories(fs::u8path(directory_), error);
  if (error) fail("cannot create the folder " + directory_, error);
  return !error;
}

// Otherwise what was printed earlier would look like the work of what follows.
void PaperFiles::removeEarlier() {
  std::error_code error;
  std::string place = directory_;
  for (const fs::path& file : jobFilesIn(fs::u8path(directory_), printers_, error)) {
    std::error_code failure;
    fs::remove(file, failure);
    if (failure && !error) {
      error = failure;
      place = file.u8string();
    }
  }
  if (!error) return;
  warn_("cannot remove earlier jobs, " + place + ": " + error.message() +
        ". Remove them by hand, or choose another folder with --paper-dir.");
}

std::string PaperFiles::save(const Job& job) {
  if (!createDirectory()) return "";
  const fs::path base =
      fs::u8path(directory_) / fs::u8path(jobFileName(job.number(), job.printer()));
  UnfinishedFile text(fs::path(base) += kTextSuffix);
  UnfinishedFile picture(fs::path(base) += kPictureSuffix);
  // Neither is seen before both are written. The picture comes last: once it is there, so is the
  // text.
  const bool saved = check(text.write(plainTextOf(job.paper())), text) &&
                     check(picture.write(svgOf(job.paper())), picture) &&
                     check(text.publish(), text) && publishPicture(picture, text);
  if (!saved) return "";
  failing_ = false;
  return picture.path().u8string();
}

// Without its picture, the text is taken back.
bool PaperFiles::publishPicture(UnfinishedFile& picture, const UnfinishedFile& text) {
  if (check(picture.publish(), picture)) return true;
  std::error_code ignored;
  fs::remove(text.path(), ignored);
  return false;
}

bool PaperFiles::check(const std::error_code& error, const UnfinishedFile& file) {
  if (error) fail("cannot write " + file.path().u8string(), error);
  return !error;
}

void PaperFiles::fail(const std::string& what, const std::error_code& error) {
  if (!failing_) {
    warn_(what + ": " + error.message() + ". Jobs are printed all the same, but not kept. " +
          advice(error));
  }
  failing_ = true;
}

}  // namespace tolvex::sim
