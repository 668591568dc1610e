// A server on free ports, running on a thread of its own.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "devices/devices.h"
#include "exchange/exchanger.h"
#include "exchange/service_answerer.h"
#include "net/server.h"
#include "protocol/service.h"

namespace tolvex::sim {

class ServerFixture : public ::testing::Test {
 protected:
  ServerFixture()
      : weighingPort_(server_.listen(Half::Weighing, "127.0.0.1", 0)),
        printingPort_(server_.listen(Half::Printing, "127.0.0.1", 0)),
        thread_([this] { server_.run(); }) {}

  ~ServerFixture() override {
    server_.stop();
    thread_.join();
  }

  /// Calls `function` on the server's thread and returns its result.
  template <typename Function>
  auto onServer(Function function) {
    std::packaged_task<decltype(function())()> task(std::move(function));
    auto result = task.get_future();
    server_.post([&task] { task(); });
    return result.get();
  }

  /// Waits until `condition`, asked on the server's thread, is true; fails after 30 seconds.
  template <typename Condition>
  void await(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!onServer(condition)) {
      if (std::chrono::steady_clock::now() > end) throw std::runtime_error("waited in vain");
      std::this_thread::yield();
    }
  }

  /// Waits until the port has no clients any more.
  void awaitNoClients(Half half) {
    await([this, half] { return traffic_.connections(half) == 0; });
  }

  Devices devices_;
  Service service_{devices_};
  ServiceAnswerer answerer_{service_};
  FaultBoard faults_;
  TrafficLog traffic_;
  Exchanger exchanger_{answerer_, faults_, traffic_, devices_.printers.jobs()};
  /// Written by the server's thread; to be read through onServer().
  std::promise<std::string> firstTrouble_;
  int troubles_ = 0;
  Server server_{exchanger_, {[this](const std::string& text) {
                   if (++troubles_ == 1) firstTrouble_.set_value(text);
                 }}};
  std::uint16_t weighingPort_;
  std::uint16_t printingPort_;
  std::thread thread_;
};

}  // namespace tolvex::sim
