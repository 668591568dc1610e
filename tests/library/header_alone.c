#include "exports.h"

/* The sizes that the library fills in; a wrong one makes an array of negative size. */
typedef char base_info_is_64_bytes[sizeof(tolvex_base_info) == 64 ? 1 : -1];
typedef char weight_is_24_bytes[sizeof(tolvex_weight) == 24 ? 1 : -1];

extern int (*const tolvex_test_reference)(char*);
int (*const tolvex_test_reference)(char*) = read_standard;
