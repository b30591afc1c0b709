#include "oxaIO/OxaWriter.h"

#include "tavxmln/CXMLAttribut.h"
#include "tavxmln/CXMLException.h"
#include "tavxmln/XMLConvert.h"

#include <QtGlobal>

#include <algorithm>
#include <new>

namespace oxaIO {

using tavxmln::CXMLAttribut;
using tavxmln::CXMLException;
using tavxmln::XMLConvertBool2Text;
using tavxmln::XMLConvertDouble2Text;
using tavxmln::XMLConvertLong2Text;

namespace {

constexpr int stateError = 6;
constexpr int valueError = 7;

const wchar_t* const schemaInstance = L"http://www.w3.org/2001/XMLSchema-instance";

std::wstring Triple(const VCoords3D& c) {
    std::wstring text = XMLConvertDouble2Text(c.x);
    text += L' ';
    text += XMLConvertDouble2Text(c.y);
    text += L' ';
    text += XMLConvertDouble2Text(c.z);
    return text;
}

bool InClosedRange(double value, double low, double high) {
    return value >= low && value <= high;
}

} // namespace

/// The attributes of one element, in the order they are added, as the null-ended array the XML
/// library takes. They live on the stack of the operation that writes the element.
class OxaWriter::Attributes {
public:
    Attributes() = default;
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() {
        for (int i = 0; i < count; ++i)
            pointers[i]->~CXMLAttribut();
    }

    void Add(const wchar_t* name, const wchar_t* value) {
        Q_ASSERT_X(count < capacity, "OxaWriter::Attributes", "more attributes than any element has");
        pointers[count] = new (&storage[count]) CXMLAttribut(name, value);
        ++count;
    }
    void Add(const wchar_t* name, const std::wstring& value) { Add(name, value.c_str()); }
    void AddIfNotEmpty(const wchar_t* name, const std::wstring& value) {
        if (!value.empty())
            Add(name, value.c_str());
    }
    void AddDouble(const wchar_t* name, double value) { Add(name, XMLConvertDouble2Text(value)); }
    void AddLong(const wchar_t* name, long value) { Add(name, XMLConvertLong2Text(value)); }
    void AddBool(const wchar_t* name, bool value) { Add(name, XMLConvertBool2Text(value, false)); }
    void AddTriple(const wchar_t* name, const VCoords3D& value) { Add(name, Triple(value)); }
    template <typename T> void AddOptionalDouble(const wchar_t* name, const VOptional<T>& value) {
        if (!value.IsAbsent())
            AddDouble(name, double(value.Value()));
    }
    void AddOptionalLong(const wchar_t* name, const VOptional<long>& value) {
        if (!value.IsAbsent())
            AddLong(name, value.Value());
    }
    void AddOptionalBool(const wchar_t* name, const VOptional<bool>& value) {
        if (!value.IsAbsent())
            AddBool(name, value.Value());
    }

    CXMLAttribut** Get() {
        pointers[count] = nullptr;
        return pointers;
    }

private:
    static constexpr int capacity = 16;
    struct alignas(CXMLAttribut) Slot {
        unsigned char bytes[sizeof(CXMLAttribut)];
    };
    Slot storage[capacity];
    CXMLAttribut* pointers[capacity + 1];
    int count = 0;
};

OxaWriter::OxaWriter() = default;

OxaWriter::~OxaWriter() = default;

// ----------------------------------------------------------------------------------------------
// The checks and the element stack

void OxaWriter::_Fail(int code, const std::wstring& text) {
    throw CXMLException(code, text.c_str());
}

/// The parent check of a Start or single-element operation. An empty stack passes: writing
/// fragments outside a document is allowed.
void OxaWriter::_Check(const wchar_t* word, std::initializer_list<int> allowed) const {
    if (!elementStack.empty())
        _CheckStrict(word, allowed);
}

void OxaWriter::_CheckStrict(const wchar_t* word, std::initializer_list<int> allowed) const {
    if (elementStack.empty() ||
        std::find(allowed.begin(), allowed.end(), elementStack.back()) == allowed.end())
        _Fail(stateError, std::wstring(word) + L": not allowed here");
}

void OxaWriter::_Open(int state, const wchar_t* name, Attributes& attributes) {
    StartElement(name, attributes.Get());
    elementStack.push_back(state);
}

void OxaWriter::_Close() {
    EndElement();
    elementStack.pop_back();
}

void OxaWriter::_Single(int state, const wchar_t* name, Attributes& attributes, const wchar_t* text) {
    _Open(state, name, attributes);
    if (text)
        Characters(text);
    _Close();
}

void OxaWriter::_End(const wchar_t* word, int state) {
    _CheckStrict(word, {state});
    _Close();
}

std::wstring OxaWriter::MapID(const std::wstring& id, bool skipEmpty) const {
    if (idMap.empty() || (skipEmpty && id.empty()))
        return id;
    const auto entry = idMap.find(id);
    if (entry == idMap.end() || entry->second.empty())
        return id;
    return entry->second;
}

void OxaWriter::_CheckAngle(double value, const wchar_t* attribute) {
    if (!InClosedRange(value, 0.0, 360.0))
        _Fail(valueError, std::wstring(L"value for ") + attribute + L" not allowed");
}

// ----------------------------------------------------------------------------------------------
// Document

void OxaWriter::StartOxaDocument(const wstring& projectID, const wstring& createdBy, const wstring& sourceApp,
                                 const wstring& sourceFormat, int year, int month, int day, int hour,
                                 int minute, int second) {
    if (!elementStack.empty())
        _Fail(stateError, L"StartOxaDocument: Document already in progress");
    Attributes attributes;
    attributes.Add(L"xmlns:xsi", schemaInstance);
    attributes.Add(L"xsi:noNamespaceSchemaLocation", L"OXA-Objects.xsd");
    attributes.Add(L"projectID", projectID);
    attributes.Add(L"createdBy", createdBy);
    attributes.Add(L"sourceApp", sourceApp);
    attributes.Add(L"sourceFormat", sourceFormat);
    attributes.Add(L"created", tavxmln::XMLConvertDateTime2Text(year, month, day, hour, minute, second));
    attributes.Add(L"oxaversion", L"1.5");
    _Open(esObjects, L"objects", attributes);
}

void OxaWriter::EndOxaDocument() {
    _End(L"EndOxaDocument", esObjects);
    if (!elementStack.empty())
        _Fail(stateError, L"EndOxaDocument: document not finished");
}

void OxaWriter::StartContent() {
    _Check(L"StartContent", {esObjects});
    Attributes attributes;
    attributes.Add(L"version", L"1.2");
    _Open(esContent, L"content", attributes);
}

void OxaWriter::EndContent() {
    _End(L"EndContent", esContent);
}

void OxaWriter::Section(ESectionType type) {
    _Check(L"Section", {esContent});
    if (type == stNone || type == stObjectDataSection || type == stClashSection || !SectionName(type))
        _Fail(stateError, L"Section: unknown section type");
    Attributes attributes;
    attributes.Add(L"name", SectionName(type));
    _Single(esSection, L"section", attributes);
}

void OxaWriter::IDMapping(const std::set<wstring>& ids) {
    _Check(L"IDMapping", {esObjects});
    idMap.clear();
    long number = 0;
    for (const wstring& id : ids)
        idMap.emplace_hint(idMap.end(), id, XMLConvertLong2Text(++number));
    if (idMap.empty())
        return;
    Attributes attributes;
    attributes.Add(L"version", L"1.4");
    _Open(esIDMapping, L"IDMapping", attributes);
    for (const auto& entry : idMap) {
        Attributes pair;
        pair.Add(L"k", entry.second);
        pair.Add(L"v", entry.first);
        _Single(esID, L"ID", pair);
    }
    _Close();
}

// ----------------------------------------------------------------------------------------------
// Object section

void OxaWriter::_VersionedSection(const wchar_t* word, int state, const wchar_t* name,
                                  const wchar_t* version) {
    _Check(word, {esObjects});
    Attributes attributes;
    attributes.Add(L"version", version);
    _Open(state, name, attributes);
}

void OxaWriter::StartObjectSection(const wstring& unit) {
    _Check(L"StartObjectSection", {esObjects});
    Attributes attributes;
    attributes.Add(L"unit", unit);
    attributes.Add(L"version", L"1.5");
    _Open(esObjectSection, L"objectSection", attributes);
}

void OxaWriter::EndObjectSection() {
    _End(L"EndObjectSection", esObjectSection);
}

void OxaWriter::StartObjectDataSection() {
    _VersionedSection(L"StartObjectDataSection", esObjectDataSection, L"objectDataSection", L"1.5");
}

void OxaWriter::EndObjectDataSection() {
    _End(L"EndObjectDataSection", esObjectDataSection);
}

void OxaWriter::StartMaterialSection() {
    _Check(L"StartMaterialSection", {esObjectSection, esFitSection});
    Attributes attributes;
    attributes.Add(L"version", L"1.4");
    _Open(esMaterialSection, L"materialSection", attributes);
}

void OxaWriter::EndMaterialSection() {
    _End(L"EndMaterialSection", esMaterialSection);
}

/// An element with a mapped `ID` and a `name` when there is one.
void OxaWriter::_IDName(const wchar_t* word, std::initializer_list<int> allowed, int state,
                        const wchar_t* name, const wstring& id, const wstring& displayName, bool single) {
    _Check(word, allowed);
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", displayName);
    if (single)
        _Single(state, name, attributes);
    else
        _Open(state, name, attributes);
}

void OxaWriter::StartMaterial(const wstring& id, const wstring& name) {
    _IDName(L"StartMaterial", {esMaterialSection}, esMaterial, L"material", id, name, false);
}

void OxaWriter::MaterialDiff(int r, int g, int b, VOptional<double> a) {
    _Check(L"MaterialDiff", {esMaterial});
    WriteColor(esDiff, L"diff", r, g, b, a);
}

void OxaWriter::MaterialSpec(int r, int g, int b, VOptional<double> a) {
    _Check(L"MaterialSpec", {esMaterial});
    WriteColor(esSpec, L"spec", r, g, b, a);
}

void OxaWriter::MaterialAmb(int r, int g, int b, VOptional<double> a) {
    _Check(L"MaterialAmb", {esMaterial});
    WriteColor(esAmb, L"amb", r, g, b, a);
}

void OxaWriter::MaterialTrans(double value) {
    _Check(L"MaterialTrans", {esMaterial});
    Attributes attributes;
    attributes.AddDouble(L"v", value);
    _Single(esTrans, L"trans", attributes);
}

void OxaWriter::MaterialTexture(const wstring& file) {
    _Check(L"MaterialTexture", {esMaterial});
    Attributes attributes;
    attributes.Add(L"file", file);
    _Single(esTex, L"tex", attributes);
}

void OxaWriter::EndMaterial() {
    _End(L"EndMaterial", esMaterial);
}

void OxaWriter::GenericObject(const wstring& id, const wstring& name) {
    _IDName(L"GenericObject", {esContainer}, esGenericObject, L"genericObject", id, name, true);
}

void OxaWriter::StartRootContainer(const wstring& id, const wstring& name) {
    _Check(L"StartRootContainer", {esObjectSection});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.Add(L"mRot",
                   L"1.000000 0.000000 0.000000 0.000000 1.000000 0.000000 0.000000 0.000000 1.000000");
    attributes.Add(L"vTrans", L"0.000000 0.000000 0.000000");
    attributes.AddIfNotEmpty(L"name", name);
    _Open(esRootContainer, L"rootContainer", attributes);
}

void OxaWriter::EndRootContainer() {
    _End(L"EndRootContainer", esRootContainer);
}

void OxaWriter::StartContainer(const wstring& id, const wstring& name, const wstring& unit, bool composite) {
    _Check(L"StartContainer", {esObjectSection, esContainer, esRootContainer});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", name);
    attributes.AddIfNotEmpty(L"unit", unit);
    if (composite)
        attributes.Add(L"composite", XMLConvertBool2Text(true, false));
    _Open(esContainer, L"container", attributes);
}

void OxaWriter::EndContainer() {
    _End(L"EndContainer", esContainer);
}

void OxaWriter::_ObjectStart(const wchar_t* word, int state, const wchar_t* name, const wstring& id,
                             const wstring& displayName, const wstring& matID, bool negative,
                             const wstring& refID) {
    _Check(word, {esContainer});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", displayName);
    attributes.AddIfNotEmpty(L"matID", MapID(matID, true));
    if (negative)
        attributes.Add(L"negative", XMLConvertBool2Text(true, false));
    attributes.AddIfNotEmpty(L"refID", MapID(refID, true));
    _Open(state, name, attributes);
}

void OxaWriter::StartObject2D(const wstring& id, const wstring& name, const wstring& matID, bool negative,
                              const wstring& refID) {
    _ObjectStart(L"StartObject2D", esObject2D, L"object2D", id, name, matID, negative, refID);
}

void OxaWriter::EndObject2D() {
    _End(L"EndObject2D", esObject2D);
}

void OxaWriter::StartObject3D(const wstring& id, const wstring& name, const wstring& matID, bool negative,
                              const wstring& refID) {
    _ObjectStart(L"StartObject3D", esObject3D, L"object3D", id, name, matID, negative, refID);
}

void OxaWriter::EndObject3D() {
    _End(L"EndObject3D", esObject3D);
}

void OxaWriter::StartData3D(const wstring& refID) {
    _Check(L"StartData3D", {esObjectDataSection, esContainer});
    Attributes attributes;
    attributes.Add(L"refID", MapID(refID, true));
    _Open(esData3D, L"data3D", attributes);
}

void OxaWriter::EndData3D() {
    _End(L"EndData3D", esData3D);
}

void OxaWriter::StartGenericObject(const wstring& id, const wstring& name) {
    _IDName(L"StartGenericObject", {esContainer}, esGenericObject, L"genericObject", id, name, false);
}

void OxaWriter::EndGenericObject() {
    _End(L"EndGenericObject", esGenericObject);
}

// ----------------------------------------------------------------------------------------------
// Geometry

// Vertices and triangles make up the bulk of a document: their numbers go straight into the
// output, without attribute objects.

void OxaWriter::Point(int nr, double x, double y, double z) {
    _Check(L"Point", {esObject2D, esData3D});
    _OpenStartTag(L"p");
    _LongAttribute(L"nr", nr);
    _DoubleAttribute(L"x", x);
    _DoubleAttribute(L"y", y);
    _DoubleAttribute(L"z", z);
    elementStack.push_back(esP);
    _Close();
}

void OxaWriter::Line(int p1, int p2) {
    _Check(L"Line", {esObject2D, esData3D});
    Attributes attributes;
    attributes.AddLong(L"p1", p1);
    attributes.AddLong(L"p2", p2);
    _Single(esL, L"l", attributes);
}

void OxaWriter::Triangle(int p1, int p2, int p3, const std::vector<VCoords2D>& textureCoords) {
    _Check(L"Triangle", {esObject2D, esData3D, esTess, esSolid, esFace});
    _OpenStartTag(L"t");
    _LongAttribute(L"p1", p1);
    _LongAttribute(L"p2", p2);
    _LongAttribute(L"p3", p3);
    elementStack.push_back(esT);
    if (textureCoords.size() == 3)
        _TextureCoords(textureCoords);
    _Close();
}

void OxaWriter::StartPolyline(const std::vector<int>& points, const std::vector<VCoords2D>& textureCoords,
                              EPolylineType type) {
    _Check(L"StartPolyline", {esObject2D, esData3D, esSolid, esFace});
    _OpenStartTag(L"pl");
    _LongAttribute(L"length", long(points.size()));
    _LongsAttribute(L"points", points.data(), points.size());
    if (type == plChain)
        _TextAttribute(L"type", L"Chain");
    else if (type != plNone)
        _TextAttribute(L"type", L"Polygon");
    elementStack.push_back(esPl);
    if (!textureCoords.empty())
        _TextureCoords(textureCoords);
}

/// A `tex` element with the coordinates as pairs in one list.
void OxaWriter::_TextureCoords(const std::vector<VCoords2D>& coords) {
    numbers.clear();
    for (const VCoords2D& c : coords) {
        numbers.push_back(c.x);
        numbers.push_back(c.y);
    }
    _OpenStartTag(L"tex");
    _DoublesAttribute(L"coords", numbers.data(), numbers.size());
    elementStack.push_back(esTex);
    _Close();
}

void OxaWriter::StartTesselation() {
    _Check(L"StartTesselation", {esPl});
    Attributes attributes;
    _Open(esTess, L"tess", attributes);
}

void OxaWriter::EndTesselation() {
    _End(L"EndTesselation", esTess);
}

void OxaWriter::EndPolyline() {
    _End(L"EndPolyline", esPl);
}

void OxaWriter::StartSolid() {
    _Check(L"StartSolid", {esData3D});
    Attributes attributes;
    _Open(esSolid, L"solid", attributes);
}

void OxaWriter::EndSolid() {
    _End(L"EndSolid", esSolid);
}

void OxaWriter::StartFace() {
    _Check(L"StartFace", {esData3D, esSolid});
    Attributes attributes;
    _Open(esFace, L"face", attributes);
}

void OxaWriter::EndFace() {
    _End(L"EndFace", esFace);
}

/// The 2D vocabulary compares the top of the stack with `object2D` twice: unlike `Point` and
/// `Line`, it is not allowed under `data3D`, and hosts that write 2D drawings rely on that.
void OxaWriter::Arc(int cp, double radius, double a1, double a2, VOptional<double> nvx, VOptional<double> nvy,
                    VOptional<double> nvz) {
    _Check(L"Arc", {esObject2D, esObject2D});
    _CheckAngle(a1, L"a1");
    _CheckAngle(a2, L"a2");
    Attributes attributes;
    attributes.AddLong(L"cp", cp);
    attributes.AddDouble(L"radius", radius);
    attributes.AddDouble(L"a1", a1);
    attributes.AddDouble(L"a2", a2);
    attributes.AddOptionalDouble(L"nvx", nvx);
    attributes.AddOptionalDouble(L"nvy", nvy);
    attributes.AddOptionalDouble(L"nvz", nvz);
    _Single(esA, L"a", attributes);
}

void OxaWriter::Circle(int cp, double radius, VOptional<double> nvx, VOptional<double> nvy,
                       VOptional<double> nvz) {
    _Check(L"Circle", {esObject2D, esObject2D});
    Attributes attributes;
    attributes.AddLong(L"cp", cp);
    attributes.AddDouble(L"radius", radius);
    attributes.AddOptionalDouble(L"nvx", nvx);
    attributes.AddOptionalDouble(L"nvy", nvy);
    attributes.AddOptionalDouble(L"nvz", nvz);
    _Single(esC, L"c", attributes);
}

void OxaWriter::StartText(int p1, VOptional<double> vx, VOptional<double> vy, VOptional<double> vz,
                          const wstring& value, VOptional<int> align, const wstring& font, long size,
                          bool bold, bool italic) {
    _Check(L"StartText", {esObject2D, esObject2D});
    static const wchar_t* const alignments[] = {L"Left", L"Center", L"Right"};
    Attributes attributes;
    attributes.AddLong(L"p1", p1);
    attributes.AddOptionalDouble(L"vx", vx);
    attributes.AddOptionalDouble(L"vy", vy);
    attributes.AddOptionalDouble(L"vz", vz);
    attributes.Add(L"value", value);
    if (!align.IsAbsent() && align.Value() >= 0 && align.Value() <= 2)
        attributes.Add(L"align", alignments[align.Value()]);
    attributes.Add(L"font", font);
    attributes.AddLong(L"size", size);
    attributes.AddBool(L"bold", bold);
    attributes.AddBool(L"italic", italic);
    _Open(esTxt, L"txt", attributes);
}

void OxaWriter::Color(int r, int g, int b, VOptional<double> a) {
    _Check(L"Color", {esTxt});
    WriteColor(esColor, L"color", r, g, b, a);
}

void OxaWriter::EndText() {
    _End(L"EndText", esTxt);
}

void OxaWriter::OptOBB(const VCoords3D& ref, const VCoords3D& vx, const VCoords3D& vy, const VCoords3D& vz) {
    _Check(L"OptOBB", {esData3D});
    Attributes attributes;
    attributes.AddTriple(L"ref", ref);
    attributes.AddTriple(L"vx", vx);
    attributes.AddTriple(L"vy", vy);
    attributes.AddTriple(L"vz", vz);
    _Single(esOptOBB, L"optOBB", attributes);
}

// ----------------------------------------------------------------------------------------------
// Topology

void OxaWriter::StartTopologySection() {
    _VersionedSection(L"StartTopologySection", esTopologySection, L"topologySection", L"1.3");
}

void OxaWriter::EndTopologySection() {
    _End(L"EndTopologySection", esTopologySection);
}

void OxaWriter::_RelationList(const wchar_t* word, int state, const wchar_t* name, VOptional<double> eps,
                              const wstring& unit, VOptional<bool> sym) {
    _Check(word, {esTopologySection});
    Attributes attributes;
    attributes.AddOptionalDouble(L"eps", eps);
    attributes.AddIfNotEmpty(L"unit", unit);
    if (!sym.IsAbsent() && !sym.Value())
        attributes.AddBool(L"sym", false);
    _Open(state, name, attributes);
}

void OxaWriter::_PairRelation(const wchar_t* word, int parent, int state, const wchar_t* name,
                              const wstring& left, const wstring& right) {
    _Check(word, {parent});
    Attributes attributes;
    attributes.Add(L"L", MapID(left, false));
    attributes.Add(L"R", MapID(right, false));
    _Single(state, name, attributes);
}

void OxaWriter::StartContacts(VOptional<double> eps, const wstring& unit, VOptional<bool> sym) {
    _RelationList(L"StartContacts", esContacts, L"contacts", eps, unit, sym);
}

void OxaWriter::Contact(const wstring& left, const wstring& right) {
    _PairRelation(L"Contact", esContacts, esContact, L"contact", left, right);
}

void OxaWriter::EndContacts() {
    _End(L"EndContacts", esContacts);
}

void OxaWriter::StartIntersections(VOptional<double> eps, const wstring& unit, VOptional<bool> sym) {
    _RelationList(L"StartIntersections", esIntersections, L"intersections", eps, unit, sym);
}

void OxaWriter::Intersection(const wstring& left, const wstring& right) {
    _PairRelation(L"Intersection", esIntersections, esIsect, L"isect", left, right);
}

void OxaWriter::EndIntersections() {
    _End(L"EndIntersections", esIntersections);
}

void OxaWriter::StartHRefs(const wstring& unit) {
    _Check(L"StartHRefs", {esTopologySection});
    Attributes attributes;
    attributes.Add(L"unit", unit);
    _Open(esHRefs, L"hRefs", attributes);
}

void OxaWriter::HRef(const wstring& id, double z) {
    _Check(L"HRef", {esHRefs});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddDouble(L"z", z);
    _Single(esHRef, L"hRef", attributes);
}

void OxaWriter::HRefRel(const wstring& refID, const wstring& hRefL, const wstring& hRefU) {
    _Check(L"HRefRel", {esHRefs});
    Attributes attributes;
    attributes.Add(L"refID", MapID(refID, false));
    attributes.AddIfNotEmpty(L"hRefL", MapID(hRefL, true));
    attributes.AddIfNotEmpty(L"hRefU", MapID(hRefU, true));
    _Single(esHRefRel, L"hRefRel", attributes);
}

void OxaWriter::EndHRefs() {
    _End(L"EndHRefs", esHRefs);
}

// ----------------------------------------------------------------------------------------------
// Visualisation

void OxaWriter::StartVisualisationSection() {
    _VersionedSection(L"StartVisualisationSection", esVisualisationSection, L"visualisationSection", L"1.4");
}

void OxaWriter::EndVisualisationSection() {
    _End(L"EndVisualisationSection", esVisualisationSection);
}

void OxaWriter::StartViewContainer(const wstring& id, const wstring& name) {
    _IDName(L"StartViewContainer", {esVisualisationSection, esViewContainer}, esViewContainer,
            L"viewContainer", id, name, false);
}

void OxaWriter::EndViewContainer() {
    _End(L"EndViewContainer", esViewContainer);
}

void OxaWriter::StartView(const wstring& id, const wstring& name, VOptional<bool> current,
                          const wstring& thumbnailFile, const unsigned char* imageData, long imageSize) {
    _Check(L"StartView", {esViewContainer});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", name);
    attributes.AddOptionalBool(L"current", current);
    attributes.AddIfNotEmpty(L"thumbnail", thumbnailFile);
    _Open(esView, L"view", attributes);
    if (imageData && imageSize > 0) {
        Attributes none;
        _Open(esThumbnail, L"thumbnail", none);
        Data(imageData, imageSize, true);
        _Close();
    }
}

void OxaWriter::EndView() {
    _End(L"EndView", esView);
}

void OxaWriter::Camera(const VCoords3D& eye, const VCoords3D& lookAt, const VCoords3D& up, double nearPlane,
                       double farPlane, double viewAngle, double aspectRatio, int projectionType,
                       double expOrthoWidth, double expOrthoHeight, double orthoWidth, double orthoHeight,
                       const VCoords3D& savedEye, const VCoords3D& savedLookAt) {
    _Check(L"Camera", {esView});
    _CheckAngle(viewAngle, L"viewAngle");
    const bool orthographic = projectionType == 1;
    Attributes attributes;
    attributes.AddTriple(L"eye", eye);
    attributes.AddTriple(L"lookat", lookAt);
    attributes.AddTriple(L"up", up);
    attributes.AddDouble(L"nearPlane", nearPlane);
    attributes.AddDouble(L"farPlane", farPlane);
    attributes.AddDouble(L"viewAngle", viewAngle);
    attributes.AddDouble(L"aspectRatio", aspectRatio);
    attributes.Add(L"projType", orthographic ? L"orthographic" : L"perspective");
    if (orthographic) {
        attributes.AddDouble(L"expOrthoWidth", expOrthoWidth);
        attributes.AddDouble(L"expOrthoHeight", expOrthoHeight);
        attributes.AddDouble(L"orthoWidth", orthoWidth);
        attributes.AddDouble(L"orthoHeight", orthoHeight);
        attributes.AddTriple(L"savedEye", savedEye);
        attributes.AddTriple(L"savedLookat", savedLookAt);
    }
    _Single(esCamera, L"camera", attributes);
}

void OxaWriter::StartLight(int nr, const wstring& name, VOptional<bool> off) {
    _Check(L"StartLight", {esView});
    Attributes attributes;
    attributes.AddLong(L"nr", nr);
    attributes.AddIfNotEmpty(L"name", name);
    attributes.AddOptionalBool(L"off", off);
    _Open(esLight, L"light", attributes);
}

void OxaWriter::EndLight() {
    _End(L"EndLight", esLight);
}

void OxaWriter::Diff(int r, int g, int b, VOptional<double> a) {
    _Check(L"Diff", {esLight});
    WriteColor(esDiff, L"diff", r, g, b, a);
}

void OxaWriter::Spec(int r, int g, int b, VOptional<double> a) {
    _Check(L"Spec", {esLight});
    WriteColor(esSpec, L"spec", r, g, b, a);
}

void OxaWriter::Amb(int r, int g, int b, VOptional<double> a) {
    _Check(L"Amb", {esLight});
    WriteColor(esAmb, L"amb", r, g, b, a);
}

void OxaWriter::Spot(const VCoords3D& position, const VCoords3D& direction, double cutoff) {
    _Check(L"Spot", {esLight});
    _CheckAngle(cutoff, L"cutoff");
    Attributes attributes;
    attributes.AddTriple(L"pos", position);
    attributes.AddTriple(L"dir", direction);
    attributes.AddDouble(L"cutoff", cutoff);
    _Single(esSpot, L"spot", attributes);
}

void OxaWriter::Positional(const VCoords3D& position) {
    _Check(L"Positional", {esLight});
    Attributes attributes;
    attributes.AddTriple(L"pos", position);
    _Single(esPositional, L"positional", attributes);
}

void OxaWriter::Directional(const VCoords3D& direction) {
    _Check(L"Directional", {esLight});
    Attributes attributes;
    attributes.AddTriple(L"dir", direction);
    _Single(esDirectional, L"directional", attributes);
}

void OxaWriter::BgColor(int r, int g, int b, VOptional<double> a) {
    _Check(L"BgColor", {esView});
    WriteColor(esBgColor, L"bgColor", r, g, b, a);
}

void OxaWriter::ClpPlane(const VCoords3D& normal, double distance, VOptional<bool> off) {
    _Check(L"ClpPlane", {esView});
    Attributes attributes;
    attributes.AddTriple(L"n", normal);
    attributes.AddDouble(L"d", distance);
    attributes.AddOptionalBool(L"off", off);
    _Single(esClpPlane, L"clpPlane", attributes);
}

// ----------------------------------------------------------------------------------------------
// Properties

void OxaWriter::StartPropertySection() {
    _Check(L"StartPropertySection", {esObjectSection, esFitSection, esActivitySection});
    Attributes attributes;
    attributes.Add(L"version", L"1.5");
    _Open(esPropertySection, L"propertySection", attributes);
}

void OxaWriter::EndPropertySection() {
    _End(L"EndPropertySection", esPropertySection);
}

void OxaWriter::Property(const wstring& refID, const wstring& name, const wstring& datatype,
                         const wstring& value, const wstring& unit) {
    _Check(L"Property", {esPropertySection});
    Attributes attributes;
    attributes.Add(L"refID", MapID(refID, false));
    attributes.Add(L"name", name);
    attributes.Add(L"datatype", datatype);
    attributes.AddIfNotEmpty(L"unit", unit);
    const wstring text = datatype == L"xs:IDREF" ? MapID(value, false) : value;
    _Single(esProperty, L"property", attributes, text.c_str());
}

// ----------------------------------------------------------------------------------------------
// Quantities

void OxaWriter::StartFitSection() {
    _VersionedSection(L"StartFitSection", esFitSection, L"fitSection", L"1.4");
}

void OxaWriter::EndFitSection() {
    _End(L"EndFitSection", esFitSection);
}

void OxaWriter::StartItems() {
    _Check(L"StartItems", {esFitSection});
    Attributes attributes;
    _Open(esItems, L"items", attributes);
}

void OxaWriter::StartItem(const wstring& id, const wstring& key, const wstring& matchKey, const wstring& name,
                          const wstring& desc) {
    _Check(L"StartItem", {esItems, esItem});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"key", key);
    attributes.AddIfNotEmpty(L"matchKey", matchKey);
    attributes.AddIfNotEmpty(L"name", name);
    attributes.AddIfNotEmpty(L"desc", desc);
    _Open(esItem, L"item", attributes);
}

void OxaWriter::EndItem() {
    _End(L"EndItem", esItem);
}

void OxaWriter::EndItems() {
    _End(L"EndItems", esItems);
}

void OxaWriter::StartQto() {
    _Check(L"StartQto", {esFitSection});
    Attributes attributes;
    _Open(esQto, L"qto", attributes);
}

void OxaWriter::StartItemData(const wstring& refID, const wstring& desc) {
    _Check(L"StartItemData", {esQto});
    Attributes attributes;
    attributes.Add(L"refID", MapID(refID, false));
    attributes.AddIfNotEmpty(L"desc", desc);
    _Open(esItemData, L"itemData", attributes);
}

void OxaWriter::EndItemData() {
    _End(L"EndItemData", esItemData);
}

void OxaWriter::StartFormula(bool orig, bool qto, const wstring& text, const wstring& var) {
    _Check(L"StartFormula", {esItemData});
    Attributes attributes;
    attributes.AddBool(L"orig", orig);
    attributes.AddBool(L"qto", qto);
    attributes.AddIfNotEmpty(L"text", text);
    attributes.AddIfNotEmpty(L"var", var);
    _Open(esFormula, L"formula", attributes);
}

void OxaWriter::EndFormula() {
    _End(L"EndFormula", esFormula);
}

void OxaWriter::Result(const wstring& refID, VOptional<double> value, const wstring& text, long quality,
                       const wstring& geometry) {
    _Check(L"Result", {esFormula});
    Attributes attributes;
    attributes.Add(L"refID", MapID(refID, false));
    attributes.AddOptionalDouble(L"value", value);
    if (quality > 0)
        attributes.AddLong(L"quality", quality);
    attributes.AddIfNotEmpty(L"geometry", geometry);
    _Single(esResult, L"result", attributes, text.c_str());
}

void OxaWriter::EndQto() {
    _End(L"EndQto", esQto);
}

// ----------------------------------------------------------------------------------------------
// Units and currencies

void OxaWriter::StartUnitSection(const wstring& defaultUnitLength, const wstring& defaultUnitWeight,
                                 const wstring& defaultUnitTime) {
    _Check(L"StartUnitSection", {esObjects});
    Attributes attributes;
    attributes.Add(L"version", L"1.4");
    attributes.AddIfNotEmpty(L"defaultUnitLength", defaultUnitLength);
    attributes.AddIfNotEmpty(L"defaultUnitWeight", defaultUnitWeight);
    attributes.AddIfNotEmpty(L"defaultUnitTime", defaultUnitTime);
    _Open(esUnitSection, L"unitSection", attributes);
}

void OxaWriter::Unit(const wstring& name, int dim, int roundMode, VOptional<long> digits, int digitsMode,
                     const wstring& baseUnit, const wstring& linearBaseUnit, VOptional<double> convFactor,
                     const wstring& desc) {
    static const wchar_t* const roundModes[] = {L"up", L"down"};
    static const wchar_t* const digitsModes[] = {nullptr, L"decimal", L"significant", L"integer"};
    _Check(L"Unit", {esUnitSection});
    if (name.empty())
        _Fail(valueError, L"value for name not allowed");
    if (dim < 0 || dim > 3)
        _Fail(valueError, L"value for dim not allowed");
    if (roundMode < rmUp || roundMode > rmNone)
        _Fail(valueError, L"value for round mode not allowed");
    if (digitsMode < dmNone || digitsMode > dmInteger)
        _Fail(valueError, L"value for digits mode not allowed");
    if (digits.IsAbsent() != (digitsMode == dmNone))
        _Fail(valueError, L"digits and digitsMode do not match");
    Attributes attributes;
    attributes.AddLong(L"dim", dim);
    if (roundMode != rmNone)
        attributes.Add(L"roundMode", roundModes[roundMode]);
    attributes.AddOptionalLong(L"digits", digits);
    if (digitsMode != dmNone)
        attributes.Add(L"digitsMode", digitsModes[digitsMode]);
    attributes.AddIfNotEmpty(L"baseUnit", baseUnit);
    attributes.AddIfNotEmpty(L"linearBaseUnit", linearBaseUnit);
    attributes.AddOptionalDouble(L"convFactor", convFactor);
    attributes.AddIfNotEmpty(L"desc", desc);
    _Single(esUnit, L"unit", attributes, name.c_str());
}

void OxaWriter::EndUnitSection() {
    _End(L"EndUnitSection", esUnitSection);
}

void OxaWriter::StartCurrencySection() {
    _VersionedSection(L"StartCurrencySection", esCurrencySection, L"currencySection", L"1.3");
}

void OxaWriter::BaseCurr(const wstring& name, const wstring& desc, VOptional<long> digits) {
    _Check(L"BaseCurr", {esCurrencySection});
    if (name.empty())
        _Fail(valueError, L"value for name not allowed");
    Attributes attributes;
    attributes.AddIfNotEmpty(L"desc", desc);
    attributes.AddOptionalLong(L"digits", digits);
    _Single(esBaseCurr, L"baseCurr", attributes, name.c_str());
}

void OxaWriter::Curr(const wstring& name, const wstring& desc, VOptional<long> digits,
                     VOptional<double> rate) {
    _Check(L"Curr", {esCurrencySection});
    if (name.empty())
        _Fail(valueError, L"value for name not allowed");
    Attributes attributes;
    attributes.AddIfNotEmpty(L"desc", desc);
    attributes.AddOptionalLong(L"digits", digits);
    attributes.AddOptionalDouble(L"rate", rate);
    _Single(esCurr, L"curr", attributes, name.c_str());
}

void OxaWriter::EndCurrencySection() {
    _End(L"EndCurrencySection", esCurrencySection);
}

// ----------------------------------------------------------------------------------------------
// Building structure

void OxaWriter::StartBsSection() {
    _VersionedSection(L"StartBsSection", esBsSection, L"bsSection", L"1.4");
}

void OxaWriter::StartBsTypes() {
    _Check(L"StartBsTypes", {esBsSection});
    Attributes attributes;
    _Open(esBsTypes, L"bsTypes", attributes);
}

void OxaWriter::StartBsType(const wstring& id, const wstring& name, int type) {
    static const wchar_t* const typeNames[] = {L"Building_Structure",
                                               L"Civil_Engineering",
                                               L"Building_Construction",
                                               L"Tunnelling",
                                               L"Building",
                                               L"Building_Part",
                                               L"Level",
                                               L"Room",
                                               L"Partial_Room",
                                               L"Item_Level1",
                                               L"Item_Level2",
                                               L"Item_Level3",
                                               L"Item_Level4",
                                               L"Item_Level5",
                                               L"Item_Level6",
                                               L"Item_Level7",
                                               L"Item_Level8",
                                               L"Item_Level9",
                                               L"Item_Level10",
                                               L"Item_Level11",
                                               L"Item_Level12",
                                               L"Item_LevelX"};
    constexpr int typeCount = int(sizeof typeNames / sizeof typeNames[0]);
    _Check(L"StartBsType", {esBsTypes, esBsType});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", name);
    attributes.Add(L"type", type >= 0 && type < typeCount ? typeNames[type] : L"");
    _Open(esBsType, L"bsType", attributes);
}

void OxaWriter::EndBsType() {
    _End(L"EndBsType", esBsType);
}

void OxaWriter::EndBsTypes() {
    _End(L"EndBsTypes", esBsTypes);
}

void OxaWriter::StartBsItem(const wstring& id, const wstring& name, const wstring& typeID,
                            const wstring& refID) {
    _Check(L"StartBsItem", {esBsSection, esBsItem});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", name);
    attributes.AddIfNotEmpty(L"typeID", MapID(typeID, false));
    attributes.AddIfNotEmpty(L"refID", MapID(refID, false));
    _Open(esBsItem, L"bsItem", attributes);
}

void OxaWriter::BsSet(const wstring& refID) {
    _Check(L"BsSet", {esBsItem});
    Attributes attributes;
    attributes.Add(L"refID", MapID(refID, false));
    _Single(esBsSet, L"bsSet", attributes);
}

void OxaWriter::EndBsItem() {
    _End(L"EndBsItem", esBsItem);
}

void OxaWriter::EndBsSection() {
    _End(L"EndBsSection", esBsSection);
}

// ----------------------------------------------------------------------------------------------
// Sets

/// Besides the four sections, the codes 83 and 85 count as allowed parents although they name
/// no element; the set of parents is kept as writers of this format have always checked it.
void OxaWriter::StartSetSection() {
    _Check(L"StartSetSection", {esActivitySection, esBsSection, 83, esLoggingSection, 85, esObjectSection});
    Attributes attributes;
    attributes.Add(L"version", L"1.4");
    _Open(esSetSection, L"setSection", attributes);
}

/// An object set may stand only directly in a set section, while a smart set may also stand in
/// a set container: documents keep object sets flat, and readers find them there.
void OxaWriter::ObjectSet(const wstring& id, const wstring& name, const wstring& contentType,
                          const std::set<wstring>& memberIDs) {
    _Check(L"ObjectSet", {esSetSection});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", name);
    attributes.Add(L"ctype", contentType);
    wstring members;
    for (const wstring& member : memberIDs) {
        if (!members.empty())
            members += L' ';
        members += MapID(member, false);
    }
    _Single(esSet, L"set", attributes, members.c_str());
}

void OxaWriter::StartSetContainer(const wstring& id, const wstring& name) {
    _IDName(L"StartSetContainer", {esSetSection, esSetContainer}, esSetContainer, L"setContainer", id, name,
            false);
}

void OxaWriter::SmartSet(const wstring& id, const wstring& name, const wstring& contentType,
                         const wstring& rule) {
    _Check(L"SmartSet", {esSetSection, esSetContainer});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", name);
    attributes.Add(L"type", L"1");
    attributes.Add(L"ctype", contentType);
    _Single(esSet, L"set", attributes, rule.c_str());
}

void OxaWriter::EndSetContainer() {
    _End(L"EndSetContainer", esSetContainer);
}

void OxaWriter::EndSetSection() {
    _End(L"EndSetSection", esSetSection);
}

// ----------------------------------------------------------------------------------------------
// Activities

void OxaWriter::StartActivitySection() {
    _VersionedSection(L"StartActivitySection", esActivitySection, L"activitySection", L"1.4");
}

void OxaWriter::StartSchedule(const wstring& id, const wstring& name, const wstring& ref, long duration,
                              const wstring& desc) {
    _Check(L"StartSchedule", {esActivitySection});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", name);
    attributes.AddIfNotEmpty(L"ref", ref);
    if (duration != -1)
        attributes.AddLong(L"duration", duration);
    _Open(esSchedule, L"schedule", attributes);
    if (!desc.empty()) {
        // Opened and closed in one step: nothing is pushed for it.
        Attributes none;
        StartElement(L"desc", none.Get());
        Characters(desc.c_str());
        EndElement();
    }
}

void OxaWriter::EndSchedule() {
    _End(L"EndSchedule", esSchedule);
}

void OxaWriter::_Activity(const wstring& id, const wstring& name, const wstring& wbs, long duration,
                          const wstring& refID, const wstring* visType) {
    // Both activity operations report under the word "Schedule".
    _Check(L"Schedule", {esSchedule, esActivity});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.Add(L"refID", MapID(refID, false));
    attributes.AddIfNotEmpty(L"name", name);
    attributes.AddIfNotEmpty(L"wbs", wbs);
    if (duration != -1)
        attributes.AddLong(L"duration", duration);
    if (visType)
        attributes.AddIfNotEmpty(L"visType", *visType);
    _Open(esActivity, L"activity", attributes);
}

void OxaWriter::StartActivityVis(const wstring& id, const wstring& name, const wstring& wbs, long duration,
                                 const wstring& refID, const wstring& visType) {
    _Activity(id, name, wbs, duration, refID, &visType);
}

void OxaWriter::StartActivity(const wstring& id, const wstring& name, const wstring& wbs, long duration,
                              const wstring& refID) {
    _Activity(id, name, wbs, duration, refID, nullptr);
}

void OxaWriter::EndActivity() {
    _End(L"EndActivity", esActivity);
}

void OxaWriter::_Date(const wchar_t* name, int year, int month, int day, int hour, int minute, int second) {
    // `start` and `end` share the word "Start" in their message, and neither is pushed.
    _Check(L"Start", {esSchedule, esActivity});
    Attributes attributes;
    attributes.Add(L"date", tavxmln::XMLConvertDate2Text(year, month, day));
    attributes.Add(L"time", tavxmln::XMLConvertTime2Text(hour, minute, second));
    StartElement(name, attributes.Get());
    EndElement();
}

void OxaWriter::Start(int year, int month, int day, int hour, int minute, int second) {
    _Date(L"start", year, month, day, hour, minute, second);
}

void OxaWriter::End(int year, int month, int day, int hour, int minute, int second) {
    _Date(L"end", year, month, day, hour, minute, second);
}

void OxaWriter::EndActivitySection() {
    _End(L"EndActivitySection", esActivitySection);
}

// ----------------------------------------------------------------------------------------------
// Logging: every operation here fails on an empty stack, Start operations included.

void OxaWriter::StartLoggingSection() {
    _CheckStrict(L"StartLoggingSection", {esObjects});
    Attributes attributes;
    attributes.Add(L"version", L"1.4");
    _Open(esLoggingSection, L"loggingSection", attributes);
}

void OxaWriter::EndLoggingSection() {
    _End(L"EndLoggingSection", esLoggingSection);
}

void OxaWriter::StartLevelDef() {
    _CheckStrict(L"StartLevelDef", {esLoggingSection});
    Attributes attributes;
    _Open(esLevelDef, L"levelDef", attributes);
}

void OxaWriter::Level(const wstring& id, const wstring& name) {
    _CheckStrict(L"Level", {esLevelDef});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.AddIfNotEmpty(L"name", name);
    StartElement(L"level", attributes.Get());
    EndElement();
}

void OxaWriter::EndLevelDef() {
    _End(L"EndLevelDef", esLevelDef);
}

void OxaWriter::StartMsgGrp(const wstring& id, const wstring& description) {
    _CheckStrict(L"StartMsgGrp", {esLoggingSection});
    Attributes attributes;
    attributes.Add(L"ID", MapID(id, false));
    attributes.Add(L"description", description);
    _Open(esMsgGrp, L"msgGrp", attributes);
}

void OxaWriter::EndMsgGrp() {
    _End(L"EndMsgGrp", esMsgGrp);
}

void OxaWriter::StartMsgInfo(int type, const wstring& module, int year, int month, int day, int hour,
                             int minute, int second, const wstring& levelRefID) {
    static const wchar_t* const typeNames[] = {L"Info", L"Warning", L"Error", L"Summary", L"Debug", L"Fatal"};
    _CheckStrict(L"StartMsgInfo", {esMsgGrp});
    if (type < mtInfo || type > mtFatal)
        _Fail(stateError, L"MsgInfo: unknown type");
    Attributes attributes;
    attributes.Add(L"type", typeNames[type - mtInfo]);
    attributes.Add(L"module", module);
    attributes.Add(L"timeStamp", tavxmln::XMLConvertDateTime2Text(year, month, day, hour, minute, second));
    attributes.AddIfNotEmpty(L"levelRefID", MapID(levelRefID, false));
    _Open(esMsgInfo, L"msgInfo", attributes);
}

void OxaWriter::MsgTxt(const wstring& text) {
    _CheckStrict(L"MsgTxt", {esMsgInfo});
    Attributes none;
    StartElement(L"msgTxt", none.Get());
    Characters(text.c_str());
    EndElement();
}

void OxaWriter::MsgSet(const wstring& refID) {
    _CheckStrict(L"MsgSet", {esMsgInfo});
    Attributes attributes;
    attributes.Add(L"refID", MapID(refID, false));
    StartElement(L"msgSet", attributes.Get());
    EndElement();
}

void OxaWriter::EndMsgInfo() {
    _End(L"EndMsgInfo", esMsgInfo);
}

// ----------------------------------------------------------------------------------------------
// Colours

void OxaWriter::WriteColor(int state, const wchar_t* name, int r, int g, int b, VOptional<double> a) {
    if (r < 0 || r > 255)
        _Fail(valueError, L"value for r not allowed");
    if (g < 0 || g > 255)
        _Fail(valueError, L"value for g not allowed");
    if (b < 0 || b > 255)
        _Fail(valueError, L"value for b not allowed");
    // Written as a comparison that a NaN passes: an unknown alpha is no range error.
    if (!a.IsAbsent() && (a.Value() < 0.0 || a.Value() > 1.0))
        _Fail(valueError, L"value for a not allowed");
    Attributes attributes;
    attributes.AddLong(L"r", r);
    attributes.AddLong(L"g", g);
    attributes.AddLong(L"b", b);
    attributes.AddOptionalDouble(L"a", a);
    _Single(state, name, attributes);
}

} // namespace oxaIO
