#include "xqtgl/xQGLView.h"
#include "xqtgl/xQGLWidget_Options.h"
#include "xqtgl/xQGLWidget_Painter.h"

#include <QSignalSpy>
#include <QtTest>

#include <functional>

using namespace xqtgl;
using Setter = std::function<void(xQGLWidget_Options&)>;
Q_DECLARE_METATYPE(Setter)
using LightSetter = std::function<void(xQGLLight&)>;
Q_DECLARE_METATYPE(LightSetter)

class tst_view_options : public QObject {
    Q_OBJECT
private slots:
    void defaults() {
        const xQGLWidget_Options o;
        QVERIFY(o.draw_grid() && o.draw_origin() && !o.draw_boundingbox() && !o.plane_clipping_enabled());
        QCOMPARE(o.background_color().r, 1.0f);
        QCOMPARE(o.clipping_plane().n(), vmp::Vector(1, 0, 0));
        for (int i = 0; i < xQGLWidget_Options::light_count; ++i) {
            QCOMPARE(o.light(i).enabled(), i == 0);
            QCOMPARE(o.light(i).gl_ID(), 16384u + i);
            QCOMPARE(o.light(i).position(), geometry3D::Point(1, 3, 5));
        }
        basic::unit u;
        int decimals;
        o.GetMeasureOptions(u, decimals);
        QCOMPARE(u, basic::unit_m);
        QCOMPARE(decimals, 2);
    }

    void setters_data() {
        QTest::addColumn<Setter>("setter");
        QTest::addColumn<int>("emitted");
        QTest::newRow("equal grid") << Setter([](auto& o) { o.draw_grid(true); }) << 0;
        QTest::newRow("grid off") << Setter([](auto& o) { o.draw_grid(false); }) << 1;
        QTest::newRow("equal distance") << Setter([](auto& o) { o.grid_distance(1.0); }) << 0;
        QTest::newRow("distance") << Setter([](auto& o) { o.grid_distance(2.5); }) << 1;
        QTest::newRow("equal background") << Setter([](auto& o) { o.background_color({1, 1, 1}); }) << 0;
        QTest::newRow("background") << Setter([](auto& o) { o.background_color({0, 0, 1}); }) << 1;
        QTest::newRow("box") << Setter([](auto& o) { o.grid_boundingbox({0, 0, 1, 1, 0, 1}); }) << 1;
        QTest::newRow("clipping") << Setter([](auto& o) { o.plane_clipping_enabled(true); }) << 1;
        QTest::newRow("framerate") << Setter([](auto& o) { o.show_framerate(true); }) << 1;
        QTest::newRow("draw_light announces always") << Setter([](auto& o) { o.draw_light(1, false); }) << 1;
        QTest::newRow("light 6 ignored") << Setter([](auto& o) { o.light(6, xQGLLight(1)); }) << 0;
        QTest::newRow("equal light") << Setter([](auto& o) { o.light(2, xQGLLight(o.light(2))); }) << 0;
        QTest::newRow("light") << Setter([](auto& o) {
            xQGLLight l(o.light(2));
            l.enabled(true);
            o.light(2, l);
        }) << 1;
        QTest::newRow("same plane") << Setter([](auto& o) {
            geometry3D::Plane p;
            p.set(2, 0, 0, 0);
            o.clipping_plane(p);
        }) << 0;
        QTest::newRow("plane") << Setter([](auto& o) {
            geometry3D::Plane p;
            p.set(0, 0, 1, 2.5);
            o.clipping_plane(p);
        }) << 1;
        QTest::newRow("measure options are silent")
            << Setter([](auto& o) { o.SetMeasureOptions(basic::unit_mm, 3); }) << 0;
        QTest::newRow("assignment, measure flag changes") << Setter([](auto& o) {
            xQGLWidget_Options other;
            other.SetMeasureOptions(basic::unit_cm, 1);
            o = other;
        }) << 2;
        QTest::newRow("assignment") << Setter([](auto& o) { o = xQGLWidget_Options(); }) << 1;
    }
    void setters() {
        QFETCH(Setter, setter);
        QFETCH(int, emitted);
        xQGLWidget_Options o;
        QSignalSpy changed(&o, &xQGLWidget_Options::changed);
        setter(o);
        QCOMPARE(changed.count(), emitted);
    }

    void light_setters_data() {
        QTest::addColumn<LightSetter>("setter");
        QTest::addColumn<int>("changed");
        QTest::addColumn<int>("moved");
        const auto assigned = [](auto change) {
            return LightSetter([change](xQGLLight& l) {
                xQGLLight other(16384);
                change(other);
                l = other;
            });
        };
        QTest::newRow("diffuse twice") << LightSetter([](auto& l) {
            l.diffuse(Qt::red);
            l.diffuse(Qt::red);
        }) << 1 << 0;
        QTest::newRow("ambient") << LightSetter([](auto& l) { l.ambient(Qt::red); }) << 1 << 0;
        QTest::newRow("enabled") << LightSetter([](auto& l) { l.enabled(!l.enabled()); }) << 1 << 0;
        QTest::newRow("gl_ID") << LightSetter([](auto& l) { l.gl_ID(16385); }) << 1 << 0;
        QTest::newRow("position moves only") << LightSetter([](auto& l) { l.position({1, 2, 3}); }) << 0 << 1;
        QTest::newRow("direction") << LightSetter([](auto& l) { l.direction(vmp::Vector(0, 0, -1)); }) << 1 << 0;
        QTest::newRow("assign direction alone")
            << assigned([](xQGLLight& o) { o.direction(vmp::Vector(0, 0, -1)); }) << 0 << 0;
        QTest::newRow("assign equal") << assigned([](xQGLLight&) {}) << 0 << 0;
        QTest::newRow("assign gl_ID") << assigned([](xQGLLight& o) { o.gl_ID(16390); }) << 1 << 0;
        QTest::newRow("assign colour and position") << assigned([](xQGLLight& o) {
            o.specular(Qt::blue);
            o.position({4, 5, 6});
        }) << 1 << 1;
    }
    void light_setters() {
        QFETCH(LightSetter, setter);
        qRegisterMetaType<geometry3D::Point>();
        xQGLLight l(16384);
        QSignalSpy changed(&l, &xQGLLight::changed);
        QSignalSpy moved(&l, &xQGLLight::PositionChanged);
        setter(l);
        QTEST(int(changed.count()), "changed");
        QTEST(int(moved.count()), "moved");
    }

    void viewsCompareWithoutThumbnailAndKeepItAsPng() {
        xQGLView a, b;
        QPixmap picture(4, 3);
        picture.fill(Qt::red);
        a.thumbnail(picture);
        QVERIFY(a == b);
        QSignalSpy changed(&b, &xQGLView::changed);
        a.name("North");
        b = a;
        QCOMPARE(changed.count(), 1);
        QCOMPARE(b.thumbnail().size(), QSize(4, 3));

        std::unique_ptr<QByteArray> png(a.thumbnailData());
        QVERIFY(png->startsWith("\x89PNG"));
        xQGLView c;
        QVERIFY(c.thumbnailData(*png));
        QCOMPARE(c.thumbnail().toImage().pixel(2, 1), QColor(Qt::red).rgb());
        QVERIFY(!c.thumbnailData(QByteArray("not a picture")));
    }
};

QTEST_MAIN(tst_view_options)
#include "tst_view_options.moc"
