#pragma once

#include "gui/textdialog.h"

namespace gui {

// "Bosket Help": the tree model's terms, the order of work for designing a
// tree, and the navigation keys.
class Help : public TextDialog {
    Q_OBJECT
public:
    explicit Help(QWidget* parent);
};

} // namespace gui
