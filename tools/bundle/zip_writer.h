// Writes a ZIP archive.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tolvex::ctl {

// When a file was changed, in the archive's terms.
struct ZipTime {
  std::uint16_t date;
  std::uint16_t time;
};
ZipTime zipTimeNow();

// Files are compressed (DEFLATE) as they come; nothing of them is held but a small buffer. At most
// 65535 files and 4 GiB in all: what is beyond fails. The stream has to be binary and able to seek.
class ZipWriter {
 public:
  ZipWriter(std::ostream& out, ZipTime time);
  ~ZipWriter();
  ZipWriter(const ZipWriter&) = delete;
  ZipWriter& operator=(const ZipWriter&) = delete;

  // Begins a file; its name is UTF-8, with '/' between folders. Ends the one before.
  void begin(const std::string& name);
  void write(std::string_view data);
  void add(const std::string& name, std::string_view contents);

  // Ends the archive. Returns whether all of it was written.
  bool finish();

 private:
  struct Entry;
  class Packer;

  void end();
  void put(std::string_view bytes);
  std::string localHeader(const Entry& entry) const;

  std::ostream& out_;
  ZipTime time_;
  std::vector<Entry> entries_;
  std::unique_ptr<Packer> packer_;
  std::uint64_t position_ = 0;
  bool good_ = true;
};

}  // namespace tolvex::ctl
