#include "service/print_job_buffer.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace tolvex {
namespace {

void store(char* out, std::uint64_t value, unsigned bytes) {
  for (unsigned at = 0; at < bytes; ++at) out[at] = static_cast<char>(value >> (8 * at) & 0xFF);
}

std::uint32_t load(const char* in, unsigned bytes) {
  std::uint32_t value = 0;
  for (unsigned at = bytes; at > 0; --at)
    value = value << 8 | static_cast<unsigned char>(in[at - 1]);
  return value;
}

}  // namespace

PrintJobBuffer::PrintJobBuffer() : data_(new char[kInitialCapacity]), capacity_(kInitialCapacity) {}

void PrintJobBuffer::append(PrintJobKind kind, std::uint16_t param1, std::uint16_t param2,
                            std::string_view payload) {
  const std::uint64_t length = std::uint64_t{kHeaderSize} + payload.size();
  makeRoomFor(length);
  char* const record = data_.get() + writeOffset_;
  store(record, static_cast<std::uint32_t>(kind), 4);
  store(record + 4, length, 4);
  store(record + 8, param1, 2);
  store(record + 10, param2, 2);
  if (!payload.empty()) std::memcpy(record + kHeaderSize, payload.data(), payload.size());
  writeOffset_ += static_cast<std::uint32_t>(length);
  ++count_;
}

void PrintJobBuffer::makeRoomFor(std::uint64_t size) {
  constexpr std::uint64_t kLimit = std::numeric_limits<std::uint32_t>::max();
  if (size > kLimit) throw std::bad_alloc();
  std::uint64_t capacity = capacity_;
  while (writeOffset_ + size >= capacity) capacity *= 2;
  if (capacity == capacity_) return;
  if (capacity > kLimit) throw std::bad_alloc();
  std::unique_ptr<char[]> larger(new char[static_cast<std::size_t>(capacity)]);
  std::memcpy(larger.get(), data_.get(), writeOffset_);
  data_ = std::move(larger);
  capacity_ = static_cast<std::uint32_t>(capacity);
}

PrintJobRecord PrintJobBuffer::takeNext() {
  PrintJobRecord next;
  takeNext(next);
  return next;
}

void PrintJobBuffer::takeNext(PrintJobRecord& next) {
  next.kind = PrintJobKind::kNone;
  if (readOffset_ >= writeOffset_) return;
  const char* const record = data_.get() + readOffset_;
  const std::uint32_t length = load(record + 4, 4);
  next.payload.assign(record + kHeaderSize, length - kHeaderSize);
  next.kind = static_cast<PrintJobKind>(load(record, 4));
  next.param1 = static_cast<std::uint16_t>(load(record + 8, 2));
  next.param2 = static_cast<std::uint16_t>(load(record + 10, 2));
  readOffset_ += length;
}

void PrintJobBuffer::reset() { count_ = readOffset_ = writeOffset_ = 0; }

void PrintJobBuffer::rewind(const Mark& mark) {
  count_ = mark.count;
  writeOffset_ = mark.writeOffset;
  readOffset_ = std::min(readOffset_, writeOffset_);  // what was dropped may have been taken
}

}  // namespace tolvex
