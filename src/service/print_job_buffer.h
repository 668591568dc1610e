// The queue of a print job: what the buffered exports leave for BeginPrint.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tolvex {

enum class PrintJobKind : std::uint32_t { kNone = 0, kTextByWidth = 1, kImageFile = 2, kText = 3 };

struct PrintJobRecord {
  PrintJobKind kind = PrintJobKind::kNone;
  std::uint16_t param1 = 0;  // font size; of an image its angle
  std::uint16_t param2 = 0;  // paper width of kTextByWidth, alignment of an image
  std::string payload;       // the line of text, or the path of the image; UTF-8
};

// Records of any length, written at the end and read from the front. They lie packed in one block
// of memory, each behind a header of 12 bytes (kind, length, both parameters, little-endian), and
// the block only ever grows. Not for two threads at once.
class PrintJobBuffer {
 public:
  static constexpr std::uint32_t kInitialCapacity = 20480;
  static constexpr std::uint32_t kHeaderSize = 12;

  // Throws std::bad_alloc, like the functions below that store or return something.
  PrintJobBuffer();
  PrintJobBuffer(const PrintJobBuffer&) = delete;
  PrintJobBuffer& operator=(const PrintJobBuffer&) = delete;

  // Adds a record. When it throws (no memory, or more than 32 bits can count), nothing has changed.
  void append(PrintJobKind kind, std::uint16_t param1, std::uint16_t param2,
              std::string_view payload);

  // Takes the next record; kNone when there is none left. The second form uses the memory that the
  // record has.
  PrintJobRecord takeNext();
  void takeNext(PrintJobRecord& next);

  bool isEmpty() const { return count_ == 0; }  // no record since the last reset, taken or not
  void reset();                                 // drops all records, keeps the memory

  // Where the next record will be written; back to it, dropping what was appended since, taken or
  // not. A mark lasts until the next reset.
  struct Mark {
    std::uint32_t count;
    std::uint32_t writeOffset;
  };
  Mark mark() const { return {count_, writeOffset_}; }
  void rewind(const Mark& mark);

  std::uint32_t capacity() const { return capacity_; }  // bytes
  const char* data() const { return data_.get(); }

 private:
  void makeRoomFor(std::uint64_t size);

  std::unique_ptr<char[]> data_;
  std::uint32_t capacity_;
  std::uint32_t count_ = 0;
  std::uint32_t readOffset_ = 0;
  std::uint32_t writeOffset_ = 0;
};

}  // namespace tolvex
