// What a printer has put on paper.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "paper/bitmap.h"
#include "paper/kept_png.h"
#include "paper/label_stock.h"

namespace tolvex::sim {

/// The resolution of the virtual heads, 203 dpi. All measures on paper are in these dots unless
/// their name says otherwise.
constexpr int kDotsPerMm = 8;

/// Most that one item takes along the paper: 10 m. A feed of more feeds this much.
constexpr int kMaxItemHeight = 10000 * kDotsPerMm;

/// What the printer takes the paper for.
struct PaperFormat {
  int width;            // of the paper
  int printable;        // width that the head reaches, in the middle of the paper
  int labelHeight = 0;  // 0: a roll without labels
  int labelGap = 0;     // between one label and the next

  bool hasLabels() const { return labelHeight > 0; }

  /// From the beginning of one label to that of the next.
  int pitch() const { return labelHeight + labelGap; }
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

/// The end of a roll: the last 5 mm of it, which the head does not reach. What follows stands on a
/// new roll.
struct RollEndItem {
  static constexpr int kLength = 5 * kDotsPerMm;
};

using PaperItem = std::variant<TextItem, ImageItem, FeedItem, CutItem, RollEndItem>;

/// Height of one item along the paper, from 0 to kMaxItemHeight. A line of text takes a quarter of
/// its size more than its cells, a cut nothing.
int heightOf(const PaperItem& item);

/// Labels as they really lie on the paper from one place on.
struct Stretch {
  int top;           // where it begins, from the top of the paper
  LabelStock stock;  // its position is what lies at `top`
};

/// A piece of paper with what stands on it, from the top down. Copies are deep, but for the kept
/// files of pictures.
class Paper {
 public:
  /// If the format has labels, the paper begins with the upper edge of one, and they really are as
  /// the printer takes them for.
  explicit Paper(const PaperFormat& format);

  /// Puts the item below what is there. On labels, a text or an image that would reach beyond its
  /// label begins the next one, unless it is higher than a label; a cut goes to
  /// the end of a label that has begun.
  void add(PaperItem item);

  /// Where the item would begin if it was added.
  int topFor(const PaperItem& item) const;

  /// From here on the printer takes the paper for such labels, with `position` below the head.
  /// Decides where later items go. Only on paper with labels.
  void layOut(const LabelStock& labels);

  /// From here on the paper really is of such labels, with `position` below the head. Decides what
  /// is drawn. Only on paper with labels.
  void lieOn(const LabelStock& stock);

  /// The paper was torn off below what stands on it.
  void tearOff() { isTornOff_ = true; }
  bool isTornOff() const { return isTornOff_; }

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

  /// The labels that are really there, from the top down; none on paper without labels.
  const std::vector<Stretch>& stretches() const { return stretches_; }

  /// Where one of the labels begins that the printer believes in: others lie a multiple of the
  /// format's pitch from it, to both sides. 0 at first.
  int origin() const { return origin_; }

 private:
  int usedOfLabel() const;
  int topOnLabels(int height) const;
  int topOfCut() const;

  PaperFormat format_;
  std::vector<PaperItem> items_;
  std::vector<int> tops_;
  std::vector<Stretch> stretches_;
  int origin_ = 0;
  int length_ = 0;
  bool isTornOff_ = false;
};

}  // namespace tolvex::sim
