// The head of an HTTP response, as sent.
#pragma once

#include <string>

#include "net/web.h"

namespace tolvex::sim {

/// Status line and headers, up to and including the empty line. To the response's own headers come
/// the length of its body and those that confine what a browser does with it: nothing may be loaded
/// from elsewhere, framed, guessed or kept.
std::string responseHead(const HttpResponse& response, bool keepAlive);

}  // namespace tolvex::sim
