#pragma once

#include "zentra_export.h"

#include "basic/Exception.h"

namespace model {

// The object model's three failures. They add nothing to basic::Exception, so that a host may
// catch them by kind or all together as basic::Exception.

/// An object has no property of the asked name.
class ZENTRA_EXPORT NoSuchProperty_Exception : public basic::Exception {
public:
    using basic::Exception::Exception;
    ~NoSuchProperty_Exception() override;
};

/// An object (or the system) has no method of the asked name.
class ZENTRA_EXPORT NoSuchMethod_Exception : public basic::Exception {
public:
    using basic::Exception::Exception;
    ~NoSuchMethod_Exception() override;
};

/// The system has no persistent repository of the asked name.
class ZENTRA_EXPORT NoSuchRepository_Exception : public basic::Exception {
public:
    using basic::Exception::Exception;
    ~NoSuchRepository_Exception() override;
};

} // namespace model
