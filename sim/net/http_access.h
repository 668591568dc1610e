// Who may ask: programs, and the simulator's own pages.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "net/http_head.h"
#include "net/http_target.h"
#include "net/web.h"

namespace tolvex::sim {

/// Where a web server listens.
struct WebAddress {
  std::string address;
  std::uint16_t port = 0;
};

/// Where a browser finds the page: "http://127.0.0.1:53280/". A server on all addresses is found at
/// 127.0.0.1.
std::string pageAddress(const WebAddress& server);

/// What to answer a request with that may come from a page of somebody else: a browser sends
/// requests for any page that its user has open, and the simulator must not obey those. Nothing when
/// the request is in order:
/// - Host is an IPv4 address or localhost, with the server's port. A name that somebody else has
///   made lead to this machine does not get through.
/// - Origin, if there is one, is the page of that host.
/// - Sec-Fetch-Site, if there is one, is same-origin or none; but a link from anywhere may open the
///   page itself. The browser's WebSocket tells its Origin, which then decides alone.
std::optional<HttpResponse> refuseForeign(const HttpHead& head, const HttpTarget& target,
                                          const WebAddress& server);

}  // namespace tolvex::sim
