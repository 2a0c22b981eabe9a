#pragma once

#include "gui/ui_navigationpanel.h"

#include <QDialog>

namespace gui {

// A non-modal dialog with sliders and dials for the camera's absolute position
// and angles; the navigation handler connects and updates it.
class NavigationPanel : public QDialog {
    Q_OBJECT
public:
    explicit NavigationPanel(QWidget* parent);

    Ui_NavigationPanel ui;
};

} // namespace gui
