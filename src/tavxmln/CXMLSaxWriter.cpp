#include "tavxmln/CXMLSaxWriter.h"

#include "tavxmln/Base64.h"
#include "tavxmln/CXMLAttribut.h"
#include "tavxmln/CXMLException.h"
#include "tavxmln/XMLConvert.h"

#include <QFile>
#include <QString>

#include <cstring>
#include <ostream>

namespace tavxmln {

namespace {

constexpr std::size_t blockSize = 256 * 1024;
/// The most bytes one character can take: a character reference such as "&#13;" or a
/// four-byte UTF-8 sequence.
constexpr std::size_t maxCharBytes = 8;
constexpr char replacement[] = "\xEF\xBF\xBD"; // U+FFFD

/// What each ASCII character becomes in an attribute value (`attribute` true) or in text:
/// null when it is written as it is.
struct EscapeTable {
    const char* text[128];
    explicit EscapeTable(bool attribute) {
        for (int c = 0; c < 128; ++c)
            text[c] = c < 0x20 ? replacement : nullptr;
        text[int('&')] = "&amp;";
        text[int('<')] = "&lt;";
        text[int('>')] = "&gt;";
        text[int('"')] = "&quot;";
        text[int('\r')] = "&#13;";
        text[int('\t')] = attribute ? "&#9;" : nullptr;
        text[int('\n')] = attribute ? "&#10;" : nullptr;
    }
};

const EscapeTable attributeEscapes(true);
const EscapeTable textEscapes(false);

char* FormatNumber(char* out, int value) {
    return XMLFormatLong(out, value);
}

char* FormatNumber(char* out, long value) {
    return XMLFormatLong(out, value);
}

char* FormatNumber(char* out, double value) {
    return XMLFormatDouble(out, value);
}

/// Also for a wide character type that is signed.
bool IsAscii(wchar_t c) {
    return std::uint32_t(c) < 0x80;
}

bool IsXmlCharacter(char32_t c) {
    return (c >= 0x20 && c < 0xD800) || (c >= 0xE000 && c < 0xFFFE) || (c >= 0x10000 && c <= 0x10FFFF);
}

} // namespace

CXMLSaxWriter::CXMLSaxWriter() : buffer(new char[blockSize]) {
    fill = buffer.get();
    limit = buffer.get() + blockSize;
}

CXMLSaxWriter::~CXMLSaxWriter() {
    Abandon();
}

void CXMLSaxWriter::Abandon() {
    try {
        _Flush();
    } catch (const CXMLException&) {
        // The owner learnt of the failure from the call that raised it first.
    }
    _CloseOutput();
}

void CXMLSaxWriter::StartDocument(std::ostream* stream, bool declaration, bool indent) {
    if (active)
        _Misuse(L"StartDocument: a document is already in progress");
    if (!stream)
        throw CXMLException(CXMLException::FileError, L"stream: no stream to write to");
    this->stream = stream;
    outputName = L"stream";
    _Begin(declaration, indent);
}

void CXMLSaxWriter::StartDocument(const wchar_t* fileName, bool declaration) {
    if (active)
        _Misuse(L"StartDocument: a document is already in progress");
    const std::wstring name = fileName ? fileName : L"";
    std::unique_ptr<QFile> output(new QFile(QString::fromWCharArray(name.c_str(), int(name.size()))));
    if (name.empty() || !output->open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        throw CXMLException(
            CXMLException::FileError,
            (name + L": cannot open the file for writing: " + output->errorString().toStdWString()).c_str());
    file = std::move(output);
    outputName = name;
    _Begin(declaration, true);
}

void CXMLSaxWriter::_Begin(bool declaration, bool indent) {
    active = true;
    indented = indent;
    startTagOpen = false;
    openElements.clear();
    openNames.clear();
    fill = buffer.get();
    written = 0;
    if (declaration) {
        static const char text[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
        _AppendRaw(text, sizeof text - 1);
    }
}

void CXMLSaxWriter::EndDocument() {
    if (!active)
        _Misuse(L"EndDocument: no document in progress");
    if (!openElements.empty())
        _Misuse(L"EndDocument: elements are still open");
    _AppendRaw("\n", 1);
    _Flush();
    if (stream) {
        stream->flush();
        if (!*stream)
            throw CXMLException(CXMLException::FileError, L"stream: cannot write to the stream");
    }
    if (file && !file->flush())
        throw CXMLException(
            CXMLException::FileError,
            (outputName + L": cannot write the file: " + file->errorString().toStdWString()).c_str());
    _CloseOutput();
}

void CXMLSaxWriter::StartElement(const wchar_t* name, CXMLAttribut** attributes) {
    _OpenStartTag(name);
    for (CXMLAttribut** attribute = attributes; attribute && *attribute; ++attribute)
        _TextAttribute((*attribute)->Name(), (*attribute)->Value());
}

void CXMLSaxWriter::_OpenStartTag(const wchar_t* name) {
    if (!active)
        _Misuse(L"StartElement: no document in progress");
    if (!name || !*name)
        _Misuse(L"StartElement: an element needs a name");
    _CloseStartTag();
    if (!openElements.empty())
        openElements.back().hasChildren = true;
    if (indented && (fill != buffer.get() || written > 0))
        _NewLine(openElements.size());
    const std::size_t nameStart = openNames.size();
    _Encode(name, openNames);
    _AppendRaw("<", 1);
    _AppendRaw(openNames.data() + nameStart, openNames.size() - nameStart);
    openElements.push_back({nameStart, false, false});
    startTagOpen = true;
}

void CXMLSaxWriter::_BeginAttribute(const wchar_t* name) {
    if (!startTagOpen)
        _Misuse(L"StartElement: an attribute outside a start tag");
    // Names are the caller's own; like text they never hold markup. They are nearly always
    // short plain ASCII, copied here as they are; whatever follows goes through the escapes.
    constexpr std::ptrdiff_t plainName = 32;
    _Reserve(plainName + 1);
    char* out = fill;
    *out++ = ' ';
    const wchar_t* c = name;
    for (; *c && c - name < plainName && IsAscii(*c) && !textEscapes.text[*c]; ++c)
        *out++ = char(*c);
    fill = out;
    if (*c)
        _AppendEscaped(c, false);
    _AppendRaw("=\"", 2);
}

void CXMLSaxWriter::_TextAttribute(const wchar_t* name, const wchar_t* value) {
    _BeginAttribute(name);
    _AppendEscaped(value, true);
    _AppendRaw("\"", 1);
}

/// Numbers need no escapes: they are formatted straight into the buffer.
template <typename Number>
void CXMLSaxWriter::_NumbersAttribute(const wchar_t* name, const Number* values, std::size_t count) {
    _BeginAttribute(name);
    for (std::size_t i = 0; i < count; ++i) {
        _Reserve(XMLMaxNumberChars + 1);
        if (i > 0)
            *fill++ = ' ';
        fill = FormatNumber(fill, values[i]);
    }
    _AppendRaw("\"", 1);
}

void CXMLSaxWriter::_LongAttribute(const wchar_t* name, long value) {
    _NumbersAttribute(name, &value, 1);
}

void CXMLSaxWriter::_DoubleAttribute(const wchar_t* name, double value) {
    _NumbersAttribute(name, &value, 1);
}

void CXMLSaxWriter::_LongsAttribute(const wchar_t* name, const int* values, std::size_t count) {
    _NumbersAttribute(name, values, count);
}

void CXMLSaxWriter::_DoublesAttribute(const wchar_t* name, const double* values, std::size_t count) {
    _NumbersAttribute(name, values, count);
}

void CXMLSaxWriter::EndElement() {
    if (!active || openElements.empty())
        _Misuse(L"EndElement: no element is open");
    OpenElement& element = openElements.back();
    if (startTagOpen) {
        _AppendRaw("/>", 2);
        startTagOpen = false;
    } else {
        if (indented && element.hasChildren && !element.hasText)
            _NewLine(openElements.size() - 1);
        _AppendRaw("</", 2);
        _AppendRaw(openNames.data() + element.nameStart, openNames.size() - element.nameStart);
        _AppendRaw(">", 1);
    }
    openNames.resize(element.nameStart);
    openElements.pop_back();
}

void CXMLSaxWriter::Characters(const wchar_t* text) {
    if (!active || openElements.empty())
        _Misuse(L"Characters: no element is open");
    _CloseStartTag();
    openElements.back().hasText = true;
    if (text)
        _AppendEscaped(text, false);
}

void CXMLSaxWriter::Data(const unsigned char* data, long size, bool base64) {
    if (size <= 0 || !data) {
        Characters(L"");
        return;
    }
    if (base64) {
        Characters(EncodeBase64(data, std::size_t(size)).c_str());
        return;
    }
    static const char digits[] = "0123456789abcdef";
    Characters(L"");
    for (long i = 0; i < size; ++i) {
        const char pair[2] = {digits[data[i] >> 4], digits[data[i] & 15]};
        _AppendRaw(pair, 2);
    }
}

void CXMLSaxWriter::Date(int year, int month, int day) {
    Characters(XMLConvertDate2Text(year, month, day));
}

void CXMLSaxWriter::DateTime(int year, int month, int day, int hour, int minute, int second) {
    Characters(XMLConvertDateTime2Text(year, month, day, hour, minute, second));
}

void CXMLSaxWriter::Time(int hour, int minute, int second) {
    Characters(XMLConvertTime2Text(hour, minute, second));
}

void CXMLSaxWriter::Double(const double& value) {
    Characters(XMLConvertDouble2Text(value));
}

void CXMLSaxWriter::Long(long value) {
    Characters(XMLConvertLong2Text(value));
}

void CXMLSaxWriter::Bool(bool value, bool numeric) {
    Characters(XMLConvertBool2Text(value, numeric));
}

void CXMLSaxWriter::_CloseStartTag() {
    if (startTagOpen) {
        _AppendRaw(">", 1);
        startTagOpen = false;
    }
}

void CXMLSaxWriter::_NewLine(std::size_t depth) {
    _Reserve(1 + 2 * depth);
    *fill++ = '\n';
    std::memset(fill, ' ', 2 * depth);
    fill += 2 * depth;
}

void CXMLSaxWriter::_AppendRawInBlocks(const char* text, std::size_t length) {
    while (length > 0) {
        _Reserve(1);
        const std::size_t part = std::min(length, std::size_t(limit - fill));
        std::memcpy(fill, text, part);
        fill += part;
        text += part;
        length -= part;
    }
}

void CXMLSaxWriter::_Encode(const wchar_t* name, std::string& utf8) {
    for (; name && *name; ++name) {
        if (IsAscii(*name)) {
            utf8 += char(*name);
            continue;
        }
        const QByteArray encoded = QString::fromWCharArray(name, 1).toUtf8();
        utf8.append(encoded.constData(), std::size_t(encoded.size()));
    }
}

void CXMLSaxWriter::_AppendEscaped(const wchar_t* text, bool attribute) {
    const EscapeTable& escapes = attribute ? attributeEscapes : textEscapes;
    const wchar_t* c = text;
    while (*c) {
        _Reserve(16 * maxCharBytes);
        // Runs between checks of the room left: each character takes at most maxCharBytes.
        char* out = fill;
        char* const stop = limit - maxCharBytes;
        for (; *c && out <= stop; ++c) {
            const wchar_t ch = *c;
            if (IsAscii(ch)) {
                if (const char* escape = escapes.text[ch]) {
                    const std::size_t length = std::strlen(escape);
                    std::memcpy(out, escape, length);
                    out += length;
                } else {
                    *out++ = char(ch);
                }
                continue;
            }
            char32_t codePoint = char32_t(ch);
            if (sizeof(wchar_t) == 2 && codePoint >= 0xD800 && codePoint < 0xDC00 && c[1] >= 0xDC00 &&
                c[1] < 0xE000) {
                codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (char32_t(c[1]) - 0xDC00);
                ++c;
            }
            out = _AppendCodePoint(out, codePoint);
        }
        fill = out;
    }
}

char* CXMLSaxWriter::_AppendCodePoint(char* out, char32_t c) {
    if (!IsXmlCharacter(c)) {
        std::memcpy(out, replacement, 3);
        return out + 3;
    }
    if (c < 0x80) {
        *out++ = char(c);
    } else if (c < 0x800) {
        *out++ = char(0xC0 | (c >> 6));
        *out++ = char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        *out++ = char(0xE0 | (c >> 12));
        *out++ = char(0x80 | ((c >> 6) & 0x3F));
        *out++ = char(0x80 | (c & 0x3F));
    } else {
        *out++ = char(0xF0 | (c >> 18));
        *out++ = char(0x80 | ((c >> 12) & 0x3F));
        *out++ = char(0x80 | ((c >> 6) & 0x3F));
        *out++ = char(0x80 | (c & 0x3F));
    }
    return out;
}

void CXMLSaxWriter::_Flush() {
    const std::size_t length = std::size_t(fill - buffer.get());
    if (length == 0 || (!file && !stream))
        return;
    // The buffer is emptied first: after a failure the same bytes are not offered again.
    fill = buffer.get();
    written += length;
    if (file) {
        if (file->write(buffer.get(), qint64(length)) != qint64(length))
            throw CXMLException(
                CXMLException::FileError,
                (outputName + L": cannot write the file: " + file->errorString().toStdWString()).c_str());
    } else if (!stream->write(buffer.get(), std::streamsize(length))) {
        throw CXMLException(CXMLException::FileError, L"stream: cannot write to the stream");
    }
}

void CXMLSaxWriter::_CloseOutput() {
    if (file)
        file->close();
    file.reset();
    stream = nullptr;
    active = false;
}

void CXMLSaxWriter::_Misuse(const wchar_t* what) const {
    throw CXMLException(UsageError, what);
}

} // namespace tavxmln
