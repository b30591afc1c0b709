#include "oxa/OxaExamineData.h"

#include <QSet>
#include <QTextStream>

#include <algorithm>

namespace oxa {

OxaExamineData::OxaExamineData(const QString& realID, const QString& mappedID)
    : realID(realID), mappedID(mappedID) {}

OxaExamineData::~OxaExamineData() = default;

void OxaExamineData::AddDuplicatePoint(int kept, int duplicate) {
    duplicates.append({kept, duplicate});
}

void OxaExamineData::AddPoints(const QHash<int, mesh3D::Vertex*>& points) {
    for (auto it = points.cbegin(); it != points.cend(); ++it)
        numbersByVertex.append({it.value(), it.key()});
    // Within each vertex's run the pair added last must stay: sort stably, keep the runs' ends.
    std::stable_sort(numbersByVertex.begin(), numbersByVertex.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    int kept = 0;
    for (int i = 0; i < numbersByVertex.size(); ++i) {
        if (i + 1 < numbersByVertex.size() && numbersByVertex[i + 1].first == numbersByVertex[i].first)
            continue;
        numbersByVertex[kept++] = numbersByVertex[i];
    }
    numbersByVertex.resize(kept);
    // The points of a surface come once its data is complete, and so do all its duplicates:
    // give back what the growth of both arrays reserved, as records live as long as the model.
    numbersByVertex.squeeze();
    duplicates.squeeze();
}

int OxaExamineData::FindPoint(mesh3D::Vertex* vertex) const {
    const auto at = std::lower_bound(numbersByVertex.cbegin(), numbersByVertex.cend(), vertex,
                                     [](const auto& entry, mesh3D::Vertex* v) { return entry.first < v; });
    return at != numbersByVertex.cend() && at->first == vertex ? at->second : 0;
}

mesh3D::Vertex* OxaExamineData::FindPoint(int number) {
    if (verticesByNumber.isEmpty())
        for (const auto& entry : qAsConst(numbersByVertex))
            verticesByNumber.insert(entry.second, entry.first);
    return verticesByNumber.value(number, nullptr);
}

QList<int> OxaExamineData::KeptPoints() const {
    QList<int> kept;
    QSet<int> seen;
    for (const auto& pair : duplicates)
        if (!seen.contains(pair.first)) {
            seen.insert(pair.first);
            kept.append(pair.first);
        }
    return kept;
}

QList<int> OxaExamineData::DuplicatePoints(int kept) const {
    QList<int> numbers;
    for (const auto& pair : duplicates)
        if (pair.first == kept) {
            if (numbers.isEmpty())
                numbers.append(kept);
            numbers.append(pair.second);
        }
    return numbers;
}

void OxaExamineData::DumpDuplicatePoints(QTextStream& stream) const {
    QHash<int, QList<int>> byKept;
    for (const auto& pair : duplicates)
        byKept[pair.first].append(pair.second);
    for (int kept : KeptPoints()) {
        stream << "obj " << mappedID << " '" << realID << "' p: " << kept << ' ';
        for (int number : qAsConst(byKept[kept]))
            stream << number << ' ';
        stream << '\n';
    }
}

} // namespace oxa
