#include "scenario/tally.h"

namespace tolvex::sim {

void Tally::add(const Event& event) {
  switch (event.kind) {
    case Event::Kind::Request:
      ++requests[event.command];
      if (!event.known) ++unknownCommands;
      if (event.result) ++results[std::to_string(*event.result)];
      break;
    case Event::Kind::Job:
      ++jobs[event.printer];
      break;
    case Event::Kind::Connection:
      ++connections[name(event.half)];
      break;
  }
}

}  // namespace tolvex::sim
