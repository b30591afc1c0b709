#pragma once

#include "zentra_export.h"

#include <cstddef>
#include <memory>

namespace tavxmln {

/// One attribute of an element that a `CXMLSaxWriter` writes: the writer takes a null-ended
/// array of pointers to these. Both texts are copies owned by the attribute. Short texts (all
/// names and numbers) stay inside the object, so that building the attributes of a vertex or a
/// triangle costs no allocation.
class ZENTRA_EXPORT CXMLAttribut {
public:
    CXMLAttribut(const wchar_t* name, const wchar_t* value);
    ~CXMLAttribut();
    CXMLAttribut(const CXMLAttribut&) = delete;
    CXMLAttribut& operator=(const CXMLAttribut&) = delete;

    const wchar_t* Name() const { return name.Get(); }
    const wchar_t* Value() const { return value.Get(); }

    /// Replaces the value by a copy of `text` (null gives the empty text).
    void SetValue(const wchar_t* text);
    /// Replaces the value by the library's text form of the number.
    void SetDoubleValue(const double& number);
    void SetLongValue(long number);

private:
    /// A text with room for short contents in place; longer ones go to the heap.
    class Text {
    public:
        void Assign(const wchar_t* text);
        const wchar_t* Get() const { return heap ? heap.get() : local; }

    private:
        static constexpr std::size_t localSize = 40;
        wchar_t local[localSize]; // filled by every Assign, so left uninitialised here
        std::unique_ptr<wchar_t[]> heap;
    };

    Text name;
    Text value;
};

} // namespace tavxmln
