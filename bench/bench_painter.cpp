// The model painter on the reference building (40 storeys, 80 rooms each, round things in 32
// segments: about a million triangles in some 38 600 objects): building its lists, one normal
// and one fast frame at 1280x800, and the memory of its items. The baseline, in the same context
// and with the same camera, is one glDrawArrays of the same triangles with normals from
// client-side float arrays: the least any drawing of that geometry costs here.

#include "BenchDocument.h"

#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "mesh3D_gl/Painter.h"
#include "oxa/OxaFileHandler.h"
#include "oxa/OxaRoot.h"
#include "xqtgl/xQGLWidget.h"

#include <GL/gl.h>

#include <QApplication>

#include <cstdio>
#include <fstream>
#include <vector>

namespace {

/// Normals and corners of every triangle, relative to the view's render origin, as GL takes them.
struct TriangleArrays {
    std::vector<GLfloat> normals;
    std::vector<GLfloat> corners;

    void add(const mesh3D::Container& container, const geometry3D::point& origin) {
        for (const mesh3D::Element* child : container.children()) {
            if (const auto* inner = dynamic_cast<const mesh3D::Container*>(child)) {
                add(*inner, origin);
            } else if (const auto* object = dynamic_cast<const mesh3D::Object3D*>(child)) {
                QList<mesh3D::Triangle*> triangles;
                object->allTriangles(triangles);
                for (const mesh3D::Triangle* t : triangles)
                    for (int i = 0; i < 3; ++i) {
                        const geometry3D::point& n = t->normal();
                        normals.insert(normals.end(), {GLfloat(n.x), GLfloat(n.y), GLfloat(n.z)});
                        const mesh3D::Vertex* v = t->vertex(i);
                        corners.insert(corners.end(), {GLfloat(v->x() - origin.x), GLfloat(v->y() - origin.y),
                                                       GLfloat(v->z() - origin.z)});
                    }
            }
        }
    }
    void draw() const {
        glEnableClientState(GL_VERTEX_ARRAY);
        glEnableClientState(GL_NORMAL_ARRAY);
        glVertexPointer(3, GL_FLOAT, 0, corners.data());
        glNormalPointer(GL_FLOAT, 0, normals.data());
        glDrawArrays(GL_TRIANGLES, 0, GLsizei(corners.size() / 3));
        glDisableClientState(GL_NORMAL_ARRAY);
        glDisableClientState(GL_VERTEX_ARRAY);
    }
};

double resident_mib() {
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return resident * 4096.0 / (1 << 20);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = app.arguments().size() > 1
                             ? app.arguments().at(1)
                             : bench::generated_document(folder, "reference.oxaxml",
                                                         {"--storeys", "40", "--rooms-per-storey", "80", "--detail", "32"});
    if (path.isEmpty())
        return 0;
    oxa::OxaRoot root(false);
    QString error;
    if (!oxa::OxaFileHandler().oxaReadXML(&root, path, &error)) {
        std::printf("cannot read %s: %s\n", qPrintable(path), qPrintable(error));
        return 1;
    }

    xqtgl::xQGLWidget view;
    view.resize(1280, 800);
    view.show();
    app.processEvents();
    view.autoSwap(false);
    view.makeCurrent();
    auto* painter = new mesh3D_gl::Painter(&view);
    const double before = resident_mib();
    const double building = bench::best_seconds(3, [&] {
        painter->set_elements(root.RootContainer(), const_cast<QList<oxa::HRef*>&>(root.HRefList()));
    });
    const int items = painter->count_elements();
    const double per_item = (resident_mib() - before) * (1 << 20) / items;
    view.boundingbox(painter->boundingbox());
    view.zoom_home_norefresh();
    view.zoom_all();
    view.updateGL(); // camera, lights and state of a normal frame

    TriangleArrays arrays;
    arrays.add(*root.RootContainer(), view.render_origin());
    const auto frame_seconds = [](const std::function<void()>& draw) {
        return bench::best_seconds(3, [&] {
            glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
            draw();
            glFinish();
        });
    };
    const double baseline = frame_seconds([&] { arrays.draw(); });
    const double paint = frame_seconds([&] { painter->paint(); });
    const double fast = frame_seconds([&] { painter->fast_paint(); });
    mesh3D_gl::PainterOptions faces_only(painter->options());
    faces_only.draw_wired(false);
    painter->options(faces_only);
    const double faces = frame_seconds([&] { painter->paint(); });

    std::printf("%zu triangles in %d items\n", arrays.corners.size() / 9, items);
    std::printf("set_elements: %.3f s; memory per item %.0f bytes\n", building, per_item);
    std::printf("paint: %.3f s; glDrawArrays of the same triangles: %.3f s; ratio %.2f\n", paint, baseline,
                paint / baseline);
    std::printf("paint of the faces alone (no wire edges): %.3f s; glDrawArrays: %.3f s; ratio %.2f\n", faces,
                baseline, faces / baseline);
    std::printf("fast_paint: %.3f s; paint: %.3f s; ratio %.2f\n", fast, paint, fast / paint);
    std::printf("paint/arrays ratio: %.2f\n", paint / baseline);
    std::printf("fast_paint/paint ratio: %.2f\n", fast / paint);
    return 0;
}
