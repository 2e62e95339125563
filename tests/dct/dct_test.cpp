// Cosine transforms against sums in long double, and their objects: sizes, callers' memory, lengths that are refused.
#include "orbs.h"

#include "support/compare.h"
#include "support/guarded.h"

#include <bit>
#include <climits>
#include <cmath>
#include <memory>

namespace {

using support::nameOf;

template <class Element, class Object>
struct Family {
    using T = Element;
    using Spec = Object;
    bool inverse;
    OrbStatus (*getSize)(int, OrbHintAlgorithm, int*, int*, int*);
    OrbStatus (*init)(Spec**, int, OrbHintAlgorithm, Orb8u*, Orb8u*);
    OrbStatus (*initAlloc)(Spec**, int, OrbHintAlgorithm);
    OrbStatus (*release)(Spec*);
    OrbStatus (*getBufSize)(const Spec*, int*);
    OrbStatus (*run)(const T*, T*, const Spec*, Orb8u*);
};
constexpr Family<Orb32f, OrbsDCTFwdSpec_32f> forward32{false,
                                                       orbsDCTFwdGetSize_32f,
                                                       orbsDCTFwdInit_32f,
                                                       orbsDCTFwdInitAlloc_32f,
                                                       orbsDCTFwdFree_32f,
                                                       orbsDCTFwdGetBufSize_32f,
                                                       orbsDCTFwd_32f};
constexpr Family<Orb32f, OrbsDCTInvSpec_32f> inverse32{true,
                                                       orbsDCTInvGetSize_32f,
                                                       orbsDCTInvInit_32f,
                                                       orbsDCTInvInitAlloc_32f,
                                                       orbsDCTInvFree_32f,
                                                       orbsDCTInvGetBufSize_32f,
                                                       orbsDCTInv_32f};
constexpr Family<Orb64f, OrbsDCTFwdSpec_64f> forward64{false,
                                                       orbsDCTFwdGetSize_64f,
                                                       orbsDCTFwdInit_64f,
                                                       orbsDCTFwdInitAlloc_64f,
                                                       orbsDCTFwdFree_64f,
                                                       orbsDCTFwdGetBufSize_64f,
                                                       orbsDCTFwd_64f};
constexpr Family<Orb64f, OrbsDCTInvSpec_64f> inverse64{true,
                                                       orbsDCTInvGetSize_64f,
                                                       orbsDCTInvInit_64f,
                                                       orbsDCTInvInitAlloc_64f,
                                                       orbsDCTInvFree_64f,
                                                       orbsDCTInvGetBufSize_64f,
                                                       orbsDCTInv_64f};
OrbStatus forwardUnscaled(const Orb16s* x, Orb16s* y, const OrbsDCTFwdSpec_16s* s, Orb8u* b) {
    return orbsDCTFwd_16s_Sfs(x, y, s, 0, b);
}
OrbStatus inverseUnscaled(const Orb16s* x, Orb16s* y, const OrbsDCTInvSpec_16s* s, Orb8u* b) {
    return orbsDCTInv_16s_Sfs(x, y, s, 0, b);
}
constexpr Family<Orb16s, OrbsDCTFwdSpec_16s> forward16{false,
                                                       orbsDCTFwdGetSize_16s,
                                                       orbsDCTFwdInit_16s,
                                                       orbsDCTFwdInitAlloc_16s,
                                                       orbsDCTFwdFree_16s,
                                                       orbsDCTFwdGetBufSize_16s,
                                                       forwardUnscaled};
constexpr Family<Orb16s, OrbsDCTInvSpec_16s> inverse16{true,
                                                       orbsDCTInvGetSize_16s,
                                                       orbsDCTInvInit_16s,
                                                       orbsDCTInvInitAlloc_16s,
                                                       orbsDCTInvFree_16s,
                                                       orbsDCTInvGetBufSize_16s,
                                                       inverseUnscaled};

void forEachFamily(auto body) {
    body(forward32), body(inverse32), body(forward64), body(inverse64), body(forward16), body(inverse16);
}

template <class F>
auto make(const F& f, int n) {
    typename F::Spec* spec = nullptr;
    EXPECT_EQ(f.initAlloc(&spec, n, orbAlgHintNone), orbStsNoErr) << n;
    return std::unique_ptr<typename F::Spec, decltype(f.release)>(spec, f.release);
}

// ---- Values ----

// cos(2 pi j / (4 n)), from the first eighth of the circle.
std::vector<long double> cosines(std::size_t n) {
    std::vector<long double> table(4 * n);
    for (std::size_t j = 0; j < 4 * n; ++j)
        table[j] = std::cos(1.57079632679489661923132169163975144L * static_cast<long double>(j) /
                            static_cast<long double>(n));
    return table;
}
template <class T>
long double exactElement(const std::vector<T>& x, const std::vector<long double>& table, std::size_t at, bool inverse) {
    const std::size_t n = x.size();
    const auto c = [=](std::size_t k) { return std::sqrt((k == 0 ? 1.0L : 2.0L) / static_cast<long double>(n)); };
    long double sum = 0;
    for (std::size_t j = 0; j < n; ++j)
        sum += inverse ? c(j) * x[j] * table[(2 * at + 1) * j % (4 * n)] : x[j] * table[(2 * j + 1) * at % (4 * n)];
    return inverse ? sum : c(at) * sum;
}

// In epsilons, of the root mean square error over that of the values, which the transform keeps. A sum of m terms one
// after the other rounds partial sums that grow as their root: at most half an epsilon of each, its mean over them. A
// fast transform rounds two or three times a level; a chirp has two of twice the length or more. Halving divides
// differences by cosines, which makes their errors larger by the root of n over 2 in the mean.
double tolerance(std::size_t n) {
    const double length = static_cast<double>(n), levels = std::bit_width(n - 1) + 1.0;
    if (n == 16 || n == 32) return 1 + std::sqrt(length) / 2;
    if (std::has_single_bit(n)) return 0.5 + 0.5 * levels;
    return n <= 100 ? 1 + 0.5 * std::sqrt((length + 1) / 2) : 2 + levels;
}

// The root mean square over every `stride`-th element.
template <class F>
void expectAccurate(const F& f, int len, std::size_t stride = 1) {
    using T = typename F::T;
    const auto n = static_cast<std::size_t>(len);
    const auto spec = make(f, len);
    const auto x = support::randomVector<T>(n);
    std::vector<T> y(n);
    ASSERT_EQ(f.run(x.data(), y.data(), spec.get(), nullptr), orbStsNoErr);
    const auto table = cosines(n);
    long double magnitude = 0, distance = 0;
    for (T v : x) magnitude += static_cast<long double>(v) * v / static_cast<long double>(n);
    std::size_t count = 0;
    for (std::size_t k = 0; k < n; k += stride, ++count) {
        const long double off = y[k] - exactElement(x, table, k, f.inverse);
        distance += off * off;
    }
    const auto error = static_cast<double>(std::sqrt(distance / static_cast<long double>(count) / magnitude));
    EXPECT_LE(error / std::numeric_limits<T>::epsilon(), tolerance(n)) << nameOf(f.run) << " of " << n;
}

TEST(Dct, AgreesWithSumsInLongDouble) {
    const auto agree = [](int n, std::size_t stride) {
        expectAccurate(forward32, n, stride);
        expectAccurate(inverse32, n, stride);
        expectAccurate(forward64, n, stride);
        expectAccurate(inverse64, n, stride);
    };
    for (int n = 1; n <= 160; ++n) agree(n, 1);
    for (int n : {255, 256, 257, 500, 512, 1000, 1009, 1023, 1024, 1025}) agree(n, 1);
    for (int n : {2048, 4096, 5001, 8192, 10007, 16384}) agree(n, 61); // bins of every residue
}

// An error of one element must not hide behind the mean: impulses make rows and columns of the matrix.
TEST(Dct, ImpulsesGiveCosines) {
    for (int n : {2, 4, 8, 16, 32, 7, 15, 30, 99, 64, 256, 101, 150}) {
        const auto spec = make(forward64, n);
        const auto back = make(inverse64, n);
        const auto table = cosines(static_cast<std::size_t>(n));
        for (int at = 0; at < n; ++at) {
            std::vector<Orb64f> x(static_cast<std::size_t>(n)), y(x.size()), z(x.size());
            x[static_cast<std::size_t>(at)] = 1;
            orbsDCTFwd_64f(x.data(), y.data(), spec.get(), nullptr);
            orbsDCTInv_64f(x.data(), z.data(), back.get(), nullptr);
            for (std::size_t k = 0; k < x.size(); ++k) {
                EXPECT_NEAR(y[k], static_cast<double>(exactElement(x, table, k, false)), 3e-15) << n << " " << at;
                EXPECT_NEAR(z[k], static_cast<double>(exactElement(x, table, k, true)), 3e-15) << n << " " << at;
            }
        }
    }
}

TEST(Dct, IntegersAreRoundedOnceAndSaturated) {
    using Orb16sVector = std::vector<Orb16s>;
    const auto four = make(forward16, 4), one = make(forward16, 1);
    const auto mean = [&](Orb16s a, int scaleFactor) { // of four equal elements: exactly 2 a
        Orb16sVector x(4, a);
        EXPECT_EQ(orbsDCTFwd_16s_ISfs(x.data(), four.get(), scaleFactor, nullptr), orbStsNoErr);
        EXPECT_TRUE(x[1] == 0 && x[2] == 0 && x[3] == 0);
        return x[0];
    };
    EXPECT_EQ(mean(1, 2), 0); // 0.5
    EXPECT_EQ(mean(3, 2), 2); // 1.5
    EXPECT_EQ(mean(5, 2), 2); // 2.5
    EXPECT_EQ(mean(-5, 2), -2);
    EXPECT_EQ(mean(20000, 0), 32767);
    EXPECT_EQ(mean(-20000, 0), -32768);
    EXPECT_EQ(mean(-1, -14), -32768);
    EXPECT_EQ(mean(32767, INT_MAX), 0);
    const auto alone = [&](Orb16s a, int scaleFactor) {
        Orb16s y = 77;
        EXPECT_EQ(orbsDCTFwd_16s_Sfs(&a, &y, one.get(), scaleFactor, nullptr), orbStsNoErr);
        return y;
    };
    EXPECT_EQ(alone(-3, 1), -2);
    EXPECT_EQ(alone(5, 1), 2);
    EXPECT_EQ(alone(-1, INT_MIN), -32768);
    EXPECT_EQ(alone(-32768, 16), 0);
    EXPECT_EQ(alone(32767, INT_MAX), 0);

    // Half a unit, and what single precision errs by.
    for (int n : {2, 5, 8, 16, 32, 64, 100, 101, 1024, 1000}) {
        const auto x = support::randomVector<Orb16s>(static_cast<std::size_t>(n));
        const auto table = cosines(x.size());
        for (int scaleFactor : {0, 3, 7}) {
            Orb16sVector y(x.size()), z(x.size());
            orbsDCTFwd_16s_Sfs(x.data(), y.data(), make(forward16, n).get(), scaleFactor, nullptr);
            orbsDCTInv_16s_Sfs(x.data(), z.data(), make(inverse16, n).get(), scaleFactor, nullptr);
            const long double unit = std::ldexp(1.0L, scaleFactor);
            const double slack = 0.5 + 5 * tolerance(x.size()) * 0x1p-23 * 32768 / static_cast<double>(unit);
            for (std::size_t k = 0; k < x.size(); ++k) {
                const auto wanted = [&](bool inverse) {
                    return static_cast<double>(
                        std::clamp(exactElement(x, table, k, inverse) / unit, -32768.0L, 32767.0L));
                };
                EXPECT_NEAR(y[k], wanted(false), slack) << n << " " << k;
                EXPECT_NEAR(z[k], wanted(true), slack) << n << " " << k;
            }
        }
    }
}

// ---- Objects ----

struct Sizes {
    std::int64_t spec, init, work; // spec is negative where an inner object cannot be told
};
template <class T>
Sizes definedSizes(std::int64_t n) {
    if constexpr (std::is_same_v<T, Orb16s>) {
        if (n == 1) return {56, 0, 0};
        const Sizes inner = definedSizes<Orb32f>(n);
        return {inner.spec < 0 ? -1 : inner.spec + 56, inner.init, inner.work + 4 * n + 32};
    }
    constexpr bool twice = std::is_same_v<T, Orb64f>;
    constexpr std::int64_t e = sizeof(T);
    const auto a = [](std::int64_t x) { return (x + 31) / 32 * 32; };
    const bool power = (n & (n - 1)) == 0;
    if (power && n <= 8) return {twice ? 124 : 116, 0, 0};
    if (power && n <= 32) return {a(e * n) + 128, 0, e * n + 32};
    if (!power && n <= 100) return {a(4 * e * n) + 128, 0, e * n + 32};
    const int order = std::bit_width(static_cast<std::uint64_t>(power ? n : 2 * n - 2));
    if (order > (twice ? 26 : 27)) return {-1, 0, 0};
    int spec = 0, init = 0, work = 0;
    const auto query = power ? (twice ? orbsFFTGetSize_R_64f : orbsFFTGetSize_R_32f)
                             : (twice ? orbsFFTGetSize_C_64fc : orbsFFTGetSize_C_32fc);
    EXPECT_EQ(query(order, ORB_FFT_SCALE_NONE, 0, &spec, &init, &work), orbStsNoErr);
    if (power) return {spec + 2 * e * n + 128, init ? init + 32 : 0, work + 2 * e * n + 32};
    const std::int64_t points = std::int64_t{1} << order;
    return {spec + 2 * e * (3 * n + points) + 128, std::max(init, work) + 32, work + 2 * e * points + 32};
}

TEST(DctObjects, SizesAreThoseDefinedOrRefused) {
    std::vector<int> lengths;
    for (int n = 1; n <= 1100; ++n) lengths.push_back(n);
    for (int bit = 11; bit < 31; ++bit)
        for (int off : {-1, 0, 1, 1 << (bit - 2)}) lengths.push_back((1 << bit) + off);
    lengths.push_back(INT_MAX);
    forEachFamily([&](const auto& f) {
        int refused = 0;
        for (int n : lengths) {
            int spec = -7, init = -7, work = -7;
            const Sizes defined = definedSizes<typename std::decay_t<decltype(f)>::T>(n);
            const bool told = defined.spec >= 0 && std::max({defined.spec, defined.init, defined.work}) <= INT_MAX;
            ASSERT_EQ(f.getSize(n, 7, &spec, &init, &work), told ? orbStsNoErr : orbStsMemAllocErr)
                << nameOf(f.getSize) << " " << n;
            if (told) {
                EXPECT_TRUE(spec == defined.spec && init == defined.init && work == defined.work)
                    << nameOf(f.getSize) << " " << n << ": " << spec << " " << init << " " << work;
            } else {
                ++refused;
                EXPECT_EQ(spec, -7);
                auto* const nowhere = reinterpret_cast<Orb8u*>(std::uintptr_t{64}); // nothing may be touched
                typename std::decay_t<decltype(f)>::Spec* made = nullptr;
                EXPECT_EQ(f.init(&made, n, 0, nowhere, nowhere), orbStsMemAllocErr);
                EXPECT_EQ(f.initAlloc(&made, n, 0), orbStsMemAllocErr);
                EXPECT_EQ(made, nullptr);
            }
        }
        EXPECT_GT(refused, 20);
    });
}

// Blocks of exactly the sizes told between pages that nobody may touch; the object moved elsewhere by its bytes alone;
// the same bits as with an object that has more room, and in place.
TEST(DctObjects, BuildInCallersMemoryOfTheSizeTold) {
    std::vector<int> lengths;
    for (int n = 1; n <= 130; ++n) lengths.push_back(n);
    for (int n : {150, 255, 256, 512, 1000, 1024, 1025, 1500, 4096}) lengths.push_back(n);
    forEachFamily([&](const auto& f) {
        using F = std::decay_t<decltype(f)>;
        using Spec = typename F::Spec;
        for (int n : lengths) {
            const auto x = support::randomVector<typename F::T>(static_cast<std::size_t>(n));
            auto expected = x;
            ASSERT_EQ(f.run(x.data(), expected.data(), make(f, n).get(), nullptr), orbStsNoErr);
            int specSize = 0, initSize = 0, workSize = 0, bufferSize = -1;
            ASSERT_EQ(f.getSize(n, 0, &specSize, &initSize, &workSize), orbStsNoErr);
            for (std::size_t shift : {0u, 1u, 31u}) {
                SCOPED_TRACE(testing::Message() << nameOf(f.init) << " " << n << " at " << shift);
                support::Guarded<Orb8u> block(static_cast<std::size_t>(specSize), support::Edge::end, shift);
                support::Guarded<Orb8u> memory(static_cast<std::size_t>(initSize), support::Edge::end, shift);
                Spec* spec = nullptr;
                ASSERT_EQ(f.init(&spec, n, 7, block.data(), initSize ? memory.data() : nullptr), orbStsNoErr);
                EXPECT_TRUE(block.intact() && memory.intact());
                EXPECT_EQ(reinterpret_cast<std::uintptr_t>(spec) % 32, 0u);
                ASSERT_EQ(f.getBufSize(spec, &bufferSize), orbStsNoErr);
                EXPECT_EQ(bufferSize, workSize);
                const auto bytes = static_cast<std::size_t>(block.data() + specSize - reinterpret_cast<Orb8u*>(spec));
                std::vector<Orb8u> elsewhere(bytes + 32);
                Orb8u* moved = elsewhere.data() + (-reinterpret_cast<std::uintptr_t>(elsewhere.data()) & 31);
                std::memcpy(moved, spec, bytes);
                std::memset(block.data(), 0xee, block.size());
                support::Guarded<Orb8u> buffer(static_cast<std::size_t>(workSize), support::Edge::end, shift);
                auto y = x;
                ASSERT_EQ(f.run(y.data(), y.data(), reinterpret_cast<Spec*>(moved), buffer.data()), orbStsNoErr);
                EXPECT_TRUE(buffer.intact());
                ASSERT_TRUE(support::sameBits(y, expected));
            }
        }
    });
}

TEST(DctObjects, ServeTheirDirectionOnly) {
    const auto back = make(inverse32, 8);
    Orb32f x[8] = {};
    EXPECT_EQ(orbsDCTFwd_32f_I(x, reinterpret_cast<OrbsDCTFwdSpec_32f*>(back.get()), nullptr), orbStsContextMatchErr);
    EXPECT_EQ(orbsDCTFwdFree_32f(reinterpret_cast<OrbsDCTFwdSpec_32f*>(back.get())), orbStsContextMatchErr);
}

} // namespace
