// The library through orbs.hpp: what it gives must be what C gives, errors must arrive, objects must live and die as
// C++ has it. Exits 0 if all of it is so.
#include <orbs.hpp>

#include <array>
#include <cstdio>
#include <string>
#include <vector>
#if __cplusplus >= 202002L
#    include <span>
#endif

namespace {

int failures = 0;

void expect(bool holds, const char* what, int line = __builtin_LINE()) {
    if (holds) return;
    std::fprintf(stderr, "use.cpp:%d: not so: %s\n", line, what);
    ++failures;
}

template <class T>
std::vector<T> ramp(std::size_t count, double slope) {
    std::vector<T> v(count);
    for (std::size_t n = 0; n < count; ++n) v[n] = static_cast<T>(slope * static_cast<double>(n % 97) - 3);
    return v;
}

template <class Call>
OrbStatus thrownBy(Call call) {
    try {
        call();
    } catch (const orbs::Error& error) {
        expect(std::string(error.what()) == orbGetStatusString(error.status().code()),
               "an error tells the status's text");
        return error.status().code();
    }
    return orbStsNoErr;
}

void statuses() {
    std::vector<float> a(4, -1.0f), b(4), shorter(3), none;
    const float* const nothing = nullptr;
    expect(thrownBy([&] { orbs::Add(nothing, b.data(), 4); }) == orbStsNullPtrErr, "a null pointer is thrown");
    expect(thrownBy([&] { orbs::Add(a, shorter); }) == orbStsSizeErr, "lengths that differ are thrown");
    expect(orbs::Add<orbs::Return>(a, shorter, b).code() == orbStsSizeErr, "lengths that differ are returned");
    expect(orbs::Add<orbs::Return>(none, none).isError(), "nothing to work on is refused");
    expect(!orbs::Add<orbs::Return>(nothing, b.data(), 4), "an error is false");
    const orbs::Status warning = orbs::Sqrt(a, b);
    expect(warning.isWarning() && warning == orbStsSqrtNegArg, "a warning is returned, not thrown");
    const orbs::Block<const float> endless(a.data(), std::size_t{1} << 31);
    float sum = 0;
    expect(orbs::Sum<orbs::Return>(endless, sum, orbAlgHintNone).code() == orbStsSizeErr,
           "lengths above an int are refused");
}

// One name for four element types, in and out of place, against the members by name.
void overloads() {
    const auto x = ramp<float>(100, 0.37), y = ramp<float>(100, -1.25);
    const auto xd = ramp<double>(100, 0.37), yd = ramp<double>(100, -1.25);
    const auto xs = ramp<Orb16s>(100, 321), ys = ramp<Orb16s>(100, -77);
    std::vector<float> got(100), want(100), inPlace = y;
    orbs::Sub(x, y, got);
    orbsSub_32f(x.data(), y.data(), want.data(), 100);
    orbs::Sub(x, inPlace);
    expect(got == want && inPlace == want, "Sub of floats");
    std::vector<double> gotd(100), wantd(100);
    orbs::Sub(xd, yd, gotd);
    orbsSub_64f(xd.data(), yd.data(), wantd.data(), 100);
    expect(gotd == wantd, "Sub of doubles");
    std::vector<Orb16s> gots(100), wants(100), inPlaces = ys;
    orbs::Add(xs, ys, gots, 2);
    orbsAdd_16s_Sfs(xs.data(), ys.data(), wants.data(), 100, 2);
    orbs::Add(xs, inPlaces, 2);
    expect(gots == wants && inPlaces == wants, "Add of integers with a scale");
    Orb32f mean = 0, wanted = 0;
    orbs::Mean(x, mean, orbAlgHintAccurate);
    orbsMean_32f(x.data(), 100, &wanted, orbAlgHintAccurate);
    expect(mean == wanted, "a result by reference");
}

void complexNumbers() {
    const std::vector<std::complex<float>> z(10, {3, 4});
    std::vector<Orb32fc> pairs(10);
    std::vector<std::complex<float>> twins(10);
    orbs::AddC(z, std::complex<float>(1, -1), twins);
    orbs::AddC(z, Orb32fc{1, -1}, pairs);
    expect(twins[9] == std::complex<float>(4, 3) && pairs[9].re == 4 && pairs[9].im == 3, "a value of either type");
    std::vector<float> magnitudes(10);
    orbs::Magnitude(z.data(), magnitudes.data(), 10);
    expect(magnitudes[9] == 5, "a pointer to complex elements");
    std::complex<double> dot;
    orbs::DotProd(z, z, dot);
    expect(dot == std::complex<double>(-70, 240), "a complex result of another width");
    const std::vector<std::complex<Orb16s>> whole(4, {1, 2});
    std::vector<Orb16sc> conjugates(4);
    orbs::Conj(whole, conjugates);
    expect(conjugates[3].re == 1 && conjugates[3].im == -2, "pairs of integers");
}

void blocks() {
    const float x[4] = {1, 2, 3, 4};
    std::array<float, 2> taps{1, -1};
    std::vector<float> y(5), low(2), high(2);
    orbs::Conv(x, taps, y);
    expect(y == std::vector<float>({1, 1, 1, 1, -4}), "a convolution of an array and a std::array");
    expect(!orbs::Conv<orbs::Return>(x, x, y), "a convolution into too little room is refused");
    expect(!orbs::WTHaarFwd<orbs::Return>(x, low, orbs::Block<float>(high.data(), 1)), "and a wavelet step");
    orbs::WTHaarFwd(x, low, high);
    expect(low[1] == 3.5f && high[1] == 0.5f, "a wavelet step");
#if __cplusplus >= 202002L
    const std::span<const float> middle = std::span(x).subspan(1, 2);
    orbs::Copy(middle, std::span(low));
    expect(low[0] == 2 && low[1] == 3, "spans");
#endif
}

// Two halves of a stream, by one object and by its copy.
template <class Object, class T, class Make, class... Scale>
void copiesInMidStream(const std::vector<T>& x, Make make, const char* what, Scale... scale) {
    const auto half = static_cast<int>(x.size() / 2);
    std::vector<T> straight(x.size()), cut(x.size()), again(x.size() / 2);
    Object whole = make(), first = make();
    whole.Run(x.data(), straight.data(), 2 * half, scale...);
    first.Run(x.data(), cut.data(), half, scale...);
    Object second = first;
    Object third;
    third = second;
    second.Run(x.data() + half, cut.data() + half, half, scale...);
    Object moved = std::move(third);
    first = Object();
    moved.Run(x.data() + half, again.data(), half, scale...);
    expect(cut == straight && std::vector<T>(cut.begin() + half, cut.end()) == again, what);
}

void objects() {
    const auto x = ramp<float>(400, 0.11);
    std::vector<float> got(400), want(400);
    const std::vector<float> taps = ramp<float>(80, 0.01);

    orbs::FIR_32f filter(taps), other;
    OrbsFIRState_32f* state = nullptr;
    orbsFIRInitAlloc_32f(&state, taps.data(), 80, nullptr);
    orbsFIR_32f(x.data(), want.data(), 400, state);
    orbsFIRFree_32f(state);
    filter.Run(x, got);
    expect(got == want, "a FIR filter");
    expect(other.Run<orbs::Return>(x, got).code() == orbStsNullPtrErr, "an object that there is none of is refused");
    expect(!filter.InitAlloc<orbs::Return>(taps.data(), 0) && filter, "what cannot be made leaves what was there");
    expect(thrownBy([&] { orbs::FIR_32f(taps.data(), 0); }) == orbStsFIRLenErr, "a constructor throws");
    OrbsFIRState_32f* const address = filter.get();
    other = std::move(filter);
    orbs::FIR_32f third(std::move(other));
    expect(third.get() == address && !other, "moving moves the object"); // NOLINT: looked at after the move
    third.InitAlloc(taps);
    third.Run(x, got);
    expect(got == want, "a filter made anew");

    copiesInMidStream<orbs::Copyable<orbs::FIR_32f>>(
        x, [&] { return orbs::Copyable<orbs::FIR_32f>(taps); }, "copies of FIR filters");
    const std::array<double, 6> section{0.2, 0.3, 0.2, 1, -0.5, 0.25};
    copiesInMidStream<orbs::Copyable<orbs::IIR64f_BiQuad_16s>>(
        ramp<Orb16s>(300, 40), [&] { return orbs::Copyable<orbs::IIR64f_BiQuad_16s>(section.data(), 1); },
        "copies of IIR filters", 0);
    const float sparseTaps[2] = {1, -0.5f};
    const Orb32s places[2] = {0, 37};
    copiesInMidStream<orbs::FIRSparse_32f>(
        x, [&] { return orbs::FIRSparse_32f(sparseTaps, places, 2, nullptr, 37); }, "copies of sparse filters");

    // Noise of a generator and of its copy, which neither may free.
    orbs::Copyable<orbs::RandUniform_16s> noise(Orb16s{-100}, Orb16s{100}, 7u);
    std::vector<Orb16s> a(50), b(50);
    noise.Run(a);
    auto twin = noise;
    noise.Run(a);
    twin.Run(b);
    expect(a == b, "copies of generators");

    // Twice the rate, with every factor told.
    const float hold[2] = {1, 1};
    orbs::FIRMR_32f doubled(hold, 2, 2, 0, 1, 0);
    doubled.Run(x.data(), got.data(), 200);
    expect(got[0] == x[0] && got[1] == x[0] && got[398] == x[199], "a filter that changes the rate");
}

void transforms() {
    const orbs::FFT_C_32fc spec(8, ORB_FFT_SCALE_INV, orbAlgHintNone);
    const orbs::Copyable<orbs::FFT_C_32fc> placed(8, ORB_FFT_SCALE_INV, orbAlgHintNone);
    const auto copy = placed;
    std::vector<std::complex<float>> x(256), spectrum(256), other(256), back(256);
    for (std::size_t n = 0; n < 256; ++n) x[n] = {static_cast<float>(n % 7), static_cast<float>(n % 11)};
    spec.Fwd_CToC(x.data(), spectrum.data());
    copy.Fwd_CToC(x.data(), other.data());
    expect(spectrum == other, "a copy of a transform gives the same bits");
    spec.Inv_CToC(spectrum.data(), back.data());
    float error = 0;
    for (std::size_t n = 0; n < 256; ++n) error = std::max(error, std::abs(back[n] - x[n]));
    expect(error < 1e-5f, "forth and back");
    expect(thrownBy([] { orbs::FFT_R_64f(31, ORB_FFT_SCALE_INV, orbAlgHintNone); }) == orbStsFftOrderErr,
           "a wrong order");
    expect(thrownBy([] { orbs::Copyable<orbs::FFT_R_64f>(8, 3, orbAlgHintNone); }) == orbStsFftFlagErr, "a wrong flag");
}

} // namespace

static_assert(!std::is_copy_constructible_v<orbs::FIR_32f> && std::is_nothrow_move_constructible_v<orbs::FIR_32f>);
static_assert(std::is_copy_constructible_v<orbs::Copyable<orbs::FIR_32f>> &&
              std::is_nothrow_move_assignable_v<orbs::Copyable<orbs::FIR_32f>>);
static_assert(!std::is_convertible_v<const std::vector<float>&, orbs::Block<float>>, "const elements stay so");
static_assert(!std::is_convertible_v<std::vector<float>&, orbs::Block<const double>>);

int main() {
    statuses();
    overloads();
    complexNumbers();
    blocks();
    objects();
    transforms();
    return failures != 0;
}
