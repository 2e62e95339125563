/* Two vectors added, and 16 bits with a scale factor of 1: half of the sum, to nearest,
 * ties to even. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f a[4] = {1, 2, 3, 4}, b[4] = {0.5f, 0.25f, 0, -4};
    const Orb16s c[4] = {30000, 1, 3, -5}, d[4] = {30000, 2, 2, -2};
    Orb32f sum[4];
    Orb16s half[4];
    orbsAdd_32f(a, b, sum, 4);
    orbsAdd_16s_Sfs(c, d, half, 4, 1);
    for (int n = 0; n < 4; ++n) printf("%g %d\n", sum[n], half[n]);
    return 0;
}

/*
1.5 30000
2.25 2
3 2
0 -4
*/
