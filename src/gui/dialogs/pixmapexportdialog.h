#pragma once

#include <QDialog>

class QSlider;
class QSpinBox;

namespace gui {

// "Export pixmap": the size of a custom-resolution image (1 to 10000 pixels a
// side, 2048 by default) and the PNG quality (0 to 99: smallest file first).
class PixmapExportDialog : public QDialog {
    Q_OBJECT
public:
    explicit PixmapExportDialog(QWidget* parent);

    QSpinBox* sbWidth;
    QSpinBox* sbHeight;
    QSlider* sliderQuality;
};

} // namespace gui
