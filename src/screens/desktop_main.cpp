#include "screens/desktop_main.h"

#include "cli/verb.h"
#include "platform/stop_signals.h"
#include "screens/desktop.h"
#include "screens/icons.h"
#include "screens/message_box.h"
#include "screens/qt_text.h"

#include <QApplication>

#include <iostream>
#include <vector>

namespace tarvik {

namespace {

ProgramOptions optionsFrom(int argc, char** argv) {
    const std::vector<std::string_view> words(argv + 1, argv + argc);
    const Arguments arguments(words, commonOptions());
    if (!arguments.rest().empty()) throw UsageError("\"" + arguments.rest().front() + "\" is not expected");
    return programOptions(arguments);
}

int showDesktop(const ProgramOptions& options, const StopSignals& stopSignals) {
    Desktop desktop(options);
    desktop.endWhen([&stopSignals] { return stopSignals.arrived(); });
    if (!desktop.startUp()) return exitFailed;
    return desktop.ended() ? exitDone : QApplication::exec();
}

bool thereIsADisplay() {
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

} // namespace

bool meansDesktop(std::span<const std::string_view> words) {
    return words.empty() ||
           (words.front().starts_with("--") && words.front() != "--help" && words.front() != "--version");
}

int runDesktop(int argc, char** argv) {
    if (!thereIsADisplay()) {
        std::cerr << "tarvik: there is no display for the desktop. The verbs need none: tarvik --help\n";
        return exitFailed;
    }
    const StopSignals stopSignals; // before the toolkit starts threads
    int toolkitArgc = 1;           // the words are ours, the toolkit gets the program's name only
    QApplication application(toolkitArgc, argv);
    QApplication::setApplicationName("Tarvik");
    QApplication::setQuitOnLastWindowClosed(false);
    applyTheme(application, Theme::light);
    QApplication::setWindowIcon(icon("app"));
    try {
        return showDesktop(optionsFrom(argc, argv), stopSignals);
    } catch (const UsageError& error) {
        std::cerr << "tarvik: " << error.what() << "\nTry: tarvik --help\n";
        return exitUsage;
    } catch (const std::exception& error) {
        std::cerr << "tarvik: " << error.what() << "\n";
        makeMessageBox(Icon::critical, "Tarvik", qt(error.what()), nullptr)->exec();
        return exitFailed;
    }
}

} // namespace tarvik
