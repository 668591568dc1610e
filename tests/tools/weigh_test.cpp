#include "tools/support/tool_test.h"

namespace tolvex::test {
namespace {

class Weigh : public DeviceTest {};

TEST_F(Weigh, TellsTheWeightInTheUnitOfTheScale) {
  simulator.type("load 0.482");
  const Finished finished = tolvexctl({"weigh"});
  EXPECT_EQ(finished.exitCode, 0);
  EXPECT_EQ(finished.out, "net 0.482 kg, tare 0 kg, stable\n");
  EXPECT_EQ(finished.err, "");
}

TEST_F(Weigh, TellsTheWeightAsJson) {
  simulator.type("load 0.482");
  simulator.type("tare 0.1");
  const ordered_json expected = {{"ok", true},         {"net", 0.382},   {"tare", 0.1},
                                 {"unit", "kg"},       {"stable", true}, {"at_zero", false},
                                 {"tare_active", true}};
  EXPECT_EQ(json({"weigh"}, 0), expected);
}

TEST_F(Weigh, SaysInWordsWhyThereIsNoWeight) {
  simulator.type("load 100");
  const Finished overLoad = tolvexctl({"weigh"});
  EXPECT_EQ(overLoad.exitCode, 4);
  EXPECT_EQ(overLoad.out, "");
  EXPECT_EQ(
      overLoad.err,
      "tolvexctl: cannot weigh: 1004 OVER_LOAD (Over Load): There is more on the scale than it "
      "can weigh.\nfix: Take the load off at once and weigh it in parts.\n");
  simulator.type("load -100");
  EXPECT_EQ(json({"weigh"}, 4)["error"]["name"], "UNDER_LOAD");
  simulator.type("empty");
  simulator.type("invalid on");
  EXPECT_EQ(json({"weigh"}, 4)["error"]["name"], "INVALID_WEIGHT");
  simulator.type("invalid off");
  simulator.type("unplug");
  EXPECT_EQ(json({"weigh"}, 4)["error"]["name"], "LC_NOT_CONNECTED");
}

TEST_F(Weigh, TakesAReplyThatCanNotBeReadForNoRefusalOfTheScale) {
  simulator.type("wire oversized command=getbaseinfo");
  const ordered_json value = json({"weigh"}, 3);
  EXPECT_EQ(value["error"]["message"],
            "cannot read the scale's base information: the library can not read the service's "
            "reply");
  EXPECT_EQ(value["error"]["code"], 5);
  EXPECT_EQ(value["error"]["remedy"],
            "Run tolvexctl doctor, which shows what is wrong with the replies.");
}

TEST_F(Weigh, SaysWhereToLookUpANumberThatIsTheServicesOwn) {
  simulator.type("wire result code=99999");
  const ordered_json value = json({"weigh"}, 4);
  EXPECT_EQ(value["error"]["code"], 99999);
  EXPECT_EQ(value["error"]["remedy"],
            "The number is none of the library's, but the service's own: read its log.");
}

TEST_F(Weigh, GivesEachOfManyReadingsALine) {
  simulator.type("load 0.25");
  const Finished finished = tolvexctl({"weigh", "--count", "2", "--interval", "1ms", "--json"});
  const std::string line =
      R"({"ok":true,"net":0.25,"tare":0.0,"unit":"kg","stable":true,"at_zero":false,"tare_active":false})"
      "\n";
  EXPECT_EQ(finished.exitCode, 0);
  EXPECT_EQ(finished.out, line + line);
  EXPECT_EQ(finished.err, "");
}

// The first line that is another one than that.
std::optional<std::string> lineAfter(Child& child, const std::string& seen) {
  std::optional<std::string> line;
  do {
    line = child.readLine();
  } while (line == seen);
  return line;
}

TEST_F(Weigh, WatchesOnWhateverTheScaleSays) {
  const std::string empty = "net 0 kg, tare 0 kg, stable, at zero";
  Child child(command(withHost({"weigh", "--watch", "--interval", "10ms"})), with({}));
  EXPECT_EQ(child.readLine(), empty);
  simulator.type("load 100");
  EXPECT_EQ(lineAfter(child, empty), "1004 OVER_LOAD (Over Load)");
  simulator.type("load 1.5");
  EXPECT_EQ(lineAfter(child, "1004 OVER_LOAD (Over Load)"), "net 1.5 kg, tare 0 kg, stable");
  simulator.type("unplug");
  EXPECT_EQ(lineAfter(child, "net 1.5 kg, tare 0 kg, stable"),
            "1007 LC_NOT_CONNECTED (LC not connected)");
  simulator.type("plug");
  EXPECT_EQ(lineAfter(child, "1007 LC_NOT_CONNECTED (LC not connected)"),
            "net 1.5 kg, tare 0 kg, stable");
  child.kill();
}

TEST_F(Weigh, EndsWatchingWithTheService) {
  simulator.type("wire oversized command=getweight");
  const Finished finished = tolvexctl({"weigh", "--count", "3", "--interval", "10ms"});
  EXPECT_EQ(finished.exitCode, 3);
  EXPECT_EQ(finished.out, "");
}

TEST_F(Weigh, WaitsForAStableWeight) {
  simulator.type("load 0.5");
  simulator.type("unstable on");
  EXPECT_EQ(tolvexctl({"weigh"}).out.find(", not stable") != std::string::npos, true);
  const Finished late =
      tolvexctl({"weigh", "--stable", "--timeout", "300ms", "--interval", "50ms"});
  EXPECT_EQ(late.exitCode, 4);
  EXPECT_EQ(late.err.substr(0, late.err.find(':', 11)),
            "tolvexctl: no stable weight within 300 ms");
  Child child(command(withHost({"weigh", "--stable", "--timeout", "50s", "--interval", "10ms"})),
              with({}));
  simulator.type("unstable off");
  const Finished finished = child.finish();
  EXPECT_EQ(finished.exitCode, 0) << finished.err;
  EXPECT_EQ(finished.out, "net 0.5 kg, tare 0 kg, stable\n");
}

TEST_F(Weigh, ReadsInHighResolution) {
  simulator.type("load 0.4823");
  EXPECT_EQ(json({"weigh"}, 0)["net"], 0.482);
  EXPECT_EQ(json({"weigh", "--high-res"}, 0)["net"], 0.4823);
}

}  // namespace
}  // namespace tolvex::test
