#pragma once

#include "zentra_export.h"

#include <cstdint>

namespace tavxmln {

class CXMLSaxAttribut;
class ExpatSaxDriver;

/// Receiver of the events of a parse started by `CXMLManager::LoadDocument`. Every operation has
/// an empty default, so a handler overrides only what it needs. A handler stops a parse by
/// throwing `CXMLException` (code 0 for a deliberate stop); nothing is called after that.
/// Texts are valid only during the call that hands them over.
class ZENTRA_EXPORT CXMLSaxHandler {
public:
    virtual ~CXMLSaxHandler();
    virtual void StartDocument();
    virtual void EndDocument();
    /// `attributes` is a null-ended array; the parser does not resolve namespaces, so the local
    /// name and the qualified name are the same text and the URI is empty.
    virtual void StartElement(const wchar_t* uri, const wchar_t* localName, const wchar_t* qName,
                              CXMLSaxAttribut** attributes);
    virtual void EndElement(const wchar_t* uri, const wchar_t* localName, const wchar_t* qName);
    /// One call per run of text between two tags, however the input splits it (entity
    /// references, buffer boundaries). The text of a CDATA section is its own run, between
    /// `StartCDATA` and `EndCDATA`.
    virtual void Characters(const wchar_t* text);
    virtual void StartCDATA();
    virtual void EndCDATA();
    virtual void StartDTD(const wchar_t* name, const wchar_t* publicId, const wchar_t* systemId);
    virtual void StartNamespace(const wchar_t* prefix, const wchar_t* uri);
    virtual void EndNamespace(const wchar_t* prefix);
    /// The byte offset in the source of the event being handled; 0 outside a parse.
    virtual std::uint64_t GetSourceOffset();

    /// Decodes binary data that the writer stored as text (base64). On success `data` is a new
    /// array of `size` bytes that the caller frees with `delete[]` (null for an empty text).
    /// A text that does not decode gives false, a null `data` and size 0.
    static bool GetData(const wchar_t* text, unsigned char*& data, unsigned long& size);

private:
    friend class ExpatSaxDriver;
    ExpatSaxDriver* driver = nullptr; ///< the parse in progress, set by the driver
};

} // namespace tavxmln
