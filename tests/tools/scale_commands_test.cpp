#include "tools/support/tool_test.h"

namespace tolvex::test {
namespace {

class ScaleCommands : public DeviceTest {};

TEST_F(ScaleCommands, TakeAndClearTheTare) {
  simulator.type("load 0.12");
  EXPECT_EQ(tolvexctl({"tare"}).out, "tare 0.120\n");
  EXPECT_EQ(json({"weigh"}, 0)["net"], 0.0);
  EXPECT_EQ(json({"clear-tare"}, 0), (ordered_json{{"ok", true}, {"tare", "0.000"}}));
  EXPECT_EQ(json({"weigh"}, 0)["net"], 0.12);
}

TEST_F(ScaleCommands, ZeroTheScale) {
  simulator.type("load 0.01");
  EXPECT_EQ(tolvexctl({"zero"}).out, "The scale is zeroed.\n");
  EXPECT_EQ(json({"weigh"}, 0)["at_zero"], true);
}

TEST_F(ScaleCommands, TellWhyTheScaleRefuses) {
  simulator.type("unplug");
  for (const char* word : {"zero", "tare", "clear-tare"}) {
    EXPECT_EQ(json({word}, 4)["error"]["name"], "LC_NOT_CONNECTED") << word;
  }
}

TEST_F(ScaleCommands, ShowWhatScaleServiceAndLibrarySay) {
  const ordered_json value = json({"info"}, 0);
  EXPECT_EQ(value["scale"]["unit"], "kg");
  EXPECT_EQ(value["scale"]["ranges"][2], (ordered_json{{"max", 15}, {"resolution", 0.005}}));
  EXPECT_EQ(value["scale"]["max_tare"], 6.0);
  EXPECT_EQ(value["library"]["version"], TOLVEX_VERSION);
  const std::string text = tolvexctl({"info"}).out;
  EXPECT_EQ(text.substr(0, text.find('\n')),
            "scale     to 3 kg in 0.001 kg; 6 kg in 0.002 kg; 15 kg in 0.005 kg; from 0.02 kg");
}

}  // namespace
}  // namespace tolvex::test
