/* An object for integers knows its work buffer, and refuses what is no object of its kind.
 */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    OrbsFFTSpec_C_32sc* fft;
    int size;
    if (orbsFFTInitAlloc_C_32sc(&fft, 10, ORB_FFT_SCALE_NONE, orbAlgHintNone) !=
        orbStsNoErr)
        return 1;
    orbsFFTGetBufSize_C_32sc(fft, &size);
    Orb8u* buffer = orbsMalloc_8u(size);
    printf("%s\n", buffer ? "a buffer for every call" : "no memory");
    printf("%s\n",
           orbGetStatusString(orbsFFTGetBufSize_C_16sc((OrbsFFTSpec_C_16sc*)fft, &size)));
    orbsFree(buffer);
    orbsFFTFree_C_32sc(fft);
    return 0;
}

/*
a buffer for every call
the object is not of the kind that the call works on, or was freed
*/
