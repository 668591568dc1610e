#include <gtest/gtest.h>

#include "config/ini_reader.h"
#include "support/temporary_folder.h"

namespace tolvex::config {
namespace {

using test::TemporaryFolder;

TEST(IniFile, IsReadWhole) {
  const TemporaryFolder folder;
  test::writeBytes(folder.file("a.ini"), "; comment\r\n[zelkad]\r\nip_addr=10.1.2.3\r\nx=1");
  EXPECT_EQ(readIniFile(folder.file("a.ini")),
            (IniMap{{"zelkad.ip_addr", "10.1.2.3"}, {"zelkad.x", "1"}}));
}

TEST(IniFile, EmptyFileHasNoEntries) {
  const TemporaryFolder folder;
  test::writeBytes(folder.file("a.ini"), "");
  EXPECT_EQ(readIniFile(folder.file("a.ini")), IniMap());
}

TEST(IniFile, LargerThanOneBlockIsReadWhole) {
  const TemporaryFolder folder;
  const std::string value(100000, 'v');
  test::writeBytes(folder.file("a.ini"), "[s]\nlong=" + value + "\nlast=1\n");
  EXPECT_EQ(readIniFile(folder.file("a.ini")), (IniMap{{"s.long", value}, {"s.last", "1"}}));
}

TEST(IniFile, MissingFileIsNothing) {
  const TemporaryFolder folder;
  EXPECT_EQ(readIniFile(folder.file("missing.ini")), std::nullopt);
}

TEST(IniFile, FileInAMissingFolderIsNothing) {
  const TemporaryFolder folder;
  EXPECT_EQ(readIniFile(folder.file("missing/a.ini")), std::nullopt);
}

TEST(IniFile, FolderIsNothing) {
  const TemporaryFolder folder;
  EXPECT_EQ(readIniFile(folder.path()), std::nullopt);
}

TEST(IniFile, EmptyPathIsNothing) { EXPECT_EQ(readIniFile(""), std::nullopt); }

TEST(IniFile, LiesInAFolderWithANonAsciiName) {
  const TemporaryFolder folder;
  const std::string till = folder.file("K\xC3\xA4sse \xE7\xA7\xA4/");  // Latin and Chinese letters
  test::makeFolder(till);
  test::writeBytes(till + "a.ini", "[zelkad]\nip_addr=10.1.2.3\n");
  EXPECT_EQ(readIniFile(till + "a.ini"), (IniMap{{"zelkad.ip_addr", "10.1.2.3"}}));
}

}  // namespace
}  // namespace tolvex::config
