#include "decoder.h"

#include <algorithm>
#include <orbs.hpp>

namespace {

constexpr int behind = 64; // symbols that follow a burst, so that its last ones are settled
constexpr int sentLength = burstLength + behind;
constexpr int reach = 8; // the points that are sent lie within so many steps of the origin

struct Point {
    int x, y; // counts steps: the coordinates are 256 x + 128 and 256 y + 128
    bool operator==(const Point&) const = default;
};
using Symbol = std::array<Point, 2>;

// The lattice points that a code word names, beside the one below the point that was received.
constexpr Point places[] = {{0, 0}, {1, 0},  {1, 1}, {0, 1},  {0, 2},  {1, 2},
                            {2, 1}, {1, -1}, {2, 0}, {-1, 0}, {0, -1}, {-1, 1}};

// The encoder: random bits choose the branch and one of the points of its subset.
std::vector<Symbol> encode(const Code& code, Orb32u seed) {
    std::array<std::vector<Point>, 8> labelled;
    for (int y = -reach; y < reach; ++y)
        for (int x = -reach; x < reach; ++x)
            labelled[static_cast<std::size_t>(labelOf(x, y) % code.labels())].push_back({x, y});

    std::vector<Orb32f> random(4 * sentLength); // four choices a symbol
    orbs::RandUniform_Direct(random, 0, 1, seed);
    auto choice = random.begin();
    const auto choose = [&](std::size_t count) {
        return std::min(static_cast<std::size_t>(*choice++ * static_cast<float>(count)), count - 1);
    };
    std::vector<Symbol> sent;
    for (int n = 0, state = 0; n < sentLength; ++n) {
        const int bits = code.bits(state, static_cast<int>(choose(std::size_t{1} << code.inputs)));
        const auto pairs = code.pairs(Code::subset(bits));
        const auto [first, second] = pairs[choose(pairs.size())];
        Symbol symbol;
        for (const auto& [point, label] : {std::pair{&symbol[0], first}, {&symbol[1], second}}) {
            const std::vector<Point>& points = labelled[static_cast<std::size_t>(label)];
            *point = points[choose(points.size())];
        }
        sent.push_back(symbol);
        state = code.next(state, bits);
    }
    return sent;
}

// The channel: Gaussian noise on every coordinate, as the decoder takes it, with 8 fraction bits.
std::vector<Orb16sc> receive(const std::vector<Symbol>& sent, double deviation, Orb32u seed) {
    std::vector<Orb32f> coordinates;
    for (const Symbol& symbol : sent)
        for (const Point& point : symbol)
            for (const int index : {point.x, point.y}) coordinates.push_back(static_cast<Orb32f>(256 * index + 128));
    std::vector<Orb32f> noise(coordinates.size());
    orbs::RandGauss_Direct(noise, 0, static_cast<Orb32f>(256 * deviation), seed);
    orbs::Add(noise, coordinates);
    std::vector<Orb16sc> points(2 * sent.size());
    orbs::Convert(coordinates, std::span(&points[0].re, coordinates.size()), orbRndNear, 0);
    return points;
}

class Decoder {
public:
    explicit Decoder(const Code& code)
        : code_(code), states_(static_cast<std::size_t>(code.states)), next_(16 * states_),
          history_(sentLength * states_), path_(states_, 0x3fff), metrics_(states_, 0xffff) {
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 4; ++x)
                labels_[static_cast<std::size_t>(4 * y + x)] = static_cast<Orb8u>(labelOf(x - 2, y - 2));
        for (int state = 0; state < code.states; ++state)
            for (int k = 0; k < 16; ++k)
                next_[static_cast<std::size_t>(16 * state + k)] =
                    static_cast<Orb8u>(code.next(state, code.bits(state, k)));
        path_[0] = 0; // where the encoder begins
    }

    // The two points of the next symbol.
    void take(const Orb16sc* received) {
        std::array<Orb32u, 16> variance;
        auto& corners = corners_.emplace_back();
        for (std::size_t side = 0; side < 2; ++side)
            orbs::GetVarPointDV(&received[side], &corners[side], &variance[8 * side], labels_.data(), code_.states);
        std::array<Orb16u, 64> subsets;
        orbs::BuildSymblTableDV4D(variance.data(), subsets.data(), code_.states, 0);
        std::array<Orb16s, 64> branches; // of even states and of odd ones
        for (int k = 0; k < 16; ++k) {
            for (int odd = 0; odd < 2; ++odd) {
                const auto from = static_cast<std::size_t>(2 * Code::subset(code_.bits(odd, k)));
                const auto to = static_cast<std::size_t>(4 * k + 2 * odd);
                branches[to] = static_cast<Orb16s>(subsets[from]);
                branches[to + 1] = static_cast<Orb16s>(subsets[from + 1]);
            }
        }
        const auto place = static_cast<int>((corners_.size() - 1) * states_);
        orbs::CalcStatesDV(path_.data(), next_.data(), metrics_.data(), branches.data(), history_.data(), code_.states,
                           place);
        Orb16u least = 0;
        orbs::UpdatePathMetricsDV(metrics_.data(), &least, &best_, path_.data(), code_.states);
    }

    // All that was taken, traced back from the best state.
    std::vector<Symbol> decoded() const {
        std::vector<Symbol> symbols(corners_.size());
        std::size_t state = best_;
        for (std::size_t n = symbols.size(); n-- > 0;) {
            const Orb32u entry = history_[n * states_ + state];
            for (std::size_t side = 0; side < 2; ++side) {
                const Point beside = places[entry >> 8 * side & 0xff];
                symbols[n][side] = {((corners_[n][side].re - 128) >> 8) + beside.x,
                                    ((corners_[n][side].im - 128) >> 8) + beside.y};
            }
            state = entry >> 16;
        }
        return symbols;
    }

private:
    const Code& code_;
    std::size_t states_;
    std::array<Orb8u, 16> labels_;
    std::vector<Orb8u> next_;
    std::vector<Orb32u> history_;
    std::vector<Orb16u> path_, metrics_;
    std::vector<std::array<Orb16sc, 2>> corners_;
    Orb8u best_ = 0;
};

} // namespace

int errorsInBurst(const Code& code, double deviation, unsigned seed) {
    const std::vector<Symbol> sent = encode(code, 2 * seed);
    const std::vector<Orb16sc> received = receive(sent, deviation, 2 * seed + 1);
    Decoder decoder(code);
    for (std::size_t n = 0; n < sent.size(); ++n) decoder.take(&received[2 * n]);
    const std::vector<Symbol> decoded = decoder.decoded();
    int wrong = 0;
    for (std::size_t n = 0; n < burstLength; ++n) wrong += decoded[n] != sent[n];
    return wrong;
}
