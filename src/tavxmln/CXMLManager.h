#pragma once

#include "zentra_export.h"

namespace tavxmln {

class CXMLSaxHandler;

/// Entry of the XML library: parses a document in one streaming pass and drives a
/// `CXMLSaxHandler`. There is one instance; it holds no state between parses, so parses on
/// different threads with different handlers do not meet.
///
/// Both forms of `LoadDocument` take four options (two flags, a schema name, two flags) that
/// hosts pass by habit; this parser does not validate and does not resolve namespaces, so they
/// change nothing. Failures raise `CXMLException` with a non-zero code and a text that names the
/// source, the line and the column; a handler that throws stops the parse, and its exception
/// leaves `LoadDocument` unchanged.
class ZENTRA_EXPORT CXMLManager {
public:
    static CXMLManager* GetInstance();

    /// Parses the file, read in chunks: memory use does not grow with the file.
    void LoadDocument(const wchar_t* fileName, CXMLSaxHandler* handler, bool, bool, const wchar_t*, bool,
                      bool);
    /// Parses a buffer in memory; without an encoding declaration it is read as UTF-8.
    void LoadDocument(unsigned char* data, unsigned int size, CXMLSaxHandler* handler, bool, bool,
                      const wchar_t*, bool, bool);

private:
    CXMLManager() = default;
};

} // namespace tavxmln
