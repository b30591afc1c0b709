#include "mesh3D/QSColumnMaterial.h"

#include "mesh3D/QSModelMaterial.h"

#include <QRegExp>

namespace mesh3D {

QSColumnMaterial::QSColumnMaterial(model::System* system, const QString& name)
    : model::QSColumnObject(system, name, true) {
    table_model = new QSModelMaterial(this);
}

QList<int> QSColumnMaterial::matches(const QString& pattern) {
    QList<int> found;
    if (!table_model)
        return found;
    const QRegExp expression(pattern, Qt::CaseSensitive, QRegExp::Wildcard);
    const int columns = table_model->columnCount();
    for (int place = 0; place < active(); ++place) {
        for (int column = 0; column < columns; ++column) {
            if (table_model->index(place, column).data().toString().contains(expression)) {
                found.append(place);
                break;
            }
        }
    }
    return found;
}

} // namespace mesh3D
