#include "screens/frm_file.h"

#include "base/failure.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

namespace {

FileChooser chooser(Path folder, const char* title, const char* kinds) {
    return [folder = std::move(folder), title, kinds](QWidget* parent) -> std::optional<Path> {
        const QString file = QFileDialog::getOpenFileName(parent, title, qt(folder.string()),
                                                          QString("%1;;All files (*)").arg(kinds));
        if (file.isEmpty()) return std::nullopt;
        return Path(plain(file));
    };
}

} // namespace

FileChooser anyRunOrLasFile(Path startFolder) {
    return chooser(std::move(startFolder), "Open a run or LAS file",
                   "Runs and LAS files (*.kvx *.KVX *.las *.LAS)");
}

FileChooser anyRunFile(Path startFolder) {
    return chooser(std::move(startFolder), "Play a run", "Runs (*.kvx *.KVX)");
}

namespace {

/// A folder that cannot be read must not keep the operator from the files elsewhere.
auto filesOrWhyNot(const Files& files, const Path& folder, std::string& why) {
    decltype(reviewableFiles(files, folder)) found;
    try {
        found = reviewableFiles(files, folder);
    } catch (const Failure& failure) {
        why = failure.what();
    }
    return found;
}

} // namespace

frmFile::frmFile(const Files& files, const Path& projectFolder, FileChooser chooser, DesktopMemory& memory,
                 QWidget* parent)
    : ScreenDialog("frmFile", "Open a run", memory, parent), chooser_(std::move(chooser)) {
    auto* const any = addSideButton("combrowse", "&Browse\u2026");
    any->setToolTip("Any run or LAS file of this machine");
    connect(any, &QPushButton::clicked, this, [this] { choose(chooser_(this)); });
    connect(addButton("comcancel", "Cancel"), &QPushButton::clicked, this, &QDialog::reject);
    auto* const open = addPrimaryButton("comopen", "&Open");
    open->setEnabled(false);
    connect(open, &QPushButton::clicked, this, [this] { choose(list_->selected()); });

    std::string unread;
    auto found = filesOrWhyNot(files, projectFolder, unread);
    auto* const remark = roleLabel(unread.empty() ? "quiet" : "warning",
                                   !unread.empty() ? qt(unread) + "\nBrowse for a file elsewhere."
                                   : found.empty() ? "No runs yet in " + qt(projectFolder.string()) +
                                                         ". Browse for a file, or log a run under Acquire."
                                                   : "Project folder " + qt(projectFolder.string()));
    remark->setWordWrap(true);
    list_ = new RunList(files, std::move(found), memory, "frmFile",
                        {.selected = [open](bool is) { open->setEnabled(is); },
                         .chosen = [this] { choose(list_->selected()); }});
    body()->addWidget(list_, 1);
    body()->addWidget(remark);
    list_->setFocus();
    resize(960, 560);
}

void frmFile::choose(const std::optional<Path>& file) {
    if (!file) return;
    chosen_ = *file;
    accept();
}

void frmFile::done(int result) {
    list_->finish();
    ScreenDialog::done(result);
}

} // namespace tarvik
