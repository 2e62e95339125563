/* One sample at a time, over taps of one's own: the step that corrects them. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f taps[1] = {0}, line[2] = {0}, y;
    int position = 0;
    for (int n = 0; n < 4; ++n) {
        orbsFIRLMSOne_Direct_32f(1, 0.8f, &y, taps, 1, 0.25f, line, &position);
        printf("%.4f to %.4f\n", y, taps[0]);
    }
    return 0;
}

/*
0.0000 to 0.4000
0.4000 to 0.6000
0.6000 to 0.7000
0.7000 to 0.7500
*/
