#include "net/http_access.h"

#include "base/ipv4.h"
#include "net/http_error.h"

namespace tolvex::sim {

namespace {

constexpr int kBadRequest = 400;
constexpr int kForbidden = 403;

std::string ownPage(const WebAddress& server) {
  return "Open the simulator's own page, " + pageAddress(server) +
         ", or send the request from a program, which needs no ";
}

// "127.0.0.1:53280" or "localhost:53280"; port 80 may be left out.
bool isOurs(std::string_view host, std::uint16_t port) {
  const auto colon = host.find(':');
  const std::string_view name = host.substr(0, colon);
  if (!isIpv4Address(name) && !equalIgnoringCase(name, "localhost")) return false;
  if (colon == std::string_view::npos) return port == 80;
  return host.substr(colon + 1) == std::to_string(port);
}

bool opensThePage(const HttpHead& head, const HttpTarget& target) {
  return (head.method == "GET" || head.method == "HEAD") && target.path == "/" &&
         head.first("Sec-Fetch-Mode") == "navigate" && head.first("Sec-Fetch-Dest") == "document";
}

std::optional<HttpResponse> refuseHost(std::string_view host, const WebAddress& server) {
  if (isOurs(host, server.port)) return std::nullopt;
  const std::string port = std::to_string(server.port);
  return httpError(kForbidden,
                   "the request is for the host " + inQuotes(host) + ", which is not the simulator",
                   "Use " + pageAddress(server) + " or http://localhost:" + port +
                       "/: an IPv4 address or localhost, and port " + port + ".");
}

std::optional<HttpResponse> refuseOrigin(const HttpHead& head, std::string_view host,
                                         const WebAddress& server) {
  for (const std::string_view origin : head.all("Origin")) {
    if (equalIgnoringCase(origin, "http://" + std::string(host))) continue;
    return httpError(kForbidden,
                     "the request comes from a page of " + inQuotes(origin) +
                         ", which may not use the simulator",
                     ownPage(server) + "Origin header.");
  }
  return std::nullopt;
}

std::optional<HttpResponse> refuseSite(const HttpHead& head, const HttpTarget& target,
                                       const WebAddress& server) {
  if (opensThePage(head, target)) return std::nullopt;
  if (wantsWebSocket(head) && !head.all("Origin").empty()) return std::nullopt;
  for (const std::string_view site : head.all("Sec-Fetch-Site")) {
    if (site == "same-origin" || site == "none") continue;
    return httpError(kForbidden,
                     "the request comes from a page of another site (Sec-Fetch-Site is " +
                         inQuotes(site) + "), which may not use the simulator",
                     ownPage(server) + "Sec-Fetch-Site header.");
  }
  return std::nullopt;
}

}  // namespace

std::string pageAddress(const WebAddress& server) {
  const std::string host = server.address == "0.0.0.0" ? "127.0.0.1" : server.address;
  return "http://" + host + ":" + std::to_string(server.port) + "/";
}

std::optional<HttpResponse> refuseForeign(const HttpHead& head, const HttpTarget& target,
                                          const WebAddress& server) {
  const auto hosts = head.all("Host");
  if (hosts.size() != 1) {
    return httpError(kBadRequest,
                     "the request has " + std::to_string(hosts.size()) + " Host headers",
                     "Send exactly one, as in \"Host: " + server.address + ":" +
                         std::to_string(server.port) + "\".");
  }
  if (auto refusal = refuseHost(hosts.front(), server)) return refusal;
  if (!target.authority.empty()) {
    if (auto refusal = refuseHost(target.authority, server)) return refusal;
  }
  if (auto refusal = refuseOrigin(head, hosts.front(), server)) return refusal;
  return refuseSite(head, target, server);
}

}  // namespace tolvex::sim
