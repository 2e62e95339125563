/* Bits masked, toggled and shifted. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb8u x[3] = {0x0f, 0xa5, 0xff};
    Orb8u low[3], toggled[3], shifted[3];
    orbsAndC_8u(x, 0x3c, low, 3);
    orbsXorC_8u(x, 0xff, toggled, 3);
    orbsLShiftC_8u(x, 4, shifted, 3);
    for (int n = 0; n < 3; ++n) printf("%02x %02x %02x\n", low[n], toggled[n], shifted[n]);
    return 0;
}

/*
0c f0 f0
24 5a 50
3c 00 f0
*/
