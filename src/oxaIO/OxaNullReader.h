#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaReader.h"

namespace oxaIO {

/// A reader whose callbacks all do nothing: the base for a reader that needs only a few of
/// them, and on its own a walk of a document that checks it parses. It adds no operations, so
/// a class derived from it keeps the operation order of `OxaReader`.
class ZENTRA_EXPORT OxaNullReader : public OxaReader {
public:
    OxaNullReader();
    ~OxaNullReader() override;

    void StartOxaDocument(wstring, wstring, wstring, wstring, wstring, wstring, wstring, wstring,
                          wstring) override {}
    void EndOxaDocument() override {}
    void StartContent() override {}
    void Section(ESectionType) override {}
    void EndContent() override {}
    void StartObjectSection(wstring, wstring) override {}
    void EndObjectSection() override {}
    void StartObjectDataSection(wstring) override {}
    void EndObjectDataSection() override {}
    void StartMaterialSection(wstring) override {}
    void EndMaterialSection() override {}
    void StartMaterial(wstring, wstring) override {}
    void ColorDiff(int, int, int, double) override {}
    void ColorSpec(int, int, int, double) override {}
    void ColorAmb(int, int, int, double) override {}
    void ColorTrans(double) override {}
    void TextureFile(wstring) override {}
    void EndMaterial() override {}
    void GenericObject(wstring, wstring) override {}
    void StartContainer(wstring, wstring, wstring, bool) override {}
    void EndContainer() override {}
    void StartRootContainer(wstring, wstring, std::vector<double>&, std::vector<double>&) override {}
    void EndRootContainer() override {}
    void StartObject2D(wstring, wstring, wstring, bool, wstring) override {}
    void EndObject2D() override {}
    void StartObject3D(wstring, wstring, wstring, bool, wstring) override {}
    void EndObject3D() override {}
    void StartData3D(wstring) override {}
    void EndData3D() override {}
    void Point(int, double, double, double) override {}
    void Line(int, int) override {}
    void StartTriangle(int, int, int) override {}
    void EndTriangle() override {}
    void TextureCoords(const std::vector<VCoords2D>&) override {}
    void OptOBB(const VCoords3D&, const VCoords3D&, const VCoords3D&, const VCoords3D&) override {}
    void OptOBBxy(const VCoords3D&, const VCoords3D&, const VCoords3D&, double) override {}
    void StartPolyline(const std::vector<int>&, double, EPolylineType) override {}
    void EndPolyline() override {}
    void StartTessellation() override {}
    void EndTessellation() override {}
    void StartSolid() override {}
    void EndSolid() override {}
    void StartFace() override {}
    void EndFace() override {}
    void StartPropertySection(wstring) override {}
    void EndPropertySection() override {}
    void StartProperty(wstring, wstring, wstring, wstring) override {}
    void ReadPropertyValue(wstring) override {}
    void EndProperty() override {}
    void StartVal() override {}
    void ReadValValue(wstring) override {}
    void EndVal() override {}
    void StartTopologySection(wstring) override {}
    void EndTopologySection() override {}
    void StartVisualisationSection(wstring) override {}
    void EndVisualisationSection() override {}
    void StartViewContainer(wstring, wstring) override {}
    void EndViewContainer() override {}
    void StartView(wstring, wstring, bool, wstring) override {}
    void EndView() override {}
    void ViewBackGround(int, int, int) override {}
    void ViewClippingPlane(double, VCoords3D&, bool) override {}
    void ReadThumbnailData(unsigned char*&, unsigned int&) override {}
    void ViewCamera(VCoords3D&, VCoords3D&, VCoords3D&, double, double, double, double, int, double, double,
                    double, double, VCoords3D&, VCoords3D&) override {}
    void StartLight(int, wstring, bool) override {}
    void SpotLight(const VCoords3D&, const VCoords3D&, double) override {}
    void PositionalLight(const VCoords3D&) override {}
    void DirectionalLight(const VCoords3D&) override {}
    void EndLight() override {}
    void StartContacts(double, wstring, bool) override {}
    void Contact(wstring&, wstring&) override {}
    void EndContacts() override {}
    void StartIntersections(double, wstring, bool) override {}
    void Intersection(wstring&, wstring&) override {}
    void EndIntersections() override {}
    void StartHRefs(wstring) override {}
    void EndHRefs() override {}
    void HRef(wstring, double) override {}
    void HRefRel(wstring, wstring, wstring) override {}
    void StartFitSection(wstring) override {}
    void EndFitSection() override {}
    void StartItem(wstring, wstring, wstring, wstring, wstring) override {}
    void EndItem() override {}
    void StartItemData(wstring, wstring) override {}
    void EndItemData() override {}
    void StartFormula(bool, bool, wstring, wstring) override {}
    void EndFormula() override {}
    void StartResult(wstring, wstring, double, int, wstring) override {}
    void ReadResultDetail(wstring) override {}
    void EndResult() override {}
    void StartUnitSection(wstring, wstring, wstring, wstring) override {}
    void Unit(unsigned int, ERoundMode, Nullable<unsigned int>, EDigitsMode, wstring, wstring,
              Nullable<double>, wstring) override {}
    void ReadUnitName(wstring) override {}
    void EndUnitSection() override {}
    void StartSetSection(wstring) override {}
    void EndSetSection() override {}
    void StartSetContainer(wstring, wstring) override {}
    void EndSetContainer() override {}
    void StartObjectSet(wstring, wstring, wstring) override {}
    void StartSmartSet(wstring, wstring, wstring) override {}
    void EndSet() override {}
    void ObjectSetAddElement(wstring) override {}
    void SmartSetPredicate(wstring) override {}
    void StartActivitySection(wstring) override {}
    void EndActivitySection() override {}
    void StartSchedule(wstring, wstring, wstring, int) override {}
    void ReadDesc(wstring) override {}
    void EndSchedule() override {}
    void StartActivity(wstring, wstring, wstring, int, wstring, wstring) override {}
    void EndActivity() override {}
    void StartStart(int, int, int, int, int, int) override {}
    void EndStart() override {}
    void StartEnd(int, int, int, int, int, int) override {}
    void EndEnd() override {}
    void StartLoggingSection(wstring) override {}
    void EndLoggingSection() override {}
    void StartLevelDef() override {}
    void Level(wstring, wstring) override {}
    void EndLevelDef() override {}
    void StartMsgGrp(wstring, wstring) override {}
    void EndMsgGrp() override {}
    void StartMsgInfo(EMsgTypes, wstring, int, int, int, int, int, int, wstring) override {}
    void MsgTxt(wstring) override {}
    void MsgSet(wstring) override {}
    void EndMsgInfo() override {}
};

} // namespace oxaIO
