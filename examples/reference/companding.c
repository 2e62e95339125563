/* Samples to mu-law codes and back, and the same codes in A-law. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16s speech[4] = {0, 100, -1000, 30000};
    Orb8u code[4], other[4];
    Orb16s back[4];
    orbsLinToMuLaw_16s8u(speech, code, 4);
    orbsMuLawToLin_8u16s(code, back, 4);
    orbsMuLawToALaw_8u(code, other, 4);
    for (int n = 0; n < 4; ++n)
        printf("%6d  %02x  %6d  %02x\n", speech[n], code[n], back[n], other[n]);
    return 0;
}

/*
     0  ff       0  d5
   100  f2     104  d3
 -1000  4e    -988  7a
 30000  82   30076  a8
*/
