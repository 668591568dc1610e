// What becomes of finished jobs.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/job_announcer.h"
#include "app/paper_files.h"

namespace tolvex::sim {

/// Keeps finished jobs as files and announces them, and again when the paper is fed or cut after
/// that. Not thread-safe.
class JobKeeper {
 public:
  using Tell = std::function<void(const std::string& text)>;

  /// Without a directory (UTF-8) no files are kept. `say` gets the announcements, `warn` what went
  /// wrong, one line of text each; either may be empty.
  JobKeeper(const std::string& directory, const std::vector<std::string>& printers, Tell say,
            Tell warn);

  /// Forgets all jobs, and removes their files.
  void restart();

  /// To be called with a job when it has begun and after each change of it.
  void changed(const Job& job);

 private:
  std::optional<PaperFiles> files_;
  JobAnnouncer announcer_;
  Tell say_;
};

}  // namespace tolvex::sim
