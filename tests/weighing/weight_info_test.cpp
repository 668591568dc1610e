// The verdicts, the status bits, and which members the record is made of.
#include "weighing/record_test.h"

namespace tolvex {
namespace {

using Weight = WeightInfoTest;

std::string replyOf(const std::string& result) {
  return R"({"result":")" + result + R"(","net":"1.5","tare":"0.2","zero":"0","tareType":"N"})";
}

TEST_F(Weight, ThatIsUnstableHasNoStatusBit) {
  EXPECT_EQ(format(replyOf("1005")), 240);
  EXPECT_EQ(record, std::string("\0"
                                "01.5000P00.2000\0\0\0\0\0\0\0\0",
                                24));
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(Weight, ThatIsStableHasTheFirstBit) {
  EXPECT_EQ(format(replyOf("0")), 240);
  EXPECT_EQ(record, weight(1, "01.5000", "00.2000"));
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(Weight, UnderLoadLeavesTheRecordAlone) {
  EXPECT_EQ(format(replyOf("1003")), -1);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(Weight, OverLoadLeavesTheRecordAlone) {
  EXPECT_EQ(format(replyOf("1004")), -2);
  expectUntouched();
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(Weight, ThatIsInvalidClearsTheRecord) {
  EXPECT_EQ(format(replyOf("1006")), 240);
  EXPECT_EQ(record, std::string(24, '\0'));
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(Weight, ReadsItsResultAsANumber) {
  EXPECT_EQ(format(replyOf("00")), 240);
  EXPECT_EQ(record, weight(1, "01.5000", "00.2000"));
  EXPECT_EQ(format(replyOf(" 1005")), 240);
  EXPECT_EQ(record, weight(0, "01.5000", "00.2000"));
  EXPECT_EQ(format(replyOf("1003x")), -1);
  EXPECT_EQ(format(replyOf("abc")), 240);
  EXPECT_EQ(record, weight(1, "01.5000", "00.2000"));
}

TEST_F(Weight, AtZeroWithATareHasAllThreeBits) {
  expectWeight(R"("net":"0","tare":"0.2","zero":"1","tareType":"PT")",
               weight(7, "00.0000", "00.2000"));
}

TEST_F(Weight, ThatIsUnstableKeepsTheOtherTwoBits) {
  EXPECT_EQ(format(R"({"result":"1005","net":"0","zero":"1","tareType":"T"})"), 240);
  EXPECT_EQ(record, weight(6, "00.0000", ""));
}

TEST_F(Weight, IsAtZeroForExactlyOne) {
  expectWeight(R"("zero":"1")", weight(3, "", ""));
  for (const char* const zero : {R"("0")", R"("")", R"("01")", R"(" 1")", R"("1 ")", R"("true")",
                                 R"("11")", "1", "true", "null"}) {
    expectWeight(std::string(R"("zero":)") + zero, weight(1, "", ""));
  }
}

TEST_F(Weight, HasAnActiveTareForEveryTypeButN) {
  expectWeight(R"("tareType":"N")", weight(1, "", ""));
  for (const char* const type : {"", "T", "PT", "n", "NN", " N", "N "}) {
    expectWeight(std::string(R"("tareType":")") + type + '"', weight(5, "", ""));
  }
}

TEST_F(Weight, HasNoActiveTareWithoutATextAsItsType) {
  for (const char* const type : {"1", "null", "false", "[]"}) {
    expectWeight(std::string(R"("tareType":)") + type, weight(1, "", ""));
  }
}

TEST_F(Weight, WithoutMembersHoldsItsStatusAndTheMark) { expectWeight("", weight(1, "", "")); }

TEST_F(Weight, WithoutNetLeavesTheFieldZero) {
  expectWeight(R"("tare":"0.2")", weight(1, "", "00.2000"));
  expectWeight(R"("net":1.5,"tare":"0.2")", weight(1, "", "00.2000"));
}

TEST_F(Weight, WithoutTareLeavesTheFieldZero) {
  expectWeight(R"("net":"1.5")", weight(1, "01.5000", ""));
  expectWeight(R"("net":"1.5","tare":0.2)", weight(1, "01.5000", ""));
}

TEST_F(Weight, IsReadFromNetByDefault) {
  expectWeight(R"("net":"1.5","highResNet":"2.7182")", weight(1, "01.5000", ""));
}

TEST_F(Weight, OfHighResolutionIsReadFromItsOwnMember) {
  EXPECT_EQ(format(good(R"("net":"1.5","highResNet":"2.7182","tare":"0.2")"), true), 240);
  EXPECT_EQ(record, weight(1, "02.7182", "00.2000"));
}

TEST_F(Weight, OfHighResolutionIgnoresNet) {
  EXPECT_EQ(format(good(R"("net":"1.5","tare":"0.2")"), true), 240);
  EXPECT_EQ(record, weight(1, "", "00.2000"));
}

}  // namespace
}  // namespace tolvex
