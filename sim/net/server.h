// The TCP side of the service: two ports, any number of clients, one thread.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "base/half.h"
#include "net/listen_error.h"
#include "net/web.h"

namespace tolvex::sim {

class Exchanger;

/// What a server tells about itself while it runs, on the thread in run().
struct ServerEvents {
  /// Something went wrong that the server gets over by itself; one line of text for the operator.
  std::function<void(const std::string& text)> troubled;
};

/// Serves the clients of both halves of a service. Everything happens on the thread that is in
/// run(): requests, replies, events, posted functions. So the exchanger, the service and its
/// devices need no locks as long as others reach them through post() only.
///
/// A connection is answered strictly in order, and nothing more is read from it while a reply is
/// being delivered: a client that floods or does not read stops itself. A client that has shut down
/// its sending side still gets all its replies. A reply that comes late holds up its own connection
/// only.
///
/// A port that a fault refuses is closed, and opened again when the fault is switched off.
class Server {
 public:
  /// The exchanger must outlive the server. The event may be left empty.
  Server(Exchanger& exchanger, ServerEvents events);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// Accepts clients of `half` on an IPv4 address and port; port 0 takes any free one. Returns the
  /// port. Throws ListenError. Call it before run().
  std::uint16_t listen(Half half, const std::string& address, std::uint16_t port);

  /// Serves a site to browsers and programs on an IPv4 address and port; port 0 takes any free one.
  /// Returns the port. Throws ListenError. Call it once at most, before run(). The site must outlive
  /// the server.
  std::uint16_t serveWeb(const std::string& address, std::uint16_t port, WebSite& site,
                         const WebTimes& times = {});

  /// Has the viewers of the live channel look for news soon. To be called on the thread in run(), as
  /// often as anything changes: many calls at once cost no more than one.
  void wakeFeeds();

  /// Resets the connections whose reply waits for its time. To be called on the thread in run().
  void dropWaiting();

  /// The signals that end the program (Ctrl-C and its relatives) make run() return from now on.
  void stopOnSignals();

  /// Serves until stop() is called. Runs once.
  void run();

  /// Makes run() return soon; connections are closed by the destructor. Any thread may call it.
  void stop();

  /// Has `function` called on the thread that is in run(). Any thread may call it. A function that
  /// is still waiting when the server stops is not called.
  void post(std::function<void()> function);

  /// Has `function` called on the thread that is in run(), once `delay` has passed. To be called on
  /// that thread, or before run(). A function that is still waiting when the server stops is not
  /// called.
  void after(std::chrono::milliseconds delay, std::function<void()> function);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tolvex::sim
