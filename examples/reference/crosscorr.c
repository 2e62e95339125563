/* A delay found: the cross-correlation is largest at the lag of 3. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f sent[4] = {1, -1, 2, 1}, received[10] = {0, 0, 0, 1, -1, 2, 1};
    Orb32f likeness[7], most;
    Orb32s lag;
    orbsCrossCorr_32f(sent, 4, received, 10, likeness, 7, 0);
    orbsMaxIndx_32f(likeness, 7, &most, &lag);
    for (int n = 0; n < 7; ++n) printf("%g%c", likeness[n], n < 6 ? ' ' : '\n');
    printf("lag %d\n", lag);
    return 0;
}

/*
1 1 -1 7 -1 1 1
lag 3
*/
