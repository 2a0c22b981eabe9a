#include "arbo/objexport.h"

#include "arbo/arbo.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

#include <charconv>
#include <initializer_list>
#include <memory>
#include <vector>

namespace arbo {

namespace {

// The tree's mesh of the next frame, grown without drawing and without moving
// its animation on.
void zrastiMrezo(Arbo& drevo) {
    const Pogled pogled = drevo.pogled;
    const double veter = drevo.delckiDrevesa.maxKotZasukaVetra;
    const bool naGl = drevo.delckiDrevesa.sklad.naGl;
    drevo.pogled.wireframe = false;
    drevo.pogled.lowQuality = 0;
    drevo.delckiDrevesa.sklad.naGl = false;
    drevo.delckiDrevesa.mreza.izprazni();
    int stZil;
    double visina;
    drevo.zacniOkvir(stZil, visina);
    drevo.zrasti(stZil, visina, MatrikaSklad::identiteta());
    drevo.pogled = pogled;
    drevo.delckiDrevesa.maxKotZasukaVetra = veter;
    drevo.delckiDrevesa.sklad.naGl = naGl;
}

// A line of numbers, as printf's "%.7g" writes them but always with a decimal
// point: the C library's format follows the desktop's locale (a comma in
// Slovene), which no 3-D package reads.
void dodaj(QByteArray& out, const char* oznaka, std::initializer_list<double> stevila) {
    out += oznaka;
    char stevilo[32];
    for (const double x : stevila) {
        const auto r =
            std::to_chars(stevilo, stevilo + sizeof stevilo, x, std::chars_format::general, 7);
        out += ' ';
        out.append(stevilo, int(r.ptr - stevilo));
    }
    out += '\n';
}

// One object: its vertices, then its triangles; OBJ numbers vertices from 1
// across the whole file.
void zapisiObjekt(QByteArray& out, const char* ime, const MrezaDrevesa::Paket& p, size_t& prvo) {
    out += "o ";
    out += ime;
    out += '\n';
    const auto& o = p.oglisca;
    for (size_t i = 0; i < o.size(); ++i)
        dodaj(out, "v", {o[i].x, o[i].y, o[i].z});
    for (size_t i = 0; i < o.size(); ++i)
        dodaj(out, "vt", {o[i].s, o[i].t});
    for (size_t i = 0; i < o.size(); ++i)
        dodaj(out, "vn", {o[i].nx, o[i].ny, o[i].nz});
    out += "usemtl ";
    out += ime;
    out += '\n';
    for (size_t i = 0; i + 2 < p.indeksi.size(); i += 3) {
        const size_t a = prvo + p.indeksi[i], b = prvo + p.indeksi[i + 1],
                     c = prvo + p.indeksi[i + 2];
        // Position, texture coordinate and normal share each vertex's number.
        out += "f";
        for (const size_t v : {a, b, c}) {
            out += ' ';
            const QByteArray n = QByteArray::number(qulonglong(v));
            out += n + '/' + n + '/' + n;
        }
        out += '\n';
    }
    prvo += p.oglisca.size();
}

QByteArray materiali(const QString& lubje, const QString& listi) {
    QByteArray out = "# Virela tree materials\n";
    out += "newmtl bark\nKa 1 1 1\nKd 1 1 1\nKs 0 0 0\nd 1\nillum 1\nmap_Kd " + lubje.toUtf8() +
           "\n\n";
    // The leaf image is transparent where the program draws no leaf.
    out += "newmtl leaves\nKa 1 1 1\nKd 1 1 1\nKs 0 0 0\nd 1\nillum 1\nmap_Kd " + listi.toUtf8() +
           "\nmap_d " + listi.toUtf8() + "\n";
    return out;
}

} // namespace

bool ObjExport::write(Arbo& tree, const QString& fileName, const QImage& bark, const QImage& leaf,
                      QString& error) {
    const QFileInfo obj(fileName);
    const QString osnova = obj.completeBaseName();
    const QString imeMtl = osnova + ".mtl", imeLubja = osnova + "_bark.png",
                  imeListov = osnova + "_leaf.png";

    zrastiMrezo(tree);
    const MrezaDrevesa& mreza = tree.delckiDrevesa.mreza;
    QByteArray besedilo =
        "# Virela tree: bark and leaves, metres, y up\nmtllib " + imeMtl.toUtf8() + "\n";
    size_t prvo = 1;
    zapisiObjekt(besedilo, "bark", mreza.lubje, prvo);
    zapisiObjekt(besedilo, "leaves", mreza.listi, prvo);
    tree.delckiDrevesa.mreza.izprazni();

    // All four files are prepared before any replaces its old version.
    struct Datoteka {
        QString ime;
        QByteArray vsebina;
        const QImage* slika;
    };
    const Datoteka datoteke[4] = {{imeLubja, {}, &bark},
                                  {imeListov, {}, &leaf},
                                  {imeMtl, materiali(imeLubja, imeListov), nullptr},
                                  {obj.fileName(), besedilo, nullptr}};
    std::vector<std::unique_ptr<QSaveFile>> pisci;
    for (const Datoteka& d : datoteke) {
        auto f = std::make_unique<QSaveFile>(obj.dir().filePath(d.ime));
        bool ok = f->open(QIODevice::WriteOnly);
        if (ok && d.slika) {
            QImageWriter pisec(f.get(), "png");
            ok = pisec.write(*d.slika);
        } else if (ok) {
            ok = f->write(d.vsebina) == d.vsebina.size();
        }
        if (!ok) {
            error = tr("Could not write %1.").arg(QDir::toNativeSeparators(f->fileName()));
            return false; // the files prepared so far are discarded
        }
        pisci.push_back(std::move(f));
    }
    for (auto& f : pisci)
        if (!f->commit()) {
            error = tr("Could not write %1.").arg(QDir::toNativeSeparators(f->fileName()));
            return false;
        }
    return true;
}

} // namespace arbo
