#include "oxaIO/ExportContext.h"

#include <QDateTime>

#include <cwchar>

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
    wchar_t text[64];
    std::swprintf(text, sizeof text / sizeof text[0], L"%04d-%02d-%02dT%02d:%02d:%02d", createdTime.year,
                  createdTime.month, createdTime.day, createdTime.hour, createdTime.minute,
                  createdTime.second);
    return text;
}

} // namespace oxaIO
