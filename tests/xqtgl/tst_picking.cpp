#include "common/ModelScene.h"
#include "common/ViewFixture.h"
#include "mesh3D_gl/Painter.h"
#include "oxa/HRef.h"
#include "xqtgl/xQGLWidget.h"

#include <QSignalSpy>

using namespace xqtgl;

/// A row of five unit boxes B0..B4 one metre apart along X, and a composite C of two boxes
/// C0, C1 beside them, seen from above; optionally far from the origin.
struct BoxRow : ModelScene {
    QList<mesh3D::Object3D*> boxes;
    mesh3D::Container* group = composite("C");
    QList<oxa::HRef*> no_references;

    explicit BoxRow(geometry3D::point at = {0.0, 0.0, 0.0}) : ModelScene(at) {
        for (int i = 0; i < 7; ++i)
            boxes << box(i < 5 ? QString("B%1").arg(i) : QString("C%1").arg(i - 5), 2.0 * i, nullptr,
                         i < 5 ? root : group);
    }

    /// The point at height z under a window pixel: the fixture's projection inverted, which is
    /// affine on a plane square to an orthographic view.
    static geometry3D::point under(const xQGLWidget& view, QPoint pixel, double z) {
        const geometry3D::point o = view.camera().lookat().to_primitive();
        const QPointF at = ViewFixture::project(view, o.x, o.y, z);
        const QPointF ex = ViewFixture::project(view, o.x + 1.0, o.y, z) - at;
        const QPointF ey = ViewFixture::project(view, o.x, o.y + 1.0, z) - at;
        const QPointF d = QPointF(pixel) - at;
        const double det = ex.x() * ey.y() - ex.y() * ey.x();
        return {o.x + (d.x() * ey.y() - d.y() * ey.x()) / det, o.y + (ex.x() * d.y() - ex.y() * d.x()) / det, z};
    }

    /// The window pixel over the top face of box i, at the fraction (fx, fy) of its extent.
    static QPointF on_top(const xQGLWidget& view, const BoxRow& row, int i, double fx = 0.5, double fy = 0.5) {
        return ViewFixture::project(view, row.offset.x + 2.0 * i + fx, row.offset.y + fy, row.offset.z + 1.0);
    }
};

class tst_picking : public QObject {
    Q_OBJECT

    static bool within_a_millimetre(const geometry3D::point& p, const geometry3D::point& q) {
        return std::fabs(p.x - q.x) < 0.001 && std::fabs(p.y - q.y) < 0.001 && std::fabs(p.z - q.z) < 0.001;
    }

    struct Scene {
        BoxRow row;
        xQGLWidget view;
        mesh3D_gl::Painter* painter;

        explicit Scene(geometry3D::point at = {0.0, 0.0, 0.0}) : row(at), painter(new mesh3D_gl::Painter(&view)) {
            painter->set_elements(row.root, row.no_references);
            view.boundingbox(painter->boundingbox());
            ViewFixture::show(view);
            view.SetOrthoProjectionPlanView();
            view.set_mode_select();
            ViewFixture::frame(view);
        }

        /// The selected boxes, and "C" for the composite selected as a whole.
        QStringList selected() const {
            QStringList ids;
            if (painter->is_selected(row.group))
                ids << "C";
            for (mesh3D::Object3D* box : row.boxes)
                if (painter->is_selected(box))
                    ids << box->id();
            return ids;
        }
        void click(int i, Qt::KeyboardModifiers modifiers = Qt::NoModifier, double fx = 0.5) {
            QTest::mouseClick(&view, Qt::LeftButton, modifiers, BoxRow::on_top(view, row, i, fx).toPoint());
        }
        void drag(QPointF from, QPointF to, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
            QTest::mousePress(&view, Qt::LeftButton, modifiers, from.toPoint());
            ViewFixture::move(view, to.toPoint(), Qt::LeftButton, modifiers);
            QTest::mouseRelease(&view, Qt::LeftButton, modifiers, to.toPoint());
        }
    };

private slots:
    void cleanup() {
        xQGLWidget::SelectSingleGeometric(false);
        xQGLWidget::SelectRegionGeometric(false);
    }

    void a_click_selects_the_box_under_it_data() {
        QTest::addColumn<bool>("geometric");
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::newRow("colour id") << false << 0.0 << 0.0;
        QTest::newRow("ray") << true << 0.0 << 0.0;
        QTest::newRow("colour id, georeferenced") << false << 4512345.5 << 5412345.25;
        QTest::newRow("ray, georeferenced") << true << 4512345.5 << 5412345.25;
    }

    void a_click_selects_the_box_under_it() {
        QFETCH(bool, geometric);
        QFETCH(double, x);
        QFETCH(double, y);
        xQGLWidget::SelectSingleGeometric(geometric);
        Scene scene({x, y, 0.0});
        for (int i = 0; i < 5; ++i) {
            scene.click(i);
            QCOMPARE(scene.selected(), QStringList{QString("B%1").arg(i)});
        }
        QTest::mouseClick(&scene.view, Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
        QCOMPARE(scene.selected(), QStringList());
        // The composite answers as a whole, unless Shift asks for the part.
        scene.click(5);
        QCOMPARE(scene.selected(), QStringList{"C"});
        scene.click(6, Qt::ShiftModifier);
        QCOMPARE(scene.selected(), QStringList{"C1"});
        // Ctrl toggles what it hits.
        scene.click(2, Qt::ControlModifier);
        QCOMPARE(scene.selected(), (QStringList{"B2", "C1"}));
        scene.click(2, Qt::ControlModifier);
        QCOMPARE(scene.selected(), QStringList{"C1"});

        // Picked points are world points, exact to the millimetre however far the model lies from zero.
        const QPoint pixel = BoxRow::on_top(scene.view, scene.row, 3, 0.3, 0.6).toPoint();
        const geometry3D::point truth = BoxRow::under(scene.view, pixel, scene.row.offset.z + 1.0);
        bool hit = false;
        const geometry3D::point depth_read = scene.view.pick_point(pixel.x(), pixel.y(), &hit);
        QVERIFY(hit);
        QVERIFY(within_a_millimetre(depth_read, truth));
        geometry3D::point on_pick{0.0, 0.0, 0.0};
        QCOMPARE(scene.view.PickObject(pixel.x(), pixel.y(), &on_pick), scene.row.boxes[3]);
        // A ray pick gives the point where the line of sight meets the look-at depth.
        QVERIFY(within_a_millimetre(on_pick, {truth.x, truth.y, geometric ? scene.view.camera().lookat().z() : truth.z}));
        // Snapping goes to B3's outline corner nearest the line of sight: (6, 1) at (0.3, 0.6).
        geometry3D::point corner{0.0, 0.0, 0.0};
        QCOMPARE(scene.view.PickObjectPoint(pixel.x(), pixel.y(), on_pick, corner), scene.row.boxes[3]);
        QVERIFY(within_a_millimetre({corner.x, corner.y, 0.0}, {x + 6.0, y + 1.0, 0.0}));
    }

    void a_rubber_band_selects_what_it_surrounds_or_touches_data() {
        QTest::addColumn<bool>("geometric");
        QTest::addColumn<bool>("towards_upper_left");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("surround") << true << false << QStringList{"B1", "B2", "B3"};
        QTest::newRow("touch") << true << true << QStringList{"B0", "B1", "B2", "B3", "B4"};
        QTest::newRow("colour ids take what shows") << false << false << QStringList{"B0", "B1", "B2", "B3", "B4"};
    }

    void a_rubber_band_selects_what_it_surrounds_or_touches() {
        QFETCH(bool, geometric);
        QFETCH(bool, towards_upper_left);
        QFETCH(QStringList, expected);
        xQGLWidget::SelectRegionGeometric(geometric);
        Scene scene;
        // Between the middles of B0 and B4: the second to the fourth box wholly inside, their
        // neighbours half.
        QPointF from = BoxRow::on_top(scene.view, scene.row, 0, 0.5, 1.5);
        QPointF to = BoxRow::on_top(scene.view, scene.row, 4, 0.5, -0.5);
        if (towards_upper_left)
            std::swap(from, to);
        QSignalSpy started(&scene.view, &xQGLWidget::selection_started);
        QSignalSpy finished(&scene.view, &xQGLWidget::selection_finished);
        scene.drag(from, to);
        QCOMPARE(scene.selected(), expected);
        QCOMPARE(started.count(), 1);
        QCOMPARE(finished.count(), 1);
        // Ctrl adds to the selection; a part brings its composite.
        scene.drag(BoxRow::on_top(scene.view, scene.row, 5, -0.2, 1.2), BoxRow::on_top(scene.view, scene.row, 5, 1.2, -0.2),
                   Qt::ControlModifier);
        QCOMPARE(scene.selected(), QStringList{"C"} + expected);
    }

    void a_clipped_away_part_is_neither_drawn_nor_picked_data() {
        QTest::addColumn<bool>("geometric");
        QTest::addColumn<double>("nz");
        QTest::addColumn<double>("fx");
        QTest::addColumn<bool>("picked");
        QTest::addColumn<double>("band_from");
        QTest::addColumn<double>("band_to");
        QTest::addColumn<bool>("touch");
        QTest::addColumn<bool>("banded");
        // Planes through the middle of B2: nz 0 keeps x <= 4.5, nz 1 keeps z <= 0.5. The band runs
        // over B2 from band_from to band_to of its width.
        QTest::newRow("colour ids, beyond the cut") << false << 0.0 << 0.8 << false << 0.6 << 1.4 << true << false;
        QTest::newRow("colour ids, the part kept") << false << 0.0 << 0.2 << true << -0.3 << 0.6 << false << true;
        QTest::newRow("ray and frustum, beyond the cut") << true << 0.0 << 0.8 << false << 0.6 << 1.4 << true << false;
        QTest::newRow("ray and frustum, around the part kept") << true << 0.0 << 0.2 << true << -0.3 << 0.6 << false << true;
        QTest::newRow("colour ids, into the open box") << false << 1.0 << 0.8 << true << 0.6 << 1.4 << true << true;
        QTest::newRow("ray and frustum, into the open box") << true << 1.0 << 0.8 << true << -0.3 << 1.3 << false << true;
    }

    void a_clipped_away_part_is_neither_drawn_nor_picked() {
        QFETCH(bool, geometric);
        QFETCH(double, nz);
        QFETCH(double, fx);
        QFETCH(bool, picked);
        QFETCH(double, band_from);
        QFETCH(double, band_to);
        QFETCH(bool, touch);
        QFETCH(bool, banded);
        xQGLWidget::SelectSingleGeometric(geometric);
        xQGLWidget::SelectRegionGeometric(geometric);
        Scene scene;
        xQGLWidget_Options options(scene.view.options());
        options.clipping_plane(geometry3D::Plane(vmp::Vector(nz - 1.0, 0.0, -nz), nz > 0.0 ? -0.5 : -4.5));
        options.plane_clipping_enabled(true);
        scene.view.options(options);
        const QImage frame = ViewFixture::frame(scene.view);
        ViewFixture::save(frame, QString("picking_clipped_%1").arg(nz));
        // Into the open box the eye meets its floor, which a pick must return too.
        QCOMPARE(ViewFixture::pixel(frame, BoxRow::on_top(scene.view, scene.row, 2, fx)) != frame.pixel(2, 2), picked);
        scene.click(2, Qt::NoModifier, fx);
        QCOMPARE(scene.selected(), picked ? QStringList{"B2"} : QStringList());
        QPointF from = BoxRow::on_top(scene.view, scene.row, 2, band_from, 1.5);
        QPointF to = BoxRow::on_top(scene.view, scene.row, 2, band_to, -0.5);
        if (touch)
            std::swap(from, to);
        scene.drag(from, to);
        QCOMPARE(scene.selected(), banded ? QStringList{"B2"} : QStringList());
    }

    void the_ids_of_two_painters_do_not_collide() {
        Scene scene;
        BoxRow second({0.0, 3.0, 0.0});
        auto* other = new mesh3D_gl::Painter(&scene.view);
        other->set_elements(second.root, second.no_references);
        scene.view.SetOrthoProjectionPlanView();
        ViewFixture::frame(scene.view);
        QTest::mouseClick(&scene.view, Qt::LeftButton, Qt::NoModifier, BoxRow::on_top(scene.view, second, 1).toPoint());
        QVERIFY(other->is_selected(second.boxes[1]));
        QCOMPARE(scene.selected(), QStringList());
        delete other;
    }
};

QTEST_MAIN(tst_picking)
#include "tst_picking.moc"
