#include "support/unary_member.h"

namespace {

template <class T>
T reversed(const T& t) {
    T r;
    auto* bytes = reinterpret_cast<Orb8u*>(&r);
    std::memcpy(bytes, &t, sizeof t);
    std::reverse(bytes, bytes + sizeof r);
    return r;
}

template <class T>
void expectSwaps(OrbStatus (*swap)(const T*, T*, int), OrbStatus (*swapInPlace)(T*, int)) {
    const auto bytes = support::randomVector<Orb8u>(1000 * sizeof(T));
    std::vector<T> src(1000);
    std::memcpy(static_cast<void*>(src.data()), bytes.data(), bytes.size());
    unary_member::expectMaps(swap, src, reversed<T>);
    for (int len = 1; len <= 70; ++len) {
        auto inPlace = src, ontoItself = src;
        ASSERT_EQ(swapInPlace(inPlace.data(), len), orbStsNoErr);
        ASSERT_EQ(swap(ontoItself.data(), ontoItself.data(), len), orbStsNoErr);
        auto want = src;
        std::transform(want.begin(), want.begin() + len, want.begin(), reversed<T>);
        ASSERT_TRUE(support::sameBits(inPlace, want, src)) << support::callOf(swapInPlace) << ", len " << len;
        ASSERT_TRUE(support::sameBits(ontoItself, want, src)) << support::callOf(swap) << " in place, len " << len;
    }
}

TEST(SwapBytes, ReversesElementsOfEveryWidth) {
    expectSwaps(orbsSwapBytes_16u, orbsSwapBytes_16u_I);
    expectSwaps(orbsSwapBytes_24u, orbsSwapBytes_24u_I);
    expectSwaps(orbsSwapBytes_32u, orbsSwapBytes_32u_I);
    expectSwaps(orbsSwapBytes_64u, orbsSwapBytes_64u_I);
}

} // namespace
