// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QGuiApplication>

/// Fonts need an application; where this is the whole program it makes one, without a display, and keeps it to the end.
inline void needApplication() {
    if (QCoreApplication::instance() == nullptr) {
        static int count = 1;
        static char name[] = "fuzzer";
        static char* arguments[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static const auto* const application = new QGuiApplication(count, arguments);
        static_cast<void>(application);
    }
}
