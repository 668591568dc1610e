#include "net/web_host.h"

#include <algorithm>
#include <boost/asio/post.hpp>
#include <chrono>

namespace tolvex::sim {

namespace {

// What changes by itself, such as a scale that settles, is seen at this rate.
constexpr std::chrono::milliseconds kTick{50};

}  // namespace

void WebHost::addViewer(const std::shared_ptr<Viewer>& viewer) {
  viewers_.push_back(viewer);
  if (!ticking_) tick();
}

void WebHost::wake() {
  if (waking_ || viewers_.empty()) return;
  waking_ = true;
  boost::asio::post(timer_.get_executor(), [self = shared_from_this()] {
    self->waking_ = false;
    self->pullAll();
  });
}

// Without viewers there is no tick either.
void WebHost::tick() {
  ticking_ = true;
  timer_.expires_after(kTick);
  timer_.async_wait([self = shared_from_this()](const boost::system::error_code& error) {
    self->ticking_ = false;
    if (error) return;
    self->pullAll();
    if (!self->viewers_.empty()) self->tick();
  });
}

void WebHost::pullAll() {
  const auto gone = [](const std::weak_ptr<Viewer>& viewer) { return viewer.expired(); };
  viewers_.erase(std::remove_if(viewers_.begin(), viewers_.end(), gone), viewers_.end());
  // A feed may make viewers come and go.
  const auto viewers = viewers_;
  for (const auto& weak : viewers) {
    if (const auto viewer = weak.lock()) viewer->pull();
  }
}

}  // namespace tolvex::sim
