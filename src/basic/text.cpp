#include "basic/text.h"

#include <QByteArray>
#include <QLocale>

#include <cstdlib>

namespace basic {

namespace {

constexpr char32_t replacement_character = 0xFFFD;

bool is_scalar_value(char32_t c) { return c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF); }

void append_utf8(QByteArray& out, char32_t c) {
    if (!is_scalar_value(c))
        c = replacement_character;
    if (c < 0x80) {
        out.append(char(c));
    } else if (c < 0x800) {
        out.append(char(0xC0 | (c >> 6)));
        out.append(char(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        out.append(char(0xE0 | (c >> 12)));
        out.append(char(0x80 | ((c >> 6) & 0x3F)));
        out.append(char(0x80 | (c & 0x3F)));
    } else {
        out.append(char(0xF0 | (c >> 18)));
        out.append(char(0x80 | ((c >> 12) & 0x3F)));
        out.append(char(0x80 | ((c >> 6) & 0x3F)));
        out.append(char(0x80 | (c & 0x3F)));
    }
}

void append_wide(std::wstring& out, char32_t c) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (c >= 0x10000) {
            c -= 0x10000;
            out.push_back(wchar_t(0xD800 + (c >> 10)));
            out.push_back(wchar_t(0xDC00 + (c & 0x3FF)));
            return;
        }
    }
    out.push_back(wchar_t(c));
}

/// Strict UTF-8 decoding: overlong forms, surrogates, values above U+10FFFF and cut sequences
/// make the whole text invalid.
bool decode_utf8(const QByteArray& bytes, std::wstring& out) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.constData());
    const auto* end = p + bytes.size();
    out.reserve(bytes.size());
    while (p < end) {
        const unsigned char lead = *p++;
        if (lead < 0x80) {
            out.push_back(wchar_t(lead));
            continue;
        }
        int follow;
        char32_t c;
        char32_t minimum;
        if ((lead & 0xE0) == 0xC0) {
            follow = 1, c = lead & 0x1F, minimum = 0x80;
        } else if ((lead & 0xF0) == 0xE0) {
            follow = 2, c = lead & 0x0F, minimum = 0x800;
        } else if ((lead & 0xF8) == 0xF0) {
            follow = 3, c = lead & 0x07, minimum = 0x10000;
        } else {
            return false;
        }
        if (end - p < follow)
            return false;
        for (int i = 0; i < follow; ++i, ++p) {
            if ((*p & 0xC0) != 0x80)
                return false;
            c = (c << 6) | (*p & 0x3F);
        }
        if (c < minimum || !is_scalar_value(c))
            return false;
        append_wide(out, c);
    }
    return true;
}

} // namespace

QString FromStdString(const std::wstring& text) {
    if (text.empty())
        return QString();
    QByteArray utf8;
    utf8.reserve(int(text.size()));
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t c = char32_t(text[i]);
        if constexpr (sizeof(wchar_t) == 2) {
            if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size()) {
                const char32_t low = char32_t(text[i + 1]);
                if (low >= 0xDC00 && low <= 0xDFFF) {
                    c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                    ++i;
                }
            }
        }
        append_utf8(utf8, c);
    }
    return QString::fromUtf8(utf8);
}

std::wstring ToStdString(const QString& text) {
    if (text.size() == 0)
        return std::wstring();
    std::wstring result;
    if (!decode_utf8(text.toUtf8(), result))
        return std::wstring();
    return result;
}

QString GetLanguageFolder() {
    QString name = QLocale::system().name();
    if (const char* language = std::getenv("TAV_LANGUAGE"))
        name = QString::fromLocal8Bit(language);
    name.truncate(2);
    if (name == QLatin1String("zh"))
        return QStringLiteral("zh-CN");
    return name;
}

} // namespace basic
