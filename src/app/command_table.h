// The keys of all menu entries and tool-bar buttons, and what each of them does.
#pragma once

#include "app/developer_backup.h"
#include "app/frame.h"
#include "app/program_modes.h"
#include "app/shut_down.h"

#include <span>
#include <string_view>
#include <vector>

namespace tarvik {

class CommandTable {
  public:
    CommandTable(Frame& frame, ProgramModes& modes, ShutDown& shutDown, DeveloperBackup& backup,
                 MainWindow& window, Display& display)
        : frame_(frame),
          modes_(modes),
          shutDown_(shutDown),
          backup_(backup),
          window_(window),
          display_(display) {}

    /// Acts on the first row with that key; false when there is none, or while a search is under way.
    bool toolClick(std::string_view key);

    /// All keys, in the order of the table.
    [[nodiscard]] static std::vector<std::string_view> commandKeys();

    /// "ENABLE" or "DISABLE": the menus and buttons as a whole.
    void setControls(std::string_view argument);

  private:
    struct Command;
    static std::span<const Command> commands();

    void exit(const Command&);
    void changeMode(const Command&);
    void open(const Command&);
    void openSetup(const Command&);
    void openSetupAgain(const Command&);
    void openFiles(const Command&);
    void openDemo(const Command&);
    void openBatch(const Command&);
    void print(const Command&);
    void closeRun(const Command&);
    void toggleNotes(const Command&);
    void backUp(const Command&);
    void openHelp(const Command&);
    void paint(const Command&);
    void toggleSearch(const Command&);
    void minimise(const Command&);
    void toggleFluid(const Command&);
    void toggleSonic(const Command&);
    void cycleDeviation(const Command&);

    Frame& frame_;
    ProgramModes& modes_;
    ShutDown& shutDown_;
    DeveloperBackup& backup_;
    MainWindow& window_;
    Display& display_;
};

} // namespace tarvik
