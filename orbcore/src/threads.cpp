#include "orbcore.h"

#include <omp.h>

Orb32s threads_omp_of_n_orb = omp_get_max_threads();

extern "C" {

OrbStatus orbSetNumThreads(int numThreads) {
    if (numThreads < 1) return orbStsSizeErr;
    __atomic_store_n(&threads_omp_of_n_orb, numThreads, __ATOMIC_RELAXED);
    return orbStsNoErr;
}

int orbGetNumThreads(void) { return __atomic_load_n(&threads_omp_of_n_orb, __ATOMIC_RELAXED); }

}
