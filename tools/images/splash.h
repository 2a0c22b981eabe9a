#pragma once

// The application icon and the splash image.

#include "icons.h"

namespace images {

// A recursively branching tree with leaf clusters at the twigs, drawn from a seeded generator.
class BranchingTree {
public:
    BranchingTree(QPainter& painter, uint64_t seed) : p(painter), rng(seed) {}

    void grow(QPointF base, qreal angleDeg, qreal length, qreal width, int depth) {
        branches(base, angleDeg, length, width, depth);
        for (const Leaf& l : leaves) {
            p.setPen(Qt::NoPen);
            p.setBrush(l.colour);
            p.drawEllipse(l.centre, l.radius, l.radius);
        }
    }

private:
    struct Leaf {
        QPointF centre;
        qreal radius;
        QColor colour;
    };

    void branches(QPointF base, qreal angleDeg, qreal length, qreal width, int depth) {
        const qreal a = angleDeg * kPi / 180.0;
        const QPointF tip = base + QPointF(std::sin(a), -std::cos(a)) * length;
        const QPointF mid = (base + tip) / 2 +
                            QPointF(std::cos(a), std::sin(a)) * (rng.next() - 0.5) * length * 0.15;
        QPainterPath path(base);
        path.quadTo(mid, tip);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(92, 64, 51), width, Qt::SolidLine, Qt::RoundCap));
        p.drawPath(path);
        if (depth == 0) {
            addLeaves(tip, length);
            return;
        }
        const int children = rng.next() < 0.3 ? 3 : 2;
        for (int c = 0; c < children; ++c) {
            // Children spread out but lean back towards the vertical: an upright crown.
            const qreal spread = children == 3 ? (c - 1) * 28.0 : (c == 0 ? -24.0 : 24.0);
            branches(tip, angleDeg * 0.75 + spread + rng.range(-8, 8),
                     length * rng.range(0.7f, 0.82f), width * 0.68, depth - 1);
        }
    }

    void addLeaves(QPointF at, qreal size) {
        const QColor greens[] = {QColor(56, 142, 60, 210), QColor(76, 175, 80, 200),
                                 QColor(104, 159, 56, 200), QColor(46, 125, 50, 220)};
        for (int k = 0; k < 6; ++k) {
            const QPointF off(rng.range(-1.0f, 1.0f) * size, rng.range(-1.0f, 0.6f) * size);
            leaves.push_back({at + off, size * rng.range(0.5f, 0.9f), greens[k % 4]});
        }
    }

    QPainter& p;
    Lcg rng;
    std::vector<Leaf> leaves;
};

inline void hills(QPainter& p, qreal w, qreal h, qreal top, qreal amp, const QColor& colour,
                  uint32_t seed) {
    QPainterPath path(QPointF(0, h));
    for (int x = 0; x <= int(w); x += 4) {
        const float u = float(x) / float(w);
        path.lineTo(x, top - amp * (0.5f + 0.5f * fbm(u * 3, 0.5f, 64, 3, 0.5f, seed)));
    }
    path.lineTo(w, h);
    path.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawPath(path);
}

inline QImage makeSplash() {
    const int W = 512, H = 320;
    QImage img(W, H, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    QLinearGradient sky(0, 0, 0, H);
    sky.setColorAt(0.0, QColor(120, 170, 222));
    sky.setColorAt(0.7, QColor(222, 236, 246));
    p.fillRect(img.rect(), sky);
    hills(p, W, H, 250, 50, QColor(176, 200, 196), 961);
    hills(p, W, H, 272, 40, QColor(126, 168, 110), 962);
    hills(p, W, H, 300, 26, QColor(84, 140, 64), 963);
    BranchingTree(p, 964).grow(QPointF(398, 302), 0.0, 52, 12, 7);
    // The name and what the program does.
    QFont title("DejaVu Serif");
    title.setPixelSize(64);
    title.setBold(true);
    p.setFont(title);
    p.setPen(QColor(255, 255, 255, 170));
    p.drawText(QPointF(34, 102), "Virela");
    p.setPen(QColor(33, 82, 37));
    p.drawText(QPointF(32, 100), "Virela");
    QFont tagline("DejaVu Sans");
    tagline.setPixelSize(15);
    p.setFont(tagline);
    p.setPen(QColor(38, 50, 56));
    p.drawText(QRectF(34, 118, 250, 60), Qt::AlignLeft | Qt::TextWordWrap,
               "Modelling, rendering, animation and simulation of natural tree ecosystems");
    p.setPen(QPen(QColor(33, 82, 37), 2));
    p.drawLine(QPointF(34, 110), QPointF(250, 110));
    return img;
}

// The application icon: a tree on a hill against the sky, in a rounded square.
inline QImage makeAppIcon() {
    const int S = 128;
    QImage big(S * 4, S * 4, QImage::Format_ARGB32_Premultiplied);
    big.fill(Qt::transparent);
    {
        QPainter p(&big);
        p.setRenderHint(QPainter::Antialiasing);
        p.scale(4.0 * S / 64.0, 4.0 * S / 64.0);
        QLinearGradient sky(0, 2, 0, 62);
        sky.setColorAt(0.0, QColor(100, 181, 246));
        sky.setColorAt(1.0, QColor(227, 242, 253));
        const QPainterPath frame = rounded(2, 2, 60, 60, 12);
        p.setPen(outline(palette::blue, 1.5));
        p.setBrush(sky);
        p.drawPath(frame);
        p.setClipPath(frame);
        QPainterPath hill(QPointF(0, 64));
        hill.lineTo(0, 50);
        hill.cubicTo(18, 42, 44, 42, 64, 50);
        hill.lineTo(64, 64);
        hill.closeSubpath();
        shape(p, hill, palette::green);
        p.setClipping(false);
        shape(p, rounded(29, 30, 6, 18, 2), palette::brown);
        QPainterPath crown = circle(32, 22, 14);
        crown = crown.united(circle(21, 29, 9)).united(circle(43, 29, 9));
        shape(p, crown, palette::greenDark.lighter(120));
        // Sunlit upper left of the crown.
        p.setPen(Qt::NoPen);
        p.setBrush(palette::green.lighter(118));
        p.drawPath(crown.intersected(circle(26, 16, 11)).intersected(crown.translated(1.2, 1.2)));
        p.setPen(outline(palette::blue, 1.5));
        p.setBrush(Qt::NoBrush);
        p.drawPath(frame);
    }
    return big.scaled(S, S, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32);
}

} // namespace images
