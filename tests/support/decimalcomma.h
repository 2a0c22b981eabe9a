#pragma once

// While it lives, the C library writes numbers with a decimal comma, as on a
// Slovene desktop (Qt applications take the desktop's locale). Where no such
// locale is installed, one that differs from "C" only in its decimal comma is
// made with localedef in a temporary folder. active() is false when neither
// works.

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <clocale>
#include <cstdio>
#include <cstring>
#include <string>

class DecimalComma {
public:
    DecimalComma() : before(std::setlocale(LC_NUMERIC, nullptr)), locpath(qgetenv("LOCPATH")) {
        for (const char* name : {"sl_SI.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8"})
            if (std::setlocale(LC_NUMERIC, name) && active())
                return;
        const QString localedef = QStandardPaths::findExecutable("localedef");
        QFile source(dir.filePath("comma.src"));
        if (localedef.isEmpty() || !dir.isValid() || !source.open(QIODevice::WriteOnly))
            return;
        source.write("LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\n"
                     "END LC_NUMERIC\n");
        source.close();
        // localedef warns of (and exits 1 for) the categories left out.
        QProcess make;
        make.setStandardOutputFile(QProcess::nullDevice());
        make.setStandardErrorFile(QProcess::nullDevice());
        make.start(localedef, {"-c", "-i", source.fileName(), dir.filePath("comma")});
        make.waitForFinished();
        qputenv("LOCPATH", QFile::encodeName(dir.path()));
        std::setlocale(LC_NUMERIC, "comma");
    }
    ~DecimalComma() {
        std::setlocale(LC_NUMERIC, before.c_str());
        if (locpath.isNull())
            qunsetenv("LOCPATH");
        else
            qputenv("LOCPATH", locpath);
    }
    DecimalComma(const DecimalComma&) = delete;
    DecimalComma& operator=(const DecimalComma&) = delete;

    static bool active() {
        char text[8];
        std::snprintf(text, sizeof text, "%.1f", 0.5);
        return std::strcmp(text, "0,5") == 0;
    }

private:
    std::string before;
    QByteArray locpath;
    QTemporaryDir dir;
};
