// MaxOrder, FindNearest, CountInRange.
#include "orbs.h"
#include "support/compare.h"
#include "support/control.h"

#include <climits>
#include <cmath>

namespace {

// ---- MaxOrder ----

template <class T>
int orderOf(const std::vector<T>& x, OrbStatus& status) {
    int order = INT_MIN;
    bool zero = true;
    status = orbStsNoErr;
    for (const T t : x) {
        if constexpr (std::is_floating_point_v<T>) {
            if (!std::isfinite(t)) status = orbStsNanArg;
            if (!std::isfinite(t) || t == 0) continue;
            order = std::max(order, std::max(std::ilogb(t) + 1, std::numeric_limits<T>::min_exponent - 1));
        } else {
            if (t == 0) continue;
            order = std::max(order, std::ilogb(std::abs(static_cast<double>(t))) + 1);
        }
        zero = false;
    }
    return zero ? 0 : order;
}

template <class T>
void expectOrder(OrbStatus (*member)(const T*, int, Orb32s*), const std::vector<T>& x) {
    OrbStatus want;
    const int order = orderOf(x, want);
    Orb32s got = -12345;
    ASSERT_EQ(member(x.data(), static_cast<int>(x.size()), &got), want) << support::callOf(member);
    ASSERT_EQ(got, order) << support::callOf(member) << " of " << x.size() << " elements, one " << support::shown(x[0]);
}

template <class T>
void expectOrders(OrbStatus (*member)(const T*, int, Orb32s*), const std::vector<T>& values) {
    for (const std::size_t len : {1, 2, 9, 70, 1000}) {
        expectOrder(member, std::vector<T>(len, T{0}));
        for (const T value : values) {
            for (const T fill : {T{0}, T{1}, value}) {
                std::vector<T> x(len, fill);
                x[len / 2] = value;
                expectOrder(member, x);
                x[len - 1] = static_cast<T>(-x[len - 1]);
                expectOrder(member, x);
                if (::testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

template <class T>
std::vector<T> floats() {
    using Limits = std::numeric_limits<T>;
    std::vector<T> x{Limits::infinity(),
                     -Limits::infinity(),
                     Limits::quiet_NaN(),
                     -Limits::quiet_NaN(),
                     Limits::max(),
                     Limits::min(),
                     T{-0.0},
                     T{3}};
    for (const T power : {T{1}, T{0.5}, T{8}, Limits::min(), Limits::denorm_min()})
        for (const T t : {power, std::nextafter(power, T{0}), std::nextafter(power, T{9})}) x.push_back(t);
    return x;
}

TEST(MaxOrder, OfIntegersIsTheLengthOfTheLargestMagnitude) {
    std::vector<Orb16s> narrow{SHRT_MIN};
    std::vector<Orb32s> wide{INT_MIN + 1, INT_MAX};
    for (int bit = 0; bit < 31; ++bit)
        for (const int around : {-1, 0, 1}) wide.push_back((1 << bit) + around);
    for (const Orb32s v : wide)
        if (std::abs(v) <= SHRT_MAX) narrow.push_back(static_cast<Orb16s>(v));
    expectOrders(&orbsMaxOrder_16s, narrow);
    expectOrders(&orbsMaxOrder_32s, wide);
    expectOrder(&orbsMaxOrder_32s, {5, INT_MIN, 7});
}

// With every treatment of subnormals that a caller may have set; no flag is raised.
TEST(MaxOrder, OfFloatsIsTheLargestExponent) {
    for (const Orb32u mode : {0u, support::denormalsAreZero}) {
        support::inMode(mode, [] {
            _mm_setcsr(_mm_getcsr() & ~Orb32u{_MM_EXCEPT_MASK});
            Orb32s order;
            const Orb32f x[] = {1, std::numeric_limits<Orb32f>::denorm_min(), NAN, -3};
            EXPECT_EQ(orbsMaxOrder_32f(x, 4, &order), orbStsNanArg);
            EXPECT_EQ(order, 2);
            EXPECT_EQ(orbsMaxOrder_32f(x + 1, 1, &order), orbStsNoErr);
            EXPECT_EQ(order, -126);
            EXPECT_EQ(_mm_getcsr() & _MM_EXCEPT_MASK, 0u);
            return 0;
        });
    }
    expectOrders(&orbsMaxOrder_32f, floats<Orb32f>());
    expectOrders(&orbsMaxOrder_64f, floats<Orb64f>());
}

// ---- FindNearest ----

// The search as the contract tells it.
int placeOf(int v, const std::vector<Orb16u>& table) {
    const int last = static_cast<int>(table.size()) - 1;
    const auto entry = [&](int place) { return int{table[static_cast<std::size_t>(place)]}; };
    if (v <= entry(0)) return 0;
    if (v >= entry(last)) return last;
    int base = 0;
    for (int span = last; span > 1;) {
        const int half = span >> 1;
        if (entry(base + half) <= v) {
            base += half;
            span -= half;
        } else {
            span = half;
        }
    }
    return v - entry(base) > entry(base + 1) - v ? base + 1 : base;
}

TEST(FindNearest, FindsTheLowerOfTwoAtTheSameDistance) {
    std::vector<std::vector<Orb16u>> tables{{7}, {4, 6}, {0, 65535}, {5, 5, 5, 9, 9}, {1, 5, 5, 5, 8, 8}, {3, 4, 5, 9}};
    for (const std::size_t size : {2, 3, 4, 5, 16, 17, 100, 1000, 70000}) {
        tables.push_back(support::randomVector<Orb16u>(size));
        std::ranges::sort(tables.back());
    }
    for (const auto& table : tables) {
        const auto tblLen = static_cast<int>(table.size());
        std::vector<Orb16u> vals = support::randomVector<Orb16u>(1003), wantVals;
        for (std::size_t n = 0; n < 30; ++n) vals[n] = static_cast<Orb16u>(n < 15 ? n : table[n % table.size()] + 1);
        std::vector<Orb32s> wantIndexes, indexes(vals.size());
        for (const Orb16u v : vals) {
            wantIndexes.push_back(placeOf(v, table));
            wantVals.push_back(table[static_cast<std::size_t>(wantIndexes.back())]);
            Orb16u value;
            Orb32s index;
            ASSERT_EQ(orbsFindNearestOne_16u(v, &value, &index, table.data(), tblLen), orbStsNoErr);
            ASSERT_EQ(value, wantVals.back()) << v << " among " << tblLen;
            ASSERT_EQ(index, wantIndexes.back()) << v << " among " << tblLen;
        }
        const std::vector<Orb16u> src = vals;
        ASSERT_EQ(orbsFindNearest_16u(vals.data(), vals.data(), indexes.data(), static_cast<int>(vals.size()),
                                      table.data(), tblLen),
                  orbStsNoErr);
        ASSERT_TRUE(support::sameBits(vals, wantVals, src));
        ASSERT_TRUE(support::sameBits(indexes, wantIndexes, src));
    }
}

// ---- CountInRange ----

TEST(CountInRange, LeavesOutBothBounds) {
    for (const std::size_t len : {1, 3, 15, 16, 17, 1000}) {
        auto x = support::randomVector<Orb32s>(len);
        for (std::size_t n = 0; n < len; n += 2) x[n] %= 5;
        for (const Orb32s lower : {INT_MIN, -1, 0, 1, 2, INT_MAX}) {
            for (const Orb32s upper : {INT_MIN, 0, 1, 3, INT_MAX}) {
                Orb32s counts = -1;
                ASSERT_EQ(orbsCountInRange_32s(x.data(), static_cast<int>(len), &counts, lower, upper), orbStsNoErr);
                EXPECT_EQ(counts, std::ranges::count_if(x, [=](Orb32s t) { return lower < t && t < upper; }))
                    << len << " elements, " << lower << " to " << upper;
            }
        }
    }
}

} // namespace
