#include "gui/dialogs/clampingspinbox.h"

#include <algorithm>

namespace gui {

ClampingSpinBox::ClampingSpinBox(QWidget* parent) : QSpinBox(parent) {
    setCorrectionMode(CorrectToNearestValue);
    // A value counts once it is typed in full (Enter or leaving the box).
    setKeyboardTracking(false);
}

QValidator::State ClampingSpinBox::validate(QString& text, int& pos) const {
    const QValidator::State state = QSpinBox::validate(text, pos);
    bool number = false;
    locale().toLongLong(text.trimmed(), &number);
    return state == QValidator::Invalid && number ? QValidator::Intermediate : state;
}

void ClampingSpinBox::fixup(QString& text) const {
    bool number = false;
    const qlonglong v = locale().toLongLong(text.trimmed(), &number);
    if (number)
        text = textFromValue(int(std::clamp<qlonglong>(v, minimum(), maximum())));
    else
        QSpinBox::fixup(text);
}

} // namespace gui
