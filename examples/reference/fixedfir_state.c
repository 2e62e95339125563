/* Integer taps read back as the state keeps them: 16 bits each and one power of two. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32s taps[2] = {100000, -50000};
    Orb32s kept[2];
    int factor;
    OrbsFIRState32s_16s* filter;
    if (orbsFIRInitAlloc32s_16s(&filter, taps, 2, 0, NULL) != orbStsNoErr) return 1;
    orbsFIRGetTaps32s_16s(filter, kept, &factor);
    printf("%d and %d, times 2^%d\n", kept[0], kept[1], factor);
    orbsFIRFree32s_16s(filter);
    return 0;
}

/*
25000 and -12500, times 2^2
*/
