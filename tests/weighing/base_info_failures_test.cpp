#include "weighing/record_test.h"

namespace tolvex {
namespace {

class BaseInfoFailure : public BaseInfoTest {
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

  void expectErrorOfTheService(const std::string& result) {
    const std::string reply = R"({"result":")" + result + R"(","maxRange1":"15"})";
    expectFailure(reply, "[E] L:039 M:DLL [FormatBaseInfo] varn ret err:" + reply + ".");
  }
};

TEST_F(BaseInfoFailure, OfATextThatIsNoJsonTellsTheParsersNumber) {
  expectFailure("", "[W] L:028 M:DLL [FormatBaseInfo] Json Parse fail, err:1, [].");
  expectFailure("x", "[W] L:028 M:DLL [FormatBaseInfo] Json Parse fail, err:3, [x].");
  expectFailure("{} x", "[W] L:028 M:DLL [FormatBaseInfo] Json Parse fail, err:2, [{} x].");
  expectFailure("{1}", "[W] L:028 M:DLL [FormatBaseInfo] Json Parse fail, err:4, [{1}].");
}

TEST_F(BaseInfoFailure, OfAStrayBracketIsAnInvalidValue) {
  expectFailure("}", "[W] L:028 M:DLL [FormatBaseInfo] Json Parse fail, err:3, [}].");
}

TEST_F(BaseInfoFailure, OfAReplyCutOffTellsTheParsersNumber) {
  expectFailure(R"({"result":"0")",
                R"([W] L:028 M:DLL [FormatBaseInfo] Json Parse fail, err:6, [{"result":"0"].)");
}

TEST_F(BaseInfoFailure, OfAMissingResult) {
  expectFailure(R"({"maxRange1":"15"})",
                R"([E] L:034 M:DLL [FormatBaseInfo] no result:{"maxRange1":"15"}.)");
}

TEST_F(BaseInfoFailure, OfAResultThatIsNoText) {
  expectFailure(R"({"result":0})", R"([E] L:034 M:DLL [FormatBaseInfo] no result:{"result":0}.)");
}

TEST_F(BaseInfoFailure, OfARootThatIsNoObject) {
  expectFailure("[]", "[E] L:034 M:DLL [FormatBaseInfo] no result:[].");
}

TEST_F(BaseInfoFailure, OfEveryResultButASingleZero) {
  for (const char* const result : {"00", " 0", "0 ", "", "1", "+0", "-0", "0.0", "1005", "1007"}) {
    expectErrorOfTheService(result);
  }
}

TEST_F(BaseInfoFailure, CutsALongReplyInTheLog) {
  const std::string reply = R"({"result":"7","x":")" + std::string(600, 'x') + R"("})";
  EXPECT_EQ(format(reply), 255);
  const std::string whole = "[E] L:039 M:DLL [FormatBaseInfo] varn ret err:" + reply + ".";
  // A record holds 510 characters, of which the time stamp takes 27.
  EXPECT_EQ(log.records(), Texts{whole.substr(0, 510 - 27)});
}

}  // namespace
}  // namespace tolvex
