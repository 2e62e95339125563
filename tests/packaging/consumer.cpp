// The same from C++, with memory and the thread count of the library, and what C++ adds to it.
#include <orbs.hpp>

#include <cstdio>
#include <memory>
#include <vector>

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
    const std::vector<float> impulse{1, 0, 0}, taps{3, 2, 1};
    std::vector<float> response(3);
    orbs::FIR_32f(taps).Run(impulse, response);
    return response != taps;
}
