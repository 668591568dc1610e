#include "net/server.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <list>
#include <utility>
#include <vector>

#include "exchange/exchanger.h"
#include "net/http_session.h"
#include "net/listener.h"
#include "net/session.h"
#include "net/web_host.h"
#include "platform/platform.h"

namespace tolvex::sim {

namespace asio = boost::asio;

// The sessions live in the context's pending operations and refer to their port; so the ports come
// first and go last.
struct Server::Impl {
  struct HalfPort {
    ServedPort& served;
    Listener& listener;

    // Opens or closes the port as the faults say now.
    void followFaults() {
      const FaultBoard& faults = served.exchanger.faults();
      if (faults.refuses(served.half)) {
        listener.close();
      } else {
        listener.reopen();
      }
      if (!faults.drops(served.half)) return;
      for (Session* session : served.sessions) session->drop();
    }
  };

  Impl(Exchanger& theExchanger, ServerEvents serverEvents)
      : exchanger(theExchanger), events(std::move(serverEvents)), signals(context) {}

  Exchanger& exchanger;
  ServerEvents events;
  std::list<ServedPort> ports;
  asio::io_context context;
  asio::signal_set signals;
  std::list<Listener> listeners;
  std::shared_ptr<WebHost> web;
  std::vector<HalfPort> halves;
  // The board keeps its listeners for ever; this tells ours when the server is gone.
  std::shared_ptr<Impl*> self = std::make_shared<Impl*>(this);
};

Server::Server(Exchanger& exchanger, ServerEvents events)
    : impl_(std::make_unique<Impl>(exchanger, std::move(events))) {
  exchanger.faults().listen([weak = std::weak_ptr<Impl*>(impl_->self)] {
    const auto self = weak.lock();
    if (!self) return;
    for (Impl::HalfPort& half : (*self)->halves) half.followFaults();
  });
}

Server::~Server() = default;

std::uint16_t Server::listen(Half half, const std::string& address, std::uint16_t port) {
  ServedPort& served = impl_->ports.emplace_back(ServedPort{half, impl_->exchanger, {}});
  const auto begin = [&served](asio::ip::tcp::socket socket) {
    std::make_shared<Session>(std::move(socket), served)->start();
  };
  Listener& listener = impl_->listeners.emplace_back(impl_->context, name(half), address, port,
                                                     begin, impl_->events.troubled);
  listener.accept();
  impl_->halves.push_back({served, listener});
  impl_->halves.back().followFaults();
  return listener.port();
}

std::uint16_t Server::serveWeb(const std::string& address, std::uint16_t port, WebSite& site,
                               const WebTimes& times) {
  const auto web = std::make_shared<WebHost>(impl_->context, site, times);
  const auto begin = [web](asio::ip::tcp::socket socket) {
    startHttpSession(std::move(socket), web);
  };
  Listener& listener = impl_->listeners.emplace_back(impl_->context, "web", address, port, begin,
                                                     impl_->events.troubled);
  web->where = {address, listener.port()};
  impl_->web = web;
  listener.accept();
  return listener.port();
}

void Server::wakeFeeds() {
  if (impl_->web) impl_->web->wake();
}

void Server::dropWaiting() {
  for (ServedPort& port : impl_->ports) {
    for (Session* session : port.sessions) session->dropIfWaiting();
  }
}

void Server::stopOnSignals() {
  for (const int signal : platform::stopSignals()) impl_->signals.add(signal);
  impl_->signals.async_wait([this](const boost::system::error_code& error, int) {
    if (!error) stop();
  });
}

void Server::run() {
  // A server without listeners waits for posted functions and for its end all the same.
  const auto work = asio::make_work_guard(impl_->context);
  impl_->context.run();
}

void Server::stop() { impl_->context.stop(); }

void Server::post(std::function<void()> function) {
  asio::post(impl_->context, std::move(function));
}

void Server::after(std::chrono::milliseconds delay, std::function<void()> function) {
  // The wait owns its timer and ends with the context.
  const auto timer = std::make_shared<asio::steady_timer>(impl_->context, delay);
  timer->async_wait(
      [timer, function = std::move(function)](const boost::system::error_code& error) {
        if (!error) function();
      });
}

}  // namespace tolvex::sim
