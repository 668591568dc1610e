// Links, pipes, devices, permissions and a disk that is full.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/file_copy.h"
#include "support/os_support.h"
#include "support/temporary_folder.h"

namespace tolvex::platform {
namespace {

class PosixFileCopy : public testing::Test {
 protected:
  PosixFileCopy() { test::writeBytes(source_, "text"); }
  bool copy() const { return copyFile(source_.c_str(), target_.c_str()); }

  const test::TemporaryFolder folder_;
  const std::string source_ = folder_.file("logo.bmp");
  const std::string target_ = folder_.file("prt_0.bmp");
};

TEST_F(PosixFileCopy, OntoItselfByASymbolicLinkLeavesTheFile) {
  ASSERT_EQ(symlink(source_.c_str(), target_.c_str()), 0);
  EXPECT_TRUE(copy());
  EXPECT_EQ(test::readBytes(source_), "text");
}

TEST_F(PosixFileCopy, OfASymbolicLinkOntoItsFileLeavesTheFile) {
  ASSERT_EQ(symlink(source_.c_str(), target_.c_str()), 0);
  EXPECT_TRUE(copyFile(target_.c_str(), source_.c_str()));
  EXPECT_EQ(test::readBytes(source_), "text");
}

TEST_F(PosixFileCopy, FollowsASymbolicLinkToAnotherFile) {
  const std::string other = folder_.file("other");
  ASSERT_EQ(symlink(other.c_str(), target_.c_str()), 0);
  EXPECT_TRUE(copy());
  EXPECT_EQ(test::readBytes(other), "text");
}

TEST_F(PosixFileCopy, OfAPipeFailsWithoutWaiting) {
  const std::string pipe = folder_.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(copyFile(pipe.c_str(), target_.c_str()));
  EXPECT_FALSE(test::exists(target_));
  EXPECT_EQ(fileSize(pipe.c_str()), 0);
}

TEST_F(PosixFileCopy, ToAPipeFailsWithoutWaiting) {
  ASSERT_EQ(mkfifo(target_.c_str(), 0600), 0);
  EXPECT_FALSE(copy());
}

TEST_F(PosixFileCopy, ToAPipeWithAReaderWritesNothing) {
  ASSERT_EQ(mkfifo(target_.c_str(), 0600), 0);
  const int reader = open(target_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  EXPECT_FALSE(copy());
  char byte;
  EXPECT_EQ(read(reader, &byte, 1), 0);
  close(reader);
}

TEST_F(PosixFileCopy, OfADeviceFails) {
  EXPECT_FALSE(copyFile("/dev/zero", target_.c_str()));
  EXPECT_FALSE(test::exists(target_));
  EXPECT_EQ(fileSize("/dev/zero"), 0);
}

TEST_F(PosixFileCopy, ToADeviceFails) {
  EXPECT_FALSE(copyFile(source_.c_str(), "/dev/null"));
  EXPECT_FALSE(copyFile(source_.c_str(), "/dev/full"));
}

TEST_F(PosixFileCopy, GetsThePermissionsOfANewFile) {
  const mode_t mask = umask(027);
  EXPECT_TRUE(copy());
  umask(mask);
  struct stat status = {};
  ASSERT_EQ(stat(target_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777u, 0640u);
}

// A file that is being run may not be written, not even by root.
TEST_F(PosixFileCopy, OverAFileThatMayNotBeWrittenFails) {
  EXPECT_FALSE(copyFile(source_.c_str(), "/proc/self/exe"));
  EXPECT_GT(fileSize("/proc/self/exe"), 4);
}

class FullDiskCopy : public PosixFileCopy {
 protected:
  FullDiskCopy() { signal(SIGXFSZ, SIG_IGN); }  // a write beyond the limit fails instead
  ~FullDiskCopy() override { allow(RLIM_INFINITY); }

  static void allow(rlim_t bytes) {
    rlimit limit = {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
};

TEST_F(FullDiskCopy, FailsAndLeavesWhatWasWritten) {
  const std::string contents = std::string(1024, 'a') + std::string(1024, 'b');
  test::writeBytes(source_, contents);
  allow(1500);
  const bool copied = copy();
  allow(RLIM_INFINITY);
  EXPECT_FALSE(copied);
  EXPECT_EQ(test::readBytes(target_), contents.substr(0, 1500));
}

TEST_F(FullDiskCopy, FailsAtTheFirstByte) {
  allow(0);
  const bool copied = copy();
  allow(RLIM_INFINITY);
  EXPECT_FALSE(copied);
  EXPECT_EQ(test::readBytes(target_), "");
}

TEST_F(FullDiskCopy, LeavesNothingOpen) {
  allow(0);
  copy();
  const std::size_t handles = test::handleCount();
  for (int i = 0; i < 10; ++i) copy();
  EXPECT_EQ(test::handleCount(), handles);
}

// Some services run without; a file may then have the number 0.
TEST_F(PosixFileCopy, LeavesNothingOpenWhereThereIsNoStandardInput) {
  const int standardInput = dup(STDIN_FILENO);
  close(STDIN_FILENO);
  const bool copied = copy();
  const bool left = fcntl(STDIN_FILENO, F_GETFD) != -1;
  dup2(standardInput, STDIN_FILENO);
  close(standardInput);
  EXPECT_TRUE(copied);
  EXPECT_FALSE(left);
}

// The kernel lists this process's memory as an ordinary file that cannot be read at its start.
TEST_F(PosixFileCopy, OfAFileThatCannotBeReadFails) {
  EXPECT_FALSE(copyFile("/proc/self/mem", target_.c_str()));
  EXPECT_EQ(test::readBytes(target_), "");
}

}  // namespace
}  // namespace tolvex::platform
