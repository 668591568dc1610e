#include "recording/replay.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

using Lines = std::vector<std::string>;

const std::string kOther = Replay::kOtherRequest;

class ReplayTest : public ::testing::Test {
 protected:
  void recorded(Half half, std::string request, std::string reply, std::string instead = "") {
    const std::uint64_t number = exchanges_.size() + 1;
    exchanges_.push_back({number, std::chrono::microseconds(0), half, 1, std::move(request),
                          std::move(reply), std::move(instead), number + 1});
  }

  void begin() {
    replay_ = std::make_unique<Replay>(
        exchanges_, [this](const std::string& text) { warnings_.push_back(text); });
  }

  /// The reply, or what comes instead.
  std::string answer(Half half, std::string_view request) {
    const Answerer::Answer answer = replay_->answer(half, request, TimePoint());
    if (answer.after == After::Close) return answer.reply + "(closed)";
    if (answer.after == After::Reset) return answer.reply + "(reset)";
    return answer.reply.empty() ? "(no answer)" : answer.reply;
  }

  std::vector<RecordedExchange> exchanges_;
  std::unique_ptr<Replay> replay_;
  Lines warnings_;
};

TEST_F(ReplayTest, AnswersAsRecorded) {
  recorded(Half::Weighing, "a", "1");
  recorded(Half::Weighing, "a", "2");
  recorded(Half::Weighing, "b", std::string("\xFF\0", 2));
  begin();
  EXPECT_EQ(answer(Half::Weighing, "a"), "1");
  EXPECT_EQ(answer(Half::Weighing, "a"), "2");
  EXPECT_EQ(answer(Half::Weighing, "b"), std::string("\xFF\0", 2));
  EXPECT_EQ(warnings_, Lines());
  EXPECT_EQ(replay_->unmet(), Lines());
}

TEST_F(ReplayTest, EachPortHasItsOwnOrder) {
  recorded(Half::Weighing, "a", "1");
  recorded(Half::Printing, "p", "2");
  recorded(Half::Weighing, "b", "3");
  begin();
  EXPECT_EQ(answer(Half::Weighing, "a"), "1");
  EXPECT_EQ(answer(Half::Weighing, "b"), "3");
  EXPECT_EQ(answer(Half::Printing, "p"), "2");
  EXPECT_EQ(replay_->unmet(), Lines());
}

TEST_F(ReplayTest, TheFirstRequestThatDiffersIsShown) {
  recorded(Half::Printing, "print 5", "1");
  recorded(Half::Printing, "print 6", "2");
  recorded(Half::Printing, "cut", "3");
  begin();
  EXPECT_EQ(answer(Half::Printing, "print 7"), kOther);
  EXPECT_EQ(answer(Half::Printing, "print 8"), kOther);
  EXPECT_EQ(answer(Half::Printing, "cut"), "3");
  EXPECT_EQ(warnings_, Lines({"request 1 (printing) is not the one in line 2\n"
                              "  expected  print 5\n"
                              "  came      print 7\n"
                              "                  ^ byte 7"}));
  EXPECT_EQ(replay_->unmet(), Lines({"2 of 3 requests are not as recorded; the first: request 1 "
                                     "(printing) is not the one in line 2"}));
}

TEST_F(ReplayTest, ARequestBehindTheLastOneIsShown) {
  recorded(Half::Weighing, "a", "1");
  begin();
  EXPECT_EQ(answer(Half::Weighing, "a"), "1");
  EXPECT_EQ(answer(Half::Weighing, "a\n"), kOther);
  EXPECT_EQ(warnings_,
            Lines({"request 2 (weighing) comes after the last one that was recorded there\n"
                   "  came  a\\x0a"}));
  EXPECT_EQ(replay_->unmet(),
            Lines({"1 of 2 requests are not as recorded; the first: request 2 "
                   "(weighing) comes after the last one that was recorded there"}));
}

TEST_F(ReplayTest, RequestsThatDidNotComeAreTold) {
  recorded(Half::Weighing, "a", "1");
  recorded(Half::Printing, "b", "2");
  recorded(Half::Printing, "c", "3");
  begin();
  EXPECT_EQ(answer(Half::Weighing, "a"), "1");
  EXPECT_EQ(replay_->unmet(),
            Lines({"2 recorded requests did not come (printing); the first, in line 3: b"}));
}

TEST_F(ReplayTest, OneRequestThatDidNotComeIsTold) {
  recorded(Half::Weighing, "a", "1");
  begin();
  EXPECT_EQ(replay_->unmet(),
            Lines({"1 recorded request did not come (weighing); the first, in line 2: a"}));
}

TEST_F(ReplayTest, PicturesMayLieInOtherFolders) {
  recorded(Half::Printing,
           R"({"cmd":"printbmpfile","filename":"C:\\VARN\\Log\\prt_0","angle":"0"})", "1");
  recorded(Half::Printing, R"({"cmd":"printbmpfile","filename":"/a/prt_1"})", "2");
  recorded(Half::Printing, R"({"cmd":"printtext","filename":"/a/prt_2"})", "3");
  begin();
  EXPECT_EQ(
      answer(Half::Printing, R"({"cmd":"printbmpfile","filename":"/home/till/prt_0","angle":"0"})"),
      "1");
  EXPECT_EQ(answer(Half::Printing, R"({"cmd":"printbmpfile","filename":"/a/prt_2"})"), kOther);
  EXPECT_EQ(answer(Half::Printing, R"({"cmd":"printtext","filename":"/b/prt_2"})"), kOther);
}

TEST_F(ReplayTest, WhatCameInsteadOfAReplyComesAgain) {
  recorded(Half::Weighing, "a", "1");
  recorded(Half::Weighing, "b", "", "close");
  recorded(Half::Weighing, "c", "", "reset");
  recorded(Half::Weighing, "d", "", "no-answer");
  begin();
  EXPECT_EQ(answer(Half::Weighing, "a"), "1");
  EXPECT_EQ(answer(Half::Weighing, "b"), "(closed)");
  EXPECT_EQ(answer(Half::Weighing, "c"), "(reset)");
  EXPECT_EQ(answer(Half::Weighing, "d"), "(no answer)");
  EXPECT_EQ(replay_->unmet(), Lines());
}

TEST_F(ReplayTest, AnOtherRequestIsAnsweredWhereNoReplyWasRecorded) {
  for (const char* instead : {"close", "reset", "no-answer"}) {
    recorded(Half::Printing, "a", "", instead);
  }
  begin();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(answer(Half::Printing, "b"), kOther);
}

}  // namespace
}  // namespace tolvex::sim
