#pragma once

#include <QCoreApplication>
#include <QDial>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

// The navigation panel's form, written by hand in the shape of a generated one:
// a "Look" group with three dials and a "Movement" group with three sliders,
// each control coupled both ways with a spin box of the same range.
class Ui_NavigationPanel {
public:
    QDial* Turn;
    QDial* Roll;
    QDial* Yow;
    QSpinBox* turnSpin;
    QSpinBox* rollSpin;
    QSpinBox* yowSpin;
    QSlider* X;
    QSlider* Y;
    QSlider* Z;
    QSpinBox* xSpin;
    QSpinBox* ySpin;
    QSpinBox* zSpin;
    QPushButton* travelForward;
    QPushButton* travelBackward;
    QLabel* dmr;
    QGroupBox* look;
    QGroupBox* movement;
    QLabel* labels[17];
    QDialogButtonBox* buttons;

    void setupUi(QDialog* dialog) {
        dialog->setObjectName("NavigationPanel");
        auto* root = new QVBoxLayout(dialog);

        look = new QGroupBox(dialog);
        auto* lookGrid = new QGridLayout(look);
        for (QLabel*& l : labels)
            l = new QLabel(dialog);
        Turn = dial(look, "Turn");
        Roll = dial(look, "Roll");
        Yow = dial(look, "Yow");
        turnSpin = spin(look, -180, 180, Turn, QString::fromUtf8("°"));
        rollSpin = spin(look, -180, 180, Roll, QString::fromUtf8("°"));
        yowSpin = spin(look, -180, 180, Yow, QString::fromUtf8("°"));
        QDial* dials[3] = {Turn, Roll, Yow};
        QSpinBox* dialSpins[3] = {turnSpin, rollSpin, yowSpin};
        for (int i = 0; i < 3; ++i) {
            // caption above, the two directions at the dial's two ends
            lookGrid->addWidget(labels[i], 0, i, Qt::AlignHCenter);
            auto* ends = new QHBoxLayout;
            ends->addWidget(labels[3 + 2 * i]);
            ends->addStretch();
            ends->addSpacing(8);
            ends->addWidget(labels[4 + 2 * i]);
            lookGrid->addLayout(ends, 1, i);
            lookGrid->addWidget(dials[i], 2, i);
            lookGrid->addWidget(dialSpins[i], 3, i);
        }
        root->addWidget(look);

        movement = new QGroupBox(dialog);
        auto* moveGrid = new QGridLayout(movement);
        X = slider(movement, "X", Qt::Horizontal, 2500);
        Z = slider(movement, "Z", Qt::Vertical, 2500);
        Y = slider(movement, "Y", Qt::Vertical, 1000);
        xSpin = spin(movement, 0, 2500, X);
        zSpin = spin(movement, 0, 2500, Z);
        ySpin = spin(movement, 0, 1000, Y);
        moveGrid->addWidget(labels[10], 0, 0); // Move North
        moveGrid->addWidget(Z, 1, 0);
        moveGrid->addWidget(labels[11], 2, 0); // Move South
        moveGrid->addWidget(zSpin, 3, 0);
        moveGrid->addWidget(labels[14], 0, 1); // Move up
        moveGrid->addWidget(Y, 1, 1);
        moveGrid->addWidget(labels[15], 2, 1); // Move down
        moveGrid->addWidget(ySpin, 3, 1);
        auto* xRow = new QHBoxLayout;
        xRow->addWidget(labels[12]); // Move West
        xRow->addWidget(X);
        xRow->addWidget(labels[13]); // Move East
        xRow->addWidget(xSpin);
        moveGrid->addLayout(xRow, 4, 0, 1, 2);
        travelForward = new QPushButton(movement);
        travelBackward = new QPushButton(movement);
        moveGrid->addWidget(travelForward, 5, 0);
        moveGrid->addWidget(travelBackward, 5, 1);
        auto* demRow = new QHBoxLayout;
        dmr = new QLabel(movement);
        dmr->setObjectName("dmr");
        demRow->addWidget(labels[16]); // DEM:
        demRow->addWidget(dmr);
        moveGrid->addLayout(demRow, 6, 0, 1, 2);
        moveGrid->addWidget(labels[9], 7, 0, 1, 2); // terrain dimensions note
        root->addWidget(movement);

        buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
        root->addWidget(buttons);
        QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
        QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);

        retranslateUi(dialog);
    }

    void retranslateUi(QDialog* dialog) {
        dialog->setWindowTitle(QCoreApplication::translate("NavigationPanel", "Navigation panel"));
        look->setTitle(QCoreApplication::translate("NavigationPanel", "Look"));
        movement->setTitle(QCoreApplication::translate("NavigationPanel", "Movement"));
        const char* texts[17] = {
            QT_TRANSLATE_NOOP("NavigationPanel", "Turn"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Roll"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Yow"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Turn left"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Turn right"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Look down"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Look up"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Roll left"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Roll right"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Terrain dimensions: 2500m x 2500m."),
            QT_TRANSLATE_NOOP("NavigationPanel", "Move North"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Move South"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Move West"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Move East"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Move up"),
            QT_TRANSLATE_NOOP("NavigationPanel", "Move down"),
            QT_TRANSLATE_NOOP("NavigationPanel", "DEM:"),
        };
        for (int i = 0; i < 17; ++i)
            labels[i]->setText(QCoreApplication::translate("NavigationPanel", texts[i]));
        travelForward->setText(QCoreApplication::translate("NavigationPanel", "Travel forward"));
        travelBackward->setText(QCoreApplication::translate("NavigationPanel", "Travel backward"));
        dmr->setText(QStringLiteral("(0,0,0)"));
    }

private:
    static QDial* dial(QWidget* parent, const char* name) {
        auto* d = new QDial(parent);
        d->setObjectName(name);
        d->setRange(-180, 180);
        // Wrapping keeps an angle beyond the range pointing the same way
        // (270 becomes -90) instead of clamping it to a different one.
        d->setWrapping(true);
        d->setNotchesVisible(true);
        return d;
    }

    static QSlider* slider(QWidget* parent, const char* name, Qt::Orientation o, int max) {
        auto* s = new QSlider(o, parent);
        s->setObjectName(name);
        s->setRange(0, max);
        return s;
    }

    // A spin box of the control's range with its two step buttons, kept equal
    // to the control both ways.
    template <typename Control>
    static QSpinBox* spin(QWidget* parent, int min, int max, Control* control,
                          const QString& suffix = QString()) {
        auto* s = new QSpinBox(parent);
        s->setRange(min, max);
        s->setSuffix(suffix);
        QObject::connect(control, &Control::valueChanged, s, &QSpinBox::setValue);
        QObject::connect(s, &QSpinBox::valueChanged, control, &Control::setValue);
        return s;
    }
};
