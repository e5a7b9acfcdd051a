#include "drawing/verb_plot.h"

#include "base/failure.h"
#include "base/text.h"
#include "cli/review.h"
#include "display/annotations.h"
#include "display/bullseye.h"
#include "display/display_template.h"
#include "drawing/plan_file.h"
#include "drawing/plot_options.h"

#include <QGuiApplication>

#include <iostream>
#include <optional>

namespace tarvik {

namespace {

/// Pictures need the toolkit's fonts and image formats, but no display. Where it runs already there is
/// nothing to do.
class Toolkit {
  public:
    Toolkit() {
        if (QCoreApplication::instance() == nullptr) application_.emplace(prepared(count_), words_);
    }

  private:
    static int& prepared(int& count) {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(passOn);
        return count;
    }
    /// Where there is no session the toolkit complains about its runtime folder on every start.
    static void passOn(QtMsgType, const QMessageLogContext&, const QString& text) {
        if (!text.startsWith(QStringLiteral("QStandardPaths"))) std::cerr << text.toStdString() << "\n";
    }
    int count_ = 1;
    char name_[7] = "tarvik";
    char* words_[2] = {name_, nullptr};
    std::optional<QGuiApplication> application_;
};

/// A log is drawn without the notes of its hole when they cannot be read.
void addHoleNotes(LogSheet& sheet, const Files& files, const Path& file, const ReviewLog& log) {
    try {
        addMarks(sheet.display.marks, holeAnnotations(files, file, log));
    } catch (const Failure& failure) {
        std::cerr << "tarvik: drawn without the notes of the hole: " << failure.what() << "\n";
    }
}

int runPlot(const Arguments& arguments) {
    const Path file = arguments.only("run or LAS file");
    const PlotTarget target = targetFrom(arguments);
    Review review(arguments);
    const auto log = review.open(file);
    if (!log) return exitFailed;
    Files& files = review.program().files;
    std::optional<ReviewLog> other;
    if (const auto second = arguments.name("--with")) {
        other = review.open(*second);
        if (!other) return exitFailed;
    } else if (arguments.has("--beside")) {
        throw UsageError("--beside needs the second file: --with FILE");
    }
    LogSheet sheet = sheetFrom(arguments, *log, other ? &*other : nullptr,
                               review.program().settings.logInches != 0, files);
    addHoleNotes(sheet, files, file, *log);
    if (const auto saved = arguments.name("--save-template")) {
        files.replace(*saved, asBytes(templateText(sheet.display)));
    }
    const Toolkit toolkit;
    if (upperCase(arguments.text("--deviation").value_or("")) == upperCase(bullseyeCaption)) {
        if (bullseyeOf(sheet.data).way.empty())
            throw UsageError(sheet.data.sampledByTime
                                 ? "--deviation Bullseye: a run by time sums no displacement"
                                 : "--deviation Bullseye: the log has no East and North");
        writePlan(sheet, target);
    } else {
        writePlot(sheet, target, review.progress());
        review.done();
    }
    std::cout << target.file.string() << "\n";
    return exitDone;
}

} // namespace

Verb plotVerb() {
    std::vector<Option> options = plotOptions();
    options.push_back(tolerantOption());
    return {
        .name = "plot",
        .usage = "plot FILE -o OUT.png|OUT.pdf|OUT.svg [options]",
        .purpose =
            "draw a run or a LAS file to exact scale; prints the path\nDepths are in the file's depth unit.",
        .options = std::move(options),
        .run = runPlot};
}

} // namespace tarvik
