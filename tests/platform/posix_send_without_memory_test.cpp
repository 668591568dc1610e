// A system that has room for a send and no memory for it: it says so at once, again and again.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <cerrno>

#include "platform/socket.h"
#include "support/loopback.h"

namespace {
int sends = 0;
}  // namespace

// Takes send()'s place by the linker (--wrap).
extern "C" ssize_t __wrap_send(int, const void*, std::size_t, int) {
  ++sends;
  errno = EAGAIN;
  return -1;
}

namespace tolvex::platform::net {
namespace {

TEST(SendWithoutMemory, EndsWithItsTimeAndIsNoBusyLoop) {
  const test::Listener port;
  const Socket socket = createTcp(300);
  ASSERT_EQ(connectTo(socket, test::kLoopback, port.number()), 0);
  EXPECT_EQ(send(socket, "x", 1), -1);
  EXPECT_EQ(lastError(), 10060);
  EXPECT_LE(sends, 100);
  release(socket);
}

}  // namespace
}  // namespace tolvex::platform::net
