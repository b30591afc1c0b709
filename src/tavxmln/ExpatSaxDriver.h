#pragma once

#include "tavxmln/CXMLSaxAttribut.h"

#include <cstdint>
#include <exception>
#include <memory>
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

    /// Growable wide text storage that, unlike a vector, does not clear what it is about to
    /// overwrite: conversion writes every character anyway.
    class WideBuffer {
    public:
        wchar_t* Data() const { return storage.get(); }
        std::size_t Size() const { return used; }
        bool Empty() const { return used == 0; }
        void Clear() { used = 0; }
        /// Room for `count` more characters; gives where they go.
        wchar_t* Extend(std::size_t count) {
            return used + count <= capacity ? storage.get() + used : Grow(count);
        }
        void Resize(std::size_t size) { used = size; }

    private:
        wchar_t* Grow(std::size_t count);

        std::unique_ptr<wchar_t[]> storage;
        std::size_t used = 0;
        std::size_t capacity = 0;
    };

    template <typename Event> void Deliver(Event&& event);
    void FlushText();
    bool Finish(int status, bool last);
    [[noreturn]] void ThrowParseError();
    /// Appends the wide form of UTF-8 `text` to `target`, null-ended when `terminate`; gives
    /// its start index.
    static std::size_t Widen(WideBuffer& target, const char* text, std::size_t length, bool terminate);
    /// The same for the arena, with the null.
    std::size_t Widen(const char* text);

    XML_ParserStruct* parser;
    CXMLSaxHandler* handler;
    std::wstring source;
    bool documentStarted = false;
    bool stopped = false;
    std::exception_ptr handlerFailure;
    WideBuffer pendingText;           ///< wide text since the last markup, without the null
    WideBuffer arena;                 ///< wide names and values of the current event
    std::vector<std::size_t> offsets; ///< arena positions of the attribute names and values
    std::vector<CXMLSaxAttribut> attributes;
    std::vector<CXMLSaxAttribut*> attributePointers;
};

} // namespace tavxmln
