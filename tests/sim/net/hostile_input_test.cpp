// Bytes that no till program would send. Whatever comes, the server goes on.
#include <random>

#include "server_fixture.h"
#include "test_client.h"
#include "wire_samples.h"

namespace tolvex::sim {
namespace {

constexpr std::size_t kMiB = std::size_t{1024} * 1024;
class HostileInput : public ServerFixture, public ::testing::WithParamInterface<Half> {
 protected:
  std::uint16_t port() const {
    return GetParam() == Half::Weighing ? weighingPort_ : printingPort_;
  }

  /// Sends all of it, without reading, and leaves.
  void pour(const std::string& bytes) {
    TestClient client(port());
    try {
      client.send(bytes);
    } catch (const std::runtime_error&) {
      // The server may have closed the connection meanwhile, as after a request that is too long.
    }
    client.vanish();
  }

  /// Sends it as one request and expects this reply, and that the connection goes on.
  void expectReply(const std::string& request, const std::string& reply) {
    TestClient client(port());
    client.sendInBackground(request);
    EXPECT_EQ(client.receive(reply.size()), reply);
    expectService(client);
  }

  void expectService(TestClient& client) {
    const bool isWeighing = GetParam() == Half::Weighing;
    EXPECT_EQ(
        client.ask(isWeighing ? R"({"cmd":"checkConnection"})" : R"({"cmd":"getPrinterList"})"),
        isWeighing ? R"({"result":"0"})" : R"({"result":"0","PrinterList":"Label,Ticket,Third"})");
  }

  void TearDown() override {
    TestClient client(port());
    expectService(client);
    EXPECT_LE(onServer([this] { return keptBytes(); }), TrafficLog::kMaxBytes);
  }

  std::size_t keptBytes() const {
    std::size_t bytes = 0;
    for (const TrafficEntry& entry : traffic_.entries()) {
      bytes += entry.request.size() + entry.reply.size() + entry.command.size();
    }
    return bytes;
  }
};

// A connection takes fifty times as long under Wine, and what is read from it is read the same way.
#ifdef _WIN32
constexpr int kPours = 8;
constexpr std::size_t kPourStep = 5;
#else
constexpr int kPours = 50;
constexpr std::size_t kPourStep = 1;
#endif

TEST_P(HostileInput, RandomBytesDoNoHarm) {
  std::mt19937 random(20'251);
  for (int i = 0; i < kPours; ++i) {
    std::string bytes(20'000, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    pour(bytes);
  }
}

TEST_P(HostileInput, RandomPiecesOfJsonDoNoHarm) {
  const std::vector<std::string> pieces = {"{",
                                           "}",
                                           "[",
                                           "]",
                                           "\"",
                                           "\\",
                                           ":",
                                           ",",
                                           "cmd",
                                           R"("cmd":)",
                                           R"("printtext")",
                                           "\\u0000",
                                           "\\uD800",
                                           "1e999",
                                           "-",
                                           "null",
                                           "\n",
                                           std::string(1, '\0'),
                                           "\xFF",
                                           R"({"cmd":"getweight"})"};
  std::mt19937 random(20'252);
  for (int i = 0; i < kPours; ++i) {
    std::string bytes;
    while (bytes.size() < 20'000) bytes += pieces[random() % pieces.size()];
    pour(bytes);
  }
}

TEST_P(HostileInput, EveryBeginningOfARequestDoesNoHarm) {
  const std::string request =
      R"({"cmd":"printtext","printerType":"1","fontsize":"24","text":"\u00e4"})";
  for (std::size_t i = 0; i < request.size(); i += kPourStep) pour(request.substr(0, i));
}

TEST_P(HostileInput, MegabytesOfGarbageAreOneAnswer) {
  TestClient client(port());
  client.sendInBackground(std::string(20 * kMiB, 'x') + "{}");
  EXPECT_EQ(client.receive(2 * sizeof kUnreadable - 2),
            std::string(kUnreadable) + R"({"result":"8"})");
  expectService(client);
  EXPECT_EQ(onServer([this] { return traffic_.entries().front().requestBytes; }),
            JsonSplitter::kSampleBytes);
}

TEST_P(HostileInput, MegabytesInOneStringEndTheConnection) {
  TestClient client(port());
  client.sendInBackground(R"({"cmd":")" + std::string(8 * kMiB, 'x'));
  EXPECT_EQ(client.receiveAll(), kUnreadable);
}

TEST_P(HostileInput, ManyLargeRequestsAreNotKept) {
  const std::string request = R"({"cmd":")" + std::string(kMiB - 100, 'x') + R"("})";
  for (int i = 0; i < 20; ++i) {
    expectReply(request,
                GetParam() == Half::Weighing ? R"({"result":"1002"})" : R"({"result":"2002"})");
  }
  EXPECT_LE(onServer([this] { return keptBytes(); }),
            20 * (TrafficLog::kMaxTextBytes + TrafficLog::kMaxCommandBytes + 1000));
}

TEST_P(HostileInput, DeepObjectsAreReadOrRefused) {
  constexpr std::size_t kDepth = 150'000;
  expectReply(repeat(R"({"a":)", kDepth) + "1" + std::string(kDepth, '}'), R"({"result":"8"})");
}

TEST_P(HostileInput, DeepArraysAreReadOrRefused) {
  constexpr std::size_t kDepth = 500'000;
  expectReply(R"({"cmd":)" + std::string(kDepth, '[') + std::string(kDepth, ']') + "}",
              R"({"result":"8"})");
  expectReply(R"({"cmd":)" + std::string(kDepth, '[') + "}", kUnreadable);
}

TEST_P(HostileInput, NulsAndBytesThatAreNotUtf8AreUnreadable) {
  expectReply(std::string("{\"cmd\":\"\0\"}", 11), kUnreadable);
  expectReply("{\"cmd\":\"\xFF\"}", kUnreadable);
  expectReply("{\"cmd\":\"\xC0\xAF\"}", kUnreadable);
  expectReply("{\"cmd\":\"\xED\xA0\x80\"}", kUnreadable);
  expectReply(R"({"cmd":"\uD800"})", kUnreadable);
}

TEST_P(HostileInput, AnEscapedNulIsAnUnknownCommand) {
  expectReply(R"({"cmd":"getweight\u0000"})",
              GetParam() == Half::Weighing ? R"({"result":"1002"})" : R"({"result":"2002"})");
}

TEST_P(HostileInput, AHundredThousandSmallRequestsWithoutReadingDoNoHarm) {
  TestClient flooding(port());
  flooding.sendInBackground(repeat("{}", 100'000));
  TestClient other(port());
  expectService(other);
  flooding.vanish();
}

INSTANTIATE_TEST_SUITE_P(OnEachPort, HostileInput,
                         ::testing::Values(Half::Weighing, Half::Printing),
                         [](const ::testing::TestParamInfo<Half>& tested) {
                           return std::string(tested.param == Half::Weighing ? "Weighing"
                                                                             : "Printing");
                         });

}  // namespace
}  // namespace tolvex::sim
