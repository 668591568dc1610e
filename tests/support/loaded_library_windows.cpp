#include <windows.h>

#include <functional>
#include <stdexcept>

#include "support/loaded_library.h"

namespace tolvex::test {
namespace {

// Each place that the loader filled with an address from another library, with the name.
void eachImport(void* handle, const std::function<void(const char*, ULONGLONG*)>& visit) {
  char* const base = static_cast<char*>(handle);
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* const head = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
  const DWORD table =
      head->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table);
  for (; library->Name != 0; ++library) {
    const auto* name =
        reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + library->OriginalFirstThunk);
    auto* slot = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + library->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      const auto* const entry =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      visit(reinterpret_cast<const char*>(entry->Name), &slot->u1.Function);
    }
  }
}

void writeInto(ULONGLONG* slot, void* value) {
  DWORD before = 0;
  if (VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &before) == FALSE) {
    throw std::runtime_error("the table of imports cannot be written");
  }
  *slot = reinterpret_cast<ULONGLONG>(value);
}

// A process has about a thousand places for the values of threads, and the library gives none back:
// in an application it stays loaded. They are given back before it is loaded again.
std::vector<DWORD> placesOfThreads;

DWORD WINAPI notedTlsAlloc() {
  const DWORD place = TlsAlloc();
  if (place != TLS_OUT_OF_INDEXES) placesOfThreads.push_back(place);
  return place;
}

// In the place of the call with which the library pins itself, so that no call finds it gone. Here
// it has to go, for else its first call could be made only once in a process.
BOOL WINAPI doNotPin(DWORD, const char*, HMODULE*) { return FALSE; }

// The path of one that is not loaded.
const std::string& afresh(const std::string& path) {
  if (GetModuleHandleA(path.c_str()) != nullptr) {
    throw std::runtime_error("the library did not let itself be unloaded");
  }
  for (const DWORD place : placesOfThreads) TlsFree(place);
  placesOfThreads.clear();
  return path;
}

}  // namespace

LoadedLibrary::LoadedLibrary(const std::string& path) : library_(afresh(path)) {
  if (replace("GetModuleHandleExA", reinterpret_cast<void*>(doNotPin)) == nullptr ||
      replace("TlsAlloc", reinterpret_cast<void*>(notedTlsAlloc)) == nullptr) {
    throw std::runtime_error("the library does not import GetModuleHandleExA or TlsAlloc");
  }
}

std::vector<std::string> LoadedLibrary::imports() const {
  std::vector<std::string> names;
  eachImport(library_.handle(), [&](const char* name, ULONGLONG*) { names.emplace_back(name); });
  return names;
}

void* LoadedLibrary::replace(const std::string& import, void* function) {
  void* before = nullptr;
  eachImport(library_.handle(), [&](const char* name, ULONGLONG* slot) {
    if (import != name) return;
    before = reinterpret_cast<void*>(*slot);
    writeInto(slot, function);
  });
  return before;
}

}  // namespace tolvex::test
