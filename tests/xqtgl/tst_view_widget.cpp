#include "common/BoxPainter.h"
#include "common/ViewFixture.h"

#include "xqtgl/xQGLWidget_Handler.h"

#include <QPainter>
#include <QSignalSpy>

using namespace xqtgl;

namespace {

/// Whether the darkest grey within a pixel of `at` is `grey` (GL rounds 0.9 to 229 or 230).
bool grey_near(const QImage& image, const QPointF& at, int grey) {
    return std::abs(ViewFixture::darkest(image, at) - grey) <= 1;
}

QRect outline(const QImage& image) {
    QRect r;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (!ViewFixture::near(image.pixel(x, y), Qt::white, 2))
                r |= QRect(x, y, 1, 1);
    return r;
}

} // namespace

class tst_view_widget : public QObject {
    Q_OBJECT
private slots:
    void emptyViewIsWhite() {
        xQGLWidget view;
        ViewFixture::show(view);
        const QImage frame = ViewFixture::frame(view);
        ViewFixture::save(frame, "empty");
        QCOMPARE(frame.size(), QSize(ViewFixture::width, ViewFixture::height));
        for (QPoint p : {QPoint(0, 0), QPoint(319, 0), QPoint(0, 239), QPoint(319, 239), QPoint(20, 200)})
            QVERIFY2(ViewFixture::near(frame.pixel(p), Qt::white, 0), qPrintable(QString::number(frame.pixel(p), 16)));
    }

    void gridGreysWhereTheFormulaPutsThem() {
        xQGLWidget view;
        ViewFixture::show(view);
        xQGLWidget_Options o(view.options());
        o.draw_origin(false);
        view.options(o);
        view.boundingbox({-5, -5, 5, 5, 0, 1});
        const QImage frame = ViewFixture::frame(view); // the default camera, from (15, 10, 5)
        ViewFixture::save(frame, "grid");
        // Lines run over twice the box: i from -10 up to, not including, 10.
        QVERIFY(grey_near(frame, ViewFixture::project(view, 0, 2.5, 0), 153));   // axis lines
        QVERIFY(grey_near(frame, ViewFixture::project(view, 2.5, 0, 0), 153));
        QVERIFY(grey_near(frame, ViewFixture::project(view, -10, 2.5, 0), 178)); // multiples of 10
        QVERIFY(grey_near(frame, ViewFixture::project(view, 2.5, -10, 0), 178));
        QVERIFY(grey_near(frame, ViewFixture::project(view, 3, 2.5, 0), 229));
        QVERIFY(grey_near(frame, ViewFixture::project(view, 2.5, 3, 0), 229));
        QVERIFY(grey_near(frame, ViewFixture::project(view, 3.5, 2.5, 0), 255)); // between lines
        QVERIFY(grey_near(frame, ViewFixture::project(view, 10, 2.5, 0), 255));  // ends excluded
        QVERIFY(grey_near(frame, ViewFixture::project(view, 2.5, 10, 0), 255));
    }

    void originAxesAreZRedXGreenYBlue() {
        xQGLWidget view;
        ViewFixture::show(view);
        xQGLWidget_Options o(view.options());
        o.draw_grid(false);
        view.options(o);
        ViewFixture::look(view, {3, 2.5, 2}, {0.3, 0.3, 0.3});
        const QImage frame = ViewFixture::frame(view);
        ViewFixture::save(frame, "origin");
        QVERIFY(ViewFixture::near(ViewFixture::pixel(frame, ViewFixture::project(view, 0, 0, 0.5)), Qt::red));
        QVERIFY(ViewFixture::near(ViewFixture::pixel(frame, ViewFixture::project(view, 0.5, 0, 0)), Qt::green));
        QVERIFY(ViewFixture::near(ViewFixture::pixel(frame, ViewFixture::project(view, 0, 0.5, 0)), Qt::blue));
    }

    void painterDrawsWhereTheCameraSaysAndIgnoreRepaintKeepsThePicture() {
        xQGLWidget view;
        ViewFixture::show(view);
        new BoxPainter(&view, box_of(1, 1, 0, 1), Qt::red);
        ViewFixture::look(view, {6, -4, 5}, {1.5, 1.5, 0.5});
        const QImage frame = ViewFixture::frame(view);
        ViewFixture::save(frame, "painter");
        QVERIFY(ViewFixture::near(ViewFixture::pixel(frame, ViewFixture::project(view, 1.5, 1.5, 1)), Qt::red));
        QVERIFY(ViewFixture::near(ViewFixture::pixel(frame, ViewFixture::project(view, 1.5, 1.5, 2)), Qt::white));

        view.ignore_repaint(true);
        ViewFixture::look(view, {-6, 4, 5}, {1.5, 1.5, 0.5});
        QCOMPARE(ViewFixture::frame(view), frame);
        view.ignore_repaint(false);
        QVERIFY(ViewFixture::frame(view) != frame);
    }

    void labelsLieInTheirCorners() {
        xQGLWidget view;
        view.resize(ViewFixture::width, ViewFixture::height);
        QImage labels(view.size(), QImage::Format_RGB32);
        labels.fill(Qt::white);
        QPainter painter(&labels);
        view.ShowClippingEnabled(&painter);
        view.ShowFramerate(&painter, 25.0);
        view.ShowFramerate(nullptr, 25.0);
        painter.end();
        ViewFixture::save(labels, "labels");
        const QRgb clipping = labels.pixel(14, 28), framerate = labels.pixel(14, ViewFixture::height - 14);
        QVERIFY(qGreen(clipping) > qRed(clipping) + 30);                   // green, top left
        QVERIFY(qRed(framerate) < 80 && qGreen(framerate) < 80);           // dark, bottom left
        QVERIFY(ViewFixture::near(labels.pixel(160, 120), Qt::white, 0));
    }

    void nestedSelectionRunsGiveOneBracket() {
        xQGLWidget view;
        auto* first = new BoxPainter(&view, box_of(0, 0, 0, 1), Qt::red);
        auto* second = new BoxPainter(&view, box_of(2, 0, 0, 1), Qt::blue);
        QCOMPARE(second->index(), 1);
        QSignalSpy started(&view, &xQGLWidget::selection_started);
        QSignalSpy finished(&view, &xQGLWidget::selection_finished);
        first->start_selection();
        second->start_selection();
        first->start_selection();
        first->end_selection();
        second->end_selection();
        QCOMPARE(started.count(), 1);
        QCOMPARE(finished.count(), 0);
        first->end_selection();
        QCOMPARE(finished.count(), 1);
        delete first;
        QCOMPARE(second->index(), 0);
    }

    void farFromTheOriginDrawsLikeNearIt() {
        // A 0.5 m cube at national-grid coordinates against the same cube near zero, each seen
        // from the same offset: the outlines must agree to a pixel.
        const geometry3D::Point far(4512345.5, 5412345.25, 10), near(0.5, 0.25, 10);
        const geometry3D::Point offset(1.2, -1.6, 0.9);
        QRect outlines[2];
        int i = 0;
        for (const geometry3D::Point& corner : {far, near}) {
            xQGLWidget view;
            ViewFixture::show(view);
            xQGLWidget_Options o(view.options());
            o.draw_grid(false);
            o.draw_origin(false);
            view.options(o);
            const geometry3D::boundingbox cube = box_of(corner.x(), corner.y(), corner.z(), 0.5);
            view.boundingbox(cube);
            new BoxPainter(&view, cube, QColor(200, 60, 20));
            const geometry3D::Point centre = corner + geometry3D::Point(0.25, 0.25, 0.25);
            ViewFixture::look(view, centre + offset, centre);
            const QImage frame = ViewFixture::frame(view);
            ViewFixture::save(frame, i == 0 ? "far_cube" : "near_cube");
            outlines[i++] = outline(frame);
            QCOMPARE(view.render_origin().x == 0.0, corner.x() < 1000.0);
        }
        QVERIFY(!outlines[0].isEmpty());
        for (int edge = 0; edge < 4; ++edge) {
            const int a[4] = {outlines[0].left(), outlines[0].top(), outlines[0].right(), outlines[0].bottom()};
            const int b[4] = {outlines[1].left(), outlines[1].top(), outlines[1].right(), outlines[1].bottom()};
            QVERIFY2(std::abs(a[edge] - b[edge]) <= 1, qPrintable(QString("edge %1: %2 vs %3").arg(edge).arg(a[edge]).arg(b[edge])));
        }
    }

    void orbitDragTurnsAndAClickMovesTheCentre() {
        xQGLWidget view;
        ViewFixture::show(view);
        QCOMPARE(QString(view.handler()->metaObject()->className()), QString("xqtgl::xQGLWidget_OrbitHandler"));
        xQGLWidget_Options o(view.options());
        o.draw_origin(false);
        view.options(o);
        const geometry3D::boundingbox box = box_of(1, 1, 0, 1);
        view.boundingbox(box);
        new BoxPainter(&view, box, Qt::red);
        ViewFixture::look(view, {6, -4, 5}, {0, 0, 0});
        const xQGLCamera press(view.camera());
        QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(160, 120));
        ViewFixture::move(view, QPoint(192, 96), Qt::LeftButton);
        xQGLCamera expected(press);
        expected.rotate_z(-2 * M_PI * 32 / 320.0);
        expected.rotate_x(2 * M_PI * -24 / 240.0);
        QVERIFY(view.fast_paint_status());
        QVERIFY(view.camera().eye().distance(expected.eye()) < 1e-9);
        QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(192, 96));
        QVERIFY(!view.fast_paint_status());
        QCOMPARE(view.camera().lookat(), press.lookat()); // nothing under the centre

        // A click on the box's top makes the point under it the centre of rotation.
        ViewFixture::frame(view);
        const QPoint top = ViewFixture::project(view, 1.5, 1.5, 1).toPoint();
        QTest::mouseClick(&view, Qt::LeftButton, {}, top);
        QVERIFY2(view.camera().lookat().distance({1.5, 1.5, 1}) < 0.02,
                 qPrintable(QString("%1 %2 %3").arg(view.camera().lookat().x()).arg(view.camera().lookat().y()).arg(view.camera().lookat().z())));
    }
};

QTEST_MAIN(tst_view_widget)
#include "tst_view_widget.moc"
