#include "arith/binary_member.h"

#include "orbcore.h"

#include <cfenv>
#include <cmath>

namespace {

using namespace binary;

// ---- The formula ----

// r * 2^-scaleFactor, to nearest with ties to even, saturated. A sum has at most 33 bits, so ldexp is exact.
template <class T>
T scaledTo(std::int64_t r, int scaleFactor) {
    const double rounded = std::nearbyint(std::ldexp(static_cast<double>(r), -std::clamp(scaleFactor, -900, 900)));
    return static_cast<T>(std::clamp<double>(rounded, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

template <class R, class A, class B>
R sum(A a, B b, int scaleFactor) {
    if constexpr (support::isComplex<R>) {
        using Real = decltype(R::re);
        return {sum<Real>(a.re, b.re, scaleFactor), sum<Real>(a.im, b.im, scaleFactor)};
    } else if constexpr (std::is_floating_point_v<A>) {
        return a + b;
    } else if constexpr (std::is_floating_point_v<R>) {
        return static_cast<R>(a + b);
    } else {
        return scaledTo<R>(std::int64_t{a} + std::int64_t{b}, scaleFactor);
    }
}

template <class Member>
Result<Member> sums(const First<Member>& a, const Second<Member>& b, int scaleFactor = 0) {
    if (!Shape<Member>::scaled) scaleFactor = 0;
    Result<Member> r(a.size());
    for (std::size_t n = 0; n < r.size(); ++n) r[n] = sum<typename Shape<Member>::Result>(a[n], b[n], scaleFactor);
    return r;
}

// Calls test(member) for those with a scale factor, for those on floats, for all.
template <class Test>
void forEachScaled(Test test) {
    test(&orbsAdd_8u_Sfs);
    test(&orbsAdd_8u_ISfs);
    test(&orbsAdd_16u_Sfs);
    test(&orbsAdd_16u_ISfs);
    test(&orbsAdd_16s_Sfs);
    test(&orbsAdd_16s_ISfs);
    test(&orbsAdd_16sc_Sfs);
    test(&orbsAdd_16sc_ISfs);
    test(&orbsAdd_32s_Sfs);
    test(&orbsAdd_32s_ISfs);
    test(&orbsAdd_32sc_Sfs);
    test(&orbsAdd_32sc_ISfs);
}
template <class Test>
void forEachFloat(Test test) {
    test(&orbsAdd_32f);
    test(&orbsAdd_32f_I);
    test(&orbsAdd_32fc);
    test(&orbsAdd_32fc_I);
    test(&orbsAdd_64f);
    test(&orbsAdd_64f_I);
    test(&orbsAdd_64fc);
    test(&orbsAdd_64fc_I);
}
template <class Test>
void forEachMember(Test test) {
    forEachScaled(test);
    forEachFloat(test);
    test(&orbsAdd_8u16u);
    test(&orbsAdd_16u);
    test(&orbsAdd_16s);
    test(&orbsAdd_16s_I);
    test(&orbsAdd_16s32s_I);
    test(&orbsAdd_16s32f);
    test(&orbsAdd_32u);
}

template <class T>
auto realPart(T t) {
    if constexpr (support::isComplex<T>) {
        return t.re;
    } else {
        return t;
    }
}

// An element of T with the parts x and y, or x alone.
template <class T, class Real>
T element(Real x, Real y) {
    if constexpr (support::isComplex<T>) {
        return {x, y};
    } else {
        return x;
    }
}

template <class Member>
void random(First<Member>& a, Second<Member>& b, std::size_t len) {
    a = support::randomVector<typename Shape<Member>::First>(len, 1);
    b = support::randomVector<typename Shape<Member>::Second>(len, 2);
}

// ---- Values ----

TEST(Add, EveryLengthAndAlignment) {
    forEachMember([](auto member) {
        using Member = decltype(member);
        for (std::size_t len = 1; len <= 70; ++len) {
            First<Member> a;
            Second<Member> b;
            random<Member>(a, b, len);
            const auto want = sums<Member>(a, b, 1);
            for (std::size_t shift = 0; shift < 32 / sizeof want[0]; ++shift) {
                expectResult(member, a, b, want, 1, Edge::begin, shift);
                expectResult(member, a, b, want, 1, Edge::end, shift);
            }
            expectResultOverSources(member, a, b, want, 1);
        }
    });
}

TEST(Add, EveryScaleFactor) {
    forEachScaled([](auto member) {
        using Member = decltype(member);
        First<Member> a;
        Second<Member> b;
        random<Member>(a, b, 500);
        std::vector<int> scaleFactors{1000, -1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
        for (int s = -40; s <= 40; ++s) scaleFactors.push_back(s);
        for (const int s : scaleFactors) {
            const auto want = sums<Member>(a, b, s);
            expectResult(member, a, b, want, s);
            expectResultOverSources(member, a, b, want, s);
        }
    });
}

// Whatever a sum of two bytes can be, at every scale factor that its result depends on and one beyond at each side.
TEST(Add, EveryPairOfBytes) {
    First<decltype(&orbsAdd_8u_Sfs)> a, b;
    for (int x = 0; x < 256; ++x) {
        for (int y = 0; y < 256; ++y) {
            a.push_back(static_cast<Orb8u>(x));
            b.push_back(static_cast<Orb8u>(y));
        }
    }
    for (int s = -9; s <= 11; ++s) {
        const auto want = sums<decltype(&orbsAdd_8u_Sfs)>(a, b, s);
        expectResult(&orbsAdd_8u_Sfs, a, b, want, s);
        expectResult(&orbsAdd_8u_ISfs, a, b, want, s);
    }
}

// Sums at and around every tie: all sums whose bits below the shift are near one half, at both ends of the range.
TEST(Add, TiesGoToEven) {
    forEachScaled([](auto member) {
        using Member = decltype(member);
        using Element = typename Shape<Member>::First;
        if constexpr (!support::isComplex<Element>) {
            using Wide = std::int64_t;
            constexpr Wide low = std::numeric_limits<Element>::min(), high = std::numeric_limits<Element>::max();
            for (int s = 1; s <= 8 * static_cast<int>(sizeof(Element)) + 1; ++s) {
                First<Member> a, b;
                const Wide step = Wide{1} << s;
                for (Wide quotient = -3; quotient <= 3; ++quotient) {
                    for (const Wide around : {Wide{0}, 2 * low, 2 * high}) {
                        for (Wide near = -1; near <= 1; ++near) {
                            const Wide r = (around >> s) * step + quotient * step + step / 2 + near;
                            if (r < 2 * low || r > 2 * high) continue;
                            const Wide half = r >> 1;
                            a.push_back(static_cast<Element>(half));
                            b.push_back(static_cast<Element>(r - half));
                        }
                    }
                }
                expectResult(member, a, b, sums<Member>(a, b, s), s);
            }
        }
    });
}

// An addition of floats is that of the processor, in the rounding mode that the caller has set.
TEST(Add, FloatsAddAsTheProcessorDoes) {
    forEachFloat([](auto member) {
        using Member = decltype(member);
        using Element = typename Shape<Member>::First;
        using Real = decltype(realPart(Element{}));
        using Limits = std::numeric_limits<Real>;
        const Real special[] = {0,
                                Real{-0.0},
                                1,
                                -1,
                                Limits::epsilon() / 3,
                                Limits::denorm_min(),
                                -Limits::min(),
                                Limits::max(),
                                Limits::lowest(),
                                Limits::infinity(),
                                -Limits::infinity(),
                                Limits::quiet_NaN()};
        First<Member> a;
        Second<Member> b;
        for (const Real x : special) {
            for (const Real y : special) {
                a.push_back(element<Element>(x, y));
                b.push_back(element<Element>(y, x));
            }
        }
        const int mode = std::fegetround();
        for (const int other : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
            std::fesetround(other);
            expectResult(member, a, b, sums<Member>(a, b));
        }
        std::fesetround(mode);
    });
}

// ---- Threads ----

TEST(Add, SixteenBitUnsignedIsTheSameForEveryThreadCount) {
    const auto check = [](auto member, int len, int scaleFactor) {
        using Member = decltype(member);
        First<Member> a;
        Second<Member> b;
        random<Member>(a, b, static_cast<std::size_t>(len));
        const auto want = sums<Member>(a, b, scaleFactor);
        for (const int threads : {1, 2, 3, 8}) {
            orbSetNumThreads(threads);
            expectResult(member, a, b, want, scaleFactor);
        }
    };
    const int before = orbGetNumThreads();
    for (const int from : {4096, 8192, 16384}) {
        for (const int len : {from - 1, from, from + 7}) {
            for (const int scaleFactor : {-16, -3, 0, 1, 17, 18}) {
                check(&orbsAdd_16u_Sfs, len, scaleFactor);
                check(&orbsAdd_16u_ISfs, len, scaleFactor);
            }
        }
    }
    orbSetNumThreads(before);
}

// ---- Order of the tests ----

TEST(Add, ComplexMembersTestTheLengthFirst) {
    forEachMember([](auto member) {
        using Member = decltype(member);
        using S = Shape<Member>;
        constexpr bool complex = support::isComplex<typename S::Result>;
        typename S::First a{};
        typename S::Second b{};
        typename S::Result dst{};
        for (const int len : {0, -1, std::numeric_limits<int>::min()}) {
            const OrbStatus first = complex ? orbStsSizeErr : orbStsNullPtrErr;
            EXPECT_EQ(S::call(member, static_cast<decltype(&a)>(nullptr), &b, &dst, len, 0), first);
            EXPECT_EQ(S::call(member, &a, &b, static_cast<decltype(&dst)>(nullptr), len, 0), first);
            if (!S::inPlace) {
                EXPECT_EQ(S::call(member, &a, static_cast<decltype(&b)>(nullptr), &dst, len, 0), first);
            }
            EXPECT_EQ(S::call(member, &a, &b, &dst, len, 0), orbStsSizeErr);
        }
        // The doubled length of a complex member wraps, to one that the real member refuses behind its null tests.
        if (complex) {
            for (const int len : {1 << 30, std::numeric_limits<int>::max()}) {
                EXPECT_EQ(S::call(member, &a, &b, &dst, len, 0), orbStsSizeErr);
                EXPECT_EQ(S::call(member, &a, &b, static_cast<decltype(&dst)>(nullptr), len, 0), orbStsNullPtrErr);
            }
        }
    });
}

} // namespace
