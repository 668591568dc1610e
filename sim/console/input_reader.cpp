#include "console/input_reader.h"

#include <array>
#include <cstddef>
#include <mutex>
#include <utility>

#include "console/line_splitter.h"
#include "platform/platform.h"

namespace tolvex::sim {

// Belongs to the reader and its thread; whichever ends last frees it.
struct InputReader::Shared {
  std::mutex mutex;
  std::function<void(std::string)> onLine;  // empty once the reader is gone

  void deliver(std::string line) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (onLine) onLine(std::move(line));
  }

  void readAll() {
    LineSplitter splitter;
    const auto take = [this](std::string line) { deliver(std::move(line)); };
    std::array<char, 512> buffer{};
    for (;;) {
      const std::size_t count = platform::readStandardInput(buffer.data(), buffer.size());
      if (count == 0) break;
      splitter.feed({buffer.data(), count}, take);
    }
    if (auto line = splitter.rest()) take(*line);
  }
};

InputReader::InputReader(std::function<void(std::string)> onLine)
    : shared_(std::make_shared<Shared>()) {
  shared_->onLine = std::move(onLine);
  thread_ = std::thread([shared = shared_] { shared->readAll(); });
}

InputReader::~InputReader() {
  const std::lock_guard<std::mutex> lock(shared_->mutex);
  shared_->onLine = nullptr;
  // Not earlier: under winpthreads a thread that is detached while it starts may never run.
  thread_.detach();
}

}  // namespace tolvex::sim
