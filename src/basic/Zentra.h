#pragma once

#include "zentra_export.h"

/// The library's module object: a host that wants the library's presence tied to an object's
/// lifetime creates one. It logs its construction and destruction and holds nothing.
class ZENTRA_EXPORT Zentra {
public:
    Zentra();
    ~Zentra();
    Zentra(const Zentra&) = delete;
    Zentra& operator=(const Zentra&) = delete;
};
