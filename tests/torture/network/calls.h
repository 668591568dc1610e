// Every call that talks to the service, as the table of times in docs/integration.md lists them, with
// what it asks the service for and what an application gets of the reply (docs/protocol.md).
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/scripted_service.h"

namespace tolvex::test {

// A member of a reply: how it stands there, and the text that it is, if it is one.
struct Member {
  std::string name;
  std::string json;
  std::optional<std::string> text;
};
using Members = std::vector<Member>;

Member textMember(const std::string& name, const std::string& text);
std::string objectOf(const Members& members);

// What the application gets.
enum class Kind {
  kVerdict,         // 240 or 255
  kCode,            // the code
  kReached,         // 1 or 0
  kReply,           // the code and the whole reply
  kReplyVerdict,    // a verdict and the whole reply
  kTare,            // a verdict and ten characters of "tare"
  kLevel,           // the code and exactly the text of "level"
  kPrinterList,     // a verdict and exactly the text of "PrinterList", whatever the result
  kBaseInfo,        // a verdict and a record of 64 bytes
  kWeight,          // a verdict, -1 or -2, and a record of 24 bytes
  kPrintJob,        // a verdict: lines, then the confirmation
  kClosingPrintJob  // a verdict: lines and confirmation if there are any, then a feed or cut
};

struct Call {
  std::string name;   // of the export
  std::string about;  // which of several calls of it, or nothing
  Kind kind;
  bool weighs;                        // which connection
  std::vector<std::string> requests;  // in their order
  std::size_t at = 0;                 // which of them meets the fault
  std::string member;                 // that the reply needs beside its result
  std::string value;
  std::function<void()> prepare;
  std::function<int(char* buffer, unsigned wait)> run;
  unsigned size = 0;     // of the buffer, as the call is told
  bool ownWait = false;  // the wait for the reply is the caller's
  bool keepsLastError = false;

  std::string fullName() const { return about.empty() ? name : name + ", " + about; }
  bool isJob() const { return kind == Kind::kPrintJob || kind == Kind::kClosingPrintJob; }
  // Whether the call goes on when the exchange that meets the fault has failed.
  bool goesOn() const { return kind == Kind::kClosingPrintJob && at + 2 == requests.size(); }
  Members goodReply() const;
};

const std::vector<Call>& allCalls();

// Compares the names with what the header declares and what the document says of them; prints what
// differs. Returns how many exports talk to the service, 0 when something differs.
unsigned countedExports(const std::string& sourceFolder);

}  // namespace tolvex::test
