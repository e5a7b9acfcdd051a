#include "screens/acquisition.h"

#include "app/sampling_checks.h"
#include "base/text.h"
#include "lcu/depth_setting.h"
#include "lcu/run_order.h"
#include "lcu/unseen_run_view.h"
#include "screens/qt_text.h"

#include <QApplication>
#include <QTimer>

#include <utility>

namespace tarvik {

namespace {

constexpr int mayStayUnanswered = 2; // times in a row that an idle box is asked for its depth

QString orNone(std::string_view name, const char* none) {
    const std::string_view text = trimmed(name);
    return text.empty() ? QString(none) : qt(text);
}

/// In feet too the LCU counts centimetres of cable.
QString samplingText(const Settings& settings) {
    const bool byDepth = settings.sampling() == Sampling::depth;
    const std::string& interval = settings.samplingInterval.text();
    return QString("%1 %2, every %3")
        .arg(byDepth ? "By depth," : "By time,", qt(settings.logDirection).toLower(),
             byDepth ? qt(intervalInWords(Sampling::depth, settings.units(), interval))
                     : qt(interval) + " seconds");
}

} // namespace

Acquisition::Acquisition(Program& program, IntroScreen& screen, LinkGate& gate, RunViewParts parts)
    : program_(program), screen_(screen), gate_(gate), parts_(std::move(parts)) {}

void Acquisition::start() {
    gate_.pass([this] { runNow(); });
}

void Acquisition::stop() {
    if (running()) view_->requestStop();
}

void Acquisition::setDepth(double metres) {
    gate_.pass([this, metres] { setDepthNow(metres); });
}

void Acquisition::setDepthNow(double metres) {
    const DepthSetting outcome = setWinchDepth(program_.lcu, program_.log, metres, winchScaleFactor());
    if (outcome == DepthSetting::done) {
        screen_.side().instrument().showDepth(metres);
        panel().clearDepthToSet(); // a stray Enter must not set it again
    }
    if (const std::string remedy = depthSettingRemedy(outcome); !remedy.empty())
        program_.frame.operatorSide.message("Winch depth", remedy, Icon::exclamation);
    gate_.exchangeEnded();
}

void Acquisition::watchDepth() {
    const LinkState& link = program_.link;
    if (!gate_.open() || running() || !link.open() || link.model.empty()) return;
    if (QApplication::activeModalWidget() != nullptr || program_.state.mode != programMode::acquire) return;
    const auto centimetres = program_.lcu.LCU_getdepth();
    if (centimetres) screen_.side().instrument().showDepth(*centimetres / 100.0 * winchScaleFactor());
    unanswered_ = centimetres ? 0 : unanswered_ + 1;
    if (const bool lost = unanswered_ >= mayStayUnanswered; lost != link.lost) {
        program_.lcu.setLost(lost);
        lost ? program_.log.red("The LCU does not answer any more")
             : program_.log.blue("The LCU answers again");
        show();
        if (parts_.linkChanged) parts_.linkChanged();
    }
    gate_.exchangeEnded();
}

/// What the scans of a run will be multiplied with, so that the idle depth is theirs.
double Acquisition::winchScaleFactor() const {
    const double factor = program_.settings.winchScaleFactor.value();
    return factor > 0 ? factor : 1.0;
}

void Acquisition::show() {
    const Settings& settings = program_.settings;
    const CurrentTool& tool = program_.equipment.currentTool();
    InstrumentPanel& instrument = screen_.side().instrument();
    instrument.setUnits(settings.units());
    panel().setUnits(settings.units());
    panel().showOrder(orNone(settings.currentProject, "No project") + " / " +
                          orNone(settings.hole.holeId, "no hole"),
                      orNone(tool.record.get(tool::name), "No tool chosen"),
                      orNone(program_.equipment.currentWinch().record.get(winch::name), "No winch chosen"),
                      samplingText(settings));
    screen_.side().showLink(program_.link);
    if (running()) return;
    const bool ready = boxIsThere();
    panel().setState(ready ? RunPanel::State::ready : RunPanel::State::noLcu);
    if (!ready) instrument.clear(); // the last depth is not that of now
    if (program_.link.lost) return instrument.showIdle("The LCU was lost", "Acquire searches for it again.");
    if (!ready) return instrument.showIdle("No LCU is connected");
    const QString missing = qt(stillToChoose());
    instrument.showIdle(missing.isEmpty() ? "Ready" : "Not ready yet", missing);
}

std::string Acquisition::stillToChoose() const {
    return missingForRun(program_.settings, program_.equipment.currentTool(),
                         program_.equipment.currentWinch());
}

bool Acquisition::boxIsThere() const {
    return program_.link.open() && !program_.link.model.empty() && !program_.link.lost;
}

std::optional<RunOrder> Acquisition::order() {
    const auto limits = panel().limits();
    if (!limits) return std::nullopt;
    try {
        RunOrder ordered = runOrderFrom(program_.settings, program_.places, *limits);
        if (ordered.setup.sampling == Sampling::depth) // the time plot has no log scale
            ordered.screenScale = plain(scaleText(screen_.live().scale()));
        return ordered;
    } catch (const BadOrder& bad) {
        program_.frame.operatorSide.message("Tarvik", bad.what(), Icon::exclamation);
        return std::nullopt;
    }
}

RunModules Acquisition::modulesWith(RunView& view) {
    Program& p = program_;
    return {p.errors,    p.errorLog,  p.log,      p.frame.operatorSide,
            view,        p.state,     p.clock,    p.files,
            p.serial,    p.link,      p.port,     p.lcu,
            p.equipment, p.runReader, p.runWriter};
}

void Acquisition::closeUnseen() {
    if (!running()) return;
    UnseenRunView unseen;
    RunModules modules = modulesWith(unseen);
    LoggingRun(modules).closeInsteadOf(*run_, order_);
}

void Acquisition::runNow() {
    if (running()) return;
    auto ordered = order();
    if (!ordered) return;
    order_ = std::move(*ordered);
    Program& p = program_;
    screen_.notices().clear(); // those of the run before
    view_ = std::make_unique<ScreenRunView>(screen_, p.clock, parts_);
    modules_ = std::make_unique<RunModules>(modulesWith(*view_));
    run_ = std::make_unique<LoggingRun>(*modules_);
    const RunResult result = run_->comstartlogging(order_);
    view_.reset();
    if (result == RunResult::notStarted) screen_.side().instrument().clear();
    if (result == RunResult::failed && !run_->state().startTick) screen_.side().instrument().showNotStarted();
    panel().setState(p.link.lost ? RunPanel::State::noLcu : RunPanel::State::ready);
    if (p.link.lost) screen_.side().instrument().showSilence();
    screen_.side().showLink(p.link);
    gate_.exchangeEnded();
    if (auto act = std::exchange(whenEnded_, {})) act();
}

} // namespace tarvik
