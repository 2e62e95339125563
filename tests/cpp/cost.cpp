// Pairs of functions, one by C and one by orbs.hpp, of which the optimiser must make the same instructions.
#include <orbs.hpp>

#include <array>

using Array = std::array<float, 256>;

extern "C" {

OrbStatus pointers_c(const float* a, const float* b, float* sum, int n) {
    return orbsAdd_32f(a, b, sum, n);
}
OrbStatus pointers_cpp(const float* a, const float* b, float* sum, int n) {
    return orbs::Add<orbs::Return>(a, b, sum, n).code();
}

OrbStatus scaled_c(const Orb16s* a, Orb16s* b, int n, int s) {
    return orbsAdd_16s_ISfs(a, b, n, s);
}
OrbStatus scaled_cpp(const Orb16s* a, Orb16s* b, int n, int s) {
    return orbs::Add<orbs::Return>(a, b, n, s).code();
}

OrbStatus complex_c(const Orb32fc* a, Orb32fc* b, int n) {
    return orbsMulC_32fc(a, Orb32fc{2, 3}, b, n);
}
OrbStatus complex_cpp(const std::complex<float>* a, std::complex<float>* b, int n) {
    return orbs::MulC<orbs::Return>(a, std::complex<float>(2, 3), b, n).code();
}

OrbStatus arrays_c(const Array& a, const Array& b, Array& sum) {
    return orbsAdd_32f(a.data(), b.data(), sum.data(), 256);
}
OrbStatus arrays_cpp(const Array& a, const Array& b, Array& sum) {
    return orbs::Add<orbs::Return>(a, b, sum).code();
}

OrbStatus result_c(const Array& a, double* sum) {
    return orbsSumLn_32f64f(a.data(), 256, sum);
}
OrbStatus result_cpp(const Array& a, double* sum) {
    return orbs::SumLn<orbs::Return>(a, *sum).code();
}

OrbStatus object_c(OrbsFIRState_32f** filter, const float* x, float* y, int n) {
    return orbsFIR_32f(x, y, n, *filter);
}
OrbStatus object_cpp(orbs::FIR_32f* filter, const float* x, float* y, int n) {
    return filter->Run<orbs::Return>(x, y, n).code();
}

void thrown_c(const float* a, const float* b, float* sum, int n) {
    const OrbStatus status = orbsAdd_32f(a, b, sum, n);
    if (status < 0) orbs::raise(status);
}
void thrown_cpp(const float* a, const float* b, float* sum, int n) {
    orbs::Add(a, b, sum, n);
}

} // extern "C"
