// Pictures as tests write them down.
#pragma once

#include <string>
#include <vector>

#include "paper/bitmap.h"

namespace tolvex::sim {

/// A picture from its rows, all of one length: '#' is a dark dot.
inline Bitmap picture(const std::vector<std::string>& rows) {
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
inline std::vector<std::string> rowsOf(const Bitmap& bitmap) {
  std::vector<std::string> rows;
  for (int y = 0; y < bitmap.height(); ++y) {
    std::string row;
    for (int x = 0; x < bitmap.width(); ++x) row += bitmap.isDark(x, y) ? '#' : '.';
    rows.push_back(row);
  }
  return rows;
}

using Rows = std::vector<std::string>;

}  // namespace tolvex::sim
