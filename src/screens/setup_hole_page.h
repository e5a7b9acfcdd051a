// Setup, page 1: the holes of the project, and the header texts of the hole to be logged. Sub-page 0 has the
// hole's own texts, 1 casing and fluid.
#pragma once

#include "app/projects.h"
#include "files/hole_fields.h"
#include "screens/filter_table.h"
#include "screens/setup_modules.h"
#include "screens/setup_page.h"

class QGridLayout;
class QLineEdit;
class QPushButton;

namespace tarvik {

class Field;

class SetupHolePage final : public SetupPage {
  public:
    explicit SetupHolePage(const SetupModules& modules);

    void load() override;
    bool store() override;
    [[nodiscard]] QWidget* firstControl() override; // the name
    void selectSubPage(int subPage) override;

  private:
    struct Entry {
        const HoleField* field;
        QLineEdit* edit;
        Field* shown;
    };

    [[nodiscard]] QWidget* buildList();
    void buildFields(HolePart part, QGridLayout& grid);
    void showHoles();
    void show(const HoleDetails& hole);
    void takeFromRun();
    void beginNext();
    /// Keeps what stands in the fields, for one step back.
    void keepForUndo();
    void undo();
    void sayWhatTheNameMeans();
    [[nodiscard]] HoleDetails entered() const;
    [[nodiscard]] bool hasProject() const;

    SetupModules modules_;
    Projects projects_;
    std::vector<HoleRow> rows_;
    std::vector<Entry> entries_; ///< in the order of holeFields(): the hole's name first
    FilterTable* table_;
    class QTabWidget* tabs_;
    QPushButton* undo_;
    HoleDetails undone_;
};

} // namespace tarvik
