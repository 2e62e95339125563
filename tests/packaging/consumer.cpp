// The same from C++, with memory and the thread count of the library.
#include <orbs.h>

#include <cstdio>
#include <memory>

int main() {
    const std::unique_ptr<Orb16u, decltype(&orbsFree)> block(orbsMalloc_16u(20000), orbsFree);
    Orb16u* data = block.get();
    if (!data || orbSetNumThreads(2) != orbStsNoErr || orbGetNumThreads() != 2) return 1;
    for (int n = 0; n < 20000; ++n) data[n] = static_cast<Orb16u>(n);
    if (orbsAdd_16u_ISfs(data, data, 20000, 1) != orbStsNoErr) return 1; // long enough for both threads
    for (int n = 0; n < 20000; ++n) {
        if (data[n] != n) {
            std::fprintf(stderr, "element %d is %d\n", n, data[n]);
            return 1;
        }
    }
}
