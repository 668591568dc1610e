// Two ways of doing the same, measured in turns.
#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "support/quantile.h"

namespace bench {

// Times of both, and the ratios of those that were neighbours.
struct Paired {
  std::vector<double> a, b, ratios;
};

// Microseconds for one call, over a batch.
template <typename Call>
double timedBatch(int calls, Call&& call) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  for (int count = 0; count < calls; ++count) call();
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count() / calls;
}

// Takes as many times of both, in turns in the order ABBA, so that a slow drift of the machine meets both
// alike. a and b return the time that they took.
template <typename A, typename B>
Paired takeTurns(std::size_t pairs, A&& a, B&& b) {
  Paired result;
  result.a.reserve(pairs);
  result.b.reserve(pairs);
  result.ratios.reserve(pairs);
  for (std::size_t pair = 0; pair < pairs; ++pair) {
    const bool aFirst = pair % 2 == 0;
    if (aFirst) result.a.push_back(a());
    result.b.push_back(b());
    if (!aFirst) result.a.push_back(a());
    result.ratios.push_back(result.a.back() / result.b.back());
  }
  return result;
}

// The same with batches of calls.
template <typename A, typename B>
Paired measurePairs(std::size_t pairs, int callsPerBatch, A&& a, B&& b) {
  return takeTurns(
      pairs, [&] { return timedBatch(callsPerBatch, a); },
      [&] { return timedBatch(callsPerBatch, b); });
}

}  // namespace bench
