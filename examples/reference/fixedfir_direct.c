/* The same filter without an object, and one with taps of 16 bits. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32s taps[2] = {16384, 8192};
    const Orb16s tapsQ15[2] = {16384, 8192}, x[3] = {1000, 2000, -1000};
    Orb16s line[4] = {0}, lineQ15[4] = {0}, y[3], z[3];
    int position = 0, positionQ15 = 0;
    orbsFIR32s_Direct_16s_Sfs(x, y, 3, taps, 2, -15, line, &position, 0);
    orbsFIR_Direct_16s_Sfs(x, z, 3, tapsQ15, 2, lineQ15, &positionQ15, 0);
    for (int n = 0; n < 3; ++n) printf("%d %d\n", y[n], z[n]);
    return 0;
}

/*
500 500
1250 1250
0 0
*/
