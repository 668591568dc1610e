// The printers with a reader of what stands on their paper.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "devices/printers.h"

namespace tolvex::sim {

/// An item in one line: `8+"text"@28` for a text of font 28 indented by 8, `8+[image 3x2]`,
/// `feed 104`, `cut 70`, `end of roll`.
inline std::string describe(const PaperItem& item) {
  struct Describe {
    static std::string indent(int dots) { return dots == 0 ? "" : std::to_string(dots) + "+"; }
    std::string operator()(const TextItem& text) const {
      return indent(text.indent) + "\"" + text.text + "\"@" + std::to_string(text.fontSize);
    }
    std::string operator()(const ImageItem& image) const {
      return indent(image.indent) + "[image " + std::to_string(image.bitmap.width()) + "x" +
             std::to_string(image.bitmap.height()) + "]";
    }
    std::string operator()(const FeedItem& feed) const {
      return "feed " + std::to_string(feed.length);
    }
    std::string operator()(const CutItem& cut) const {
      return "cut " + std::to_string(cut.percent);
    }
    std::string operator()(const RollEndItem& /*end*/) const { return "end of roll"; }
  };
  return std::visit(Describe{}, item);
}

using Items = std::vector<std::string>;

inline Items itemsOf(const Paper& paper) {
  Items items;
  for (const PaperItem& item : paper.items()) items.push_back(describe(item));
  return items;
}

class PrinterFixture : public ::testing::Test {
 protected:
  /// What stands on the paper of a job, 1 for the first one; nothing if it is not kept.
  Items paperOf(int number) const {
    for (const auto& job : printers_.jobs().jobs()) {
      if (job->number() == number) return itemsOf(job->paper());
    }
    return {};
  }

  std::size_t jobs() const { return printers_.jobs().jobs().size(); }

  Printers printers_;
  Printer& label_{*printers_.findType(0)};
  Printer& ticket_{*printers_.findType(1)};
  Printer& third_{*printers_.findType(2)};
};

}  // namespace tolvex::sim
