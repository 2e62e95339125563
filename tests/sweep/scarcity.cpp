#include "sweep/scarcity.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <link.h>
#include <string_view>

namespace {

struct Watch {
    bool on = false;
    int untilFailure = 0;
    void* held[64] = {};
};
constinit Watch watch;

// The library's code, where an allocation of its own returns to.
struct Range {
    std::uintptr_t begin = 0, end = 0;
};
const Range& library() {
    static const Range range = [] {
        Range found;
        dl_iterate_phdr(
            [](dl_phdr_info* object, std::size_t, void* result) {
                if (std::string_view(object->dlpi_name).find("liborbsv8") == std::string_view::npos) return 0;
                for (int n = 0; n < object->dlpi_phnum; ++n) {
                    const auto& segment = object->dlpi_phdr[n];
                    const std::uintptr_t begin = object->dlpi_addr + segment.p_vaddr;
                    if (segment.p_type == PT_LOAD && (segment.p_flags & PF_X))
                        *static_cast<Range*>(result) = {begin, begin + segment.p_memsz};
                }
                return 1;
            },
            &found);
        return found;
    }();
    return range;
}

} // namespace

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
extern "C" {

void* __libc_malloc(std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) {
    const auto caller = reinterpret_cast<std::uintptr_t>(__builtin_return_address(0));
    if (!watch.on || caller < library().begin || caller >= library().end) return __libc_malloc(size);
    if (--watch.untilFailure == 0) return nullptr;
    void* const block = __libc_malloc(size);
    if (block) *std::ranges::find(watch.held, nullptr) = block; // more than are counted here would end the process
    return block;
}

void free(void* block) {
    if (watch.on && block) std::ranges::replace(watch.held, block, static_cast<void*>(nullptr));
    __libc_free(block);
}
}
#endif

namespace sweep {

Scarcity::Scarcity(int failing) {
    library();
    watch = {.on = true, .untilFailure = failing};
}
Scarcity::~Scarcity() {
    watch.on = false;
}

bool Scarcity::wasFelt() const {
    return watch.untilFailure <= 0;
}
int Scarcity::blocksHeld() const {
    return static_cast<int>(std::size(watch.held) - std::ranges::count(watch.held, nullptr));
}

} // namespace sweep
