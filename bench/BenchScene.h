#pragma once

// Shared by the view benchmarks: the reference building's triangles as client-side arrays, the
// least any drawing of that geometry costs on this renderer.

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

#include <vector>

namespace bench {

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

/// The reference building (40 storeys, 80 rooms each, round things in 32 segments: about a
/// million triangles in some 38 600 objects) loaded into a root and drawn by a painter in a view
/// of 1280x800: the first argument, or a document generated for the run.
struct ReferenceScene {
    QTemporaryDir folder;
    oxa::OxaRoot root{false};
    xqtgl::xQGLWidget view;
    mesh3D_gl::Painter* painter = nullptr; // owned by the view

    /// False, having said why, when there is no document to measure.
    bool load(const QStringList& arguments) {
        const QString path = arguments.size() > 1
                                 ? arguments.at(1)
                                 : generated_document(folder, "reference.oxaxml",
                                                      {"--storeys", "40", "--rooms-per-storey", "80", "--detail", "32"});
        if (path.isEmpty())
            return false;
        QString error;
        if (!oxa::OxaFileHandler().oxaReadXML(&root, path, &error)) {
            std::printf("cannot read %s: %s\n", qPrintable(path), qPrintable(error));
            return false;
        }
        view.resize(1280, 800);
        view.show();
        QCoreApplication::processEvents();
        view.autoSwap(false);
        view.makeCurrent();
        painter = new mesh3D_gl::Painter(&view);
        return true;
    }
    void build() {
        painter->set_elements(root.RootContainer(), const_cast<QList<oxa::HRef*>&>(root.HRefList()));
    }
    /// The whole building in view from the south-west, above.
    void fit() {
        view.boundingbox(painter->boundingbox());
        view.zoom_home_norefresh();
        view.zoom_all();
    }
};

} // namespace bench
