#pragma once

#include "zentra_export.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavxmln {

/// The binary text encoding of the library: standard base64 with padding, no line breaks.
ZENTRA_EXPORT std::wstring EncodeBase64(const unsigned char* data, std::size_t size);

/// Decodes base64 text; white space anywhere is skipped (pretty-printed documents wrap long
/// data). Gives false for any other character, a bad length or misplaced padding.
ZENTRA_EXPORT bool DecodeBase64(const wchar_t* text, std::vector<unsigned char>& bytes);

} // namespace tavxmln
