#include "common/ModelScene.h"
#include "common/ViewFixture.h"
#include "mesh3D_gl/Painter.h"

#include <QTemporaryDir>

using namespace xqtgl;

/// The painter's frames, looked at from straight above: what shows, in which colour, where.
class tst_painter : public QObject {
    Q_OBJECT

    struct Scene : ModelScene {
        xQGLWidget view;
        mesh3D_gl::Painter* painter = new mesh3D_gl::Painter(&view);

        Scene() { ViewFixture::show(view); }

        QImage frame(const QString& name) {
            painter->set_elements(root);
            view.boundingbox(painter->boundingbox());
            view.SetOrthoProjectionPlanView();
            const QImage image = ViewFixture::frame(view);
            ViewFixture::save(image, name);
            return image;
        }
        /// The top face of the unit box at x, at the fraction (fx, fy) of its extent.
        QPointF top(double x, double fx = 0.5, double fy = 0.5) const {
            return ViewFixture::project(view, x + fx, fy, 1.0);
        }
    };

    static bool reddish(QRgb c) { return qRed(c) > 120 && qGreen(c) < 60 && qBlue(c) < 60; }
    static const QRgb white = 0xFFFFFFFF;

private slots:
    void a_box_shows_in_its_colour_and_hides_and_shows_again() {
        Scene scene;
        mesh3D::Object3D* red = scene.box("red", 0.0, scene.material("Red", Qt::red));
        scene.box("blue", 3.0, scene.material("Blue", Qt::blue));
        QImage frame = scene.frame("painter_box");
        QVERIFY2(reddish(ViewFixture::pixel(frame, scene.top(0.0))), qPrintable(QString::number(ViewFixture::pixel(frame, scene.top(0.0)), 16)));
        QCOMPARE(ViewFixture::pixel(frame, scene.top(0.0, 1.3)) | 0xFF000000, white);
        scene.painter->hide_element(red);
        frame = ViewFixture::frame(scene.view);
        QCOMPARE(ViewFixture::pixel(frame, scene.top(0.0)) | 0xFF000000, white);
        QVERIFY(qBlue(ViewFixture::pixel(frame, scene.top(3.0))) > 120);
        scene.painter->show_element(red);
        QVERIFY(reddish(ViewFixture::pixel(ViewFixture::frame(scene.view), scene.top(0.0))));
    }

    void a_transparent_material_blends_with_what_lies_behind() {
        Scene scene;
        scene.box("glass", 0.0, scene.material("Glass", Qt::red, 0.5));
        const QRgb seen = ViewFixture::pixel(scene.frame("painter_transparent"), scene.top(0.0));
        // Half red over the white background: red stays high, green and blue come half way.
        QVERIFY2(qRed(seen) > 150 && qGreen(seen) > 60 && qGreen(seen) < 200, qPrintable(QString::number(seen, 16)));
    }

    void wires_alone_leave_the_faces_open() {
        Scene scene;
        scene.box("red", 0.0, scene.material("Red", Qt::red));
        mesh3D_gl::PainterOptions wires;
        wires.draw_solid(false);
        scene.painter->options(wires);
        const QImage frame = scene.frame("painter_wires");
        QCOMPARE(ViewFixture::pixel(frame, scene.top(0.0, 0.3, 0.6)) | 0xFF000000, white);
        // The outline is drawn, black, along the box's edge.
        QVERIFY(ViewFixture::darkest(frame, scene.top(0.0, 0.0, 0.5)) < 60);
    }

    void a_textured_face_shows_the_picture_corner_by_corner() {
        QTemporaryDir folder;
        QImage picture(2, 2, QImage::Format_RGB32);
        picture.setPixel(0, 0, qRgb(255, 0, 0));   // top left
        picture.setPixel(1, 0, qRgb(0, 255, 0));   // top right
        picture.setPixel(0, 1, qRgb(0, 0, 255));   // bottom left
        picture.setPixel(1, 1, qRgb(255, 255, 0)); // bottom right
        QVERIFY(picture.save(folder.filePath("corners.png")));
        Scene scene;
        mesh3D::Material* textured = scene.material("Picture", Qt::white);
        textured->texture_filename(folder.filePath("corners.png"));
        // One square at z = 1, its texture's bottom left at the square's south-west corner.
        mesh3D::Object3D* square =
            scene.object("square", fixtures::Mesh{{{0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}}, {{0, 1, 2}, {0, 2, 3}}},
                         textured);
        *square->GetMaterialMappingCoordinates() = {{0, 0}, {1, 0}, {1, 1}, {0, 0}, {1, 1}, {0, 1}};
        mesh3D_gl::PainterOptions plain;
        plain.draw_wired(false);
        scene.painter->options(plain);
        const QImage frame = scene.frame("painter_texture");
        const auto near = [&](double fx, double fy, QColor c) {
            return ViewFixture::near(ViewFixture::pixel(frame, scene.top(0.0, fx, fy)), c, 40);
        };
        // Each texel's colour is pure at its centre, a quarter in from the square's corners.
        QVERIFY(textured->texture() > 0);
        QVERIFY(near(0.25, 0.75, Qt::red));
        QVERIFY(near(0.75, 0.75, Qt::green));
        QVERIFY(near(0.25, 0.25, Qt::blue));
        QVERIFY(near(0.75, 0.25, Qt::yellow));
        // The texture belongs to the painter's context and goes with it.
        const GLuint texture = textured->texture();
        delete scene.painter;
        scene.view.makeCurrent();
        QVERIFY(!glIsTexture(texture));
    }

    void a_selected_composite_is_outlined_by_its_box() {
        Scene scene;
        mesh3D::Container* pair = scene.composite("pair");
        scene.box("west", 0.0, scene.material("Red", Qt::red), pair);
        scene.box("east", 3.0, scene.material("Red", Qt::red), pair);
        pair->update_boundingbox();
        const QImage plain = scene.frame("painter_composite");
        const QPointF gap = ViewFixture::project(scene.view, 1.5, 1.0, 1.0);
        QVERIFY(ViewFixture::darkest(plain, gap) > 200);
        scene.painter->select_element(pair, true);
        const QImage selected = ViewFixture::frame(scene.view);
        ViewFixture::save(selected, "painter_composite_selected");
        QVERIFY(ViewFixture::darkest(selected, gap) < 60);
    }

    void a_broken_texture_leaves_the_face_plain() {
        Scene scene;
        mesh3D::Material* broken = scene.material("Broken", Qt::red);
        broken->texture_filename("/nonexistent/picture.png");
        scene.box("red", 0.0, broken);
        QVERIFY(reddish(ViewFixture::pixel(scene.frame("painter_broken_texture"), scene.top(0.0))));
        QCOMPARE(broken->texture(), 0u);
    }

    void a_point_object_draws_as_a_small_cube() {
        Scene scene;
        scene.box("red", 0.0, scene.material("Red", Qt::red));
        scene.object("point", fixtures::Mesh{{{3.0, 0.5, 1.0}}, {}}, scene.material("Blue", Qt::blue));
        mesh3D_gl::PainterOptions big;
        big.PointSize(0.2);
        scene.painter->options(big);
        const QImage frame = scene.frame("painter_point");
        QVERIFY(qBlue(ViewFixture::pixel(frame, ViewFixture::project(scene.view, 3.0, 0.5, 1.2))) > 120);
        QCOMPARE(ViewFixture::pixel(frame, ViewFixture::project(scene.view, 3.1, 0.5 + 0.4, 1.0)) | 0xFF000000, white);
    }
};

QTEST_MAIN(tst_painter)
#include "tst_painter.moc"
