// Pictures and papers as tests write them down.
#pragma once

#include <string>
#include <vector>

#include "paper/bitmap.h"
#include "paper/paper.h"

namespace tolvex::sim {

using Rows = std::vector<std::string>;

/// A roll as wide as that of the receipt printer.
inline const PaperFormat kWideRoll{464, 384};
/// Labels of 100 dots with gaps of 20 as wide as that, and of 240 with 24, as a label printer's.
inline const PaperFormat kShortLabels{464, 384, 100, 20};
inline const PaperFormat kTallLabels{400, 320, 240, 24};

/// A picture from its rows, all of one length: '#' is a dark dot.
inline Bitmap picture(const Rows& rows) {
  Bitmap bitmap(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()));
  for (int y = 0; y < bitmap.height(); ++y) {
    const std::string& row = rows[static_cast<std::size_t>(y)];
    for (int x = 0; x < bitmap.width(); ++x) {
      bitmap.set(x, y, row[static_cast<std::size_t>(x)] == '#');
    }
  }
  return bitmap;
}

/// The rows of a picture, as picture() takes them.
inline Rows rowsOf(const Bitmap& bitmap) {
  Rows rows;
  for (int y = 0; y < bitmap.height(); ++y) {
    std::string row;
    for (int x = 0; x < bitmap.width(); ++x) row += bitmap.isDark(x, y) ? '#' : '.';
    rows.push_back(row);
  }
  return rows;
}

/// A paper with these items.
inline Paper paperOf(const PaperFormat& format, const std::vector<PaperItem>& items) {
  Paper paper(format);
  for (const PaperItem& item : items) paper.add(item);
  return paper;
}

}  // namespace tolvex::sim
