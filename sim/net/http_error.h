// What a request is answered with that can not be carried out.
#pragma once

#include <string>

#include "net/web.h"

namespace tolvex::sim {

/// A response with the body {"error":{"what":"...","remedy":"..."}}: what is wrong, and how to mend
/// it. Bytes that are not UTF-8 are replaced.
HttpResponse httpError(int status, const std::string& what, const std::string& remedy);

}  // namespace tolvex::sim
