// One viewer of the live channel. Includes Asio; for the files of this folder only.
#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <memory>
#include <string>

#include "net/web_host.h"

namespace tolvex::sim {

/// What a connection brings along from HTTP.
struct LiveStart {
  std::string key;  // of Sec-WebSocket-Key
  std::string host;
  Place connection;
  Place viewer;
  std::unique_ptr<LiveFeed> feed;
};

/// Answers the handshake and tells the viewer what is new from then on, a message at a time. What
/// the viewer sends is read and forgotten. It ends with the viewer, or when the viewer does not read
/// or does not answer pings.
void startLiveSession(boost::asio::ip::tcp::socket socket, const std::shared_ptr<WebHost>& host,
                      LiveStart start);

}  // namespace tolvex::sim
