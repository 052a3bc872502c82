#pragma once

#include <cstddef>

namespace Engine {

/// Memory for what is filled from end to end at once, such as a large document: blocks of 2 MiB and more are laid so
/// that the system can back them with large pages, since faults for small ones would take as long as filling them.
/// Not initialised; ended with std::free(). Null if there is none.
void* allocateForFilling(std::size_t size);

}  // namespace Engine
