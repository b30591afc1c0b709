#pragma once

#include "zentra_export.h"

#include <QObject>
#include <QString>

namespace basic {

/// The library's one channel for telling a host what is going on: plain lines (message, warning,
/// error), progress with its text, a heartbeat and an opaque pointer. The library never shows a
/// dialog itself; the host connects to these signals and decides.
///
/// A channel may belong to one job of the host: with a non-zero instance id, `show_progress`
/// reports through the `instance_*` signals so that a host running several jobs can tell them apart.
class ZENTRA_EXPORT MessageService : public QObject {
    Q_OBJECT
public:
    MessageService();

    void setInstanceID(unsigned long id);

    void send_message(const QString& text) const;
    void send_warning(const QString& text) const;
    void send_error(const QString& text) const;
    void send_ping() const;
    void send_ptr(void* pointer) const;

    /// Emits `instance_progress` on a channel with an instance id, else `progress`. The text follows
    /// on the matching text signal unless it is the null QString; an empty text still counts.
    void show_progress(double value, const QString& text) const;

    /// Always emits the plain `progress_message`, also on a channel with an instance id: hosts
    /// use it for job-independent status lines.
    void show_progress_message(const QString& text) const;

signals:
    void message(QString text) const;
    void warning(QString text) const;
    void error(QString text) const;
    void progress(double fraction) const;
    void progress_message(QString text) const;
    void ping() const;
    void ptr(void* pointer) const;
    void instance_progress(ulong instance, double fraction) const;
    void instance_progress_message(ulong instance, QString text) const;

private:
    unsigned long instance_id = 0;
};

} // namespace basic
