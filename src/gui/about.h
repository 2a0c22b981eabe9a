#pragma once

#include "gui/textdialog.h"

namespace gui {

// "About Virela": what the program is and does.
class About : public TextDialog {
    Q_OBJECT
public:
    explicit About(QWidget* parent);
};

} // namespace gui
