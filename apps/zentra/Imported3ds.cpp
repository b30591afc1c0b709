#include "Imported3ds.h"

#include "basic/text.h"
#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/Object3D.h"
#include "oxa/DataIO_3ds.h"
#include "oxaIO/ExportContext.h"
#include "oxaIO/OxaObjectSection.h"

namespace {

struct TreeCounts {
    int containers = 0;
    int objects = 0;
    long triangles = 0;
};

void count(const mesh3D::Container& container, TreeCounts& counts) {
    for (const mesh3D::Element* child : container.children()) {
        if (child->is_type(mesh3D::TYPE_CONTAINER)) {
            ++counts.containers;
            count(*static_cast<const mesh3D::Container*>(child), counts);
        } else if (const auto* object = dynamic_cast<const mesh3D::Object3D*>(child)) {
            ++counts.objects;
            counts.triangles += object->CountTriangles();
        }
    }
}

} // namespace

Imported3ds::Imported3ds(const QString& file)
    : _document(oxa::DataIO_3ds::import_file(&_system, nullptr, file, 1.0, &_error)) {}

Imported3ds::~Imported3ds() {
    _document.reset();
    mesh3D::Material::DeleteGlobalMaterials(&_system);
}

bool Imported3ds::is_3ds(const QString& file) {
    return file.endsWith(QLatin1String(".3ds"), Qt::CaseInsensitive);
}

void Imported3ds::print_summary(QTextStream& out) const {
    const oxaIO::ExportContext& context = _document->Context();
    TreeCounts counts;
    for (const oxaIO::IContainer* root : _document->ObjectSection().GetContainers())
        count(*dynamic_cast<const mesh3D::Container*>(root), counts);
    out << "  project id:         " << basic::FromStdString(context.ProjectID()) << "\n"
        << "  created by:         " << basic::FromStdString(context.CreatedBy()) << "\n"
        << "  source application: " << basic::FromStdString(context.SourceApp()) << "\n"
        << "  source format:      " << basic::FromStdString(context.SourceFormat()) << "\n"
        << "  containers:         " << counts.containers << "\n"
        << "  objects:            " << counts.objects << "\n"
        << "  triangles:          " << counts.triangles << "\n"
        << "  materials:          " << _document->ObjectSection().GetMaterials().size() << "\n";
}
