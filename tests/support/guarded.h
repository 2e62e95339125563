// Memory that ends, or begins, exactly at a page that nobody may touch.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace support {

enum class Edge { end, begin };

// `count` elements of T whose last byte (Edge::end) or first byte (Edge::begin) touches an unmapped page, shifted away
// from it by `shift` bytes. The slack on the other side holds a pattern that `intact` checks.
template <class T>
class Guarded {
public:
    explicit Guarded(std::size_t count, Edge edge = Edge::end, std::size_t shift = 0) : count_(count) {
        const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t bytes = count * sizeof(T) + shift;
        const std::size_t middle = (bytes + page - 1) / page * page;
        mapped_ = middle + 2 * page;
        void* map = mmap(nullptr, mapped_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (map == MAP_FAILED) throw std::bad_alloc();
        map_ = static_cast<unsigned char*>(map);
        begin_ = map_ + page;
        end_ = begin_ + middle;
        if (middle && mprotect(begin_, middle, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
        if (middle) std::memset(begin_, pattern, middle);
        data_ = edge == Edge::end ? end_ - bytes : begin_ + shift;
    }
    ~Guarded() { munmap(map_, mapped_); }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;

    T* data() const { return reinterpret_cast<T*>(data_); }
    std::size_t size() const { return count_; }
    T& operator[](std::size_t n) const { return data()[n]; }
    T* begin() const { return data(); }
    T* end() const { return data() + count_; }

    // True while no byte of the pages around the elements has changed.
    bool intact() const {
        for (const unsigned char* p = begin_; p < data_; ++p)
            if (*p != pattern) return false;
        for (const unsigned char* p = data_ + count_ * sizeof(T); p < end_; ++p)
            if (*p != pattern) return false;
        return true;
    }

private:
    static constexpr unsigned char pattern = 0xa5;
    std::size_t count_, mapped_;
    unsigned char *map_, *begin_, *end_, *data_;
};

} // namespace support
