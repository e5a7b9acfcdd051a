#include "screens/frm_demo.h"

#include "screens/option_row.h"
#include "screens/pace_words.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

namespace {

std::vector<OptionText> paceOptions() {
    std::vector<OptionText> options;
    for (const PaceWords& words : paceWords) options.push_back({words.objectName, words.text});
    return options;
}

} // namespace

frmDemo::frmDemo(const Files& files, const Path& projectFolder, FileChooser chooser, const Choice& before,
                 DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmDemo", "Demonstration", memory, parent),
      chooser_(std::move(chooser)),
      choice_(before) {
    auto* const what = roleLabel("quiet", "A run on file is played through the display as if it were being "
                                          "logged. No LCU is needed, and nothing is written.");
    what->setWordWrap(true);
    auto* const any = addSideButton("combrowse", "&Browse\u2026");
    any->setToolTip("Any run of this machine");
    connect(any, &QPushButton::clicked, this, [this] { choose(chooser_(this)); });
    connect(addButton("comcancel", "Cancel"), &QPushButton::clicked, this, &QDialog::reject);
    auto* const start = addPrimaryButton("comstart", "&Start demonstration");
    start->setEnabled(false);
    connect(start, &QPushButton::clicked, this, [this] { choose(list_->selected()); });

    auto found = runFiles(files, projectFolder);
    const QString folder = qt(projectFolder.string());
    auto* const remark = roleLabel("quiet", found.empty() ? "No runs yet in " + folder + ". Browse for one."
                                                          : "Project folder " + folder);
    remark->setWordWrap(true);
    list_ = new RunList(files, std::move(found), memory, "frmDemo",
                        {.selected = [start](bool selected) { start->setEnabled(selected); },
                         .chosen = [this] { choose(list_->selected()); }});
    list_->preselect(before.file);
    body()->addWidget(what);
    body()->addWidget(list_, 1);
    body()->addWidget(remark);
    pace_ = addOptions(*body(), "Pace", paceOptions());
    pace_->button(placeOf(before.pace))->setChecked(true);
    list_->setFocus();
    resize(960, 600);
}

void frmDemo::choose(const std::optional<Path>& file) {
    if (!file) return;
    choice_ = {.file = *file, .pace = paceAt(pace_->checkedId())};
    accept();
}

void frmDemo::done(int result) {
    list_->finish();
    ScreenDialog::done(result);
}

} // namespace tarvik
