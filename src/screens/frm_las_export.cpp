#include "screens/frm_las_export.h"

#include "base/number_picture.h"
#include "base/text.h"
#include "processing/las_data.h"
#include "processing/las_form.h"
#include "processing/las_text.h"
#include "screens/card.h"
#include "screens/field.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>

#include <algorithm>

namespace tarvik {

namespace {

enum Column { nameColumn, unitColumn, valuesColumn, filterColumn };

constexpr int leastDecimals = 2;
constexpr int mostDecimals = 5;
constexpr double deepest = 1e6;
constexpr const char* stepHint = "Empty: as logged.";

QComboBox* filterList(const QString& channel) {
    auto* const list = new QComboBox;
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    list->addItems({"None", "3", "5", "7", "9", "11", "15", "21"});
    list->setAccessibleName("Filter of " + channel + ", points");
    list->setToolTip("None, or over how many points the channel is smoothed");
    return list;
}

QString depthUnit(const ReviewLog& log) {
    return log.otherDepthUnit ? qt(*log.otherDepthUnit) : qt(lasDepthUnit(log.header.setup.units)).toLower();
}

/// Beside the file in review, and never that file itself.
Path suggestedName(const Path& file, const Files& files) {
    const Path name = Path(file).replace_extension(".las");
    if (!files.same(name, file)) return name;
    return Path(file).replace_filename(file.stem().string() + "_export.las");
}

} // namespace

QString askForLasFile(QWidget* parent, const QString& suggested) {
    return QFileDialog::getSaveFileName(parent, "Write LAS file", suggested, "LAS files (*.las)", nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}

frmLASexport::frmLASexport(const ReviewLog& log, const Path& file, const LasExportOptions& options,
                           const LasScreenModules& modules, QWidget* parent)
    : ScreenDialog("frmLASexport", "Export as LAS", modules.memory, parent),
      log_(log),
      options_(options),
      modules_(modules),
      file_(lineEdit("txtfile", qt(suggestedName(file, modules.files).string()))),
      decimals_(new QComboBox),
      channels_(new QTableWidget(0, 4)),
      channelsProblem_(roleLabel("bad")),
      list_(new QListWidget),
      progress_(new QProgressBar),
      form_(new QWidget) {
    setModal(true);
    options_.source = file;
    auto* const grid = new QGridLayout(form_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(measure::wide);
    grid->addWidget(buildInterval(), 0, 0);
    grid->addWidget(buildData(), 1, 0);
    grid->addWidget(buildChannels(), 0, 1, 2, 1);
    grid->setColumnStretch(0, 4);
    grid->setColumnStretch(1, 5);
    grid->setRowStretch(1, 1);
    body()->addWidget(form_, 1);
    fillChannels(); // before what follows it at the Tab key
    body()->addWidget(buildFile());
    buildButtons();
    setMinimumSize(860, 620);
    resize(1040, 720);
}

Field* frmLASexport::numberField(QLineEdit*& edit, const char* name, const QString& title,
                                 const QString& text, const QString& hint) {
    edit = lineEdit(name, text);
    edit->setAlignment(Qt::AlignRight);
    auto* const field = new Field(title, edit, {}, hint);
    fields_.push_back(field);
    return field;
}

QWidget* frmLASexport::buildInterval() {
    auto* const card = new Card("Interval");
    const auto text = [](const std::optional<double>& depth) {
        return depth ? qt(shortestNumber(*depth)) : QString();
    };
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::wide);
    row->addWidget(numberField(start_, "txtstart", "Start", text(options_.start), endHint(true)), 1,
                   Qt::AlignTop);
    row->addWidget(numberField(stop_, "txtstop", "Stop", text(options_.stop), endHint(false)), 1,
                   Qt::AlignTop);
    fields_[0]->setCheck(numberBetween(start_, -deepest, deepest, true));
    fields_[1]->setCheck([this, number = numberBetween(stop_, -deepest, deepest, true)] {
        const QString problem = number();
        const bool othersRight = lasStepProblem(plain(step_->text())).empty() &&
                                 numberBetween(start_, -deepest, deepest, true)().isEmpty();
        return problem.isEmpty() && othersRight ? qt(lasDepthsProblem(log_, entered())) : problem;
    });
    Field* const step = numberField(step_, "txtstep", "Step", text(options_.step), stepHint);
    step->setCheck([this] { return qt(lasStepProblem(plain(step_->text()))); });
    connect(step_, &QLineEdit::textChanged, this, [this, step] {
        const std::string warning = lasStepWarning(plain(step_->text()));
        step->setHint(warning.empty() ? stepHint : "\u25b2 " + qt(warning));
    });
    for (Field* const field : fields_) field->setUnit(depthUnit(log_));
    card->body()->addLayout(row);
    card->body()->addWidget(step);
    card->body()->addStretch(1);
    return card;
}

/// What an empty start or stop means.
QString frmLASexport::endHint(bool start) const {
    if (log_.depth.empty()) return "The run holds no depth steps.";
    const auto [first, last] = std::ranges::minmax(log_.depth);
    return QString(start ? "Empty: from " : "Empty: to ") +
           qt(formatPicture(start ? first : last, "###0.00"));
}

QWidget* frmLASexport::buildData() {
    auto* const card = new Card("Data and header");
    decimals_->setObjectName("lbdecimals");
    for (int decimals = leastDecimals; decimals <= mostDecimals; ++decimals) {
        decimals_->addItem(QString::number(decimals));
    }
    decimals_->setCurrentIndex(std::clamp(options_.decimals, leastDecimals, mostDecimals) - leastDecimals);
    Field* const null = numberField(null_, "txtnull", "Null value", qt(options_.nullText), {});
    null->setCheck([this] { return parseNumber(plain(null_->text())) ? QString() : "A number."; });
    Field* const azimuth =
        numberField(azimuth_, "txtazimuth", "Hole azimuth", qt(options_.holeAzimuth), "May stay empty.");
    Field* const inclination = numberField(inclination_, "txtinclination", "Hole inclination",
                                           qt(options_.holeInclination), "May stay empty.");
    azimuth->setCheck(numberBetween(azimuth_, -360, 360, true));
    inclination->setCheck(numberBetween(inclination_, -180, 180, true));
    for (Field* const field : {azimuth, inclination}) field->setUnit("degrees");
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(measure::wide);
    grid->setVerticalSpacing(12);
    grid->addWidget(null, 0, 0, Qt::AlignTop);
    grid->addWidget(new Field("Decimals", decimals_), 0, 1, Qt::AlignTop);
    grid->addWidget(azimuth, 1, 0);
    grid->addWidget(inclination, 1, 1);
    card->body()->addLayout(grid);
    card->body()->addStretch(1);
    return card;
}

QWidget* frmLASexport::buildChannels() {
    auto* const card = new Card("Channels");
    channels_->setObjectName("channels");
    channels_->setAccessibleName("Channels to be exported");
    channels_->setHorizontalHeaderLabels({"Channel", "Unit", "Values", "Filter, points"});
    channels_->verticalHeader()->hide();
    channels_->verticalHeader()->setDefaultSectionSize(36);
    channels_->setShowGrid(false);
    channels_->setSelectionMode(QAbstractItemView::NoSelection);
    channels_->setTabKeyNavigation(false);
    channels_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    channels_->horizontalHeader()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    channels_->horizontalHeader()->setMinimumSectionSize(96); // a narrow window scrolls the table instead
    channels_->setColumnWidth(filterColumn, 130);
    channels_->setStyleSheet("QHeaderView::section { padding: 6px 4px; }"); // heads begin where cells begin
    channels_->setMinimumHeight(160);
    channelsProblem_->setObjectName("lbchannelsproblem");
    channelsProblem_->setWordWrap(true);
    channelsProblem_->hide();
    card->body()->addWidget(channels_, 1);
    card->body()->addWidget(channelsProblem_);
    return card;
}

QWidget* frmLASexport::buildFile() {
    auto* const card = new Card;
    auto* const field = new Field("LAS file", file_);
    field->setCheck([this]() -> QString {
        const std::string name(trimmed(plain(file_->text())));
        if (name.empty()) return "Name the file to write.";
        if (!modules_.files.same(fileToWrite(), options_.source)) return {};
        return "This is the file in review: choose another name.";
    });
    fields_.push_back(field);
    auto* const choose = new QPushButton("&Browse\u2026");
    choose->setObjectName("combrowse");
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, [this] {
        const QString chosen = modules_.chooseFile(this, file_->text());
        if (!chosen.isEmpty()) file_->setText(chosen);
    });
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    row->addWidget(field, 1);
    row->addWidget(choose, 0, Qt::AlignBottom);
    list_->setObjectName("lbexport");
    list_->setAccessibleName("Progress of the export");
    list_->setFixedHeight(76);
    list_->hide(); // until there is something to say
    list_->setSelectionMode(QAbstractItemView::NoSelection);
    progress_->setObjectName("exportprogress");
    progress_->setAccessibleName("Share of the data lines written");
    progress_->setRange(0, 100);
    progress_->hide();
    card->body()->addLayout(row);
    card->body()->addWidget(list_);
    card->body()->addWidget(progress_);
    return card;
}

void frmLASexport::buildButtons() {
    close_ = addButton("comclose", "Close");
    export_ = addPrimaryButton("comexport", "Write LAS file");
    connect(close_, &QPushButton::clicked, this, [this] { reject(); });
    connect(export_, &QPushButton::clicked, this, [this] { startExport(); });
}

void frmLASexport::fillChannels() {
    for (const ReviewChannel& channel : log_.channels) addChannel(channel, true);
    if (!log_.time.empty()) addChannel({"TIME", "seconds", true, {}}, false);
    for (const ReviewChannel* channel : {&log_.current, &log_.voltage, &log_.marker}) {
        if (!channel->values.empty()) addChannel(*channel, false);
    }
}

void frmLASexport::addChannel(const ReviewChannel& channel, bool recorded) {
    const int row = channels_->rowCount();
    const QString name = qt(trimmed(channel.name));
    channels_->insertRow(row);
    auto* const box = new QCheckBox(QString(name).replace('&', "&&"));
    box->setChecked(recorded);
    box->setStyleSheet("QCheckBox { margin-left: 4px; }");
    channels_->setCellWidget(row, nameColumn, box);
    int column = unitColumn;
    const char* const values = log_.las ? "not said" : channel.calibrated ? "calibrated" : "\u25b2 counts";
    for (const QString& text : {qt(channel.unit), QString(values)}) {
        auto* const item = new QTableWidgetItem(text);
        item->setFlags(Qt::ItemIsEnabled);
        channels_->setItem(row, column++, item);
    }
    channels_->setCellWidget(row, filterColumn, filterList(name));
}

LasExportOptions frmLASexport::entered() const {
    LasExportOptions options = options_;
    options.start = parseNumber(plain(start_->text()));
    options.stop = parseNumber(plain(stop_->text()));
    options.step = parseNumber(plain(step_->text()));
    options.nullText = trimmed(plain(null_->text()));
    options.decimals = decimals_->currentIndex() + leastDecimals;
    options.holeAzimuth = trimmed(plain(azimuth_->text()));
    options.holeInclination = trimmed(plain(inclination_->text()));
    options.channels.clear();
    options.filters.clear();
    for (int row = 0; row < channels_->rowCount(); ++row) {
        const auto* const box = static_cast<QCheckBox*>(channels_->cellWidget(row, nameColumn));
        if (!box->isChecked()) continue;
        const auto* const filter = static_cast<QComboBox*>(channels_->cellWidget(row, filterColumn));
        options.channels.push_back(plain(box->text().replace("&&", "&")));
        options.filters.push_back({options.channels.back(), plain(filter->currentText().trimmed())});
    }
    return options;
}

void frmLASexport::startExport() {
    const LasExportOptions options = entered();
    const QString problem = qt(lasChannelsProblem(options));
    channelsProblem_->setText(problem);
    channelsProblem_->setVisible(!problem.isEmpty());
    if (!validateAll(fields_) || !problem.isEmpty()) return;
    const Path file = fileToWrite();
    const bool replace = modules_.files.exists(file);
    if (replace && modules_.operatorSide.ask("Export as LAS", file.string() + " exists. Write over it?",
                                             Icon::question) == Answer::no) {
        return;
    }
    runExport(file);
}

/// A bare name goes beside the file in review, and a file without an ending would not be found again.
Path frmLASexport::fileToWrite() const {
    Path file = options_.source.parent_path() / plain(file_->text().trimmed());
    if (!file.has_extension()) file.replace_extension(".las");
    return file;
}

void frmLASexport::runExport(const Path& file) {
    list_->clear();
    list_->show();
    progress_->setValue(0);
    progress_->show();
    cancelled_ = false;
    setBusy(true);
    const auto say = [this](std::string_view line) {
        list_->addItem(qt(line));
        list_->scrollToBottom();
        QApplication::processEvents();
    };
    const bool done = modules_.lasExport.Logprintexport_exportLASfile(
        log_, file, entered(), say, [this](int percent) { return exportGoesOn(percent); });
    setBusy(false);
    if (done) {
        progress_->setValue(100);
        modules_.log.black("LAS file written : " + file.string() + " from " +
                           options_.source.filename().string());
    }
    say(done         ? "Written: " + file.string()
        : cancelled_ ? std::string("Cancelled: nothing was written")
                     : std::string("The export failed; the error log says why"));
}

bool frmLASexport::exportGoesOn(int percent) {
    progress_->setValue(percent);
    QApplication::processEvents();
    return !cancelled_;
}

void frmLASexport::setBusy(bool busy) {
    busy_ = busy;
    form_->setEnabled(!busy);
    file_->setEnabled(!busy);
    export_->setEnabled(!busy);
    close_->setText(busy ? "Cancel export" : "Close");
}

void frmLASexport::reject() {
    if (busy_)
        cancelled_ = true;
    else
        ScreenDialog::reject();
}

} // namespace tarvik
