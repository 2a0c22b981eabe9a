#pragma once

#include "arbo/krivulja.h"
#include "arbo/parametridrevesa.h"

#include <QCoreApplication>
#include <QString>

class QTextStream;

namespace arbo {

// The tree's parameter set as a fragment of a LaTeX document: one sentence of
// scalars and one paragraph per distribution table, each listing its two curves
// as point sets. The preamble is written commented out, so the file can be
// included in a document that defines the equations it refers to.
class LatexExport {
    Q_DECLARE_TR_FUNCTIONS(LatexExport)
public:
    // Numbers take a decimal comma when the locale is "sl_SI".
    explicit LatexExport(const ParametriDrevesa& parametri, const QString& localeName);

    void exportTreeAsLatexFormulas(QTextStream& out);
    void shraniParameterKotLatex(QTextStream& out, const Krivulja& pk, bool jeG, int idParametra);
    QString replacePoint(float value) const;
    // A G-curve value in its table's unit (fraction, degrees, relative length).
    static double getRealParameterMeaning(float value, int idParametra);

private:
    const ParametriDrevesa& p;
    bool decimalnaVejica;

    void odstavek(QTextStream& out, int id, const QString& naslov, const char* simbol,
                  const char* redovi, const QString& enacba, const char* simbolG,
                  const char* simbolW);
};

} // namespace arbo
