// Pictures as a thermal head burns them: black dots on white paper.
#pragma once

#include <cstddef>
#include <vector>

namespace tolvex::sim {

/// A grid of dots, row by row from the top left. Starts out white. Copies are deep.
class Bitmap {
 public:
  /// Both at least 0.
  Bitmap(int width, int height);

  int width() const { return width_; }
  int height() const { return height_; }

  /// x from 0 to width() - 1, y from 0 to height() - 1.
  bool isDark(int x, int y) const { return dots_[index(x, y)]; }
  void set(int x, int y, bool dark) { dots_[index(x, y)] = dark; }

  bool operator==(const Bitmap& other) const;

 private:
  std::size_t index(int x, int y) const;

  int width_;
  int height_;
  std::vector<bool> dots_;
};

/// Clockwise turns.
enum class Turn { None, Quarter, Half, ThreeQuarters };

/// The angle as requests carry it: multiples of 90 degrees clockwise, negative ones and ones of
/// more than a full turn included, or the plain numbers 1 to 3 for as many quarter turns. Anything
/// else does not turn.
Turn turnOf(int angle);

/// The picture, turned. Quarter turns exchange width and height.
Bitmap turned(const Bitmap& bitmap, Turn turn);

/// The picture cut to at most this width, from the left.
Bitmap cutToWidth(const Bitmap& bitmap, int width);

/// The picture cut to at most this height, from the top.
Bitmap cutToHeight(const Bitmap& bitmap, int height);

}  // namespace tolvex::sim
