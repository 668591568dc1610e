// Orders, one a line:  aTEXT adds a text  ANUMBER TEXT adds it so many times in a row, as one record
//   iTEXT adds an image  t takes a record  T takes all  r resets  m marks  w goes back to the mark
#include <string>
#include <vector>

#include "service/print_job_buffer.h"
#include "support/lines.h"
#include "support/target.h"

namespace tolvex::fuzz {
namespace {

// A queue of records, with nothing packed: what was added, and how many of it were taken.
struct JobModel {
  std::vector<PrintJobRecord> records;
  std::size_t taken = 0;
  std::size_t mark = 0;

  std::size_t bytes() const {
    std::size_t sum = 0;
    for (const PrintJobRecord& record : records) sum += 12 + record.payload.size();
    return sum;
  }
};

unsigned at(const char* bytes, unsigned count) {
  unsigned number = 0;
  for (unsigned byte = 0; byte < count; ++byte) {
    number += static_cast<unsigned>(static_cast<unsigned char>(bytes[byte])) << (8 * byte);
  }
  return number;
}

class JobOrders {
 public:
  void obey(std::string_view line) {
    switch (takeLetter(line)) {
      case 'a':
        append(PrintJobKind::kText, std::string(line));
        break;
      case 'i':
        append(PrintJobKind::kImageFile, std::string(line));
        break;
      case 'A':
        appendLong(line);
        break;
      case 't':
        take();
        break;
      case 'T':
        while (take()) {
        }
        break;
      case 'r':
        reset();
        break;
      case 'm':
        mark();
        break;
      case 'w':
        rewind();
        break;
      default:
        return;
    }
    require(job_.isEmpty() == model_.records.empty(), "it is empty when nothing was added");
    require(job_.capacity() > model_.bytes(), "there is room for what it holds");
    require(job_.capacity() >= before_, "its block of memory never shrinks");
    require(job_.capacity() <= before_ || job_.capacity() <= 2 * (model_.bytes() + 1),
            "it grows no more than it must");
    before_ = job_.capacity();
  }

  void readBytes() const {
    const char* record = job_.data();
    for (const PrintJobRecord& expected : model_.records) {
      require(at(record, 4) == static_cast<unsigned>(expected.kind),
              "a record begins with its kind");
      require(at(record + 4, 4) == 12 + expected.payload.size(), "the length follows");
      require(at(record + 8, 2) == expected.param1 && at(record + 10, 2) == expected.param2,
              "the parameters follow");
      require(std::string(record + 12, expected.payload.size()) == expected.payload,
              "the payload stands at the end");
      record += 12 + expected.payload.size();
    }
  }

 private:
  void append(PrintJobKind kind, const std::string& payload) {
    const auto param1 = static_cast<std::uint16_t>(payload.size() * 257);
    const auto param2 = static_cast<std::uint16_t>(model_.records.size() - 7);
    job_.append(kind, param1, param2, payload);
    model_.records.push_back({kind, param1, param2, payload});
  }

  void appendLong(std::string_view line) {
    const unsigned times = takeNumber(line) % 5000;
    std::string payload;
    for (unsigned time = 0; time < times && payload.size() < 70000; ++time) payload += line;
    append(PrintJobKind::kTextByWidth, payload);
  }

  bool take() {
    const PrintJobRecord record = job_.takeNext();
    if (model_.taken == model_.records.size()) {
      require(record.kind == PrintJobKind::kNone && record.payload.empty(), "nothing is left");
      return false;
    }
    const PrintJobRecord& expected = model_.records[model_.taken++];
    require(record.kind == expected.kind && record.payload == expected.payload &&
                record.param1 == expected.param1 && record.param2 == expected.param2,
            "records come out as they went in, and in that order");
    return true;
  }

  void reset() {
    job_.reset();
    model_ = JobModel();
    mark();
  }

  void mark() {
    mark_ = job_.mark();
    model_.mark = model_.records.size();
  }

  // What was taken is gone, also when it was added behind the mark.
  void rewind() {
    job_.rewind(mark_);
    model_.records.resize(model_.mark);
    if (model_.taken > model_.mark) model_.taken = model_.mark;
  }

  PrintJobBuffer job_;
  PrintJobBuffer::Mark mark_ = job_.mark();
  JobModel model_;
  std::size_t before_ = PrintJobBuffer::kInitialCapacity;
};

}  // namespace

void targets::print_job(std::string_view input) {
  JobOrders orders;
  Lines lines(input);
  for (std::string_view line; lines.next(line);) orders.obey(line);
  orders.readBytes();
}

}  // namespace tolvex::fuzz
