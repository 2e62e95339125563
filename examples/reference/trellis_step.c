/* One step of a decoder: only the path from state 3 is open, and it leads to state 5. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb16u path[16], branch[16], least;
    Orb8u next[256], state;
    Orb16s table[64] = {0};
    Orb32u history[16] = {0};
    for (int s = 0; s < 16; ++s) path[s] = s == 3 ? 0 : 65535, branch[s] = 65535;
    for (int k = 0; k < 256; ++k) next[k] = 5;
    for (int k = 0; k < 64; ++k) table[k] = 7;
    orbsCalcStatesDV_16sc(path, next, branch, table, history, 16, 0);
    orbsUpdatePathMetricsDV_16u(branch, &least, &state, path, 16);
    printf("state %d, metric %d, from state %u\n", state, least, history[5] >> 16);
    return 0;
}

/*
state 5, metric 7, from state 3
*/
