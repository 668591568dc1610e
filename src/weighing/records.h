// The binary records that the two reads hand to the application, made from the service's replies.
#pragma once

#include <cstddef>

#include "api/call_frame.h"

namespace tolvex {

class Reply;

constexpr std::size_t kBaseInfoSize = 64;
constexpr std::size_t kWeightSize = 24;

// What read_standard returns besides.
constexpr int kExportUnderLoad = -1;
constexpr int kExportOverLoad = -2;

// Fills the record (kBaseInfoSize bytes) from a base-information reply and returns kExportOk. A
// reply that is not JSON, or whose "result" is not exactly "0", is logged: kExportFailed, and the
// record is not touched. Layout: tolvex_base_info in api/exports.h.
int FormatBaseInfo(const Reply& reply, char* record);
// The same for a reply's text.
int FormatBaseInfo(const char* reply, char* record);

// Fills the record (kWeightSize bytes) from a weight reply. Layout: tolvex_weight in
// api/exports.h. Returns
//   kExportOk         the record holds a stable (result 0) or unstable (1005) weight, or, for an
//                     invalid one (1006), nothing but zeros
//   kExportUnderLoad  1003; the record is not touched
//   kExportOverLoad   1004; the record is not touched
//   kExportFailed     any other result, or a reply without one; logged, the record is not touched
// highResolution chooses the member that the net weight is read from: "highResNet" or "net".
int WeightInfo(const Reply& reply, bool highResolution, char* record);
// The same for a reply's text.
int WeightInfo(const char* reply, bool highResolution, char* record);

}  // namespace tolvex
