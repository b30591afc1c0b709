#pragma once

#include "zentra_export.h"

#include <QHash>
#include <QString>

namespace oxa {

class OxaExamineData;

/// The process-wide store of examination records, one per surface identifier, filled by every
/// read and read by the view that draws point numbers. Records accumulate until
/// `DeleteInstance`; a surface read twice under one identifier adds to the same record. There
/// is no lock: reads and drawing share it from one thread.
class ZENTRA_EXPORT OxaExamineContainer {
public:
    /// Makes the store on first use; null if memory runs out.
    static OxaExamineContainer* GetInstance();
    /// Deletes the store and its records; false if there was none.
    static bool DeleteInstance();

    /// A copy shares the records with the original.
    OxaExamineContainer(const OxaExamineContainer& other) = default;
    OxaExamineContainer& operator=(const OxaExamineContainer& other) = default;

    void SetTextScale(double x, double y, double z);
    void GetTextScale(double& x, double& y, double& z) const;
    void SetDrawPointNumbers(bool draw) { drawPointNumbers = draw; }
    bool IsDrawPointNumbers() const { return drawPointNumbers; }

    /// The record of `realID`, made if there is none; the `mappedID` of a later call for a known
    /// record is ignored.
    OxaExamineData* GetObjectExamineData(const QString& realID, const QString& mappedID);
    /// The record of `realID`, or null.
    OxaExamineData* FindObjectExamineDataFromRealID(const QString& realID) const;

    /// Writes the duplicates of every record to the file, in UTF-8. The file is opened (and so
    /// emptied) first, and then nothing is written unless point numbers are drawn: the dump
    /// belongs to the view's examination mode and is off with it.
    void DumpDuplicatePoints(const QString& fileName) const;

private:
    OxaExamineContainer();
    virtual ~OxaExamineContainer();

    QHash<QString, OxaExamineData*>* records;
    double textScaleX = 1.0;
    double textScaleY = 1.0;
    double textScaleZ = 1.0;
    bool drawPointNumbers = false;

    static OxaExamineContainer* instance;
};

} // namespace oxa
