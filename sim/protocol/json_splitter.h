// Cuts the byte stream of a connection into the JSON objects that clients send one after another,
// without any separator or length between them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolvex::sim {

/// Fed with bytes in any portions, it yields complete top-level objects in order. It only counts
/// braces outside strings; whether an object is well-formed is for the parser to say.
///
/// Between objects, blanks, tabs and line ends are skipped silently. Any other byte before a '{'
/// starts a run of garbage, which is reported once, at its first byte: waiting for its end would
/// leave a client that sends nothing else without an answer. The next '{' ends the run.
///
/// An object of more than `maxObjectBytes` is reported as TooLong; after that the stream has no
/// known boundary any more and the splitter yields nothing. Not thread-safe.
class JsonSplitter {
 public:
  static constexpr std::size_t kMaxObjectBytes = std::size_t{1024} * 1024;

  enum class Kind { Object, Garbage, TooLong };

  struct Piece {
    Kind kind;
    /// Object: its full text. Otherwise the first bytes of what was met, at most kSampleBytes.
    std::string text;
  };

  static constexpr std::size_t kSampleBytes = 256;

  explicit JsonSplitter(std::size_t maxObjectBytes = kMaxObjectBytes)
      : maxObjectBytes_(maxObjectBytes) {}

  /// Appends what was received. The caller takes all pieces out before it feeds more; then no more
  /// than one object and one portion are ever kept.
  void feed(std::string_view bytes);

  /// The next piece, or nothing until more bytes are fed.
  std::optional<Piece> next();

 private:
  bool findObject(std::optional<Piece>& garbage);
  bool scanObject();
  void scanInString(char c);
  Piece take(Kind kind, std::size_t length);

  std::size_t maxObjectBytes_;
  std::string buffer_;
  std::size_t start_ = 0;  // first byte of buffer_ that no piece has taken
  std::size_t scan_ = 0;   // first byte of buffer_ that has not been looked at
  std::size_t depth_ = 0;  // open braces of the object at start_; 0 between objects
  bool inString_ = false;
  bool escaped_ = false;
  bool inGarbage_ = false;
  bool broken_ = false;
};

}  // namespace tolvex::sim
