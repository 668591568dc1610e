// What the files of jobs are called.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvex::sim {

/// What stands behind the name of a job's files.
constexpr std::string_view kPictureSuffix = ".svg";
constexpr std::string_view kTextSuffix = ".txt";

/// The name of a job's files without its end, for example "job-0001-Ticket".
std::string jobFileName(int number, std::string_view printer);

/// True for what a file of a job of one of these printers is called, and for nothing else.
bool isJobFile(std::string_view fileName, const std::vector<std::string>& printers);

}  // namespace tolvex::sim
