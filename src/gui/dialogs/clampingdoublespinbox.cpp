#include "gui/dialogs/clampingdoublespinbox.h"

#include <algorithm>

namespace gui {

ClampingDoubleSpinBox::ClampingDoubleSpinBox(QWidget* parent) : QDoubleSpinBox(parent) {
    setCorrectionMode(CorrectToNearestValue);
    // A value counts once it is typed in full (Enter or leaving the box).
    setKeyboardTracking(false);
}

// Only a number beyond the range is let through; other refused text (letters,
// too many decimals) stays refused.
QValidator::State ClampingDoubleSpinBox::validate(QString& text, int& pos) const {
    const QValidator::State state = QDoubleSpinBox::validate(text, pos);
    if (state != QValidator::Invalid)
        return state;
    bool number = false;
    const double v = locale().toDouble(text.trimmed(), &number);
    return number && (v > maximum() || v < minimum()) ? QValidator::Intermediate : state;
}

void ClampingDoubleSpinBox::fixup(QString& text) const {
    bool number = false;
    const double v = locale().toDouble(text.trimmed(), &number);
    if (number)
        text = textFromValue(std::clamp(v, minimum(), maximum()));
    else
        QDoubleSpinBox::fixup(text);
}

} // namespace gui
