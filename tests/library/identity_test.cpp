// The applications that keep their tare buffers. This file is built into programs of three names:
// the two applications, and one whose name only begins like the first.
#include "platform/paths.h"
#include "support/library_test.h"

namespace tolvex::test {
namespace {

bool keepsItsBuffer() {
  return platform::hostExecutable().find("KelvarinPlus") == std::string::npos;
}

using Identity = ServiceTest;

TEST_F(Identity, DecidesWhetherTheTareIsCopied) {
  service.weighing().alwaysAnswers(R"({"result":"0","tare":"0.120"})");
  for (int (*const tare)(char*) : {clear_tare, set_tare_bykey, send_tare, send_pre_tare,
                                   clear_tare_stdcall, set_tare_bykey_stdcall}) {
    TareBuffer reply("abc");
    EXPECT_EQ(host.call(tare, reply), 240);
    if (keepsItsBuffer()) {
      EXPECT_EQ(reply, TareBuffer("abc"));
    } else {
      EXPECT_EQ(reply.bytes(), padded("0.120", 10));
    }
  }
}

}  // namespace
}  // namespace tolvex::test
