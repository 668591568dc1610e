// What all connections of the web port share. Includes Asio; for the files of this folder only.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <memory>
#include <utility>
#include <vector>

#include "net/http_access.h"
#include "net/web.h"

namespace tolvex::sim {

/// Somebody who watches the live channel.
class Viewer {
 public:
  virtual ~Viewer() = default;

  /// Sends what is new, unless a message is still under way; what is new then follows it.
  virtual void pull() = 0;
};

/// One of a limited number of places; given back when it goes.
class Place {
 public:
  Place() = default;
  explicit Place(std::shared_ptr<int> taken) : taken_(std::move(taken)) { ++*taken_; }
  ~Place() { release(); }
  Place(Place&& other) noexcept : taken_(std::move(other.taken_)) {}
  Place& operator=(Place&& other) noexcept {
    release();
    taken_ = std::move(other.taken_);
    return *this;
  }

  explicit operator bool() const { return taken_ != nullptr; }

 private:
  void release() {
    if (taken_) --*taken_;
    taken_.reset();
  }

  std::shared_ptr<int> taken_;
};

/// Counts connections and has viewers look for news. Not thread-safe.
class WebHost : public std::enable_shared_from_this<WebHost> {
 public:
  static constexpr int kMaxConnections = 256;
  static constexpr int kMaxViewers = 64;
  /// Connections beyond the limit that are told so at the same time; the rest is just closed.
  static constexpr int kMaxRefusals = 64;

  /// The site and the context must outlive the host.
  WebHost(boost::asio::io_context& context, WebSite& site, const WebTimes& limits)
      : times(limits), site_(site), timer_(context) {}

  WebSite& site() { return site_; }
  /// Where the server listens; to be set before the first connection.
  WebAddress where;
  const WebTimes times;

  /// Places for a connection, for a viewer and for telling that there is no place; false when
  /// there is none left.
  Place takeConnection() { return take(connections_, kMaxConnections); }
  Place takeViewer() { return take(viewing_, kMaxViewers); }
  Place takeRefusal() { return take(refusals_, kMaxRefusals); }

  void addViewer(const std::shared_ptr<Viewer>& viewer);

  /// Has all viewers look for news soon, once for any number of calls until then.
  void wake();

 private:
  static Place take(const std::shared_ptr<int>& taken, int limit) {
    return *taken < limit ? Place(taken) : Place();
  }
  void tick();
  void pullAll();

  WebSite& site_;
  boost::asio::steady_timer timer_;
  std::vector<std::weak_ptr<Viewer>> viewers_;
  std::shared_ptr<int> connections_ = std::make_shared<int>(0);
  std::shared_ptr<int> viewing_ = std::make_shared<int>(0);
  std::shared_ptr<int> refusals_ = std::make_shared<int>(0);
  bool ticking_ = false;
  bool waking_ = false;
};

}  // namespace tolvex::sim
