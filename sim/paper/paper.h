// What a printer has put on paper.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "paper/bitmap.h"
#include "paper/kept_png.h"

namespace tolvex::sim {

/// The resolution of the virtual heads, 203 dpi. All measures on paper are in these dots unless
/// their name says otherwise.
constexpr int kDotsPerMm = 8;

/// Most that one item takes along the paper: 10 m. A feed of more feeds this much.
constexpr int kMaxItemHeight = 10000 * kDotsPerMm;

/// What the paper is like.
struct PaperFormat {
  int width;            // of the paper
  int printable;        // width that the head reaches, in the middle of the paper
  int labelHeight = 0;  // 0: a roll without labels
  int labelGap = 0;     // between one label and the next

  bool hasLabels() const { return labelHeight > 0; }

  /// From the beginning of one label to that of the next.
  int pitch() const { return labelHeight + labelGap; }

  /// Where labels begin and end, 0 for the first one.
  int topOfLabel(int label) const { return label * pitch(); }
  int endOfLabel(int label) const { return topOfLabel(label) + labelHeight; }
};

/// One line of text at the left end of the printable width plus indent.
struct TextItem {
  std::string text;  // UTF-8, one line
  int fontSize;      // height of the cells
  int indent = 0;
};

struct ImageItem {
  Bitmap bitmap;
  int indent = 0;
  KeptPng png = {};  // of the bitmap
};

/// Blank paper.
struct FeedItem {
  int length;
};

/// A cut across the paper, through this percentage of its width (100: all of it).
struct CutItem {
  int percent;
};

using PaperItem = std::variant<TextItem, ImageItem, FeedItem, CutItem>;

/// Height of one item along the paper, from 0 to kMaxItemHeight. A line of text takes a quarter of
/// its size more than its cells, a cut nothing.
int heightOf(const PaperItem& item);

/// A piece of paper with what stands on it, from the top down. Copies are deep, but for the kept
/// files of pictures.
class Paper {
 public:
  explicit Paper(const PaperFormat& format) : format_(format) {}

  /// Puts the item below what is there. On labels, a text or an image that would reach beyond its
  /// label begins the next one, unless it is higher than a label; a cut goes to
  /// the end of a label that has begun.
  void add(PaperItem item);

  /// Gives back the memory that only serves to draw the paper once more.
  void forgetDrawing();

  const PaperFormat& format() const { return format_; }
  const std::vector<PaperItem>& items() const { return items_; }
  bool isEmpty() const { return items_.empty(); }

  /// Where each of items() begins, from the top of the paper.
  const std::vector<int>& tops() const { return tops_; }

  /// Length of what was printed and fed, gaps between labels included, without margins; what is
  /// left of the last label only belongs to it when it is cut.
  int length() const { return length_; }

 private:
  int topFor(const PaperItem& item) const;
  int topOnLabels(int height) const;
  int topOfCut() const;

  PaperFormat format_;
  std::vector<PaperItem> items_;
  std::vector<int> tops_;
  int length_ = 0;
};

}  // namespace tolvex::sim
