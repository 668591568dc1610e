// What the DLL says of itself to Windows.
#include <windows.h>

#include "support/library_test.h"

namespace tolvex::test {
namespace {

TEST(WindowsFile, CarriesItsVersionAsAResource) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeA("tolvex_dll.dll", &ignored);
  ASSERT_GT(size, 0U);
  std::vector<char> block(size);
  ASSERT_TRUE(GetFileVersionInfoA("tolvex_dll.dll", 0, size, block.data()));
  VS_FIXEDFILEINFO* fixed = nullptr;
  UINT length = 0;
  ASSERT_TRUE(VerQueryValueA(block.data(), "\\", reinterpret_cast<void**>(&fixed), &length));
  EXPECT_EQ(fixed->dwFileVersionMS, MAKELONG(0, 3));
  EXPECT_EQ(fixed->dwFileVersionLS, MAKELONG(2, 3));
  char* text = nullptr;
  ASSERT_TRUE(VerQueryValueA(block.data(), "\\StringFileInfo\\040904B0\\ProductVersion",
                             reinterpret_cast<void**>(&text), &length));
  EXPECT_STREQ(text, "3.0.3.2");
}

TEST(WindowsFile, IsLoadedUnderItsPlainNames) {
  const HMODULE library = GetModuleHandleA("tolvex_dll.dll");
  ASSERT_NE(library, nullptr);
  EXPECT_NE(GetProcAddress(library, "read_standard"), nullptr);
  EXPECT_NE(GetProcAddress(library, "read_standard_stdcall"), nullptr);
}

}  // namespace
}  // namespace tolvex::test
