// Extremes and their places beside VOLK, Highway by hand and plain loops; nearest entries and counts.
#define HWY_COMPILE_ONLY_STATIC
#include "orbs.h"
#include "vectors.h"
#include "volk_kernels.h"

#include <algorithm>
#include <cstring>
#include <hwy/highway.h>

namespace {

namespace hn = hwy::HWY_NAMESPACE;
using vectors::add;
using vectors::buffer;
using vectors::Row;
using volk::count;

// Results that a compiler must take for needed.
struct {
    double value;
    Orb32s place;
} results[2];

template <class T>
T* valueAt(int k) {
    return reinterpret_cast<T*>(&results[k].value);
}

// ---- Highway by hand ----

template <class T>
void greatest(const T* src, int len, T* value) {
    const hn::ScalableTag<T> d;
    const int lanes = static_cast<int>(hn::Lanes(d));
    auto best = hn::LoadU(d, src);
    for (int n = lanes; n + lanes <= len; n += lanes) best = hn::Max(best, hn::LoadU(d, src + n));
    *value = hn::GetLane(hn::MaxOfLanes(d, best));
}

// A vector of the places beside that of the extremes.
void greatestAndPlace(const Orb32f* src, int len, Orb32f* value, Orb32s* place) {
    const hn::ScalableTag<Orb32f> d;
    const hn::RebindToSigned<decltype(d)> di;
    const int lanes = static_cast<int>(hn::Lanes(d));
    auto best = hn::LoadU(d, src);
    auto places = hn::Iota(di, 0), at = places;
    const auto step = hn::Set(di, lanes);
    for (int n = lanes; n + lanes <= len; n += lanes) {
        const auto x = hn::LoadU(d, src + n);
        at = hn::Add(at, step);
        const auto better = hn::Gt(x, best);
        best = hn::IfThenElse(better, x, best);
        places = hn::IfThenElse(hn::RebindMask(di, better), at, places);
    }
    const auto top = hn::MaxOfLanes(d, best);
    const auto candidates =
        hn::IfThenElse(hn::RebindMask(di, hn::Eq(best, top)), places, hn::Set(di, hwy::LimitsMax<Orb32s>()));
    *value = hn::GetLane(top);
    *place = hn::GetLane(hn::MinOfLanes(di, candidates));
}

// There are more places than 16 bits number: the value, and then where it stands.
void greatestAndPlace(const Orb16s* src, int len, Orb16s* value, Orb32s* place) {
    greatest(src, len, value);
    const hn::ScalableTag<Orb16s> d;
    const int lanes = static_cast<int>(hn::Lanes(d));
    const auto wanted = hn::Set(d, *value);
    for (int n = 0; n + lanes <= len; n += lanes) {
        const auto lane = hn::FindFirstTrue(d, hn::Eq(hn::LoadU(d, src + n), wanted));
        if (lane >= 0) {
            *place = n + static_cast<Orb32s>(lane);
            return;
        }
    }
}

template <class T>
void both(const T* src, int len, T* low, T* high) {
    const hn::ScalableTag<T> d;
    const int lanes = static_cast<int>(hn::Lanes(d));
    auto least = hn::LoadU(d, src), most = least;
    for (int n = lanes; n + lanes <= len; n += lanes) {
        const auto x = hn::LoadU(d, src + n);
        least = hn::Min(least, x);
        most = hn::Max(most, x);
    }
    *low = hn::GetLane(hn::MinOfLanes(d, least));
    *high = hn::GetLane(hn::MaxOfLanes(d, most));
}

// ---- Rows ----

// Of 7 elements "highway" would need another loop.
constexpr int lengths[] = {100, 4096, vectors::longest};

template <class T>
void addExtremes(const std::string& type, OrbStatus (*max)(const T*, int, T*),
                 OrbStatus (*maxIndx)(const T*, int, T*, Orb32s*), OrbStatus (*minMax)(const T*, int, T*, T*),
                 OrbStatus (*minMaxIndx)(const T*, int, T*, Orb32s*, T*, Orb32s*)) {
    const T* const src = buffer<T>(0);
    T *const low = valueAt<T>(0), *const high = valueAt<T>(1);
    Orb32s *const lowPlace = &results[0].place, *const highPlace = &results[1].place;
    const auto row = [&](const char* member) {
        Row r(member + type);
        r.lens = lengths;
        return r;
    };
    add(row("Max_"), "orbs", [=](int len) { max(src, len, high); });
    add(row("Max_"), "highway", [=](int len) { greatest(src, len, high); });
    add(row("Max_"), "loop", [=](int len) {
        T best = src[0];
        for (int n = 1; n < len; ++n) best = std::max(best, src[n]);
        *high = best;
    });
    add(row("MaxIndx_"), "orbs", [=](int len) { maxIndx(src, len, high, highPlace); });
    add(row("MaxIndx_"), "highway", [=](int len) { greatestAndPlace(src, len, high, highPlace); });
    add(row("MaxIndx_"), "loop", [=](int len) {
        int at = 0;
        for (int n = 1; n < len; ++n)
            if (src[n] > src[at]) at = n;
        *high = src[at];
        *highPlace = at;
    });
    add(row("MinMax_"), "orbs", [=](int len) { minMax(src, len, low, high); });
    add(row("MinMax_"), "highway", [=](int len) { both(src, len, low, high); });
    add(row("MinMaxIndx_"), "orbs", [=](int len) { minMaxIndx(src, len, low, lowPlace, high, highPlace); });
    // The only indexed extreme of VOLK is that of floats; it stands beside all rows of them.
    if constexpr (std::is_same_v<T, Orb32f>) {
        static uint32_t place;
        for (const char* member : {"Max_", "MaxIndx_", "MinMax_", "MinMaxIndx_"})
            add(row(member), "volk", [=](int len) { volk_32f_index_max_32u(&place, src, count(len)); });
    }
}

void addOthers() {
    const Orb32s* const src = buffer<Orb32s>(0);
    const Orb64f* const doubles = buffer<Orb64f>(0);
    Orb32s* const place = &results[0].place;
    add("MaxAbsIndx_32s", "orbs", [=](int len) { orbsMaxAbsIndx_32s(src, len, valueAt<Orb32s>(0), place); });
    add("MaxAbsIndx_32s", "loop", [=](int len) {
        Orb32u best = 0;
        for (int n = 0; n < len; ++n) {
            const Orb32u m = src[n] < 0 ? 0u - static_cast<Orb32u>(src[n]) : static_cast<Orb32u>(src[n]);
            if (m > best) best = m, *place = n;
        }
        *valueAt<Orb32u>(0) = best;
    });
    add("MaxOrder_64f", "orbs", [=](int len) { orbsMaxOrder_64f(doubles, len, place); });
    add("MaxOrder_64f", "loop", [=](int len) {
        int field = 0;
        for (int n = 0; n < len; ++n) {
            Orb64u bits;
            std::memcpy(&bits, doubles + n, sizeof bits);
            field = std::max(field, static_cast<int>(bits >> 52 & 0x7ff));
        }
        *place = field - 1022;
    });
    add("CountInRange_32s", "orbs", [=](int len) { orbsCountInRange_32s(src, len, place, -20, 30); });
    add("CountInRange_32s", "loop", [=](int len) {
        Orb32s inside = 0;
        for (int n = 0; n < len; ++n) inside += src[n] > -20 && src[n] < 30;
        *place = inside;
    });

    static Orb16u table[1000];
    for (int n = 0; n < 1000; ++n) table[n] = static_cast<Orb16u>(65 * n);
    static Orb16u* const vals = vectors::room<Orb16u>(1);
    Orb16u* const found = buffer<Orb16u>(2);
    Orb32s* const indexes = buffer<Orb32s>(3);
    std::mt19937 random;
    for (int n = 0; n < vectors::longest; ++n) vals[n] = static_cast<Orb16u>(random());
    add("FindNearest_16u", "orbs", [=](int len) { orbsFindNearest_16u(vals, found, indexes, len, table, 1000); });
    add("FindNearest_16u", "lower_bound", [=](int len) {
        for (int n = 0; n < len; ++n) {
            const Orb16u* above = std::lower_bound(table, table + 999, vals[n]);
            if (above > table && vals[n] - above[-1] <= above[0] - vals[n]) --above;
            found[n] = *above;
            indexes[n] = static_cast<Orb32s>(above - table);
        }
    });

    const Orb32f* const floats = buffer<Orb32f>(0);
    Orb32f* const srcDst = buffer<Orb32f>(2);
    add("MaxEvery_32f_I", "orbs", [=](int len) { orbsMaxEvery_32f_I(floats, srcDst, len); });
    add("MaxEvery_32f_I", "loop", [=](int len) {
        for (int n = 0; n < len; ++n) srcDst[n] = std::max(floats[n], srcDst[n]);
    });
}

[[maybe_unused]] const bool registered = [] {
    addExtremes<Orb32f>("32f", orbsMax_32f, orbsMaxIndx_32f, orbsMinMax_32f, orbsMinMaxIndx_32f);
    addExtremes<Orb16s>("16s", orbsMax_16s, orbsMaxIndx_16s, orbsMinMax_16s, orbsMinMaxIndx_16s);
    addOthers();
    return true;
}();

} // namespace
