// How far a loop over all values steps. It takes every value at full speed; a sample under the sanitizers, which look
// for other faults than wrong values, and in 32-bit code, whose bits the digest compares with those of the others.
#pragma once

namespace support {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(__i386__)
inline constexpr int stride = 7;
#else
inline constexpr int stride = 1;
#endif

} // namespace support
