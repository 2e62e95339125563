// Convolution and correlation through the transforms of power-of-two length: in one block, and by overlap-save. Objects
// and memory live as long as the call.
#pragma once

#include "fft/members.h"
#include "filters/samples.h"
#include "foundation/objects.h"
#include "foundation/threads.h"
#include "orbs/foundation.h"
#include "vectors/complex.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace orbs {

// A transform of 2^order points of T, divided by their number on the way back, with an array for a spectrum that all
// workers read, and for each worker an array and what the transform works in: one block of memory.
template <class T>
class Fourier {
    using Spec =
        std::conditional_t<isComplex<T>, typename fft::Specs<Part<T>>::Interleaved, typename fft::Specs<Part<T>>::Real>;
    using Members = fft::Members<Spec>;

public:
    Fourier(int order, int workers) : workers_(static_cast<std::size_t>(workers)) {
        constexpr auto hint = orbAlgHintNone;
        constexpr int flag = ORB_FFT_SCALE_INV;
        if (order >= std::numeric_limits<int>::digits - 1) return;
        if ((status_ = Members::getSize(order, flag, hint, &objectSize_, &initSize_, &bufferSize_)) < 0) return;
        points_ = std::size_t{1} << order;
        const std::uint64_t size = layOut(nullptr);
        status_ = orbStsMemAllocErr;
        if (size > std::numeric_limits<int>::max()) return;
        block_ = orbsMalloc_8u(static_cast<int>(size));
        if (!block_) return;
        layOut(block_);
        status_ = Members::init(&spec_, order, flag, hint, block_, reinterpret_cast<Orb8u*>(shared_));
    }
    ~Fourier() { orbsFree(block_); }
    Fourier(const Fourier&) = delete;
    Fourier& operator=(const Fourier&) = delete;

    // What kept it from being made.
    OrbStatus status() const { return status_; }
    std::size_t points() const { return points_; }
    T* shared() const { return shared_; }
    T* work(int worker) const { return work_ + static_cast<std::size_t>(worker) * points_; }

    OrbStatus forward(const T* pSrc, T* pDst, int worker = 0) const {
        return Members::forward(pSrc, pDst, spec_, buffer(worker));
    }
    OrbStatus inverse(T* pSrcDst, int worker = 0) const {
        return Members::inverse(pSrcDst, pSrcDst, spec_, buffer(worker));
    }

private:
    // Init needs its memory before there is a spectrum.
    std::uint64_t layOut(void* base) {
        Layout block(base);
        block.take<Orb8u>(static_cast<std::uint64_t>(objectSize_), 32);
        bufferStride_ = roundUp(static_cast<std::uint64_t>(bufferSize_), 64);
        shared_ =
            block.take<T>(std::max<std::uint64_t>(points_, static_cast<std::uint64_t>(initSize_) / sizeof(T) + 1), 32);
        work_ = block.take<T>(workers_ * std::uint64_t{points_}, 32);
        buffers_ = block.take<Orb8u>(workers_ * bufferStride_, 32);
        return block.used();
    }
    Orb8u* buffer(int worker) const { return buffers_ + static_cast<std::size_t>(worker) * bufferStride_; }

    OrbStatus status_ = orbStsMemAllocErr;
    std::size_t workers_, points_ = 0;
    int objectSize_ = 0, initSize_ = 0, bufferSize_ = 0;
    std::uint64_t bufferStride_ = 0;
    Orb8u *block_ = nullptr, *buffers_ = nullptr;
    T *shared_ = nullptr, *work_ = nullptr;
    Spec* spec_ = nullptr;
};

// The least order from 1 on of at least so many points.
inline int orderOf(std::uint64_t points) {
    return std::max(static_cast<int>(std::bit_width(points - 1)), 1);
}

// spectrum[k] = Product(by[k], spectrum[k]); of real signals the first two numbers are real bins. Both may be one.
template <class Product, class T>
void multiplySpectra(const T* by, T* spectrum, std::size_t points) {
    constexpr std::size_t alone = isComplex<T> ? 0 : 2;
    if constexpr (alone > 0) {
        spectrum[0] *= by[0];
        spectrum[1] *= by[1];
    }
    const Part<T>* const a = asParts(by) + alone;
    Part<T>* const b = asParts(spectrum) + alone;
    const std::size_t bins = isComplex<T> ? points : points / 2 - 1;
    forEachComplex(bins, b, [=](auto d, std::size_t n) HWY_ATTR {
        hn::StoreU(Product::of(d, hn::LoadU(d, a + n), hn::LoadU(d, b + n)), d, b + n);
    });
}

// Samples in a caller's vector.
template <class S>
struct Signal {
    const S* first;
    int length;
};

// How the shorter of two signals meets the longer one: convolved with it, or its conjugate slid along it. Outputs are
// told by where its first (or, turned round, last) sample lies on the longer one: p = 1 - short to long - 1.
struct Convolved {
    using Product = ComplexProduct;
    static int place(int shorter) { return shorter - 1; } // in a transform, of the output at the window's start
};
struct Correlated {
    using Product = ConjugateProduct;
    static int place(int) { return 0; }
};

// The signal from `from` on, with zeros before and behind it, as `points` of T.
template <class T, class S>
void window(Signal<S> x, std::int64_t from, T* to, std::size_t points) {
    const auto ahead = std::min<std::int64_t>(std::max<std::int64_t>(-from, 0), static_cast<std::int64_t>(points));
    const std::int64_t begin = from + ahead;
    const auto room = static_cast<std::int64_t>(points) - ahead;
    const std::int64_t count = std::clamp<std::int64_t>(x.length - begin, 0, room);
    std::fill_n(to, ahead, T{});
    if (count > 0) widen(x.first + begin, to + ahead, static_cast<std::ptrdiff_t>(count));
    std::fill_n(to + ahead + count, room - count, T{});
}

// The outputs p = first to first + count - 1 at pDst, by overlap-save. Block k is the same on any number of threads.
template <class Meeting, class T, class S>
OrbStatus overlapSave(Signal<S> shorter, Signal<S> longer, std::int64_t first, S* pDst, int count, int scaleFactor,
                      int threads) {
    const int order = orderOf(2 * static_cast<std::uint64_t>(shorter.length)) + 1;
    const std::int64_t outputs = (std::int64_t{1} << order) - shorter.length + 1; // of a block
    const auto blocks = static_cast<int>((count + outputs - 1) / outputs);
    threads = std::clamp(threads, 1, blocks);
    const Fourier<T> fourier(order, threads);
    if (fourier.status() < 0) return fourier.status();

    const std::size_t points = fourier.points();
    window(shorter, 0, fourier.shared(), points);
    if (const OrbStatus status = fourier.forward(fourier.shared(), fourier.shared()); status < 0) return status;

    const auto run = [&](int k, int worker) -> OrbStatus {
        T* const work = fourier.work(worker);
        const std::int64_t done = k * outputs, from = first + done;
        const T* samples = work;
        if constexpr (std::is_same_v<S, T>) {
            if (from >= 0 && from + static_cast<std::int64_t>(points) <= longer.length) samples = longer.first + from;
        }
        if (samples == work) window(longer, from, work, points);
        if (const OrbStatus status = fourier.forward(samples, work, worker); status < 0) return status;
        multiplySpectra<typename Meeting::Product>(fourier.shared(), work, points);
        if (const OrbStatus status = fourier.inverse(work, worker); status < 0) return status;
        const auto some = static_cast<std::ptrdiff_t>(std::min(outputs, count - done));
        narrow(work + Meeting::place(shorter.length), pDst + done, some, scaleFactor);
        return orbStsNoErr;
    };
    auto plan = [](int) {};
    auto work = [&](int worker, int team) -> OrbStatus {
        OrbStatus smallest = orbStsNoErr;
        for (int k = worker; k < blocks; k += team) smallest = std::min(smallest, run(k, worker));
        return smallest;
    };
    return runTeam(threads, plan, work);
}

// The same in one block, of the least order from 1 on that has room for all outputs there are.
template <class Meeting, class T, class S>
OrbStatus inOneBlock(Signal<S> shorter, Signal<S> longer, std::int64_t first, S* pDst, int count, int scaleFactor) {
    const Fourier<T> fourier(
        orderOf(static_cast<std::uint64_t>(shorter.length) + static_cast<std::uint64_t>(longer.length) - 1), 1);
    if (fourier.status() < 0) return fourier.status();
    const std::size_t points = fourier.points();
    T *const spectrum = fourier.shared(), *const work = fourier.work(0);
    window(shorter, 0, spectrum, points);
    window(longer, 0, work, points);
    if (const OrbStatus status = fourier.forward(spectrum, spectrum); status < 0) return status;
    if (const OrbStatus status = fourier.forward(work, work); status < 0) return status;
    multiplySpectra<typename Meeting::Product>(spectrum, work, points);
    if (const OrbStatus status = fourier.inverse(work); status < 0) return status;
    // The outputs run around the end of the block.
    const std::int64_t at = first + Meeting::place(shorter.length);
    const auto ahead = static_cast<std::ptrdiff_t>(std::clamp<std::int64_t>(-at, 0, count));
    const auto end = static_cast<std::ptrdiff_t>(points);
    narrow(work + (end + static_cast<std::ptrdiff_t>(at)) % end, pDst, ahead, scaleFactor);
    narrow(work + std::max<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(at), 0), pDst + ahead, count - ahead,
           scaleFactor);
    return orbStsNoErr;
}

template <class Meeting, class T, class S>
OrbStatus byFourier(Signal<S> shorter, Signal<S> longer, std::int64_t first, S* pDst, int count, int scaleFactor,
                    int threads) {
    if (longer.length < 3 * std::int64_t{shorter.length})
        return inOneBlock<Meeting, T>(shorter, longer, first, pDst, count, scaleFactor);
    return overlapSave<Meeting, T>(shorter, longer, first, pDst, count, scaleFactor, threads);
}

} // namespace orbs
