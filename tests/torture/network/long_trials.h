// What takes as long as it takes: the 40 s that the library waits for a reply, bytes that come one a
// second, a service that reads nothing. Each trial is a process of its own, all at the same time.
#pragma once

#include <string>
#include <vector>

namespace tolvex::test {

// The trials by name: all of them, or the one that ./run test can afford.
std::vector<std::string> longTrials(bool all);

// Runs one in this process, against a service at the address. Prints what differs; returns whether
// nothing does.
bool runLongTrial(const std::string& trial, const std::string& address);

}  // namespace tolvex::test
