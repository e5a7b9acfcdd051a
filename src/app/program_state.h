// The program-wide state that the frame owns and everyone may read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tarvik {

/// How modes are stored and compared. "CALIBTEST" is requested as "CALIB-TEST".
namespace programMode {
constexpr const char* review = "REVIEW";
constexpr const char* acquire = "ACQUIRE";
constexpr const char* calibTest = "CALIBTEST";
constexpr const char* demo = "DEMO";
} // namespace programMode

/// What the frame knows of the link to the LCU.
struct LinkFacts {
    std::int32_t port = 0; ///< open port number, 1 to 4; 0 or less means closed
    std::string model;     ///< "LCU2Plus", "LCU4", or empty when none was found
    std::string firmware;
};

struct ProgramState {
    std::string mode = programMode::review;
    std::string acquisitionState = "OFF"; ///< the logging run sets others
    bool logging = false;                 ///< the run loop reads it before each scan
    bool editing = false;
    bool started = false;
    bool firstActivationDone = false;
    bool searching = false; ///< for an LCU: no command may start until the search has ended

    /// In "DEMO" the link is a show: no device is behind its port number, nothing is sent and nothing closed.
    std::optional<LinkFacts> demoLink;

    /// Exit asks first. Set each time the review logs are drawn and by "No" in the exit dialog; cleared at
    /// first activation, by every reset of the print button and by "Yes".
    bool exitConfirmation = false;

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
