#include <gtest/gtest.h>

#include <stdexcept>

#include "config/ini_reader.h"
#include "support/temporary_folder.h"

namespace tolvex::config {
namespace {

using test::TemporaryFolder;

// The text of the exception that reading the path raises, empty when it raises none.
std::string failureOf(const std::string& path) {
  try {
    readIniFile(path);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

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

TEST(IniFile, MissingFileRaises) {
  const TemporaryFolder folder;
  EXPECT_EQ(failureOf(folder.file("missing.ini")), "Failed to open INI file");
}

TEST(IniFile, FileInAMissingFolderRaises) {
  const TemporaryFolder folder;
  EXPECT_EQ(failureOf(folder.file("missing/a.ini")), "Failed to open INI file");
}

TEST(IniFile, FolderRaises) {
  const TemporaryFolder folder;
  EXPECT_EQ(failureOf(folder.path()), "Failed to open INI file");
}

TEST(IniFile, EmptyPathRaises) { EXPECT_EQ(failureOf(""), "Failed to open INI file"); }

TEST(IniFile, LiesInAFolderWithANonAsciiName) {
  const TemporaryFolder folder;
  const std::string till = folder.file("K\xC3\xA4sse \xE7\xA7\xA4/");  // Latin and Chinese letters
  test::makeFolder(till);
  test::writeBytes(till + "a.ini", "[zelkad]\nip_addr=10.1.2.3\n");
  EXPECT_EQ(readIniFile(till + "a.ini"), (IniMap{{"zelkad.ip_addr", "10.1.2.3"}}));
}

}  // namespace
}  // namespace tolvex::config
