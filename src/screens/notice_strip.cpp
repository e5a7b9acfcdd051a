#include "screens/notice_strip.h"

#include "screens/qt_text.h"
#include "screens/styles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

struct Look {
    const char* role;
    const char* shape;
};

Look lookOf(Icon icon) {
    switch (icon) {
    case Icon::critical:
        return {"bad", "\u2716"};
    case Icon::exclamation:
        return {"warning", "\u25b2"};
    default:
        return {"quiet", "\u25cf"};
    }
}

/// So much of the text as stands beside the title.
QString beginningOf(const std::string& text) {
    constexpr int most = 60; // letters
    const QString all = qt(text).simplified();
    return (all.size() > most ? all.left(most).trimmed() + "\u2026" : all).toHtmlEscaped();
}

} // namespace

NoticeStrip::NoticeStrip() : column_(new QVBoxLayout(this)) {
    setObjectName("notices");
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(4);
    setVisible(false);
}

void NoticeStrip::show(std::string_view title, std::string_view text, Icon icon, std::string_view time) {
    const auto same = std::ranges::find_if(
        notices_, [&](const Notice& known) { return known.title == title && known.text == text; });
    if (same != notices_.end()) {
        ++same->times;
        return write();
    }
    if (notices_.size() == mostShown) dismiss(notices_.front().line);
    add({.title = std::string(title), .text = std::string(text), .since = std::string(time)}, icon);
}

void NoticeStrip::add(Notice notice, Icon icon) {
    const Look look = lookOf(icon);
    notice.line = new QFrame;
    notice.line->setProperty("card", true);
    notice.label = new QLabel;
    notice.label->setWordWrap(true);
    notice.label->setTextFormat(Qt::RichText);
    notice.label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const dismissal = new QPushButton("Dismiss");
    dismissal->setAccessibleName("Dismiss: " + qt(notice.title));
    auto* const row = new QHBoxLayout(notice.line);
    row->setContentsMargins(12, 4, 8, 4);
    row->setSpacing(12);
    row->addWidget(roleLabel(look.role, QString::fromUtf8(look.shape)), 0, Qt::AlignTop);
    row->addWidget(notice.label, 1);
    row->addWidget(dismissal, 0, Qt::AlignTop);
    QFrame* const line = notice.line;
    connect(dismissal, &QPushButton::clicked, this, [this, line] { dismiss(line); });
    column_->addWidget(line);
    notices_.push_back(std::move(notice));
    write();
    setVisible(true);
}

void NoticeStrip::write() const {
    for (const Notice& notice : notices_) {
        QString text = qt(notice.text).toHtmlEscaped();
        text.replace("\r\n", "<br>").replace('\n', "<br>");
        const QString when = notice.times == 1
                                 ? qt(notice.since)
                                 : QString("%1 times since %2").arg(notice.times).arg(qt(notice.since));
        const QString head = QString("<b>%1</b> (%2)").arg(qt(notice.title).toHtmlEscaped(), when);
        const bool whole = &notice == &notices_.back();
        notice.label->setText(head + "  " + (whole ? text : beginningOf(notice.text)));
        notice.label->setToolTip(whole ? QString() : text);
    }
}

void NoticeStrip::over(std::string_view title) {
    while (true) {
        const auto found = std::ranges::find(notices_, title, &Notice::title);
        if (found == notices_.end()) return;
        dismiss(found->line);
    }
}

void NoticeStrip::dismiss(QFrame* line) {
    std::erase_if(notices_, [line](const Notice& notice) { return notice.line == line; });
    line->deleteLater();
    line->hide();
    write();
    setVisible(!notices_.empty());
}

void NoticeStrip::clear() {
    while (!notices_.empty()) dismiss(notices_.front().line);
}

} // namespace tarvik
