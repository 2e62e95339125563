/* Two channels interleaved, as sound files have them, and taken apart again. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f left[2] = {1, 2}, right[2] = {-1, -2};
    const Orb32f* const channels[2] = {left, right};
    Orb16s interleaved[4];
    Orb32f first[2], second[2], *const apart[2] = {first, second};
    orbsJoin_32f16s_D2L(channels, 2, 2, interleaved);
    for (int n = 0; n < 4; ++n) printf("%d%c", interleaved[n], n < 3 ? ' ' : '\n');
    orbsJoinScaled_32f16s_D2L(channels, 2, 2, interleaved);
    orbsSplitScaled_16s32f_D2L(interleaved, apart, 2, 2);
    printf("\n%g %g\n", first[0], second[0]);
    return 0;
}

/*
1 -1 2 -2

1 -1
*/
