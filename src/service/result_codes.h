// The result codes that the library and the service share.
#pragma once

#include <cstdint>

namespace tolvex {

// Every code with its name here and its message. The one list: what needs the codes is made of it.
#define TOLVEX_RESULT_CODES(CODE)                         \
  CODE(0, kOk, "OK")                                      \
  CODE(1, kUnknown, "Unknown")                            \
  CODE(2, kInvalidParam, "Invalid Param")                 \
  CODE(3, kSocketListenFail, "Socket Listen Fail")        \
  CODE(4, kSocketInterrupt, "Socket Interrupt")           \
  CODE(5, kBufferNotEnough, "Buffer Not Enough")          \
  CODE(6, kTooMuchToPrint, "Too Much To Print")           \
  CODE(7, kJsonErr, "Json Err")                           \
  CODE(8, kMissParam, "Miss param")                       \
  CODE(9, kVersionIncompatible, "Version Incompatible")   \
  CODE(10, kCommandReturnFail, "Command return fail")     \
  CODE(1001, kLcConnectionFail, "LC Connection Fail")     \
  CODE(1002, kUnsupportWeightCmd, "Unsupport Weight Cmd") \
  CODE(1003, kUnderLoad, "Under Load")                    \
  CODE(1004, kOverLoad, "Over Load")                      \
  CODE(1005, kWeightNotStable, "Weight Not Stable")       \
  CODE(1006, kInvalidWeight, "Invalid Weight")            \
  CODE(1007, kLcNotConnected, "LC not connected")         \
  CODE(2001, kPrtConnectionFail, "Prt Connection Fail")   \
  CODE(2002, kUnsupportPrintCmd, "Unsupport Print Cmd")   \
  CODE(2003, kPrtDrvReturnError, "Prt-drv Return Error")  \
  CODE(2005, kPrinterIsBusy, "Printer is Busy")           \
  CODE(2006, kOutOfPaper, "Out of Paper")                 \
  CODE(2007, kPrintHeadIsHot, "Print Head is Hot")        \
  CODE(2008, kPrinterNotFound, "Printer Not Found")       \
  CODE(2009, kIllegalPrintHead, "Illegal Print Head")     \
  CODE(2010, kPrtStatusAbnormal, "Prt Status Abnormal")

namespace result {
#define TOLVEX_NAME_CODE(code, name, message) constexpr std::int32_t name = code;
TOLVEX_RESULT_CODES(TOLVEX_NAME_CODE)
#undef TOLVEX_NAME_CODE

// Not in the table: the reply is not JSON or has no text as its "result".
constexpr std::int32_t kUnreadableReply = -1;
}  // namespace result

// The message of a code, null for a code that is not in the table.
const char* resultMessage(std::int32_t code);

}  // namespace tolvex
