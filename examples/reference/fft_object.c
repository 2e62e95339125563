/* An FFT object in memory of one's own: sizes, Init, and nothing to give back but the
 * memory. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    int specSize, initSize, bufferSize;
    OrbsFFTSpec_C_64fc* fft;
    if (orbsFFTGetSize_C_64fc(12, ORB_FFT_SCALE_NONE, orbAlgHintNone, &specSize, &initSize,
                              &bufferSize) != orbStsNoErr)
        return 1;
    Orb8u *memory = orbsMalloc_8u(specSize), *initialise = orbsMalloc_8u(initSize);
    OrbStatus status = orbsFFTInit_C_64fc(&fft, 12, ORB_FFT_SCALE_NONE, orbAlgHintNone,
                                          memory, initialise);
    printf("%s\n", orbGetStatusString(status));
    orbsFree(initialise);
    orbsFree(memory);
    return 0;
}

/*
no error
*/
