// Cosine transforms out of place beside FFTW's, planned with FFTW_MEASURE, on the same vectors.
#include "fftw.h"
#include "orbs.h"

namespace {

constexpr int lengths[] = {8, 16, 32, 64, 100, 1000, 1024, 4096, 65536};

// An object as fftw::Members makes it: cosine transforms know no flag.
template <auto initAlloc, class Spec>
OrbStatus withoutFlag(Spec** ppSpec, int len, int, OrbHintAlgorithm hint) {
    return initAlloc(ppSpec, len, hint);
}

template <class T, class Spec, class MakePlan>
void addTransform(const std::string& family, const fftw::Members<T, T, Spec>& members, MakePlan makePlan,
                  fftw_r2r_kind kind) {
    static T *const x = vectors::room<T>(0, 65536), *const y = vectors::room<T>(1, 65536);
    for (int len : lengths)
        fftw::addLength<T>(family, len, len, members, x, y,
                           [=](int points, T* from, T* to) { return makePlan(points, from, to, kind, FFTW_MEASURE); });
}

[[maybe_unused]] const bool registered = [] {
    addTransform<Orb32f, OrbsDCTFwdSpec_32f>(
        "DCTFwd_32f",
        {withoutFlag<orbsDCTFwdInitAlloc_32f>, orbsDCTFwdGetBufSize_32f, orbsDCTFwd_32f, orbsDCTFwdFree_32f},
        fftwf_plan_r2r_1d, FFTW_REDFT10);
    addTransform<Orb32f, OrbsDCTInvSpec_32f>(
        "DCTInv_32f",
        {withoutFlag<orbsDCTInvInitAlloc_32f>, orbsDCTInvGetBufSize_32f, orbsDCTInv_32f, orbsDCTInvFree_32f},
        fftwf_plan_r2r_1d, FFTW_REDFT01);
    addTransform<Orb64f, OrbsDCTFwdSpec_64f>(
        "DCTFwd_64f",
        {withoutFlag<orbsDCTFwdInitAlloc_64f>, orbsDCTFwdGetBufSize_64f, orbsDCTFwd_64f, orbsDCTFwdFree_64f},
        fftw_plan_r2r_1d, FFTW_REDFT10);
    addTransform<Orb64f, OrbsDCTInvSpec_64f>(
        "DCTInv_64f",
        {withoutFlag<orbsDCTInvInitAlloc_64f>, orbsDCTInvGetBufSize_64f, orbsDCTInv_64f, orbsDCTInvFree_64f},
        fftw_plan_r2r_1d, FFTW_REDFT01);
    return true;
}();

} // namespace
