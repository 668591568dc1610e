// The printer settings: the value first, the printer second.
#include <charconv>

#include "api/exports.h"
#include "printing/logged_command.h"

using namespace tolvex;

namespace {

constexpr LoggedCommand kTakeupPaperSensor = {
    "setTakeupPaperSensor", true, "Entry", "Err: ", {894, 898, 901}};

// A setting of a printer that is known by its type, or by its name.
using ByType = unsigned (VcoClientApi::*)(int value, int printerType);
using ByName = unsigned (VcoClientApi::*)(int value, const char* printerName);

int set(ByType setting, unsigned value, unsigned printerType) {
  return plainCommand([&](VcoClientApi& client) {
    return (client.*setting)(static_cast<int>(value), static_cast<int>(printerType));
  });
}

int set(ByName setting, unsigned value, const char* printerName) {
  return plainCommand([&](VcoClientApi& client) {
    return (client.*setting)(static_cast<int>(value), printerName);
  });
}

}  // namespace

int SetDefaultPaperWidth(unsigned int width) {
  return set(&VcoClientApi::setPaperWidth, width, kDefaultPrinter);
}

int setDefaultPaperWidth(unsigned int width, unsigned int printerType) {
  return set(&VcoClientApi::setPaperWidth, width, printerType);
}

int setGapType(unsigned int gapType, unsigned int printerType) {
  return set(&VcoClientApi::setGapType, gapType, printerType);
}

int setPrinterDirection(unsigned int direction, unsigned int printerType) {
  return set(&VcoClientApi::setDirection, direction, printerType);
}

int setTextWrapMode(unsigned int wrapMode, unsigned int printerType) {
  return set(&VcoClientApi::setTextWrapMode, wrapMode, printerType);
}

int setLeftMargin(unsigned int leftMargin, const char* printerName) {
  return set(&VcoClientApi::setLeftMargin, leftMargin, printerName);
}

int setRightMargin(unsigned int rightMargin, const char* printerName) {
  return set(&VcoClientApi::setRightMargin, rightMargin, printerName);
}

int setPaperOffset(unsigned int offset, const char* printerName) {
  return set(&VcoClientApi::setPaperOffset, offset, printerName);
}

int setPrintContrast(unsigned int contrast, const char* printerName) {
  return set(&VcoClientApi::setContrast, contrast, printerName);
}

int setPrintSpeed(unsigned int speed, const char* printerName) {
  return set(&VcoClientApi::setPrintSpeed, speed, printerName);
}

int setPrtAutoPrint(unsigned int enable, const char* printerName) {
  return set(&VcoClientApi::setPrtAutoPrint, enable, printerName);
}

int setRollback(unsigned int enable, const char* printerName) {
  return set(&VcoClientApi::setRollback, enable, printerName);
}

int setTakeupPaperSensor(int enable, const char* printerName) {
  char digits[12] = {};
  std::to_chars(digits, digits + sizeof(digits), enable);
  return loggedCommand(
      kTakeupPaperSensor,
      [&](VcoClientApi& client) { return client.setTakePaperSensor(enable, printerName); },
      [&] {
        return LogDetail{", iEnable: ", digits, sizeof(digits)};
      });
}
