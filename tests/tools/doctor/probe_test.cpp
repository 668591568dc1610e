#include "doctor/probe.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "support/loopback.h"

namespace tolvex::ctl {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLong(20000);
constexpr milliseconds kShort(50);
const std::string kRequest = R"({"cmd":"checkConnection"})";

// What a probe finds when the service deals with the connection like this, after the request.
ReplyProbe probed(const std::function<void(test::Peer&)>& deal, milliseconds limit = kLong) {
  const test::Listener listener;
  std::thread service([&] {
    test::Peer peer = listener.accept();
    EXPECT_EQ(peer.receive(kRequest.size()), kRequest);
    deal(peer);
  });
  const ReplyProbe probe = probeReply("127.0.0.1", listener.number(), kRequest, limit);
  service.join();
  return probe;
}

TEST(ProbePort, TellsAnOpenPortFromOneThatRefuses) {
  const test::Listener open;
  EXPECT_EQ(probePort("127.0.0.1", open.number(), kLong).state, PortState::Open);
  const test::Port closed;
  EXPECT_EQ(probePort("127.0.0.1", closed.number(), kLong).state, PortState::Refused);
}

TEST(ProbeReply, ReadsAReply) {
  const ReplyProbe probe = probed([](test::Peer& peer) { peer.send(R"({"result":"1007"})"); });
  EXPECT_EQ(probe.state, ReplyState::Readable);
  EXPECT_EQ(probe.code, 1007);
}

TEST(ProbeReply, TellsAClosedConnectionFromOneThatIsReset) {
  EXPECT_EQ(probed([](test::Peer& peer) { peer.close(); }).state, ReplyState::Closed);
  EXPECT_EQ(probed([](test::Peer& peer) { peer.reset(); }).state, ReplyState::Closed);
}

TEST(ProbeReply, EndsWhenNothingComes) {
  const test::Listener silent;
  EXPECT_EQ(probeReply("127.0.0.1", silent.number(), kRequest, kShort).state, ReplyState::Silent);
}

TEST(ProbeReply, ShowsWhatIsNoReply) {
  const ReplyProbe probe = probed([](test::Peer& peer) {
    peer.send("HTTP/1.1 400 Bad Request");
    peer.close();
  });
  EXPECT_EQ(probe.state, ReplyState::Unreadable);
  EXPECT_EQ(probe.reply, "HTTP/1.1 400 Bad Request");
}

TEST(ProbeReply, DoesNotListenForeverToSingleBytes) {
  std::size_t sent = 0;
  const ReplyProbe probe = probed(
      [&](test::Peer& peer) {
        // As long as somebody listens, but for the test's sake not without end.
        for (; sent < 4000 && peer.trySend("x"); ++sent) {
          std::this_thread::sleep_for(milliseconds(1));
        }
      },
      kShort);
  EXPECT_EQ(probe.state, ReplyState::Unreadable);
  EXPECT_LT(sent, 4000u);
}

TEST(ProbeReply, DoesNotConnectToAPortThatRefuses) {
  const test::Port closed;
  EXPECT_EQ(probeReply("127.0.0.1", closed.number(), kRequest, kLong).state,
            ReplyState::NotConnected);
}

TEST(IsReadableReply, IsAsStrictAsTheLibrary) {
  int code = 0;
  EXPECT_TRUE(isReadableReply(R"({"result":"2006","more":1})", code));
  EXPECT_EQ(code, 2006);
  for (const std::string& reply : {std::string(), std::string("{}"), std::string(R"({"result":0})"),
                                   std::string(R"({"result":"0")"), std::string(R"(["0"])"),
                                   std::string(2048, '['), std::string("garbage")}) {
    EXPECT_FALSE(isReadableReply(reply, code)) << reply;
  }
}

}  // namespace
}  // namespace tolvex::ctl
