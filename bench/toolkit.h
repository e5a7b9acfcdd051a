// Pictures and windows need the toolkit, and the toolkit needs an application that outlives them.
#pragma once

#include <QApplication>

#include <memory>

namespace tarvik::bench {

inline void needToolkit() {
    static int count = 1;
    static char name[] = "bench";
    static char* words[] = {name, nullptr};
    static const auto application = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return std::make_unique<QApplication>(count, words);
    }();
}

} // namespace tarvik::bench
