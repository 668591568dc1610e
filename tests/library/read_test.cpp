// Base information and weight, from the service's reply to the caller's record.
#include "support/library_test.h"

namespace tolvex::test {
namespace {

std::string little(int number) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(number >> (8 * i));
  return bytes;
}

std::string weightRecord(char status, const std::string& net, const std::string& tare) {
  return padded(std::string(1, status) + net + "P" + tare, 24);
}

using ReadBaseInfo = ServiceTest;

constexpr char kBaseInfo[] =
    R"({"result":"0","maxRange1":"3","maxRange2":"6","maxRange3":"15.9","minRange":":0.04",)"
    R"("maxTare":"5.998","maxPreTare":"2.998","resolution1":"0.001","resolution2":"0.002",)"
    R"("resolution3":"0.005","weightUnit":"kg","systemVersion":"ZS 1.0"})";

TEST_F(ReadBaseInfo, FillsTheWholeRecord) {
  service.answers(kBaseInfo);
  BaseInfoBuffer record;
  EXPECT_EQ(host.call(read_baseinfo, record), 240);
  EXPECT_EQ(record.bytes(), little(3) + little(6) + little(15) + little(40) + little(5998) +
                                little(2998) + little(1) + little(2) + little(5) + padded("kg", 4) +
                                padded("", 4) + padded("ZS 1.0", 20));
  EXPECT_TRUE(record.guardHolds());
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"getbaseinfo","VcoVersion":"3.0.3.2"})"}));
  EXPECT_EQ(
      log.sinceBanner(),
      (Lines{"[T] L:371 M:DLL [library_tests][read_baseinfo] Enter",
             std::string("[T] L:376 M:DLL [library_tests][read_baseinfo] End, 240,") + kBaseInfo}));
}

TEST_F(ReadBaseInfo, WritesItsEndLineWhenTheCommandFails) {
  service.answers(R"({"result":"1007"})");
  BaseInfoBuffer record;
  EXPECT_EQ(host.call(read_baseinfo, record), 255);
  EXPECT_TRUE(record.isUntouched());
  EXPECT_EQ(
      log.sinceBanner(),
      (Lines{"[T] L:371 M:DLL [library_tests][read_baseinfo] Enter",
             R"([T] L:376 M:DLL [library_tests][read_baseinfo] End, 255,{"result":"1007"})"}));
}

TEST_F(ReadBaseInfo, WritesItsEndLineWithoutAReplyWhenNoneCame) {
  service.weighing().closes();
  BaseInfoBuffer record;
  EXPECT_EQ(host.call(read_baseinfo, record), 255);
  EXPECT_EQ(host.call(getLastErrCode), 4);
  EXPECT_EQ(log.sinceBanner(), (Lines{"[T] L:371 M:DLL [library_tests][read_baseinfo] Enter",
                                      "[W] L:093 M:DLL [SndCmdToLC] Rcv failed:-1!",
                                      "[T] L:376 M:DLL [library_tests][read_baseinfo] End, 255,"}));
}

TEST_F(ReadBaseInfo, TakesNoResultButExactlyZero) {
  // "00" is a success for the command and none for the record.
  service.answers(R"({"result":"00"})");
  BaseInfoBuffer record;
  EXPECT_EQ(host.call(read_baseinfo, record), 255);
  EXPECT_TRUE(record.isUntouched());
  EXPECT_EQ(host.call(getLastErrCode), 0);
  EXPECT_TRUE(log.has(R"([E] L:039 M:DLL [FormatBaseInfo] varn ret err:{"result":"00"}.)"));
}

TEST_F(ReadBaseInfo, AReplyOverTheBufferIsFiveAndLoggedInPart) {
  std::string reply = R"({"result":"0","systemVersion":")";
  reply += std::string(1025 - reply.size() - 2, 'v') + "\"}";
  ASSERT_EQ(reply.size(), 1025U);
  service.answers(reply);
  BaseInfoBuffer record;
  EXPECT_EQ(host.call(read_baseinfo, record), 255);
  EXPECT_EQ(host.call(getLastErrCode), 5);
  EXPECT_TRUE(record.isUntouched());
}

TEST_F(ReadBaseInfo, AReplyOfExactlyTheBufferIsTaken) {
  std::string reply = R"({"result":"0","systemVersion":")";
  reply += std::string(1024 - reply.size() - 2, 'v') + "\"}";
  ASSERT_EQ(reply.size(), 1024U);
  service.answers(reply);
  BaseInfoBuffer record;
  EXPECT_EQ(host.call(read_baseinfo, record), 240);
  EXPECT_EQ(record.bytes(), padded("", 44) + std::string(20, 'v'));
}

TEST_F(ReadBaseInfo, AnEmptyLeastWeightCountsAsZero) {
  service.answers(R"({"result":"0","minRange":"","maxTare":"1"})");
  BaseInfoBuffer record;
  EXPECT_EQ(host.call(read_baseinfo, record), 240);
  EXPECT_EQ(record.bytes(), padded("", 16) + little(1000) + padded("", 44));
}

struct ReadStandard : ServiceTest {
  int read(const std::string& reply) {
    service.answers(reply);
    return host.call(read_standard, record);
  }
  static std::string weight(const std::string& result, const std::string& net,
                            const std::string& tare, const std::string& zero = "0",
                            const std::string& tareType = "N") {
    return R"({"result":")" + result + R"(","net":")" + net + R"(","tare":")" + tare +
           R"(","zero":")" + zero + R"(","tareType":")" + tareType + R"(","highResNet":"3.14159"})";
  }
  const Lines kTrace = {"[T] L:318 M:DLL [library_tests][getWeight] Oh Ye~"};
  WeightBuffer record;
};

TEST_F(ReadStandard, FillsTheRecordOfAStableWeight) {
  EXPECT_EQ(read(weight("0", "1.5", "0.2", "1", "PT")), 240);
  EXPECT_EQ(record.bytes(), weightRecord(7, "01.5000", "00.2000"));
  EXPECT_TRUE(record.guardHolds());
  EXPECT_EQ(service.requests(), (Lines{R"({"cmd":"getweight"})"}));
  EXPECT_EQ(log.sinceBanner(), kTrace);
}

TEST_F(ReadStandard, MarksAnUnstableWeight) {
  EXPECT_EQ(read(weight("1005", "1.5", "0.2")), 240);
  EXPECT_EQ(record.bytes(), weightRecord(0, "01.5000", "00.2000"));
  EXPECT_EQ(host.call(getLastErrCode), 1005);
  EXPECT_EQ(log.sinceBanner(), kTrace);
}

TEST_F(ReadStandard, UnderLoadIsMinusOneWithTheRecordUntouched) {
  EXPECT_EQ(read(R"({"result":"1003"})"), -1);
  EXPECT_TRUE(record.isUntouched());
  EXPECT_EQ(host.call(getLastErrCode), 1003);
  EXPECT_EQ(log.sinceBanner(), kTrace);
}

TEST_F(ReadStandard, OverLoadIsMinusTwoWithTheRecordUntouched) {
  EXPECT_EQ(read(R"({"result":"1004"})"), -2);
  EXPECT_TRUE(record.isUntouched());
  EXPECT_EQ(host.call(getLastErrCode), 1004);
}

TEST_F(ReadStandard, AnInvalidWeightIsARecordOfZeros) {
  EXPECT_EQ(read(R"({"result":"1006"})"), 240);
  EXPECT_EQ(record.bytes(), padded("", 24));
}

TEST_F(ReadStandard, AnyOtherCodeIsAFailureWithItsLine) {
  EXPECT_EQ(read(R"({"result":"1002"})"), 255);
  EXPECT_TRUE(record.isUntouched());
  EXPECT_EQ(log.sinceBanner(),
            (Lines{kTrace[0], "[W] L:401 M:DLL [library_tests][read_standard] Err:1002"}));
}

TEST_F(ReadStandard, AnUnreadableReplyIsAFailureWithItsLine) {
  EXPECT_EQ(read("{"), 255);
  EXPECT_EQ(host.call(getLastErrCode), -1);
  EXPECT_EQ(log.sinceBanner(),
            (Lines{kTrace[0], "[W] L:401 M:DLL [library_tests][read_standard] Err:-1"}));
}

TEST_F(ReadStandard, TheHighResolutionModeReadsItsOwnMember) {
  host.call(setHighResWeightMode, 1);
  EXPECT_EQ(read(weight("0", "1.5", "0.2")), 240);
  EXPECT_EQ(record.bytes(), weightRecord(1, "03.1416", "00.2000"));
  EXPECT_EQ(read(R"({"result":"0","net":"1.5","tare":"0"})"), 240);
  EXPECT_EQ(record.bytes(), weightRecord(1, padded("", 7), "00.0000"));
  host.call(setHighResWeightMode, 0);
  EXPECT_EQ(read(weight("0", "1.5", "0.2")), 240);
  EXPECT_EQ(record.bytes(), weightRecord(1, "01.5000", "00.2000"));
}

TEST_F(ReadStandard, WideTextsAreCutByTheMarkOrRunOnWithinTheRecord) {
  EXPECT_EQ(read(weight("0", "150.5", "123.4")), 240);
  EXPECT_EQ(record.bytes(), weightRecord(1, "150.500", "123.4000"));
  EXPECT_EQ(read(weight("0", "-12.5", "-12.5")), 240);
  EXPECT_EQ(record.bytes(), weightRecord(1, "-12.500", "-12.5000"));
  EXPECT_EQ(read(weight("0", "12345.678", "0")), 240);
  EXPECT_EQ(record.bytes(), weightRecord(1, "12345.6", "00.0000"));
  EXPECT_EQ(read(weight("0", "0", "1e20")), 240);
  EXPECT_EQ(record.bytes(), weightRecord(1, "00.0000", "100000000000000"));
  EXPECT_TRUE(record.guardHolds());
}

}  // namespace
}  // namespace tolvex::test
