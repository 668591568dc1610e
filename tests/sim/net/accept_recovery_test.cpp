// A server that runs out of file descriptors. Only where a process can lower its own limit.
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>

#include "server_fixture.h"
#include "test_client.h"

namespace tolvex::sim {
namespace {

// Lets the process open no further descriptors for as long as it lives.
class NoMoreDescriptors {
 public:
  NoMoreDescriptors() {
    ::getrlimit(RLIMIT_NOFILE, &before_);
    const int next = ::dup(STDERR_FILENO);  // the lowest free number
    ::close(next);
    rlimit now = before_;
    now.rlim_cur = static_cast<rlim_t>(next);
    ::setrlimit(RLIMIT_NOFILE, &now);
  }
  ~NoMoreDescriptors() { ::setrlimit(RLIMIT_NOFILE, &before_); }
  NoMoreDescriptors(const NoMoreDescriptors&) = delete;
  NoMoreDescriptors& operator=(const NoMoreDescriptors&) = delete;

 private:
  rlimit before_{};
};

constexpr char kRequest[] = R"({"cmd":"setzero"})";
constexpr char kReply[] = R"({"result":"0"})";

class AcceptRecovery : public ServerFixture {};

TEST_F(AcceptRecovery, AcceptsAgainWhenThereAreDescriptorsAgain) {
  TestClient early(weighingPort_);
  EXPECT_EQ(early.ask(kRequest), kReply);
  TestClient late;
  {
    const NoMoreDescriptors limit;
    late.connect(weighingPort_);
    late.send(kRequest);
    auto trouble = firstTrouble_.get_future();
    ASSERT_EQ(trouble.wait_for(std::chrono::seconds(30)), std::future_status::ready);
    EXPECT_EQ(trouble.get(),
              "cannot accept clients on the weighing port: Too many open files; trying again");
    // Long enough for several attempts, of which only the first failure is told.
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
    while (std::chrono::steady_clock::now() < end) ASSERT_EQ(early.ask(kRequest), kReply);
  }
  EXPECT_EQ(late.receive(), kReply);
  EXPECT_EQ(onServer([this] { return troubles_; }), 1);
}

}  // namespace
}  // namespace tolvex::sim
