#pragma once

#include <QSpinBox>

namespace gui {

// An integer spin box that lets a number beyond its range be typed and brings
// it into the range when the typing ends, instead of refusing the keystroke
// (typing 5000 where 1000 is the most gives 1000, not 500).
class ClampingSpinBox : public QSpinBox {
    Q_OBJECT
public:
    explicit ClampingSpinBox(QWidget* parent);

    QValidator::State validate(QString& text, int& pos) const override;
    void fixup(QString& text) const override;
};

} // namespace gui
