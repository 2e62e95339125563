// SortAscend, SortDescend.
#include "foundation/frame.h"
#include "orbs/sorting.h"
#include "sorting/keys.h"
#include "vectors/reverse.h"

#include <algorithm>
#include <cstring>

namespace {

using namespace orbs;

enum class Order { ascending, descending };

// ---- Keys: signed integers in the order of the elements ----

using Signed = Same;
struct Unsigned {
    template <class D, class V>
    static V of(D d, V v) {
        return hn::Xor(v, hn::Set(d, std::numeric_limits<hn::TFromD<D>>::min()));
    }
};
struct Float {
    template <class D, class V>
    static V of(D d, V v) {
        const hn::RebindToUnsigned<D> magnitude;
        const V sign = hn::BroadcastSignBit(v);
        return hn::Xor(v, hn::BitCast(d, hn::ShiftRight<1>(hn::BitCast(magnitude, sign))));
    }
};

template <class Map, class Key>
void mapKeys(Key* keys, std::size_t count) {
    if constexpr (!std::is_same_v<Map, Signed>)
        forEachVector<Key>(count, keys, [=](auto d, std::size_t n) HWY_ATTR {
            hn::StoreU(Map::of(d, hn::LoadU(d, keys + n)), d, keys + n);
        });
}

template <class Map, class Key, class T>
OrbStatus sorted(Order order, T* pSrcDst, int len) {
    static_assert(sizeof(Key) == sizeof(T));
    if (const OrbStatus status = checkVectors(len, pSrcDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    auto* const keys = reinterpret_cast<Key*>(pSrcDst);
    mapKeys<Map>(keys, count);
    sortKeys(keys, count);
    if (order == Order::ascending) {
        mapKeys<Map>(keys, count);
    } else {
        reverse<Map, 1>(keys, keys, count);
    }
    return orbStsNoErr;
}

// ---- Bytes ----

// As many as one network sorts in lanes of 16 bits.
constexpr std::size_t mostWidened = 256;

void sortWidened(Order order, Orb8u* p, std::size_t count) {
    Orb16s keys[mostWidened];
    std::copy_n(p, count, keys);
    sortKeys(keys, count);
    for (std::size_t n = 0; n < count; ++n)
        p[n] = static_cast<Orb8u>(keys[order == Order::ascending ? n : count - 1 - n]);
}

// Four tables: equal neighbours do not wait for each other.
void countingSort(Order order, Orb8u* p, std::size_t count) {
    Orb32u counts[4][256] = {};
    std::size_t n = 0;
    for (; n + 4 <= count; n += 4)
        for (std::size_t k = 0; k < 4; ++k) ++counts[k][p[n + k]];
    for (; n < count; ++n) ++counts[0][p[n]];
    for (std::size_t k = 0; k < 256; ++k) {
        const std::size_t value = order == Order::ascending ? k : 255 - k;
        const std::size_t times =
            std::size_t{counts[0][value]} + counts[1][value] + counts[2][value] + counts[3][value];
        std::memset(p, static_cast<int>(value), times);
        p += times;
    }
}

OrbStatus sortedBytes(Order order, Orb8u* pSrcDst, int len) {
    if (const OrbStatus status = checkVectors(len, pSrcDst)) return status;
    const auto count = static_cast<std::size_t>(len);
    const auto sort = count <= mostWidened ? sortWidened : countingSort;
    sort(order, pSrcDst, count);
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsSortAscend_8u_I(Orb8u* pSrcDst, int len) { return sortedBytes(Order::ascending, pSrcDst, len); }
OrbStatus orbsSortAscend_16s_I(Orb16s* pSrcDst, int len) { return sorted<Signed, Orb16s>(Order::ascending, pSrcDst, len); }
OrbStatus orbsSortAscend_16u_I(Orb16u* pSrcDst, int len) { return sorted<Unsigned, Orb16s>(Order::ascending, pSrcDst, len); }
OrbStatus orbsSortAscend_32s_I(Orb32s* pSrcDst, int len) { return sorted<Signed, Orb32s>(Order::ascending, pSrcDst, len); }
OrbStatus orbsSortAscend_32f_I(Orb32f* pSrcDst, int len) { return sorted<Float, Orb32s>(Order::ascending, pSrcDst, len); }
OrbStatus orbsSortAscend_64f_I(Orb64f* pSrcDst, int len) { return sorted<Float, std::int64_t>(Order::ascending, pSrcDst, len); }
OrbStatus orbsSortDescend_8u_I(Orb8u* pSrcDst, int len) { return sortedBytes(Order::descending, pSrcDst, len); }
OrbStatus orbsSortDescend_16s_I(Orb16s* pSrcDst, int len) { return sorted<Signed, Orb16s>(Order::descending, pSrcDst, len); }
OrbStatus orbsSortDescend_16u_I(Orb16u* pSrcDst, int len) { return sorted<Unsigned, Orb16s>(Order::descending, pSrcDst, len); }
OrbStatus orbsSortDescend_32s_I(Orb32s* pSrcDst, int len) { return sorted<Signed, Orb32s>(Order::descending, pSrcDst, len); }
OrbStatus orbsSortDescend_32f_I(Orb32f* pSrcDst, int len) { return sorted<Float, Orb32s>(Order::descending, pSrcDst, len); }
OrbStatus orbsSortDescend_64f_I(Orb64f* pSrcDst, int len) { return sorted<Float, std::int64_t>(Order::descending, pSrcDst, len); }

}
