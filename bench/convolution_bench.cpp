// Convolution beside loops at -O3 -ffast-math, and transforms of FFTW by hand.
#include "orbs.h"
#include "overlap.h"
#include "vectors.h"

namespace {

struct Lengths {
    int longer, shorter;
};
constexpr Lengths pairs[] = {{65536, 1024}, {4096, 4096}, {4096, 63}, {100, 100}};

#pragma GCC push_options
#pragma GCC optimize("fast-math")
// What is added to outputs in a pass over the longer vector, and the sums of one output after the other.
template <class T>
[[gnu::noinline]] void loop(const T* a, int aLen, const T* b, int bLen, T* y) {
    std::fill_n(y, aLen + bLen - 1, T{});
    for (int k = 0; k < bLen; ++k)
        for (int n = 0; n < aLen; ++n) y[n + k] += b[k] * a[n];
}
// Tiles of outputs that stay in the registers while all taps pass; ends by the loop.
template <class T>
[[gnu::noinline]] void tiled(const T* a, int aLen, const T* b, int bLen, T* y) {
    constexpr int tile = 256 / int(sizeof(T));
    const auto one = [=](int n) {
        T sum = 0;
        for (int k = std::max(0, n - aLen + 1); k <= std::min(bLen - 1, n); ++k) sum += b[k] * a[n - k];
        y[n] = sum;
    };
    int n = 0;
    for (; n < bLen - 1; ++n) one(n);
    for (; n + tile <= aLen; n += tile) {
        T sums[tile] = {};
        for (int k = 0; k < bLen; ++k)
#pragma GCC unroll 64
            for (int i = 0; i < tile; ++i) sums[i] += b[k] * a[n - k + i];
        std::copy_n(sums, tile, y + n);
    }
    for (; n < aLen + bLen - 1; ++n) one(n);
}
#pragma GCC pop_options

template <class T>
void addReal(const char* name, const char* direct, auto conv, auto convDirect) {
    for (const auto& p : pairs) {
        const T *const a = vectors::buffer<T>(0), *const b = vectors::buffer<T>(1);
        T* const y = vectors::room<T>(2, 200000);
        const int shorter = p.shorter;
        const auto row = [&](const char* member) {
            vectors::Row made(std::string(member) + "(" + std::to_string(shorter) + ")");
            made.lens = {&p.longer, 1};
            return made;
        };
        const auto called = row(name), directly = row(direct);
        vectors::add(called, "orbs", [=](int n) { conv(a, n, b, shorter, y); });
        vectors::add(directly, "orbs", [=](int n) { convDirect(a, n, b, shorter, y); });
        vectors::add(directly, "loop", [=](int n) { loop(a, n, b, shorter, y); });
        vectors::add(directly, "tile", [=](int n) { tiled(a, n, b, shorter, y); });
        if (shorter < 64 || p.longer < 512) vectors::add(called, "loop", [=](int n) { loop(a, n, b, shorter, y); });
        if constexpr (sizeof(T) == 4) {
            const overlap::Planned<T> by(shorter, p.longer, false);
            vectors::add(called, "fftw", [=](int n) { by.run(b, a, 1 - shorter, y, n + shorter - 1); });
        }
    }
}

void add16() {
    for (const auto& p : pairs) {
        const Orb16s *const a = vectors::buffer<Orb16s>(0), *const b = vectors::buffer<Orb16s>(1);
        Orb16s* const y = vectors::room<Orb16s>(2, 200000);
        Orb32f* const floats = vectors::room<Orb32f>(3, 400000);
        const int shorter = p.shorter;
        vectors::Row at("Conv_16s_Sfs(" + std::to_string(shorter) + ")");
        at.lens = {&p.longer, 1};
        vectors::add(at, "orbs", [=](int n) { orbsConv_16s_Sfs(a, n, b, shorter, y, 8); });
        // To single precision, and back.
        const auto byHand = [=](auto conv) {
            return [=](int n) {
                Orb32f *const taps = floats + n, *const sums = taps + shorter;
                orbsConvert_16s32f(a, floats, n);
                orbsConvert_16s32f(b, taps, shorter);
                conv(floats, n, taps, shorter, sums);
                orbsConvert_32f16s_Sfs(sums, y, n + shorter - 1, orbRndNear, 8);
            };
        };
        vectors::add(at, "tile", byHand([](auto... all) { tiled(all...); }));
        const overlap::Planned<float> by(shorter, p.longer, false);
        const auto fftw = [by](const Orb32f* x, int n, const Orb32f* taps, int count, Orb32f* sums) {
            by.run(taps, x, 1 - count, sums, n + count - 1);
        };
        vectors::add(at, "fftw", byHand(fftw));
    }
}

[[maybe_unused]] const bool registered = [] {
    addReal<Orb32f>("Conv_32f", "ConvDirect_32f", orbsConv_32f, orbsConvDirect_32f);
    addReal<Orb64f>("Conv_64f", "ConvDirect_64f", orbsConv_64f, orbsConvDirect_64f);
    add16();
    return true;
}();

} // namespace
