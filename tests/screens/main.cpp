// The tests of the screens share one application, without a display.
#include "screens/theme.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    tarvik::applyTheme(application, tarvik::Theme::light);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
