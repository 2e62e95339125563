// The integer result rule of all scaled primitives: r * 2^-scaleFactor, rounded to nearest with ties to even,
// saturated.
#pragma once

namespace orbs {

// Where the result of a scaled primitive no longer depends on more than the sign of its exact value.
struct ScaleCuts {
    int zeroAbove; // scale factors above this give zeros
    int boundFrom; // scale factors at or below this give the extreme of the type with the sign of the exact value
};

} // namespace orbs
