// Memory straight from the operating system, for texts so large that giving
// them page by page takes longer than writing them.
#pragma once

#include <cstddef>

// Such memory comes in multiples of this size.
inline constexpr std::size_t kLargePage = 0x200000;

// Memory of this size and alignment, of which the system may give as much at
// once as it likes. Throws std::bad_alloc as `new` does.
char* AllocateLargePage();
void FreeLargePage(char* page) noexcept;
