// The two models of the surface box (LCU) and all that differs between them, one row each.
#pragma once

#include "app/link_state.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tarvik {

struct LcuModel {
    std::string_view name;      ///< as logs, files and decisions name it
    std::string_view label;     ///< what the main screen's interface label reads
    std::int32_t healthyStatus; ///< status byte of a box without errors; it also tells the models apart
    double modelFactor;         ///< centimetres of cable to a depth count of a scan
    double depthStepFactor;     ///< depth counts to a centimetre in the sampling command "TD"
    int trailingBytes;          ///< of a scan, behind the channel words
    bool powerDownEndsWithEr0;  ///< takes "ER0" as the last step of a power-down
};

inline constexpr std::array<LcuModel, 2> lcuModels{{
    {.name = "LCU2Plus",
     .label = "Interface LCU2+",
     .healthyStatus = 129,
     .modelFactor = 1.0,
     .depthStepFactor = 1.0,
     .trailingBytes = 2,
     .powerDownEndsWithEr0 = false},
    {.name = "LCU4",
     .label = "Interface LCU4",
     .healthyStatus = 145,
     .modelFactor = 0.25,
     .depthStepFactor = 4.0,
     .trailingBytes = 7,
     .powerDownEndsWithEr0 = true},
}};

inline constexpr const LcuModel* lcu2Plus = &lcuModels[0];
inline constexpr const LcuModel* lcu4 = &lcuModels[1];

/// The model whose healthy status byte this is; null for any other value.
[[nodiscard]] constexpr const LcuModel* modelWithStatus(std::int32_t status) {
    for (const LcuModel& model : lcuModels) {
        if (model.healthyStatus == status) return &model;
    }
    return nullptr;
}

/// Null for a name that is no model's.
[[nodiscard]] constexpr const LcuModel* modelNamed(std::string_view name) {
    for (const LcuModel& model : lcuModels) {
        if (model.name == name) return &model;
    }
    return nullptr;
}

/// Enters the model, or none, with its factor.
inline void setModel(LinkState& link, const LcuModel* model) {
    link.model = model ? model->name : std::string_view{};
    link.modelFactor = model ? model->modelFactor : 1.0;
}

} // namespace tarvik
