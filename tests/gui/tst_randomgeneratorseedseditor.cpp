#include "gui/randomgeneratorseedseditor.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

using gui::RandomGeneratorSeedsEditor;

Q_DECLARE_METATYPE(std::vector<unsigned long long>)

class TestRandomGeneratorSeedsEditor : public QObject {
    Q_OBJECT

    static std::vector<unsigned long long> seeds(int prvi) {
        std::vector<unsigned long long> s;
        for (int i = 0; i < 13; ++i)
            s.push_back(prvi + i);
        return s;
    }

private slots:
    void fieldsShowTheSeedsInOrder() {
        RandomGeneratorSeedsEditor d;
        QCOMPARE(d.windowTitle(), QString("Random generator seeds editor"));
        std::vector<unsigned long long> s = seeds(1);
        s[12] = 8589934591ULL; // a full 33-bit state
        d.setSeeds(s);
        QCOMPARE(d.randomGrowClose->text(), QString("1"));
        QCOMPARE(d.random3dpositionsOfNewPlantsJ->text(), QString("6"));
        QCOMPARE(d.randomDeathBecauseOfBadSlope->text(), QString("12"));
        QCOMPARE(d.randomTimeOfDeath->text(), QString("8589934591"));
        QVERIFY(d.findChild<QLineEdit*>("randomChooseNewPlantGrowSide") ==
                d.randomChooseNewPlantGrowSide);
    }

    void okSendsTheEditedSeeds() {
        RandomGeneratorSeedsEditor d;
        d.setSeeds(seeds(100));
        QSignalSpy poslano(&d, &RandomGeneratorSeedsEditor::updateSeeds);
        d.randomChooseNearPlant->setText("18446744073709551615");
        d.randomDeathBecauseOfBadHeight->setText("abc");
        d.randomPositionOfNewPlantsAnywhere->setText("-5");
        d.show();
        QTest::mouseClick(d.okButton, Qt::LeftButton);
        QCOMPARE(poslano.count(), 1);
        const auto dobljeno = poslano.at(0).at(0).value<std::vector<unsigned long long>>();
        std::vector<unsigned long long> pricakovano = seeds(100);
        pricakovano[1] = 18446744073709551615ULL;
        pricakovano[3] = 0; // not a decimal number
        pricakovano[7] = 0;
        QCOMPARE(dobljeno, pricakovano);
        QCOMPARE(d.result(), int(QDialog::Accepted));
    }

    void cancelSendsNothing() {
        RandomGeneratorSeedsEditor d;
        d.setSeeds(seeds(5));
        QSignalSpy poslano(&d, &RandomGeneratorSeedsEditor::updateSeeds);
        d.randomGrowClose->setText("77");
        d.show();
        QTest::mouseClick(d.cancelButton, Qt::LeftButton);
        QCOMPARE(poslano.count(), 0);
        QCOMPARE(d.result(), int(QDialog::Rejected));
    }
};

QTEST_MAIN(TestRandomGeneratorSeedsEditor)
#include "tst_randomgeneratorseedseditor.moc"
