// Finished jobs as files.
#pragma once

#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include "devices/job.h"

namespace tolvex::sim {

class UnfinishedFile;

/// Keeps the paper of each job in a folder, as a picture and as text: job-0001-Ticket.svg and
/// job-0001-Ticket.txt. Both appear whole or not at all, also where older ones are replaced.
/// Not thread-safe.
class PaperFiles {
 public:
  /// `directory` is UTF-8 and is created with its parents. Files of earlier jobs of these printers
  /// are removed from it, and nothing else. Failures of all kinds go to `warn`, one line of text
  /// each, and only the first one until a job is saved again.
  PaperFiles(std::string directory, std::vector<std::string> printers,
             std::function<void(const std::string& text)> warn);

  /// Makes the folder what it was at the start: it is there, and the files of earlier jobs are not.
  void restart();

  /// Writes the files of a job, the picture last. Returns the picture's path, or an empty text if
  /// anything failed; then nothing of the job is left, apart from files that it could not replace.
  std::string save(const Job& job);

 private:
  bool createDirectory();
  void removeEarlier();
  bool publishPicture(UnfinishedFile& picture, const UnfinishedFile& text);
  bool check(const std::error_code& error, const UnfinishedFile& file);
  void fail(const std::string& what, const std::error_code& error);

  std::string directory_;
  std::vector<std::string> printers_;
  std::function<void(const std::string&)> warn_;
  bool failing_ = false;
};

}  // namespace tolvex::sim
