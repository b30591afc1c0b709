#pragma once

#include <QSize>
#include <QString>

#include <sys/types.h>

/// An X display to draw on with OpenGL when the tool runs from a plain shell: the one named by
/// DISPLAY when a server answers there, else a virtual X server started for this process alone
/// and stopped with it (also when the process dies).
class PrivateDisplay {
public:
    PrivateDisplay() = default;
    ~PrivateDisplay();
    PrivateDisplay(const PrivateDisplay&) = delete;
    PrivateDisplay& operator=(const PrivateDisplay&) = delete;

    /// Makes DISPLAY name a display that answers, starting a private one with a screen of at
    /// least `screen` when needed. False, with `problem` saying what to install, when there is
    /// none and none can be started.
    bool ensure(const QSize& screen, QString* problem);

private:
    bool start_server(const QString& program, const QSize& screen, QString* problem);
    void stop_server();

    pid_t _server = -1;
};
