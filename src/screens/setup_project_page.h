// Setup, page 0: the drive, its projects, and a new one.
#pragma once

#include "app/projects.h"
#include "screens/filter_table.h"
#include "screens/setup_modules.h"
#include "screens/setup_page.h"

class QComboBox;
class QHBoxLayout;
class QPushButton;

namespace tarvik {

class Field;

class SetupProjectPage final : public SetupPage {
  public:
    /// `opened` is called when a project is double-clicked.
    SetupProjectPage(const SetupModules& modules, std::function<void()> opened);

    void load() override;
    bool store() override;
    [[nodiscard]] QWidget* firstControl() override;

  private:
    [[nodiscard]] QWidget* buildTop();
    [[nodiscard]] QWidget* buildNew();
    void showDrives();
    void showProjects();
    void showRecent();
    void showPath();
    void chooseProject(const QString& name);
    void create();
    [[nodiscard]] std::string letter() const;
    [[nodiscard]] Path folder() const;
    [[nodiscard]] QString chosen() const;
    [[nodiscard]] QString chosenFolder() const;
    [[nodiscard]] std::vector<std::string> recent() const;

    SetupModules modules_;
    Projects projects_;
    std::vector<ProjectRow> rows_;
    QComboBox* drive_;
    QHBoxLayout* recentRow_;
    FilterTable* table_;
    Field* newName_;
    QPushButton* create_;
    class QLabel* path_;
};

} // namespace tarvik
