// What the tests of the command client stand on.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "service/scripted_connection.h"
#include "service/vco_client_api.h"
#include "support/log_watch.h"

namespace tolvex {

using Texts = std::vector<std::string>;

constexpr unsigned kUnreadable = 0xFFFFFFFFU;  // what the client returns for an unreadable reply

// The numbers furthest out that an application can pass.
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

// A client between two scripted connections.
class ServiceTest : public ::testing::Test {
 protected:
  // Makes the code the last error, as an earlier command.
  void leaveLastError(std::int32_t code) {
    const std::string reply = weighing.reply;
    weighing.reply = R"({"result":")" + std::to_string(code) + R"("})";
    client.setZero();
    weighing.reply = reply;
    weighing.requests.clear();
    weighing.receives.clear();
  }

  // Exactly this request went out on the connection and nothing on the other one; its reply was
  // waited for once.
  void expectSentOn(const ScriptedConnection& connection, const std::string& request,
                    unsigned timeoutMs = 40000) {
    const ScriptedConnection& other = &connection == &weighing ? printing : weighing;
    EXPECT_EQ(connection.requests, Texts{request});
    ASSERT_EQ(connection.receives.size(), 1U);
    EXPECT_EQ(connection.receives[0].capacity, 2048U);
    EXPECT_EQ(connection.receives[0].timeoutMs, timeoutMs);
    EXPECT_TRUE(other.requests.empty());
    EXPECT_TRUE(other.receives.empty());
  }

  void expectNothingSent() {
    EXPECT_TRUE(weighing.requests.empty());
    EXPECT_TRUE(printing.requests.empty());
  }

  LogWatch log;
  ScriptedConnection weighing;
  ScriptedConnection printing;
  VcoClientApi client{&weighing, &printing};
};

}  // namespace tolvex
