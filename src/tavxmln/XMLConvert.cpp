#include "tavxmln/XMLConvert.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <string>
#include <limits>

namespace tavxmln {

namespace {

bool IsBlank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

/// Copies the trimmed text into `out` as ASCII; false for non-ASCII or over-long text.
template <std::size_t N> bool Narrow(const wchar_t* text, char (&out)[N], std::size_t& length)
{
    if (!text)
        return false;
    while (IsBlank(*text))
        ++text;
    const wchar_t* end = text + std::wcslen(text);
    while (end > text && IsBlank(end[-1]))
        --end;
    length = std::size_t(end - text);
    if (length == 0 || length >= N)
        return false;
    for (std::size_t i = 0; i < length; ++i) {
        if (text[i] <= 0 || text[i] > 0x7F)
            return false;
        out[i] = char(text[i]);
    }
    out[length] = '\0';
    return true;
}

bool ParseLong(const char* begin, const char* end, long& value)
{
    if (begin < end && *begin == '+')
        ++begin;
    long long parsed = 0;
    const auto result = std::from_chars(begin, end, parsed);
    if (result.ec != std::errc() || result.ptr != end || parsed < std::numeric_limits<int>::min() ||
        parsed > std::numeric_limits<int>::max())
        return false;
    value = long(parsed);
    return true;
}

/// Reads `count` unsigned fields of at least `width` digits separated by `separator`.
bool ParseFields(const char* text, std::size_t length, char separator, int* fields[], int count)
{
    const char* p = text;
    const char* end = text + length;
    for (int i = 0; i < count; ++i) {
        if (i > 0) {
            if (p == end || *p != separator)
                return false;
            ++p;
        }
        const char* start = p;
        if (i == 0 && p < end && *p == '-')
            ++p; // a year may be negative
        while (p < end && *p >= '0' && *p <= '9')
            ++p;
        if (p - start < 2)
            return false;
        const auto result = std::from_chars(start, p, *fields[i]);
        if (result.ec != std::errc() || result.ptr != p)
            return false;
    }
    return p == end;
}

bool InRange(int value, int low, int high)
{
    return value >= low && value <= high;
}

const wchar_t* Widen(const char* text, wchar_t* out)
{
    std::size_t i = 0;
    for (; text[i]; ++i)
        out[i] = wchar_t(text[i]);
    out[i] = L'\0';
    return out;
}

} // namespace

bool XMLConvertText2Long(const wchar_t* text, long& value)
{
    char buffer[32];
    std::size_t length = 0;
    return Narrow(text, buffer, length) && ParseLong(buffer, buffer + length, value);
}

bool XMLConvertText2Double(const wchar_t* text, double& value)
{
    char buffer[128];
    std::size_t length = 0;
    if (!Narrow(text, buffer, length))
        return false;
    const char* begin = buffer;
    if (*begin == '+')
        ++begin;
    const auto result = std::from_chars(begin, buffer + length, value);
    return result.ec == std::errc() && result.ptr == buffer + length;
}

bool XMLConvertText2Bool(const wchar_t* text, bool& value)
{
    char buffer[8];
    std::size_t length = 0;
    if (!Narrow(text, buffer, length))
        return false;
    if (!std::strcmp(buffer, "true") || !std::strcmp(buffer, "1"))
        value = true;
    else if (!std::strcmp(buffer, "false") || !std::strcmp(buffer, "0"))
        value = false;
    else
        return false;
    return true;
}

bool XMLConvertText2Date(const wchar_t* text, int& year, int& month, int& day)
{
    char buffer[32];
    std::size_t length = 0;
    int y = 0, m = 0, d = 0;
    int* fields[] = {&y, &m, &d};
    if (!Narrow(text, buffer, length) || !ParseFields(buffer, length, '-', fields, 3) || !InRange(m, 1, 12) ||
        !InRange(d, 1, 31))
        return false;
    year = y;
    month = m;
    day = d;
    return true;
}

bool XMLConvertText2Time(const wchar_t* text, int& hour, int& minute, int& second)
{
    char buffer[32];
    std::size_t length = 0;
    int h = 0, m = 0, s = 0;
    int* fields[] = {&h, &m, &s};
    if (!Narrow(text, buffer, length) || !ParseFields(buffer, length, ':', fields, 3) || !InRange(h, 0, 24) ||
        !InRange(m, 0, 59) || !InRange(s, 0, 60))
        return false;
    hour = h;
    minute = m;
    second = s;
    return true;
}

bool XMLConvertText2DateTime(const wchar_t* text, int& year, int& month, int& day, int& hour, int& minute,
                             int& second)
{
    if (!text)
        return false;
    const wchar_t* separator = std::wcschr(text, L'T');
    if (!separator)
        separator = std::wcsrchr(text, L' ');
    if (!separator)
        return false;
    const std::wstring datePart(text, separator);
    int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
    if (!XMLConvertText2Date(datePart.c_str(), y, mo, d) || IsBlank(separator[1]) ||
        !XMLConvertText2Time(separator + 1, h, mi, s))
        return false;
    year = y;
    month = mo;
    day = d;
    hour = h;
    minute = mi;
    second = s;
    return true;
}

const wchar_t* XMLConvertLong2Text(long value)
{
    thread_local wchar_t text[32];
    char buffer[32];
    *std::to_chars(buffer, buffer + sizeof buffer - 1, value).ptr = '\0';
    return Widen(buffer, text);
}

const wchar_t* XMLConvertDouble2Text(const double& value)
{
    thread_local wchar_t text[64];
    char buffer[64];
    if (value != value)
        return Widen("NaN", text);
    if (value == std::numeric_limits<double>::infinity())
        return Widen("INF", text);
    if (value == -std::numeric_limits<double>::infinity())
        return Widen("-INF", text);
    *std::to_chars(buffer, buffer + sizeof buffer - 1, value).ptr = '\0';
    return Widen(buffer, text);
}

const wchar_t* XMLConvertBool2Text(bool value, bool numeric)
{
    if (numeric)
        return value ? L"1" : L"0";
    return value ? L"true" : L"false";
}

const wchar_t* XMLConvertDateTime2Text(int year, int month, int day, int hour, int minute, int second)
{
    thread_local wchar_t text[64];
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d", year, month, day, hour, minute, second);
    return Widen(buffer, text);
}

const wchar_t* XMLConvertDate2Text(int year, int month, int day)
{
    thread_local wchar_t text[32];
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", year, month, day);
    return Widen(buffer, text);
}

const wchar_t* XMLConvertTime2Text(int hour, int minute, int second)
{
    thread_local wchar_t text[32];
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", hour, minute, second);
    return Widen(buffer, text);
}

} // namespace tavxmln
