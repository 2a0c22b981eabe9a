#include "ecosystem/render/objectculling.h"

#include <QtTest>

#include <cmath>

using ecosystem::render::CObjectCulling;

namespace {

// Perspective with a 90 degree field, aspect 1, near 1, far 100, built by hand
// (column-major), times a model-view that moves the eye to (ex, 0, 0).
arbo::Matrika perspectiveFrom(float ex) {
    const float n = 1.0f, f = 100.0f;
    arbo::Matrika p{};
    p.m[0] = 1.0f;
    p.m[5] = 1.0f;
    p.m[10] = (f + n) / (n - f);
    p.m[11] = -1.0f;
    p.m[14] = 2.0f * f * n / (n - f);
    // P * T(-ex, 0, 0): only the last column changes, by -ex times the first.
    for (int r = 0; r < 4; ++r)
        p.m[12 + r] += -ex * p.m[r];
    return p;
}

void comparePlane(const CObjectCulling::Plane& p, double a, double b, double c, double d) {
    const double eps = 1e-5;
    QVERIFY2(std::fabs(p.a - a) < eps && std::fabs(p.b - b) < eps && std::fabs(p.c - c) < eps &&
                 std::fabs(p.d - d) < 1e-3,
             qPrintable(QString("%1 %2 %3 %4").arg(p.a).arg(p.b).arg(p.c).arg(p.d)));
}

} // namespace

class TestObjectCulling : public QObject {
    Q_OBJECT
private slots:
    // Inside the frustum -z > |x|, -z > |y| and 1 < -z < 100; the planes are
    // those inequalities with unit normals pointing inwards.
    void planesOfSymmetricFrustum() {
        CObjectCulling culling;
        arbo::Matrika m = perspectiveFrom(0.0f);
        culling.setMatrix(m);
        const double h = 1.0 / std::sqrt(2.0);
        comparePlane(culling.p_planes[0], h, 0, -h, 0);  // left
        comparePlane(culling.p_planes[1], -h, 0, -h, 0); // right
        comparePlane(culling.p_planes[2], 0, -h, -h, 0); // top
        comparePlane(culling.p_planes[3], 0, h, -h, 0);  // bottom
        comparePlane(culling.p_planes[4], 0, 0, -1, -1); // near
        comparePlane(culling.p_planes[5], 0, 0, 1, 100); // far
        QCOMPARE(culling.comboMatrix.m[11], -1.0f);
    }

    void normalizeDividesAllFourByNormalLength() {
        CObjectCulling culling;
        CObjectCulling::Plane plane{3, 0, 4, 10};
        culling.normalizePlane(plane);
        QCOMPARE(plane.a, 0.6);
        QCOMPARE(plane.c, 0.8);
        QCOMPARE(plane.d, 2.0);
    }

    void sphereTest_data() {
        QTest::addColumn<float>("x");
        QTest::addColumn<float>("y");
        QTest::addColumn<float>("z");
        QTest::addColumn<float>("r");
        QTest::addColumn<int>("inside");
        QTest::newRow("ahead") << 0.f << 0.f << -50.f << 5.f << 1;
        QTest::newRow("behind") << 0.f << 0.f << 50.f << 5.f << 0;
        QTest::newRow("left of frustum") << -60.f << 0.f << -50.f << 5.f << 0; // -7.07
        QTest::newRow("cuts right plane") << 53.f << 0.f << -50.f << 5.f << 1; // -2.12
        QTest::newRow("right of frustum") << 58.f << 0.f << -50.f << 5.f << 0; // -5.66
        QTest::newRow("above") << 0.f << 70.f << -50.f << 5.f << 0;
        QTest::newRow("beyond far") << 0.f << 0.f << -120.f << 5.f << 0;
        QTest::newRow("cuts far plane") << 0.f << 0.f << -103.f << 5.f << 1;
        // Cuts the left plane but lies wholly beyond the far plane: the test
        // stops at the first plane it cuts.
        QTest::newRow("cuts left beyond far") << -200.f << 0.f << -200.f << 5.f << 1;
        QTest::newRow("cuts top beyond far") << 0.f << 200.f << -200.f << 5.f << 1;
        QTest::newRow("beyond far, cuts none") << 0.f << 0.f << -200.f << 5.f << 0;
    }

    void sphereTest() {
        QFETCH(float, x);
        QFETCH(float, y);
        QFETCH(float, z);
        QFETCH(float, r);
        QFETCH(int, inside);
        CObjectCulling culling;
        arbo::Matrika m = perspectiveFrom(0.0f);
        culling.setMatrix(m);
        QCOMPARE(culling.containsSphere(arbo::Tocka(x, y, z), r), inside);
        // The same scene with the eye moved to x = 1000 and the sphere with it.
        arbo::Matrika moved = perspectiveFrom(1000.0f);
        culling.setMatrix(moved);
        QCOMPARE(culling.containsSphere(arbo::Tocka(x + 1000.0f, y, z), r), inside);
    }
};

QTEST_GUILESS_MAIN(TestObjectCulling)
#include "tst_objectculling.moc"
