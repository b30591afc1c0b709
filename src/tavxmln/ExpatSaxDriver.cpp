#include "tavxmln/ExpatSaxDriver.h"

#include "tavxmln/CXMLException.h"
#include "tavxmln/CXMLSaxHandler.h"

#include <expat.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>

namespace tavxmln {

namespace {

/// Decodes one UTF-8 sequence that expat has already validated.
char32_t DecodeUtf8(const unsigned char*& p) {
    const unsigned char lead = *p++;
    if (lead < 0x80)
        return lead;
    if (lead < 0xE0) {
        const char32_t c = (char32_t(lead & 0x1F) << 6) | (p[0] & 0x3F);
        p += 1;
        return c;
    }
    if (lead < 0xF0) {
        const char32_t c = (char32_t(lead & 0x0F) << 12) | (char32_t(p[0] & 0x3F) << 6) | (p[1] & 0x3F);
        p += 2;
        return c;
    }
    const char32_t c = (char32_t(lead & 0x07) << 18) | (char32_t(p[0] & 0x3F) << 12) |
                       (char32_t(p[1] & 0x3F) << 6) | (p[2] & 0x3F);
    p += 3;
    return c;
}

const wchar_t emptyText[] = L"";

} // namespace

ExpatSaxDriver::ExpatSaxDriver(CXMLSaxHandler* handler, std::wstring source)
    : parser(XML_ParserCreate(nullptr)), handler(handler), source(std::move(source)) {
    if (!parser)
        throw CXMLException(CXMLException::OutOfMemory, L"out of memory: cannot create the XML parser");
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, &OnStartElement, &OnEndElement);
    XML_SetCharacterDataHandler(parser, &OnCharacters);
    XML_SetCdataSectionHandler(parser, &OnStartCData, &OnEndCData);
    XML_SetStartDoctypeDeclHandler(parser, &OnStartDoctype);
    handler->driver = this;
}

ExpatSaxDriver::~ExpatSaxDriver() {
    handler->driver = nullptr;
    XML_ParserFree(parser);
}

bool ExpatSaxDriver::Feed(const char* bytes, std::size_t size, bool last) {
    while (size > std::size_t(std::numeric_limits<int>::max())) {
        const int part = std::numeric_limits<int>::max() / 2;
        if (!Finish(XML_Parse(parser, bytes, part, XML_FALSE), false))
            return false;
        bytes += part;
        size -= part;
    }
    return Finish(XML_Parse(parser, bytes, static_cast<int>(size), last ? XML_TRUE : XML_FALSE), last);
}

char* ExpatSaxDriver::Buffer(std::size_t size) {
    void* buffer = XML_GetBuffer(parser, static_cast<int>(size));
    if (!buffer)
        throw CXMLException(CXMLException::OutOfMemory, L"out of memory: cannot buffer the input");
    return static_cast<char*>(buffer);
}

bool ExpatSaxDriver::FeedBuffer(std::size_t filled, bool last) {
    return Finish(XML_ParseBuffer(parser, static_cast<int>(filled), last ? XML_TRUE : XML_FALSE), last);
}

std::uint64_t ExpatSaxDriver::SourceOffset() const {
    const XML_Index index = XML_GetCurrentByteIndex(parser);
    return index < 0 ? 0 : std::uint64_t(index);
}

bool ExpatSaxDriver::Finish(int status, bool last) {
    if (handlerFailure)
        std::rethrow_exception(handlerFailure);
    if (stopped)
        return false;
    if (status == XML_STATUS_ERROR)
        ThrowParseError();
    if (last) {
        FlushText();
        if (!stopped)
            Deliver([this] { handler->EndDocument(); });
        if (handlerFailure)
            std::rethrow_exception(handlerFailure);
        return false;
    }
    return true;
}

void ExpatSaxDriver::ThrowParseError() {
    const XML_Error error = XML_GetErrorCode(parser);
    const XML_LChar* description = XML_ErrorString(error);
    std::wstring text = source + L": ";
    for (const char* c = description ? description : "parse error"; *c; ++c)
        text += wchar_t(static_cast<unsigned char>(*c));
    text += L" at line " + std::to_wstring(XML_GetCurrentLineNumber(parser)) + L", column " +
            std::to_wstring(XML_GetCurrentColumnNumber(parser) + 1);
    stopped = true;
    throw CXMLException(error == XML_ERROR_NO_MEMORY ? int(CXMLException::OutOfMemory)
                                                     : int(CXMLException::ParseError),
                        text.c_str());
}

template <typename Event> void ExpatSaxDriver::Deliver(Event&& event) {
    if (stopped)
        return;
    try {
        if (!documentStarted) {
            documentStarted = true;
            handler->StartDocument();
        }
        event();
    } catch (...) {
        // Nothing may unwind through expat's C frames: keep the failure, stop, rethrow after.
        handlerFailure = std::current_exception();
        stopped = true;
        XML_StopParser(parser, XML_FALSE);
    }
}

wchar_t* ExpatSaxDriver::WideBuffer::Grow(std::size_t count) {
    const std::size_t grown = std::max(used + count, capacity * 2 + 256);
    std::unique_ptr<wchar_t[]> larger(new wchar_t[grown]);
    std::copy(storage.get(), storage.get() + used, larger.get());
    storage = std::move(larger);
    capacity = grown;
    return storage.get() + used;
}

std::size_t ExpatSaxDriver::Widen(WideBuffer& target, const char* text, std::size_t length, bool terminate) {
    const std::size_t start = target.Size();
    // A wide text never has more characters than its UTF-8 form has bytes.
    wchar_t* out = target.Extend(length + 1);
    const auto* p = reinterpret_cast<const unsigned char*>(text);
    const auto* end = p + length;
    while (p < end) {
        if (*p < 0x80) {
            *out++ = wchar_t(*p++);
            continue;
        }
        const char32_t c = DecodeUtf8(p);
        if (sizeof(wchar_t) == 2 && c > 0xFFFF) {
            *out++ = wchar_t(0xD800 + ((c - 0x10000) >> 10));
            *out++ = wchar_t(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            *out++ = wchar_t(c);
        }
    }
    if (terminate)
        *out++ = L'\0';
    target.Resize(std::size_t(out - target.Data()));
    return start;
}

std::size_t ExpatSaxDriver::Widen(const char* text) {
    // Names and values are mostly short ASCII: copy them in one pass without measuring first.
    constexpr std::size_t shortText = 32;
    const std::size_t start = arena.Size();
    const auto* p = reinterpret_cast<const unsigned char*>(text);
    wchar_t* out = arena.Extend(shortText);
    wchar_t* const last = out + shortText - 1;
    while (out < last && *p && *p < 0x80)
        *out++ = wchar_t(*p++);
    if (!*p) {
        *out++ = L'\0';
        arena.Resize(std::size_t(out - arena.Data()));
        return start;
    }
    return Widen(arena, text, std::strlen(text), true);
}

void ExpatSaxDriver::FlushText() {
    if (pendingText.Empty() || stopped)
        return;
    *pendingText.Extend(1) = L'\0';
    Deliver([this] { handler->Characters(pendingText.Data()); });
    pendingText.Clear();
}

void ExpatSaxDriver::OnStartElement(void* self, const char* name, const char** attributeTexts) {
    auto* driver = static_cast<ExpatSaxDriver*>(self);
    driver->FlushText();
    if (driver->stopped)
        return;
    driver->arena.Clear();
    driver->offsets.clear();
    const std::size_t nameAt = driver->Widen(name);
    for (const char** a = attributeTexts; *a; ++a)
        driver->offsets.push_back(driver->Widen(*a));
    // The arena is complete only now: pointers into it are taken after the last append.
    const wchar_t* base = driver->arena.Data();
    driver->attributes.clear();
    for (std::size_t i = 0; i + 1 < driver->offsets.size(); i += 2)
        driver->attributes.emplace_back(base + driver->offsets[i], base + driver->offsets[i + 1]);
    driver->attributePointers.clear();
    for (CXMLSaxAttribut& attribute : driver->attributes)
        driver->attributePointers.push_back(&attribute);
    driver->attributePointers.push_back(nullptr);
    driver->Deliver([driver, base, nameAt] {
        driver->handler->StartElement(emptyText, base + nameAt, base + nameAt,
                                      driver->attributePointers.data());
    });
}

void ExpatSaxDriver::OnEndElement(void* self, const char* name) {
    auto* driver = static_cast<ExpatSaxDriver*>(self);
    driver->FlushText();
    if (driver->stopped)
        return;
    driver->arena.Clear();
    driver->Widen(name);
    const wchar_t* wideName = driver->arena.Data();
    driver->Deliver([driver, wideName] { driver->handler->EndElement(emptyText, wideName, wideName); });
}

void ExpatSaxDriver::OnCharacters(void* self, const char* text, int length) {
    auto* driver = static_cast<ExpatSaxDriver*>(self);
    if (!driver->stopped)
        Widen(driver->pendingText, text, std::size_t(length), false);
}

void ExpatSaxDriver::OnStartCData(void* self) {
    auto* driver = static_cast<ExpatSaxDriver*>(self);
    driver->FlushText();
    driver->Deliver([driver] { driver->handler->StartCDATA(); });
}

void ExpatSaxDriver::OnEndCData(void* self) {
    auto* driver = static_cast<ExpatSaxDriver*>(self);
    driver->FlushText();
    driver->Deliver([driver] { driver->handler->EndCDATA(); });
}

void ExpatSaxDriver::OnStartDoctype(void* self, const char* name, const char* systemId, const char* publicId,
                                    int) {
    auto* driver = static_cast<ExpatSaxDriver*>(self);
    driver->arena.Clear();
    const std::size_t nameAt = driver->Widen(name ? name : "");
    const std::size_t publicAt = driver->Widen(publicId ? publicId : "");
    const std::size_t systemAt = driver->Widen(systemId ? systemId : "");
    const wchar_t* base = driver->arena.Data();
    driver->Deliver([=] { driver->handler->StartDTD(base + nameAt, base + publicAt, base + systemAt); });
}

} // namespace tavxmln
