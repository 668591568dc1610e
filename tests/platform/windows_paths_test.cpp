#include <gtest/gtest.h>
#include <windows.h>

#include "platform/paths.h"

namespace tolvex::platform {
namespace {

TEST(LogDirectory, IsFixed) { EXPECT_EQ(libraryLogDirectory(), "c:/VARN/Log/"); }

TEST(LogDirectory, OfALoggerNobodyNamedIsFixed) {
  EXPECT_EQ(loggerDefaultDirectory(), "c:\\Corvane\\Log\\");
}

TEST(HostExecutable, IsThisProgram) {
  char path[1024] = {};
  GetModuleFileNameA(nullptr, path, sizeof(path));
  ASSERT_LT(std::string(path).size(), 255u);  // a longer one would be cut
  EXPECT_EQ(hostExecutable(), path);
}

TEST(HostExecutable, IsToldInUtf8) {
  wchar_t path[1024] = {};
  GetModuleFileNameW(nullptr, path, 1024);
  char utf8[4096] = {};
  WideCharToMultiByte(CP_UTF8, 0, path, -1, utf8, sizeof(utf8), nullptr, nullptr);
  EXPECT_EQ(hostExecutableUtf8(), utf8);
}

TEST(PathSeparator, IsABackslash) { EXPECT_EQ(kPathSeparator, '\\'); }

}  // namespace
}  // namespace tolvex::platform
