#pragma once

// What the three loader fuzz drivers share: the input written to a file (the
// loaders read files, as in the program), standard output and error silenced,
// the user's messages counted instead of shown, and a check that stops the
// run with a message when something does not hold.

#include "arbo/usermessage.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

namespace fuzz {

// Messages shown to the user since the last clear.
inline int& stSporocil() {
    static int n = 0;
    return n;
}

// One for the whole run: the application object the loaders' texts and images
// need, a folder in memory when there is one, and quiet output.
class Okolje {
public:
    Okolje()
        : app(argc, argv),
          mapa(QDir("/dev/shm").exists() ? "/dev/shm/virela-fuzz-XXXXXX"
                                         : QDir::tempPath() + "/virela-fuzz-XXXXXX") {
        arbo::setUserMessageHandler([](const std::string&, const std::string&) { ++stSporocil(); });
        staroOut = std::cout.rdbuf(tiho.rdbuf());
        staroErr = std::cerr.rdbuf(tiho.rdbuf());
    }
    // The streams outlive this object: they get their own buffers back.
    ~Okolje() {
        std::cout.rdbuf(staroOut);
        std::cerr.rdbuf(staroErr);
        arbo::setUserMessageHandler(nullptr);
    }
    Okolje(const Okolje&) = delete;
    Okolje& operator=(const Okolje&) = delete;

    // data written to a file of this name; the same path every time.
    std::string zapisi(const std::uint8_t* data, size_t size, const char* ime) {
        const QString pot = mapa.filePath(ime);
        QFile f(pot);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            f.write(reinterpret_cast<const char*>(data), qint64(size)) != qint64(size))
            std::abort();
        return pot.toStdString();
    }

    // Drops what the silenced streams gathered, so a long run does not grow.
    void pocisti() {
        tiho.str(std::string());
        stSporocil() = 0;
    }

private:
    int argc = 1;
    char ime[16] = "virela-fuzz";
    char* argv[2] = {ime, nullptr};
    QCoreApplication app;
    QTemporaryDir mapa;
    std::ostringstream tiho;
    std::streambuf* staroOut = nullptr;
    std::streambuf* staroErr = nullptr;
};

// A broken promise: said on the real standard error, then the run stops.
inline void zahtevaj(bool pogoj, const char* kaj) {
    if (pogoj)
        return;
    std::fprintf(stderr, "fuzz check failed: %s\n", kaj);
    std::abort();
}

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size);
