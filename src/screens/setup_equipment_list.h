// The maker's models beside the user's own tools, or winches: add one with its serial number, remove one,
// take a removal back. Adding and removing change the user's equipment file at once.
#pragma once

#include "screens/filter_table.h"
#include "screens/setup_modules.h"

class QLabel;
class QPushButton;

namespace tarvik {

class Field;

enum class EquipmentSort { tool, winch };

class SetupEquipmentList final : public QWidget {
  public:
    /// `changed` is called when the user's equipment has changed.
    SetupEquipmentList(EquipmentSort sort, const SetupModules& modules, std::function<void()> changed);

    void load();
    /// A serial number that was typed but not added: says so, the cursor stands in its field.
    [[nodiscard]] bool isUnfinished();

  private:
    [[nodiscard]] QWidget* buildMakers();
    [[nodiscard]] QWidget* buildUsers();
    [[nodiscard]] QString serialProblem() const;
    [[nodiscard]] QString named(const char* stem) const;
    void add();
    void remove();
    void takeBack();
    /// Adds the maker's model with that code; false when it could not be.
    bool addModel(const std::string& code, const std::string& serialNumber);
    void refresh();
    void enable();

    SetupModules modules_;
    bool isTool_;
    QString word_; ///< "tool" or "winch"
    std::function<void()> changed_;
    std::vector<MakerRow> makers_;
    std::vector<UserRow> users_;
    UserRow removed_;
    FilterTable* makerTable_;
    FilterTable* userTable_;
    Field* serial_;
    QLabel* banner_;
    QLabel* count_;
    QPushButton* add_;
    QPushButton* remove_;
    QPushButton* undo_;
};

} // namespace tarvik
