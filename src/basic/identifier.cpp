#include "basic/identifier.h"

#include <QUuid>

namespace basic {

QString create_ID() {
    static const QString process_prefix = QUuid::createUuid().toString();
    static quint64 counter = 1;
    // Built at its exact length: objects keep their id for life, and appending piecewise would
    // leave each one with the spare capacity of the growth.
    const QString number = QString::number(counter++, 16);
    QString id;
    id.reserve(process_prefix.size() + 1 + number.size());
    id.append(process_prefix).append(QLatin1Char('-')).append(number);
    return id;
}

} // namespace basic
