#include "sweep/rules.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <stdexcept>

namespace sweep {
namespace {

// Rules match the whole of a member's name, without "orbs", and the whole of an argument's name. The first rule holds.
struct Pattern {
    const char *members, *argument;
};

bool matches(std::string_view text, const char* pattern) {
    static std::map<std::string, std::regex> compiled;
    const auto [at, isNew] = compiled.try_emplace(pattern);
    if (isNew) at->second.assign(pattern);
    return std::regex_match(text.begin(), text.end(), at->second);
}
bool matches(std::string_view member, std::string_view argument, const Pattern& pattern) {
    return matches(member, pattern.members) && matches(argument, pattern.argument);
}

std::set<const void*>& usedRules() {
    static std::set<const void*> used;
    return used;
}
template <class Rule, std::size_t size>
const Rule* ruleFor(const Rule (&rules)[size], std::string_view member, std::string_view argument = {}) {
    const auto rule = std::ranges::find_if(rules, [&](const Rule& r) { return matches(member, argument, r.pattern); });
    if (rule == std::end(rules)) return nullptr;
    usedRules().insert(rule);
    return rule;
}

// ---- Objects ----

bool always(const Case&) {
    return true;
}

// Memory that a caller gives to a family's calls: the argument, and that of the query which tells its size.
struct Area {
    std::string argument, size;
    bool (*mayBeNull)(const Case&) = nullptr;
};
struct ObjectRule {
    Pattern pattern;          // of the type; the kind is what it ends with
    const char *verb, *query; // of the family's functions, and of the one that tells sizes
    std::vector<Area> areas;  // with the object's own name: Init takes the memory itself, no place for a pointer to it
    const char* kind = nullptr; // else the type tells it
    bool freesAllocatedOnly = false;
};
const ObjectRule objectRules[] = {
    {{"OrbsFFTSpec(\\w+)", ""},
     "FFT",
     "GetSize",
     {{"pMemSpec", "pSpecSize"},
      {"pMemInit", "pSpecBufferSize", [](const Case& c) { return c.order <= 10; }}, // not needed
      {"pBuffer", "pBufferSize", always}}},                                         // the call takes one of its own
    {{"OrbsFIRState(\\w+)", ""}, "FIR", "GetStateSize", {{"pBuffer", "pBufferSize"}}},
    {{"OrbsToneState_16s", ""}, "Tone", "GetStateSize", {{"pState", "pSize"}}, "Q15_16s"},
    {{"OrbsTriangleState_16s", ""}, "Triangle", "GetStateSize", {{"pState", "pSize"}}, "Q15_16s"},
    {{"OrbsRandUniState(\\w+)", ""}, "RandUniform", "GetSize", {{"pState", "pSize"}}, nullptr, true},
    {{"OrbsRandGaussState(\\w+)", ""}, "RandGauss", "GetSize", {{"pState", "pSize"}}, nullptr, true},
};

// What the query of a family tells of one area.
std::size_t sizeTold(const ObjectRule& rule, const Family& family, const Area& area, const Case& c) {
    const Plan& query = planOf(family.function(rule.query));
    std::vector<int> told(query.arguments.size());
    std::vector<Value> values;
    std::size_t size = told.size();
    for (std::size_t k = 0; k < told.size(); ++k) {
        const Argument& a = query.arguments[k];
        if (a.number) {
            a.type.set(values.emplace_back().bytes(), a.number(c));
        } else {
            values.emplace_back(&told[k]);
        }
        if (a.name == area.size) size = k;
    }
    const Member& member = *query.member;
    if (size == told.size() || member.signature->call(member.function, values.data()) != orbStsNoErr)
        throw std::runtime_error(std::string(member.name) + " tells no " + area.size);
    return static_cast<std::size_t>(told[size]);
}

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

#define COUNT(expression)                                                                                              \
    [](const Case& c [[maybe_unused]]) -> std::size_t { return static_cast<std::size_t>(expression); }
#define NUMBER(expression) [](const Case& c [[maybe_unused]]) -> double { return expression; }

template <auto... choices>
double oneOf(const Case& c) {
    static constexpr double values[] = {choices...};
    return values[static_cast<std::size_t>(c.turn) % std::size(values)];
}

struct VectorRule {
    Pattern pattern;
    Count count;
    std::optional<Use> use = {}; // else const: source, pSrcDst...: update, others: destination
    Number holds = nullptr;      // else random elements
    bool (*positive)(const Case&) = nullptr;
};

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
    {{"FIR\\w*_Direct_.*", "pDlyLine"}, COUNT(2 * c.taps), Use::update},
    {{"FIR\\w*_Direct_.*", "pDlyLineIndex"}, COUNT(1), Use::update, NUMBER(c.turn % c.taps)},
    {{"FIR.*", "pTaps|pDlyLine"}, COUNT(c.taps)},
    {{"FIR.*", "pDstVal|pSrcDstVal"}, COUNT(1)},
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
    return oneOf<0, 0.25, 3000, 0.75, 20000, 30, 9000>(c);
}

struct NumberRule {
    Pattern pattern;
    Number number; // null: a random element
    std::vector<Number> faults = {};
    OrbStatus status = orbStsNoErr;
};

const std::vector<Number> belowOne = {NUMBER(0), NUMBER(-1), NUMBER(INT_MIN)};
const NumberRule numberRules[] = {
    {{"(Mean)?StdDev_.*", "len"}, NUMBER(c.n), {NUMBER(1), NUMBER(0), NUMBER(-1), NUMBER(INT_MIN)}, orbStsSizeErr},
    {{".*", "len|lenDst|srcLen|chanLen|numIters"}, NUMBER(c.n), belowOne, orbStsSizeErr},
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
    {{"FFT.*", "order"},
     NUMBER(c.order),
     {NUMBER(-1), NUMBER(31), NUMBER(INT_MIN), NUMBER(INT_MAX)},
     orbStsFftOrderErr},
    {{"FFT.*", "flag"},
     oneOf<ORB_FFT_SCALE_FWD, ORB_FFT_SCALE_INV, ORB_FFT_SCALE_SQRT, ORB_FFT_SCALE_NONE>,
     {NUMBER(0), NUMBER(3), NUMBER(16), NUMBER(-1)},
     orbStsFftFlagErr},
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
    {{"FIR.*", "tapsLen"}, NUMBER(c.taps), belowOne, orbStsFIRLenErr},
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

// ---- Exceptions ----

struct PointeeRule {
    Pattern pattern;
    std::vector<Number> faults;
    OrbStatus status;
};
const PointeeRule pointeeRules[] = {
    // One of the channels is null.
    {{"Join.*", "pSrc"}, {NUMBER(0), NUMBER(channels(c) - 1)}, orbStsNullPtrErr},
    {{"Split.*", "pDst"}, {NUMBER(0), NUMBER(channels(c) - 1)}, orbStsNullPtrErr},
    {{"Triangle_.*", "pPhase"}, {NUMBER(-1e-9), NUMBER(6.283185307179586), NUMBER(NAN)}, orbStsTrianglePhaseErr},
    {{"Tone_.*", "pPhase"}, {NUMBER(-1e-9), NUMBER(6.283185307179586), NUMBER(NAN)}, orbStsTonePhaseErr},
};

struct Exception {
    Pattern pattern;
};
struct NullRule {
    Pattern pattern;
    bool (*when)(const Case&) = always;
};
const NullRule nullRules[] = {
    // The result does not depend on it.
    {{"DivC_16u_Sfs", "pSrc"}, [](const Case& c) { return scaleFactor(c) > 16 || scaleFactor(c) < -31; }},
    {{"AddC_16u_Sfs", "pSrc"}, [](const Case& c) { return scaleFactor(c) > 17 || scaleFactor(c) < -15; }},
    {{"(Min|Max)Indx_.*", "pIndx"}},                          // no place is told then
    {{"RealToCplx_.*", "pSrcRe|pSrcIm"}},                     // that part is zero then
    {{"FIR(Init|InitAlloc|SetDlyLine)[\\d_].*", "pDlyLine"}}, // the line is zeroed then
};
const Exception resultsDependOnPlace[] = {
    {{"VectorRamp_64f", ""}}, // where the double precision begins
};
const Exception refusalMayWrite[] = {
    {{"FFTInit_.*", "pMemSpec"}},             // the header is begun before the flag and the second buffer are tested
    {{"CartToPolar_.*", "pDst(Magn|Phase)"}}, // the one where the other is null
};

// Members whose results may come with a warning.
struct WarningRule {
    Pattern pattern;
    std::vector<OrbStatus> warnings;
};
const WarningRule warningRules[] = {
    {{"Div(CRev)?_.*|Threshold_LTInv_.*", ""}, {orbStsDivByZero}},
    {{"Sqrt_.*", ""}, {orbStsSqrtNegArg}},
    {{"(Ln|10Log10|SumLn)_.*", ""}, {orbStsLnZeroArg, orbStsLnNegArg}},
    {{"PackBits_.*", ""}, {orbStsBitLenLimited}},
    {{"MaxOrder_\\d+f", ""}, {orbStsNanArg}},
    {{"FilterMedian_.*", ""}, {orbStsEvenMedianMaskSize}},
};

// The order of the tests: arguments by name, NAME:value for what a pointer points to and NAME:tag for an object's tag.
// What is not named comes where the * stands: pointers, then numbers, then what pointers point to, then tags.
struct OrderRule {
    Pattern pattern;
    std::vector<std::string> order;
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
    {{"FFT(Fwd|Inv)_.*", ""}, {"pSpec", "pSpec:tag", "*"}},
    {{"FFTGetSize_.*", ""}, {"order", "*", "flag"}},
    {{"FFTInit_.*", ""}, {"ppSpec", "order", "pMemSpec", "flag", "pMemInit"}},
    {{"FIR\\w*_Direct_.*", ""},
     {"pSrc", "pDst", "pSrcDst", "pDstVal", "pSrcDstVal", "numIters", "pTaps", "tapsLen", "pDlyLine", "pDlyLineIndex",
      "*"}},
};

// ---- Cases ----

using Cases = std::vector<Case>;

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

struct CaseRule {
    Pattern pattern;
    Cases small, large, faulty, digest;
};
const CaseRule caseRules[] = {
    // Each order with each flag, and those around the changes between the engines.
    {{"FFT.*", ""},
     orders(0, 7, 4),
     orders(8, 19, 1),
     orders(10, 11, 1),
     numbered(orders(0, 12, 4) + orders(13, 18, 1))},
    // The tap counts lie around the sizes of the kernels, the lengths around the changes between the paths.
    {{"FIR.*", ""},
     withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 8, 15, 16, 31, 33, 64}),
     withTaps(lengths({255, 256, 257, 511, 512, 513, 800, 801, 1600, 1601, 2049, 4096, 4607, 4608, 8200}),
              {1, 17, 64, 130}),
     withTaps(lengths({9, 1700}), {5, 70}),
     numbered(withTaps(lengthsUpTo(70), {1, 2, 3, 4, 5, 11, 12, 13, 16, 33, 64}) +
              everyPair(lengths({255, 256, 511, 512, 801, 1601, 4352, 4609, 8200}), {1, 17, 64, 128, 200}))},
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

// Cleared; of the next kind; of no kind.
const Number foreignTags[] = {NUMBER(0), NUMBER(1), NUMBER(1 << 24)};

#undef COUNT
#undef NUMBER

// ---- Planning ----

std::vector<std::string> split(std::string_view arguments) {
    std::vector<std::string> parts;
    while (!arguments.empty()) {
        const std::size_t comma = std::min(arguments.find(','), arguments.size());
        parts.emplace_back(arguments.substr(0, comma));
        arguments.remove_prefix(std::min(comma + 1, arguments.size()));
    }
    return parts;
}

std::string nameIn(const std::string& argument) {
    std::smatch match;
    return std::regex_search(argument, match, std::regex("(\\w+)\\s*(\\[\\w*\\])?\\s*$")) ? match[1].str() : argument;
}

class Planner {
public:
    explicit Planner(const Member& member) : member_(member), name_(member.name.substr(4)) {
        plan_.member = &member;
        const std::vector<std::string> texts = split(member.arguments);
        if (!member.signature->call || texts.size() != member.signature->types.size()) {
            refuse("returns no status, or its arguments are not told apart");
            return;
        }
        for (const std::string& text : texts) findObject(text);
        for (std::size_t k = 0; k < texts.size(); ++k) add(texts[k], member.signature->types[k]);
        if (const WarningRule* rule = ruleFor(warningRules, name_)) plan_.warnings = rule->warnings;
        plan_.dependsOnPlace = ruleFor(resultsDependOnPlace, name_);
        const CaseRule* cases = ruleFor(caseRules, name_);
        plan_.small = cases->small;
        plan_.large = cases->large;
        plan_.faulty = cases->faulty;
        plan_.digest = cases->digest;
        int turn = 0;
        for (Cases* list : {&plan_.small, &plan_.large, &plan_.faulty})
            for (Case& c : *list) c.turn = c.turn != 0 ? c.turn : turn++;
    }
    Plan take() { return std::move(plan_); }

private:
    void findObject(const std::string& argument) {
        static const std::regex type("\\b(Orbs\\w+)");
        std::smatch match;
        if (!std::regex_search(argument, match, type)) return;
        const std::string name = match[1];
        object_ = ruleFor(objectRules, name);
        if (object_ && std::regex_match(name, match, std::regex(object_->pattern.members)))
            plan_.family = {object_->verb, object_->kind ? object_->kind : match[1].str(), object_->freesAllocatedOnly};
    }

    void add(const std::string& text, const Type& type) {
        Argument a{.name = nameIn(text), .type = type};
        const std::size_t k = plan_.arguments.size();
        if (const NullRule* rule = ruleFor(nullRules, name_, a.name)) a.mayBeNull = rule->when;
        a.refusalMayWrite = ruleFor(refusalMayWrite, name_, a.name);
        switch (type.kind) {
        case Kind::element:
            addNumber(a, k);
            break;
        case Kind::vector:
        case Kind::vectors:
            addVector(a, k);
            break;
        case Kind::object:
        case Kind::objectSlot:
            addObject(a, k, text);
            break;
        }
        if (type.kind != Kind::element) addFault(Fault::null, k, a.name, nullptr, orbStsNullPtrErr, 0, "");
        plan_.arguments.push_back(a);
    }

    void addNumber(Argument& a, std::size_t k) {
        const NumberRule* rule = ruleFor(numberRules, name_, a.name);
        if (!rule) return refuse("no rule for the number " + a.name);
        a.number = rule->number;
        for (Number bad : rule->faults) addFault(Fault::value, k, a.name, bad, rule->status, 1, "");
    }

    bool addArea(Argument& a) {
        if (!object_) return false;
        const auto area = std::ranges::find(object_->areas, a.name, &Area::argument);
        if (area == object_->areas.end()) return false;
        a.use = Use::scratch;
        a.count = [rule = object_, family = plan_.family, area](const Case& c) {
            return sizeTold(*rule, family, *area, c);
        };
        a.mayBeNull = area->mayBeNull;
        return true;
    }

    void addVector(Argument& a, std::size_t k) {
        if (addArea(a)) return;
        const VectorRule* rule = ruleFor(vectorRules, name_, a.name);
        if (!rule) return refuse("no rule for the vector " + a.name);
        const Use byName = a.name.starts_with("pSrcDst") ? Use::update : Use::destination;
        a.use = rule->use.value_or(a.type.isConst ? Use::source : byName);
        a.count = rule->count;
        a.number = rule->holds;
        a.positive = rule->positive;
        if (const PointeeRule* pointee = ruleFor(pointeeRules, name_, a.name))
            for (Number bad : pointee->faults) addFault(Fault::value, k, a.name, bad, pointee->status, 2, ":value");
    }

    void addObject(Argument& a, std::size_t k, const std::string& text) {
        if (!object_) return refuse("no rule for the object " + text);
        const bool isInit = name_.starts_with(plan_.family.verb + "Init");
        if (isInit && a.type.kind == Kind::object) {
            a.type.size = 1; // of raw memory
            if (!addArea(a)) refuse("no size for the object " + text);
            return;
        }
        a.use = a.type.kind == Kind::objectSlot ? Use::destination : Use::update;
        if (a.type.kind == Kind::object)
            for (Number foreign : foreignTags)
                addFault(Fault::tag, k, a.name, foreign, orbStsContextMatchErr, 3, ":tag");
    }

    void addFault(Fault::What what, std::size_t k, const std::string& name, Number bad, OrbStatus status, int rank,
                  const char* suffix) {
        if (const OrderRule* rule = ruleFor(orderRules, name_)) {
            const auto& order = rule->order;
            auto at = std::ranges::find(order, name + suffix);
            const bool named = at != order.end();
            if (!named) at = std::ranges::find(order, "*");
            if (at == order.end()) return refuse("the order of tests leaves out " + name + suffix);
            rank = static_cast<int>(at - order.begin()) * 4 + (named ? 0 : rank);
        }
        plan_.faults.push_back({what, k, bad, status, rank});
    }

    void refuse(const std::string& why) {
        if (plan_.notUnderstood.empty()) plan_.notUnderstood = std::string(member_.name) + ": " + why;
    }

    const Member& member_;
    std::string_view name_;
    const ObjectRule* object_ = nullptr;
    Plan plan_;
};

template <class Rule, std::size_t size>
void appendIdle(std::vector<std::string>& idle, const Rule (&rules)[size]) {
    for (const Rule& rule : rules)
        if (!usedRules().contains(&rule))
            idle.push_back(std::string(rule.pattern.members) + " " + rule.pattern.argument);
}

} // namespace

int channels(const Case& c) {
    return 1 + c.turn % 9;
}

const Member* Family::find(const char* step) const {
    static const auto table = [] {
        std::map<std::string, const Member*, std::less<>> byName;
        for (const Member& member : members()) byName.emplace(member.name, &member);
        return byName;
    }();
    const std::string name = "orbs" + verb + step;
    auto at = table.find(name + kind);
    if (at == table.end()) at = table.find(name);
    return at == table.end() ? nullptr : at->second;
}

const Member& Family::function(const char* step) const {
    if (const Member* member = find(step)) return *member;
    throw std::runtime_error("no member orbs" + verb + step + kind);
}

std::vector<std::string> idleRules() {
    for (const Member& member : members()) planOf(member);
    std::vector<std::string> idle;
    appendIdle(idle, objectRules);
    appendIdle(idle, vectorRules);
    appendIdle(idle, numberRules);
    appendIdle(idle, pointeeRules);
    appendIdle(idle, nullRules);
    appendIdle(idle, resultsDependOnPlace);
    appendIdle(idle, refusalMayWrite);
    appendIdle(idle, warningRules);
    appendIdle(idle, orderRules);
    appendIdle(idle, caseRules);
    return idle;
}

const Plan& planOf(const Member& member) {
    static std::map<const Member*, Plan> plans;
    const auto [at, isNew] = plans.try_emplace(&member);
    if (isNew) at->second = Planner(member).take();
    return at->second;
}

} // namespace sweep
