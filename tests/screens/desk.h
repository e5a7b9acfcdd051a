// The whole program in a home of its own, with a simulated box on COM1 and time that moves only while
// something waits.
#pragma once

#include "platform/temporary_folder.h"
#include "program/program.h"
#include "screens/desktop_memory.h"
#include "screens/test_operator.h"
#include "simulator/simulated_port.h"
#include "simulator/tool_file.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <string>

#include <gtest/gtest.h>

namespace tarvik::test {

/// A tool as the simulated box has it, from data/tools/CODE.tool.
[[nodiscard]] inline auto simulatedTool(const std::string& code) {
    return lcusim::findTool(TARVIK_SOURCE_DIR "/data/tools", code).tool.value();
}

struct Desk {
    explicit Desk(const std::string& toolCode = "K215", lcusim::LcuModel model = lcusim::LcuModel::lcu4)
        : engine({.model = model}, simulatedTool(toolCode), truth) {
        serial.connect(1, engine);
        program.settings = program.storedSettings.Utilities_loadregsettings();
    }

    TemporaryFolder home;
    VirtualClock clock;
    lcusim::SimulatedPort serial{clock};
    lcusim::MemoryRecord truth;
    lcusim::LcuEngine engine;
    TestOperator operatorSide;
    FrameView view;
    MainWindow window;
    MemoryDisplay display;
    Program program{{.home = home.path()},
                    {.operatorSide = operatorSide,
                     .view = view,
                     .window = window,
                     .display = display,
                     .yield = {},
                     .searchCancelled = {}},
                    {.clock = &clock, .serial = &serial}};
    DesktopMemory memory{program.store};
};

/// A control by its object name; fails the test when it is not there.
template <class Control>
[[nodiscard]] Control& control(QWidget& screen, const char* name) {
    auto* const found = screen.findChild<Control*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *found;
}

inline void click(QWidget& screen, const char* name) {
    control<QAbstractButton>(screen, name).click();
}

/// What to do with the next modal screen, once it is open.
inline void whenModal(std::function<void(QWidget&)> act) {
    QTimer::singleShot(0, [act = std::move(act)] {
        if (QWidget* const modal = QApplication::activeModalWidget()) act(*modal);
    });
}

} // namespace tarvik::test
