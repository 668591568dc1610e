// Faults of the wire over the API.
#include "api_fixture.h"

namespace tolvex::sim {
namespace {

class FaultRoutesTest : public ApiFixture {
 protected:
  std::string add(const std::string& rule) { return call("POST", "/api/faults", rule); }
  std::string refuse(const std::string& rule) { return refusal("POST", "/api/faults", rule); }
  const FaultRule& rule() const { return simulation_.faults.rules().back(); }
};

TEST_F(FaultRoutesTest, EachKindHasItsDefaults) {
  EXPECT_EQ(
      add(R"({"kind":"delay","delay_ms":1500})"),
      R"(201 {"id":1,"kind":"delay","port":"both","command":"*","times":null,"delay_ms":1500,)"
      R"("first_piece":null,"bytes":null,"code":null,"carried_out":true,"drop":null,)"
      R"("acted":0,"remaining":null})");
  EXPECT_EQ(add(R"({"kind":"two-pieces"})"),
            R"(201 {"id":2,"kind":"two-pieces","port":"both","command":"*","times":null,)"
            R"("delay_ms":200,"first_piece":null,"bytes":null,"code":null,"carried_out":true,)"
            R"("drop":null,"acted":0,"remaining":null})");
  EXPECT_EQ(add(R"({"kind":"result","code":2006})"),
            R"(201 {"id":3,"kind":"result","port":"both","command":"*","times":null,)"
            R"("delay_ms":null,"first_piece":null,"bytes":null,"code":2006,"carried_out":false,)"
            R"("drop":null,"acted":0,"remaining":null})");
  EXPECT_EQ(add(R"({"kind":"refuse","port":"printing"})"),
            R"(201 {"id":4,"kind":"refuse","port":"printing","command":null,"times":null,)"
            R"("delay_ms":null,"first_piece":null,"bytes":null,"code":null,"carried_out":null,)"
            R"("drop":true,"acted":0,"remaining":null})");
  EXPECT_EQ(add(R"({"kind":"garbage"})"),
            R"(201 {"id":5,"kind":"garbage","port":"both","command":"*","times":null,)"
            R"("delay_ms":null,"first_piece":null,"bytes":64,"code":null,"carried_out":true,)"
            R"("drop":null,"acted":0,"remaining":null})");
  for (const std::string kind : {"no-answer", "close", "reset", "oversized", "wrong-type"}) {
    EXPECT_EQ(add("{\"kind\":\"" + kind + "\"}").substr(0, 3), "201") << kind;
  }
  EXPECT_EQ(json("GET", "/api/faults").at("faults").size(), 10U);
}

TEST_F(FaultRoutesTest, AllMembersAreTakenOver) {
  add(R"({"kind":"two-pieces","port":"weighing","command":"getweight","times":3,"delay_ms":0,)"
      R"("first_piece":12,"carried_out":false})");
  EXPECT_EQ(rule().kind, FaultKind::TwoPieces);
  EXPECT_EQ(rule().half, Half::Weighing);
  EXPECT_EQ(rule().command, "getweight");
  EXPECT_EQ(rule().remaining, 3U);
  EXPECT_EQ(rule().time, Milliseconds(0));
  EXPECT_EQ(rule().firstPiece, 12U);
  EXPECT_FALSE(rule().carriedOut);
  add(R"({"kind":"oversized","bytes":16777216,"times":null,"port":"both","command":"*"})");
  EXPECT_EQ(rule().bytes, 16777216U);
  EXPECT_EQ(rule().remaining, std::nullopt);
  EXPECT_EQ(rule().half, std::nullopt);
  EXPECT_EQ(rule().command, "");
  add(R"({"kind":"result","code":-2147483648,"carried_out":true})");
  EXPECT_EQ(rule().code, -2147483648LL);
  EXPECT_TRUE(rule().carriedOut);
  add(R"({"kind":"refuse","drop":false})");
  EXPECT_FALSE(rule().dropsConnections);
}

TEST_F(FaultRoutesTest, CountDown) {
  add(R"({"kind":"close","times":2,"command":"getweight"})");
  EXPECT_EQ(simulation_.faults.take(Half::Weighing, "getweight").size(), 1U);
  const auto now = json("GET", "/api/faults").at("faults").at(0);
  EXPECT_EQ(now.at("times"), 2);
  EXPECT_EQ(now.at("acted"), 1);
  EXPECT_EQ(now.at("remaining"), 1);
  simulation_.faults.take(Half::Weighing, "getweight");
  EXPECT_EQ(call("GET", "/api/faults"), R"(200 {"faults":[]})");
}

TEST_F(FaultRoutesTest, WrongRulesAreRefused) {
  const std::string anyRule =
      R"( | Send a rule, as in {"kind": "delay", "delay_ms": 1500, "port": "weighing"}.)";
  EXPECT_EQ(refuse("[]"), "400 there is a list where a rule has to be" + anyRule);
  EXPECT_EQ(refuse("{}"), "400 the rule has no kind" + anyRule);
  EXPECT_EQ(
      refuse(R"({"kind":"slow"})").substr(0, 88),
      "400 kind is \"slow\", but it has to be one of delay, no-answer, close, reset, two-pieces, ");
  EXPECT_EQ(refuse(R"({"kind":"delay"})"),
            "400 a rule of the kind delay needs delay_ms | Send it as in {\"kind\": \"delay\", "
            "\"delay_ms\": 1500}.");
  EXPECT_EQ(refuse(R"({"kind":"result"})"),
            "400 a rule of the kind result needs code | Send it as in {\"kind\": \"result\", "
            "\"code\": 2006}.");
  EXPECT_EQ(
      refuse(R"({"kind":"close","bytes":3})"),
      "400 \"bytes\" is no member that can be set of a rule of the kind close | Send an object "
      "with any of kind, port, command, times, carried_out.");
  EXPECT_EQ(refuse(R"({"kind":"refuse","times":3})"),
            "400 \"times\" is no member that can be set of a rule of the kind refuse | Send an "
            "object with any of kind, port, drop.");
  EXPECT_EQ(simulation_.faults.rules().size(), 0U);
}

TEST_F(FaultRoutesTest, TheCommandIsOneOfThePort) {
  EXPECT_EQ(refuse(R"({"kind":"close","port":"weighing","command":"printtext"})"),
            "400 \"printtext\" is no command of the weighing port | Send the port that has it: "
            "{\"port\": \"printing\"}.");
  EXPECT_EQ(refuse(R"({"kind":"close","command":"getweight","port":"printing"})"),
            "400 \"getweight\" is no command of the printing port | Send the port that has it: "
            "{\"port\": \"weighing\"}.");
  const auto status = [&](const std::string& members) {
    return add("{\"kind\":\"close\"," + members + "}").substr(0, 3);
  };
  EXPECT_EQ(status(R"("port":"printing","command":"printtext")"), "201");
  EXPECT_EQ(status(R"("port":"weighing","command":"getloglevel")"), "201");
  EXPECT_EQ(status(R"("port":"printing","command":"getloglevel")"), "201");
  EXPECT_EQ(status(R"("port":"weighing","command":"nobodyknows")"), "201");
  EXPECT_EQ(status(R"("port":"weighing","command":"*")"), "201");
  EXPECT_EQ(status(R"("command":"printtext")"), "201");
}

TEST_F(FaultRoutesTest, MembersHaveBounds) {
  const auto status = [&](const std::string& members) {
    return add("{" + members + "}").substr(0, 3);
  };
  EXPECT_EQ(status(R"("kind":"delay","delay_ms":600000)"), "201");
  EXPECT_EQ(status(R"("kind":"delay","delay_ms":600001)"), "400");
  EXPECT_EQ(status(R"("kind":"delay","delay_ms":-1)"), "400");
  EXPECT_EQ(status(R"("kind":"delay","delay_ms":null)"), "400");
  EXPECT_EQ(status(R"("kind":"close","times":1)"), "201");
  EXPECT_EQ(status(R"("kind":"close","times":0)"), "400");
  EXPECT_EQ(status(R"("kind":"close","times":1000000000)"), "201");
  EXPECT_EQ(status(R"("kind":"close","times":1000000001)"), "400");
  EXPECT_EQ(status(R"("kind":"close","command":"")"), "400");
  EXPECT_EQ(status(R"("kind":"close","command":7)"), "400");
  EXPECT_EQ(status(R"("kind":"close","command":")" + std::string(64, 'x') + "\""), "201");
  EXPECT_EQ(status(R"("kind":"close","command":")" + std::string(65, 'x') + "\""), "400");
  EXPECT_EQ(status(R"("kind":"close","port":"web")"), "400");
  EXPECT_EQ(status(R"("kind":"close","carried_out":1)"), "400");
  EXPECT_EQ(status(R"("kind":"two-pieces","first_piece":0)"), "400");
  EXPECT_EQ(status(R"("kind":"two-pieces","first_piece":1)"), "201");
  EXPECT_EQ(status(R"("kind":"two-pieces","first_piece":16777217)"), "400");
  EXPECT_EQ(status(R"("kind":"garbage","bytes":0)"), "400");
  EXPECT_EQ(status(R"("kind":"garbage","bytes":16777217)"), "400");
  EXPECT_EQ(status(R"("kind":"result","code":2147483648)"), "400");
  EXPECT_EQ(status(R"("kind":"result","code":1.5)"), "400");
  EXPECT_EQ(status(R"("kind":"refuse","drop":null)"), "400");
}

TEST_F(FaultRoutesTest, AreSwitchedOffOneByOneAndAllAtOnce) {
  add(R"({"kind":"close"})");
  add(R"({"kind":"reset"})");
  const auto left = json("DELETE", "/api/faults/1").at("faults");
  EXPECT_EQ(left.size(), 1U);
  EXPECT_EQ(left.at(0).at("id"), 2);
  EXPECT_EQ(refusal("DELETE", "/api/faults/1"),
            "404 there is no fault \"1\" | GET /api/faults lists those that there are.");
  EXPECT_EQ(refusal("DELETE", "/api/faults/x"),
            "404 there is no fault \"x\" | Send a number of digits only, at most 15.");
  EXPECT_EQ(call("DELETE", "/api/faults"), R"(200 {"faults":[]})");
}

TEST_F(FaultRoutesTest, ThereAreOnlySoMany) {
  for (std::size_t i = 0; i < FaultBoard::kMaxRules; ++i) add(R"({"kind":"close"})");
  EXPECT_EQ(refuse(R"({"kind":"close"})"),
            "400 there are 100 rules already | Switch off those that are no longer needed: DELETE "
            "/api/faults.");
}

}  // namespace
}  // namespace tolvex::sim
