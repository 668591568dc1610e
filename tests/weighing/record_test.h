// What the tests of the two records stand on.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/log_watch.h"
#include "weighing/records.h"

namespace tolvex {

using Texts = std::vector<std::string>;

// A reply with the result "0" and these members, JSON as it is sent.
inline std::string good(const std::string& members) {
  return R"({"result":"0")" + (members.empty() ? "" : "," + members) + "}";
}

// Lets a formatter fill a record of '#', with more of them behind it, and keeps the record.
class RecordTest : public ::testing::Test {
 protected:
  template <typename Format>
  int fill(std::size_t size, Format format) {
    std::string bytes(size + kGuard, '#');
    const int verdict = format(bytes.data());
    EXPECT_EQ(bytes.substr(size), std::string(kGuard, '#')) << "written past the record";
    record = bytes.substr(0, size);
    return verdict;
  }

  void expectUntouched() { EXPECT_EQ(record, std::string(record.size(), '#')); }

  LogWatch log;
  std::string record;

 private:
  static constexpr std::size_t kGuard = 400;
};

class BaseInfoTest : public RecordTest {
 protected:
  int format(const std::string& reply) {
    return fill(kBaseInfoSize, [&](char* into) { return FormatBaseInfo(reply.c_str(), into); });
  }
};

class WeightInfoTest : public RecordTest {
 protected:
  int format(const std::string& reply, bool highResolution = false) {
    return fill(kWeightSize,
                [&](char* into) { return WeightInfo(reply.c_str(), highResolution, into); });
  }

  // A record: the status, seven bytes of net text, the mark, and from there the tare text; what a
  // text does not fill is zero.
  static std::string weight(char status, const std::string& net, const std::string& tare) {
    std::string bytes = status + net;
    bytes.resize(8, '\0');
    bytes += 'P' + tare;
    bytes.resize(kWeightSize, '\0');
    return bytes;
  }

  void expectWeight(const std::string& members, const std::string& expected) {
    EXPECT_EQ(format(good(members)), 240) << members;
    EXPECT_EQ(record, expected) << members;
  }
};

}  // namespace tolvex
