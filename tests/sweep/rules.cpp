#include "sweep/rules.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace sweep {
namespace {

// ---- Objects ----

bool cosinesNeedNoMemory(const Case& c) {
    return (c.n & (c.n - 1)) == 0 ? c.n <= 512 : c.n <= 100;
}

const ObjectRule objectRules[] = {
    {{"OrbsFFTSpec(\\w+)", ""},
     "FFT",
     "GetSize",
     {{"pMemSpec", "pSpecSize"},
      {"pMemInit", "pSpecBufferSize", [](const Case& c) { return c.order <= 10; }}, // not needed
      {"pBuffer", "pBufferSize", always}}},                                         // the call takes one of its own
    {{"OrbsDCTFwdSpec(\\w+)", ""},
     "DCTFwd",
     "GetSize",
     {{"pMemSpec", "pSpecSize"},
      {"pMemInit", "pSpecBufferSize", cosinesNeedNoMemory},
      {"pBuffer", "pBufferSize", always}}},
    {{"OrbsDCTInvSpec(\\w+)", ""},
     "DCTInv",
     "GetSize",
     {{"pMemSpec", "pSpecSize"},
      {"pMemInit", "pSpecBufferSize", cosinesNeedNoMemory},
      {"pBuffer", "pBufferSize", always}}},
    {{"OrbsDFTSpec(\\w+)", ""}, "DFT", "GetBufSize", {{"pBuffer", "pSize", always}}},
    {{"OrbsDFTOutOrdSpec(\\w+)", ""}, "DFTOutOrd", "GetBufSize", {{"pBuffer", "pSize", always}}},
    {{"OrbsFIRState(\\w+)", ""},
     "FIR",
     "GetStateSize",
     {{"pBuffer", "pBufferSize"}},
     "$1",
     false,
     {"FIRMR\\w+", "FIRMR", "$1", "FIROne\\w*"}},
    {{"OrbsIIRState(\\w*_)(\\w+)", ""},
     "IIR",
     "GetStateSize",
     {{"pBuffer", "pBufferSize"}},
     "$1$2",
     false,
     {"IIR\\w*_BiQuad_\\w+", "IIR", "$1BiQuad_$2"}},
    {{"OrbsFIRLMSState(\\w+)", ""}, "FIRLMS", nullptr, {}},
    {{"OrbsFIRLMSMRState(\\w+)", ""}, "FIRLMSMR", nullptr, {}},
    {{"OrbsFIRSparseState(\\w+)", ""}, "FIRSparse", "GetStateSize", {{"pBuffer", "pStateSize"}}},
    {{"OrbsIIRSparseState(\\w+)", ""}, "IIRSparse", "GetStateSize", {{"pBuffer", "pStateSize"}}},
    {{"OrbsToneState_16s", ""}, "Tone", "GetStateSize", {{"pState", "pSize"}}, "Q15_16s"},
    {{"OrbsTriangleState_16s", ""}, "Triangle", "GetStateSize", {{"pState", "pSize"}}, "Q15_16s"},
    {{"OrbsRandUniState(\\w+)", ""}, "RandUniform", "GetSize", {{"pState", "pSize"}}, "$1", true},
    {{"OrbsWTFwdState(\\w+)", ""}, "WTFwd", nullptr, {}},
    {{"OrbsWTInvState(\\w+)", ""}, "WTInv", nullptr, {}},
    {{"OrbsHilbertSpec(\\w+)", ""}, "Hilbert", nullptr, {}},
    {{"OrbsRandGaussState(\\w+)", ""}, "RandGauss", "GetSize", {{"pState", "pSize"}}, "$1", true},
};

// ---- Lengths of vectors ----

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

// Of the channels of a filter bank: taps, offset, and what each remembers of its stream.
int highTaps(const Case& c) {
    return c.taps + c.turn % 3;
}
int lowOffset(const Case& c) {
    constexpr int offsets[] = {0, 1, -1, 2, 7, 16, 700};
    return offsets[static_cast<std::size_t>(c.turn) % std::size(offsets)];
}
int highOffset(const Case& c) {
    return c.turn / 2 % 4 - 1;
}
int forwardLine(int taps, int offset) {
    return std::max(taps - 1 + offset, 0);
}
int inverseLine(int taps, int offset) {
    return (taps - 1 + std::abs(offset)) / 2;
}

// Of filters that change the rate: periods of every kind, and sometimes none.
template <int... factors>
int factorOf(int turn) {
    static constexpr int list[] = {factors...};
    return list[static_cast<std::size_t>(turn) % std::size(list)];
}
int upFactor(const Case& c) {
    return factorOf<1, 3, 2, 1, 5, 4, 7>(c.turn);
}
int downFactor(const Case& c) {
    return factorOf<2, 1, 3, 1, 4, 5, 1, 2, 3, 1, 6>(c.turn);
}
int rateLine(const Case& c) {
    return (c.taps - 1) / upFactor(c) + 1;
}
// Of a stream and of its outputs, if the rate changes and else.
int inputs(const Case& c, bool changesRate) {
    return changesRate ? c.n * downFactor(c) : c.n;
}
int outputs(const Case& c, bool changesRate) {
    return changesRate ? c.n * upFactor(c) : c.n;
}

// Of a convolution with a window: how far behind the vector's begin this starts.
int windowDelay(const Case& c) {
    return c.turn % 4;
}
// Lags on both sides of all that have an overlap, and some of these.
double lowLag(const Case& c) {
    const int lags[] = {-c.n - 1, 0, 2 - c.n, INT_MIN, c.taps / 2 - c.n, c.taps, -c.n / 2};
    return lags[static_cast<std::size_t>(c.turn) % std::size(lags)];
}

// Taps of a recursive filter that fades: feedback behind a[0] adds up to less than a[0], whose place the Direct members
// take for an exponent.
struct Recursion {
    std::size_t order, a0;
};
Recursion anyOrder(const Case& c) {
    return {static_cast<std::size_t>(c.taps), static_cast<std::size_t>(c.taps) + 1};
}
Recursion biQuads(const Case&) {
    return {2, 3};
}
Recursion eitherWay(const Case& c) {
    return secondWay(c) ? biQuads(c) : anyOrder(c);
}
std::size_t tapsOfEither(const Case& c) {
    return static_cast<std::size_t>(secondWay(c) ? 6 * c.taps : 2 * c.taps + 2);
}
std::size_t delaysOfEither(const Case& c) {
    return static_cast<std::size_t>(secondWay(c) ? 2 * c.taps : c.taps);
}
template <Recursion (*filter)(const Case&)>
std::size_t placeOfA0(const Case& c) {
    return filter(c).a0;
}
template <Recursion (*filter)(const Case&), int unit>
double fadingTap(const Case& c) {
    const Recursion f = filter(c);
    const std::size_t at = c.at % (2 * f.order + 2);
    const double varied = ((7 * c.turn + 5 * c.imaginary) % 16 - 7.5) / 8; // in -0.94 to 0.94, never 0
    if (at == f.a0) return (c.imaginary ? -0.375 : 1.25) * unit;
    return (at < f.a0 ? 3 : 0.9 / static_cast<double>(f.order)) * varied * unit;
}
template <Recursion (*filter)(const Case&)>
double fadingTap16(const Case& c) {
    constexpr int exponents[] = {12, 13, 12, 15, 31, 0, 40};
    if (c.at % (2 * filter(c).order + 2) == filter(c).a0) return exponents[static_cast<std::size_t>(c.turn) % 7];
    return fadingTap<filter, 4096>(c);
}

// Of a trellis: how many states, or a number that counts as 64. The tables of subsets of the plane belong to them.
int toldStates(const Case& c) {
    constexpr int states[] = {16, 32, 64, 7};
    return states[(static_cast<std::size_t>(c.turn) - c.at) % 4];
}
int trellisStates(const Case& c) {
    return toldStates(c) == 7 ? 64 : toldStates(c);
}
int firstOfHistory(const Case& c) {
    return c.turn % 3;
}
// Subsets that take turns on every 2 by 2 points of the lattice, and change with the next ones.
double latticeLabel(const Case& c) {
    const std::size_t x = c.at % 4, y = c.at / 4 % 4;
    return static_cast<double>(x % 2 + y % 2 * 2 + (x / 2 + y / 2) % 2 * 4);
}
double nextState(const Case& c) {
    return static_cast<double>((c.at * 7 + c.at / 16) % static_cast<std::size_t>(trellisStates(c)));
}

int windowMask(const Case& c) {
    return factorOf<3, 1, 8, 30, 513>(c.turn);
}

// Of what is sampled up or down: factors of every loop.
int sampleFactor(const Case& c) {
    return factorOf<2, 3, 4, 1, 5, 17>(c.turn);
}

// Of adaptive filters of integers: their steps and delays.
int dlyStep(const Case& c) {
    return factorOf<1, 2, 1, 5, 3>(c.turn);
}
int updateDly(const Case& c) {
    return factorOf<0, 3, 1, 40>(c.turn / 2);
}
int steppedLine(const Case& c) {
    return c.taps * dlyStep(c) + updateDly(c);
}

// Of filters with few taps: those of both lists, where these stand, and the longest delays.
int recursiveTaps(const Case& c) {
    return c.turn % 4;
}
int sparsePosition(const Case& c, int tap) {
    return tap * factorOf<1, 3, 7>(c.turn) + (tap > 1 ? factorOf<0, 40>(c.turn / 3) : 0);
}
int sparseOrder(const Case& c) {
    return std::max(sparsePosition(c, c.taps - 1), 1);
}
int recursivePosition(const Case& c, int tap) {
    return tap * factorOf<1, 6>(c.turn) + factorOf<1, 2, 9, 33>(c.turn / 2);
}
int recursiveOrder(const Case& c) {
    return recursiveTaps(c) > 0 ? recursivePosition(c, recursiveTaps(c) - 1) : 0;
}
// The case of a vector, of which `turn` runs on while it is filled.
Case ofVector(Case c) {
    c.turn -= static_cast<int>(c.at);
    return c;
}
double positionInList(const Case& element) {
    const Case c = ofVector(element);
    const int at = static_cast<int>(c.at);
    return at < c.taps ? sparsePosition(c, at) : recursivePosition(c, at - c.taps);
}
// Recursive taps that fade.
double sparseTap(const Case& c) {
    return ((7 * c.turn) % 16 - 7.5) / (static_cast<int>(c.at) < c.taps ? 4 : 32);
}

#define COUNT(expression)                                                                                              \
    [](const Case& c [[maybe_unused]]) -> std::size_t { return static_cast<std::size_t>(expression); }
#define NUMBER(expression) [](const Case& c [[maybe_unused]]) -> double { return expression; }
#define ONE_OF(...)                                                                                                    \
    [](const Case& c) -> double {                                                                                      \
        constexpr double values[] = {__VA_ARGS__};                                                                     \
        return values[static_cast<std::size_t>(c.turn) % std::size(values)];                                           \
    }

constexpr Number floatWord = ONE_OF(0x447a0000, -0x40c00000, 0, 0x469c4000); // bits of 1000, -0.75, 0 and 20000

const VectorRule vectorRules[] = {
    // Bit strings; what surrounds the bits stays.
    {{"Copy_1u", "pSrc"}, COUNT(bitsAsBytes(sourceOffset(c), c.n))},
    {{"Copy_1u", "pDst"}, COUNT(bitsAsBytes(destinationOffset(c), c.n)), Use::update},
    {{"PackBits_.*", "pDst"}, COUNT(packedBytes(c)), Use::update}, // the bits before the offset stay
    {{"PackBits_.*", "pDstBitLen"}, COUNT(1)},
    {{"Join.*", "pDst"}, COUNT(c.n* channels(c))},
    {{"Split.*", "pSrc"}, COUNT(c.n* channels(c))},
    // CCS: half the spectrum and the middle.
    {{"ConjCcs_.*", "pSrc"}, COUNT(c.n / 2 + 1)},
    {{"FFTFwd_RToCCS_.*", "pDst|pSrcDst"}, COUNT(2 * (c.points() / 2 + 1))},
    {{"FFTInv_CCSToR_.*", "pSrc|pSrcDst"}, COUNT(2 * (c.points() / 2 + 1))},
    {{"FFT(Fwd|Inv)_.*", "p(Src|Dst|SrcDst)(Re|Im)?"}, COUNT(c.points())},
    {{"DFTFwd_RToCCS_.*", "pDst"}, COUNT(2 * (c.n / 2 + 1))},
    {{"DFTInv_CCSToR_.*", "pSrc"}, COUNT(2 * (c.n / 2 + 1))},
    {{"FIRLMS_.*|FIRLMS32f.*", "pRef"}, COUNT(c.n)},
    {{"FIRLMSOne_Direct.*", "pTapsInv"}, COUNT(c.taps), Use::update},
    {{"FIRLMSOne_Direct.*", "pDlyLine"}, COUNT(2 * c.taps), Use::update},
    {{"FIRLMSOne_Direct.*", "pDlyLineIndex"}, COUNT(1), Use::update, NUMBER(c.turn % c.taps)},
    {{"FIRLMSMR.*", "pDlyLine"}, COUNT(steppedLine(c))},
    {{"FIRLMSMR.*", "ppTaps"}, COUNT(1), Use::source}, // an address is no result
    {{"FIRLMS(MR)?GetDlyLine.*", "pDlyLineIndex"}, COUNT(1)},
    {{"FIRLMSMR.*", "pVal"}, COUNT(1)},
    {{"IIRSparse.*", "pDlyLine"}, COUNT(sparsePosition(c, c.taps - 1) + recursiveOrder(c))},
    {{"IIRSparse.*", "pNZTapPos"}, COUNT(c.taps + std::max(recursiveTaps(c), 1)), {}, positionInList},
    {{"IIRSparse.*", "pNZTaps"}, COUNT(c.taps + recursiveTaps(c)), {}, sparseTap},
    {{"FIRSparse.*", "pDlyLine"}, COUNT(sparsePosition(c, c.taps - 1))},
    {{"FIRSparse.*", "pNZTapPos"}, COUNT(c.taps), {}, positionInList},
    {{"FIRSparse.*", "pNZTaps"}, COUNT(c.taps), {}, sparseTap},
    {{"(FIR|IIR)Sparse_.*", "pSrc|pDst"}, COUNT(c.n)},
    {{"GetVarPointDV_.*", "pSrc|pDstPoint"}, COUNT(1)},
    {{"GetVarPointDV_.*", "pVariance"}, COUNT(toldStates(c) == 16 ? 4 : 8)},
    {{"GetVarPointDV_.*", "pLabel"}, COUNT(16), {}, latticeLabel},
    {{"BuildSymblTableDV4D_.*", "pVariance"}, COUNT(16)},
    {{"BuildSymblTableDV4D_.*", "pDst"}, COUNT(trellisStates(c))},
    {{"CalcStatesDV_.*", "pNextState"}, COUNT(16 * trellisStates(c)), {}, nextState},
    {{"CalcStatesDV_.*", "pBranch"}, COUNT(64)},
    {{"CalcStatesDV_.*", "pHistory"}, COUNT(firstOfHistory(c) + trellisStates(c)), Use::update},
    {{"UpdatePathMetricsDV_.*", "pMin.*"}, COUNT(1)},
    {{".*DV_.*", "pBranchError"}, COUNT(trellisStates(c)), Use::update},
    {{".*DV_.*", "pPathError"}, COUNT(trellisStates(c))},
    {{"Update(Linear|Power)_.*", "pSrcDst"}, COUNT(1)},
    {{"SumWindow_.*", "pSrc"}, COUNT(c.n + windowMask(c))},
    {{"FIRGen.*", "pTaps"}, COUNT(c.n)},
    {{"IIRGen.*", "pTaps"}, COUNT(2 * c.taps + 2)},
    {{"FIRMR\\w*_Direct_.*", "pDlyLine"}, COUNT(rateLine(c)), Use::update},
    {{"FIRMR.*", "pDlyLine"}, COUNT(rateLine(c))},
    {{"FIRMR.*", "pSrc"}, COUNT(inputs(c, true))},
    {{"FIRMR.*", "pDst"}, COUNT(outputs(c, true))},
    {{"FIRMR.*", "pSrcDst"}, COUNT(std::max(inputs(c, true), outputs(c, true)))},
    {{"FIR\\w*_Direct_.*", "pSrc|pDst|pSrcDst"}, COUNT(c.n)},
    {{"FIR(?!_32s)[\\d_].*", "pSrc"}, COUNT(inputs(c, secondWay(c)))},
    {{"FIR(?!_32s)[\\d_].*", "pDst"}, COUNT(outputs(c, secondWay(c)))},
    {{"FIR(?!_32s)[\\d_].*", "pSrcDst"}, COUNT(std::max(inputs(c, secondWay(c)), outputs(c, secondWay(c))))},
    {{"FIR[GS]etDlyLine(?!_32s).*", "pDlyLine"}, COUNT(secondWay(c) ? rateLine(c) : c.taps)},
    {{"IIR(One)?_Direct_.*", "pTaps"}, COUNT(2 * c.taps + 2), {}, fadingTap16<anyOrder>},
    {{"IIR(One)?_BiQuadDirect_.*", "pTaps"}, COUNT(6 * c.taps), {}, fadingTap16<biQuads>},
    {{"IIR(One)?_Direct_.*", "pDlyLine"}, COUNT(c.taps), Use::update},
    {{"IIR(One)?_BiQuadDirect_.*", "pDlyLine"}, COUNT(2 * c.taps), Use::update},
    {{"IIR\\w*32sc?_BiQuad_16sc?", "pTaps"}, COUNT(6 * c.taps), {}, fadingTap<biQuads, 4096>},
    {{"IIR\\w*_BiQuad_.*", "pTaps"}, COUNT(6 * c.taps), {}, fadingTap<biQuads, 1>},
    {{"IIRSetTaps32sc?_16sc?", "pTaps"}, tapsOfEither, {}, fadingTap<eitherWay, 4096>},
    {{"IIRSetTaps.*", "pTaps"}, tapsOfEither, {}, fadingTap<eitherWay, 1>},
    {{"IIR\\w*32sc?_16sc?", "pTaps"}, COUNT(2 * c.taps + 2), {}, fadingTap<anyOrder, 4096>},
    {{"IIR.*", "pTaps"}, COUNT(2 * c.taps + 2), {}, fadingTap<anyOrder, 1>},
    {{"IIRInit\\w*32sc?_BiQuad_.*", "pDlyLine"}, COUNT(2 * c.taps), {}, floatWord},
    {{"IIRInit\\w*32sc?_16.*", "pDlyLine"}, COUNT(c.taps), {}, floatWord},
    {{"IIRSetDlyLine32sc?_.*", "pDlyLine"}, delaysOfEither, {}, floatWord},
    {{"IIR[GS]etDlyLine.*", "pDlyLine"}, delaysOfEither},
    {{"IIR\\w*_BiQuad_.*", "pDlyLine"}, COUNT(2 * c.taps)},
    {{"IIR.*", "pDlyLine"}, COUNT(c.taps)},
    {{"IIR.*", "pDstVal|pSrcDstVal"}, COUNT(1)},
    {{"FIR\\w*_Direct_.*", "pDlyLine"}, COUNT(2 * c.taps), Use::update},
    {{"FIR\\w*_Direct_.*", "pDlyLineIndex"}, COUNT(1), Use::update, NUMBER(c.turn % c.taps)},
    {{"FIR.*", "pTaps|pTapsQ15|pDlyLine"}, COUNT(c.taps)},
    {{"FIR.*", "pTapsFactor"}, COUNT(1)},
    {{"FIR.*", "pDstVal|pSrcDstVal"}, COUNT(1)},
    {{"ConvCyclic8x8_.*", ".*"}, COUNT(8)},
    {{"ConvCyclic4x4_.*", ".*"}, COUNT(4)},
    {{"ConvBiased_.*", "pSrc2"}, COUNT(c.taps + windowDelay(c))},
    {{"(Conv(?!ert)|CrossCorr).*", "pSrc2"}, COUNT(c.taps)},
    {{"Conv(?!Biased|ert).*", "pDst"}, COUNT(c.n + c.taps - 1)},
    {{"CrossCorr.*", "pDst"}, COUNT(c.n + c.taps + 3)},
    {{"AutoCorr.*", "pDst"}, COUNT(c.taps)},
    {{"(Min|Max).*", "p(Min|Max)(Abs)?|p(Min|Max)?Indx|pOrder"}, COUNT(1)},
    {{"FindNearestOne_.*", "pOutVal|pOutIndx"}, COUNT(1)},
    {{"FindNearest.*", "pVals|pOutVals|pOutIndexes|pTable"}, COUNT(c.n)},
    {{"CountInRange_.*", "pCounts"}, COUNT(1)},
    {{"SortIndex.*", "pDstIdx"}, COUNT(c.n), Use::update}, // one element leaves it as it was
    {{"(Tone|Triangle)_Direct_.*", "pPhase"}, COUNT(1), Use::update, ONE_OF(0, 1.5, 6.28, 3.25)},
    // Mostly what has a logarithm: the first element without one decides alone.
    {{"SumLn_.*", "pSrc"}, COUNT(c.n), {}, nullptr, [](const Case& c) { return c.turn % 4 != 3; }},
    {{"WTHaar(Fwd|Inv)_.*", "p(Src|Dst)Low"}, COUNT((c.n + 1) / 2)},
    {{"WTHaar(Fwd|Inv)_.*", "p(Src|Dst)High"}, COUNT(c.n / 2)},
    {{"WT(Fwd|Inv)InitAlloc_.*", "pTapsLow"}, COUNT(c.taps)},
    {{"WT(Fwd|Inv)InitAlloc_.*", "pTapsHigh"}, COUNT(highTaps(c))},
    {{"WTFwd.*", "pDlyLow"}, COUNT(forwardLine(c.taps, lowOffset(c)))},
    {{"WTFwd.*", "pDlyHigh"}, COUNT(forwardLine(highTaps(c), highOffset(c)))},
    {{"WTInv.*", "pDlyLow"}, COUNT(inverseLine(c.taps, lowOffset(c)))},
    {{"WTInv.*", "pDlyHigh"}, COUNT(inverseLine(highTaps(c), highOffset(c)))},
    {{"WTFwd_.*", "pSrc"}, COUNT(2 * c.n)},
    {{"WTInv_.*", "pDst"}, COUNT(2 * c.n)},
    {{".*", "p(Src|Dst)(Low|High)"}, COUNT(c.n)},
    {{"Sample(Up|Down)_.*", "pDstLen"}, COUNT(1)},
    {{"Sample(Up|Down)_.*", "pPhase"}, COUNT(1), Use::update, NUMBER(c.turn / 2 % sampleFactor(c))},
    {{"SampleUp_.*", "pDst"}, COUNT(c.n* sampleFactor(c))},
    {{"SampleDown_.*", "pSrc"}, COUNT(c.n* sampleFactor(c))},
    {{".*", "p\\w*Size"}, COUNT(1)},
    {{".*", "p(Sum|Mean|StdDev|Norm|Dp)"}, COUNT(1)},
    {{"GoertzTwo.*", "pVal"}, COUNT(2)},
    {{"GoertzTwoQ15_.*", "rFreqQ15"}, COUNT(2), {}, ONE_OF(3277, 0, 32767, 17, 16384)},
    {{"GoertzTwo_.*", "rFreq"}, COUNT(2), {}, ONE_OF(0.1, 0, 0.75, 0.0073, 0.25, 0.9999)},
    {{"Goertz.*", "pVal"}, COUNT(1)},
    {{".*", "p(Src|Src1|Src2|Dst|SrcDst)(Re|Im|BitsLen)?"}, COUNT(c.n)},
    {{"Rand.*", "pSeed"}, COUNT(1), Use::update},
    {{".*", "p(Src|Src1|Src2|Dst|SrcDst)(Re|Im|Magn|Phase|BitsLen)?"}, COUNT(c.n)},
};

// ---- Numbers ----

// Around every cut between kernels, and far beyond all of them.
constexpr int scaleFactors[] = {0,  INT_MIN, -1000, -40, -33, -32, -31, -30, -17, -16, -15,  -14,
                                -9, -8,      -7,    -2,  -1,  1,   2,   3,   7,   8,   9,    10,
                                14, 15,      16,    17,  18,  30,  31,  32,  33,  40,  1000, INT_MAX};
int scaleFactor(const Case& c) {
    return scaleFactors[static_cast<std::size_t>(c.turn) % std::size(scaleFactors)];
}
int turnOfScaleFactor(int s) {
    return static_cast<int>(std::ranges::find(scaleFactors, s) - scaleFactors);
}

// Of thresholds: among floats, and among integers.
double levelOf(const Case& c) {
    return ONE_OF(0, 0.25, 3000, 0.75, 20000, 30, 9000)(c);
}

const std::vector<Number> belowOne = {NUMBER(0), NUMBER(-1), NUMBER(INT_MIN)};
const std::vector<Number> noFrequency = {NUMBER(0), NUMBER(-0.1), NUMBER(0.50001), NUMBER(NAN)};
const NumberRule numberRules[] = {
    {{"(Mean)?StdDev_.*", "len"}, NUMBER(c.n), {NUMBER(1), NUMBER(0), NUMBER(-1), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"WinBlackmanOpt_.*", "len"}, NUMBER(c.n), {NUMBER(3), NUMBER(0), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"WinKaiser.*", "len"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"Win.*", "len"}, NUMBER(c.n), {NUMBER(2), NUMBER(0), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"WinBlackman.*", "alpha"}, ONE_OF(-0.16, 0.375, 0, -25, 1e30)},
    {{"WinBlackmanQ15.*", "alphaQ15"}, ONE_OF(-5243, 12288, 0, 900000, INT_MIN)},
    {{"WinKaiser_.*", "alpha"}, // halved as often as the length doubles, to stay at arguments up to 36
     NUMBER((c.turn % 5 - 2) * 36.0 / c.n),
     {NUMBER(1000), NUMBER(-1000), NUMBER(INFINITY)},
     orbStsWinKaiserErr},
    {{"WinKaiserQ15_.*", "alphaQ15"},
     NUMBER(std::trunc((c.turn % 5 - 2) * 0x1p23 / c.n)),
     {NUMBER(32768000), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsWinKaiserErr},
    {{"SampleDown_.*", "srcLen"}, NUMBER(c.n* sampleFactor(c)), belowOne, orbStsSizeErr},
    {{"Sample(Up|Down)_.*", "factor"}, NUMBER(sampleFactor(c)), belowOne, orbStsSampleFactorErr},
    {{"Hilbert.*", "length"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"WT.*", "lenLow"}, NUMBER(c.taps), belowOne, orbStsSizeErr},
    {{"WT.*", "lenHigh"}, NUMBER(highTaps(c)), belowOne, orbStsSizeErr},
    {{"WT.*", "offsLow"}, NUMBER(lowOffset(c)), {NUMBER(-2), NUMBER(INT_MIN)}, orbStsWtOffsetErr},
    {{"WT.*", "offsHigh"}, NUMBER(highOffset(c)), {NUMBER(-2), NUMBER(INT_MIN)}, orbStsWtOffsetErr},
    {{"(Conv(?!ert)|CrossCorr).*", "src1Len"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"(Conv(?!ert)|CrossCorr).*", "src2Len"}, NUMBER(c.taps), belowOne, orbStsSizeErr},
    {{"CrossCorr.*", "dstLen"}, NUMBER(c.n + c.taps + 3), belowOne, orbStsSizeErr},
    {{"AutoCorr.*", "dstLen"}, NUMBER(c.taps), belowOne, orbStsSizeErr},
    {{"CrossCorr.*", "lowLag"}, lowLag},
    {{"ConvBiased_.*", "bias"}, NUMBER(-windowDelay(c))},
    {{"SumWindow_.*", "len"}, NUMBER(c.n)}, // below 1 it is no fault
    {{".*", "len|lenDst|dstLen|srcLen|chanLen|numIters"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{".*", "scaleFactor"}, NUMBER(scaleFactor(c))},
    {{".*", "magnScaleFactor"}, NUMBER(scaleFactor(c))},
    {{".*", "phaseScaleFactor"}, ONE_OF(-12, 0, 1, -10, INT_MIN, 40, -17, INT_MAX)},
    {{"PolarToCart_16sc", "phaseFixedPoint"},
     ONE_OF(12, 0, 15, 3),
     {NUMBER(-1), NUMBER(16), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsSizeErr},
    {{"PolarToCart_32sc", "phaseFixedPoint"},
     ONE_OF(28, 0, 31, 3),
     {NUMBER(-1), NUMBER(32), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsSizeErr},
    {{".*", "rndMode"}, ONE_OF(0, 1, 2, -1)},
    {{".*", "nChannels"}, NUMBER(channels(c)), belowOne, orbStsSizeErr},
    {{"[LR]ShiftC_.*", "val"},
     ONE_OF(0, 1, 3, 7, 8, 9, 15, 16, 17, 31, 32, 100, INT_MAX),
     {NUMBER(-1), NUMBER(INT_MIN)},
     orbStsShiftErr},
    {{"DivC_(8|16).*", "val"}, ONE_OF(1, 2, 0x3fff9, 7, 0x70005, 201), {NUMBER(0)}, orbStsDivByZeroErr},
    {{"DivC_.*", "val"}, nullptr, {NUMBER(0)}, orbStsDivByZeroErr},
    {{"Normalize_16.*", "vDiv"}, ONE_OF(1, -3, 100, INT_MAX, INT_MIN), {NUMBER(0)}, orbStsDivByZeroErr},
    {{"Normalize_32.*", "vDiv"},
     nullptr,
     {NUMBER(0), NUMBER(0x1p-127), NUMBER(-0x1p-127), NUMBER(NAN)},
     orbStsDivByZeroErr},
    {{"Normalize_64.*", "vDiv"}, nullptr, {NUMBER(0), NUMBER(0x1p-1023), NUMBER(NAN)}, orbStsDivByZeroErr},
    {{".*", "val|src|vSub"}, nullptr},
    {{".*DV(4D)?_.*", "state"}, NUMBER(toldStates(c))},
    {{"BuildSymblTableDV4D_.*", "bitInversion"}, ONE_OF(0, 5, 31, 16, -1)},
    {{"CalcStatesDV_.*", "presentIndex"}, NUMBER(firstOfHistory(c))},
    {{"Update(Linear|Power)_.*", "srcShiftRight"}, ONE_OF(0, 3, -1, 15, 31, 40, 9)},
    {{"Update(Linear|Power)_.*", "alpha"}, ONE_OF(0, -1, 2, 1, -7, 9, 200, -300)},
    {{"SumWindow_.*", "maskSize"}, NUMBER(windowMask(c)), belowOne, orbStsMaskSizeErr},
    {{"FIRGen.*", "tapsLen"}, NUMBER(c.n), {NUMBER(4), NUMBER(0), NUMBER(-1), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"FIRGen.*", "rFreq"}, ONE_OF(0.1, 0.25, 0.0073, 0.49, 0.3), noFrequency, orbStsSizeErr},
    {{"FIRGen.*", "rLowFreq"}, ONE_OF(0.1, 0.02, 0.25, 0.3), {NUMBER(0), NUMBER(0.5), NUMBER(NAN)}, orbStsSizeErr},
    {{"FIRGen.*", "rHighFreq"}, ONE_OF(0.35, 0.31, 0.47), noFrequency, orbStsSizeErr},
    {{"FIRGen.*", "winType"}, ONE_OF(0, 1, 2, 3, 4, -1)},
    {{"FIRGen.*", "doNormal"}, ONE_OF(1, 0, -4, 0, 0)},
    {{"IIRGen.*", "rFreq"}, ONE_OF(0.1, 0.25, 0.03, 0.4), {NUMBER(0), NUMBER(0.5), NUMBER(NAN)}, orbStsIIRGenFreqErr},
    {{"IIRGen.*", "order"},
     NUMBER(c.taps),
     {NUMBER(0), NUMBER(13), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsIIRGenOrderErr},
    {{"IIRGen.*", "rPassbandDb"}, ONE_OF(0.5, 3, 29), {NUMBER(0), NUMBER(29.5), NUMBER(NAN)}, orbStsIIRGenPassbandErr},
    {{"IIRGen.*", "filterType"}, ONE_OF(0, 1, 0, 1, 0)},
    {{"IIR.*", "order|numBq"}, NUMBER(c.taps), belowOne, orbStsIIROrderErr},
    {{"IIR.*", "tapsFactor"}, ONE_OF(12, 0, -3, 31, 20)},
    {{"Copy_1u", "srcBitOffset"}, NUMBER(sourceOffset(c)), {NUMBER(-1), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"Copy_1u|PackBits_.*", "dstBitOffset"},
     NUMBER(destinationOffset(c)),
     {NUMBER(-1), NUMBER(INT_MIN)},
     orbStsSizeErr},
    {{"FFT.*", "order"},
     NUMBER(c.order),
     {NUMBER(-1), NUMBER(31), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsFftOrderErr},
    {{"DFT.*", "length"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"[FD]FT.*", "flag"},
     ONE_OF(ORB_FFT_SCALE_FWD, ORB_FFT_SCALE_INV, ORB_FFT_SCALE_SQRT, ORB_FFT_SCALE_NONE),
     {NUMBER(0), NUMBER(3), NUMBER(16), NUMBER(-1)},
     orbStsFftFlagErr},
    {{"Vector(Ramp|Slope)_.*", "offset"}, ONE_OF(0, 3.5, -700.25, 40000, 100.5)},
    {{"Vector(Ramp|Slope)_.*", "slope"}, ONE_OF(1, -0.375, 0, 0.01, 37.3, -3e6, -9)},
    {{"VectorJaehne_\\d+u", "magn"}, ONE_OF(255, 100, 0, 0xffffffff)},
    {{"VectorJaehne_\\d+s", "magn"}, ONE_OF(127, 100, 0), {NUMBER(-1), NUMBER(-100)}, orbStsJaehneErr},
    {{"VectorJaehne_\\d+f", "magn"}, ONE_OF(127.5, 1, 0), {NUMBER(-1e-30), NUMBER(NAN)}, orbStsJaehneErr},
    {{"Tone_Direct_(32|64)fc?", "magn"}, ONE_OF(1000, 1e-3), {NUMBER(0), NUMBER(NAN)}, orbStsToneMagnErr},
    {{"Tone.*", "magn"}, ONE_OF(1000, 1, 32767), {NUMBER(0), NUMBER(-5)}, orbStsToneMagnErr},
    {{"Tone_Direct_(16s|32f|64f)", "rFreq"},
     ONE_OF(0.1, 0.0073, 0.49, 0, 0.25),
     {NUMBER(0.5), NUMBER(-1e-9), NUMBER(NAN)},
     orbStsToneFreqErr},
    {{"Tone_Direct_(16s|32f|64f)c", "rFreq"},
     ONE_OF(0.1, 0.75, 0.0073, 0, 0.9999),
     {NUMBER(1), NUMBER(-1e-9), NUMBER(NAN)},
     orbStsToneFreqErr},
    {{"Tone.*", "rFreqQ15"}, ONE_OF(3000, 0, 16383, 17), {NUMBER(16384), NUMBER(-1)}, orbStsToneFreqErr},
    {{"Tone.*", "phaseQ15"},
     ONE_OF(0, 205886, 70000),
     {NUMBER(205887), NUMBER(-1), NUMBER(INT_MIN)},
     orbStsTonePhaseErr},
    {{"Triangle_Direct_(32|64)fc?", "magn"}, ONE_OF(1000, 1e-3), {NUMBER(0), NUMBER(NAN)}, orbStsTriangleMagnErr},
    {{"Triangle.*", "magn"}, ONE_OF(1000, 1, 32767), {NUMBER(0), NUMBER(-5)}, orbStsTriangleMagnErr},
    {{"Triangle_.*", "rFreq"},
     ONE_OF(0.1, 0.0073, 0.49, 0, 0.135, 0.21),
     {NUMBER(0.5), NUMBER(-1e-9), NUMBER(NAN)},
     orbStsTriangleFreqErr},
    {{"Triangle_.*", "asym"},
     ONE_OF(0, -3.1415, 1.25, 3.1415, -2),
     {NUMBER(-3.14159274), NUMBER(3.14159274), NUMBER(NAN)},
     orbStsTriangleAsymErr},
    {{"Triangle.*", "rFreqQ15"}, ONE_OF(3000, 0, 16383, 17), {NUMBER(16384), NUMBER(-1)}, orbStsTriangleFreqErr},
    {{"Triangle.*", "phaseQ15"},
     ONE_OF(0, 205886, 70000),
     {NUMBER(205887), NUMBER(-1), NUMBER(INT_MIN)},
     orbStsTrianglePhaseErr},
    {{"Triangle.*", "asymQ15"},
     ONE_OF(0, -102943, 102943, 50000, -3),
     {NUMBER(102944), NUMBER(-102944), NUMBER(INT_MIN)},
     orbStsTriangleAsymErr},
    {{".*", "hint"}, ONE_OF(orbAlgHintNone, orbAlgHintFast, orbAlgHintAccurate, 7, -1)}, // fast() counts them
    {{"FIRLMS.*", "tapsLen"}, NUMBER(c.taps), belowOne, orbStsSizeErr},
    {{"FIRLMSMR.*", "dlyStep"}, NUMBER(dlyStep(c)), belowOne, orbStsSizeErr},
    {{"FIRLMSMR.*", "updateDly"}, NUMBER(updateDly(c)), {NUMBER(-1), NUMBER(INT_MIN)}, orbStsBadArgErr},
    {{"FIRLMSMRInitAlloc.*", "dlyLineIndex"},
     NUMBER(c.turn % steppedLine(c)),
     {NUMBER(-1), NUMBER(steppedLine(c)), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsSizeErr},
    {{"FIRLMS.*", "dlyLineIndex"}, ONE_OF(0, 1, -1, 70, INT_MAX, INT_MIN)},
    {{"FIRLMSMRGetDlyVal.*", "index"},
     NUMBER(c.turn % (steppedLine(c) + 1)),
     {NUMBER(-1), NUMBER(steppedLine(c) + 1), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsBadArgErr},
    {{"FIRLMS(One)?_.*|FIRLMS32f.*", "mu"}, ONE_OF(1e-9, 0, -2e-10, 1e-12, 1e-4)},
    {{"FIRLMS.*", "mu|muQ15"}, ONE_OF(327, 0, -9000, INT_MAX, INT_MIN)},
    {{"FIRLMS.*", "src|refVal|val|errVal|errRe|errIm"}, nullptr},
    {{"FIRSparse.*", "nzTapsLen"}, NUMBER(c.taps), belowOne, orbStsFIRLenErr},
    {{"FIRSparse.*", "order"}, NUMBER(sparseOrder(c)), belowOne, orbStsFIRLenErr},
    {{"IIRSparse.*", "nzTapsLen1"}, NUMBER(c.taps), belowOne, orbStsIIROrderErr},
    {{"IIRSparse.*", "nzTapsLen2"}, NUMBER(recursiveTaps(c)), {NUMBER(-1), NUMBER(INT_MIN)}, orbStsIIROrderErr},
    {{"IIRSparse.*", "order1"},
     NUMBER(sparsePosition(c, c.taps - 1)),
     {NUMBER(-1), NUMBER(INT_MIN)},
     orbStsSparseIndexErr},
    {{"IIRSparse.*", "order2"}, NUMBER(recursiveOrder(c)), {NUMBER(-1), NUMBER(INT_MIN)}, orbStsSparseIndexErr},
    {{"FIR.*", "tapsLen"}, NUMBER(c.taps), belowOne, orbStsFIRLenErr},
    {{"FIR.*", "tapsFactor"}, ONE_OF(0, -15, -18, 3, -16, INT_MIN, -40, 12, INT_MAX)},
    {{"FIRMR.*", "upFactor"}, NUMBER(upFactor(c)), belowOne, orbStsFIRMRFactorErr},
    {{"FIRMR.*", "downFactor"}, NUMBER(downFactor(c)), belowOne, orbStsFIRMRFactorErr},
    {{"FIRMR.*", "upPhase"},
     NUMBER(c.turn / 2 % upFactor(c)),
     {NUMBER(-1), NUMBER(upFactor(c)), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsFIRMRPhaseErr},
    {{"FIRMR.*", "downPhase"},
     NUMBER(c.turn / 3 % downFactor(c)),
     {NUMBER(-1), NUMBER(downFactor(c)), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsFIRMRPhaseErr},
    {{"Threshold_.*", "value(LT|GT)?"}, nullptr},
    {{"Threshold_.*", "relOp"}, ONE_OF(orbCmpLess, orbCmpGreater, 1, -4)},
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
    {{"CountInRange_.*", "lowerBound"}, ONE_OF(-1000000000, INT_MIN, 0)},
    {{"CountInRange_.*", "upperBound"}, ONE_OF(1000000000, INT_MAX)},
    // Each network, an even mask, and some beyond the vector.
    {{"FilterMedian_.*", "maskSize"}, ONE_OF(3, 5, 6, 7, 9, 1, 11, 31, 255, INT_MAX), belowOne, orbStsSizeErr},
    {{"RandUniform.*", "low"}, ONE_OF(0, 3, 100, 17)},
    {{"RandUniform.*", "high"}, ONE_OF(127, 100, 5, 18, 120)},
    {{"RandGauss.*", "mean"}, ONE_OF(0, 20, 100)},
    {{"RandGauss.*", "stdDev"}, ONE_OF(1, 50, 7, 127)},
    {{"Rand.*", "seed"}, nullptr},
    {{"Goertz.*Q15_.*", "rFreqQ15"}, ONE_OF(3277, 0, 32767, 17, 16384), {NUMBER(-1), NUMBER(-32768)}, orbStsRelFreqErr},
    {{"Goertz_.*", "rFreq"},
     ONE_OF(0.1, 0, 0.75, 0.0073, 0.25, 0.9999),
     {NUMBER(1), NUMBER(-1e-9), NUMBER(NAN)},
     orbStsRelFreqErr},
};

// ---- Exceptions ----

const PointeeRule pointeeRules[] = {
    // One of the channels is null.
    {{"Join.*", "pSrc"}, {NUMBER(0), NUMBER(channels(c) - 1)}, orbStsNullPtrErr},
    {{"Split.*", "pDst"}, {NUMBER(0), NUMBER(channels(c) - 1)}, orbStsNullPtrErr},
    {{"Triangle_.*", "pPhase"}, {NUMBER(-1e-9), NUMBER(6.283185307179586), NUMBER(NAN)}, orbStsTrianglePhaseErr},
    {{"Tone_.*", "pPhase"}, {NUMBER(-1e-9), NUMBER(6.283185307179586), NUMBER(NAN)}, orbStsTonePhaseErr},
    {{"GoertzTwoQ15_.*", "rFreqQ15"}, {NUMBER(-1), NUMBER(-32768)}, orbStsRelFreqErr},
    {{"(FIR|IIR)SparseInit_.*", "pNZTapPos"}, {NUMBER(-1), NUMBER(INT_MIN)}, orbStsSparseIndexErr},
    {{"FIRLMSOne_Direct.*|FIR(One)?_Direct_16s_.*", "pDlyLineIndex"},
     {NUMBER(-1), NUMBER(c.taps), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsDlyLineIndexErr},
    {{"IIR(One)?_Direct_.*", "pTaps"}, {NUMBER(-1), NUMBER(-32768)}, orbStsIIRScaleErr, placeOfA0<anyOrder>},
    {{"IIR(One)?_BiQuadDirect_.*", "pTaps"}, {NUMBER(-1), NUMBER(-32768)}, orbStsIIRScaleErr, placeOfA0<biQuads>},
    {{"IIRSetTaps32sc?_16sc?", "pTaps"}, {NUMBER(0)}, orbStsContextMatchErr, placeOfA0<eitherWay>}, // as ever
    {{"IIRSetTaps32sc_16sc32fc", "pTaps"}, {NUMBER(0)}, orbStsContextMatchErr, placeOfA0<eitherWay>},
    {{"IIRSetTaps.*", "pTaps"}, {NUMBER(0), NUMBER(NAN)}, orbStsDivByZeroErr, placeOfA0<eitherWay>},
    {{"IIR\\w*_BiQuad_.*", "pTaps"}, {NUMBER(0)}, orbStsDivByZeroErr}, // b0
    {{"IIR\\w*32sc?_16sc?", "pTaps"}, {NUMBER(0)}, orbStsDivByZeroErr, placeOfA0<anyOrder>},
    {{"IIR(?!Gen).*", "pTaps"}, {NUMBER(0), NUMBER(NAN)}, orbStsDivByZeroErr, placeOfA0<anyOrder>},
    {{"Sample(Up|Down)_.*", "pPhase"},
     {NUMBER(-1), NUMBER(sampleFactor(c)), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsSamplePhaseErr},
    {{"GoertzTwo_.*", "rFreq"}, {NUMBER(1), NUMBER(-1e-9), NUMBER(NAN)}, orbStsRelFreqErr},
};

const NullRule nullRules[] = {
    {{"FIRLMS(MR)?Free.*", "pState"}},                                   // nothing is freed then
    {{"FIRLMS(MR)?(InitAlloc|SetTaps|SetDlyLine).*", "pTaps|pDlyLine"}}, // zeros then
    {{"(FIR|IIR)SparseInit_.*", "pDlyLine"}},
    // The result does not depend on it.
    {{"DivC_16u_Sfs", "pSrc"}, [](const Case& c) { return scaleFactor(c) > 16 || scaleFactor(c) < -31; }},
    {{"AddC_16u_Sfs", "pSrc"}, [](const Case& c) { return scaleFactor(c) > 17 || scaleFactor(c) < -15; }},
    {{"(Min|Max)Indx_.*", "pIndx"}},                               // no place is told then
    {{"RealToCplx_.*", "pSrcRe|pSrcIm"}},                          // that part is zero then
    {{"FIR(MR)?(Init|InitAlloc|SetDlyLine)[\\d_].*", "pDlyLine"}}, // the line is zeroed then
    {{"[FI]IR(Init|InitAlloc|SetDlyLine)[\\d_].*", "pDlyLine"}},   // the line is zeroed then
};
const Exception nullNotTested[] = {
    {{"ConvCyclic.*", ".*"}},
};
const Exception resultsDependOnPlace[] = {
    {{"VectorRamp_64f", ""}}, // where the double precision begins
};
const Exception refusalMayWrite[] = {
    {{"FFTInit_.*", "pMemSpec"}},             // the header is begun before the flag and the second buffer are tested
    {{"WT.*InitAlloc_.*", "ppState"}},        // null, without memory
    {{"AutoCorr_.*_Sfs", "pDst"}},            // zeros behind the outputs
    {{"CartToPolar_.*", "pDst(Magn|Phase)"}}, // the one where the other is null
    {{"IIRInit\\d.*|IIRInit_.*", "pBuffer"}}, // the state is there before its taps are tested
};
const Exception lackOfMemoryIsNull[] = {
    {{"FIRGen.*", ""}},
};
const Exception tagNotTested[] = {
    {{"FIRSetTaps_32s", "pState"}},
    {{"FIRLMS(MR)?Free.*|FIRLMSMRGetTapsPointer.*", "pState"}},
    {{"(FIR|IIR)Sparse_.*", "pState"}},
};

const WarningRule warningRules[] = {
    {{"Div(CRev)?_.*|Threshold_LTInv_.*", ""}, {orbStsDivByZero}},
    {{"Sqrt_.*", ""}, {orbStsSqrtNegArg}},
    {{"(Ln|10Log10|SumLn)_.*", ""}, {orbStsLnZeroArg, orbStsLnNegArg}},
    {{"PackBits_.*", ""}, {orbStsBitLenLimited}},
    {{"MaxOrder_\\d+f", ""}, {orbStsNanArg}},
    {{"FilterMedian_.*", ""}, {orbStsEvenMedianMaskSize}},
    // An error in all but name: that is what they return whatever they have done.
    {{"IIRSetTaps32sc?_16sc?|IIRSetTaps32sc_16sc32fc", ""}, {orbStsContextMatchErr}},
};

const OrderRule orderRules[] = {
    // The real primitive over twice the length: the length is tested before it is doubled.
    {{"(Add|Sub)_(16|32)sc_.*|(Add|Sub)_(32|64)fc.*", ""}, {"len", "*"}},
    {{"WinBlackmanOpt_.*", ""}, {"len", "*"}},
    {{"Sample(Up|Down)_.*", ""}, {"*", "factor", "pPhase:value"}},
    {{"MaxOrder_.*", ""}, {"len", "*"}},
    {{"[LR]ShiftC_.*", ""}, {"pSrc", "pDst", "pSrcDst", "len", "val"}},
    // The magnitude's tests, then the phase's.
    {{"CartToPolar_.*", ""}, {"pSrc", "pSrcRe", "pSrcIm", "pDstMagn", "len", "pDstPhase"}},
    {{"DivC_.*", ""}, {"*", "val"}},
    {{"Normalize_.*", ""}, {"*", "vDiv"}},
    {{"Join.*", ""}, {"pDst", "nChannels", "chanLen", "pSrc", "pSrc:value"}},
    {{"Split.*", ""}, {"pSrc", "nChannels", "chanLen", "pDst", "pDst:value"}},
    {{"(Tone|Triangle)_Direct_.*", ""}, {"pPhase", "magn", "rFreq", "asym", "pPhase:value", "pDst", "len"}},
    {{"(FFT|DCT|DFT(OutOrd)?)(Fwd|Inv)_.*", ""}, {"pSpec", "pSpec:tag", "*"}},
    {{"FFTGetSize_.*", ""}, {"order", "*", "flag"}},
    {{"DCT...GetSize_.*", ""}, {"len", "*"}},
    {{"DCT...Init_.*", ""}, {"ppSpec", "len", "pMemSpec", "pMemInit"}},
    {{"FFTInit_.*", ""}, {"ppSpec", "order", "pMemSpec", "flag", "pMemInit"}},
    {{"GoertzTwoQ15_.*", ""}, {"rFreqQ15", "rFreqQ15:value", "*"}},
    {{"GoertzQ15_.*", ""}, {"rFreqQ15", "*"}},
    {{"Goertz_.*", ""}, {"pSrc", "pVal", "len", "rFreq"}},
    {{"IIRGen.*", ""}, {"pTaps", "rFreq", "order", "rPassbandDb", "filterType"}},
    {{"IIR(One)?_Direct_.*", ""}, {"order", "*", "pTaps:value", "len"}},
    {{"IIR(One)?_BiQuadDirect_.*", ""}, {"numBq", "*"}},
    {{"IIRSetTaps.*", ""}, {"pTaps", "pState", "pState:tag", "*"}},
    {{"WT(Fwd|Inv)InitAlloc_.*", ""}, {"ppState", "pTapsLow", "lenLow", "pTapsHigh", "lenHigh", "offsLow", "offsHigh"}},
    {{"WTInv_.*", ""}, {"pState", "pState:tag", "pSrcLow", "pSrcHigh", "srcLen", "pDst"}},
    {{"WT(Fwd|Inv)([GS]etDlyLine)?_.*", ""}, {"pState", "pState:tag", "*"}},
    {{"FIRLMSOne_Direct.*", ""}, {"*"}},
    {{"FIRLMSMRGetDlyVal.*", ""}, {"*", "pState:tag", "index"}},
    {{"FIRLMSMRInitAlloc.*", ""}, {"*", "tapsLen", "dlyStep", "updateDly", "dlyLineIndex"}},
    {{"FIRMR\\w*_Direct_.*", ""},
     {"pSrc", "pDst", "pSrcDst", "numIters", "pTaps", "tapsLen", "upFactor", "downFactor", "upPhase", "downPhase",
      "pDlyLine", "*"}},
    {{"FIRMR(GetStateSize|Init|InitAlloc)[\\d_].*", ""},
     {"*", "tapsLen", "upFactor", "downFactor", "upPhase", "downPhase"}},
    {{"FIR\\w*_Direct_.*", ""},
     {"pSrc", "pDst", "pSrcDst", "pDstVal", "pSrcDstVal", "numIters", "pTaps", "pTapsQ15", "tapsLen", "pDlyLine",
      "pDlyLineIndex", "*"}},
};

// ---- Cases ----

Cases operator+(Cases a, const Cases& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}
Cases lengthsFrom(int first, int last) {
    Cases cases;
    for (int n = first; n <= last; ++n) cases.push_back({.n = n});
    return cases;
}
Cases lengthsUpTo(int last) {
    return lengthsFrom(1, last);
}
Cases lengths(std::initializer_list<int> list) {
    Cases cases;
    for (int n : list) cases.push_back({.n = n});
    return cases;
}
Cases atLeast(int n, Cases cases) {
    std::erase_if(cases, [=](const Case& c) { return c.n < n; });
    return cases;
}
Cases orders(int first, int last, int repeats) {
    Cases cases;
    for (int order = first; order <= last; ++order)
        cases.insert(cases.end(), static_cast<std::size_t>(repeats), {.order = order});
    return cases;
}
// With hints for speed.
Cases fast(Cases cases) {
    for (std::size_t k = 0; k < cases.size(); ++k) cases[k].turn = 5 * static_cast<int>(k + 1) + 1;
    return cases;
}
Cases withTaps(Cases cases, std::initializer_list<int> taps) {
    std::size_t k = 0;
    for (Case& c : cases) c.taps = taps.begin()[k++ % taps.size()];
    return cases;
}

Cases everyPair(const Cases& cases, std::initializer_list<int> taps) {
    Cases pairs;
    for (Case c : cases)
        for (int count : taps) pairs.push_back({.n = c.n, .taps = count});
    return pairs;
}
Cases numbered(Cases cases) {
    for (std::size_t k = 0; k < cases.size(); ++k) cases[k].turn = static_cast<int>(k);
    return cases;
}

// The digest's lengths: all up to a vector of 64 bytes and more, those around the blocks that loops are unrolled by,
// and one of each remainder to the longest from which a call spreads over threads.
Cases digestLengths() {
    Cases cases = lengthsUpTo(70);
    for (int edge : {96, 128, 192, 256, 320, 512, 1024}) cases = cases + lengthsFrom(edge - 2, edge + 2);
    return numbered(cases + lengths({4099, 32771}));
}
// Each scale factor as well, and on the long vectors one of each kind.
Cases digestScales() {
    Cases cases = digestLengths();
    for (int s : scaleFactors) cases.push_back({.n = 261, .turn = turnOfScaleFactor(s)});
    for (int n : {4099, 32771})
        for (int s : {0, -1, 1, 7}) cases.push_back({.n = n, .turn = turnOfScaleFactor(s)});
    return cases;
}

Cases longScales() {
    Cases cases;
    for (int s : {-1, 7}) cases.push_back({.n = 4099, .turn = turnOfScaleFactor(s)});
    for (int s : {1, 3}) cases.push_back({.n = 40007, .turn = turnOfScaleFactor(s)});
    return cases;
}

const CaseRule caseRules[] = {
    // Of integers: the orders that may have integer arithmetic under each hint, with several scale factors.
    {{"FFT(Fwd|Inv)_.*_I?Sfs", ""},
     orders(0, 3, 10) + orders(4, 7, 4),
     orders(8, 19, 1) + orders(10, 11, 1),
     orders(0, 3, 5) + orders(10, 11, 1),
     numbered(orders(0, 3, 36) + orders(4, 12, 4) + orders(13, 18, 1))},
    // Each order with each flag, and those around the changes between the engines.
    {{"FFT.*", ""},
     orders(0, 7, 4),
     orders(8, 19, 1),
     orders(10, 11, 1),
     numbered(orders(0, 12, 4) + orders(13, 18, 1))},
    // Each plan, and those around the changes between them.
    {{"DCT.*", ""},
     lengthsUpTo(132) + lengths({150, 255, 256, 257}),
     lengths({500, 512, 1000, 1009, 1024, 4096, 5001}),
     lengths({8, 32, 100, 64, 101, 1024}),
     numbered(lengthsUpTo(160) +
              lengths({255, 256, 360, 512, 1000, 1009, 1024, 1025, 2048, 4096, 8192, 10007, 65536}))},
    // Lengths of every plan: all short ones, those around the limits between the plans, products and primes.
    {{"DFT.*", ""},
     lengthsUpTo(80),
     lengthsFrom(81, 160) +
         lengths({179, 180, 181, 302, 343, 500, 945, 1009, 1155, 2000, 2001, 2002, 3375, 5000, 5001}),
     lengths({4, 12, 16, 45, 101, 151, 302, 5001}),
     numbered(lengthsUpTo(160) + lengths({179,  180,  181,  302,  303,  343,  500,  501,  945,   1000,  1009, 1155,
                                          1200, 2000, 2001, 2002, 3375, 5000, 5001, 7200, 22801, 45045, 44100}))},
    // Rows of taps, in registers and in memory, and blocks of samples.
    {{"FIRLMS.*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 5, 8, 9, 16, 17, 32, 33, 64, 79, 80, 100}),
     withTaps(lengths({2047, 2048, 2049, 4097}), {5, 40, 64, 130, 256, 257}),
     withTaps(lengths({9, 9, 9, 2100}), {5, 1, 70}),
     numbered(withTaps(lengthsUpTo(70), {1, 2, 5, 8, 9, 16, 17, 32, 33, 64, 65, 96, 100, 255}) +
              everyPair(lengths({255, 2048, 2049}), {1, 8, 12, 31, 32, 64, 79, 80, 128, 200, 256, 257, 300}))},
    // Longer and shorter than the delays.
    {{"(FIR|IIR)Sparse.*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 3, 5, 10}),
     withTaps(lengths({128, 255, 1000, 4099}), {1, 4, 10, 30}),
     withTaps(lengths({9, 9, 9, 9, 200}), {1, 3, 10}),
     numbered(withTaps(lengthsUpTo(70), {1, 2, 3, 5, 10, 30}) +
              everyPair(lengths({127, 128, 1000, 4099}), {1, 4, 10, 30}))},
    {{".*DV(4D)?_.*", ""}, Cases(24), {}, Cases(4), numbered(Cases(120))},
    {{"FIRGen.*", ""}, lengthsFrom(5, 70), lengths({4099, 8200}), lengths({9, 10}), atLeast(5, digestLengths())},
    // A Chebyshev filter where calls are faulty.
    {{"IIRGen.*", ""},
     withTaps(Cases(48), {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}),
     {},
     fast(withTaps(lengths({1}), {5})),
     numbered(withTaps(Cases(120), {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}))},
    // The tap counts lie around the sizes of the kernels, the lengths around the changes between the paths.
    {{"FIR.*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 15, 16, 31, 33, 64}),
     withTaps(lengths({255, 256, 257, 511, 512, 513, 800, 801, 1600, 1601, 2049, 4096, 4607, 4608, 8200}),
              {1, 17, 64, 130}),
     withTaps(lengths({9, 1700}), {5, 70}),
     numbered(withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 11, 12, 13, 16, 33, 64}) +
              everyPair(lengths({255, 256, 511, 512, 801, 1601, 4352, 4609, 8200}), {1, 17, 64, 128, 200}))},
    // Lengths around four times the orders, and around the chunks of long blocks.
    {{"IIR.*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 15, 16, 33}),
     withTaps(lengths({1023, 1024, 1025, 1029, 2048, 2049, 4099}), {1, 2, 3, 8, 40, 300}),
     withTaps(lengths({9, 9, 1025, 1700}), {1, 5, 2, 70}),
     numbered(everyPair(lengthsUpTo(34), {1, 2, 3, 4, 7}) + withTaps(lengthsFrom(35, 70), {5, 8, 9, 12, 16}) +
              everyPair(lengths({255, 1024, 1025, 1031, 2050, 4099}), {1, 2, 3, 4, 5, 8, 33, 200}))},
    // The first length around the changes between the methods beside the second, both ways, and above that of a team.
    {{"ConvCyclic.*", ""}, lengthsUpTo(36), {}, lengthsUpTo(3), numbered(lengthsUpTo(72))},
    {{"(Conv(?!ert)|CrossCorr).*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 15, 16, 31, 33, 64, 140}),
     withTaps(lengths({448, 449, 191, 500, 64, 4097, 100, 5000, 200}), {64, 64, 600, 512, 4200, 63, 4096, 200, 1}),
     withTaps(lengths({9, 600, 4100}), {5, 500, 70}),
     numbered(withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 15, 16, 31, 33, 64}) +
              everyPair(lengths({191, 192, 449, 1000, 4096, 4100}), {1, 17, 63, 64, 200, 600, 4100}))},
    // Outputs, the second length, around those from which there are transforms.
    {{"AutoCorr_.*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 15, 16, 31, 33, 64, 140}),
     withTaps(lengths({152, 368, 856, 856, 1000, 3000}), {152, 400, 855, 856, 1200, 900}),
     withTaps(lengths({9, 5, 900}), {5, 9, 1000}),
     numbered(withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 15, 16, 31, 33, 64}) +
              everyPair(lengths({191, 856, 1025}), {1, 17, 151, 152, 368, 855, 856, 1200}))},
    // Of every plan of the transforms inside.
    {{"Hilbert.*", ""},
     lengthsUpTo(70),
     lengths({151, 181, 302, 1000, 1009, 1024, 2310, 5003}),
     lengths({1, 3, 9, 60, 64, 101, 302}),
     numbered(lengthsUpTo(70) + lengths({149, 151, 181, 302, 1000, 1009, 1024, 2310, 5003}))},
    // Around a vector, a head of a block, a piece of one, and several.
    {{"WT(Fwd|Inv)([A-Z].*)?_.*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 9, 16, 33}),
     withTaps(lengths({511, 512, 513, 1024, 1025, 1600}), {1, 2, 8, 17, 130}),
     withTaps(lengths({9, 9, 9, 9, 600}), {5, 1, 2, 8}),
     numbered(withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 9, 16, 33}) +
              everyPair(lengths({511, 512, 513, 1025, 1600}), {1, 2, 3, 8, 17, 64, 130}))},
    // Deviations are of two elements and more.
    {{"(Mean)?StdDev_.*", ""},
     lengthsFrom(2, 70),
     lengths({1030, 4099, 40007}),
     lengths({9, 9, 9, 40007}),
     atLeast(2, digestScales())},
    // From the least length on, and around a block of weights at either end.
    {{"WinBlackmanQ15_16s_ISfs", ""},
     lengthsFrom(3, 70),
     longScales(),
     lengths({9, 9, 513}),
     atLeast(3, digestScales())},
    {{"WinKaiser.*", ""},
     lengthsUpTo(70),
     lengths({511, 512, 513, 514, 1025, 4099}),
     lengths({9, 9, 513}),
     digestLengths()},
    {{"Win.*", ""},
     lengthsFrom(4, 70),
     lengths({511, 512, 513, 514, 1025, 4099}),
     lengths({9, 9, 513}),
     atLeast(4, digestLengths())},
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

#undef COUNT
#undef NUMBER

} // namespace

const Rules& rules() {
    static const Rules all{.objects = objectRules,
                           .vectors = vectorRules,
                           .numbers = numberRules,
                           .pointees = pointeeRules,
                           .nulls = nullRules,
                           .nullNotTested = nullNotTested,
                           .resultsDependOnPlace = resultsDependOnPlace,
                           .refusalMayWrite = refusalMayWrite,
                           .lackOfMemoryIsNull = lackOfMemoryIsNull,
                           .tagNotTested = tagNotTested,
                           .warnings = warningRules,
                           .orders = orderRules,
                           .cases = caseRules};
    return all;
}

int channels(const Case& c) {
    return 1 + c.turn % 9;
}

bool secondWay(const Case& c) {
    return (c.turn - static_cast<int>(c.at)) % 5 % 2 == 1; // the same for all elements of a vector
}

} // namespace sweep
