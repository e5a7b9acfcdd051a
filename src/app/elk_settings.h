// The processing constants of the ELK tool, kept in the settings store as texts exactly as they were entered.
#pragma once

#include "app/error_trap.h"
#include "app/settings.h"
#include "platform/settings_store.h"

#include <array>
#include <string_view>

namespace tarvik {

struct ElkKey {
    std::string_view name;
    std::string_view defaultText;
};

/// In the order in which they are read and written. The defaults of average porosity and permeability look
/// exchanged; they have always been so, and processed logs depend on them.
constexpr std::array elkKeys{
    ElkKey{"Low frequency", "844"},
    ElkKey{"High frequency", "3000"},
    ElkKey{"Phase low frequency", "-20"},
    ElkKey{"Phase high frequency", "25"},
    ElkKey{"Source pressure", "8000000"},
    ElkKey{"Gain low frequency", "8838"},
    ElkKey{"Gain high frequency", "9596"},
    ElkKey{"Pore fluid viscosity", "0.001"},
    ElkKey{"Pore fluid modulus", "2.20E+09"},
    ElkKey{"Permittivity of pore fluid", "7.611E-10"},
    ElkKey{"Zeta potential", "0.06"},
    ElkKey{"Boltzmans constant", "1.38E-23"},
    ElkKey{"Kelvin Temp", "283"},
    ElkKey{"Ionic concentration", "2.00E+13"},
    ElkKey{"Charge on electron", "1.60E-19"},
    ElkKey{"Tortuosity", "3"},
    ElkKey{"Modulus of solid", "3.80E+10"},
    ElkKey{"Modulus of matrix", "1.20E+10"},
    ElkKey{"Shear modulus", "9.00E+09"},
    ElkKey{"Input average porosity", "1.0000E-14"},
    ElkKey{"Input average permeability", "0.3"},
    ElkKey{"Shift applied to curve", "1"},
    ElkKey{"Pts avg component sum", "10"},
    ElkKey{"Pts avg conductivity sum", "13"},
};

/// One value per key, in the order of the table.
using ElkSettings = std::array<NumberText, elkKeys.size()>;

[[nodiscard]] ElkSettings defaultElkSettings();

class StoredElkSettings {
  public:
    StoredElkSettings(ErrorTrap& errors, SettingsStore& store) : errors_(errors), store_(store) {}

    /// A missing key is its default; one that is no number is its default and goes to the error log.
    [[nodiscard]] ElkSettings load();
    /// False when the store could not be written.
    bool save(const ElkSettings& settings);

  private:
    ErrorTrap& errors_;
    SettingsStore& store_;
};

} // namespace tarvik
