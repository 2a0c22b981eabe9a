#pragma once

// A shown main window whose first view has created and bound the scene.

#include "ecosystem/render/ecosystemrender.h"
#include "gui/mainwindow.h"

#include <QtTest>

// Shows the window and waits until the scene exists and the handlers are bound.
inline bool showWithScene(gui::MainWindow& w) {
    w.show();
    if (!QTest::qWaitForWindowExposed(&w))
        return false;
    return QTest::qWaitFor([&] { return w.currentModel != nullptr; });
}
