#include "support/complex_shape.h"

namespace {

using namespace complex_shape;

enum class Layout { ccs, pack, perm };

// The N bins that a packed array stands for.
template <class C, class R>
std::vector<C> expansion(const std::vector<R>& packed, std::size_t N, Layout layout) {
    std::vector<C> bins(N);
    for (std::size_t k = 0; k <= N / 2 && k < N; ++k) {
        if (layout == Layout::ccs) {
            bins[k] = {packed[2 * k], packed[2 * k + 1]};
        } else if (k == 0) {
            bins[k] = {packed[0], 0};
        } else if (2 * k == N) {
            bins[k] = {packed[layout == Layout::pack ? N - 1 : 1], 0};
        } else {
            const std::size_t at = layout == Layout::perm && N % 2 == 0 ? 2 * k : 2 * k - 1;
            bins[k] = {packed[at], packed[at + 1]};
        }
    }
    for (std::size_t k = N / 2 + 1; k < N; ++k) bins[k] = conjugate(bins[N - k]);
    return bins;
}

// S is the element of the packed source: the complex one itself in CCS.
template <class S, class C>
void expectExpands(OrbStatus (*expand)(const S*, C*, int), OrbStatus (*expandInPlace)(C*, int), Layout layout) {
    using R = decltype(C::re);
    for (const std::size_t N : lengths()) {
        const std::size_t values = layout == Layout::ccs ? 2 * (N / 2 + 1) : N;
        auto packed = support::randomVector<R>(values, 1);
        // What a negation could get wrong, at the lowest and the highest bins.
        const R special[] = {std::numeric_limits<R>::min(), 0, static_cast<R>(-0.0),
                             std::numeric_limits<R>::quiet_NaN()};
        for (std::size_t n = 0; n < values && n < 8; ++n) packed[n] = packed[values - 1 - n] = special[n % 4];
        const auto want = expansion<C>(packed, N, layout);

        for (const Edge edge : {Edge::end, Edge::begin}) {
            Guarded<S> src(values * sizeof(R) / sizeof(S), edge);
            Guarded<C> dst(N, edge);
            std::memcpy(static_cast<void*>(src.data()), packed.data(), values * sizeof(R));
            ASSERT_EQ(expand(src.data(), dst.data(), static_cast<int>(N)), orbStsNoErr);
            ASSERT_TRUE(sameBits(dst, want)) << callOf(expand);
            EXPECT_TRUE(dst.intact()) << callOf(expand);

            std::memcpy(static_cast<void*>(dst.data()), packed.data(), values * sizeof(R));
            ASSERT_EQ(expandInPlace(dst.data(), static_cast<int>(N)), orbStsNoErr);
            ASSERT_TRUE(sameBits(dst, want)) << callOf(expandInPlace);
            EXPECT_TRUE(dst.intact()) << callOf(expandInPlace);
        }
    }
}

TEST(Conjugate, CcsIsCarriedOverAsItStands) {
    expectExpands(orbsConjCcs_64fc, orbsConjCcs_64fc_I, Layout::ccs);
    expectExpands(orbsConjCcs_32fc, orbsConjCcs_32fc_I, Layout::ccs);
    expectExpands(orbsConjCcs_16sc, orbsConjCcs_16sc_I, Layout::ccs);
}

TEST(Conjugate, PackAndPermMakeTheRealBinsReal) {
    expectExpands(orbsConjPack_64fc, orbsConjPack_64fc_I, Layout::pack);
    expectExpands(orbsConjPack_32fc, orbsConjPack_32fc_I, Layout::pack);
    expectExpands(orbsConjPack_16sc, orbsConjPack_16sc_I, Layout::pack);
    expectExpands(orbsConjPerm_64fc, orbsConjPerm_64fc_I, Layout::perm);
    expectExpands(orbsConjPerm_32fc, orbsConjPerm_32fc_I, Layout::perm);
    expectExpands(orbsConjPerm_16sc, orbsConjPerm_16sc_I, Layout::perm);
}

} // namespace
