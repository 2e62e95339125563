// Analytic signals: the upper half of a real vector's spectrum taken away, the lower half doubled.
#include "orbs/hilbert.h"

#include "dft/spec.h"
#include "orbs/arith.h"
#include "orbs/convert.h"
#include "orbs/dft.h"
#include "vectors/nearest.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace orbs {

struct HilbertSpec {
    Orb32s tag;
    Orb32s length;
    Orb32s workSize; // of the transform that needs more
    Orb32s hint;
    RelativePtr<OrbsDFTSpec_C_32fc> dftComplex; // divides by the length on the way back
    RelativePtr<OrbsDFTSpec_R_32f> dftReal;

    std::size_t points() const { return static_cast<std::size_t>(length); }
    bool transforms() const { return length > 2; }
};

} // namespace orbs

struct OrbsHilbertSpec_32f32fc : orbs::HilbertSpec {
    static constexpr Orb32s ownTag = orbs::tagWord("CMAE");
};
struct OrbsHilbertSpec_16s32fc : orbs::HilbertSpec {
    static constexpr Orb32s ownTag = orbs::tagWord("CMAF");
};
struct OrbsHilbertSpec_16s16sc : orbs::HilbertSpec {
    static constexpr Orb32s ownTag = orbs::tagWord("CMAG");
};

namespace {

using namespace orbs;

// ---- Objects ----

// A transform of its own. As it holds no address it may move into a block of more.
template <class Inner, auto initAlloc, auto getBufSize, auto release, dft::Kind kind>
class Transform {
public:
    Transform(int length, OrbHintAlgorithm hint)
        : status_(initAlloc(&spec_, length, ORB_FFT_SCALE_INV, hint)), length_(static_cast<std::uint64_t>(length)) {}
    ~Transform() {
        if (spec_) release(spec_);
    }
    Transform(const Transform&) = delete;
    Transform& operator=(const Transform&) = delete;

    OrbStatus status() const { return status_; }
    int workSize() const {
        int size = 0;
        getBufSize(spec_, &size);
        return size;
    }
    // Over a null base only measures.
    Inner* copyTo(Layout& block) const {
        Layout own(nullptr);
        dft::layOut<Orb32f>(own, dft::choose<Orb32f>(length_, kind));
        Orb8u* const copy = block.take<Orb8u>(own.used(), 32);
        if (copy) std::memcpy(copy, spec_, own.used());
        return reinterpret_cast<Inner*>(copy);
    }

private:
    Inner* spec_ = nullptr;
    OrbStatus status_;
    std::uint64_t length_;
};
using ComplexTransform = Transform<OrbsDFTSpec_C_32fc, orbsDFTInitAlloc_C_32fc, orbsDFTGetBufSize_C_32fc,
                                   orbsDFTFree_C_32fc, dft::Kind::interleaved>;
using RealTransform =
    Transform<OrbsDFTSpec_R_32f, orbsDFTInitAlloc_R_32f, orbsDFTGetBufSize_R_32f, orbsDFTFree_R_32f, dft::Kind::real>;

template <class Spec>
OrbStatus initAlloc(Spec** ppSpec, int length, OrbHintAlgorithm hint) {
    if (anyNull(ppSpec)) return orbStsNullPtrErr;
    if (length < 1) return orbStsSizeErr;
    const ComplexTransform complex(length, hint);
    if (complex.status() != orbStsNoErr) return complex.status();
    const RealTransform real(length, hint);
    if (real.status() != orbStsNoErr) return real.status();

    Layout measure(nullptr);
    measure.take<Spec>(1, 32);
    complex.copyTo(measure);
    real.copyTo(measure);
    if (measure.used() > std::numeric_limits<int>::max()) return orbStsMemAllocErr;
    Orb8u* const memory = orbsMalloc_8u(static_cast<int>(measure.used()));
    if (!memory) return orbStsMemAllocErr;
    Layout block(memory);
    Spec* const spec = new (block.take<Spec>(1, 32)) Spec{};
    spec->tag = Spec::ownTag;
    spec->length = length;
    spec->workSize = std::max(complex.workSize(), real.workSize());
    spec->hint = hint;
    spec->dftComplex = complex.copyTo(block);
    spec->dftReal = real.copyTo(block);
    *ppSpec = spec;
    return orbStsNoErr;
}

// ---- The transform ----

// A call's memory: the work area of the transforms, and behind it room for floats.
class Work {
public:
    Work(const HilbertSpec& spec, std::size_t floats) {
        const std::uint64_t front = roundUp(static_cast<std::uint64_t>(spec.workSize), 32);
        const std::uint64_t size = front + floats * sizeof(Orb32f);
        needed_ = size > 0;
        if (size > std::numeric_limits<int>::max()) return;
        block_ = orbsMalloc_8u(static_cast<int>(size));
        if (block_) floats_ = reinterpret_cast<Orb32f*>(block_ + front);
    }
    ~Work() { orbsFree(block_); }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

    bool failed() const { return needed_ && !block_; }
    Orb8u* buffer() const { return block_; }
    Orb32f* floats() const { return floats_; }

private:
    bool needed_ = false;
    Orb8u* block_ = nullptr;
    Orb32f* floats_ = nullptr;
};

// Bins at 0 and at half the rate stay, those between them count twice, the others are gone.
OrbStatus makeAnalytic(const HilbertSpec& spec, const Orb32f* x, Orb32fc* y, Orb8u* buffer) {
    if (const OrbStatus status = orbsDFTFwd_RToCCS_32f(x, asReal(y), spec.dftReal, buffer)) return status;
    const std::size_t middle = spec.points() / 2, between = (spec.points() - 1) / 2;
    orbsAdd_32fc_I(y + 1, y + 1, static_cast<int>(between));
    std::memset(static_cast<void*>(y + middle + 1), 0, between * sizeof *y);
    const OrbStatus status = orbsDFTInv_CToC_32fc(y, y, spec.dftComplex, buffer);
    return status;
}

template <class T>
void withoutTransform(const HilbertSpec& spec, const T* x, Orb32fc* y) {
    for (std::size_t n = 0; n < spec.points(); ++n) y[n] = {static_cast<Orb32f>(x[n]), 0};
}

// x * 2^-scaleFactor, of which nothing is left beyond 2^40 either way but its sign.
void withoutTransform(const HilbertSpec& spec, const Orb16s* x, Orb16sc* y, int scaleFactor) {
    const hn::CappedTag<Orb32f, 1> d;
    const SseRounding rounding(SseRounding::nearest);
    const auto m = hn::Set(d, powerOfTwo<Orb32f>(-std::clamp(scaleFactor, -40, 40)));
    for (std::size_t n = 0; n < spec.points(); ++n) {
        storeNearest(d, hn::Mul(loadFloats(d, x + n), m), &y[n].re);
        y[n].im = 0;
    }
}

// ---- Members ----

template <class Spec, class S, class R>
OrbStatus checkCall(const S* pSrc, const R* pDst, const Spec* pSpec) {
    if (anyNull(pSrc, pDst, pSpec)) return orbStsNullPtrErr;
    return checkTag(pSpec, Spec::ownTag);
}

OrbStatus hilbert(const Orb32f* pSrc, Orb32fc* pDst, const OrbsHilbertSpec_32f32fc* pSpec) {
    if (const OrbStatus status = checkCall(pSrc, pDst, pSpec)) return status;
    if (!pSpec->transforms()) {
        withoutTransform(*pSpec, pSrc, pDst);
        return orbStsNoErr;
    }
    const Work work(*pSpec, 0);
    return work.failed() ? orbStsMemAllocErr : makeAnalytic(*pSpec, pSrc, pDst, work.buffer());
}

OrbStatus hilbert(const Orb16s* pSrc, Orb32fc* pDst, const OrbsHilbertSpec_16s32fc* pSpec) {
    if (const OrbStatus status = checkCall(pSrc, pDst, pSpec)) return status;
    if (!pSpec->transforms()) {
        withoutTransform(*pSpec, pSrc, pDst);
        return orbStsNoErr;
    }
    const Work work(*pSpec, pSpec->points());
    if (work.failed()) return orbStsMemAllocErr;
    orbsConvert_16s32f(pSrc, work.floats(), pSpec->length);
    return makeAnalytic(*pSpec, work.floats(), pDst, work.buffer());
}

OrbStatus hilbert(const Orb16s* pSrc, Orb16sc* pDst, const OrbsHilbertSpec_16s16sc* pSpec, int scaleFactor) {
    if (const OrbStatus status = checkCall(pSrc, pDst, pSpec)) return status;
    if (!pSpec->transforms()) {
        withoutTransform(*pSpec, pSrc, pDst, scaleFactor);
        return orbStsNoErr;
    }
    const Work work(*pSpec, 3 * pSpec->points());
    if (work.failed()) return orbStsMemAllocErr;
    Orb32f* const samples = work.floats() + 2 * pSpec->points();
    auto* const points = reinterpret_cast<Orb32fc*>(work.floats());
    orbsConvert_16s32f(pSrc, samples, pSpec->length);
    if (const OrbStatus status = makeAnalytic(*pSpec, samples, points, work.buffer())) return status;
    return orbsConvert_32f16s_Sfs(asReal(points), asReal(pDst), 2 * pSpec->length, orbRndNear, scaleFactor);
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsHilbertInitAlloc_32f32fc(OrbsHilbertSpec_32f32fc** ppSpec, int length, OrbHintAlgorithm hint) { return initAlloc(ppSpec, length, hint); }
OrbStatus orbsHilbertInitAlloc_16s32fc(OrbsHilbertSpec_16s32fc** ppSpec, int length, OrbHintAlgorithm hint) { return initAlloc(ppSpec, length, hint); }
OrbStatus orbsHilbertInitAlloc_16s16sc(OrbsHilbertSpec_16s16sc** ppSpec, int length, OrbHintAlgorithm hint) { return initAlloc(ppSpec, length, hint); }
OrbStatus orbsHilbertFree_32f32fc(OrbsHilbertSpec_32f32fc* pSpec) { return dft::release(pSpec, OrbsHilbertSpec_32f32fc::ownTag); }
OrbStatus orbsHilbertFree_16s32fc(OrbsHilbertSpec_16s32fc* pSpec) { return dft::release(pSpec, OrbsHilbertSpec_16s32fc::ownTag); }
OrbStatus orbsHilbertFree_16s16sc(OrbsHilbertSpec_16s16sc* pSpec) { return dft::release(pSpec, OrbsHilbertSpec_16s16sc::ownTag); }
OrbStatus orbsHilbert_32f32fc(const Orb32f* pSrc, Orb32fc* pDst, const OrbsHilbertSpec_32f32fc* pSpec) { return hilbert(pSrc, pDst, pSpec); }
OrbStatus orbsHilbert_16s32fc(const Orb16s* pSrc, Orb32fc* pDst, const OrbsHilbertSpec_16s32fc* pSpec) { return hilbert(pSrc, pDst, pSpec); }
OrbStatus orbsHilbert_16s16sc_Sfs(const Orb16s* pSrc, Orb16sc* pDst, const OrbsHilbertSpec_16s16sc* pSpec, int scaleFactor) { return hilbert(pSrc, pDst, pSpec, scaleFactor); }

}
// clang-format on
