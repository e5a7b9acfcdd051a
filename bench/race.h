// A product's work timed against the least work that the same bytes need, turn by turn in one loop, so that
// whatever else the machine does hits both. Timed is processor time: waiting for disks does not count. The
// counter "ratio" is the quotient of the two sums.
#pragma once

#include <benchmark/benchmark.h>

#include <ctime>

namespace tarvik::bench {

template <class Work>
double secondsOf(Work&& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
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
