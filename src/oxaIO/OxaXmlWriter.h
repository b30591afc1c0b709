#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaTypes.h"

#include <list>
#include <string>
#include <utility>
#include <vector>

namespace oxaIO {

class IActivity;
class IContainer;
class IItem;
class IItemData;
class ILight;
class IMaterial;
class IObject2D;
class IObject3D;
class IPolygon;
class ISet;
class ITriangle;
class IVertex;
class IFace;
class OxaObjects;
class OxaSection;
class OxaWriter;

/// Writes an `OxaObjects` as an exchange document. It walks the sections and presents the
/// model through its interfaces to an `OxaWriter`, which checks the grammar; the document
/// stays the caller's and is not changed, except that its ID set is rebuilt.
///
/// The model keeps coordinates in metres while the object section keeps the unit of its
/// document, so points and oriented boxes are divided by the scale of that unit (the one a
/// reader multiplies them by): a millimetre document stays a millimetre document. A unit the
/// system does not know scales by 1.
///
/// A rewrite keeps geometry, materials, containers, properties, topology, quantities, views,
/// units and the activity section; by design it drops what the format marks as not kept
/// (root container placement, container units, objects placed directly in a root container
/// except their geometry, face shapes, smart sets and set containers, sets outside the
/// activity section, and the sections this walk never writes).
class ZENTRA_EXPORT OxaXmlWriter {
public:
    explicit OxaXmlWriter(OxaObjects* document);
    virtual ~OxaXmlWriter();
    OxaXmlWriter(const OxaXmlWriter&) = delete;
    OxaXmlWriter& operator=(const OxaXmlWriter&) = delete;

    /// Writes the document to `fileName`. The text goes to "<fileName>.part" in the same folder,
    /// which replaces `fileName` only once the document is complete, so a failure half way
    /// never destroys an existing file. On failure the result is false and `errorText` gives
    /// the reason, names the untouched file and the partial one, which is left as far as it
    /// was written; nothing is deleted. Without a document the result is false and
    /// `errorText` is not touched. After a failure in the grammar this writer stays in its
    /// state, and a further `Write` fails with "StartOxaDocument: Document already in
    /// progress".
    bool Write(const std::wstring& fileName, std::wstring& errorText);

private:
    /// The numbers of an object's vertices, built for one `data3D` at a time: an open hash
    /// table without a node per vertex, since a large object has hundreds of thousands.
    class VertexNumbers {
    public:
        explicit VertexNumbers(std::size_t capacity);
        /// Numbers the vertex unless it has a number already.
        void Add(const IVertex* vertex, int number);
        /// The vertex's number; 0 for a vertex that is not one of the object's own.
        int operator[](const IVertex* vertex) const;

    private:
        std::size_t _Slot(const IVertex* vertex) const;
        std::vector<std::pair<const IVertex*, int>> table;
        unsigned shift; ///< 64 less the number of bits of a slot index
    };

    void _WriteDocument(const std::wstring& fileName);
    void _WriteContent();
    void _WriteFitSection();
    void _WriteItem(const IItem* item);
    void _WriteItemData(const IItemData* data);
    void _WriteObjectSection();
    void _WriteMaterial(const IMaterial* material);
    void _WriteRootContainer(IContainer* container);
    void _WriteContainer(IContainer* container);
    void _WriteObject3D(const IObject3D* object);
    void _WriteObject2D(const IObject2D* object);
    void _WritePropertySection(const OxaSection& section);
    void _WriteTopologySection();
    void _WriteVisualisationSection();
    void _WriteLight(const ILight* light);
    void _WriteUnitSection();
    void _WriteActivitySection();
    void _WriteActivity(const IActivity* activity);
    void _WriteSetSection(const OxaSection& section);
    void _WriteSet(const ISet* set);
    void _WriteObjectData(IContainer* container);
    void _WriteData3D(const IObject3D* object);
    void _WriteGeometry(const std::list<ITriangle*>& triangles, const std::list<IPolygon*>& polygons,
                        bool all, const VertexNumbers& numbers);
    void _WriteTriangle(const ITriangle* triangle, int textureIndex, const VertexNumbers& numbers);
    void _WritePolygon(const IPolygon* polygon, const std::list<ITriangle*>& tessellation, int textureIndex,
                       const VertexNumbers& numbers);
    void _WriteFace(const IFace* face, const VertexNumbers& numbers);
    /// A position in the model's metres, in the unit of the document.
    VCoords3D _DocumentCoords(const VCoords3D& coords) const;

    OxaObjects* document;
    OxaWriter* writer;
    double lengthScale = 1.0; ///< metres per unit of the document being written
};

} // namespace oxaIO
