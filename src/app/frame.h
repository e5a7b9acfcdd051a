// What the parts of the frame share: the log, the operator, the main screen, the state, and the functions
// through which the frame reaches rooms that are built upon it.
#pragma once

#include "app/error_trap.h"
#include "app/frame_view.h"
#include "app/link_state.h"
#include "app/operator_side.h"
#include "app/program_state.h"
#include "app/settings.h"
#include "app/status_log.h"
#include "app/stored_settings.h"
#include "platform/background_copy.h"
#include "platform/places.h"

#include <functional>
#include <string>
#include <string_view>

namespace tarvik {

/// A screen by its name; the setup screen also by page (0 project, 1 hole, 2 winch and tool, 3 lithology,
/// 4 log display, 5 system test, 6 firmware) and sub-page.
struct ScreenRequest {
    static constexpr int noPage = -1;

    std::string_view screen;
    int page = noPage;
    int subPage = noPage;

    friend bool operator==(const ScreenRequest&, const ScreenRequest&) = default;
};

/// Calls out of the frame. Each starts as an empty hook: the search finds nothing, no port is open.
struct FrameHooks {
    /// Searches the ports that the settings name; true when an LCU answered and its port is open.
    std::function<bool()> searchForLcu = [] { return false; };
    std::function<void()> stopDataStream = [] {};
    /// Closes the open port, writes "Port COMn closed" and sets its number to 0.
    std::function<void()> closePort = [] {};
    std::function<void(int milliseconds)> sleep = [](int) {};

    /// Returns when the screen is closed, if it is modal.
    std::function<void(const ScreenRequest&)> openScreen = [](const ScreenRequest&) {};
    std::function<void(const Path& runFile)> printLog = [](const Path&) {};

    std::function<void()> loadHoleNotes = [] {};
    std::function<void()> loadCalibrationHistory = [] {};
    /// Fills the calibration screen's tool list from the user's equipment.
    std::function<void()> fillCalibrationTools = [] {};
    std::function<void()> clearEquipment = [] {}; ///< current tool and winch become blank records

    /// Copies a folder into another without waiting; false when that could not be started.
    std::function<bool(const Path& source, const Path& target)> startCopying = [](const Path&, const Path&) {
        return false;
    };
    /// The copies that have ended since the last call.
    std::function<std::vector<BackgroundCopies::Ended>()> copiesEnded = [] {
        return std::vector<BackgroundCopies::Ended>{};
    };
    std::function<void()> endProcess = [] {};
};

struct Frame {
    ErrorTrap& errors;
    StatusLog& log;
    OperatorSide& operatorSide;
    FrameView& view;
    FrameHooks& hooks;
    ProgramState& state;
    LinkState& link;
    Settings& settings;
    StoredSettings& store;
    const Places& places;
};

/// Closes the port if one is open. Nothing is behind a show's port: its number is merely forgotten.
void closeOpenPort(Frame& frame);

/// Also withdraws the exit confirmation: nothing worth asking for is on the screen any more.
void resetPrintButton(Frame& frame);

/// The current project's folder under "Brenna Projects".
[[nodiscard]] Path projectFolder(const Frame& frame);

} // namespace tarvik
