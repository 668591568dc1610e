// Result codes of the service: the numbers that travel in the "result" member of every reply.
#pragma once

#include <string>

namespace tolvex::sim {

/// Codes below 1000 are general, 1001 to 1007 concern the scale ("LC"), 2001 to 2010 the printer
/// ("Prt"). 2004 is not in use.
enum class ResultCode : int {
  Ok = 0,
  Unknown = 1,
  InvalidParam = 2,
  SocketListenFail = 3,
  SocketInterrupt = 4,
  BufferNotEnough = 5,
  TooMuchToPrint = 6,
  JsonErr = 7,
  MissParam = 8,
  VersionIncompatible = 9,
  CommandReturnFail = 10,
  LcConnectionFail = 1001,
  UnsupportWeightCmd = 1002,
  UnderLoad = 1003,
  OverLoad = 1004,
  WeightNotStable = 1005,
  InvalidWeight = 1006,
  LcNotConnected = 1007,
  PrtConnectionFail = 2001,
  UnsupportPrintCmd = 2002,
  PrtDrvReturnError = 2003,
  PrinterIsBusy = 2005,
  OutOfPaper = 2006,
  PrintHeadIsHot = 2007,
  PrinterNotFound = 2008,
  IllegalPrintHead = 2009,
  PrtStatusAbnormal = 2010,
};

/// The code as replies carry it: decimal digits, for example "1005".
std::string toText(ResultCode code);

/// What the code means, for example "Weight Not Stable". Never null: a number that is no code gives
/// "Unknown". The text is static.
const char* message(ResultCode code);

}  // namespace tolvex::sim
