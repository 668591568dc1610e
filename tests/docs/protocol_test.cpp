// docs/protocol.md tells the truth: the library sends each request that is shown, takes the reply that
// is shown for it, and answers as the document says.
#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <regex>
#include <set>

#include "docs/pages.h"
#include "support/library_test.h"

namespace tolvex::test {
namespace {

struct Example {
  std::string call, request, reply;
  int answer;
};

std::vector<Example> examples() {
  const std::string text = textOf(source("docs/protocol.md"));
  const std::regex row(R"(\n\| `([^`]+)` \| `([^`]+)` \| `([^`]+)` \| (-?\d+) \|)");
  std::vector<Example> all;
  for (std::sregex_iterator match(text.begin(), text.end(), row), end; match != end; ++match) {
    all.push_back({(*match)[1], (*match)[2], (*match)[3], std::stoi((*match)[4])});
  }
  return all;
}

std::array<char, 2049> buffer;
char* const record = buffer.data();
constexpr unsigned size = 2048;

// Each call that the document shows, by its text.
#define CALL(call)             \
  {                            \
#call, [] { return call; } \
  }
const std::map<std::string, std::function<int()>>& calls() {
  static const std::map<std::string, std::function<int()>> all = {
      CALL(read_baseinfo(record)),
      CALL(read_standard(record)),
      CALL(send_zero()),
      CALL(checkConnection()),
      {"set_tare_bykey(buffer)", [] { return set_tare_bykey(record); }},
      {"clear_tare(buffer)", [] { return clear_tare(record); }},
      {"send_pre_tare(buffer)", [] { return send_pre_tare(record); }},
      {"getLCVersion(buffer, size)", [] { return getLCVersion(record, size); }},
      {R"(getLogLevel("loadcell", buffer, size))",
       [] { return getLogLevel("loadcell", record, size); }},
      CALL(setLogLevel("loadcell", "2")),
      {R"(sendRawCmdToLC("selftest", "1,2", buffer, size, 5000))",
       [] { return sendRawCmdToLC("selftest", "1,2", record, size, 5000); }},
      {R"(sendRawCmdToLC("selftest", NULL, buffer, size, 5000))",
       [] { return sendRawCmdToLC("selftest", nullptr, record, size, 5000); }},
      CALL(GetPrinterStatus(1)),
      CALL(printTextById("Apples", 24, 1)),
      CALL(printTextByPaperWidthById("Apples", 24, 72, 1)),
      CALL(printBitmapFileById("/srv/logo.bmp", 90, 1)),
      CALL(BeginPrint(8)),
      CALL(BeginPrint(4)),
      CALL(BeginPrint(80)),
      CALL(printBlanks(40)),
      CALL(feedPaper()),
      CALL(cutPaper()),
      CALL(calibrateLabel(0)),
      CALL(testPaper(1)),
      CALL(OpenCashDrawerEx()),
      {"GetPrinterList(buffer, size)", [] { return GetPrinterList(record, size); }},
      {R"(getPrinterVersion(buffer, size, "Ticket"))",
       [] { return getPrinterVersion(record, size, "Ticket"); }},
      CALL(SetDefaultPaperWidth(58)),
      CALL(setGapType(1, 0)),
      CALL(setPrinterDirection(1, 0)),
      CALL(setTextWrapMode(1, 1)),
      CALL(setLeftMargin(8, "Ticket")),
      CALL(setRightMargin(8, "Ticket")),
      CALL(setPrtAutoPrint(1, "Label")),
      CALL(setPaperOffset(4, "Label")),
      CALL(setPrintContrast(50, "Ticket")),
      CALL(setPrintSpeed(100, "Ticket")),
      CALL(setRollback(1, "Label")),
      CALL(setTakeupPaperSensor(5, "Label")),
      CALL(setOverloadAlarm(1)),
      {R"(getLogLevel("print", buffer, size))", [] { return getLogLevel("print", record, size); }},
      CALL(setLogLevel("print", "2")),
      {R"(sendRawCmdToPrt("Ticket", "beep", 3, "", buffer, size, 5000))",
       [] { return sendRawCmdToPrt("Ticket", "beep", 3, "", record, size, 5000); }},
  };
  return all;
}
#undef CALL

using Protocol = ServiceTest;

TEST_F(Protocol, EachExampleIsWhatTheLibrarySendsAndTakes) {
  std::size_t played = 0;
  std::vector<std::string> wanted;
  for (const Example& example : examples()) {
    SCOPED_TRACE(example.call);
    const auto call = calls().find(example.call);
    ASSERT_NE(call, calls().end()) << "this test does not know the call";
    service.weighing().alwaysAnswers(example.reply);
    service.printing().alwaysAnswers(example.reply);
    EXPECT_EQ(call->second(), example.answer);
    wanted.push_back(example.request);
    ++played;
  }
  std::multiset<std::string> sent;
  for (const std::string& request : service.weighing().requests()) sent.insert(request);
  for (const std::string& request : service.printing().requests()) sent.insert(request);
  EXPECT_EQ(sent, std::multiset<std::string>(wanted.begin(), wanted.end()));
  EXPECT_GE(played, calls().size());
}

// Which port a command goes to: each table is of one.
TEST_F(Protocol, CommandsGoToThePortOfTheirTable) {
  const std::string text = textOf(source("docs/protocol.md"));
  const std::size_t weighing = text.find("\n## Weighing");
  const std::size_t printing = text.find("\n## Printing");
  ASSERT_LT(weighing, printing);
  Lines ofWeighing;
  Lines ofPrinting;
  for (const Example& example : examples()) {
    service.weighing().alwaysAnswers(example.reply);
    service.printing().alwaysAnswers(example.reply);
    calls().at(example.call)();
    const std::size_t at = text.find("`" + example.call + "`");
    (weighing < at && at < printing ? ofWeighing : ofPrinting).push_back(example.request);
  }
  EXPECT_EQ(service.weighing().requests(), ofWeighing);
  EXPECT_EQ(service.printing().requests(), ofPrinting);
}

std::set<std::string> commandsIn(const std::string& text, const std::regex& pattern) {
  std::set<std::string> commands;
  for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end; ++match) {
    commands.insert((*match)[1]);
  }
  return commands;
}

// The text of a source file, with what its constants stand for where one is all that is given to a function.
std::string withoutConstants(const char* file) {
  const std::string text = textOf(source(file));
  const std::regex constant(R"re(constexpr char (k\w+)\[\] = ("\w+");)re");
  std::string resolved = text;
  for (std::sregex_iterator match(text.begin(), text.end(), constant), end; match != end; ++match) {
    resolved = std::regex_replace(resolved, std::regex("\\(" + (*match)[1].str() + "\\)"),
                                  "(" + (*match)[2].str() + ")");
  }
  return resolved;
}

TEST(ProtocolPage, HasEveryCommandOfTheLibrary) {
  const std::regex inCode(R"re((?:Envelope request|printing|printerCommand)\(\s*"(\w+)")re");
  std::set<std::string> sent =
      commandsIn(withoutConstants("src/service/printer_commands.cpp"), inCode);
  sent.merge(commandsIn(withoutConstants("src/service/weighing_commands.cpp"), inCode));
  std::set<std::string> shown =
      commandsIn(textOf(source("docs/protocol.md")), std::regex(R"re(\{"cmd":"(\w+)")re"));
  shown.erase("selftest");  // raw commands
  shown.erase("beep");
  EXPECT_EQ(shown, sent);
}

}  // namespace
}  // namespace tolvex::test
