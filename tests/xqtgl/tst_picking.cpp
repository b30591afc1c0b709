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

    /// The window pixel over the top face of box i, at the fraction (fx, fy) of its extent.
    static QPointF on_top(const xQGLWidget& view, const BoxRow& row, int i, double fx = 0.5, double fy = 0.5) {
        return ViewFixture::project(view, row.offset.x + 2.0 * i + fx, row.offset.y + fy, row.offset.z + 1.0);
    }
};

class tst_picking : public QObject {
    Q_OBJECT

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

        // Picked points are world points, exact to the millimetre however far the model lies from
        // zero: on the top face, under the pixel. A ray pick's lies at the look-at depth, 0.5.
        // Snapping goes to B3's outline corner nearest the line of sight, (6, 1) for (0.3, 0.6).
        const QPoint pixel = BoxRow::on_top(scene.view, scene.row, 3, 0.3, 0.6).toPoint();
        const double millimetre = 0.001 * scene.view.width() / scene.view.camera().GetOrthoWidth();
        const auto under_pixel = [&](const geometry3D::point& p, double z) {
            return QLineF(ViewFixture::project(scene.view, p.x, p.y, p.z), pixel).length() < millimetre &&
                   std::fabs(p.z - z) < 0.001;
        };
        bool hit = false;
        QVERIFY(under_pixel(scene.view.pick_point(pixel.x(), pixel.y(), &hit), 1.0) && hit);
        geometry3D::point picked{0.0, 0.0, 0.0}, corner{0.0, 0.0, 0.0};
        QCOMPARE(scene.view.PickObjectPoint(pixel.x(), pixel.y(), picked, corner), scene.row.boxes[3]);
        QVERIFY(under_pixel(picked, geometric ? 0.5 : 1.0));
        QVERIFY(std::fabs(corner.x - x - 6.0) < 0.001 && std::fabs(corner.y - y - 1.0) < 0.001);
    }

    void a_rubber_band_selects_what_it_surrounds_or_touches_data() {
        QTest::addColumn<bool>("geometric");
        QTest::addColumn<bool>("towards_upper_left");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("surround") << true << false << QStringList{"B2"};
        QTest::newRow("touch") << true << true << QStringList{"B1", "B2", "B3"};
        QTest::newRow("colour ids take what shows") << false << false << QStringList{"B1", "B2", "B3"};
    }

    void a_rubber_band_selects_what_it_surrounds_or_touches() {
        QFETCH(bool, geometric);
        QFETCH(bool, towards_upper_left);
        QFETCH(QStringList, expected);
        xQGLWidget::SelectRegionGeometric(geometric);
        Scene scene;
        // Between the middles of B1 and B3: B2 wholly inside, B1 and B3 half.
        QPointF from = BoxRow::on_top(scene.view, scene.row, 1, 0.5, 1.5);
        QPointF to = BoxRow::on_top(scene.view, scene.row, 3, 0.5, -0.5);
        if (towards_upper_left)
            std::swap(from, to);
        QSignalSpy started(&scene.view, &xQGLWidget::selection_started);
        QSignalSpy finished(&scene.view, &xQGLWidget::selection_finished);
        scene.drag(from, to);
        QCOMPARE(scene.selected(), expected);
        QCOMPARE(started.count(), 1);
        QCOMPARE(finished.count(), 1);
        // Ctrl adds to the selection.
        scene.drag(BoxRow::on_top(scene.view, scene.row, 4, -0.2, -0.2), BoxRow::on_top(scene.view, scene.row, 4, 1.2, 1.2),
                   Qt::ControlModifier);
        QCOMPARE(scene.selected(), expected + QStringList{"B4"});
    }

    void a_clipped_away_part_is_neither_drawn_nor_picked_data() {
        QTest::addColumn<bool>("geometric");
        QTest::addColumn<bool>("from_above");
        QTest::addColumn<bool>("kept");
        // Cuts through the middle of B2 keep x <= 4.5, or z <= 0.5: the eye then meets the open box's floor.
        QTest::newRow("colour ids, beyond the cut") << false << false << false;
        QTest::newRow("colour ids, the part kept") << false << false << true;
        QTest::newRow("ray and frustum, beyond the cut") << true << false << false;
        QTest::newRow("ray and frustum, the part kept") << true << false << true;
        QTest::newRow("ray and frustum, into the open box") << true << true << true;
    }

    void a_clipped_away_part_is_neither_drawn_nor_picked() {
        QFETCH(bool, geometric);
        QFETCH(bool, from_above);
        QFETCH(bool, kept);
        xQGLWidget::SelectSingleGeometric(geometric);
        xQGLWidget::SelectRegionGeometric(geometric);
        Scene scene;
        xQGLWidget_Options options(scene.view.options());
        options.clipping_plane(from_above ? geometry3D::Plane(vmp::Vector(0.0, 0.0, -1.0), -0.5)
                                          : geometry3D::Plane(vmp::Vector(-1.0, 0.0, 0.0), -4.5));
        options.plane_clipping_enabled(true);
        scene.view.options(options);
        const QImage frame = ViewFixture::frame(scene.view);
        ViewFixture::save(frame, "picking_clipped");
        const double fx = kept && !from_above ? 0.2 : 0.8;
        const QStringList b2 = kept ? QStringList{"B2"} : QStringList();
        QCOMPARE(ViewFixture::pixel(frame, BoxRow::on_top(scene.view, scene.row, 2, fx)) != frame.pixel(2, 2), kept);
        scene.click(2, Qt::NoModifier, fx);
        QCOMPARE(scene.selected(), b2);
        // A band around what is left of B2, or one touching only what is cut away of it.
        const QPointF upper_left = BoxRow::on_top(scene.view, scene.row, 2, kept ? -0.3 : 0.6, 1.5);
        const QPointF lower_right = BoxRow::on_top(scene.view, scene.row, 2, kept ? fx + 0.4 : 1.4, -0.5);
        kept ? scene.drag(upper_left, lower_right) : scene.drag(lower_right, upper_left);
        QCOMPARE(scene.selected(), b2);
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
