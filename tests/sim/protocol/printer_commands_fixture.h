// A service whose printers are asked with a line of names and values.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "service_fixture.h"
#include "sim/devices/printer_fixture.h"

namespace tolvex::sim {

class PrinterCommandsFixture : public ServiceFixture {
 protected:
  using Members = std::initializer_list<std::pair<std::string_view, std::string_view>>;

  /// The result of a request on the printing port, of which the reply must not hold more.
  std::string send(std::string_view command, Members members = {}) {
    const std::string reply = printing(request(command, members));
    constexpr std::string_view kBegin = R"({"result":")";
    constexpr std::string_view kEnd = R"("})";
    const std::size_t frame = kBegin.size() + kEnd.size();
    const std::string result =
        reply.size() > frame ? reply.substr(kBegin.size(), reply.size() - frame) : "";
    return reply == std::string(kBegin) + result + std::string(kEnd) ? result : reply;
  }

  /// Each of the members has to be missed when it is left out, and when it is no text.
  void expectAllNeeded(std::string_view command, Members members) {
    for (const auto& left : members) {
      std::string without;
      for (const auto& [name, value] : members) {
        if (name != left.first) without += member(name, value);
      }
      const std::string begin = R"({"cmd":")" + std::string(command) + "\"" + without;
      const std::string number = ",\"" + std::string(left.first) + "\":1";
      EXPECT_EQ(printing(begin + "}"), R"({"result":"8"})") << begin;
      EXPECT_EQ(printing(begin + number + "}"), R"({"result":"8"})") << begin << number;
    }
  }

  static std::string request(std::string_view command, Members members) {
    std::string text = R"({"cmd":")" + std::string(command) + "\"";
    for (const auto& [name, value] : members) text += member(name, value);
    return text + "}";
  }

  /// What stands on the paper that a printer is working on.
  Items paperOf(std::string_view printer) {
    const Job* job = devices_.printers.findName(printer)->job();
    return job == nullptr ? Items{} : itemsOf(job->paper());
  }

  /// Texts that are no whole number of 32 bits.
  static constexpr const char* kNoNumbers[] = {"",
                                               " ",
                                               "x",
                                               "1.5",
                                               "+1",
                                               " 1",
                                               "1 ",
                                               "0x1",
                                               "1e1",
                                               "true",
                                               "2147483648",
                                               "-2147483649",
                                               "999999999999999999999999999999"};

 private:
  static std::string member(std::string_view name, std::string_view value) {
    return ",\"" + std::string(name) + "\":\"" + std::string(value) + "\"";
  }
};

}  // namespace tolvex::sim
