// Samples put between samples and left out, beside plain loops.
#include "orbs.h"
#include "vectors.h"

namespace {

constexpr int lengths[] = {100, 4096};

template <class T, class Up, class Down>
void addRows(const std::string& type, Up up, Down down) {
    for (const int factor : {2, 3, 4, 7}) {
        const std::string rows = type + "(" + std::to_string(factor) + ")";
        const auto add = [](std::string name, const char* who, auto body) {
            vectors::Row row(name);
            row.lens = lengths;
            vectors::add(row, who, body);
        };
        const T* const x = vectors::buffer<T>(0);
        T* const y = vectors::room<T>(1);
        add("SampleUp_" + rows, "orbs", [=](int len) {
            int phase = 1, length;
            up(x, len, y, &length, factor, &phase);
        });
        add("SampleUp_" + rows, "loop", [=](int len) {
            for (int n = 0; n < len * factor; ++n) y[n] = 0;
            for (int n = 0; n < len; ++n) y[n * factor + 1] = x[n];
        });
        add("SampleDown_" + rows, "orbs", [=](int len) {
            int phase = 1, length;
            down(x, len, y, &length, factor, &phase);
        });
        add("SampleDown_" + rows, "loop", [=](int len) {
            T* to = y;
            for (int n = 1; n < len; n += factor) *to++ = x[n];
        });
    }
}

[[maybe_unused]] const bool registered = [] {
    addRows<Orb16s>("16s", orbsSampleUp_16s, orbsSampleDown_16s);
    addRows<Orb32f>("32f", orbsSampleUp_32f, orbsSampleDown_32f);
    addRows<Orb64f>("64f", orbsSampleUp_64f, orbsSampleDown_64f);
    return true;
}();

} // namespace
