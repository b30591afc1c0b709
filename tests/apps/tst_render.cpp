#include <QtTest>

#include "support/CliRun.h"

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

/// `zentra render` from a plain shell: no X display in the environment, the tool finds its own.
class tst_render : public QObject {
    Q_OBJECT

    QTemporaryDir _folder;
    const QString _sample = ZENTRA_SOURCE_DIR "/examples/sample-project";

    static QProcessEnvironment without_display() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("DISPLAY");
        environment.remove("QT_QPA_PLATFORM");
        return environment;
    }

    /// Renders at 320x200; fails the test on a non-zero exit.
    QImage render(const QString& name, const QStringList& options, const QString& input = QString()) {
        const QString out = _folder.filePath(name + ".png");
        const CliResult result =
            run_cli(QStringList{"render", input.isEmpty() ? _sample : input, "-o", out, "--size", "320x200"} + options,
                    without_display());
        if (result.code != 0)
            qWarning().noquote() << result.err;
        return result.code == 0 ? QImage(out) : QImage();
    }

    /// The share of pixels that differ from the background colour in the top-left corner.
    static double drawn_share(const QImage& image) {
        const QRgb background = image.pixel(0, 0);
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                drawn += image.pixel(x, y) != background;
        return double(drawn) / (image.width() * image.height());
    }

private slots:
    void every_view_draws_the_sample_into_a_picture_of_the_asked_size() {
        QImage sheet(5 * 320, 2 * 200, QImage::Format_RGB32);
        QPainter contact(&sheet);
        const QStringList views{"iso",  "top",       "north",     "east",      "south",
                                "west", "northeast", "northwest", "southeast", "southwest"};
        QSet<QByteArray> distinct;
        for (int i = 0; i < views.size(); ++i) {
            const QImage frame = render(views[i], {"--view", views[i]});
            QCOMPARE(frame.size(), QSize(320, 200));
            const double share = drawn_share(frame);
            QVERIFY2(share > 0.005 && share < 0.9, qPrintable(QString("%1: %2").arg(views[i]).arg(share)));
            distinct.insert(QByteArray(reinterpret_cast<const char*>(frame.constBits()), int(frame.sizeInBytes())));
            contact.drawImage((i % 5) * 320, (i / 5) * 200, frame);
            contact.drawText((i % 5) * 320 + 6, (i / 5) * 200 + 14, views[i]);
        }
        contact.end();
        sheet.save(QCoreApplication::applicationDirPath() + "/render_views.png");
        QCOMPARE(distinct.size(), views.size());
    }

    void options_change_the_picture() {
        const QImage plain = render("plain", {});
        const QImage dark = render("dark", {"--background", "203040"});
        QCOMPARE(dark.pixel(0, 0), qRgb(0x20, 0x30, 0x40));
        QVERIFY(render("selected", {"--select", "W1"}) != plain);
        QVERIFY(render("orthographic", {"--orthographic"}) != plain);
        QVERIFY(render("perspective north", {"--view", "north", "--perspective"}) !=
                render("north", {"--view", "north"}));
    }

    void a_cut_leaves_what_lies_on_its_kept_side() {
        // Looking north, the middle column runs up a wall from z = 0 to 3: the cut at z = 1 lies a
        // third of the way up from its foot.
        const QImage plain = render("south", {"--view", "south"});
        const QImage cut = render("south, cut", {"--view", "south", "--clip", "-z:1.0"});
        const int x = plain.width() / 2;
        int top = 0, foot = plain.height() - 1;
        for (; top < foot && plain.pixel(x, top) == plain.pixel(0, 0); ++top) {}
        for (; foot > top && plain.pixel(x, foot) == plain.pixel(0, 0); --foot) {}
        QVERIFY(foot - top > 30);
        const int at_cut = foot - (foot - top) / 3;
        for (int y = top; y <= foot; ++y)
            QVERIFY(std::abs(y - at_cut) <= 2 || (cut.pixel(x, y) == plain.pixel(x, y)) == (y > at_cut));
        for (const QString id : {"NOPE", "L00"}) {
            const CliResult refused = run_cli({"render", _sample, "-o", "s.png", "--select", id}, without_display());
            QVERIFY2(refused.code == 1 && refused.err.contains(id), qPrintable(refused.err));
        }
    }

    void a_stored_viewpoint_places_the_camera() {
        QFile source(_sample + "/architecture.oxaxml");
        QVERIFY(source.open(QIODevice::ReadOnly));
        QByteArray document = source.readAll();
        document.replace("</objects>", R"(<visualisationSection version="1.4"><viewContainer ID="VC" name="Views">
<view ID="V1" name="Close up" current="true">
<camera eye="-3 -3 2" lookat="0 0 1" up="0 0 1" nearPlane="0.1" farPlane="100" viewAngle="45" aspectRatio="1.6" projType="perspective"/>
</view>
<view ID="V2" name="Kept square"><camera eye="-10 -12 9" lookat="2 1 1" up="0 0 1" nearPlane="0.1" farPlane="100" viewAngle="45" aspectRatio="1" projType="orthographic" expOrthoWidth="14" expOrthoHeight="14" orthoWidth="14" orthoHeight="14" savedEye="0 0 0" savedLookat="0 0 0"/></view>
<view ID="V3" name="Kept wide"><camera eye="-10 -12 9" lookat="2 1 1" up="0 0 1" nearPlane="0.1" farPlane="100" viewAngle="45" aspectRatio="1" projType="orthographic" expOrthoWidth="14" expOrthoHeight="14" orthoWidth="40" orthoHeight="14" savedEye="0 0 0" savedLookat="0 0 0"/></view>
</viewContainer></visualisationSection></objects>)");
        const QString path = _folder.filePath("with-view.oxaxml");
        QFile target(path);
        QVERIFY(target.open(QIODevice::WriteOnly) && target.write(document) == document.size());
        target.close();
        const QImage close_up = render("close-up", {"--viewpoint", "Close up"}, path);
        QVERIFY(!close_up.isNull());
        QVERIFY(close_up != render("iso-of-document", {}, path));
        // An orthographic view is fitted to the picture by its expected sizes, whatever shape of
        // window it was kept at.
        const QImage square = render("kept-square", {"--viewpoint", "Kept square"}, path);
        QVERIFY(drawn_share(square) > 0.005);
        QCOMPARE(render("kept-wide", {"--viewpoint", "V3"}, path), square);

        const CliResult unknown =
            run_cli({"render", path, "-o", _folder.filePath("x.png"), "--viewpoint", "Nowhere"}, without_display());
        QCOMPARE(unknown.code, 1);
        QVERIFY2(unknown.err.contains("no viewpoint named 'Nowhere'"), qPrintable(unknown.err));
        QVERIFY(!QFile::exists(_folder.filePath("x.png")));
    }

    void without_any_display_route_it_says_what_to_install() {
        QProcessEnvironment bare = without_display();
        bare.insert("PATH", "/nonexistent");
        const CliResult result = run_cli({"render", _sample, "-o", _folder.filePath("none.png")}, bare);
        QCOMPARE(result.code, 1);
        QVERIFY2(result.err.contains("apt-get install xvfb"), qPrintable(result.err));
        const CliResult missing = run_cli({"render", _folder.filePath("none.oxaxml"), "-o", _folder.filePath("m.png")},
                                          without_display());
        QCOMPARE(missing.code, 1);
        QVERIFY(!QFile::exists(_folder.filePath("m.png")));
    }

    void bad_requests_are_usage_errors_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no output") << QStringList{"render", "model.oxaxml"};
        QTest::newRow("bad size") << QStringList{"render", "m.oxaxml", "-o", "a.png", "--size", "0x10"};
        QTest::newRow("bad view") << QStringList{"render", "m.oxaxml", "-o", "a.png", "--view", "up"};
        QTest::newRow("bad clip") << QStringList{"render", "m.oxaxml", "-o", "a.png", "--clip", "w:1"};
        QTest::newRow("bad colour") << QStringList{"render", "m.oxaxml", "-o", "a.png", "--background", "red"};
        QTest::newRow("view and viewpoint") << QStringList{"render", "m.oxaxml", "-o", "a.png", "--view", "top", "--viewpoint", "V1"};
    }

    void bad_requests_are_usage_errors() {
        QFETCH(QStringList, arguments);
        QCOMPARE(run_cli(arguments).code, 2);
    }

    void help_lists_the_options() {
        const CliResult help = run_cli({"render", "--help"});
        QCOMPARE(help.code, 0);
        QVERIFY(help.out.contains("--viewpoint NAME") && help.out.contains("--clip AXIS:VALUE"));
    }
};

QTEST_MAIN(tst_render)
#include "tst_render.moc"
