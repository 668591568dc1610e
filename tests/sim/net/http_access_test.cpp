#include "net/http_access.h"

#include <gtest/gtest.h>

namespace tolvex::sim {
namespace {

using Fields = std::vector<std::pair<std::string, std::string>>;

constexpr char kServer[] = "127.0.0.1:53280";

HttpHead headWith(Fields fields) {
  HttpHead head;
  head.method = "GET";
  head.fields = std::move(fields);
  return head;
}

// "403 BODY", or "" when the request is in order.
std::string refusal(const HttpHead& head, std::string_view target = "/api",
                    std::uint16_t port = 53280) {
  const auto response = refuseForeign(head, *parseTarget(target), {"127.0.0.1", port});
  return response ? std::to_string(response->status) + " " + response->body : "";
}

int statusOf(const HttpHead& head, std::string_view target = "/api") {
  const auto response = refuseForeign(head, *parseTarget(target), {"127.0.0.1", 53280});
  return response ? response->status : 200;
}

TEST(HttpAccess, ProgramsAndTheOwnPageMayAsk) {
  EXPECT_EQ(refusal(headWith({{"Host", kServer}})), "");
  EXPECT_EQ(refusal(headWith({{"Host", "LocalHost:53280"}})), "");
  EXPECT_EQ(refusal(headWith({{"Host", "192.168.7.9:53280"}})), "");
  EXPECT_EQ(refusal(headWith({{"Host", kServer},
                              {"Origin", "http://127.0.0.1:53280"},
                              {"Sec-Fetch-Site", "same-origin"}})),
            "");
  EXPECT_EQ(refusal(headWith({{"Host", kServer}, {"Sec-Fetch-Site", "none"}})), "");
  EXPECT_EQ(refusal(headWith({{"Host", kServer}}), "http://localhost:53280/api"), "");
  EXPECT_EQ(refusal(headWith({{"Host", "localhost"}}), "/api", 80), "");
}

TEST(HttpAccess, AnotherHostIsRefused) {
  for (const char* host :
       {"evil.example:53280", "127.0.0.1:53281", "127.0.0.1", "127.0.0.1:053280", "127.1:53280",
        "localhost.evil.example:53280", "localhost.:53280", "[::1]:53280", "a@127.0.0.1:53280",
        "127.0.0.1:53280:53280", ":53280", "", "127.0.0.1:"}) {
    EXPECT_EQ(statusOf(headWith({{"Host", host}})), 403) << host;
  }
  EXPECT_EQ(statusOf(headWith({{"Host", kServer}}), "http://evil.example:53280/api"), 403);
  EXPECT_EQ(refusal(headWith({{"Host", "evil.example:53280"}})),
            R"(403 {"error":{"what":"the request is for the host \"evil.example:53280\", which is )"
            R"(not the simulator","remedy":"Use http://127.0.0.1:53280/ or )"
            R"(http://localhost:53280/: an IPv4 address or localhost, and port 53280."}})");
}

TEST(HttpAccess, NoHostOrSeveralAreRefused) {
  EXPECT_EQ(refusal(headWith({})),
            R"(400 {"error":{"what":"the request has 0 Host headers","remedy":"Send exactly one, )"
            R"(as in \"Host: 127.0.0.1:53280\"."}})");
  EXPECT_EQ(statusOf(headWith({{"Host", kServer}, {"host", kServer}})), 400);
}

TEST(HttpAccess, PagesOfOthersAreRefused) {
  for (const char* origin :
       {"http://evil.example", "null", "https://127.0.0.1:53280", "http://127.0.0.1:53281",
        "http://127.0.0.1", "http://localhost:53280", "", "http://127.0.0.1:53280/"}) {
    EXPECT_EQ(statusOf(headWith({{"Host", kServer}, {"Origin", origin}})), 403) << origin;
  }
  EXPECT_EQ(statusOf(headWith(
                {{"Host", kServer}, {"Origin", "http://127.0.0.1:53280"}, {"Origin", "null"}})),
            403);
  EXPECT_EQ(refusal(headWith({{"Host", kServer}, {"Origin", "http://evil.example"}})),
            R"(403 {"error":{"what":"the request comes from a page of \"http://evil.example\", )"
            R"(which may not use the simulator","remedy":"Open the simulator's own page, )"
            R"(http://127.0.0.1:53280/, or send the request from a program, which needs no Origin )"
            R"(header."}})");
}

TEST(HttpAccess, WhatAPageOfAnotherSiteLoadsIsRefused) {
  for (const char* site : {"cross-site", "same-site", "", "Same-Origin"}) {
    EXPECT_EQ(statusOf(headWith({{"Host", kServer}, {"Sec-Fetch-Site", site}})), 403) << site;
  }
  EXPECT_EQ(refusal(headWith({{"Host", kServer}, {"Sec-Fetch-Site", "same-site"}})),
            R"(403 {"error":{"what":"the request comes from a page of another site )"
            R"((Sec-Fetch-Site is \"same-site\"), which may not use the simulator","remedy":"Open )"
            R"(the simulator's own page, http://127.0.0.1:53280/, or send the request from a )"
            R"(program, which needs no Sec-Fetch-Site header."}})");
}

TEST(HttpAccess, ALinkFromAnywhereMayOpenThePageOnly) {
  const Fields link{{"Host", kServer},
                    {"Sec-Fetch-Site", "cross-site"},
                    {"Sec-Fetch-Mode", "navigate"},
                    {"Sec-Fetch-Dest", "document"}};
  EXPECT_EQ(statusOf(headWith(link), "/"), 200);
  EXPECT_EQ(statusOf(headWith(link), "/api/state"), 403);
  HttpHead post = headWith(link);
  post.method = "POST";
  EXPECT_EQ(statusOf(post, "/"), 403);
  Fields frame = link;
  frame.back().second = "iframe";
  EXPECT_EQ(statusOf(headWith(frame), "/"), 403);
}

TEST(HttpAccess, OfAWebSocketTheOriginDecidesWhenThereIsOne) {
  const Fields upgrade{{"Host", kServer}, {"Connection", "Upgrade"}, {"Upgrade", "websocket"}};
  Fields foreign = upgrade;
  foreign.emplace_back("Sec-Fetch-Site", "cross-site");
  EXPECT_EQ(statusOf(headWith(upgrade), "/api/live"), 200);
  EXPECT_EQ(statusOf(headWith(foreign), "/api/live"), 403);
  foreign.emplace_back("Origin", "http://127.0.0.1:53280");
  EXPECT_EQ(statusOf(headWith(foreign), "/api/live"), 200);
  foreign.back().second = "http://127.0.0.1:8080";
  EXPECT_EQ(statusOf(headWith(foreign), "/api/live"), 403);
}

TEST(HttpAccess, ThePageOfAServerOnAllAddressesIsOnThisMachine) {
  EXPECT_EQ(pageAddress({"0.0.0.0", 80}), "http://127.0.0.1:80/");
  EXPECT_EQ(pageAddress({"127.0.0.9", 53280}), "http://127.0.0.9:53280/");
}

}  // namespace
}  // namespace tolvex::sim
