// What the tests through the built library's exports have in common.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "api/exports.h"
#include "support/host.h"
#include "support/log_reader.h"
#include "support/scripted_service.h"

namespace tolvex::test {

// The library's context lasts as long as the process, so each of these tests needs a process of its
// own; CTest gives it one.
class LibraryTest : public ::testing::Test {
 protected:
  LibraryTest() {
    static unsigned tests = 0;
    if (++tests > 1) {
      ADD_FAILURE() << "one process for each test: run these through ctest";
      std::abort();
    }
  }

  Host host;
  LogReader log{host.logFile()};
};

constexpr char kOk[] = R"({"result":"0"})";

// With a service that listens on the host's address.
class ServiceTest : public LibraryTest {
 protected:
  ScriptedService service{host.address()};
};

// A caller's buffer of size bytes filled with '#', with guard bytes behind it.
template <std::size_t size>
class CallerBuffer {
 public:
  CallerBuffer() {
    bytes_.fill('#');
    bytes_.back() = '\0';  // some buffers are read as text first
  }
  explicit CallerBuffer(const char* text) : CallerBuffer() {
    const std::string begin = text;
    begin.copy(bytes_.data(), size);
    bytes_[begin.size()] = '\0';
  }
  operator char*() { return bytes_.data(); }
  std::string bytes() const { return std::string(bytes_.data(), size); }
  bool isUntouched() const { return *this == CallerBuffer(); }
  bool guardHolds() const { return CallerBuffer().guard() == guard(); }
  bool operator==(const CallerBuffer& other) const { return bytes_ == other.bytes_; }

 private:
  std::string guard() const { return std::string(bytes_.data() + size, kGuard); }
  static constexpr std::size_t kGuard = 64;
  std::array<char, size + kGuard> bytes_;
};

using WeightBuffer = CallerBuffer<24>;
using BaseInfoBuffer = CallerBuffer<64>;
using TareBuffer = CallerBuffer<10>;

// A text followed by NULs up to the size.
inline std::string padded(std::string text, std::size_t size) {
  text.resize(size, '\0');
  return text;
}

}  // namespace tolvex::test
