#include "oxaIO/OxaBaseSection.h"

namespace oxaIO {

OxaBaseSection::OxaBaseSection(const std::wstring& version) : version(version) {}

OxaBaseSection::~OxaBaseSection() = default;

} // namespace oxaIO
