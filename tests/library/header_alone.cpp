#include <cstddef>

#ifdef _WIN32
#include <windows.h>  // with the spooler's names
#endif

#include "exports.h"

static_assert(offsetof(tolvex_base_info, min_range) == 12, "");
static_assert(offsetof(tolvex_base_info, max_tare) == 16, "");
static_assert(offsetof(tolvex_base_info, max_preset_tare) == 20, "");
static_assert(offsetof(tolvex_base_info, resolution) == 24, "");
static_assert(offsetof(tolvex_base_info, weight_unit) == 36, "");
static_assert(offsetof(tolvex_base_info, system_version) == 44, "");
static_assert(offsetof(tolvex_weight, net) == 1, "");
static_assert(offsetof(tolvex_weight, mark) == 8, "");
static_assert(offsetof(tolvex_weight, tare) == 9, "");
static_assert(offsetof(tolvex_weight, rest) == 16, "");
