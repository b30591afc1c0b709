#include "tavxmln/CXMLSaxHandler.h"

#include "tavxmln/Base64.h"
#include "tavxmln/ExpatSaxDriver.h"

#include <vector>

namespace tavxmln {

CXMLSaxHandler::~CXMLSaxHandler() = default;
void CXMLSaxHandler::StartDocument() {}
void CXMLSaxHandler::EndDocument() {}
void CXMLSaxHandler::StartElement(const wchar_t*, const wchar_t*, const wchar_t*, CXMLSaxAttribut**) {}
void CXMLSaxHandler::EndElement(const wchar_t*, const wchar_t*, const wchar_t*) {}
void CXMLSaxHandler::Characters(const wchar_t*) {}
void CXMLSaxHandler::StartCDATA() {}
void CXMLSaxHandler::EndCDATA() {}
void CXMLSaxHandler::StartDTD(const wchar_t*, const wchar_t*, const wchar_t*) {}
void CXMLSaxHandler::StartNamespace(const wchar_t*, const wchar_t*) {}
void CXMLSaxHandler::EndNamespace(const wchar_t*) {}

std::uint64_t CXMLSaxHandler::GetSourceOffset() {
    return driver ? driver->SourceOffset() : 0;
}

bool CXMLSaxHandler::GetData(const wchar_t* text, unsigned char*& data, unsigned long& size) {
    data = nullptr;
    size = 0;
    std::vector<unsigned char> bytes;
    if (!DecodeBase64(text, bytes))
        return false;
    if (!bytes.empty()) {
        data = new unsigned char[bytes.size()];
        std::copy(bytes.begin(), bytes.end(), data);
        size = static_cast<unsigned long>(bytes.size());
    }
    return true;
}

} // namespace tavxmln
