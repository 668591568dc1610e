// Which of many things a listing shows.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <type_traits>
#include <vector>

namespace tolvex::sim {

/// What was asked for.
struct ListingRange {
  /// Only those with a larger number. Without it, the newest ones are shown.
  std::optional<std::uint64_t> after;
  std::size_t limit;
};

template <typename Item>
struct Listing {
  std::vector<const Item*> items;
  /// Whether there are further ones that match.
  bool more = false;
};

/// Of `all`, oldest first, those that `matches` takes: the first ones after a number, or the newest
/// ones; as many as the limit and `maxBytes` allow, but one in any case. Oldest first.
template <typename All, typename Matches, typename BytesOf>
auto listingOf(const All& all, const ListingRange& range, std::size_t maxBytes, Matches matches,
               BytesOf bytesOf) {
  using Item = std::remove_reference_t<decltype(*std::begin(all))>;
  Listing<Item> listing;
  std::size_t bytes = 0;
  const auto take = [&](const Item& item) {
    if (!matches(item)) return true;
    bytes += bytesOf(item);
    listing.more =
        listing.items.size() >= range.limit || (!listing.items.empty() && bytes > maxBytes);
    if (!listing.more) listing.items.push_back(&item);
    return !listing.more;
  };
  if (range.after) {
    for (auto item = std::begin(all); item != std::end(all) && take(*item);) ++item;
  } else {
    for (auto item = std::rbegin(all); item != std::rend(all) && take(*item);) ++item;
    std::reverse(listing.items.begin(), listing.items.end());
  }
  return listing;
}

}  // namespace tolvex::sim
