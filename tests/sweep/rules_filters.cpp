// The rules of filters and of what stands around them.
#include "sweep/rules_parts.h"

namespace sweep {
namespace {

// Of filters that change the rate: periods of every kind, and sometimes none.
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

constexpr Number floatWord = oneOf<0x447a0000, -0x40c00000, 0, 0x469c4000>; // bits of 1000, -0.75, 0 and 20000

const std::vector<Number> noFrequency = {NUMBER(0), NUMBER(-0.1), NUMBER(0.50001), NUMBER(NAN)};

const ObjectRule objectRules[] = {
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
};

const VectorRule vectorRules[] = {
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
    {{"Sample(Up|Down)_.*", "pDstLen"}, COUNT(1)},
    {{"Sample(Up|Down)_.*", "pPhase"}, COUNT(1), Use::update, NUMBER(c.turn / 2 % sampleFactor(c))},
    {{"SampleUp_.*", "pDst"}, COUNT(c.n* sampleFactor(c))},
    {{"SampleDown_.*", "pSrc"}, COUNT(c.n* sampleFactor(c))},
};

const NumberRule numberRules[] = {
    {{"WinBlackmanOpt_.*", "len"}, NUMBER(c.n), {NUMBER(3), NUMBER(0), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"WinKaiser.*", "len"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"Win.*", "len"}, NUMBER(c.n), {NUMBER(2), NUMBER(0), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"WinBlackman.*", "alpha"}, oneOf<-0.16, 0.375, 0, -25, 1e30>},
    {{"WinBlackmanQ15.*", "alphaQ15"}, oneOf<-5243, 12288, 0, 900000, INT_MIN>},
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
    {{"(Conv(?!ert)|CrossCorr).*", "src1Len"}, NUMBER(c.n), belowOne, orbStsSizeErr},
    {{"(Conv(?!ert)|CrossCorr).*", "src2Len"}, NUMBER(c.taps), belowOne, orbStsSizeErr},
    {{"CrossCorr.*", "dstLen"}, NUMBER(c.n + c.taps + 3), belowOne, orbStsSizeErr},
    {{"AutoCorr.*", "dstLen"}, NUMBER(c.taps), belowOne, orbStsSizeErr},
    {{"CrossCorr.*", "lowLag"}, lowLag},
    {{"ConvBiased_.*", "bias"}, NUMBER(-windowDelay(c))},
    {{"SumWindow_.*", "len"}, NUMBER(c.n)}, // below 1 it is no fault
    {{".*DV(4D)?_.*", "state"}, NUMBER(toldStates(c))},
    {{"BuildSymblTableDV4D_.*", "bitInversion"}, oneOf<0, 5, 31, 16, -1>},
    {{"CalcStatesDV_.*", "presentIndex"}, NUMBER(firstOfHistory(c))},
    {{"Update(Linear|Power)_.*", "srcShiftRight"}, oneOf<0, 3, -1, 15, 31, 40, 9>},
    {{"Update(Linear|Power)_.*", "alpha"}, oneOf<0, -1, 2, 1, -7, 9, 200, -300>},
    {{"SumWindow_.*", "maskSize"}, NUMBER(windowMask(c)), belowOne, orbStsMaskSizeErr},
    {{"FIRGen.*", "tapsLen"}, NUMBER(c.n), {NUMBER(4), NUMBER(0), NUMBER(-1), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{"FIRGen.*", "rFreq"}, oneOf<0.1, 0.25, 0.0073, 0.49, 0.3>, noFrequency, orbStsSizeErr},
    {{"FIRGen.*", "rLowFreq"}, oneOf<0.1, 0.02, 0.25, 0.3>, {NUMBER(0), NUMBER(0.5), NUMBER(NAN)}, orbStsSizeErr},
    {{"FIRGen.*", "rHighFreq"}, oneOf<0.35, 0.31, 0.47>, noFrequency, orbStsSizeErr},
    {{"FIRGen.*", "winType"}, oneOf<0, 1, 2, 3, 4, -1>},
    {{"FIRGen.*", "doNormal"}, oneOf<1, 0, -4, 0, 0>},
    {{"IIRGen.*", "rFreq"}, oneOf<0.1, 0.25, 0.03, 0.4>, {NUMBER(0), NUMBER(0.5)}, orbStsIIRGenFreqErr},
    {{"IIRGen.*", "order"},
     NUMBER(c.taps),
     {NUMBER(0), NUMBER(13), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsIIRGenOrderErr},
    {{"IIRGen.*", "rPassbandDb"}, oneOf<0.5, 3, 29>, {NUMBER(0), NUMBER(29.5), NUMBER(NAN)}, orbStsIIRGenPassbandErr},
    {{"IIRGen.*", "filterType"}, oneOf<0, 1, 0, 1, 0>},
    {{"IIR.*", "order|numBq"}, NUMBER(c.taps), belowOne, orbStsIIROrderErr},
    {{"IIR.*", "tapsFactor"}, oneOf<12, 0, -3, 31, 20>},
    {{"FIRLMS.*", "tapsLen"}, NUMBER(c.taps), belowOne, orbStsSizeErr},
    {{"FIRLMSMR.*", "dlyStep"}, NUMBER(dlyStep(c)), belowOne, orbStsSizeErr},
    {{"FIRLMSMR.*", "updateDly"}, NUMBER(updateDly(c)), {NUMBER(-1), NUMBER(INT_MIN)}, orbStsBadArgErr},
    {{"FIRLMSMRInitAlloc.*", "dlyLineIndex"},
     NUMBER(c.turn % steppedLine(c)),
     {NUMBER(-1), NUMBER(steppedLine(c)), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsSizeErr},
    {{"FIRLMS.*", "dlyLineIndex"}, oneOf<0, 1, -1, 70, INT_MAX, INT_MIN>},
    {{"FIRLMSMRGetDlyVal.*", "index"},
     NUMBER(c.turn % (steppedLine(c) + 1)),
     {NUMBER(-1), NUMBER(steppedLine(c) + 1), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsBadArgErr},
    {{"FIRLMS(One)?_.*|FIRLMS32f.*", "mu"}, oneOf<1e-9, 0, -2e-10, 1e-12, 1e-4>},
    {{"FIRLMS.*", "mu|muQ15"}, oneOf<327, 0, -9000, INT_MAX, INT_MIN>},
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
    {{"FIR.*", "tapsFactor"}, oneOf<0, -15, -18, 3, -16, INT_MIN, -40, 12, INT_MAX>},
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
};

const PointeeRule pointeeRules[] = {
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
};

const NullRule nullRules[] = {
    {{"FIRLMS(MR)?Free.*", "pState"}},                                   // nothing is freed then
    {{"FIRLMS(MR)?(InitAlloc|SetTaps|SetDlyLine).*", "pTaps|pDlyLine"}}, // zeros then
    {{"(FIR|IIR)SparseInit_.*", "pDlyLine"}},
    {{"FIR(MR)?(Init|InitAlloc|SetDlyLine)[\\d_].*", "pDlyLine"}}, // the line is zeroed then
    {{"[FI]IR(Init|InitAlloc|SetDlyLine)[\\d_].*", "pDlyLine"}},   // the line is zeroed then
};

const Exception nullNotTested[] = {
    {{"ConvCyclic.*", ".*"}},
};

const Exception refusalMayWrite[] = {
    {{"AutoCorr_.*_Sfs", "pDst"}},            // zeros behind the outputs
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
    // An error in all but name: that is what they return whatever they have done.
    {{"IIRSetTaps32sc?_16sc?|IIRSetTaps32sc_16sc32fc", ""}, {orbStsContextMatchErr}},
};

const OrderRule orderRules[] = {
    {{"WinBlackmanOpt_.*", ""}, {"len", "*"}},
    {{"Sample(Up|Down)_.*", ""}, {"*", "factor", "pPhase:value"}},
    {{"IIRGen.*", ""}, {"pTaps", "rFreq", "order", "rPassbandDb", "filterType"}},
    {{"IIR(One)?_Direct_.*", ""}, {"order", "*", "pTaps:value", "len"}},
    {{"IIR(One)?_BiQuadDirect_.*", ""}, {"numBq", "*"}},
    {{"IIRSetTaps.*", ""}, {"pTaps", "pState", "pState:tag", "*"}},
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

const CaseRule caseRules[] = {
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
};

} // namespace

const Rules& filterRules() {
    static const Rules book{.objects = objectRules,
                            .vectors = vectorRules,
                            .numbers = numberRules,
                            .pointees = pointeeRules,
                            .nulls = nullRules,
                            .nullNotTested = nullNotTested,
                            .refusalMayWrite = refusalMayWrite,
                            .lackOfMemoryIsNull = lackOfMemoryIsNull,
                            .tagNotTested = tagNotTested,
                            .warnings = warningRules,
                            .orders = orderRules,
                            .cases = caseRules};
    return book;
}

} // namespace sweep
