#pragma once

#include <QDialog>

namespace gui {

// A modal dialog with static rich text and an "OK" button that accepts it.
class TextDialog : public QDialog {
    Q_OBJECT
public:
    TextDialog(QWidget* parent, const QString& title, const QString& html, QSize size);
};

} // namespace gui
