// Requests that the server refuses by itself, whatever the site.
#pragma once

#include <optional>

#include "net/http_access.h"
#include "net/http_head.h"
#include "net/http_target.h"
#include "net/web.h"

namespace tolvex::sim {

constexpr char kLivePath[] = "/api/live";
constexpr char kAllowedMethods[] = "GET, HEAD, POST, PUT, PATCH, DELETE, OPTIONS";

/// What is wrong with a request whose head has come: where it comes from, its target, its method,
/// the form of its body. Nothing when it is in order.
std::optional<HttpResponse> refuseHead(const HttpHead& head,
                                       const std::optional<HttpTarget>& target,
                                       const WebAddress& server);

/// What is wrong with a request for the live channel; nothing when its handshake can be answered.
std::optional<HttpResponse> refuseHandshake(const HttpHead& head, const HttpTarget& target);

}  // namespace tolvex::sim
