// The doctor before a simulated till in which one thing is wrong.
#include <filesystem>
#include <fstream>

#include "tools/support/tool_test.h"

namespace tolvex::test {
namespace {

// What the report says first.
struct Diagnosis {
  std::string layer;
  std::string message;
  ordered_json code;  // null for what has none
  std::string name;   // of the code; empty without one
  std::string fix;
};

const char* const kLayers[] = {"library", "address", "log",      "thresholds", "ports",
                               "service", "scale",   "printers", "code-page"};

// An address of this machine at which nothing listens.
std::string silentAddress() { return "127.72" + ownAddress().substr(std::string("127.71").size()); }

std::string withoutEnd(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  return text;
}

std::string firstLines(const std::string& text, unsigned count) {
  std::size_t end = 0;
  while (count-- > 0) end = text.find('\n', end) + 1;
  return text.substr(0, end);
}

class DoctorTest : public ToolTest {
 protected:
#ifdef _WIN32
  // Made by the installer; the prefix of the tests need not have it yet.
  DoctorTest() { makeFolder("c:/VARN/Log/"); }
#endif

  // A folder with the INI file of an application.
  Words forApplication(const std::string& ini) {
    writeBytes(app.file("zelkad_ip_config.ini"), ini);
    return {"doctor", "--app", withoutEnd(app.path().substr(0, app.path().size() - 1))};
  }
  std::string iniPath() const {
    return (std::filesystem::u8path(app.path().substr(0, app.path().size() - 1)) /
            "zelkad_ip_config.ini")
        .u8string();
  }

  // The states of all layers, and the headline as text and as JSON.
  void expectDiagnosis(const Words& words, int exitCode, const Diagnosis& wanted,
                       const Environment& environment = {}) {
    const ordered_json report = json(words, exitCode, "", environment);
    ASSERT_TRUE(report.contains("error")) << report.dump(2);
    EXPECT_EQ(report["ok"], false);
    EXPECT_EQ(report["exit"], exitCode);
    EXPECT_EQ(report["error"]["message"], wanted.message);
    EXPECT_EQ(report["error"]["code"], wanted.code);
    EXPECT_EQ(report["error"]["name"],
              wanted.name.empty() ? ordered_json() : ordered_json(wanted.name));
    EXPECT_EQ(report["error"]["remedy"], wanted.fix);
    expectSkippedAfter(report, wanted.layer);
    const Finished text = tolvexctl(words, "", environment);
    EXPECT_EQ(text.exitCode, exitCode);
    EXPECT_EQ(text.err, "");
    EXPECT_EQ(firstLines(text.out, 2),
              "tolvexctl doctor: " + wanted.message + "\nfix: " + wanted.fix + "\n");
  }

  // Nothing before the layer failed, and nothing behind it was looked at.
  static void expectSkippedAfter(const ordered_json& report, const std::string& failed) {
    bool behind = false;
    std::size_t at = 0;
    for (const ordered_json& layer : report["layers"]) {
      ASSERT_LT(at, std::size(kLayers));
      EXPECT_EQ(layer["layer"], kLayers[at++]);
      const std::string state = layer["state"];
      if (layer["layer"] == failed) {
        EXPECT_EQ(state, "failed");
        behind = true;
      } else if (behind) {
        EXPECT_EQ(state, "skipped") << layer.dump(2);
      } else {
        EXPECT_NE(state, "failed") << layer.dump(2);
        EXPECT_NE(state, "skipped") << layer.dump(2);
      }
    }
    EXPECT_EQ(at, std::size(kLayers));
    EXPECT_TRUE(behind) << failed;
  }

  TemporaryFolder app;
};

const char kRemedyOf4[] =
    "Restart the service, and read its own log. Until then each command of an application takes 40 "
    "s.";

TEST_F(DoctorTest, FindsNothingWrongWhereNothingIs) {
  Simulator simulator;
  simulator.type("load 0.482");
  const ordered_json report = json({"doctor", "--host", simulator.address()}, 0);
  EXPECT_EQ(report["ok"], true);
  EXPECT_FALSE(report.contains("error"));
  EXPECT_EQ(report["address"], simulator.address());
  for (const ordered_json& layer : report["layers"]) {
    EXPECT_NE(layer["state"], "failed") << layer.dump(2);
    EXPECT_NE(layer["state"], "skipped") << layer.dump(2);
  }
  EXPECT_EQ(report["layers"][0]["findings"][0]["version"], TOLVEX_VERSION);
  const ordered_json& scale = report["layers"][6]["findings"][0];
  EXPECT_EQ(scale["message"], "the scale shows net 0.482 kg, tare 0 kg, stable");
  EXPECT_EQ(scale["state"], "fine");
}

TEST_F(DoctorTest, SaysThatTheServiceIsNotRunning) {
  const std::string address = silentAddress();
  expectDiagnosis({"doctor", "--host", address}, 3,
                  {"ports",
                   "the service is not running: nothing listens on the port for weighing (" +
                       address + ":53264)",
                   4, "SOCKET_INTERRUPT",
                   "Start the service (zelkad) at " + address +
                       " (--host). If it runs elsewhere, give the right address to --host."});
}

TEST_F(DoctorTest, SaysWhereAWrongAddressComesFrom) {
  Simulator simulator;
  const std::string address = silentAddress();
  expectDiagnosis(forApplication("[zelkad]\nip_addr=" + address + "\n"), 3,
                  {"ports",
                   "the service is not running: nothing listens on the port for weighing (" +
                       address + ":53264)",
                   4, "SOCKET_INTERRUPT",
                   "Start the service (zelkad) at " + address + " (" + iniPath() +
                       "). If it runs elsewhere, correct ip_addr in " + iniPath() + "."});
}

TEST_F(DoctorTest, NamesABlankInTheIniFile) {
  Simulator simulator;
  expectDiagnosis(
      forApplication("[zelkad]\r\nip_addr = " + simulator.address() + "\r\n"), 1,
      {"address",
       "ip_addr in " + iniPath() + ", line 2 is not found: there is a blank before the '='",
       nullptr, "",
       "Write the line as \"ip_addr=" + simulator.address() + "\", without any blank."});
}

TEST_F(DoctorTest, WarnsOfAnIniFileWithAnotherName) {
  Words words = forApplication("");
  std::filesystem::remove(std::filesystem::u8path(iniPath()));
  writeBytes(app.file("zelkad_ip_config.ini.txt"), "[zelkad]\nip_addr=10.1.2.3\n");
  words.insert(words.end(), {"--skip", "ports,service,scale,printers"});
  const ordered_json report = json(words, 0);
  EXPECT_EQ(report["layers"][1]["state"], "warning");
  EXPECT_EQ(report["layers"][1]["findings"][1]["message"],
            "the library does not read zelkad_ip_config.ini.txt in that folder");
}

TEST_F(DoctorTest, TakesTheAddressOfAnIniFileThatIsRight) {
  Simulator simulator;
  const ordered_json report =
      json(forApplication("[zelkad]\r\nip_addr=" + simulator.address() + "\r\n"), 0);
  EXPECT_EQ(report["address"], simulator.address());
}

TEST_F(DoctorTest, SaysThatTheScaleIsUnplugged) {
  Simulator simulator;
  simulator.type("unplug");
  expectDiagnosis({"doctor", "--host", simulator.address()}, 4,
                  {"scale", "no weight from the scale: LC not connected", 1007, "LC_NOT_CONNECTED",
                   "Check the scale's cable and power, then its port in the service's settings."});
}

TEST_F(DoctorTest, SaysThatAPrinterIsOutOfPaper) {
  Simulator simulator;
  simulator.type("fault out-of-paper on Ticket");
  expectDiagnosis({"doctor", "--host", simulator.address()}, 4,
                  {"printers", "the ticket printer (type 1) is out of paper", 2006, "OUT_OF_PAPER",
                   "Put in new paper, close the cover, and print the job again: what came out "
                   "before is not complete."});
}

TEST_F(DoctorTest, ShowsRepliesThatCanNotBeRead) {
  Simulator simulator;
  simulator.type("wire wrong-type");
  expectDiagnosis({"doctor", "--host", simulator.address()}, 3,
                  {"service",
                   "the service for weighing (" + simulator.address() +
                       ":53264) answers with what is no reply: \"{\"result\":0}\"",
                   -1, "TOLVEX_UNREADABLE_REPLY",
                   "Check that the program at ports 53264 and 53265 is the service; with DLL=2 in "
                   "NLog.ini the log shows the reply."});
}

TEST_F(DoctorTest, EndsSoonWhenTheServiceKeepsSilent) {
  Simulator simulator;
  simulator.type("wire no-answer");
  expectDiagnosis({"doctor", "--timeout", "300ms", "--host", simulator.address()}, 3,
                  {"service",
                   "the service for weighing (" + simulator.address() +
                       ":53264) takes the connection but does not answer within 300 ms",
                   4, "SOCKET_INTERRUPT", kRemedyOf4});
}

TEST_F(DoctorTest, EndsSoonWhenOneCommandIsNeverAnswered) {
  Simulator simulator;
  simulator.type("wire no-answer command=printerStatus");
  const ordered_json report = json({"doctor", "--timeout", "2s", "--host", simulator.address()}, 3);
  expectSkippedAfter(report, "printers");
  EXPECT_EQ(report["error"]["message"], "the printers: no answer within 2 s");
  EXPECT_EQ(report["error"]["code"], 4);
}

TEST_F(DoctorTest, DoesNotSayThatTheServiceIsDownWhenOnePortIsOpen) {
  Simulator simulator;
  simulator.type("wire refuse port=printing");
  EXPECT_EQ(json({"doctor", "--host", simulator.address()}, 3)["error"]["message"],
            "nothing listens on the port for printing (" + simulator.address() + ":53265)");
}

TEST_F(DoctorTest, TellsAReplyThatIsTooLong) {
  Simulator simulator;
  simulator.type("wire oversized bytes=3000");
  EXPECT_EQ(json({"doctor", "--host", simulator.address()}, 3)["error"]["message"],
            "the service for weighing (" + simulator.address() +
                ":53264) answers with 3000 bytes, of which the library reads 2048");
}

TEST_F(DoctorTest, TellsAClosedConnectionAndRepliesInPiecesApart) {
  Simulator simulator;
  simulator.type("wire close");
  EXPECT_EQ(json({"doctor", "--host", simulator.address()}, 3)["error"]["message"],
            "the service for weighing (" + simulator.address() +
                ":53264) closes the connection instead of answering");
  simulator.type("wire off");
  // So far apart that a busy machine does not bring both at once.
  simulator.type("wire two-pieces ms=400");
  EXPECT_EQ(json({"doctor", "--host", simulator.address()}, 3)["error"]["message"],
            "the service for weighing (" + simulator.address() +
                ":53264) sends its reply in pieces, of which the library reads the first");
}

TEST_F(DoctorTest, LeavesLayersOutThatATillDoesNotHave) {
  Simulator simulator;
  simulator.type("unplug");
  const ordered_json report = json({"doctor", "--skip", "scale", "--host", simulator.address()}, 0);
  EXPECT_EQ(report["layers"][6]["state"], "skipped");
  EXPECT_EQ(report["layers"][7]["state"], "fine");
  EXPECT_EQ(json({"doctor", "--skip", "display"}, 2)["ok"], false);
}

TEST_F(DoctorTest, AsksTheDevicesNothingButHowTheyAre) {
  const std::string record = home.file("record.jsonl");
  {
    Simulator simulator({"--record", record});
    json({"doctor", "--host", simulator.address()}, 0);
  }
  std::ifstream lines(std::filesystem::u8path(record));
  std::string line;
  Words commands;
  std::getline(lines, line);  // says what the file is
  while (std::getline(lines, line)) {
    const ordered_json exchange = ordered_json::parse(line, nullptr, false);
    ASSERT_TRUE(exchange.is_object()) << line;
    commands.push_back(ordered_json::parse(exchange["request"].get<std::string>())["cmd"]);
  }
  EXPECT_EQ(commands, (Words{"checkConnection", "getPrinterList", "checkConnection", "getLCVersion",
                             "getweight", "getbaseinfo", "getPrinterList", "printerStatus",
                             "printerStatus", "printerStatus", "printerStatus"}));
}

#ifndef _WIN32

// The system makes no folders and takes no files in there, from anybody.
const char kNowhere[] = "/proc";

TEST_F(DoctorTest, SaysThatTheLogFolderIsMissing) {
  const std::string folder = std::string(kNowhere) + "/varn/log/";
  expectDiagnosis(
      {"doctor", "--host", silentAddress()}, 1,
      {"log",
       "the log folder " + folder + " is missing and cannot be made (No such file or directory)",
       nullptr, "",
       "Make the folder by hand, with the right to write in it for the user of the POS "
       "application; look whether a file is in its place."},
      {{"XDG_STATE_HOME", kNowhere}});
}

TEST_F(DoctorTest, SaysThatTheLogFolderIsReadOnly) {
  makeFolder(home.file("varn/"));
  std::filesystem::create_directory_symlink(kNowhere, home.file("varn/log"));
  const std::string folder = home.path() + "/varn/log/";
  expectDiagnosis(
      {"doctor", "--host", silentAddress()}, 1,
      {"log",
       "the log folder " + folder +
           " is read-only for this user: no file can be made in it (No such file or "
           "directory)",
       nullptr, "",
       "Give the user of the POS application the right to write in it, and look whether "
       "its disk is full or mounted read-only."});
}

#else

const char kFolder[] = "c:/VARN/Log/";
const char kAside[] = "c:/VARN/Log.aside";

// Takes the log folder away as long as the test lasts; under Wine these tests come one at a time.
class WithoutLogFolder : public DoctorTest {
 protected:
  WithoutLogFolder() {
    std::error_code ignored;
    std::filesystem::rename("c:/VARN/Log", kAside, ignored);
    hadSecond_ = exists("c:/Corvane/Log");
  }
  ~WithoutLogFolder() override {
    std::error_code ignored;
    std::filesystem::remove_all("c:/VARN/Log", ignored);
    std::filesystem::rename(kAside, "c:/VARN/Log", ignored);
    if (ignored) makeFolder(kFolder);
    if (!hadSecond_) std::filesystem::remove("c:/Corvane/Log", ignored);
  }

 private:
  bool hadSecond_ = false;
};

TEST_F(WithoutLogFolder, SaysThatItIsMissing) {
  expectDiagnosis({"doctor", "--host", silentAddress()}, 1,
                  {"log", "the log folder c:/VARN/Log/ is missing", nullptr, "",
                   "Run tolvexctl doctor --fix, which makes it, or make the folder by hand."});
  EXPECT_FALSE(exists(kFolder));
}

TEST_F(WithoutLogFolder, MakesIt) {
  Simulator simulator;
  json({"doctor", "--fix", "--host", simulator.address()}, 0);
  EXPECT_TRUE(exists(kFolder));
}

TEST_F(WithoutLogFolder, SaysThatAFileIsInItsPlace) {
  makeFolder("c:/VARN/");
  writeBytes("c:/VARN/Log", "a file");
  const ordered_json report = json({"doctor", "--fix", "--host", silentAddress()}, 1);
  expectSkippedAfter(report, "log");
  EXPECT_EQ(report["error"]["remedy"],
            "Make the folder by hand, with the right to write in it for the user of the POS "
            "application; look whether a file is in its place.");
}

#endif

}  // namespace
}  // namespace tolvex::test
