#pragma once

#include "zentra_export.h"

namespace tavxmln {

/// One attribute of an element as the parser hands it to `CXMLSaxHandler::StartElement`: the
/// handler gets a null-ended array of pointers to these. Name and value point into the parser's
/// buffers and are valid only during the call.
class ZENTRA_EXPORT CXMLSaxAttribut {
public:
    CXMLSaxAttribut(const wchar_t* name = nullptr, const wchar_t* value = nullptr)
        : name(name), value(value) {}

    const wchar_t* Name() const { return name; }
    const wchar_t* Value() const { return value; }

private:
    const wchar_t* name;
    const wchar_t* value;
};

} // namespace tavxmln
