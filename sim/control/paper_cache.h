// Pictures of paper that were drawn already.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>

#include "devices/job.h"
#include "paper/render.h"

namespace tolvex::sim {

/// Keeps the latest pictures of jobs: drawing a long one takes longer than all else that the API
/// does, and programs ask for the same one again and again. Not thread-safe.
class PaperCache {
 public:
  /// As many pictures are kept, and as much of them; a larger one is not kept at all.
  static constexpr std::size_t kMaxPictures = 64;
  static constexpr std::size_t kMaxBytes = std::size_t{32} * 1024 * 1024;

  using Picture = std::shared_ptr<const std::string>;

  /// The picture of a job as it is now, null if it is not kept.
  Picture find(const Job& job, Form form);

  /// Takes in what was drawn of a job as it is now, in place of what it was before.
  Picture keep(const Job& job, Form form, std::string svg);

  /// What is kept, in bytes.
  std::size_t bytes() const { return bytes_; }

 private:
  struct Entry {
    int job;
    Form form;
    std::uint64_t revision;
    Picture picture;
  };

  void forget(std::list<Entry>::iterator entry);

  std::list<Entry> entries_;  // the one that was asked for last comes first
  std::size_t bytes_ = 0;
};

}  // namespace tolvex::sim
