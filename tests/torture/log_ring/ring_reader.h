// The ring of log files, read and checked to the last byte.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tolvex::test {

constexpr unsigned kFilesOfTheRing = 10;
constexpr std::uint64_t kFullFile = 5242880;    // a file with more is written to no more
constexpr std::uint64_t kLookedUpEach = 65536;  // bytes until a process looks what others wrote

// Reads what is new in the files of a ring since it last did, and holds each line against what the
// library may have written there.
class RingReader {
 public:
  explicit RingReader(std::string folder) : folder_(std::move(folder)) {}

  // To be called before the files grow by a whole ring again. Somebody's latest line may be
  // incomplete where a writer was killed, and another's may follow it directly where that one was
  // writing meanwhile.
  void readOn();

  // Files and their sizes alone: ten of them, none beyond the bound.
  void checkSizes(std::uint64_t bound);

  void expect(bool good, const std::string& otherwise);

  // What was not as promised; the first ones of many.
  const std::vector<std::string>& problems() const { return problems_; }

  std::uint64_t lines() const { return lines_; }
  std::uint64_t torn() const { return torn_; }      // lines that ended early
  std::uint64_t joined() const { return joined_; }  // of these the ones that another line follows
  std::uint64_t largest() const { return largest_; }

  // All calls of the writer from some number to the last one are to be there, each once, and at least
  // so many.
  void expectSuffix(unsigned writer, unsigned last, unsigned least = 1);

  // Of the calls that were read so far, none counts any more.
  void forgetCalls();

 private:
  // Those of one writer in one file.
  struct Calls {
    unsigned first = 0;
    unsigned latest = 0;
    unsigned count = 0;
  };
  struct File {
    std::uint64_t offset = 0;
    std::string piece;  // of a line that has not ended yet
    std::map<unsigned, Calls> calls;
  };

  std::string path(unsigned index) const;
  void readFile(unsigned index);
  void checkLine(File& file, const std::string& line, const std::string& place);
  bool isWhole(File& file, const std::string& line);
  bool countCall(File& file, const std::string& line, std::size_t textAt, bool isLong);
  bool isJoined(File& file, const std::string& line);

  std::string folder_;
  std::array<File, kFilesOfTheRing> files_;
  std::vector<std::string> problems_;
  std::uint64_t lines_ = 0;
  std::uint64_t torn_ = 0;
  std::uint64_t joined_ = 0;
  std::uint64_t largest_ = 0;
};

}  // namespace tolvex::test
