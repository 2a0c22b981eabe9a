#include "gui/navigationpanel.h"

namespace gui {

NavigationPanel::NavigationPanel(QWidget* parent) : QDialog(parent) {
    ui.setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
}

} // namespace gui
