// Printing the log under review: how, on which paper, and what it will look like. Also as a PDF or a picture.
#pragma once

#include "app/operator_side.h"
#include "drawing/print_sheet.h"
#include "platform/files.h"
#include "screens/screen_dialog.h"

#include <functional>
#include <memory>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QPrintPreviewWidget;
class QToolButton;

namespace tarvik {

class Field;

struct PrintModules {
    OperatorSide& operatorSide;
    DesktopMemory& memory;
    /// Asks for a printer; false when none was chosen.
    std::function<bool(QPrinter& printer, QWidget* parent)> choosePrinter;
    /// Asks for the file to write, starting from the one given; empty when it was not chosen.
    std::function<QString(QWidget* parent, const QString& suggested, const QString& filter)> chooseFile;
};

/// The toolkit's own dialogs.
[[nodiscard]] bool askForPrinter(QPrinter& printer, QWidget* parent);
[[nodiscard]] QString askForPlotFile(QWidget* parent, const QString& suggested, const QString& filter);

/// Tells of what is printed; the logs outlive the dialog.
struct PrintSubject {
    const ReviewLog& log;
    Path file;
    LogDisplay display;
    Axis axis = Axis::depth;
    double scale = 200;
    bool equallySpaced = false;
    bool inches = true;               ///< as in PrintOrder
    Extent whole;                     ///< metres or seconds
    Extent visible;                   ///< what the screen shows of it
    const ReviewLog* other = nullptr; ///< a second run, and how it is shown with the first
    Comparison how = Comparison::over;
};
[[nodiscard]] LogSheet sheetOf(const PrintSubject& subject, const PrintOrder& order);

class frmPrint final : public ScreenDialog {
  public:
    frmPrint(PrintSubject subject, const PrintModules& modules, QWidget* parent = nullptr);
    ~frmPrint() override;

  private:
    [[nodiscard]] QWidget* buildForm();
    void buildDepths(QVBoxLayout& column);
    void buildPaper(QVBoxLayout& column);
    [[nodiscard]] QWidget* buildPreview();
    void buildButtons();
    [[nodiscard]] bool allRight();
    [[nodiscard]] Extent chosenInterval() const;
    /// Metres or seconds to one of the numbers in the form.
    [[nodiscard]] double unit() const;
    /// The form has changed: the order, the plan and the preview follow, unless a field is wrong.
    void follow();
    void showPage();
    void preparePrinter(QPrinter& printer) const;
    void paintPages(QPrinter& printer, std::size_t first, std::size_t last);
    void print();
    void save(const QString& ending, const QString& filter);

    PrintSubject subject_;
    PrintModules modules_;
    PrintOrder order_;
    LogSheet sheet_;
    PagePlan plan_;
    PagePainter painter_;
    std::unique_ptr<QPrinter> printer_;
    std::vector<Field*> fields_;
    QComboBox* scale_;
    QButtonGroup* interval_ = nullptr;
    QLineEdit* from_;
    QLineEdit* to_;
    QComboBox* paper_;
    QButtonGroup* orientation_ = nullptr;
    QButtonGroup* feed_ = nullptr;
    QCheckBox* heading_;
    QCheckBox* spaced_;
    QLabel* summary_;
    QLabel* page_;
    QPrintPreviewWidget* preview_ = nullptr;
};

} // namespace tarvik
