// What the service knows of its printers, the cash drawer, and commands of the caller's making.
#include "api/exports.h"
#include "printing/logged_command.h"

using namespace tolvex;

namespace {

constexpr LoggedCommand kGetPrinterList = {
    "GetPrinterList", true, "Enter", "Err:", {912, 916, 919}};
constexpr LoggedCommand kGetPrinterVersion = {
    "getPrinterVersion", true, "Entry", "Err: ", {928, 932, 935}};
constexpr LoggedCommand kOpenCashDrawer = {
    "OpenCashDrawerEx", true, "Enter", "Err: ", {944, 948, 951}};

}  // namespace

int GetPrinterList(char* buffer, unsigned int size) {
  return loggedCommand(
      kGetPrinterList, [&](VcoClientApi& client) { return client.getPrinterList(buffer, size); },
      [&] {
        return LogDetail{", ", buffer, size};
      });
}

int GetPrinterStatus(unsigned int printerType) {
  return plainCommand(
      [&](VcoClientApi& client) { return client.printerStatus(static_cast<int>(printerType)); });
}

int getPrinterVersion(char* buffer, unsigned int size, const char* printerName) {
  return loggedCommand(
      kGetPrinterVersion,
      [&](VcoClientApi& client) { return client.getPrinterVersion(buffer, size, printerName); },
      [&] {
        return LogDetail{", ver:", buffer, size};
      });
}

int OpenCashDrawerEx(void) {
  return loggedCommand(kOpenCashDrawer, [](VcoClientApi& client) { return client.openCashBox(); });
}

int sendRawCmdToPrt(const char* printerName, const char* command, int number,
                    const char* parameters, char* reply, unsigned int size, unsigned int wait) {
  return guarded(kCodeOfException, [&] {
    VcoClientApi* const client = libraryClient();
    return static_cast<int>(
        client->sendRawCmdToPrt(printerName, command, number, parameters, reply, size, wait));
  });
}
