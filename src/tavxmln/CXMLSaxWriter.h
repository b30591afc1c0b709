#pragma once

#include "zentra_export.h"

#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

class QFile;

namespace tavxmln {

class CXMLAttribut;

/// Streaming XML output in UTF-8: elements, attributes and text go out in the order they are
/// given, through a buffer of 256 KiB that is handed to the file or stream one block at a
/// time. Text and attribute values are escaped: `&`, `<`, `>` and `"` become entity
/// references; tab, line feed and carriage return in attribute values, and carriage return in
/// text, become character references so that a parser gives them back unchanged. Characters
/// that XML 1.0 cannot carry at all (the other control characters, unpaired surrogates,
/// U+FFFE, U+FFFF) are written as U+FFFD.
///
/// Every element starts on a new line, indented by two blanks per level; an element with
/// text ends on the line of its text, so that text is never touched by the layout. An element
/// with nothing inside is written as an empty-element tag.
///
/// Failures raise `CXMLException`: code 1 when the file cannot be opened or a write fails (the
/// text names the file and gives the system's reason, e.g. a full disk), code 4 when the
/// calls come out of order. What was written before a failure stays written.
class ZENTRA_EXPORT CXMLSaxWriter {
public:
    /// The code of a call out of order: an element ended that is not open, text outside any
    /// element, a second document on the same writer.
    static constexpr int UsageError = 4;

    CXMLSaxWriter();
    /// Hands what is still buffered to the output, as far as it goes, and closes a file that
    /// this writer opened; raises nothing.
    virtual ~CXMLSaxWriter();
    CXMLSaxWriter(const CXMLSaxWriter&) = delete;
    CXMLSaxWriter& operator=(const CXMLSaxWriter&) = delete;

    /// Starts a document on a stream that stays the caller's; `declaration` asks for the XML
    /// declaration, `indent` for the line layout described above.
    virtual void StartDocument(std::ostream* stream, bool declaration, bool indent);
    /// Creates or truncates the file and starts a document in it with the line layout;
    /// `declaration` asks for the XML declaration.
    virtual void StartDocument(const wchar_t* fileName, bool declaration);
    /// Requires every element to be closed; writes out the buffer and closes the file.
    virtual void EndDocument();
    /// `attributes` is a null-ended array, or null for none; they are written in array order.
    virtual void StartElement(const wchar_t* name, CXMLAttribut** attributes);
    /// Closes the innermost open element.
    virtual void EndElement();
    /// Appends text to the open element; an empty text still gives the element a start and an
    /// end tag.
    virtual void Characters(const wchar_t* text);
    /// Appends bytes as text: base64 (what `CXMLSaxHandler::GetData` reads) when `base64` is
    /// true, two hexadecimal digits per byte otherwise.
    virtual void Data(const unsigned char* data, long size, bool base64);
    virtual void Date(int year, int month, int day);
    virtual void DateTime(int year, int month, int day, int hour, int minute, int second);
    virtual void Time(int hour, int minute, int second);
    virtual void Double(const double& value);
    virtual void Long(long value);
    virtual void Bool(bool value, bool numeric);

    /// Gives up the document where it stands, after a failure: what is buffered goes to the
    /// output as far as it can, and a file that this writer opened is closed. Raises nothing;
    /// a new document may be started afterwards.
    void Abandon();

    /// Bytes produced since the start of the document, buffered ones included.
    std::uint64_t BytesWritten() const { return written + std::uint64_t(fill - buffer.get()); }

protected:
    /// `StartElement` in pieces, for a writer that hands over its values as they are instead of
    /// building `CXMLAttribut`s first: `_OpenStartTag` opens the element, and the attribute
    /// calls that follow it, before anything else is written, add attributes in call order.
    /// Numbers take the text of `XMLConvertLong2Text` and `XMLConvertDouble2Text`.
    void _OpenStartTag(const wchar_t* name);
    void _TextAttribute(const wchar_t* name, const wchar_t* value);
    void _LongAttribute(const wchar_t* name, long value);
    void _DoubleAttribute(const wchar_t* name, double value);
    /// The numbers separated by single blanks.
    void _LongsAttribute(const wchar_t* name, const int* values, std::size_t count);
    void _DoublesAttribute(const wchar_t* name, const double* values, std::size_t count);

private:
    struct OpenElement {
        std::size_t nameStart; ///< where its name begins in `openNames`
        bool hasChildren;      ///< a child element was written inside
        bool hasText;
    };

    void _Begin(bool declaration, bool indent);
    /// Writes ` name="` into the open start tag.
    void _BeginAttribute(const wchar_t* name);
    template <typename Number>
    void _NumbersAttribute(const wchar_t* name, const Number* values, std::size_t count);
    void _CloseStartTag();
    void _NewLine(std::size_t depth);
    void _AppendRaw(const char* text, std::size_t length) {
        if (std::size_t(limit - fill) >= length) {
            std::memcpy(fill, text, length);
            fill += length;
        } else {
            _AppendRawInBlocks(text, length);
        }
    }
    void _AppendRawInBlocks(const char* text, std::size_t length);
    /// Appends a name in UTF-8 to `utf8`; names are the caller's own and are not escaped.
    static void _Encode(const wchar_t* name, std::string& utf8);
    /// Appends text in UTF-8 with the escapes of an attribute value or of element text.
    void _AppendEscaped(const wchar_t* text, bool attribute);
    /// Writes one character that is not ASCII at `out`, which has room for it.
    static char* _AppendCodePoint(char* out, char32_t codePoint);
    void _Reserve(std::size_t bytes) {
        if (std::size_t(limit - fill) < bytes)
            _Flush();
    }
    void _Flush();
    void _CloseOutput();
    [[noreturn]] void _Misuse(const wchar_t* what) const;

    std::unique_ptr<char[]> buffer;
    char* fill = nullptr;
    char* limit = nullptr;
    std::uint64_t written = 0;

    std::unique_ptr<QFile> file;
    std::ostream* stream = nullptr;
    std::wstring outputName; ///< the file name, or "stream", for error texts
    bool active = false;
    bool indented = true;
    bool startTagOpen = false;
    std::vector<OpenElement> openElements;
    std::string openNames; ///< the names of the open elements, one after the other
};

} // namespace tavxmln
