// Bitwise operations and shifts beside plain loops.
#include "members.h"
#include "orbs.h"

namespace {

using members::addBinary;
using members::addConstant;

[[maybe_unused]] const bool registered = [] {
    const auto conjunction = [](auto a, auto b) { return a & b; };
    const auto left = [](auto a, int val) { return a << val; };
    const auto right = [](auto a, int val) { return a >> val; };
    addBinary("And_8u", orbsAnd_8u, conjunction);
    addBinary("Or_16u", orbsOr_16u, [](auto a, auto b) { return a | b; });
    addBinary("Xor_32u", orbsXor_32u, [](auto a, auto b) { return a ^ b; });
    addConstant("AndC_8u", orbsAndC_8u, 0x5a, conjunction);
    addConstant("LShiftC_8u", orbsLShiftC_8u, 3, left);
    addConstant("LShiftC_16s", orbsLShiftC_16s, 3, left);
    addConstant("RShiftC_8u", orbsRShiftC_8u, 3, right);
    addConstant("RShiftC_16s", orbsRShiftC_16s, 3, right);
    addConstant("RShiftC_32s", orbsRShiftC_32s, 3, right);
    return true;
}();

} // namespace
