#pragma once

// A reader that records every callback as one line of text, for the tests of the reader and of
// the writer (which reads back what it wrote).

#include "oxaIO/OxaReader.h"
#include "tavxmln/CXMLManager.h"

#include <QString>
#include <QStringList>

#include <type_traits>

namespace recording {

using namespace oxaIO;

QString Format(const std::wstring& text) {
    return QString::fromStdWString(text);
}
QString Format(const wchar_t* text) {
    return QString::fromWCharArray(text);
}
QString Format(bool flag) {
    return flag ? "true" : "false";
}
/// Fifteen significant digits: a coordinate that went through a unit and back compares equal.
QString Format(double value) {
    return QString::number(value, 'g', 15);
}
QString Format(const QByteArray& bytes) {
    return "bytes:" + bytes.toHex();
}
QString Format(const VCoords3D& c) {
    return QString("(%1 %2 %3)").arg(Format(c.x), Format(c.y), Format(c.z));
}
QString Format(const VCoords2D& c) {
    return QString("(%1 %2)").arg(Format(c.x), Format(c.y));
}
template <typename T> std::enable_if_t<std::is_integral_v<T> || std::is_enum_v<T>, QString> Format(T value) {
    return QString::number(static_cast<long long>(value));
}
template <typename T> QString Format(const std::vector<T>& values) {
    QStringList items;
    for (const T& value : values)
        items << Format(value);
    return "[" + items.join(" ") + "]";
}
template <typename T> QString Format(const Nullable<T>& value) {
    return value.HasValue() ? Format(value.Value()) : QString("null");
}

/// Records every callback of the reader as one line, e.g. "Point(3, 1.5, 0, -2)".
class RecordingReader : public OxaReader {
public:
    QStringList calls;
    /// Height levels, their objects and the values of reference properties come as the
    /// document's own numbers; set, they are recorded as the identifiers those numbers map to.
    bool mapReferences = false;

    using OxaReader::IdentifierMap;

    void Read(const QByteArray& xml) {
        QByteArray copy = xml;
        tavxmln::CXMLManager::GetInstance()->LoadDocument(reinterpret_cast<unsigned char*>(copy.data()),
                                                          static_cast<unsigned int>(copy.size()), this, true,
                                                          false, nullptr, false, false);
    }

    void ReadFile(const QString& path) {
        tavxmln::CXMLManager::GetInstance()->LoadDocument(path.toStdWString().c_str(), this, true, false,
                                                          nullptr, false, false);
    }

    template <typename... Args> void Log(const wchar_t* name, const Args&... args) {
        QStringList formatted{Format(args)...};
        calls << Format(name) + "(" + formatted.join(", ") + ")";
    }

    void SetFaceShape(EFaceShape shape) override { Log(L"SetFaceShape", shape); }
    void StartOxaDocument(wstring projectId, wstring sourceApp, wstring sourceFileName, wstring sourceFormat,
                          wstring created, wstring createdBy, wstring changedBy, wstring changed,
                          wstring version) override {
        Log(L"StartOxaDocument", projectId, sourceApp, sourceFileName, sourceFormat, created, createdBy,
            changedBy, changed, version);
    }
    void EndOxaDocument() override { Log(L"EndOxaDocument"); }
    void StartContent() override { Log(L"StartContent"); }
    void Section(ESectionType type) override { Log(L"Section", type); }
    void EndContent() override { Log(L"EndContent"); }
    void StartObjectSection(wstring unit, wstring version) override {
        Log(L"StartObjectSection", unit, version);
    }
    void EndObjectSection() override { Log(L"EndObjectSection"); }
    void StartObjectDataSection(wstring version) override { Log(L"StartObjectDataSection", version); }
    void EndObjectDataSection() override { Log(L"EndObjectDataSection"); }
    void StartMaterialSection(wstring version) override { Log(L"StartMaterialSection", version); }
    void EndMaterialSection() override { Log(L"EndMaterialSection"); }
    void StartMaterial(wstring id, wstring name) override { Log(L"StartMaterial", id, name); }
    void ColorDiff(int r, int g, int b, double a) override { Log(L"ColorDiff", r, g, b, a); }
    void ColorSpec(int r, int g, int b, double a) override { Log(L"ColorSpec", r, g, b, a); }
    void ColorAmb(int r, int g, int b, double a) override { Log(L"ColorAmb", r, g, b, a); }
    void ColorTrans(double value) override { Log(L"ColorTrans", value); }
    void TextureFile(wstring fileName) override { Log(L"TextureFile", fileName); }
    void EndMaterial() override { Log(L"EndMaterial"); }
    void GenericObject(wstring id, wstring name) override { Log(L"GenericObject", id, name); }
    void StartContainer(wstring id, wstring name, wstring unit, bool composite) override {
        Log(L"StartContainer", id, name, unit, composite);
    }
    void EndContainer() override { Log(L"EndContainer"); }
    void StartRootContainer(wstring id, wstring name, std::vector<double>& rotation,
                            std::vector<double>& translation) override {
        Log(L"StartRootContainer", id, name, rotation, translation);
    }
    void EndRootContainer() override { Log(L"EndRootContainer"); }
    void StartObject2D(wstring id, wstring materialId, wstring name, bool negative, wstring refId) override {
        Log(L"StartObject2D", id, materialId, name, negative, refId);
    }
    void EndObject2D() override { Log(L"EndObject2D"); }
    void StartObject3D(wstring id, wstring materialId, wstring name, bool negative, wstring refId) override {
        Log(L"StartObject3D", id, materialId, name, negative, refId);
    }
    void EndObject3D() override { Log(L"EndObject3D"); }
    void StartData3D(wstring refId) override { Log(L"StartData3D", refId); }
    void EndData3D() override { Log(L"EndData3D"); }
    void Point(int number, double x, double y, double z) override { Log(L"Point", number, x, y, z); }
    void Line(int p1, int p2) override { Log(L"Line", p1, p2); }
    void StartTriangle(int p1, int p2, int p3) override { Log(L"StartTriangle", p1, p2, p3); }
    void EndTriangle() override { Log(L"EndTriangle"); }
    void TextureCoords(const std::vector<VCoords2D>& coords) override { Log(L"TextureCoords", coords); }
    void OptOBB(const VCoords3D& reference, const VCoords3D& x, const VCoords3D& y,
                const VCoords3D& z) override {
        Log(L"OptOBB", reference, x, y, z);
    }
    void OptOBBxy(const VCoords3D& reference, const VCoords3D& x, const VCoords3D& y,
                  double height) override {
        Log(L"OptOBBxy", reference, x, y, height);
    }
    void StartPolyline(const std::vector<int>& points, double thickness, EPolylineType type) override {
        Log(L"StartPolyline", points, thickness, type);
    }
    void EndPolyline() override { Log(L"EndPolyline"); }
    void StartTessellation() override { Log(L"StartTessellation"); }
    void EndTessellation() override { Log(L"EndTessellation"); }
    void StartSolid() override { Log(L"StartSolid"); }
    void EndSolid() override { Log(L"EndSolid"); }
    void StartFace() override { Log(L"StartFace"); }
    void EndFace() override { Log(L"EndFace"); }
    void StartPropertySection(wstring version) override { Log(L"StartPropertySection", version); }
    void EndPropertySection() override { Log(L"EndPropertySection"); }
    void StartProperty(wstring refId, wstring name, wstring datatype, wstring unit) override {
        propertyIsReference = datatype == L"xs:IDREF";
        Log(L"StartProperty", refId, name, datatype, unit);
    }
    void ReadPropertyValue(wstring value) override {
        Log(L"ReadPropertyValue", propertyIsReference ? Mapped(value) : value);
    }
    void EndProperty() override { Log(L"EndProperty"); }
    void StartVal() override { Log(L"StartVal"); }
    void ReadValValue(wstring value) override { Log(L"ReadValValue", value); }
    void EndVal() override { Log(L"EndVal"); }
    void StartTopologySection(wstring version) override { Log(L"StartTopologySection", version); }
    void EndTopologySection() override { Log(L"EndTopologySection"); }
    void StartVisualisationSection(wstring version) override { Log(L"StartVisualisationSection", version); }
    void EndVisualisationSection() override { Log(L"EndVisualisationSection"); }
    void StartViewContainer(wstring id, wstring name) override { Log(L"StartViewContainer", id, name); }
    void EndViewContainer() override { Log(L"EndViewContainer"); }
    void StartView(wstring id, wstring name, bool current, wstring thumbnail) override {
        Log(L"StartView", id, name, current, thumbnail);
    }
    void EndView() override { Log(L"EndView"); }
    void ViewBackGround(int r, int g, int b) override { Log(L"ViewBackGround", r, g, b); }
    void ViewClippingPlane(double distance, VCoords3D& normal, bool off) override {
        Log(L"ViewClippingPlane", distance, normal, off);
    }
    void ReadThumbnailData(unsigned char*& data, unsigned int& size) override {
        Log(L"ReadThumbnailData", QByteArray(reinterpret_cast<const char*>(data), int(size)));
    }
    void ViewCamera(VCoords3D& eye, VCoords3D& lookAt, VCoords3D& up, double nearPlane, double farPlane,
                    double viewAngle, double aspectRatio, int projectionType, double expOrthoWidth,
                    double expOrthoHeight, double orthoWidth, double orthoHeight, VCoords3D& savedEye,
                    VCoords3D& savedLookAt) override {
        Log(L"ViewCamera", eye, lookAt, up, nearPlane, farPlane, viewAngle, aspectRatio, projectionType,
            expOrthoWidth, expOrthoHeight, orthoWidth, orthoHeight, savedEye, savedLookAt);
    }
    void StartLight(int number, wstring name, bool off) override { Log(L"StartLight", number, name, off); }
    void SpotLight(const VCoords3D& position, const VCoords3D& direction, double cutoff) override {
        Log(L"SpotLight", position, direction, cutoff);
    }
    void PositionalLight(const VCoords3D& position) override { Log(L"PositionalLight", position); }
    void DirectionalLight(const VCoords3D& direction) override { Log(L"DirectionalLight", direction); }
    void EndLight() override { Log(L"EndLight"); }
    void StartContacts(double eps, wstring unit, bool symmetric) override {
        Log(L"StartContacts", eps, unit, symmetric);
    }
    void Contact(wstring& left, wstring& right) override { Log(L"Contact", left, right); }
    void EndContacts() override { Log(L"EndContacts"); }
    void StartIntersections(double eps, wstring unit, bool symmetric) override {
        Log(L"StartIntersections", eps, unit, symmetric);
    }
    void Intersection(wstring& left, wstring& right) override { Log(L"Intersection", left, right); }
    void EndIntersections() override { Log(L"EndIntersections"); }
    void StartHRefs(wstring unit) override { Log(L"StartHRefs", unit); }
    void EndHRefs() override { Log(L"EndHRefs"); }
    void HRef(wstring id, double z) override { Log(L"HRef", Mapped(id), z); }
    void HRefRel(wstring refId, wstring lower, wstring upper) override {
        Log(L"HRefRel", Mapped(refId), lower, upper);
    }
    void StartFitSection(wstring version) override { Log(L"StartFitSection", version); }
    void EndFitSection() override { Log(L"EndFitSection"); }
    void StartItem(wstring id, wstring key, wstring matchKey, wstring name, wstring description) override {
        Log(L"StartItem", id, key, matchKey, name, description);
    }
    void EndItem() override { Log(L"EndItem"); }
    void StartItemData(wstring refId, wstring description) override {
        Log(L"StartItemData", refId, description);
    }
    void EndItemData() override { Log(L"EndItemData"); }
    void StartFormula(bool original, bool quantity, wstring text, wstring variable) override {
        Log(L"StartFormula", original, quantity, text, variable);
    }
    void EndFormula() override { Log(L"EndFormula"); }
    void StartResult(wstring refId, wstring datatype, double value, int quality, wstring geometry) override {
        Log(L"StartResult", refId, datatype, value, quality, geometry);
    }
    void ReadResultDetail(wstring text) override { Log(L"ReadResultDetail", text); }
    void EndResult() override { Log(L"EndResult"); }
    void StartUnitSection(wstring version, wstring defaultUnitLength, wstring defaultUnitWeight,
                          wstring defaultUnitTime) override {
        Log(L"StartUnitSection", version, defaultUnitLength, defaultUnitWeight, defaultUnitTime);
    }
    void Unit(unsigned int dimension, ERoundMode roundMode, Nullable<unsigned int> digits,
              EDigitsMode digitsMode, wstring baseUnit, wstring linearBaseUnit, Nullable<double> convFactor,
              wstring description) override {
        Log(L"Unit", dimension, roundMode, digits, digitsMode, baseUnit, linearBaseUnit, convFactor,
            description);
    }
    void ReadUnitName(wstring name) override { Log(L"ReadUnitName", name); }
    void EndUnitSection() override { Log(L"EndUnitSection"); }
    void StartSetSection(wstring version) override { Log(L"StartSetSection", version); }
    void EndSetSection() override { Log(L"EndSetSection"); }
    void StartSetContainer(wstring id, wstring name) override { Log(L"StartSetContainer", id, name); }
    void EndSetContainer() override { Log(L"EndSetContainer"); }
    void StartObjectSet(wstring id, wstring name, wstring contentType) override {
        Log(L"StartObjectSet", id, name, contentType);
    }
    void StartSmartSet(wstring id, wstring name, wstring contentType) override {
        Log(L"StartSmartSet", id, name, contentType);
    }
    void EndSet() override { Log(L"EndSet"); }
    void ObjectSetAddElement(wstring id) override { Log(L"ObjectSetAddElement", id); }
    void SmartSetPredicate(wstring predicate) override { Log(L"SmartSetPredicate", predicate); }
    void StartActivitySection(wstring version) override { Log(L"StartActivitySection", version); }
    void EndActivitySection() override { Log(L"EndActivitySection"); }
    void StartSchedule(wstring id, wstring name, wstring reference, int duration) override {
        Log(L"StartSchedule", id, name, reference, duration);
    }
    void ReadDesc(wstring description) override { Log(L"ReadDesc", description); }
    void EndSchedule() override { Log(L"EndSchedule"); }
    void StartActivity(wstring id, wstring name, wstring wbs, int duration, wstring visType,
                       wstring refId) override {
        Log(L"StartActivity", id, name, wbs, duration, visType, refId);
    }
    void EndActivity() override { Log(L"EndActivity"); }
    void StartStart(int year, int month, int day, int hour, int minute, int second) override {
        Log(L"StartStart", year, month, day, hour, minute, second);
    }
    void EndStart() override { Log(L"EndStart"); }
    void StartEnd(int year, int month, int day, int hour, int minute, int second) override {
        Log(L"StartEnd", year, month, day, hour, minute, second);
    }
    void EndEnd() override { Log(L"EndEnd"); }
    void StartLoggingSection(wstring version) override { Log(L"StartLoggingSection", version); }
    void EndLoggingSection() override { Log(L"EndLoggingSection"); }
    void StartLevelDef() override { Log(L"StartLevelDef"); }
    void Level(wstring id, wstring name) override { Log(L"Level", id, name); }
    void EndLevelDef() override { Log(L"EndLevelDef"); }
    void StartMsgGrp(wstring id, wstring description) override { Log(L"StartMsgGrp", id, description); }
    void EndMsgGrp() override { Log(L"EndMsgGrp"); }
    void StartMsgInfo(EMsgTypes type, wstring module, int year, int month, int day, int hour, int minute,
                      int second, wstring levelRefId) override {
        Log(L"StartMsgInfo", type, module, year, month, day, hour, minute, second, levelRefId);
    }
    void MsgTxt(wstring text) override { Log(L"MsgTxt", text); }
    void MsgSet(wstring refId) override { Log(L"MsgSet", refId); }
    void EndMsgInfo() override { Log(L"EndMsgInfo"); }

private:
    bool propertyIsReference = false;

    wstring Mapped(const wstring& id) { return mapReferences ? GetObjectID(id) : id; }
};

} // namespace recording
