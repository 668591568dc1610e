#include "net/http_refusal.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "net/http_error.h"

namespace tolvex::sim {

namespace {

bool isAllowed(std::string_view method) {
  constexpr std::array<std::string_view, 7> kMethods{"GET",   "HEAD",   "POST",   "PUT",
                                                     "PATCH", "DELETE", "OPTIONS"};
  return std::find(kMethods.begin(), kMethods.end(), method) != kMethods.end();
}

HttpResponse with(HttpResponse response, const std::string& name, const std::string& value) {
  response.headers.emplace_back(name, value);
  return response;
}

std::optional<HttpResponse> refuseBody(const HttpHead& head) {
  const std::string_view coding = head.first("Transfer-Encoding");
  if (!coding.empty() && !equalIgnoringCase(coding, "chunked")) {
    return httpError(501, "the body is sent as " + inQuotes(coding),
                     "Send it plainly, with Content-Length or as chunked.");
  }
  const std::string_view packing = head.first("Content-Encoding");
  if (!packing.empty() && !equalIgnoringCase(packing, "identity")) {
    return httpError(415, "the body is packed as " + inQuotes(packing), "Send it unpacked.");
  }
  return std::nullopt;
}

}  // namespace

std::optional<HttpResponse> refuseHead(const HttpHead& head,
                                       const std::optional<HttpTarget>& target,
                                       const WebAddress& server) {
  if (!target) {
    return httpError(400, "the address " + inQuotes(head.target) + " can not be read",
                     "Send a path such as /api/state, in UTF-8 and with % escapes of two digits.");
  }
  if (auto refusal = refuseForeign(head, *target, server)) return refusal;
  if (!isAllowed(head.method)) {
    return with(httpError(405, "the method " + inQuotes(head.method) + " is not known here",
                          std::string("Use one of ") + kAllowedMethods + "."),
                "Allow", kAllowedMethods);
  }
  if (target->repeated) {
    return httpError(400, inQuotes(*target->repeated) + " stands more than once in the query",
                     "Send each parameter once.");
  }
  return refuseBody(head);
}

std::optional<HttpResponse> refuseHandshake(const HttpHead& head, const HttpTarget& target) {
  if (target.path != kLivePath) {
    return httpError(404, "there is no live channel at " + inQuotes(target.path),
                     std::string("Open the WebSocket at ") + kLivePath + ".");
  }
  constexpr std::size_t kKeyLength = 24;  // 16 bytes in Base64
  const bool inOrder = head.method == "GET" && head.version == 11 && wantsWebSocket(head) &&
                       head.first("Sec-WebSocket-Key").size() == kKeyLength &&
                       head.first("Sec-WebSocket-Version") == "13";
  if (inOrder) return std::nullopt;
  return with(with(httpError(426, "the live channel is a WebSocket of version 13",
                             "Open it with a WebSocket client, or read GET /api/state instead."),
                   "Upgrade", "websocket"),
              "Sec-WebSocket-Version", "13");
}

}  // namespace tolvex::sim
