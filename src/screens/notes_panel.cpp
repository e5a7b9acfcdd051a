#include "screens/notes_panel.h"

#include "base/failure.h"
#include "base/text.h"
#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace tarvik {

namespace {

constexpr std::string_view notesEnding = "_notes.kvx";
constexpr std::size_t mostBytes = 1'000'000; // notes are short; a foreign file of that name may not be

} // namespace

NotesPanel::NotesPanel(const Files& files) : files_(files), holes_(new QComboBox), text_(new QPlainTextEdit) {
    setObjectName("notespanel");
    setProperty("card", true);
    setMinimumWidth(200);
    setFocusProxy(text_);
    holes_->setObjectName("lbnotes");
    holes_->setAccessibleName("Hole");
    text_->setObjectName("txtnotes");
    text_->setAccessibleName("Notes of the hole");
    text_->setReadOnly(true);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 16);
    column->setSpacing(8);
    column->addWidget(roleLabel("head", "Notes"));
    column->addWidget(holes_);
    column->addWidget(text_, 1);
    connect(holes_, &QComboBox::currentIndexChanged, this, [this] { showNotes(); });
    hide();
}

void NotesPanel::load(const Path& projectFolder, const QString& hole) {
    folder_ = projectFolder;
    holes_->clear();
    for (const std::string& name : files_.list(projectFolder)) {
        if (name.ends_with(notesEnding))
            holes_->addItem(qt(name.substr(0, name.size() - notesEnding.size())));
    }
    holes_->setCurrentText(hole);
    holes_->setEnabled(holes_->count() > 0);
    showNotes();
}

void NotesPanel::showNotes() {
    if (holes_->count() == 0)
        return text_->setPlainText("No hole of this project has notes yet. Each run adds a line.");
    try {
        const Path file = folder_ / (plain(holes_->currentText()) + std::string(notesEnding));
        text_->setPlainText(qt(fromAnsi(asText(files_.readPart(file, 0, mostBytes)))));
    } catch (const Failure& failure) {
        text_->setPlainText(qt(failure.what()));
    }
}

} // namespace tarvik
