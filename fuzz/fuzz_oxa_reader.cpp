// Feeds arbitrary bytes through the XML library into the reader core. Every callback is empty,
// so what is exercised is the parser, the element state machine, the attribute conversions,
// the identifier map and the text dispatch. Any crash, leak or undefined behaviour is a bug;
// a CXMLException is the expected answer to malformed input.

#include "oxaIO/OxaNullReader.h"
#include "tavxmln/CXMLException.h"
#include "tavxmln/CXMLManager.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

/// Also asks the reader's own lookups, so that the identifier map is walked both ways.
class FuzzReader : public oxaIO::OxaNullReader {
public:
    void StartObject3D(std::wstring id, std::wstring, std::wstring name, bool, std::wstring) override {
        GetMappedObjectID(GetObjectID(name));
        GetMappedObjectID(id);
    }
    void ReadThumbnailData(unsigned char*& data, unsigned int& size) override {
        // Touch every byte: a wrong size would show up under the address sanitizer.
        unsigned sum = 0;
        for (unsigned int i = 0; i < size; ++i)
            sum += data[i];
        (void)sum;
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<unsigned char> buffer(data, data + size);
    FuzzReader reader;
    try {
        tavxmln::CXMLManager::GetInstance()->LoadDocument(buffer.data(),
                                                          static_cast<unsigned int>(buffer.size()), &reader,
                                                          true, false, nullptr, false, false);
    } catch (const tavxmln::CXMLException&) {
    }
    return 0;
}
