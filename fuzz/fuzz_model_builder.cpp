// Feeds arbitrary bytes to the model builder: containers, objects, welded geometry, materials,
// properties, relations, views and sets are built from whatever the input names, with all the
// identifier clash rules. Any crash, leak or undefined behaviour is a bug; a parse failure and
// the exception for an object outside any container are the expected answers to bad input.

#include "basic/Exception.h"
#include "mesh3D/Material.h"
#include "model/System.h"
#include "oxa/OxaExamineContainer.h"
#include "oxa/OxaXmlReader.h"
#include "oxaIO/OxaObjects.h"

#include <QString>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), int(size));
    model::System system(false);
    {
        oxa::OxaXmlReader reader(&system);
        QString error;
        oxaIO::OxaObjects* first = nullptr;
        try {
            // Twice, so that the second read meets every identifier of the first, and whatever
            // state a failed first parse left.
            reader.ReadOxaXmlFragment(text, &error);
            first = reader.GetOXAResult();
            reader.ReadOxaXmlFragment(text, &error);
        } catch (const basic::Exception&) {
        }
        // The reader's own result first: its objects may have merged into the first result's
        // containers.
        oxa::OxaXmlReader::DeleteOXAResult(reader.GetOXAResult());
        oxa::OxaXmlReader::DeleteOXAResult(first);
    }
    mesh3D::Material::DeleteGlobalMaterials(&system);
    oxa::OxaExamineContainer::DeleteInstance();
    return 0;
}
