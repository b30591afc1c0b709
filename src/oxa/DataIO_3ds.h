#pragma once

#include "zentra_export.h"

#include "basic/color.h"
#include "oxa/DataIO.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QVector>

namespace basic {
class MessageService;
}
namespace mesh3D {
class Container;
class Material;
class Object3D;
} // namespace mesh3D
namespace model {
class System;
}
namespace oxaIO {
class OxaObjects;
}

namespace oxa {

class OxaRoot;

/// Imports a 3DS file into the element tree and wraps it in a document of its own, so that from
/// then on the file is a document of the project like any exchange document. The 3DS file is read
/// with bounds checks everywhere: a cut-off or malformed file ends the read where it breaks, and
/// what was read completely stays. All operations are static over one shared import state, so
/// one import runs at a time, on the caller's thread. Every element the import makes is named
/// with the file's name (the model prefix), "::" and its name in the file.
class ZENTRA_EXPORT DataIO_3ds : public DataIO {
public:
    /// One point of a mesh, already scaled.
    struct point3 {
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
    };
    /// One face: the places of its three corners in the mesh's vertex list, always within it.
    struct face_type {
        unsigned short index[3] = {0, 0, 0};
    };
    /// One mesh while it is being read.
    struct obj_type {
        QString name;
        /// The material's name in the file.
        QString material;
        QVector<point3> vertices;
        QVector<face_type> faces;
        QList<QPair<double, double>> texture_coordinates;
    };
    /// One node of the keyframer's hierarchy.
    struct node_type {
        unsigned short number = 0;
        QString name;
        /// 0xFFFF: the import's root.
        unsigned short parent = 0xFFFF;
    };

    /// "*.3ds".
    QStringList supported_formats() const override;

    /// The whole import into a project root: the file is read into the root's system, the new
    /// document is added to the root and the root container is brought in step with it. Returns
    /// the document, which the root owns; null, and `errorText` set, on failure.
    static oxaIO::OxaObjects* import_file(OxaRoot* root, const QString& fileName, double scale,
                                          QString* errorText);
    /// Steps of `import_file` that need no project root: reads the file into `system` and gives
    /// a new document that owns the import's root container and its materials, with its head
    /// filled; null, and `error_text` set, when the file cannot be opened. `messages` may be
    /// null.
    static oxaIO::OxaObjects* import_file(model::System* system, basic::MessageService* messages,
                                          const QString& fileName, double scale, QString* errorText);
    /// Reads the chunks of the file; 0 on success, -1 when the file cannot be opened. Reading
    /// covers the first half of the progress.
    static int load3ds(model::System* system, const QString& fileName, double scale);
    /// One named object, up to `end`.
    static void read_EDIT_OBJECT(model::System* system, unsigned int end, double scale);
    /// One material entry up to `end`; `material` is the material it fills, null until the
    /// entry's name chunk makes it.
    static void read_MAT_ENTRY(model::System* system, unsigned int end, mesh3D::Material* material);
    static void read_KFDATA(unsigned int end);
    static void read_OBJECT_NODE_TAG(unsigned int end);
    /// One object from a mesh: a triangle per face over vertices that the surface welds (each
    /// point of the file is entered once, as coincident corners end up shared anyway); the
    /// mesh's material, or
    /// the fallback with a line on standard error when the file names none that it defines.
    static mesh3D::Object3D* create_surface(model::System* system, obj_type& object);
    /// Normals, their orientation, the edges above 45 degrees and the triangle order of every
    /// surface read, in reading order; progress from 0.5 to 0.8.
    static void update_surfaces();
    /// The container tree from the keyframer's nodes; whatever no node placed goes under the
    /// root. Progress from 0.8 to 1.0.
    static void build_tree(model::System* system);
    /// A colour sub-chunk ending before `end`: three floats (0x0010, 0x0013) or three bytes over
    /// 255 (0x0011, 0x0012), alpha 1. Any other kind is told on standard error and yields the
    /// colour read last, unchanged.
    static basic::color4 read_color(unsigned int end);
    /// A percentage sub-chunk ending before `end`: an integer over 100 for 0x0030, else 0.
    static double read_percentage(unsigned int end);
    /// 3DS is read only: returns at once and writes nothing.
    static void export_file(const mesh3D::Container& container, const QString& fileName);
};

} // namespace oxa
