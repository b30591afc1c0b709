#pragma once

#include "zentra_export.h"

#include <cstddef>

/// Text forms of the typed values in a document, independent of the locale: a decimal point,
/// no grouping. Reading gives false on a text that is not exactly one value of the kind
/// (surrounding blanks, tabs and line breaks are allowed). Writing returns a text owned by the
/// calling thread that stays valid until the next call of the same function there; copy it.

namespace tavxmln {

/// A signed 32-bit integer; larger values do not read.
ZENTRA_EXPORT bool XMLConvertText2Long(const wchar_t* text, long& value);
/// A 64-bit float in decimal or exponent form; also "INF", "-INF" and "NaN".
ZENTRA_EXPORT bool XMLConvertText2Double(const wchar_t* text, double& value);
/// "true" or "1", "false" or "0".
ZENTRA_EXPORT bool XMLConvertText2Bool(const wchar_t* text, bool& value);
/// "YYYY-MM-DD".
ZENTRA_EXPORT bool XMLConvertText2Date(const wchar_t* text, int& year, int& month, int& day);
/// "HH:MM:SS".
ZENTRA_EXPORT bool XMLConvertText2Time(const wchar_t* text, int& hour, int& minute, int& second);
/// "YYYY-MM-DDTHH:MM:SS" (a blank in place of the "T" is accepted).
ZENTRA_EXPORT bool XMLConvertText2DateTime(const wchar_t* text, int& year, int& month, int& day, int& hour,
                                           int& minute, int& second);

ZENTRA_EXPORT const wchar_t* XMLConvertLong2Text(long value);
/// The shortest text that reads back to exactly the same double.
ZENTRA_EXPORT const wchar_t* XMLConvertDouble2Text(const double& value);
/// "true"/"false", or "1"/"0" when `numeric` is set.
ZENTRA_EXPORT const wchar_t* XMLConvertBool2Text(bool value, bool numeric);
/// "YYYY-MM-DDTHH:MM:SS" with zero-padded fields, so that the texts sort chronologically.
ZENTRA_EXPORT const wchar_t* XMLConvertDateTime2Text(int year, int month, int day, int hour, int minute,
                                                     int second);
ZENTRA_EXPORT const wchar_t* XMLConvertDate2Text(int year, int month, int day);
ZENTRA_EXPORT const wchar_t* XMLConvertTime2Text(int hour, int minute, int second);

/// Room that the number formatters below need at most.
constexpr std::size_t XMLMaxNumberChars = 32;
/// Write the text of `XMLConvertLong2Text` and `XMLConvertDouble2Text` in ASCII at `out`, which
/// has room for `XMLMaxNumberChars`, and return the end. The wide forms are made from these,
/// and the writer formats with them straight into its output.
ZENTRA_EXPORT char* XMLFormatLong(char* out, long value);
ZENTRA_EXPORT char* XMLFormatDouble(char* out, double value);

} // namespace tavxmln
