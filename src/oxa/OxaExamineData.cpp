#include "oxa/OxaExamineData.h"

#include <QTextStream>
#include <QtAlgorithms>

namespace oxa {

OxaExamineData::OxaExamineData(const QString& realID, const QString& mappedID)
    : realID(realID), mappedID(mappedID) {}

OxaExamineData::~OxaExamineData() {
    qDeleteAll(duplicatePoints);
}

void OxaExamineData::AddDuplicatePoint(int kept, int duplicate) {
    QList<int>*& list = duplicatePoints[kept];
    if (!list)
        list = new QList<int>{kept};
    list->append(duplicate);
}

void OxaExamineData::AddPoints(const QHash<int, mesh3D::Vertex*>& points) {
    for (auto it = points.cbegin(); it != points.cend(); ++it)
        numbersByVertex.insert(it.value(), it.key());
}

int OxaExamineData::FindPoint(mesh3D::Vertex* vertex) const {
    return numbersByVertex.value(vertex, 0);
}

mesh3D::Vertex* OxaExamineData::FindPoint(int number) {
    if (verticesByNumber.isEmpty())
        for (auto it = numbersByVertex.cbegin(); it != numbersByVertex.cend(); ++it)
            verticesByNumber.insert(it.value(), it.key());
    return verticesByNumber.value(number, nullptr);
}

void OxaExamineData::DumpDuplicatePoints(QTextStream& stream) const {
    for (auto it = duplicatePoints.cbegin(); it != duplicatePoints.cend(); ++it) {
        stream << "obj " << mappedID << " '" << realID << "' p: ";
        for (int number : *it.value())
            stream << number << ' ';
        stream << '\n';
    }
}

} // namespace oxa
