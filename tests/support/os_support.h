// What the unit tests need of the operating system and the standard library does not offer.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

namespace tolvex::test {

// What a line of a log file ends in on this system.
extern const std::string kLineEnd;

unsigned long processId();

// Takes the rights of an administrator away from this process where it has them: files that may only
// be read are so for it, too. Nothing on Windows, where they are so for everybody.
void becomeOrdinaryUser();

// As long as it lives, no ordinary user can open the file for writing: the rights on it are taken away,
// or on Windows it is held open by one who shares it for reading only.
class ReadOnlyFile {
 public:
  explicit ReadOnlyFile(std::string path);
  ~ReadOnlyFile();
  ReadOnlyFile(const ReadOnlyFile&) = delete;
  ReadOnlyFile& operator=(const ReadOnlyFile&) = delete;

 private:
  std::string path_;
  [[maybe_unused]] void* handle_ = nullptr;
};

// Makes the folder a disk of its own with so much room, for this process and those that it starts. To
// be called before there are threads. False where the system does not let us: for an ordinary user
// without namespaces, and on Windows.
bool makeDiskOfItsOwn(const std::string& folder, std::size_t room);

// Whether the system itself puts what two processes append to a file one behind the other. Linux and
// Windows do; Wine looks for the end of the file first and writes there then.
bool appendsAreWhole();

// The open files, sockets and the like of this process.
std::size_t handleCount();

// The memory of this process, in bytes.
struct MemoryUse {
  std::size_t heap;      // what was allocated and not freed
  std::size_t resident;  // what the system keeps for it (on Windows: the private bytes)
};

MemoryUse memoryUse();

// Has the heap tell what is in use to the byte. Called first in main(), with its arguments: it may
// begin the program again.
void countMemoryExactly(char** arguments);

// Handles that a process may come to have without opening anything: on Windows a lock gets one when
// two threads meet at it for the first time.
extern const std::size_t kHandlesOfLocks;

// Sets a variable of this process's environment.
void setEnvironment(const char* name, const char* value);

// Another stream to where standard output goes now, which stays there when stdout is reopened. Null
// where there is none.
std::FILE* secondStandardOutput();

// Makes the logger's default folder (under the given folder where the system lets a test say so),
// without any log file in it, and returns its path.
std::string emptyDefaultLogFolder(const std::string& parent);

// The same for the library's folder, with its log files and its image cache.
std::string emptyLibraryFolder(const std::string& parent);

}  // namespace tolvex::test
