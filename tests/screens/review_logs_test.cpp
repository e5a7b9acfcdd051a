// The logs under review: moved by the pointer, edited, compared, printed, as an operator does it.
#include "screens/desk.h"
#include "screens/frm_print.h"
#include "screens/frm_track.h"
#include "screens/intro_screen.h"
#include "screens/qt_text.h"
#include "screens/readings_strip.h"
#include "screens/review_actions.h"
#include "screens/review_log.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

namespace tarvik::test {

namespace {

ReviewLog longRun() {
    ReviewLog log = gammaRun();
    log.depth.clear();
    for (int i = 0; i < 2000; ++i) log.depth.push_back(i * 0.05);
    log.time.clear();
    log.current.values.clear();
    for (ReviewChannel& channel : log.channels) channel.values.assign(log.steps(), 20);
    return log;
}

struct Light {
    explicit Light(ReviewLog run = longRun()) : log(std::move(run)) {
        picture.resize(800, 600);
        picture.setLog(&log);
        picture.show();
    }
    ReviewLog log;
    LogPicture picture;
};

void drag(QWidget& widget, Qt::KeyboardModifiers keys, int from, int to) {
    QTest::mousePress(&widget, Qt::LeftButton, keys, {200, from});
    QTest::mouseMove(&widget, {200, to});
    QTest::mouseRelease(&widget, Qt::LeftButton, keys, {200, to});
}

/// The review of the main screen with a LAS file open.
struct ReviewDesk : Desk {
    ReviewDesk() {
        std::string las =
            "~Version\r\n VERS.   2.0 : \r\n WRAP.   NO : \r\n~Well\r\n STRT.M 0 : \r\n STOP.M 99 : "
            "\r\n STEP.M 1 : \r\n NULL.  -999.25 : \r\n WELL. DH-7 : WELL\r\n~Curve\r\n DEPT.M : \r\n "
            "GR.API : \r\n~A\r\n";
        for (int i = 0; i < 100; ++i) las += std::to_string(i) + " " + std::to_string(i % 7) + "\r\n";
        program.files.replace(home / "a.las", asBytes(las));
        actions.setFileDialogs({[this](QWidget*, const QString&, const QString&) {
                                    return QString::fromStdString(file.string());
                                },
                                [this](QWidget*, const QString&, const QString&) {
                                    return QString::fromStdString(file.string());
                                },
                                [](QPrinter&, QWidget*) { return false; }});
        EXPECT_TRUE(session.open(home / "a.las"));
        screen.resize(1280, 800);
        screen.show();
    }
    QAction& entry(const char* menu, const QString& text) {
        QMenu& found = control<QMenu>(screen, menu);
        emit found.aboutToShow();
        for (QAction* const action : found.actions()) {
            if (action->text().remove('&').startsWith(text)) return *action;
        }
        throw std::runtime_error("no entry " + text.toStdString());
    }

    Path file;
    IntroScreen screen{{}, program.files};
    LinkGate gate{program.link, program.state};
    ReviewSession session{program, screen, gate};
    ReviewActions actions{session, program, screen, memory};
};

} // namespace

TEST(LogPictureTest, PointerAndKeysMoveZoomAndRead) {
    Light on;
    const double metresPerUnit = on.picture.scale() / 1000 / (on.picture.logicalDpiY() / millimetresPerInch);
    on.picture.jumpTo(50);
    const double top = on.picture.visible().from;
    drag(on.picture, Qt::NoModifier, 400, 300);
    EXPECT_NEAR(on.picture.visible().from, top + 100 * metresPerUnit, metresPerUnit);
    const Extent before = on.picture.visible();
    drag(on.picture, Qt::ShiftModifier, 300, 400);
    const Extent after = on.picture.visible();
    EXPECT_NEAR(after.to - after.from, 100 * metresPerUnit, 2 * metresPerUnit);
    EXPECT_GT(after.from, before.from);
    QTest::keyClick(&on.picture, Qt::Key_End);
    EXPECT_NEAR(on.picture.visible().to, 99.95, 0.01);
    QTest::mouseMove(&on.picture, {200, 450});
    const auto& readings = control<ReadingsStrip>(on.picture, "lbreadings");
    EXPECT_TRUE(readings.texts().contains("GAMMA 20.00 counts"));
    const QStringList below = readings.texts();
    QTest::keyClick(&on.picture, Qt::Key_Home);
    EXPECT_NE(readings.texts(), below) << "the paper has moved under the pointer";
    on.picture.jumpTo(50);
    for (const auto& [key, depth] : {std::pair(Qt::Key_Down, "Depth 50.05 m"),
                                     {Qt::Key_Up, "Depth 50.00 m"},
                                     {Qt::Key_Up, "Depth 49.95 m"}}) {
        QTest::keyClick(&on.picture, key, Qt::ShiftModifier);
        EXPECT_EQ(readings.texts()[0], depth);
    }
    for (int i = 0; i < 300; ++i) QTest::keyClick(&on.picture, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(readings.texts()[0], "Depth 64.95 m");
    EXPECT_LT(on.picture.visible().from, 64.95);
    EXPECT_GT(on.picture.visible().to, 64.95) << "the window follows";
}

TEST(LogPictureTest, ARunByTimeOfAToolThatHangsStillIsShownByTime) {
    ReviewLog still = longRun();
    still.header.setup.sampling = Sampling::time;
    still.depth.assign(2000, 30);
    for (int i = 0; i < 2000; ++i) still.time.push_back(i * 0.5);
    Light on(std::move(still));
    EXPECT_EQ(on.picture.axis(), Axis::time);
    EXPECT_EQ(on.picture.scale(), 200);
    EXPECT_NEAR(on.picture.extent().to, 999.5, 1e-9);
    on.picture.jumpTo(500);
    const QStringList readings = control<ReadingsStrip>(on.picture, "lbreadings").texts();
    EXPECT_TRUE(readings.contains("Time 500.00 s") && readings.contains("Depth 30.00 m"))
        << readings.join(" ").toStdString();
    EXPECT_EQ(on.picture.visible().from, 30) << "what is exported of it are depths";
    Desk desk;
    frmPrint print({.log = on.log,
                    .file = "H1.kvx",
                    .display = on.picture.display(),
                    .axis = Axis::time,
                    .whole = on.picture.extent(),
                    .visible = {100, 300}},
                   {desk.operatorSide, desk.memory, {}, {}});
    click(print, "optvisible");
    EXPECT_TRUE(control<QLabel>(print, "lbprintsummary").text().endsWith("A4, 0.20 m of paper"));
    on.picture.setAxis(Axis::depth);
    EXPECT_EQ(on.picture.scale(), 200);
    EXPECT_EQ(on.picture.extent().to, 30);
}

TEST(LogPictureTest, ZoomingEndsAtTrueSize) {
    Light on;
    for (int i = 0; i < 40; ++i) QTest::keyClick(&on.picture, Qt::Key_Plus);
    EXPECT_EQ(plain(scaleText(on.picture.scale())), "1:1");
    EXPECT_EQ(plain(scaleText(2.5)), "1:2.5");
}

TEST(LogPictureTest, EveryOfTwentyCurvesHasItsPlaceInTheReadings) {
    ReviewLog log = longRun();
    for (int i = 2; i < 21; ++i) {
        log.channels.push_back(log.channels[1]);
        log.channels.back().name = "A channel with a long name " + std::to_string(i);
    }
    Light on(std::move(log));
    auto& strip = control<ReadingsStrip>(on.picture, "lbreadings");
    EXPECT_THAT(strip.texts()[0].toStdString(), testing::HasSubstr("point at a depth"));
    on.picture.jumpTo(50);
    EXPECT_EQ(strip.texts().size(), 21);
    EXPECT_EQ(strip.height(), strip.heightFor(strip.width()));
    EXPECT_EQ(strip.geometry().bottom(), on.picture.rect().bottom());
    EXPECT_GT(strip.heightFor(500), strip.heightFor(1900));
}

TEST(LogPictureTest, ChangesAreTriedKeptUndoneAndRedone) {
    Light on;
    LogDisplay changed = on.picture.display();
    changed.tracks[0].divisions = 4;
    on.picture.preview(changed);
    EXPECT_FALSE(on.picture.canUndo());
    on.picture.preview(std::nullopt);
    on.picture.change(changed);
    on.picture.undo();
    EXPECT_EQ(on.picture.display().tracks[0].divisions, 10);
    on.picture.redo();
    EXPECT_EQ(on.picture.display().tracks[0].divisions, 4);
}

TEST(frmCurve, TriesWhatIsRightSaysWhatIsWrongAndKeepsTheScale) {
    Desk desk;
    Light on;
    int tried = 0;
    std::optional<LogDisplay> last;
    LogCurve kept;
    const DisplayEditModules modules{desk.memory,
                                     [&](std::optional<LogDisplay> display) {
                                         ++tried;
                                         last = std::move(display);
                                     },
                                     [&](const LogCurve& curve) {
                                         kept = curve;
                                         return true;
                                     }};
    frmCurve screen(on.picture.display(), 0, 0, modules);
    control<QLineEdit>(screen, "txtleft").setText("15");
    ASSERT_TRUE(last);
    EXPECT_EQ(last->tracks[0].curves[0].scale.left, 15);
    const int before = tried;
    control<QLineEdit>(screen, "txtright").setText("15");
    click(screen, "comapply");
    EXPECT_EQ(tried, before);
    EXPECT_NE(screen.result(), QDialog::Accepted);
    control<QLineEdit>(screen, "txtright").setText("300");
    click(screen, "comreverse");
    click(screen, "optlogarithmic");
    control<QComboBox>(screen, "lbfill").setCurrentIndex(1);
    control<QComboBox>(screen, "lbfilter").setCurrentText("7");
    control<QCheckBox>(screen, "optkeepscale").setChecked(true);
    click(screen, "comapply");
    ASSERT_EQ(screen.result(), QDialog::Accepted);
    const LogCurve& curve = screen.display().tracks[0].curves[0];
    EXPECT_EQ(curve.scale, (CurveScale{ScaleKind::logarithmic, 300, 15}));
    EXPECT_EQ(curve.style.fill, FillKind::left);
    EXPECT_EQ(curve.filter, "7");
    EXPECT_EQ(kept, curve);
}

TEST(frmTrack, AddsMovesAndRemovesCurvesAndTracks) {
    Desk desk;
    Light on;
    const LogData data = logDataOf(on.log);
    const DisplayEditModules modules{desk.memory, [](const std::optional<LogDisplay>&) {}, {}};
    frmTrack screen(on.picture.display(), 0, data, on.picture.usualDisplay(), modules);
    const std::size_t tracks = screen.display().tracks.size();
    click(screen, "comaddtrack");
    control<QComboBox>(screen, "lbchannels").setCurrentText("Speed");
    click(screen, "comaddcurve");
    EXPECT_EQ(control<QListWidget>(screen, "lbcurves").count(), 1);
    click(screen, "optgridlogarithmic");
    control<QLineEdit>(screen, "txttrackwidth").setText("4");
    EXPECT_EQ(screen.display().tracks[1].width, 60);
    control<QLineEdit>(screen, "txttrackwidth").setText("30");
    control<QComboBox>(screen, "lbdepthplace").setCurrentIndex(0);
    click(screen, "comapply");
    ASSERT_EQ(screen.result(), QDialog::Accepted);
    EXPECT_EQ(screen.display().tracks.size(), tracks + 1);
    EXPECT_EQ(screen.display().tracks[1].grid, ScaleKind::logarithmic);
    EXPECT_EQ(screen.display().tracks[1].width, 30);
    EXPECT_EQ(screen.display().depthPlace, 0U);
    click(screen, "comremovetrack");
    EXPECT_EQ(screen.display().tracks.size(), tracks);
}

TEST(frmPrint, PaintsPagesForAPrinterAndWritesAPdfOfTheInterval) {
    Desk desk;
    Light on;
    Path chosen = desk.home / "out";
    const Path spool = desk.home / "spool.pdf";
    frmPrint screen(
        {.log = on.log,
         .file = desk.home / "H1.kvx",
         .display = on.picture.display(),
         .whole = on.picture.extent(),
         .visible = {20, 30}},
        {desk.operatorSide, desk.memory,
         [&](QPrinter& printer, QWidget*) {
             printer.setOutputFormat(QPrinter::PdfFormat);
             printer.setOutputFileName(QString::fromStdString(spool.string()));
             return true;
         },
         [&](QWidget*, const QString&, const QString&) { return QString::fromStdString(chosen.string()); }});
    screen.show();
    auto& summary = control<QLabel>(screen, "lbprintsummary");
    EXPECT_EQ(summary.text(), "3 pages A4, 0.50 m of paper");
    EXPECT_EQ(control<QPrintPreviewWidget>(screen, "printpreview").pageCount(), 3);
    control<QComboBox>(screen, "lbprintscale").setCurrentText("1:");
    click(screen, "comsavepdf");
    EXPECT_FALSE(desk.program.files.exists(desk.home / "out.pdf"));
    control<QComboBox>(screen, "lbprintscale").setCurrentText("1:50");
    click(screen, "optvisible");
    click(screen, "optlandscape");
    EXPECT_TRUE(summary.text().endsWith("A4, 0.20 m of paper")) << summary.text().toStdString();
    click(screen, "comsavepdf");
    EXPECT_TRUE(desk.program.files.exists(desk.home / "out.pdf"));
    chosen = desk.home / "no" / "out.pdf";
    click(screen, "comsavepdf");
    ASSERT_EQ(desk.operatorSide.shown.size(), 1U);
    EXPECT_NE(desk.operatorSide.shown[0].find("is there such a folder"), std::string::npos);
    click(screen, "comprint");
    const Bytes printed = desk.program.files.read(spool);
    const std::string text(asText(printed));
    EXPECT_NE(text.find("/MediaBox [0 0 842"), std::string::npos);
    EXPECT_EQ(desk.memory.text("Print"), "A4 landscape pages heading");
}

TEST(ReviewActionsTest, TemplatesAreSavedLoadedAndABadOneIsSaid) {
    ReviewDesk desk;
    LogPicture& picture = desk.screen.picture();
    LogDisplay changed = picture.display();
    changed.tracks[0].divisions = 7;
    picture.change(changed);
    desk.file = desk.home / "seven.display";
    desk.entry("menudisplay", "Save as template").trigger();
    desk.entry("menudisplay", "Usual display").trigger();
    EXPECT_EQ(picture.display().tracks[0].divisions, 10);
    desk.entry("menudisplay", "seven").trigger(); // one of the recent ones
    EXPECT_EQ(picture.display().tracks[0].divisions, 7);
    click(desk.screen, "comundo");
    EXPECT_EQ(picture.display().tracks[0].divisions, 10);
    desk.file = desk.home / "bad.display";
    desk.program.files.replace(desk.file, asBytes("[track]\nwidth = x\n"));
    desk.entry("menudisplay", "Load template").trigger();
    ASSERT_FALSE(desk.operatorSide.shown.empty());
    EXPECT_NE(desk.operatorSide.shown.back().find("bad.display, line 2: width = x"), std::string::npos);
    EXPECT_EQ(picture.display().tracks[0].divisions, 10);
}

TEST(ReviewActionsTest, GoesToADepthAndExportsWhatIsSeen) {
    ReviewDesk desk;
    auto& depth = control<QLineEdit>(desk.screen, "txtgotodepth");
    depth.setText("60");
    QTest::keyClick(&depth, Qt::Key_Return);
    const Extent seen = desk.screen.picture().visible();
    EXPECT_LT(seen.from, 60);
    EXPECT_GT(seen.to, 60);
    for (const auto& [text, why] : {std::pair("deep", "such as"), std::pair("9999", "The log runs from")}) {
        depth.setText(text);
        QTest::keyClick(&depth, Qt::Key_Return);
        EXPECT_TRUE(depth.property("wrong").toBool());
        EXPECT_TRUE(depth.accessibleDescription().contains(why));
        EXPECT_EQ(desk.screen.picture().visible().from, seen.from);
    }
    double start = 0;
    whenModal([&](QWidget& modal) {
        start = control<QLineEdit>(modal, "txtstart").text().toDouble();
        modal.close();
    });
    desk.entry("menuexport", "Visible interval as LAS").trigger();
    EXPECT_EQ(start, std::ceil(seen.from - 1e-6)) << "the first row that is seen";
    desk.file = desk.home / "seen.svg";
    desk.entry("menuexport", "Visible interval as picture").trigger();
    EXPECT_TRUE(desk.program.files.exists(desk.file));
    EXPECT_FALSE(desk.entry("menuexport", "Plan view").isEnabled()) << "of this log nobody knows the way";
    desk.program.files.replace(
        desk.home / "way.las",
        asBytes("~V\r\n VERS. 2.0 :\r\n WRAP. NO :\r\n~W\r\n STRT.M 0 :\r\n STOP.M 1 :\r\n STEP.M 1 "
                ":\r\n NULL. -999.25 :\r\n WELL. D : WELL\r\n~C\r\n DEPT.M :\r\n East.M :\r\n North.M "
                ":\r\n~A\r\n0 0 0\r\n1 0.5 0.25\r\n"));
    ASSERT_TRUE(desk.session.open(desk.home / "way.las"));
    desk.file = desk.home / "plan.svg";
    desk.entry("menuexport", "Plan view").trigger();
    EXPECT_NE(asText(desk.program.files.read(desk.file)).find("Rings every"), std::string_view::npos);
    std::string printed;
    whenModal([&](QWidget& modal) {
        printed = modal.objectName().toStdString();
        modal.close();
    });
    desk.entry("menuexport", "Print").trigger();
    EXPECT_EQ(printed, "frmPrint");
}

TEST(ReviewActionsTest, ASecondRunIsReadBesideTheFirstAndForgotten) {
    ReviewDesk desk;
    ASSERT_TRUE(desk.session.openSecond(desk.home / "a.las"));
    LogPicture& picture = desk.screen.picture();
    for (const Comparison how : {Comparison::over, Comparison::beside}) {
        picture.compareWith(desk.session.second(), how);
        picture.jumpTo(50);
        picture.grab();
        EXPECT_TRUE(control<ReadingsStrip>(picture, "lbreadings").texts().contains("GR 1.000 | 1.000 API"));
    }
    whenModal([&](QWidget& modal) {
        control<QCheckBox>(modal, "optprintheading").setChecked(true);
        desk.file = desk.home / "both.svg";
        click(modal, "comsavepicture");
        modal.close();
    });
    desk.entry("menuexport", "Print").trigger();
    EXPECT_NE(asText(desk.program.files.read(desk.file)).find("Left: "), std::string_view::npos);
    DisplayPlace left;
    DisplayPlace right;
    const int pane = (picture.width() - control<QScrollBar>(picture, "logscroll").width() - 8) / 2;
    for (auto [place, x] : {std::pair(&left, 3), std::pair(&right, pane + 8 + 3)}) {
        picture.whenPicked([place](const DisplayPlace& at) { *place = at; });
        QTest::mouseDClick(&picture, Qt::LeftButton, {}, {x, picture.height() / 2});
    }
    EXPECT_EQ(left.part, DisplayPlace::Part::track);
    EXPECT_EQ(right.part, left.part) << "three pixels inside the right one too";
    desk.entry("menucompare", "This run alone").trigger();
    EXPECT_EQ(desk.session.second(), nullptr);
    picture.jumpTo(50);
    EXPECT_TRUE(control<ReadingsStrip>(picture, "lbreadings").texts().contains("GR 1.000 API"));
    EXPECT_FALSE(desk.session.openSecond(desk.home / "none.las"));
    desk.session.close();
}

TEST(ReviewSessionTest, AFileThatIsNoRunIsSaidWithTheCopyThatWasMadeOfIt) {
    ReviewDesk desk;
    desk.program.files.replace(desk.home / "H_K240_01.kvx", {});
    desk.program.files.createFolder(desk.home / "Backup");
    desk.program.files.replace(desk.home / "Backup" / "H_K240_01.kvx", asBytes("TARVIK"));
    EXPECT_FALSE(desk.session.open(desk.home / "H_K240_01.kvx"));
    ASSERT_FALSE(desk.operatorSide.shown.empty());
    const std::string& said = desk.operatorSide.shown.back();
    EXPECT_TRUE(said.starts_with("!Open a run: ")) << "a message, not the report of an error: " << said;
    EXPECT_NE(said.find("0 bytes"), std::string::npos) << said;
    EXPECT_NE(said.find("Backup"), std::string::npos) << said;
    EXPECT_NE(desk.session.log(), nullptr) << "what was open stays";
    desk.session.close();
}

} // namespace tarvik::test
