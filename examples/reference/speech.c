/* A running power, samples with raised treble, and sums of windows of three. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16s block[4] = {3, 4, -5, 6};
    const Orb16s samples[7] = {1, 2, 3, 4, 5, 6, 7};
    Orb32f speech[4] = {1, 1, 2, 2}, sums[4];
    Orb32s power = 0;
    orbsUpdatePower_16s32s_I(block, 4, &power, 0, 0, orbAlgHintNone);
    orbsPreemphasize_32f(speech, 4, 0.5f);
    orbsSumWindow_16s32f(samples, sums, 4, 3);
    printf("%d\n", power);
    for (int n = 0; n < 4; ++n) printf("%g %g\n", speech[n], sums[n]);
    return 0;
}

/*
36
1 6
0.5 9
1.5 12
1 15
*/
