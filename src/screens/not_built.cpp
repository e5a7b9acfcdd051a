#include "screens/not_built.h"

#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

struct Planned {
    std::string_view screen;
    const char* title;
    const char* meanwhile;
};

constexpr std::array planned{
    Planned{"frmBatchProcessing", "Batch processing",
            "Meanwhile the command line works through many files: tarvik las FILE -o OUT.las, one call for "
            "each."},
    Planned{"frmCalibTest", "Calibration and test screen",
            "Meanwhile tarvik calibrate fits a calibration through points and saves it in the history; "
            "Calibrations on the main screen shows what is on record."},
};

} // namespace

NotBuiltScreen::NotBuiltScreen(std::string_view screen, DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmNotBuilt", "Not built yet", memory, parent) {
    const auto* const row = std::ranges::find(planned, screen, &Planned::screen);
    const bool known = row != planned.end();
    body()->addWidget(roleLabel("title", known ? QString(row->title) : qt(screen)));
    auto* const text = new QLabel("This screen is not built yet.\n\n" +
                                  QString(known ? row->meanwhile : "It will come with a later version."));
    text->setObjectName("lbnotbuilt");
    text->setWordWrap(true);
    text->setMinimumWidth(420);
    body()->addWidget(text);
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, &QDialog::accept);
}

} // namespace tarvik
