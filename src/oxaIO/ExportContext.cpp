#include "oxaIO/ExportContext.h"

#include "tavxmln/XMLConvert.h"

#include <QDateTime>

namespace oxaIO {

ExportContext::ExportContext() {
    const QDateTime now = QDateTime::currentDateTime();
    if (!now.isValid())
        return;
    createdTime.year = now.date().year();
    createdTime.month = now.date().month();
    createdTime.day = now.date().day();
    createdTime.hour = now.time().hour();
    createdTime.minute = now.time().minute();
    createdTime.second = now.time().second();
}

std::wstring ExportContext::CreatedTimeAsString() const {
    return tavxmln::XMLConvertDateTime2Text(createdTime.year, createdTime.month, createdTime.day,
                                            createdTime.hour, createdTime.minute, createdTime.second);
}

} // namespace oxaIO
