// A web server on a free port with a site for tests, running on a thread of its own.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "devices/devices.h"
#include "exchange/exchanger.h"
#include "exchange/service_answerer.h"
#include "net/server.h"
#include "net/web.h"
#include "protocol/service.h"
#include "web_client.h"

namespace tolvex::sim {

/// What a viewer is to be told, for all viewers: each has a place of its own in it.
using News = std::vector<std::string>;

class NewsFeed : public LiveFeed {
 public:
  NewsFeed(const News& news, int& feeds, int& pulls) : news_(news), feeds_(feeds), pulls_(pulls) {
    ++feeds_;
  }
  ~NewsFeed() override { --feeds_; }
  NewsFeed(const NewsFeed&) = delete;
  NewsFeed& operator=(const NewsFeed&) = delete;

  std::string next() override {
    ++pulls_;
    return told_ < news_.size() ? news_[told_++] : std::string();
  }

 private:
  const News& news_;
  int& feeds_;
  int& pulls_;
  std::size_t told_ = 0;
};

/// Tells what it was asked; /later is answered when the test says so, /long is long, /fail fails,
/// /now looks whether the client is still there.
class TestSite : public WebSite {
 public:
  void answer(const HttpRequest& request, std::function<void(HttpResponse)> respond) override {
    ++requests;
    if (request.path == "/fail") throw std::runtime_error("no paper");
    HttpResponse response;
    response.contentType = "text/plain; charset=utf-8";
    if (request.path == "/later") {
      later.push_back(std::move(respond));
      clientLeft.push_back(request.clientLeft);
      if (asked) asked();
      return;
    }
    if (request.path == "/now") leftAtOnce.push_back(request.clientLeft());
    if (request.path == "/picture") response.contentType = "image/svg+xml";
    response.body = request.path == "/long" ? std::string(kLong, 'x') : describe(request);
    respond(response);
  }

  std::unique_ptr<LiveFeed> openFeed(const HttpRequest& request) override {
    if (request.query.count("nothing") != 0) return nullptr;
    opened.push_back(describe(request));
    return std::make_unique<NewsFeed>(news, feeds, pulls);
  }

  static std::string describe(const HttpRequest& request) {
    std::string text = request.method + " " + request.path;
    for (const auto& [name, value] : request.query) text.append(" ").append(name + "=" + value);
    if (!request.contentType.empty()) text += " [" + request.contentType + "]";
    if (request.body.size() > 100) return text + " " + std::to_string(request.body.size());
    return request.body.empty() ? text : text + " \"" + request.body + "\"";
  }

  static constexpr std::size_t kLong = 8 * 1024 * 1024;

  // All of it belongs to the server's thread.
  int requests = 0;
  std::deque<std::function<void(HttpResponse)>> later;
  std::deque<std::function<bool()>> clientLeft;
  std::vector<bool> leftAtOnce;  // whether clients had left when /now was asked for
  std::function<void()> asked;   // called when /later was asked for
  News news;
  std::vector<std::string> opened;
  int feeds = 0;
  int pulls = 0;
};

class WebFixture : public ::testing::Test {
 protected:
  explicit WebFixture(const WebTimes& times = {})
      : port_(server_.serveWeb("127.0.0.1", 0, site_, times)), thread_([this] { server_.run(); }) {}

  ~WebFixture() override { stop(); }

  void stop() {
    server_.stop();
    if (thread_.joinable()) thread_.join();
  }

  /// Calls `function` on the server's thread and returns its result.
  template <typename Function>
  auto onServer(Function function) {
    std::packaged_task<decltype(function())()> task(std::move(function));
    auto result = task.get_future();
    server_.post([&task] { task(); });
    return result.get();
  }

  /// Waits until `condition`, which is looked at on the server's thread, is true.
  void await(const std::function<bool()>& condition) {
    std::promise<void> done;
    std::function<void()> look = [&] {
      if (condition()) return done.set_value();
      server_.after(std::chrono::milliseconds(1), look);
    };
    server_.post(look);
    if (done.get_future().wait_for(std::chrono::seconds(30)) != std::future_status::ready) {
      stop();  // what refers to this function is no longer called
      throw std::runtime_error("the condition did not become true");
    }
  }

  std::string host() const { return "127.0.0.1:" + std::to_string(port_); }

  /// A request with the Host header and further headers, each with its line end.
  std::string request(const std::string& start, const std::string& headers = "",
                      const std::string& body = "") const {
    const std::string length =
        body.empty() ? "" : "Content-Length: " + std::to_string(body.size()) + "\r\n";
    return start + " HTTP/1.1\r\nHost: " + host() + "\r\n" + headers + length + "\r\n" + body;
  }

  /// Status and body of the answer to a request on a connection of its own.
  std::string ask(const std::string& bytes) const {
    WebClient client(port_);
    client.send(bytes);
    return client.next().summary();
  }

  TestSite site_;
  Devices devices_;
  Service service_{devices_};
  ServiceAnswerer answerer_{service_};
  FaultBoard faults_;
  TrafficLog traffic_;
  Exchanger exchanger_{answerer_, faults_, traffic_, devices_.printers.jobs()};
  Server server_{exchanger_, {}};
  std::uint16_t port_;
  std::thread thread_;
};

}  // namespace tolvex::sim
