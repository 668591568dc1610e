// How many cells the characters of a printer's font take.
#pragma once

namespace tolvex::sim {

/// 0 for marks that combine with the character before them, joiners and variation selectors; 2 for
/// Chinese, Japanese and Korean characters, full-width forms and emoji; 1 for all else.
int cellsOf(char32_t character);

}  // namespace tolvex::sim
