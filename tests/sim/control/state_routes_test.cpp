// The whole state over the API.
#include "api_fixture.h"
#include "base/version.h"

namespace tolvex::sim {
namespace {

using StateRoutesTest = ApiFixture;

TEST_F(StateRoutesTest, ShowEverything) {
  simulation_.ports = {"127.0.0.1", 53264, 53265, "127.0.0.1", 53280};
  print(ticket(), "x");
  simulation_.traffic.connected(Half::Printing, "127.0.0.1:40112");
  exchange("getweight");
  const std::uint64_t wrong = beginExchange("nonsense");
  auto state = json("GET", "/api/state");
  EXPECT_EQ(state.at("scale"), json("GET", "/api/scale"));
  EXPECT_EQ(state.at("printers"), json("GET", "/api/printers").at("printers"));
  EXPECT_EQ(state.at("drawer"), json("GET", "/api/drawer"));
  for (const char* part : {"scale", "printers", "drawer"}) state.erase(part);
  EXPECT_EQ(wrong, 2U);
  EXPECT_EQ(state, nlohmann::json({{"version", version()},
                                   {"started_at", "2026-11-21T11:47:01.123Z"},
                                   {"epoch", 0},
                                   {"ports",
                                    {{"address", "127.0.0.1"},
                                     {"weighing", 53264},
                                     {"printing", 53265},
                                     {"web_address", "127.0.0.1"},
                                     {"web", 53280}}},
                                   {"faults", nlohmann::json::array()},
                                   {"jobs", {{"oldest", 1}, {"newest", 1}, {"count", 1}}},
                                   {"traffic",
                                    {{"oldest", 1},
                                     {"newest", 2},
                                     {"connections", {{"weighing", 0}, {"printing", 1}}},
                                     {"last_client", "127.0.0.1:40112"},
                                     {"last_request_at", "2026-11-21T11:47:01.123Z"},
                                     {"last_error", nullptr}}}}));
}

TEST_F(StateRoutesTest, APatchMayReachEverywhere) {
  const auto state = json("PATCH", "/api/state",
                          R"({"scale":{"load_kg":1},"printers":{"Ticket":{"faults":{"hot":true}},)"
                          R"("Label":{"stock":{"kind":"mark"}}},"drawer":{"open":true},)"
                          R"("faults":[{"kind":"close"},{"kind":"delay","delay_ms":5}]})");
  EXPECT_EQ(state.at("scale").at("load_kg"), 1);
  EXPECT_EQ(state.at("printers").at(0).at("stock").at("kind"), "mark");
  EXPECT_EQ(state.at("printers").at(1).at("result"), 2007);
  EXPECT_EQ(state.at("drawer").at("open"), true);
  EXPECT_EQ(state.at("faults").size(), 2U);
  EXPECT_EQ(json("PATCH", "/api/state", R"({"faults":[]})").at("faults").size(), 0U);
}

TEST_F(StateRoutesTest, APatchIsCheckedAsAWholeAndSaysWhereItIsWrong) {
  const std::string before = call("GET", "/api/state");
  const auto refused = [&](const std::string& member) {
    return refusal("PATCH", "/api/state",
                   R"({"scale":{"load_kg":1},"drawer":{"open":true},)" + member + "}");
  };
  EXPECT_EQ(refused(R"("printers":{"Ticket":{"paper":{"left_mm":-1}}})"),
            "400 in /printers/Ticket/paper: left_mm is -1, but it has to be a number from 0 to "
            "1000000, or null | Send a number from 0 to 1000000, or null, as in {\"left_mm\": "
            "50000}.");
  EXPECT_EQ(refused(R"("printers":{"Bon":{}})"),
            "400 in /printers: \"Bon\" is no member that can be set of the list of printers | Send "
            "an object with any of Label, Ticket, Third.");
  EXPECT_EQ(refused(R"("faults":[{"kind":"close"},{"kind":"close","times":0}])").substr(0, 27),
            "400 in /faults/1: times is ");
  EXPECT_EQ(refused(R"("faults":{})").substr(0, 48),
            "400 there is an object where a list of rules has");
  EXPECT_EQ(refused(R"("jobs":{})"),
            "400 \"jobs\" is no member that can be set of a state | Send an object with any of "
            "scale, printers, drawer, faults.");
  EXPECT_EQ(refused(R"("printers":[])").substr(0, 22), "400 there is a list wh");
  EXPECT_EQ(call("GET", "/api/state"), before);
}

TEST_F(StateRoutesTest, ARefusalPointsAtWhatIsWrong) {
  const HttpResponse response =
      api_.call("PATCH", "/api/state", R"({"faults":[{"kind":"close","times":0}]})");
  EXPECT_EQ(nlohmann::json::parse(response.body).at("error").at("place"), "/faults/0/times");
  const auto body = nlohmann::json::parse(api_.call("PATCH", "/api/state", "[]").body);
  EXPECT_FALSE(body.at("error").contains("place"));
}

TEST_F(StateRoutesTest, ThereAreOnlySoManyRulesInAPatch) {
  std::string rules = R"({"kind":"close"})";
  for (std::size_t i = 0; i < FaultBoard::kMaxRules; ++i) rules += R"(,{"kind":"close"})";
  EXPECT_EQ(refusal("PATCH", "/api/state", "{\"faults\":[" + rules + "]}"),
            "400 there are 101 rules | Send 100 at most.");
}

TEST_F(StateRoutesTest, AResetGoesBackToTheStart) {
  auto fresh = json("GET", "/api/state");
  json("PATCH", "/api/state", R"({"scale":{"load_kg":1},"faults":[{"kind":"close"}]})");
  print(ticket(), "x");
  exchange("getweight");
  const auto state = json("POST", "/api/reset");
  fresh["epoch"] = 1;
  EXPECT_EQ(state, fresh);
  print(ticket(), "y");
  EXPECT_EQ(json("GET", "/api/jobs").at("jobs").size(), 1U);
  EXPECT_EQ(exchange("getweight"), 1U);
}

TEST_F(StateRoutesTest, AResetMayComeWithAPatchThatIsCheckedBefore) {
  json("PATCH", "/api/scale", R"({"load_kg":1})");
  EXPECT_EQ(refusal("POST", "/api/reset", R"({"scale":{"load_kg":2000}})").substr(0, 15),
            "400 in /scale: ");
  EXPECT_EQ(simulation_.epoch, 0U);
  EXPECT_EQ(json("GET", "/api/scale").at("load_kg"), 1);
  // Margins that fit only on the paper as it is at the start.
  json("PATCH", "/api/printers/Ticket", R"({"settings":{"paper-width":128}})");
  const auto state =
      json("POST", "/api/reset", R"({"printers":{"Ticket":{"settings":{"left-margin":200}}}})");
  EXPECT_EQ(state.at("printers").at(1).at("settings").at("left-margin"), 200);
  EXPECT_EQ(state.at("scale").at("load_kg"), 0);
  EXPECT_EQ(state.at("epoch"), 1);
}

TEST_F(StateRoutesTest, AResetThatDoesNotFitTheStartLosesNothing) {
  initial_ = [](Simulation& simulation) {
    simulation.devices.printers.findName("Ticket")->set(Setting::PaperWidth, 128);
  };
  print(ticket(), "x");
  const std::string before = call("GET", "/api/state");
  EXPECT_EQ(
      refusal("POST", "/api/reset", R"({"printers":{"Ticket":{"settings":{"left-margin":200}}}})")
          .substr(0, 24),
      "400 in /printers/Ticket/");
  EXPECT_EQ(call("GET", "/api/state"), before);
}

}  // namespace
}  // namespace tolvex::sim
