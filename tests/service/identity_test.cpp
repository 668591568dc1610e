#include "service/identity.h"

#include <gtest/gtest.h>

#include "service/service_test.h"

namespace tolvex {
namespace {

TEST(Identity, IsTheFileNameWithoutItsExtension) {
  EXPECT_EQ(identityOf(R"(C:\Shop\Kelvarin.exe)", '\\'), "Kelvarin");
  EXPECT_EQ(identityOf("/opt/shop/kelvarin.bin", '/'), "kelvarin");
}

TEST(Identity, EndsAtTheFirstDotOfTheFileName) {
  EXPECT_EQ(identityOf(R"(D:\pos\my.app.exe)", '\\'), "my");
}

TEST(Identity, IgnoresDotsInFolders) {
  EXPECT_EQ(identityOf(R"(C:\a.b\shop.exe)", '\\'), "shop");
  EXPECT_EQ(identityOf(R"(C:\a.b\shop)", '\\'), "shop");
}

TEST(Identity, IsTheWholeNameWhereThereIsNoDot) {
  EXPECT_EQ(identityOf(R"(C:\tools\shop)", '\\'), "shop");
}

TEST(Identity, IsCutOutOfANameWithoutFolder) {
  EXPECT_EQ(identityOf("shop.exe", '\\'), "shop");
  EXPECT_EQ(identityOf("shop", '\\'), "shop");
}

TEST(Identity, KnowsOnlyTheSeparatorOfItsSystem) {
  EXPECT_EQ(identityOf("C:/tools/shop.exe", '\\'), "C:/tools/shop");
  EXPECT_EQ(identityOf(R"(/opt/a\b)", '/'), R"(a\b)");
}

TEST(Identity, IsEmptyWhereThereIsNoName) {
  EXPECT_EQ(identityOf("", '\\'), "");
  EXPECT_EQ(identityOf(R"(C:\tools\)", '\\'), "");
  EXPECT_EQ(identityOf(R"(C:\tools\.hidden)", '\\'), "");
}

TEST(Identity, KeepsBytesOfEveryCodePage) {
  EXPECT_EQ(identityOf("C:\\\xC4\xD6\\\xB5\xEA\xC6\xCC.exe", '\\'), "\xB5\xEA\xC6\xCC");
}

using ClientIdentity = ServiceTest;

TEST_F(ClientIdentity, IsTheNameOfTheHostProgram) {
  EXPECT_EQ(client.getClientName(), "service_test");
}

}  // namespace
}  // namespace tolvex
