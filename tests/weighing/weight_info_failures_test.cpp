#include "weighing/record_test.h"

namespace tolvex {
namespace {

class WeightFailure : public WeightInfoTest {
 protected:
  // The reply fails with this one record in the log.
  void expectFailure(const std::string& reply, const std::string& logged) {
    const std::size_t before = log.records().size();
    EXPECT_EQ(format(reply), 255) << reply;
    expectUntouched();
    const Texts records = log.records();
    ASSERT_EQ(records.size(), before + 1);
    EXPECT_EQ(records.back(), logged);
  }
};

TEST_F(WeightFailure, OfATextThatIsNoJson) {
  for (const char* const reply : {"", "x", "}", R"({"result":"0")", R"({"result":"0"}x)"}) {
    expectFailure(reply, std::string("[W] L:088 M:DLL [WeightInfo] Json Parse fail:") + reply);
  }
}

TEST_F(WeightFailure, OfAMissingResult) {
  expectFailure(R"({"net":"1.5"})", R"([W] L:094 M:DLL [WeightInfo] no result:{"net":"1.5"}.)");
}

TEST_F(WeightFailure, OfAResultThatIsNoText) {
  for (const char* const reply :
       {R"({"result":0})", R"({"result":null})", R"({"result":["0"]})", "[]", "0", "null"}) {
    expectFailure(reply, std::string("[W] L:094 M:DLL [WeightInfo] no result:") + reply + ".");
  }
}

TEST_F(WeightFailure, OfEveryOtherResult) {
  for (const char* const result :
       {"1", "2", "7", "10", "1001", "1002", "1007", "2006", "-1", "240", "99999999999"}) {
    const std::string reply = std::string(R"({"result":")") + result + R"(","net":"1.5"})";
    expectFailure(reply, "[E] L:112 M:DLL [WeightInfo] varn ret err:" + reply + ".");
  }
}

}  // namespace
}  // namespace tolvex
