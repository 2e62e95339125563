#include "orbs.h"
#include "support/compare.h"
#include "support/guarded.h"

namespace {

using support::Edge;
using support::Guarded;

bool bitAt(const Orb8u* string, std::size_t n) {
    return string[n / 8] >> (7 - n % 8) & 1;
}

// Bytes that hold some of the bits from `offset` on.
std::size_t bytesOf(std::size_t offset, std::size_t bits) {
    return (offset + bits + 7) / 8;
}

// In memory that holds the bits named and no byte more, at either edge.
void expectCopied(int srcOffset, int dstOffset, int len, Edge edge) {
    const std::size_t from = srcOffset & 7, to = dstOffset & 7, bits = static_cast<std::size_t>(len);
    Guarded<Orb8u> src(bytesOf(from, bits), edge), dst(bytesOf(to, bits), edge);
    const auto source = support::randomVector<Orb8u>(src.size(), 1),
               before = support::randomVector<Orb8u>(dst.size(), 2);
    std::copy(source.begin(), source.end(), src.begin());
    std::copy(before.begin(), before.end(), dst.begin());
    ASSERT_EQ(orbsCopy_1u(src.data(), srcOffset, dst.data(), dstOffset, len), orbStsNoErr);
    for (std::size_t n = 0; n < 8 * dst.size(); ++n) {
        const bool named = n >= to && n < to + bits;
        ASSERT_EQ(bitAt(dst.data(), n), named ? bitAt(source.data(), from + n - to) : bitAt(before.data(), n))
            << "offsets " << srcOffset << ", " << dstOffset << ", len " << len << ", bit " << n;
    }
    EXPECT_TRUE(dst.intact());
    EXPECT_TRUE(support::sameBits(src, source));
}

TEST(CopyBits, EveryPairOfOffsetsAtEveryShortLength) {
    for (int srcOffset = 0; srcOffset < 8; ++srcOffset) {
        for (int dstOffset = 0; dstOffset < 8; ++dstOffset) {
            for (int len = 1; len <= 170; ++len) {
                expectCopied(srcOffset, dstOffset, len, Edge::end);
                expectCopied(srcOffset, dstOffset, len, Edge::begin);
            }
            // Through the loop over several vectors, and its remainders.
            for (int len = 1990; len < 2010; ++len) expectCopied(srcOffset, dstOffset, len, Edge::end);
            expectCopied(srcOffset, dstOffset, 10007, Edge::end);
        }
    }
}

TEST(CopyBits, OnlyTheLowThreeBitsOfAnOffsetCount) {
    expectCopied(11, 2, 50, Edge::end);
    expectCopied(3, 2 + 8 * 1000, 50, Edge::end);
    expectCopied(std::numeric_limits<int>::max(), std::numeric_limits<int>::max() - 3, 500, Edge::end);
}

TEST(CopyBits, OrderOfTheTests) {
    Orb8u src = 0xff, dst = 0;
    EXPECT_EQ(orbsCopy_1u(nullptr, -1, &dst, 0, 0), orbStsNullPtrErr);
    EXPECT_EQ(orbsCopy_1u(&src, 0, nullptr, -1, 0), orbStsNullPtrErr);
    EXPECT_EQ(orbsCopy_1u(&src, 0, &dst, 0, 0), orbStsSizeErr);
    EXPECT_EQ(orbsCopy_1u(&src, 0, &dst, 0, -8), orbStsSizeErr);
    EXPECT_EQ(orbsCopy_1u(&src, -1, &dst, 0, 4), orbStsSizeErr);
    EXPECT_EQ(orbsCopy_1u(&src, 0, &dst, -8, 4), orbStsSizeErr);
    EXPECT_EQ(dst, 0);
}

} // namespace
