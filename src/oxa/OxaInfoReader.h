#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaNullReader.h"

#include <QString>

#include <string>
#include <vector>

namespace oxa {

/// Reads only the head of an exchange document: the attributes of `objects` and the section
/// list of `content`. The parse is stopped at the end of `content`, so the cost does not grow
/// with the file. The constructor does all the work; then ask `IsValid` and the getters.
/// Used to order the documents of a project by their creation text before the real read.
class ZENTRA_EXPORT OxaInfoReader : public oxaIO::OxaNullReader {
public:
    /// Reads the head of `fileName`. A document without a `content` element is a fatal
    /// assertion: it cannot be summarised.
    explicit OxaInfoReader(const QString& fileName);
    ~OxaInfoReader() override;

    void StartOxaDocument(std::wstring projectId, std::wstring sourceApp, std::wstring sourceFileName,
                          std::wstring sourceFormat, std::wstring created, std::wstring createdBy,
                          std::wstring changedBy, std::wstring changed, std::wstring version) override;
    void Section(oxaIO::ESectionType type) override;
    /// Ends the parse with a `CXMLException` of code 0: everything after `content` is body.
    void EndContent() override;

    /// True once the head was read up to the end of `content`; false for a missing or malformed
    /// file, whose text fields then hold what was read before the failure.
    virtual bool IsValid() const;
    /// The "created" text exactly as it stands in the file (no date conversion).
    virtual QString GetCreated() const;
    virtual QString GetChanged() const;
    virtual std::wstring GetProjectID() const;
    virtual std::wstring GetSourceApp() const;
    virtual std::wstring GetSourceFileName() const;
    virtual std::wstring GetSourceFormat() const;
    virtual std::wstring GetCreatedBy() const;
    virtual std::wstring GetChangedBy() const;
    virtual std::wstring GetVersion() const;
    /// The section names joined by "; ". A section of an unknown name (type 0) has no name to
    /// list: asking then is a fatal assertion, and the name is left out.
    virtual QString GetSections() const;
    virtual bool HasSection(oxaIO::ESectionType type) const;
    /// The section types in document order, unknown names (0) included.
    const std::vector<oxaIO::ESectionType>& GetSectionTypes() const { return sections; }

    /// The text of the failure that made the head unreadable; empty when valid.
    QString ErrorText() const { return errorText; }

private:
    bool valid = false;
    QString fileName;
    std::wstring projectId;
    std::wstring sourceApp;
    std::wstring sourceFileName;
    std::wstring sourceFormat;
    std::wstring created;
    std::wstring createdBy;
    std::wstring changedBy;
    std::wstring changed;
    std::wstring version;
    std::vector<oxaIO::ESectionType> sections;
    QString errorText;
};

} // namespace oxa
