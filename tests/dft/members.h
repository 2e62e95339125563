// The members of one precision, and the plan of a length as it is defined.
#pragma once

#include "orbs.h"

#include "support/compare.h"
#include "support/fourier.h"
#include "support/guarded.h"

#include <algorithm>
#include <bit>
#include <memory>

namespace dft_tests {

using support::Complex;
using support::nameOf;
using support::randomVector;
using support::sameBits;

template <class S>
using Object = std::unique_ptr<S, OrbStatus (*)(S*)>;

// What makes, measures and frees one kind of object.
template <class S>
struct Cycle {
    OrbStatus (*init)(S**, int, int, OrbHintAlgorithm);
    OrbStatus (*bufferSize)(const S*, int*);
    OrbStatus (*release)(S*);

    Object<S> make(std::size_t n, int flag = ORB_FFT_SCALE_NONE) const {
        S* spec = nullptr;
        EXPECT_EQ(init(&spec, static_cast<int>(n), flag, orbAlgHintNone), orbStsNoErr) << "length " << n;
        return {spec, release};
    }
    std::size_t workSize(const Object<S>& spec) const {
        int size = -1;
        EXPECT_EQ(bufferSize(spec.get(), &size), orbStsNoErr);
        return static_cast<std::size_t>(size);
    }
};

struct Single {
    using Real = Orb32f;
    using Interleaved = Orb32fc;
    using SpecC = OrbsDFTSpec_C_32fc;
    using SpecP = OrbsDFTSpec_C_32f;
    using SpecR = OrbsDFTSpec_R_32f;
    using SpecO = OrbsDFTOutOrdSpec_C_32fc;
    static constexpr std::size_t outOfOrderLimit = 2000;
    static constexpr Cycle<SpecC> interleaved{orbsDFTInitAlloc_C_32fc, orbsDFTGetBufSize_C_32fc, orbsDFTFree_C_32fc};
    static constexpr Cycle<SpecP> planes{orbsDFTInitAlloc_C_32f, orbsDFTGetBufSize_C_32f, orbsDFTFree_C_32f};
    static constexpr Cycle<SpecR> real{orbsDFTInitAlloc_R_32f, orbsDFTGetBufSize_R_32f, orbsDFTFree_R_32f};
    static constexpr Cycle<SpecO> outOfOrder{orbsDFTOutOrdInitAlloc_C_32fc, orbsDFTOutOrdGetBufSize_C_32fc,
                                             orbsDFTOutOrdFree_C_32fc};
    static constexpr decltype(&orbsDFTFwd_CToC_32fc) complex[] = {orbsDFTFwd_CToC_32fc, orbsDFTInv_CToC_32fc};
    static constexpr decltype(&orbsDFTFwd_CToC_32f) complexPlanes[] = {orbsDFTFwd_CToC_32f, orbsDFTInv_CToC_32f};
    static constexpr decltype(&orbsDFTOutOrdFwd_CToC_32fc) complexOutOfOrder[] = {orbsDFTOutOrdFwd_CToC_32fc,
                                                                                  orbsDFTOutOrdInv_CToC_32fc};
    static constexpr decltype(&orbsDFTFwd_RToCCS_32f) forward[] = {orbsDFTFwd_RToCCS_32f, orbsDFTFwd_RToPack_32f,
                                                                   orbsDFTFwd_RToPerm_32f};
    static constexpr decltype(&orbsDFTFwd_RToCCS_32f) inverse[] = {orbsDFTInv_CCSToR_32f, orbsDFTInv_PackToR_32f,
                                                                   orbsDFTInv_PermToR_32f};
};
struct Double {
    using Real = Orb64f;
    using Interleaved = Orb64fc;
    using SpecC = OrbsDFTSpec_C_64fc;
    using SpecP = OrbsDFTSpec_C_64f;
    using SpecR = OrbsDFTSpec_R_64f;
    using SpecO = OrbsDFTOutOrdSpec_C_64fc;
    static constexpr std::size_t outOfOrderLimit = 5000;
    static constexpr Cycle<SpecC> interleaved{orbsDFTInitAlloc_C_64fc, orbsDFTGetBufSize_C_64fc, orbsDFTFree_C_64fc};
    static constexpr Cycle<SpecP> planes{orbsDFTInitAlloc_C_64f, orbsDFTGetBufSize_C_64f, orbsDFTFree_C_64f};
    static constexpr Cycle<SpecR> real{orbsDFTInitAlloc_R_64f, orbsDFTGetBufSize_R_64f, orbsDFTFree_R_64f};
    static constexpr Cycle<SpecO> outOfOrder{orbsDFTOutOrdInitAlloc_C_64fc, orbsDFTOutOrdGetBufSize_C_64fc,
                                             orbsDFTOutOrdFree_C_64fc};
    static constexpr decltype(&orbsDFTFwd_CToC_64fc) complex[] = {orbsDFTFwd_CToC_64fc, orbsDFTInv_CToC_64fc};
    static constexpr decltype(&orbsDFTFwd_CToC_64f) complexPlanes[] = {orbsDFTFwd_CToC_64f, orbsDFTInv_CToC_64f};
    static constexpr decltype(&orbsDFTOutOrdFwd_CToC_64fc) complexOutOfOrder[] = {orbsDFTOutOrdFwd_CToC_64fc,
                                                                                  orbsDFTOutOrdInv_CToC_64fc};
    static constexpr decltype(&orbsDFTFwd_RToCCS_64f) forward[] = {orbsDFTFwd_RToCCS_64f, orbsDFTFwd_RToPack_64f,
                                                                   orbsDFTFwd_RToPerm_64f};
    static constexpr decltype(&orbsDFTFwd_RToCCS_64f) inverse[] = {orbsDFTInv_CCSToR_64f, orbsDFTInv_PackToR_64f,
                                                                   orbsDFTInv_PermToR_64f};
};

enum Layout { ccs, pack, perm };

// ---- Plans, as they are defined ----

enum class Plan { small, powerOfTwo, mixedRadix, direct, chirp };

// The radices by which n is split, the final one last; none if it is not.
inline std::vector<std::size_t> radicesOf(std::size_t n) {
    std::vector<std::size_t> radices;
    for (; n % 4 == 0; n /= 4) radices.push_back(4);
    if (n % 2 == 0) {
        radices.insert(radices.begin(), 2);
        n /= 2;
    }
    for (std::size_t p = 3; n >= 9 && n >= p * p;) {
        if (n % p == 0) {
            radices.push_back(p);
            n /= p;
        } else if ((p += 2) > 150) {
            return {};
        }
    }
    if (radices.empty() || n >= 151) return {};
    radices.push_back(n);
    return radices;
}
inline Plan planOf(std::size_t n, bool real) {
    if (n <= 4) return Plan::small;
    if (std::has_single_bit(n)) return Plan::powerOfTwo;
    const std::size_t points = real && n % 2 == 0 ? n / 2 : n;
    if (!radicesOf(points).empty()) return Plan::mixedRadix;
    return points > (real && n % 2 == 1 ? 180 : 150) ? Plan::chirp : Plan::direct;
}

// Lengths of every plan: all short ones, those around each limit, and large composites and primes.
inline std::vector<std::size_t> lengths() {
    std::vector<std::size_t> all;
    for (std::size_t n = 1; n <= 162; ++n) all.push_back(n);
    for (std::size_t n : {169,  179,  180,  181,  225,  256,   289,   298,   300,   302,   303,   343,   360,   447,
                          499,  500,  501,  502,  512,  604,   720,   945,   1000,  1001,  1009,  1155,  1200,  1999,
                          2000, 2001, 2002, 2187, 2310, 2401,  2592,  3375,  4095,  4096,  4998,  4999,  5000,  5001,
                          5002, 5005, 6561, 7200, 2003, 10395, 22201, 22801, 30030, 44100, 45045, 59049, 100000})
        all.push_back(n);
    return all;
}

// ---- Bounds ----

// Half an epsilon for each rounding on the way of a value through a transform: a radix p has p / 2 products and sums,
// one sum of mirror elements and a twiddle's product (two more roundings); a power of two as in the tests of the room
// fft. A chirp has two transforms of convolution length, whose errors spread over twice as many bins as are taken, and
// three products. Real lengths, halved, pass once more, and a scale adds one.
template <class T>
double tolerance(std::size_t n, bool real) {
    const std::size_t points = real && n % 2 == 0 ? n / 2 : n;
    const auto radixTwo = [](std::size_t count) { return 1.5 * (std::bit_width(count) + 1.0); };
    double roundings = real ? 6 : 1;
    switch (planOf(n, real)) {
    case Plan::small:
        roundings += 4;
        break;
    case Plan::powerOfTwo:
        roundings += radixTwo(n);
        break;
    case Plan::mixedRadix:
        for (std::size_t p : radicesOf(points)) roundings += 4.0 + static_cast<double>(p / 2);
        break;
    case Plan::direct:
        roundings += 4.0 + static_cast<double>(points / 2);
        break;
    case Plan::chirp:
        roundings += 2 * (2 * radixTwo(std::bit_ceil(2 * points)) + 3 * 2);
        break;
    }
    return roundings * std::numeric_limits<T>::epsilon() / 2;
}

constexpr int allFlags[] = {ORB_FFT_SCALE_FWD, ORB_FFT_SCALE_INV, ORB_FFT_SCALE_SQRT, ORB_FFT_SCALE_NONE};
// All for short lengths, one of them in turn for others.
inline std::vector<int> flagsOf(std::size_t n) {
    if (n <= 20) return {std::begin(allFlags), std::end(allFlags)};
    return {allFlags[n % 4]};
}
inline long double scaleOf(int flag, bool inverse, std::size_t n) {
    if (flag == ORB_FFT_SCALE_SQRT) return 1 / std::sqrt(static_cast<long double>(n));
    return flag == (inverse ? ORB_FFT_SCALE_INV : ORB_FFT_SCALE_FWD) ? 1 / static_cast<long double>(n) : 1;
}

} // namespace dft_tests
