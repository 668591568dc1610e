// A connection that a test speaks for.
#pragma once

#include <algorithm>
#include <cstring>
#include <deque>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "transport/tcp_client.h"

namespace tolvex {

// Takes every request and answers each with the same reply, or with replies in turn before that.
// Records what it was given.
class ScriptedConnection final : public CTcpClient {
 public:
  ScriptedConnection() : CTcpClient("127.0.0.1", 1) {}

  bool Open() override { return true; }

  int Send(const char* data, unsigned length) override {
    requests.emplace_back(data, length);
    return sendResult.value_or(static_cast<int>(length));
  }

  int RecvTimeout(char* buffer, unsigned length, unsigned timeoutMs) override {
    receives.push_back({length, timeoutMs});
    if (receiveFails) throw std::bad_alloc();
    if (!unread.empty()) return deliver(unread, buffer, length);
    if (receiveResult) return *receiveResult;
    if (nextReplies.empty()) return deliver(reply, buffer, length);
    const std::string next = nextReplies.front();
    nextReplies.pop_front();
    return deliver(next, buffer, length);
  }

  bool HasUnread() override { return !unread.empty(); }
  void Close() override {
    ++closed;
    unread.clear();
  }

  struct Receive {
    unsigned capacity;
    unsigned timeoutMs;
    bool operator==(const Receive& other) const {
      return capacity == other.capacity && timeoutMs == other.timeoutMs;
    }
  };

  std::string reply = R"({"result":"0"})";
  std::deque<std::string> nextReplies;
  std::optional<int> sendResult;     // instead of the length
  std::optional<int> receiveResult;  // instead of the reply
  bool receiveFails = false;         // for want of memory
  std::string unread;                // what waits, until the connection is closed
  int closed = 0;
  std::vector<std::string> requests;
  std::vector<Receive> receives;

 private:
  static int deliver(const std::string& text, char* buffer, unsigned length) {
    const std::size_t size = std::min<std::size_t>(length, text.size());
    std::memcpy(buffer, text.data(), size);
    return static_cast<int>(size);
  }
};

}  // namespace tolvex
