#include "oxa/OxaOsReader.h"

#include "oxa/OxaRoot.h"

namespace oxa {

namespace {
OxaOsReader* instance = nullptr;
}

OxaOsReader::OxaOsReader() {
    instance = this;
}

OxaOsReader::~OxaOsReader() {
    if (instance == this)
        instance = nullptr;
}

OxaOsReader* OxaOsReader::GetInstance() {
    if (!instance)
        new OxaOsReader; // stores itself; kept to the end of the process
    return instance;
}

void OxaOsReader::SetRoot(OxaRoot* root) {
    if (!root)
        return;
    this->root = root;
    system = root->System();
}

oxaIO::OxaObjects* OxaOsReader::Read(const QString&) {
    if (root)
        result = nullptr;
    return nullptr;
}

} // namespace oxa
