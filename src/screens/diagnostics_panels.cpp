#include "screens/diagnostics_panels.h"

#include "base/number_picture.h"
#include "lcu/known_commands.h"
#include "lcu/lcu_models.h"
#include "screens/card.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

namespace tarvik {

namespace {

constexpr double farthestDepth = 83'886; // metres: the depth counter is a signed 24-bit number of centimetres
constexpr std::string_view dataHeadingStart = " Depth";
constexpr const char* frameless = " border: none;";
constexpr int statusRowsShown = 5000;
constexpr int tableRow = 26; // pixels

QFont fixedFont(int points = 10) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSize(points);
    return font;
}

QString fixedStyle(int points) {
    return QString("font-family: 'DejaVu Sans Mono', monospace; font-size: %1pt;").arg(points);
}

QPushButton* button(const char* name, const QString& text, const QString& tip) {
    auto* const made = new QPushButton(text);
    made->setObjectName(name);
    made->setToolTip(tip);
    made->setAutoDefault(false);
    return made;
}

QPlainTextEdit* textArea(const char* name, const QString& accessibleName, const QString& empty) {
    auto* const area = new QPlainTextEdit;
    area->setObjectName(name);
    area->setAccessibleName(accessibleName);
    area->setPlaceholderText(empty);
    area->setReadOnly(true);
    area->setLineWrapMode(QPlainTextEdit::NoWrap);
    area->setStyleSheet(fixedStyle(9));
    return area;
}

QTableWidget* table(const char* name, const QString& accessibleName, const QStringList& headings) {
    auto* const made = new QTableWidget(0, static_cast<int>(headings.size()));
    made->setObjectName(name);
    made->setAccessibleName(accessibleName);
    made->setHorizontalHeaderLabels(headings);
    made->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    made->horizontalHeader()->setHighlightSections(false);
    made->verticalHeader()->hide();
    made->setEditTriggers(QAbstractItemView::NoEditTriggers);
    made->setSelectionBehavior(QAbstractItemView::SelectRows);
    made->setShowGrid(false);
    made->setTabKeyNavigation(false);
    made->horizontalHeader()->setStretchLastSection(true);
    return made;
}

QLayout* row(std::initializer_list<QWidget*> widgets) {
    auto* const line = new QHBoxLayout;
    line->setSpacing(measure::gap);
    for (QWidget* const widget : widgets) line->addWidget(widget);
    return line;
}

void append(QPlainTextEdit& area, const QString& text) {
    QTextCursor end(area.document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
}

QLabel* figure(const char* name) {
    auto* const label = new QLabel;
    label->setObjectName(name);
    label->setStyleSheet(fixedStyle(16));
    return label;
}

} // namespace

// ---- State

DiagnosticsStatePanel::DiagnosticsStatePanel() {
    auto* const cards = new QHBoxLayout(this);
    cards->setContentsMargins(0, 0, 0, 0);
    cards->setSpacing(measure::wide);
    cards->addWidget(linkCard(), 5);
    cards->addWidget(depthCard(), 5);
    cards->addWidget(acquisitionCard(), 3);
}

QWidget* DiagnosticsStatePanel::linkCard() {
    auto* const card = new Card("LCU");
    lcu_ = roleLabel("quiet");
    lcu_->setObjectName("lblcu");
    bits_ = figure("lbstatusbits");
    bits_->setAccessibleName("Status bits, bit 7 first");
    bits_->setToolTip(
        "Bits 7 to 0 of the last status byte.\n1 no block, 2 receiver time-out, 3 checksum error, "
        "6 command error");
    auto* const numbers = figure("lbbitnumbers");
    numbers->setText("7 6 5 4 3 2 1 0");
    setRole(*numbers, "quiet");
    meaning_ = new QLabel;
    meaning_->setObjectName("lbstatusmeaning");
    meaning_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // four errors at once are a long line
    find = button("comfindLCU", "&Find LCU", "Search the serial ports for an LCU");
    reset = button("comreset", "&Reset LCU", "Send X twice and ask for the status");
    auto* const bits = new QVBoxLayout;
    bits->setSpacing(0);
    bits->addWidget(numbers);
    bits->addWidget(bits_);
    clearToSend_ = roleLabel("quiet");
    clearToSend_->setObjectName("lbcleartosend");
    auto* const line = new QHBoxLayout;
    line->addWidget(lcu_, 1);
    line->addWidget(clearToSend_);
    card->body()->addLayout(line);
    card->body()->addLayout(bits);
    card->body()->addWidget(meaning_);
    card->body()->addStretch(1);
    card->body()->addLayout(row({find, reset}));
    return card;
}

QWidget* DiagnosticsStatePanel::depthCard() {
    auto* const card = new Card("Winch");
    depth_ = figure("lbdepth");
    depth_->setAccessibleName("Depth");
    depthToSet = lineEdit("txtinitdepth");
    depthToSet->setPlaceholderText("0.00");
    depthField = new Field("New &depth", depthToSet, "m");
    depthField->setCheck(numberBetween(depthToSet, -farthestDepth, farthestDepth, true));
    setDepth = button("cominitdepth", "Se&t depth", "Set the depth counter of the LCU; the winch must stand");
    winchTest = button("comwinchtest", "RUN Winch test", "Read the depth again and again");
    auto* const fields = new QHBoxLayout;
    fields->setSpacing(measure::gap);
    fields->addWidget(depthField, 1);
    fields->addWidget(setDepth, 0, Qt::AlignBottom);
    card->body()->addWidget(depth_);
    card->body()->addStretch(1);
    card->body()->addLayout(fields);
    card->body()->addWidget(winchTest);
    return card;
}

QWidget* DiagnosticsStatePanel::acquisitionCard() {
    auto* const card = new Card("Data acquisition");
    state_ = new QLabel;
    state_->setObjectName("lbacquisition");
    scan_ = roleLabel("quiet");
    scan_->setObjectName("lbscan");
    stop = button("comstop", "&Stop", "Stop the scan stream, the winch test and what is still to be sent");
    card->body()->addWidget(state_);
    card->body()->addWidget(scan_);
    card->body()->addStretch(1);
    card->body()->addWidget(stop);
    return card;
}

void DiagnosticsStatePanel::show(const DiagnosticsConsole& console, const LinkState& link) {
    lcu_->setText(qt(lcuText(link)));
    bits_->setText(qt(console.statusBits()));
    const bool known = link.open() || console.status() < 1;
    meaning_->setText(qt(known ? statusMeaning(console.status()) : "As it was last: the port is closed"));
    meaning_->setToolTip(meaning_->text());
    clearToSend_->setText(qt(clearToSendText(console.clearToSend())));
    setRole(*meaning_, !link.open() || console.status() < 1 ? "quiet"
                       : modelWithStatus(console.status())  ? "good"
                                                            : "bad");
    depth_->setText(link.open() && console.depth() ? qt(formatPicture(*console.depth(), "###0.00") + " m")
                                                   : "-.-- m");
    winchTest->setText(qt(console.winchTestCaption()));
    state_->setText(console.acquiring() ? "Running" : "Stopped");
    setRole(*state_, console.acquiring() ? "good" : "quiet");
    scan_->setText("Send V to start.");
    if (const auto& scan = console.latestScan(); scan && console.scans() > 0) {
        scan_->setText(qt(std::to_string(console.scans()) + " scans\nTool " + shortestNumber(scan->current) +
                          " mA, " + shortestNumber(scan->voltage) + " V"));
    }
    stop->setEnabled(console.acquiring() || console.winchTestRuns() || console.serving());
}

// ---- Commands

DiagnosticsCommandPanel::DiagnosticsCommandPanel() {
    command = new CommandBox;
    command->setObjectName("txtcommand");
    command->setStyleSheet(fixedStyle(11));
    command->setPlaceholderText("Q");
    batch = new BatchBox;
    batch->setObjectName("txtbatch");
    batch->setStyleSheet(fixedStyle(11));
    batch->setTabChangesFocus(true);
    batch->setMinimumHeight(64);
    batch->setPlaceholderText("X\nQ\nV");
    clear = button("comclear", "C&lear", "Clear the command box");
    send = button("comsend", "S&end batch", "Send these commands one after the other");
    send->setProperty("primary", true);

    auto* const card = new Card("Commands");
    card->body()->addWidget(new Field("Si&ngle command", command, {}, "Enter sends; Up: sent before"));
    card->body()->addWidget(new Field("&Batch", batch, {}, "Enter sends; Shift+Enter: next line"), 1);
    card->body()->addLayout(row({clear, send}));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::wide);
    column->addWidget(card);
    setFixedWidth(264);
}

// ---- Lists

DiagnosticsListPanel::DiagnosticsListPanel() {
    tabs = new QTabWidget;
    tabs->setObjectName("tabs");
    tabs->addTab(dataPage(), "D&ata log");
    tabs->addTab(valuesPage(), "C&hannels");
    tabs->addTab(rawPage(), "Ra&w bytes");
    tabs->addTab(knownPage(), "Co&mmands");
    clearLog = button("comclearlog", "Clear lo&g", "Clear the data log");
    clearLog->setStyleSheet("padding: 2px 12px; min-height: 22px;");
    auto* const corner = new QWidget;
    auto* const inCorner = new QHBoxLayout(corner);
    inCorner->setContentsMargins(0, 0, 0, 4);
    inCorner->addWidget(clearLog);
    tabs->setCornerWidget(corner, Qt::TopRightCorner);
    setTabOrder(tabs->tabBar(), clearLog);

    auto* const split = new QSplitter(Qt::Vertical);
    split->setChildrenCollapsible(false);
    split->addWidget(statusPart());
    split->addWidget(tabs);
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(split);
}

QWidget* DiagnosticsListPanel::dataPage() {
    auto* const page = new QWidget;
    dataHeading_ = textArea("txtdataheading", "Heading of the data log", {});
    dataHeading_->setStyleSheet(fixedStyle(9) + frameless);
    dataHeading_->setFixedHeight(dataHeading_->fontMetrics().height() + measure::gap);
    dataHeading_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    dataHeading_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    dataHeading_->setFocusPolicy(Qt::NoFocus);
    data = textArea("txtdatalog", "Data log", "A line for each scan, once the stream is started with V.");
    data->setStyleSheet(fixedStyle(9) + frameless);
    connect(data->horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { showHeading(); });
    connect(data->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { showHeading(); });
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(dataHeading_);
    column->addWidget(data, 1);
    return page;
}

QWidget* DiagnosticsListPanel::statusPart() {
    auto* const part = new QWidget;
    status = new QListWidget;
    status->setObjectName("lbstatus");
    status->setAccessibleName("Status list");
    status->setStyleSheet(fixedStyle(9));
    status->setUniformItemSizes(true);
    clearStatus = button("comclearstatus", "Clear stat&us", "Clear the status list");
    auto* const heading = new QHBoxLayout;
    heading->addWidget(roleLabel("head", "Status list"), 1);
    heading->addWidget(clearStatus);
    auto* const column = new QVBoxLayout(part);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::gap);
    column->addLayout(heading);
    column->addWidget(status, 1);
    return part;
}

QWidget* DiagnosticsListPanel::valuesPage() {
    auto* const page = new QWidget;
    values = table("tblvalues", "Channel values", {"Channel", "Name", "Raw count", "Value", "Unit"});
    values->verticalHeader()->setDefaultSectionSize(tableRow);
    values->setColumnWidth(0, 80);
    values->setColumnWidth(1, 180);
    values->setColumnWidth(3, 140);
    valuesNote_ = roleLabel("quiet", "No scan has come yet.");
    auto* const column = new QVBoxLayout(page);
    column->addWidget(valuesNote_);
    column->addWidget(values, 1);
    return page;
}

QWidget* DiagnosticsListPanel::rawPage() {
    auto* const page = new QWidget;
    recordRaw = new QCheckBox("Show ever&y byte of the line ( > sent, < received, x discarded )");
    recordRaw->setObjectName("chkrawbytes");
    raw = textArea("txtrawbytes", "Raw bytes", "Tick the box above, then send something.");
    raw->setMaximumBlockCount(static_cast<int>(WireTranscript::linesKept));
    auto* const column = new QVBoxLayout(page);
    column->addWidget(recordRaw);
    column->addWidget(raw, 1);
    return page;
}

QWidget* DiagnosticsListPanel::knownPage() {
    auto* const page = new QWidget;
    known = table("tblcommands", "Known commands", {"Command", "Meaning"});
    for (const KnownCommand& each : knownCommands()) {
        const int at = known->rowCount();
        known->insertRow(at);
        auto* const text = new QTableWidgetItem(qt(each.text));
        text->setFont(fixedFont());
        const QString meaning = qt(each.meaning) + (each.lcu4Only ? " (LCU4 only)" : "");
        auto* const meaningItem = new QTableWidgetItem(meaning);
        meaningItem->setToolTip(meaning);
        known->setItem(at, 0, text);
        known->setItem(at, 1, meaningItem);
    }
    known->setColumnWidth(0, 104);
    known->verticalHeader()->setDefaultSectionSize(tableRow);
    known->setWordWrap(false);
    auto* const column = new QVBoxLayout(page);
    column->addWidget(roleLabel("quiet", "Enter or a double-click puts the command into the box."));
    column->addWidget(known, 1);
    return page;
}

void DiagnosticsListPanel::addStatusLine(std::string_view viewerLine) {
    const StatusLineParts parts = statusLineParts(viewerLine);
    auto* const item = new QListWidgetItem(qt(parts.text));
    const ThemeColours& colours = coloursOf(appliedTheme());
    if (parts.colour == '1') item->setForeground(colours.information);
    if (parts.colour == '2') item->setForeground(colours.bad);
    QFont font = fixedFont(9);
    font.setBold(parts.bold || parts.colour == '2'); // trouble is told by weight, too
    item->setFont(font);
    status->addItem(item);
    if (status->count() > statusRowsShown) delete status->takeItem(0);
    status->scrollToBottom();
}

void DiagnosticsListPanel::addData(std::string_view text) {
    append(*data, qt(text).remove('\r'));
    if (text.starts_with(dataHeadingStart)) headingText_ = qt(text.substr(0, text.find('\r')));
    showHeading();
}

/// While its own line is out of sight.
void DiagnosticsListPanel::showHeading() {
    const QString shown = data->verticalScrollBar()->value() > 0 ? headingText_ : QString();
    if (dataHeading_->toPlainText() != shown) dataHeading_->setPlainText(shown);
    dataHeading_->horizontalScrollBar()->setValue(data->horizontalScrollBar()->value());
}

void DiagnosticsListPanel::clearData() {
    data->clear();
    headingText_.clear();
    showHeading();
}

void DiagnosticsListPanel::showScan(const CurrentTool& tool, const DiagnosticsScan& scan) {
    const std::vector<ChannelRow> rows = channelRows(tool, scan);
    values->setRowCount(static_cast<int>(rows.size()));
    int at = 0;
    for (const ChannelRow& channel : rows) {
        int column = 0;
        for (const std::string& text :
             {std::to_string(channel.channel), channel.name, channel.count, channel.value, channel.unit}) {
            if (values->item(at, column) == nullptr) values->setItem(at, column, new QTableWidgetItem);
            values->item(at, column++)->setText(qt(text));
        }
        ++at;
    }
    const std::string why = whyNoValues(tool, scan);
    valuesNote_->setText(why.empty() ? "Tool " + qt(tool.record.get(tool::code)) : qt(why));
}

void DiagnosticsListPanel::showTranscript(const WireTranscript& transcript) {
    QString grown;
    for (; rawShown_ < transcript.completed(); ++rawShown_) grown += qt(transcript.line(rawShown_)) + "\n";
    if (!grown.isEmpty()) append(*raw, grown);
}

} // namespace tarvik
