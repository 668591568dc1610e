// Which requests the API takes, and what it says about the others.
#include "api_fixture.h"
#include "control/route.h"

namespace tolvex::sim {
namespace {

using ApiTest = ApiFixture;

TEST_F(ApiTest, ListsItsPaths) {
  const auto paths = json("GET", "/api").at("paths");
  EXPECT_EQ(paths.size(), allRoutes().size());
  EXPECT_EQ(paths.at(0),
            nlohmann::json({{"method", "GET"}, {"path", "/api"}, {"what", "these paths"}}));
  EXPECT_EQ(paths.at(3).at("path"), "/api/state");
  EXPECT_EQ(paths.at(3).at("method"), "PATCH");
}

TEST_F(ApiTest, HandsOutItsDescription) {
  EXPECT_EQ(call("GET", "/api/openapi.json"), "200 {\"openapi\":\"3.1.0\"}");
}

TEST_F(ApiTest, APathThatThereIsNotIsNotFound) {
  const std::string remedy = " | GET /api lists the paths that there are.";
  EXPECT_EQ(refusal("GET", "/api/scales"), "404 there is no path \"/api/scales\"" + remedy);
  EXPECT_EQ(refusal("GET", "/api/"), "404 there is no path \"/api/\"" + remedy);
  EXPECT_EQ(refusal("GET", "/api/printers//tear"),
            "404 there is no path \"/api/printers//tear\"" + remedy);
  EXPECT_EQ(refusal("GET", "/api/jobs/1/paper.png"),
            "404 there is no path \"/api/jobs/1/paper.png\"" + remedy);
  EXPECT_EQ(refusal("GET", "/api/\xff"), "404 there is no path \"/api/\xEF\xBF\xBD\"" + remedy);
  EXPECT_EQ(refusal("GET", "/" + std::string(1000, 'x')),
            "404 there is no path a text of 1003 bytes" + remedy);
}

TEST_F(ApiTest, AMethodThatAPathDoesNotHaveIsRefusedWithThoseThatItHas) {
  const HttpResponse response = api_.call("DELETE", "/api/state");
  EXPECT_EQ(response.status, 405);
  const std::vector<std::pair<std::string, std::string>> allow = {{"Allow", "GET, PATCH"}};
  EXPECT_EQ(response.headers, allow);
  EXPECT_EQ(refusal("DELETE", "/api/state"),
            "405 /api/state can not be asked with \"DELETE\" | Use GET, PATCH.");
}

TEST_F(ApiTest, ABodyHasToBeJson) {
  const std::string remedy =
      " | Send one JSON object with names and texts in double quotes, as in {\"load_kg\": 0.482}.";
  EXPECT_EQ(refusal("PATCH", "/api/scale"), "400 there is no JSON" + remedy);
  EXPECT_EQ(refusal("PATCH", "/api/scale", " \n"), "400 there is no JSON" + remedy);
  EXPECT_EQ(refusal("PATCH", "/api/scale", "{\n \"load_kg\": 1,\n 'x'}"),
            "400 this is not JSON from line 3, column 2 on" + remedy);
  EXPECT_EQ(refusal("PATCH", "/api/scale", "{\"load_kg\": 1"),
            "400 this is not JSON from line 1, column 14 on" + remedy);
  EXPECT_EQ(refusal("PATCH", "/api/scale", "{\"\xff\": 1}"),
            "400 this is not JSON from line 1, column 3 on" + remedy);
  EXPECT_EQ(refusal("PATCH", "/api/scale", "{\"load_kg\": 1e999}"),
            "400 the JSON has a number that is too large | Send numbers of less than 1e300.");
  EXPECT_EQ(refusal("PATCH", "/api/scale", "[1]"),
            "400 there is a list where a scale has to be | Send an object with any of connected, "
            "invalid, settling_s, noise_kg, unstable, load_kg.");
}

TEST_F(ApiTest, ABodyHasToSayThatItIsJson) {
  HttpRequest request;
  request.method = "PATCH";
  request.path = "/api/scale";
  request.contentType = "text/plain";
  request.body = "{\"load_kg\": 1}";
  std::string answer;
  api_.answer(request, [&](const HttpResponse& response) { answer = textOf(response); });
  EXPECT_EQ(answer,
            "415 {\"error\":{\"what\":\"the body is of the type \\\"text/plain\\\"\",\"remedy\":"
            "\"Send JSON, with the header Content-Type: application/json.\"}}");
  EXPECT_EQ(simulation_.devices.scale.load(), 0);
}

TEST_F(ApiTest, AMemberMayNotStandTwice) {
  EXPECT_EQ(refusal("PATCH", "/api/scale", "{\"load_kg\": 1, \"load_kg\": 2}"),
            "400 \"load_kg\" stands twice in one object | Leave one of them out.");
  EXPECT_EQ(refusal("PATCH", "/api/state", R"({"faults":[{},{"kind":1,"kind":2}]})"),
            "400 in /faults/1: \"kind\" stands twice in one object | Leave one of them out.");
  EXPECT_EQ(
      json("PATCH", "/api/state", R"({"scale":{"load_kg":1},"drawer":{"open":true}})").at("drawer"),
      nlohmann::json({{"open", true}, {"openings", 1}}));
}

TEST_F(ApiTest, ABodyCostsOnlySoMuch) {
  const std::string remedy = " | Send no more than 5000 values on 20 levels.";
  EXPECT_EQ(refusal("PATCH", "/api/scale", std::string(1'000'000, '[')),
            "400 the JSON is nested too deeply" + remedy);
  std::string list = "[1";
  for (int i = 0; i < 100'000; ++i) list += ",1";
  EXPECT_EQ(refusal("PATCH", "/api/scale", list + "]"),
            "400 the JSON has too many values" + remedy);
  std::string object = "{\"x\":1";
  for (int i = 0; i < 100'000; ++i) object += ",\"" + std::to_string(i) + "\":1";
  EXPECT_EQ(refusal("PATCH", "/api/scale", object + "}"),
            "400 the JSON has too many values" + remedy);
}

TEST_F(ApiTest, WhatTakesNoBodyRefusesOne) {
  EXPECT_EQ(call("POST", "/api/printers/Ticket/tear", "{}").substr(0, 3), "200");
  EXPECT_EQ(refusal("POST", "/api/printers/Ticket/tear", "{\"x\":1}"),
            "400 POST /api/printers/{name}/tear takes no body | Leave it out.");
}

TEST_F(ApiTest, ParametersAreChecked) {
  EXPECT_EQ(refusal("GET", "/api/jobs?limt=3"),
            "400 \"limt\" is no parameter of GET /api/jobs | Its parameters are printer, after, "
            "limit.");
  EXPECT_EQ(refusal("GET", "/api/state?x=1"),
            "400 \"x\" is no parameter of GET /api/state | It has none.");
  EXPECT_EQ(refusal("GET", "/api/jobs?limit=many"),
            "400 limit is \"many\", but it has to be a whole number from 1 to 500 | Send a whole "
            "number from 1 to 500, as in ?limit=10.");
  EXPECT_EQ(refusal("GET", "/api/jobs?limit=1.5"),
            "400 limit is 1.5, but it has to be a whole number from 1 to 500 | Send a whole "
            "number from 1 to 500, as in ?limit=10.");
  EXPECT_EQ(refusal("GET", "/api/traffic?port=both"),
            "400 port is \"both\", but it has to be one of weighing, printing | Send one of "
            "weighing, printing, as in ?port=printing.");
}

TEST_F(ApiTest, AParameterStandsInTheQueryOnce) {
  EXPECT_EQ(refusal("GET", "/api/jobs?limit=1&limit=2"),
            "400 \"limit\" stands more than once in the query | Send each parameter once.");
  EXPECT_EQ(refusal("GET", "/api/jobs?limit=1&after=0&limit=1").substr(0, 3), "400");
}

TEST_F(ApiTest, TheLiveChannelIsNoOrdinaryPath) {
  EXPECT_EQ(refusal("GET", "/api/live"),
            "426 this is the live channel | Open it with a WebSocket.");
}

}  // namespace
}  // namespace tolvex::sim
