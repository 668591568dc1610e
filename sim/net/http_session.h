// One connection of the web port. Includes Asio; for the files of this folder only.
#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <memory>

#include "net/web_host.h"

namespace tolvex::sim {

/// Serves the client: requests one after another, in order, whatever arrives in between; a request
/// for the live channel makes the connection one of that. It ends with the client, or when the
/// client takes too long.
void startHttpSession(boost::asio::ip::tcp::socket socket, const std::shared_ptr<WebHost>& host);

}  // namespace tolvex::sim
