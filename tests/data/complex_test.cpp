#include "support/complex_shape.h"

#include <algorithm>

namespace {

using namespace complex_shape;

template <class C, class R>
void expectParts(OrbStatus (*real)(const C*, R*, int), OrbStatus (*imaginary)(const C*, R*, int),
                 OrbStatus (*both)(const C*, R*, R*, int)) {
    SCOPED_TRACE(callOf(both));
    for (const std::size_t len : lengths()) {
        const auto src = elements<C>(len);
        std::vector<R> re(len), im(len);
        for (std::size_t n = 0; n < len; ++n) re[n] = src[n].re, im[n] = src[n].im;
        expectResult(real, src, re);
        expectResult(imaginary, src, im);
        Guarded<R> other(len);
        const auto toRe = [&](const C* pSrc, R* pDst, int count) { return both(pSrc, pDst, other.data(), count); };
        const auto toIm = [&](const C* pSrc, R* pDst, int count) { return both(pSrc, other.data(), pDst, count); };
        expectResult(toRe, src, re);
        ASSERT_TRUE(sameBits(other, im, src));
        expectResult(toIm, src, im);
        ASSERT_TRUE(sameBits(other, re, src));
        EXPECT_TRUE(other.intact());
    }
}

template <class C, class R>
void expectJoins(OrbStatus (*join)(const R*, const R*, C*, int)) {
    SCOPED_TRACE(callOf(join));
    for (const std::size_t len : lengths()) {
        const auto re = elements<R>(len, 1), im = elements<R>(len, 2);
        std::vector<C> both(len), onlyRe(len), onlyIm(len);
        for (std::size_t n = 0; n < len; ++n) both[n] = {re[n], im[n]}, onlyRe[n] = {re[n], 0}, onlyIm[n] = {0, im[n]};
        const R* none = nullptr;
        const auto withIm = [&](const R* p, C* pDst, int count) { return join(p, im.data(), pDst, count); };
        const auto withRe = [&](const R* p, C* pDst, int count) { return join(re.data(), p, pDst, count); };
        const auto alone = [&](const R* p, C* pDst, int count) { return join(p, none, pDst, count); };
        const auto behind = [&](const R* p, C* pDst, int count) { return join(none, p, pDst, count); };
        expectResult(withIm, re, both);
        expectResult(withRe, im, both);
        expectResult(alone, re, onlyRe);
        expectResult(behind, im, onlyIm);
    }
    // One source may be null, so pDst and the length are tested before the two of them.
    C dst{};
    const R one = 1;
    EXPECT_EQ(join(nullptr, nullptr, static_cast<C*>(nullptr), 0), orbStsNullPtrErr);
    EXPECT_EQ(join(&one, &one, static_cast<C*>(nullptr), 0), orbStsNullPtrErr);
    EXPECT_EQ(join(nullptr, nullptr, &dst, 0), orbStsSizeErr);
    EXPECT_EQ(join(nullptr, nullptr, &dst, 1), orbStsNullPtrErr);
}

TEST(CplxToReal, TakesThePartsOfEveryElement) {
    expectParts(orbsReal_16sc, orbsImag_16sc, orbsCplxToReal_16sc);
    expectParts(orbsReal_32fc, orbsImag_32fc, orbsCplxToReal_32fc);
    expectParts(orbsReal_64fc, orbsImag_64fc, orbsCplxToReal_64fc);
}

TEST(RealToCplx, InterleavesAndTakesNullForZeros) {
    expectJoins(orbsRealToCplx_16s);
    expectJoins(orbsRealToCplx_32f);
    expectJoins(orbsRealToCplx_64f);
}

} // namespace
