// What the server refuses, and clients that take too much of it.
#include <chrono>

#include "live_client.h"
#include "web_fixture.h"
#include "wire_samples.h"

namespace tolvex::sim {
namespace {

std::string error(const std::string& what, const std::string& remedy) {
  return R"({"error":{"what":")" + what + R"(","remedy":")" + remedy + "\"}}";
}

class HttpLimitsTest : public WebFixture {
 protected:
  // What is answered to bytes of which some may be left when the server stops listening, and that the
  // connection ends then.
  std::string lastAnswerTo(const std::string& bytes) const {
    WebClient client(port_);
    client.sendInBackground(bytes);
    const Answer answer = client.next();
    EXPECT_NE(answer.head.find("\r\nConnection: close\r\n"), std::string::npos) << answer.head;
    EXPECT_EQ(client.receiveAll(), "");
    return answer.summary();
  }

  void expectService() { EXPECT_EQ(ask(request("GET /x")), "200 OK: GET /x"); }
};

TEST_F(HttpLimitsTest, ABodyOfMoreThanOneMebibyteIsRefused) {
  const std::string expected =
      "413 Content Too Large: " +
      error("the body is longer than 1 MiB (1048576 bytes)", "Send less at a time.");
  EXPECT_EQ(lastAnswerTo(request("POST /x", "", std::string(1024 * 1024 + 1, 'x'))), expected);
  EXPECT_EQ(lastAnswerTo(request("POST /x", "Content-Length: 9999999999999\r\n")), expected);
  EXPECT_EQ(lastAnswerTo(request("POST /x", "Transfer-Encoding: chunked\r\n") +
                         repeat("10000\r\n" + std::string(0x10000, 'x') + "\r\n", 40)),
            expected);
  EXPECT_EQ(onServer([this] { return site_.requests; }), 0);
}

TEST_F(HttpLimitsTest, AHeadOfMoreThan16KibibytesIsRefused) {
  const std::string line = "X-Filler: " + std::string(1000, 'x') + "\r\n";
  EXPECT_EQ(ask(request("GET /x", repeat(line, 15))), "200 OK: GET /x");
  const std::string expected =
      "431 Request Header Fields Too Large: " +
      error("the headers are longer than 16 KiB", "Send fewer or shorter ones.");
  EXPECT_EQ(lastAnswerTo(request("GET /x", repeat(line, 20))), expected);
  EXPECT_EQ(lastAnswerTo("GET /x HTTP/1.1\r\n" + repeat(line, 4000)), expected);
  EXPECT_EQ(lastAnswerTo("GET /x HTTP/1.1\r\nX: " + std::string(4000000, 'x')), expected);
}

TEST_F(HttpLimitsTest, AnAddressOfMoreThan16KibibytesIsRefused) {
  const std::string expected = "414 URI Too Long: " + error("the address is longer than 16 KiB",
                                                            "Send a shorter path and query.");
  EXPECT_EQ(lastAnswerTo(request("GET /" + std::string(17000, 'x'))), expected);
  EXPECT_EQ(lastAnswerTo("GET /" + std::string(4000000, 'x')), expected);
}

TEST_F(HttpLimitsTest, WhatIsNotHttpIsRefused) {
  const std::string remedy =
      R"(Send a request such as \"GET /api/state HTTP/1.1\"; clients of the scale and the )"
      R"(printers use the other two ports.)";
  EXPECT_EQ(lastAnswerTo(R"({"cmd":"getweight"})"),
            "400 Bad Request: " + error("the request is not HTTP (bad method)", remedy));
  const std::vector<std::string> garbage{
      std::string(1000, '\0'),
      "\x16\x03\x01\x02\x00\x01\xFC\x03\x03 hello over TLS",
      "GET /x\r\n\r\n",
      "GET /x HTTP/2.0\r\n\r\n",
      "GET  /x HTTP/1.1\r\n\r\n",
      "GET /x HTTP/1.1\nHost: a\n\n",
      request("GET /x", "No colon\r\n"),
      request("GET /x", "Bad name: x\r\n"),
      request("GET /x", "X: a\x01z\r\n"),
      request("POST /x", "Content-Length: -1\r\n"),
      request("POST /x", "Content-Length: 1x\r\n"),
      request("POST /x", "Content-Length: 1\r\nContent-Length: 2\r\n"),
      request("POST /x", "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n"),
      request("POST /x", "Transfer-Encoding: chunked\r\n") + "x\r\n",
      request("POST /x", "Transfer-Encoding: chunked\r\n") + "FFFFFFFFFFFFFFFFF\r\n",
      request("POST /x", "Transfer-Encoding: chunked\r\n") + "1\r\nxx\r\n0\r\n\r\n",
      request("POST /x", "Transfer-Encoding: chunked\r\n") + "1;" + std::string(100000, 'x')};
  for (const std::string& bytes : garbage) {
    const std::string answer = lastAnswerTo(bytes);
    EXPECT_EQ(answer.substr(0, 4), "400 ") << bytes.substr(0, 200) << "\n" << answer;
  }
  EXPECT_EQ(onServer([this] { return site_.requests; }), 0);
  expectService();
}

TEST_F(HttpLimitsTest, UnknownMethodsAreRefused) {
  WebClient client(port_);
  client.send(request("BREW /x"));
  const Answer answer = client.next();
  EXPECT_EQ(answer.summary(),
            "405 Method Not Allowed: " +
                error(R"(the method \"BREW\" is not known here)",
                      "Use one of GET, HEAD, POST, PUT, PATCH, DELETE, OPTIONS."));
  EXPECT_NE(answer.head.find("\r\nAllow: GET, HEAD, POST, PUT, PATCH, DELETE, OPTIONS\r\n"),
            std::string::npos);
  EXPECT_EQ(lastAnswerTo(request("TRACE /")).substr(0, 4), "405 ");
  EXPECT_EQ(lastAnswerTo(request("CONNECT 127.0.0.1:80")).substr(0, 4), "400 ");
}

TEST_F(HttpLimitsTest, AddressesThatCanNotBeReadAreRefused) {
  EXPECT_EQ(
      lastAnswerTo(request("GET /%zz")),
      "400 Bad Request: " +
          error(R"(the address \"/%zz\" can not be read)",
                "Send a path such as /api/state, in UTF-8 and with % escapes of two digits."));
}

TEST_F(HttpLimitsTest, ParametersThatStandTwiceAreRefused) {
  for (const char* target : {"/api/jobs?limit=1&limit=2", "/api/live?limit=1&l%69mit=1"}) {
    EXPECT_EQ(lastAnswerTo(request(std::string("GET ") + target)),
              "400 Bad Request: " + error(R"(\"limit\" stands more than once in the query)",
                                          "Send each parameter once."))
        << target;
  }
}

TEST_F(HttpLimitsTest, CodingsOfTheBodyAreRefused) {
  EXPECT_EQ(lastAnswerTo(request("POST /x", "Content-Encoding: gzip\r\n", "x")),
            "415 Unsupported Media Type: " +
                error(R"(the body is packed as \"gzip\")", "Send it unpacked."));
  EXPECT_EQ(lastAnswerTo(request("POST /x", "Transfer-Encoding: gzip, chunked\r\n")),
            "501 Not Implemented: " + error(R"(the body is sent as \"gzip, chunked\")",
                                            "Send it plainly, with Content-Length or as chunked."));
}

TEST_F(HttpLimitsTest, ForeignPagesAreRefusedBeforeTheirBodyIsRead) {
  EXPECT_EQ(lastAnswerTo(request("POST /api/reset",
                                 "Origin: http://evil.example\r\nContent-Length: 1000000\r\n")),
            "403 Forbidden: " +
                error(R"(the request comes from a page of \"http://evil.example\", which may not )"
                      R"(use the simulator)",
                      "Open the simulator's own page, http://" + host() +
                          "/, or send the request from a program, which needs no Origin header."));
  EXPECT_EQ(
      lastAnswerTo(request("OPTIONS /api/state", "Origin: http://evil.example\r\n")).substr(0, 4),
      "403 ");
  EXPECT_EQ(lastAnswerTo(request("GET /x", "Sec-Fetch-Site: same-site\r\n")).substr(0, 4), "403 ");
  EXPECT_EQ(
      lastAnswerTo("GET /x HTTP/1.1\r\nHost: evil.example:" + std::to_string(port_) + "\r\n\r\n")
          .substr(0, 4),
      "403 ");
  EXPECT_EQ(lastAnswerTo("GET /x HTTP/1.1\r\n\r\n").substr(0, 4), "400 ");
  EXPECT_EQ(onServer([this] { return site_.requests; }), 0);
}

TEST_F(HttpLimitsTest, ConnectionsBeyond256AreToldThatThereIsNoPlace) {
  std::vector<WebClient> clients;
  for (int i = 0; i < 256; ++i) clients.emplace_back(port_);
  clients.front().send(request("GET /x"));
  EXPECT_EQ(clients.front().next().summary(), "200 OK: GET /x");
  clients.back().send(request("GET /x"));
  EXPECT_EQ(clients.back().next().summary(), "200 OK: GET /x");
  EXPECT_EQ(lastAnswerTo(request("GET /x")),
            "503 Service Unavailable: " +
                error("256 connections are open, as many as can be",
                      "Close pages or programs that use the simulator, and try again."));
  clients.clear();
  while (ask(request("GET /x")) != "200 OK: GET /x") {
  }
}

// Under Wine each of them takes milliseconds, and a port at which hundreds of connections were reset
// before they were accepted takes no more.
#ifdef _WIN32
constexpr int kConnections = 500;
constexpr bool kMayVanish = false;
#else
constexpr int kConnections = 10'000;
constexpr bool kMayVanish = true;
#endif

TEST_F(HttpLimitsTest, ThousandsOfConnectionsInTurnAreServed) {
  for (int i = 0; i < kConnections; ++i) {
    WebClient client(port_);
    if (i % 4 == 1) client.send("GET /x HT");
    if (i % 4 == 2) client.send(request("GET /x"));
    if (i % 4 == 3) client.send("\r\n{garbage");
    if (kMayVanish) client.vanish();
  }
  while (ask(request("GET /x")) != "200 OK: GET /x") {
  }
}

// The same with times that a test can wait for.
class HttpTimesTest : public WebFixture {
 protected:
  static WebTimes shortTimes() {
    WebTimes times;
    times.idle = std::chrono::milliseconds(50);
    times.request = std::chrono::milliseconds(50);
    times.response = std::chrono::milliseconds(50);
    times.message = std::chrono::milliseconds(50);
    times.farewell = std::chrono::milliseconds(50);
    return times;
  }

  HttpTimesTest() : WebFixture(shortTimes()) {}
};

TEST_F(HttpTimesTest, ARequestThatStopsHalfwayIsAnsweredAndItsConnectionClosed) {
  for (const std::string& half :
       {std::string("G"), request("POST /x", "Content-Length: 5\r\n") + "12",
        request("POST /x", "Transfer-Encoding: chunked\r\n") + "5\r\n12"}) {
    WebClient client(port_);
    client.send(half);
    EXPECT_EQ(client.next().summary(),
              "408 Request Timeout: " + error("the request did not arrive as a whole within 50 ms",
                                              "Send it again, all at once."));
    EXPECT_EQ(client.receiveAll(), "");
  }
}

TEST_F(HttpTimesTest, ARequestThatTricklesHasNoMoreTime) {
  WebClient client(port_);
  client.send("GET /x HTTP/1.1\r\n");
  const auto trickle = [&client] {
    for (;;) client.send("X: y\r\n");
  };
  EXPECT_THROW(trickle(), std::runtime_error);
}

TEST_F(HttpTimesTest, IdleConnectionsAreClosed) {
  TestClient fresh(port_);
  EXPECT_EQ(fresh.receiveAll(), "");
  WebClient used(port_);
  used.send(request("GET /x"));
  EXPECT_EQ(used.next().summary(), "200 OK: GET /x");
  EXPECT_EQ(used.receiveAll(), "");
}

TEST_F(HttpTimesTest, WhoWaitsForAnAnswerIsNotIdle) {
  WebClient client(port_);
  client.send(request("GET /later"));
  await([this] { return site_.later.size() == 1; });
  EXPECT_EQ(TestClient(port_).receiveAll(), "");  // another one becomes idle meanwhile
  onServer([this] { site_.later.front()({200, "text/plain", "now", {}}); });
  EXPECT_EQ(client.next().summary(), "200 OK: now");
}

TEST_F(HttpTimesTest, AResponseThatIsNotReadIsGivenUp) {
  WebClient client(port_);
  client.send(request("GET /long"));
  TestClient(port_).receiveAll();
  await([this] { return site_.requests == 1; });
  EXPECT_EQ(TestClient(port_).receiveAll(), "");
  EXPECT_EQ(TestClient(port_).receiveAll(), "");
  EXPECT_THROW(client.next(), std::runtime_error);
}

TEST_F(HttpTimesTest, AViewerThatDoesNotReadIsDropped) {
  LiveClient viewer(port_);
  onServer([this] { site_.news.emplace_back(TestSite::kLong, 'x'); });
  await([this] { return site_.feeds == 1; });
  await([this] { return site_.feeds == 0; });
  EXPECT_EQ(viewer.receive(), "cut");
}

}  // namespace
}  // namespace tolvex::sim
