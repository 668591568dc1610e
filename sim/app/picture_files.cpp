#include "app/picture_files.h"

#include <exception>
#include <filesystem>
#include <stdexcept>

#include "app/input_file.h"
#include "base/printable.h"
#include "paper/image_file.h"
#include "paper/picture_refusal.h"

namespace tolvex::sim {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMaxNameBytes = 400;

// What can not be read is told by exceptions of one kind, whose text is the reason.
[[noreturn]] void refusePicture(const std::string& reason) { throw std::runtime_error(reason); }

Bitmap load(const std::string& path) {
  if (path.empty()) refusePicture("the name of the file is empty");
  // The system would take such a path for the part before the zero.
  if (path.find('\0') != std::string::npos) refusePicture("its name contains a zero byte");
  const std::string bytes = readInputFile(fs::u8path(path), kMaxPictureFile);
  auto bitmap = decodeImage(bytes);
  if (!bitmap) refusePicture(whyNotDecoded(bytes));
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
