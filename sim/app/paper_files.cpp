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

// Under another name first, because whoever looks into the folder must not see half a file.
std::error_code writeFile(const fs::path& path, const std::string& content) {
  fs::path unfinished = path;
  unfinished += ".tmp";
  std::ofstream file(unfinished, std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  std::error_code error;
  if (!file) {
    fs::remove(unfinished, error);
    return std::make_error_code(std::errc::io_error);
  }
  fs::rename(unfinished, path, error);
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
  const std::string base = directory_ + "/" + baseName(job);
  for (const auto& [path, content] : {std::pair(base + ".txt", plainTextOf(job.paper())),
                                      std::pair(base + ".svg", svgOf(job.paper()))}) {
    if (const std::error_code error = writeFile(fs::u8path(path), content)) {
      fail("cannot write " + path + ": " + error.message());
      return "";
    }
  }
  failing_ = false;
  return base + ".svg";
}

void PaperFiles::fail(const std::string& what) {
  if (!failing_) warn_(what + ". Jobs are printed all the same, but not kept.");
  failing_ = true;
}

}  // namespace tolvex::sim
