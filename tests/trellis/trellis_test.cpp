// The steps of the decoder against their definitions, and whole decoders of codes with 16, 32 and 64 states.
#include "orbs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

namespace {

constexpr int stateCounts[] = {16, 32, 64};

// Labels of the lattice point (256 x + 128, 256 y + 128): four take turns around each square of points, and the next
// squares have the other four.
int label(int x, int y) {
    constexpr int around[2][2] = {{0, 1}, {3, 2}};
    return around[y & 1][x & 1] + 4 * (((x >> 1) + (y >> 1)) & 1);
}
std::array<Orb8u, 16> labels() {
    std::array<Orb8u, 16> table;
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            table[static_cast<std::size_t>(4 * y + x)] = static_cast<Orb8u>(label(x - 2, y - 2));
    return table;
}

struct Place {
    int x, y;
};
constexpr Place places[] = {{0, 0}, {1, 0},  {1, 1}, {0, 1},  {0, 2},  {1, 2},
                            {2, 1}, {1, -1}, {2, 0}, {-1, 0}, {0, -1}, {-1, 1}};

// ---- One step ----

// All lattice points around: the nearest one of each label.
TEST(GetVarPoint, FindsTheNearestPointOfEachSubset) {
    const auto table = labels();
    for (const int y : {-32768, -32600, -129, -128, 0, 1, 77, 127, 128, 5000, 32767}) {
        for (int x = -700; x <= 700; ++x) {
            for (const int state : stateCounts) {
                const int subsets = state == 16 ? 4 : 8;
                const Orb16sc point{static_cast<Orb16s>(x), static_cast<Orb16s>(y)};
                Orb16sc corner;
                std::array<Orb32u, 8> variance{};
                ASSERT_EQ(orbsGetVarPointDV_16sc(&point, &corner, variance.data(), table.data(), state), orbStsNoErr);
                const int cx = (x - 128) >> 8, cy = (y - 128) >> 8; // indices of the corner
                ASSERT_EQ(corner.re, 256 * cx + 128);
                ASSERT_EQ(corner.im, static_cast<Orb16s>(256 * cy + 128)); // of the least number it wraps
                const auto distance = [&](int dx, int dy) {
                    const int u = 256 * (cx + dx) + 128 - x, v = 256 * (cy + dy) + 128 - y;
                    return u * u / 16 + v * v / 16;
                };
                std::array<int, 8> least;
                least.fill(1 << 30);
                for (int dy = -2; dy <= 3; ++dy)
                    for (int dx = -2; dx <= 3; ++dx) {
                        int& of = least[static_cast<std::size_t>(label(cx + dx, cy + dy) % subsets)];
                        of = std::min(of, distance(dx, dy));
                    }
                // Of eight, the two below the corner stand under each other's labels.
                const int below = label(cx, cy - 1), beside = label(cx + 1, cy - 1);
                for (int n = 0; n < subsets; ++n) {
                    const int of = subsets == 4 ? n : n == below ? beside : n == beside ? below : n;
                    const Orb32u entry = variance[static_cast<std::size_t>(n)];
                    ASSERT_EQ(static_cast<int>(entry & 0xffff), least[static_cast<std::size_t>(of)]) << x << ", " << y;
                    const Place at = places[entry >> 16];
                    ASSERT_EQ(label(cx + at.x, cy + at.y) % subsets, of) << x << ", " << y;
                    ASSERT_EQ(distance(at.x, at.y), least[static_cast<std::size_t>(of)]);
                    if (entry >> 16 >= 4 && entry >> 16 < 8) {
                        const Place other = places[(entry >> 16) + 4]; // would have been taken if it were as near
                        ASSERT_GT(distance(other.x, other.y), distance(at.x, at.y));
                    }
                }
            }
        }
    }
}

// The labels of both points, or their entries in the tables, by the number of a subset of four dimensions.
std::vector<std::pair<int, int>> pairs(int states, int subset, int inversion = 0) {
    const int t = (subset ^ inversion) + (states == 32 ? 2 * (subset & 8) : 0), p = t >> 2, q = (t + p) & 3;
    if (states == 16) return {{p, q}, {(p + 2) & 3, (q + 2) & 3}};
    if (states == 64) return {{p, q}, {(p + 4) & 7, q + 4}};
    const int u = (t ^ 8) >> 2, v = ((t ^ 8) + u) & 3;
    return {{u, v}, {(u + 4) & 7, v + 4}, {p, q}, {(p + 4) & 7, q + 4}};
}

TEST(BuildSymblTable, TakesTheFirstOfTheBestPairs) {
    std::mt19937 bits(1);
    for (int run = 0; run < 400; ++run) {
        std::array<Orb32u, 16> variance;
        for (Orb32u& v : variance)
            v = static_cast<Orb32u>(bits()) &
                (run % 2 ? 0x0fff0003 : 0x00ffffff); // many equal ones, and sums that wrap
        for (const int state : stateCounts) {
            const int count = state / 2,
                      inversion = run % 3 == 0 ? 0 : static_cast<int>(bits() % static_cast<unsigned>(count));
            std::array<Orb16u, 64> got{};
            ASSERT_EQ(orbsBuildSymblTableDV4D_16sc(variance.data(), got.data(), state, inversion), orbStsNoErr);
            for (int i = 0; i < count; ++i) {
                std::pair<int, int> best{0x10000, 0};
                for (const auto& [p, q] : pairs(state, i, inversion)) {
                    const Orb32u v1 = variance[static_cast<std::size_t>(p)],
                                 v2 = variance[static_cast<std::size_t>(8 + q)];
                    const int metric = static_cast<int>((v1 + v2) & 0xffff);
                    const int code = static_cast<int>((v1 >> 16 & 0xff) | (v2 >> 16 & 0xff) << 8);
                    if (metric < best.first) best = {metric, code};
                }
                ASSERT_EQ(got[static_cast<std::size_t>(2 * i)], best.second) << state << ", " << i;
                ASSERT_EQ(got[static_cast<std::size_t>(2 * i + 1)], best.first) << state << ", " << i;
            }
        }
    }
}

// Metrics of few values, so that paths meet in ties, and of all, so that sums leave 16 bits. Some branches lead to
// states that do not exist.
TEST(CalcStates, KeepsTheFirstOfTheBestPaths) {
    std::mt19937 bits(2);
    for (int run = 0; run < 300; ++run) {
        const Orb32u reach = run % 3 == 0 ? 0x3 : run % 3 == 1 ? 0x7fff : 0xffff;
        for (const int state : {16, 32, 64, 5}) {
            const std::size_t states = state == 5 ? 64 : static_cast<std::size_t>(state);
            std::vector<Orb16u> path(states), metrics(states), wantMetrics;
            std::vector<Orb8u> next(16 * states);
            std::vector<Orb16s> branch(64);
            std::vector<Orb32u> history(states + 3, 77), wantHistory = history;
            for (Orb16u& v : path) v = static_cast<Orb16u>(bits() & reach);
            for (Orb16u& v : metrics) v = run % 2 ? 0xffff : static_cast<Orb16u>(bits());
            for (Orb8u& v : next) v = static_cast<Orb8u>(bits() % (run % 5 == 0 ? 256 : states));
            for (Orb16s& v : branch) v = static_cast<Orb16s>(bits() & reach);
            wantMetrics = metrics;
            for (std::size_t s = 0; s < states; ++s)
                for (std::size_t k = 0; k < 16; ++k) {
                    const std::size_t to = next[16 * s + k], at = 4 * k + 2 * (s & 1);
                    const Orb32u m = path[s] + Orb32u{static_cast<Orb16u>(branch[at + 1])};
                    if (to >= states || m >= wantMetrics[to]) continue;
                    wantMetrics[to] = static_cast<Orb16u>(m);
                    wantHistory[3 + to] = static_cast<Orb16u>(branch[at]) | static_cast<Orb32u>(s << 16);
                }
            ASSERT_EQ(orbsCalcStatesDV_16sc(path.data(), next.data(), metrics.data(), branch.data(), history.data(),
                                            state, 3),
                      0);
            ASSERT_EQ(metrics, wantMetrics) << state << ", run " << run;
            ASSERT_EQ(history, wantHistory) << state << ", run " << run;
        }
    }
}

TEST(UpdatePathMetrics, NamesTheFirstOfTheLeast) {
    std::mt19937 bits(3);
    for (int run = 0; run < 300; ++run) {
        for (const int state : {16, 32, 64, 5}) {
            const std::size_t states = state == 5 ? 64 : static_cast<std::size_t>(state);
            std::vector<Orb16u> metrics(states), path(states);
            for (Orb16u& v : metrics)
                v = static_cast<Orb16u>(run % 3 == 0 ? 0xfff0 + bits() % 16 : run % 3 == 1 ? bits() % 9 : bits());
            const auto least = std::ranges::min_element(metrics);
            std::vector<Orb16u> want = metrics;
            for (Orb16u& v : want) v = static_cast<Orb16u>(v - *least);
            const auto at = least - metrics.begin();
            const Orb16u value = *least;
            Orb16u minimum = 1;
            Orb8u place = 99;
            ASSERT_EQ(orbsUpdatePathMetricsDV_16u(metrics.data(), &minimum, &place, path.data(), state), orbStsNoErr);
            ASSERT_EQ(minimum, value);
            ASSERT_EQ(place, at);
            ASSERT_EQ(path, want);
            ASSERT_EQ(metrics, std::vector<Orb16u>(states, 0xffff));
        }
    }
}

// ---- Whole decoders ----

// The codes that Ungerboeck lists for four dimensions (Trellis-Coded Modulation with Redundant Signal Sets, Part II,
// 1987; found by Wei): rows of the parity check, in octal. The squares of their distances are 4, 4 and 5 times that of
// neighbours in the lattice.
struct Code {
    int states, inputs; // bits
    std::array<int, 5> checks;
    int squareOfDistance;

    // The bits of a branch, the lowest one told by the state, as the number of a subset.
    static int subset(int z) { return (z & 1) | (z >> 1 & 1) << 2 | (z >> 2 & 1) << 1 | z >> 3 << 3; }
    int next(int state, int z) const {
        int to = state >> 1;
        for (int i = 0; i <= inputs; ++i)
            if (z >> i & 1) to ^= checks[static_cast<std::size_t>(i)] >> 1;
        return to;
    }
    // The bits of branch k, of which there are 16 from each state, some of them several times.
    int bits(int state, int k) const { return (k % (1 << inputs)) << 1 | (state & 1); }
};
constexpr Code codes[] = {
    {16, 2, {021, 002, 014}, 4},
    {32, 3, {041, 002, 014, 030}, 4},
    {64, 4, {0101, 002, 014, 030, 050}, 5},
};

struct Point {
    int x, y; // indices
    bool operator==(const Point&) const = default;
};
using Symbol = std::array<Point, 2>;

Orb16sc received(Point point, double deviation, std::mt19937& bits) {
    std::normal_distribution<double> noise(0, 256 * deviation);
    const auto coordinate = [&](int index) {
        return static_cast<Orb16s>(std::lround(256 * index + 128 + noise(bits)));
    };
    const Orb16s re = coordinate(point.x);
    return {re, coordinate(point.y)};
}

// The share of symbols that a decoder gets wrong.
double errorRate(const Code& code, double deviation, int symbols) {
    std::mt19937 bits(5);
    const auto n = static_cast<std::size_t>(code.states);
    const auto table = labels();
    std::vector<Orb8u> next(16 * n);
    for (int s = 0; s < code.states; ++s)
        for (int k = 0; k < 16; ++k)
            next[static_cast<std::size_t>(16 * s + k)] = static_cast<Orb8u>(code.next(s, code.bits(s, k)));

    std::vector<Symbol> sent;
    std::vector<std::array<Orb16sc, 2>> corners;
    std::vector<Orb32u> history(n * static_cast<std::size_t>(symbols));
    std::vector<Orb16u> path(n, 0x3fff), metrics(n, 0xffff);
    path[0] = 0;
    Orb8u best = 0;
    for (int step = 0, state = 0; step < symbols; ++step) {
        const int z = code.bits(state, static_cast<int>(bits() % 16));
        const auto labelsSent = pairs(code.states, Code::subset(z));
        const auto [p, q] = labelsSent[bits() % labelsSent.size()];
        Symbol& symbol = sent.emplace_back();
        for (const std::size_t side : {0, 1}) {
            Point& point = symbol[side];
            do {
                point = {static_cast<int>(bits() % 16) - 8, static_cast<int>(bits() % 16) - 8};
            } while (label(point.x, point.y) % (code.states == 16 ? 4 : 8) != (side == 0 ? p : q));
        }
        state = code.next(state, z);

        std::array<Orb32u, 16> variance;
        auto& corner = corners.emplace_back();
        for (const std::size_t side : {0, 1}) {
            const Orb16sc point = received(symbol[side], deviation, bits);
            orbsGetVarPointDV_16sc(&point, &corner[side], variance.data() + 8 * side, table.data(), code.states);
        }
        std::array<Orb16u, 64> subsets;
        orbsBuildSymblTableDV4D_16sc(variance.data(), subsets.data(), code.states, 0);
        std::array<Orb16s, 64> branches;
        for (int k = 0; k < 16; ++k)
            for (int odd = 0; odd < 2; ++odd)
                for (int part = 0; part < 2; ++part)
                    branches[static_cast<std::size_t>(4 * k + 2 * odd + part)] = static_cast<Orb16s>(
                        subsets[static_cast<std::size_t>(2 * Code::subset(code.bits(odd, k)) + part)]);
        orbsCalcStatesDV_16sc(path.data(), next.data(), metrics.data(), branches.data(), history.data(), code.states,
                              code.states * step);
        Orb16u least;
        orbsUpdatePathMetricsDV_16u(metrics.data(), &least, &best, path.data(), code.states);
    }

    int wrong = 0;
    Orb32u state = best;
    for (auto step = static_cast<std::size_t>(symbols); step-- > 0;) {
        const Orb32u entry = history[n * step + state];
        Symbol decoded;
        for (const std::size_t side : {0, 1}) {
            const Place place = places[entry >> 8 * side & 0xff];
            decoded[side] = {((corners[step][side].re - 128) >> 8) + place.x,
                             ((corners[step][side].im - 128) >> 8) + place.y};
        }
        wrong += decoded != sent[step];
        state = entry >> 16;
    }
    return static_cast<double>(wrong) / symbols;
}

// Without a code each of the four coordinates goes wrong where the noise exceeds half a step.
double tail(double x) {
    return std::erfc(x / std::sqrt(2.0)) / 2;
}

TEST(Decoder, ErrorRatesFallAsTheCodesDistancesSay) {
    for (const Code& code : codes) {
        EXPECT_EQ(errorRate(code, 0, 3000), 0) << code.states;
        const double low = 0.22, high = 0.26, halfDistance = std::sqrt(code.squareOfDistance) / 2;
        const double atLow = errorRate(code, low, 60000), atHigh = errorRate(code, high, 60000);
        const double uncoded = 1 - std::pow(1 - 2 * tail(0.5 / low), 4);
        EXPECT_LT(atLow, uncoded / 50) << code.states;
        // So much by the nearest paths alone; those further away vanish faster.
        EXPECT_LT(atLow, atHigh * tail(halfDistance / low) / tail(halfDistance / high)) << code.states;
        EXPECT_GT(atHigh, 0.01) << code.states;
    }
}

} // namespace
