#include "oxaIO/OxaReader.h"

#include "tavxmln/CXMLSaxAttribut.h"
#include "tavxmln/XMLConvert.h"

#include <cwchar>
#include <limits>

namespace oxaIO {

using tavxmln::CXMLSaxAttribut;

namespace {

/// Separators of every token list of the format: blank, carriage return, tab, line feed.
const std::wstring tokenSeparators = L" \r\t\n";

constexpr int anyParent = -1;

/// Exact comparison of two short names; cheaper inline than a library call per attribute.
inline bool SameName(const wchar_t* a, const wchar_t* b) {
    while (*a && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
}

/// Finds the values of `names` in one walk over the attributes; an unknown attribute is
/// ignored and a repeated one overwrites the earlier. Values not present stay null.
template <std::size_t N>
void FindValues(CXMLSaxAttribut** attributes, const wchar_t* const (&names)[N], const wchar_t* (&values)[N]) {
    for (const wchar_t*& value : values)
        value = nullptr;
    for (CXMLSaxAttribut** attribute = attributes; *attribute; ++attribute) {
        const wchar_t* name = (*attribute)->Name();
        for (std::size_t i = 0; i < N; ++i) {
            if (SameName(name, names[i])) {
                values[i] = (*attribute)->Value();
                break;
            }
        }
    }
}

std::wstring Text(const wchar_t* value) {
    return value ? std::wstring(value) : std::wstring();
}

int Int(const wchar_t* value, int fallback) {
    long number = 0;
    return value && tavxmln::XMLConvertText2Long(value, number) ? int(number) : fallback;
}

double Double(const wchar_t* value, double fallback) {
    double number = 0.0;
    return value && tavxmln::XMLConvertText2Double(value, number) ? number : fallback;
}

bool Bool(const wchar_t* value, bool fallback) {
    bool flag = false;
    return value && tavxmln::XMLConvertText2Bool(value, flag) ? flag : fallback;
}

bool IsSeparator(wchar_t c, const std::wstring& separators) {
    return separators.find(c) != std::wstring::npos;
}

/// Calls `take` with each token of `text`, without building a vector.
template <typename Take> void ForEachToken(const wchar_t* text, const std::wstring& separators, Take&& take) {
    if (!text)
        return;
    const wchar_t* p = text;
    std::wstring token;
    while (*p) {
        while (*p && IsSeparator(*p, separators))
            ++p;
        const wchar_t* start = p;
        while (*p && !IsSeparator(*p, separators))
            ++p;
        if (p > start) {
            token.assign(start, p);
            take(token);
        }
    }
}

/// Up to `count` numbers of a token list into `target`; a list with fewer tokens leaves
/// `target` untouched.
void ReadCoords(const wchar_t* text, int count, VCoords3D& target) {
    double values[3] = {0.0, 0.0, 0.0};
    int found = 0;
    ForEachToken(text, tokenSeparators, [&](const std::wstring& token) {
        if (found < count)
            values[found] = Double(token.c_str(), 0.0);
        ++found;
    });
    if (found < count)
        return;
    target.x = values[0];
    target.y = values[1];
    target.z = count > 2 ? values[2] : 0.0;
}

void ReadDateFields(const wchar_t* date, const wchar_t* time, int (&fields)[6]) {
    for (int& field : fields)
        field = 0;
    if (date)
        tavxmln::XMLConvertText2Date(date, fields[0], fields[1], fields[2]);
    if (time)
        tavxmln::XMLConvertText2Time(time, fields[3], fields[4], fields[5]);
}

} // namespace

/// One element of the format: its name, its state and the states that may be its parent
/// (`anyParent` first: no check).
struct OxaReader::ElementRule {
    const wchar_t* name;
    int state;
    int parents[4];
};

/// The comparison chain of exact, case-sensitive name comparisons; the first match wins. The
/// elements a model has most of come first, so that the common case ends the walk at once.
const OxaReader::ElementRule* OxaReader::FindRule(const wchar_t* name) {
    static const ElementRule rules[] = {
        {L"p", esP, {esObject2D, esData3D, 0, 0}},
        {L"t", esT, {esObject2D, esData3D, esFace, esTess}},
        {L"property", esProperty, {esPropertySection, 0, 0, 0}},
        {L"val", esVal, {esProperty, 0, 0, 0}},
        {L"objects", esObjects, {0, 0, 0, 0}},
        {L"ID", esID, {esIDMapping, 0, 0, 0}},
        {L"object3D", esObject3D, {esContainer, 0, 0, 0}},
        {L"data3D", esData3D, {esObjectDataSection, 0, 0, 0}},
        {L"pl", esPl, {esObject2D, esData3D, esFace, 0}},
        {L"tess", esTess, {esPl, 0, 0, 0}},
        {L"optOBB", esOptOBB, {esObject2D, esData3D, 0, 0}},
        {L"optOBBxy", esOptOBBxy, {esObject2D, esData3D, 0, 0}},
        {L"container", esContainer, {esObjectSection, esContainer, esRootContainer, 0}},
        {L"rootContainer", esRootContainer, {esObjectSection, 0, 0, 0}},
        {L"l", esL, {esObject2D, esData3D, 0, 0}},
        {L"content", esContent, {anyParent, 0, 0, 0}},
        {L"section", esSection, {esContent, 0, 0, 0}},
        {L"IDMapping", esIDMapping, {anyParent, 0, 0, 0}},
        {L"objectSection", esObjectSection, {esObjects, 0, 0, 0}},
        {L"objectDataSection", esObjectDataSection, {esObjects, 0, 0, 0}},
        {L"materialSection", esMaterialSection, {esObjectSection, esFitSection, 0, 0}},
        {L"material", esMaterial, {esMaterialSection, 0, 0, 0}},
        {L"diff", esDiff, {esMaterial, esLight, 0, 0}},
        {L"spec", esSpec, {esMaterial, esLight, 0, 0}},
        {L"amb", esAmb, {esMaterial, esLight, 0, 0}},
        {L"trans", esTrans, {esMaterial, 0, 0, 0}},
        {L"tex", esTex, {esMaterial, esT, esPl, 0}},
        {L"genericObject", esGenericObject, {esObjectSection, esContainer, 0, 0}},
        {L"object2D", esObject2D, {esContainer, 0, 0, 0}},
        {L"solid", esSolid, {esData3D, 0, 0, 0}},
        {L"face", esFace, {esData3D, esSolid, 0, 0}},
        {L"propertySection", esPropertySection, {esObjectSection, esFitSection, esActivitySection, 0}},
        {L"topologySection", esTopologySection, {esObjects, 0, 0, 0}},
        {L"contacts", esContacts, {esTopologySection, 0, 0, 0}},
        {L"contact", esContact, {esContacts, 0, 0, 0}},
        {L"intersections", esIntersections, {esTopologySection, 0, 0, 0}},
        {L"isect", esIsect, {esIntersections, 0, 0, 0}},
        {L"hRefs", esHRefs, {esTopologySection, 0, 0, 0}},
        {L"hRef", esHRef, {esHRefs, 0, 0, 0}},
        {L"hRefRel", esHRefRel, {esHRefs, 0, 0, 0}},
        {L"fitSection", esFitSection, {esObjects, 0, 0, 0}},
        {L"items", esItems, {anyParent, 0, 0, 0}},
        {L"item", esItem, {esItems, esItem, 0, 0}},
        {L"qto", esQto, {anyParent, 0, 0, 0}},
        {L"itemData", esItemData, {esQto, 0, 0, 0}},
        {L"formula", esFormula, {esItemData, 0, 0, 0}},
        {L"result", esResult, {esFormula, 0, 0, 0}},
        {L"visualisationSection", esVisualisationSection, {esObjects, 0, 0, 0}},
        {L"viewContainer", esViewContainer, {esVisualisationSection, 0, 0, 0}},
        {L"view", esView, {esViewContainer, 0, 0, 0}},
        {L"camera", esCamera, {esView, 0, 0, 0}},
        {L"light", esLight, {esView, 0, 0, 0}},
        {L"spot", esSpot, {esLight, 0, 0, 0}},
        {L"positional", esPositional, {esLight, 0, 0, 0}},
        {L"directional", esDirectional, {esLight, 0, 0, 0}},
        {L"bgColor", esBgColor, {esView, 0, 0, 0}},
        {L"clpPlane", esClpPlane, {esView, 0, 0, 0}},
        {L"thumbnail", esThumbnail, {anyParent, 0, 0, 0}},
        {L"unitSection", esUnitSection, {esObjects, 0, 0, 0}},
        {L"unit", esUnit, {esUnitSection, 0, 0, 0}},
        {L"setSection", esSetSection, {anyParent, 0, 0, 0}},
        {L"set", esSet, {anyParent, 0, 0, 0}},
        {L"setContainer", esSetContainer, {anyParent, 0, 0, 0}},
        {L"loggingSection", esLoggingSection, {esObjects, 0, 0, 0}},
        {L"qtoInstances", esQtoInstances, {anyParent, 0, 0, 0}},
        {L"activitySection", esActivitySection, {esObjects, 0, 0, 0}},
        {L"schedule", esSchedule, {esActivitySection, 0, 0, 0}},
        {L"desc", esDesc, {anyParent, 0, 0, 0}},
        {L"activity", esActivity, {esSchedule, esActivity, 0, 0}},
        {L"start", esStart, {esSchedule, esActivity, 0, 0}},
        {L"end", esEnd, {esSchedule, esActivity, 0, 0}},
        {L"levelDef", esLevelDef, {anyParent, 0, 0, 0}},
        {L"msgGrp", esMsgGrp, {esLoggingSection, 0, 0, 0}},
        {L"msgInfo", esMsgInfo, {esMsgGrp, 0, 0, 0}},
        {L"msgTxt", esMsgTxt, {anyParent, 0, 0, 0}},
        {L"msgSet", esMsgSet, {esMsgInfo, 0, 0, 0}},
    };
    for (const ElementRule& rule : rules)
        if (SameName(name, rule.name))
            return &rule;
    return nullptr;
}

OxaReader::OxaReader() = default;
OxaReader::~OxaReader() = default;

void OxaReader::StartDocument() {
    identifierMap.clear();
    mappedIdentifiers.clear();
    mappedIdentifiersCurrent = true;
    elementStack.clear();
}

void OxaReader::EndDocument() {}

bool OxaReader::ParentAllowed(const ElementRule& rule) const {
    if (rule.state == esObjects)
        return elementStack.empty();
    if (elementStack.empty() || rule.parents[0] == anyParent)
        return true;
    const int top = elementStack.back();
    for (int parent : rule.parents)
        if (parent != 0 && parent == top)
            return true;
    return false;
}

void OxaReader::StartElement(const wchar_t*, const wchar_t* localName, const wchar_t*,
                             CXMLSaxAttribut** attributes) {
    if (!attributes)
        return;
    const ElementRule* rule = FindRule(localName);
    if (!rule) {
        elementStack.push_back(esUnknown);
        return;
    }
    if (rule->state == esSet) {
        const int state = ReadSet(attributes);
        if (state >= 0)
            elementStack.push_back(state);
        return;
    }
    if (ParentAllowed(*rule))
        StartKnownElement(*rule, attributes);
    elementStack.push_back(rule->state);
}

void OxaReader::StartKnownElement(const ElementRule& rule, CXMLSaxAttribut** attributes) {
    switch (rule.state) {
    case esP:
        ReadP(attributes);
        break;
    case esT:
        ReadT(attributes);
        break;
    case esProperty:
        ReadProperty(attributes);
        break;
    case esVal:
        ReadVal(attributes);
        break;
    case esObjects:
        ReadObjects(attributes);
        break;
    case esID:
        ReadIdMappingEntry(attributes);
        break;
    case esObject3D:
        ReadObject3D(attributes);
        break;
    case esData3D:
        ReadData3D(attributes);
        break;
    case esPl:
        ReadPolyline(attributes);
        break;
    case esTess:
        StartTessellation();
        break;
    case esOptOBB:
        ReadOptOBB(attributes);
        break;
    case esOptOBBxy:
        ReadOptOBBxy(attributes);
        break;
    case esContainer:
        ReadContainer(attributes);
        break;
    case esRootContainer:
        ReadRootContainer(attributes);
        break;
    case esL:
        ReadLine(attributes);
        break;
    case esContent:
        ReadContent(attributes);
        break;
    case esSection:
        ReadContentSection(attributes);
        break;
    case esObjectSection:
        ReadObjectSection(attributes);
        break;
    case esMaterial:
        ReadMaterial(attributes);
        break;
    case esDiff:
    case esSpec:
    case esAmb:
        ReadColorElement(attributes, rule.state);
        break;
    case esTrans:
        ReadTrans(attributes);
        break;
    case esTex:
        ReadTexture(attributes);
        break;
    case esGenericObject:
        ReadGenericObject(attributes);
        break;
    case esObject2D:
        ReadObject2D(attributes);
        break;
    case esSolid:
        StartSolid();
        break;
    case esFace:
        ReadFaceShape(attributes);
        break;
    case esObjectDataSection:
    case esMaterialSection:
    case esPropertySection:
    case esTopologySection:
    case esFitSection:
    case esVisualisationSection:
        ReadVersionedSection(attributes, rule.state);
        break;
    case esContacts:
    case esIntersections:
        ReadContacts(attributes, rule.state);
        break;
    case esContact:
    case esIsect:
        ReadPair(attributes, rule.state);
        break;
    case esHRefs:
        ReadHRefs(attributes);
        break;
    case esHRef:
        ReadHRef(attributes);
        break;
    case esHRefRel:
        ReadHRefRel(attributes);
        break;
    case esItem:
        ReadItem(attributes);
        break;
    case esItemData:
        ReadItemData(attributes);
        break;
    case esFormula:
        ReadFormula(attributes);
        break;
    case esResult:
        ReadResult(attributes);
        break;
    case esViewContainer:
        ReadViewContainer(attributes);
        break;
    case esView:
        ReadView(attributes);
        break;
    case esCamera:
        ReadCamera(attributes);
        break;
    case esLight:
        ReadLight(attributes);
        break;
    case esSpot:
    case esPositional:
    case esDirectional:
        ReadLightPlacement(attributes, rule.state);
        break;
    case esBgColor:
        ReadBackground(attributes);
        break;
    case esClpPlane:
        ReadClippingPlane(attributes);
        break;
    case esUnitSection:
        ReadUnitSection(attributes);
        break;
    case esUnit:
        ReadUnit(attributes);
        break;
    case esSetSection:
        ReadSetSection(attributes);
        break;
    case esSetContainer:
        ReadSetContainer(attributes);
        break;
    case esLoggingSection:
        ReadLoggingSection(attributes);
        break;
    case esActivitySection:
        ReadActivitySection(attributes);
        break;
    case esSchedule:
        ReadSchedule(attributes);
        break;
    case esActivity:
        ReadActivity(attributes);
        break;
    case esStart:
        ReadStart(attributes);
        break;
    case esEnd:
        ReadEnd(attributes);
        break;
    case esLevelDef:
        ReadLevelDef(attributes);
        break;
    case esMsgGrp:
        ReadMsgGrp(attributes);
        break;
    case esMsgInfo:
        ReadMsgInfo(attributes);
        break;
    case esMsgSet:
        ReadMsgSet(attributes);
        break;
    default:
        break; // IDMapping, items, qto, thumbnail, qtoInstances, desc, msgTxt: no callback
    }
}

void OxaReader::EndElement(const wchar_t*, const wchar_t*, const wchar_t*) {
    if (elementStack.empty())
        return;
    const int state = elementStack.back();
    elementStack.pop_back();
    EndCallback(state);
}

/// The end callback of a state. `contacts`, `intersections` and `hRefs` have none on purpose:
/// a builder keeps such a list open until the next one starts.
void OxaReader::EndCallback(int state) {
    switch (state) {
    case esT:
        EndTriangle();
        break;
    case esProperty:
        EndProperty();
        break;
    case esVal:
        EndVal();
        break;
    case esObjects:
        EndOxaDocument();
        break;
    case esObject3D:
        EndObject3D();
        break;
    case esData3D:
        EndData3D();
        break;
    case esPl:
        EndPolyline();
        break;
    case esTess:
        EndTessellation();
        break;
    case esContainer:
        EndContainer();
        break;
    case esRootContainer:
        EndRootContainer();
        break;
    case esContent:
        EndContent();
        break;
    case esObjectSection:
        EndObjectSection();
        break;
    case esObjectDataSection:
        EndObjectDataSection();
        break;
    case esMaterial:
        EndMaterial();
        break;
    case esMaterialSection:
        EndMaterialSection();
        break;
    case esObject2D:
        EndObject2D();
        break;
    case esSolid:
        EndSolid();
        break;
    case esFace:
        EndFace();
        break;
    case esPropertySection:
        EndPropertySection();
        break;
    case esTopologySection:
        EndTopologySection();
        break;
    case esFitSection:
        EndFitSection();
        break;
    case esItem:
        EndItem();
        break;
    case esItemData:
        EndItemData();
        break;
    case esFormula:
        EndFormula();
        break;
    case esResult:
        EndResult();
        break;
    case esVisualisationSection:
        EndVisualisationSection();
        break;
    case esViewContainer:
        EndViewContainer();
        break;
    case esView:
        EndView();
        break;
    case esLight:
        EndLight();
        break;
    case esUnitSection:
        EndUnitSection();
        break;
    case esSetSection:
        EndSetSection();
        break;
    case esSet:
    case esSmartSet:
        EndSet();
        break;
    case esSetContainer:
        EndSetContainer();
        break;
    case esLoggingSection:
        EndLoggingSection();
        break;
    case esActivitySection:
        EndActivitySection();
        break;
    case esSchedule:
        EndSchedule();
        break;
    case esActivity:
        EndActivity();
        break;
    case esStart:
        EndStart();
        break;
    case esEnd:
        EndEnd();
        break;
    case esLevelDef:
        EndLevelDef();
        break;
    case esMsgGrp:
        EndMsgGrp();
        break;
    case esMsgInfo:
        EndMsgInfo();
        break;
    default:
        break;
    }
}

void OxaReader::Characters(const wchar_t* text) {
    if (elementStack.empty())
        return;
    switch (elementStack.back()) {
    case esProperty:
        ReadPropertyValue(text);
        break;
    case esVal:
        ReadValValue(text);
        break;
    case esResult:
        ReadResultDetail(text);
        break;
    case esUnit:
        ReadUnitName(text);
        break;
    case esThumbnail: {
        unsigned char* data = nullptr;
        unsigned long size = 0;
        GetData(text, data, size);
        unsigned int length = static_cast<unsigned int>(size);
        ReadThumbnailData(data, length);
        delete[] data;
        break;
    }
    case esSet:
    case esSmartSet:
        ReadSetContent(text);
        break;
    case esDesc:
        ReadDesc(text);
        break;
    case esMsgTxt:
        MsgTxt(text);
        break;
    default:
        break;
    }
}

std::vector<std::wstring> OxaReader::Tokenise(const std::wstring& text, const std::wstring& separators) {
    std::vector<std::wstring> tokens;
    ForEachToken(text.c_str(), separators, [&](const std::wstring& token) { tokens.push_back(token); });
    return tokens;
}

bool OxaReader::TokeniseCoords3D(const std::wstring& text, VCoords3D& coords) {
    const std::vector<std::wstring> tokens = Tokenise(text, tokenSeparators);
    if (tokens.size() < 3)
        return false;
    coords.x = Double(tokens[0].c_str(), 0.0);
    coords.y = Double(tokens[1].c_str(), 0.0);
    coords.z = Double(tokens[2].c_str(), 0.0);
    return true;
}

void OxaReader::TokeniseDoubles(const std::wstring& text, std::vector<double>& values) {
    ForEachToken(text.c_str(), tokenSeparators,
                 [&](const std::wstring& token) { values.push_back(Double(token.c_str(), 0.0)); });
}

void OxaReader::SetFaceShape(EFaceShape) {}

std::wstring OxaReader::MappedID(const wchar_t* value) {
    // An attribute that is not there maps to nothing: only identifiers the document names
    // take part in the identifier map.
    return value ? GetObjectID(value) : std::wstring();
}

std::wstring OxaReader::GetObjectID(const std::wstring& id) {
    if (identifierMap.empty())
        return id;
    // An identifier the map does not know enters it with an empty value.
    const auto [entry, added] = identifierMap.try_emplace(id);
    if (added)
        IndexMappedIdentifier(id, entry->second);
    return entry->second.empty() ? id : entry->second;
}

std::wstring OxaReader::GetMappedObjectID(const std::wstring& id) {
    if (identifierMap.empty())
        return id;
    if (!mappedIdentifiersCurrent) {
        mappedIdentifiers.clear();
        // In key order, so that the first key of each value stays.
        for (const auto& entry : identifierMap)
            mappedIdentifiers.emplace(entry.second, entry.first);
        mappedIdentifiersCurrent = true;
    }
    const auto found = mappedIdentifiers.find(id);
    return found == mappedIdentifiers.end() ? id : found->second;
}

void OxaReader::IndexMappedIdentifier(const std::wstring& key, const std::wstring& value) {
    if (!mappedIdentifiersCurrent)
        return;
    const auto [entry, added] = mappedIdentifiers.try_emplace(value, key);
    if (!added && key < entry->second)
        entry->second = key;
}

void OxaReader::ReadColor(CXMLSaxAttribut** attributes, int& r, int& g, int& b, double& a) {
    r = g = b = 0;
    static const wchar_t* const names[] = {L"r", L"g", L"b", L"a"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    r = Int(values[0], 0);
    g = Int(values[1], 0);
    b = Int(values[2], 0);
    a = Double(values[3], -1.0);
}

ESectionType OxaReader::GetSectionType(const std::wstring& name) {
    static const ESectionType order[] = {
        stObjectSection, stObjectDataSection, stPropertySection, stMaterialSection,      stTopologySection,
        stFitSection,    stUnitSection,       stCurrencySection, stVisualisationSection, stSetSection,
        stBsSection,     stActivitySection,   stClashSection,    stLoggingSection};
    for (ESectionType type : order)
        if (name == SectionName(type))
            return type;
    return stNone;
}

void OxaReader::ReadIdNameUnit(CXMLSaxAttribut** attributes, std::wstring& id, std::wstring& name,
                               std::wstring& unit) {
    static const wchar_t* const names[] = {L"ID", L"name", L"unit"};
    const wchar_t* values[3];
    FindValues(attributes, names, values);
    id = MappedID(values[0]);
    name = Text(values[1]);
    unit = Text(values[2]);
}

void OxaReader::ReadCompositAttribute(CXMLSaxAttribut** attributes, bool& composite) {
    static const wchar_t* const names[] = {L"composite"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    composite = Bool(values[0], false);
}

void OxaReader::ReadRotTrans(CXMLSaxAttribut** attributes, std::vector<double>& rotation,
                             std::vector<double>& translation) {
    static const wchar_t* const names[] = {L"mRot", L"vTrans"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    if (values[0])
        TokeniseDoubles(values[0], rotation);
    if (values[1])
        TokeniseDoubles(values[1], translation);
}

void OxaReader::ReadObjectBaseAttributes(CXMLSaxAttribut** attributes, std::wstring& id,
                                         std::wstring& materialId, std::wstring& name, bool& negative,
                                         std::wstring& refId) {
    static const wchar_t* const names[] = {L"ID", L"matID", L"name", L"negative", L"refID"};
    const wchar_t* values[5];
    FindValues(attributes, names, values);
    id = MappedID(values[0]);
    materialId = MappedID(values[1]);
    name = Text(values[2]);
    negative = Bool(values[3], false);
    refId = MappedID(values[4]);
}

void OxaReader::ReadPointAttributes(CXMLSaxAttribut** attributes, int& number, double& x, double& y,
                                    double& z) {
    static const wchar_t* const names[] = {L"nr", L"x", L"y", L"z"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    number = Int(values[0], 0);
    x = Double(values[1], 0.0);
    y = Double(values[2], 0.0);
    z = Double(values[3], 0.0);
}

void OxaReader::ReadTriangleAttributes(CXMLSaxAttribut** attributes, int& p1, int& p2, int& p3) {
    static const wchar_t* const names[] = {L"p1", L"p2", L"p3"};
    const wchar_t* values[3];
    FindValues(attributes, names, values);
    p1 = Int(values[0], -1);
    p2 = Int(values[1], -1);
    p3 = Int(values[2], -1);
}

void OxaReader::ReadPolylineAttributes(CXMLSaxAttribut** attributes, std::vector<int>& points,
                                       double& thickness, EPolylineType& type) {
    // "length" is part of the format but says nothing that "points" does not.
    static const wchar_t* const names[] = {L"points", L"thickness", L"type"};
    const wchar_t* values[3];
    FindValues(attributes, names, values);
    ForEachToken(values[0], tokenSeparators, [&](const std::wstring& token) {
        long index = 0;
        if (tavxmln::XMLConvertText2Long(token.c_str(), index))
            points.push_back(int(index));
    });
    thickness = Double(values[1], 1.0);
    type = plNone;
    if (values[2] && std::wcscmp(values[2], L"Polygon") == 0)
        type = plPolygon;
    else if (values[2] && std::wcscmp(values[2], L"Chain") == 0)
        type = plChain;
}

void OxaReader::ReadOptOBBAttributes(CXMLSaxAttribut** attributes, VCoords3D& reference, VCoords3D& x,
                                     VCoords3D& y, VCoords3D& z) {
    static const wchar_t* const names[] = {L"ref", L"vx", L"vy", L"vz"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    ReadCoords(values[0], 3, reference);
    ReadCoords(values[1], 3, x);
    ReadCoords(values[2], 3, y);
    ReadCoords(values[3], 3, z);
}

void OxaReader::ReadOptOBBxyAttributes(CXMLSaxAttribut** attributes, VCoords3D& reference, VCoords3D& x,
                                       VCoords3D& y, double& height) {
    static const wchar_t* const names[] = {L"ref", L"vx", L"vy", L"h"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    ReadCoords(values[0], 3, reference);
    ReadCoords(values[1], 2, x);
    ReadCoords(values[2], 2, y);
    height = Double(values[3], 0.0);
}

void OxaReader::ReadTextureCoords(CXMLSaxAttribut** attributes, std::vector<VCoords2D>& coords) {
    static const wchar_t* const names[] = {L"coords"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    VCoords2D pair;
    bool haveU = false;
    bool pairValid = true;
    ForEachToken(values[0], tokenSeparators, [&](const std::wstring& token) {
        double number = 0.0;
        const bool converted = tavxmln::XMLConvertText2Double(token.c_str(), number);
        if (!haveU) {
            pair.x = number;
            pairValid = converted;
            haveU = true;
            return;
        }
        pair.y = number;
        if (pairValid && converted)
            coords.push_back(pair);
        haveU = false;
    });
}

void OxaReader::ReadViewAttributes(CXMLSaxAttribut** attributes, std::wstring& id, std::wstring& name,
                                   bool& current, std::wstring& thumbnail) {
    static const wchar_t* const names[] = {L"ID", L"name", L"current", L"thumbnail"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    id = MappedID(values[0]);
    name = Text(values[1]);
    current = Bool(values[2], false);
    thumbnail = Text(values[3]);
}

void OxaReader::ReadClippingPlaneAttributes(CXMLSaxAttribut** attributes, double& distance, VCoords3D& normal,
                                            bool& off) {
    static const wchar_t* const names[] = {L"d", L"n", L"off"};
    const wchar_t* values[3];
    FindValues(attributes, names, values);
    distance = Double(values[0], 0.0);
    ReadCoords(values[1], 3, normal);
    off = Bool(values[2], false);
}

void OxaReader::ReadCameraAttributes(CXMLSaxAttribut** attributes, VCoords3D& eye, VCoords3D& lookAt,
                                     VCoords3D& up, double& nearPlane, double& farPlane, double& viewAngle,
                                     double& aspectRatio, int& projectionType, double& expOrthoWidth,
                                     double& expOrthoHeight, double& orthoWidth, double& orthoHeight,
                                     VCoords3D& savedEye, VCoords3D& savedLookAt) {
    static const wchar_t* const names[] = {
        L"eye",        L"lookat",      L"up",       L"nearPlane",     L"farPlane",
        L"viewAngle",  L"aspectRatio", L"projType", L"expOrthoWidth", L"expOrthoHeight",
        L"orthoWidth", L"orthoHeight", L"savedEye", L"savedLookat"};
    const wchar_t* values[14];
    FindValues(attributes, names, values);
    ReadCoords(values[0], 3, eye);
    ReadCoords(values[1], 3, lookAt);
    ReadCoords(values[2], 3, up);
    nearPlane = Double(values[3], 0.0);
    farPlane = Double(values[4], 0.0);
    viewAngle = Double(values[5], 0.0);
    aspectRatio = Double(values[6], 0.0);
    projectionType = values[7] && std::wcscmp(values[7], L"orthographic") == 0 ? 1 : 0;
    expOrthoWidth = Double(values[8], 0.0);
    expOrthoHeight = Double(values[9], 0.0);
    orthoWidth = Double(values[10], 0.0);
    orthoHeight = Double(values[11], 0.0);
    ReadCoords(values[12], 3, savedEye);
    ReadCoords(values[13], 3, savedLookAt);
}

void OxaReader::ReadActivitySection(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"version"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    StartActivitySection(Text(values[0]));
}

void OxaReader::ReadSchedule(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"ID", L"name", L"ref", L"duration"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    StartSchedule(MappedID(values[0]), Text(values[1]), Text(values[2]), Int(values[3], -1));
}

void OxaReader::ReadActivity(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"ID", L"name", L"wbs", L"duration", L"visType", L"refID"};
    const wchar_t* values[6];
    FindValues(attributes, names, values);
    StartActivity(MappedID(values[0]), Text(values[1]), Text(values[2]), Int(values[3], -1), Text(values[4]),
                  MappedID(values[5]));
}

void OxaReader::ReadDateTimeGroup(CXMLSaxAttribut** attributes, int (&fields)[6]) {
    static const wchar_t* const names[] = {L"date", L"time"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    ReadDateFields(values[0], values[1], fields);
}

void OxaReader::ReadStart(CXMLSaxAttribut** attributes) {
    int f[6];
    ReadDateTimeGroup(attributes, f);
    StartStart(f[0], f[1], f[2], f[3], f[4], f[5]);
}

void OxaReader::ReadEnd(CXMLSaxAttribut** attributes) {
    int f[6];
    ReadDateTimeGroup(attributes, f);
    StartEnd(f[0], f[1], f[2], f[3], f[4], f[5]);
}

void OxaReader::ReadLoggingSection(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"version"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    StartLoggingSection(Text(values[0]));
}

void OxaReader::ReadLevelDef(CXMLSaxAttribut**) {
    StartLevelDef();
}

void OxaReader::ReadMsgGrp(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"ID", L"description"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    StartMsgGrp(MappedID(values[0]), Text(values[1]));
}

void OxaReader::ReadMsgInfo(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"type", L"module", L"timeStamp", L"levelRefID"};
    static const wchar_t* const typeNames[] = {L"Info", L"Warning", L"Error", L"Summary", L"Debug", L"Fatal"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    EMsgTypes type = mtInfo;
    for (int i = 0; i < 6 && values[0]; ++i)
        if (std::wcscmp(values[0], typeNames[i]) == 0)
            type = EMsgTypes(i + 1);
    int f[6] = {0, 0, 0, 0, 0, 0};
    if (values[2])
        tavxmln::XMLConvertText2DateTime(values[2], f[0], f[1], f[2], f[3], f[4], f[5]);
    const std::wstring level = MappedID(values[3]);
    StartMsgInfo(type, Text(values[1]), f[0], f[1], f[2], f[3], f[4], f[5], level);
}

void OxaReader::ReadMsgSet(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"refID"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    MsgSet(MappedID(values[0]));
}

void OxaReader::ReadObjects(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"projectID",    L"sourceApp", L"sourceFileName",
                                           L"sourceFormat", L"created",   L"createdBy",
                                           L"changedBy",    L"changed",   L"oxaversion"};
    const wchar_t* values[9];
    FindValues(attributes, names, values);
    StartOxaDocument(Text(values[0]), Text(values[1]), Text(values[2]), Text(values[3]), Text(values[4]),
                     Text(values[5]), Text(values[6]), Text(values[7]), Text(values[8]));
}

void OxaReader::ReadContent(CXMLSaxAttribut**) {
    StartContent();
}

void OxaReader::ReadContentSection(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"name"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    Section(GetSectionType(Text(values[0])));
}

void OxaReader::ReadIdMappingEntry(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"k", L"v"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    const std::wstring key = Text(values[0]), value = Text(values[1]);
    const auto [entry, added] = identifierMap.try_emplace(key, value);
    if (added) {
        IndexMappedIdentifier(key, value);
    } else if (entry->second != value) {
        // The key's old value may be what the reverse index gives; rebuild it when next asked.
        entry->second = value;
        mappedIdentifiersCurrent = false;
    }
}

void OxaReader::ReadContainer(CXMLSaxAttribut** attributes) {
    std::wstring id, name, unit;
    bool composite = false;
    ReadIdNameUnit(attributes, id, name, unit);
    ReadCompositAttribute(attributes, composite);
    StartContainer(id, name, unit, composite);
}

void OxaReader::ReadRootContainer(CXMLSaxAttribut** attributes) {
    std::wstring id, name, unit;
    std::vector<double> rotation, translation;
    ReadIdNameUnit(attributes, id, name, unit);
    ReadRotTrans(attributes, rotation, translation);
    StartRootContainer(id, name, rotation, translation);
}

void OxaReader::ReadObject3D(CXMLSaxAttribut** attributes) {
    std::wstring id, materialId, name, refId;
    bool negative = false;
    ReadObjectBaseAttributes(attributes, id, materialId, name, negative, refId);
    StartObject3D(id, materialId, name, negative, refId);
}

void OxaReader::ReadObject2D(CXMLSaxAttribut** attributes) {
    std::wstring id, materialId, name, refId;
    bool negative = false;
    ReadObjectBaseAttributes(attributes, id, materialId, name, negative, refId);
    StartObject2D(id, materialId, name, negative, refId);
}

void OxaReader::ReadData3D(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"refID"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    StartData3D(MappedID(values[0]));
}

void OxaReader::ReadP(CXMLSaxAttribut** attributes) {
    int number = 0;
    double x = 0.0, y = 0.0, z = 0.0;
    ReadPointAttributes(attributes, number, x, y, z);
    Point(number, x, y, z);
}

void OxaReader::ReadT(CXMLSaxAttribut** attributes) {
    int p1 = -1, p2 = -1, p3 = -1;
    ReadTriangleAttributes(attributes, p1, p2, p3);
    StartTriangle(p1, p2, p3);
}

void OxaReader::ReadProperty(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"refID", L"name", L"datatype", L"unit"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    StartProperty(MappedID(values[0]), Text(values[1]), Text(values[2]), Text(values[3]));
}

void OxaReader::ReadVal(CXMLSaxAttribut**) {
    StartVal();
}

void OxaReader::ReadFaceShape(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"shape"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    StartFace();
    EFaceShape shape = fsNone;
    if (values[0] && std::wcscmp(values[0], L"Planar") == 0)
        shape = fsPlanar;
    else if (values[0] && std::wcscmp(values[0], L"Curved") == 0)
        shape = fsCurved;
    SetFaceShape(shape);
}

void OxaReader::ReadSetSection(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"version"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    StartSetSection(Text(values[0]));
}

void OxaReader::ReadSetContainer(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"ID", L"name"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    StartSetContainer(MappedID(values[0]), Text(values[1]));
}

int OxaReader::ReadSet(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"ID", L"name", L"ctype", L"type"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    const wchar_t* type = values[3] ? values[3] : L"0";
    if (std::wcscmp(type, L"0") == 0) {
        StartObjectSet(MappedID(values[0]), Text(values[1]), Text(values[2]));
        return esSet;
    }
    if (std::wcscmp(type, L"1") == 0) {
        StartSmartSet(MappedID(values[0]), Text(values[1]), Text(values[2]));
        return esSmartSet;
    }
    return -1;
}

void OxaReader::ReadSetContent(const wchar_t* text) {
    if (elementStack.back() == esSmartSet) {
        SmartSetPredicate(text);
        return;
    }
    ForEachToken(text, tokenSeparators,
                 [this](const std::wstring& token) { ObjectSetAddElement(GetObjectID(token)); });
}

void OxaReader::ReadMaterial(CXMLSaxAttribut** attributes) {
    std::wstring id, name, unit;
    ReadIdNameUnit(attributes, id, name, unit);
    StartMaterial(id, name);
}

void OxaReader::ReadTexture(CXMLSaxAttribut** attributes) {
    if (!elementStack.empty() && (elementStack.back() == esT || elementStack.back() == esPl)) {
        std::vector<VCoords2D> coords;
        ReadTextureCoords(attributes, coords);
        TextureCoords(coords);
        return;
    }
    static const wchar_t* const names[] = {L"file"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    TextureFile(Text(values[0]));
}

void OxaReader::ReadLine(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"p1", L"p2"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    Line(Int(values[0], -1), Int(values[1], -1));
}

void OxaReader::ReadPolyline(CXMLSaxAttribut** attributes) {
    std::vector<int> points;
    double thickness = 1.0;
    EPolylineType type = plNone;
    ReadPolylineAttributes(attributes, points, thickness, type);
    StartPolyline(points, thickness, type);
}

void OxaReader::ReadGenericObject(CXMLSaxAttribut** attributes) {
    std::wstring id, name, unit;
    ReadIdNameUnit(attributes, id, name, unit);
    GenericObject(id, name);
}

void OxaReader::ReadColorElement(CXMLSaxAttribut** attributes, int state) {
    int r = 0, g = 0, b = 0;
    double a = -1.0;
    ReadColor(attributes, r, g, b, a);
    if (state == esDiff)
        ColorDiff(r, g, b, a);
    else if (state == esSpec)
        ColorSpec(r, g, b, a);
    else
        ColorAmb(r, g, b, a);
}

void OxaReader::ReadTrans(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"v"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    ColorTrans(Double(values[0], 0.0));
}

void OxaReader::ReadOptOBB(CXMLSaxAttribut** attributes) {
    VCoords3D reference, x, y, z;
    ReadOptOBBAttributes(attributes, reference, x, y, z);
    OptOBB(reference, x, y, z);
}

void OxaReader::ReadOptOBBxy(CXMLSaxAttribut** attributes) {
    VCoords3D reference, x, y;
    double height = 0.0;
    ReadOptOBBxyAttributes(attributes, reference, x, y, height);
    OptOBBxy(reference, x, y, height);
}

void OxaReader::ReadObjectSection(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"unit", L"version"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    StartObjectSection(Text(values[0]), Text(values[1]));
}

void OxaReader::ReadVersionedSection(CXMLSaxAttribut** attributes, int state) {
    static const wchar_t* const names[] = {L"version"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    const std::wstring version = Text(values[0]);
    switch (state) {
    case esObjectDataSection:
        StartObjectDataSection(version);
        break;
    case esMaterialSection:
        StartMaterialSection(version);
        break;
    case esPropertySection:
        StartPropertySection(version);
        break;
    case esTopologySection:
        StartTopologySection(version);
        break;
    case esFitSection:
        StartFitSection(version);
        break;
    case esVisualisationSection:
        StartVisualisationSection(version);
        break;
    default:
        break;
    }
}

void OxaReader::ReadContacts(CXMLSaxAttribut** attributes, int state) {
    static const wchar_t* const names[] = {L"eps", L"unit", L"sym"};
    const wchar_t* values[3];
    FindValues(attributes, names, values);
    // An absent "sym" means a symmetric list: the writer leaves it out for true.
    const bool symmetric = Bool(values[2], true);
    if (state == esContacts)
        StartContacts(Double(values[0], 0.0), Text(values[1]), symmetric);
    else
        StartIntersections(Double(values[0], 0.0), Text(values[1]), symmetric);
}

void OxaReader::ReadPair(CXMLSaxAttribut** attributes, int state) {
    static const wchar_t* const names[] = {L"L", L"R"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    std::wstring left = MappedID(values[0]);
    std::wstring right = MappedID(values[1]);
    if (state == esContact)
        Contact(left, right);
    else
        Intersection(left, right);
}

void OxaReader::ReadHRefs(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"unit"};
    const wchar_t* values[1];
    FindValues(attributes, names, values);
    StartHRefs(Text(values[0]));
}

/// The "ID" of a height reference is taken as it stands, without the identifier map: hosts
/// match height references by the number the document uses.
void OxaReader::ReadHRef(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"ID", L"z"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    HRef(Text(values[0]), Double(values[1], 0.0));
}

/// Only the two height references go through the identifier map; "refID" stands as it is.
void OxaReader::ReadHRefRel(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"refID", L"hRefL", L"hRefU"};
    const wchar_t* values[3];
    FindValues(attributes, names, values);
    HRefRel(Text(values[0]), MappedID(values[1]), MappedID(values[2]));
}

void OxaReader::ReadItem(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"ID", L"key", L"matchKey", L"name", L"desc"};
    const wchar_t* values[5];
    FindValues(attributes, names, values);
    StartItem(MappedID(values[0]), Text(values[1]), Text(values[2]), Text(values[3]), Text(values[4]));
}

void OxaReader::ReadItemData(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"refID", L"desc"};
    const wchar_t* values[2];
    FindValues(attributes, names, values);
    StartItemData(MappedID(values[0]), Text(values[1]));
}

void OxaReader::ReadFormula(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"orig", L"qto", L"text", L"var"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    StartFormula(Bool(values[0], false), Bool(values[1], false), Text(values[2]), Text(values[3]));
}

void OxaReader::ReadResult(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"refID", L"datatype", L"value", L"quality", L"geometry"};
    const wchar_t* values[5];
    FindValues(attributes, names, values);
    StartResult(MappedID(values[0]), Text(values[1]),
                Double(values[2], std::numeric_limits<double>::quiet_NaN()), Int(values[3], 0),
                Text(values[4]));
}

void OxaReader::ReadViewContainer(CXMLSaxAttribut** attributes) {
    std::wstring id, name, unit;
    ReadIdNameUnit(attributes, id, name, unit);
    StartViewContainer(id, name);
}

void OxaReader::ReadView(CXMLSaxAttribut** attributes) {
    std::wstring id, name, thumbnail;
    bool current = false;
    ReadViewAttributes(attributes, id, name, current, thumbnail);
    StartView(id, name, current, thumbnail);
}

void OxaReader::ReadCamera(CXMLSaxAttribut** attributes) {
    VCoords3D eye, lookAt, up, savedEye, savedLookAt;
    double nearPlane = 0, farPlane = 0, viewAngle = 0, aspectRatio = 0;
    double expOrthoWidth = 0, expOrthoHeight = 0, orthoWidth = 0, orthoHeight = 0;
    int projectionType = 0;
    ReadCameraAttributes(attributes, eye, lookAt, up, nearPlane, farPlane, viewAngle, aspectRatio,
                         projectionType, expOrthoWidth, expOrthoHeight, orthoWidth, orthoHeight, savedEye,
                         savedLookAt);
    ViewCamera(eye, lookAt, up, nearPlane, farPlane, viewAngle, aspectRatio, projectionType, expOrthoWidth,
               expOrthoHeight, orthoWidth, orthoHeight, savedEye, savedLookAt);
}

void OxaReader::ReadLight(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"nr", L"name", L"off"};
    const wchar_t* values[3];
    FindValues(attributes, names, values);
    StartLight(Int(values[0], 0), Text(values[1]), Bool(values[2], false));
}

void OxaReader::ReadLightPlacement(CXMLSaxAttribut** attributes, int state) {
    static const wchar_t* const names[] = {L"pos", L"dir", L"cutoff"};
    const wchar_t* values[3];
    FindValues(attributes, names, values);
    VCoords3D position, direction;
    ReadCoords(values[0], 3, position);
    ReadCoords(values[1], 3, direction);
    if (state == esSpot)
        SpotLight(position, direction, Double(values[2], 0.0));
    else if (state == esPositional)
        PositionalLight(position);
    else
        DirectionalLight(direction);
}

void OxaReader::ReadBackground(CXMLSaxAttribut** attributes) {
    int r = 0, g = 0, b = 0;
    double a = -1.0;
    ReadColor(attributes, r, g, b, a);
    ViewBackGround(r, g, b);
}

void OxaReader::ReadClippingPlane(CXMLSaxAttribut** attributes) {
    double distance = 0.0;
    VCoords3D normal;
    bool off = false;
    ReadClippingPlaneAttributes(attributes, distance, normal, off);
    ViewClippingPlane(distance, normal, off);
}

void OxaReader::ReadUnitSection(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"version", L"defaultUnitLength", L"defaultUnitWeight",
                                           L"defaultUnitTime"};
    const wchar_t* values[4];
    FindValues(attributes, names, values);
    StartUnitSection(Text(values[0]), Text(values[1]), Text(values[2]), Text(values[3]));
}

void OxaReader::ReadUnit(CXMLSaxAttribut** attributes) {
    static const wchar_t* const names[] = {L"dim",      L"roundMode",      L"digits",     L"digitsMode",
                                           L"baseUnit", L"linearBaseUnit", L"convFactor", L"desc"};
    const wchar_t* values[8];
    FindValues(attributes, names, values);
    ERoundMode roundMode = rmNone;
    if (values[1] && std::wcscmp(values[1], L"up") == 0)
        roundMode = rmUp;
    else if (values[1] && std::wcscmp(values[1], L"down") == 0)
        roundMode = rmDown;
    Nullable<unsigned int> digits;
    long digitCount = 0;
    if (values[2] && tavxmln::XMLConvertText2Long(values[2], digitCount) && digitCount >= 0)
        digits = Nullable<unsigned int>(static_cast<unsigned int>(digitCount));
    EDigitsMode digitsMode = dmNone;
    if (values[3] && std::wcscmp(values[3], L"decimal") == 0)
        digitsMode = dmDecimal;
    else if (values[3] && std::wcscmp(values[3], L"significant") == 0)
        digitsMode = dmSignificant;
    else if (values[3] && std::wcscmp(values[3], L"integer") == 0)
        digitsMode = dmInteger;
    Nullable<double> convFactor;
    double factor = 0.0;
    if (values[6] && tavxmln::XMLConvertText2Double(values[6], factor))
        convFactor = Nullable<double>(factor);
    Unit(static_cast<unsigned int>(Int(values[0], 0)), roundMode, digits, digitsMode, Text(values[4]),
         Text(values[5]), convFactor, Text(values[7]));
}

} // namespace oxaIO
