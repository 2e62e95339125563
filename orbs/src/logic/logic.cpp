// And, Or, Xor, Not and their constant forms; LShiftC and RShiftC.
#include "orbs/logic.h"
#include "vectors/elementwise.h"

namespace {

using namespace orbs;

struct And {
    template <class D, class V>
    static V result(D, V a, V b) {
        return hn::And(a, b);
    }
};
struct Or {
    template <class D, class V>
    static V result(D, V a, V b) {
        return hn::Or(a, b);
    }
};
struct Xor {
    template <class D, class V>
    static V result(D, V a, V b) {
        return hn::Xor(a, b);
    }
};
struct Left {
    int val;
    template <class D, class V>
    V result(D, V v) const {
        return hn::ShiftLeftSame(v, val);
    }
};
struct Right {
    int val;
    template <class D, class V>
    V result(D, V v) const {
        return hn::ShiftRightSame(v, val);
    }
};

// ---- Bitwise ----

// Bytes of the result from which a call spreads over threads: each source less and each array less to write makes the
// work lighter.
constexpr int withArray = 16384, withArrayInPlace = 32768, withVal = 32768, withValInPlace = 65536;

template <class Op, class T, class... S>
OrbStatus bitwise(Op op, int len, int fromBytes, T* pDst, const S*... pSrc) {
    if (const OrbStatus status = checkVectors(len, pDst, pSrc...)) return status;
    return spread(len, {fromBytes / static_cast<int>(sizeof(T)), Spread::overThreads},
                  [=](std::size_t first, std::size_t count) { plainKernel(op, count, pDst + first, pSrc + first...); });
}

// A val of 0 makes zeros of And, for which the source is not read, and leaves it as it is with Or and Xor.
template <class T>
OrbStatus andConstant(const T* pSrc, T val, T* pDst, int len, int fromBytes) {
    if (val == 0 && pSrc) return filled(0, pDst, len);
    return bitwise(withConstant<And>(val), len, fromBytes, pDst, pSrc);
}
template <class Op, class T>
OrbStatus constant(const T* pSrc, T val, T* pDst, int len, int fromBytes) {
    if (val == 0) return copied(pSrc, pDst, len);
    return bitwise(withConstant<Op>(val), len, fromBytes, pDst, pSrc);
}
template <class T>
OrbStatus inverted(const T* pSrc, T* pDst, int len, int fromBytes) {
    return constant<Xor>(pSrc, std::numeric_limits<T>::max(), pDst, len, fromBytes);
}

// ---- Shifts: the count is tested last ----

template <class Op, class T>
OrbStatus shifted(const T* pSrc, int val, T* pDst, int len) {
    if (val == 0) return copied(pSrc, pDst, len);
    if (const OrbStatus status = checkVectors(len, pSrc, pDst)) return status;
    if (val < 0) return orbStsShiftErr;
    return elementwise(Op{val}, len, pDst, pSrc);
}

// Nothing is left of an element from its width on; of a negative one that is shifted right, -1.
template <class T>
OrbStatus leftShift(const T* pSrc, int val, T* pDst, int len) {
    if (val >= std::numeric_limits<std::make_unsigned_t<T>>::digits && pSrc) return filled(0, pDst, len);
    return shifted<Left>(pSrc, val, pDst, len);
}
template <class T>
OrbStatus rightShift(const T* pSrc, int val, T* pDst, int len) {
    if constexpr (std::is_signed_v<T>) {
        return shifted<Right>(pSrc, std::min(val, std::numeric_limits<T>::digits), pDst, len);
    } else {
        if (val >= std::numeric_limits<T>::digits && pSrc) return filled(0, pDst, len);
        return shifted<Right>(pSrc, val, pDst, len);
    }
}

} // namespace

// clang-format off
extern "C" {

OrbStatus orbsAnd_8u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len) { return bitwise(And(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsAnd_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len) { return bitwise(And(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAnd_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len) { return bitwise(And(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsAnd_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len) { return bitwise(And(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAnd_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len) { return bitwise(And(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsAnd_32u_I(const Orb32u* pSrc, Orb32u* pSrcDst, int len) { return bitwise(And(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsAndC_8u(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len) { return andConstant(pSrc, val, pDst, len, withVal); }
OrbStatus orbsAndC_8u_I(Orb8u val, Orb8u* pSrcDst, int len) { return andConstant(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsAndC_16u(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len) { return andConstant(pSrc, val, pDst, len, withVal); }
OrbStatus orbsAndC_16u_I(Orb16u val, Orb16u* pSrcDst, int len) { return andConstant(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsAndC_32u(const Orb32u* pSrc, Orb32u val, Orb32u* pDst, int len) { return andConstant(pSrc, val, pDst, len, withVal); }
OrbStatus orbsAndC_32u_I(Orb32u val, Orb32u* pSrcDst, int len) { return andConstant(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsOr_8u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len) { return bitwise(Or(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsOr_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len) { return bitwise(Or(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsOr_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len) { return bitwise(Or(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsOr_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len) { return bitwise(Or(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsOr_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len) { return bitwise(Or(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsOr_32u_I(const Orb32u* pSrc, Orb32u* pSrcDst, int len) { return bitwise(Or(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsOrC_8u(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len) { return constant<Or>(pSrc, val, pDst, len, withVal); }
OrbStatus orbsOrC_8u_I(Orb8u val, Orb8u* pSrcDst, int len) { return constant<Or>(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsOrC_16u(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len) { return constant<Or>(pSrc, val, pDst, len, withVal); }
OrbStatus orbsOrC_16u_I(Orb16u val, Orb16u* pSrcDst, int len) { return constant<Or>(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsOrC_32u(const Orb32u* pSrc, Orb32u val, Orb32u* pDst, int len) { return constant<Or>(pSrc, val, pDst, len, withVal); }
OrbStatus orbsOrC_32u_I(Orb32u val, Orb32u* pSrcDst, int len) { return constant<Or>(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsXor_8u(const Orb8u* pSrc1, const Orb8u* pSrc2, Orb8u* pDst, int len) { return bitwise(Xor(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsXor_8u_I(const Orb8u* pSrc, Orb8u* pSrcDst, int len) { return bitwise(Xor(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsXor_16u(const Orb16u* pSrc1, const Orb16u* pSrc2, Orb16u* pDst, int len) { return bitwise(Xor(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsXor_16u_I(const Orb16u* pSrc, Orb16u* pSrcDst, int len) { return bitwise(Xor(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsXor_32u(const Orb32u* pSrc1, const Orb32u* pSrc2, Orb32u* pDst, int len) { return bitwise(Xor(), len, withArray, pDst, pSrc1, pSrc2); }
OrbStatus orbsXor_32u_I(const Orb32u* pSrc, Orb32u* pSrcDst, int len) { return bitwise(Xor(), len, withArrayInPlace, pSrcDst, pSrc, pSrcDst); }
OrbStatus orbsXorC_8u(const Orb8u* pSrc, Orb8u val, Orb8u* pDst, int len) { return constant<Xor>(pSrc, val, pDst, len, withVal); }
OrbStatus orbsXorC_8u_I(Orb8u val, Orb8u* pSrcDst, int len) { return constant<Xor>(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsXorC_16u(const Orb16u* pSrc, Orb16u val, Orb16u* pDst, int len) { return constant<Xor>(pSrc, val, pDst, len, withVal); }
OrbStatus orbsXorC_16u_I(Orb16u val, Orb16u* pSrcDst, int len) { return constant<Xor>(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsXorC_32u(const Orb32u* pSrc, Orb32u val, Orb32u* pDst, int len) { return constant<Xor>(pSrc, val, pDst, len, withVal); }
OrbStatus orbsXorC_32u_I(Orb32u val, Orb32u* pSrcDst, int len) { return constant<Xor>(pSrcDst, val, pSrcDst, len, withValInPlace); }
OrbStatus orbsNot_8u(const Orb8u* pSrc, Orb8u* pDst, int len) { return inverted(pSrc, pDst, len, withVal); }
OrbStatus orbsNot_8u_I(Orb8u* pSrcDst, int len) { return inverted(pSrcDst, pSrcDst, len, withValInPlace); }
OrbStatus orbsNot_16u(const Orb16u* pSrc, Orb16u* pDst, int len) { return inverted(pSrc, pDst, len, withVal); }
OrbStatus orbsNot_16u_I(Orb16u* pSrcDst, int len) { return inverted(pSrcDst, pSrcDst, len, withValInPlace); }
OrbStatus orbsNot_32u(const Orb32u* pSrc, Orb32u* pDst, int len) { return inverted(pSrc, pDst, len, withVal); }
OrbStatus orbsNot_32u_I(Orb32u* pSrcDst, int len) { return inverted(pSrcDst, pSrcDst, len, withValInPlace); }

OrbStatus orbsLShiftC_8u(const Orb8u* pSrc, int val, Orb8u* pDst, int len) { return leftShift(pSrc, val, pDst, len); }
OrbStatus orbsLShiftC_8u_I(int val, Orb8u* pSrcDst, int len) { return leftShift(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsLShiftC_16u(const Orb16u* pSrc, int val, Orb16u* pDst, int len) { return leftShift(pSrc, val, pDst, len); }
OrbStatus orbsLShiftC_16u_I(int val, Orb16u* pSrcDst, int len) { return leftShift(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsLShiftC_16s(const Orb16s* pSrc, int val, Orb16s* pDst, int len) { return leftShift(pSrc, val, pDst, len); }
OrbStatus orbsLShiftC_16s_I(int val, Orb16s* pSrcDst, int len) { return leftShift(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsLShiftC_32s(const Orb32s* pSrc, int val, Orb32s* pDst, int len) { return leftShift(pSrc, val, pDst, len); }
OrbStatus orbsLShiftC_32s_I(int val, Orb32s* pSrcDst, int len) { return leftShift(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsRShiftC_8u(const Orb8u* pSrc, int val, Orb8u* pDst, int len) { return rightShift(pSrc, val, pDst, len); }
OrbStatus orbsRShiftC_8u_I(int val, Orb8u* pSrcDst, int len) { return rightShift(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsRShiftC_16u(const Orb16u* pSrc, int val, Orb16u* pDst, int len) { return rightShift(pSrc, val, pDst, len); }
OrbStatus orbsRShiftC_16u_I(int val, Orb16u* pSrcDst, int len) { return rightShift(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsRShiftC_16s(const Orb16s* pSrc, int val, Orb16s* pDst, int len) { return rightShift(pSrc, val, pDst, len); }
OrbStatus orbsRShiftC_16s_I(int val, Orb16s* pSrcDst, int len) { return rightShift(pSrcDst, val, pSrcDst, len); }
OrbStatus orbsRShiftC_32s(const Orb32s* pSrc, int val, Orb32s* pDst, int len) { return rightShift(pSrc, val, pDst, len); }
OrbStatus orbsRShiftC_32s_I(int val, Orb32s* pSrcDst, int len) { return rightShift(pSrcDst, val, pSrcDst, len); }

}
// clang-format on
