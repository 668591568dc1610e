// The outline of a paper, as it is drawn.
#pragma once

#include "paper/paper.h"
#include "paper/render.h"

namespace tolvex::sim {

/// How a sheet ends below.
enum class SheetEnd {
  Open,      // straight, and the paper goes on
  Cut,       // cut through `percent` of its width
  Torn,      // in teeth
  RollsEnd,  // straight, where its roll ended
};

/// All measures in dots. The origin is the upper left corner of the printable width where the paper
/// begins.
struct Sheet {
  double left;
  double right;
  double top;
  double bottom;
  SheetEnd end;
  int percent;  // of a cut
};

/// The sheet with the backing beside its labels. On labels it ends below a label, as the printer
/// believes, and a picture begins in the gap above the first one, or, if there is none, at the head.
Sheet sheetOf(const Paper& paper, Form form);

}  // namespace tolvex::sim
