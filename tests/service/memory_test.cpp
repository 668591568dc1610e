// What happens when memory runs out inside the client.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <thread>

#include "service/envelope.h"
#include "service/reply.h"
#include "service/vco_client_api.h"
#include "support/log_watch.h"

namespace {

constexpr int kPlenty = std::numeric_limits<int>::max();

// How many allocations succeed before one fails. Changed while there is one thread only. (No
// thread_local: some compilers' needs malloc itself.)
int allocationsLeft = kPlenty;

// One allocation fails and no more: throwing an exception takes memory, too.
bool mayAllocate() {
  if (allocationsLeft == kPlenty) return true;
  if (allocationsLeft-- > 0) return true;
  allocationsLeft = kPlenty;
  return false;
}

}  // namespace

// The linker leads every malloc and realloc of this program's own code here.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void* __wrap_malloc(std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);

void* __wrap_malloc(std::size_t size) { return mayAllocate() ? __real_malloc(size) : nullptr; }
void* __wrap_realloc(void* block, std::size_t size) {
  return mayAllocate() ? __real_realloc(block, size) : nullptr;
}
}

namespace tolvex {
namespace {

// Lets one allocation fail, after this many others.
class Scarcity {
 public:
  explicit Scarcity(int allocations) { allocationsLeft = allocations; }
  ~Scarcity() { allocationsLeft = kPlenty; }
  Scarcity(const Scarcity&) = delete;
  Scarcity& operator=(const Scarcity&) = delete;
};

// Answers without allocating anything itself.
class PlainConnection final : public CTcpClient {
 public:
  explicit PlainConnection(const char* reply) : CTcpClient("127.0.0.1", 1), reply_(reply) {}
  int Send(const char*, unsigned length) override {
    if (exhausted) throw std::bad_alloc();
    return static_cast<int>(length);
  }
  int RecvTimeout(char* buffer, unsigned length, unsigned) override {
    const std::size_t size = strnlen(reply_, length);
    std::memcpy(buffer, reply_, size);
    return static_cast<int>(size);
  }

  bool exhausted = false;

 private:
  const char* reply_;
};

// A reply so deeply nested that parsing it needs the heap.
std::string deeplyNested() {
  constexpr std::size_t kDepth = 900;
  return R"({"result":"12","list":)" + std::string(kDepth, '[') + std::string(kDepth, ']') + "}";
}

class OutOfMemory : public ::testing::Test {
 protected:
  // Lets the allocations of the call fail, one after the other, until it needs no more of them.
  // Returns how many made it fail.
  template <typename Call>
  static int failEachAllocation(Call call) {
    for (int allowed = 0; allowed < 1000; ++allowed) {
      try {
        const Scarcity scarcity(allowed);
        call();
        return allowed;
      } catch (const std::bad_alloc&) {
      }
    }
    ADD_FAILURE() << "fails for ever";
    return -1;
  }

  static unsigned zeroOnAnotherThread(VcoClientApi& client) {
    unsigned code = 99;
    std::thread other([&] { code = client.setZero(); });
    other.join();
    return code;
  }

  LogWatch log;
  const std::string large = deeplyNested();
};

TEST_F(OutOfMemory, IsToldByTheEnvelope) {
  const std::string text(5000, 'x');
  bool right = false;
  const int failures = failEachAllocation([&] {
    Envelope request("c");
    request.add("k", text.c_str());
    right = request.text() != nullptr && request.length() == text.size() + 18;
  });
  EXPECT_GT(failures, 0);
  EXPECT_TRUE(right);
}

TEST_F(OutOfMemory, IsToldByTheReply) {
  std::int32_t code = 0;
  const int failures = failEachAllocation([&] { code = Reply(large.c_str()).result(); });
  EXPECT_GT(failures, 1);
  EXPECT_EQ(code, 12);
}

TEST_F(OutOfMemory, CannotHitAnOrdinaryRequest) {
  const Scarcity scarcity(0);
  Envelope request("setpretare");
  request.add("tareValue", "12.345").add("number", -1);
  EXPECT_STREQ(request.text(), R"({"cmd":"setpretare","tareValue":"12.345","number":"-1"})");
}

TEST_F(OutOfMemory, CannotHitAnOrdinaryReply) {
  const Scarcity scarcity(0);
  EXPECT_EQ(Reply(R"({"result":"1005","net":"1.5","tare":"0","zero":"0"})").result(), 1005);
}

TEST_F(OutOfMemory, LeavesTheClientUsable) {
  PlainConnection connection(large.c_str());
  VcoClientApi client(&connection, nullptr);
  unsigned code = 0;
  const int failures = failEachAllocation([&] { code = client.setZero(); });
  EXPECT_GT(failures, 1);
  EXPECT_EQ(code, 12U);
  EXPECT_EQ(client.getLastErrCode(), 12);
  EXPECT_EQ(zeroOnAnotherThread(client), 12U);
}

TEST_F(OutOfMemory, AfterTheExchangeReleasesTheConnection) {
  PlainConnection connection(large.c_str());
  VcoClientApi client(&connection, nullptr);
  int allowed = failEachAllocation([&] { client.setZero(); }) - 1;  // the last one is the reply's
  EXPECT_THROW(
      {
        const Scarcity scarcity(allowed);
        client.setZero();
      },
      std::bad_alloc);
  EXPECT_EQ(zeroOnAnotherThread(client), 12U);
}

TEST_F(OutOfMemory, InsideTheConnectionReleasesIt) {
  PlainConnection connection(R"({"result":"0"})");
  VcoClientApi client(&connection, nullptr);
  connection.exhausted = true;
  EXPECT_THROW(client.setZero(), std::bad_alloc);
  connection.exhausted = false;
  EXPECT_EQ(zeroOnAnotherThread(client), 0U);
}

TEST_F(OutOfMemory, BeforeTheExchangeDoesNotChangeTheLastError) {
  PlainConnection connection(R"({"result":"0"})");
  VcoClientApi client(&connection, nullptr);
  client.sendRawCmdToLC(nullptr, nullptr, nullptr, 0, 0);
  ASSERT_EQ(client.getLastErrCode(), 5);
  const std::string level(5000, 'x');
  EXPECT_THROW(
      {
        const Scarcity scarcity(0);
        client.setLogLevel("loadcell", level.c_str());
      },
      std::bad_alloc);
  EXPECT_EQ(client.getLastErrCode(), 5);
}

}  // namespace
}  // namespace tolvex
