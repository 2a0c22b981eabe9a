#include "gui/design/designhistory.h"

#include "arbo/arbo.h"

namespace gui {

namespace {
// The twelve curves in the order of the parameter file.
template <class P, class F> void forEachCurve(P& p, F f) {
    const auto curves = {&p.verjetnostiVejitveG,
                         &p.verjetnostiVejitveW,
                         &p.kotVejitveG,
                         &p.kotVejitveW,
                         &p.minCharacteristicLengthG,
                         &p.minCharacteristicLengthW,
                         &p.maxCharacteristicLengthG,
                         &p.maxCharacteristicLengthW,
                         &p.lengthScalingG,
                         &p.lengthScalingW,
                         &p.gravimorphismImpactG,
                         &p.gravimorphismImpactW};
    int i = 0;
    for (auto* c : curves)
        f(i++, *c);
}

bool sameCurve(const arbo::Krivulja& a, const arbo::Krivulja& b) {
    if (a.tocke.size() != b.tocke.size())
        return false;
    for (size_t i = 0; i < a.tocke.size(); ++i)
        if (a.tocke[i].x != b.tocke[i].x || a.tocke[i].y != b.tocke[i].y)
            return false;
    return true;
}
} // namespace

bool DesignHistory::Design::operator==(const Design& o) const {
    if (stVsehZil != o.stVsehZil || dolzinaDebla != o.dolzinaDebla ||
        sirinaSteblaNaZilo != o.sirinaSteblaNaZilo || phyllotaxisAngle != o.phyllotaxisAngle ||
        graviCentralizem != o.graviCentralizem || listSize != o.listSize ||
        gostotaListov != o.gostotaListov || tipListov != o.tipListov || windSpeed != o.windSpeed ||
        windSpeedNodirect != o.windSpeedNodirect)
        return false;
    for (size_t i = 0; i < curves.size(); ++i)
        if (!sameCurve(curves[i], o.curves[i]))
            return false;
    return true;
}

DesignHistory::Design DesignHistory::take(const arbo::ParametriDrevesa& p) {
    Design d{
        p.stVsehZil, p.dolzinaDebla,  p.sirinaSteblaNaZilo, p.phyllotaxisAngle, p.graviCentralizem,
        p.listSize,  p.gostotaListov, p.tipListov,          p.windSpeed,        p.windSpeedNodirect,
        {}};
    forEachCurve(p, [&](int i, const arbo::Krivulja& c) { d.curves[i] = c; });
    return d;
}

void DesignHistory::put(const Design& d, arbo::ParametriDrevesa& p) {
    p.stVsehZil = d.stVsehZil;
    p.dolzinaDebla = d.dolzinaDebla;
    p.sirinaSteblaNaZilo = d.sirinaSteblaNaZilo;
    p.phyllotaxisAngle = d.phyllotaxisAngle;
    p.graviCentralizem = d.graviCentralizem;
    p.listSize = d.listSize;
    p.gostotaListov = d.gostotaListov;
    p.tipListov = d.tipListov;
    p.windSpeed = d.windSpeed;
    p.windSpeedNodirect = d.windSpeedNodirect;
    forEachCurve(p, [&](int i, arbo::Krivulja& c) { c = d.curves[i]; });
    p.recalculateRelativeParams();
}

void DesignHistory::commit(arbo::Arbo* tree) {
    Steps& s = trees[tree];
    Design now = take(tree->pdPrepared);
    if (s.recorded && now == s.last)
        return;
    if (s.recorded) {
        s.back.push_back(std::move(s.last));
        if (s.back.size() > maxSteps)
            s.back.pop_front();
        s.forward.clear();
    }
    s.last = std::move(now);
    s.recorded = true;
}

bool DesignHistory::step(arbo::Arbo* tree, std::deque<Design>& from, std::deque<Design>& to) {
    Steps& s = trees[tree];
    if (from.empty())
        return false;
    to.push_back(std::move(s.last));
    s.last = std::move(from.back());
    from.pop_back();
    put(s.last, tree->pdPrepared);
    return true;
}

// Whatever changed since the last record becomes a step of its own first, so
// that undo never skips over it.
bool DesignHistory::undo(arbo::Arbo* tree) {
    commit(tree);
    Steps& s = trees[tree];
    return step(tree, s.back, s.forward);
}

bool DesignHistory::redo(arbo::Arbo* tree) {
    commit(tree);
    Steps& s = trees[tree];
    return step(tree, s.forward, s.back);
}

} // namespace gui
