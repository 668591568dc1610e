// The API on a simulation, with clocks and timers in the test's hand.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "control/api.h"

namespace tolvex::sim {

class ApiFixture : public ::testing::Test {
 protected:
  using Milliseconds = std::chrono::milliseconds;

  ApiFixture() {
    simulation_.started = wallTime_;
    simulation_.restore = [this](TimePoint) { restore(simulation_); };
    simulation_.restoreOther = [this](Simulation& other, TimePoint) { restore(other); };
  }

  void restore(Simulation& simulation) const {
    simulation.devices.restore({}, 0);
    simulation.faults.clear();
    simulation.traffic.restart();
    if (initial_) initial_(simulation);
  }

  /// Status and body of an answer: `200 {"open":false,"openings":0}`.
  static std::string textOf(const HttpResponse& response) {
    std::string body = response.body;
    if (!body.empty() && body.back() == '\n') body.pop_back();
    return std::to_string(response.status) + " " + body;
  }

  std::string call(const std::string& method, const std::string& path,
                   const std::string& body = "") {
    return textOf(api_.call(method, path, body));
  }

  /// The body of a call that succeeds.
  nlohmann::json json(const std::string& method, const std::string& path,
                      const std::string& body = "") {
    const HttpResponse response = api_.call(method, path, body);
    EXPECT_LT(response.status, 300) << response.body;
    return nlohmann::json::parse(response.body);
  }

  /// Status, what is wrong and what mends it: `400 load_kg is 2000, ... | Send ...`.
  std::string refusal(const std::string& method, const std::string& path,
                      const std::string& body = "") {
    const HttpResponse response = api_.call(method, path, body);
    const auto parsed = nlohmann::json::parse(response.body);
    if (!parsed.contains("error")) return textOf(response);
    return std::to_string(response.status) + " " +
           parsed.at("error").at("what").get<std::string>() + " | " +
           parsed.at("error").at("remedy").get<std::string>();
  }

  /// Lets time pass, and calls what is due.
  void pass(Milliseconds time) {
    const TimePoint end = now_ + time;
    while (!timers_.empty() && timers_.front().first <= end) {
      const auto [due, function] = timers_.front();
      timers_.erase(timers_.begin());
      now_ = std::max(now_, due);
      function();
    }
    now_ = end;
  }

  Printer& ticket() { return simulation_.devices.printers.defaultPrinter(); }
  Printer& label() { return *simulation_.devices.printers.findName("Label"); }

  /// Prints a finished job with one line.
  void print(Printer& printer, const std::string& text) {
    EXPECT_EQ(printer.printText(text, 24), ResultCode::Ok);
    EXPECT_EQ(printer.finishJob(), ResultCode::Ok);
  }

  /// Notes an exchange that is complete.
  std::uint64_t exchange(const std::string& command, Half half = Half::Weighing, int job = 0) {
    const std::uint64_t number = beginExchange(command, half, job);
    simulation_.traffic.complete(number, Outcome::Answered, std::chrono::microseconds(1500));
    return number;
  }

  std::uint64_t beginExchange(const std::string& command, Half half = Half::Weighing, int job = 0) {
    TrafficEntry entry;
    entry.half = half;
    entry.connection = 3;
    entry.client = "127.0.0.1:40112";
    entry.time = wallTime_;
    entry.request = "{\"cmd\":\"" + command + "\"}";
    entry.reply = "{\"result\":\"0\"}";
    entry.requestBytes = entry.request.size();
    entry.replyBytes = entry.reply.size();
    entry.command = command;
    entry.known = true;
    entry.result = 0;
    entry.job = job;
    return simulation_.traffic.add(std::move(entry));
  }

  // 2026-11-21T11:47:01.123Z
  WallTime wallTime_{std::chrono::milliseconds(1'795'261'621'123)};
  TimePoint now_{std::chrono::hours(1)};
  // In the order in which they were set; all of them take equally long.
  std::vector<std::pair<TimePoint, std::function<void()>>> timers_;
  // What differs at the start from devices as they are built.
  std::function<void(Simulation&)> initial_;
  Simulation simulation_;
  Api api_{simulation_,
           {[this] { return now_; }, [this] { return wallTime_; },
            [this](Milliseconds delay, std::function<void()> function) {
              timers_.emplace_back(now_ + delay, std::move(function));
            },
            "{\"openapi\":\"3.1.0\"}"}};
};

}  // namespace tolvex::sim
