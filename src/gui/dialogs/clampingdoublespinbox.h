#pragma once

#include <QDoubleSpinBox>

namespace gui {

// A decimal spin box that lets a number beyond its range be typed and brings
// it into the range when the typing ends, instead of refusing the keystroke.
class ClampingDoubleSpinBox : public QDoubleSpinBox {
    Q_OBJECT
public:
    explicit ClampingDoubleSpinBox(QWidget* parent);

    QValidator::State validate(QString& text, int& pos) const override;
    void fixup(QString& text) const override;
};

} // namespace gui
