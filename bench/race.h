// A product's work timed against the least work that the same bytes need, turn by turn in one loop, so that
// whatever else the machine does hits both. The counter "ratio" is the quotient of the two sums.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>

namespace tarvik::bench {

template <class Work>
double secondsOf(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

template <class Product, class Raw>
void race(benchmark::State& state, Product&& product, Raw&& raw) {
    double productSeconds = 0;
    double rawSeconds = 0;
    for (auto _ : state) {
        rawSeconds += secondsOf(raw);
        const double seconds = secondsOf(product);
        productSeconds += seconds;
        state.SetIterationTime(seconds);
    }
    const auto turns = static_cast<double>(state.iterations());
    state.counters["raw_ms"] = rawSeconds / turns * 1000;
    state.counters["ratio"] = productSeconds / rawSeconds;
}

} // namespace tarvik::bench
