// The main screen as the frame knows it: what the frame says goes to the part of the screen that shows it.
#pragma once

#include "app/frame_view.h"
#include "app/program_state.h"
#include "screens/intro_screen.h"

#include <functional>
#include <memory>
#include <string>

namespace tarvik {

/// What the main screen needs from whoever wires it.
struct IntroWindowParts {
    std::function<std::unique_ptr<IntroScreen>()> make;
    std::function<std::string()> mode;
    std::function<void()> modeShown; ///< the side frame has been laid out for another mode
    std::function<void()> stopMainTimer;
    std::function<void()> openHelp;
    std::function<void()> closeRun;
    std::function<void()> redrawReview;
    std::function<void()> redrawEquallySpaced;
    std::function<void()> loadNotes;
};

class IntroWindow final : public FrameView, public MainWindow {
  public:
    explicit IntroWindow(IntroWindowParts parts) : parts_(std::move(parts)) {}

    /// Null before `create` and after `unload`.
    [[nodiscard]] IntroScreen* screen() const { return screen_.get(); }

    // MainWindow
    void create() override;
    void show() override;
    void hide() override;
    void minimise() override;
    void fillScreen(std::int32_t width, std::int32_t height) override;
    void unload() override;
    void stopMainTimer() override { parts_.stopMainTimer(); }
    void processMessages() override;
    void openHelp() override { parts_.openHelp(); }

    // FrameView
    void setControl(const ControlState& control) override;
    void setChecked(std::string_view key, bool checked) override;
    void uncheckToolBar() override;
    void setCaption(std::string_view key, std::string_view caption) override;
    void setSearchPicture(bool checked) override;
    void fillLogScales(std::span<const std::string_view> scales) override;
    void Utilities_setupsideframe() override;
    void hideAcquisitionPanel() override;
    void hideRunPanels() override;
    void showNotesPanel(bool shown) override;
    void showProgress(int percent) override;
    void showInterface(const InterfaceDisplay& display) override;
    void showLogo(const Path& bitmap) override;
    void showVersion(std::string_view label) override;
    void printOnLogPicture(std::string_view text) override;
    void redrawReviewLogs() override { parts_.redrawReview(); }
    void redrawLogsEquallySpaced() override { parts_.redrawEquallySpaced(); }
    void redrawAcquisitionByDepth() override { screen_->live().setAxis(Axis::depth); }
    void redrawAcquisitionByTime() override { screen_->live().setAxis(Axis::time); }
    void showFluidDisplay(std::string_view display) override { screen_->live().showDisplay(display); }
    void showSonicDisplay(std::string_view display) override;
    void showDeviationDisplay(std::string_view display) override { screen_->live().showDisplay(display); }
    void closeRun() override { parts_.closeRun(); }

  private:
    IntroWindowParts parts_;
    std::unique_ptr<IntroScreen> screen_;
};

} // namespace tarvik
