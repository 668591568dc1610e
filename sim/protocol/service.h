// The service as its clients see it: requests in, replies out.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "base/clock.h"
#include "base/half.h"
#include "protocol/picture_loader.h"
#include "protocol/reply.h"

namespace tolvex::sim {

struct Devices;

/// Answers the requests of both ports from the state of the devices. Knows no sockets, no
/// clock and no files. Not thread-safe; the devices must outlive it.
class Service {
 public:
  /// `loadPicture` finds the pictures that are to be printed; none is found without it.
  explicit Service(Devices& devices, PictureLoader loadPicture = {})
      : devices_(devices), loadPicture_(std::move(loadPicture)) {}

  /// The reply to one request that came to the port of `half`. In this order: JsonErr for text
  /// that is no JSON object, MissParam without "cmd", UnsupportWeightCmd or UnsupportPrintCmd for
  /// a command that this half does not have, MissParam without one of the command's members, and
  /// then whatever the command says.
  Reply answer(Half half, std::string_view request, TimePoint now);

  /// Forgets what clients have set: the log levels are those of the start. The devices stay.
  void restore();

 private:
  static constexpr char kLogLevel[] = "5";

  Devices& devices_;
  PictureLoader loadPicture_;
  std::string weighingLogLevel_ = kLogLevel;
  std::string printingLogLevel_ = kLogLevel;
};

}  // namespace tolvex::sim
