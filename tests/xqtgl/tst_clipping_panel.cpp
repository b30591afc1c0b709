#include "geometry/Plane.h"
#include "xqtgl/xQGLClippingPlane_Widget.h"
#include "xqtgl/xQGLWidget.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QtTest>

using namespace xqtgl;

/// The clipping panel against a view whose scene box runs from 0 to 10 on every axis.
class tst_clipping_panel : public QObject {
    Q_OBJECT

    struct Panel {
        xQGLWidget view;
        xQGLClippingPlane_Widget panel;

        Panel() {
            view.boundingbox({0.0, 0.0, 10.0, 10.0, 0.0, 10.0});
            panel.widget(&view);
        }
        template <typename T>
        T* child(const char* name) { return panel.findChild<T*>(name); }
        const geometry3D::Plane& plane() const { return view.options().clipping_plane(); }
    };

private slots:
    void an_axis_button_cuts_at_the_slider_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("axis");
        QTest::addColumn<double>("side");
        QTest::newRow("x") << "pushButton_x" << 0 << 1.0;
        QTest::newRow("-x keeps the other half") << "pushButton_negx" << 0 << -1.0;
        QTest::newRow("z") << "pushButton_z" << 2 << 1.0;
        QTest::newRow("-y") << "pushButton_negy" << 1 << -1.0;
    }

    void an_axis_button_cuts_at_the_slider() {
        QFETCH(QString, button);
        QFETCH(int, axis);
        QFETCH(double, side);
        Panel p;
        p.child<QSlider>("slider_position")->setValue(25);
        QSignalSpy changes(&p.view.options(), &xQGLWidget_Options::changed);
        p.child<QPushButton>(qPrintable(button))->click();
        QCOMPARE(changes.count(), 1);
        QCOMPARE(p.plane().n()[axis], side);
        QCOMPARE(p.plane().d(), side * 2.5);
        QCOMPARE(p.child<QLineEdit>("lineEdit_position")->text(), QString("2.500"));
        QCOMPARE(p.child<QLineEdit>("lineEdit_max")->text(), QString("10.000"));
        // The slider moves the plane and keeps its side.
        p.child<QSlider>("slider_position")->setValue(80);
        QCOMPARE(p.plane().d(), side * 8.0);
        QCOMPARE(p.plane().n()[axis], side);
    }

    void a_plane_from_elsewhere_shows_in_the_panel_without_echo() {
        Panel p;
        QSignalSpy changes(&p.view.options(), &xQGLWidget_Options::changed);
        xQGLWidget_Options options(p.view.options());
        options.clipping_plane(geometry3D::Plane(vmp::Vector(0.0, -1.0, 0.0), -4.0));
        options.plane_clipping_enabled(true);
        p.view.options(options);
        // One assignment, one signal: placing the slider writes nothing back.
        QCOMPARE(changes.count(), 1);
        QVERIFY(p.child<QPushButton>("pushButton_negy")->isChecked());
        QVERIFY(p.child<QPushButton>("pushButton_onoff")->isChecked());
        QCOMPARE(p.child<QSlider>("slider_position")->value(), 40);
        QCOMPARE(p.child<QLineEdit>("lineEdit_position")->text(), QString("4.000"));
        // Of an oblique normal the later axis names the plane.
        options.clipping_plane(geometry3D::Plane(vmp::Vector(1.0, 1.0, 0.0), 6.0));
        p.view.options(options);
        QVERIFY(p.child<QPushButton>("pushButton_y")->isChecked());
        QCOMPARE(p.child<QLineEdit>("lineEdit_position")->text(), QString("6.000"));
    }

    void new_limits_keep_the_plane_where_it_is() {
        Panel p;
        p.child<QSlider>("slider_position")->setValue(50);
        p.child<QPushButton>("pushButton_x")->click();
        p.child<QLineEdit>("lineEdit_max")->setText("20");
        QTest::keyClick(p.child<QLineEdit>("lineEdit_max"), Qt::Key_Return);
        QCOMPARE(p.child<QSlider>("slider_position")->value(), 25);
        QCOMPARE(p.plane().d(), 5.0);
        p.child<QLineEdit>("lineEdit_position")->setText("15");
        QTest::keyClick(p.child<QLineEdit>("lineEdit_position"), Qt::Key_Return);
        QCOMPARE(p.plane().d(), 15.0);
    }

    void without_a_view_the_panel_stays_usable() {
        xQGLClippingPlane_Widget panel;
        panel.findChild<QPushButton*>("pushButton_z")->click();
        panel.findChild<QSlider*>("slider_position")->setValue(70);
        panel.enable_clipping(true);
        QVERIFY(!panel.widget());
    }

    void the_icons_are_in_the_library() {
        for (const char* name : {":/xqtgl/resources/Fnera_on_40x40.png", ":/xqtgl/resources/boundingbox.png"})
            QCOMPARE(QPixmap(name).size(), QSize(40, 40));
        xQGLClippingPlane_Widget panel;
        QCOMPARE(panel.windowTitle(), QString("Clipping plane"));
        QVERIFY(!panel.findChild<QPushButton*>("pushButton_onoff")->icon().isNull());
        panel.adjustSize();
        QDir().mkpath(QCoreApplication::applicationDirPath() + "/frames");
        panel.grab().save(QCoreApplication::applicationDirPath() + "/frames/clipping_panel.png");
    }
};

QTEST_MAIN(tst_clipping_panel)
#include "tst_clipping_panel.moc"
