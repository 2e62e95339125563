#include "support/member.h"

#include <cmath>

namespace {

using namespace member;

enum class Layout { pack, perm };

// ---- The layouts: bin k of a packed spectrum of N samples, and back ----

template <class T>
struct Bin {
    T re, im;
};

// Place of the real part of bin k; that of its imaginary part, if it has one, follows.
std::size_t place(Layout layout, std::size_t N, std::size_t k) {
    if (k == 0) return 0;
    if (layout == Layout::perm && N % 2 == 0) return 2 * k == N ? 1 : 2 * k;
    return 2 * k - 1;
}
bool isReal(std::size_t N, std::size_t k) {
    return k == 0 || 2 * k == N;
}

template <class T>
Bin<T> bin(const std::vector<T>& spectrum, Layout layout, std::size_t k) {
    const std::size_t N = spectrum.size(), at = place(layout, N, k);
    return {spectrum[at], isReal(N, k) ? T{0} : spectrum[at + 1]};
}

template <class T>
std::vector<T> products(const std::vector<T>& x, const std::vector<T>& y, Layout layout, bool conjugate) {
    const std::size_t N = x.size();
    std::vector<T> r(N);
    for (std::size_t k = 0; k <= N / 2; ++k) {
        const Bin<T> a = bin(x, layout, k), b = bin(y, layout, k);
        const std::size_t at = place(layout, N, k);
        if (isReal(N, k)) {
            r[at] = a.re * b.re;
        } else if (conjugate) {
            r[at] = a.re * b.re + a.im * b.im;
            r[at + 1] = a.re * b.im - a.im * b.re;
        } else {
            r[at] = a.re * b.re - a.im * b.im;
            r[at + 1] = a.re * b.im + a.im * b.re;
        }
    }
    return r;
}

template <class Test>
void forEachMember(Test test) {
    test(&orbsMulPack_32f, Layout::pack, false);
    test(&orbsMulPack_32f_I, Layout::pack, false);
    test(&orbsMulPack_64f, Layout::pack, false);
    test(&orbsMulPack_64f_I, Layout::pack, false);
    test(&orbsMulPerm_32f, Layout::perm, false);
    test(&orbsMulPerm_32f_I, Layout::perm, false);
    test(&orbsMulPerm_64f, Layout::perm, false);
    test(&orbsMulPerm_64f_I, Layout::perm, false);
    test(&orbsMulPackConj_32f_I, Layout::pack, true);
    test(&orbsMulPackConj_64f_I, Layout::pack, true);
}

TEST(MulPack, EveryLength) {
    forEachMember([](auto function, Layout layout, bool conjugate) {
        using T = typename Shape<decltype(function)>::Result;
        for (std::size_t len = 1; len <= 70; ++len) {
            const auto a = support::randomVector<T>(len, 1), b = support::randomVector<T>(len, 2);
            expectResults(function, products(a, b, layout, conjugate), a, b);
        }
    });
}

// Infinity times 0 and infinity minus infinity are a NaN, in the vectors as in the last bins.
TEST(MulPack, InfinityAndNanPassThrough) {
    forEachMember([](auto function, Layout layout, bool conjugate) {
        using T = typename Shape<decltype(function)>::Result;
        const T special[] = {0,
                             T{-0.0},
                             1,
                             std::numeric_limits<T>::infinity(),
                             -std::numeric_limits<T>::infinity(),
                             std::numeric_limits<T>::quiet_NaN(),
                             std::numeric_limits<T>::denorm_min()};
        support::Random random(1);
        std::vector<T> a(1001), b(1001);
        for (T& t : a) t = special[random() % std::size(special)];
        for (T& t : b) t = special[random() % std::size(special)];
        expectResults(function, products(a, b, layout, conjugate), a, b);
    });
}

// What the products are for: the spectrum of a circular convolution, or correlation, is the product of the spectra.
TEST(MulPack, ProductIsTheSpectrumOfTheCircularConvolution) {
    forEachMember([](auto function, Layout layout, bool conjugate) {
        using S = Shape<decltype(function)>;
        using T = typename S::Result;
        const long double pi = std::acos(-1.0L);
        for (const std::size_t N : {1u, 2u, 3u, 8u, 15u, 32u}) {
            const auto spectrum = [&](const auto& x) {
                std::vector<T> packed(N);
                for (std::size_t k = 0; k <= N / 2; ++k) {
                    long double re = 0, im = 0;
                    for (std::size_t n = 0; n < N; ++n) {
                        const long double angle = -2 * pi * static_cast<long double>(k * n % N) / N;
                        re += x[n] * std::cos(angle);
                        im += x[n] * std::sin(angle);
                    }
                    packed[place(layout, N, k)] = static_cast<T>(re);
                    if (!isReal(N, k)) packed[place(layout, N, k) + 1] = static_cast<T>(im);
                }
                return packed;
            };
            const auto x = support::randomVector<T>(N, 1), y = support::randomVector<T>(N, 2);
            std::vector<long double> circular(N);
            for (std::size_t n = 0; n < N; ++n)
                for (std::size_t m = 0; m < N; ++m)
                    circular[(conjugate ? n + N - m : n + m) % N] += static_cast<long double>(x[m]) * y[n];
            const auto a = spectrum(x), b = spectrum(y), want = spectrum(circular);
            auto got = b;
            ASSERT_EQ(S::call(function, a.data(), b.data(), got.data(), static_cast<int>(N), 0), orbStsNoErr);
            // Bins are at most N in magnitude. Half an epsilon each: two factors, their product, the sum, the wanted
            // bin; the sixth is for the long double sums.
            const T tolerance = 3 * std::numeric_limits<T>::epsilon() * static_cast<T>(N * N);
            for (std::size_t n = 0; n < N; ++n)
                EXPECT_NEAR(got[n], want[n], tolerance) << callOf(function) << ", N " << N << ", place " << n;
        }
    });
}

// ---- Orb16s ----

// Not the usual scale rule: what is shifted to the right is cut off, and what is shifted to the left is saturated
// first.
Orb16s truncatedTo16(std::int64_t r, int s, bool isReal) {
    const auto limited = [](std::int64_t x) { return std::clamp<std::int64_t>(x, -32768, 32767); };
    const auto lowBits = [](std::int64_t count) { return static_cast<int>(((count % 32) + 32) % 32); };
    if (s > 0) return static_cast<Orb16s>(limited(r >> (isReal ? lowBits(s) : std::min(s, 31))));
    return static_cast<Orb16s>(limited(limited(r) * (std::int64_t{1} << lowBits(-std::int64_t{s}))));
}

std::vector<Orb16s> products(const std::vector<Orb16s>& x, const std::vector<Orb16s>& y, Layout layout, int s) {
    const std::size_t N = x.size();
    std::vector<Orb16s> r(N);
    for (std::size_t k = 0; k <= N / 2; ++k) {
        const Bin<Orb16s> a = bin(x, layout, k), b = bin(y, layout, k);
        const std::size_t at = place(layout, N, k);
        r[at] = truncatedTo16(a.re * b.re - std::int64_t{a.im} * b.im, s, isReal(N, k));
        if (!isReal(N, k)) r[at + 1] = truncatedTo16(std::int64_t{a.re} * b.im + a.im * b.re, s, false);
    }
    return r;
}

TEST(MulPack, SixteenBitsAreCutOffNotRounded) {
    const int scaleFactors[] = {0,     1,
                                2,     7,
                                15,    16,
                                29,    30,
                                31,    32,
                                33,    40,
                                1000,  std::numeric_limits<int>::max(),
                                -1,    -2,
                                -8,    -15,
                                -16,   -31,
                                -32,   -33,
                                -1000, std::numeric_limits<int>::min()};
    const auto test = [&](auto function, Layout layout) {
        for (const int s : scaleFactors) {
            for (const std::size_t len : {1, 2, 3, 8, 33, 70, 501}) {
                auto a = support::randomVector<Orb16s>(len, 1), b = support::randomVector<Orb16s>(len, 2);
                expectResults(function, products(a, b, layout, s), a, b, s);
                // The imaginary part 2^31.
                a.assign(len, -32768), b.assign(len, -32768);
                expectResults(function, products(a, b, layout, s), a, b, s);
            }
        }
    };
    test(&orbsMulPack_16s_Sfs, Layout::pack);
    test(&orbsMulPack_16s_ISfs, Layout::pack);
    test(&orbsMulPerm_16s_Sfs, Layout::perm);
    test(&orbsMulPerm_16s_ISfs, Layout::perm);
}

} // namespace
