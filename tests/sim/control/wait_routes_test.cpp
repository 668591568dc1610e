// Waiting over the API.
#include <map>
#include <memory>

#include "api_fixture.h"

namespace tolvex::sim {
namespace {

class WaitRoutesTest : public ApiFixture {
 protected:
  /// Asks, and keeps what comes: "" until then. The client leaves when `left` says so.
  std::shared_ptr<std::string> ask(const std::map<std::string, std::string>& query,
                                   std::function<bool()> left = {}) {
    HttpRequest request;
    request.method = "GET";
    request.path = "/api/wait";
    request.query = query;
    request.clientLeft = std::move(left);
    const auto answer = std::make_shared<std::string>();
    api_.answer(request, [answer](const HttpResponse& response) { *answer += textOf(response); });
    return answer;
  }

  /// "job 3", "exchange 5", or the status of a refusal.
  static std::string happened(const std::string& answer) {
    if (answer.empty() || answer.substr(0, 3) != "200") return answer.substr(0, 3);
    const auto body = nlohmann::json::parse(answer.substr(4));
    const std::string what = body.contains("job") ? "job" : "exchange";
    return what + " " + body.at(what).at("number").dump();
  }

  /// What a client gets that waits again and again from a number on, until nothing is there:
  /// "job 2, job 1, ".
  std::string allAfter(const std::string& event, std::string after) {
    std::string all;
    for (int i = 0; i < 100; ++i) {
      const std::string answer = *ask({{"event", event}, {"after", after}, {"timeout_s", "0"}});
      if (answer.empty()) break;
      all += happened(answer) + ", ";
      after = nlohmann::json::parse(answer.substr(4)).at("next").dump();
    }
    return all;
  }
};

TEST_F(WaitRoutesTest, TheNextFinishedJobIsAnswered) {
  print(ticket(), "before");
  const auto answer = ask({{"event", "job"}});
  ticket().printText("x", 24);
  EXPECT_EQ(*answer, "");
  ticket().finishJob();
  EXPECT_EQ(happened(*answer), "job 2");
  EXPECT_EQ(*answer, "200 {\"job\":" + call("GET", "/api/jobs/2").substr(4) + ",\"next\":2}");
  ticket().cut(100);
  EXPECT_EQ(happened(*answer), "job 2");
}

TEST_F(WaitRoutesTest, AJobThatIsBeingPrintedCounts) {
  ticket().printText("x", 24);
  print(label(), "y");
  const auto answer = ask({{"event", "job"}});
  EXPECT_EQ(*answer, "");
  ticket().finishJob();
  EXPECT_EQ(happened(*answer), "job 1");
}

TEST_F(WaitRoutesTest, WhatHasHappenedAlreadyIsAnsweredAtOnce) {
  for (int i = 0; i < 3; ++i) print(ticket(), "x");
  EXPECT_EQ(happened(*ask({{"event", "job"}, {"after", "1"}})), "job 2");
  EXPECT_EQ(happened(*ask({{"event", "job"}, {"after", "3"}})), "");
  exchange("getweight");
  exchange("settare");
  EXPECT_EQ(happened(*ask({{"event", "request"}, {"after", "0"}})), "exchange 1");
  EXPECT_EQ(happened(*ask({{"event", "request"}, {"after", "0"}, {"command", "settare"}})),
            "exchange 2");
}

TEST_F(WaitRoutesTest, NothingIsMissedOfJobsThatAreFinishedInAnotherOrder) {
  label().printText("x", 24);
  print(ticket(), "y");
  EXPECT_EQ(allAfter("job", "0"), "job 2, ");
  const auto answer = ask({{"event", "job"}, {"after", "1"}});
  EXPECT_EQ(*answer, "");
  label().finishJob();
  EXPECT_EQ(happened(*answer), "job 1");
  EXPECT_EQ(allAfter("job", "0"), "job 2, job 1, ");
  EXPECT_EQ(allAfter("job", "1"), "job 1, ");
  ticket().cut(100);
  EXPECT_EQ(allAfter("job", "2"), "");
}

TEST_F(WaitRoutesTest, NothingIsMissedOfRequestsThatAreAnsweredInAnotherOrder) {
  const std::uint64_t late = beginExchange("getweight");
  exchange("setzero");
  EXPECT_EQ(allAfter("request", "0"), "exchange 2, ");
  const auto answer = ask({{"event", "request"}, {"after", "1"}});
  const auto next = ask({{"event", "request"}});
  EXPECT_EQ(*answer + *next, "");
  simulation_.traffic.complete(late, Outcome::Answered, std::chrono::microseconds(7));
  EXPECT_EQ(happened(*answer), "exchange 1");
  EXPECT_EQ(happened(*next), "exchange 1");
  EXPECT_EQ(allAfter("request", "0"), "exchange 2, exchange 1, ");
}

TEST_F(WaitRoutesTest, WhatIsForgottenIsPassedOver) {
  print(ticket(), "x");
  exchange("getweight");
  json("DELETE", "/api/jobs");
  json("DELETE", "/api/traffic");
  EXPECT_EQ(allAfter("job", "0"), "");
  EXPECT_EQ(allAfter("request", "0"), "");
  for (std::size_t i = 0; i < 3 * JobLog::kMaxJobs; ++i) print(ticket(), "x");
  EXPECT_EQ(happened(*ask({{"event", "job"}, {"after", "0"}})), "job 1002");
  EXPECT_EQ(allAfter("job", "1500"), "job 1501, ");
}

TEST_F(WaitRoutesTest, NumbersBeginAgainAfterAReset) {
  print(ticket(), "x");
  print(label(), "x");
  label().printText("x", 24);
  exchange("getweight");
  json("POST", "/api/reset");
  EXPECT_EQ(allAfter("job", "0"), "");
  EXPECT_EQ(allAfter("request", "0"), "");
  print(label(), "x");
  exchange("getweight");
  EXPECT_EQ(allAfter("job", "0"), "job 1, ");
  EXPECT_EQ(allAfter("request", "0"), "exchange 1, ");
}

TEST_F(WaitRoutesTest, OnlyTheJobsOfAPrinterCountIfThatIsAskedFor) {
  const auto answer = ask({{"event", "job"}, {"printer", "Label"}});
  print(ticket(), "x");
  EXPECT_EQ(*answer, "");
  print(label(), "y");
  EXPECT_EQ(happened(*answer), "job 2");
  EXPECT_EQ(happened(*ask({{"event", "job"}, {"printer", "Bon"}})), "404");
}

TEST_F(WaitRoutesTest, ARequestCountsWhenItIsComplete) {
  exchange("getweight");
  const auto answer = ask({{"event", "request"}, {"command", "getweight"}, {"port", "weighing"}});
  exchange("getweight", Half::Printing);
  exchange("setzero");
  const std::uint64_t number = beginExchange("getweight");
  EXPECT_EQ(*answer, "");
  simulation_.traffic.complete(number, Outcome::Lost, std::chrono::microseconds(7));
  EXPECT_EQ(happened(*answer), "exchange 4");
}

TEST_F(WaitRoutesTest, TimeRunsOut) {
  const auto answer = ask({{"event", "job"}, {"timeout_s", "2.5"}});
  const auto patient = ask({{"event", "job"}});
  pass(Milliseconds(2400));
  EXPECT_EQ(*answer, "");
  pass(Milliseconds(200));
  EXPECT_EQ(*answer,
            R"(408 {"error":{"what":"it has not happened in time","remedy":"Ask again, or wait )"
            R"(longer: timeout_s=600."},"next":0})");
  pass(Milliseconds(27000));
  EXPECT_EQ(*patient, "");
  pass(Milliseconds(500));
  EXPECT_EQ(happened(*patient), "408");
  print(ticket(), "x");
  EXPECT_EQ(happened(*patient), "408");
  pass(Milliseconds(200));
  EXPECT_EQ(timers_.size(), 0U);
}

TEST_F(WaitRoutesTest, OneTimerServesAll) {
  for (int i = 0; i < 1000; ++i) {
    const auto answer = ask({{"event", "job"}, {"timeout_s", "600"}});
    print(ticket(), "x");
    EXPECT_EQ(answer->substr(0, 3), "200");
  }
  EXPECT_EQ(timers_.size(), 1U);
}

TEST_F(WaitRoutesTest, OnlySoManyWait) {
  std::vector<std::shared_ptr<std::string>> answers;
  for (std::size_t i = 0; i < WaitingRoom::kMost; ++i) answers.push_back(ask({{"event", "job"}}));
  EXPECT_EQ(*ask({{"event", "job"}}),
            R"(503 {"error":{"what":"64 clients are waiting already","remedy":"Let fewer clients )"
            R"(wait at once."}})");
  print(ticket(), "x");
  for (const auto& answer : answers) EXPECT_EQ(happened(*answer), "job 1");
}

TEST_F(WaitRoutesTest, ThoseWhoLeaveMakeRoom) {
  for (std::size_t i = 0; i < WaitingRoom::kMost; ++i) ask({{"event", "job"}}, [] { return true; });
  pass(Milliseconds(150));
  EXPECT_EQ(happened(*ask({{"event", "job"}})), "");
}

TEST_F(WaitRoutesTest, AResetEndsTheWaiting) {
  const auto answer = ask({{"event", "job"}, {"after", "0"}});
  json("POST", "/api/reset");
  print(ticket(), "x");
  EXPECT_EQ(*answer, "");
  pass(Milliseconds(150));
  EXPECT_EQ(happened(*answer), "409");
}

TEST_F(WaitRoutesTest, ItHasToBeSaidWhatToWaitFor) {
  EXPECT_EQ(refusal("GET", "/api/wait"),
            "400 it is not said what to wait for | Say it with ?event=job or ?event=request.");
  EXPECT_EQ(refusal("GET", "/api/wait?event=weight").substr(0, 3), "400");
  EXPECT_EQ(refusal("GET", "/api/wait?event=job&command=getweight"),
            "400 command means nothing for event=job | Leave it out.");
  EXPECT_EQ(refusal("GET", "/api/wait?event=request&printer=Ticket"),
            "400 printer means nothing for event=request | Leave it out.");
  EXPECT_EQ(refusal("GET", "/api/wait?event=job&timeout_s=600.5").substr(0, 24),
            "400 timeout_s is 600.5, ");
}

TEST_F(WaitRoutesTest, WhoIsNoClientDoesNotWait) {
  EXPECT_EQ(refusal("GET", "/api/wait?event=job"),
            "408 it has not happened yet | Wait for it elsewhere.");
  print(ticket(), "x");
  pass(Milliseconds(150));
  EXPECT_EQ(timers_.size(), 0U);
}

}  // namespace
}  // namespace tolvex::sim
