// Guards of the floating-point control registers: save, change, restore on every path. The empty asm statements keep
// the compiler from moving loads and stores across a change, and with them the arithmetic in between. What is computed
// from arguments in registers alone, or returned in one, is not held by them: load inside, store inside. A local array
// may be in registers, too, unless keepInMemory makes it memory behind the change and before the next one.
#pragma once

#include "orbcore.h"

#include <xmmintrin.h>

namespace orbs {

inline void keepArithmeticInPlace() {
    asm volatile("" ::: "memory");
}

template <class T>
inline void keepInMemory(T& local) {
    asm volatile("" : "+m"(local));
}

inline void raiseFlags(Orb32u flags) {
    const Orb32u control = _mm_getcsr();
    if ((control | flags) != control) _mm_setcsr(control | flags);
}

// The whole SSE control register for the guard's life, the flags that it holds included.
class SseControl {
public:
    explicit SseControl(Orb32u control) : earlier_(_mm_getcsr()) {
        if (control != earlier_) _mm_setcsr(control);
        keepArithmeticInPlace();
    }
    ~SseControl() {
        keepArithmeticInPlace();
        if (_mm_getcsr() != earlier_) _mm_setcsr(earlier_);
    }
    SseControl(const SseControl&) = delete;
    SseControl& operator=(const SseControl&) = delete;

    // The exception flags that are set by now.
    Orb32u raised() const {
        keepArithmeticInPlace();
        return _mm_getcsr() & _MM_EXCEPT_MASK;
    }

private:
    Orb32u earlier_;
};

// SSE rounding for the guard's life; the register is written only if the caller's rounding is another. `alsoCleared`
// are bits that are 0 meanwhile, but only if the register is written.
class SseRounding {
public:
    enum Mode : Orb32u { nearest = 0x0000, towardZero = 0x6000 };
    static constexpr Orb32u denormalsAreZero = 0x0040;

    explicit SseRounding(Mode mode, Orb32u alsoCleared = 0)
        : earlier_(_mm_getcsr()), changed_((earlier_ & _MM_ROUND_MASK) != mode) {
        if (changed_) _mm_setcsr((earlier_ & ~(_MM_ROUND_MASK | alsoCleared)) | mode);
        keepArithmeticInPlace();
    }
    ~SseRounding() {
        keepArithmeticInPlace();
        // Exception flags raised meanwhile stay raised, as they would without the guard.
        if (changed_) _mm_setcsr(earlier_ | (_mm_getcsr() & _MM_EXCEPT_MASK));
    }
    SseRounding(const SseRounding&) = delete;
    SseRounding& operator=(const SseRounding&) = delete;

private:
    Orb32u earlier_;
    bool changed_;
};

// The same through the core library, which brings back the whole register, exception flags included, if the caller's
// rounding was another.
class CoreSseRounding {
public:
    explicit CoreSseRounding(SseRounding::Mode mode)
        : earlier_(orb_set_rc_ssx(mode)), changed_((earlier_ & _MM_ROUND_MASK) != mode) {
        keepArithmeticInPlace();
    }
    ~CoreSseRounding() {
        keepArithmeticInPlace();
        if (changed_) orb_set_cw_ssx(earlier_);
    }
    CoreSseRounding(const CoreSseRounding&) = delete;
    CoreSseRounding& operator=(const CoreSseRounding&) = delete;

private:
    Orb32u earlier_;
    bool changed_;
};

// SSE exceptions masked for the guard's life, and the rounding as told or the caller's. The register comes back as it
// was: with it the caller's mask, and of the sticky flags those that were set before. Flags are only ever added, so the
// ones raised meanwhile are all that this clears.
class SseQuiet {
public:
    SseQuiet() : SseQuiet(_mm_getcsr() & _MM_ROUND_MASK) {}
    explicit SseQuiet(SseRounding::Mode mode) : SseQuiet(Orb32u{mode}) {}
    ~SseQuiet() {
        keepArithmeticInPlace();
        if (_mm_getcsr() != earlier_) _mm_setcsr(earlier_);
    }
    SseQuiet(const SseQuiet&) = delete;
    SseQuiet& operator=(const SseQuiet&) = delete;

private:
    explicit SseQuiet(Orb32u rounding) : earlier_(_mm_getcsr()) {
        const Orb32u quiet = (earlier_ & ~Orb32u{_MM_ROUND_MASK}) | rounding | _MM_MASK_MASK;
        if (quiet != earlier_) _mm_setcsr(quiet);
        keepArithmeticInPlace();
    }

    Orb32u earlier_;
};

// x87 in extended precision, rounding to nearest or toward zero, for the guard's life.
class X87Control {
public:
    enum Mode : Orb32u { nearest = 0x0000, towardZero = 0x0c00 };

    explicit X87Control(Mode rounding)
        : earlier_(orb_set_rcpc_fpu(extendedPrecision | rounding, precisionMask | roundingMask)) {
        keepArithmeticInPlace();
    }
    ~X87Control() {
        keepArithmeticInPlace();
        orb_set_cw_fpu(earlier_);
    }
    X87Control(const X87Control&) = delete;
    X87Control& operator=(const X87Control&) = delete;

private:
    static constexpr Orb32u extendedPrecision = 0x0300;
    static constexpr Orb32u precisionMask = 0x0300;
    static constexpr Orb32u roundingMask = 0x0c00;
    Orb32u earlier_;
};

} // namespace orbs
