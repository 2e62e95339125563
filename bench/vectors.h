// Benchmarks of calls over whole vectors: the same buffers for everybody, named member/who/length.
#pragma once

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdlib>
#include <random>
#include <span>
#include <string>
#include <type_traits>

namespace vectors {

inline constexpr int longest = 1000000;
inline constexpr int usual[] = {4096, longest};
inline constexpr int alsoShort[] = {7, 33, 100, 4096, longest}; // with those where the call itself is what takes time

// A family of benchmarks: the member's name, with its scale factor or the like in brackets, and the lengths to time.
struct Row {
    Row(const char* member) : name(member) {}
    Row(const std::string& member) : name(member) {}
    Row(const char* member, std::span<const int> lengths) : name(member), lens(lengths) {}

    std::string name;
    std::span<const int> lens = usual;
};

// Times body(len) at each length, behind a first call in which a library may choose its kernels.
template <class Body>
void add(const Row& row, const std::string& who, Body body) {
    for (const int len : row.lens) {
        benchmark::RegisterBenchmark((row.name + "/" + who + "/" + std::to_string(len)).c_str(),
                                     [=](benchmark::State& run) {
                                         body(len);
                                         for (auto _ : run) {
                                             body(len);
                                             benchmark::ClobberMemory();
                                         }
                                         run.SetItemsProcessed(run.iterations() * len);
                                     });
    }
}

// Room for the longest vector. `which` keeps buffers apart in their pages, so that loads do not wait for stores to the
// same place of another page.
template <class T>
T* room(std::size_t which, std::size_t count = longest) {
    const std::size_t page = 4096, bytes = (count * sizeof(T) / page + 2) * page;
    return reinterpret_cast<T*>(static_cast<char*>(std::aligned_alloc(page, bytes)) + which * 17 * 64);
}

// The buffer of a type and a number, filled with numbers from -100 to 100.
template <class T>
T* buffer(std::size_t which) {
    static T* buffers[4] = {};
    if (buffers[which]) return buffers[which];
    T* const data = buffers[which] = room<T>(which);
    std::mt19937 random(static_cast<unsigned>(which));
    std::uniform_real_distribution<float> uniform(-100, 100);
    const auto fill = [&]<class Number>(Number& number) {
        number = static_cast<Number>(static_cast<int>(uniform(random)));
    };
    for (int n = 0; n < longest; ++n) {
        if constexpr (requires { data->re; }) {
            fill(data[n].re);
            fill(data[n].im);
        } else if constexpr (requires { data->b; }) {
            for (auto& byte : data[n].b) fill(byte);
        } else {
            fill(data[n]);
        }
    }
    return data;
}

// Divisors and radicands: above 0, and above 2^15 for the widest integers.
template <class T>
const T* positive() {
    static T* const data = room<T>(0);
    const T* const any = buffer<T>(0);
    for (int n = 0; n < longest; ++n) {
        data[n] = any[n];
        if constexpr (requires { data->re; }) {
            if (data[n].re == 0) data[n].re = 3;
        } else {
            data[n] = static_cast<T>(data[n] == 0 ? 3 : data[n] < 0 ? -data[n] : data[n]);
            if (std::is_integral_v<T> && sizeof(T) == 8) data[n] *= 0x12345678;
        }
    }
    return data;
}

} // namespace vectors
