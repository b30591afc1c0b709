#pragma once

#include "zentra_export.h"

#include <string>

namespace oxaIO {

/// Root of the section family of a document: every section has a format version and can tell
/// whether it holds anything worth writing.
class ZENTRA_EXPORT OxaBaseSection {
public:
    explicit OxaBaseSection(const std::wstring& version);
    virtual ~OxaBaseSection();
    OxaBaseSection(const OxaBaseSection&) = delete;
    OxaBaseSection& operator=(const OxaBaseSection&) = delete;

    /// True when a writer would leave the section out.
    virtual bool IsEmpty() const = 0;

    const std::wstring& Version() const { return version; }

private:
    std::wstring version;
};

} // namespace oxaIO
