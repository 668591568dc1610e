#include "app/input_file.h"

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace tolvex::sim {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMebibyte = std::size_t{1} << 20U;

[[noreturn]] void refuse(const std::string& reason) { throw std::runtime_error(reason); }

std::string whyMissing(const fs::path& path) {
  const std::string reason = "there is no such file";
  return path.is_absolute() ? reason : reason + " in " + fs::current_path().u8string();
}

void checkKind(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) refuse(whyMissing(path));
  if (error) refuse(error.message());
  if (fs::is_directory(status)) refuse("it is a folder");
  if (!fs::is_regular_file(status)) refuse("it is no ordinary file");
}

}  // namespace

std::string readInputFile(const fs::path& path, std::size_t mostBytes) {
  checkKind(path);
  const std::uintmax_t size = fs::file_size(path);
  if (size > mostBytes) {
    refuse("the file has more than " + std::to_string(mostBytes / kMebibyte) + " MiB");
  }
  errno = 0;
  std::ifstream stream(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (!stream.read(bytes.data(), static_cast<std::streamsize>(size))) {
    refuse("it cannot be read: " + std::generic_category().message(errno == 0 ? EIO : errno));
  }
  return bytes;
}

}  // namespace tolvex::sim
