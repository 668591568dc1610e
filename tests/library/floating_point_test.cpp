// Calls of an application that computes by rules of its own: Delphi and C++Builder let invalid
// operations raise an exception, games and audio software flush small numbers to zero.
#ifdef __x86_64__
#include <xmmintrin.h>

#include <initializer_list>

#include "support/library_test.h"

namespace tolvex::test {
namespace {

constexpr unsigned kTrapsOff = 0x1F80;  // all of them, as a program begins
constexpr unsigned kTrapsOn = 0x1000;   // all but that for an inexact result
constexpr unsigned kRoundUp = 0x4000;
constexpr unsigned kRoundDown = 0x2000;
constexpr unsigned kFlushToZero = 0x8040;  // results, and operands

class FloatingPoint : public ServiceTest {
 protected:
  // The record, or the base information, that a reply becomes in an environment.
  std::string weightIn(unsigned environment, const std::string& reply) {
    return recordIn(environment, reply, read_standard);
  }
  std::string baseInfoIn(unsigned environment, const std::string& reply) {
    return recordIn(environment, reply, read_baseinfo);
  }

 private:
  std::string recordIn(unsigned environment, const std::string& reply, int (*read)(char*)) {
    service.answers(reply);
    BaseInfoBuffer buffer;  // the larger one
    _mm_setcsr(environment);
    const int verdict = read(buffer);
    const unsigned after = _mm_getcsr();
    _mm_setcsr(kTrapsOff);
    EXPECT_EQ(verdict, TOLVEX_OK) << reply;
    EXPECT_EQ(after, environment) << "the application's own is back, without our flags";
    return buffer.bytes();
  }
};

std::string weight(const std::string& net, const std::string& tare) {
  return R"({"result":"0","net":")" + net + R"(","tare":")" + tare +
         R"(","zero":"0","tareType":"N","weightUnit":"kg"})";
}

std::string baseInfo(const std::string& number) {
  std::string reply = R"({"result":"0")";
  for (const char* member : {"maxCapacity1", "minRange", "tareMax", "division1"}) {
    reply += std::string(",\"") + member + "\":\"" + number + '"';
  }
  return reply + '}';
}

const char* const kNumbers[] = {
    "nan",     "-nan",   "inf",       "-inf",     "1e999",    "1e-320", "0.1",
    "1.00005", "2.5e-5", "-9.999995", "99.99995", "4.9e-324", "1e308",  "123456789.123456789"};

TEST_F(FloatingPoint, RecordsAreTheSameInEveryEnvironment) {
  for (const char* number : kNumbers) {
    const std::string expected = weightIn(kTrapsOff, weight(number, number));
    const std::string expectedInfo = baseInfoIn(kTrapsOff, baseInfo(number));
    for (const unsigned environment :
         {kTrapsOn, kTrapsOff | kRoundUp, kTrapsOff | kRoundDown, kTrapsOff | kFlushToZero,
          kTrapsOn | kRoundUp | kFlushToZero}) {
      EXPECT_EQ(weightIn(environment, weight(number, number)), expected) << number;
      EXPECT_EQ(baseInfoIn(environment, baseInfo(number)), expectedInfo) << number;
    }
  }
}

TEST_F(FloatingPoint, NumbersOutsideStringsRaiseNothing) {
  for (const char* number : {"1e308", "1.7976931348623157e308", "1e-320", "1e999", "-1e999"}) {
    service.answers(std::string(R"({"result":"0","x":)") + number + '}');
    _mm_setcsr(kTrapsOn);
    host.call(send_zero);
    _mm_setcsr(kTrapsOff);
  }
  EXPECT_EQ(host.call(getLastErrCode), -1) << "a number too large for the parser";
}

}  // namespace
}  // namespace tolvex::test
#endif
