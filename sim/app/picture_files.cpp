#include "app/picture_files.h"

#include <cerrno>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "base/printable.h"
#include "paper/image_file.h"
#include "paper/picture_refusal.h"

namespace tolvex::sim {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMaxNameBytes = 400;
constexpr long long kMebibyte = 1LL << 20U;

// What can not be read is told by exceptions of one kind, whose text is the reason.
[[noreturn]] void refuse(const std::string& reason) { throw std::runtime_error(reason); }

std::string whyMissing(const fs::path& path) {
  const std::string reason = "there is no such file";
  return path.is_absolute() ? reason : reason + " in " + fs::current_path().u8string();
}

// Neither folders nor devices, which never end.
void checkKind(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) refuse(whyMissing(path));
  if (error) refuse(error.message());
  if (fs::is_directory(status)) refuse("it is a folder");
  if (!fs::is_regular_file(status)) refuse("it is no ordinary file");
}

std::string read(const fs::path& path) {
  checkKind(path);
  const std::uintmax_t size = fs::file_size(path);
  if (size > static_cast<std::uintmax_t>(kMaxPictureFile)) {
    refuse("the file has more than " + std::to_string(kMaxPictureFile / kMebibyte) + " MiB");
  }
  errno = 0;
  std::ifstream stream(path, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (!stream.read(bytes.data(), static_cast<std::streamsize>(size))) {
    refuse("it cannot be read: " + std::generic_category().message(errno == 0 ? EIO : errno));
  }
  return bytes;
}

Bitmap load(const std::string& path) {
  if (path.empty()) refuse("the name of the file is empty");
  // The system would take such a path for the part before the zero.
  if (path.find('\0') != std::string::npos) refuse("its name contains a zero byte");
  const std::string bytes = read(fs::u8path(path));
  auto bitmap = decodeImage(bytes);
  if (!bitmap) refuse(whyNotDecoded(bytes));
  return *std::move(bitmap);
}

}  // namespace

std::optional<Bitmap> loadPicture(const std::string& path,
                                  const std::function<void(const std::string&)>& warn) {
  try {
    return load(path);
  } catch (const std::exception& error) {
    // Some systems take no path that is not UTF-8, and say so in this way too.
    warn("cannot print " + printable(path, kMaxNameBytes) + ": " + error.what());
    return std::nullopt;
  }
}

}  // namespace tolvex::sim
