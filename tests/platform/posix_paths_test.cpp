#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/paths.h"
#include "support/temporary_folder.h"

namespace tolvex::platform {
namespace {

class LogDirectory : public testing::Test {
 protected:
  LogDirectory() {
    setenv("HOME", home().c_str(), 1);
    unsetenv("XDG_STATE_HOME");
  }
  std::string home() const { return folder_.file("home"); }
  std::string state() const { return folder_.file("state"); }

  const test::TemporaryFolder folder_;
};

TEST_F(LogDirectory, LiesInTheStateFolderOfTheUser) {
  setenv("XDG_STATE_HOME", state().c_str(), 1);
  EXPECT_EQ(libraryLogDirectory(), state() + "/varn/log/");
  EXPECT_EQ(loggerDefaultDirectory(), state() + "/corvane/log/");
}

TEST_F(LogDirectory, LiesBelowTheHomeFolderWithoutAStateFolder) {
  EXPECT_EQ(libraryLogDirectory(), home() + "/.local/state/varn/log/");
  EXPECT_EQ(loggerDefaultDirectory(), home() + "/.local/state/corvane/log/");
}

TEST_F(LogDirectory, IgnoresARelativeStateFolder) {
  ASSERT_EQ(chdir(folder_.path().c_str()), 0);
  setenv("XDG_STATE_HOME", "state", 1);
  EXPECT_EQ(libraryLogDirectory(), home() + "/.local/state/varn/log/");
  EXPECT_FALSE(test::exists(state()));
}

TEST_F(LogDirectory, IgnoresAnEmptyStateFolder) {
  setenv("XDG_STATE_HOME", "", 1);
  EXPECT_EQ(libraryLogDirectory(), home() + "/.local/state/varn/log/");
}

TEST_F(LogDirectory, IsMadeWithWhatIsMissingAboveIt) {
  EXPECT_TRUE(test::exists(libraryLogDirectory()));
  EXPECT_TRUE(test::exists(loggerDefaultDirectory()));
}

TEST_F(LogDirectory, IsMadeForItsUserOnly) {
  struct stat status = {};
  ASSERT_EQ(stat(libraryLogDirectory().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777u, 0700u);
}

TEST_F(LogDirectory, StaysAsItIsWhereItExists) {
  setenv("XDG_STATE_HOME", state().c_str(), 1);
  test::makeFolder(state() + "/varn/log");
  test::writeBytes(state() + "/varn/log/DLL_0.log", "text");
  libraryLogDirectory();
  EXPECT_EQ(test::readBytes(state() + "/varn/log/DLL_0.log"), "text");
}

TEST_F(LogDirectory, IsNamedEvenWhereItCannotBeMade) {
  test::writeBytes(state(), "a file in its place");
  setenv("XDG_STATE_HOME", state().c_str(), 1);
  EXPECT_EQ(libraryLogDirectory(), state() + "/varn/log/");
  EXPECT_EQ(test::readBytes(state()), "a file in its place");
}

TEST_F(LogDirectory, MayHaveANonAsciiName) {
  const std::string path = folder_.file("K\xC3\xA4sse");
  setenv("XDG_STATE_HOME", path.c_str(), 1);
  EXPECT_EQ(libraryLogDirectory(), path + "/varn/log/");
  EXPECT_TRUE(test::exists(path + "/varn/log/"));
}

TEST(HostExecutable, IsThisProgram) {
  char* const path = realpath("/proc/self/exe", nullptr);
  EXPECT_EQ(hostExecutable(), path);
  EXPECT_EQ(hostExecutableUtf8(), path);
  free(path);
}

// Each of these runs itself once more in a copy of this program, which knows its path from a variable.
class CopiedExecutable : public testing::Test {
 protected:
  static const char* ownPath() { return std::getenv("TOLVEX_TEST_COPY"); }

  // Whether the same test passes in a copy under so many folders of this name.
  bool passesIn(const std::string& name, int depth) const {
    std::string path = folder_.path();
    for (int i = 0; i < depth; ++i) path += name + '/';
    test::makeFolder(path);
    path += "till";
    std::filesystem::copy_file("/proc/self/exe", path);
    setenv("TOLVEX_TEST_COPY", path.c_str(), 1);
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    return std::system(
               ('"' + path + "\" --gtest_filter=CopiedExecutable." + test->name()).c_str()) == 0;
  }

  const test::TemporaryFolder folder_;
};

TEST_F(CopiedExecutable, IsFoundUnderALongPath) {
  if (ownPath() != nullptr) {
    EXPECT_EQ(hostExecutable(), ownPath());
  } else {
    EXPECT_TRUE(passesIn(std::string(200, 'x'), 7));
  }
}

// As where the application is updated while it runs.
TEST_F(CopiedExecutable, KeepsItsPathWhenItsFileIsReplaced) {
  if (ownPath() != nullptr) {
    ASSERT_EQ(unlink(ownPath()), 0);
    EXPECT_EQ(hostExecutable(), ownPath());
  } else {
    EXPECT_TRUE(passesIn("till", 1));
  }
}

TEST(PathSeparator, IsASlash) { EXPECT_EQ(kPathSeparator, '/'); }

}  // namespace
}  // namespace tolvex::platform
