// Trellis codes of four dimensions over the lattice of points in the plane, and what theory says of them.
// G. Ungerboeck, Trellis-coded modulation with redundant signal sets, part II, IEEE Communications Magazine, 1987;
// codes found by L.-F. Wei.
#pragma once

#include <array>
#include <span>
#include <utility>
#include <vector>

// The label of the lattice point (x, y): four take turns around each square of points, the next squares have four
// others.
constexpr int labelOf(int x, int y) {
    constexpr int around[2][2] = {{0, 1}, {3, 2}};
    return around[y & 1][x & 1] + 4 * (((x >> 1) + (y >> 1)) & 1);
}

// A branch of the trellis has inputs + 1 bits, the lowest of which its state tells.
struct Code {
    int states, inputs;
    std::array<int, 5> checks; // rows of the parity check, in octal as they are listed

    int bits(int state, int input) const { return (input & ((1 << inputs) - 1)) << 1 | (state & 1); }
    int next(int state, int bits) const {
        int to = state >> 1;
        for (int i = 0; i <= inputs; ++i)
            if (bits >> i & 1) to ^= checks[static_cast<std::size_t>(i)] >> 1;
        return to;
    }
    // The subset of four dimensions that a branch sends from, as the library counts them.
    static int subset(int bits) { return (bits & 1) | (bits >> 1 & 1) << 2 | (bits >> 2 & 1) << 1 | bits >> 3 << 3; }

    int labels() const { return states == 16 ? 4 : 8; }
    // What the labels of its two points may be.
    std::vector<std::pair<int, int>> pairs(int subset) const;
};

inline constexpr std::array<Code, 3> codes{{
    {16, 2, {021, 002, 014}},
    {32, 3, {041, 002, 014, 030}},
    {64, 4, {0101, 002, 014, 030, 050}},
}};

// The share of a normal distribution above x.
double tail(double x);

// The union bound of the paths that stay near: for each squared distance how many symbols they put wrong.
class Theory {
public:
    explicit Theory(const Code& code);
    double errorRate(double deviation) const;

private:
    std::vector<double> wrong_; // by squared distance
};
