// The notes of a hole beside its logs: a line for each run, and what was written by hand.
#pragma once

#include "platform/files.h"

#include <QFrame>

class QComboBox;
class QPlainTextEdit;

namespace tarvik {

class NotesPanel final : public QFrame {
  public:
    explicit NotesPanel(const Files& files);

    /// The holes of the folder that have notes; the one named is shown when it has some.
    void load(const Path& projectFolder, const QString& hole);

  private:
    void showNotes();

    const Files& files_;
    Path folder_;
    QComboBox* holes_;
    QPlainTextEdit* text_;
};

} // namespace tarvik
