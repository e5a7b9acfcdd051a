#include "screens/frm_print.h"

#include "app/start_up.h"
#include "base/failure.h"
#include "base/number_picture.h"
#include "base/text.h"
#include "drawing/plot_file.h"
#include "screens/card.h"
#include "screens/field.h"
#include "screens/option_row.h"
#include "screens/qt_text.h"
#include "screens/styles.h"
#include "screens/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

/// Paper is read with a ruler: whatever the window shows, print begins at a usual scale.
std::string_view nearestLogScale(double scale) {
    const auto farness = [scale](std::string_view text) {
        return std::abs(std::log(scale / scaleFromText(text).value_or(1)));
    };
    return *std::ranges::min_element(logScales, {}, farness);
}

constexpr const char* memoryName = "Print";
constexpr std::size_t mostPreviewed = 60; // every page of a preview is kept in memory
enum IntervalChoice { wholeLog, visibleLog, ownInterval };

QPageSize pageSize(const PrintOrder& order, const PagePlan& plan) {
    if (order.continuous) {
        return QPageSize(QSizeF(plan.width, plan.height), QPageSize::Millimeter, QString(),
                         QPageSize::ExactMatch);
    }
    if (order.paper == "A3") return QPageSize(QPageSize::A3);
    return QPageSize(order.paper == "Letter" ? QPageSize::Letter : QPageSize::A4);
}

} // namespace

LogSheet sheetOf(const PrintSubject& subject, const PrintOrder& order) {
    LogSheet sheet = printSheet(subject.log, subject.display, order);
    if (subject.other != nullptr) compareOnSheet(sheet, subject.log, *subject.other, subject.how);
    return sheet;
}

bool askForPrinter(QPrinter& printer, QWidget* parent) {
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted;
}

QString askForPlotFile(QWidget* parent, const QString& suggested, const QString& filter) {
    return QFileDialog::getSaveFileName(parent, "Save the log", suggested, filter);
}

frmPrint::frmPrint(PrintSubject subject, const PrintModules& modules, QWidget* parent)
    : ScreenDialog("frmPrint", "Print the log", modules.memory, parent),
      subject_(std::move(subject)),
      modules_(modules),
      printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)),
      scale_(new QComboBox),
      from_(lineEdit("txtprintfrom")),
      to_(lineEdit("txtprintto")),
      paper_(new QComboBox),
      heading_(new QCheckBox("Log &heading")),
      spaced_(new QCheckBox("Each curve in a &track of its own")),
      summary_(roleLabel("head")),
      page_(roleLabel("quiet")) {
    setModal(true);
    order_.inches = subject_.inches;
    order_.axis = subject_.axis;
    remember(order_, plain(modules.memory.text(memoryName)));
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::wide);
    row->addWidget(buildForm());
    row->addWidget(buildPreview(), 1);
    body()->addLayout(row, 1);
    buildButtons();
    setMinimumSize(860, 600);
    resize(1080, 710);
    follow();
}

frmPrint::~frmPrint() = default;

QWidget* frmPrint::buildForm() {
    auto* const form = new QWidget;
    form->setFixedWidth(330);
    auto* const column = new QVBoxLayout(form);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(measure::wide);
    buildDepths(*column);
    buildPaper(*column);
    column->addStretch(1);
    summary_->setObjectName("lbprintsummary");
    summary_->setWordWrap(true);
    column->addWidget(summary_);
    return form;
}

void frmPrint::buildDepths(QVBoxLayout& column) {
    auto* const card = new Card(subject_.axis == Axis::depth ? "Depths" : "Times");
    column.addWidget(card);
    scale_->setObjectName("lbprintscale");
    scale_->setEditable(true);
    scale_->setInsertPolicy(QComboBox::NoInsert);
    for (const std::string_view scale : logScales) scale_->addItem(qt(scale));
    scale_->setCurrentText(qt(nearestLogScale(subject_.scale)));
    auto* const scale = new Field("&Scale", scale_);
    scale->setCheck([this] {
        return scaleFromText(plain(scale_->currentText())) ? QString() : QString("1:N, such as 1:200.");
    });
    card->body()->addWidget(scale);
    interval_ = addOptions(*card->body(), "Interval",
                           {{"optwhole", "&Whole"}, {"optvisible", "&On screen"}, {"optown", "&From, to"}});
    interval_->button(wholeLog)->setChecked(true);
    from_->setText(qt(formatPicture(subject_.whole.from / unit(), "0.00")));
    to_->setText(qt(formatPicture(subject_.whole.to / unit(), "0.00")));
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    auto* const from = new Field("From", from_);
    auto* const to = new Field(
        "To", to_, subject_.axis == Axis::depth ? qt(subject_.log.depthUnit()).toLower() : "seconds");
    to->setCheck([this] {
        return qt(intervalProblem(plain(from_->text()), plain(to_->text()), subject_.whole, unit()));
    });
    row->addWidget(from, 2, Qt::AlignTop);
    row->addWidget(to, 3, Qt::AlignTop);
    card->body()->addLayout(row);
    fields_ = {scale, to};
    connect(scale_, &QComboBox::currentTextChanged, this, [this] { follow(); });
    connect(interval_, &QButtonGroup::idClicked, this, [this] { follow(); });
    for (QLineEdit* const edit : {from_, to_}) {
        connect(edit, &QLineEdit::editingFinished, this, [this] { follow(); });
    }
}

void frmPrint::buildPaper(QVBoxLayout& column) {
    auto* const card = new Card("Paper");
    column.addWidget(card);
    paper_->setObjectName("lbprintpaper");
    for (const std::string_view paper : printPapers) paper_->addItem(qt(paper));
    paper_->setCurrentText(qt(order_.paper));
    card->body()->addWidget(new Field("P&aper", paper_));
    orientation_ = addOptions(*card->body(), "Orientation",
                              {{"optportrait", "Po&rtrait"}, {"optlandscape", "&Landscape"}});
    orientation_->button(order_.landscape ? 1 : 0)->setChecked(true);
    feed_ =
        addOptions(*card->body(), "Feed", {{"optpages", "Pa&ges"}, {"optcontinuous", "&Continuous roll"}});
    feed_->button(order_.continuous ? 1 : 0)->setChecked(true);
    heading_->setObjectName("optprintheading");
    heading_->setChecked(order_.heading);
    spaced_->setObjectName("optprintspaced");
    spaced_->setChecked(subject_.equallySpaced);
    card->body()->addWidget(heading_);
    card->body()->addWidget(spaced_);
    connect(paper_, &QComboBox::currentIndexChanged, this, [this] { follow(); });
    for (QButtonGroup* const group : {orientation_, feed_}) {
        connect(group, &QButtonGroup::idClicked, this, [this] { follow(); });
    }
    for (QCheckBox* const box : {heading_, spaced_}) {
        connect(box, &QCheckBox::toggled, this, [this] { follow(); });
    }
}

QWidget* frmPrint::buildPreview() {
    auto* const card = new Card;
    preview_ = new QPrintPreviewWidget(printer_.get());
    preview_->setObjectName("printpreview");
    preview_->setAccessibleName("Preview of the pages");
    if (auto* const pages = preview_->findChild<QGraphicsView*>())
        pages->setAccessibleName("Preview of the pages");
    preview_->fitInView();
    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::gap);
    const auto tool = [&](const char* name, const QString& text, const QString& tip, auto act) {
        auto* const button = new QToolButton;
        button->setObjectName(name);
        button->setText(text);
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        button->setMinimumSize(34, 30);
        connect(button, &QToolButton::clicked, this, act);
        row->addWidget(button);
    };
    tool("comprevious", "\u25c0", "Page before", [this] {
        preview_->setCurrentPage(std::max(1, preview_->currentPage() - 1));
        showPage();
    });
    row->addWidget(page_);
    tool("comnext", "\u25b6", "Next page", [this] {
        preview_->setCurrentPage(std::min(preview_->pageCount(), preview_->currentPage() + 1));
        showPage();
    });
    row->addStretch(1);
    tool("comfitpage", "Page", "The whole page", [this] { preview_->fitInView(); });
    tool("comfitwidth", "Width", "As wide as the preview", [this] { preview_->fitToWidth(); });
    tool("comzoomin", "+", "Nearer", [this] { preview_->zoomIn(); });
    tool("comzoomout", "\u2212", "Further away", [this] { preview_->zoomOut(); });
    page_->setObjectName("lbprintpage");
    card->body()->addLayout(row);
    card->body()->addWidget(preview_, 1);
    connect(preview_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
        paintPages(*printer, 0, std::min(plan_.pages.size(), mostPreviewed));
    });
    connect(preview_, &QPrintPreviewWidget::previewChanged, this, [this] { showPage(); });
    return card;
}

void frmPrint::buildButtons() {
    connect(addSideButton("comsavepdf", "Save as P&DF\u2026"), &QPushButton::clicked, this,
            [this] { save(".pdf", "PDF (*.pdf)"); });
    connect(addSideButton("comsavepicture", "Save pict&ure\u2026"), &QPushButton::clicked, this,
            [this] { save(".png", "Picture (*.png);;Drawing (*.svg)"); });
    connect(addButton("comclose", "Close"), &QPushButton::clicked, this, [this] { reject(); });
    connect(addPrimaryButton("comprint", "&Print\u2026"), &QPushButton::clicked, this, [this] { print(); });
}

bool frmPrint::allRight() {
    const bool own = interval_->checkedId() == ownInterval;
    from_->setEnabled(own);
    to_->setEnabled(own);
    return fields_[0]->validate() && (!own || fields_[1]->validate());
}

Extent frmPrint::chosenInterval() const {
    if (interval_->checkedId() == wholeLog) return subject_.whole;
    if (interval_->checkedId() == visibleLog) return subject_.visible;
    return {parseNumber(plain(from_->text())).value_or(0) * unit(),
            parseNumber(plain(to_->text())).value_or(0) * unit()};
}

double frmPrint::unit() const {
    return subject_.axis == Axis::depth ? toMetres(1, subject_.log.header.setup.units) : 1;
}

void frmPrint::follow() {
    if (!allRight()) return;
    order_.scale = scaleFromText(plain(scale_->currentText())).value_or(order_.scale);
    order_.interval = chosenInterval();
    order_.paper = plain(paper_->currentText());
    order_.landscape = orientation_->checkedId() == 1;
    order_.continuous = feed_->checkedId() == 1;
    order_.heading = heading_->isChecked();
    order_.equallySpaced = spaced_->isChecked();
    sheet_ = sheetOf(subject_, order_);
    plan_ = planOf(sheet_, paperOf(order_));
    summary_->setText(qt(printSummary(order_, plan_)));
    preparePrinter(*printer_);
    order_.continuous ? preview_->fitToWidth() : preview_->fitInView();
    preview_->updatePreview();
}

void frmPrint::showPage() {
    QString text = QString("Page %1 of %2").arg(preview_->currentPage()).arg(plan_.pages.size());
    if (plan_.pages.size() > mostPreviewed) text += QString(", the first %1 are shown").arg(mostPreviewed);
    page_->setText(text);
}

/// Margins are the plan's own: the painter has the whole page, so that a millimetre stays one.
void frmPrint::preparePrinter(QPrinter& printer) const {
    printer.setFullPage(true);
    printer.setPageSize(pageSize(order_, plan_));
    printer.setPageOrientation(order_.landscape && !order_.continuous ? QPageLayout::Landscape
                                                                      : QPageLayout::Portrait);
    printer.setPageMargins(QMarginsF(0, 0, 0, 0));
    printer.setDocName(qt(subject_.file.filename().string()));
    printer.setCreator("Tarvik");
}

void frmPrint::paintPages(QPrinter& printer, std::size_t first, std::size_t last) {
    QPainter painter;
    if (!painter.begin(&printer)) {
        return modules_.operatorSide.message("Print", "The printer does not take the print.",
                                             Icon::exclamation);
    }
    for (std::size_t page = first; page < last; ++page) {
        if (page > first) printer.newPage();
        painter_.paint(painter, sheet_, plan_, page, printer.resolution() / millimetresPerInch, true);
    }
}

void frmPrint::print() {
    if (!allRight()) return;
    if (const std::string problem = planProblem(plan_); !problem.empty())
        return modules_.operatorSide.message("Print", problem + ".", Icon::exclamation);
    QPrinter printer(QPrinter::HighResolution);
    preparePrinter(printer);
    if (!modules_.choosePrinter(printer, this)) return;
    preparePrinter(printer); // the toolkit's dialog may have put paper and margins of its own
    const std::size_t pages = plan_.pages.size();
    const auto from = static_cast<std::size_t>(std::max(1, printer.fromPage()));
    const auto to = printer.toPage() > 0 ? static_cast<std::size_t>(printer.toPage()) : pages;
    paintPages(printer, std::min(from, pages) - 1, std::clamp(to, std::min(from, pages), pages));
    memory().keepText(memoryName, qt(rememberedText(order_)));
    accept();
}

void frmPrint::save(const QString& ending, const QString& filter) {
    if (!allRight()) return;
    const Path suggested = Path(subject_.file).replace_extension(plain(ending));
    const QString chosen = modules_.chooseFile(this, qt(suggested.string()), filter);
    if (chosen.isEmpty()) return;
    Path file = plain(chosen);
    if (!file.has_extension()) file += plain(ending);
    try {
        writePlot(sheet_, {file, paperOf(order_), 150});
        memory().keepText(memoryName, qt(rememberedText(order_)));
        summary_->setText("Written: " + qt(file.string()));
    } catch (const Failure& failure) {
        modules_.operatorSide.message("Print", failure.what(), Icon::exclamation);
    }
}

} // namespace tarvik
