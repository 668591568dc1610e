#include "bundle/zip_writer.h"

#include <array>
#include <boost/beast/zlib/deflate_stream.hpp>
#include <boost/crc.hpp>
#include <limits>

#include "platform/clock.h"

namespace tolvex::ctl {
namespace {

namespace zlib = boost::beast::zlib;

constexpr int kCompression = 6;
constexpr int kWindowBits = 15;
constexpr int kMemory = 8;

constexpr std::uint32_t kLocalSignature = 0x04034B50;
constexpr std::uint32_t kCentralSignature = 0x02014B50;
constexpr std::uint32_t kEndSignature = 0x06054B50;
constexpr std::uint16_t kVersion = 20;        // folders and DEFLATE
constexpr std::uint16_t kUtf8Names = 0x0800;  // flag
constexpr std::uint16_t kDeflated = 8;        // method
constexpr std::uint64_t kMostBytes = std::numeric_limits<std::uint32_t>::max();
constexpr std::size_t kMostEntries = std::numeric_limits<std::uint16_t>::max();

// Little-endian numbers one after the other.
class Fields {
 public:
  Fields& two(std::uint64_t value) { return put(value, 2); }
  Fields& four(std::uint64_t value) { return put(value, 4); }
  const std::string& bytes() const { return bytes_; }

 private:
  Fields& put(std::uint64_t value, unsigned size) {
    for (unsigned i = 0; i < size; ++i) bytes_ += static_cast<char>((value >> (8 * i)) & 0xFF);
    return *this;
  }
  std::string bytes_;
};

}  // namespace

struct ZipWriter::Entry {
  std::string name;
  std::uint64_t offset = 0;
  std::uint32_t crc = 0;
  std::uint64_t packed = 0;
  std::uint64_t size = 0;
};

// One file on its way into the archive.
class ZipWriter::Packer {
 public:
  Packer() { stream_.reset(kCompression, kWindowBits, kMemory, zlib::Strategy::normal); }

  template <typename Sink>
  void write(std::string_view data, zlib::Flush flush, Sink&& sink) {
    crc_.process_bytes(data.data(), data.size());
    zlib::z_params pass;
    pass.next_in = data.data();
    pass.avail_in = data.size();
    for (;;) {
      pass.next_out = room_.data();
      pass.avail_out = room_.size();
      boost::system::error_code error;
      stream_.write(pass, flush, error);
      sink(std::string_view(room_.data(), room_.size() - pass.avail_out));
      // A buffer that was filled may not have been all; without progress there is nothing more.
      if (error || (pass.avail_out > 0 && pass.avail_in == 0)) return;
    }
  }

  std::uint32_t crc() const { return crc_.checksum(); }

 private:
  zlib::deflate_stream stream_;
  boost::crc_32_type crc_;
  std::array<char, 16384> room_{};
};

ZipTime zipTimeNow() {
  const platform::LocalTime now = platform::localTime();
  const unsigned year = now.year < 1980 ? 0 : now.year - 1980;
  return {static_cast<std::uint16_t>(year << 9 | now.month << 5 | now.day),
          static_cast<std::uint16_t>(now.hour << 11 | now.minute << 5 | now.second / 2)};
}

ZipWriter::ZipWriter(std::ostream& out, ZipTime time) : out_(out), time_(time) {}
ZipWriter::~ZipWriter() = default;

void ZipWriter::begin(const std::string& name) {
  end();
  Entry entry;
  entry.name = name;
  entry.offset = position_;
  entries_.push_back(entry);
  packer_ = std::make_unique<Packer>();
  put(localHeader(entry));  // written once more when the sizes are known
}

void ZipWriter::write(std::string_view data) {
  if (data.empty()) return;
  Entry& entry = entries_.back();
  entry.size += data.size();
  packer_->write(data, zlib::Flush::none, [&](std::string_view packed) {
    entry.packed += packed.size();
    put(packed);
  });
}

void ZipWriter::add(const std::string& name, std::string_view contents) {
  begin(name);
  write(contents);
}

bool ZipWriter::finish() {
  end();
  const std::uint64_t offset = position_;
  for (const Entry& entry : entries_) {
    const std::string common =
        localHeader(entry).substr(6, 22);  // from the flags to the name's length
    Fields head;
    head.four(kCentralSignature).two(kVersion).two(kVersion);
    Fields tail;
    tail.two(0).two(0).two(0).two(0).four(0).four(entry.offset);
    put(head.bytes() + common + tail.bytes() + entry.name);
  }
  Fields end;
  end.four(kEndSignature).two(0).two(0).two(entries_.size()).two(entries_.size());
  end.four(position_ - offset).four(offset).two(0);
  put(end.bytes());
  out_.flush();
  return good_ && out_.good() && position_ <= kMostBytes && entries_.size() <= kMostEntries;
}

void ZipWriter::end() {
  if (!packer_) return;
  Entry& entry = entries_.back();
  packer_->write({}, zlib::Flush::finish, [&](std::string_view packed) {
    entry.packed += packed.size();
    put(packed);
  });
  entry.crc = packer_->crc();
  packer_.reset();
  if (entry.size > kMostBytes) good_ = false;
  out_.seekp(static_cast<std::streamoff>(entry.offset));
  const std::string header = localHeader(entry);
  out_.write(header.data(), static_cast<std::streamsize>(header.size()));
  out_.seekp(static_cast<std::streamoff>(position_));
}

void ZipWriter::put(std::string_view bytes) {
  out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  position_ += bytes.size();
}

std::string ZipWriter::localHeader(const Entry& entry) const {
  Fields fields;
  fields.four(kLocalSignature).two(kVersion).two(kUtf8Names).two(kDeflated);
  fields.two(time_.time).two(time_.date);
  fields.four(entry.crc).four(entry.packed).four(entry.size);
  fields.two(entry.name.size()).two(0);
  return fields.bytes() + entry.name;
}

}  // namespace tolvex::ctl
