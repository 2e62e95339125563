// The rules of members without a book of their own, and of what the arguments of all members mean.
#include "sweep/rules_parts.h"

namespace sweep {
namespace {

std::size_t bitsAsBytes(int offset, int bits) {
    return static_cast<std::size_t>(offset + bits + 7) / 8;
}
int sourceOffset(const Case& c) {
    return c.turn % 8;
}
int destinationOffset(const Case& c) {
    return c.turn / 3 % 8;
}
// As long as the fields that pSrcBitsLen, the second argument, is filled with.
std::size_t packedBytes(const Case& c) {
    std::vector<Orb32s> lengths(static_cast<std::size_t>(c.n));
    fillElements<Orb32s>(lengths.data(), lengths.size(), static_cast<std::uint64_t>(c.turn) + 7);
    int bits = 0;
    for (Orb32s length : lengths) bits += std::clamp(length, 0, 32);
    return bitsAsBytes(destinationOffset(c), bits);
}

// Of thresholds: among floats, and among integers.
double levelOf(const Case& c) {
    return oneOf<0, 0.25, 3000, 0.75, 20000, 30, 9000>(c);
}

const ObjectRule objectRules[] = {
    {{"OrbsToneState_16s", ""}, "Tone", "GetStateSize", {{"pState", "pSize"}}, "Q15_16s"},
    {{"OrbsTriangleState_16s", ""}, "Triangle", "GetStateSize", {{"pState", "pSize"}}, "Q15_16s"},
    {{"OrbsRandUniState(\\w+)", ""}, "RandUniform", "GetSize", {{"pState", "pSize"}}, "$1", true},
    {{"OrbsRandGaussState(\\w+)", ""}, "RandGauss", "GetSize", {{"pState", "pSize"}}, "$1", true},
};

const VectorRule vectorRules[] = {
    // Bit strings; what surrounds the bits stays.
    {{"Copy_1u", "pSrc"}, COUNT(bitsAsBytes(sourceOffset(c), c.n))},
    {{"Copy_1u", "pDst"}, COUNT(bitsAsBytes(destinationOffset(c), c.n)), Use::update},
    {{"PackBits_.*", "pDst"}, COUNT(packedBytes(c)), Use::update}, // the bits before the offset stay
    {{"PackBits_.*", "pDstBitLen"}, COUNT(1)},
    {{"Join.*", "pDst"}, COUNT(c.n* channels(c))},
    {{"Split.*", "pSrc"}, COUNT(c.n* channels(c))},
    {{"(Min|Max).*", "p(Min|Max)(Abs)?|p(Min|Max)?Indx|pOrder"}, COUNT(1)},
    {{"FindNearestOne_.*", "pOutVal|pOutIndx"}, COUNT(1)},
    {{"FindNearest.*", "pVals|pOutVals|pOutIndexes|pTable"}, COUNT(c.n)},
    {{"CountInRange_.*", "pCounts"}, COUNT(1)},
    {{"SortIndex.*", "pDstIdx"}, COUNT(c.n), Use::update}, // one element leaves it as it was
    {{"(Tone|Triangle)_Direct_.*", "pPhase"}, COUNT(1), Use::update, oneOf<0, 1.5, 6.28, 3.25>},
    // Mostly what has a logarithm: the first element without one decides alone.
    {{"SumLn_.*", "pSrc"}, COUNT(c.n), {}, nullptr, [](const Case& c) { return c.turn % 4 != 3; }},
    {{".*", "p\\w*Size"}, COUNT(1)},
    {{".*", "p(Sum|Mean|StdDev|Norm|Dp)"}, COUNT(1)},
    {{".*", "p(Src|Src1|Src2|Dst|SrcDst)(Re|Im|BitsLen)?"}, COUNT(c.n)},
    {{"Rand.*", "pSeed"}, COUNT(1), Use::update},
    {{".*", "p(Src|Src1|Src2|Dst|SrcDst)(Re|Im|Magn|Phase|BitsLen)?"}, COUNT(c.n)},
};

const NumberRule numberRules[] = {
    {{"(Mean)?StdDev_.*", "len"}, NUMBER(c.n), {NUMBER(1), NUMBER(0), NUMBER(-1), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{".*", "len|lenDst|dstLen|srcLen|chanLen|numIters"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{".*", "scaleFactor"}, NUMBER(scaleFactor(c))},
    {{".*", "magnScaleFactor"}, NUMBER(scaleFactor(c))},
    {{".*", "phaseScaleFactor"}, oneOf<-12, 0, 1, -10, INT_MIN, 40, -17, INT_MAX>},
    {{"PolarToCart_16sc", "phaseFixedPoint"},
     oneOf<12, 0, 15, 3>,
     {NUMBER(-1), NUMBER(16), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsSizeErr},
    {{"PolarToCart_32sc", "phaseFixedPoint"},
     oneOf<28, 0, 31, 3>,
     {NUMBER(-1), NUMBER(32), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsSizeErr},
    {{".*", "rndMode"}, oneOf<0, 1, 2, -1>},
    {{".*", "nChannels"}, NUMBER(channels(c)), belowOne, orbStsSizeErr},
    {{"[LR]ShiftC_.*", "val"},
     oneOf<0, 1, 3, 7, 8, 9, 15, 16, 17, 31, 32, 100, INT_MAX>,
     {NUMBER(-1), NUMBER(INT_MIN)},
     orbStsShiftErr},
    {{"DivC_(8|16).*", "val"}, oneOf<1, 2, 0x3fff9, 7, 0x70005, 201>, {NUMBER(0)}, orbStsDivByZeroErr},
    {{"DivC_.*", "val"}, nullptr, {NUMBER(0)}, orbStsDivByZeroErr},
    {{"Normalize_16.*", "vDiv"}, oneOf<1, -3, 100, INT_MAX, INT_MIN>, {NUMBER(0)}, orbStsDivByZeroErr},
    {{"Normalize_32.*", "vDiv"},
     nullptr,
     {NUMBER(0), NUMBER(0x1p-127), NUMBER(-0x1p-127), NUMBER(NAN)},
     orbStsDivByZeroErr},
    {{"Normalize_64.*", "vDiv"}, nullptr, {NUMBER(0), NUMBER(0x1p-1023), NUMBER(NAN)}, orbStsDivByZeroErr},
    {{".*", "val|src|vSub"}, nullptr},
    {{"Copy_1u", "srcBitOffset"}, NUMBER(sourceOffset(c)), {NUMBER(-1), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"Copy_1u|PackBits_.*", "dstBitOffset"},
     NUMBER(destinationOffset(c)),
     {NUMBER(-1), NUMBER(INT_MIN)},
     orbStsSizeErr},
    {{"Vector(Ramp|Slope)_.*", "offset"}, oneOf<0, 3.5, -700.25, 40000, 100.5>},
    {{"Vector(Ramp|Slope)_.*", "slope"}, oneOf<1, -0.375, 0, 0.01, 37.3, -3e6, -9>},
    {{"VectorJaehne_\\d+u", "magn"}, oneOf<255, 100, 0, 0xffffffff>},
    {{"VectorJaehne_\\d+s", "magn"}, oneOf<127, 100, 0>, {NUMBER(-1), NUMBER(-100)}, orbStsJaehneErr},
    {{"VectorJaehne_\\d+f", "magn"}, oneOf<127.5, 1, 0>, {NUMBER(-1e-30), NUMBER(NAN)}, orbStsJaehneErr},
    {{"Tone_Direct_(32|64)fc?", "magn"}, oneOf<1000, 1e-3>, {NUMBER(0), NUMBER(NAN)}, orbStsToneMagnErr},
    {{"Tone.*", "magn"}, oneOf<1000, 1, 32767>, {NUMBER(0), NUMBER(-5)}, orbStsToneMagnErr},
    {{"Tone_Direct_(16s|32f|64f)", "rFreq"},
     oneOf<0.1, 0.0073, 0.49, 0, 0.25>,
     {NUMBER(0.5), NUMBER(-1e-9), NUMBER(NAN)},
     orbStsToneFreqErr},
    {{"Tone_Direct_(16s|32f|64f)c", "rFreq"},
     oneOf<0.1, 0.75, 0.0073, 0, 0.9999>,
     {NUMBER(1), NUMBER(-1e-9), NUMBER(NAN)},
     orbStsToneFreqErr},
    {{"Tone.*", "rFreqQ15"}, oneOf<3000, 0, 16383, 17>, {NUMBER(16384), NUMBER(-1)}, orbStsToneFreqErr},
    {{"Tone.*", "phaseQ15"},
     oneOf<0, 205886, 70000>,
     {NUMBER(205887), NUMBER(-1), NUMBER(INT_MIN)},
     orbStsTonePhaseErr},
    {{"Triangle_Direct_(32|64)fc?", "magn"}, oneOf<1000, 1e-3>, {NUMBER(0), NUMBER(NAN)}, orbStsTriangleMagnErr},
    {{"Triangle.*", "magn"}, oneOf<1000, 1, 32767>, {NUMBER(0), NUMBER(-5)}, orbStsTriangleMagnErr},
    {{"Triangle_.*", "rFreq"},
     oneOf<0.1, 0.0073, 0.49, 0, 0.135, 0.21>,
     {NUMBER(0.5), NUMBER(-1e-9), NUMBER(NAN)},
     orbStsTriangleFreqErr},
    {{"Triangle_.*", "asym"},
     oneOf<0, -3.1415, 1.25, 3.1415, -2>,
     {NUMBER(-3.14159274), NUMBER(3.14159274), NUMBER(NAN)},
     orbStsTriangleAsymErr},
    {{"Triangle.*", "rFreqQ15"}, oneOf<3000, 0, 16383, 17>, {NUMBER(16384), NUMBER(-1)}, orbStsTriangleFreqErr},
    {{"Triangle.*", "phaseQ15"},
     oneOf<0, 205886, 70000>,
     {NUMBER(205887), NUMBER(-1), NUMBER(INT_MIN)},
     orbStsTrianglePhaseErr},
    {{"Triangle.*", "asymQ15"},
     oneOf<0, -102943, 102943, 50000, -3>,
     {NUMBER(102944), NUMBER(-102944), NUMBER(INT_MIN)},
     orbStsTriangleAsymErr},
    {{".*", "hint"}, oneOf<orbAlgHintNone, orbAlgHintFast, orbAlgHintAccurate, 7, -1>}, // fast() counts them
    {{"Threshold_.*", "value(LT|GT)?"}, nullptr},
    {{"Threshold_.*", "relOp"}, oneOf<orbCmpLess, orbCmpGreater, 1, -4>},
    {{"Threshold_LTValGTVal_\\d+f.*", "levelLT"},
     NUMBER(levelOf(c)),
     {NUMBER(levelOf(c) + 9e9), NUMBER(NAN)},
     orbStsThreshValOrderErr},
    {{"Threshold_LTValGTVal_\\d+f.*", "levelGT"},
     NUMBER(levelOf(c) + 0.5),
     {NUMBER(levelOf(c) - 1), NUMBER(NAN)},
     orbStsThreshValOrderErr},
    {{"Threshold_LTValGTVal_.*", "levelLT"}, NUMBER(-levelOf(c)), {NUMBER(30000)}, orbStsThreshValOrderErr},
    {{"Threshold_LTValGTVal_.*", "levelGT"}, NUMBER(levelOf(c)), {NUMBER(-30000)}, orbStsThreshValOrderErr},
    {{"Threshold_(LTInv|LTAbs|GTAbs)_\\d+f.*|Threshold_.*fc.*", "level"},
     NUMBER(levelOf(c)),
     {NUMBER(-1), NUMBER(-INFINITY), NUMBER(NAN)},
     orbStsThreshNegLevelErr},
    {{"Threshold_(LTAbs|GTAbs)_.*|Threshold_.*sc.*", "level"},
     NUMBER(levelOf(c)),
     {NUMBER(-1), NUMBER(-32768)},
     orbStsThreshNegLevelErr},
    {{"Threshold_.*", "level"}, NUMBER(c.turn % 2 ? levelOf(c) : -levelOf(c))},
    {{"FindNearestOne_.*", "inpVal"}, nullptr},
    {{"FindNearest.*", "tblLen"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"CountInRange_.*", "lowerBound"}, oneOf<-1000000000, INT_MIN, 0>},
    {{"CountInRange_.*", "upperBound"}, oneOf<1000000000, INT_MAX>},
    // Each network, an even mask, and some beyond the vector.
    {{"FilterMedian_.*", "maskSize"}, oneOf<3, 5, 6, 7, 9, 1, 11, 31, 255, INT_MAX>, belowOne, orbStsSizeErr},
    {{"RandUniform.*", "low"}, oneOf<0, 3, 100, 17>},
    {{"RandUniform.*", "high"}, oneOf<127, 100, 5, 18, 120>},
    {{"RandGauss.*", "mean"}, oneOf<0, 20, 100>},
    {{"RandGauss.*", "stdDev"}, oneOf<1, 50, 7, 127>},
    {{"Rand.*", "seed"}, nullptr},
};

const PointeeRule pointeeRules[] = {
    // One of the channels is null.
    {{"Join.*", "pSrc"}, {NUMBER(0), NUMBER(channels(c) - 1)}, orbStsNullPtrErr},
    {{"Split.*", "pDst"}, {NUMBER(0), NUMBER(channels(c) - 1)}, orbStsNullPtrErr},
    {{"Triangle_.*", "pPhase"}, {NUMBER(-1e-9), NUMBER(6.283185307179586), NUMBER(NAN)}, orbStsTrianglePhaseErr},
    {{"Tone_.*", "pPhase"}, {NUMBER(-1e-9), NUMBER(6.283185307179586), NUMBER(NAN)}, orbStsTonePhaseErr},
};

const NullRule nullRules[] = {
    // The result does not depend on it.
    {{"DivC_16u_Sfs", "pSrc"}, [](const Case& c) { return scaleFactor(c) > 16 || scaleFactor(c) < -31; }},
    {{"AddC_16u_Sfs", "pSrc"}, [](const Case& c) { return scaleFactor(c) > 17 || scaleFactor(c) < -15; }},
    {{"(Min|Max)Indx_.*", "pIndx"}},      // no place is told then
    {{"RealToCplx_.*", "pSrcRe|pSrcIm"}}, // that part is zero then
};

const Exception resultsDependOnPlace[] = {
    {{"VectorRamp_64f", ""}}, // where the double precision begins
};

const Exception refusalMayWrite[] = {
    {{"CartToPolar_.*", "pDst(Magn|Phase)"}}, // the one where the other is null
};

const WarningRule warningRules[] = {
    {{"Div(CRev)?_.*|Threshold_LTInv_.*", ""}, {orbStsDivByZero}},
    {{"Sqrt_.*", ""}, {orbStsSqrtNegArg}},
    {{"(Ln|10Log10|SumLn)_.*", ""}, {orbStsLnZeroArg, orbStsLnNegArg}},
    {{"PackBits_.*", ""}, {orbStsBitLenLimited}},
    {{"MaxOrder_\\d+f", ""}, {orbStsNanArg}},
    {{"FilterMedian_.*", ""}, {orbStsEvenMedianMaskSize}},
};

const OrderRule orderRules[] = {
    // The real primitive over twice the length: the length is tested before it is doubled.
    {{"(Add|Sub)_(16|32)sc_.*|(Add|Sub)_(32|64)fc.*", ""}, {"len", "*"}},
    {{"MaxOrder_.*", ""}, {"len", "*"}},
    {{"[LR]ShiftC_.*", ""}, {"pSrc", "pDst", "pSrcDst", "len", "val"}},
    // The magnitude's tests, then the phase's.
    {{"CartToPolar_.*", ""}, {"pSrc", "pSrcRe", "pSrcIm", "pDstMagn", "len", "pDstPhase"}},
    {{"DivC_.*", ""}, {"*", "val"}},
    {{"Normalize_.*", ""}, {"*", "vDiv"}},
    {{"Join.*", ""}, {"pDst", "nChannels", "chanLen", "pSrc", "pSrc:value"}},
    {{"Split.*", ""}, {"pSrc", "nChannels", "chanLen", "pDst", "pDst:value"}},
    {{"(Tone|Triangle)_Direct_.*", ""}, {"pPhase", "magn", "rFreq", "asym", "pPhase:value", "pDst", "len"}},
};

const CaseRule caseRules[] = {
    // Deviations are of two elements and more.
    {{"(Mean)?StdDev_.*", ""},
     lengthsFrom(2, 70),
     lengths({1030, 4099, 40007}),
     lengths({9, 9, 9, 40007}),
     atLeast(2, digestScales())},
    // Around one block and several.
    {{"Tone_Direct_.*", ""},
     lengthsUpTo(70) + fast(lengthsUpTo(70)),
     fast(lengths({1023, 1024, 1025, 1041, 2064, 4099, 8211, 20011})),
     lengths({9, 9, 1031}),
     digestLengths() +
         fast(lengthsUpTo(70) + lengthsFrom(1022, 1062) + lengthsFrom(2046, 2070) + lengths({4096, 40007}))},
    // The lengths from which calls spread over threads, each with several scale factors.
    {{".*_I?Sfs", ""}, lengthsUpTo(70), longScales(), lengths({9, 9, 9, 40007}), digestScales()},
    {{".*", ""}, lengthsUpTo(70), lengths({4099, 40007}), lengths({9, 9, 9, 40007}), digestLengths()},
};

} // namespace

const Rules& generalRules() {
    static const Rules book{.objects = objectRules,
                            .vectors = vectorRules,
                            .numbers = numberRules,
                            .pointees = pointeeRules,
                            .nulls = nullRules,
                            .resultsDependOnPlace = resultsDependOnPlace,
                            .refusalMayWrite = refusalMayWrite,
                            .warnings = warningRules,
                            .orders = orderRules,
                            .cases = caseRules};
    return book;
}

std::span<const Rules* const> books() {
    static const Rules* const all[] = {&filterRules(), &transformRules(), &generalRules()};
    return all;
}

int channels(const Case& c) {
    return 1 + c.turn % 9;
}

bool secondWay(const Case& c) {
    return (c.turn - static_cast<int>(c.at)) % 5 % 2 == 1; // the same for all elements of a vector
}

} // namespace sweep
