// Running medians of any number of elements. A run of inputs is sorted, and what enters and leaves the window is known
// by its rank from then on: the window is a set of bits, and its median a step from the one before.
#pragma once

#include "sorting/keys.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace orbs {

// The ranks of a run's keys, by sorting each together with its place.
template <class Key, class Packed>
class PackedRanks {
    using Bits = std::make_unsigned_t<Packed>;
    static constexpr int placeBits = 4 * sizeof(Packed);

public:
    template <class Layout>
    void take(Layout& layout, std::uint64_t count) {
        sorted_ = layout.template take<Packed>(count, 64);
    }
    void rank(const Key* keys, std::size_t count, Orb32u* ranks) {
        for (std::size_t n = 0; n < count; ++n)
            sorted_[n] = static_cast<Packed>(static_cast<Bits>(static_cast<Packed>(keys[n])) << placeBits | n);
        sortKeys(sorted_, count);
        for (std::size_t r = 0; r < count; ++r)
            ranks[sorted_[r] & ((Packed{1} << placeBits) - 1)] = static_cast<Orb32u>(r);
    }
    Key key(std::size_t rank) const { return static_cast<Key>(sorted_[rank] >> placeBits); }

private:
    Packed* sorted_;
};

// The same of keys that leave no room for a place: each is searched.
template <class Key>
class SearchedRanks {
public:
    template <class Layout>
    void take(Layout& layout, std::uint64_t count) {
        sorted_ = layout.template take<Key>(count, 64);
        met_ = layout.template take<Orb32u>(count, 64);
    }
    void rank(const Key* keys, std::size_t count, Orb32u* ranks) {
        std::memcpy(sorted_, keys, count * sizeof(Key));
        std::memset(met_, 0, count * sizeof(Orb32u));
        sortKeys(sorted_, count);
        for (std::size_t n = 0; n < count; ++n) {
            const std::size_t least = lowerBound(keys[n], count);
            ranks[n] = static_cast<Orb32u>(least) + met_[least]++;
        }
    }
    Key key(std::size_t rank) const { return sorted_[rank]; }

private:
    // Without branches, which would be as hard to predict as the keys.
    std::size_t lowerBound(Key key, std::size_t count) const {
        const Key* from = sorted_;
        while (count > 1) {
            const std::size_t half = count / 2;
            from += half & -std::size_t{from[half - 1] < key};
            count -= half;
        }
        return static_cast<std::size_t>(from - sorted_);
    }

    Key* sorted_;
    Orb32u* met_;
};

// A set of ranks and its median.
class RankWindow {
public:
    static std::uint64_t words(std::uint64_t ranks) { return ranks / 64 + 1; }

    // The ranks of the first window, of 2 * half + 1 elements.
    void start(std::uint64_t* bits, std::size_t ranks, const Orb32u* first, std::size_t half) {
        bits_ = bits;
        std::memset(bits_, 0, words(ranks) * sizeof *bits_);
        for (std::size_t n = 0; n <= 2 * half; ++n) flip(first[n]);
        std::size_t word = 0, below = 0;
        for (std::size_t next; below + (next = static_cast<std::size_t>(std::popcount(bits_[word]))) <= half; ++word)
            below += next;
        median_ = next(64 * word);
        for (; below < half; ++below) median_ = next(median_ + 1);
    }
    std::size_t median() const { return median_; }

    void replace(std::size_t leaving, std::size_t entering) {
        flip(leaving);
        flip(entering);
        // How many ranks below the median there are more than should be.
        const int surplus = (entering < median_) - (leaving < median_);
        if (surplus > 0) {
            median_ = previous(median_);
        } else if (surplus < 0) {
            median_ = next(median_ + 1);
        } else if (leaving == median_) {
            median_ = next(median_);
        }
    }

private:
    void flip(std::size_t rank) { bits_[rank / 64] ^= std::uint64_t{1} << rank % 64; }
    // The least member from `rank` on. There is one.
    std::size_t next(std::size_t rank) const {
        std::size_t word = rank / 64;
        std::uint64_t members = bits_[word] >> rank % 64 << rank % 64;
        while (members == 0) members = bits_[++word];
        return 64 * word + static_cast<std::size_t>(std::countr_zero(members));
    }
    // The greatest member below `rank`. There is one.
    std::size_t previous(std::size_t rank) const {
        std::size_t word = rank / 64;
        std::uint64_t members = bits_[word] & ((std::uint64_t{1} << rank % 64) - 1);
        while (members == 0) members = bits_[--word];
        return 64 * word + 63 - static_cast<std::size_t>(std::countl_zero(members));
    }

    std::uint64_t* bits_ = nullptr;
    std::size_t median_ = 0;
};

} // namespace orbs
