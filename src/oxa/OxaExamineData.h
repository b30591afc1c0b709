#pragma once

#include "zentra_export.h"

#include <QHash>
#include <QList>
#include <QString>

class QTextStream;

namespace mesh3D {
class Vertex;
}

namespace oxa {

/// What a read learnt about the point numbers of one surface: which document numbers merged
/// into one kept point, and which number each kept vertex had. A surface welds equal points,
/// so without this record the source's numbering is gone. Vertices are referred to, not owned.
class ZENTRA_EXPORT OxaExamineData {
public:
    OxaExamineData(const QString& realID, const QString& mappedID);
    OxaExamineData(const OxaExamineData&) = delete;
    OxaExamineData& operator=(const OxaExamineData&) = delete;
    virtual ~OxaExamineData();

    /// The identifier that the document uses for the surface.
    const QString& MappedID() const { return mappedID; }
    const QString& RealID() const { return realID; }

    /// Records that `duplicate` stood for the point kept as `kept`. The list of a kept point
    /// starts with that point's own number, then the merged numbers in reading order.
    void AddDuplicatePoint(int kept, int duplicate);
    /// Records each vertex's number; where several numbers lead to one vertex, the last the
    /// walk of the hash meets stays.
    void AddPoints(const QHash<int, mesh3D::Vertex*>& points);
    /// The number of the vertex, 0 if unknown.
    int FindPoint(mesh3D::Vertex* vertex) const;
    /// The vertex of the number, null if unknown. The reverse table is built on the first call
    /// and not refreshed by later `AddPoints`, which a drawing pass over a finished read never
    /// needs.
    mesh3D::Vertex* FindPoint(int number);
    /// The lists of merged numbers, each under its kept point.
    const QHash<int, QList<int>*>& DuplicatePoints() const { return duplicatePoints; }

    /// One line per kept point that had duplicates: "obj <mapped> '<real>' p: " and each number
    /// followed by a blank.
    void DumpDuplicatePoints(QTextStream& stream) const;

private:
    QString realID;
    QString mappedID;
    QHash<int, QList<int>*> duplicatePoints;
    QHash<mesh3D::Vertex*, int> numbersByVertex;
    QHash<int, mesh3D::Vertex*> verticesByNumber;
};

} // namespace oxa
