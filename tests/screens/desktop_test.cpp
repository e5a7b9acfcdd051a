// The desktop on the simulated box: what the operator does at the main screen, without a display.
#include "files/run_file_reader.h"
#include "screens/qt_text.h"
#include "screens/truck.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>
#include <QToolButton>

namespace tarvik::test {

TEST(DesktopTest, ARunFromTheMainScreenIsOnFileAndTheToolIsPoweredDown) {
    Truck truck;
    ASSERT_TRUE(truck.started);
    EXPECT_NE(truck.screen().focusWidget(), &truck.screen().bars().scales());
    truck.acquire();
    EXPECT_EQ(truck.screensOpened, std::vector<std::string>{"frmEquipment"});
    EXPECT_EQ(truck.label("lbinterface"), "Interface LCU4");

    std::string during;
    truck.log([&] {
        if (truck.kept() < 20) return;
        during = truck.label("lbrecordingstate");
        click(truck.screen(), "comstoplogging");
    });
    EXPECT_EQ(during, "\xE2\x97\x8F  RECORDING");
    EXPECT_EQ(truck.label("lbrecordingstate").substr(0, 9), "Run ended");
    EXPECT_EQ(truck.truth.commandTexts().back(), "Q");
    EXPECT_FALSE(control<QCheckBox>(truck.screen(), "chkrecord").isChecked());

    const auto review = truck.p().runReader.Tarvikfileopen(truck.runFile("DH-1_K215_01.kvx"));
    ASSERT_TRUE(review);
    EXPECT_GE(review->steps(), 20U);

    const QComboBox& scales = truck.screen().bars().scales();
    const auto scale = [&] {
        return plain(scales.currentIndex() < 0 ? scales.placeholderText() : scales.currentText());
    };
    truck.p().modes.Utilities_setprogrammode("REVIEW");
    ASSERT_TRUE(truck.desktop->review().open(truck.runFile("DH-1_K215_01.kvx")));
    truck.screen().picture().setScale(137);
    EXPECT_EQ(scale(), "1:137") << "the list follows the picture";
    truck.p().modes.Utilities_setprogrammode("CALIB-TEST");
    EXPECT_EQ(scale(), "1:200") << "that of the live plot";
}

/// What was measured before the silence is not shown as if it were now.
TEST(DesktopTest, ASilentBoxHasNoSpeed) {
    Truck truck({.faults = {"silence@12=8000"}});
    truck.acquire();
    std::string silent, again;
    truck.log([&] {
        const std::string state = truck.label("lbrecordingstate");
        if (silent.empty() && state.ends_with("NO SCAN KEPT"))
            silent = truck.label("lbspeed") + truck.label("lbcurrent") + " " +
                     control<QLabel>(truck.screen(), "lbdepth").property("role").toString().toStdString();
        if (silent.empty() || truck.kept() < 30) return;
        again = truck.label("lbspeed") +
                control<QLabel>(truck.screen(), "lbdepth").property("role").toString().toStdString();
        click(truck.screen(), "comstoplogging");
    });
    EXPECT_EQ(silent, "\xE2\x80\x93\xE2\x80\x93 quiet");
    EXPECT_THAT(again, testing::MatchesRegex("[0-9.]+"));
    EXPECT_EQ(truck.label("lbrecordingstate"), "Run ended");
    EXPECT_THAT(truck.label("lbrecordingreason"), testing::HasSubstr(" scans written"));
}

TEST(DesktopTest, ErrorsOfARunOpenTheirFormBehindItsEnd) {
    Truck truck;
    truck.acquire();
    const auto formIsOpen = [&] {
        const auto* const form = truck.screen().findChild<QWidget*>("frmERROR");
        return form != nullptr && form->isVisible();
    };
    int raised = 0;
    bool overThePlot = false;
    truck.log([&] {
        if (raised == 3) click(truck.screen(), "comstoplogging");
        if (truck.kept() < 5 || raised == 3) return;
        const char* const what = raised++ == 0 ? "no room on the disk" : "no such folder";
        truck.p().errors.run("LCU_SaveScan", [&](Level&) { throw Failure(ErrorNumber::internal, what); });
        overThePlot |= formIsOpen();
    });
    EXPECT_EQ(raised, 3);
    EXPECT_FALSE(overThePlot);
    ASSERT_TRUE(formIsOpen());
    EXPECT_EQ(truck.label("lbwhat"), "no room on the disk");
    click(truck.screen(), "comnext");
    EXPECT_EQ(truck.label("lbtimes"), "Error 2 of 2, 2 times");
}

TEST(DesktopTest, AnIdleBoxThatStopsAnsweringIsCalledLostUntilItAnswers) {
    Truck truck;
    truck.acquire();
    Acquisition& acquisition = truck.desktop->acquisition();
    const auto& start = control<QAbstractButton>(truck.screen(), "comstartlogging");
    truck.serial.failNext("ComPuts", -5, 2);
    acquisition.watchDepth();
    EXPECT_TRUE(start.isEnabled()) << "one answer may go astray";
    acquisition.watchDepth();
    EXPECT_TRUE(truck.p().link.lost);
    EXPECT_FALSE(start.isEnabled());
    acquisition.watchDepth();
    EXPECT_FALSE(truck.p().link.lost);
    EXPECT_TRUE(start.isEnabled());
}

TEST(DesktopTest, ADepthThatIsNotSetSaysWhereToLook) {
    Truck truck;
    truck.acquire();
    std::string said;
    QTimer reader; // the box comes up at some time behind the exchange
    reader.callOnTimeout([&] {
        if (auto* const box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            said = plain(box->text());
            box->accept();
        }
    });
    reader.start(0);
    const auto setDepth = [&] {
        said.clear();
        control<QLineEdit>(truck.screen(), "txtsetdepth").setText("12.5");
        click(truck.screen(), "comsetdepth");
        return said;
    };
    EXPECT_EQ(setDepth(), "");
    truck.serial.failNext("ComStatus", -5, 9); // unplugged
    EXPECT_NE(setDepth().find("cable and the port"), std::string::npos) << said;
    EXPECT_EQ(said.find("Stop the winch"), std::string::npos) << said;
}

TEST(DesktopTest, TheStopKeyWorksInAnyWindow) {
    Truck truck;
    truck.acquire();
    truck.screen().show();
    QWidget report; // such as that of an error
    truck.log([&] {
        if (truck.kept() >= 50) truck.desktop->acquisition().stop();
        if (truck.kept() < 5 || report.isVisible()) return;
        report.show();
        report.activateWindow();
        QTest::keyClick(&report, Qt::Key_F10);
    });
    EXPECT_LT(truck.kept(), 50);
}

TEST(DesktopTest, TheButtonOfTheDeviationToolGoesThroughItsDisplaysDuringTheRun) {
    Truck truck({.tool = "K417"});
    truck.acquire();
    auto& button = control<QAction>(truck.screen(), "MB-Bullseye");
    const LivePlot& plot = truck.screen().live().plot();
    std::vector<std::string> seen;
    QSize least;
    truck.log([&] {
        least = least.expandedTo(truck.screen().minimumSizeHint());
        const auto at = static_cast<std::size_t>(truck.kept());
        if (at < 20 || seen.size() == 4) return;
        const LogDisplay& shown = plot.curves().shown();
        seen.push_back(plain(button.text()) + (plot.page() == LivePage::plan
                                                   ? std::string(": plan")
                                                   : ": " + shown.tracks[0].curves[0].channel));
        button.trigger();
        if (seen.size() == 4) truck.desktop->acquisition().stop();
    });
    EXPECT_EQ(seen, (std::vector<std::string>{"Bullseye: plan", "Magnetics: Mag X", "Deviation: Azimuth",
                                              "Bullseye: plan"}));
    EXPECT_LE(least.width(), 1280);
    EXPECT_LE(least.height(), 740) << "a notice above the logs must not push the window off the screen";
    EXPECT_EQ(plot.page(), LivePage::logs) << "the stop button takes the plan view away";
    EXPECT_FALSE(button.isVisible());
    const Bytes log = truck.p().files.read(truck.p().log.todaysFile());
    EXPECT_NE(std::string(asText(log)).find("Screen scale being used 1:200"), std::string::npos);
}

TEST(DesktopTest, AScaleSetInTheLivePlotIsKeptWithTheToolAfterTheRun) {
    Truck truck;
    truck.acquire();
    const auto rightEnd = [&] {
        return truck.p().equipment.currentTool().record.get(tool::uncalibratedRight(1, 1));
    };
    const float before = rightEnd();
    float during = 0;
    truck.log([&] {
        if (truck.kept() < 20) return;
        click(truck.screen(), "comlivecurves");
        control<QComboBox>(truck.screen(), "cmblivecurve").setCurrentText("Gamma");
        control<QLineEdit>(truck.screen(), "txtliveright").setText("271");
        click(truck.screen(), "comlivecurveapply");
        during = rightEnd();
        truck.desktop->acquisition().stop();
    });
    EXPECT_EQ(during, before) << "nothing is written while the winch turns";
    EXPECT_EQ(rightEnd(), 271);
}

TEST(DesktopTest, LimitsKeepTheirMeaningWhenTheUnitChanges) {
    Truck truck;
    truck.acquire();
    IntroScreen& screen = truck.screen();
    control<QLineEdit>(screen, "txttop").setText("5");
    control<QLineEdit>(screen, "txtbottom").setText("20");
    const auto turnTo = [&](DepthUnits units) {
        truck.p().settings.setUnits(units);
        truck.desktop->acquisition().show();
    };
    turnTo(DepthUnits::feet);
    EXPECT_EQ(control<QLineEdit>(screen, "txttop").text(), "16.4");
    EXPECT_EQ(control<QLineEdit>(screen, "txtbottom").text(), "65.62");
    EXPECT_EQ(control<QLineEdit>(screen, "txtenddistance").text(), "");
    turnTo(DepthUnits::metres);
    EXPECT_EQ(control<QLineEdit>(screen, "txttop").text(), "5");
    EXPECT_EQ(control<QLineEdit>(screen, "txtbottom").text(), "20");
}

TEST(DesktopTest, ClosingDuringARunAsksWithoutStoppingItAndThenEndsItInOrder) {
    Truck truck;
    truck.acquire();
    long keptWhenAsked = 0;
    bool stopped = false;
    truck.log([&] {
        if (keptWhenAsked == 0 && truck.kept() >= 5) {
            truck.screen().close();
            keptWhenAsked = truck.kept();
        }
        if (keptWhenAsked > 0 && truck.kept() >= keptWhenAsked + 10 && !std::exchange(stopped, true))
            click(truck.screen(), "comstopandclose");
    });
    QCoreApplication::processEvents();
    EXPECT_FALSE(truck.p().link.powerDoubtful);
    EXPECT_TRUE(truck.desktop->ended());
    EXPECT_GE(truck.kept(), keptWhenAsked + 10);
    const Bytes log = truck.p().files.read(truck.p().log.todaysFile());
    EXPECT_NE(std::string(asText(log)).find("Tarvik program closed"), std::string::npos);
}

TEST(DesktopTest, ARequestToEndEndsARunInOrderAndAsksNothing) {
    Truck truck;
    truck.acquire();
    bool asked = false;
    truck.desktop->endWhen([&] { return asked; });
    truck.log([&] { asked = asked || truck.kept() >= 5; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return truck.desktop->ended(); }, 20'000));
    EXPECT_FALSE(truck.p().link.powerDoubtful);
    const std::string log(asText(truck.p().files.read(truck.p().log.todaysFile())));
    EXPECT_NE(log.find("Logging run finished"), std::string::npos);
    EXPECT_NE(log.find("Tarvik program closed"), std::string::npos);
}

TEST(DesktopTest, ClosingDuringASearchCancelsItAndThenCloses) {
    Truck truck;
    truck.atWait = [&] {
        if (truck.p().state.searching) truck.screen().close();
    };
    truck.acquire();
    EXPECT_FALSE(truck.desktop->ended()) << "not from within the search";
    EXPECT_TRUE(QTest::qWaitFor([&] { return truck.desktop->ended(); }, 20'000));
    EXPECT_FALSE(truck.p().link.open());
}

TEST(DesktopTest, YesterdaysEquipmentIsInUseWhenItsFormIsLeftByEscape) {
    Truck truck({.openScreens = true});
    QTimer escape;
    escape.callOnTimeout([] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
    });
    escape.start(0);
    truck.p().hooks.openScreen({"frmEquipment"});
    EXPECT_EQ(truck.p().equipment.currentTool().record.get(tool::code), truck.options.tool);
    EXPECT_EQ(truck.desktop->acquisition().stillToChoose(), "");
}

TEST(DesktopTest, ReadingTheHandbookDoesNotSwitchTheExitQuestionOff) {
    Truck truck({.tool = "K240"});
    truck.acquire();
    truck.log([&] {
        if (truck.kept() > 5) truck.desktop->acquisition().stop();
    });
    truck.p().modes.Utilities_setprogrammode("REVIEW");
    ASSERT_TRUE(truck.desktop->review().open(truck.runFile("DH-1_K240_01.kvx")));
    truck.p().commands.toolClick("Help-contents");
    EXPECT_EQ(control<QListWidget>(truck.screen(), "lbpages").currentItem()->text(), "Review and LAS");
    EXPECT_TRUE(truck.p().state.exitConfirmation);
    truck.desktop->review().close();
    truck.p().commands.toolClick("Help-contents");
    EXPECT_FALSE(truck.p().state.exitConfirmation);
}

TEST(DesktopTest, LoggingThatIsNotAllowedHasNoWayIn) {
    Truck truck;
    truck.p().settings.allowLogging = 0;
    truck.desktop->review().show();
    for (const QPushButton* const step : truck.screen().logs().findChildren<QPushButton*>())
        EXPECT_FALSE(!step->isHidden() && step->text().startsWith("Acquire"));
}

TEST(DesktopTest, NoClickDuringAWaitStartsASecondExchange) {
    Truck truck;
    std::size_t clicks = 0;
    const auto clickEverything = [&] {
        for (QAbstractButton* const button : truck.screen().findChildren<QAbstractButton*>()) {
            const QString name = button->objectName();
            if (name == "comstoplogging" || name == "comcancelsearch" || name == "chkrecord") continue;
            if (!button->isVisible() || !button->isEnabled()) continue;
            if (const auto* const tool = qobject_cast<QToolButton*>(button);
                tool != nullptr && tool->defaultAction() == truck.screen().findChild<QAction*>("MB-Exit"))
                continue; // ends a search and the program
            button->click();
            ++clicks;
        }
        if (QWidget* const modal = QApplication::activeModalWidget()) modal->close();
    };
    truck.atWait = clickEverything;
    truck.acquire();
    truck.log([&] {
        clickEverything();
        if (truck.kept() >= 5) truck.desktop->acquisition().stop();
    });
    EXPECT_GT(clicks, 100U);
    EXPECT_GE(truck.kept(), 5);
    EXPECT_FALSE(truck.p().link.busy);
}

} // namespace tarvik::test
