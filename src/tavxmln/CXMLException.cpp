#include "tavxmln/CXMLException.h"

#include <expat.h>

namespace tavxmln {

CXMLException::CXMLException(int code, const wchar_t* text) : errorCode(code), message(text ? text : L"") {}

CXMLException::CXMLException(int code, unsigned int parserError) : errorCode(code) {
    const XML_LChar* description = XML_ErrorString(static_cast<XML_Error>(parserError));
    if (description)
        message.assign(description, description + std::char_traits<char>::length(description));
}

CXMLException::~CXMLException() = default;

const wchar_t* CXMLException::text() const {
    return message.c_str();
}

} // namespace tavxmln
