// The object of a transform of any length: its plan, its sizes, its layout and its tables; real and complex.
#pragma once

#include "dft/base.h"
#include "dft/chirp.h"
#include "dft/radices.h"
#include "dft/twiddles.h"
#include "fft/members.h"
#include "fft/spec.h"
#include "foundation/frame.h"
#include "foundation/objects.h"
#include "orbs/foundation.h"

#include <bit>
#include <cmath>
#include <limits>

namespace orbs::dft {

// Which objects: interleaved and planes differ in the kind of a power of two only.
enum class Kind : Orb32s { interleaved, planes, outOfOrder, real };

enum class Plan : Orb32s { small, powerOfTwo, mixedRadix, direct, chirp };

constexpr int smallPoints = 4;
constexpr std::uint64_t directLimit = 150;     // longest complex direct sum
constexpr std::uint64_t realDirectLimit = 180; // longest direct sum of an odd number of real samples
template <class T>
constexpr std::uint64_t outOfOrderLimit = sizeof(T) == sizeof(Orb32f) ? 2000 : 5000;
// Longer leaves than this do not stay in the first cache with what stands around them.
constexpr std::size_t longestLeaf = 160;

// What is chosen for a length, before anything is laid out.
struct Choice {
    Kind kind;
    Plan plan;
    std::uint64_t length;
    std::uint64_t points; // of the complex transform inside: half the length where an even number of samples is real
    Radices radices = {};
    int outerStages = 0; // mixed radix: stages behind the leaves
    bool staysOutOfOrder = false;

    constexpr bool isReal() const { return kind == Kind::real; }
    constexpr bool recombines() const { return points != length; }
    constexpr bool isOddReal() const { return isReal() && !recombines(); } // apart from lengths up to 4
};

// How many of the outermost stages run over columns. The others, with the innermost transforms, are a leaf: a short
// transform, of which as many run side by side as there are lanes. Both want to fill vectors of 32 bytes. The split is
// the same in every tier: the first column of a leaf's stage has no twiddles, and infinities would show that.
template <class T>
constexpr int chooseOuterStages(const Radices& radices, std::uint64_t n) {
    constexpr auto cost = [](std::uint64_t count) { // of a stage, 1024 where all lanes are full
        std::uint64_t lanes = columnGroup<T>, vector = 1;
        for (; lanes > count && lanes > 2; lanes /= 2) vector *= 2;
        return (count + lanes - 1) / lanes * lanes * vector * 1024 / count;
    };
    int best = radices.stages;
    std::uint64_t least = ~std::uint64_t{0}, outer = 0, columns = n, transforms = 1;
    for (int stages = 1; stages <= radices.stages; ++stages) {
        const auto radix = static_cast<std::uint64_t>(radices.radix[stages - 1]);
        columns /= radix;
        transforms *= radix;
        outer += cost(columns);
        // One layer more transposes. Leaves of several stages go through memory, which makes their layers longer.
        const std::uint64_t layers = static_cast<std::uint64_t>(radices.stages - stages) + 2;
        const std::uint64_t all = outer + (stages < radices.stages ? 5 * layers : 4 * layers) * cost(transforms) / 4;
        if ((columns <= longestLeaf || stages == radices.stages) && all < least) {
            least = all;
            best = stages;
        }
    }
    return best;
}

// Those of an odd number of real samples: all but those whose blocks are too short for lanes to run over half of their
// points.
constexpr int chooseOuterRealStages(const Radices& radices, std::uint64_t n) {
    std::uint64_t rest = n;
    int stages = 0;
    do rest /= static_cast<std::uint64_t>(radices.radix[stages++]);
    while (stages < radices.stages && rest / static_cast<std::uint64_t>(radices.radix[stages]) >= 17);
    return stages;
}

template <class T>
constexpr Choice choose(std::uint64_t length, Kind kind) {
    Choice choice{kind, Plan::small, length, length};
    if (length <= smallPoints) return choice;
    if (std::has_single_bit(length)) {
        choice.plan = Plan::powerOfTwo;
        return choice;
    }
    if (kind == Kind::real && length % 2 == 0) choice.points = length / 2;
    choice.radices = factor(choice.points);
    if (choice.radices.stages > 0) {
        choice.plan = Plan::mixedRadix;
        choice.staysOutOfOrder = kind == Kind::outOfOrder && length > outOfOrderLimit<T>;
        if (!choice.staysOutOfOrder) exchangeFinal(choice.radices);
        choice.outerStages = choice.isOddReal() ? chooseOuterRealStages(choice.radices, choice.points)
                                                : chooseOuterStages<T>(choice.radices, choice.points);
    } else {
        choice.plan = choice.points > (choice.isOddReal() ? realDirectLimit : directLimit) ? Plan::chirp : Plan::direct;
    }
    return choice;
}

// ---- Object ----

template <class T>
struct Stage {
    Orb32s radix;
    Orb32s rest;   // product of the radices behind this one
    Orb32s stride; // product of the radices before it
    RelativePtr<T> twiddles;
    RelativePtr<T> matrix; // radices above 5
};

template <class T>
struct Spec {
    Orb32s tag;
    Orb32s length;
    Orb32s points; // of the complex transform inside
    Orb32s scaleFwd;
    Orb32s scaleInv;
    T scale;
    Orb32s hint;
    Orb32s workSize;
    Kind kind;
    Plan plan;
    Orb32s staysOutOfOrder;
    Orb32s lastStage;                    // their number less 1; the record behind it is that of the final radix
    Orb32s outerStages;                  // of them, those that run over columns
    RelativePtr<T> matrix;               // direct plan
    RelativePtr<T> forwardRecombination; // real, even length
    RelativePtr<T> inverseRecombination; // real, even length
    RelativePtr<Orb32s> leafPlaces;      // mixed radix: where the leaf that starts at sample j stands
    RelativePtr<Orb32s> innermostPlaces; // and the first samples of its innermost transforms, in order of places
    RelativePtr<Orb8u> fft;              // power of two
    Chirp<T> chirp;
    Stage<T> stages[maxStages + 1];

    int stageCount() const { return lastStage + 1; }
    const Stage<T>& finalStage() const { return stages[stageCount()]; }
    std::size_t leafPoints() const { return static_cast<std::size_t>(stages[outerStages - 1].rest); }
    std::size_t leafCount() const { return static_cast<std::size_t>(points) / leafPoints(); }
};

// ---- Inner power-of-two objects by kind ----

// Calls run(Members) with the members of the power-of-two transforms for objects of this kind.
template <class T, class Run>
auto withInnerMembers(Kind kind, Run run) {
    using Specs = fft::Specs<T>;
    if (kind == Kind::real) return run(fft::Members<typename Specs::Real>());
    if (kind == Kind::planes) return run(fft::Members<typename Specs::Planes>());
    return run(fft::Members<typename Specs::Interleaved>());
}

template <class T>
constexpr fft::Sizes innerSizes(const Choice& choice) {
    return fft::sizesOf<T>(std::countr_zero(choice.length), choice.isReal());
}

// ---- Sizes ----

template <class T>
constexpr std::uint64_t workSizeOf(const Choice& choice) {
    constexpr std::uint64_t element = 2 * sizeof(T);
    switch (choice.plan) {
    case Plan::small:
        return 0;
    case Plan::powerOfTwo:
        return innerSizes<T>(choice).work ? innerSizes<T>(choice).work + 32 : 0;
    case Plan::mixedRadix: {
        const std::uint64_t values = choice.staysOutOfOrder ? 0 : choice.points;
        return element * (values + generalScratch(choice.radices, choice.points)) + 64;
    }
    case Plan::direct:
        return (choice.isOddReal() ? sizeof(T) : element) * choice.points + 32;
    case Plan::chirp:
        return chirp::workSize<T>(choice.points) + 32;
    }
    return 0;
}

// Memory that InitAlloc needs while it runs.
template <class T>
constexpr std::uint64_t scratchSizeOf(const Choice& choice) {
    if (choice.plan == Plan::small) return 0;
    if (choice.plan == Plan::powerOfTwo) return innerSizes<T>(choice).init;
    const bool readsRoots = choice.plan != Plan::chirp || choice.recombines();
    const std::uint64_t roots = readsRoots ? 2 * sizeof(T) * choice.length : 0;
    return choice.plan == Plan::chirp ? std::max(roots, chirp::scratchSize<T>(choice.points)) : roots;
}

// Lays the object out from `base`, which is aligned to 32 bytes, or measures it where base is null.
template <class T>
Spec<T>* layOut(Layout& layout, const Choice& choice) {
    Spec<T>* spec = layout.take<Spec<T>>(1, 32);
    const auto place = [&]<class U>(RelativePtr<U>* pointer, std::uint64_t count) {
        U* area = layout.take<U>(count, 32);
        if (pointer) *pointer = area;
    };
    const auto field = [&](auto pointer) { return spec ? &(spec->*pointer) : nullptr; };
    if (choice.recombines()) {
        place(field(&Spec<T>::forwardRecombination), recombinationValues(choice.length));
        place(field(&Spec<T>::inverseRecombination), recombinationValues(choice.length));
    }
    if (choice.plan == Plan::powerOfTwo) place(field(&Spec<T>::fft), innerSizes<T>(choice).object);
    if (choice.plan == Plan::direct) place(field(&Spec<T>::matrix), matrixValues<T>(choice.points));
    if (choice.plan == Plan::chirp) chirp::place(layout, choice.points, spec ? &spec->chirp : nullptr);
    if (choice.plan != Plan::mixedRadix) return spec;

    std::uint64_t rest = choice.points;
    for (int i = 0; i <= choice.radices.stages; ++i) {
        const auto radix = static_cast<std::uint64_t>(choice.radices.radix[i]);
        Stage<T>* stage = spec ? &spec->stages[i] : nullptr;
        rest /= radix;
        if (stage) {
            stage->radix = static_cast<Orb32s>(radix);
            stage->rest = static_cast<Orb32s>(rest);
            stage->stride = static_cast<Orb32s>(choice.points / (rest * radix));
        }
        const bool repeats = i > 0 && radix == static_cast<std::uint64_t>(choice.radices.radix[i - 1]);
        if (radix > 5 && repeats && stage) stage->matrix = spec->stages[i - 1].matrix.get();
        if (radix > 5 && !repeats) place(stage ? &stage->matrix : nullptr, matrixValues<T>(radix));
        if (i == choice.radices.stages) break;
        const std::uint64_t twiddles = choice.isOddReal() ? realTwiddles(radix, rest)
                                       : choice.staysOutOfOrder || i >= choice.outerStages
                                           ? plainTwiddles(radix, rest)
                                           : columnTwiddles(radix, rest, lanesFor<T>(rest));
        place(stage ? &stage->twiddles : nullptr, twiddles);
    }
    if (choice.staysOutOfOrder) return spec;
    std::uint64_t leaves = 1;
    for (int i = 0; i < choice.outerStages; ++i) leaves *= static_cast<std::uint64_t>(choice.radices.radix[i]);
    place(field(&Spec<T>::leafPlaces), leaves);
    place(field(&Spec<T>::innermostPlaces), choice.points / leaves / static_cast<std::uint64_t>(choice.radices.last()));
    return spec;
}

// ---- Tables ----

// Calls entry(from, to) for the index of each transform before and behind the stages first to end - 1: digits in the
// order of the source, stage `first` the fastest, and in the order of places, where it is the slowest.
template <class T, class Entry>
void forEachPlace(const Stage<T>* stages, int first, int end, Entry entry) {
    std::size_t count = 1;
    for (int i = first; i < end; ++i) count *= static_cast<std::size_t>(stages[i].radix);
    for (std::size_t from = 0; from < count; ++from) {
        std::size_t left = from, to = 0;
        for (int i = first; i < end; ++i) {
            const auto radix = static_cast<std::size_t>(stages[i].radix);
            to = to * radix + left % radix;
            left /= radix;
        }
        entry(from, to);
    }
}

template <class T>
void fillStages(Spec<T>& spec, const Choice& choice, Roots<T> roots) {
    spec.lastStage = choice.radices.stages - 1;
    spec.outerStages = choice.outerStages;
    spec.staysOutOfOrder = choice.staysOutOfOrder;
    for (int i = 0; i <= spec.stageCount(); ++i) {
        Stage<T>& stage = spec.stages[i];
        const auto radix = static_cast<std::size_t>(stage.radix), rest = static_cast<std::size_t>(stage.rest);
        if (radix > 5 && (i == 0 || spec.stages[i - 1].radix != stage.radix)) fillMatrix<T>(stage.matrix, roots, radix);
        if (i == spec.stageCount()) break;
        if (choice.isOddReal()) {
            fillRealTwiddles<T>(stage.twiddles, roots, radix, rest);
        } else if (choice.staysOutOfOrder || i >= choice.outerStages) {
            fillPlainTwiddles<T>(stage.twiddles, roots, radix, rest);
        } else {
            fillColumnTwiddles<T>(stage.twiddles, roots, radix, rest, lanesFor<T>(rest));
        }
    }
    if (Orb32s* places = spec.leafPlaces)
        forEachPlace(spec.stages, 0, spec.outerStages,
                     [=, points = spec.leafPoints()](std::size_t from, std::size_t to) {
                         places[from] = static_cast<Orb32s>(to * points);
                     });
    if (Orb32s* places = spec.innermostPlaces)
        forEachPlace(spec.stages, spec.outerStages, spec.stageCount(),
                     [=](std::size_t from, std::size_t to) { places[to] = static_cast<Orb32s>(from); });
}

template <class T>
void setScale(Spec<T>& spec, int flag) {
    spec.scaleFwd = flag == ORB_FFT_SCALE_FWD || flag == ORB_FFT_SCALE_SQRT;
    spec.scaleInv = flag == ORB_FFT_SCALE_INV || flag == ORB_FFT_SCALE_SQRT;
    const double length = spec.length;
    spec.scale = static_cast<T>(flag == ORB_FFT_SCALE_SQRT ? 1.0 / std::sqrt(length) : 1.0 / length);
}

template <class T>
OrbStatus fill(Spec<T>& spec, const Choice& choice, int flag, Orb8u* scratch) {
    const SseRounding nearest(SseRounding::nearest);
    setScale(spec, flag);
    if (choice.plan == Plan::small) return orbStsNoErr;
    if (choice.plan == Plan::powerOfTwo)
        return withInnerMembers<T>(choice.kind, [&]<class Inner>(fft::Members<Inner> members) {
            Inner* made;
            return members.init(&made, std::countr_zero(choice.length), flag, static_cast<OrbHintAlgorithm>(spec.hint),
                                spec.fft, scratch);
        });
    T* const table = reinterpret_cast<T*>(scratch);
    const auto length = static_cast<std::size_t>(choice.length), points = static_cast<std::size_t>(choice.points);
    if (choice.plan != Plan::chirp || choice.recombines()) fillRoots(table, length);
    if (choice.recombines())
        fillRecombination<T>(spec.forwardRecombination, spec.inverseRecombination, Roots<T>{table, length});
    const Roots<T> roots{table, points, length / points};
    if (choice.plan == Plan::direct) fillMatrix<T>(spec.matrix, roots, points);
    if (choice.plan == Plan::mixedRadix) fillStages(spec, choice, roots);
    return choice.plan == Plan::chirp ? chirp::fill(spec.chirp, points, scratch) : orbStsNoErr;
}

// ---- What the exported functions of all kinds do ----

// `moreWork` bytes are told in front of the work area of the transform itself.
template <class T, class Object>
OrbStatus initAlloc(Object** ppSpec, int length, int flag, OrbHintAlgorithm hint, Kind kind, Orb32s tag,
                    std::uint64_t moreWork = 0) {
    if (!ppSpec) return orbStsNullPtrErr;
    if (length < 1) return orbStsSizeErr;
    if (!fft::isFlag(flag)) return orbStsFftFlagErr;
    const Choice choice = choose<T>(static_cast<std::uint64_t>(length), kind);
    Layout measure(nullptr);
    layOut<T>(measure, choice);
    const std::uint64_t scratchSize = scratchSizeOf<T>(choice), workSize = workSizeOf<T>(choice) + moreWork;
    constexpr std::uint64_t largest = std::numeric_limits<int>::max();
    if (measure.used() > largest || scratchSize > largest || workSize > largest) return orbStsMemAllocErr;

    Orb8u* block = orbsMalloc_8u(static_cast<int>(measure.used()));
    if (!block) return orbStsMemAllocErr;
    Orb8u* scratch = scratchSize > 0 ? orbsMalloc_8u(static_cast<int>(scratchSize)) : nullptr;
    OrbStatus status = scratchSize > 0 && !scratch ? orbStsMemAllocErr : orbStsNoErr;
    if (status == orbStsNoErr) {
        std::memset(block, 0, sizeof(Spec<T>));
        Layout layout(block);
        Spec<T>& spec = *layOut<T>(layout, choice);
        spec.tag = tag;
        spec.length = length;
        spec.points = static_cast<Orb32s>(choice.points);
        spec.hint = hint;
        spec.workSize = static_cast<Orb32s>(workSize);
        spec.kind = kind;
        spec.plan = choice.plan;
        status = fill(spec, choice, flag, scratch);
    }
    orbsFree(scratch);
    if (status != orbStsNoErr) {
        orbsFree(block);
        return status;
    }
    setElement(ppSpec, static_cast<Object*>(reinterpret_cast<Spec<T>*>(block)));
    return orbStsNoErr;
}

template <class Object>
OrbStatus release(Object* pSpec, Orb32s tag) {
    if (!pSpec) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, tag)) return status;
    pSpec->tag = 0;
    orbsFree(pSpec);
    return orbStsNoErr;
}

template <class Object>
OrbStatus getBufferSize(const Object* pSpec, int* pSize, Orb32s tag) {
    if (anyNull(pSpec) || anyNull(pSize)) return orbStsNullPtrErr;
    if (const OrbStatus status = checkTag(pSpec, tag)) return status;
    setElement(pSize, pSpec->workSize);
    return orbStsNoErr;
}

} // namespace orbs::dft
