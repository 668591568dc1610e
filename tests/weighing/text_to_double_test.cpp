#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "weighing/record_text.h"

namespace tolvex {
namespace {

// Bit for bit, so that -0 is not 0; of nan the sign counts only.
bool same(double left, double right) {
  if (std::isnan(left) && std::isnan(right)) return std::signbit(left) == std::signbit(right);
  return std::memcmp(&left, &right, sizeof(left)) == 0;
}

void expectAsStrtod(const std::string& text) {
  char* end = nullptr;
  double expected = std::strtod(text.c_str(), &end);
  if (end == text.c_str()) expected = 0;  // where MinGW's strtod gives -0 for a sign alone
  const double value = textToDouble(text.c_str());
  EXPECT_TRUE(same(value, expected)) << '"' << text << "\": " << value << ", not " << expected;
}

TEST(TextToDouble, ReadsDecimalNumbers) {
  for (const char* const text : {"0",
                                 "1",
                                 "9",
                                 "15",
                                 "1.5",
                                 "0.005",
                                 "1.001",
                                 "99.9999",
                                 "99.99991",
                                 "-9.99999",
                                 "-12.5",
                                 "0.1",
                                 "0.2",
                                 "0.3",
                                 "1e3",
                                 "1e+5",
                                 "1E+05",
                                 "1e-5",
                                 "1.5e2",
                                 "007",
                                 "00.50",
                                 "1.",
                                 ".5",
                                 "-.5",
                                 "+1",
                                 "+1.5",
                                 "-0",
                                 "-0.0",
                                 "0e5",
                                 "-0e5",
                                 "1e0",
                                 "3.14159265358979323846",
                                 "123456789012345678901234567890",
                                 "0.000000000000000000000000000001",
                                 "9007199254740993",
                                 "2.2250738585072011e-308",
                                 "1.7976931348623157e308",
                                 "5e-324"}) {
    expectAsStrtod(text);
  }
}

TEST(TextToDouble, SkipsBlanksBeforeTheNumber) {
  for (const char* const text : {" 1", "\t1.5", "\n-1", " \t\n\v\f\r2", "  +3", " - 1"}) {
    expectAsStrtod(text);
  }
}

TEST(TextToDouble, StopsWhereTheNumberEnds) {
  for (const char* const text :
       {"1.5kg", "1,5", "1 2", "1.5.5", "1e", "1e+", "1e-", "1ex", "1e+-5", "1e--5", "1.5e2.5",
        "1_000", "1-2", "1+2", "12:30", "1d5", "1f", "1.e5", "1'000"}) {
    expectAsStrtod(text);
  }
}

TEST(TextToDouble, IsZeroForATextWithoutANumber) {
  for (const char* const text :
       {"",    " ",   "kg", "abc", ".",   "-.",  "e5", ".e5", ":1", ",5", "_1",  "--1", "++1",
        "+-1", "-+1", "-",  "+",   "- 1", "-kg", "$1", "i",   "in", "na", "nax", "-in"}) {
    expectAsStrtod(text);
    EXPECT_TRUE(same(textToDouble(text), 0.0)) << text;
  }
}

TEST(TextToDouble, OfTooLargeANumberIsInfinite) {
  for (const char* const text :
       {"1e309", "1e400", "1e99999999999999999999", "1e+400", "1e+99999999999999999999", "1.8e308",
        "10e308", "0.1e310", "0x1p1024", "0x1p+99999999999"}) {
    expectAsStrtod(text);
    EXPECT_EQ(textToDouble(text), std::numeric_limits<double>::infinity()) << text;
  }
  expectAsStrtod("-1e400");
  expectAsStrtod("1" + std::string(400, '0'));
  expectAsStrtod("1" + std::string(400, '0') + "e-400");
}

TEST(TextToDouble, OfTooSmallANumberIsZero) {
  for (const char* const text : {"1e-400", "1e-99999999999999999999", "2e-324", "0.1e-323",
                                 "0x1p-1080", "0x0.0001p-1070", "0x1p-99999999999"}) {
    expectAsStrtod(text);
    EXPECT_EQ(textToDouble(text), 0.0) << text;
  }
  expectAsStrtod("-1e-400");
  expectAsStrtod("0." + std::string(400, '0') + "1");
  expectAsStrtod("0." + std::string(400, '0') + "1e400");
}

TEST(TextToDouble, TakesAnExponentAtTheEndOfTheIntegers) {
  expectAsStrtod("1e2147483647");
  expectAsStrtod("12e+2147483647");
  expectAsStrtod("1e-2147483648");
  expectAsStrtod("0.001e-2147483648");
  expectAsStrtod("0x1p2147483647");
}

TEST(TextToDouble, ReadsHexadecimalNumbers) {
  for (const char* const text : {"0x10",
                                 "0X10",
                                 "0xff",
                                 "0xFF",
                                 "0x1.8",
                                 "0x.8",
                                 "0x1p4",
                                 "0x1P-4",
                                 "0x1p+4",
                                 "-0x10",
                                 "+0x10",
                                 " 0x10",
                                 "0x1.8p1",
                                 "0x10kg",
                                 "0x",
                                 "0xg",
                                 "0x.",
                                 "0x.p1",
                                 "0x-1",
                                 "0x+1",
                                 "0xp1",
                                 "0x1p",
                                 "0x1p+",
                                 "0x1p+-4",
                                 "0x1p-+4",
                                 "0x1px",
                                 "0xinf",
                                 "0xnan",
                                 "0x0x1",
                                 "00x1",
                                 "0x123456789ABCDEF01",
                                 "0x1p-1074",
                                 "0x0p99999999999"}) {
    expectAsStrtod(text);
  }
}

TEST(TextToDouble, ReadsNumbersOfAnyLength) {
  std::mt19937 random(20261122);
  for (int round = 0; round < 50000; ++round) {
    std::string text = random() % 3 == 0 ? "-" : "";
    for (auto count = random() % 20; count > 0; --count) text += "0123456789"[random() % 10];
    if (random() % 4 != 0) text += '.';
    for (auto count = random() % 12; count > 0; --count) text += "0123456789"[random() % 10];
    if (random() % 10 == 0) text += "e k.-"[random() % 5];
    expectAsStrtod(text);
  }
}

TEST(TextToDouble, ReadsInfinityAndNan) {
  for (const char* const text :
       {"inf", "INF", "Inf", "-inf", "+inf", " inf", "infinity", "-INFINITY", "infinit", "infx",
        "nan", "NaN", "NAN", "-nan", "nan(123)", "nan(", "nan(x", "nanx", "-nan(1)"}) {
    expectAsStrtod(text);
  }
}

TEST(TextToDouble, EqualsStrtodForTextsOfAllKinds) {
  const char* const parts[] = {"0",     "1",    "9",   "12345678901234567890",
                               ".",     "e",    "E",   "+",
                               "-",     "0x",   "p",   "P",
                               "inf",   "nan",  " ",   "\t",
                               "400",   "-400", "308", "-320",
                               "1024",  "a",    "f",   "000000000000000000000000",
                               "-1080", ":",    ",",   "(a)",
                               "x"};
  std::mt19937 random(20240305);
  for (int round = 0; round < 50000; ++round) {
    std::string text;
    for (unsigned count = 1 + static_cast<unsigned>(random() % 6); count > 0; --count) {
      text += parts[random() % std::size(parts)];
    }
    expectAsStrtod(text);
  }
}

}  // namespace
}  // namespace tolvex
