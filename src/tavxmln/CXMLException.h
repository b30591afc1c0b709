#pragma once

#include "zentra_export.h"

#include <string>

namespace tavxmln {

/// The one exception type of the XML library and of the document layer above it. The code says
/// what kind of failure it is; code 0 is a deliberate stop of a parse by a handler and no failure.
class ZENTRA_EXPORT CXMLException {
public:
    /// Codes raised by the library itself; the document layer adds its own (6, 7).
    enum Code {
        Stop = 0,        ///< a handler ended the parse on purpose
        FileError = 1,   ///< the file cannot be opened or read
        ParseError = 2,  ///< the input is not well-formed XML (or not in a readable encoding)
        OutOfMemory = 3, ///< the parser could not get memory
    };

    CXMLException(int code, const wchar_t* text);
    /// Raises the parser's own description of its error number `parserError`.
    CXMLException(int code, unsigned int parserError);
    virtual ~CXMLException();

    /// What went wrong, for a person; empty for a plain stop.
    virtual const wchar_t* text() const;
    int code() const { return errorCode; }

private:
    int errorCode;
    std::wstring message;
};

} // namespace tavxmln
