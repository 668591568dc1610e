#include "net/http_response_head.h"

#include <array>

namespace tolvex::sim {

namespace {

struct Reason {
  int status;
  const char* text;
};

constexpr std::array<Reason, 19> kReasons{{{200, "OK"},
                                           {201, "Created"},
                                           {204, "No Content"},
                                           {400, "Bad Request"},
                                           {403, "Forbidden"},
                                           {404, "Not Found"},
                                           {405, "Method Not Allowed"},
                                           {408, "Request Timeout"},
                                           {409, "Conflict"},
                                           {410, "Gone"},
                                           {413, "Content Too Large"},
                                           {414, "URI Too Long"},
                                           {415, "Unsupported Media Type"},
                                           {422, "Unprocessable Content"},
                                           {426, "Upgrade Required"},
                                           {431, "Request Header Fields Too Large"},
                                           {500, "Internal Server Error"},
                                           {501, "Not Implemented"},
                                           {503, "Service Unavailable"}}};

constexpr char kPagePolicy[] =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob: data:; "
    "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

// A picture of paper has its styles and its images within itself.
constexpr char kPicturePolicy[] = "default-src 'none'; style-src 'unsafe-inline'; img-src data:";

const char* reasonOf(int status) {
  for (const Reason& reason : kReasons) {
    if (reason.status == status) return reason.text;
  }
  return "Other";
}

void add(std::string& head, const std::string& name, const std::string& value) {
  head += name + ": " + value + "\r\n";
}

}  // namespace

std::string responseHead(const HttpResponse& response, bool keepAlive) {
  std::string head =
      "HTTP/1.1 " + std::to_string(response.status) + " " + reasonOf(response.status) + "\r\n";
  if (response.status != 204) {
    add(head, "Content-Type", response.contentType);
    add(head, "Content-Length", std::to_string(response.body.size()));
  }
  for (const auto& [name, value] : response.headers) add(head, name, value);
  const bool picture = response.contentType == "image/svg+xml";
  add(head, "Content-Security-Policy", picture ? kPicturePolicy : kPagePolicy);
  add(head, "X-Content-Type-Options", "nosniff");
  add(head, "Referrer-Policy", "no-referrer");
  add(head, "Cross-Origin-Resource-Policy", "same-origin");
  add(head, "Cache-Control", "no-store");
  add(head, "Connection", keepAlive ? "keep-alive" : "close");
  return head + "\r\n";
}

}  // namespace tolvex::sim
