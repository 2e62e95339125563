/* A cosine transform packs a smooth block into few numbers; the inverse brings it back. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f block[8] = {8, 8, 9, 10, 11, 12, 12, 12};
    Orb32f spectrum[8], back[8];
    OrbsDCTFwdSpec_32f* forward;
    OrbsDCTInvSpec_32f* inverse;
    if (orbsDCTFwdInitAlloc_32f(&forward, 8, orbAlgHintNone) != orbStsNoErr) return 1;
    if (orbsDCTInvInitAlloc_32f(&inverse, 8, orbAlgHintNone) != orbStsNoErr) return 1;
    orbsDCTFwd_32f(block, spectrum, forward, NULL);
    orbsDCTInv_32f(spectrum, back, inverse, NULL);
    for (int n = 0; n < 8; ++n) printf("%6.2f %5.2f\n", spectrum[n], back[n]);
    orbsDCTFwdFree_32f(forward);
    orbsDCTInvFree_32f(inverse);
    return 0;
}

/*
 28.99  8.00
 -4.56  8.00
 -0.65  9.00
  0.48 10.00
  0.00 11.00
  0.14 12.00
  0.27 12.00
 -0.04 12.00
*/
