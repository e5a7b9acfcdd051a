// Dynamic properties that the style sheet knows; they take effect when the style looks at the widget again.
#pragma once

#include <QLabel>
#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace tarvik {

inline void restyle(QWidget& widget, const char* name, const QVariant& value) {
    if (widget.property(name) == value) return;
    widget.setProperty(name, value);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

/// "title", "head", "quiet", "good", "warning" or "bad".
inline void setRole(QWidget& widget, const char* role) {
    restyle(widget, "role", role);
}

[[nodiscard]] inline QLabel* roleLabel(const char* role, const QString& text = {}) {
    auto* const label = new QLabel(text);
    label->setProperty("role", role);
    return label;
}

} // namespace tarvik
