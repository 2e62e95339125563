/* Sums with few rounding errors, and fast ones; means; the logarithm of a product. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[4] = {1, 2, 3, 4};
    Orb32f sum, mean, product;
    orbsSum_32f(x, 4, &sum, orbAlgHintAccurate);
    orbsMean_32f(x, 4, &mean, orbAlgHintFast);
    orbsSumLn_32f(x, 4, &product);
    printf("%g %g %.5f\n", sum, mean, product);
    return 0;
}

/*
10 2.5 3.17805
*/
