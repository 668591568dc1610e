// What viewers of the live channel are told.
#include "control/simulation_feed.h"

#include <map>
#include <memory>

#include "api_fixture.h"

namespace tolvex::sim {
namespace {

class SimulationFeedTest : public ApiFixture {
 protected:
  std::unique_ptr<LiveFeed> open(const std::map<std::string, std::string>& query = {}) {
    HttpRequest request;
    request.query = query;
    return api_.openFeed(request);
  }

  /// A message in short: "state 0.482", "exchanges 1 2", "jobs 1:3" (number and revision), "".
  static std::string shortOf(const std::string& message) {
    if (message.empty()) return "";
    const auto parsed = nlohmann::json::parse(message);
    std::string text = parsed.at("type").get<std::string>();
    if (text == "state") return text + " " + parsed.at("state").at("scale").at("load_kg").dump();
    for (const auto& item : parsed.at(text)) {
      text += " " + item.at("number").dump();
      if (parsed.at("type") == "jobs") text += ":" + item.at("revision").dump();
      if (item.contains("outcome") && item.at("outcome") == "pending") text += "?";
    }
    if (parsed.contains("skipped") && parsed.at("skipped") != 0) {
      text += " skipped " + parsed.at("skipped").dump();
    }
    return text;
  }

  /// All that a viewer is told now: "state 0, exchanges 1 2".
  static std::string news(LiveFeed& feed) {
    std::string text;
    for (std::string one = shortOf(feed.next()); !one.empty(); one = shortOf(feed.next())) {
      text += (text.empty() ? "" : ", ") + one;
    }
    return text;
  }

  void putOn(const std::string& load) {
    json("PATCH", "/api/scale", "{\"settling_s\":0,\"load_kg\":" + load + "}");
  }
};

TEST_F(SimulationFeedTest, TheStateComesFirstAndAfterEachChange) {
  const auto feed = open();
  EXPECT_EQ(feed->next(),
            "{\"type\":\"state\",\"state\":" + call("GET", "/api/state").substr(4) + "}");
  EXPECT_EQ(feed->next(), "");
  putOn("0.482");
  pass(Milliseconds(50));
  EXPECT_EQ(news(*feed), "state 0.482");
  pass(Milliseconds(50));
  EXPECT_EQ(news(*feed), "");
}

TEST_F(SimulationFeedTest, ChangesInQuickSuccessionComeTogether) {
  const auto feed = open();
  EXPECT_EQ(news(*feed), "state 0");
  putOn("1");
  EXPECT_EQ(news(*feed), "");
  putOn("2");
  pass(Milliseconds(25));
  EXPECT_EQ(news(*feed), "state 2");
}

TEST_F(SimulationFeedTest, AMovingWeightIsAChange) {
  const auto feed = open();
  json("PATCH", "/api/scale", R"({"load_kg":1})");
  EXPECT_EQ(news(*feed), "state 1");
  pass(Milliseconds(100));
  EXPECT_EQ(news(*feed), "state 1");
  pass(Milliseconds(5000));
  EXPECT_EQ(news(*feed), "state 1");
  pass(Milliseconds(5000));
  EXPECT_EQ(news(*feed), "");
}

TEST_F(SimulationFeedTest, ExchangesComeWhenTheyBeginAndWhenTheyAreComplete) {
  const auto feed = open();
  news(*feed);
  const std::uint64_t first = beginExchange("a");
  exchange("b");
  EXPECT_EQ(news(*feed), "exchanges 1? 2");
  simulation_.traffic.complete(first, Outcome::Answered, std::chrono::microseconds(1));
  exchange("c");
  EXPECT_EQ(news(*feed), "exchanges 1 3");
}

TEST_F(SimulationFeedTest, AnExchangeIsTheOneThatTheListingHas) {
  exchange("a");
  const auto feed = open();
  feed->next();
  EXPECT_EQ(feed->next(), R"({"type":"exchanges","epoch":0,"exchanges":[)" +
                              call("GET", "/api/traffic/1").substr(4) + R"(],"skipped":0})");
}

TEST_F(SimulationFeedTest, JobsComeWithEachRevision) {
  const auto feed = open();
  news(*feed);
  ticket().printText("x", 24);
  pass(Milliseconds(50));
  EXPECT_EQ(news(*feed), "jobs 1:1, state 0");
  ticket().printText("y", 24);
  ticket().finishJob();
  print(label(), "z");
  pass(Milliseconds(50));
  EXPECT_EQ(news(*feed), "jobs 1:3 2:5, state 0");
  ticket().cut(100);
  EXPECT_EQ(shortOf(feed->next()), "jobs 1:6");
}

TEST_F(SimulationFeedTest, WhoComesBackIsToldWhatIsNew) {
  const std::uint64_t pending = beginExchange("a");
  exchange("b");
  exchange("c");
  print(ticket(), "x");
  print(ticket(), "y");
  const auto feed = open({{"exchanges_after", "2"}, {"jobs_after", "2"}});
  EXPECT_EQ(news(*feed), "state 0, exchanges 3, jobs 2:4");
  simulation_.traffic.complete(pending, Outcome::Answered, std::chrono::microseconds(1));
  EXPECT_EQ(news(*feed), "exchanges 1");
  EXPECT_EQ(news(*open({{"exchanges_after", "x"}, {"jobs_after", "-1"}})),
            "state 0, exchanges 2 3 1, jobs 1:2 2:4");
}

TEST_F(SimulationFeedTest, AMessageHasOnlySoManyExchanges) {
  for (std::size_t i = 0; i < SimulationFeed::kMostExchanges + 5; ++i) exchange("a");
  const auto feed = open();
  feed->next();
  EXPECT_EQ(nlohmann::json::parse(feed->next()).at("exchanges").size(),
            SimulationFeed::kMostExchanges);
  EXPECT_EQ(shortOf(feed->next()), "exchanges 201 202 203 204 205");
  EXPECT_EQ(feed->next(), "");
}

TEST_F(SimulationFeedTest, AMessageHasOnlySoManyBytes) {
  for (int i = 0; i < 100; ++i) exchange(std::string(TrafficLog::kMaxTextBytes, 'x'));
  const auto feed = open();
  feed->next();
  const std::string message = feed->next();
  EXPECT_LT(message.size(), 2 * SimulationFeed::kMostBytes);
  EXPECT_EQ(nlohmann::json::parse(message).at("exchanges").size(), 63U);
  EXPECT_EQ(nlohmann::json::parse(feed->next()).at("exchanges").at(0).at("number"), 64);
}

TEST_F(SimulationFeedTest, WhoIsTooSlowLearnsHowManyAreGone) {
  const auto feed = open();
  exchange("a");
  EXPECT_EQ(news(*feed), "state 0, exchanges 1");
  for (std::size_t i = 0; i < TrafficLog::kMaxEntries + 10; ++i) exchange("b");
  const auto message = nlohmann::json::parse(feed->next());
  EXPECT_EQ(message.at("skipped"), 10);
  EXPECT_EQ(message.at("exchanges").at(0).at("number"), 12);
  EXPECT_EQ(nlohmann::json::parse(feed->next()).at("skipped"), 0);
}

TEST_F(SimulationFeedTest, AStateThatChangesAllTheTimeDoesNotHideTheRest) {
  const auto feed = open();
  std::string told;
  for (int i = 1; i <= 3; ++i) {
    putOn(std::to_string(i));
    pass(Milliseconds(50));
    if (i == 1) exchange("a");
    if (i == 1) print(ticket(), "x");
    told += shortOf(feed->next()) + ", ";
  }
  EXPECT_EQ(told, "state 1, exchanges 1, jobs 1:2, ");
}

TEST_F(SimulationFeedTest, AResetBeginsAgain) {
  exchange("a");
  print(ticket(), "x");
  const auto feed = open();
  EXPECT_EQ(news(*feed), "state 0, exchanges 1, jobs 1:2");
  json("POST", "/api/reset");
  exchange("b");
  const auto state = nlohmann::json::parse(feed->next());
  EXPECT_EQ(state.at("state").at("epoch"), 1);
  const auto exchanges = nlohmann::json::parse(feed->next());
  EXPECT_EQ(exchanges.at("epoch"), 1);
  EXPECT_EQ(exchanges.at("exchanges").size(), 1U);
  EXPECT_EQ(news(*feed), "");
}

TEST_F(SimulationFeedTest, ViewersAreToldTheSameStateAtOnce) {
  const auto first = open();
  const auto second = open();
  EXPECT_EQ(first->next(), second->next());
  putOn("1");
  pass(Milliseconds(50));
  const std::string message = first->next();
  now_ += Milliseconds(10);
  EXPECT_EQ(second->next(), message);
}

}  // namespace
}  // namespace tolvex::sim
