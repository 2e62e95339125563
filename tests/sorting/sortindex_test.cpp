// SortIndexAscend, SortIndexDescend: the order of equal elements is decided by the steps, so the model takes them one
// by one.
#include "orbs/sorting.h"
#include "support/compare.h"

#include <gtest/gtest.h>
#include <numeric>

namespace {

using support::Random;

template <class T>
struct Model {
    std::vector<T> keys;
    std::vector<Orb32s> indices;

    explicit Model(const std::vector<T>& x) : keys(x), indices(x.size()) {
        std::iota(indices.begin(), indices.end(), 0);
        sort(0, static_cast<int>(x.size()) - 1);
    }

private:
    T& key(int n) { return keys[static_cast<std::size_t>(n)]; }
    void swap(int a, int b) {
        std::swap(key(a), key(b));
        std::swap(indices[static_cast<std::size_t>(a)], indices[static_cast<std::size_t>(b)]);
    }
    void sort(int first, int last) {
        const int n = last - first + 1;
        if (n <= 9) {
            for (; last > first; last -= 1) {
                int largest = first;
                for (int k = first; k <= last; ++k) largest = key(k) > key(largest) ? k : largest;
                swap(largest, last);
            }
            return;
        }
        const int h = first + n / 2;
        if (key(first) < key(first + 1)) swap(first, first + 1);
        if (key(first) > key(h)) swap(first, h);
        if (key(h) > key(last)) swap(h, last);
        if (key(first) > key(h)) swap(first, h);
        const T p = key(h);
        int i = first + 1, j = last;
        while (true) {
            while (i < j && !(key(i) > p)) i += 1;
            while (j > i && key(j) > p) j -= 1;
            if (i == j) break;
            swap(i, j);
        }
        int end = i - 1;
        while (end > first && key(end) == p) end -= 1;
        sort(first, end);
        sort(j, last);
    }
};

template <class T>
using Member = OrbStatus (*)(T*, Orb32s*, int);

template <class T>
struct Sorted {
    std::vector<T> keys;
    std::vector<Orb32s> indices;

    Sorted(Member<T> member, const std::vector<T>& x) : keys(x), indices(x.size(), -1) {
        EXPECT_EQ(member(keys.data(), indices.data(), static_cast<int>(x.size())), orbStsNoErr);
    }
};

// An element that compares with others as x does, the other way round.
template <class T>
T mirrored(T x) {
    if constexpr (std::is_floating_point_v<T>) {
        return -x;
    } else {
        return static_cast<T>(~x);
    }
}

template <class T>
testing::AssertionResult followsTheSteps(Member<T> ascend, Member<T> descend, const std::vector<T>& x) {
    const Model<T> want(x);
    const Sorted<T> up(ascend, x);
    if (auto same = support::sameBits(up.keys, want.keys); !same) return same;
    if (auto same = support::sameBits(up.indices, want.indices); !same) return same << " (indices)";
    auto mirror = x;
    for (T& t : mirror) t = mirrored(t);
    const Sorted<T> down(descend, mirror);
    for (T& t : mirror) t = mirrored(t);
    if (auto same = support::sameBits(down.indices, want.indices); !same) return same << " (descending)";
    for (std::size_t n = 0; n < x.size(); ++n) // the keys moved with their indices
        if (!support::identical(mirrored(down.keys[n]), x[static_cast<std::size_t>(down.indices[n])]))
            return testing::AssertionFailure() << "key " << n;
    return testing::AssertionSuccess();
}

template <class Test>
void forEveryType(Test test) {
    test(&orbsSortIndexAscend_8u_I, &orbsSortIndexDescend_8u_I);
    test(&orbsSortIndexAscend_16s_I, &orbsSortIndexDescend_16s_I);
    test(&orbsSortIndexAscend_16u_I, &orbsSortIndexDescend_16u_I);
    test(&orbsSortIndexAscend_32s_I, &orbsSortIndexDescend_32s_I);
    test(&orbsSortIndexAscend_32f_I, &orbsSortIndexDescend_32f_I);
    test(&orbsSortIndexAscend_64f_I, &orbsSortIndexDescend_64f_I);
}

TEST(SortIndex, EqualElementsEndWhereTheStepsLeaveThem) {
    forEveryType([]<class T>(Member<T> ascend, Member<T> descend) {
        Random random(1);
        for (int count = 2; count < 1500; count += 1 + count / 30) {
            for (const unsigned values : {1u, 2u, 5u, 100u, 0x7fffffffu}) {
                std::vector<T> x(static_cast<std::size_t>(count));
                for (T& t : x) t = static_cast<T>(random() % values);
                ASSERT_TRUE(followsTheSteps(ascend, descend, x)) << count << " elements of " << values << " values";
            }
            std::vector<T> ordered(static_cast<std::size_t>(count));
            std::iota(ordered.begin(), ordered.end(), T(0));
            ASSERT_TRUE(followsTheSteps(ascend, descend, ordered)) << count << " in order";
            std::reverse(ordered.begin(), ordered.end());
            ASSERT_TRUE(followsTheSteps(ascend, descend, ordered)) << count << " in reverse order";
        }
    });
}

// A NaN is neither above nor equal to anything: the steps go on, and lose nothing.
TEST(SortIndex, NaN) {
    const auto test = []<class T>(Member<T> ascend, Member<T> descend) {
        Random random(2);
        for (int count = 2; count < 400; ++count) {
            auto x = support::randomVector<T>(static_cast<std::size_t>(count));
            for (T& t : x)
                if (random() % (1 + static_cast<unsigned>(count) % 7) == 0) t = std::numeric_limits<T>::quiet_NaN();
            ASSERT_TRUE(followsTheSteps(ascend, descend, x)) << count;
            auto indices = Sorted<T>(ascend, x).indices;
            std::sort(indices.begin(), indices.end());
            for (int n = 0; n < count; ++n) ASSERT_EQ(indices[static_cast<std::size_t>(n)], n);
        }
    };
    test(&orbsSortIndexAscend_32f_I, &orbsSortIndexDescend_32f_I);
    test(&orbsSortIndexAscend_64f_I, &orbsSortIndexDescend_64f_I);
}

// Equal keys take linear time; a random order is one of 17 levels or so.
TEST(SortIndex, ManyElements) {
    EXPECT_TRUE(followsTheSteps(&orbsSortIndexAscend_32s_I, &orbsSortIndexDescend_32s_I, std::vector(1000000, 3)));
    EXPECT_TRUE(followsTheSteps(&orbsSortIndexAscend_32s_I, &orbsSortIndexDescend_32s_I,
                                support::randomVector<Orb32s>(100000)));
}

TEST(SortIndex, OneElementHasNoIndex) {
    Orb32f x = 5;
    Orb32s index = 77;
    EXPECT_EQ(orbsSortIndexAscend_32f_I(&x, &index, 1), orbStsNoErr);
    EXPECT_EQ(index, 77);
}

} // namespace
