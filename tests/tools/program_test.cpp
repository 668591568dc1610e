// The program as a whole: command line, exit codes, output, time limit.
#include <fstream>

#include "support/scripted_service.h"
#include "support/temporary_folder.h"
#include "tools/support/tool_test.h"

namespace tolvex::test {
namespace {

using Program = ToolTest;

TEST_F(Program, TellsItsVersion) {
  EXPECT_EQ(tolvexctl({"--version"}).out, "tolvexctl " TOLVEX_VERSION "\n");
  EXPECT_EQ(json({"--version"}, 0), (ordered_json{{"ok", true}, {"version", TOLVEX_VERSION}}));
}

TEST_F(Program, HelpsWithEveryCommandAndItsExamples) {
  const std::string help = json({"--help"}, 0)["help"];
  for (const char* word :
       {"weigh", "info", "zero", "tare", "clear-tare", "print", "image", "feed", "cut", "calibrate",
        "drawer", "printers", "status", "settings", "raw", "call", "completion"}) {
    EXPECT_NE(help.find(std::string("\n  ") + word + " "), std::string::npos) << word;
    const Finished finished = tolvexctl({word, "--help"});
    EXPECT_EQ(finished.exitCode, 0) << word;
    EXPECT_NE(finished.out.find("\nExamples:\n  "), std::string::npos) << word;
  }
}

TEST_F(Program, RefusesAWrongCommandLine) {
  const auto message = [&](const Words& words) -> std::string {
    return json(words, 2)["error"]["message"];
  };
  EXPECT_EQ(message({}), "there is no command");
  EXPECT_EQ(message({"brew"}), "there is no command \"brew\"");
  EXPECT_EQ(message({"settings"}), "settings needs a command");
  EXPECT_EQ(message({"weigh", "--host", "localhost"}),
            "--host: \"localhost\" is no IPv4 address such as 192.168.1.20");
  EXPECT_EQ(message({"weigh", "--timeout", "0"}),
            "--timeout: \"0\" is no time such as 500, 500ms, 5s or 2m, from 1 ms to a day");
  EXPECT_EQ(message({"feed", "--distance", "1001"}),
            "--distance: \"1001\" is no whole number from 1 to 1000");
  EXPECT_EQ(message({"print", "-", "--job", "lunch"}).substr(0, 29),
            "--job: \"lunch\" is no job type");
  const Finished finished = tolvexctl({"brew"});
  EXPECT_EQ(finished.exitCode, 2);
  EXPECT_EQ(finished.out, "");
  EXPECT_EQ(finished.err,
            "tolvexctl: there is no command \"brew\"\nfix: tolvexctl --help lists commands and "
            "options, tolvexctl COMMAND --help those of a command.\n");
}

TEST_F(Program, SaysThatTheServiceCanNotBeReached) {
  const ordered_json error = json({"--host", ownAddress(), "weigh"}, 3)["error"];
  EXPECT_EQ(error["code"], 4);
  EXPECT_EQ(error["name"], "SOCKET_INTERRUPT");
  const Finished finished = tolvexctl({"--host", ownAddress(), "status"});
  EXPECT_EQ(finished.exitCode, 3);
  EXPECT_NE(finished.out.find("0 the label printer: 4 SOCKET_INTERRUPT"), std::string::npos);
}

TEST_F(Program, GivesUpWhenTheTimeIsUp) {
  ScriptedService service(ownAddress());
  const ordered_json error =
      json({"--host", ownAddress(), "--timeout", "400ms", "weigh"}, 3)["error"];
  EXPECT_EQ(error["message"], "no answer within 400 ms");
  EXPECT_EQ(json({"--host", ownAddress(), "--timeout", "400", "drawer"}, 3)["error"]["message"],
            "no answer within 400 ms");
  EXPECT_EQ(json({"--host", ownAddress(), "--timeout", "1s", "raw", "lc", "getweight"},
                 3)["error"]["code"],
            4);
}

TEST_F(Program, SaysWhichLibraryItCanNotLoad) {
  const std::string none = home.file("none.so");
  EXPECT_EQ(json({"--library", none, "weigh"}, 1)["error"]["message"],
            "there is no library " + none);
  const std::string text = home.file("text.so");
  writeBytes(text, "no library");
  const std::string message = json({"--library", text, "weigh"}, 1)["error"]["message"];
  EXPECT_NE(message.find("text.so: it is no library at all, but"), std::string::npos) << message;
  EXPECT_NE(message.find("x64 (64-bit)"), std::string::npos) << message;
}

// The headers of files of other kinds, as far as they are looked at.
TEST_F(Program, TellsALibraryOfTheWrongKind) {
  std::string pe(256, '\0');
  pe.replace(0, 2, "MZ");
  pe[0x3C] = '\x80';
  pe.replace(0x80, 2, "PE");
  pe[0x84] = '\x4C';
  pe[0x85] = '\x01';
  std::string elf(64, '\0');
  elf.replace(0, 4,
              "\x7F"
              "ELF");
  elf[4] = 1;
  elf[18] = 3;
  writeBytes(home.file("x86.dll"), pe);
  writeBytes(home.file("i386.so"), elf);
  const auto kind = [&](const char* name) {
    const std::string message =
        json({"--library", home.file(name), "weigh"}, 1)["error"]["message"];
    const std::size_t begin = message.find("it is ");
    return message.substr(begin, message.find(',', begin) - begin);
  };
#ifdef _WIN32
  EXPECT_EQ(kind("x86.dll"), "it is a 32-bit (x86) Windows file");
  EXPECT_EQ(kind("i386.so"), "it is a Linux file");
#else
  EXPECT_EQ(kind("x86.dll"), "it is a Windows file");
  EXPECT_EQ(kind("i386.so"), "it is a 32-bit Linux file");
#endif
}

TEST_F(DeviceTest, GlobalOptionsStandBeforeAndBehindTheCommand) {
  const Finished before = tolvexctl({"--json", "--timeout", "30s", "zero"});
  const Finished behind = tolvexctl({"zero", "--timeout", "30s", "--json"});
  EXPECT_EQ(before.out, "{\n  \"ok\": true,\n  \"zeroed\": true\n}\n");
  EXPECT_EQ(behind.out, before.out);
}

// The library says "NLog::OpenFile: ... Succ" on its standard output, and more on standard error.
TEST_F(DeviceTest, KeepsTheLibrarysMessagesOutOfTheResults) {
  const Finished quiet = tolvexctl({"zero"});
  EXPECT_EQ(quiet.out, "The scale is zeroed.\n");
  EXPECT_EQ(quiet.err, "");
  const Finished verbose = tolvexctl({"zero", "--verbose"});
  EXPECT_EQ(verbose.out, "The scale is zeroed.\n");
  EXPECT_NE(verbose.err.find("library: NLog::OpenFile: "), std::string::npos) << verbose.err;
}

TEST_F(DeviceTest, TakesTheAddressFromTheApplicationsIniFile) {
  writeBytes(home.file("zelkad_ip_config.ini"), "[zelkad]\nip_addr=" + simulator.address() + "\n");
  writeBytes(home.file("shop.exe"), "");
  for (const std::string& application : {home.path(), home.file("shop.exe")}) {
    EXPECT_EQ(ToolTest::json({"--app", application, "zero"}, 0)["zeroed"], true) << application;
  }
  EXPECT_EQ(ToolTest::json({"--app", home.file("none"), "zero"}, 1)["error"]["message"],
            "there is no application " + home.file("none"));
}

TEST_F(DeviceTest, HasNoColoursWhereTheOutputIsNoTerminal) {
  EXPECT_EQ(tolvexctl({"status"}).out.find('\x1b'), std::string::npos);
  EXPECT_EQ(tolvexctl({"weigh", "--count", "1"}).out.find('\x1b'), std::string::npos);
}

}  // namespace
}  // namespace tolvex::test
