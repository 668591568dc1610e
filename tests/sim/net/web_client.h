// A client of HTTP for the tests, which leaves every byte of a request to them.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "test_client.h"

namespace tolvex::sim {

struct Answer {
  std::string head;  // with the empty line
  std::string body;

  /// "404 Not Found: BODY".
  std::string summary() const {
    const auto begin = head.find(' ') + 1;
    return head.substr(begin, head.find('\r') - begin) + ": " + body;
  }
};

class WebClient : public TestClient {
 public:
  using TestClient::TestClient;

  /// The next whole answer, of a length that it tells; `body` is false for an answer to HEAD.
  Answer next(bool body = true) {
    Answer answer;
    while (received_.find("\r\n\r\n") == std::string::npos) more();
    answer.head = received_.substr(0, received_.find("\r\n\r\n") + 4);
    received_.erase(0, answer.head.size());
    const std::string_view name = "Content-Length: ";
    const auto length = answer.head.find(name);
    if (!body || length == std::string::npos) return answer;
    const std::size_t size = std::stoul(answer.head.substr(length + name.size()));
    while (received_.size() < size) more();
    answer.body = received_.substr(0, size);
    received_.erase(0, size);
    return answer;
  }

  /// What has come beyond the answers taken so far.
  const std::string& rest() const { return received_; }

 private:
  void more() {
    const std::string part = receive();
    if (part.empty()) throw std::runtime_error("the server has closed after \"" + received_ + "\"");
    received_ += part;
  }

  std::string received_;
};

}  // namespace tolvex::sim
