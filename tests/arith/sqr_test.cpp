// Sqr and Abs.
#include "support/member.h"
#include "support/unary_member.h"

namespace {

using namespace unary_member;
using support::isComplex;

struct Square {
    template <class T>
    T operator()(T x, int s) const {
        if constexpr (isComplex<T>) {
            using Part = decltype(x.re);
            const std::int64_t re = x.re, im = x.im;
            return {member::scaledTo<Part>(re * re - im * im, s), member::scaledTo<Part>(2 * re * im, s)};
        } else {
            return member::scaledTo<T>(std::int64_t{x} * x, s);
        }
    }
    template <class T>
    T operator()(T x) const {
        if constexpr (isComplex<T>) {
            return {x.re * x.re - x.im * x.im, x.re * x.im + x.im * x.re};
        } else {
            return x * x;
        }
    }
};

template <class T, class... Member>
void expectSquares(int lowest, int highest, Member... function) {
    std::vector<T> x;
    if constexpr (isComplex<T>) {
        x = support::randomVector<T>(20011); // with -32768 in either part or both among them
    } else {
        x = everyValue<T>();
    }
    for (const int s : support::scaleFactors(lowest - 1, highest + 1)) (expectRule(function, x, Square(), s), ...);
}

TEST(Sqr, FollowsTheScaleRuleForEveryValue) {
    expectSquares<Orb8u>(-8, 16, &orbsSqr_8u_Sfs, &orbsSqr_8u_ISfs);
    expectSquares<Orb16u>(-16, 32, &orbsSqr_16u_Sfs, &orbsSqr_16u_ISfs);
    expectSquares<Orb16s>(-15, 30, &orbsSqr_16s_Sfs, &orbsSqr_16s_ISfs);
    expectSquares<Orb16sc>(-15, 31, &orbsSqr_16sc_Sfs, &orbsSqr_16sc_ISfs);
}

template <class Real>
std::vector<Real> specialValues() {
    using Limits = std::numeric_limits<Real>;
    auto x = support::randomVector<Real>(100);
    for (const Real v : {Real{0}, Real{-0.0}, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                         Limits::denorm_min(), -Limits::max(), Limits::epsilon() / 3 + 1})
        x.push_back(v);
    return x;
}

TEST(Sqr, OfFloatsIsAProductAsTheProcessorRoundsIt) {
    const auto test = [](auto real, auto... function) {
        const auto x = specialValues<decltype(real)>();
        (expectRule(function, x, Square()), ...);
    };
    const auto testComplex = [](auto z, auto... function) {
        std::vector<decltype(z)> x;
        for (const auto re : specialValues<decltype(z.re)>())
            for (const auto im : {decltype(z.re){0}, decltype(z.re){-3}, re}) x.push_back({re, im});
        (expectRule(function, x, Square()), ...);
    };
    const int mode = std::fegetround();
    for (const int other : {FE_TONEAREST, FE_UPWARD}) {
        std::fesetround(other);
        test(Orb32f{}, &orbsSqr_32f, &orbsSqr_32f_I);
        test(Orb64f{}, &orbsSqr_64f, &orbsSqr_64f_I);
        testComplex(Orb32fc{}, &orbsSqr_32fc, &orbsSqr_32fc_I);
        testComplex(Orb64fc{}, &orbsSqr_64fc, &orbsSqr_64fc_I);
    }
    std::fesetround(mode);
}

// The smallest integer gives the largest; a NaN stays what it is but for its sign.
TEST(Abs, OfEveryValue) {
    const auto integer = [](auto x) {
        using T = decltype(x);
        const std::int64_t wide = x;
        return static_cast<T>(std::min<std::int64_t>(wide < 0 ? -wide : wide, std::numeric_limits<T>::max()));
    };
    expectRule(&orbsAbs_16s, everyValue<Orb16s>(), integer);
    expectRule(&orbsAbs_16s_I, everyValue<Orb16s>(), integer);
    expectRule(&orbsAbs_32s, support::randomVector<Orb32s>(1001), integer);
    expectRule(&orbsAbs_32s_I, support::randomVector<Orb32s>(1001), integer);
    const auto test = [](auto bits, auto... function) {
        using Bits = decltype(bits);
        using Real = std::conditional_t<sizeof bits == 4, Orb32f, Orb64f>;
        const auto withoutSign = [](Real x) { return fromBits<Real>(asBits<Bits>(x) & ~Bits{0} >> 1); };
        std::vector<Real> x{-0.0};
        for (const auto b : support::randomVector<Bits>(1001)) x.push_back(fromBits<Real>(b | 3)); // NaNs among them
        (expectRule(function, x, withoutSign), ...);
    };
    test(Orb32u{}, &orbsAbs_32f, &orbsAbs_32f_I);
    test(Orb64u{}, &orbsAbs_64f, &orbsAbs_64f_I);
}

} // namespace
