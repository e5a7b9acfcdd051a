#include "screens/help_window.h"

#include <QFile>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QTextBrowser>

#include <algorithm>
#include <array>

static void openHelpResources() {
    Q_INIT_RESOURCE(tarvik_help);
}

namespace tarvik {

namespace {

struct Page {
    const char* name;
    const char* title;
};

constexpr std::array pages{Page{"quick-start", "Quick start"},
                           Page{"acquiring", "Logging a run"},
                           Page{"faults", "Faults while the winch turns"},
                           Page{"diagnostics", "Diagnostics console"},
                           Page{"review", "Review and LAS"},
                           Page{"demonstration", "Demonstration"},
                           Page{"calibration", "Calibrations"},
                           Page{"keyboard", "Keyboard"},
                           Page{"display", "System requirements: display"},
                           Page{"release-notes", "Release notes"}};

struct Subject {
    const char* screen; ///< or mode
    const char* page;
};

constexpr std::array subjects{Subject{"ACQUIRE", "acquiring"},
                              Subject{"REVIEW", "review"},
                              Subject{"DEMO", "demonstration"},
                              Subject{"CALIBTEST", "calibration"},
                              Subject{"frmEquipment", "acquiring"},
                              Subject{"frmDataFileExists", "acquiring"},
                              Subject{"frmDeviation", "acquiring"},
                              Subject{"frmNoLCUFound", "faults"},
                              Subject{"frmBufferOverflow", "faults"},
                              Subject{"frmERROR", "faults"},
                              Subject{"frmDiagnostics", "diagnostics"},
                              Subject{"frmCalibrations", "calibration"},
                              Subject{"frmDemo", "demonstration"},
                              Subject{"frmFile", "review"},
                              Subject{"frmDetails", "review"},
                              Subject{"frmLASexport", "review"},
                              Subject{"frmPrint", "review"},
                              Subject{"frmTrack", "review"},
                              Subject{"frmCurve", "review"}};

} // namespace

QString helpPageOf(const QString& screen) {
    const auto* const found =
        std::ranges::find_if(subjects, [&](const Subject& subject) { return screen == subject.screen; });
    return found == subjects.end() ? QString() : found->page;
}

QString helpText(const QString& page) {
    openHelpResources();
    QFile file(":/help/" + page + ".md");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

HelpWindow::HelpWindow(DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("HelpWindow", "Tarvik help", memory, parent),
      pages_(new QListWidget),
      text_(new QTextBrowser) {
    pages_->setObjectName("lbpages");
    pages_->setAccessibleName("Pages of the handbook");
    pages_->setFixedWidth(240);
    text_->setObjectName("txthelp");
    text_->setAccessibleName("Text of the page");
    text_->setOpenExternalLinks(false);
    text_->document()->setDocumentMargin(20);
    for (const Page& page : pages) pages_->addItem(page.title);
    connect(pages_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) text_->setMarkdown(helpText(pages[static_cast<std::size_t>(row)].name));
    });
    auto* const row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(pages_);
    row->addWidget(text_, 1);
    body()->addLayout(row, 1);
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, &QDialog::accept);
    resize(900, 620);
    pages_->setCurrentRow(0);
}

void HelpWindow::showPage(const QString& name) {
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (name == pages[i].name) pages_->setCurrentRow(static_cast<int>(i));
    }
}

} // namespace tarvik
