#include "tavxmln/XMLConvert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <limits>
#include <string>

namespace tavxmln {

namespace {

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

/// Copies the trimmed text into `out` as ASCII in one pass; false for non-ASCII, empty or
/// over-long text.
template <std::size_t N> bool Narrow(const wchar_t* text, char (&out)[N], std::size_t& length) {
    if (!text)
        return false;
    while (IsBlank(*text))
        ++text;
    length = 0;
    for (; *text; ++text) {
        if (*text <= 0 || *text > 0x7F || length + 1 >= N)
            return false;
        out[length++] = char(*text);
    }
    while (length > 0 && IsBlank(wchar_t(out[length - 1])))
        --length;
    out[length] = '\0';
    return length > 0;
}

/// Reads `count` unsigned fields of at least `width` digits separated by `separator`.
bool ParseFields(const char* text, std::size_t length, char separator, int* fields[], int count) {
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

bool InRange(int value, int low, int high) {
    return value >= low && value <= high;
}

const wchar_t* Widen(const char* text, wchar_t* out) {
    std::size_t i = 0;
    for (; text[i]; ++i)
        out[i] = wchar_t(text[i]);
    out[i] = L'\0';
    return out;
}

} // namespace

bool XMLConvertText2Long(const wchar_t* text, long& value) {
    // Read straight from the wide text: integers are the most frequent value of a document.
    if (!text)
        return false;
    while (IsBlank(*text))
        ++text;
    const bool negative = *text == L'-';
    if (*text == L'-' || *text == L'+')
        ++text;
    long long magnitude = 0;
    const wchar_t* digits = text;
    for (; *text >= L'0' && *text <= L'9'; ++text) {
        magnitude = magnitude * 10 + (*text - L'0');
        if (magnitude > 2147483648LL)
            return false;
    }
    if (text == digits)
        return false;
    while (IsBlank(*text))
        ++text;
    const long long signedValue = negative ? -magnitude : magnitude;
    if (*text || signedValue > std::numeric_limits<int>::max())
        return false;
    value = long(signedValue);
    return true;
}

namespace {

/// Plain decimals whose digits form an integer of at most 2^53, the common case in a document,
/// read directly: mantissa and power of ten are then both exact doubles, so one division gives
/// the correctly rounded value. Anything else is left to the general reader (false).
bool ReadPlainDecimal(const wchar_t* text, double& value) {
    static const double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const bool negative = *text == L'-';
    if (negative)
        ++text;
    std::uint64_t mantissa = 0;
    int digits = 0;
    int fractionDigits = 0;
    for (; *text >= L'0' && *text <= L'9'; ++text, ++digits)
        mantissa = mantissa * 10 + std::uint64_t(*text - L'0');
    if (*text == L'.') {
        ++text;
        for (; *text >= L'0' && *text <= L'9'; ++text, ++digits, ++fractionDigits)
            mantissa = mantissa * 10 + std::uint64_t(*text - L'0');
    }
    if (*text != L'\0' || digits == 0 || digits > 19 || mantissa > (std::uint64_t(1) << 53))
        return false;
    const double magnitude = double(mantissa) / powers[fractionDigits];
    value = negative ? -magnitude : magnitude;
    return true;
}

} // namespace

bool XMLConvertText2Double(const wchar_t* text, double& value) {
    if (text && ReadPlainDecimal(text, value))
        return true;
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

bool XMLConvertText2Bool(const wchar_t* text, bool& value) {
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

bool XMLConvertText2Date(const wchar_t* text, int& year, int& month, int& day) {
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

bool XMLConvertText2Time(const wchar_t* text, int& hour, int& minute, int& second) {
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
                             int& second) {
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

namespace {

constexpr double powersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
/// Below 2^50 times a power of ten, the product is so close to its integer that rounding it
/// finds the integer whenever one exists.
constexpr double fewDecimalsLimit = 1125899906842624.0;

/// The text of a number with up to nine decimals, such as most coordinates of a building
/// model, written without the general search for the shortest digits: the smallest k for
/// which the integer m nearest to |value| * 10^k reads back as `value` gives those digits.
/// The check `m / 10^k == |value|` is exact because both are exact doubles and the division
/// rounds correctly, as reading "m * 10^-k" does. Null where the general form must decide:
/// zero, more decimals, large numbers, and where the exponent form is shorter.
char* FormatFewDecimals(char* out, double value) {
    const double magnitude = std::fabs(value);
    if (!(magnitude > 0) || magnitude >= fewDecimalsLimit)
        return nullptr;
    int decimals = 0;
    std::uint64_t scaledValue = 0;
    for (;; ++decimals) {
        if (decimals == int(std::size(powersOfTen)))
            return nullptr;
        const double scaled = magnitude * powersOfTen[decimals];
        if (scaled >= fewDecimalsLimit)
            return nullptr;
        scaledValue = std::uint64_t(scaled + 0.5);
        // Digits that read back lie within a few units in the last place of the product; only
        // then does the division decide. A number that comes that close without reading back,
        // such as 150.00000000000003, has more digits than this way can give.
        if (std::fabs(scaled - double(scaledValue)) <= scaled * 0x1p-50) {
            if (double(scaledValue) / powersOfTen[decimals] == magnitude)
                break;
            return nullptr;
        }
    }
    // A trailing zero would mean that fewer decimals were missed; leave it to the general form.
    if (decimals > 0 && scaledValue % 10 == 0)
        return nullptr;
    char digits[24];
    const int count = int(std::to_chars(digits, digits + sizeof digits, scaledValue).ptr - digits);
    int significant = count;
    while (significant > 1 && digits[significant - 1] == '0')
        --significant;
    const int exponent = count - 1 - decimals;
    const int fixedLength = decimals == 0 ? count : std::max(count + 1, decimals + 2);
    const int exponentLength = significant + (significant > 1 ? 1 : 0) + (std::abs(exponent) >= 100 ? 5 : 4);
    if (exponentLength < fixedLength)
        return nullptr;
    if (value < 0)
        *out++ = '-';
    const int integerDigits = count - decimals;
    if (integerDigits > 0) {
        out = std::copy_n(digits, integerDigits, out);
    } else {
        *out++ = '0';
    }
    if (decimals == 0)
        return out;
    *out++ = '.';
    if (integerDigits < 0)
        out = std::fill_n(out, -integerDigits, '0');
    return std::copy_n(digits + std::max(integerDigits, 0), std::min(count, decimals), out);
}

} // namespace

char* XMLFormatLong(char* out, long value) {
    return std::to_chars(out, out + XMLMaxNumberChars, value).ptr;
}

char* XMLFormatDouble(char* out, double value) {
    if (value != value)
        return std::copy_n("NaN", 3, out);
    if (value == std::numeric_limits<double>::infinity())
        return std::copy_n("INF", 3, out);
    if (value == -std::numeric_limits<double>::infinity())
        return std::copy_n("-INF", 4, out);
    if (char* end = FormatFewDecimals(out, value))
        return end;
    // The shortest form that reads back to the same double needs at most 24 characters.
    return std::to_chars(out, out + XMLMaxNumberChars, value).ptr;
}

const wchar_t* XMLConvertLong2Text(long value) {
    thread_local wchar_t text[XMLMaxNumberChars + 1];
    char buffer[XMLMaxNumberChars + 1];
    *XMLFormatLong(buffer, value) = '\0';
    return Widen(buffer, text);
}

const wchar_t* XMLConvertDouble2Text(const double& value) {
    thread_local wchar_t text[XMLMaxNumberChars + 1];
    char buffer[XMLMaxNumberChars + 1];
    *XMLFormatDouble(buffer, value) = '\0';
    return Widen(buffer, text);
}

const wchar_t* XMLConvertBool2Text(bool value, bool numeric) {
    if (numeric)
        return value ? L"1" : L"0";
    return value ? L"true" : L"false";
}

const wchar_t* XMLConvertDateTime2Text(int year, int month, int day, int hour, int minute, int second) {
    thread_local wchar_t text[64];
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d", year, month, day, hour, minute,
                  second);
    return Widen(buffer, text);
}

const wchar_t* XMLConvertDate2Text(int year, int month, int day) {
    thread_local wchar_t text[32];
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", year, month, day);
    return Widen(buffer, text);
}

const wchar_t* XMLConvertTime2Text(int hour, int minute, int second) {
    thread_local wchar_t text[32];
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", hour, minute, second);
    return Widen(buffer, text);
}

} // namespace tavxmln
