#include "screens/intro_screen.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

namespace {

constexpr int notesWidth = 248;    // pixels, beside the logs
constexpr int roomForNotes = 1060; // for the side frame, the logs and the notes

/// Takes the height that there is: a notice that wraps makes the logs shorter, never the window taller than
/// the display.
class MiddleOfScreen final : public QWidget {
  public:
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }
};

} // namespace

IntroScreen::IntroScreen(IntroScreenActions actions, const Files& files)
    : actions_(std::move(actions)),
      bars_(*this, actions_.toolClick),
      status_(*statusBar(), actions_.cancelSearch),
      side_(new SideFrame(actions_.run, actions_.demo, actions_.review)),
      notices_(new NoticeStrip),
      logs_(new LogArea),
      review_(new QTabWidget),
      picture_(new LogPicture),
      values_(new ValueTable),
      live_(new LiveDisplay),
      notes_(new NotesPanel(files)) {
    setObjectName("IntroScreen");
    setWindowTitle("Tarvik");
    review_->setDocumentMode(true);
    review_->setUsesScrollButtons(false); // two tabs have room
    review_->addTab(picture_, "Lo&gs");
    review_->addTab(values_, "&Values");
    review_->setFocusProxy(picture_);
    live_->setFocusProxy(&live_->plot());
    logs_->addPage(review_);
    logs_->addPage(live_);
    auto* const middle = new MiddleOfScreen;
    auto* const row = new QHBoxLayout(middle);
    row->setContentsMargins(8, 8, 8, 8);
    row->setSpacing(8);
    row->addWidget(side_);
    auto* const right = new QVBoxLayout;
    right->setSpacing(8);
    right->addWidget(notices_);
    right->addWidget(logs_, 1);
    row->addLayout(right, 1);
    row->addWidget(notes_);
    setCentralWidget(middle);
    logs_->whenTurned([this] { shareRoom(); });
}

void IntroScreen::showNotes(bool shown) {
    notesShown_ = shown;
    shareRoom();
    if (!logs_->isVisible()) notes_->setFocus();
}

/// What goes gives its room first: for a moment of both the window would grow.
void IntroScreen::shareRoom() {
    const bool both = width() >= roomForNotes;
    const bool run = logs_->shows(live_);
    const bool notes = notesShown_ && (both || !run);
    const bool logs = both || run || !notesShown_;
    if (!notes) notes_->hide();
    logs_->setVisible(logs);
    notes_->setMaximumWidth(logs ? notesWidth : QWIDGETSIZE_MAX);
    auto* const row = static_cast<QHBoxLayout*>(centralWidget()->layout());
    row->setStretchFactor(notes_, logs ? 0 : 1000); // all that the logs leave
    if (notes) notes_->show();
}

void IntroScreen::handFocusOn() {
    const QWidget* const holder = focusWidget();
    if (holder == nullptr || holder == &bars_.scales() || !holder->isVisible()) logs_->takeFocus();
}

void IntroScreen::unload() {
    unloading_ = true;
    close();
}

void IntroScreen::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    bars_.fit(width());
    side_->fit(height());
    status_.fit();
    shareRoom();
}

void IntroScreen::closeEvent(QCloseEvent* event) {
    if (unloading_) return event->accept();
    event->ignore();
    actions_.closeRequested();
}

} // namespace tarvik
