#include "exchange/faulty_reply.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace tolvex::sim {
namespace {

TEST(FaultyReplyTest, TheResultBecomesANumberWhereItStands) {
  EXPECT_EQ(withNumberAsResult(R"({"result":"1005","net":"0.482"})"),
            R"({"result":1005,"net":"0.482"})");
  EXPECT_EQ(withNumberAsResult(R"({"result":"-7"})"), R"({"result":-7})");
}

TEST(FaultyReplyTest, AResultThatIsNoNumberBecomesZero) {
  EXPECT_EQ(withNumberAsResult(R"({"result":"x"})"), R"({"result":0})");
  EXPECT_EQ(withNumberAsResult(R"({"result":"99999999999"})"), R"({"result":0})");
}

TEST(FaultyReplyTest, WhatHasNoTextAsResultStaysAsItIs) {
  for (const char* reply : {"junk", "", "[]", "{}", R"({"result":3})", R"({"net":"1"})"}) {
    EXPECT_EQ(withNumberAsResult(reply), reply);
  }
}

TEST(FaultyReplyTest, PaddingMakesAReplyExactlyAsLongAsAskedFor) {
  EXPECT_EQ(padded(R"({"result":"0"})", 30), R"({"result":"0","padding":"xxx"})");
  const std::string reply = padded(R"({"result":"0","net":"0.482"})", 4096);
  EXPECT_EQ(reply.size(), 4096U);
  const auto object = nlohmann::json::parse(reply);
  EXPECT_EQ(object.at("result"), "0");
  EXPECT_EQ(object.at("net"), "0.482");
  EXPECT_EQ(object.size(), 3U);
}

TEST(FaultyReplyTest, PaddingThatHasNoRoomIsEmpty) {
  EXPECT_EQ(padded(R"({"result":"0"})", 5), R"({"result":"0","padding":""})");
  EXPECT_EQ(padded("{}", 17), R"({"padding":"xxx"})");
}

TEST(FaultyReplyTest, GarbageIsAsLongAsAskedForAndNeverJson) {
  for (const std::size_t bytes : {1U, 2U, 11U, 12U, 64U, 5000U}) {
    const std::string text = garbage(bytes);
    EXPECT_EQ(text.size(), bytes);
    EXPECT_FALSE(nlohmann::json::accept(text)) << bytes;
  }
  EXPECT_EQ(garbage(64), garbage(64));
}

}  // namespace
}  // namespace tolvex::sim
