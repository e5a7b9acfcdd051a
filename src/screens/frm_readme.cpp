#include "screens/frm_readme.h"

#include "screens/help_window.h"

#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace tarvik {

frmReadme::frmReadme(DesktopMemory& memory, QWidget* parent)
    : ScreenDialog("frmReadme", "Release notes", memory, parent) {
    auto* const text = new QTextBrowser;
    text->setObjectName("txtnotes");
    text->setAccessibleName("Release notes");
    text->document()->setDocumentMargin(20);
    text->setMarkdown(helpText("release-notes"));
    body()->addWidget(text, 1);
    connect(addPrimaryButton("comclose", "Close"), &QPushButton::clicked, this, &QDialog::accept);
    resize(680, 560);
}

} // namespace tarvik
