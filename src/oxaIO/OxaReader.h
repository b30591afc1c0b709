#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaTypes.h"
#include "tavxmln/CXMLSaxHandler.h"

#include <deque>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace tavxmln {
class CXMLSaxAttribut;
}

namespace oxaIO {

/// Turns the events of a parse of an exchange document into typed callbacks. It knows the
/// element names, the parent each element may have, the attributes and their conversions and
/// the identifier map of a document; what the document is read for is the business of the
/// derived class, which implements the callbacks.
///
/// Each start tag pushes one element state (0 for an unknown element) and each end tag pops one.
/// A start callback runs only when the state on top of the stack is an allowed parent (an empty
/// stack is allowed everywhere except at `objects`, which needs it); a misplaced element is no
/// error, its callback is just skipped. The reader itself throws nothing; a derived class may
/// stop the parse by throwing `tavxmln::CXMLException` from a callback.
///
/// One object can read several documents in turn: `StartDocument` resets it.
class ZENTRA_EXPORT OxaReader : public tavxmln::CXMLSaxHandler {
public:
    using CXMLSaxAttribut = tavxmln::CXMLSaxAttribut;
    using wstring = std::wstring;

    ~OxaReader() override;

    void StartDocument() override;
    void EndDocument() override;
    void StartElement(const wchar_t* uri, const wchar_t* localName, const wchar_t* qName,
                      CXMLSaxAttribut** attributes) override;
    void EndElement(const wchar_t* uri, const wchar_t* localName, const wchar_t* qName) override;
    void Characters(const wchar_t* text) override;

    /// Splits at runs of any of `separators`; never gives an empty token.
    static std::vector<wstring> Tokenise(const wstring& text, const wstring& separators);
    /// The first three numbers of the text; false (and `coords` untouched) with fewer than three
    /// tokens. A token that is no number gives 0.
    static bool TokeniseCoords3D(const wstring& text, VCoords3D& coords);
    /// Appends every token as a number; a token that is no number gives 0.
    static void TokeniseDoubles(const wstring& text, std::vector<double>& values);

    // Document
    virtual void StartOxaDocument(wstring projectId, wstring sourceApp, wstring sourceFileName,
                                  wstring sourceFormat, wstring created, wstring createdBy, wstring changedBy,
                                  wstring changed, wstring version) = 0;
    virtual void EndOxaDocument() = 0;
    virtual void StartContent() = 0;
    virtual void Section(ESectionType type) = 0;
    virtual void EndContent() = 0;

    // Object and data sections
    virtual void StartObjectSection(wstring unit, wstring version) = 0;
    virtual void EndObjectSection() = 0;
    virtual void StartObjectDataSection(wstring version) = 0;
    virtual void EndObjectDataSection() = 0;

    // Materials
    virtual void StartMaterialSection(wstring version) = 0;
    virtual void EndMaterialSection() = 0;
    virtual void StartMaterial(wstring id, wstring name) = 0;
    virtual void ColorDiff(int r, int g, int b, double a) = 0;
    virtual void ColorSpec(int r, int g, int b, double a) = 0;
    virtual void ColorAmb(int r, int g, int b, double a) = 0;
    virtual void ColorTrans(double value) = 0;
    virtual void TextureFile(wstring fileName) = 0;
    virtual void EndMaterial() = 0;

    // Tree
    virtual void GenericObject(wstring id, wstring name) = 0;
    virtual void StartContainer(wstring id, wstring name, wstring unit, bool composite) = 0;
    virtual void EndContainer() = 0;
    virtual void StartRootContainer(wstring id, wstring name, std::vector<double>& rotation,
                                    std::vector<double>& translation) = 0;
    virtual void EndRootContainer() = 0;
    virtual void StartObject2D(wstring id, wstring materialId, wstring name, bool negative,
                               wstring refId) = 0;
    virtual void EndObject2D() = 0;
    virtual void StartObject3D(wstring id, wstring materialId, wstring name, bool negative,
                               wstring refId) = 0;
    virtual void EndObject3D() = 0;

    // Geometry
    virtual void StartData3D(wstring refId) = 0;
    virtual void EndData3D() = 0;
    virtual void Point(int number, double x, double y, double z) = 0;
    virtual void Line(int p1, int p2) = 0;
    virtual void StartTriangle(int p1, int p2, int p3) = 0;
    virtual void EndTriangle() = 0;
    virtual void TextureCoords(const std::vector<VCoords2D>& coords) = 0;
    virtual void OptOBB(const VCoords3D& reference, const VCoords3D& x, const VCoords3D& y,
                        const VCoords3D& z) = 0;
    virtual void OptOBBxy(const VCoords3D& reference, const VCoords3D& x, const VCoords3D& y,
                          double height) = 0;
    virtual void StartPolyline(const std::vector<int>& points, double thickness, EPolylineType type) = 0;
    virtual void EndPolyline() = 0;
    virtual void StartTessellation() = 0;
    virtual void EndTessellation() = 0;
    virtual void StartSolid() = 0;
    virtual void EndSolid() = 0;
    virtual void StartFace() = 0;
    virtual void EndFace() = 0;

    // Properties
    virtual void StartPropertySection(wstring version) = 0;
    virtual void EndPropertySection() = 0;
    virtual void StartProperty(wstring refId, wstring name, wstring datatype, wstring unit) = 0;
    virtual void ReadPropertyValue(wstring value) = 0;
    virtual void EndProperty() = 0;
    virtual void StartVal() = 0;
    virtual void ReadValValue(wstring value) = 0;
    virtual void EndVal() = 0;

    // Topology
    virtual void StartTopologySection(wstring version) = 0;
    virtual void EndTopologySection() = 0;

    // Visualisation
    virtual void StartVisualisationSection(wstring version) = 0;
    virtual void EndVisualisationSection() = 0;
    virtual void StartViewContainer(wstring id, wstring name) = 0;
    virtual void EndViewContainer() = 0;
    virtual void StartView(wstring id, wstring name, bool current, wstring thumbnail) = 0;
    virtual void EndView() = 0;
    virtual void ViewBackGround(int r, int g, int b) = 0;
    virtual void ViewClippingPlane(double distance, VCoords3D& normal, bool off) = 0;
    /// The decoded `thumbnail` bytes. A callee that keeps them takes `data` and sets it to null;
    /// whatever is left in `data` is freed by the reader.
    virtual void ReadThumbnailData(unsigned char*& data, unsigned int& size) = 0;
    /// `projectionType` is 1 for "orthographic", 0 otherwise; the ortho sizes and saved points
    /// are 0 where the document leaves them out.
    virtual void ViewCamera(VCoords3D& eye, VCoords3D& lookAt, VCoords3D& up, double nearPlane,
                            double farPlane, double viewAngle, double aspectRatio, int projectionType,
                            double expOrthoWidth, double expOrthoHeight, double orthoWidth,
                            double orthoHeight, VCoords3D& savedEye, VCoords3D& savedLookAt) = 0;
    virtual void StartLight(int number, wstring name, bool off) = 0;
    virtual void SpotLight(const VCoords3D& position, const VCoords3D& direction, double cutoff) = 0;
    virtual void PositionalLight(const VCoords3D& position) = 0;
    virtual void DirectionalLight(const VCoords3D& direction) = 0;
    virtual void EndLight() = 0;

    // Relations
    virtual void StartContacts(double eps, wstring unit, bool symmetric) = 0;
    virtual void Contact(wstring& left, wstring& right) = 0;
    /// Never called by the reader: the end of `contacts` makes no callback.
    virtual void EndContacts() = 0;
    virtual void StartIntersections(double eps, wstring unit, bool symmetric) = 0;
    virtual void Intersection(wstring& left, wstring& right) = 0;
    /// Never called by the reader: the end of `intersections` makes no callback.
    virtual void EndIntersections() = 0;
    virtual void StartHRefs(wstring unit) = 0;
    /// Never called by the reader: the end of `hRefs` makes no callback.
    virtual void EndHRefs() = 0;
    virtual void HRef(wstring id, double z) = 0;
    virtual void HRefRel(wstring refId, wstring lower, wstring upper) = 0;

    // Quantities
    virtual void StartFitSection(wstring version) = 0;
    virtual void EndFitSection() = 0;
    virtual void StartItem(wstring id, wstring key, wstring matchKey, wstring name, wstring description) = 0;
    virtual void EndItem() = 0;
    virtual void StartItemData(wstring refId, wstring description) = 0;
    virtual void EndItemData() = 0;
    virtual void StartFormula(bool original, bool quantity, wstring text, wstring variable) = 0;
    virtual void EndFormula() = 0;
    /// `value` is NaN when the document gives none.
    virtual void StartResult(wstring refId, wstring datatype, double value, int quality,
                             wstring geometry) = 0;
    virtual void ReadResultDetail(wstring text) = 0;
    virtual void EndResult() = 0;

    // Units
    virtual void StartUnitSection(wstring version, wstring defaultUnitLength, wstring defaultUnitWeight,
                                  wstring defaultUnitTime) = 0;
    virtual void Unit(unsigned int dimension, ERoundMode roundMode, Nullable<unsigned int> digits,
                      EDigitsMode digitsMode, wstring baseUnit, wstring linearBaseUnit,
                      Nullable<double> convFactor, wstring description) = 0;
    virtual void ReadUnitName(wstring name) = 0;
    virtual void EndUnitSection() = 0;

    // Sets
    virtual void StartSetSection(wstring version) = 0;
    virtual void EndSetSection() = 0;
    virtual void StartSetContainer(wstring id, wstring name) = 0;
    virtual void EndSetContainer() = 0;
    virtual void StartObjectSet(wstring id, wstring name, wstring contentType) = 0;
    virtual void StartSmartSet(wstring id, wstring name, wstring contentType) = 0;
    virtual void EndSet() = 0;
    virtual void ObjectSetAddElement(wstring id) = 0;
    virtual void SmartSetPredicate(wstring predicate) = 0;

    // Activities; a duration the document leaves out is -1, a missing date or time gives zeros.
    virtual void StartActivitySection(wstring version) = 0;
    virtual void EndActivitySection() = 0;
    virtual void StartSchedule(wstring id, wstring name, wstring reference, int duration) = 0;
    virtual void ReadDesc(wstring description) = 0;
    virtual void EndSchedule() = 0;
    virtual void StartActivity(wstring id, wstring name, wstring wbs, int duration, wstring visType,
                               wstring refId) = 0;
    virtual void EndActivity() = 0;
    virtual void StartStart(int year, int month, int day, int hour, int minute, int second) = 0;
    virtual void EndStart() = 0;
    virtual void StartEnd(int year, int month, int day, int hour, int minute, int second) = 0;
    virtual void EndEnd() = 0;

    // Logging
    virtual void StartLoggingSection(wstring version) = 0;
    virtual void EndLoggingSection() = 0;
    virtual void StartLevelDef() = 0;
    /// Never called by the reader, which does not know the `level` element.
    virtual void Level(wstring id, wstring name) = 0;
    virtual void EndLevelDef() = 0;
    virtual void StartMsgGrp(wstring id, wstring description) = 0;
    virtual void EndMsgGrp() = 0;
    virtual void StartMsgInfo(EMsgTypes type, wstring module, int year, int month, int day, int hour,
                              int minute, int second, wstring levelRefId) = 0;
    virtual void MsgTxt(wstring text) = 0;
    virtual void MsgSet(wstring refId) = 0;
    virtual void EndMsgInfo() = 0;

    // The reader's own operations, which a derived class may refine.
    virtual void SetFaceShape(EFaceShape shape);
    /// The in-memory identifier of a document identifier. With an empty map, `id` itself.
    /// Otherwise the mapped value; a missing key is added with an empty value (the map grows by
    /// lookups, which `GetMappedObjectID("")` then finds), and an empty value gives `id`.
    virtual wstring GetObjectID(const wstring& id);
    /// The reverse: the first key, in key order, whose value is `id`; `id` itself if none or if
    /// the map is empty.
    virtual wstring GetMappedObjectID(const wstring& id);
    /// Channels "r", "g", "b" (0 when missing or bad) and "a" (-1.0 when missing or bad).
    virtual void ReadColor(CXMLSaxAttribut** attributes, int& r, int& g, int& b, double& a);
    /// The section number of a section name, 0 for an unknown name.
    virtual ESectionType GetSectionType(const wstring& name);
    virtual void ReadIdNameUnit(CXMLSaxAttribut** attributes, wstring& id, wstring& name, wstring& unit);
    virtual void ReadCompositAttribute(CXMLSaxAttribut** attributes, bool& composite);
    virtual void ReadRotTrans(CXMLSaxAttribut** attributes, std::vector<double>& rotation,
                              std::vector<double>& translation);
    virtual void ReadObjectBaseAttributes(CXMLSaxAttribut** attributes, wstring& id, wstring& materialId,
                                          wstring& name, bool& negative, wstring& refId);
    /// A bad number gives 0.
    virtual void ReadPointAttributes(CXMLSaxAttribut** attributes, int& number, double& x, double& y,
                                     double& z);
    /// A missing or bad vertex number gives -1, which names no point.
    virtual void ReadTriangleAttributes(CXMLSaxAttribut** attributes, int& p1, int& p2, int& p3);
    virtual void ReadPolylineAttributes(CXMLSaxAttribut** attributes, std::vector<int>& points,
                                        double& thickness, EPolylineType& type);
    virtual void ReadOptOBBAttributes(CXMLSaxAttribut** attributes, VCoords3D& reference, VCoords3D& x,
                                      VCoords3D& y, VCoords3D& z);
    virtual void ReadOptOBBxyAttributes(CXMLSaxAttribut** attributes, VCoords3D& reference, VCoords3D& x,
                                        VCoords3D& y, double& height);
    virtual void ReadTextureCoords(CXMLSaxAttribut** attributes, std::vector<VCoords2D>& coords);
    virtual void ReadViewAttributes(CXMLSaxAttribut** attributes, wstring& id, wstring& name, bool& current,
                                    wstring& thumbnail);
    virtual void ReadClippingPlaneAttributes(CXMLSaxAttribut** attributes, double& distance,
                                             VCoords3D& normal, bool& off);
    virtual void ReadCameraAttributes(CXMLSaxAttribut** attributes, VCoords3D& eye, VCoords3D& lookAt,
                                      VCoords3D& up, double& nearPlane, double& farPlane, double& viewAngle,
                                      double& aspectRatio, int& projectionType, double& expOrthoWidth,
                                      double& expOrthoHeight, double& orthoWidth, double& orthoHeight,
                                      VCoords3D& savedEye, VCoords3D& savedLookAt);
    virtual void ReadActivitySection(CXMLSaxAttribut** attributes);
    virtual void ReadSchedule(CXMLSaxAttribut** attributes);
    virtual void ReadActivity(CXMLSaxAttribut** attributes);
    virtual void ReadStart(CXMLSaxAttribut** attributes);
    virtual void ReadEnd(CXMLSaxAttribut** attributes);
    virtual void ReadLoggingSection(CXMLSaxAttribut** attributes);
    virtual void ReadLevelDef(CXMLSaxAttribut** attributes);
    virtual void ReadMsgGrp(CXMLSaxAttribut** attributes);
    virtual void ReadMsgInfo(CXMLSaxAttribut** attributes);
    virtual void ReadMsgSet(CXMLSaxAttribut** attributes);

protected:
    OxaReader();

    const std::map<wstring, wstring>& IdentifierMap() const { return identifierMap; }

private:
    struct ElementRule;
    static const ElementRule* FindRule(const wchar_t* name);
    bool ParentAllowed(const ElementRule& rule) const;
    void StartKnownElement(const ElementRule& rule, CXMLSaxAttribut** attributes);

    std::wstring MappedID(const wchar_t* value);
    void ReadObjects(CXMLSaxAttribut** attributes);
    void ReadContent(CXMLSaxAttribut** attributes);
    void ReadContentSection(CXMLSaxAttribut** attributes);
    void ReadIdMappingEntry(CXMLSaxAttribut** attributes);
    void ReadContainer(CXMLSaxAttribut** attributes);
    void ReadRootContainer(CXMLSaxAttribut** attributes);
    void ReadObject3D(CXMLSaxAttribut** attributes);
    void ReadObject2D(CXMLSaxAttribut** attributes);
    void ReadData3D(CXMLSaxAttribut** attributes);
    void ReadP(CXMLSaxAttribut** attributes);
    void ReadT(CXMLSaxAttribut** attributes);
    void ReadProperty(CXMLSaxAttribut** attributes);
    void ReadVal(CXMLSaxAttribut** attributes);
    void ReadFaceShape(CXMLSaxAttribut** attributes);
    void ReadSetSection(CXMLSaxAttribut** attributes);
    void ReadSetContainer(CXMLSaxAttribut** attributes);
    /// Gives the state to push, or -1 for a `type` other than "0" and "1": such a `set` pushes
    /// nothing, so its end tag pops its parent. Documents in the field rely on this imbalance.
    int ReadSet(CXMLSaxAttribut** attributes);
    void ReadSetContent(const wchar_t* text);
    void ReadMaterial(CXMLSaxAttribut** attributes);
    void ReadTexture(CXMLSaxAttribut** attributes);
    void ReadLine(CXMLSaxAttribut** attributes);
    void ReadPolyline(CXMLSaxAttribut** attributes);
    void ReadGenericObject(CXMLSaxAttribut** attributes);
    void ReadColorElement(CXMLSaxAttribut** attributes, int state);
    void ReadTrans(CXMLSaxAttribut** attributes);
    void ReadOptOBB(CXMLSaxAttribut** attributes);
    void ReadOptOBBxy(CXMLSaxAttribut** attributes);
    void ReadObjectSection(CXMLSaxAttribut** attributes);
    void ReadVersionedSection(CXMLSaxAttribut** attributes, int state);
    void ReadContacts(CXMLSaxAttribut** attributes, int state);
    void ReadPair(CXMLSaxAttribut** attributes, int state);
    void ReadHRefs(CXMLSaxAttribut** attributes);
    void ReadHRef(CXMLSaxAttribut** attributes);
    void ReadHRefRel(CXMLSaxAttribut** attributes);
    void ReadItem(CXMLSaxAttribut** attributes);
    void ReadItemData(CXMLSaxAttribut** attributes);
    void ReadFormula(CXMLSaxAttribut** attributes);
    void ReadResult(CXMLSaxAttribut** attributes);
    void ReadViewContainer(CXMLSaxAttribut** attributes);
    void ReadView(CXMLSaxAttribut** attributes);
    void ReadLight(CXMLSaxAttribut** attributes);
    void ReadLightPlacement(CXMLSaxAttribut** attributes, int state);
    void ReadBackground(CXMLSaxAttribut** attributes);
    void ReadClippingPlane(CXMLSaxAttribut** attributes);
    void ReadCamera(CXMLSaxAttribut** attributes);
    void ReadUnitSection(CXMLSaxAttribut** attributes);
    void ReadUnit(CXMLSaxAttribut** attributes);
    void ReadDateTimeGroup(CXMLSaxAttribut** attributes, int (&fields)[6]);
    void EndCallback(int state);
    /// Enters a key and its value in the reverse index, where the smallest key of a value wins.
    void IndexMappedIdentifier(const wstring& key, const wstring& value);

    std::deque<int> elementStack;
    std::map<wstring, wstring> identifierMap;
    /// The reverse of `identifierMap` (value to its smallest key), so that each reverse lookup
    /// costs no walk of the whole map; rebuilt when an entry is overwritten.
    std::unordered_map<wstring, wstring> mappedIdentifiers;
    bool mappedIdentifiersCurrent = true;
};

} // namespace oxaIO
