#include "support/request_watch.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace bench {
namespace {

constexpr char kText[] = R"("text":")";

}  // namespace

void RequestWatch::note(const char* request, std::size_t length, bool printing) {
  if (recording_.load(std::memory_order_relaxed)) record(request, length);
  if (counting_.load(std::memory_order_relaxed)) count(request, printing);
}

void RequestWatch::record(const char* request, std::size_t length) {
  const std::size_t at = used_.load();
  if (at + sizeof(length) + length > kRoom) {
    overrun_ = true;
    return;
  }
  std::memcpy(bytes_ + at, &length, sizeof(length));
  std::memcpy(bytes_ + at + sizeof(length), request, length);
  used_.store(at + sizeof(length) + length);
}

void RequestWatch::count(const char* request, bool printing) {
  (printing ? printing_ : weighing_).fetch_add(1, std::memory_order_relaxed);
  const char* const text = printing ? std::strstr(request, kText) : nullptr;
  if (text == nullptr) return;
  lines_.fetch_add(1, std::memory_order_relaxed);
  const long number = std::strtol(text + sizeof(kText) - 1, nullptr, 10);
  if (number == 0) return;
  if (number != 1 && number != lastNumber_ + 1) misplaced_.fetch_add(1);
  lastNumber_ = number;
}

void RequestWatch::startRecording() {
  used_ = 0;
  recording_ = true;
}

std::vector<std::string> RequestWatch::recorded() {
  recording_ = false;
  if (overrun_) throw std::runtime_error("the service received more than it can keep");
  std::vector<std::string> texts;
  for (std::size_t at = 0; at < used_;) {
    std::size_t length;
    std::memcpy(&length, bytes_ + at, sizeof(length));
    texts.emplace_back(bytes_ + at + sizeof(length), length);
    at += sizeof(length) + length;
  }
  return texts;
}

void RequestWatch::startCounting() {
  weighing_ = printing_ = lines_ = misplaced_ = 0;
  lastNumber_ = 0;
  counting_ = true;
}

Arrivals RequestWatch::counted() {
  counting_ = false;
  return {weighing_, printing_, lines_, misplaced_};
}

}  // namespace bench
