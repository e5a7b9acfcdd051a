// Makes the box ready for the tool: power-off reset, sampling command, the tool's own commands, firmware
// lines.
#pragma once

#include "lcu/run_context.h"

#include <string>

namespace tarvik {

class RunPreparation {
  public:
    RunPreparation(RunModules& modules, const RunSetup& setup) : modules_(modules), setup_(setup) {}

    /// False when a command failed (it has been explained) or the operator stopped between two commands; the
    /// run then closes without a stream, and without a file.
    [[nodiscard]] bool prepare();

    /// By the operator, between two commands.
    [[nodiscard]] bool stopped() const;

    /// What `prepare` sends as the sampling command: also sent when a lost box comes back.
    [[nodiscard]] std::string sampling() const;

  private:
    [[nodiscard]] const LcuModel& model() const;
    [[nodiscard]] bool send(const std::string& command);
    void setUpTool();
    void sayRoundedStep() const;
    [[nodiscard]] bool sendToolCommands();
    void logFirmware();

    RunModules& modules_;
    const RunSetup& setup_;
};

} // namespace tarvik
