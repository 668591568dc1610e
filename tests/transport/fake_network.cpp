#include "transport/fake_network.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <mutex>

namespace tolvex::test {

FakeNetwork network;

int countOf(const std::string& call) {
  return static_cast<int>(std::count(network.calls.begin(), network.calls.end(), call));
}

}  // namespace tolvex::test

namespace tolvex::platform::net {
namespace {

using test::network;
using test::Outcome;

std::mutex mutex;  // connections are made and ended in several threads at once

std::string nameOf(Socket socket) {
  return socket == kInvalidSocket ? "invalid" : std::to_string(socket);
}

void note(const std::string& call) { network.calls.push_back(call); }

template <typename Queue, typename Item>
Item next(Queue& outcomes, Item otherwise) {
  if (!outcomes.empty()) {
    otherwise = outcomes.front();
    outcomes.pop_front();
  }
  if (otherwise.error != test::kErrorStays) network.lastError = otherwise.error;
  return otherwise;
}

int nextResult(std::deque<Outcome>& outcomes, int otherwise) {
  return next(outcomes, Outcome{otherwise}).result;
}

std::string dotted(std::uint32_t address) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) {
    text += std::to_string((address >> shift) & 255) + (shift > 0 ? "." : "");
  }
  return text;
}

}  // namespace

void startUp() {
  const std::lock_guard<std::mutex> lock(mutex);
  note("startUp");
}

void cleanUp() {
  const std::lock_guard<std::mutex> lock(mutex);
  note("cleanUp");
}

int lastError() {
  const std::lock_guard<std::mutex> lock(mutex);
  return network.lastError;
}

Socket createTcp(std::uint32_t) {
  static Socket count = 0;
  const std::lock_guard<std::mutex> lock(mutex);
  const bool made = nextResult(network.creates, 0) >= 0;
  note(made ? "create " + nameOf(++count) : "create fails");
  return made ? count : kInvalidSocket;
}

void shutDown(Socket socket) {
  const std::lock_guard<std::mutex> lock(mutex);
  note("shutDown " + nameOf(socket));
}

void release(Socket socket) {
  const std::lock_guard<std::mutex> lock(mutex);
  note("release " + nameOf(socket));
}

bool setNonBlocking(Socket socket, bool on) {
  const std::lock_guard<std::mutex> lock(mutex);
  note("nonBlocking " + nameOf(socket) + (on ? " on" : " off"));
  return nextResult(network.nonBlocking, 0) >= 0;
}

std::uint32_t parseAddress(const char* text) {
  unsigned parts[4];
  if (std::sscanf(text, "%u.%u.%u.%u", &parts[0], &parts[1], &parts[2], &parts[3]) != 4) {
    return kNoAddress;
  }
  return parts[0] << 24 | parts[1] << 16 | parts[2] << 8 | parts[3];
}

std::uint32_t lookUpHost(const char* name) {
  const std::lock_guard<std::mutex> lock(mutex);
  note(std::string("lookUp ") + name);
  if (network.lookUpError != test::kErrorStays) network.lastError = network.lookUpError;
  return network.lookedUp;
}

int connectTo(Socket socket, std::uint32_t hostOrderAddress, std::uint16_t port) {
  const std::lock_guard<std::mutex> lock(mutex);
  note("connect " + nameOf(socket) + " " + dotted(hostOrderAddress) + ":" + std::to_string(port));
  return nextResult(network.connects, 0);
}

Readiness wait(Socket socket, std::uint32_t timeoutMs, bool forWrite) {
  const std::lock_guard<std::mutex> lock(mutex);
  note("wait " + nameOf(socket) + " " + std::to_string(timeoutMs) +
       (forWrite ? " write" : " read"));
  return next(network.waits, test::WaitOutcome{test::kReady}).readiness;
}

bool pendingError(Socket socket, int& error) {
  const std::lock_guard<std::mutex> lock(mutex);
  note("pendingError " + nameOf(socket));
  error = 10061;
  return nextResult(network.pendingErrors, 0) >= 0;
}

int send(Socket socket, const char* data, unsigned length) {
  const std::lock_guard<std::mutex> lock(mutex);
  note("send " + nameOf(socket) + " " + std::string(data, length));
  return nextResult(network.sends, static_cast<int>(length));
}

int receive(Socket socket, char* buffer, unsigned length) {
  static const char reply[] = "reply";
  const std::lock_guard<std::mutex> lock(mutex);
  note("receive " + nameOf(socket) + " " + std::to_string(length));
  const int most = static_cast<int>(std::min<std::size_t>(length, std::strlen(reply)));
  const int count = nextResult(network.receives, most);
  if (count > 0) std::memcpy(buffer, reply, static_cast<std::size_t>(std::min(count, most)));
  return count;
}

}  // namespace tolvex::platform::net
