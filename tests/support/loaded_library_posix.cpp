#include <dlfcn.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>

#include "support/loaded_library.h"

namespace tolvex::test {
namespace {

// What the dynamic section of a loaded file says.
struct Dynamic {
  std::uintptr_t base = 0;
  const ElfW(Sym) * symbols = nullptr;
  const char* names = nullptr;
  const ElfW(Rela) * tables[2] = {};
  std::size_t sizes[2] = {};  // in bytes

  explicit Dynamic(void* handle) {
    link_map* map = nullptr;
    if (dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0) throw std::runtime_error(dlerror());
    base = map->l_addr;
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) read(*entry);
  }

 private:
  void read(const ElfW(Dyn) & entry) {
    switch (entry.d_tag) {
      case DT_SYMTAB:
        symbols = reinterpret_cast<const ElfW(Sym)*>(entry.d_un.d_ptr);
        break;
      case DT_STRTAB:
        names = reinterpret_cast<const char*>(entry.d_un.d_ptr);
        break;
      case DT_RELA:
        tables[0] = reinterpret_cast<const ElfW(Rela)*>(entry.d_un.d_ptr);
        break;
      case DT_RELASZ:
        sizes[0] = entry.d_un.d_val;
        break;
      case DT_JMPREL:
        tables[1] = reinterpret_cast<const ElfW(Rela)*>(entry.d_un.d_ptr);
        break;
      case DT_PLTRELSZ:
        sizes[1] = entry.d_un.d_val;
        break;
      default:
        break;
    }
  }
};

// Each place that the loader filled with an address from another library, with the name.
void eachImport(void* handle, const std::function<void(const char*, void**)>& visit) {
  const Dynamic dynamic(handle);
  for (int table = 0; table < 2; ++table) {
    const std::size_t count = dynamic.sizes[table] / sizeof(ElfW(Rela));
    for (std::size_t i = 0; i < count; ++i) {
      const ElfW(Rela)& entry = dynamic.tables[table][i];
      const auto index = ELF64_R_SYM(entry.r_info);
      if (index == 0 || dynamic.symbols[index].st_shndx != SHN_UNDEF) continue;
      visit(dynamic.names + dynamic.symbols[index].st_name,
            reinterpret_cast<void**>(dynamic.base + entry.r_offset));
    }
  }
}

// The loader has made the table of addresses read-only.
void writeInto(void** slot, void* value) {
  const auto size = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  void* const page = reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(slot) / size * size);
  if (mprotect(page, size, PROT_READ | PROT_WRITE) != 0) {
    throw std::runtime_error("the table of imports cannot be written");
  }
  *slot = value;
}

template <typename Entry>
Entry* entryAt(std::string& file, std::size_t offset) {
  if (offset + sizeof(Entry) > file.size()) throw std::runtime_error("the library's file is cut");
  return reinterpret_cast<Entry*>(file.data() + offset);
}

void allowUnloading(std::string& file, const ElfW(Phdr) & section) {
  for (std::size_t at = 0; at < section.p_filesz; at += sizeof(ElfW(Dyn))) {
    auto* const entry = entryAt<ElfW(Dyn)>(file, section.p_offset + at);
    if (entry->d_tag == DT_FLAGS_1) entry->d_un.d_val &= ~static_cast<ElfW(Xword)>(DF_1_NODELETE);
  }
}

// A copy of the library's file, for as long as the process lives. The library is marked to stay
// loaded once it is (-z nodelete), so that no call finds it gone; here it has to go, for else its
// first call could be made only once in a process. The copy has no such mark.
class UnloadableCopy {
 public:
  explicit UnloadableCopy(const std::string& original)
      : original_(original), path_("./unloadable-" + std::to_string(getpid()) + ".so") {
    std::ifstream source(original, std::ios::binary);
    std::string file{std::istreambuf_iterator<char>(source), std::istreambuf_iterator<char>()};
    const auto head = *entryAt<ElfW(Ehdr)>(file, 0);
    for (std::size_t i = 0; i < head.e_phnum; ++i) {
      const auto part = *entryAt<ElfW(Phdr)>(file, head.e_phoff + i * head.e_phentsize);
      if (part.p_type == PT_DYNAMIC) allowUnloading(file, part);
    }
    std::ofstream(path_, std::ios::binary) << file;
  }
  ~UnloadableCopy() { std::remove(path_.c_str()); }

  const char* path(const std::string& original) const {
    if (original != original_) throw std::runtime_error("another library than " + original_);
    return path_.c_str();
  }

 private:
  std::string original_;
  std::string path_;
};

// The path of a copy that is not loaded.
std::string afresh(const std::string& original) {
  static const UnloadableCopy copy(original);
  const char* const path = copy.path(original);
  if (dlopen(path, RTLD_NOW | RTLD_NOLOAD) != nullptr) {
    throw std::runtime_error("the library did not let itself be unloaded");
  }
  return path;
}

}  // namespace

LoadedLibrary::LoadedLibrary(const std::string& path) : library_(afresh(path)) {}

std::vector<std::string> LoadedLibrary::imports() const {
  std::vector<std::string> names;
  eachImport(library_.handle(), [&](const char* name, void**) { names.emplace_back(name); });
  return names;
}

void* LoadedLibrary::replace(const std::string& import, void* function) {
  void* before = nullptr;
  eachImport(library_.handle(), [&](const char* name, void** slot) {
    if (import != name) return;
    before = *slot;
    writeInto(slot, function);
  });
  return before;
}

}  // namespace tolvex::test
