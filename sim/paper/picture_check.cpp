#include "paper/picture_check.h"

#include <cstddef>
#include <cstdint>

namespace tolvex::sim {

namespace {

// How files of each format begin.
constexpr std::string_view kJpeg = "\xFF\xD8";
constexpr std::string_view kPng = "\x89PNG";
constexpr std::string_view kBmp = "BM";

constexpr unsigned char kStartOfPicture = 0xD8;
constexpr unsigned char kEndOfPicture = 0xD9;
constexpr unsigned char kStartOfScan = 0xDA;
constexpr unsigned char kCodeTables = 0xC4;

constexpr std::uint64_t kOldBmpHeaderSize = 12;
constexpr std::size_t kBmpCompression = 30;  // where it stands, behind the old header's end
constexpr std::uint64_t kNotCompressed = 0;
constexpr std::uint64_t kNotCompressedWithMasks = 3;
constexpr std::uint64_t kTopDown = std::uint64_t{1} << 31U;

// The counts of the codes of each length, behind a byte that names the table.
constexpr std::size_t kCodeLengths = 16;
constexpr std::size_t kMaxCodes = 256;

unsigned char byteAt(std::string_view bytes, std::size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

// Markers without a segment, which may stand between the data of a scan.
bool isRestart(unsigned char marker) { return marker >= 0xD0 && marker <= 0xD7; }

// Takes what is before the next marker, and the marker; 0 at the end of the file. In the data of a
// scan, 0xFF is followed by a zero.
unsigned char takeMarker(std::string_view& bytes) {
  for (std::size_t i = 1; i < bytes.size(); ++i) {
    if (byteAt(bytes, i - 1) != 0xFF) continue;
    const unsigned char marker = byteAt(bytes, i);
    if (marker == 0 || marker == 0xFF || isRestart(marker)) continue;
    bytes.remove_prefix(i + 1);
    return marker;
  }
  return 0;
}

bool areSoundTables(std::string_view tables) {
  while (!tables.empty()) {
    if (tables.size() < 1 + kCodeLengths) return false;
    std::size_t codes = 0;
    for (std::size_t i = 1; i <= kCodeLengths; ++i) codes += byteAt(tables, i);
    const std::size_t size = 1 + kCodeLengths + codes;
    if (codes > kMaxCodes || size > tables.size()) return false;
    tables.remove_prefix(size);
  }
  return true;
}

// The segments lead to the end of a picture.
bool isSoundJpeg(std::string_view bytes) {
  bool hasScan = false;
  if (takeMarker(bytes) != kStartOfPicture) return false;
  for (unsigned char marker = takeMarker(bytes); marker != kEndOfPicture;
       marker = takeMarker(bytes)) {
    if (marker == 0 || bytes.size() < 2) return false;
    const std::size_t size = byteAt(bytes, 0) * std::size_t{256} + byteAt(bytes, 1);
    if (size < 2 || size > bytes.size()) return false;
    if (marker == kCodeTables && !areSoundTables(bytes.substr(2, size - 2))) return false;
    if (marker == kStartOfScan) hasScan = true;
    bytes.remove_prefix(size);
  }
  return hasScan;
}

// A number of a BMP file, 0 beyond its end.
std::uint64_t littleEndian(std::string_view bytes, std::size_t offset, std::size_t size) {
  std::uint64_t value = 0;
  for (std::size_t i = size; i-- > 0;) {
    const std::size_t place = offset + i;
    value = (value << 8U) | (place < bytes.size() ? byteAt(bytes, place) : 0U);
  }
  return value;
}

bool hasOldBmpHeader(std::string_view bytes) {
  return littleEndian(bytes, 14, 4) == kOldBmpHeaderSize;
}

// The file holds as many rows of whole double words as it has lines, from the offset that it names
// on. A negative number of lines tells that the upper one comes first.
bool isWholeBmp(std::string_view bytes) {
  const bool isOld = hasOldBmpHeader(bytes);
  const std::uint64_t start = littleEndian(bytes, 10, 4);
  const std::uint64_t width = littleEndian(bytes, 18, isOld ? 2 : 4);
  const std::uint64_t height = isOld ? littleEndian(bytes, 20, 2) : littleEndian(bytes, 22, 4);
  const std::uint64_t bitsPerPixel = littleEndian(bytes, isOld ? 24 : 28, 2);
  const std::uint64_t lines = height >= kTopDown ? 2 * kTopDown - height : height;
  const std::uint64_t rowSize = (width * bitsPerPixel + 31) / 32 * 4;
  return start + rowSize * lines <= bytes.size();
}

// The last chunk is a name and a check sum of four bytes each.
bool isWholePng(std::string_view bytes) {
  const std::size_t end = bytes.rfind("IEND");
  return end != std::string_view::npos && bytes.size() - end >= 8;
}

bool beginsWith(std::string_view bytes, std::string_view beginning) {
  return bytes.substr(0, beginning.size()) == beginning;
}

}  // namespace

bool hasKnownFormat(std::string_view bytes) {
  return beginsWith(bytes, kJpeg) || beginsWith(bytes, kPng) || beginsWith(bytes, kBmp);
}

bool isCompressedBmp(std::string_view bytes) {
  if (!beginsWith(bytes, kBmp) || hasOldBmpHeader(bytes)) return false;
  const std::uint64_t compression = littleEndian(bytes, kBmpCompression, 4);
  return compression != kNotCompressed && compression != kNotCompressedWithMasks;
}

bool isSoundPicture(std::string_view bytes) {
  if (beginsWith(bytes, kJpeg)) return isSoundJpeg(bytes);
  if (beginsWith(bytes, kPng)) return isWholePng(bytes);
  return beginsWith(bytes, kBmp) && isWholeBmp(bytes);
}

}  // namespace tolvex::sim
