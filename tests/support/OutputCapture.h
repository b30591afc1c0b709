#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

/// Collects what the code under test writes to stdout or stderr while the object lives.
class OutputCapture {
public:
    explicit OutputCapture(FILE* stream) : _stream(stream), _fd(fileno(stream)) {
        _file.open();
        std::fflush(_stream);
        _saved = dup(_fd);
        dup2(_file.handle(), _fd);
    }
    ~OutputCapture() { restore(); }

    /// Ends the capture and returns the text.
    QByteArray text() {
        restore();
        _file.seek(0);
        return _file.readAll();
    }

private:
    void restore() {
        if (_saved < 0)
            return;
        std::fflush(_stream);
        dup2(_saved, _fd);
        close(_saved);
        _saved = -1;
    }

    FILE* _stream;
    int _fd;
    int _saved = -1;
    QTemporaryFile _file;
};
