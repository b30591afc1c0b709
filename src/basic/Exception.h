#pragma once

#include "zentra_export.h"

#include <QString>

namespace basic {

/// Names of the two kinds of failure, for hosts that label what they print.
ZENTRA_EXPORT extern const QString exception_kind_text;               // "Exception"
ZENTRA_EXPORT extern const QString out_of_memory_exception_kind_text; // "OutOfMemoryException"

/// Root of the library's own exceptions: one text for a person, thrown and caught by value.
/// Exhausted memory is not wrapped: it stays `std::bad_alloc`.
class ZENTRA_EXPORT Exception {
public:
    explicit Exception(const QString& message = QString()) : message(message) {}
    virtual ~Exception();

    const QString& text() const { return message; }

private:
    QString message;
};

} // namespace basic
