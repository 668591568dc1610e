#include "net/http_head.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

HttpHead headOf(std::vector<std::pair<std::string, std::string>> fields) {
  HttpHead head;
  head.fields = std::move(fields);
  return head;
}

TEST(HttpHead, FindsFieldsInAnyCase) {
  const HttpHead head = headOf({{"Host", "a"}, {"X", "b"}, {"hOST", "c"}});
  EXPECT_EQ(head.all("host"), (std::vector<std::string_view>{"a", "c"}));
  EXPECT_EQ(head.first("HOST"), "a");
  EXPECT_EQ(head.first("Hos"), "");
}

TEST(HttpHead, FindsTheWordsOfLists) {
  const HttpHead head = headOf({{"Connection", "keep-alive,\tUpgrade ,x"}, {"connection", "y"}});
  for (const char* word : {"Keep-Alive", "upgrade", "X", "y"}) {
    EXPECT_TRUE(head.lists("Connection", word)) << word;
  }
  EXPECT_FALSE(head.lists("Connection", "up"));
  EXPECT_FALSE(head.lists("Upgrade", "upgrade"));
}

TEST(HttpHead, TellsTheTypeOfTheBodyWithoutParameters) {
  EXPECT_EQ(contentTypeOf(headOf({{"content-type", " Application/JSON ; charset=x"}})),
            "application/json");
  EXPECT_EQ(contentTypeOf({}), "");
}

TEST(HttpHead, TellsWhoWantsAWebSocket) {
  EXPECT_TRUE(
      wantsWebSocket(headOf({{"Connection", "keep-alive, Upgrade"}, {"Upgrade", "WebSocket"}})));
  EXPECT_FALSE(wantsWebSocket(headOf({{"Upgrade", "websocket"}})));
  EXPECT_FALSE(wantsWebSocket(headOf({{"Connection", "upgrade"}, {"Upgrade", "h2c"}})));
}

TEST(HttpHead, ComparesCaseOfAsciiOnly) {
  EXPECT_TRUE(equalIgnoringCase("aBz", "AbZ"));
  EXPECT_FALSE(equalIgnoringCase("ab", "abc"));
  EXPECT_FALSE(equalIgnoringCase("@[", "`{"));
  EXPECT_EQ(lowerCase("AZaz@[Ä"), "azaz@[Ä");
}

}  // namespace
}  // namespace tolvex::sim
