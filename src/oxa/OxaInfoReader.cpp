#include "oxa/OxaInfoReader.h"

#include "basic/text.h"
#include "tavxmln/CXMLException.h"
#include "tavxmln/CXMLManager.h"

#include <QtGlobal>

#include <algorithm>

namespace oxa {

OxaInfoReader::OxaInfoReader(const QString& fileName) : fileName(fileName) {
    const std::wstring name = fileName.toStdWString();
    try {
        tavxmln::CXMLManager::GetInstance()->LoadDocument(name.c_str(), this, true, false, nullptr, false,
                                                          false);
    } catch (const tavxmln::CXMLException& exception) {
        valid = exception.code() == tavxmln::CXMLException::Stop;
        if (!valid)
            errorText = QString::fromWCharArray(exception.text());
        return;
    }
    Q_ASSERT_X(false, "OxaInfoReader", "FALSE");
    errorText = fileName + ": the document has no content element";
}

OxaInfoReader::~OxaInfoReader() = default;

void OxaInfoReader::StartOxaDocument(std::wstring projectId, std::wstring sourceApp,
                                     std::wstring sourceFileName, std::wstring sourceFormat,
                                     std::wstring created, std::wstring createdBy, std::wstring changedBy,
                                     std::wstring changed, std::wstring version) {
    this->projectId = std::move(projectId);
    this->sourceApp = std::move(sourceApp);
    this->sourceFileName = std::move(sourceFileName);
    this->sourceFormat = std::move(sourceFormat);
    this->created = std::move(created);
    this->createdBy = std::move(createdBy);
    this->changedBy = std::move(changedBy);
    this->changed = std::move(changed);
    this->version = std::move(version);
}

void OxaInfoReader::Section(oxaIO::ESectionType type) {
    sections.push_back(type);
}

void OxaInfoReader::EndContent() {
    throw tavxmln::CXMLException(tavxmln::CXMLException::Stop, L"");
}

bool OxaInfoReader::IsValid() const {
    return valid;
}

QString OxaInfoReader::GetCreated() const {
    return basic::FromStdString(created);
}

QString OxaInfoReader::GetChanged() const {
    return basic::FromStdString(changed);
}

std::wstring OxaInfoReader::GetProjectID() const {
    return projectId;
}

std::wstring OxaInfoReader::GetSourceApp() const {
    return sourceApp;
}

std::wstring OxaInfoReader::GetSourceFileName() const {
    return sourceFileName;
}

std::wstring OxaInfoReader::GetSourceFormat() const {
    return sourceFormat;
}

std::wstring OxaInfoReader::GetCreatedBy() const {
    return createdBy;
}

std::wstring OxaInfoReader::GetChangedBy() const {
    return changedBy;
}

std::wstring OxaInfoReader::GetVersion() const {
    return version;
}

QString OxaInfoReader::GetSections() const {
    QString text;
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const wchar_t* name = oxaIO::SectionName(sections[i]);
        Q_ASSERT_X(name, "OxaInfoReader::GetSections", "FALSE");
        if (i > 0)
            text += "; ";
        if (name)
            text += QString::fromWCharArray(name);
    }
    return text;
}

bool OxaInfoReader::HasSection(oxaIO::ESectionType type) const {
    return std::find(sections.begin(), sections.end(), type) != sections.end();
}

} // namespace oxa
