#include "quorin/platform/foundation/PageAdvice.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace quorin {

void adviseHugePages(void* block, std::size_t size) {
    constexpr std::size_t worthTheCall = std::size_t{4} << 20;
    if (size < worthTheCall)
        return;
    const auto pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    const std::uintptr_t toPageStart = (pageSize - begin % pageSize) % pageSize;
    // The answer does not matter: a kernel without huge pages serves small ones.
    (void)madvise(static_cast<char*>(block) + toPageStart, size - toPageStart, MADV_HUGEPAGE);
}

}  // namespace quorin
