// GetVarPointDV, BuildSymblTableDV4D: from received points to the branch metrics of a four-dimensional trellis code.
#include "foundation/frame.h"
#include "orbs/trellis.h"

#include <array>

namespace {

using namespace orbs;

// ---- Distances of one point ----

// One coordinate, in 16 bits that wrap. The lattice has its points at odd multiples of 128.
struct Coordinate {
    Orb16s below; // the lattice point at or below it
    Orb32u index; // of that point, from 2 below the origin on; of a label two bits count
    // (distance)^2 / 16 of the lattice points -1, 0, 1 and 2 steps from there.
    std::array<Orb32u, 4> squares;

    explicit Coordinate(Orb16s value) {
        const Orb32u x = static_cast<Orb16u>(value), offset = (x & 255) ^ 128;
        below = static_cast<Orb16s>(x - offset);
        index = ((x - offset - 128) >> 8) + 2;
        squares = {square(256 + offset), square(offset), square(256 - offset), square(512 - offset)};
    }
    Orb32u distance(int steps) const { return squares[static_cast<unsigned>(steps + 1)]; }

private:
    static Orb32u square(Orb32u d) { return d * d >> 4; }
};

struct Step {
    int dx, dy;
};
// By the code of a position.
constexpr Step positions[] = {{0, 0}, {1, 0},  {1, 1}, {0, 1},  {0, 2},  {1, 2},
                              {2, 1}, {1, -1}, {2, 0}, {-1, 0}, {0, -1}, {-1, 1}};

void getVarPoint(Orb16sc point, Orb16sc* pDstPoint, Orb32u* pVariance, const Orb8u* pLabel, int state) {
    const Coordinate x(point.re), y(point.im);
    setElement(pDstPoint, Orb16sc{x.below, y.below});

    const bool isOfFour = state == 16;
    const auto entry = [&](Orb32u code) {
        const auto [dx, dy] = positions[code];
        return x.distance(dx) + y.distance(dy) + (code << 16);
    };
    // Under the label of the lattice point that is so many steps away.
    const auto store = [&](Orb32u dx, Orb32u dy, Orb32u value) {
        const Orb32u label = pLabel[(y.index + dy) % 4 * 4 + (x.index + dx) % 4];
        setElement(pVariance + (label & (isOfFour ? 3 : 7)), value);
    };
    constexpr Orb32u around[][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (Orb32u code = 0; code < 4; ++code) store(around[code][0], around[code][1], entry(code));
    if (isOfFour) return;
    // The other four labels stand on two points of the twelve each; of equal distances the latter one's is taken.
    for (Orb32u code = 4; code < 8; ++code) {
        const Orb32u first = entry(code), second = entry(code + 4);
        const bool isFirst = (first & 0xffff) < (second & 0xffff);
        store(around[code - 4][0], around[code - 4][1] + 2, isFirst ? first : second);
    }
}

// ---- Metrics of pairs of points ----

// The entries of both tables, of which a branch of four dimensions is made.
struct Pair {
    Orb32u p, q;
};

struct Branch {
    Orb16u code, metric;
};
Branch branch(const Orb32u* pVariance, Pair pair) {
    const Orb32u first = elementAt(pVariance + pair.p), second = elementAt(pVariance + 8 + pair.q);
    const Orb32u code = ((first >> 16) & 0xff) | ((second >> 16) & 0xff) << 8;
    return {static_cast<Orb16u>(code), static_cast<Orb16u>(first + second)};
}

// The first of the best.
template <std::size_t count>
void storeBest(const Orb32u* pVariance, const std::array<Pair, count>& pairs, Orb16u* pDst) {
    Branch best = branch(pVariance, pairs[0]);
    for (std::size_t k = 1; k < count; ++k) {
        const Branch other = branch(pVariance, pairs[k]);
        if (other.metric < best.metric) best = other;
    }
    setElement(pDst, best.code);
    setElement(pDst + 1, best.metric);
}

// The tables hold four entries each, or eight; bits of `inversion` beyond are not looked at.
void buildSymbolTable(const Orb32u* pVariance, Orb16u* pDst, int state, Orb32u inversion) {
    const auto second = [](Orb32u t) { return (t + (t >> 2)) % 4; };
    const auto near = [=](Orb32u t) { return Pair{(t >> 2) % 8, second(t)}; };
    const auto far = [=](Orb32u t) { return Pair{((t >> 2) + 4) % 8, second(t) + 4}; };
    const auto forEach = [&](Orb32u count, auto pairs) {
        for (Orb32u i = 0; i < count; ++i) storeBest(pVariance, pairs(i), pDst + 2 * i);
    };
    if (state == 16) {
        forEach(8, [=](Orb32u i) {
            const Orb32u t = i ^ inversion, p = (t >> 2) % 4, q = second(t);
            return std::array{Pair{p, q}, Pair{(p + 2) % 4, (q + 2) % 4}};
        });
    } else if (state == 32) {
        forEach(16, [=](Orb32u i) {
            const Orb32u t = (i ^ inversion) + 2 * (i & 8), u = t ^ 8;
            return std::array{near(u), far(u), near(t), far(t)};
        });
    } else {
        forEach(32, [=](Orb32u i) {
            const Orb32u t = i ^ inversion;
            return std::array{near(t), far(t)};
        });
    }
}

OrbStatus getVarPoint(const Orb16sc* pSrc, Orb16sc* pDstPoint, Orb32u* pVariance, const Orb8u* pLabel, int state) {
    if (anyNull(pSrc, pDstPoint, pVariance, pLabel)) return orbStsNullPtrErr;
    getVarPoint(elementAt(pSrc), pDstPoint, pVariance, pLabel, state);
    return orbStsNoErr;
}

OrbStatus buildSymbolTable(const Orb32u* pVariance, Orb16u* pDst, int state, int bitInversion) {
    if (anyNull(pVariance, pDst)) return orbStsNullPtrErr;
    buildSymbolTable(pVariance, pDst, state, static_cast<Orb32u>(bitInversion));
    return orbStsNoErr;
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsGetVarPointDV_16sc(const Orb16sc* pSrc, Orb16sc* pDstPoint, Orb32u* pVariance, const Orb8u* pLabel, int state) { return getVarPoint(pSrc, pDstPoint, pVariance, pLabel, state); }
OrbStatus orbsBuildSymblTableDV4D_16sc(const Orb32u* pVariance, Orb16u* pDst, int state, int bitInversion) { return buildSymbolTable(pVariance, pDst, state, bitInversion); }

}
// clang-format on
