#include "screens/review_actions.h"

#include "base/failure.h"
#include "base/number_picture.h"
#include "display/bullseye.h"
#include "display/display_template.h"
#include "display/tool_scales.h"
#include "drawing/plan_file.h"
#include "drawing/plot_file.h"
#include "processing/las_again.h"
#include "screens/frm_file.h"
#include "screens/frm_las_export.h"
#include "screens/frm_track.h"
#include "screens/qt_text.h"
#include "screens/recent_files.h"

#include <QFileDialog>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

constexpr const char* templateFilter = "Display templates (*.display);;All files (*)";
constexpr const char* templateMemory = "Template";
constexpr double near = 0.005;                     // metres or seconds: ends are said to two decimals
constexpr std::size_t largestTemplate = 1'000'000; // bytes; what is larger is another kind of file

QString askForOpenFile(QWidget* parent, const QString& folder, const QString& filter) {
    return QFileDialog::getOpenFileName(parent, "Load a display template", folder, filter);
}

} // namespace

ReviewActions::ReviewActions(ReviewSession& session, Program& program, IntroScreen& screen,
                             DesktopMemory& memory)
    : session_(session),
      program_(program),
      screen_(screen),
      memory_(memory),
      bar_(new ReviewBar(screen.reviewPages(), [this](double depth) { return jumpTo(depth); })) {
    dialogs_.open = askForOpenFile;
    LogPicture& picture = screen.picture();
    undo_ = bar_->addButton("comundo", "\u21b6", "Undo the last change of the display",
                            QKeySequence("Ctrl+Z"), [&picture] { picture.undo(); });
    redo_ = bar_->addButton("comredo", "\u21b7", "Do it again", QKeySequence("Ctrl+Shift+Z"),
                            [&picture] { picture.redo(); });
    display_ = bar_->addMenu("menudisplay", "Dis&play", "Tracks, curves and templates");
    QObject::connect(display_, &QMenu::aboutToShow, bar_, [this] { fillDisplayMenu(); });
    fillDisplayMenu();
    fillCompareMenu();
    fillExportMenu();
    screen.reviewPages().setCornerWidget(bar_);
    bar_->follow(screen.reviewPages().tabBar());
    screen.reviewPages().setDocumentMode(false); // its line would go through the bar
    picture.whenChanged([this] { showState(); });
    picture.whenPicked([this](const DisplayPlace& place) { edit(place); });
    showState();
}

/// The picture outlasts them.
ReviewActions::~ReviewActions() {
    screen_.picture().whenChanged({});
    screen_.picture().whenPicked({});
}

std::string ReviewActions::jumpTo(double depth) {
    const ReviewLog* const log = session_.log();
    if (log == nullptr || log->depth.empty()) return {};
    const LogPicture& picture = screen_.picture();
    const double unit = picture.axis() == Axis::depth ? toMetres(1, log->header.setup.units) : 1;
    const Extent whole = picture.extent();
    if (depth * unit < whole.from - near || depth * unit > whole.to + near)
        return "The log runs from " + formatPicture(whole.from / unit, "0.00") + " to " +
               formatPicture(whole.to / unit, "0.00") + ".";
    screen_.picture().jumpTo(depth * unit);
    screen_.reviewPages().setCurrentWidget(&screen_.picture());
    return {};
}

void ReviewActions::showState() {
    const LogPicture& picture = screen_.picture();
    const ReviewLog* const log = session_.log();
    if (shown_ != session_.file()) bar_->clear();
    shown_ = session_.file();
    undo_->setEnabled(picture.canUndo());
    redo_->setEnabled(picture.canRedo());
    bar_->setEnabled(log != nullptr);
    if (log != nullptr && program_.state.mode == programMode::review)
        screen_.bars().showScale(picture.scale());
    if (log != nullptr && picture.axis() == Axis::time) return bar_->showUnit("Time", "s");
    bar_->showUnit("Depth", log == nullptr ? QString() : qt(log->depthUnit()));
}

// ---- The display.

void ReviewActions::fillDisplayMenu() {
    display_->clear();
    display_->addAction("&Tracks and curves\u2026", [this] { edit({DisplayPlace::Part::track, 0, 0}); });
    display_->addAction("&Usual display of this log",
                        [this] { screen_.picture().change(screen_.picture().usualDisplay()); });
    addAxes();
    display_->addSeparator();
    display_->addAction("&Save as template\u2026", [this] { saveTemplate(); });
    display_->addAction("&Load template\u2026", [this] { chooseTemplate(); });
    for (const QString& file : recentFiles(memory_, templateMemory)) {
        const Path path = plain(file);
        QAction* const action =
            display_->addAction(qt(path.stem().string()), [this, path] { loadTemplate(path); });
        action->setToolTip(file);
    }
    display_->setToolTipsVisible(true);
}

/// A log with times can be seen by either.
void ReviewActions::addAxes() {
    LogPicture& picture = screen_.picture();
    if (!picture.hasTimes()) return;
    display_->addSeparator();
    for (const auto& [axis, text] : {std::pair(Axis::depth, "By &depth"), {Axis::time, "By t&ime"}}) {
        QAction* const action =
            display_->addAction(text, [&picture, shown = axis] { picture.setAxis(shown); });
        action->setCheckable(true);
        action->setChecked(picture.axis() == axis);
    }
}

void ReviewActions::edit(const DisplayPlace& place) {
    LogPicture& picture = screen_.picture();
    if (place.part == DisplayPlace::Part::nothing || session_.log() == nullptr) return;
    const DisplayEditModules modules{
        memory_, [&picture](std::optional<LogDisplay> tried) { picture.preview(std::move(tried)); },
        scaleKeeper()};
    const LogDisplay usual = picture.usualDisplay();
    LogDisplay display = picture.display();
    display.scheme = usual.scheme;
    if (place.part == DisplayPlace::Part::curve) {
        frmCurve dialog(display, place.track, place.curve, modules, &screen_);
        if (dialog.exec() == QDialog::Accepted) picture.change(dialog.display());
        return;
    }
    const LogData data = logDataOf(*session_.log());
    frmTrack dialog(display, place.track, data, usual, modules, &screen_);
    if (dialog.exec() == QDialog::Accepted) picture.change(dialog.display());
}

/// Only when the tool that is in use is the one that logged the run: the record is that of the current tool.
std::function<bool(const LogCurve&)> ReviewActions::scaleKeeper() const {
    const ReviewLog* const log = session_.log();
    ToolWinchData& equipment = program_.equipment;
    const CurrentTool& tool = equipment.currentTool();
    if (log == nullptr || log->las || log->header.tool.code.empty()) return {};
    if (tool.record.get(tool::code) != log->header.tool.code || tool.mode != log->header.toolMode) return {};
    return [&equipment](const LogCurve& curve) { return keepToolScale(equipment, curve); };
}

void ReviewActions::saveTemplate() {
    const Path suggested = projectFolder(program_.frame) / "log.display";
    const QString chosen = dialogs_.save(&screen_, qt(suggested.string()), templateFilter);
    if (chosen.isEmpty()) return;
    try {
        program_.files.replace(plain(chosen), asBytes(templateText(screen_.picture().display())));
        keepRecentFile(memory_, templateMemory, chosen);
    } catch (const Failure& failure) {
        program_.frame.operatorSide.message("Display template", failure.what(), Icon::exclamation);
    }
}

void ReviewActions::chooseTemplate() {
    const QString chosen =
        dialogs_.open(&screen_, qt(projectFolder(program_.frame).string()), templateFilter);
    if (!chosen.isEmpty()) loadTemplate(plain(chosen));
}

void ReviewActions::loadTemplate(const Path& file) {
    LogPicture& picture = screen_.picture();
    try {
        const Bytes bytes = program_.files.readPart(file, 0, largestTemplate);
        LogDisplay read = displayFromTemplate(asText(bytes), picture.display().scheme, file.string());
        read.marks = picture.display().marks;
        fitToData(read, logDataOf(*session_.log()));
        picture.change(std::move(read));
        keepRecentFile(memory_, templateMemory, qt(file.string()));
    } catch (const Failure& failure) {
        forgetRecentFile(memory_, templateMemory, qt(file.string()));
        program_.frame.operatorSide.message("Display template", failure.what(), Icon::exclamation);
    }
}

// ---- A second run.

void ReviewActions::fillCompareMenu() {
    QMenu* const menu = bar_->addMenu("menucompare", "Co&mpare", "A second run over this one or beside it");
    menu->addAction("Lay another run &over this one\u2026", [this] { compare(Comparison::over); });
    menu->addAction("Show another run &beside this one\u2026", [this] { compare(Comparison::beside); });
    menu->addSeparator();
    menu->addAction("This run &alone", [this] { endComparison(); });
}

void ReviewActions::compare(Comparison how) {
    const Path folder = projectFolder(program_.frame);
    frmFile chooser(program_.files, folder, anyRunOrLasFile(folder), memory_, &screen_);
    if (chooser.exec() != QDialog::Accepted) return;
    if (session_.openSecond(chooser.chosen())) screen_.picture().compareWith(session_.second(), how);
}

void ReviewActions::endComparison() {
    screen_.picture().compareWith(nullptr, Comparison::over);
    session_.closeSecond();
}

// ---- Out of the house.

void ReviewActions::fillExportMenu() {
    QMenu* const menu = bar_->addMenu("menuexport", "E&xport", "What is on the screen, as a file");
    menu->addAction("Visible interval as &LAS\u2026", [this] { exportLas(); });
    menu->addAction("Visible interval as &picture\u2026", [this] { savePicture(); });
    QAction* const plan = menu->addAction("Plan &view as picture\u2026", [this] { savePlan(); });
    QObject::connect(menu, &QMenu::aboutToShow, bar_, [this, plan] {
        const ReviewLog* const log = session_.log();
        plan->setEnabled(log != nullptr && !bullseyeOf(logDataOf(*log)).way.empty());
    });
    menu->addSeparator();
    menu->addAction("P&rint\u2026", [this] { print(); });
}

PrintSubject ReviewActions::subject() const {
    const LogPicture& picture = screen_.picture();
    const auto& second = picture.second();
    return {.log = *session_.log(),
            .file = session_.file(),
            .display = picture.display(),
            .axis = picture.axis(),
            .scale = picture.scale(),
            .equallySpaced = picture.isEquallySpaced(),
            .inches = program_.settings.logInches != 0,
            .whole = picture.extent(),
            .visible = picture.visibleOfBoth(),
            .other = second ? session_.second() : nullptr,
            .how = second ? second->how : Comparison::over};
}

void ReviewActions::exportLas() {
    if (session_.log() == nullptr) return;
    LasExportOptions options = lasOptionsFor(*session_.log());
    const DepthUnits units = session_.log()->header.setup.units;
    const Extent visible = loggedWithin(logDataOf(*session_.log()), screen_.picture().visible());
    const Extent shown = inHundredths({fromMetres(visible.from, units), fromMetres(visible.to, units)});
    options.start = shown.from;
    options.stop = shown.to;
    frmLASexport(*session_.log(), session_.file(), options,
                 {program_.lasExport, program_.files, program_.frame.operatorSide, program_.log, memory_,
                  askForLasFile},
                 &screen_)
        .exec();
}

void ReviewActions::savePicture() {
    if (session_.log() == nullptr) return;
    const Path suggested = Path(session_.file()).replace_extension(".png");
    const QString chosen =
        dialogs_.save(&screen_, qt(suggested.string()), "Picture (*.png);;Drawing (*.svg);;PDF (*.pdf)");
    if (chosen.isEmpty()) return;
    const PrintSubject now = subject();
    PrintOrder order{.axis = now.axis,
                     .scale = now.scale,
                     .interval = now.visible,
                     .equallySpaced = now.equallySpaced,
                     .inches = now.inches};
    order.continuous = true;
    order.heading = false;
    Path file = plain(chosen);
    if (!file.has_extension()) file += ".png";
    try {
        writePlot(sheetOf(now, order), {file, paperOf(order), 150});
        screen_.status().showText("Written: " + file.string());
    } catch (const Failure& failure) {
        program_.frame.operatorSide.message("Picture of the log", failure.what(), Icon::exclamation);
    }
}

/// Of a deviated hole: where it has gone, seen from above.
void ReviewActions::savePlan() {
    if (session_.log() == nullptr) return;
    Path suggested = session_.file();
    suggested.replace_filename(suggested.stem().string() + "_plan.pdf");
    const QString chosen =
        dialogs_.save(&screen_, qt(suggested.string()), "PDF (*.pdf);;Picture (*.png);;Drawing (*.svg)");
    if (chosen.isEmpty()) return;
    Path file = plain(chosen);
    if (!file.has_extension()) file += ".pdf";
    const PrintOrder order;
    try {
        writePlan(printSheet(*session_.log(), screen_.picture().display(), order),
                  {file, paperOf(order), 150});
        screen_.status().showText("Written: " + file.string());
    } catch (const Failure& failure) {
        program_.frame.operatorSide.message("Plan view", failure.what(), Icon::exclamation);
    }
}

void ReviewActions::print() {
    if (session_.log() == nullptr || session_.log()->steps() == 0) return;
    frmPrint(subject(), {program_.frame.operatorSide, memory_, dialogs_.printer, dialogs_.save}, &screen_)
        .exec();
}

} // namespace tarvik
