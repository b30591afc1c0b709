#include "mesh3D/QSModelMaterial.h"

#include "mesh3D/Material.h"
#include "mesh3D/QSColumnMaterial.h"
#include "model/QSItemObject.h"

#include <QColor>

namespace mesh3D {

namespace {

QString colour_text(const basic::color4& c) {
    return QString::asprintf("[%.2f/%.2f/%.2f]", c.r, c.g, c.b);
}

} // namespace

QSModelMaterial::QSModelMaterial(QSColumnMaterial* column) : model::QSModelObject(column) {}

int QSModelMaterial::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 8;
}

QVariant QSModelMaterial::headerData(int section, Qt::Orientation orientation, int role) const {
    static const char* const titles[8] = {"Name",           "Transparency",    "Shininess", "Color: diffuse",
                                          "Color: ambient", "Color: specular", "Texture",   "Ref."};
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section;
    return section >= 0 && section < 8 ? QVariant(QString::fromLatin1(titles[section])) : QVariant();
}

QVariant QSModelMaterial::data(const QModelIndex& index, int role) const {
    if (!is_cell(index))
        return QVariant();
    const int row = index.row();
    const auto* item = static_cast<const model::QSItemObject*>(column()->items().at(row));
    const Material* material = dynamic_cast<const Material*>(item->object());
    if (!material)
        return QVariant();
    const basic::color4* colours[3] = {&material->diffuse(), &material->ambient(), &material->specular()};
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case 0:
            return material->name();
        case 1:
            return QString::asprintf("%.2f", material->transparency());
        case 2:
            return QString::asprintf("%.2f", material->shininess());
        case 3:
        case 4:
        case 5:
            return colour_text(*colours[index.column() - 3]);
        case 6:
            return material->texture_filename();
        case 7:
            return QStringLiteral("# %1").arg(item->links().size());
        default:
            return QVariant();
        }
    case Qt::BackgroundRole: {
        const QVariant state = model::QSModelAbstract::data(index, role);
        if (state.isValid() || index.column() < 3 || index.column() > 5)
            return state;
        const basic::color4& c = *colours[index.column() - 3];
        return QColor(int(c.r * 255), int(c.g * 255), int(c.b * 255), 255);
    }
    case Qt::ForegroundRole:
        return model::QSModelAbstract::data(index, role);
    default:
        return QVariant();
    }
}

} // namespace mesh3D
