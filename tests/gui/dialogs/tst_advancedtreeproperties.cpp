#include "arbo/arbo.h"
#include "gui/dialogs/advancedtreeproperties.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QtTest>

#include <memory>

using gui::AdvancedTreeProperties;

// The advanced properties driven with the keyboard and the mouse: every slider
// and spin box mapping at the ends and middle of its range, typed values
// clamped to the spin box, Apply, Cancel and the undo point, checked through
// the parameter saver.
class TestAdvancedTreeProperties : public QObject {
    Q_OBJECT

    std::unique_ptr<arbo::Arbo> tree;
    std::unique_ptr<AdvancedTreeProperties> d;

    void open() {
        d.reset();
        tree = std::make_unique<arbo::Arbo>();
        d = std::make_unique<AdvancedTreeProperties>(nullptr, tree.get());
        d->show();
        QVERIFY(QTest::qWaitForWindowExposed(d.get()));
    }
    QByteArray saved(const QString& name) {
        tree->pdPrepared.saveParameters(name.toStdString());
        QFile f(name);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    // The field of a row, as a double.
    double field(const QString& row) const {
        const arbo::ParametriDrevesa& p = tree->pdPrepared;
        const QMap<QString, double> fields = {{"NumberOfStrands", p.stVsehZil},
                                              {"TrinkHeight", p.dolzinaDebla},
                                              {"BranchThicknessPerStrand", p.sirinaSteblaNaZilo},
                                              {"Gravicentralism", p.graviCentralizem},
                                              {"PhyllotaxisAngle", p.phyllotaxisAngle},
                                              {"LeafDensity", p.gostotaListov},
                                              {"LeafSize", p.listSize},
                                              {"WindSpeed", p.windSpeed},
                                              {"WindSpeedNodirect", p.windSpeedNodirect}};
        return fields.value(row);
    }
    QSlider* slider(const QString& row) { return d->findChild<QSlider*>("slider" + row); }
    QAbstractSpinBox* spin(const QString& row) {
        return d->findChild<QAbstractSpinBox*>("edit" + row);
    }
    static double value(QAbstractSpinBox* s) {
        if (auto* x = qobject_cast<QDoubleSpinBox*>(s))
            return x->value();
        return static_cast<QSpinBox*>(s)->value();
    }
    static void type(QAbstractSpinBox* s, const QString& text) {
        s->setFocus();
        QTest::keyClick(s, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(s, text);
        QTest::keyClick(s, Qt::Key_Return);
    }

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    // The field gets s / max * scale and the spin box shows it rounded to its
    // decimals; when that changes what the spin box shows, the field gets the
    // rounded value in turn. The float fields as floats.
    void slidersMoveSpinBoxesAndFields_data() {
        QTest::addColumn<QString>("row");
        QTest::addColumn<int>("s"); // -1: Home key, -2: End key
        QTest::addColumn<double>("shown");
        QTest::addColumn<double>("written");
        auto row = [](const char* name, int s, double shown, double written = -1) {
            QTest::addRow("%s %d", name, s)
                << QString(name) << s << shown << (written < 0 ? shown : written);
        };
        row("NumberOfStrands", -1, 0);
        row("NumberOfStrands", 2500, 2500);
        row("NumberOfStrands", -2, 5000);
        row("TrinkHeight", -1, 0);
        row("TrinkHeight", 1, 0.001);
        row("TrinkHeight", 2500, 2.5);
        row("TrinkHeight", -2, 10);
        row("BranchThicknessPerStrand", 1, 0.00001); // 0.000005 rounded to 5 decimals
        row("BranchThicknessPerStrand", 3000, 0.015);
        row("BranchThicknessPerStrand", -2, 0.05);
        row("Gravicentralism", -1, 0);
        row("Gravicentralism", 2900, 0.29);
        row("Gravicentralism", -2, 1);
        row("PhyllotaxisAngle", -1, 0);
        row("PhyllotaxisAngle", 137, 137);
        row("PhyllotaxisAngle", -2, 360);
        row("LeafDensity", -1, 0);
        row("LeafDensity", 14, 14);
        row("LeafDensity", -2, 30);
        row("LeafSize", 1, 0);               // 0.00003 shows as 0.000
        row("LeafSize", 3334, 0.1, 0.10002); // shows 0.100 as before: the slider's value stays
        row("LeafSize", 5000, 0.15);
        row("LeafSize", -2, 0.3);
        row("WindSpeed", 1, 0.001);
        row("WindSpeed", 5000, 5);
        row("WindSpeed", -2, 10);
        row("WindSpeedNodirect", -1, 0);
        row("WindSpeedNodirect", 7000, 7);
        row("WindSpeedNodirect", -2, 10);
    }
    void slidersMoveSpinBoxesAndFields() {
        QFETCH(QString, row);
        QFETCH(int, s);
        QFETCH(double, shown);
        QFETCH(double, written);
        open();
        QSignalSpy refresh(d.get(), &AdvancedTreeProperties::forceRefresh);
        if (s < 0)
            QTest::keyClick(slider(row), s == -1 ? Qt::Key_Home : Qt::Key_End);
        else
            slider(row)->setValue(s);
        QCOMPARE(value(spin(row)), shown);
        const bool isFloat = row == "BranchThicknessPerStrand" || row == "LeafSize";
        QCOMPARE(field(row), isFloat ? double(float(written)) : written);
        QVERIFY(refresh.count() >= 1);
    }

    // A typed value is written and puts the slider at the inverse of the
    // mapping, truncated toward zero (0.57 lies just below 5700); beyond the
    // slider's range the slider stays; beyond the spin box's range the value
    // is clamped.
    void spinBoxesMoveSlidersBack_data() {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("written");
        QTest::addColumn<int>("position"); // -1: where it was
        auto row = [](const char* name, const char* row, const char* typed, double written,
                      int position) {
            QTest::newRow(name) << QString(row) << QString(typed) << written << position;
        };
        row("height", "TrinkHeight", "7.5", 7.5, 7500);
        row("height 0", "TrinkHeight", "0", 0, 0);
        row("height at the slider's top", "TrinkHeight", "10", 10, 10000);
        row("height at the top", "TrinkHeight", "100", 100, -1);
        row("thickness", "BranchThicknessPerStrand", "0.012", double(0.012f), 2400);
        row("thickness 0", "BranchThicknessPerStrand", "0", 0, 0);
        row("thickness clamped", "BranchThicknessPerStrand", "7", 1, -1);
        row("gravicentralism", "Gravicentralism", "0.57", 0.57, 5699);
        row("gravicentralism at the top", "Gravicentralism", "1", 1, 10000);
        row("phyllotaxis", "PhyllotaxisAngle", "137.5", 137.5, 137);
        row("phyllotaxis 0", "PhyllotaxisAngle", "0", 0, 0);
        row("phyllotaxis at the top", "PhyllotaxisAngle", "360", 360, 360);
        row("strands 0", "NumberOfStrands", "0", 0, 0);
        row("strands", "NumberOfStrands", "9000", 9000, -1);
        row("strands at the top", "NumberOfStrands", "100000", 100000, -1);
        row("strands clamped", "NumberOfStrands", "200000", 100000, -1);
        row("density", "LeafDensity", "25", 25, 25);
        row("density 0", "LeafDensity", "0", 0, 0);
        row("density beyond the slider", "LeafDensity", "100", 100, -1);
        row("density clamped", "LeafDensity", "5000", 1000, -1);
        row("leaf size", "LeafSize", "2", 2, -1);
        row("leaf size at the top", "LeafSize", "1000", 1000, -1);
        row("wind 0", "WindSpeed", "0", 0, 0);
        row("wind clamped", "WindSpeed", "5000", 1000, -1);
        row("nonuniform wind", "WindSpeedNodirect", "4.2", 4.2, 4200);
        row("nonuniform wind 0", "WindSpeedNodirect", "0", 0, 0);
        row("nonuniform wind at the top", "WindSpeedNodirect", "1000", 1000, -1);
    }
    void spinBoxesMoveSlidersBack() {
        QFETCH(QString, row);
        QFETCH(QString, typed);
        QFETCH(double, written);
        QFETCH(int, position);
        open();
        const int before = slider(row)->value();
        type(spin(row), typed);
        QCOMPARE(field(row), written);
        QCOMPARE(slider(row)->value(), position < 0 ? before : position);
    }

    // Opening writes nothing (the spin boxes round only what they show); the
    // sliders sit at the inverse mapping, clamped to their range.
    void opensWithoutChangingTheTree() {
        tree = std::make_unique<arbo::Arbo>();
        arbo::ParametriDrevesa& p = tree->pdPrepared;
        p.stVsehZil = 8000;
        p.phyllotaxisAngle = 137.50776;
        p.sirinaSteblaNaZilo = 0.01f;
        p.tipListov = 4;
        const QByteArray before = saved("before.tree.xml");
        d = std::make_unique<AdvancedTreeProperties>(nullptr, tree.get());
        QCOMPARE(slider("NumberOfStrands")->value(), 5000);
        QCOMPARE(value(spin("NumberOfStrands")), 8000.0);
        QCOMPARE(slider("TrinkHeight")->value(), 5000);
        QCOMPARE(slider("BranchThicknessPerStrand")->value(), 1999); // 0.01f lies below 0.01
        QCOMPARE(slider("PhyllotaxisAngle")->value(), 137);
        QCOMPARE(value(spin("PhyllotaxisAngle")), 137.51);
        QCOMPARE(d->editLeafType->currentIndex(), 4);
        QCOMPARE(saved("after.tree.xml"), before);
    }

    // Cancel returns to the undo point bit for bit (also with auto-proof off,
    // which writes without repainting); Apply moves the undo point.
    void applyCancelAndUndo() {
        open();
        const QByteArray original = saved("original.tree.xml");
        QTest::mouseClick(d->autoProof, Qt::LeftButton);
        QSignalSpy refresh(d.get(), &AdvancedTreeProperties::forceRefresh);
        QTest::keyClick(slider("TrinkHeight"), Qt::Key_End);
        type(spin("LeafSize"), "0.7");
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(d->editLeafType, Qt::Key_Down);
        QCOMPARE(tree->pdPrepared.tipListov, 3);
        QCOMPARE(tree->pdPrepared.dolzinaDebla, 10.0);
        QCOMPARE(refresh.count(), 0);
        QTest::mouseClick(d->findChild<QPushButton*>("cancelButton"), Qt::LeftButton);
        QCOMPARE(saved("cancelled.tree.xml"), original);

        open();
        QTest::keyClick(slider("LeafDensity"), Qt::Key_End);
        type(spin("PhyllotaxisAngle"), "120");
        QTest::mouseClick(d->findChild<QPushButton*>("applyButton"), Qt::LeftButton);
        const QByteArray applied = saved("applied.tree.xml");
        QVERIFY(applied != original);
        QTest::keyClick(slider("Gravicentralism"), Qt::Key_End);
        type(spin("NumberOfStrands"), "44");
        d->close(); // closing is Cancel too
        QCOMPARE(saved("closed.tree.xml"), applied);
        QCOMPARE(tree->pdPrepared.gostotaListov, 30);

        open();
        type(spin("WindSpeed"), "3");
        QTest::mouseClick(d->findChild<QPushButton*>("okButton"), Qt::LeftButton);
        QVERIFY(!d->isVisible());
        QCOMPARE(tree->pdPrepared.windSpeed, 3.0);
    }
};

QTEST_MAIN(TestAdvancedTreeProperties)
#include "tst_advancedtreeproperties.moc"
