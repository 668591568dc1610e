#include "paper/bitmap.h"

#include <algorithm>

namespace tolvex::sim {

namespace {

constexpr int kQuarterTurn = 90;
constexpr int kFullTurn = 360;

struct Dot {
  int x;
  int y;
};

// Where the dot at x, y of the turned picture comes from.
Dot sourceOf(const Bitmap& bitmap, Turn turn, int x, int y) {
  const int right = bitmap.width() - 1;
  const int bottom = bitmap.height() - 1;
  switch (turn) {
    case Turn::Quarter:
      return {y, bottom - x};
    case Turn::Half:
      return {right - x, bottom - y};
    case Turn::ThreeQuarters:
      return {right - y, x};
    case Turn::None:
      break;
  }
  return {x, y};
}

Bitmap cutTo(const Bitmap& bitmap, int width, int height) {
  if (width >= bitmap.width() && height >= bitmap.height()) return bitmap;
  Bitmap result(std::clamp(width, 0, bitmap.width()), std::clamp(height, 0, bitmap.height()));
  for (int y = 0; y < result.height(); ++y) {
    for (int x = 0; x < result.width(); ++x) result.set(x, y, bitmap.isDark(x, y));
  }
  return result;
}

}  // namespace

Bitmap::Bitmap(int width, int height)
    : width_(width),
      height_(height),
      dots_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

bool Bitmap::operator==(const Bitmap& other) const {
  return width_ == other.width_ && height_ == other.height_ && dots_ == other.dots_;
}

std::size_t Bitmap::index(int x, int y) const {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
         static_cast<std::size_t>(x);
}

Turn turnOf(int angle) {
  if (angle >= 1 && angle <= 3) return static_cast<Turn>(angle);
  if (angle % kQuarterTurn != 0) return Turn::None;
  return static_cast<Turn>((angle % kFullTurn + kFullTurn) % kFullTurn / kQuarterTurn);
}

Bitmap turned(const Bitmap& bitmap, Turn turn) {
  const bool isOnItsSide = turn == Turn::Quarter || turn == Turn::ThreeQuarters;
  Bitmap result(isOnItsSide ? bitmap.height() : bitmap.width(),
                isOnItsSide ? bitmap.width() : bitmap.height());
  for (int y = 0; y < result.height(); ++y) {
    for (int x = 0; x < result.width(); ++x) {
      const Dot source = sourceOf(bitmap, turn, x, y);
      result.set(x, y, bitmap.isDark(source.x, source.y));
    }
  }
  return result;
}

Bitmap cutToWidth(const Bitmap& bitmap, int width) { return cutTo(bitmap, width, bitmap.height()); }

Bitmap cutToHeight(const Bitmap& bitmap, int height) {
  return cutTo(bitmap, bitmap.width(), height);
}

}  // namespace tolvex::sim
