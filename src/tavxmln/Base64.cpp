#include "tavxmln/Base64.h"

namespace tavxmln {

namespace {

const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int SextetOf(wchar_t c) {
    if (c >= L'A' && c <= L'Z')
        return c - L'A';
    if (c >= L'a' && c <= L'z')
        return c - L'a' + 26;
    if (c >= L'0' && c <= L'9')
        return c - L'0' + 52;
    if (c == L'+')
        return 62;
    if (c == L'/')
        return 63;
    return -1;
}

bool IsSpace(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

} // namespace

std::wstring EncodeBase64(const unsigned char* data, std::size_t size) {
    std::wstring text;
    text.reserve((size + 2) / 3 * 4);
    for (std::size_t i = 0; i < size; i += 3) {
        const std::size_t left = size - i;
        const unsigned group = (unsigned(data[i]) << 16) | (left > 1 ? unsigned(data[i + 1]) << 8 : 0u) |
                               (left > 2 ? unsigned(data[i + 2]) : 0u);
        text += wchar_t(alphabet[(group >> 18) & 63]);
        text += wchar_t(alphabet[(group >> 12) & 63]);
        text += left > 1 ? wchar_t(alphabet[(group >> 6) & 63]) : L'=';
        text += left > 2 ? wchar_t(alphabet[group & 63]) : L'=';
    }
    return text;
}

bool DecodeBase64(const wchar_t* text, std::vector<unsigned char>& bytes) {
    bytes.clear();
    if (!text)
        return true;
    unsigned group = 0;
    int sextets = 0;
    int padding = 0;
    for (const wchar_t* c = text; *c; ++c) {
        if (IsSpace(*c))
            continue;
        if (*c == L'=') {
            ++padding;
            ++sextets;
            group <<= 6;
        } else {
            const int value = SextetOf(*c);
            if (value < 0 || padding > 0)
                return false;
            group = (group << 6) | unsigned(value);
            ++sextets;
        }
        if (sextets == 4) {
            if (padding > 2)
                return false;
            bytes.push_back(static_cast<unsigned char>(group >> 16));
            if (padding < 2)
                bytes.push_back(static_cast<unsigned char>(group >> 8));
            if (padding < 1)
                bytes.push_back(static_cast<unsigned char>(group));
            group = 0;
            sextets = 0;
            if (padding > 0)
                padding = 3; // nothing but white space may follow the padding
        }
    }
    return sextets == 0;
}

} // namespace tavxmln
