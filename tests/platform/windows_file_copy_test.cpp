// Devices, files that others hold, and names in other letters.
#include <gtest/gtest.h>
#include <windows.h>

#include "platform/file_copy.h"
#include "support/temporary_folder.h"

namespace tolvex::platform {
namespace {

class WindowsFileCopy : public testing::Test {
 protected:
  WindowsFileCopy() { test::writeBytes(source_, "text"); }

  const test::TemporaryFolder folder_;
  const std::string source_ = folder_.file("logo.bmp");
  const std::string target_ = folder_.file("prt_0.bmp");
};

TEST_F(WindowsFileCopy, OntoItselfInOtherLettersLeavesTheFile) {
  EXPECT_TRUE(copyFile(source_.c_str(), folder_.file("LOGO.BMP").c_str()));
  EXPECT_EQ(test::readBytes(source_), "text");
}

TEST_F(WindowsFileCopy, OfADeviceFailsWithoutWaiting) {
  for (const char* const device : {"NUL", "CON", "CONIN$", "\\\\.\\NUL"}) {
    EXPECT_FALSE(copyFile(device, target_.c_str())) << device;
    EXPECT_EQ(fileSize(device), 0) << device;
  }
  EXPECT_FALSE(test::exists(target_));
}

TEST_F(WindowsFileCopy, ToADeviceFails) {
  for (const char* const device : {"NUL", "CON", "CONOUT$"}) {
    EXPECT_FALSE(copyFile(source_.c_str(), device)) << device;
  }
}

TEST_F(WindowsFileCopy, OfAPipeFailsWithoutWaiting) {
  const char name[] = "\\\\.\\pipe\\tolvex_file_copy_test";
  const HANDLE pipe =
      CreateNamedPipeA(name, PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 1, 64, 64, 0, nullptr);
  ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(copyFile(name, target_.c_str()));
  CloseHandle(pipe);
  EXPECT_FALSE(test::exists(target_));
}

// A file that another program has for itself alone.
HANDLE openAlone(const std::string& path) {
  return CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

TEST_F(WindowsFileCopy, OfAFileThatMayNotBeReadFails) {
  const HANDLE file = openAlone(source_);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(copyFile(source_.c_str(), target_.c_str()));
  CloseHandle(file);
  EXPECT_FALSE(test::exists(target_));
}

TEST_F(WindowsFileCopy, OverAFileThatMayNotBeWrittenFails) {
  test::writeBytes(target_, "old");
  const HANDLE file = openAlone(target_);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(copyFile(source_.c_str(), target_.c_str()));
  CloseHandle(file);
  EXPECT_EQ(test::readBytes(target_), "old");
}

}  // namespace
}  // namespace tolvex::platform
