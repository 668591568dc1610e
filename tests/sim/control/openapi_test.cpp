// The description of the API says what the API does.
#include <algorithm>
#include <map>
#include <set>

#include "api_fixture.h"
#include "base/embedded_file.h"
#include "control/route.h"
#include "schema_check.h"

namespace tolvex::sim {
namespace {

using Value = nlohmann::json;

Value description() { return Value::parse(findEmbeddedFile("control/openapi.json")->bytes); }

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return text;
}

class OpenApiTest : public ApiFixture {
 protected:
  // Something of everything, so that all examples mean something that there is.
  OpenApiTest() {
    simulation_.ports = {"127.0.0.1", 53264, 53265, "127.0.0.1", 53280};
    print(ticket(), "x");
    exchange("getweight");
    exchange("printtext", Half::Printing, 1);
    beginExchange("nonsense", Half::Printing);
    api_.call("POST", "/api/faults", R"({"kind":"refuse"})");
    api_.call("POST", "/api/faults", R"({"kind":"two-pieces","times":3})");
  }

  const Value& operation(const Route& route) const {
    return document_.at("paths").at(route.path).at(lowerCase(route.method));
  }

  /// The path with its examples for names in braces and, if `withQuery`, for parameters.
  std::string exampleOf(const Route& route, bool withQuery) const {
    std::string path = route.path;
    std::string query;
    for (const Value& parameter : operation(route).value("parameters", Value::array())) {
      const std::string name = parameter.at("name");
      const Value& example = parameter.at("example");
      const std::string text = example.is_string() ? example.get<std::string>() : example.dump();
      const std::string braces = "{" + name + "}";
      if (parameter.at("in") == "path") {
        path.replace(path.find(braces), braces.size(), text);
      } else if (withQuery || parameter.value("required", false)) {
        query += (query.empty() ? "?" : "&") + name + "=" + text;
      }
    }
    return path + query;
  }

  /// What is wrong with an answer to the route; empty if it is as described.
  std::string problemOf(const Route& route, const HttpResponse& response) const {
    const Value& responses = operation(route).at("responses");
    const std::string status = std::to_string(response.status);
    if (!responses.contains(status)) return status + " is not described: " + response.body;
    const Value& content = resolved(document_, responses.at(status)).at("content");
    if (!content.contains(response.contentType)) return response.contentType + " is not described";
    const Value& type = content.at(response.contentType);
    if (!type.contains("schema")) return "";
    return schemaProblem(document_, type.at("schema"), Value::parse(response.body));
  }

  /// The bodies that the description gives as examples; one empty one if it has none.
  std::vector<std::string> bodiesOf(const Route& route) const {
    std::vector<std::string> bodies;
    if (operation(route).contains("requestBody")) {
      const Value& type = operation(route).at("requestBody").at("content").at("application/json");
      for (const auto& [name, example] : type.at("examples").items()) {
        const std::string problem =
            schemaProblem(document_, type.at("schema"), example.at("value"));
        EXPECT_EQ(problem, "") << route.path << " " << name;
        bodies.push_back(example.at("value").dump());
      }
    }
    if (route.body != Body::Required) bodies.emplace_back();
    return bodies;
  }

  const Value document_ = description();
};

TEST_F(OpenApiTest, DescribesThePathsThatThereAre) {
  std::set<std::string> described;
  for (const auto& [path, operations] : document_.at("paths").items()) {
    for (const auto& [method, operation] : operations.items())
      described.insert(method + " " + path);
  }
  std::set<std::string> served;
  for (const Route& route : allRoutes()) served.insert(lowerCase(route.method) + " " + route.path);
  EXPECT_EQ(described, served);
}

TEST_F(OpenApiTest, OperationsHaveNamesOfTheirOwn) {
  std::set<std::string> names;
  for (const Route& route : allRoutes()) names.insert(operation(route).at("operationId"));
  EXPECT_EQ(names.size(), allRoutes().size());
}

// "after integer 0 10": name, type and bounds.
std::string describe(const Field& field) {
  std::string text = field.name;
  if (field.type == FieldType::Whole) text += " integer";
  if (field.type == FieldType::Number) text += " number";
  if (field.type == FieldType::Text || field.type == FieldType::Choice) text += " string";
  for (const std::string& choice : field.choices) text += " \"" + choice + "\"";
  if (!field.choices.empty()) return text;
  return text + " " + Value(static_cast<std::int64_t>(field.least)).dump() + " " +
         Value(static_cast<std::int64_t>(field.most)).dump();
}

std::string describe(const Value& parameter) {
  const Value& schema = parameter.at("schema");
  std::string text =
      parameter.at("name").get<std::string>() + " " + schema.at("type").get<std::string>();
  for (const Value& choice : schema.value("enum", Value::array())) text += " " + choice.dump();
  if (schema.contains("enum")) return text;
  const bool isText = schema.at("type") == "string";
  return text + " " + schema.at(isText ? "minLength" : "minimum").dump() + " " +
         schema.at(isText ? "maxLength" : "maximum").dump();
}

TEST_F(OpenApiTest, DescribesTheParametersThatThereAre) {
  for (const Route& route : allRoutes()) {
    std::set<std::string> described;
    for (const Value& parameter : operation(route).value("parameters", Value::array())) {
      if (parameter.at("in") == "query") described.insert(describe(parameter));
    }
    std::set<std::string> taken;
    for (const Field& field : route.query) taken.insert(describe(field));
    EXPECT_EQ(described, taken) << route.method << " " << route.path;
  }
}

TEST_F(OpenApiTest, DescribesTheBodiesThatThereAre) {
  for (const Route& route : allRoutes()) {
    const Value& described = operation(route);
    EXPECT_EQ(described.contains("requestBody"), route.body != Body::None) << route.path;
    if (!described.contains("requestBody")) continue;
    EXPECT_EQ(described.at("requestBody").at("required"), route.body == Body::Required);
  }
}

// Each example on a simulation of its own would be slow; those that take away come last.
TEST_F(OpenApiTest, ExamplesAreAnsweredAsDescribed) {
  const auto takesAway = [](const Route& route) {
    return route.method == "DELETE" || route.path == "/api/reset";
  };
  const auto isTestedAlone = [](const Route& route) {
    return route.path == "/api/wait" || route.path == "/api/faults/{id}";
  };
  for (const bool last : {false, true}) {
    for (const Route& route : allRoutes()) {
      if (takesAway(route) != last || isTestedAlone(route)) continue;
      for (const std::string& body : bodiesOf(route)) {
        for (const bool withQuery : {false, true}) {
          if (withQuery && route.query.empty()) continue;
          const std::string path = exampleOf(route, withQuery);
          const HttpResponse response = api_.call(route.method, path, body);
          EXPECT_EQ(problemOf(route, response), "") << route.method << " " << path << " " << body;
          const bool isFine = response.status < 300 || route.path == "/api/live";
          EXPECT_TRUE(isFine) << route.method << " " << path << " " << body << response.body;
        }
      }
    }
  }
}

TEST_F(OpenApiTest, SwitchingAFaultOffIsAnsweredAsDescribed) {
  const Route& route = faultRoutes().back();
  const HttpResponse response = api_.call(route.method, exampleOf(route, false));
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(problemOf(route, response), "");
}

TEST_F(OpenApiTest, WaitingIsAnsweredAsDescribed) {
  const Route& route = waitRoutes().front();
  for (const char* query : {"?event=job&after=0", "?event=request&after=0&command=getweight",
                            "?event=job", "?event=nothing", "?event=job&printer=Bon"}) {
    const HttpResponse response = api_.call("GET", std::string("/api/wait") + query);
    EXPECT_EQ(problemOf(route, response), "") << query;
  }
}

TEST_F(OpenApiTest, RefusalsAreAnsweredAsDescribed) {
  const std::map<std::string, std::string> paths = {{"name", "Bon"}, {"n", "99"}, {"id", "99"}};
  for (const Route& route : allRoutes()) {
    std::string path = route.path;
    for (const auto& [name, value] : paths) {
      const std::string braces = "{" + name + "}";
      if (path.find(braces) != std::string::npos)
        path.replace(path.find(braces), braces.size(), value);
    }
    if (route.body != Body::None) {
      const HttpResponse response = api_.call(route.method, path, "{\"nonsense\":1}");
      EXPECT_GE(response.status, 400) << path;
      EXPECT_EQ(problemOf(route, response), "") << route.method << " " << path;
    }
    if (path == route.path) continue;
    const HttpResponse response =
        api_.call(route.method, path, route.body == Body::None ? "" : "{}");
    EXPECT_EQ(response.status, 404) << path;
    EXPECT_EQ(problemOf(route, response), "") << route.method << " " << path;
  }
  api_.call("PATCH", "/api/scale", R"({"load_kg":1})");
  for (const Route& route : deviceRoutes()) {
    if (route.path != "/api/scale/zero") continue;
    const HttpResponse response = api_.call(route.method, route.path);
    EXPECT_EQ(response.status, 409);
    EXPECT_EQ(problemOf(route, response), "");
  }
}

// Every value at the ends of its range, and just beyond them.
TEST_F(OpenApiTest, BoundsOfTheScaleAreTheDescribedOnes) {
  const Value& schema = document_.at("components").at("schemas").at("ScalePatch");
  for (const auto& [name, member] : schema.at("properties").items()) {
    if (!member.contains("minimum")) continue;
    const auto status = [&, &name = name](double value) {
      return api_.call("PATCH", "/api/scale", Value{{name, value}}.dump()).status;
    };
    EXPECT_EQ(status(member.at("minimum")), 200) << name;
    EXPECT_EQ(status(member.at("maximum")), 200) << name;
    EXPECT_EQ(status(member.at("minimum").get<double>() - 0.001), 400) << name;
    EXPECT_EQ(status(member.at("maximum").get<double>() + 0.001), 400) << name;
  }
}

TEST_F(OpenApiTest, TheCheckFindsWhatIsWrong) {
  const Value schema = document_.at("components").at("schemas").at("Drawer");
  EXPECT_EQ(schemaProblem(document_, schema, {{"open", true}, {"openings", 1}}), "");
  EXPECT_EQ(schemaProblem(document_, schema, {{"open", 1}, {"openings", 1}}), "/open is 1");
  EXPECT_EQ(schemaProblem(document_, schema, {{"open", true}}), " has no \"openings\"");
  EXPECT_EQ(schemaProblem(document_, schema, {{"open", true}, {"openings", -1}}),
            "/openings is -1");
  EXPECT_EQ(schemaProblem(document_, schema, {{"open", true}, {"openings", 1}, {"x", 1}}),
            "/x is not described");
  EXPECT_EQ(schemaProblem(document_, {{"pattern", "x"}}, "x"), " has a schema with pattern");
}

}  // namespace
}  // namespace tolvex::sim
