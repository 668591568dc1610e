// How the net weight is printed.
#include "weighing/record_test.h"

namespace tolvex {
namespace {

class NetWeight : public WeightInfoTest {
 protected:
  // With an empty tare behind it, so that nothing but the seven bytes counts.
  void expectNet(const std::string& net, const std::string& printed) {
    ASSERT_EQ(printed.size(), 7U);
    expectWeight(R"("tare":"0","net":")" + net + '"', weight(1, printed, "00.0000"));
  }
};

TEST_F(NetWeight, HasFourDecimalsUpTo99Point9999) {
  expectNet("0", "00.0000");
  expectNet("1.5", "01.5000");
  expectNet("0.0001", "00.0001");
  expectNet("99.9998", "99.9998");
  expectNet("99.9999", "99.9999");
}

TEST_F(NetWeight, HasThreeDecimalsAbove99Point9999) {
  expectNet("99.99991", "100.000");
  expectNet("99.99990001", "100.000");
  expectNet("100", "100.000");
  expectNet("150.5", "150.500");
  expectNet("999.999", "999.999");
}

TEST_F(NetWeight, HasFourDecimalsDownToMinus9Point99999) {
  expectNet("-0.0001", "-0.0001");
  expectNet("-1.5", "-1.5000");
  expectNet("-9.9999", "-9.9999");
}

// Four decimals round it to one character more than the field has; the mark ends it.
TEST_F(NetWeight, OfMinus9Point99999LosesItsLastDecimal) { expectNet("-9.99999", "-10.000"); }

TEST_F(NetWeight, HasThreeDecimalsBelowMinus9Point99999) {
  expectNet("-9.999991", "-10.000");
  expectNet("-10", "-10.000");
  expectNet("-12.5", "-12.500");
  expectNet("-99.999", "-99.999");
}

TEST_F(NetWeight, RoundsToItsLastDecimal) {
  expectNet("1.00004", "01.0000");
  expectNet("1.00006", "01.0001");
  expectNet("150.5006", "150.501");
  expectNet("-12.5004", "-12.500");
}

TEST_F(NetWeight, OfMinusZeroShowsItsSign) { expectNet("-0", "-0.0000"); }

TEST_F(NetWeight, OfATextWithoutANumberIsZero) {
  expectNet("", "00.0000");
  expectNet("kg", "00.0000");
  expectNet("-", "00.0000");
}

TEST_F(NetWeight, TakesTheNumberThatATextBeginsWith) { expectNet(" 1.5 kg", "01.5000"); }

TEST_F(NetWeight, OfNoNumberOrWithoutEndIsShownAsText) {
  expectNet("inf", "    inf");
  expectNet("-inf", "   -inf");
  expectNet("nan", "    nan");
  expectNet("1e400", "    inf");
}

TEST_F(NetWeight, WiderThanItsFieldEndsAtTheMark) {
  expectNet("1000.5", "1000.50");
  expectNet("-100.25", "-100.25");
  expectNet("-1000.25", "-1000.2");
  expectNet("12345678", "1234567");
}

TEST_F(NetWeight, WiderThanItsFieldRunsOnBehindTheMark) {
  expectWeight(R"("net":"12345678.125")", weight(1, "1234567", ".125"));
  expectWeight(R"("net":"1e300")", weight(1, "1000000", "000000000525047"));
}

TEST_F(NetWeight, BehindTheMarkIsOverwrittenByTheTare) {
  expectWeight(R"("net":"123456789012345.125","tare":"0.2")",
               weight(1, "1234567", std::string("00.2000\0", 8) + "125"));
}

}  // namespace
}  // namespace tolvex
