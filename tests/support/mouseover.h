#pragma once

// A mouse move over a widget, delivered at once. QTest's mouseMove moves the
// real cursor when no button is held, and the window system reports that
// move later or not at all; hovering tests need the move now.

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

inline void mouseOver(QWidget* widget, QPoint pos, Qt::MouseButtons held = Qt::NoButton) {
    QMouseEvent move(QEvent::MouseMove, QPointF(pos), QPointF(widget->mapToGlobal(pos)),
                     Qt::NoButton, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}
