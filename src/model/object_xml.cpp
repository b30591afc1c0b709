#include "model/object_xml.h"

namespace model {

namespace {

/// The text from `skip` characters past the start of the first `marker` up to the next quotation
/// mark. A missing marker counts from position -1, as the plain search gives it.
QString quoted_after(const QString& xml, const QString& marker, int skip) {
    const QString rest = xml.mid(xml.indexOf(marker) + skip);
    return rest.left(rest.indexOf(QLatin1Char('"')));
}

} // namespace

QString xml_object_id(const QString& xml) {
    return quoted_after(xml, QStringLiteral("ID="), 4);
}

long xml_object_version(const QString& xml) {
    return quoted_after(xml, QStringLiteral("VERSION="), 9).toLong(nullptr, 10);
}

QString xml_classname(const QString& xml) {
    const QString open = QStringLiteral("<classname>");
    const int start = xml.indexOf(open);
    if (start < 0)
        return QString();
    const int value_start = start + open.size();
    const int end = xml.indexOf(QStringLiteral("</class"), value_start);
    if (end < 0)
        return QString();
    return xml.mid(value_start, end - value_start);
}

} // namespace model
