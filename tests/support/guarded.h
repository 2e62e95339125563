// Memory that ends, or begins, exactly at a page that nobody may touch.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <new>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace support {

enum class Edge { end, begin };

// A run of pages between two that nobody may touch, filled with a pattern. Mappings are kept for the next one: a test
// makes many thousands.
class GuardedPages {
public:
    static constexpr unsigned char pattern = 0xa5;

    explicit GuardedPages(std::size_t bytes) {
        const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        size_ = std::bit_ceil(std::max(bytes, page));
        auto& idle = idlePages()[size_];
        if (idle.empty()) {
            void* map = mmap(nullptr, size_ + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
            if (map == MAP_FAILED) throw std::bad_alloc();
            idle.push_back(static_cast<unsigned char*>(map) + page);
            if (mprotect(idle.back(), size_, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
        }
        begin_ = idle.back();
        idle.pop_back();
        std::memset(begin_, pattern, size_);
    }
    ~GuardedPages() { idlePages()[size_].push_back(begin_); }
    GuardedPages(const GuardedPages&) = delete;
    GuardedPages& operator=(const GuardedPages&) = delete;

    unsigned char* begin() const { return begin_; }
    unsigned char* end() const { return begin_ + size_; }

private:
    static std::map<std::size_t, std::vector<unsigned char*>>& idlePages() {
        static std::map<std::size_t, std::vector<unsigned char*>> pages;
        return pages;
    }

    std::size_t size_;
    unsigned char* begin_;
};

// `count` elements of T whose last byte (Edge::end) or first byte (Edge::begin) touches an unmapped page, shifted away
// from it by `shift` bytes. The slack on the other side holds a pattern that `intact` checks.
template <class T>
class Guarded {
public:
    explicit Guarded(std::size_t count, Edge edge = Edge::end, std::size_t shift = 0)
        : count_(count), pages_(count * sizeof(T) + shift),
          data_(edge == Edge::end ? pages_.end() - count * sizeof(T) - shift : pages_.begin() + shift) {}

    T* data() const { return reinterpret_cast<T*>(data_); }
    std::size_t size() const { return count_; }
    T& operator[](std::size_t n) const { return data()[n]; }
    T* begin() const { return data(); }
    T* end() const { return data() + count_; }

    // True while no byte of the pages around the elements has changed.
    bool intact() const {
        const unsigned char* behind = data_ + count_ * sizeof(T);
        return isPattern(pages_.begin(), data_) && isPattern(behind, pages_.end());
    }

private:
    static bool isPattern(const unsigned char* first, const unsigned char* last) {
        return first == last || (*first == GuardedPages::pattern &&
                                 std::memcmp(first, first + 1, static_cast<std::size_t>(last - first) - 1) == 0);
    }

    std::size_t count_;
    GuardedPages pages_;
    unsigned char* data_;
};

} // namespace support
