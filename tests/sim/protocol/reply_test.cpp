#include "protocol/reply.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

TEST(Reply, IsACompactObjectWithTheResultFirst) {
  EXPECT_EQ(Reply(ResultCode::Ok).json(), R"({"result":"0"})");
  EXPECT_EQ(Reply(ResultCode::Ok).add("tare", "0.120").add("b", "").add("a", "x").json(),
            R"({"result":"0","tare":"0.120","b":"","a":"x"})");
}

TEST(Reply, EscapesWhatJsonCanNotCarry) {
  EXPECT_EQ(Reply(ResultCode::Ok).add("a", "\"\\\n\x01").json(),
            R"({"result":"0","a":"\"\\\n\u0001"})");
  EXPECT_EQ(Reply(ResultCode::Ok).add("a", "\xFFz").json(),
            "{\"result\":\"0\",\"a\":\"\xEF\xBF\xBDz\"}");
}

}  // namespace
}  // namespace tolvex::sim
