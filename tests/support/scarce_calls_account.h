// Between scarce_calls.cpp and the file of the system that takes the calls in.
#pragma once

#include <cstddef>
#include <cstdint>

#include "support/scarce_calls.h"

namespace tolvex::test::account {

// Has the library call this in the place of the function. Returns what it called before.
void* takeIn(LoadedLibrary& library, std::size_t call, void* inItsPlace);

// Told of each call, by its index: how it has to fail, null if it need not.
const CallFailure* next(std::size_t call);
// Whether this thread is the one that is looked at.
bool isWatching();

void opened(std::uintptr_t handle);
void closing(std::uintptr_t handle);
// Takes one of the open handles out of the account.
bool takeHandle(std::uintptr_t& handle);

}  // namespace tolvex::test::account
