#include "orbs.h"
#include "support/data.h"
#include "support/guarded.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

struct Packed {
    OrbStatus status;
    Orb32s length;
    std::vector<Orb8u> bytes;
};

// Into as many bytes as the bits need, with an unmapped page behind; each holds `before` first.
Packed pack(const std::vector<Orb32u>& fields, const std::vector<Orb32s>& lengths, int offset, std::size_t bytes,
            Orb8u before = 0) {
    support::Guarded<Orb8u> dst(bytes);
    std::fill(dst.begin(), dst.end(), before);
    Packed packed{};
    packed.status = orbsPackBits_32u8u(fields.data(), lengths.data(), static_cast<int>(fields.size()), dst.data(),
                                       offset, &packed.length);
    packed.bytes.assign(dst.begin(), dst.end());
    EXPECT_TRUE(dst.intact());
    return packed;
}

TEST(PackBits, WritesFieldsBitByBitBehindTheOffset) {
    support::Random random(1);
    for (int count = 1; count <= 200; ++count) {
        const int offset = count % 8, longest = 1 + count % 32;
        std::vector<Orb32u> fields;
        std::vector<Orb32s> lengths;
        std::vector<bool> bits;
        for (int n = 0; n < offset; ++n) bits.push_back(0xb6 >> (7 - n) & 1);
        for (int n = 0; n < count; ++n) {
            fields.push_back(static_cast<Orb32u>(random()));
            lengths.push_back(static_cast<Orb32s>(random() % static_cast<unsigned>(longest + 1)));
            for (int bit = lengths.back(); bit-- > 0;) bits.push_back(fields.back() >> bit & 1);
        }
        std::vector<Orb8u> want((bits.size() + 7) / 8);
        for (std::size_t n = 0; n < bits.size(); ++n) want[n / 8] |= static_cast<Orb8u>(bits[n] << (7 - n % 8));
        const Packed packed = pack(fields, lengths, offset, want.size(), 0xb6);
        ASSERT_EQ(packed.status, orbStsNoErr);
        ASSERT_EQ(packed.length, static_cast<int>(bits.size()) - offset) << count << " fields";
        ASSERT_EQ(packed.bytes, want) << count << " fields";
    }
}

TEST(PackBits, LimitsLengthsWithAWarning) {
    const Packed none = pack({1}, {-1}, 0, 0);
    EXPECT_EQ(none.status, orbStsBitLenLimited);
    EXPECT_EQ(none.length, 0);
    const Packed all = pack({0x12345678, 0x9}, {40, 4}, 0, 5);
    EXPECT_EQ(all.status, orbStsBitLenLimited);
    EXPECT_EQ(all.length, 36);
    EXPECT_EQ(all.bytes, (std::vector<Orb8u>{0x12, 0x34, 0x56, 0x78, 0x90}));
}

TEST(PackBits, WholeBytesOfTheOffsetShortenTheReportedLengthOnly) {
    for (int offset : {8, 16, 800}) {
        const Packed packed = pack({5, 1, 0x1f}, {3, 0, 5}, offset, 1, 0xff);
        EXPECT_EQ(packed.bytes[0], 0xbf);
        EXPECT_EQ(packed.length, 8 - offset);
    }
    const Packed packed = pack({5, 1, 0x1f}, {3, 0, 5}, 8 + 4, 2, 0xc7); // with bits beside, only these count
    EXPECT_EQ(packed.bytes, (std::vector<Orb8u>{0xcb, 0xf0}));
    EXPECT_EQ(packed.length, 8);
}

TEST(PackBits, FieldsWithoutBitsLeaveTheKeptBitsAlone) {
    const Packed packed = pack({1, 2}, {0, 0}, 3, 1, 0xff);
    EXPECT_EQ(packed.bytes[0], 0xe0);
    EXPECT_EQ(packed.length, 0);
}

} // namespace
