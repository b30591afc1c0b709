#pragma once

#include "oxaIO/IObject.h"
#include "oxaIO/OxaTypes.h"

namespace oxaIO {

/// A material as a document writes it: three colours, a transparency and a texture file.
class ZENTRA_EXPORT IMaterial : public IObject {
public:
    virtual VColor4 Diffuse() const = 0;
    virtual VColor4 Specular() const = 0;
    virtual VColor4 Ambient() const = 0;
    virtual double Transparency() const = 0;
    virtual std::wstring TextureFileName() const = 0;
};

} // namespace oxaIO
