// The ways that samples take through a state, for each type of taps.
#include "iir/cascade.h"
#include "iir/recursion.h"

namespace orbs {

template <class Tap>
Tap filterSample(const IirHead<Tap>* state, Tap x) {
    if (state->numBq > 0) return cascadeStep<Tap>(state->pTaps, state->pDlyLine, state->numBq, x);
    const Tap* const taps = state->pTaps;
    return filterStep<Tap>(taps, taps + state->order + 1, state->pDlyLine, state->order, x);
}

template <class Tap>
void filterChunk(const IirHead<Tap>* state, const Tap* x, Tap* y, int count) {
    const int parts = state->numBq > 0 ? state->numBq : state->order;
    if (count <= std::int64_t{4} * parts) {
        for (int n = 0; n < count; ++n) y[n] = filterSample(state, x[n]);
    } else if (state->numBq > 0) {
        runCascade(state, x, y, count);
    } else {
        filterLongChunk(state, x, y, count);
    }
}

template Orb32f filterSample(const IirHead<Orb32f>*, Orb32f);
template Orb32fc filterSample(const IirHead<Orb32fc>*, Orb32fc);
template Orb64f filterSample(const IirHead<Orb64f>*, Orb64f);
template Orb64fc filterSample(const IirHead<Orb64fc>*, Orb64fc);
template void filterChunk(const IirHead<Orb32f>*, const Orb32f*, Orb32f*, int);
template void filterChunk(const IirHead<Orb32fc>*, const Orb32fc*, Orb32fc*, int);
template void filterChunk(const IirHead<Orb64f>*, const Orb64f*, Orb64f*, int);
template void filterChunk(const IirHead<Orb64fc>*, const Orb64fc*, Orb64fc*, int);

} // namespace orbs
