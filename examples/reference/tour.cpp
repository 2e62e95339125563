// orbs.hpp by example; docs/cpp.md shows it part by part.
#include <orbs.hpp>

#include <array>
#include <complex>
#include <cstdio>
#include <span>
#include <vector>

namespace {

template <class Vector>
void show(const char* what, const Vector& vector) {
    std::printf("%s:", what);
    for (const auto element : vector) std::printf(" %g", static_cast<double>(element));
    std::printf("\n");
}

void overloads() {
    const std::vector<float> x{1, 2, 3, 4}, y{10, 20, 30, 40};
    std::vector<float> sum(4);
    orbs::Add(x, y, sum);  // orbsAdd_32f
    orbs::MulC(0.5f, sum); // orbsMulC_32f_I: a vector less is in place
    show("half the sums", sum);

    std::vector<Orb16s> samples(4);
    orbs::Convert(sum, samples, orbRndNear, -2); // orbsConvert_32f16s_Sfs: times 2^2
    orbs::AddC(samples, 1, samples,
               1); // orbsAddC_16s_Sfs: a scale factor is an argument more
    show("of 16 bits", samples);

    float mean = 0;
    orbs::Mean(x, mean, orbAlgHintNone); // orbsMean_32f: a single result is a reference
    std::printf("mean: %g\n", static_cast<double>(mean));
}

void blocks() {
    const float table[4] = {3, 1, 4, 1};
    std::array<float, 4> sorted{};
    orbs::Copy(table, sorted);
    orbs::SortAscend(std::span(sorted).first(3));
    orbs::SubC(sorted.data(), 1, sorted.data(), 2); // pointers, and a length as in C
    show("three sorted, two lessened", sorted);
}

void complexElements() {
    const std::vector<std::complex<float>> z{{3, 4}, {0, 2}};
    std::vector<std::complex<float>> turned(2);
    std::vector<float> magnitudes(2);
    orbs::MulC(z, std::complex<float>(0, 1), turned); // orbsMulC_32fc
    orbs::Magnitude(z, magnitudes);                   // orbsMagnitude_32fc
    show("magnitudes", magnitudes);
    std::printf("turned: %g%+gi\n", static_cast<double>(turned[0].real()),
                static_cast<double>(turned[0].imag()));
}

void statuses() {
    std::vector<float> x{1, 4, -9}, roots(3), tooShort(2);
    try {
        orbs::Sqrt(x, tooShort);
    } catch (const orbs::Error& error) { std::printf("thrown: %s\n", error.what()); }
    const orbs::Status status = orbs::Sqrt(x, roots); // orbsSqrt_32f
    if (status.isWarning()) std::printf("a warning: %s\n", status.text());

    if (const auto done = orbs::Sqrt<orbs::Return>(x, tooShort); !done)
        std::printf("returned: %s\n", done.text());
}

void streams() {
    const std::array taps{0.25f, 0.5f, 0.25f};
    const std::array<float, 8> noisy{4, 0, 4, 0, 8, 0, 8, 0};
    std::array<float, 8> smooth{};
    const std::span<const float> from(noisy);
    const std::span<float> to(smooth);

    orbs::FIR_32f filter(taps); // orbsFIRInitAlloc_32f; its end calls orbsFIRFree_32f
    filter.Run(from.first(5), to.first(5)); // orbsFIR_32f
    filter.Run(from.subspan(5), to.subspan(5));
    show("smooth", smooth);

    std::array<float, 3> kept{};
    orbsFIRGetTaps_32f(filter.get(),
                       kept.data()); // any function of C takes the object, too
    std::vector<orbs::FIR_32f> channels;
    channels.push_back(std::move(filter)); // objects move
    channels.emplace_back(kept);
    std::printf("channels: %zu\n", channels.size());
}

void copies() {
    const std::array<double, 6> section{0.5, 0, 0, 1, -0.5, 0}; // b0, b1, b2, a0, a1, a2
    orbs::Copyable<orbs::IIR_BiQuad_64f> filter(section.data(), 1);
    std::array<double, 2> begin{1, 1}, block{0, 0}, again{0, 0};
    filter.Run(begin); // orbsIIR_64f_I
    auto twin = filter;
    filter.Run(block);
    twin.Run(again); // goes on from where the copy was made
    show("the filter", block);
    show("its twin", again);
}

void spectrum() {
    const std::array<float, 8> x{1, 0, -1, 0, 1, 0, -1, 0};
    std::array<std::complex<float>, 5> bins; // N / 2 + 1
    std::array<float, 5> power{};
    const orbs::FFT_R_32f fft(3, ORB_FFT_SCALE_INV, orbAlgHintNone); // 2^3 samples
    fft.Fwd_RToCCS(x.data(),
                   reinterpret_cast<float*>(bins.data())); // orbsFFTFwd_RToCCS_32f
    orbs::PowerSpectr(bins, power);                        // orbsPowerSpectr_32fc
    show("power", power);
}

} // namespace

int main() {
    overloads();
    blocks();
    complexElements();
    statuses();
    streams();
    copies();
    spectrum();
}

/*
half the sums: 5.5 11 16.5 22
of 16 bits: 12 22 34 44
mean: 2.5
three sorted, two lessened: 0 2 4 1
magnitudes: 5 2
turned: -4+3i
thrown: a length is below the least that the call accepts
a warning: warning: an element under a root was negative
returned: a length is below the least that the call accepts
smooth: 1 2 2 2 3 4 4 4
channels: 2
the filter: 0.375 0.1875
its twin: 0.375 0.1875
power: 0 0 16 0 0
*/
