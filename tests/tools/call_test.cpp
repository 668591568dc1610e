// `tolvexctl call`, which reaches every export.
#include <fstream>
#include <regex>
#include <sstream>

#include "support/scripted_service.h"
#include "tools/support/tool_test.h"

namespace tolvex::test {
namespace {

// The names and parameters that the header declares, found without what the program finds them by.
struct Declaration {
  std::string name;
  std::vector<std::string> parameters;
};

std::vector<Declaration> declarations() {
  std::ifstream file(TOLVEX_HEADER);
  std::stringstream text;
  text << file.rdbuf();
  const std::string header = text.str();
  static const std::regex declaration(R"(TOLVEX_API int (\w+)\(([^)]*)\);)");
  std::vector<Declaration> all;
  for (std::sregex_iterator found(header.begin(), header.end(), declaration), end; found != end;
       ++found) {
    Declaration one{(*found)[1], {}};
    std::stringstream parameters((*found)[2]);
    for (std::string parameter; std::getline(parameters, parameter, ',');) {
      if (parameter != "void") one.parameters.push_back(parameter);
    }
    all.push_back(one);
  }
  return all;
}

// An argument for each parameter that takes one.
std::vector<std::string> argumentsFor(const Declaration& declaration) {
  std::vector<std::string> words = {declaration.name};
  for (const std::string& parameter : declaration.parameters) {
    const bool isBuffer = parameter.find("char *") != std::string::npos &&
                          parameter.find("const") == std::string::npos;
    if (parameter.find("const char *path") != std::string::npos) {
      words.emplace_back(LOGO);
    } else if (parameter.find("const char *ip") != std::string::npos) {
      words.push_back(ownAddress());
    } else if (parameter.find("module") != std::string::npos) {
      words.emplace_back("print");
    } else if (parameter.find("printerName") != std::string::npos) {
      words.emplace_back("Label");
    } else if (parameter.find("command") != std::string::npos) {
      words.emplace_back(declaration.name == "sendRawCmdToPrt" ? "opencashbox" : "checkConnection");
    } else if (parameter.find("jobType") != std::string::npos) {
      words.emplace_back("8");
    } else if (parameter.find("printerType") != std::string::npos) {
      words.emplace_back("0");
    } else if (parameter.find("size") != std::string::npos) {
      words.emplace_back("2048");
    } else if (parameter.find("fontSize") != std::string::npos) {
      words.emplace_back("28");
    } else if (parameter.find("width") != std::string::npos) {
      words.emplace_back("58");
    } else if (parameter.find("wait") != std::string::npos) {
      words.emplace_back("20000");
    } else if (!isBuffer || parameter.find("text") != std::string::npos) {
      words.emplace_back("1");
    }
  }
  return words;
}

std::string repeated(const std::string& text, unsigned count) {
  std::string all;
  while (count-- > 0) all += text;
  return all;
}

class Call : public DeviceTest {};
class CallOfAnotherService : public ToolTest {};

TEST_F(Call, ListsExactlyWhatTheHeaderDeclares) {
  std::vector<std::string> declared;
  for (const Declaration& declaration : declarations()) declared.push_back(declaration.name);
  const ordered_json value = ToolTest::json({"call", "--list"}, 0);
  std::vector<std::string> listed;
  for (const auto& row : value["exports"]) listed.push_back(row["name"]);
  EXPECT_EQ(declared.size(), 121u);
  EXPECT_EQ(listed, declared);
}

// As many as possible in one process: + begins the next call, and one that fails ends the chain.
TEST_F(Call, ReachesEveryExport) {
  const std::vector<Declaration> all = declarations();
  std::vector<std::string> wanted;
  for (const Declaration& declaration : all) wanted.push_back(declaration.name);
  std::vector<std::string> called;
  std::vector<std::string> failed;
  while (called.size() < all.size()) {
    Words words = {"--json", "call"};
    for (std::size_t i = called.size(); i < all.size(); ++i) {
      if (i > called.size()) words.emplace_back("+");
      const auto call = argumentsFor(all[i]);
      words.insert(words.end(), call.begin(), call.end());
    }
    const ordered_json value = ordered_json::parse(tolvexctl(words).out);
    ASSERT_FALSE(value["calls"].empty());
    for (const auto& call : value["calls"]) called.push_back(call["export"]);
    if (value["exit"] != 0) failed.push_back(called.back());
  }
  EXPECT_EQ(called, wanted);
  EXPECT_EQ(failed, (std::vector<std::string>{"PrintLabelImage", "PrintLabelImage_stdcall"}));
}

TEST_F(Call, ShowsBuffersAsTextAndAsHex) {
  const Finished finished = tolvexctl({"call", "GetPrinterList", "256"});
  EXPECT_EQ(finished.exitCode, 0);
  EXPECT_EQ(finished.out,
            "GetPrinterList(buffer, size = 256) -> 240 TOLVEX_OK: The function did what it was "
            "called for.\n"
            "  buffer: \"Label,Ticket,Third\"\n"
            "    4c 61 62 65 6c 2c 54 69 63 6b 65 74 2c 54 68 69 72 64\n");
}

TEST_F(Call, DecodesRecords) {
  simulator.type("load 1.5");
  const ordered_json weight = json({"call", "read_standard"}, 0)["calls"][0]["buffers"]["record"];
  EXPECT_EQ(weight["hex"], "01 30 31 2e 35 30 30 30 50 30 30 2e 30 30 30 30");
  EXPECT_EQ(weight["record"]["net"], 1.5);
  const ordered_json info = json({"call", "read_baseinfo"}, 0)["calls"][0]["buffers"]["record"];
  EXPECT_EQ(info["record"]["max_tare"], 6.0);
}

TEST_F(Call, ExplainsTheResultAndTheErrorBehindIt) {
  const Finished finished = tolvexctl({"call", "printBlanks", "0"});
  EXPECT_EQ(finished.exitCode, 4);
  EXPECT_NE(finished.out.find("-> 255 TOLVEX_FAILED: "), std::string::npos) << finished.out;
  EXPECT_NE(finished.out.find("last error: 2 INVALID_PARAM (Invalid Param)\n"), std::string::npos);
  simulator.type("load 100");
  const ordered_json call = json({"call", "read_standard"}, 4)["calls"][0];
  EXPECT_EQ(call["result"], -2);
  EXPECT_EQ(call["name"], "TOLVEX_OVER_LOAD");
}

TEST_F(Call, PassesNullWhereItIsAskedTo) {
  const ordered_json call = json({"call", "read_standard", "--null", "record"}, 1)["calls"][0];
  EXPECT_EQ(call["result"], 255);
  EXPECT_EQ(json({"call", "PrintText", "28", "--null", "text"}, 1)["calls"][0]["result"], 255);
}

TEST_F(Call, TakesWordsThatLookLikeOptionsOrLists) {
  EXPECT_EQ(tolvexctl({"call", "printTextById", "[a,b]", "28", "1"}).out.substr(0, 30),
            "printTextById(text = \"[a,b]\", ");
  EXPECT_EQ(tolvexctl({"call", "printTextById", "--", "--json", "28", "1"}).out.substr(0, 31),
            "printTextById(text = \"--json\", ");
}

TEST_F(Call, TakesAnEscapedPlusForAText) {
  EXPECT_EQ(
      tolvexctl({"call", "PrintText", "\\+", "28", "+", "PrintText", "\\\\+", "28"}).out,
      "PrintText(text = \"+\", fontSize = 28) -> 240 TOLVEX_OK: The function did what it was "
      "called for.\n"
      "PrintText(text = \"\\+\", fontSize = 28) -> 240 TOLVEX_OK: The function did what it was "
      "called for.\n");
}

TEST_F(CallOfAnotherService, ShowsATextThatEndsInTheMiddleOfACharacter) {
  ScriptedService service(ownAddress());
  service.weighing().alwaysAnswers(R"({"result":"0","systemVersion":"x)" +
                                   repeated("\xC3\xA9", 30) + "\"}");
  const Finished finished = tolvexctl({"--host", ownAddress(), "call", "read_baseinfo"});
  EXPECT_EQ(finished.exitCode, 0) << finished.err;
  EXPECT_NE(finished.out.find("\"system_version\":\"x" + repeated("\xC3\xA9", 9)),
            std::string::npos)
      << finished.out;
}

class CallRefusal : public ToolTest {
 protected:
  std::string message(const Words& words) {
    Words all = {"call"};
    all.insert(all.end(), words.begin(), words.end());
    const ordered_json error = json(all, 2)["error"];
    remedy = error["remedy"];
    return error["message"];
  }
  std::string remedy;
};

TEST_F(CallRefusal, NamesTheSignatureForAWrongNumberOfArguments) {
  EXPECT_EQ(message({"PrintText", "Hello"}), "PrintText lacks its argument fontSize");
  EXPECT_EQ(remedy.substr(0, remedy.find(')')),
            "It is declared as int PrintText(const char *text, unsigned int fontSize");
  EXPECT_EQ(message({"cutPaper", "1"}), "cutPaper takes no further argument \"1\"");
}

TEST_F(CallRefusal, NamesTheSignatureForAWrongKindOfArgument) {
  EXPECT_EQ(message({"PrintText", "Hello", "big"}),
            "\"big\" is no whole number from 0 to 4294967295 for fontSize of PrintText");
  EXPECT_EQ(message({"GetPrinterList", "2000000"}),
            "\"2000000\" is no whole number from 0 to 1048576 for size of GetPrinterList");
  EXPECT_EQ(message({"setHighResWeightMode", "2147483648"}),
            "\"2147483648\" is no whole number from -2147483648 to 2147483647 for on of "
            "setHighResWeightMode");
  EXPECT_EQ(message({"cutPaper", "--null", "paper"}), "cutPaper has no text or buffer \"paper\"");
}

TEST_F(CallRefusal, OffersTheNameThatWasMeant) {
  EXPECT_EQ(message({"printtxt"}), "the library has no export \"printtxt\"");
  EXPECT_EQ(remedy.substr(0, remedy.find('?')), "Did you mean PrintText");
  EXPECT_EQ(message({}), "call needs the name of an export");
  EXPECT_EQ(message({"cutPaper", "+"}), "there is no export beside a +");
}

}  // namespace
}  // namespace tolvex::test
