#include "protocol/request.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tolvex::sim {
namespace {

TEST(Request, HoldsTheTextsOfItsMembers) {
  const auto request = Request::parse(R"({"cmd":"setpretare","tareValue":"0.120","note":"a\"b"})");
  ASSERT_TRUE(request);
  EXPECT_EQ(request->text("cmd"), "setpretare");
  EXPECT_EQ(request->text("tareValue"), "0.120");
  EXPECT_EQ(request->text("note"), "a\"b");
}

TEST(Request, MembersOfOtherTypesCountAsMissing) {
  const auto request =
      Request::parse(R"({"a":1,"b":true,"c":null,"d":["x"],"e":{"f":"x"},"g":"x"})");
  ASSERT_TRUE(request);
  for (const char* name : {"a", "b", "c", "d", "e", "f", "h", ""}) {
    EXPECT_EQ(request->find(name), nullptr) << name;
  }
  ASSERT_NE(request->find("g"), nullptr);
  EXPECT_EQ(*request->find("g"), "x");
}

TEST(Request, AskingForAMissingTextThrows) {
  const auto request = Request::parse("{}");
  ASSERT_TRUE(request);
  EXPECT_THROW(request->text("cmd"), std::out_of_range);
}

TEST(Request, OfARepeatedMemberTheLastOneCounts) {
  const auto request = Request::parse(R"({"cmd":"a","cmd":"b"})");
  ASSERT_TRUE(request);
  EXPECT_EQ(request->text("cmd"), "b");
}

TEST(Request, RefusesWhatIsNoObject) {
  for (const char* json : {"", "{", "{]}", "{cmd}", R"({"cmd":"a",})", R"({"cmd":"a"} x)", "[]",
                           R"("cmd")", "1", "{\"cmd\":\"\xFF\"}", "{\"cmd\":\"a\nb\"}"}) {
    EXPECT_FALSE(Request::parse(json)) << json;
  }
}

TEST(Request, SurvivesDeepNesting) {
  std::string nested;
  for (int i = 0; i < 150'000; ++i) nested += R"({"a":)";
  EXPECT_FALSE(Request::parse(nested));
  nested += "1" + std::string(150'000, '}');
  EXPECT_TRUE(Request::parse(nested));
}

}  // namespace
}  // namespace tolvex::sim
