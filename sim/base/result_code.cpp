#include "base/result_code.h"

namespace tolvex::sim {

namespace {

struct Row {
  ResultCode code;
  const char* message;
};

constexpr Row kRows[] = {
    {ResultCode::Ok, "OK"},
    {ResultCode::Unknown, "Unknown"},
    {ResultCode::InvalidParam, "Invalid Param"},
    {ResultCode::SocketListenFail, "Socket Listen Fail"},
    {ResultCode::SocketInterrupt, "Socket Interrupt"},
    {ResultCode::BufferNotEnough, "Buffer Not Enough"},
    {ResultCode::TooMuchToPrint, "Too Much To Print"},
    {ResultCode::JsonErr, "Json Err"},
    {ResultCode::MissParam, "Miss param"},
    {ResultCode::VersionIncompatible, "Version Incompatible"},
    {ResultCode::CommandReturnFail, "Command return fail"},
    {ResultCode::LcConnectionFail, "LC Connection Fail"},
    {ResultCode::UnsupportWeightCmd, "Unsupport Weight Cmd"},
    {ResultCode::UnderLoad, "Under Load"},
    {ResultCode::OverLoad, "Over Load"},
    {ResultCode::WeightNotStable, "Weight Not Stable"},
    {ResultCode::InvalidWeight, "Invalid Weight"},
    {ResultCode::LcNotConnected, "LC not connected"},
    {ResultCode::PrtConnectionFail, "Prt Connection Fail"},
    {ResultCode::UnsupportPrintCmd, "Unsupport Print Cmd"},
    {ResultCode::PrtDrvReturnError, "Prt-drv Return Error"},
    {ResultCode::PrinterIsBusy, "Printer is Busy"},
    {ResultCode::OutOfPaper, "Out of Paper"},
    {ResultCode::PrintHeadIsHot, "Print Head is Hot"},
    {ResultCode::PrinterNotFound, "Printer Not Found"},
    {ResultCode::IllegalPrintHead, "Illegal Print Head"},
    {ResultCode::PrtStatusAbnormal, "Prt Status Abnormal"},
};

}  // namespace

std::string toText(ResultCode code) { return std::to_string(static_cast<int>(code)); }

const char* message(ResultCode code) {
  for (const Row& row : kRows) {
    if (row.code == code) return row.message;
  }
  return "Unknown";
}

}  // namespace tolvex::sim
