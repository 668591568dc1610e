#include "net/page_site.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace tolvex::sim {
namespace {

class Api : public WebSite {
 public:
  void answer(const HttpRequest& request, std::function<void(HttpResponse)> respond) override {
    respond({200, "text/plain", "API " + request.method + " " + request.path, {}});
  }
  std::unique_ptr<LiveFeed> openFeed(const HttpRequest& request) override {
    feedPath = request.path;
    return nullptr;
  }
  std::string feedPath;
};

class PageSiteTest : public ::testing::Test {
 protected:
  HttpResponse answer(const std::string& method, const std::string& path) {
    HttpRequest request;
    request.method = method;
    request.path = path;
    HttpResponse result;
    site_.answer(request, [&result](HttpResponse response) { result = std::move(response); });
    return result;
  }

  // "200 text/css; charset=utf-8: BODY"
  std::string get(const std::string& path) {
    const HttpResponse response = answer("GET", path);
    return std::to_string(response.status) + " " + response.contentType + ": " + response.body;
  }

  const std::vector<EmbeddedFile> files_{{"web/index.html", "<p>"}, {"web/page.css", "p {}"},
                                         {"web/page.js", "1;"},     {"web/icon.svg", "<svg/>"},
                                         {"web/blob", "b"},         {"control/openapi.json", "{}"}};
  Api api_;
  PageSite site_{files_, api_};
};

TEST_F(PageSiteTest, ServesThePageAndItsFiles) {
  EXPECT_EQ(get("/"), "200 text/html; charset=utf-8: <p>");
  EXPECT_EQ(get("/index.html"), "200 text/html; charset=utf-8: <p>");
  EXPECT_EQ(get("/page.css"), "200 text/css; charset=utf-8: p {}");
  EXPECT_EQ(get("/page.js"), "200 text/javascript; charset=utf-8: 1;");
  EXPECT_EQ(get("/icon.svg"), "200 image/svg+xml: <svg/>");
  EXPECT_EQ(get("/blob"), "200 application/octet-stream: b");
}

TEST_F(PageSiteTest, HandsTheApiItsRequests) {
  EXPECT_EQ(get("/api"), "200 text/plain: API GET /api");
  EXPECT_EQ(answer("PATCH", "/api/state").body, "API PATCH /api/state");
  HttpRequest request;
  request.path = "/api/live";
  EXPECT_EQ(site_.openFeed(request), nullptr);
  EXPECT_EQ(api_.feedPath, "/api/live");
}

TEST_F(PageSiteTest, TellsWhatThereIsInsteadOfWhatIsNot) {
  for (const char* path : {"/apis", "/web/index.html", "/control/openapi.json", "/../page.css"}) {
    EXPECT_EQ(get(path), "404 application/json: {\"error\":{\"what\":\"there is nothing at " +
                             std::string(path) +
                             R"(","remedy":"The page is at /, the API at /api; GET /api lists )"
                             R"(its paths."}})");
  }
}

TEST_F(PageSiteTest, APageCanOnlyBeRead) {
  const HttpResponse response = answer("POST", "/");
  EXPECT_EQ(response.status, 405);
  EXPECT_EQ(response.body, R"({"error":{"what":"a page can only be read",)"
                           R"("remedy":"Use GET, or the API at /api."}})");
  EXPECT_EQ(response.headers,
            (std::vector<std::pair<std::string, std::string>>{{"Allow", "GET, HEAD"}}));
}

TEST(EmbeddedFiles, AreAllThatThePageIsMadeOfByteForByte) {
  const std::filesystem::path sources = SIM_SOURCES;
  std::set<std::string> expected;
  if (std::filesystem::exists(sources / "web")) {
    for (const auto& entry : std::filesystem::directory_iterator(sources / "web")) {
      expected.insert("web/" + entry.path().filename().string());
    }
  }
  if (std::filesystem::exists(sources / "control/openapi.json")) {
    expected.insert("control/openapi.json");
  }
  std::set<std::string> found;
  for (const EmbeddedFile& file : embeddedFiles()) {
    const std::string name(file.name);
    found.insert(name);
    std::ifstream stream(sources / name, std::ios::binary);
    EXPECT_TRUE(file.bytes == std::string(std::istreambuf_iterator<char>(stream), {})) << name;
    EXPECT_EQ(findEmbeddedFile(name), &file);
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(findEmbeddedFile("web/nothing"), nullptr);
}

}  // namespace
}  // namespace tolvex::sim
