#include <dlfcn.h>
#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <functional>
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

}  // namespace

LoadedLibrary::LoadedLibrary(const std::string& path)
    : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) throw std::runtime_error(dlerror());
}

LoadedLibrary::~LoadedLibrary() { dlclose(handle_); }

LoadedLibrary::Address LoadedLibrary::address(const char* name) const {
  void* const found = dlsym(handle_, name);
  if (found == nullptr) throw std::runtime_error(dlerror());
  return reinterpret_cast<Address>(found);
}

std::vector<std::string> LoadedLibrary::imports() const {
  std::vector<std::string> names;
  eachImport(handle_, [&](const char* name, void**) { names.emplace_back(name); });
  return names;
}

void* LoadedLibrary::replace(const std::string& import, void* function) {
  void* before = nullptr;
  eachImport(handle_, [&](const char* name, void** slot) {
    if (import != name) return;
    before = *slot;
    writeInto(slot, function);
  });
  return before;
}

}  // namespace tolvex::test
