#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaTypes.h"
#include "tavxmln/CXMLSaxWriter.h"

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace oxaIO {

/// The emitter of exchange documents: one operation per element of the format. Each operation
/// checks the element stack, so that a caller who breaks the grammar gets a `CXMLException`
/// instead of a bad file: code 6 with "<operation>: not allowed here" for an element in the
/// wrong place, code 7 with "value for <attribute> not allowed" for a value out of its range.
/// Then it maps the identifiers it is given (`MapID`), builds the attributes in the order of
/// the format, leaving out the optional ones that have no value, and hands the element to
/// the XML library.
///
/// Identifiers are passed as the model knows them: after `IDMapping` the emitter writes their
/// numbers itself. Colours are passed as integer channels 0 to 255 with a real alpha.
///
/// Start and single-element operations skip the check of their parent when the stack is empty,
/// so they succeed outside any document; End operations and every operation of the logging
/// section fail on an empty stack. Hosts and tools that write fragments rely on the former.
class ZENTRA_EXPORT OxaWriter : public tavxmln::CXMLSaxWriter {
public:
    using wstring = std::wstring;

    OxaWriter();
    ~OxaWriter() override;

    // Document
    /// Fails with "StartOxaDocument: Document already in progress" when any element is open.
    virtual void StartOxaDocument(const wstring& projectID, const wstring& createdBy,
                                  const wstring& sourceApp, const wstring& sourceFormat, int year, int month,
                                  int day, int hour, int minute, int second);
    /// Needs `objects` on top; fails with "EndOxaDocument: document not finished" when
    /// anything is still open after it.
    virtual void EndOxaDocument();
    virtual void StartContent();
    virtual void EndContent();
    /// Lists a section in the table of contents. `objectDataSection` and `clashSection` are
    /// not listed by this format and fail, like an unknown type, with
    /// "Section: unknown section type".
    virtual void Section(ESectionType type);
    /// Numbers the identifiers from 1 in their sorted order and writes the map; every
    /// identifier written after this call is written as its number. An empty set writes
    /// nothing and leaves identifiers as they are.
    virtual void IDMapping(const std::set<wstring>& ids);

    // Object section
    virtual void StartObjectSection(const wstring& unit);
    virtual void EndObjectSection();
    virtual void StartObjectDataSection();
    virtual void EndObjectDataSection();
    virtual void StartMaterialSection();
    virtual void EndMaterialSection();
    virtual void StartMaterial(const wstring& id, const wstring& name);
    virtual void MaterialDiff(int r, int g, int b, VOptional<double> a);
    virtual void MaterialSpec(int r, int g, int b, VOptional<double> a);
    virtual void MaterialAmb(int r, int g, int b, VOptional<double> a);
    virtual void MaterialTrans(double value);
    virtual void MaterialTexture(const wstring& file);
    virtual void EndMaterial();
    virtual void GenericObject(const wstring& id, const wstring& name);
    /// Always writes the identity rotation and a zero translation.
    virtual void StartRootContainer(const wstring& id, const wstring& name);
    virtual void EndRootContainer();
    virtual void StartContainer(const wstring& id, const wstring& name, const wstring& unit, bool composite);
    virtual void EndContainer();
    virtual void StartObject2D(const wstring& id, const wstring& name, const wstring& matID, bool negative,
                               const wstring& refID);
    virtual void EndObject2D();
    virtual void StartObject3D(const wstring& id, const wstring& name, const wstring& matID, bool negative,
                               const wstring& refID);
    virtual void EndObject3D();
    virtual void StartData3D(const wstring& refID);
    virtual void EndData3D();
    virtual void StartGenericObject(const wstring& id, const wstring& name);
    virtual void EndGenericObject();

    // Geometry
    virtual void Point(int nr, double x, double y, double z);
    virtual void Line(int p1, int p2);
    /// The texture coordinates are written only when there are exactly three.
    virtual void Triangle(int p1, int p2, int p3, const std::vector<VCoords2D>& textureCoords);
    /// Writes the points as given; the caller closes a polygon. Texture coordinates, if any,
    /// follow as a `tex` child.
    virtual void StartPolyline(const std::vector<int>& points, const std::vector<VCoords2D>& textureCoords,
                               EPolylineType type);
    virtual void StartTesselation();
    virtual void EndTesselation();
    virtual void EndPolyline();
    virtual void StartSolid();
    virtual void EndSolid();
    virtual void StartFace();
    virtual void EndFace();
    /// Angles in degrees, each in the closed range 0 to 360.
    virtual void Arc(int cp, double radius, double a1, double a2, VOptional<double> nvx,
                     VOptional<double> nvy, VOptional<double> nvz);
    virtual void Circle(int cp, double radius, VOptional<double> nvx, VOptional<double> nvy,
                        VOptional<double> nvz);
    /// `align` 0, 1, 2 gives "Left", "Center", "Right"; other values leave the attribute out.
    virtual void StartText(int p1, VOptional<double> vx, VOptional<double> vy, VOptional<double> vz,
                           const wstring& value, VOptional<int> align, const wstring& font, long size,
                           bool bold, bool italic);
    virtual void Color(int r, int g, int b, VOptional<double> a);
    virtual void EndText();
    virtual void OptOBB(const VCoords3D& ref, const VCoords3D& vx, const VCoords3D& vy, const VCoords3D& vz);

    // Topology
    virtual void StartTopologySection();
    virtual void EndTopologySection();
    /// `sym` is written only when given and false: a reader takes an absent `sym` as true.
    virtual void StartContacts(VOptional<double> eps, const wstring& unit, VOptional<bool> sym);
    virtual void Contact(const wstring& left, const wstring& right);
    virtual void EndContacts();
    virtual void StartIntersections(VOptional<double> eps, const wstring& unit, VOptional<bool> sym);
    virtual void Intersection(const wstring& left, const wstring& right);
    virtual void EndIntersections();
    virtual void StartHRefs(const wstring& unit);
    virtual void HRef(const wstring& id, double z);
    virtual void HRefRel(const wstring& refID, const wstring& hRefL, const wstring& hRefU);
    virtual void EndHRefs();

    // Visualisation
    virtual void StartVisualisationSection();
    virtual void EndVisualisationSection();
    virtual void StartViewContainer(const wstring& id, const wstring& name);
    virtual void EndViewContainer();
    /// The image bytes, when there are any, become a `thumbnail` child in base64.
    virtual void StartView(const wstring& id, const wstring& name, VOptional<bool> current,
                           const wstring& thumbnailFile, const unsigned char* imageData, long imageSize);
    virtual void EndView();
    /// Projection type 1 is orthographic and adds the ortho sizes and the saved eye and target;
    /// any other type is perspective. `viewAngle` in degrees, 0 to 360.
    virtual void Camera(const VCoords3D& eye, const VCoords3D& lookAt, const VCoords3D& up, double nearPlane,
                        double farPlane, double viewAngle, double aspectRatio, int projectionType,
                        double expOrthoWidth, double expOrthoHeight, double orthoWidth, double orthoHeight,
                        const VCoords3D& savedEye, const VCoords3D& savedLookAt);
    virtual void StartLight(int nr, const wstring& name, VOptional<bool> off);
    virtual void EndLight();
    virtual void Diff(int r, int g, int b, VOptional<double> a);
    virtual void Spec(int r, int g, int b, VOptional<double> a);
    virtual void Amb(int r, int g, int b, VOptional<double> a);
    /// `cutoff` in degrees, 0 to 360.
    virtual void Spot(const VCoords3D& position, const VCoords3D& direction, double cutoff);
    virtual void Positional(const VCoords3D& position);
    virtual void Directional(const VCoords3D& direction);
    virtual void BgColor(int r, int g, int b, VOptional<double> a);
    virtual void ClpPlane(const VCoords3D& normal, double distance, VOptional<bool> off);

    // Properties
    virtual void StartPropertySection();
    virtual void EndPropertySection();
    /// The value goes through the ID map only when `datatype` is "xs:IDREF".
    virtual void Property(const wstring& refID, const wstring& name, const wstring& datatype,
                          const wstring& value, const wstring& unit);

    // Quantities
    virtual void StartFitSection();
    virtual void EndFitSection();
    virtual void StartItems();
    virtual void StartItem(const wstring& id, const wstring& key, const wstring& matchKey,
                           const wstring& name, const wstring& desc);
    virtual void EndItem();
    virtual void EndItems();
    virtual void StartQto();
    virtual void StartItemData(const wstring& refID, const wstring& desc);
    virtual void EndItemData();
    virtual void StartFormula(bool orig, bool qto, const wstring& text, const wstring& var);
    virtual void EndFormula();
    /// A quality of 0 or less is left out; the text is written even when empty.
    virtual void Result(const wstring& refID, VOptional<double> value, const wstring& text, long quality,
                        const wstring& geometry);
    virtual void EndQto();

    // Units and currencies
    virtual void StartUnitSection(const wstring& defaultUnitLength, const wstring& defaultUnitWeight,
                                  const wstring& defaultUnitTime);
    /// `dim` 0 to 3; `roundMode` 0 "up", 1 "down", 2 none; `digitsMode` 0 none, 1 "decimal",
    /// 2 "significant", 3 "integer", and a mode is given exactly when digits are.
    virtual void Unit(const wstring& name, int dim, int roundMode, VOptional<long> digits, int digitsMode,
                      const wstring& baseUnit, const wstring& linearBaseUnit, VOptional<double> convFactor,
                      const wstring& desc);
    virtual void EndUnitSection();
    virtual void StartCurrencySection();
    virtual void BaseCurr(const wstring& name, const wstring& desc, VOptional<long> digits);
    virtual void Curr(const wstring& name, const wstring& desc, VOptional<long> digits,
                      VOptional<double> rate);
    virtual void EndCurrencySection();

    // Building structure
    virtual void StartBsSection();
    virtual void StartBsTypes();
    /// `type` 0 to 21 ("Building_Structure" ... "Item_LevelX"); another value gives an empty
    /// `type`.
    virtual void StartBsType(const wstring& id, const wstring& name, int type);
    virtual void EndBsType();
    virtual void EndBsTypes();
    virtual void StartBsItem(const wstring& id, const wstring& name, const wstring& typeID,
                             const wstring& refID);
    virtual void BsSet(const wstring& refID);
    virtual void EndBsItem();
    virtual void EndBsSection();

    // Sets
    virtual void StartSetSection();
    /// The members, mapped, as the text of the set in the order of their source identifiers.
    virtual void ObjectSet(const wstring& id, const wstring& name, const wstring& contentType,
                           const std::set<wstring>& memberIDs);
    virtual void StartSetContainer(const wstring& id, const wstring& name);
    virtual void SmartSet(const wstring& id, const wstring& name, const wstring& contentType,
                          const wstring& rule);
    virtual void EndSetContainer();
    virtual void EndSetSection();

    // Activities
    virtual void StartActivitySection();
    /// A duration of -1 is left out.
    virtual void StartSchedule(const wstring& id, const wstring& name, const wstring& ref, long duration,
                               const wstring& desc);
    virtual void EndSchedule();
    virtual void StartActivityVis(const wstring& id, const wstring& name, const wstring& wbs, long duration,
                                  const wstring& refID, const wstring& visType);
    virtual void StartActivity(const wstring& id, const wstring& name, const wstring& wbs, long duration,
                               const wstring& refID);
    virtual void EndActivity();
    virtual void Start(int year, int month, int day, int hour, int minute, int second);
    /// Fails with the word "Start" like `Start`: both dates share one message.
    virtual void End(int year, int month, int day, int hour, int minute, int second);
    virtual void EndActivitySection();

    // Logging
    virtual void StartLoggingSection();
    virtual void EndLoggingSection();
    virtual void StartLevelDef();
    virtual void Level(const wstring& id, const wstring& name);
    virtual void EndLevelDef();
    virtual void StartMsgGrp(const wstring& id, const wstring& description);
    virtual void EndMsgGrp();
    /// `type` 1 to 6 ("Info" ... "Fatal"); another value fails with "MsgInfo: unknown type".
    virtual void StartMsgInfo(int type, const wstring& module, int year, int month, int day, int hour,
                              int minute, int second, const wstring& levelRefID);
    virtual void MsgTxt(const wstring& text);
    virtual void MsgSet(const wstring& refID);
    virtual void EndMsgInfo();

    /// Writes a colour element under the given state code and name, with `r`, `g`, `b` and,
    /// unless absent, `a`. A channel outside 0 to 255 fails with "value for r not allowed" (g,
    /// b alike), an alpha outside 0 to 1 with "value for a not allowed"; a NaN alpha passes.
    virtual void WriteColor(int state, const wchar_t* name, int r, int g, int b, VOptional<double> a);

    /// The number of `id` in the ID map, or `id` itself when the map is empty, when `id` is not
    /// in it, or when it is empty and `skipEmpty` is set.
    wstring MapID(const wstring& id, bool skipEmpty) const;

    /// The open elements, innermost last.
    const std::deque<int>& ElementStack() const { return elementStack; }

private:
    class Attributes;

    void _Check(const wchar_t* word, std::initializer_list<int> allowed) const;
    void _CheckStrict(const wchar_t* word, std::initializer_list<int> allowed) const;
    void _Open(int state, const wchar_t* name, Attributes& attributes);
    void _Close();
    /// An element without children: opened, given its text if any, and closed.
    void _Single(int state, const wchar_t* name, Attributes& attributes, const wchar_t* text = nullptr);
    void _End(const wchar_t* word, int state);
    void _TextureCoords(const std::vector<VCoords2D>& coords);
    void _VersionedSection(const wchar_t* word, int state, const wchar_t* name, const wchar_t* version);
    void _IDName(const wchar_t* word, std::initializer_list<int> allowed, int state, const wchar_t* name,
                 const wstring& id, const wstring& displayName, bool single);
    void _ObjectStart(const wchar_t* word, int state, const wchar_t* name, const wstring& id,
                      const wstring& displayName, const wstring& matID, bool negative, const wstring& refID);
    void _PairRelation(const wchar_t* word, int parent, int state, const wchar_t* name, const wstring& left,
                       const wstring& right);
    void _RelationList(const wchar_t* word, int state, const wchar_t* name, VOptional<double> eps,
                       const wstring& unit, VOptional<bool> sym);
    void _Activity(const wstring& id, const wstring& name, const wstring& wbs, long duration,
                   const wstring& refID, const wstring* visType);
    void _Date(const wchar_t* name, int year, int month, int day, int hour, int minute, int second);
    static void _CheckAngle(double value, const wchar_t* attribute);
    [[noreturn]] static void _Fail(int code, const wstring& text);

    std::deque<int> elementStack;
    std::map<wstring, wstring> idMap;
    std::vector<double> numbers; ///< kept between elements so that lists of numbers allocate once
};

} // namespace oxaIO
