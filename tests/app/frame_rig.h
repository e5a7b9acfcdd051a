// The whole frame in memory: what it shows, asks and calls goes into one transcript, in order.
#pragma once

#include "app/command_table.h"
#include "app/doubles.h"
#include "app/error_log.h"
#include "app/start_up.h"
#include "platform/memory_files.h"
#include "platform/virtual_clock.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvik {

struct WritingView : FrameView {
    explicit WritingView(WritingOperator& out) : out_(out) {}

    void layOutBars() override { out_.write("bars"); }
    void setControl(const ControlState& control) override {
        out_.write(control.enabled ? "+" : "-", control.key, control.shown == Shown::no ? " hidden" : "");
    }
    void setChecked(std::string_view key, bool checked) override {
        out_.write(checked ? "check " : "uncheck ", key);
    }
    void uncheckToolBar() override { out_.write("uncheck all"); }
    void setCaption(std::string_view key, std::string_view caption) override {
        out_.write(key, "=", caption);
    }
    void setSearchPicture(bool checked) override { out_.write("search picture ", checked ? "on" : "off"); }
    void resetPrintButton() override { out_.write("print button"); }
    void fillLogScales(std::span<const std::string_view> scales) override {
        out_.write("scales ", scales.front(), " to ", scales.back());
    }
    void Utilities_setupsideframe() override { out_.write("side frame"); }
    void hideAcquisitionPanel() override { out_.write("hide acquisition"); }
    void hideRunPanels() override { out_.write("hide run panels"); }
    void showNotesPanel(bool shown) override { out_.write("notes ", shown ? "on" : "off"); }
    void showProgress(int percent) override { out_.write("progress ", std::to_string(percent)); }
    void showInterface(const InterfaceDisplay& display) override {
        out_.write(display.label, " ", std::to_string(display.labelWidthTwips));
    }
    void showLogo(const Path& bitmap) override { out_.write("logo ", bitmap.string()); }
    void showVersion(std::string_view label) override { out_.write("version [", label, "]"); }
    void prepareDrawing() override { out_.write("drawing"); }
    void printOnLogPicture(std::string_view text) override { out_.write("picture [", text, "]"); }
    void redrawLogsEquallySpaced() override { out_.write("redraw"); }
    void redrawReviewLogs() override { out_.write("redraw review"); }
    void redrawAcquisitionByDepth() override { out_.write("redraw depth"); }
    void redrawAcquisitionByTime() override { out_.write("redraw time"); }
    void closeRun() override { out_.write("close run"); }
    void prepareCalibrationWithoutLcu() override { out_.write("calibration without LCU"); }

  private:
    WritingOperator& out_;
};

struct WritingWindow final : MainWindow {
    explicit WritingWindow(WritingOperator& out) : out_(out) {}

    void create() override { out_.write("create"); }
    void show() override { out_.write("show"); }
    void hide() override { out_.write("hide"); }
    void minimise() override { out_.write("minimise"); }
    void fillScreen(std::int32_t width, std::int32_t height) override {
        out_.write("fill ", std::to_string(width), "x", std::to_string(height));
    }
    void unload() override { out_.write("unload"); }
    void stopMainTimer() override { out_.write("stop timer"); }
    void processMessages() override { out_.write("messages"); }
    void setHelpFile(const Path& file) override { out_.write("help ", file.string()); }
    void openHelp() override { out_.write("open help"); }

  private:
    WritingOperator& out_;
};

struct WritingDisplay final : Display {
    explicit WritingDisplay(WritingOperator& out) : out_(out) {}

    [[nodiscard]] DisplayFacts facts() const override { return now; }
    void hideTaskBar() override { out_.write("task bar off"); }
    void showTaskBar() override { out_.write("task bar on"); }

    DisplayFacts now{.widthPixels = 1280, .heightPixels = 1024};

  private:
    WritingOperator& out_;
};

/// A search finds `found` on COM2; closing writes its line as the link does.
struct BreakableStore final : MemorySettingsStore {
    void commit() override {
        if (broken) throw Failure(ErrorNumber::diskFull, "no room");
    }
    bool broken = false;
};

struct FrameRig : testing::Test, StatusViewer {
    explicit FrameRig(bool trapErrors = true) : errors(errorLog, trapErrors) {
        log.addViewer(*this);
        hooks.searchForLcu = [this] {
            person.write("search");
            if (link.open()) hooks.closePort();
            link.model = found;
            link.port = found.empty() ? 0 : 2;
            return !found.empty();
        };
        hooks.stopDataStream = [this] { person.write("stop stream"); };
        hooks.closePort = [this] {
            log.black("Port COM" + std::to_string(link.port) + " closed");
            link.port = 0;
        };
        hooks.sleep = [this](int ms) { person.write("sleep ", std::to_string(ms)); };
        hooks.openScreen = [this](const ScreenRequest& request) {
            person.write("open ", request.screen, request.page < 0 ? "" : " " + std::to_string(request.page),
                         request.subPage < 0 ? "" : "." + std::to_string(request.subPage));
            if (whileOpen) whileOpen();
        };
        hooks.printLog = [this](const Path& file) { person.write("print ", file.string()); };
        hooks.loadHoleNotes = [this] { person.write("hole notes"); };
        hooks.loadCalibrationHistory = [this] { person.write("calibration history"); };
        hooks.fillCalibrationTools = [this] { person.write("calibration tools"); };
        hooks.clearEquipment = [this] { person.write("clear equipment"); };
        hooks.startCopying = [this](const Path& source, const Path& target) {
            person.write("copy ", source.string(), " to ", target.string());
            return true;
        };
        hooks.copiesEnded = [this] { return std::exchange(copiesEnded, {}); };
        hooks.endProcess = [this] { person.write("end"); };
    }

    void showStatusLine(std::string_view line) override { person.write("log ", line.substr(10)); }

    /// What was written since the last call.
    Transcript told() { return std::exchange(transcript, {}); }

    std::string found = "LCU4";
    std::function<void()> whileOpen;
    std::vector<BackgroundCopies::Ended> copiesEnded;

    MemoryFiles files;
    VirtualClock clock;
    BreakableStore memory;
    Places places = [] {
        Places made;
        made.programFolder = "/p";
        made.homeDrive = "/c";
        made.drives = {{'D', "/d"}, {'F', "/f"}, {'G', "/g"}};
        return made;
    }();
    Transcript transcript;
    WritingOperator person{transcript};
    SystemTexts system{" OS text ", "Memory : 512 mbytes", ""};
    ErrorLog errorLog{person, clock, files, "/h", system, {2, 1, 3}};
    ErrorTrap errors;
    StatusLog log{errors, clock, files, "/h"};
    StoredSettings store{errors, memory};

    ProgramState state;
    LinkState link;
    Settings settings;
    FrameHooks hooks;
    WritingView view{person};
    WritingWindow window{person};
    WritingDisplay display{person};
    Frame frame{errors, log, person, view, hooks, state, link, settings, store, places};
    ProgramModes modes{frame};
    ShutDown shutDown{frame, window, display};
    DeveloperBackup backup{frame, clock, files};
    CommandTable commands{frame, modes, shutDown, backup, window, display};
    StartUp startUp{frame, commands, window, display, errorLog, system, {2, 1, 3}};
};

} // namespace tarvik
