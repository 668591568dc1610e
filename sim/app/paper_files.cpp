#include "app/paper_files.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "app/job_file_name.h"
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

std::error_code writeWhole(const fs::path& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  return file ? std::error_code() : std::make_error_code(std::errc::io_error);
}

// Under another name first, because whoever looks into the folder must not see half a file.
std::error_code writeFile(const fs::path& path, const std::string& content) {
  fs::path unfinished = path;
  unfinished += ".tmp";
  std::error_code error = writeWhole(unfinished, content);
  if (!error) fs::rename(unfinished, path, error);
  std::error_code ignored;
  if (error) fs::remove(unfinished, ignored);
  return error;
}

}  // namespace

PaperFiles::PaperFiles(std::string directory, const std::vector<std::string>& printers,
                       std::function<void(const std::string&)> warn)
    : directory_(std::move(directory)), warn_(std::move(warn)) {
  if (createDirectory()) removeEarlier(printers);
}

bool PaperFiles::createDirectory() {
  std::error_code error;
  fs::create_directories(fs::u8path(directory_), error);
  if (error) fail("cannot create the folder " + directory_ + ": " + error.message());
  return !error;
}

// Otherwise what an earlier run printed would look like the work of this one.
void PaperFiles::removeEarlier(const std::vector<std::string>& printers) {
  std::error_code error;
  std::string place = directory_;
  for (const fs::path& file : jobFilesIn(fs::u8path(directory_), printers, error)) {
    std::error_code failure;
    fs::remove(file, failure);
    if (failure && !error) {
      error = failure;
      place = file.u8string();
    }
  }
  if (!error) return;
  warn_("cannot remove the jobs of an earlier run, " + place + ": " + error.message() +
        ". Remove them by hand, or choose another folder with --paper-dir.");
}

std::string PaperFiles::save(const Job& job) {
  if (!createDirectory()) return "";
  const std::string base =
      (fs::u8path(directory_) / jobFileName(job.number(), job.printer())).u8string();
  // The picture comes last: once it is there, so is the text.
  const bool written =
      write(base + ".txt", plainTextOf(job.paper())) && write(base + ".svg", svgOf(job.paper()));
  if (!written) return "";
  failing_ = false;
  return base + ".svg";
}

bool PaperFiles::write(const std::string& path, const std::string& content) {
  const std::error_code error = writeFile(fs::u8path(path), content);
  if (error) fail("cannot write " + path + ": " + error.message());
  return !error;
}

void PaperFiles::fail(const std::string& what) {
  if (!failing_) warn_(what + ". Jobs are printed all the same, but not kept.");
  failing_ = true;
}

}  // namespace tolvex::sim
