#include "tavxmln/CXMLAttribut.h"

#include "tavxmln/XMLConvert.h"

#include <cwchar>

namespace tavxmln {

void CXMLAttribut::Text::Assign(const wchar_t* text) {
    if (!text)
        text = L"";
    const std::size_t length = std::wcslen(text);
    if (length < localSize) {
        heap.reset();
        std::wmemcpy(local, text, length + 1);
        return;
    }
    std::unique_ptr<wchar_t[]> copy(new wchar_t[length + 1]);
    std::wmemcpy(copy.get(), text, length + 1);
    heap = std::move(copy);
}

CXMLAttribut::CXMLAttribut(const wchar_t* name, const wchar_t* value) {
    this->name.Assign(name);
    this->value.Assign(value);
}

CXMLAttribut::~CXMLAttribut() = default;

void CXMLAttribut::SetValue(const wchar_t* text) {
    value.Assign(text);
}

void CXMLAttribut::SetDoubleValue(const double& number) {
    value.Assign(XMLConvertDouble2Text(number));
}

void CXMLAttribut::SetLongValue(long number) {
    value.Assign(XMLConvertLong2Text(number));
}

} // namespace tavxmln
