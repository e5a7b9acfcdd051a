// The tool on the cable: what its sensors count at a depth.
#pragma once

#include "simulator/geology.h"
#include "simulator/hole_path.h"
#include "simulator/random.h"
#include "simulator/tool_profile.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace lcusim {

class DownholeTool {
  public:
    /// Mode 1 or 2 of the tool.
    DownholeTool(const ToolProfile& tool, int mode, std::uint64_t seed);

    [[nodiscard]] std::size_t wordCount() const { return channels_.size(); }
    /// Fills one word and one noise-free reading a channel. `seconds` is how long pulses were counted.
    void measure(double depth, double seconds, std::span<std::uint16_t> words, std::span<double> readings);
    /// mA drawn; wavers a little.
    [[nodiscard]] double current();
    [[nodiscard]] double maximumCurrent() const { return maximumCurrent_; }

    /// A sensor-factor text sent down the cable; tools that are not told how to count ignore it.
    void setSensorFactors(std::string_view text);
    [[nodiscard]] const HolePath& holePath() const { return path_; }

  private:
    struct Channel {
        double left = 0; ///< readings at fraction 0 and 1
        double right = 0;
        std::size_t property = 0;
        int axis = -1;       ///< 0 to 2 magnetometer, 3 to 5 accelerometer of the deviation tool
        bool scaled = false; ///< the record gave the scale
    };

    [[nodiscard]] double reading(const Channel& channel, double depth) const;
    [[nodiscard]] double counted(double reading, const CountRule& rule, double noise, double seconds);
    void setUnscaledEnds();

    std::string code_;
    double maximumCurrent_;
    Geology geology_;
    HolePath path_;
    Random random_;
    std::vector<Channel> channels_;
    std::vector<CountRule> rules_;
    ToolVectors vectors_; ///< at the depth being measured
};

} // namespace lcusim
