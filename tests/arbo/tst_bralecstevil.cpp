#include "arbo/bralecstevil.h"

#include <QBuffer>
#include <QtTest>

using arbo::BralecStevil;

// The reader takes the file 64 KB at a time: tokens that straddle a piece's
// end must read as those that do not, with their lines and texts.
class TestBralecStevil : public QObject {
    Q_OBJECT

private slots:
    void tokensAcrossPiecesReadWhole();
    void longTokenAcrossPiecesIsRefusedWithItsStart();
};

namespace {
const int kos = 64 * 1024;

QByteArray podatkiDo(int dolzina, char polnilo) {
    return QByteArray(dolzina, polnilo);
}
} // namespace

void TestBralecStevil::tokensAcrossPiecesReadWhole() {
    // Each number starts a few bytes before a piece's end and ends after it.
    for (int pred : {1, 3, 7}) {
        QByteArray podatki = podatkiDo(kos - pred, '\n');
        podatki += "-12.5e1\t123456789\n+7";
        podatki += podatkiDo(kos, ' ');
        podatki += "0.75";
        QBuffer buffer(&podatki);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        BralecStevil bralec(buffer);
        double d = 0;
        int i = 0;
        float f = 0;
        QVERIFY(bralec.beri(d));
        QCOMPARE(d, -125.0);
        QCOMPARE(bralec.vrstica(), kos - pred + 1);
        QVERIFY(bralec.beri(i));
        QCOMPARE(i, 123456789);
        QVERIFY(bralec.beri(i));
        QCOMPARE(i, 7);
        QCOMPARE(bralec.zeton(), std::string("+7"));
        QVERIFY(bralec.beri(f));
        QCOMPARE(f, 0.75f);
        QCOMPARE(bralec.vrstica(), kos - pred + 2);
        QVERIFY(bralec.naKoncu());
        QVERIFY(!bralec.beri(f));
        QVERIFY(bralec.zeton().empty());
    }
}

void TestBralecStevil::longTokenAcrossPiecesIsRefusedWithItsStart() {
    QByteArray podatki = podatkiDo(kos - 10, ' ');
    podatki += QByteArray(100, '7');
    podatki += " 5";
    QBuffer buffer(&podatki);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    BralecStevil bralec(buffer);
    int i = 0;
    QVERIFY(!bralec.beri(i));
    QCOMPARE(bralec.zeton(), std::string(BralecStevil::najdaljsiZeton, '7'));
    QVERIFY(bralec.beri(i));
    QCOMPARE(i, 5);
}

QTEST_APPLESS_MAIN(TestBralecStevil)
#include "tst_bralecstevil.moc"
