// What support needs to see, in one file.
#pragma once

#include <string>
#include <vector>

namespace tolvex::ctl {

struct BundleContents {
  struct File {
    std::string name;  // in the archive
    std::string text;
  };
  std::vector<File> files;              // made for the bundle
  std::string iniPath;                  // taken as it is, if it is there; may be empty
  std::vector<std::string> logFolders;  // whose rings are taken with texts masked, and NLog.ini
};

// Throws a Failure when the file is there already and must not be replaced, before anything is done.
void checkBundlePath(const std::string& path, bool force);

// Writes the archive. It gets its name when it is whole, so that nothing half written is left. Paths
// are UTF-8. Throws a Failure when it cannot be written.
void writeBundle(const std::string& path, const BundleContents& contents);

}  // namespace tolvex::ctl
