#include "oxa/OxaExamineContainer.h"

#include "oxa/OxaExamineData.h"

#include <QFile>
#include <QTextStream>
#include <QtAlgorithms>

#include <new>

namespace oxa {

OxaExamineContainer* OxaExamineContainer::instance = nullptr;

OxaExamineContainer* OxaExamineContainer::GetInstance() {
    if (!instance)
        instance = new (std::nothrow) OxaExamineContainer();
    return instance;
}

bool OxaExamineContainer::DeleteInstance() {
    if (!instance)
        return false;
    delete instance;
    instance = nullptr;
    return true;
}

OxaExamineContainer::OxaExamineContainer() : records(new QHash<QString, OxaExamineData*>()) {}

OxaExamineContainer::~OxaExamineContainer() {
    qDeleteAll(*records);
    records->clear();
    delete records;
}

void OxaExamineContainer::SetTextScale(double x, double y, double z) {
    textScaleX = x;
    textScaleY = y;
    textScaleZ = z;
}

void OxaExamineContainer::GetTextScale(double& x, double& y, double& z) const {
    x = textScaleX;
    y = textScaleY;
    z = textScaleZ;
}

OxaExamineData* OxaExamineContainer::GetObjectExamineData(const QString& realID, const QString& mappedID) {
    OxaExamineData*& record = (*records)[realID];
    if (!record)
        record = new OxaExamineData(realID, mappedID);
    return record;
}

OxaExamineData* OxaExamineContainer::FindObjectExamineDataFromRealID(const QString& realID) const {
    return records->value(realID, nullptr);
}

void OxaExamineContainer::DumpDuplicatePoints(const QString& fileName) const {
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text) || !drawPointNumbers)
        return;
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    for (const OxaExamineData* record : qAsConst(*records))
        record->DumpDuplicatePoints(stream);
    stream.flush();
    file.close();
}

} // namespace oxa
