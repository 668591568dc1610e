// Cutting, feeding, calibrating.
#include "api/exports.h"
#include "printing/logged_command.h"

using namespace tolvex;

namespace {

constexpr LoggedCommand kPrintBlanks = {"printBlanks", false, "Entry", "Err:", {812, 816, 819}};
constexpr LoggedCommand kCutPaper = {"cutPaper", false, "Entry", "Err: ", {830, 834, 837}};
constexpr LoggedCommand kFeedPaper = {"feedPaper", true, "Entry", "Err:", {846, 850, 853}};
constexpr LoggedCommand kFeedPaperById = {"feedPaperById", false, "Entry", "Err:", {862, 866, 869}};
constexpr LoggedCommand kCalibrateLabel = {
    "calibrateLabel", false, "Entry", "Err: ", {878, 882, 885}};

int asNumber(unsigned argument) { return static_cast<int>(argument); }

}  // namespace

int printBlanks(unsigned int distance) {
  return loggedCommand(kPrintBlanks, [&](VcoClientApi& client) {
    return client.printBlanks(asNumber(distance), kDefaultPrinter);
  });
}

int cutPaper(void) {
  return loggedCommand(kCutPaper, [](VcoClientApi& client) {
    return client.cutPaper(kDefaultPrinter, kCutPercent);
  });
}

int cutPaperById(unsigned int printerType) {
  return plainCommand(
      [&](VcoClientApi& client) { return client.cutPaper(asNumber(printerType), kCutPercent); });
}

int feedPaper(void) {
  return loggedCommand(kFeedPaper,
                       [](VcoClientApi& client) { return client.feedPaper(kDefaultPrinter); });
}

int feedPaperById(unsigned int printerType) {
  return loggedCommand(kFeedPaperById, [&](VcoClientApi& client) {
    return client.feedPaper(asNumber(printerType));
  });
}

int calibrateLabel(unsigned int printerType) {
  return loggedCommand(kCalibrateLabel, [&](VcoClientApi& client) {
    return client.calibrateLabelGap(asNumber(printerType));
  });
}

int testPaper(unsigned int printerType) {
  return plainCommand(
      [&](VcoClientApi& client) { return client.calibrateOutOfPaper(asNumber(printerType)); });
}
