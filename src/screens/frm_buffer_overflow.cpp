#include "screens/frm_buffer_overflow.h"

#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvik {

frmBufferOverflow::frmBufferOverflow(DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmBufferOverflow", "Buffer overflow", memory, parent),
      when_(roleLabel("warning")),
      analysis_(new QPlainTextEdit),
      file_(roleLabel("quiet")) {
    setModal(false);
    setAttribute(Qt::WA_ShowWithoutActivating); // the keys stay with the run
    when_->setObjectName("lboverflowcount");
    analysis_->setObjectName("txtoverflow");
    analysis_->setAccessibleName("Analysis of the buffer overflow");
    analysis_->setReadOnly(true);
    analysis_->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSize(10);
    analysis_->setFont(font);
    body()->addWidget(when_);
    body()->addWidget(analysis_, 1);
    file_->setObjectName("lboverflowfile");
    file_->setWordWrap(true);
    body()->addWidget(file_);
    connect(addSideButton("comcopyoverflow", "&Copy text"), &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(analysis_->toPlainText()); });
    connect(addPrimaryButton("comcloseoverflow", "Close"), &QPushButton::clicked, this, [this] { accept(); });
    setMinimumSize(480, 300);
    resize(640, 440);
}

void frmBufferOverflow::showOverflow(std::span<const std::string> lines, const ErrorFiling& filed,
                                     const CivilTime& now) {
    count_.add(now);
    QStringList texts;
    for (const std::string& line : lines) texts.append(qt(line));
    when_->setText("\u25b2  Buffer overflow " + qt(count_.text()));
    analysis_->setPlainText(texts.join('\n'));
    file_->setText("The scans behind it are read as usual. " +
                   (filed.problem.empty() ? QString("The same text is in the error file.")
                                          : "The error file could not be written: " + qt(filed.problem)));
    show();
}

void frmBufferOverflow::done(int result) {
    count_.clear();
    ScreenDialog::done(result);
}

} // namespace tarvik
