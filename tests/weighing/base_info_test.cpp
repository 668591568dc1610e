#include <cstdint>

#include "weighing/record_test.h"

namespace tolvex {
namespace {

class BaseInfo : public BaseInfoTest {
 protected:
  // The record that holds nothing but this little-endian number.
  static std::string number(std::size_t offset, std::int32_t value) {
    std::string bytes(kBaseInfoSize, '\0');
    for (unsigned byte = 0; byte < 4; ++byte) {
      bytes[offset + byte] = static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * byte));
    }
    return bytes;
  }

  static std::string text(std::size_t offset, const std::string& value) {
    std::string bytes(kBaseInfoSize, '\0');
    return bytes.replace(offset, value.size(), value);
  }

  void expectRecord(const std::string& members, const std::string& expected) {
    EXPECT_EQ(format(good(members)), 240) << members;
    EXPECT_EQ(record, expected) << members;
  }

  // The one member, given as this text, makes this number.
  void expectNumber(const std::string& member, const std::string& value, std::size_t offset,
                    std::int32_t expected) {
    expectRecord('"' + member + R"(":")" + value + '"', number(offset, expected));
  }
};

TEST_F(BaseInfo, OfAWholeReplyFillsTheWholeRecord) {
  EXPECT_EQ(format(R"({"result":"0","maxRange1":"6","maxRange2":"15","maxRange3":"30",)"
                   R"("resolution1":"0.002","resolution2":"0.005","resolution3":"0.010",)"
                   R"("minRange":":0.04","maxTare":"9.995","maxPreTare":"5.998",)"
                   R"("weightUnit":"kg","systemVersion":"V2.1.7 build 300"})"),
            240);
  const char expected[kBaseInfoSize + 1] =
      "\x06\0\0\0\x0F\0\0\0\x1E\0\0\0"      // capacities
      "\x28\0\0\0\x0B\x27\0\0\x6E\x17\0\0"  // least weight 40, tare 9995, preset tare 5998
      "\x02\0\0\0\x05\0\0\0\x0A\0\0\0"      // divisions
      "kg\0\0\0\0\0\0V2.1.7 build 300\0\0\0\0";
  EXPECT_EQ(record, std::string(expected, kBaseInfoSize));
  EXPECT_EQ(log.records(), Texts{});
}

TEST_F(BaseInfo, OfAReplyWithoutMembersIsZero) {
  expectRecord("", std::string(kBaseInfoSize, '\0'));
}

TEST_F(BaseInfo, KeepsTheCapacitiesInTheServicesUnit) {
  expectNumber("maxRange1", "15", 0, 15);
  expectNumber("maxRange2", "30", 4, 30);
  expectNumber("maxRange3", "60", 8, 60);
}

TEST_F(BaseInfo, TruncatesTheCapacities) {
  expectNumber("maxRange1", "15.9", 0, 15);
  expectNumber("maxRange2", "-15.9", 4, -15);
  expectNumber("maxRange3", "0.999", 8, 0);
}

TEST_F(BaseInfo, KeepsTheOthersInThousandths) {
  expectNumber("minRange", "0.04", 12, 40);
  expectNumber("maxTare", "9.995", 16, 9995);
  expectNumber("maxPreTare", "5.998", 20, 5998);
  expectNumber("resolution1", "0.005", 24, 5);
  expectNumber("resolution2", "0.01", 28, 10);
  expectNumber("resolution3", "0.02", 32, 20);
}

TEST_F(BaseInfo, DoesNotRoundThousandths) {
  expectNumber("minRange", "1.001", 12, 1000);
  expectNumber("maxTare", "1.001", 16, 1000);
  expectNumber("maxPreTare", "1.0019", 20, 1001);
  expectNumber("resolution1", "1.001", 24, 1000);
  expectNumber("resolution2", "-1.001", 28, -1000);
  expectNumber("resolution3", "0.0009", 32, 0);
}

TEST_F(BaseInfo, WritesNegativeNumbers) { expectNumber("maxTare", "-2.5", 16, -2500); }

TEST_F(BaseInfo, ClampsToThirtyTwoBits) {
  expectNumber("maxRange1", "2147483646.9", 0, 2147483646);
  expectNumber("maxRange1", "2147483647", 0, INT32_MAX);
  expectNumber("maxRange1", "2147483648", 0, INT32_MAX);
  expectNumber("maxRange2", "-2147483648", 4, INT32_MIN);
  expectNumber("maxRange2", "-3000000000", 4, INT32_MIN);
  expectNumber("maxTare", "2147484", 16, INT32_MAX);
  expectNumber("maxTare", "-2147484", 16, INT32_MIN);
  expectNumber("resolution1", "1e400", 24, INT32_MAX);
  expectNumber("resolution1", "-inf", 24, INT32_MIN);
}

TEST_F(BaseInfo, TakesATextWithoutANumberAsZero) {
  expectNumber("maxRange1", "", 0, 0);
  expectNumber("maxRange2", "kg", 4, 0);
  expectNumber("maxTare", "-", 16, 0);
  expectNumber("resolution1", "nan", 24, 0);
}

TEST_F(BaseInfo, TakesTheNumberThatATextBeginsWith) {
  expectNumber("maxRange1", " 15 kg", 0, 15);
  expectNumber("maxTare", "1,5", 16, 1000);
}

TEST_F(BaseInfo, TakesAJsonNumberAsMissing) {
  expectRecord(R"("maxRange1":15,"weightUnit":1,"systemVersion":null)",
               std::string(kBaseInfoSize, '\0'));
}

TEST_F(BaseInfo, DropsOneColonBeforeTheLeastWeight) {
  expectNumber("minRange", ":0.04", 12, 40);
  expectNumber("minRange", ": 0.04", 12, 40);
  expectNumber("minRange", "::0.04", 12, 0);
}

TEST_F(BaseInfo, TakesAnEmptyLeastWeightAsZero) {
  expectNumber("minRange", "", 12, 0);
  expectNumber("minRange", ":", 12, 0);
}

TEST_F(BaseInfo, DropsAColonNowhereElse) {
  expectNumber("maxTare", ":0.04", 16, 0);
  expectNumber("maxRange1", ":15", 0, 0);
}

TEST_F(BaseInfo, FillsAShortUnitUpWithZeros) {
  expectRecord(R"("weightUnit":"kg")", text(36, "kg"));
  expectRecord(R"("weightUnit":"g")", text(36, "g"));
  expectRecord(R"("weightUnit":"")", text(36, ""));
}

TEST_F(BaseInfo, LeavesAUnitOfFourBytesWithoutTerminator) {
  expectRecord(R"("weightUnit":"tons")", text(36, "tons"));
}

TEST_F(BaseInfo, CutsALongUnitBeforeTheReservedBytes) {
  expectRecord(R"("weightUnit":"pounds")", text(36, "poun"));
}

TEST_F(BaseInfo, FillsAShortVersionUpWithZeros) {
  expectRecord(R"("systemVersion":"1.2.3")", text(44, "1.2.3"));
}

TEST_F(BaseInfo, LeavesAVersionOfTwentyBytesWithoutTerminator) {
  expectRecord(R"("systemVersion":"12345678901234567890")", text(44, "12345678901234567890"));
}

TEST_F(BaseInfo, CutsALongVersionAtTwentyBytes) {
  expectRecord(R"("systemVersion":"123456789012345678901")", text(44, "12345678901234567890"));
}

}  // namespace
}  // namespace tolvex
