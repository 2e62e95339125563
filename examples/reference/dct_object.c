/* A DCT object in memory of one's own, and the size of its work buffer. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    int specSize, initSize, bufferSize, told;
    OrbsDCTFwdSpec_32f* spec;
    if (orbsDCTFwdGetSize_32f(64, orbAlgHintNone, &specSize, &initSize, &bufferSize) !=
        orbStsNoErr)
        return 1;
    Orb8u *memory = orbsMalloc_8u(specSize), *initialise = orbsMalloc_8u(initSize + 1);
    OrbStatus status = orbsDCTFwdInit_32f(&spec, 64, orbAlgHintNone, memory, initialise);
    if (status == orbStsNoErr) orbsDCTFwdGetBufSize_32f(spec, &told);
    printf("%s, %s\n", orbGetStatusString(status),
           told == bufferSize ? "the size told before" : "another size");
    orbsFree(initialise);
    orbsFree(memory);
    return 0;
}

/*
no error, the size told before
*/
