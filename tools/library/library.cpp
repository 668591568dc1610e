#include "library/library.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "base/failure.h"
#include "library/application.h"
#include "library/library_file.h"
#include "platform/paths.h"

namespace tolvex::ctl {
namespace {

namespace fs = std::filesystem;

// A function that every version has, to ask where the library came from.
constexpr char kOldestExport[] = "read_standard";

bool isFile(const fs::path& path) {
  std::error_code ignored;
  return fs::is_regular_file(path, ignored);
}

// The library in a folder, empty when there is none.
std::string libraryIn(const fs::path& folder) {
  for (int i = 0; i < platform::kLibraryNameCount; ++i) {
    const fs::path path = folder / platform::kLibraryNames[i];
    if (isFile(path)) return path.u8string();
  }
  return "";
}

// Where programs and their libraries are installed side by side.
std::vector<fs::path> usualFolders() {
  const fs::path own = fs::u8path(tolvex::platform::hostExecutableUtf8()).parent_path();
  if (platform::kOnWindows) return {own};
  const fs::path lib = own.parent_path() / "lib";
  return {own, lib, lib / "tolvex", lib / "x86_64-linux-gnu"};
}

[[noreturn]] void refuse(const std::string& path, const std::string& problem) {
  const std::string unfit = unfitness(path);
  throw Failure(ExitCode::Failed,
                "cannot load the library " + path + ": " + (unfit.empty() ? problem : unfit),
                unfit.empty() ? "Install the package again, or name another library with --library."
                              : "Name the x64 library of this system with --library.");
}

std::string named(const std::string& path) {
  if (!isFile(fs::u8path(path))) {
    throw Failure(ExitCode::Failed, "there is no library " + path,
                  "Name the file of the library itself with --library.");
  }
  // A name without a folder would be searched for elsewhere.
  return fs::absolute(fs::u8path(path)).u8string();
}

// The path of the library to load, empty to leave the search to the system.
std::string chosenPath(const Globals& globals) {
  if (!globals.library.empty()) return named(globals.library);
  if (!globals.app.empty()) {
    std::string beside = libraryIn(fs::u8path(applicationFolder(globals.app)));
    if (!beside.empty()) return beside;
  }
  for (const fs::path& folder : usualFolders()) {
    std::string path = libraryIn(folder);
    if (!path.empty()) return path;
  }
  return "";
}

platform::LibraryHandle loadFromSystem() {
  std::string problem;
  for (int i = 0; i < platform::kLibraryNameCount; ++i) {
    const auto handle = platform::loadLibrary(platform::kLibraryNames[i], problem);
    if (handle != nullptr) return handle;
  }
  std::string folders;
  for (const fs::path& folder : usualFolders()) {
    folders += (folders.empty() ? "" : ", ") + folder.u8string();
  }
  throw Failure(ExitCode::Failed,
                std::string("cannot find ") + platform::kLibraryNames[0] + " in " + folders +
                    ", nor where the system looks for libraries",
                "Put the library beside tolvexctl, or name it with --library, or the application "
                "that it lies beside with --app.");
}

}  // namespace

Library Library::load(const Globals& globals) {
  const std::string path = chosenPath(globals);
  if (path.empty()) return Library(loadFromSystem(), "");
  std::string problem;
  const auto handle = platform::loadLibrary(path, problem);
  if (handle == nullptr) refuse(path, problem);
  return Library(handle, path);
}

Library::Library(platform::LibraryHandle handle, const std::string& path)
    : handle_(handle), path_(path) {
  void* const function = find(kOldestExport);
  if (function == nullptr) {
    throw Failure(ExitCode::Failed, path + " is another library: it has no " + kOldestExport,
                  std::string("Name the file ") + platform::kLibraryNames[0] + " with --library.");
  }
  if (path_.empty()) path_ = platform::libraryPath(handle, function);
}

void* Library::find(const char* name) const { return platform::findFunction(handle_, name); }

void* Library::findOrThrow(const char* name) const {
  void* const function = find(name);
  if (function != nullptr) return function;
  throw Failure(ExitCode::Failed, "the library " + path_ + " has no " + name,
                "It is older than tolvexctl: use a library and a tolvexctl of one version.");
}

std::string Library::version() const { return versionInFile(path_); }

}  // namespace tolvex::ctl
