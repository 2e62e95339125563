#include "fir/fir_member.h"

#include <numeric>

namespace {

using namespace fir;
using support::Edge;
using support::Guarded;

template <class T>
class FirDirect : public fir::Test<T> {};
TYPED_TEST_SUITE(FirDirect, Types);

// One step, as it is documented.
template <class T>
T step(T src, const std::vector<T>& taps, std::vector<T>& line, int& index) {
    const auto tapsLen = static_cast<int>(taps.size());
    const auto at = [&](int n) -> T& { return line[static_cast<std::size_t>(n)]; };
    at(index) = at(index + tapsLen) = src;
    index = (index + 1) % tapsLen;
    if constexpr (isComplex<T>) {
        using R = Part<T>;
        double byRe[2] = {}, byIm[2] = {};
        for (int k = 0; k < tapsLen; ++k) {
            const T h = taps[static_cast<std::size_t>(tapsLen - 1 - k)], x = at(index + k);
            byRe[0] += R(h.re * x.re), byRe[1] += R(h.re * x.im);
            byIm[0] += R(h.im * x.re), byIm[1] += R(h.im * x.im);
        }
        return {static_cast<R>(byRe[0] - byIm[1]), static_cast<R>(byRe[1] + byIm[0])};
    } else {
        double sum = 0;
        for (int k = 0; k < tapsLen; ++k) sum += T(taps[static_cast<std::size_t>(tapsLen - 1 - k)] * at(index + k));
        return static_cast<T>(sum);
    }
}

TYPED_TEST(FirDirect, BlocksAndSinglesTakeTheSameSteps) {
    using T = TypeParam;
    using M = Members<T>;
    for (const int tapsLen : {1, 2, 3, 8, 12, 37}) {
        for (const int start : {0, 1, tapsLen - 2, tapsLen - 1}) {
            if (start < 0 || start >= tapsLen) continue;
            const auto taps = randomVector<T>(static_cast<std::size_t>(tapsLen), 1);
            const auto x = randomVector<T>(200, 2);
            // Both halves are filled on their own: which of them a step reads is part of its definition.
            const auto line = randomVector<T>(2 * taps.size(), 3);
            auto wantedLine = line;
            int wantedIndex = start;
            std::vector<T> wanted;
            for (T src : x) wanted.push_back(step(src, taps, wantedLine, wantedIndex));

            enum { blocks, blocksInPlace, singles, singlesInPlace };
            for (const int how : {blocks, blocksInPlace, singles, singlesInPlace}) {
                Guarded<T> got(line.size()), y(x.size());
                std::copy(line.begin(), line.end(), got.begin());
                std::copy(x.begin(), x.end(), y.begin());
                int index = start;
                T* const D = got.data();
                for (int n = 0, count = 1; n < 200; n += count) {
                    const auto at = static_cast<std::size_t>(n);
                    count = how >= singles ? 1 : std::min(200 - n, count + 7);
                    switch (how) {
                    case blocks:
                        EXPECT_EQ(M::direct(&x[at], &y[at], count, taps.data(), tapsLen, D, &index), orbStsNoErr);
                        break;
                    case blocksInPlace:
                        EXPECT_EQ(M::directInPlace(&y[at], count, taps.data(), tapsLen, D, &index), orbStsNoErr);
                        break;
                    case singles:
                        EXPECT_EQ(M::oneDirect(x[at], &y[at], taps.data(), tapsLen, D, &index), orbStsNoErr);
                        break;
                    default:
                        EXPECT_EQ(M::oneDirectInPlace(&y[at], taps.data(), tapsLen, D, &index), orbStsNoErr);
                    }
                }
                const auto called = [=] {
                    static constexpr const char* ways[] = {"blocks", "blocks in place", "singles", "singles in place"};
                    return testing::Message() << tapsLen << " taps from index " << start << ", by " << ways[how];
                };
                EXPECT_TRUE(sameBits(y, wanted, x)) << called();
                EXPECT_TRUE(sameBits(got, wantedLine)) << "the line, " << called();
                EXPECT_EQ(index, wantedIndex);
                EXPECT_TRUE(got.intact() && y.intact());
            }
        }
    }
}

// 1 + 2^-24 and -1 leave 2^-24 in a sum of doubles, 0 in one of singles.
TEST(FirDirectSingle, SumsAreDouble) {
    const Orb32f taps[] = {1, 1, 1}, x[] = {-1, 0x1p-24f, 1};
    Orb32f line[6] = {}, y[3];
    int index = 0;
    ASSERT_EQ(orbsFIR_Direct_32f(x, y, 3, taps, 3, line, &index), orbStsNoErr);
    EXPECT_EQ(y[2], 0x1p-24f);
}

TYPED_TEST(FirDirect, AWrongPositionIsTakenAsTheStart) {
    using T = TypeParam;
    using M = Members<T>;
    const auto taps = randomVector<T>(4), x = randomVector<T>(9);
    for (const int wrong : {4, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        Guarded<T> line(8), behind(8, Edge::begin), wanted(8), y(9), z(9);
        for (T* D : {line.data(), behind.data(), wanted.data()}) std::fill_n(D, 8, T{});
        int right = 0, index = wrong, alike = wrong;
        EXPECT_EQ(M::direct(x.data(), z.data(), 9, taps.data(), 4, wanted.data(), &right), orbStsNoErr);
        EXPECT_EQ(M::direct(x.data(), y.data(), 9, taps.data(), 4, line.data(), &index), orbStsNoErr);
        EXPECT_EQ(M::oneDirect(x[0], y.data(), taps.data(), 4, behind.data(), &alike), orbStsNoErr);
        EXPECT_TRUE(sameBits(y.data(), z.data(), 9));
        EXPECT_EQ(index, right);
        EXPECT_EQ(alike, 1);
        EXPECT_TRUE(line.intact() && behind.intact());
    }
}

TYPED_TEST(FirDirect, ArgumentsAreTestedInOrder) {
    using T = TypeParam;
    using M = Members<T>;
    T x[1] = {}, y[1] = {}, taps[1] = {}, line[2] = {};
    int index = 0;
    EXPECT_EQ(M::direct(nullptr, y, 0, nullptr, 0, line, &index), orbStsNullPtrErr);
    EXPECT_EQ(M::direct(x, nullptr, 0, nullptr, 0, line, &index), orbStsNullPtrErr);
    EXPECT_EQ(M::direct(x, y, 0, nullptr, 0, line, &index), orbStsSizeErr);
    EXPECT_EQ(M::direct(x, y, 1, nullptr, 0, line, &index), orbStsNullPtrErr);
    EXPECT_EQ(M::direct(x, y, 1, taps, 0, nullptr, nullptr), orbStsFIRLenErr);
    EXPECT_EQ(M::direct(x, y, 1, taps, 1, nullptr, &index), orbStsNullPtrErr);
    EXPECT_EQ(M::direct(x, y, 1, taps, 1, line, nullptr), orbStsNullPtrErr);
    EXPECT_EQ(M::directInPlace(nullptr, 0, nullptr, 0, line, &index), orbStsNullPtrErr);
    EXPECT_EQ(M::directInPlace(y, 0, nullptr, 0, line, &index), orbStsSizeErr);
    EXPECT_EQ(M::directInPlace(y, 1, taps, 0, nullptr, &index), orbStsFIRLenErr);
    EXPECT_EQ(M::oneDirect(x[0], nullptr, taps, 0, nullptr, &index), orbStsNullPtrErr);
    EXPECT_EQ(M::oneDirect(x[0], y, nullptr, 0, line, &index), orbStsNullPtrErr);
    EXPECT_EQ(M::oneDirect(x[0], y, taps, 0, nullptr, &index), orbStsFIRLenErr);
    EXPECT_EQ(M::oneDirect(x[0], y, taps, 1, line, nullptr), orbStsNullPtrErr);
    EXPECT_EQ(M::oneDirectInPlace(nullptr, taps, 0, nullptr, &index), orbStsNullPtrErr);
    EXPECT_EQ(M::oneDirectInPlace(y, taps, 0, nullptr, &index), orbStsFIRLenErr);
    EXPECT_EQ(M::oneDirectInPlace(y, taps, 1, nullptr, &index), orbStsNullPtrErr);
}

} // namespace
