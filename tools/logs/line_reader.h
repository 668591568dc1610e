// Reads a file line by line, however long its lines are.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tolvex::ctl {

// A longer line loses what is beyond this.
constexpr std::size_t kLongestLine = 1 << 20;

class LineReader {
 public:
  // Reads the file from an offset up to a limit in bytes; what is written behind it meanwhile is left
  // alone. A file that cannot be opened has no lines.
  LineReader(const std::filesystem::path& path, std::int64_t offset, std::int64_t limit);

  // Puts the next line, without its LF or CR LF, in `line`; the last one may have no end. Returns
  // false when there is none.
  bool next(std::string& line);

  // Whether the latest line was ended.
  bool ended() const { return ended_; }
  // How many bytes of the latest line were left out.
  std::int64_t leftOut() const { return leftOut_; }
  // Behind the latest line.
  std::int64_t position() const { return position_; }
  bool isOpen() const { return file_.is_open(); }

 private:
  bool fill();
  void append(std::string& line, const char* data, std::size_t size);

  std::ifstream file_;
  std::vector<char> block_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  std::int64_t remaining_;
  std::int64_t position_;
  std::int64_t leftOut_ = 0;
  bool ended_ = false;
};

}  // namespace tolvex::ctl
