// The three parts of the diagnostics screen: the state of the link on top, below it commands at the left and
// lists at the right. They show and hold controls; what a control does is the screen's.
#pragma once

#include "lcu/diagnostics_text.h"
#include "screens/command_box.h"
#include "screens/desktop_memory.h"
#include "screens/field.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QWidget>

namespace tarvik {

class DiagnosticsStatePanel final : public QWidget {
  public:
    DiagnosticsStatePanel();

    void show(const DiagnosticsConsole& console, const LinkState& link);

    QPushButton* find;
    QPushButton* reset;
    QPushButton* setDepth;
    QPushButton* winchTest;
    QPushButton* stop;
    QLineEdit* depthToSet;
    Field* depthField;

  private:
    QWidget* linkCard();
    QWidget* depthCard();
    QWidget* acquisitionCard();

    QLabel* lcu_;
    QLabel* bits_;
    QLabel* meaning_;
    QLabel* clearToSend_;
    QLabel* depth_;
    QLabel* state_;
    QLabel* scan_;
};

class DiagnosticsCommandPanel final : public QWidget {
  public:
    DiagnosticsCommandPanel();

    CommandBox* command;
    BatchBox* batch;
    QPushButton* clear;
    QPushButton* send;
};

class DiagnosticsListPanel final : public QWidget {
  public:
    DiagnosticsListPanel();

    void addStatusLine(std::string_view viewerLine);
    void addData(std::string_view text);
    void clearData();
    void showScan(const CurrentTool& tool, const DiagnosticsScan& scan);
    /// What the transcript has grown by.
    void showTranscript(const WireTranscript& transcript);

    QListWidget* status;
    QPlainTextEdit* data;
    QTableWidget* values;
    QTableWidget* known;
    QPlainTextEdit* raw;
    QCheckBox* recordRaw;
    QPushButton* clearStatus;
    QPushButton* clearLog;
    QTabWidget* tabs;

  private:
    QWidget* statusPart();
    QWidget* dataPage();
    void showHeading();
    QWidget* valuesPage();
    QWidget* rawPage();
    QWidget* knownPage();

    QPlainTextEdit* dataHeading_; ///< stands still over the lines; scrolls sideways with them
    QString headingText_;
    QLabel* valuesNote_;
    std::size_t rawShown_ = 0;
};

} // namespace tarvik
