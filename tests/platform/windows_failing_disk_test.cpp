// A disk that fails: this program's calls of ReadFile and WriteFile go to the functions below,
// which take the place of the system's in the table of imports.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/file_copy.h"
#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace {

DWORD readable = MAXDWORD;  // bytes that can still be read and written
DWORD writable = MAXDWORD;

FARPROC systemFunction(const char* name) {
  return GetProcAddress(GetModuleHandleA("kernel32.dll"), name);
}

BOOL WINAPI failingRead(HANDLE file, LPVOID data, DWORD size, LPDWORD count, LPOVERLAPPED) {
  static const auto read =
      reinterpret_cast<BOOL(WINAPI*)(HANDLE, LPVOID, DWORD, LPDWORD, LPOVERLAPPED)>(
          reinterpret_cast<void*>(systemFunction("ReadFile")));
  if (size > readable) {
    SetLastError(ERROR_CRC);
    return FALSE;
  }
  readable -= size;
  return read(file, data, size, count, nullptr);
}

// Writes as much as the disk takes, as the system does.
BOOL WINAPI fillingWrite(HANDLE file, LPCVOID data, DWORD size, LPDWORD count, LPOVERLAPPED) {
  static const auto write =
      reinterpret_cast<BOOL(WINAPI*)(HANDLE, LPCVOID, DWORD, LPDWORD, LPOVERLAPPED)>(
          reinterpret_cast<void*>(systemFunction("WriteFile")));
  if (size > 0 && writable == 0) {
    SetLastError(ERROR_DISK_FULL);
    return FALSE;
  }
  const DWORD taken = size < writable ? size : writable;
  writable -= taken;
  return write(file, data, taken, count, nullptr);
}

}  // namespace

extern "C" {
decltype(&ReadFile) __imp_ReadFile = failingRead;
decltype(&WriteFile) __imp_WriteFile = fillingWrite;
}

namespace tolvex::platform {
namespace {

class FailingDisk : public testing::Test {
 protected:
  FailingDisk() { test::writeBytes(source_, contents_); }
  ~FailingDisk() override { readable = writable = MAXDWORD; }
  bool copy() const { return copyFile(source_.c_str(), target_.c_str()); }

  const test::TemporaryFolder folder_;
  const std::string source_ = folder_.file("logo.bmp");
  const std::string target_ = folder_.file("prt_0.bmp");
  const std::string contents_ = std::string(1024, 'a') + std::string(1024, 'b');
};

TEST_F(FailingDisk, WithRoomForTheCopyTakesIt) {
  writable = 2048;
  EXPECT_TRUE(copy());
  EXPECT_EQ(writable, 0u);
  EXPECT_EQ(test::readBytes(target_), contents_);
}

TEST_F(FailingDisk, ThatFillsUpBetweenChunksFailsTheCopy) {
  writable = 1024;
  EXPECT_FALSE(copy());
  EXPECT_EQ(test::readBytes(target_), contents_.substr(0, 1024));
}

TEST_F(FailingDisk, ThatFillsUpWithinAChunkFailsTheCopy) {
  writable = 1500;
  EXPECT_FALSE(copy());
  EXPECT_EQ(test::readBytes(target_), contents_.substr(0, 1500));
}

TEST_F(FailingDisk, ThatCannotBeReadToTheEndFailsTheCopy) {
  readable = 1024;
  EXPECT_FALSE(copy());
  EXPECT_EQ(test::readBytes(target_), contents_.substr(0, 1024));
}

TEST_F(FailingDisk, LeavesNothingOpen) {
  const std::size_t handles = test::handleCount();
  for (int i = 0; i < 10; ++i) {
    writable = 1024;
    copy();
  }
  EXPECT_EQ(test::handleCount(), handles);
}

}  // namespace
}  // namespace tolvex::platform
