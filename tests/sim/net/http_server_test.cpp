// Requests in order, and what becomes of them.
#include <chrono>

#include "web_fixture.h"

namespace tolvex::sim {
namespace {

class HttpServerTest : public WebFixture {};

TEST_F(HttpServerTest, AnswersWithTheHeadersThatConfineABrowser) {
  WebClient client(port_);
  client.send(request("GET /x"));
  const Answer answer = client.next();
  EXPECT_EQ(answer.body, "GET /x");
  EXPECT_EQ(answer.head,
            "HTTP/1.1 200 OK\r\n"
            "Content-Type: text/plain; charset=utf-8\r\n"
            "Content-Length: 6\r\n"
            "Content-Security-Policy: default-src 'none'; script-src 'self'; style-src 'self'; "
            "img-src 'self' blob: data:; connect-src 'self'; base-uri 'none'; form-action 'none'; "
            "frame-ancestors 'none'\r\n"
            "X-Content-Type-Options: nosniff\r\n"
            "Referrer-Policy: no-referrer\r\n"
            "Cross-Origin-Resource-Policy: same-origin\r\n"
            "Cache-Control: no-store\r\n"
            "Connection: keep-alive\r\n"
            "\r\n");
}

TEST_F(HttpServerTest, HandsOnAllOfARequest) {
  EXPECT_EQ(ask(request("PATCH /api/printers/K%C3%A4se?a=2&b=x+y%26z",
                        "Content-Type: Application/JSON; charset=utf-8\r\n", R"({"a":1})")),
            "200 OK: PATCH /api/printers/Käse a=2 b=x y&z [application/json] \"{\"a\":1}\"");
}

TEST_F(HttpServerTest, KeepsTheConnectionForFurtherRequests) {
  WebClient client(port_);
  for (int i = 0; i < 20; ++i) {
    client.send(request("GET /" + std::to_string(i)));
    EXPECT_EQ(client.next().summary(), "200 OK: GET /" + std::to_string(i));
  }
}

TEST_F(HttpServerTest, AnswersPipelinedRequestsInOrder) {
  std::string all;
  for (int i = 0; i < 500; ++i) {
    all += request("POST /" + std::to_string(i), "", "body " + std::to_string(i));
  }
  WebClient client(port_);
  client.sendInBackground(all);
  for (int i = 0; i < 500; ++i) {
    const std::string n = std::to_string(i);
    ASSERT_EQ(client.next().summary(), "200 OK: POST /" + n + " \"body " + n + "\"");
  }
}

TEST_F(HttpServerTest, AnswersARequestThatArrivesByteByByte) {
  WebClient client(port_);
  for (const char c : request("POST /slow", "", "some text")) client.send(std::string(1, c));
  EXPECT_EQ(client.next().summary(), "200 OK: POST /slow \"some text\"");
}

TEST_F(HttpServerTest, TakesABodyInChunks) {
  WebClient client(port_);
  client.send(request("POST /chunks", "Transfer-Encoding: chunked\r\n"));
  client.send("5;note=1\r\nhello\r\n7\r\n, world\r\n0\r\nTrailer: x\r\n\r\n");
  client.send(request("GET /next"));
  EXPECT_EQ(client.next().summary(), "200 OK: POST /chunks \"hello, world\"");
  EXPECT_EQ(client.next().summary(), "200 OK: GET /next");
}

TEST_F(HttpServerTest, TakesABodyOfOneMebibyteAfterAskingForIt) {
  const std::string body(1024 * 1024, 'x');
  WebClient client(port_);
  client.send(request("POST /body", "Expect: 100-continue\r\nContent-Length: 1048576\r\n"));
  EXPECT_EQ(client.next().head, "HTTP/1.1 100 Continue\r\n\r\n");
  client.send(body);
  EXPECT_EQ(client.next().summary(), "200 OK: POST /body 1048576");
}

TEST_F(HttpServerTest, AnswersHeadLikeGetWithoutTheBody) {
  WebClient client(port_);
  client.send(request("HEAD /x") + request("GET /x"));
  const Answer head = client.next(false);
  const Answer get = client.next();
  EXPECT_EQ(head.head, get.head);
  EXPECT_EQ(get.body, "GET /x");
}

TEST_F(HttpServerTest, TellsTheMethodsToOptions) {
  WebClient client(port_);
  for (const char* start : {"OPTIONS /api/state", "OPTIONS *"}) {
    client.send(request(start));
    const std::string head = client.next().head;
    EXPECT_EQ(head.substr(0, head.find("Content-Security-Policy")),
              "HTTP/1.1 204 No Content\r\n"
              "Allow: GET, HEAD, POST, PUT, PATCH, DELETE, OPTIONS\r\n");
  }
}

TEST_F(HttpServerTest, ConfinesAPictureToItself) {
  WebClient client(port_);
  client.send(request("GET /picture"));
  const std::string head = client.next().head;
  EXPECT_NE(head.find("\r\nContent-Security-Policy: default-src 'none'; style-src "
                      "'unsafe-inline'; img-src data:\r\n"),
            std::string::npos)
      << head;
}

TEST_F(HttpServerTest, ClosesWhenTheClientAsksForIt) {
  for (const std::string& bytes : {request("GET /x", "Connection: close\r\n"),
                                   "GET /x HTTP/1.0\r\nHost: " + host() + "\r\n\r\n"}) {
    TestClient client(port_);
    client.send(bytes + request("GET /not-answered"));
    const std::string all = client.receiveAll();
    EXPECT_EQ(all.substr(all.find("Connection: ")), "Connection: close\r\n\r\nGET /x");
  }
}

TEST_F(HttpServerTest, AClientThatHasFinishedSendingGetsAllItsAnswers) {
  WebClient client(port_);
  client.send(request("GET /1") + request("GET /2") + request("GET /3"));
  client.endSending();
  for (const char* path : {"/1", "/2", "/3"}) {
    EXPECT_EQ(client.next().summary(), std::string("200 OK: GET ") + path);
  }
  EXPECT_EQ(client.receiveAll(), "");
}

TEST_F(HttpServerTest, AnAnswerMayComeLaterWhileOthersAreServed) {
  WebClient waiting(port_);
  waiting.send(request("GET /later"));
  await([this] { return site_.later.size() == 1; });
  EXPECT_EQ(ask(request("GET /other")), "200 OK: GET /other");
  onServer([this] { site_.later.front()({200, "text/plain", "now", {}}); });
  EXPECT_EQ(waiting.next().summary(), "200 OK: now");
  waiting.send(request("GET /after"));
  EXPECT_EQ(waiting.next().summary(), "200 OK: GET /after");
}

TEST_F(HttpServerTest, RequestsSentAheadOfALateAnswerAreKeptAndAnsweredInOrder) {
  // More than is read ahead, and more than the system buffers on the way.
  constexpr int kAhead = 20000;
  std::string all = request("GET /later");
  for (int i = 0; i < kAhead; ++i) all += request("GET /" + std::to_string(i));
  WebClient client(port_);
  client.sendInBackground(all);
  await([this] { return site_.later.size() == 1; });
  onServer([this] { site_.later.front()({200, "text/plain", "now", {}}); });
  EXPECT_EQ(client.next().summary(), "200 OK: now");
  for (int i = 0; i < kAhead; ++i) {
    ASSERT_EQ(client.next().summary(), "200 OK: GET /" + std::to_string(i));
  }
}

TEST_F(HttpServerTest, ALateAnswerToAClientThatHasLeftIsDropped) {
  for (const bool hard : {false, true}) {
    auto client = std::make_unique<WebClient>(port_);
    client->send(request("GET /later"));
    await([this] { return site_.later.size() == 1; });
    EXPECT_FALSE(onServer([this] { return site_.clientLeft.front()(); }));
    if (hard) client->vanish();
    client.reset();
    await([this] { return site_.clientLeft.front()(); });
    onServer([this] {
      site_.later.front()({200, "text/plain", "too late", {}});
      site_.later.clear();
      site_.clientLeft.clear();
    });
  }
  EXPECT_EQ(ask(request("GET /x")), "200 OK: GET /x");
}

TEST_F(HttpServerTest, OnlyTheFirstAnswerCounts) {
  WebClient client(port_);
  client.send(request("GET /later"));
  await([this] { return site_.later.size() == 1; });
  onServer([this] {
    site_.later.front()({200, "text/plain", "first", {}});
    site_.later.front()({200, "text/plain", "second", {}});
  });
  EXPECT_EQ(client.next().summary(), "200 OK: first");
  client.send(request("GET /later"));
  await([this] { return site_.later.size() == 2; });
  onServer([this] {
    site_.later.front()({200, "text/plain", "third", {}});
    site_.later.back()({200, "text/plain", "own", {}});
  });
  EXPECT_EQ(client.next().summary(), "200 OK: own");
}

TEST_F(HttpServerTest, AnAnswerMayComeWhenTheServerIsGone) {
  std::function<void(HttpResponse)> respond;
  {
    TestSite site;
    auto second = std::make_unique<Server>(exchanger_, ServerEvents());
    const std::uint16_t port = second->serveWeb("127.0.0.1", 0, site);
    std::promise<void> asked;
    site.asked = [&asked] { asked.set_value(); };
    std::thread thread([&second] { second->run(); });
    WebClient client(port);
    client.send("GET /later HTTP/1.1\r\nHost: localhost:" + std::to_string(port) + "\r\n\r\n");
    asked.get_future().wait();
    second->stop();
    thread.join();
    second.reset();
    EXPECT_EQ(client.receiveAll(), "");
    EXPECT_TRUE(site.clientLeft.front()());
    respond = site.later.front();
  }
  respond({});
}

TEST_F(HttpServerTest, ASiteThatFailsIsToldAndTheServerGoesOn) {
  WebClient client(port_);
  client.send(request("GET /fail") + request("GET /x"));
  EXPECT_EQ(client.next().summary(),
            "500 Internal Server Error: "
            R"({"error":{"what":"the simulator failed: no paper",)"
            R"("remedy":"Please report this, with the request."}})");
  EXPECT_EQ(client.next().summary(), "200 OK: GET /x");
}

TEST_F(HttpServerTest, AClientThatDoesNotReadHoldsUpOnlyItself) {
  WebClient slow(port_);
  slow.send(request("GET /long"));
  EXPECT_EQ(ask(request("GET /x")), "200 OK: GET /x");
  EXPECT_TRUE(slow.next().body == std::string(TestSite::kLong, 'x'));
}

TEST_F(HttpServerTest, AClientThatLeftBeforeItsTurnIsKnown) {
  std::promise<void> free;
  server_.post([&free] { free.get_future().wait(); });
  WebClient stays(port_);
  stays.send(request("GET /now"));
  {
    WebClient leaves(port_);
    leaves.send(request("GET /now"));
  }
  free.set_value();
  EXPECT_EQ(stays.next().summary(), "200 OK: GET /now");
  await([this] { return site_.leftAtOnce.size() == 2; });
  EXPECT_EQ(onServer([this] { return site_.leftAtOnce; }), (std::vector<bool>{false, true}));
}

}  // namespace
}  // namespace tolvex::sim
