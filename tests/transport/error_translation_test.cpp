#include <gtest/gtest.h>

#include <set>

#include "transport/socket_errors.h"

namespace tolvex {
namespace {

unsigned codeOf(int winsockError) { return translateSocketError(winsockError); }

TEST(SocketErrorCode, Of0Is0) { EXPECT_EQ(codeOf(0), 0u); }
TEST(SocketErrorCode, Of10004Is9) { EXPECT_EQ(codeOf(10004), 9u); }
TEST(SocketErrorCode, Of10009Is7) { EXPECT_EQ(codeOf(10009), 7u); }
TEST(SocketErrorCode, Of10057Is7) { EXPECT_EQ(codeOf(10057), 7u); }
TEST(SocketErrorCode, Of10013Is1) { EXPECT_EQ(codeOf(10013), 1u); }
TEST(SocketErrorCode, Of10022Is1) { EXPECT_EQ(codeOf(10022), 1u); }
TEST(SocketErrorCode, Of10024Is1) { EXPECT_EQ(codeOf(10024), 1u); }
TEST(SocketErrorCode, Of10038Is1) { EXPECT_EQ(codeOf(10038), 1u); }
TEST(SocketErrorCode, Of10043Is1) { EXPECT_EQ(codeOf(10043), 1u); }
TEST(SocketErrorCode, Of10047Is1) { EXPECT_EQ(codeOf(10047), 1u); }
TEST(SocketErrorCode, Of10055Is1) { EXPECT_EQ(codeOf(10055), 1u); }
TEST(SocketErrorCode, Of10014Is16) { EXPECT_EQ(codeOf(10014), 16u); }
TEST(SocketErrorCode, Of10035Is6) { EXPECT_EQ(codeOf(10035), 6u); }
TEST(SocketErrorCode, Of10036Is8) { EXPECT_EQ(codeOf(10036), 8u); }
TEST(SocketErrorCode, Of10048Is15) { EXPECT_EQ(codeOf(10048), 15u); }
TEST(SocketErrorCode, Of10053Is10) { EXPECT_EQ(codeOf(10053), 10u); }
TEST(SocketErrorCode, Of10054Is14) { EXPECT_EQ(codeOf(10054), 14u); }
TEST(SocketErrorCode, Of10060Is5) { EXPECT_EQ(codeOf(10060), 5u); }
TEST(SocketErrorCode, Of10061Is4) { EXPECT_EQ(codeOf(10061), 4u); }
TEST(SocketErrorCode, Of11004Is2) { EXPECT_EQ(codeOf(11004), 2u); }

TEST(SocketErrorCode, OfAnyOtherNumberIs17) {
  for (const int error : {1, -1, 10003, 10005, 10037, 10045, 10049, 10051, 10056, 10058, 10065,
                          10093, 11001, 11002, 11003, 2147483647}) {
    EXPECT_EQ(codeOf(error), 17u) << error;
  }
}

TEST(SocketErrorCode, IsNoneButThoseOfTheTable) {
  std::set<unsigned> codes;
  for (int error = 0; error <= 20000; ++error) codes.insert(codeOf(error));
  EXPECT_EQ(codes, (std::set<unsigned>{0, 1, 2, 4, 5, 6, 7, 8, 9, 10, 14, 15, 16, 17}));
}

}  // namespace
}  // namespace tolvex
