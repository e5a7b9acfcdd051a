#include "screens/frm_diagnostics.h"

#include "base/text.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include <utility>

namespace tarvik {

namespace {

constexpr int pulseMs = 100;
constexpr int titleBar = 40; ///< room for the frame of the window, pixels
constexpr const char* knownColumns = "frmDiagnostics-commands";
constexpr const char* valueColumns = "frmDiagnostics-values";

/// Shrinks to its least height before it is scrolled, although some of its labels wrap.
class Content final : public QWidget {
  public:
    [[nodiscard]] int heightForWidth(int) const override { return minimumSizeHint().height(); }
};

Path askForFile(QWidget* parent) {
    return plain(QFileDialog::getSaveFileName(parent, "Save lists", "diagnostics.txt", "Text files (*.txt)"));
}

} // namespace

frmDiagnostics::frmDiagnostics(const DiagnosticsModules& modules, TapPort& tap, Files& files,
                               DesktopMemory& memory, QWidget* parent, ChooseFile chooseFile)
    : ScreenDialog("frmDiagnostics", "Diagnostics console", memory, parent),
      modules_(modules),
      tap_(tap),
      files_(files),
      chooseFile_(chooseFile ? std::move(chooseFile) : [this] { return askForFile(this); }),
      transcript_(modules.clock),
      state_(new DiagnosticsStatePanel),
      commands_(new DiagnosticsCommandPanel),
      lists_(new DiagnosticsListPanel),
      console_(modules, *this) {
    addContent();
    connectState();
    connectCommands();
    connectLists();
    connect(addSideButton("comsave", "Sa&ve lists…"), &QPushButton::clicked, this, [this] { save(); });
    connect(addButton("cmdclose", "&Close"), &QPushButton::clicked, this, [this] { reject(); });
    connect(&pulse_, &QTimer::timeout, this, [this] { pulse(); });
    memory.restoreColumns(*lists_->known->horizontalHeader(), knownColumns);
    memory.restoreColumns(*lists_->values->horizontalHeader(), valueColumns);
    resize(QSize(1080, 720).boundedTo(screen()->availableSize() - QSize(0, titleBar)));
    commands_->command->setFocus();
}

/// On a display too low for all of it the content scrolls.
void frmDiagnostics::addContent() {
    auto* const content = new Content;
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(measure::wide);
    columns->addWidget(commands_);
    columns->addWidget(lists_, 1);
    auto* const rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(measure::wide);
    rows->addWidget(state_);
    rows->addLayout(columns, 1);
    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    body()->addWidget(area, 1);
}

frmDiagnostics::~frmDiagnostics() {
    console_.close();
    tap_.listen(nullptr);
}

void frmDiagnostics::connectState() {
    connect(state_->find, &QPushButton::clicked, this, [this] { console_.comfindLCU(); });
    connect(state_->reset, &QPushButton::clicked, this, [this] { console_.comreset(); });
    connect(state_->winchTest, &QPushButton::clicked, this, [this] { console_.comwinchtest(); });
    connect(state_->stop, &QPushButton::clicked, this, [this] { console_.stop(); });
    connect(state_->setDepth, &QPushButton::clicked, this, [this] { setDepth(); });
    connect(state_->depthToSet, &QLineEdit::returnPressed, this, [this] { setDepth(); });
}

void frmDiagnostics::connectCommands() {
    commands_->command->whenSent([this](const std::string& command) { console_.send(command); });
    commands_->batch->whenSent([this] { sendBatch(); });
    connect(commands_->send, &QPushButton::clicked, this, [this] { sendBatch(); });
    connect(commands_->clear, &QPushButton::clicked, commands_->batch, &QPlainTextEdit::clear);
    connect(lists_->known, &QTableWidget::cellActivated, this, [this](int row) {
        commands_->command->setText(lists_->known->item(row, 0)->text());
        commands_->command->setFocus();
    });
}

void frmDiagnostics::connectLists() {
    connect(lists_->clearStatus, &QPushButton::clicked, this, [this] { console_.comclearstatus(); });
    connect(lists_->clearLog, &QPushButton::clicked, this, [this] {
        console_.comclearlog();
        lists_->clearData();
    });
    connect(lists_->tabs, &QTabWidget::currentChanged, this, [this] { changed(); });
    connect(lists_->recordRaw, &QCheckBox::toggled, this, [this](bool on) { recordRaw(on); });
}

void frmDiagnostics::showEvent(QShowEvent* event) {
    ScreenDialog::showEvent(event);
    console_.open();
    pulse_.start(pulseMs);
}

void frmDiagnostics::done(int result) {
    if (console_.serving()) {
        closing_ = true;
        console_.stop();
        return;
    }
    pulse_.stop();
    console_.close();
    tap_.listen(nullptr);
    memory().keepColumns(*lists_->known->horizontalHeader(), knownColumns);
    memory().keepColumns(*lists_->values->horizontalHeader(), valueColumns);
    ScreenDialog::done(result);
}

void frmDiagnostics::changed() {
    state_->show(console_, modules_.link);
    if (const auto& scan = console_.latestScan(); scan && lists_->values->isVisible())
        lists_->showScan(modules_.equipment.currentTool(), *scan);
}

void frmDiagnostics::setDepth() {
    const auto metres = parseNumber(plain(state_->depthToSet->text()));
    if (!state_->depthField->validate() || !metres) return state_->depthToSet->setFocus();
    console_.cominitdepth(*metres);
}

void frmDiagnostics::sendBatch() {
    console_.send(plain(commands_->batch->toPlainText()));
}

void frmDiagnostics::recordRaw(bool on) {
    tap_.listen(on ? &transcript_ : nullptr);
}

void frmDiagnostics::save() {
    const Path file = chooseFile_();
    if (file.empty()) return;
    modules_.errors.runIn("frmDiagnostics", "comsave_Click", false, [&](Level&) {
        const std::string lists = savedLists(console_, transcript_);
        files_.replace(file, asBytes(lists));
        modules_.log.black("Lists saved to " + file.string());
        return true;
    });
}

void frmDiagnostics::pulse() {
    transcript_.settle(modules_.clock.tickMicros());
    lists_->showTranscript(transcript_);
    if (closing_ && !console_.serving()) return reject();
    console_.tick();
}

} // namespace tarvik
