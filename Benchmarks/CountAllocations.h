#pragma once

// Counts what a program allocates by replacing its operator new; for the one source file of a benchmark.

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;

}  // namespace

// Not inlined, so that the compiler doesn't pair malloc with delete.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
