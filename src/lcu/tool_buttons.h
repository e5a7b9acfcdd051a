// The tool-bar buttons that only some tools need, as a run starts.
#pragma once

#include "app/program_state.h"
#include "lcu/run_view.h"
#include "lcu/tool_rules.h"

#include <array>

namespace tarvik {

/// Of the tool with that code. What the buttons say is what the displays show, whatever an earlier run ended
/// with.
inline void showToolButtons(RunView& view, ProgramState& state, std::string_view code) {
    for (const ToolButton* button : std::array{&bullseyeButton, &gaugesButton})
        view.toolButton(button->key, button->caption, toolRule(code).button == button);
    state.deviationDisplay = bullseyeButton.caption;
    state.fluidDisplay = gaugesButton.caption;
}

} // namespace tarvik
