#include "arbo/latexexport.h"

#include <QtTest>

using arbo::LatexExport;
using arbo::ParametriDrevesa;

namespace {

QString besedilo(const ParametriDrevesa& p, const char* locale) {
    QString s;
    QTextStream out(&s);
    LatexExport(p, locale).exportTreeAsLatexFormulas(out);
    out.flush();
    return s;
}

// The whole text for the default tree, written out by hand from the rules.
const char* const privzeto = R"(%\documentclass[slovene,a4paper,12pt,twoside]{report}
%\usepackage[slovene]{babel}
%\selectlanguage{slovene}
%\usepackage[utf8]{inputenc}
%\inputencoding{utf8}
%\begin{document}
To model the tree we have chosen following scalar parameters: 
$S=1000$, $L_0=5$, $k_d=0.01$, $\alpha_p=85$, $k_c=0.3$, $l_l=0.1$, $\rho_l=5$, 
$l_{type}=\textit{Spiral}$, $w_g=1.5$, ${\bf w}=[0\;\;1\;\;0]^T$, $k_f=1$  and $l_{LOD}=0$.

Branch distribution $k_s^{g,w}$ is determined for all orders ($g,w$),
where $g \in [0,15]$, $w \in [0,50]$ ($g,w$ are nonnegative whole numbers),
with equation \ref{eqn:porazdelitevZilGW}. Values $k_s^{g}$ in $k_s^{w}$
are calculated from both graphs, that are given with polylines $k_s^g=\left\lbrace\right.(0,\;\;0.75)$,
$(15,\;\;0.9)\left.\right\rbrace $ and $k_s^w=\left\lbrace\right.(0,\;\;1)$,
$(50,\;\;1)\left.\right\rbrace $.

Branching angle between dividing subbranches, $\alpha^{g,w}$ , is determined for all orders
$(g,w)$ using equation \ref{eqn:kotVejitveGW}. Needed parameters
in mentioned equation $\alpha^g$ in $\alpha^w$ are defined using two graphs,
given as polylines $\alpha^g=\left\lbrace\right.(0,\;\;45^\circ)$,
$(15,\;\;45^\circ)\left.\right\rbrace $ and $\alpha^w=\left\lbrace\right.(0,\;\;1)$,
$(50,\;\;1)\left.\right\rbrace $.

Minimum relative branch length, $m^{g,w}$, is determined for all orders
 $(g,w)$ using equation \ref{eqn:minCharacteristicLengthGW}, substituting
$m^g=\left\lbrace\right.(0,\;\;1)$,
$(7.5,\;\;0.45)$,
$(15,\;\;1)\left.\right\rbrace $ and $m^w=\left\lbrace\right.(0,\;\;1)$,
$(50,\;\;1)\left.\right\rbrace $.

Maximum relative branch length, $M^{g,w}$, is determined for all orders
$(g,w)$ using equation \ref{eqn:maxCharacteristicLengthGW}, substituting
$M^g=\left\lbrace\right.(0,\;\;1)$,
$(15,\;\;1)\left.\right\rbrace $ and $M^w =\left\lbrace\right.(0,\;\;1)$,
$(50,\;\;1)\left.\right\rbrace $.

Branch length scaling factor, $k_l^{g,w}$, is determined for all orders
$(g,w)$ using equation \ref{eqn:lengthScalingGW}, substituting
$k_l^g=\left\lbrace\right.(0,\;\;1)$,
$(15,\;\;1)\left.\right\rbrace $ and $k_l^w=\left\lbrace\right.(0,\;\;1)$,
$(50,\;\;1)\left.\right\rbrace $.

Gravimorphism impact, $\alpha_m^{g,w}$, is determined for all orders
$(g,w)$ using equation \ref{eqn:gravimorphismGW}, substituting
$\alpha_m^g=\left\lbrace\right.(0,\;\;0^\circ)$,
$(15,\;\;0^\circ)\left.\right\rbrace $ and $\alpha_m^w=\left\lbrace\right.(0,\;\;1)$,
$(50,\;\;1)\left.\right\rbrace $.

%\end{document}
)";

} // namespace

class TestLatexExport : public QObject {
    Q_OBJECT
private slots:
    void defaultTreeText() {
        const QString dobljeno = besedilo(ParametriDrevesa(), "en_US");
        const QStringList d = dobljeno.split('\n'), p = QString(privzeto).split('\n');
        for (int i = 0; i < std::min(d.size(), p.size()); ++i)
            QCOMPARE(d[i], p[i]);
        QCOMPARE(d.size(), p.size());
    }

    // Every leaf type by name, any other as an empty name; in Slovene the
    // numbers take a decimal comma.
    void leafTypesAndLocales_data() {
        QTest::addColumn<int>("tip");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("vrstica");
        const char* imena[5] = {"Spiral", "Stacked", "Staggered", "Bunched", "Coniferous"};
        for (int tip = 0; tip < 6; ++tip)
            for (const char* locale : {"en_GB", "sl_SI"}) {
                const bool sl = QString(locale) == "sl_SI";
                QTest::addRow("%d %s", tip, locale)
                    << tip << locale
                    << QString("$l_{type}=\\textit{%1}$, $w_g=%2$, ")
                           .arg(tip < 5 ? imena[tip] : "", sl ? "2,25" : "2.25");
            }
    }
    void leafTypesAndLocales() {
        QFETCH(int, tip);
        QFETCH(QString, locale);
        QFETCH(QString, vrstica);
        ParametriDrevesa p;
        p.tipListov = tip == 5 ? 7 : tip;
        p.windSpeed = 2.25;
        p.sirinaSteblaNaZilo = 0.0125f;
        p.stVsehZil = 12344;
        p.kotVejitveG.tocke = {{0, 0.75}, {0.333, 1.25}};
        const QStringList vrstice = besedilo(p, locale.toLatin1()).split('\n');
        QVERIFY(vrstice[8].startsWith(vrstica));
        const bool sl = locale == "sl_SI";
        // Four significant digits; the angle table is limited to 180 degrees.
        QVERIFY(vrstice[7].startsWith(
            sl ? "$S=1,234e+04$, $L_0=5$, $k_d=0,0125$, $\\alpha_p=85$, $k_c=0,3$"
               : "$S=1.234e+04$, $L_0=5$, $k_d=0.0125$, $\\alpha_p=85$, $k_c=0.3$"));
        QVERIFY(vrstice[20].endsWith("$\\alpha^g=\\left\\lbrace\\right.(0,\\;\\;135^\\circ)$,"));
        QCOMPARE(vrstice[21], QString(sl ? "$(4,995,\\;\\;180^\\circ)\\left.\\right\\rbrace $ and "
                                           "$\\alpha^w=\\left\\lbrace\\right.(0,\\;\\;1)$,"
                                         : "$(4.995,\\;\\;180^\\circ)\\left.\\right\\rbrace $ and "
                                           "$\\alpha^w=\\left\\lbrace\\right.(0,\\;\\;1)$,"));
    }

    void realParameterMeaning() {
        QCOMPARE(LatexExport::getRealParameterMeaning(0.5f, 0), 0.75);
        QCOMPARE(LatexExport::getRealParameterMeaning(-3.0f, 0), 0.5);
        QCOMPARE(LatexExport::getRealParameterMeaning(3.0f, 0), 1.0);
        QCOMPARE(LatexExport::getRealParameterMeaning(-0.5f, 1), -90.0);
        QCOMPARE(LatexExport::getRealParameterMeaning(2.0f, 1), 180.0);
        QCOMPARE(LatexExport::getRealParameterMeaning(0.25f, 4), 2.5);
        QCOMPARE(LatexExport::getRealParameterMeaning(0.0f, 5), -180.0);
        QCOMPARE(LatexExport::getRealParameterMeaning(2.0f, 5), 180.0);
        QCOMPARE(LatexExport::getRealParameterMeaning(0.25f, 6), 0.25);
    }

    void emptyCurve() {
        ParametriDrevesa p;
        QString s;
        QTextStream out(&s);
        LatexExport(p, "C").shraniParameterKotLatex(out, arbo::Krivulja(), true, 1);
        out.flush();
        QCOMPARE(s, QString("=\\left\\lbrace\\right.\\left.\\right\\rbrace $"));
    }
};

QTEST_GUILESS_MAIN(TestLatexExport)
#include "tst_latexexport.moc"
