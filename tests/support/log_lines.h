// Log files, line by line.
#pragma once

#include <string>
#include <vector>

namespace tolvex::test {

using Lines = std::vector<std::string>;

// Splits the bytes of a log file. Every line must end as this system ends a line: what follows the
// last line end fails the test.
Lines splitLines(const std::string& bytes);
Lines linesOf(const std::string& path);

// The lines of a file of records, each without the time stamp it begins with. A line that does not
// begin with a plausible one comes back unchanged.
Lines recordsOf(const std::string& path);

}  // namespace tolvex::test
