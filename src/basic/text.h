#pragma once

#include "zentra_export.h"

#include <QString>

#include <string>

namespace basic {

/// The border between the document layer (std::wstring) and the model layer (QString).
/// An empty wide string gives the null QString; code points that are not Unicode scalar values
/// become U+FFFD.
ZENTRA_EXPORT QString FromStdString(const std::wstring& text);

/// An empty QString gives the empty wide string; text that has no UTF-8 form (a lone surrogate)
/// also gives the empty wide string, without an error.
ZENTRA_EXPORT std::wstring ToStdString(const QString& text);

/// Two-letter folder of the user's language: the system locale, or the environment variable
/// "TAV_LANGUAGE" when it is set (even empty). Chinese in any variant is "zh-CN".
ZENTRA_EXPORT QString GetLanguageFolder();

} // namespace basic
