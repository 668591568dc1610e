// The API: everything that the simulator can be told and asked, without sockets.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "control/job_diary.h"
#include "control/paper_cache.h"
#include "control/simulation.h"
#include "control/state_text.h"
#include "control/waiting_room.h"
#include "net/web.h"

namespace tolvex::sim {

/// Answers the requests below /api, as openapi.json describes them. Not thread-safe; the simulation
/// must live as long, and no job may begin before there is the API.
class Api : public WebSite {
 public:
  /// What the API needs of the world.
  struct World {
    std::function<TimePoint()> now = [] { return Clock::now(); };
    std::function<WallTime()> wallTime = [] { return std::chrono::system_clock::now(); };
    /// Calls a function later.
    WaitingRoom::Timer after;
    /// The text of openapi.json; it has to live as long.
    std::string_view openApi;
  };

  Api(Simulation& simulation, World world);

  void answer(const HttpRequest& request, std::function<void(HttpResponse)> respond) override;
  std::unique_ptr<LiveFeed> openFeed(const HttpRequest& request) override;

  /// The same for those who are no client: `path` may have a query, without escapes; a body is
  /// JSON. What has to wait (/api/wait) answers 408 unless it has happened already.
  HttpResponse call(const std::string& method, const std::string& path,
                    const std::string& body = "");

 private:
  Simulation& simulation_;
  World world_;
  JobDiary diary_;
  WaitingRoom waitingRoom_;
  PaperCache papers_;
  std::shared_ptr<StateText> stateText_;
};

}  // namespace tolvex::sim
