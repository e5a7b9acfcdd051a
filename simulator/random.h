// Random numbers that are the same on every machine for the same seed (the standard distributions are not).
#pragma once

#include <cmath>
#include <cstdint>

namespace lcusim {

/// Scatters the bits of a number; equal numbers give equal results.
constexpr std::uint64_t mixed(std::uint64_t x) {
    x += 0x9E3779B97F4A7C15ULL;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
    return x ^ (x >> 31);
}

/// A fraction of 1 (excluded) from a number's bits.
constexpr double fractionOf(std::uint64_t bits) {
    return static_cast<double>(mixed(bits) >> 11) * 0x1.0p-53;
}

class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(mixed(seed)) {}

    /// 0 up to, not including, 1.
    [[nodiscard]] double fraction() { return fractionOf(state_++); }
    [[nodiscard]] double between(double low, double high) { return low + (high - low) * fraction(); }
    /// 0 to count - 1.
    [[nodiscard]] std::int64_t below(std::int64_t count) {
        return static_cast<std::int64_t>(fraction() * static_cast<double>(count));
    }
    [[nodiscard]] std::uint8_t byte() { return static_cast<std::uint8_t>(below(256)); }
    /// Mean 0, standard deviation 1.
    [[nodiscard]] double normal() {
        return std::sqrt(-2.0 * std::log(1.0 - fraction())) * std::cos(6.283185307179586 * fraction());
    }
    /// Number of events of a random process that has `mean` on average.
    [[nodiscard]] double poisson(double mean) {
        if (mean <= 0) return 0;
        if (mean > 50) return std::fmax(0.0, std::round(mean + std::sqrt(mean) * normal()));
        double product = fraction();
        double events = 0;
        for (const double limit = std::exp(-mean); product > limit; ++events) product *= fraction();
        return events;
    }

  private:
    std::uint64_t state_;
};

} // namespace lcusim
