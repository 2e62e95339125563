// Members over two operands, driven by what their own type tells: element types, two arrays or an array and a constant,
// in place or not, scaled or not.
#pragma once

#include "orbs.h"
#include "support/compare.h"
#include "support/guarded.h"
#include "support/stride.h"
#include "support/threads.h"

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <span>
#include <vector>

namespace member {

using support::callOf;
using support::Guarded;
using support::Part;
using support::sameValues;

// ---- Shapes ----

template <class F, class S, class R, bool hasConstant, bool isInPlace, bool isScaled>
struct Traits {
    using First = F;
    using Second = S;
    using Result = R;
    static constexpr bool constant = hasConstant, inPlace = isInPlace, scaled = isScaled;
};

template <class Member>
struct Shape;

template <class A, class B, class R>
struct Shape<OrbStatus (*)(const A*, const B*, R*, int)> : Traits<A, B, R, false, false, false> {
    static OrbStatus call(auto member, const A* a, const B* b, R* dst, int len, int) { return member(a, b, dst, len); }
};
template <class A, class B, class R>
struct Shape<OrbStatus (*)(const A*, const B*, R*, int, int)> : Traits<A, B, R, false, false, true> {
    static OrbStatus call(auto member, const A* a, const B* b, R* dst, int len, int s) {
        return member(a, b, dst, len, s);
    }
};
template <class A, class R>
struct Shape<OrbStatus (*)(const A*, R*, int)> : Traits<A, R, R, false, true, false> {
    static OrbStatus call(auto member, const A* a, const R*, R* srcDst, int len, int) { return member(a, srcDst, len); }
};
template <class A, class R>
struct Shape<OrbStatus (*)(const A*, R*, int, int)> : Traits<A, R, R, false, true, true> {
    static OrbStatus call(auto member, const A* a, const R*, R* srcDst, int len, int s) {
        return member(a, srcDst, len, s);
    }
};
template <class A, class B, class R>
struct Shape<OrbStatus (*)(const A*, B, R*, int)> : Traits<A, B, R, true, false, false> {
    static OrbStatus call(auto member, const A* a, const B* b, R* dst, int len, int) { return member(a, *b, dst, len); }
};
template <class A, class B, class R>
struct Shape<OrbStatus (*)(const A*, B, R*, int, int)> : Traits<A, B, R, true, false, true> {
    static OrbStatus call(auto member, const A* a, const B* b, R* dst, int len, int s) {
        return member(a, *b, dst, len, s);
    }
};
template <class B, class R>
struct Shape<OrbStatus (*)(B, R*, int)> : Traits<R, B, R, true, true, false> {
    static OrbStatus call(auto member, const R*, const B* b, R* srcDst, int len, int) {
        return member(*b, srcDst, len);
    }
};
template <class B, class R>
struct Shape<OrbStatus (*)(B, R*, int, int)> : Traits<R, B, R, true, true, true> {
    static OrbStatus call(auto member, const R*, const B* b, R* srcDst, int len, int s) {
        return member(*b, srcDst, len, s);
    }
};

template <class Member>
using FirstOf = typename Shape<Member>::First;
template <class Member>
using SecondOf = typename Shape<Member>::Second;
template <class Member>
using ResultOf = typename Shape<Member>::Result;

// An element of T with the parts x and y, or x alone.
template <class T, class Real>
T element(Real x, Real y) {
    if constexpr (support::isComplex<T>) {
        return {x, y};
    } else {
        return x;
    }
}

// ---- The scale rule ----

// r * 2^-s to the nearest integer, ties to even, limited to T.
template <class T>
T scaledTo(std::int64_t r, int s) {
    if (s > 63) return 0;
    const std::int64_t least = std::numeric_limits<T>::min(), most = std::numeric_limits<T>::max();
    if (s <= 0)
        return static_cast<T>(
            std::clamp(std::clamp(r, least, most) *
                           (std::int64_t{1} << std::min(-(s + (s == std::numeric_limits<int>::min())), 31)),
                       least, most));
    const std::int64_t floor = r >> s;
    const std::uint64_t rest = static_cast<std::uint64_t>(r) - (static_cast<std::uint64_t>(floor) << s),
                        half = std::uint64_t{1} << (s - 1);
    const bool up = rest > half || (rest == half && floor % 2 != 0);
    return static_cast<T>(std::clamp(floor + up, least, most));
}

// v to the nearest integer in the mode of the moment, limited to R.
template <class R, class Real>
R nearest(Real v) {
    return static_cast<R>(
        std::clamp<Real>(std::nearbyint(v), std::numeric_limits<R>::min(), std::numeric_limits<R>::max()));
}

// ---- Comparison ----

// The member gives `want`, with that status; of a refusal only the status counts. Out of place the destination is also
// each of the sources.
template <class Member>
void expectResults(Member function, const std::vector<ResultOf<Member>>& want, const std::vector<FirstOf<Member>>& a,
                   const std::vector<SecondOf<Member>>& b, int s = 0, OrbStatus status = orbStsNoErr) {
    using S = Shape<Member>;
    using R = ResultOf<Member>;
    const std::size_t len = want.size();
    const std::span second = std::span(b).first(S::constant ? 1 : len);
    const auto called = [=] { return S::scaled ? callOf(function, s) : callOf(function); };
    const auto run = [&](const FirstOf<Member>* pSrc1, const SecondOf<Member>* pSrc2, R* dst, const char* where = "") {
        ASSERT_EQ(S::call(function, pSrc1, pSrc2, dst, static_cast<int>(len), s), status)
            << called() << where << ", len " << len;
        if (status < 0) return;
        ASSERT_TRUE(sameValues(dst, want.data(), len, a, second)) << called() << where;
    };
    const auto copy = [](const auto& from, auto& to) { std::copy(from.begin(), from.end(), to.begin()); };
    Guarded<R> dst(len);
    if constexpr (S::inPlace && !S::constant) copy(b, dst);
    if constexpr (S::inPlace && S::constant) copy(a, dst);
    run(a.data(), b.data(), dst.data());
    EXPECT_TRUE(dst.intact()) << called();
    if constexpr (!S::inPlace && std::is_same_v<FirstOf<Member>, R>) {
        copy(a, dst);
        run(dst.data(), b.data(), dst.data(), " over its first source");
    }
    if constexpr (!S::inPlace && !S::constant && std::is_same_v<SecondOf<Member>, R>) {
        copy(b, dst);
        run(a.data(), dst.data(), dst.data(), " over its second source");
    }
}

// rule(a[n], b[n], s) is what the member must give; of a constant's vector only b[0] counts. A rule may have a function
// `status` of the same arguments: one element with a status other than 0 makes it that of the call.
template <class Member, class Rule>
void expect(Member function, Rule rule, const std::vector<FirstOf<Member>>& a, const std::vector<SecondOf<Member>>& b,
            int s = 0) {
    using S = Shape<Member>;
    std::vector<ResultOf<Member>> want(a.size());
    OrbStatus status = orbStsNoErr;
    for (std::size_t n = 0; n < a.size(); ++n) {
        const auto& second = b[S::constant ? 0 : n];
        want[n] = rule(a[n], second, S::scaled ? s : 0);
        if constexpr (requires { rule.status(a[n], second, s); }) {
            if (status == orbStsNoErr) status = rule.status(a[n], second, s);
        }
    }
    expectResults(function, want, a, b, s, status);
}

// ---- Batteries ----

template <class Member>
void random(std::vector<FirstOf<Member>>& a, std::vector<SecondOf<Member>>& b, std::size_t len, unsigned seed = 1) {
    a = support::randomVector<FirstOf<Member>>(len, 2 * seed);
    b = support::randomVector<SecondOf<Member>>(len, 2 * seed + 1);
}

// Constants worth a call each: extremes, small and random ones.
template <class T>
std::vector<T> constants() {
    using Part = support::Part<T>;
    std::vector<T> all = support::randomVector<T>(4);
    const Part special[] = {
        0, 1, 2, std::numeric_limits<Part>::lowest(), std::numeric_limits<Part>::max(), static_cast<Part>(-1)};
    for (std::size_t k = 0; k < std::size(special); ++k)
        all.push_back(element<T>(special[k], special[(k + 2) % std::size(special)]));
    return all;
}

// Every pair of values for elements of 8 bits, every value of the array beside a few constants for 16 bits.
template <class Member, class Rule>
void expectForEveryValue(Member function, Rule rule, int s) {
    using A = FirstOf<Member>;
    using B = SecondOf<Member>;
    std::vector<A> a;
    std::vector<B> b;
    if constexpr (sizeof(A) == 1 && sizeof(B) == 1) {
        for (int y = 0; y < 256; y += support::stride) {
            if (Shape<Member>::constant) a.clear(), b.clear();
            for (int x = 0; x < 256; x += support::stride) {
                a.push_back(static_cast<A>(x));
                b.push_back(static_cast<B>(y));
            }
            if (Shape<Member>::constant) expect(function, rule, a, b, s);
        }
        if (!Shape<Member>::constant) expect(function, rule, a, b, s);
    } else if constexpr (sizeof(A) == 2 && Shape<Member>::constant) {
        for (int x = 0; x < 65536; x += support::stride) a.push_back(static_cast<A>(x));
        for (const B val : constants<B>()) expect(function, rule, a, {val}, s);
    }
}

// Integer members, scaled or not: from the lowest scale factor to the highest one with results of its own, one more at
// each side, and far beyond. Each 8-bit pair, each 16-bit element beside constants; else random and extreme elements.
template <class Member, class Rule>
void expectScaled(Member function, Rule rule, int lowest, int highest) {
    using S = Shape<Member>;
    for (const int s : S::scaled ? support::scaleFactors(lowest - 1, highest + 1) : std::vector{0}) {
        std::vector<FirstOf<Member>> a;
        std::vector<SecondOf<Member>> b;
        for (const std::size_t len : {1, 5, 63, 400}) {
            random<Member>(a, b, len, static_cast<unsigned>(s) + static_cast<unsigned>(len));
            expect(function, rule, a, b, s);
        }
        if (S::constant)
            for (const SecondOf<Member> val : constants<SecondOf<Member>>()) expect(function, rule, a, {val}, s);
        expectForEveryValue(function, rule, s);
        if (::testing::Test::HasFatalFailure()) return;
    }
}

// Float members: zeros of both signs, the smallest, the largest, infinities and NaN against each other, in each
// rounding mode that a caller may have set.
template <class Member, class Rule>
void expectAsTheProcessor(Member function, Rule rule) {
    using A = FirstOf<Member>;
    using B = SecondOf<Member>;
    using Part = support::Part<B>;
    using Limits = std::numeric_limits<Part>;
    const Part special[] = {0,
                            Part{-0.0},
                            1,
                            -1,
                            Part{1} + Limits::epsilon(),
                            Limits::epsilon() / 3,
                            Limits::denorm_min(),
                            -Limits::min(),
                            Limits::max(),
                            Limits::lowest(),
                            Limits::infinity(),
                            -Limits::infinity(),
                            Limits::quiet_NaN()};
    const int mode = std::fegetround();
    for (const int other : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        std::fesetround(other);
        std::vector<A> a;
        std::vector<B> b;
        for (const Part y : special) {
            if (Shape<Member>::constant) a.clear(), b.clear();
            for (const Part x : special) {
                a.push_back(element<A>(x, y));
                b.push_back(element<B>(y, Shape<Member>::constant ? y : x));
            }
            if (Shape<Member>::constant) expect(function, rule, a, b);
        }
        if (!Shape<Member>::constant) expect(function, rule, a, b);
        random<Member>(a, b, 301);
        expect(function, rule, a, b);
    }
    std::fesetround(mode);
}

// The same results at every thread count, around the length from which threads are used.
template <class Member, class Rule>
void expectThreaded(Member function, Rule rule, int from, int s) {
    for (const int threads : {1, 2, 5}) {
        const support::ThreadCount count(threads);
        for (const int len : {from - 1, from + 7}) {
            std::vector<FirstOf<Member>> a;
            std::vector<SecondOf<Member>> b;
            random<Member>(a, b, static_cast<std::size_t>(len));
            expect(function, rule, a, b, s);
        }
    }
}

} // namespace member
