#include "arbo/objexport.h"

#include "arbo/arbo.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QSaveFile>

#include <cstdio>
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

template <class... Stevila> void dodaj(QByteArray& out, const char* format, Stevila... stevila) {
    char vrstica[128];
    const int n = std::snprintf(vrstica, sizeof vrstica, format, stevila...);
    out.append(vrstica, n);
}

// One object: its vertices, then its triangles; OBJ numbers vertices from 1
// across the whole file.
void zapisiObjekt(QByteArray& out, const char* ime, const MrezaDrevesa::Paket& p, size_t& prvo) {
    out += "o ";
    out += ime;
    out += '\n';
    for (size_t i = 0; i < p.oglisca.size(); ++i)
        dodaj(out, "v %.7g %.7g %.7g\n", double(p.oglisca[i].x), double(p.oglisca[i].y),
              double(p.oglisca[i].z));
    for (size_t i = 0; i < p.oglisca.size(); ++i)
        dodaj(out, "vt %.7g %.7g\n", double(p.oglisca[i].s), double(p.oglisca[i].t));
    for (size_t i = 0; i < p.oglisca.size(); ++i)
        dodaj(out, "vn %.7g %.7g %.7g\n", double(p.oglisca[i].nx), double(p.oglisca[i].ny),
              double(p.oglisca[i].nz));
    out += "usemtl ";
    out += ime;
    out += '\n';
    for (size_t i = 0; i + 2 < p.indeksi.size(); i += 3) {
        const size_t a = prvo + p.indeksi[i], b = prvo + p.indeksi[i + 1],
                     c = prvo + p.indeksi[i + 2];
        dodaj(out, "f %zu/%zu/%zu %zu/%zu/%zu %zu/%zu/%zu\n", a, a, a, b, b, b, c, c, c);
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
