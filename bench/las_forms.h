// The forms of LAS files that reading and writing are timed with.
#pragma once

#include <benchmark/benchmark.h>

namespace tarvik::bench {

/// Decimals, and with most of them a second way.
inline void lasForms(benchmark::internal::Benchmark* bench) {
    bench->Args({2, 0})->Args({5, 0})->Args({5, 1})->UseManualTime()->Unit(benchmark::kMillisecond);
}

} // namespace tarvik::bench
