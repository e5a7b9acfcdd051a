#include "simulator/geology.h"

#include "simulator/random.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <string>

namespace lcusim {

namespace {

constexpr double layerThickness = 2.5; ///< metres, on average
constexpr double nearReach = 0.15;     ///< half the stretch over which most sensors see both layers, metres
constexpr double waverLength = 0.4;    ///< metres between two points of a wavering curve

/// One property: what it is called, its share of the full scale in each rock and behind casing, how it grows
/// a hundred metres, how much it wavers within a layer, and how far up and down its sensor sees.
struct Property {
    std::string_view name;
    std::string_view alsoCalled;  ///< part of channel names that mean it; empty: `name`
    std::array<double, 6> inRock; ///< sand, silt, shale, coal, limestone, basalt
    double inCasing;
    double perHundredMetres;
    double waver;
    double reach = nearReach;
};

constexpr std::array<double, 6> even(double value) {
    return {value, value, value, value, value, value};
}

constexpr std::array<Property, 21> properties{{
    {"gamma", "", {0.18, 0.38, 0.62, 0.12, 0.10, 0.07}, 0.05, 0, 0.04},
    {"density", "", {0.55, 0.60, 0.64, 0.18, 0.78, 0.88}, 0.92, 0, 0.02},
    {"caliper", "", {0.36, 0.34, 0.46, 0.40, 0.32, 0.31}, 0.28, 0, 0.02},
    {"conductivity", "cond", {0.35, 0.48, 0.70, 0.10, 0.08, 0.05}, 0.97, 0.02, 0.03},
    {"resistivity", "resis", {0.30, 0.20, 0.10, 0.75, 0.65, 0.85}, 0.03, 0, 0.03},
    {"temperature", "temp", even(0.25), 0.25, 0.08, 0.003},
    {"pressure", "press", even(0.05), 0.05, 0.15, 0.001},
    {"flow", "", even(0.50), 0.45, 0.03, 0.02},
    {"susceptibility", "susc", {0.12, 0.18, 0.22, 0.05, 0.06, 0.85}, 0.97, 0, 0.03},
    {"porosity", "neut", {0.45, 0.40, 0.55, 0.70, 0.20, 0.10}, 0.30, -0.01, 0.03},
    {"slowness", "sonic", {0.50, 0.55, 0.65, 0.80, 0.30, 0.25}, 0.33, -0.02, 0.02},
    {"density_far", "long spac", {0.45, 0.40, 0.34, 0.85, 0.22, 0.12}, 0.08, 0, 0.03},
    {"voltage", "volt", even(0.60), 0.60, 0, 0.005},
    {"ph", " ph ", even(0.55), 0.55, 0, 0.01},
    {"oxygen", "oxy", even(0.40), 0.40, -0.02, 0.02},
    {"sp", " sp ", {0.30, 0.45, 0.60, 0.42, 0.50, 0.52}, 0.50, 0, 0.02},
    // Normals: the nearer the electrodes, the more they see of the mud that has entered the rock, and the
    // sharper a border.
    {"resistivity_8", "\n", {0.20, 0.17, 0.11, 0.50, 0.44, 0.62}, 0.03, 0, 0.04, 0.10},
    {"resistivity_16", "\n", {0.24, 0.18, 0.11, 0.60, 0.53, 0.72}, 0.03, 0, 0.03, 0.20},
    {"resistivity_32", "\n", {0.28, 0.19, 0.10, 0.69, 0.60, 0.80}, 0.03, 0, 0.02, 0.40},
    {"resistivity_64", "\n", {0.30, 0.20, 0.10, 0.75, 0.65, 0.85}, 0.03, 0, 0.02, 0.80},
    {"unknown", "\n", even(0.45), 0.45, 0, 0.25},
}};

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

double smooth(double x) {
    return x * x * (3 - 2 * x);
}

std::uint64_t bits(std::int64_t number) {
    return static_cast<std::uint64_t>(number);
}

} // namespace

Geology::Geology(std::uint64_t seed) : seed_(mixed(seed)), casingShoe_(6 + 6 * fractionOf(seed_)) {}

std::size_t Geology::property(std::string_view synth, std::string_view channelName) {
    const std::string wanted = lowered(synth);
    const std::string name =
        " " + lowered(channelName) + " "; // so that short words can be told from parts of others
    const auto named = std::ranges::find(properties, wanted, &Property::name);
    if (named != properties.end()) return static_cast<std::size_t>(named - properties.begin());
    const auto meant = std::ranges::find_if(properties, [&](const Property& property) {
        return name.find(property.alsoCalled.empty() ? property.name : property.alsoCalled) !=
               std::string::npos;
    });
    return std::min<std::size_t>(static_cast<std::size_t>(meant - properties.begin()), properties.size() - 1);
}

double Geology::boundary(std::int64_t layer) const {
    return (static_cast<double>(layer) + 0.8 * (fractionOf(seed_ + 3 * bits(layer)) - 0.5)) * layerThickness;
}

double Geology::layerValue(std::size_t property, std::int64_t layer) const {
    const Property& rule = properties[property];
    const auto rock = static_cast<std::size_t>(fractionOf(seed_ + 3 * bits(layer) + 1) * 6);
    const double purity = fractionOf(seed_ + 3 * bits(layer) + 2) - 0.5;
    return rule.inRock[rock] + 0.6 * rule.waver * purity;
}

double Geology::wavering(std::size_t property, double depth) const {
    const double place = depth / waverLength;
    const double before = std::floor(place);
    const auto value = [&](double point) {
        const auto key = static_cast<std::int64_t>(point) * 64 + static_cast<std::int64_t>(property);
        return fractionOf(~seed_ + bits(key)) - 0.5;
    };
    const double share = smooth(place - before);
    return value(before) * (1 - share) + value(before + 1) * share;
}

double Geology::fraction(std::size_t property, double depth) const {
    const Property& rule = properties[property];
    auto layer = static_cast<std::int64_t>(std::floor(depth / layerThickness));
    if (depth < boundary(layer)) --layer;
    if (depth >= boundary(layer + 1)) ++layer;

    const double top = boundary(layer);
    const double bottom = boundary(layer + 1);
    const double reach = std::min(rule.reach, (bottom - top) / 2);
    double value = layerValue(property, layer);
    if (depth - top < reach) {
        const double share = smooth(0.5 + 0.5 * (depth - top) / reach);
        value = value * share + layerValue(property, layer - 1) * (1 - share);
    } else if (bottom - depth < reach) {
        const double share = smooth(0.5 + 0.5 * (bottom - depth) / reach);
        value = value * share + layerValue(property, layer + 1) * (1 - share);
    }
    if (depth < casingShoe_) value = rule.inCasing;
    value += rule.perHundredMetres * depth / 100 + rule.waver * wavering(property, depth);
    return std::clamp(value, 0.02, 0.98);
}

} // namespace lcusim
