// The scale and the drawer over the API.
#include "api_fixture.h"

namespace tolvex::sim {
namespace {

class ScaleRoutesTest : public ApiFixture {
 protected:
  /// What a PATCH makes of one member of the scale.
  std::string patched(const std::string& member, const std::string& value) {
    const auto scale = json("PATCH", "/api/scale", "{\"" + member + "\":" + value + "}");
    return scale.at(member).dump();
  }

  std::string refused(const std::string& member, const std::string& value) {
    return refusal("PATCH", "/api/scale", "{\"" + member + "\":" + value + "}");
  }

  nlohmann::json reading() { return json("GET", "/api/scale").at("reading"); }
};

constexpr const char* kScale =
    R"(200 {"load_kg":0.482,"connected":true,"invalid":false,"unstable":false,"settling_s":1,)"
    R"("noise_kg":0,"overload_alarm":false,"reading":{"result":0,"text":"OK","state":"stable",)"
    R"("gross_kg":"0.482","net_kg":"0.362","tare_kg":"0.120","tare_kind":"preset","stable":true,)"
    R"("zero":false,"display":"0.362"},"unit":"kg","ranges":[{"max_kg":3,"division_kg":0.001},)"
    R"({"max_kg":6,"division_kg":0.002},{"max_kg":15,"division_kg":0.005}],"min_kg":0.02,)"
    R"("max_tare_kg":6,"max_preset_tare_kg":3})";

TEST_F(ScaleRoutesTest, ShowTheScale) {
  json("PATCH", "/api/scale", R"({"load_kg":0.482})");
  json("POST", "/api/scale/preset-tare", R"({"tare_kg":0.12})");
  pass(Milliseconds(5000));
  EXPECT_EQ(call("GET", "/api/scale"), kScale);
}

TEST_F(ScaleRoutesTest, TakeEveryMemberWithinItsBounds) {
  EXPECT_EQ(patched("load_kg", "1000"), "1000");
  EXPECT_EQ(patched("load_kg", "-1000"), "-1000");
  EXPECT_EQ(patched("load_kg", "0.0000005"), "1e-06");
  EXPECT_EQ(patched("connected", "false"), "false");
  EXPECT_EQ(patched("connected", "true"), "true");
  EXPECT_EQ(patched("invalid", "true"), "true");
  EXPECT_EQ(patched("invalid", "false"), "false");
  EXPECT_EQ(patched("unstable", "true"), "true");
  EXPECT_EQ(patched("unstable", "false"), "false");
  EXPECT_EQ(patched("settling_s", "0"), "0");
  EXPECT_EQ(patched("settling_s", "60"), "60");
  EXPECT_EQ(patched("noise_kg", "0"), "0");
  EXPECT_EQ(patched("noise_kg", "1"), "1");
}

TEST_F(ScaleRoutesTest, RefuseOtherValues) {
  const std::string load = "a number from -1000 to 1000";
  const auto message = [](const std::string& wrong, const std::string& demand,
                          const std::string& example) {
    return "400 " + wrong + ", but it has to be " + demand + " | Send " + demand + ", as in {" +
           example + "}.";
  };
  EXPECT_EQ(refused("load_kg", "1000.001"),
            message("load_kg is 1000.001", load, "\"load_kg\": 0.482"));
  EXPECT_EQ(refused("load_kg", "-1001"), message("load_kg is -1001", load, "\"load_kg\": 0.482"));
  EXPECT_EQ(refused("load_kg", "\"1\""), message("load_kg is \"1\"", load, "\"load_kg\": 0.482"));
  EXPECT_EQ(refused("load_kg", "null"), message("load_kg is null", load, "\"load_kg\": 0.482"));
  EXPECT_EQ(refused("load_kg", "[1]"), message("load_kg is a list", load, "\"load_kg\": 0.482"));
  const std::string settling = "a number from 0 to 60";
  EXPECT_EQ(refused("settling_s", "-0.1"),
            message("settling_s is -0.1", settling, "\"settling_s\": 0.5"));
  EXPECT_EQ(refused("settling_s", "60.1"),
            message("settling_s is 60.1", settling, "\"settling_s\": 0.5"));
  EXPECT_EQ(refused("noise_kg", "-0.001"),
            message("noise_kg is -0.001", "a number from 0 to 1", "\"noise_kg\": 0.001"));
  EXPECT_EQ(refused("noise_kg", "1.001"),
            message("noise_kg is 1.001", "a number from 0 to 1", "\"noise_kg\": 0.001"));
  EXPECT_EQ(refused("connected", "1"),
            message("connected is 1", "true or false", "\"connected\": true"));
  EXPECT_EQ(refused("invalid", "\"on\""),
            message("invalid is \"on\"", "true or false", "\"invalid\": false"));
  EXPECT_EQ(refused("unstable", "{}"),
            message("unstable is an object", "true or false", "\"unstable\": false"));
}

TEST_F(ScaleRoutesTest, ChangeNothingWhenAnythingIsWrong) {
  const std::string before = call("GET", "/api/scale");
  EXPECT_EQ(refusal("PATCH", "/api/scale", R"({"load_kg":1,"invalid":true,"reading":{}})"),
            "400 \"reading\" is no member that can be set of a scale | Send an object with any of "
            "connected, invalid, settling_s, noise_kg, unstable, load_kg.");
  EXPECT_EQ(refusal("PATCH", "/api/scale", R"({"connected":false,"load_kg":"1"})").substr(0, 3),
            "400");
  EXPECT_EQ(call("GET", "/api/scale"), before);
}

TEST_F(ScaleRoutesTest, APatchOfNothingChangesNothing) {
  const std::string before = call("GET", "/api/scale");
  EXPECT_EQ(call("PATCH", "/api/scale", "{}"), before);
}

TEST_F(ScaleRoutesTest, ALoadSettlesAsTheSamePatchSays) {
  const auto scale = json("PATCH", "/api/scale", R"({"load_kg":0.5,"settling_s":0})");
  EXPECT_EQ(scale.at("reading").at("state"), "stable");
  EXPECT_EQ(scale.at("reading").at("net_kg"), "0.500");
}

TEST_F(ScaleRoutesTest, ShowWhatStandsInTheWindow) {
  const auto state = [&](const std::string& patch) {
    json("PATCH", "/api/scale", patch);
    const auto now = reading();
    return now.at("state").get<std::string>() + " \"" + now.at("display").get<std::string>() + "\"";
  };
  EXPECT_EQ(state(R"({"load_kg":1})"), "moving \"0.000\"");
  EXPECT_EQ(state(R"({"settling_s":0,"load_kg":2})"), "stable \"2.000\"");
  EXPECT_EQ(state(R"({"load_kg":16})"), "over load \"------\"");
  EXPECT_EQ(state(R"({"load_kg":-1})"), "under load \"------\"");
  EXPECT_EQ(state(R"({"load_kg":1,"invalid":true})"), "invalid \"Err\"");
  EXPECT_EQ(state(R"({"connected":false})"), "disconnected \"\"");
}

TEST_F(ScaleRoutesTest, PressItsKeys) {
  json("PATCH", "/api/scale", R"({"load_kg":0.2,"settling_s":0})");
  const auto zeroed = json("POST", "/api/scale/zero").at("reading");
  EXPECT_EQ(zeroed.at("gross_kg"), "0.000");
  EXPECT_EQ(zeroed.at("zero"), true);
  json("PATCH", "/api/scale", R"({"load_kg":0.7})");
  const auto tared = json("POST", "/api/scale/tare").at("reading");
  EXPECT_EQ(tared.at("tare_kg"), "0.500");
  EXPECT_EQ(tared.at("tare_kind"), "key");
  EXPECT_EQ(tared.at("net_kg"), "0.000");
  EXPECT_EQ(json("POST", "/api/scale/clear-tare").at("reading").at("tare_kind"), "none");
  EXPECT_EQ(json("POST", "/api/scale/preset-tare", R"({"tare_kg":3})").at("reading").at("net_kg"),
            "-2.500");
}

TEST_F(ScaleRoutesTest, PassOnWhatTheScaleRefuses) {
  json("PATCH", "/api/scale", R"({"load_kg":1})");
  EXPECT_EQ(call("POST", "/api/scale/zero"),
            R"(409 {"error":{"what":"the scale refuses zero: Weight Not Stable","remedy":"Wait )"
            R"(until the weight is stable: state.scale.reading.stable."},"result":1005,)"
            R"("text":"Weight Not Stable"})");
  json("PATCH", "/api/scale", R"({"connected":false})");
  EXPECT_EQ(refusal("POST", "/api/scale/tare"),
            "409 the scale refuses the tare: " + std::string(message(ResultCode::LcNotConnected)) +
                " | Connect the scale: PATCH /api/scale {\"connected\": true}.");
  EXPECT_EQ(refusal("POST", "/api/scale/clear-tare").substr(0, 3), "409");
  json("PATCH", "/api/scale", R"({"connected":true,"invalid":true})");
  EXPECT_EQ(
      refusal("POST", "/api/scale/preset-tare", R"({"tare_kg":1})"),
      "409 the scale refuses the preset tare: " + std::string(message(ResultCode::InvalidWeight)) +
          " | Mend the scale: PATCH /api/scale {\"invalid\": false}.");
}

TEST_F(ScaleRoutesTest, RefuseAPresetTareThatIsNone) {
  const auto refusedTare = [&](const std::string& body) {
    return refusal("POST", "/api/scale/preset-tare", body);
  };
  const std::string demand =
      ", but it has to be a number from 0 to 3 | Send a number from 0 to 3, as in {\"tare_kg\": "
      "0.12}.";
  EXPECT_EQ(refusedTare(R"({"tare_kg":3.001})"), "400 tare_kg is 3.001" + demand);
  EXPECT_EQ(refusedTare(R"({"tare_kg":-1})"), "400 tare_kg is -1" + demand);
  EXPECT_EQ(refusedTare("{}"), "400 tare_kg is null" + demand);
  EXPECT_EQ(refusedTare(R"({"tare":1})"),
            "400 \"tare\" is no member that can be set of a preset tare | Send an object with any "
            "of tare_kg.");
}

TEST_F(ScaleRoutesTest, OpenAndCloseTheDrawer) {
  EXPECT_EQ(call("GET", "/api/drawer"), R"(200 {"open":false,"openings":0})");
  EXPECT_EQ(call("PATCH", "/api/drawer", R"({"open":true})"), R"(200 {"open":true,"openings":1})");
  EXPECT_EQ(call("PATCH", "/api/drawer", R"({"open":false})"),
            R"(200 {"open":false,"openings":1})");
  EXPECT_EQ(refusal("PATCH", "/api/drawer", R"({"open":"yes"})"),
            "400 open is \"yes\", but it has to be true or false | Send true or false, as in "
            "{\"open\": false}.");
}

}  // namespace
}  // namespace tolvex::sim
