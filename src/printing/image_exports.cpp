// Printing images: queued for BeginPrint, or at once.
#include "api/exports.h"
#include "log/nlog.h"
#include "printing/image_cache.h"
#include "printing/logged_command.h"

using namespace tolvex;

namespace {

// Left, middle, right.
constexpr unsigned kAlignments = 3;
constexpr unsigned kMiddle = 1;

}  // namespace

int PrintBitmapFile(const char* path, int angle) {
  return guarded(kVerdictOfException, [&] {
    const VcoClientApi* const client = libraryClient();  // which opens the log
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelTrace, 752,
              "[%s][PrintBitmapFile] Angle:%d [%s]", client->getClientName().c_str(), angle,
              printable(path));
    return PrintBitmapFileWithAlign(path, static_cast<unsigned>(angle), kMiddle);
  });
}

int PrintBitmapFileWithAlign(const char* path, unsigned int angle, unsigned int align) {
  return guarded(kVerdictOfException, [&] {
    VcoClientApi* const client = libraryClient();
    NLog* const log = NLog::GetInstance();
    if (path == nullptr) {
      NLog::Log(log, kModuleDll, kLevelFailure, 763,
                "[PrintBitmapFileWithAlign] Input param is NULL");
      return kExportFailed;
    }
    NLog::Log(
        log, kModuleDll, kLevelTrace, 766, "[%s][PrintBitmapFileWithAlign] Angle:%d, Align:%d [%s]",
        client->getClientName().c_str(), static_cast<int>(angle), static_cast<int>(align), path);
    cacheImage(*client, path, static_cast<std::uint16_t>(angle),
               static_cast<std::uint16_t>(align < kAlignments ? align : kMiddle));
    return kExportOk;
  });
}

int printBitmapFileById(const char* path, unsigned int angle, unsigned int printerType) {
  return plainCommand([&](VcoClientApi& client) {
    return client.printBmpFile(path, static_cast<int>(angle), static_cast<int>(printerType));
  });
}
