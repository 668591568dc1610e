#include "printing/image_cache.h"

#include <cstring>
#include <string>

#include "log/nlog.h"
#include "platform/file_copy.h"
#include "platform/paths.h"
#include "printing/queue_text.h"
#include "service/vco_client_api.h"

namespace tolvex {
namespace {

// What follows the last dot of the whole path, folders included. The dot of the other one is part
// of the name's format.
const char* extensionOf(const char* path) {
  const char* const dot = std::strrchr(path, '.');
  return dot != nullptr ? dot + 1 : ".bmp";
}

}  // namespace

void cacheImage(VcoClientApi& client, const char* path, std::uint16_t angle, std::uint16_t align) {
  NLog* const log = NLog::GetInstance();
  const std::string copy = platform::libraryLogDirectory() + "prt_" +
                           std::to_string(client.takeImageNumber()) + "." + extensionOf(path);
  NLog::Log(log, kModuleDll, kLevelTrace, 788, "[cacheImage] Copy %s(size:%d) to %s", path,
            platform::fileSize(path), copy.c_str());
  const bool copied = platform::copyFile(path, copy.c_str());
  if (!copied) {
    NLog::Log(log, kModuleDll, kLevelFailure, 795, "[cacheImage] Copy %s to %s Fail", path,
              copy.c_str());
  }
  queueText(client.printJob(), PrintJobKind::kImageFile, angle, align,
            copied ? copy.c_str() : path);
}

}  // namespace tolvex
