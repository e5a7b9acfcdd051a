#include "app/shut_down.h"

namespace tarvik {

void ShutDown::exit() {
    frame_.errors.run("controlbar exit", [&](Level& level) {
        const ProgramState& state = frame_.state;
        if (state.logging || state.searching) {
            frame_.operatorSide.notice("Tarvik",
                                       state.logging ? "Stop the logging run before you leave the program."
                                                     : "Wait until the search for the LCU has ended.",
                                       Icon::exclamation);
            return;
        }
        if (state.exitConfirmation && !state.mustEnd) frame_.hooks.openScreen({"frmExit"});
        if (state.exitConfirmation && !state.mustEnd) {
            if (state.mode == programMode::review) frame_.view.redrawReviewLogs();
            return;
        }
        level = 1; // leaving
        if (!frame_.store.Utilities_saveregsettings(frame_.settings) && !state.mustEnd && !leaveUnsaved())
            return;
        window_.stopMainTimer();
        closeOpenPort(frame_);
        level = 2;
        window_.hide();
        window_.processMessages();
        window_.unload();
        closeProgram();
    });
}

void ShutDown::leaveUnseen() {
    frame_.errors.run("controlbar exit", [&](Level&) {
        static_cast<void>(frame_.store.Utilities_saveregsettings(frame_.settings)); // a failure is in the log
        closeOpenPort(frame_);
        closeProgram();
    });
}

/// The error window that says why would go with the program, unread.
bool ShutDown::leaveUnsaved() {
    return frame_.operatorSide.ask(
               "Tarvik",
               "The settings could not be saved: what was chosen since the start, such as "
               "project, tool and sampling, will be as before.\nLeave all the same?",
               Icon::exclamation) == Answer::yes;
}

void ShutDown::closeProgram() {
    frame_.errors.run("program close", [&](Level& level) {
        if (frame_.link.demo) closeOpenPort(frame_);
        if (frame_.link.open()) {
            closeOpenPort(frame_);
        } else {
            frame_.log.black("Port COM" + std::to_string(frame_.link.port) + " already closed");
        }
        level = 1;
        frame_.log.black("Tarvik program closed");
        display_.showTaskBar();
        level = 2;
        frame_.hooks.endProcess();
    });
}

} // namespace tarvik
