// HTTP and the live channel as the rest of the simulator sees them, without sockets.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tolvex::sim {

/// One request. Already checked by the server: it comes from this machine's own pages or from a
/// program, its body is no longer than allowed, its path is decoded.
struct HttpRequest {
  std::string method;                        // "GET", "PATCH" ...
  std::string path;                          // decoded, begins with '/', without the query
  std::map<std::string, std::string> query;  // decoded; each name once
  std::string contentType;                   // without parameters, lower case; empty if none
  std::string body;
  /// Whether the client has left since, for those that answer later or only after much work; empty
  /// when nobody knows. A client that has closed its side counts as gone.
  std::function<bool()> clientLeft;
};

struct HttpResponse {
  int status = 200;
  std::string contentType = "application/json";
  std::string body;
  /// Further headers, such as {"Content-Disposition", "attachment"}.
  std::vector<std::pair<std::string, std::string>> headers;
};

/// What one viewer of the live channel is told.
class LiveFeed {
 public:
  virtual ~LiveFeed() = default;

  /// The next message for this viewer, JSON; empty when there is nothing new. Called when the
  /// viewer has taken the one before, whenever something has changed, and about 20 times a second.
  virtual std::string next() = 0;
};

/// The pages and the API that a server serves. All calls come on the server's thread.
class WebSite {
 public:
  virtual ~WebSite() = default;

  /// Answers with one call of `respond`, at once or later, on the same thread. It may be called
  /// after the client has left or the server is gone, and has no effect then. Who keeps it for
  /// long asks the request's clientLeft now and then, so that clients who ask and leave do not
  /// pile up. HEAD arrives as GET.
  virtual void answer(const HttpRequest& request, std::function<void(HttpResponse)> respond) = 0;

  /// A feed for a viewer that opened the live channel (/api/live) with this request.
  virtual std::unique_ptr<LiveFeed> openFeed(const HttpRequest& request) = 0;
};

/// How long a server waits for its web clients before it ends their connections.
struct WebTimes {
  using Time = std::chrono::milliseconds;

  Time idle = std::chrono::seconds(60);      // for the next request
  Time request = std::chrono::seconds(30);   // for the rest of a request that has begun
  Time response = std::chrono::seconds(30);  // until a response is taken
  Time message = std::chrono::seconds(30);   // until a message of the live channel is taken
  Time farewell = std::chrono::seconds(2);   // until a client whose connection ends stops sending
};

}  // namespace tolvex::sim
