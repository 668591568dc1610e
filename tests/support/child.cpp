#include "support/child.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "support/os_child.h"

namespace tolvex::test {
namespace {

constexpr std::chrono::seconds kLongestWait{60};
constexpr int kStreams = 2;  // output and error

}  // namespace

struct Child::Parts {
  explicit Parts(const os::Process& started) : process(started) {
    readers.emplace_back([this] { collect(process.output, out); });
    readers.emplace_back([this] { collect(process.error, err); });
  }

  void collect(std::intptr_t stream, std::string& text) {
    char piece[4096];
    for (std::size_t count; (count = os::read(stream, piece, sizeof(piece))) > 0;) {
      const std::lock_guard<std::mutex> lock(mutex);
      std::copy_if(piece, piece + count, std::back_inserter(text),
                   [](char c) { return c != '\r'; });
      changed.notify_all();
    }
    const std::lock_guard<std::mutex> lock(mutex);
    ++ended;
    changed.notify_all();
  }

  void closeInput() {
    if (hasInput) os::close(process.input);
    hasInput = false;
  }

  int end() {
    closeInput();
    for (std::thread& reader : readers) reader.join();
    readers.clear();
    os::close(process.output);
    os::close(process.error);
    isOver = true;
    return os::wait(process);
  }

  os::Process process;
  bool hasInput = true;
  bool isOver = false;
  std::mutex mutex;
  std::condition_variable changed;
  std::string out;
  std::string err;
  std::size_t read = 0;  // bytes of `out` that readLine has given
  int ended = 0;         // streams
  std::vector<std::thread> readers;
};

Child::Child(const std::vector<std::string>& command, const Environment& environment)
    : parts_(std::make_unique<Parts>(os::start(command, environment))) {}

Child::~Child() {
  if (parts_->isOver) return;
  kill();
  parts_->end();
}

void Child::write(const std::string& text) { os::write(parts_->process.input, text); }

void Child::closeInput() { parts_->closeInput(); }

std::optional<std::string> Child::readLine() {
  std::unique_lock<std::mutex> lock(parts_->mutex);
  std::size_t end = std::string::npos;
  parts_->changed.wait_for(lock, kLongestWait, [&] {
    end = parts_->out.find('\n', parts_->read);
    return end != std::string::npos || parts_->ended == kStreams;
  });
  if (end == std::string::npos) return std::nullopt;
  const std::string line = parts_->out.substr(parts_->read, end - parts_->read);
  parts_->read = end + 1;
  return line;
}

bool Child::endsUntil(std::chrono::steady_clock::time_point limit) {
  std::unique_lock<std::mutex> lock(parts_->mutex);
  return parts_->changed.wait_until(lock, limit, [this] { return parts_->ended == kStreams; });
}

void Child::kill() { os::kill(parts_->process); }

Finished Child::finish() {
  Finished finished;
  finished.exitCode = parts_->end();
  finished.out = parts_->out;
  finished.err = parts_->err;
  return finished;
}

Finished run(const std::vector<std::string>& command, const std::string& input,
             const Environment& environment) {
  Child child(command, environment);
  child.write(input);
  return child.finish();
}

}  // namespace tolvex::test
