#include "basic/identifier.h"

#include <QUuid>

namespace basic {

QString create_ID() {
    static const QString process_prefix = QUuid::createUuid().toString();
    static quint64 counter = 1;
    return process_prefix + QLatin1Char('-') + QString::number(counter++, 16);
}

} // namespace basic
