// Sorts, beside std::sort and Highway's vectorised quicksort, which is compiled for the tier. Each time takes in a copy
// of the vector to sort. Indices stand beside std::sort of indices by what they point to.
#include "orbs.h"
#include "vectors.h"

#include <algorithm>
#include <cstring>
#include <hwy/contrib/sort/traits-inl.h>
#include <hwy/contrib/sort/vqsort-inl.h>
#include <numeric>
#include <random>

// Highway's library has this, to seed the choice of pivots; what is compiled here is all but that.
void hwy::Sorter::Fill24Bytes(const void*, std::size_t, void* bytes) {
    std::memset(bytes, 0x5a, 24);
}

namespace {

namespace hn = hwy::HWY_NAMESPACE;
using vectors::add;
using vectors::room;

constexpr int indexed[] = {4096, 100000};

// Over the whole range of an integer; floats of all magnitudes.
template <class T>
T* random() {
    T* const x = room<T>(0);
    std::mt19937_64 bits(1);
    std::normal_distribution<double> normal;
    for (int n = 0; n < vectors::longest; ++n)
        x[n] = std::is_floating_point_v<T> ? static_cast<T>(normal(bits)) : static_cast<T>(bits());
    return x;
}
template <class T>
T* ordered() {
    T* const x = random<T>();
    std::sort(x, x + vectors::longest);
    return x;
}

template <class T>
void quicksort(T* x, int len) {
    using Order = hn::detail::OrderAscending<T>;
    HWY_ALIGN static T scratch[hwy::SortConstants::BufNum<T>(HWY_MAX_BYTES / sizeof(T))];
    const hn::detail::SharedTraits<hn::detail::TraitsLane<Order>> traits;
    hn::Sort(hn::SortTag<T>(), traits, x, static_cast<std::size_t>(len), scratch);
}

// Another part of x each time: a processor learns the branches of one.
template <class T>
const T* nextPart(const T* x, int len) {
    static int parts = 0;
    return x + static_cast<long>(parts++) * len % (vectors::longest - len + 1);
}

template <class T>
void addSorts(const std::string& row, const T* x, OrbStatus (*member)(T*, int)) {
    T* const y = room<T>(1);
    const auto sorted = [=](int len) {
        std::memcpy(y, nextPart(x, len), static_cast<std::size_t>(len) * sizeof(T));
        return y;
    };
    add(row, "orbs", [=](int len) { member(sorted(len), len); });
    add(row, "std", [=](int len) { std::sort(sorted(len), y + len); });
    if constexpr (sizeof(T) > 1) add(row, "highway", [=](int len) { quicksort(sorted(len), len); });
}
template <class T>
void addSorts(const std::string& row, OrbStatus (*member)(T*, int)) {
    addSorts(row, random<T>(), member);
    addSorts(row + "(sorted)", ordered<T>(), member);
}

template <class T>
void addIndices(const char* row, OrbStatus (*member)(T*, Orb32s*, int)) {
    const T* const x = random<T>();
    T* const y = room<T>(1);
    Orb32s* const indices = room<Orb32s>(2);
    add({row, indexed}, "orbs", [=](int len) {
        std::memcpy(y, nextPart(x, len), static_cast<std::size_t>(len) * sizeof(T));
        member(y, indices, len);
    });
    add({row, indexed}, "std", [=](int len) {
        const T* const keys = nextPart(x, len);
        std::iota(indices, indices + len, 0);
        std::sort(indices, indices + len, [=](Orb32s a, Orb32s b) { return keys[a] < keys[b]; });
    });
}

[[maybe_unused]] const bool registered = [] {
    addSorts("SortAscend_8u", orbsSortAscend_8u_I);
    addSorts("SortAscend_16s", orbsSortAscend_16s_I);
    addSorts("SortAscend_32s", orbsSortAscend_32s_I);
    addSorts("SortAscend_32f", orbsSortAscend_32f_I);
    addSorts("SortAscend_64f", orbsSortAscend_64f_I);
    addIndices("SortIndexAscend_16s", orbsSortIndexAscend_16s_I);
    addIndices("SortIndexAscend_32f", orbsSortIndexAscend_32f_I);
    return true;
}();

} // namespace
