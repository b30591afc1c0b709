#pragma once

#include "zentra_export.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVector>

#include <utility>

class QTextStream;

namespace mesh3D {
class Vertex;
}

namespace oxa {

/// What a read learnt about the point numbers of one surface: which document numbers merged
/// into one kept point, and which number each kept vertex had. A surface welds equal points,
/// so without this record the source's numbering is gone. Vertices are referred to, not owned.
///
/// A record exists for every surface of every read, so it is kept in flat arrays: a few bytes
/// per point rather than a hash node (or a list) each.
class ZENTRA_EXPORT OxaExamineData {
public:
    OxaExamineData(const QString& realID, const QString& mappedID);
    OxaExamineData(const OxaExamineData&) = delete;
    OxaExamineData& operator=(const OxaExamineData&) = delete;
    virtual ~OxaExamineData();

    /// The identifier that the document uses for the surface.
    const QString& MappedID() const { return mappedID; }
    const QString& RealID() const { return realID; }

    /// Records that `duplicate` stood for the point kept as `kept`.
    void AddDuplicatePoint(int kept, int duplicate);
    /// Records each vertex's number; where several numbers lead to one vertex, the last the
    /// walk of the hash meets stays, and a later call overrides an earlier one.
    void AddPoints(const QHash<int, mesh3D::Vertex*>& points);
    /// The number of the vertex, 0 if unknown.
    int FindPoint(mesh3D::Vertex* vertex) const;
    /// The vertex of the number, null if unknown. The reverse table is built on the first call
    /// and not refreshed by later `AddPoints`, which a drawing pass over a finished read never
    /// needs.
    mesh3D::Vertex* FindPoint(int number);

    /// The kept points that had duplicates, in the order their first duplicate came.
    QList<int> KeptPoints() const;
    /// The kept point's number, then each number that merged into it, in reading order; empty
    /// for a point without duplicates.
    QList<int> DuplicatePoints(int kept) const;
    /// The number of duplicates recorded.
    int CountDuplicatePoints() const { return duplicates.size(); }

    /// One line per kept point that had duplicates: "obj <mapped> '<real>' p: ", the kept
    /// number and each duplicate, every number followed by a blank.
    void DumpDuplicatePoints(QTextStream& stream) const;

private:
    QString realID;
    QString mappedID;
    /// Pairs of kept and duplicate number, in reading order.
    QVector<std::pair<int, int>> duplicates;
    /// Pairs of vertex and number, sorted by vertex, one per vertex.
    QVector<std::pair<mesh3D::Vertex*, int>> numbersByVertex;
    QHash<int, mesh3D::Vertex*> verticesByNumber;
};

} // namespace oxa
