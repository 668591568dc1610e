// The host application may have chosen a locale with a decimal comma.
#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "weighing/record_test.h"
#include "weighing/record_text.h"

namespace tolvex {
namespace {

template <typename Base>
class WithDecimalComma : public Base {
 protected:
  void SetUp() override {
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "LOCPATH names no such locale";
    char printed[8];
    std::snprintf(printed, sizeof(printed), "%.1f", 1.5);
    ASSERT_STREQ(printed, "1,5");
    ASSERT_EQ(std::strtod("1,5", nullptr), 1.5);
  }
  void TearDown() override { std::setlocale(LC_ALL, "C"); }
};

using NumbersWithDecimalComma = WithDecimalComma<::testing::Test>;
using BaseInfoWithDecimalComma = WithDecimalComma<BaseInfoTest>;
using WeightWithDecimalComma = WithDecimalComma<WeightInfoTest>;

TEST_F(NumbersWithDecimalComma, AreReadWithAPoint) {
  EXPECT_EQ(textToDouble("1.5"), 1.5);
  EXPECT_EQ(textToDouble("1,5"), 1.0);
  EXPECT_EQ(textToDouble("-0.25e1"), -2.5);
  EXPECT_EQ(textToDouble("0x1.8p1"), 3.0);
}

TEST_F(NumbersWithDecimalComma, ArePrintedWithAPoint) {
  char record[16] = {};
  printWeight(record, sizeof(record), 0, 1.5, 4);
  EXPECT_STREQ(record, "01.5000");
  printWeight(record, sizeof(record), 0, -1234.5, 3);
  EXPECT_STREQ(record, "-1234.500");
}

TEST_F(WeightWithDecimalComma, IsTheSame) {
  EXPECT_EQ(format(good(R"("net":"-12.5","tare":"0.2","zero":"0","tareType":"N")")), 240);
  EXPECT_EQ(record, weight(1, "-12.500", "00.2000"));
}

TEST_F(BaseInfoWithDecimalComma, IsTheSame) {
  EXPECT_EQ(format(good(R"("maxRange1":"15.9","resolution1":"0.005","minRange":":0.04")")), 240);
  std::string expected(kBaseInfoSize, '\0');
  expected[0] = 15;
  expected[12] = 40;
  expected[24] = 5;
  EXPECT_EQ(record, expected);
}

}  // namespace
}  // namespace tolvex
