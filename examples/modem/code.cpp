#include "code.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int mostDistance = 9; // squared, in steps of the lattice; what lies further away hardly counts

// How many paths there are of each squared distance, and how many wrong symbols are on all of them.
struct Spectrum {
    std::array<double, mostDistance + 1> paths{}, wrong{};

    bool empty() const {
        return std::ranges::all_of(paths, [](double count) { return count == 0; });
    }
    // One more symbol, which is wrong: `step` tells its distances.
    void extend(const Spectrum& path, const std::array<double, mostDistance + 1>& step) {
        for (std::size_t far = 0; far <= mostDistance; ++far)
            for (std::size_t more = 0; far + more <= mostDistance; ++more) {
                paths[far + more] += path.paths[far] * step[more];
                wrong[far + more] += (path.wrong[far] + (far + more > 0 ? path.paths[far] : 0)) * step[more];
            }
    }
};

using Distances = std::array<double, mostDistance + 1>;

// How many points of four dimensions lie at each squared distance from one of the first subset in the second: the mean
// over where in its subset the point lies.
Distances distances(const Code& code, int from, int to) {
    const int labels = code.labels();
    // In the plane, from a point labelled p to those labelled q.
    const auto plane = [&](int p, int q) {
        Distances found{};
        int x = 0, y = 0;
        while (labelOf(x, y) % labels != p)
            if (++x == 4) x = 0, ++y;
        for (int dy = -4; dy <= 4; ++dy)
            for (int dx = -4; dx <= 4; ++dx)
                if (dx * dx + dy * dy <= mostDistance && labelOf(x + dx, y + dy) % labels == q)
                    ++found[static_cast<std::size_t>(dx * dx + dy * dy)];
        return found;
    };
    Distances all{};
    const auto starts = code.pairs(from), ends = code.pairs(to);
    for (const auto& [p1, p2] : starts)
        for (const auto& [q1, q2] : ends) {
            const Distances first = plane(p1, q1), second = plane(p2, q2);
            for (std::size_t a = 0; a <= mostDistance; ++a)
                for (std::size_t b = 0; a + b <= mostDistance; ++b)
                    all[a + b] += first[a] * second[b] / static_cast<double>(starts.size());
        }
    return all;
}

} // namespace

std::vector<std::pair<int, int>> Code::pairs(int subset) const {
    const int t = states == 32 ? subset + 2 * (subset & 8) : subset, p = t >> 2, q = (t + p) & 3;
    if (states == 16) return {{p, q}, {(p + 2) & 3, (q + 2) & 3}};
    std::vector<std::pair<int, int>> all{{p, q}, {(p + 4) & 7, q + 4}};
    if (states == 32) {
        const int other = (t ^ 8) >> 2, last = ((t ^ 8) + other) & 3;
        all.insert(all.end(), {{other, last}, {(other + 4) & 7, last + 4}});
    }
    return all;
}

double tail(double x) {
    return std::erfc(x / std::sqrt(2.0)) / 2;
}

// Codes are linear: errors are paths of the same trellis away from state 0 and back. What a branch of errors adds is
// the mean over the branches that may have been sent.
Theory::Theory(const Code& code) : wrong_(mostDistance + 1) {
    const int branches = 1 << (code.inputs + 1);
    std::vector<Distances> step(static_cast<std::size_t>(branches));
    for (int error = 0; error < branches; ++error) {
        for (int sent = 0; sent < branches; ++sent) {
            const Distances some = distances(code, Code::subset(sent), Code::subset(sent ^ error));
            for (std::size_t d = 0; d <= mostDistance; ++d)
                step[static_cast<std::size_t>(error)][d] += some[d] / branches;
        }
    }
    step[0][0] = 0; // the symbol that was sent: no error where two paths are one

    const auto n = static_cast<std::size_t>(code.states);
    std::vector<Spectrum> at(n);
    at[0].paths[0] = 1;
    for (bool first = true, moving = true; moving; first = false) {
        std::vector<Spectrum> then(n);
        moving = false;
        for (int state = 0; state < code.states; ++state) {
            if (at[static_cast<std::size_t>(state)].empty()) continue;
            for (int input = 0; input < 1 << code.inputs; ++input) {
                const int error = code.bits(state, input);
                Distances more = step[static_cast<std::size_t>(error)];
                if (error == 0 && !first) more[0] = 1; // the same subset: its point may be right
                then[static_cast<std::size_t>(code.next(state, error))].extend(at[static_cast<std::size_t>(state)],
                                                                               more);
            }
        }
        for (std::size_t d = 0; d <= mostDistance; ++d) wrong_[d] += then[0].wrong[d];
        then[0] = {};
        for (const Spectrum& spectrum : then) moving = moving || !spectrum.empty();
        at = std::move(then);
    }
}

double Theory::errorRate(double deviation) const {
    double rate = 0;
    for (std::size_t d = 1; d <= mostDistance; ++d)
        rate += wrong_[d] * tail(std::sqrt(static_cast<double>(d)) / (2 * deviation));
    return std::min(rate, 1.0);
}
