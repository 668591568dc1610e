// The live channel: what viewers are told, and what happens to those that misbehave.
#include <chrono>

#include "live_client.h"
#include "web_fixture.h"

namespace tolvex::sim {
namespace {

constexpr char kKey[] = "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n";
constexpr char kUpgrade[] = "Connection: Upgrade\r\nUpgrade: websocket\r\n";
constexpr char kVersion[] = "Sec-WebSocket-Version: 13\r\n";

class LiveTest : public WebFixture {
 protected:
  void tell(const std::string& message, bool wake = true) {
    onServer([&] {
      site_.news.push_back(message);
      if (wake) server_.wakeFeeds();
    });
  }

  void awaitViewers(int count) {
    await([this, count] { return site_.feeds == count; });
  }

  std::string handshake(const std::string& target = "/api/live") const {
    return request("GET " + target, std::string(kUpgrade) + kKey + kVersion);
  }

  // A connection whose handshake is done, for frames made by hand.
  WebClient upgraded() {
    WebClient client(port_);
    client.send(handshake());
    EXPECT_EQ(client.next().head.substr(0, 12), "HTTP/1.1 101");
    awaitViewers(1);
    return client;
  }

  std::string refusal(const std::string& target, const std::string& origin = "") {
    try {
      LiveClient client(port_, target, origin);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "opened";
  }
};

// A frame of a client, masked with zeros.
std::string frame(int firstByte, const std::string& payload) {
  std::string bytes(1, static_cast<char>(firstByte));
  if (payload.size() < 126) {
    bytes += static_cast<char>(0x80 | payload.size());
  } else {
    bytes += static_cast<char>(0xFE);
    bytes += static_cast<char>(payload.size() >> 8);
    bytes += static_cast<char>(payload.size() & 0xFF);
  }
  return bytes + std::string(4, '\0') + payload;
}

TEST_F(LiveTest, TellsAViewerWhatThereIsAndWhatIsNew) {
  tell("one");
  LiveClient viewer(port_);
  EXPECT_EQ(viewer.receive(), "one");
  tell("two");
  EXPECT_EQ(viewer.receive(), "two");
}

TEST_F(LiveTest, FindsNewsByItselfWithoutBeingWoken) {
  LiveClient viewer(port_);
  awaitViewers(1);
  tell("by the way", false);
  EXPECT_EQ(viewer.receive(), "by the way");
}

TEST_F(LiveTest, HandsTheFeedItsQuery) {
  LiveClient viewer(port_, "/api/live?exchanges_after=3&jobs_after=7");
  awaitViewers(1);
  EXPECT_EQ(onServer([this] { return site_.opened; }),
            (std::vector<std::string>{"GET /api/live exchanges_after=3 jobs_after=7"}));
}

TEST_F(LiveTest, ManyWakesInOneTurnLookForNewsOnce) {
  LiveClient viewer(port_);
  awaitViewers(1);
  // Looked at in the same turn and in the one after it, between which no tick can be.
  std::promise<int> looks;
  onServer([&] {
    const int before = site_.pulls;
    for (int i = 0; i < 1000; ++i) server_.wakeFeeds();
    server_.post([&, before] { looks.set_value(site_.pulls - before); });
  });
  EXPECT_EQ(looks.get_future().get(), 1);
}

TEST_F(LiveTest, TellsEveryViewerEverything) {
  std::vector<LiveClient> viewers;
  for (int i = 0; i < 10; ++i) viewers.emplace_back(port_);
  awaitViewers(10);
  for (int i = 0; i < 20; ++i) tell("message " + std::to_string(i));
  for (LiveClient& viewer : viewers) {
    for (int i = 0; i < 20; ++i) ASSERT_EQ(viewer.receive(), "message " + std::to_string(i));
  }
}

TEST_F(LiveTest, ALongMessageArrivesWhole) {
  const std::string text(8 * 1024 * 1024, 'x');
  LiveClient viewer(port_);
  tell(text);
  EXPECT_TRUE(viewer.receive() == text);
}

TEST_F(LiveTest, AViewerThatDoesNotReadIsAskedForNothingMore) {
  LiveClient slow(port_);
  awaitViewers(1);
  for (int i = 0; i < 10; ++i) tell(std::string(8 * 1024 * 1024, 'x'));
  tell("end");
  // Another viewer comes along meanwhile, and so do requests.
  onServer([this] { site_.news.erase(site_.news.begin(), site_.news.end() - 1); });
  EXPECT_EQ(LiveClient(port_).receive(), "end");
  EXPECT_EQ(ask(request("GET /x")), "200 OK: GET /x");
}

TEST_F(LiveTest, DropsWhatAViewerSays) {
  LiveClient viewer(port_);
  for (int i = 0; i < 100; ++i) viewer.send(std::string(4096, 'x'));
  tell("after all");
  EXPECT_EQ(viewer.receive(), "after all");
}

TEST_F(LiveTest, AnswersPings) {
  WebClient viewer = upgraded();
  viewer.send(frame(0x89, "are you there"));
  EXPECT_EQ(viewer.receive(15),
            "\x8A\x0D"
            "are you there");
}

TEST_F(LiveTest, ClosesWithTheViewerAndLetsItsFeedGo) {
  {
    LiveClient viewer(port_);
    awaitViewers(1);
    viewer.close();
    awaitViewers(0);
  }
  {
    const WebClient viewer = upgraded();  // leaves without a word
  }
  awaitViewers(0);
  WebClient viewer = upgraded();
  viewer.vanish();
  awaitViewers(0);
}

TEST_F(LiveTest, AMessageThatIsTooLongEndsTheChannel) {
  LiveClient viewer(port_);
  viewer.send(std::string(4097, 'x'));
  EXPECT_EQ(viewer.receive(), "closed 1009");
  awaitViewers(0);
}

TEST_F(LiveTest, WrongFramesEndTheChannel) {
  const std::string unmasked("\x81\x01x", 3);
  const std::string endless("\x81\xFF\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF\0\0\0\0", 14);
  std::string fragments = frame(0x01, std::string(4000, 'x'));
  for (int i = 0; i < 1000; ++i) fragments += frame(0x00, std::string(4000, 'x'));
  const std::vector<std::string> wrong{
      unmasked,
      endless,
      frame(0x83, "unknown opcode"),
      frame(0xF1, "reserved bits"),
      frame(0x80, "a continuation of nothing"),
      frame(0x09, "a ping in pieces"),
      frame(0x89, std::string(126, 'x')),  // a ping that is too long
      frame(0x81, "\xFF\xFE"),             // text that is not UTF-8
      frame(0x88, "\x01"),                 // a close reason of one byte
      fragments,
      "GET / HTTP/1.1\r\nHost: " + host() + "\r\n\r\n",
      std::string(100000, '\0')};
  for (std::size_t i = 0; i < wrong.size(); ++i) {
    WebClient client = upgraded();
    client.sendInBackground(wrong[i]);
    const std::string end = client.receiveAll();
    EXPECT_EQ(end.substr(0, 1), "\x88") << i;  // a close frame
    awaitViewers(0);
  }
  EXPECT_EQ(ask(request("GET /x")), "200 OK: GET /x");
}

TEST_F(LiveTest, AnswersTheHandshakeOfTheStandardsExample) {
  WebClient client(port_);
  client.send(handshake());
  const std::string head = client.next().head;
  EXPECT_EQ(head.substr(0, 12), "HTTP/1.1 101");
  EXPECT_NE(head.find("\r\nSec-WebSocket-Accept: s3pPLMBiTxaQ9kYGzzhZRbK+xOo=\r\n"),
            std::string::npos)
      << head;
}

TEST_F(LiveTest, IsOpenToTheOwnPageOnly) {
  EXPECT_EQ(refusal("/api/live", "http://" + host()), "opened");
  EXPECT_EQ(refusal("/api/live", "http://evil.example"),
            R"(403 Forbidden: {"error":{"what":"the request comes from a page of )"
            R"(\"http://evil.example\", which may not use the simulator","remedy":"Open the )"
            R"(simulator's own page, http://)" +
                host() +
                R"(/, or send the request from a program, which needs no Origin header."}})");
  for (const std::string& headers : {"Host: evil.example:" + std::to_string(port_) + "\r\n",
                                     "Host: " + host() + "\r\nSec-Fetch-Site: cross-site\r\n",
                                     "Host: " + host() + "\r\nOrigin: null\r\n"}) {
    EXPECT_EQ(ask("GET /api/live HTTP/1.1\r\n" + headers + kUpgrade + kKey + kVersion + "\r\n")
                  .substr(0, 14),
              "403 Forbidden:");
  }
}

TEST_F(LiveTest, IsNowhereElse) {
  EXPECT_EQ(refusal("/api"),
            R"(404 Not Found: {"error":{"what":"there is no live channel at \"/api\"",)"
            R"("remedy":"Open the WebSocket at /api/live."}})");
  EXPECT_EQ(refusal("/api/live?nothing"),
            R"(404 Not Found: {"error":{"what":"there is nothing to watch",)"
            R"("remedy":"Read GET /api instead."}})");
}

TEST_F(LiveTest, RefusesWhatIsNoHandshake) {
  const std::string expected =
      R"(426 Upgrade Required: {"error":{"what":"the live channel is a WebSocket of version 13",)"
      R"("remedy":"Open it with a WebSocket client, or read GET /api/state instead."}})";
  const std::string upgrade = kUpgrade;
  EXPECT_EQ(ask(request("GET /api/live")), expected);
  EXPECT_EQ(ask(request("GET /api/live", upgrade + kVersion)), expected);
  EXPECT_EQ(ask(request("GET /api/live", upgrade + "Sec-WebSocket-Key: short\r\n" + kVersion)),
            expected);
  EXPECT_EQ(ask(request("GET /api/live", upgrade + kKey + "Sec-WebSocket-Version: 8\r\n")),
            expected);
  EXPECT_EQ(ask(request("POST /api/live", upgrade + kKey + kVersion)), expected);
  WebClient client(port_);
  client.send(request("GET /api/live") + request("GET /x"));
  EXPECT_NE(client.next().head.find("\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"),
            std::string::npos);
  EXPECT_EQ(client.next().summary(), "200 OK: GET /x");
}

TEST_F(LiveTest, RefusesFramesThatDoNotWaitForTheHandshake) {
  EXPECT_EQ(ask(handshake() + frame(0x81, "early")),
            R"(400 Bad Request: {"error":{"what":"something follows the request for the live )"
            R"(channel","remedy":"Wait for the answer before you send more."}})");
}

TEST_F(LiveTest, HasPlacesFor64Viewers) {
  std::vector<LiveClient> viewers;
  for (int i = 0; i < 64; ++i) viewers.emplace_back(port_);
  EXPECT_EQ(refusal("/api/live"),
            R"(503 Service Unavailable: {"error":{"what":"64 viewers are watching, as many as can )"
            R"(be","remedy":"Close a page of the simulator and try again."}})");
  viewers.pop_back();
  awaitViewers(63);
  EXPECT_EQ(refusal("/api/live"), "opened");
}

TEST_F(LiveTest, EndsWithTheServer) {
  LiveClient viewer(port_);
  awaitViewers(1);
  tell("the last");
  EXPECT_EQ(viewer.receive(), "the last");
  stop();
}

}  // namespace
}  // namespace tolvex::sim
