#include "control/paper_cache.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tolvex::sim {

// Revisions never come again, also when the job numbers begin anew.
PaperCache::Picture PaperCache::find(const Job& job, Form form) {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.job == job.number() && entry.form == form && entry.revision == job.revision();
  });
  if (found == entries_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, found);
  return found->picture;
}

PaperCache::Picture PaperCache::keep(const Job& job, Form form, std::string svg) {
  const auto before = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.job == job.number() && entry.form == form;
  });
  if (before != entries_.end()) forget(before);
  auto picture = std::make_shared<const std::string>(std::move(svg));
  if (picture->size() > kMaxBytes) return picture;
  bytes_ += picture->size();
  entries_.push_front({job.number(), form, job.revision(), picture});
  while (bytes_ > kMaxBytes || entries_.size() > kMaxPictures) forget(std::prev(entries_.end()));
  return picture;
}

void PaperCache::forget(std::list<Entry>::iterator entry) {
  bytes_ -= entry->picture->size();
  entries_.erase(entry);
}

}  // namespace tolvex::sim
