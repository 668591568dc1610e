// The bundle for support, as other programs unpack it.
#include <filesystem>

#include "tools/support/tool_test.h"

namespace tolvex::test {
namespace {

#ifndef _WIN32

const std::string kHead = "2024-03-05 14:07:09 Ms:042 [T] L:528 M:DLL ";

class BundleTest : public ToolTest {
 protected:
  Finished bundle(const Words& more = {}) {
    Words words = {"doctor", "--host", "127.72.255.254", "--bundle", home.file("b.zip")};
    words.insert(words.end(), more.begin(), more.end());
    return tolvexctl(words);
  }
  // A file of the bundle, unpacked by a program that is not ours.
  std::string unpacked(const std::string& name) {
    const Finished finished = run({"/usr/bin/unzip", "-p", home.file("b.zip"), name});
    EXPECT_EQ(finished.exitCode, 0) << finished.err;
    return finished.out;
  }
};

TEST_F(BundleTest, HoldsWhatSupportNeedsAndNoTextOfAReceipt) {
  makeFolder(home.file("varn/log/"));
  writeBytes(home.file("varn/log/NLog.ini"), "DLL=2\n");
  writeBytes(home.file("varn/log/DLL_0.log"),
             kHead + "[shop][PrintText] font:24 [Organic milk\n2.49 EUR]\n" + kHead +
                 "[shop]==>[Zelkad][SndCmdToPrinter] Snd: "
                 "{\"cmd\":\"printtext\",\"text\":\"Organic milk\"}.\n" +
                 kHead + "[cutPaper] Err: 2005\n");
  EXPECT_EQ(bundle().exitCode, 3);
  const Finished tested = run({"/usr/bin/unzip", "-t", home.file("b.zip")});
  EXPECT_EQ(tested.exitCode, 0) << tested.out;
  const std::string log = unpacked("log/varn/DLL_0.log");
  const std::string expected = kHead + "[shop][PrintText] font:24 [xxxxxxx xxxx\n9.99 xxx]\n" +
                               kHead +
                               "[shop]==>[Zelkad][SndCmdToPrinter] Snd: "
                               "{\"cmd\":\"printtext\",\"text\":\"xxxxxxx xxxx\"}.\n" +
                               kHead + "[cutPaper] Err: 2005\n";
  EXPECT_EQ(log.substr(0, expected.size()), expected);
  EXPECT_EQ(unpacked("log/varn/NLog.ini"), "DLL=2\n");
  const ordered_json report = ordered_json::parse(unpacked("report.json"), nullptr, false);
  EXPECT_EQ(report["exit"], 3);
  const ordered_json versions = ordered_json::parse(unpacked("versions.json"), nullptr, false);
  EXPECT_EQ(versions["library"]["version"], versions["tolvexctl"]);
  EXPECT_NE(unpacked("environment.txt").find("XDG_STATE_HOME=" + home.path()), std::string::npos);
}

TEST_F(BundleTest, DoesNotReplaceAFileUnasked) {
  writeBytes(home.file("b.zip"), "mine");
  EXPECT_EQ(bundle().exitCode, 1);
  EXPECT_EQ(readBytes(home.file("b.zip")), "mine");
  EXPECT_EQ(bundle({"--force"}).exitCode, 3);
  EXPECT_EQ(readBytes(home.file("b.zip")).substr(0, 2), "PK");
}

TEST_F(BundleTest, PutsNoFileInThePlaceOfADevice) {
  std::filesystem::create_symlink("/dev/null", home.file("b.zip"));
  EXPECT_EQ(bundle({"--force"}).exitCode, 1);
  EXPECT_TRUE(std::filesystem::is_symlink(home.file("b.zip")));
}

TEST_F(BundleTest, ShowsTheReportWhereItCanNotWrite) {
  const std::string path = home.file("missing/b.zip");
  const Finished finished = tolvexctl({"doctor", "--host", "127.72.255.254", "--bundle", path});
  EXPECT_EQ(finished.exitCode, 1);
  EXPECT_EQ(finished.out.substr(0, 45), "tolvexctl doctor: the service is not running:");
  EXPECT_EQ(finished.err.substr(0, finished.err.find('\n')),
            "tolvexctl: cannot write the bundle " + path);
}

TEST_F(BundleTest, LeavesNothingHalfWritten) {
  const std::string path = home.file("missing/b.zip");
  const ordered_json value = json({"doctor", "--host", "127.72.255.254", "--bundle", path}, 1);
  EXPECT_EQ(value["error"]["message"], "cannot write the bundle " + path);
  EXPECT_FALSE(exists(path + ".part"));
}

#endif

TEST(Bundle, NeedsAFileToForce) {
  EXPECT_EQ(run({TOLVEXCTL, "--json", "doctor", "--force"}).exitCode, 2);
}

}  // namespace
}  // namespace tolvex::test
