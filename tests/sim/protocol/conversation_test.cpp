#include "protocol/conversation.h"

#include "service_fixture.h"

namespace tolvex::sim {
namespace {

class ConversationTest : public ServiceFixture {
 protected:
  /// All replies to what was received so far, one behind the other.
  std::string replies() {
    std::string all;
    while (const auto exchange = conversation_.next(now_)) {
      all += exchange->reply;
      ended_ = exchange->last;
    }
    return all;
  }

  Conversation conversation_{service_, Half::Printing};
  bool ended_ = false;
};

TEST_F(ConversationTest, AnswersRequestsInOrder) {
  conversation_.receive(R"({"cmd":"getloglevel","module":"print"}{"cmd":"brew"}{"cmd":)");
  EXPECT_EQ(replies(), R"({"result":"0","level":"5"}{"result":"2002"})");
  conversation_.receive(R"("setOverloadAlarm","enable":"1"})");
  EXPECT_EQ(replies(), R"({"result":"0"})");
  EXPECT_FALSE(ended_);
}

TEST_F(ConversationTest, ShowsEachRequestWithItsReply) {
  conversation_.receive(R"( {"cmd":"brew"})");
  const auto exchange = conversation_.next(now_);
  ASSERT_TRUE(exchange);
  EXPECT_EQ(exchange->request, R"({"cmd":"brew"})");
  EXPECT_EQ(exchange->reply, R"({"result":"2002"})");
  EXPECT_FALSE(exchange->last);
}

TEST_F(ConversationTest, AnswersARunOfGarbageOnceAndGoesOn) {
  conversation_.receive("GET / HTTP/1.1\r\n\r\n");
  EXPECT_EQ(replies(), R"({"result":"7"})");
  conversation_.receive("more");
  EXPECT_EQ(replies(), "");
  conversation_.receive(R"({"cmd":"brew"})");
  EXPECT_EQ(replies(), R"({"result":"2002"})");
  EXPECT_FALSE(ended_);
}

TEST_F(ConversationTest, AnswersABrokenObjectAndGoesOn) {
  conversation_.receive(R"({"cmd" "brew"}{"cmd":"brew"})");
  EXPECT_EQ(replies(), R"({"result":"7"}{"result":"2002"})");
  EXPECT_FALSE(ended_);
}

TEST_F(ConversationTest, EndsWithAnOversizedObject) {
  conversation_.receive(R"({"cmd":"brew"}{"text":")" +
                        std::string(JsonSplitter::kMaxObjectBytes, 'x'));
  EXPECT_EQ(replies(), R"({"result":"2002"}{"result":"7"})");
  EXPECT_TRUE(ended_);
  conversation_.receive(R"("}{"cmd":"brew"})");
  EXPECT_EQ(replies(), "");
}

}  // namespace
}  // namespace tolvex::sim
