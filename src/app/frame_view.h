// What the main screen shows, as plain data on its way to whoever draws it. Nothing happens where a method
// is not overridden: the command line has no frame to show.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarvik {

enum class Shown { asItWas, yes, no };

/// A menu, a tool-bar button or the log scale list, by its key.
struct ControlState {
    std::string_view key;
    bool enabled = false;
    Shown shown = Shown::asItWas;

    friend bool operator==(const ControlState&, const ControlState&) = default;
};

/// The label that names the box, and the indicators that only one of the models has.
struct InterfaceDisplay {
    std::string_view label;
    int labelWidthTwips = 0;
    Shown lcu4Indicators = Shown::asItWas;        ///< two
    Shown furtherLcu4Indicators = Shown::asItWas; ///< two more
    Shown lcu2PlusIndicators = Shown::asItWas;    ///< two
};

/// Nothing for a text that is no model's name.
[[nodiscard]] std::optional<InterfaceDisplay> interfaceDisplay(std::string_view model);

class FrameView {
  public:
    virtual ~FrameView() = default;

    // Bars.
    virtual void layOutBars() {}
    virtual void setControl(const ControlState& /*control*/) {}
    virtual void setChecked(std::string_view /*key*/, bool /*checked*/) {}
    virtual void uncheckToolBar() {}
    virtual void setCaption(std::string_view /*key*/, std::string_view /*caption*/) {}
    /// The picture of "Setup-LCUsearch" in the menu "ch-setup".
    virtual void setSearchPicture(bool /*checked*/) {}
    virtual void resetPrintButton() {}
    virtual void fillLogScales(std::span<const std::string_view> /*scales*/) {}

    // Panels.
    virtual void Utilities_setupsideframe() {}
    virtual void hideAcquisitionPanel() {}
    virtual void hideRunPanels() {}
    virtual void showNotesPanel(bool /*shown*/) {}
    virtual void showProgress(int /*percent*/) {}
    virtual void showInterface(const InterfaceDisplay& /*display*/) {}
    virtual void showLogo(const Path& /*bitmap*/) {}
    virtual void showVersion(std::string_view /*label*/) {}

    // The log picture.
    virtual void prepareDrawing() {}
    virtual void printOnLogPicture(std::string_view /*text*/) {}
    virtual void redrawLogsEquallySpaced() {}
    /// In the layout that is shown, split or single.
    virtual void redrawReviewLogs() {}
    virtual void redrawAcquisitionByDepth() {}
    virtual void redrawAcquisitionByTime() {}
    virtual void showFluidDisplay(std::string_view /*display*/) {}
    virtual void showSonicDisplay(std::string_view /*display*/) {}
    virtual void showDeviationDisplay(std::string_view /*display*/) {}
    virtual void closeRun() {}

    // Calibration screen.
    virtual void prepareCalibrationWithoutLcu() {}
};

/// The main screen as a window.
class MainWindow {
  public:
    virtual ~MainWindow() = default;

    /// Creates it, placed and sized from the screen's size.
    virtual void create() {}
    virtual void show() {}
    virtual void hide() {}
    virtual void minimise() {}
    virtual void fillScreen(std::int32_t /*width*/, std::int32_t /*height*/) {}
    /// Ends it; nothing of it is called afterwards.
    virtual void unload() {}
    virtual void stopMainTimer() {}
    /// Lets pending window messages run.
    virtual void processMessages() {}
    virtual void setHelpFile(const Path& /*file*/) {}
    virtual void openHelp() {}
};

} // namespace tarvik
