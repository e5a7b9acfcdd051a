// Option buttons in one row under a title.
#pragma once

#include <QButtonGroup>
#include <QString>

#include <vector>

class QBoxLayout;

namespace tarvik {

struct OptionText {
    const char* objectName;
    const char* text;
};

/// Adds them to the layout. The ids of the group's buttons are their places, from 0.
QButtonGroup* addOptions(QBoxLayout& layout, const QString& title, const std::vector<OptionText>& options);

} // namespace tarvik
