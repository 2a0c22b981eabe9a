// Fuzz driver of the tree parameter loader: a file is loaded into a set that
// differs from the defaults; a rejected file must leave it exactly as it was
// and say why, an accepted one must hold only values within the loader's
// limits and grow, in three drawing modes, a tree of bounded size.

#include "fuzz/fuzzfile.h"

#include "arbo/arbo.h"
#include "support/parametri.h"

namespace {

arbo::ParametriDrevesa zacetni() {
    arbo::ParametriDrevesa p;
    p.stVsehZil = 321;
    p.tipListov = 3;
    p.kotVejitveW.tocke = {{0, 0.1}, {0.4, 0.7}, {1, 0.9}};
    p.recalculateRelativeParams();
    return p;
}

bool vMejah(const arbo::ParametriDrevesa& p) {
    using P = arbo::ParametriDrevesa;
    return p.stVsehZil >= 0 && p.stVsehZil <= P::najvecZil && p.gostotaListov >= 0 &&
           p.gostotaListov <= P::najvecListov && p.tipListov >= 0 && p.tipListov <= 4 &&
           p.barkTextureFileName.size() <= 254 && p.leafTextureFileName.size() <= 254;
}

// One frame's growth on the CPU path (no OpenGL needed); the mesh is dropped.
void zrasti(arbo::Arbo& drevo) {
    int stZil = 0;
    double visina = 0;
    drevo.zacniOkvir(stZil, visina);
    drevo.zrasti(stZil, visina, arbo::MatrikaSklad::identiteta());
    // At most two segments and leafDensity leaves for every strand, and never
    // more than a frame holds.
    const arbo::DelckiDrevesa& d = drevo.delckiDrevesa;
    const long long zil = drevo.pd.stVsehZil;
    fuzz::zahtevaj(d.stSegmentov <= 2 * zil + 2 &&
                       d.stListov <= (zil + 1) * (drevo.pd.gostotaListov + 1),
                   "a frame grows no more than the strands allow");
    fuzz::zahtevaj(d.stSegmentov <= d.najvecSegmentov && d.stListov <= d.najvecListov,
                   "a frame grows no more than a frame holds");
    drevo.delckiDrevesa.mreza.izprazni();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    static fuzz::Okolje okolje;
    static arbo::Arbo drevo;
    okolje.pocisti();
    const std::string pot = okolje.zapisi(data, size, "in.tree.xml");
    arbo::ParametriDrevesa p = zacetni();
    const arbo::ParametriDrevesa prej(p);
    std::string razlog;
    if (!p.loadParameters(pot, &razlog)) {
        fuzz::zahtevaj(testparametri::enaki(p, prej), "a rejected file changes nothing");
        fuzz::zahtevaj(!razlog.empty(), "a rejected file says why");
        return 0;
    }
    fuzz::zahtevaj(vMejah(p), "an accepted file lies within the limits");
    // Fine stems; then swaying, growing and in wire frame; then far (level of
    // detail 5), swaying on.
    drevo.pdPrepared = p;
    drevo.pogled = arbo::Pogled();
    drevo.pogled.highQualityRendering = true;
    zrasti(drevo);
    drevo.pogled.highQualityRendering = false;
    drevo.pogled.animateWindSway = true;
    drevo.pogled.animateGrow = true;
    drevo.pogled.starostDrevesa = 0.97;
    drevo.pogled.wireframe = true;
    zrasti(drevo);
    drevo.pogled.wireframe = false;
    drevo.pogled.lowQuality = 5;
    zrasti(drevo);
    return 0;
}
