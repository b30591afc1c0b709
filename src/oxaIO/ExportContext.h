#pragma once

#include "zentra_export.h"

#include <string>

namespace oxaIO {

/// A point in time as six numbers: year in full, month from 1, day, hour, minute, second.
struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// The head of a document: who made it, from what, and when, plus where the project keeps it.
class ZENTRA_EXPORT ExportContext {
public:
    /// The creation time is the local clock's time now; all zero if the clock cannot be read.
    ExportContext();

    const std::wstring& ProjectID() const { return projectID; }
    void ProjectID(const std::wstring& text) { projectID = text; }
    const std::wstring& CreatedBy() const { return createdBy; }
    void CreatedBy(const std::wstring& text) { createdBy = text; }
    const std::wstring& SourceApp() const { return sourceApp; }
    void SourceApp(const std::wstring& text) { sourceApp = text; }
    const std::wstring& SourceFormat() const { return sourceFormat; }
    void SourceFormat(const std::wstring& text) { sourceFormat = text; }
    const DateTime& CreatedTime() const { return createdTime; }
    const std::wstring& OriginFileName() const { return originFileName; }
    void OriginFileName(const std::wstring& text) { originFileName = text; }
    const std::wstring& SubFolder() const { return subFolder; }
    void SubFolder(const std::wstring& text) { subFolder = text; }
    const std::wstring& OxaFileName() const { return oxaFileName; }
    void OxaFileName(const std::wstring& text) { oxaFileName = text; }

    /// The creation time as "YYYY-MM-DDThh:mm:ss", the document's date-time form, which sorts
    /// chronologically as text.
    std::wstring CreatedTimeAsString() const;

    /// The format version of the documents written from this context.
    static std::wstring Version() { return L"1.5"; }

private:
    std::wstring projectID;
    std::wstring createdBy;
    std::wstring sourceApp;
    std::wstring sourceFormat;
    DateTime createdTime;
    std::wstring originFileName;
    std::wstring subFolder;
    std::wstring oxaFileName;
};

} // namespace oxaIO
