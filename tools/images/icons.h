#pragma once

// Tool-bar and menu icons, the application icon and the splash image. One flat style: solid
// shapes from a small palette, each outlined in a darker shade of its own colour, drawn on a
// 64-unit grid at four times the size and scaled down, so they stay crisp at 22 to 32 pixels.

#include "noise.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <functional>

namespace images {

namespace palette {
const QColor greenDark(46, 125, 50), green(67, 160, 71), greenLight(129, 199, 132);
const QColor brown(121, 85, 72), brownLight(161, 136, 127);
const QColor blue(30, 136, 229), blueLight(100, 181, 246), blueDark(21, 101, 192);
const QColor yellow(253, 203, 45), orange(245, 124, 0), red(229, 57, 53);
const QColor amber(255, 179, 0), amberLight(255, 213, 79);
const QColor grey(120, 144, 156), greyLight(207, 216, 220), greyDark(55, 71, 79);
const QColor white(250, 250, 250), soil(141, 110, 99);
} // namespace palette

inline QPen outline(const QColor& fill, qreal width = 2.0) {
    return QPen(fill.darker(165), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

inline void shape(QPainter& p, const QPainterPath& path, const QColor& fill) {
    p.setPen(outline(fill));
    p.setBrush(fill);
    p.drawPath(path);
}

inline void stroke(QPainter& p, const QPainterPath& path, const QColor& colour, qreal width) {
    // A darker rim under the stroke keeps thin lines legible on any background.
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(colour.darker(165), width + 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(path);
    p.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(path);
}

inline QPainterPath circle(qreal x, qreal y, qreal r) {
    QPainterPath path;
    path.addEllipse(QPointF(x, y), r, r);
    return path;
}

inline QPainterPath rounded(qreal x, qreal y, qreal w, qreal h, qreal r) {
    QPainterPath path;
    path.addRoundedRect(QRectF(x, y, w, h), r, r);
    return path;
}

inline QPainterPath polygon(std::initializer_list<QPointF> points) {
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(points)));
    path.closeSubpath();
    return path;
}

inline void arrowHead(QPainter& p, QPointF tip, QPointF from, const QColor& colour, qreal size) {
    const QPointF d = tip - from;
    const qreal len = std::hypot(d.x(), d.y());
    const QPointF u = d / len, n(-u.y(), u.x());
    shape(p,
          polygon({tip + u * size * 0.3, tip - u * size + n * size * 0.75,
                   tip - u * size - n * size * 0.75}),
          colour);
}

// A broadleaf tree with its trunk foot at (x, y) and height h.
inline void tree(QPainter& p, qreal x, qreal y, qreal h, const QColor& crown = palette::green) {
    shape(p, rounded(x - h * 0.07, y - h * 0.5, h * 0.14, h * 0.5, h * 0.03), palette::brown);
    QPainterPath c = circle(x, y - h * 0.68, h * 0.3);
    c = c.united(circle(x - h * 0.2, y - h * 0.52, h * 0.2));
    c = c.united(circle(x + h * 0.2, y - h * 0.52, h * 0.2));
    shape(p, c, crown);
}

// A conifer with its trunk foot at (x, y) and height h.
inline void conifer(QPainter& p, qreal x, qreal y, qreal h) {
    shape(p, rounded(x - h * 0.06, y - h * 0.25, h * 0.12, h * 0.25, h * 0.02), palette::brown);
    shape(p, polygon({{x, y - h}, {x + h * 0.3, y - h * 0.2}, {x - h * 0.3, y - h * 0.2}}),
          palette::greenDark);
}

// A gentle green hill along the bottom, the ground of the terrain overlay icons.
inline void ground(QPainter& p) {
    QPainterPath g;
    g.moveTo(3, 60);
    g.cubicTo(14, 46, 34, 50, 44, 52);
    g.cubicTo(52, 53, 58, 50, 61, 48);
    g.lineTo(61, 60);
    g.closeSubpath();
    shape(p, g, palette::greenLight);
}

// A small tree on a white disc at the lower right: "this is about the ecosystem".
inline void ecosystemBadge(QPainter& p) {
    shape(p, circle(48, 48, 14), palette::white);
    conifer(p, 48, 60, 22);
}

inline void folder(QPainter& p) {
    QPainterPath back;
    back.moveTo(4, 14);
    back.lineTo(22, 14);
    back.lineTo(27, 19);
    back.lineTo(56, 19);
    back.lineTo(56, 54);
    back.lineTo(4, 54);
    back.closeSubpath();
    shape(p, back, palette::amber);
    shape(p, rounded(11, 11, 36, 30, 2), palette::white);
    p.setPen(QPen(palette::grey, 2.5, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 3; ++i)
        p.drawLine(QPointF(17, 19 + i * 6), QPointF(41, 19 + i * 6));
    shape(p, polygon({{4, 54}, {12, 28}, {62, 28}, {54, 54}}), palette::amberLight);
}

inline void floppy(QPainter& p) {
    QPainterPath body;
    body.moveTo(8, 6);
    body.lineTo(48, 6);
    body.lineTo(58, 16);
    body.lineTo(58, 56);
    body.quadTo(58, 58, 56, 58);
    body.lineTo(8, 58);
    body.quadTo(6, 58, 6, 56);
    body.lineTo(6, 8);
    body.quadTo(6, 6, 8, 6);
    shape(p, body, palette::blue);
    shape(p, rounded(17, 6, 28, 17, 1.5), palette::greyLight);
    shape(p, rounded(35, 9, 6, 11, 1), palette::greyDark);
    shape(p, rounded(14, 33, 36, 25, 2), palette::white);
    p.setPen(QPen(palette::blueLight, 2.5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(20, 42), QPointF(44, 42));
    p.drawLine(QPointF(20, 49), QPointF(38, 49));
}

inline void iconFileOpen(QPainter& p) {
    folder(p);
}
inline void iconFileSave(QPainter& p) {
    floppy(p);
}
inline void iconFileOpenEcosystem(QPainter& p) {
    folder(p);
    ecosystemBadge(p);
}
inline void iconFileSaveEcosystem(QPainter& p) {
    floppy(p);
    ecosystemBadge(p);
}

// Strands: a bundle of fibres that leaves the trunk and fans out into the crown.
inline void iconStrands(QPainter& p) {
    const QColor colours[] = {palette::brown, palette::brownLight, palette::orange,
                              palette::brownLight, palette::brown};
    for (int i = 0; i < 5; ++i) {
        const qreal off = (i - 2) * 3.0;
        const QPointF end(32 + (i - 2) * 12.5, 10 + std::abs(i - 2) * 6);
        QPainterPath s(QPointF(32 + off, 60));
        s.lineTo(32 + off, 44);
        s.cubicTo(32 + off, 30, end.x(), 32, end.x(), end.y());
        stroke(p, s, colours[i], 3.0);
    }
    for (int i = 0; i < 5; ++i)
        shape(p, circle(32 + (i - 2) * 12.5, 8 + std::abs(i - 2) * 6, 4.5), palette::green);
}

// Branching angles: a fork with the angle between the stem's line and the branch filled in.
inline void iconAngles(QPainter& p) {
    const QPointF fork(26, 38);
    QPainterPath wedge(fork);
    wedge.arcTo(QRectF(fork.x() - 24, fork.y() - 24, 48, 48), 90, -50);
    wedge.closeSubpath();
    QColor fill = palette::orange;
    fill.setAlpha(150);
    p.setPen(QPen(palette::orange.darker(130), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(fill);
    p.drawPath(wedge);
    p.setPen(QPen(palette::grey, 2.5, Qt::DashLine, Qt::RoundCap));
    p.drawLine(fork, QPointF(26, 8));
    QPainterPath stem(QPointF(26, 62));
    stem.lineTo(fork);
    QPainterPath branch(fork);
    branch.lineTo(56, 14);
    stroke(p, branch, palette::brown, 5);
    stroke(p, stem, palette::brown, 6.5);
    shape(p, circle(56, 14, 5.5), palette::green);
}

// Branch length scaling: side branches that get shorter towards the top, and a measure.
inline void iconScaling(QPainter& p) {
    const qreal lengths[] = {36, 26, 16};
    for (int i = 0; i < 3; ++i) {
        const qreal y = 44 - i * 14;
        QPainterPath b(QPointF(14, y + 4));
        b.lineTo(14 + lengths[i], y - 3);
        stroke(p, b, palette::brown, 4);
        shape(p, circle(14 + lengths[i], y - 3, 4.5), palette::green);
    }
    QPainterPath trunk(QPointF(14, 62));
    trunk.lineTo(14, 4);
    stroke(p, trunk, palette::brown, 6);
    QPainterPath measure(QPointF(24, 56));
    measure.lineTo(50, 56);
    stroke(p, measure, palette::blue, 3);
    arrowHead(p, QPointF(60, 56), QPointF(50, 56), palette::blue, 6);
    arrowHead(p, QPointF(17, 56), QPointF(27, 56), palette::blue, 6);
}

// Gravimorphism: a branch that arches out and droops under its weight; gravity pulls down.
inline void iconGravimorphism(QPainter& p) {
    QPainterPath trunk(QPointF(14, 62));
    trunk.lineTo(14, 6);
    QPainterPath branch(QPointF(14, 26));
    branch.cubicTo(30, 10, 44, 14, 46, 38);
    stroke(p, branch, palette::brown, 4.5);
    stroke(p, trunk, palette::brown, 6);
    shape(p, circle(46, 41, 5), palette::green);
    shape(p, circle(37, 20, 4), palette::green);
    QPainterPath g(QPointF(56, 10));
    g.lineTo(56, 50);
    stroke(p, g, palette::blue, 3);
    arrowHead(p, QPointF(56, 60), QPointF(56, 50), palette::blue, 6);
}

// Advanced tree properties: a panel of sliders.
inline void iconTreeScalars(QPainter& p) {
    shape(p, rounded(4, 6, 56, 52, 6), palette::white);
    const qreal knobs[] = {40, 22, 32};
    const QColor colours[] = {palette::green, palette::orange, palette::blue};
    for (int i = 0; i < 3; ++i) {
        const qreal y = 18 + i * 14;
        shape(p, rounded(12, y - 2, 40, 4, 2), palette::greyLight);
        shape(p, rounded(12, y - 2, knobs[i] - 12, 4, 2), colours[i].lighter(130));
        shape(p, circle(knobs[i], y, 5.5), colours[i]);
    }
}

inline void iconEcosystem(QPainter& p) {
    QPainterPath hill;
    hill.moveTo(2, 60);
    hill.cubicTo(12, 40, 40, 38, 62, 46);
    hill.lineTo(62, 60);
    hill.closeSubpath();
    shape(p, hill, palette::greenLight);
    conifer(p, 14, 52, 34);
    tree(p, 34, 47, 40);
    tree(p, 52, 50, 26, palette::greenDark.lighter(115));
}

inline void iconMoisture(QPainter& p) {
    ground(p);
    QPainterPath drop;
    drop.moveTo(32, 4);
    drop.cubicTo(38, 16, 48, 24, 48, 34);
    drop.arcTo(QRectF(16, 18, 32, 32), 0, -180);
    drop.cubicTo(16, 24, 26, 16, 32, 4);
    shape(p, drop, palette::blue);
    QPainterPath shine(QPointF(23, 36));
    shine.quadTo(23, 30, 27, 26);
    p.setPen(QPen(palette::blueLight.lighter(120), 3, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawPath(shine);
}

inline void iconSunniness(QPainter& p) {
    ground(p);
    for (int i = 0; i < 8; ++i) {
        const qreal a = i * kPi / 4;
        QPainterPath ray(QPointF(32 + std::cos(a) * 17, 26 + std::sin(a) * 17));
        ray.lineTo(32 + std::cos(a) * 25, 26 + std::sin(a) * 25);
        stroke(p, ray, palette::orange, 3.5);
    }
    shape(p, circle(32, 26, 12), palette::yellow);
}

inline void windLines(QPainter& p, qreal x, qreal y, qreal w, const QColor& colour) {
    QPainterPath a(QPointF(x, y));
    a.lineTo(x + w * 0.7, y);
    a.cubicTo(x + w * 0.95, y, x + w * 0.95, y - 10, x + w * 0.78, y - 10);
    QPainterPath b(QPointF(x + w * 0.1, y + 9));
    b.lineTo(x + w * 0.9, y + 9);
    b.cubicTo(x + w * 1.12, y + 9, x + w * 1.1, y + 19, x + w * 0.92, y + 18);
    QPainterPath c(QPointF(x, y + 18));
    c.lineTo(x + w * 0.55, y + 18);
    stroke(p, a, colour, 3.5);
    stroke(p, b, colour, 3.5);
    stroke(p, c, colour, 3.5);
}

inline void iconWindiness(QPainter& p) {
    ground(p);
    windLines(p, 6, 16, 46, palette::blueLight);
}

inline void iconNavigate(QPainter& p) {
    shape(p, circle(32, 32, 27), palette::white);
    p.setPen(QPen(palette::grey, 2.5, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 4; ++i) {
        const qreal a = i * kPi / 2;
        p.drawLine(QPointF(32 + std::cos(a) * 21, 32 + std::sin(a) * 21),
                   QPointF(32 + std::cos(a) * 25, 32 + std::sin(a) * 25));
    }
    shape(p, polygon({{32, 8}, {39, 32}, {25, 32}}), palette::red);
    shape(p, polygon({{32, 56}, {39, 32}, {25, 32}}), palette::greyLight);
    shape(p, circle(32, 32, 3.5), palette::greyDark);
}

inline void iconGrow(QPainter& p) {
    QPainterPath soil;
    soil.moveTo(4, 60);
    soil.cubicTo(12, 50, 36, 50, 44, 60);
    soil.closeSubpath();
    shape(p, soil, palette::soil);
    QPainterPath stem(QPointF(24, 56));
    stem.cubicTo(24, 44, 22, 36, 24, 24);
    stroke(p, stem, palette::greenDark, 3.5);
    QPainterPath leafL(QPointF(24, 34));
    leafL.cubicTo(16, 34, 8, 28, 6, 20);
    leafL.cubicTo(14, 18, 22, 24, 24, 34);
    shape(p, leafL, palette::green);
    QPainterPath leafR(QPointF(24, 28));
    leafR.cubicTo(30, 22, 36, 16, 44, 16);
    leafR.cubicTo(42, 24, 34, 30, 24, 28);
    shape(p, leafR, palette::greenLight);
    QPainterPath arrow(QPointF(54, 56));
    arrow.lineTo(54, 18);
    stroke(p, arrow, palette::green, 4);
    arrowHead(p, QPointF(54, 6), QPointF(54, 16), palette::green, 7);
}

inline void iconWind(QPainter& p) {
    shape(p, rounded(36, 38, 6, 22, 2), palette::brown);
    QPainterPath crown = circle(42, 26, 14);
    crown = crown.united(circle(50, 34, 9));
    crown = crown.united(circle(33, 34, 8));
    p.save();
    p.translate(40, 60);
    p.rotate(12);
    p.translate(-40, -60);
    shape(p, crown, palette::green);
    p.restore();
    windLines(p, 2, 14, 26, palette::blueLight);
}

inline void iconPlay(QPainter& p) {
    shape(p, circle(32, 32, 27), palette::green);
    QPainterPath tri = polygon({{25, 18}, {47, 32}, {25, 46}});
    p.setPen(QPen(palette::white, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(palette::white);
    p.drawPath(tri);
}

// Plant area: a dashed selection with handles over a piece of land.
inline void iconArea(QPainter& p) {
    shape(p, rounded(3, 10, 58, 46, 6), palette::greenLight);
    conifer(p, 24, 44, 22);
    tree(p, 38, 46, 20);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(palette::blueDark, 3, Qt::DashLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawRect(QRectF(12, 18, 40, 30));
    for (const QPointF& c : {QPointF(12, 18), QPointF(52, 18), QPointF(52, 48), QPointF(12, 48)})
        shape(p, rounded(c.x() - 4, c.y() - 4, 8, 8, 1.5), palette::white);
}

inline void iconStats(QPainter& p) {
    shape(p, rounded(4, 4, 56, 56, 6), palette::white);
    const qreal heights[] = {16, 34, 24, 42};
    const QColor colours[] = {palette::green, palette::greenDark, palette::orange, palette::blue};
    for (int i = 0; i < 4; ++i)
        shape(p, rounded(11 + i * 11.5, 52 - heights[i], 8, heights[i], 1.5), colours[i]);
    p.setPen(QPen(palette::greyDark, 2.5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(8, 52), QPointF(56, 52));
}

// Renders one icon of `size` pixels from its 64-unit drawing.
inline QImage renderIcon(const std::function<void(QPainter&)>& draw, int size = 64) {
    QImage big(size * 4, size * 4, QImage::Format_ARGB32_Premultiplied);
    big.fill(Qt::transparent);
    {
        QPainter p(&big);
        p.setRenderHint(QPainter::Antialiasing);
        p.scale(size * 4 / 64.0, size * 4 / 64.0);
        draw(p);
    }
    return big.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32);
}

} // namespace images
