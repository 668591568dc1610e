#include "app/paper_files.h"

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <system_error>
#include <utility>

#include "paper/render.h"

namespace tolvex::sim {

namespace {

namespace fs = std::filesystem;

constexpr int kNumberWidth = 4;

std::string baseName(const Job& job) {
  std::ostringstream name;
  name << "job-" << std::setw(kNumberWidth) << std::setfill('0') << job.number() << "-"
       << job.printer();
  return name.str();
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

PaperFiles::PaperFiles(std::string directory, std::function<void(const std::string&)> warn)
    : directory_(std::move(directory)), warn_(std::move(warn)) {
  createDirectory();
}

bool PaperFiles::createDirectory() {
  std::error_code error;
  fs::create_directories(fs::u8path(directory_), error);
  if (error) fail("cannot create the folder " + directory_ + ": " + error.message());
  return !error;
}

std::string PaperFiles::save(const Job& job) {
  if (!createDirectory()) return "";
  const std::string base = (fs::u8path(directory_) / baseName(job)).u8string();
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
