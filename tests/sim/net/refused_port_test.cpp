// Ports that are closed for a while.
#include <optional>

#include "server_fixture.h"
#include "test_client.h"
#include "wire_samples.h"

namespace tolvex::sim {
namespace {

constexpr char kList[] = R"({"cmd":"getPrinterList"})";
constexpr char kListReply[] = R"({"result":"0","PrinterList":"Label,Ticket,Third"})";

class RefusedPort : public ServerFixture {
 protected:
  void refuse(std::optional<Half> half, bool drops = true) {
    FaultRule rule = defaultRule(FaultKind::Refuse);
    rule.half = half;
    rule.dropsConnections = drops;
    onServer([&] { return faults_.add(rule); });
  }

  void mend() {
    onServer([this] { faults_.clear(); });
  }

  std::size_t connections(Half half) {
    return onServer([this, half] { return traffic_.connections(half); });
  }
};

TEST_F(RefusedPort, IsRefusedByTheSystem) {
  refuse(Half::Weighing);
  EXPECT_TRUE(TestClient::isRefused(weighingPort_));
  EXPECT_EQ(TestClient(printingPort_).ask(kList), kListReply);
}

TEST_F(RefusedPort, IsOpenAgainOnTheSamePortWhenTheFaultIsSwitchedOff) {
  for (int i = 0; i < 3; ++i) {
    refuse({});
    EXPECT_TRUE(TestClient::isRefused(weighingPort_));
    EXPECT_TRUE(TestClient::isRefused(printingPort_));
    mend();
    EXPECT_EQ(TestClient(weighingPort_).ask(kCheck), kOk);
    EXPECT_EQ(TestClient(printingPort_).ask(kList), kListReply);
  }
  EXPECT_EQ(onServer([this] { return troubles_; }), 0);
}

TEST_F(RefusedPort, LosesItsConnectionsAndTheOtherPortKeepsIts) {
  TestClient weighing(weighingPort_);
  TestClient printing(printingPort_);
  EXPECT_EQ(weighing.ask(kCheck), kOk);
  EXPECT_EQ(printing.ask(kList), kListReply);
  EXPECT_EQ(connections(Half::Weighing), 1U);
  refuse(Half::Weighing);
  EXPECT_TRUE(weighing.endsWith(TestClient::End::Reset));
  EXPECT_EQ(printing.ask(kList), kListReply);
  awaitNoClients(Half::Weighing);
  EXPECT_EQ(connections(Half::Printing), 1U);
}

TEST_F(RefusedPort, MayKeepItsConnections) {
  TestClient before(weighingPort_);
  EXPECT_EQ(before.ask(kCheck), kOk);
  refuse(Half::Weighing, false);
  EXPECT_TRUE(TestClient::isRefused(weighingPort_));
  EXPECT_EQ(before.ask(kCheck), kOk);
  mend();
  EXPECT_EQ(TestClient(weighingPort_).ask(kCheck), kOk);
  EXPECT_EQ(before.ask(kCheck), kOk);
  refuse(Half::Weighing, false);
  refuse(Half::Weighing, true);
  EXPECT_TRUE(before.endsWith(TestClient::End::Reset));
}

TEST_F(RefusedPort, LosesWhatIsUnderWay) {
  FaultRule delay = defaultRule(FaultKind::Delay);
  delay.time = FaultRule::kMaxTime;
  onServer([&] { return faults_.add(delay); });
  TestClient client(weighingPort_);
  client.send(kCheck);
  await([this] { return !traffic_.entries().empty(); });
  refuse(Half::Weighing);
  EXPECT_TRUE(client.endsWith(TestClient::End::Reset));
  awaitNoClients(Half::Weighing);
  EXPECT_EQ(onServer([this] { return traffic_.entries().front().outcome; }), Outcome::Lost);
}

TEST_F(RefusedPort, StaysClosedWhileOneOfSeveralFaultsSaysSo) {
  refuse({});
  refuse(Half::Weighing);
  onServer([this] { return faults_.remove(1); });
  EXPECT_TRUE(TestClient::isRefused(weighingPort_));
  EXPECT_EQ(TestClient(printingPort_).ask(kList), kListReply);
}

TEST_F(RefusedPort, IsOpenedAsSoonAsAnotherProgramNoLongerHasIt) {
  refuse(Half::Weighing);
  FaultBoard noFaults;
  Exchanger ofAnother(answerer_, noFaults, traffic_, devices_.printers.jobs());
  std::optional<Server> another(std::in_place, ofAnother, ServerEvents());
  another->listen(Half::Weighing, "127.0.0.1", weighingPort_);
  mend();
  auto trouble = firstTrouble_.get_future();
  ASSERT_EQ(trouble.wait_for(std::chrono::seconds(30)), std::future_status::ready);
  EXPECT_EQ(trouble.get(),
            "cannot open the weighing port again: another program has this port; trying again");
  another.reset();
  await([this] { return !TestClient::isRefused(weighingPort_); });
  EXPECT_EQ(TestClient(weighingPort_).ask(kCheck), kOk);
}

TEST_F(RefusedPort, StaysClosedIfTheFaultComesBackWhileAnotherProgramHasIt) {
  refuse(Half::Weighing);
  FaultBoard noFaults;
  Exchanger ofAnother(answerer_, noFaults, traffic_, devices_.printers.jobs());
  std::optional<Server> another(std::in_place, ofAnother, ServerEvents());
  another->listen(Half::Weighing, "127.0.0.1", weighingPort_);
  mend();
  auto trouble = firstTrouble_.get_future();
  ASSERT_EQ(trouble.wait_for(std::chrono::seconds(30)), std::future_status::ready);
  refuse(Half::Weighing);
  another.reset();
  EXPECT_TRUE(TestClient::isRefused(weighingPort_));
  mend();
  EXPECT_EQ(TestClient(weighingPort_).ask(kCheck), kOk);
}

}  // namespace
}  // namespace tolvex::sim
