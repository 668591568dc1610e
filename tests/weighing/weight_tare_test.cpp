// How the tare is printed.
#include "weighing/record_test.h"

namespace tolvex {
namespace {

class TareWeight : public WeightInfoTest {
 protected:
  // printed ends in NULs, or at the end of the record.
  void expectTare(const std::string& tare, const std::string& printed) {
    expectWeight(R"("net":"1.5","tare":")" + tare + '"', weight(1, "01.5000", printed));
  }
};

TEST_F(TareWeight, HasFourDecimals) {
  expectTare("0", "00.0000");
  expectTare("0.2", "00.2000");
  expectTare("99.9999", "99.9999");
  expectTare("-9.9999", "-9.9999");
}

TEST_F(TareWeight, RunsOnBehindItsField) {
  expectTare("100", "100.0000");
  expectTare("99.99999", "100.0000");
  expectTare("-10", "-10.0000");
  expectTare("-12.5", "-12.5000");
  expectTare("12345.6789", "12345.6789");
}

TEST_F(TareWeight, OfFourteenCharactersIsTerminatedByTheLastByte) {
  expectTare("123456789.1234", "123456789.1234");
}

TEST_F(TareWeight, OfFifteenCharactersFillsTheRecord) {
  expectTare("1234567890.1234", "1234567890.1234");
}

TEST_F(TareWeight, OfMoreCharactersEndsWithTheRecord) {
  expectTare("12345678901.1234", "12345678901.123");
  expectTare("1e300", "100000000000000");
  expectTare("-1e300", "-10000000000000");
}

TEST_F(TareWeight, OfATextWithoutANumberIsZero) {
  expectTare("", "00.0000");
  expectTare("kg", "00.0000");
}

TEST_F(TareWeight, OfNoNumberOrWithoutEndIsShownAsText) {
  expectTare("inf", "    inf");
  expectTare("-inf", "   -inf");
  expectTare("nan", "    nan");
}

TEST_F(TareWeight, LeavesTheNetTextAndTheMark) {
  expectWeight(R"("net":"-12.5","tare":"250.125")", weight(1, "-12.500", "250.1250"));
}

}  // namespace
}  // namespace tolvex
