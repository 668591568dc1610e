// Printing text: queued for BeginPrint, or at once.
#include <algorithm>
#include <string>

#include "api/exports.h"
#include "log/nlog.h"
#include "printing/logged_command.h"
#include "printing/queue_text.h"

using namespace tolvex;

namespace {

// Where the buffered exports refuse a font size.
constexpr unsigned kLeastFontSize = 12;
constexpr unsigned kMostFontSize = 72;
// The widest paper, in millimetres.
constexpr unsigned kMostPaperWidth = 80;

// TOLVEX_OK, or the refusal, which is logged under one name for both exports.
int checkFontSize(unsigned fontSize) {
  if (fontSize > kMostFontSize) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 532,
              "[PrintText] font size too big:%d", static_cast<int>(fontSize));
    return TOLVEX_FONT_TOO_BIG;
  }
  if (fontSize < kLeastFontSize) {
    NLog::Log(NLog::GetInstance(), kModuleDll, kLevelFailure, 536,
              "[PrintText] font size too small:%d", static_cast<int>(fontSize));
    return TOLVEX_FONT_TOO_SMALL;
  }
  return TOLVEX_OK;
}

}  // namespace

int PrintText(const char* text, unsigned int fontSize) {
  return guarded(kVerdictOfException, [&] {
    VcoClientApi* const client = libraryClient();
    NLog* const log = NLog::GetInstance();
    if (text == nullptr) {
      NLog::Log(log, kModuleDll, kLevelFailure, 521, "[PrintText] Input param is NULL");
      return kExportFailed;
    }
    if (text[0] == '\0') {
      NLog::Log(log, kModuleDll, kLevelFailure, 525, "[PrintText] Input param len is 0");
      return kExportOk;
    }
    NLog::Log(log, kModuleDll, kLevelTrace, 528, "[%s][PrintText] font:%d [%s]",
              client->getClientName().c_str(), static_cast<int>(fontSize), text);
    const int verdict = checkFontSize(fontSize);
    if (verdict == kExportOk) {
      queueText(client->printJob(), PrintJobKind::kText, static_cast<std::uint16_t>(fontSize), 0,
                text);
    }
    return verdict;
  });
}

int PrintTextByPaperWidth(const char* text, unsigned int fontSize, unsigned int width) {
  return guarded(kVerdictOfException, [&] {
    VcoClientApi* const client = libraryClient();
    NLog* const log = NLog::GetInstance();
    if (text == nullptr) {
      NLog::Log(log, kModuleDll, kLevelFailure, 548, "[PrintTextByPaperWidth] Input param is NULL");
      return kExportFailed;
    }
    if (text[0] == '\0') {
      NLog::Log(log, kModuleDll, kLevelFailure, 552,
                "[PrintTextByPaperWidth] Input param len is 0");
      return kExportOk;
    }
    NLog::LogString(log, kModuleDll, kLevelTrace, 555,
                    std::string("[PrintTextByPaperWidth] ") + text);
    const int verdict = checkFontSize(fontSize);
    if (verdict == kExportOk) {
      queueText(client->printJob(), PrintJobKind::kTextByWidth,
                static_cast<std::uint16_t>(fontSize),
                static_cast<std::uint16_t>(std::min(width, kMostPaperWidth)), text);
    }
    return verdict;
  });
}

int printTextById(const char* text, unsigned int fontSize, unsigned int printerType) {
  return plainCommand([&](VcoClientApi& client) {
    return client.printText(text, static_cast<int>(fontSize), static_cast<int>(printerType));
  });
}

int printTextByPaperWidthById(const char* text, unsigned int fontSize, unsigned int width,
                              unsigned int printerType) {
  return plainCommand([&](VcoClientApi& client) {
    return client.printTextByPaperWidth(text, static_cast<int>(fontSize), static_cast<int>(width),
                                        static_cast<int>(printerType));
  });
}
