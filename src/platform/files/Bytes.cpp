#include "platform/files/Bytes.h"

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace bravona {

Bytes roomFor(std::size_t count)
{
    Bytes bytes;
    bytes.reserve(count);
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    constexpr std::uintptr_t page = std::uintptr_t{2} * 1024 * 1024;
    const auto begin = reinterpret_cast<std::uintptr_t>(bytes.data());
    const std::uintptr_t first = (begin + page - 1) / page * page;
    const std::uintptr_t end = (begin + count) / page * page;
    if (first < end) {
        // A wish: without it the result is the same.
        static_cast<void>(madvise(bytes.data() + (first - begin), end - first, MADV_HUGEPAGE));
    }
#endif
    return bytes;
}

}  // namespace bravona
