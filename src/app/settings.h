// What the program remembers between two starts: project, hole, equipment, sampling and the LCU search. A
// plain value, handed to whoever needs it; only the frame reads and writes the store (stored_settings.h).
#pragma once

#include "base/depth_units.h"
#include "base/run_header.h"
#include "base/run_setup.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarvik {

/// A number that keeps the way it was written: "1.0" and "2.20E+09" go back to the store as they came.
class NumberText {
  public:
    NumberText() = default;
    NumberText(double value); // NOLINT(google-explicit-constructor): a number is written as the shortest text
    /// Throws Failure(typeMismatch) when the text is no number.
    explicit NumberText(std::string_view text);

    [[nodiscard]] double value() const { return value_; }
    [[nodiscard]] const std::string& text() const { return text_; }

    friend bool operator==(const NumberText&, const NumberText&) = default;

  private:
    std::string text_ = "0";
    double value_ = 0;
};

/// Each of the hole's header fields as it is before anything was entered: one blank.
[[nodiscard]] HoleDetails blankHole();

/// "Metres" or "Feet  ": the depth unit's field is six characters wide.
constexpr std::size_t depthUnitsWidth = 6;
[[nodiscard]] std::string depthUnitsField(std::string_view text);

struct Settings {
    std::string projectDrive; ///< drive letter of the projects folder
    std::string currentProject;
    HoleDetails hole = blankHole();

    std::string currentTool; ///< tool code
    std::string currentToolSerial;
    std::string currentWinch; ///< winch code
    std::string currentWinchSerial;
    std::string depthUnits = "Metres"; ///< anything else means feet
    std::int16_t logInches = 1;        ///< log scale unit switch; read, never written
    std::string samplingMethod = "TIME";
    NumberText samplingInterval{"0.5"}; ///< seconds by time; centimetres (or the foot unit) by depth
    NumberText winchScaleFactor{"1.0"};
    std::string logDirection = "DOWN";
    std::int16_t allowLogging = 1; ///< 0: "MB-Acquire" stays disabled
    std::int32_t magneticMarker = 0;
    NumberText declination{"0"}; ///< degrees

    bool searchAutomatically = true;
    std::int16_t lcuComms = 12; ///< which ports the LCU search tries: one of `lcuCommsChoices`

    [[nodiscard]] DepthUnits units() const { return depthUnitsFrom(depthUnits); }
    void setUnits(DepthUnits units) { depthUnits = depthUnitsField(depthUnitsText(units)); }
    [[nodiscard]] Sampling sampling() const {
        return samplingMethod == samplingText(Sampling::depth) ? Sampling::depth : Sampling::time;
    }
    [[nodiscard]] Direction direction() const {
        return logDirection == directionText(Direction::up) ? Direction::up : Direction::down;
    }
};

/// 12 is COM1 then COM2, 34 is COM3 then COM4, 1 to 4 that port alone; in the order of the option buttons.
constexpr std::array<std::int16_t, 6> lcuCommsChoices{12, 34, 1, 2, 3, 4};
/// The value itself, or 12 when it is none of the six.
[[nodiscard]] std::int16_t lcuCommsOrDefault(std::int16_t value);

/// The unit beside the sampling interval: "seconds", "cms" or "feet".
[[nodiscard]] std::string_view intervalUnitLabel(std::string_view samplingMethod, DepthUnits units);

/// Which entry of a drive list ("c:", "d: [Data]") the letter selects: the first that begins with it, in
/// either case.
[[nodiscard]] std::optional<std::size_t> driveListIndex(std::span<const std::string> drives,
                                                        std::string_view letter);

} // namespace tarvik
