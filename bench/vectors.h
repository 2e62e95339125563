// Benchmarks of calls over whole vectors: the same buffers for everybody, named family/who/size.
#pragma once

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdlib>
#include <random>
#include <string>

namespace vectors {

inline constexpr int sizes[] = {4096, 1000000};

// Room for the largest size, filled with numbers from -100 to 100. Each buffer starts elsewhere in its page than the
// others, so that loads do not wait for stores to the same place of another page.
template <class T>
T* buffer(std::size_t which) {
    static char* memory[4] = {};
    constexpr std::size_t page = 4096, bytes = (sizes[1] * sizeof(T) / page + 2) * page;
    if (!memory[which]) memory[which] = static_cast<char*>(std::aligned_alloc(page, bytes));
    T* const data = reinterpret_cast<T*>(memory[which] + which * 17 * 64);
    std::mt19937 random(static_cast<unsigned>(which));
    std::uniform_real_distribution<float> uniform(-100, 100);
    for (int n = 0; n < sizes[1]; ++n) {
        if constexpr (requires { data->re; }) {
            using Part = decltype(data->re);
            const auto re = static_cast<Part>(uniform(random));
            data[n] = {re, static_cast<Part>(uniform(random))};
        } else {
            data[n] = static_cast<T>(static_cast<int>(uniform(random)));
        }
    }
    return data;
}

// Times body(len) at each size.
template <class Body>
void add(const std::string& family, const std::string& who, Body body) {
    for (const int len : sizes) {
        benchmark::RegisterBenchmark((family + "/" + who + "/" + std::to_string(len)).c_str(),
                                     [=](benchmark::State& run) {
                                         for (auto _ : run) {
                                             body(len);
                                             benchmark::ClobberMemory();
                                         }
                                         run.SetItemsProcessed(run.iterations() * len);
                                     });
    }
}

} // namespace vectors
