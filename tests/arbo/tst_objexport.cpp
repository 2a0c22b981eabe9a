#include "arbo/arbo.h"
#include "arbo/objexport.h"
#include "support/decimalcomma.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

#include <optional>

using arbo::Arbo;
using arbo::ObjExport;

namespace {

struct Mesh {
    int vertices = 0, faces = 0, normals = 0, uvs = 0;
};

// Output of the independent reader, or a null string when it cannot run.
QString run(const QStringList& args) {
    QProcess p;
    p.start(QStandardPaths::findExecutable("assimp"), args);
    if (!p.waitForFinished(120000) || p.exitCode() != 0)
        return {};
    return QString::fromUtf8(p.readAllStandardOutput());
}

// Meshes by name as the reader counts them without post-processing (every
// face corner a vertex of its own).
QMap<QString, Mesh> info(const QString& obj) {
    QMap<QString, Mesh> out;
    static const QRegularExpression line(R"(^\s+\d+ \((\w+)\): \[(\d+) / \d+ / (\d+) \|)",
                                         QRegularExpression::MultilineOption);
    auto it = line.globalMatch(run({"info", obj, "-r"}));
    while (it.hasNext()) {
        const auto m = it.next();
        out[m.captured(1)].vertices = m.captured(2).toInt();
        out[m.captured(1)].faces = m.captured(3).toInt();
    }
    return out;
}

// Normal and texture-coordinate counts per mesh, in the reader's mesh order.
QList<Mesh> dump(const QString& obj, const QString& xml) {
    QList<Mesh> out;
    if (run({"dump", obj, xml}).isNull())
        return out;
    QFile f(xml);
    f.open(QIODevice::ReadOnly);
    QXmlStreamReader r(&f);
    while (!r.atEnd()) {
        if (r.readNext() != QXmlStreamReader::StartElement)
            continue;
        const int num = r.attributes().value("num").toInt();
        if (r.name() == u"Mesh")
            out << Mesh();
        else if (r.name() == u"Positions" && !out.isEmpty())
            out.last().vertices = num;
        else if (r.name() == u"Normals" && !out.isEmpty())
            out.last().normals = num;
        else if (r.name() == u"TextureCoords" && !out.isEmpty())
            out.last().uvs = num;
    }
    return out;
}

QImage slika(QRgb barva) {
    QImage i(8, 8, QImage::Format_ARGB32);
    i.fill(barva);
    i.setPixel(0, 0, qRgba(255, 255, 255, 0));
    return i;
}

} // namespace

class TestObjExport : public QObject {
    Q_OBJECT
    QTemporaryDir dir;

private slots:
    void initTestCase() {
        if (QStandardPaths::findExecutable("assimp").isEmpty())
            QSKIP("assimp (Debian package assimp-utils) is not installed");
    }

    // The reader finds one bark and one leaf mesh with as many triangles as the
    // tree has segments and leaves (a segment is a cone of 5 x 1 quads, or
    // 10 x 5 in high quality; a leaf one quad), normals and texture
    // coordinates on every vertex, and both images. Numbers have a decimal
    // point even where the desktop writes a comma.
    void readerSeesTheTree_data() {
        QTest::addColumn<QString>("datoteka");
        QTest::addColumn<bool>("visoka");
        QTest::addColumn<bool>("vejica");
        QTest::newRow("default") << QString() << false << false;
        QTest::newRow("default, high quality") << QString() << true << false;
        QTest::newRow("spruce") << "smrekaMini.tree.xml" << false << false;
        QTest::newRow("decimal comma desktop") << QString() << false << true;
    }
    void readerSeesTheTree() {
        QFETCH(QString, datoteka);
        QFETCH(bool, visoka);
        QFETCH(bool, vejica);
        std::optional<DecimalComma> slovensko;
        if (vejica && !slovensko.emplace().active())
            QSKIP("no locale with a decimal comma, and localedef could not make one");
        Arbo a;
        if (!datoteka.isEmpty())
            QVERIFY(a.pdPrepared.loadParameters(
                (QString(VIRELA_SOURCE_DIR "/bin/zbirka-4/") + datoteka).toStdString()));
        a.pogled.highQualityRendering = visoka;
        a.pogled.animateWindSway = true;
        a.pogled.cas = 1.0;
        int stZil;
        double visina;
        const arbo::Pogled prej = a.pogled;
        a.zacniOkvir(stZil, visina);
        a.zrasti(stZil, visina, arbo::MatrikaSklad::identiteta());
        const int segmenti = a.delckiDrevesa.stSegmentov, listi = a.delckiDrevesa.stListov;
        a.delckiDrevesa.mreza.izprazni();
        a.pogled = prej;
        QVERIFY(segmenti > 100 && listi > 100);

        const QString obj = dir.filePath(QString("drevo%1.obj").arg(QTest::currentDataTag()));
        QString napaka;
        QVERIFY(
            ObjExport::write(a, obj, slika(qRgb(90, 60, 30)), slika(qRgb(30, 120, 40)), napaka));
        QVERIFY(napaka.isEmpty());
        // The animation did not move on.
        QCOMPARE(a.pogled.cas, prej.cas);
        QFile f(obj);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QString besedilo = QString::fromUtf8(f.readAll());
        QVERIFY(besedilo.contains(
            QRegularExpression(R"(^v -?\d+\.\d+ )", QRegularExpression::MultilineOption)));
        QVERIFY(
            !besedilo.contains(QRegularExpression("^v.*,", QRegularExpression::MultilineOption)));

        const int naSegment = visoka ? 2 * 10 * 5 : 2 * 5 * 1;
        const QMap<QString, Mesh> m = info(obj);
        QCOMPARE(m.keys(), QStringList({"bark", "leaves"}));
        QCOMPARE(m["bark"].faces, segmenti * naSegment);
        QCOMPARE(m["bark"].vertices, 3 * segmenti * naSegment);
        QCOMPARE(m["leaves"].faces, 2 * listi);
        QCOMPARE(m["leaves"].vertices, 3 * 2 * listi);
        const QList<Mesh> d = dump(obj, obj + ".xml");
        QCOMPARE(d.size(), 2);
        for (const Mesh& mesh : d) {
            QCOMPARE(mesh.normals, mesh.vertices);
            QCOMPARE(mesh.uvs, mesh.vertices);
        }
        const QString osnova = obj.chopped(4);
        QCOMPARE(QImage(osnova + "_bark.png").pixel(3, 3), qRgb(90, 60, 30));
        QCOMPARE(qAlpha(QImage(osnova + "_leaf.png").pixel(0, 0)), 0);
        QVERIFY(run({"info", obj, "-r"}).contains(QFileInfo(osnova).fileName() + "_leaf.png"));
    }

    // Nothing is half written: a file that cannot be written leaves the
    // others as they were.
    void failureChangesNothing() {
        Arbo a;
        QString napaka;
        QVERIFY(!ObjExport::write(a, dir.filePath("ni/takega/imenika.obj"), slika(0), slika(0),
                                  napaka));
        QVERIFY(napaka.contains("imenika"));
        // The material library's name is taken by a folder.
        QVERIFY(QDir(dir.path()).mkpath("zaseden.mtl"));
        QFile staro(dir.filePath("zaseden.obj"));
        QVERIFY(staro.open(QIODevice::WriteOnly));
        staro.write("staro");
        staro.close();
        QVERIFY(!ObjExport::write(a, staro.fileName(), slika(0), slika(0), napaka));
        QVERIFY(staro.open(QIODevice::ReadOnly));
        QCOMPARE(staro.readAll(), QByteArray("staro"));
        QVERIFY(!QFile::exists(dir.filePath("zaseden_bark.png")));
    }
};

QTEST_GUILESS_MAIN(TestObjExport)
#include "tst_objexport.moc"
