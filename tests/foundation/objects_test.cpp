#include "foundation/objects.h"

#include "support/guarded.h"

#include <gtest/gtest.h>

namespace {

using namespace orbs;

struct Node {
    Orb32s tag;
    RelativePtr<Orb64f> values;
    RelativePtr<const Node> other;
};

TEST(RelativePtr, HasFourBytesOnEveryAbiAndZeroIsNull) {
    static_assert(sizeof(RelativePtr<Orb64f>) == 4 && sizeof(Node) == 12);
    alignas(Node) unsigned char zeros[sizeof(Node)] = {};
    const Node* node = reinterpret_cast<const Node*>(zeros);
    EXPECT_EQ(node->values.get(), nullptr);
    EXPECT_FALSE(node->other);
}

TEST(RelativePtr, PointsAheadAndBehindAndGoesBackToNull) {
    struct {
        Orb64f before;
        Node node;
        Orb64f behind;
    } block = {};
    for (Orb64f* target : {&block.before, &block.behind}) {
        block.node.values = target;
        EXPECT_EQ(block.node.values.get(), target);
        *block.node.values = 3;
        EXPECT_EQ(*target, 3);
    }
    block.node.values = nullptr;
    EXPECT_EQ(block.node.values.get(), nullptr);
}

// An object that is copied byte for byte points into its copy.
TEST(RelativePtr, GoesWithItsBlock) {
    struct Block {
        Node node;
        Orb64f values[4];
    };
    alignas(Block) unsigned char from[sizeof(Block)] = {}, to[sizeof(Block)];
    auto* original = reinterpret_cast<Block*>(from);
    original->node.values = original->values;
    original->values[2] = 7;
    std::memcpy(to, from, sizeof to);
    std::memset(from, 0, sizeof from);
    const auto* copy = reinterpret_cast<const Block*>(to);
    EXPECT_EQ(copy->node.values.get(), copy->values);
    EXPECT_EQ(copy->node.values[2], 7);
}

TEST(Tag, OnlyItsOwnIsAccepted) {
    const Node node{.tag = 0x46493031, .values = {}, .other = {}};
    EXPECT_EQ(checkTag(&node, 0x46493031), orbStsNoErr);
    EXPECT_EQ(checkTag(&node, 0x46493032), orbStsContextMatchErr);
    EXPECT_EQ(checkTag(&node, 0), orbStsContextMatchErr);
}

struct Areas {
    Orb8u* header;
    Orb64f* table;
    Orb8u* tail;
};
Areas place(Layout& layout, int len) {
    Areas areas;
    areas.header = layout.take<Orb8u>(13, 1);
    areas.table = layout.take<Orb64f>(static_cast<std::uint64_t>(len), 32);
    areas.tail = layout.take<Orb8u>(1, 16);
    return areas;
}

TEST(Layout, PlacesWithinWhatItMeasures) {
    for (int len = 0; len < 40; ++len) {
        Layout measure(nullptr);
        const Areas none = place(measure, len);
        EXPECT_TRUE(!none.header && !none.table && !none.tail);
        alignas(32) unsigned char block[512];
        Layout layout(block);
        const Areas areas = place(layout, len);
        EXPECT_EQ(layout.used(), measure.used());
        EXPECT_EQ(areas.header, block);
        EXPECT_EQ(reinterpret_cast<unsigned char*>(areas.table), block + 32);
        const auto end = reinterpret_cast<unsigned char*>(areas.table + len);
        EXPECT_TRUE(areas.tail >= end && areas.tail < end + 16);
        EXPECT_EQ((areas.tail - block) % 16, 0);
        EXPECT_EQ(areas.tail + 1, block + layout.used());
    }
}

TEST(Layout, MeasuresBeyond32Bits) {
    Layout measure(nullptr);
    measure.take<Orb64f>(std::uint64_t{1} << 30, 32);
    measure.take<Orb64f>(std::uint64_t{1} << 30, 32);
    EXPECT_EQ(measure.used(), std::uint64_t{1} << 34);
}

TEST(AlignUp, GivesTheNextMultipleOrTheAddressItself) {
    alignas(64) unsigned char block[128];
    for (std::size_t shift = 0; shift <= 64; ++shift) {
        const unsigned char* up = alignUp(block + shift, 32);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(up) % 32, 0u);
        EXPECT_TRUE(up >= block + shift && up < block + shift + 32);
    }
}

} // namespace
