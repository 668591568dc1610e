#include "net/http_target.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

// "AUTHORITY|PATH|NAME=VALUE|...", or "none".
std::string parsed(std::string_view target) {
  const auto result = parseTarget(target);
  if (!result) return "none";
  std::string text = result->authority + "|" + result->path;
  for (const auto& [name, value] : result->query) text.append("|").append(name + "=" + value);
  if (result->repeated) text += "|twice " + *result->repeated;
  return text;
}

TEST(HttpTarget, IsTakenApart) {
  EXPECT_EQ(parsed("/"), "|/");
  EXPECT_EQ(parsed("/api/jobs?after=3&limit=20"), "|/api/jobs|after=3|limit=20");
  EXPECT_EQ(parsed("/x?"), "|/x");
  EXPECT_EQ(parsed("/x?&&a&b=&=c&"), "|/x|=c|a=|b=");
  EXPECT_EQ(parsed("/x?a=1=2?3"), "|/x|a=1=2?3");
}

TEST(HttpTarget, KnowsWhatStandsTwiceInTheQuery) {
  EXPECT_EQ(parsed("/x?a=1&b=2&%61=1"), "|/x|a=1|b=2|twice a");
  EXPECT_EQ(parsed("/x?a=1&b=2&b=3&a=4"), "|/x|a=1|b=2|twice b");
  EXPECT_EQ(parsed("/x?=1&=2"), "|/x|=1|twice ");
}

TEST(HttpTarget, IsDecoded) {
  EXPECT_EQ(parsed("/a%20b+c%2Fd%2fe"), "|/a b+c/d/e");
  EXPECT_EQ(parsed("/x?na%6De=a+b%2Bc%26%3d"), "|/x|name=a b+c&=");
  EXPECT_EQ(parsed("/K%C3%A4se"), "|/Käse");
  EXPECT_EQ(parsed("/%EF%BF%BD"), "|/\xEF\xBF\xBD");
}

TEST(HttpTarget, MayBeAnAddressInFull) {
  EXPECT_EQ(parsed("http://127.0.0.1:53280/api?a=1"), "127.0.0.1:53280|/api|a=1");
  EXPECT_EQ(parsed("HTTP://localhost:1"), "localhost:1|/");
  EXPECT_EQ(parsed("http://localhost:1?a=1"), "localhost:1|/|a=1");
}

TEST(HttpTarget, IsNoneWhenItIsNoPathOrCanNotBeDecoded) {
  for (const char* target : {"",
                             "*",
                             "api",
                             "?a=1",
                             "https://localhost/",
                             "http://",
                             "http:///x",
                             "localhost:53280",
                             "/%",
                             "/%4",
                             "/%4g",
                             "/%g4",
                             "/x?a=%",
                             "/x?%zz=1",
                             "/%00",
                             "/%0D%0A",
                             "/%7F",
                             "/%C2%80",
                             "/x?a=%0A",
                             "/%FF",
                             "/%C3",
                             "/%ED%A0%80",
                             "/%C0%AF"}) {
    EXPECT_EQ(parsed(target), "none") << target;
  }
}

}  // namespace
}  // namespace tolvex::sim
