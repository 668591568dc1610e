// What a request is answered with that can not be carried out.
#pragma once

#include <string>
#include <string_view>

#include "net/web.h"

namespace tolvex::sim {

/// A response with the body {"error":{"what":"...","remedy":"..."}}: what is wrong, and how to mend
/// it. Bytes that are not UTF-8 are replaced.
HttpResponse httpError(int status, const std::string& what, const std::string& remedy);

/// A part of a request, as `what` quotes it: in quotation marks, printable, and no longer than a line.
std::string inQuotes(std::string_view text);

}  // namespace tolvex::sim
