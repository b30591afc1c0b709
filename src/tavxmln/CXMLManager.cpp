#include "tavxmln/CXMLManager.h"

#include "tavxmln/CXMLException.h"
#include "tavxmln/ExpatSaxDriver.h"

#include <QFile>
#include <QString>

namespace tavxmln {

namespace {

constexpr qint64 chunkSize = 1 << 20;

} // namespace

CXMLManager* CXMLManager::GetInstance() {
    static CXMLManager instance;
    return &instance;
}

void CXMLManager::LoadDocument(const wchar_t* fileName, CXMLSaxHandler* handler, bool, bool, const wchar_t*,
                               bool, bool) {
    const std::wstring name = fileName ? fileName : L"";
    QFile file(QString::fromWCharArray(name.c_str(), int(name.size())));
    if (name.empty() || !file.open(QIODevice::ReadOnly))
        throw CXMLException(CXMLException::FileError,
                            (name + L": cannot open the file: " + file.errorString().toStdWString()).c_str());
    ExpatSaxDriver driver(handler, name);
    for (;;) {
        char* buffer = driver.Buffer(chunkSize);
        const qint64 filled = file.read(buffer, chunkSize);
        if (filled < 0)
            throw CXMLException(
                CXMLException::FileError,
                (name + L": cannot read the file: " + file.errorString().toStdWString()).c_str());
        if (!driver.FeedBuffer(std::size_t(filled), filled == 0))
            return;
    }
}

void CXMLManager::LoadDocument(unsigned char* data, unsigned int size, CXMLSaxHandler* handler, bool, bool,
                               const wchar_t*, bool, bool) {
    ExpatSaxDriver driver(handler, L"buffer");
    driver.Feed(reinterpret_cast<const char*>(data), size, true);
}

} // namespace tavxmln
