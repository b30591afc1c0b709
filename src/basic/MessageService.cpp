#include "basic/MessageService.h"

#include <QCoreApplication>

namespace basic {

MessageService::MessageService() : QObject(nullptr) {}

void MessageService::setInstanceID(unsigned long id) { instance_id = id; }

void MessageService::send_message(const QString& text) const {
    emit message(text);
    QCoreApplication::flush();
}

void MessageService::send_warning(const QString& text) const {
    emit warning(text);
    QCoreApplication::flush();
}

void MessageService::send_error(const QString& text) const {
    emit error(text);
    QCoreApplication::flush();
}

void MessageService::send_ping() const {
    emit ping();
    QCoreApplication::flush();
}

void MessageService::send_ptr(void* pointer) const {
    emit ptr(pointer);
    QCoreApplication::flush();
}

void MessageService::show_progress(double value, const QString& text) const {
    if (instance_id != 0)
        emit instance_progress(instance_id, value);
    else
        emit progress(value);
    if (!text.isNull()) {
        if (instance_id != 0)
            emit instance_progress_message(instance_id, text);
        else
            emit progress_message(text);
    }
    QCoreApplication::flush();
}

void MessageService::show_progress_message(const QString& text) const {
    emit progress_message(text);
    QCoreApplication::flush();
}

} // namespace basic
