#pragma once

#include <QDialog>

class QGridLayout;
class QLineEdit;

namespace gui {

// "Sky textures": the six image files of the sky box, each typed or chosen with
// its "..." button. OK is taken only when every file can be read as an image.
class SkyTextures : public QDialog {
    Q_OBJECT
public:
    explicit SkyTextures(QWidget* parent);

    QLineEdit* north;
    QLineEdit* south;
    QLineEdit* east;
    QLineEdit* west;
    QLineEdit* up;
    QLineEdit* down;

public slots:
    void accept() override;

private:
    QLineEdit* addFace(QGridLayout* grid, int row, const QString& label, const char* name);
    void chooseFile(QLineEdit* field);
};

} // namespace gui
