/* An object for a prime length, and how much work memory it wants a call to have. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    OrbsDFTSpec_C_32fc* dft;
    int size;
    if (orbsDFTInitAlloc_C_32fc(&dft, 7, ORB_FFT_SCALE_NONE, orbAlgHintNone) != orbStsNoErr)
        return 1;
    OrbStatus status = orbsDFTGetBufSize_C_32fc(dft, &size);
    printf("%s, %s\n", orbGetStatusString(status),
           size > 0 ? "a buffer spares an allocation" : "no buffer");
    orbsDFTFree_C_32fc(dft);
    printf("%s\n", orbGetStatusString(orbsDFTInitAlloc_C_32fc(&dft, 0, ORB_FFT_SCALE_NONE,
                                                              orbAlgHintNone)));
    return 0;
}

/*
no error, a buffer spares an allocation
a length is below the least that the call accepts
*/
