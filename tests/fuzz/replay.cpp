// The fuzz drivers without libFuzzer: each argument, a file or a folder of
// files, is given to the driver once, in name order. Used by the corpus tests
// of builds without clang.

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size);

namespace {
int poskusi(const QString& pot) {
    QFile f(pot);
    if (!f.open(QIODevice::ReadOnly)) {
        std::fprintf(stdout, "cannot read %s\n", qPrintable(pot));
        return 1;
    }
    const QByteArray vsebina = f.readAll();
    std::fprintf(stdout, "%s\n", qPrintable(pot));
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(vsebina.constData()),
                           size_t(vsebina.size()));
    return 0;
}
} // namespace

int main(int argc, char** argv) {
    int napake = 0, stevilo = 0;
    for (int i = 1; i < argc; ++i) {
        const QString pot = QString::fromLocal8Bit(argv[i]);
        if (QFileInfo(pot).isDir()) {
            for (const QFileInfo& f : QDir(pot).entryInfoList(QDir::Files, QDir::Name)) {
                napake += poskusi(f.filePath());
                ++stevilo;
            }
        } else {
            napake += poskusi(pot);
            ++stevilo;
        }
    }
    std::fprintf(stdout, "%d files replayed\n", stevilo);
    return napake == 0 && stevilo > 0 ? 0 : 1;
}
