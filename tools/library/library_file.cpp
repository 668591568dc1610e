#include "library/library_file.h"

#include <cstddef>
#include <filesystem>
#include <fstream>

#include "platform/file.h"
#include "platform/shared_library.h"

namespace tolvex::ctl {
namespace {

constexpr std::size_t kHead = 65536;  // as much as is looked at

// Numbers of the ELF and PE formats.
constexpr std::size_t kElfClass = 4;  // where it stands; 1: 32 bits, 2: 64 bits
constexpr std::size_t kElfMachine = 18;
constexpr std::size_t kPeOffset = 0x3C;  // where the offset of the PE header stands
constexpr unsigned kElfX64 = 62;
constexpr unsigned kPeX86 = 0x14C;
constexpr unsigned kPeX64 = 0x8664;
constexpr unsigned kPeArm64 = 0xAA64;

// What stands before the version in the library's first log line.
constexpr char kBanner[] = "======= tolvex_dll V";

unsigned byteAt(const std::string& bytes, std::size_t offset) {
  return offset < bytes.size() ? static_cast<unsigned char>(bytes[offset]) : 0;
}

unsigned halfAt(const std::string& bytes, std::size_t offset) {
  return byteAt(bytes, offset) | byteAt(bytes, offset + 1) << 8;
}

enum class Format { Elf, Pe, Other };

Format formatOf(const std::string& bytes) {
  if (bytes.compare(0, 4,
                    "\x7f"
                    "ELF") == 0) {
    return Format::Elf;
  }
  const std::size_t header = halfAt(bytes, kPeOffset) | halfAt(bytes, kPeOffset + 2) << 16;
  const bool isPe = bytes.compare(0, 2, "MZ") == 0 && header + 6 < bytes.size() &&
                    bytes.compare(header, 2, "PE") == 0;
  return isPe ? Format::Pe : Format::Other;
}

std::string elfKind(const std::string& bytes) {
  if (halfAt(bytes, kElfMachine) == kElfX64) return "";
  return byteAt(bytes, kElfClass) == 1 ? "a 32-bit Linux file"
                                       : "a Linux file for another processor";
}

std::string peKind(const std::string& bytes) {
  const std::size_t header = halfAt(bytes, kPeOffset) | halfAt(bytes, kPeOffset + 2) << 16;
  switch (halfAt(bytes, header + 4)) {
    case kPeX64:
      return "";
    case kPeX86:
      return "a 32-bit (x86) Windows file";
    case kPeArm64:
      return "a Windows file for ARM64";
    default:
      return "a Windows file for another processor";
  }
}

std::string kindOf(const std::string& bytes) {
  switch (formatOf(bytes)) {
    case Format::Elf:
      return platform::kOnWindows ? "a Linux file" : elfKind(bytes);
    case Format::Pe:
      return platform::kOnWindows ? peKind(bytes) : "a Windows file";
    case Format::Other:
      break;
  }
  return "no library at all";
}

}  // namespace

std::string unfitness(const std::string& path) {
  std::ifstream file(std::filesystem::u8path(path), std::ios::binary);
  if (!file.is_open()) return "";
  std::string bytes(kHead, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  const std::string kind = kindOf(bytes);
  if (kind.empty()) return "";
  return "it is " + kind + ", but this program needs " +
         (platform::kOnWindows ? "an x64 (64-bit) DLL" : "an x64 (64-bit) Linux library");
}

std::string versionInFile(const std::string& path) {
  std::string bytes;
  if (!tolvex::platform::readFile(path.c_str(), bytes)) return "";
  const std::size_t banner = bytes.find(kBanner);
  if (banner == std::string::npos) return "";
  const std::size_t begin = banner + sizeof(kBanner) - 1;
  const std::size_t end = bytes.find_first_not_of("0123456789.", begin);
  return bytes.substr(begin, end - begin);
}

}  // namespace tolvex::ctl
