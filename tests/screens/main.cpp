// The tests of the screens share one application, without a display: as large as the smallest that the
// program starts on has room for.
#include "platform/temporary_folder.h"
#include "screens/theme.h"

#include <QApplication>

#include <fstream>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const tarvik::TemporaryFolder folder;
    const auto display = folder / "display.json";
    std::ofstream(display)
        << R"({"screens": [{"name": "smallest", "x": 0, "y": 0, "width": 1280, "height": 720,
                                  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QByteArray::fromStdString(display.string()));
    QApplication application(argc, argv);
    tarvik::applyTheme(application, tarvik::Theme::light);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
