// The run in review written as a LAS file: interval, step, channels with their filters, and the list of what
// is being done.
#pragma once

#include "app/operator_side.h"
#include "app/status_log.h"
#include "processing/las_export.h"
#include "screens/screen_dialog.h"

#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QTableWidget;

namespace tarvik {

class Field;

struct LasScreenModules {
    LasExport& lasExport;
    const Files& files;
    OperatorSide& operatorSide;
    StatusLog& log;
    DesktopMemory& memory;
    /// Asks for the name of the file to write, starting from the one given; empty when it was not chosen.
    std::function<QString(QWidget* parent, const QString& suggested)> chooseFile;
};

/// The toolkit's own file dialog.
[[nodiscard]] QString askForLasFile(QWidget* parent, const QString& suggested);

class frmLASexport final : public ScreenDialog {
  public:
    /// `log` outlives the dialog; `file` is where it came from, `options` what the form starts with.
    frmLASexport(const ReviewLog& log, const Path& file, const LasExportOptions& options,
                 const LasScreenModules& modules, QWidget* parent = nullptr);

    /// During an export the same as the button "Cancel export".
    void reject() override;

  private:
    [[nodiscard]] QWidget* buildInterval();
    [[nodiscard]] QWidget* buildData();
    [[nodiscard]] QWidget* buildChannels();
    [[nodiscard]] QWidget* buildFile();
    void buildButtons();
    void fillChannels();
    void addChannel(const ReviewChannel& channel, bool recorded);
    Field* numberField(QLineEdit*& edit, const char* name, const QString& title, const QString& text,
                       const QString& hint);
    [[nodiscard]] QString endHint(bool start) const;
    [[nodiscard]] LasExportOptions entered() const;
    void startExport();
    void runExport(const Path& file);
    [[nodiscard]] Path fileToWrite() const;
    bool exportGoesOn(int percent);
    void setBusy(bool busy);

    const ReviewLog& log_;
    LasExportOptions options_;
    LasScreenModules modules_;
    std::vector<Field*> fields_;
    QLineEdit* start_ = nullptr;
    QLineEdit* stop_ = nullptr;
    QLineEdit* step_ = nullptr;
    QLineEdit* null_ = nullptr;
    QLineEdit* azimuth_ = nullptr;
    QLineEdit* inclination_ = nullptr;
    QLineEdit* file_;
    QComboBox* decimals_;
    QTableWidget* channels_;
    QLabel* channelsProblem_;
    QListWidget* list_;
    QProgressBar* progress_;
    QPushButton* close_ = nullptr;
    QPushButton* export_ = nullptr;
    QWidget* form_;
    bool busy_ = false;
    bool cancelled_ = false;
};

} // namespace tarvik
