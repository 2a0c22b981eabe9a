#include "ecosystem/render/levelofdetail.h"

#include <QtTest>

using ecosystem::render::CLevelOfDetail;

class TestLevelOfDetail : public QObject {
    Q_OBJECT
private slots:
    void bands_data() {
        QTest::addColumn<float>("distance");
        QTest::addColumn<int>("level");
        // Level k starts at 5 k^2 metres.
        QTest::newRow("at the camera") << 0.0f << 0;
        QTest::newRow("4.9") << 4.9f << 0;
        QTest::newRow("5") << 5.0f << 1;
        QTest::newRow("19.9") << 19.9f << 1;
        QTest::newRow("20") << 20.0f << 2;
        QTest::newRow("44.9") << 44.9f << 2;
        QTest::newRow("80") << 80.0f << 4;
        QTest::newRow("124.9") << 124.9f << 4;
        QTest::newRow("180") << 180.0f << 6;
        QTest::newRow("320") << 320.0f << 8;
        QTest::newRow("404.9") << 404.9f << 8;
        QTest::newRow("405") << 405.0f << 9;
        QTest::newRow("far away") << 20000.0f << 9;
    }

    void bands() {
        QFETCH(float, distance);
        QFETCH(int, level);
        CLevelOfDetail lod;
        arbo::Tocka camera(1300.0f, 250.0f, 790.0f);
        lod.setCameraPosition(camera);
        // The distance is measured in 3-D, whatever its direction: 3-4-5 split.
        const arbo::Tocka plant(1300.0f - 0.6f * distance, 250.0f, 790.0f + 0.8f * distance);
        QCOMPARE(lod.getLODcase(plant), level);
        const arbo::Tocka below(1300.0f, 250.0f - distance, 790.0f);
        QCOMPARE(lod.getLODcase(below), level);
    }
};

QTEST_GUILESS_MAIN(TestLevelOfDetail)
#include "tst_levelofdetail.moc"
