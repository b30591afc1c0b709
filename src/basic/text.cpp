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
    // Decodes the UTF-16 code units directly: the same code points as a detour through UTF-8,
    // and a lone surrogate, which has no UTF-8 form, is caught instead of silently replaced.
    std::wstring result;
    result.reserve(size_t(text.size()));
    const ushort* units = text.utf16();
    const int count = text.size();
    for (int i = 0; i < count; ++i) {
        const char32_t unit = units[i];
        if (unit < 0xD800 || unit > 0xDFFF) {
            append_wide(result, unit);
        } else if (unit <= 0xDBFF && i + 1 < count && units[i + 1] >= 0xDC00 && units[i + 1] <= 0xDFFF) {
            append_wide(result, 0x10000 + ((unit - 0xD800) << 10) + (units[i + 1] - 0xDC00));
            ++i;
        } else {
            return std::wstring();
        }
    }
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
