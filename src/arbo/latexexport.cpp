#include "arbo/latexexport.h"

#include <QTextStream>

#include <algorithm>

namespace arbo {

LatexExport::LatexExport(const ParametriDrevesa& parametri, const QString& localeName)
    : p(parametri), decimalnaVejica(localeName == QLatin1String("sl_SI")) {}

QString LatexExport::replacePoint(float value) const {
    QString s = QString::number(value, 'g', 4);
    if (decimalnaVejica)
        s.replace('.', ',');
    return s;
}

double LatexExport::getRealParameterMeaning(float value, int idParametra) {
    switch (idParametra) {
    case 0:
        return std::clamp(0.5 * value + 0.5, 0.5, 1.0);
    case 1:
        return std::min(180.0 * value, 180.0);
    case 2:
    case 3:
    case 4:
        return 10.0 * value;
    case 5:
        return std::clamp(360.0 * value - 180.0, -180.0, 180.0);
    default:
        return value;
    }
}

void LatexExport::shraniParameterKotLatex(QTextStream& out, const Krivulja& pk, bool jeG,
                                          int idParametra) {
    out << "=\\left\\lbrace\\right.";
    const size_t n = pk.tocke.size();
    for (size_t i = 0; i < n; ++i) {
        const Tocka2D& t = pk.tocke[i];
        const double x = jeG ? 15.0 * t.x : 50.0 * t.x;
        const double y = jeG ? getRealParameterMeaning(float(t.y), idParametra) : 2.0 * t.y;
        out << "(" << replacePoint(float(x)) << ",\\;\\;" << replacePoint(float(y));
        if (jeG && (idParametra == 1 || idParametra == 5))
            out << "^\\circ";
        out << ")";
        if (i + 1 < n)
            out << "$,\n$";
    }
    out << "\\left.\\right\\rbrace $";
}

void LatexExport::exportTreeAsLatexFormulas(QTextStream& out) {
    out << "%\\documentclass[slovene,a4paper,12pt,twoside]{report}\n"
           "%\\usepackage[slovene]{babel}\n"
           "%\\selectlanguage{slovene}\n"
           "%\\usepackage[utf8]{inputenc}\n"
           "%\\inputencoding{utf8}\n"
           "%\\begin{document}\n";
    out << tr("To model the tree we have chosen following scalar parameters: ") << "\n";
    out << "$S=" << replacePoint(float(p.stVsehZil)) << "$, "
        << "$L_0=" << replacePoint(float(p.dolzinaDebla)) << "$, "
        << "$k_d=" << replacePoint(p.sirinaSteblaNaZilo) << "$, "
        << "$\\alpha_p=" << replacePoint(float(p.phyllotaxisAngle)) << "$, "
        << "$k_c=" << replacePoint(float(p.graviCentralizem)) << "$, "
        << "$l_l=" << replacePoint(p.listSize) << "$, "
        << "$\\rho_l=" << replacePoint(float(p.gostotaListov)) << "$, \n";
    static const char* const tipi[5] = {"Spiral", "Stacked", "Staggered", "Bunched", "Coniferous"};
    const char* tip = p.tipListov >= 0 && p.tipListov < 5 ? tipi[p.tipListov] : "";
    out << "$l_{type}=\\textit{" << tip << "}$, "
        << "$w_g=" << replacePoint(float(p.windSpeed)) << "$, "
        << "${\\bf w}="
        << "[0\\;\\;1\\;\\;0]^T"
        << "$, "
        << "$k_f="
        << "1"
        << "$ " << tr(" and ") << "$l_{LOD}="
        << "0"
        << "$.\n\n";

    out << tr("Branch distribution") << " $k_s^{g,w}$ " << tr("is determined for all orders")
        << " ($g,w$),\n";
    out << tr("where") << " $g \\in [0,15]$, $w \\in [0,50]$ ($g,w$ "
        << tr("are nonnegative whole numbers),") << "\n";
    out << tr("with equation \\ref{eqn:porazdelitevZilGW}. Values") << " $k_s^{g}$"
        << " in "
        << "$k_s^{w}$"
        << "\n";
    out << tr("are calculated from both graphs, that are given with polylines") << " $k_s^g";
    shraniParameterKotLatex(out, p.verjetnostiVejitveG, true, 0);
    out << tr(" and ") << "$k_s^w";
    shraniParameterKotLatex(out, p.verjetnostiVejitveW, false, 0);
    out << ".\n\n";

    out << tr("Branching angle between dividing subbranches,") << " $\\alpha^{g,w}$ "
        << tr(", is determined for all orders") << "\n";
    out << "$(g,w)$ " << tr("using equation \\ref{eqn:kotVejitveGW}. Needed parameters") << "\n";
    out << tr("in mentioned equation") << " $\\alpha^g$"
        << " in "
        << "$\\alpha^w$ " << tr("are defined using two graphs,") << "\n";
    out << tr("given as polylines") << " $\\alpha^g";
    shraniParameterKotLatex(out, p.kotVejitveG, true, 1);
    out << tr(" and ") << "$\\alpha^w";
    shraniParameterKotLatex(out, p.kotVejitveW, false, 1);
    out << ".\n\n";

    odstavek(out, 2, tr("Minimum relative branch length,"), " $m^{g,w}$", " $(g,w)$",
             tr(" using equation \\ref{eqn:minCharacteristicLengthGW}, substituting"), "$m^g",
             "$m^w");
    odstavek(out, 3, tr("Maximum relative branch length,"), " $M^{g,w}$", "$(g,w)$ ",
             tr("using equation \\ref{eqn:maxCharacteristicLengthGW}, substituting"), "$M^g",
             "$M^w ");
    odstavek(out, 4, tr("Branch length scaling factor,"), " $k_l^{g,w}$", "$(g,w)$ ",
             tr("using equation \\ref{eqn:lengthScalingGW}, substituting"), "$k_l^g", "$k_l^w");
    odstavek(out, 5, tr("Gravimorphism impact,"), " $\\alpha_m^{g,w}$", "$(g,w)$ ",
             tr("using equation \\ref{eqn:gravimorphismGW}, substituting"), "$\\alpha_m^g",
             "$\\alpha_m^w");
    out << "%\\end{document}\n";
}

// One of the four length and gravimorphism paragraphs, all of one pattern.
void LatexExport::odstavek(QTextStream& out, int id, const QString& naslov, const char* simbol,
                           const char* redovi, const QString& enacba, const char* simbolG,
                           const char* simbolW) {
    const Krivulja* krivulje[4][2] = {{&p.minCharacteristicLengthG, &p.minCharacteristicLengthW},
                                      {&p.maxCharacteristicLengthG, &p.maxCharacteristicLengthW},
                                      {&p.lengthScalingG, &p.lengthScalingW},
                                      {&p.gravimorphismImpactG, &p.gravimorphismImpactW}};
    out << naslov << simbol << tr(", is determined for all orders") << "\n";
    out << redovi << enacba << "\n";
    out << simbolG;
    shraniParameterKotLatex(out, *krivulje[id - 2][0], true, id);
    out << tr(" and ") << simbolW;
    shraniParameterKotLatex(out, *krivulje[id - 2][1], false, id);
    out << ".\n\n";
}

} // namespace arbo
