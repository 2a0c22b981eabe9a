#pragma once

#include "gui/design/widgetgraph.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

// The statistics window's form, written by hand in the shape of a generated
// one: the plot with room for its axes to the left of it and below it, the
// "rendered only" switch and the species choice, the hint, the value under
// the mouse, and the "Save as CSV…" and "Close" buttons.
class Ui_EcosystemStatistics {
public:
    gui::WidgetGraph* graf1;
    QCheckBox* showOnlyRenderedOnes;
    QLabel* livingSpeciesLabel;
    QComboBox* izbranaVrsta;
    QLabel* hint;
    QLabel* currentValueLabel;
    QLabel* currentValue;
    QPushButton* saveCsv;
    QPushButton* close;

    // Room beside the plot for the count labels and below it for the steps.
    static constexpr int countAxisWidth = 64;
    static constexpr int stepAxisHeight = 24;

    void setupUi(QDialog* dialog) {
        dialog->setObjectName("EcosystemStatistics");
        dialog->resize(620, 420);
        auto* root = new QVBoxLayout(dialog);

        auto* plot = new QGridLayout;
        plot->setSpacing(0);
        plot->setColumnMinimumWidth(0, countAxisWidth);
        plot->setRowMinimumHeight(1, stepAxisHeight);
        graf1 = new gui::WidgetGraph(dialog);
        graf1->setObjectName("graf1");
        graf1->setMinimumSize(300, 200);
        graf1->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        plot->addWidget(graf1, 0, 1);
        root->addLayout(plot, 1);

        auto* choice = new QHBoxLayout;
        showOnlyRenderedOnes = new QCheckBox(dialog);
        showOnlyRenderedOnes->setObjectName("showOnlyRenderedOnes");
        livingSpeciesLabel = new QLabel(dialog);
        izbranaVrsta = new QComboBox(dialog);
        izbranaVrsta->setObjectName("izbranaVrsta");
        for (int i = 0; i < 5; ++i)
            izbranaVrsta->addItem(QString());
        livingSpeciesLabel->setBuddy(izbranaVrsta);
        choice->addWidget(showOnlyRenderedOnes);
        choice->addStretch(1);
        choice->addWidget(livingSpeciesLabel);
        choice->addWidget(izbranaVrsta);
        root->addLayout(choice);

        hint = new QLabel(dialog);
        root->addWidget(hint);

        auto* bottom = new QHBoxLayout;
        currentValueLabel = new QLabel(dialog);
        currentValue = new QLabel(dialog);
        currentValue->setObjectName("currentValue");
        currentValue->setTextInteractionFlags(Qt::TextSelectableByMouse);
        saveCsv = new QPushButton(dialog);
        saveCsv->setObjectName("saveCsv");
        saveCsv->setAutoDefault(false);
        close = new QPushButton(dialog);
        close->setObjectName("close");
        bottom->addWidget(currentValueLabel);
        bottom->addWidget(currentValue);
        bottom->addStretch(1);
        bottom->addWidget(saveCsv);
        bottom->addWidget(close);
        root->addLayout(bottom);

        QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::reject);
        retranslateUi(dialog);
    }

    void retranslateUi(QDialog* dialog) {
        dialog->setWindowTitle(
            QCoreApplication::translate("EcosystemStatistics", "Ecosystem statistics"));
        showOnlyRenderedOnes->setText(
            QCoreApplication::translate("EcosystemStatistics", "rendered only"));
        livingSpeciesLabel->setText(
            QCoreApplication::translate("EcosystemStatistics", "Living species:"));
        izbranaVrsta->setItemText(0, QCoreApplication::translate("EcosystemStatistics", "Bush"));
        izbranaVrsta->setItemText(
            1, QCoreApplication::translate("EcosystemStatistics", "Weeping willow"));
        izbranaVrsta->setItemText(2, QCoreApplication::translate("EcosystemStatistics", "Maple"));
        izbranaVrsta->setItemText(3, QCoreApplication::translate("EcosystemStatistics", "Pine"));
        izbranaVrsta->setItemText(4, QCoreApplication::translate("EcosystemStatistics", "Beech"));
        hint->setText(QCoreApplication::translate(
            "EcosystemStatistics",
            "Tip: right click on graph to determine year and number of plants."));
        currentValueLabel->setText(
            QCoreApplication::translate("EcosystemStatistics", "Current value:"));
        currentValue->setText(QStringLiteral("0"));
        saveCsv->setText(QCoreApplication::translate("EcosystemStatistics", "Save as CSV…"));
        close->setText(QCoreApplication::translate("EcosystemStatistics", "Close"));
    }
};
