#include "ecosystem/render/framerate.h"

#include <QRegularExpression>
#include <QtTest>

using ecosystem::render::FrameRate;

class TestFrameRate : public QObject {
    Q_OBJECT
private slots:
    void reportsOnlyOnceMoreThanASecondGathered() {
        FrameRate r;
        // 40 frames of 25 ms make exactly 1000 ms: not yet more than a second.
        for (int i = 0; i < 40; ++i)
            QCOMPARE(r.addFrame(25), 0.0f);
        const float fps = r.addFrame(25); // 1025 ms over 41 frames
        QCOMPARE(fps, 1000.0f / 1025.0f * 41.0f);
        QCOMPARE(r.frames, 0);
        QCOMPARE(r.msSum, qint64(0));
    }
    void slowFrameReportsAtOnce() {
        FrameRate r;
        QCOMPARE(r.addFrame(0), 0.0f);
        QCOMPARE(r.addFrame(2000), 1000.0f / 2000.0f * 2.0f);
    }
    void lineIsNumberDirectlyFollowedByFps() {
        QCOMPARE(FrameRate::line(1000.0f / 1025.0f * 41.0f), std::string("40fps"));
        QCOMPARE(FrameRate::line(1000.0f / 1020.0f * 30.0f), std::string("29.4118fps"));
        const QRegularExpression format("^[0-9]+(\\.[0-9]+)?fps$");
        QVERIFY(format.match(QString::fromStdString(FrameRate::line(59.94f))).hasMatch());
    }
};

QTEST_GUILESS_MAIN(TestFrameRate)
#include "tst_framerate.moc"
