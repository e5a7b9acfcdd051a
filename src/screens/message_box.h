// Message boxes with the program's own icons.
#pragma once

#include "app/operator_side.h"

#include <QMessageBox>

#include <memory>

namespace tarvik {

/// Plain text, whatever stands in it. Buttons and modality are the caller's.
[[nodiscard]] std::unique_ptr<QMessageBox> makeMessageBox(Icon icon, const QString& title,
                                                          const QString& text, QWidget* parent);

} // namespace tarvik
