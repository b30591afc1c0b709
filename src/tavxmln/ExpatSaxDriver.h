#pragma once

#include "tavxmln/CXMLSaxAttribut.h"

#include <cstdint>
#include <exception>
#include <string>
#include <vector>

struct XML_ParserStruct;

namespace tavxmln {

class CXMLSaxHandler;
class CXMLException;

/// One parse: feeds bytes to expat and turns its events into the calls of a `CXMLSaxHandler`.
/// Names and values are converted to wide text once per event into buffers that are reused, and
/// text is collected until the next markup so that a handler sees each run in one piece.
/// Internal to the library; `CXMLManager` is the public entry.
class ExpatSaxDriver {
public:
    /// `source` names the input in error texts (a file name, or "buffer").
    ExpatSaxDriver(CXMLSaxHandler* handler, std::wstring source);
    ~ExpatSaxDriver();
    ExpatSaxDriver(const ExpatSaxDriver&) = delete;
    ExpatSaxDriver& operator=(const ExpatSaxDriver&) = delete;

    /// Parses the next chunk; `last` marks the end of the input. Throws `CXMLException` on
    /// malformed input, rethrows what a handler threw, and returns false once the parse ended
    /// (stopped by the handler or complete), so the caller feeds no more.
    bool Feed(const char* bytes, std::size_t size, bool last);
    /// A buffer of `size` bytes owned by the parser, for `FeedBuffer` (saves one copy per chunk).
    char* Buffer(std::size_t size);
    bool FeedBuffer(std::size_t filled, bool last);

    std::uint64_t SourceOffset() const;

private:
    static void OnStartElement(void* self, const char* name, const char** attributes);
    static void OnEndElement(void* self, const char* name);
    static void OnCharacters(void* self, const char* text, int length);
    static void OnStartCData(void* self);
    static void OnEndCData(void* self);
    static void OnStartDoctype(void* self, const char* name, const char* systemId, const char* publicId,
                               int hasInternalSubset);

    template <typename Event> void Deliver(Event&& event);
    void FlushText();
    bool Finish(int status, bool last);
    [[noreturn]] void ThrowParseError();
    /// Appends the wide form of UTF-8 `text` to the arena, null-ended; gives its start index.
    std::size_t Widen(const char* text, std::size_t length);
    std::size_t Widen(const char* text);

    XML_ParserStruct* parser;
    CXMLSaxHandler* handler;
    std::wstring source;
    bool documentStarted = false;
    bool stopped = false;
    std::exception_ptr handlerFailure;
    std::string pendingText;          ///< UTF-8 text since the last markup
    std::vector<wchar_t> arena;       ///< wide names, values and text of the current event
    std::vector<std::size_t> offsets; ///< arena positions of the attribute names and values
    std::vector<CXMLSaxAttribut> attributes;
    std::vector<CXMLSaxAttribut*> attributePointers;
};

} // namespace tavxmln
