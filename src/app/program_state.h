// The program-wide state that the frame owns and everyone may read.
#pragma once

#include <cstdint>
#include <string>

namespace tarvik {

/// How modes are stored and compared. "CALIBTEST" is requested as "CALIB-TEST".
namespace programMode {
constexpr const char* review = "REVIEW";
constexpr const char* acquire = "ACQUIRE";
constexpr const char* calibTest = "CALIBTEST";
constexpr const char* demo = "DEMO";
} // namespace programMode

struct ProgramState {
    std::string mode = programMode::review;
    std::string acquisitionState = "OFF"; ///< the logging run sets others
    bool logging = false;                 ///< the run loop reads it before each scan
    bool editing = false;
    bool started = false;
    bool firstActivationDone = false;
    bool searching = false; ///< for an LCU: no command may start until the search has ended

    /// Exit asks first. Set each time the review logs are drawn and by "No" in the exit dialog; cleared at
    /// first activation, by every reset of the print button and by "Yes".
    bool exitConfirmation = false;
    bool mustEnd = false; ///< the system asks the program to end: exit puts no question, nobody may be there

    double depthScaleFactor = 1.0; ///< stays 1.0: depths in memory are metres

    std::int32_t screenWidth = 0; ///< pixels, taken at start-up
    std::int32_t screenHeight = 0;
    std::int16_t twipsPerPixelX = 0;
    std::int16_t twipsPerPixelY = 0;

    // What the tool bar switches.
    std::string fluidDisplay = "Gauges";       ///< "Gauges" or "Logs"
    std::string sonicDisplay = "Colour";       ///< "Colour" or "Traces"
    std::string deviationDisplay = "Bullseye"; ///< "Bullseye", "Magnetics" or "Deviation"
    bool notesShown = false;
    int setupPage = 0; ///< the page the setup screen last showed

    std::string runFileName; ///< of the run shown or logged, without its folder
};

} // namespace tarvik
