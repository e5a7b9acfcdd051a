#include "screens/desktop_main.h"

#include "cli/verb.h"
#include "platform/stop_signals.h"
#include "screens/desktop.h"
#include "screens/display_loss.h"
#include "screens/icons.h"
#include "screens/message_box.h"
#include "screens/qt_text.h"

#include <QApplication>
#include <QDir>
#include <QLockFile>
#include <QPushButton>
#include <QTimer>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <vector>

namespace tarvik {

namespace {

ProgramOptions optionsFrom(int argc, char** argv) {
    const std::vector<std::string_view> words(argv + 1, argv + argc);
    const Arguments arguments(words, commonOptions());
    if (!arguments.rest().empty()) throw UsageError("\"" + arguments.rest().front() + "\" is not expected");
    return programOptions(arguments);
}

/// While the program starts, and after it has failed to: a message must not outlive a request to end.
class MessagesEnd {
  public:
    explicit MessagesEnd(const StopSignals& stopSignals) {
        timer_.callOnTimeout([&stopSignals] {
            QWidget* const message = QApplication::activeModalWidget();
            if (message != nullptr && stopSignals.arrived()) message->close();
        });
        timer_.start(lookEveryMs);
    }

  private:
    static constexpr int lookEveryMs = 500;
    QTimer timer_;
};

/// Two programs on one home count the same runs and keep the same settings. That is the operator's to decide;
/// most often the second one was started by a double click too many.
bool mayStartBeside(const QLockFile& other) {
    qint64 process = 0;
    QString host;
    QString name;
    if (other.error() != QLockFile::LockFailedError || !other.getLockInfo(&process, &host, &name))
        return true;
    const auto box = makeMessageBox(Icon::exclamation, "Tarvik",
                                    QString("Tarvik is running already (process %1), with the same settings "
                                            "and projects.\nGo on there, or start a second one beside it?")
                                        .arg(process),
                                    nullptr);
    auto* const second = box->addButton("&Start a second one", QMessageBox::AcceptRole);
    second->setObjectName("comsecond");
    auto* const leave = box->addButton("&Leave", QMessageBox::RejectRole);
    box->setDefaultButton(leave);
    box->exec();
    return box->clickedButton() == second;
}

/// The toolkit ends the process by an abort when it cannot reach the display.
void sayWhyItCannotStart(QtMsgType type, const QMessageLogContext&, const QString& words) {
    std::cerr << "tarvik: " << plain(words) << "\n";
    if (type == QtFatalMsg) std::_Exit(exitFailed);
}

int showDesktop(const ProgramOptions& options, const StopSignals& stopSignals) {
    auto messagesEnd = std::make_unique<MessagesEnd>(stopSignals);
    Desktop desktop(options);
    const Path& settings = desktop.program().places.settingsFile;
    QDir().mkpath(qt(settings.parent_path().string())); // not there before the first save
    QLockFile lock(qt(settings.string()) + ".lock");
    lock.setStaleLockTime(0); // a program that lives holds it, however long
    if (!lock.tryLock() && !mayStartBeside(lock)) return exitDone;
    const DisplayLoss displayLoss([&desktop] { desktop.endWithoutDisplay(); });
    desktop.endWhen([&stopSignals] { return stopSignals.arrived(); });
    if (!desktop.startUp()) return exitFailed;
    messagesEnd.reset(); // from here on the desktop ends itself in order
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
    const QtMessageHandler toolkitsOwn = qInstallMessageHandler(sayWhyItCannotStart);
    QApplication application(toolkitArgc, argv);
    qInstallMessageHandler(toolkitsOwn);
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
        const MessagesEnd messagesEnd(stopSignals);
        makeMessageBox(Icon::critical, "Tarvik", qt(error.what()), nullptr)->exec();
        return exitFailed;
    }
}

} // namespace tarvik
