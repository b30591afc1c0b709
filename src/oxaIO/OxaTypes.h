#pragma once

/// Plain value types and enumerations of the exchange-document layer, shared by the reader, the
/// writer and the document model. Everything here is header-only: no behaviour to export.

namespace oxaIO {

/// Code of an open element on the element stack of the reader and the writer. Both sides use
/// this one numbering; the gaps (24, 33, 42, 45 to 47, 83, 85, 94) name no element.
enum EElementState {
    esUnknown = 0, ///< an element the format does not know
    esObjects = 1,
    esContent = 2,
    esSection = 3,
    esIDMapping = 4,
    esID = 5,
    esObjectSection = 6,
    esObjectDataSection = 7,
    esMaterial = 8,
    esMaterialSection = 9,
    esDiff = 10,
    esSpec = 11,
    esAmb = 12,
    esTrans = 13,
    esTex = 14,
    esContainer = 15,
    esRootContainer = 16,
    esGenericObject = 17,
    esObject2D = 18,
    esObject3D = 19,
    esData3D = 20,
    esP = 21,
    esL = 22,
    esT = 23,
    esPl = 25,
    esSolid = 26,
    esFace = 27,
    esTess = 28,
    esA = 29,
    esC = 30,
    esTxt = 31,
    esColor = 32,
    esOptOBB = 34,
    esOptOBBxy = 35,
    esPropertySection = 36,
    esProperty = 37,
    esVal = 38,
    esTopologySection = 39,
    esContacts = 40,
    esContact = 41,
    esIntersections = 43,
    esIsect = 44,
    esHRefs = 48,
    esHRef = 49,
    esHRefRel = 50,
    esFitSection = 51,
    esItems = 52,
    esItem = 53,
    esQto = 54,
    esItemData = 55,
    esFormula = 56,
    esResult = 57,
    esVisualisationSection = 58,
    esViewContainer = 59,
    esView = 60,
    esCamera = 61,
    esLight = 62,
    esSpot = 63,
    esPositional = 64,
    esDirectional = 65,
    esBgColor = 66,
    esClpPlane = 67,
    esThumbnail = 68,
    esUnitSection = 69,
    esUnit = 70,
    esCurrencySection = 71,
    esBaseCurr = 72,
    esCurr = 73,
    esSetSection = 74,
    esSet = 75, ///< an object set; the writer uses it for both forms of `set`
    esSetContainer = 76,
    esSmartSet = 77, ///< a `set` of the smart form; only the reader tells the two forms apart
    esBsSection = 78,
    esBsTypes = 79,
    esBsType = 80,
    esBsItem = 81,
    esBsSet = 82,
    esLoggingSection = 84,
    esQtoInstances = 86,
    esActivitySection = 87,
    esSchedule = 88,
    esDesc = 89,
    esActivity = 90,
    esStart = 91,
    esEnd = 92,
    esLevelDef = 93,
    esMsgGrp = 95,
    esMsgInfo = 96,
    esMsgTxt = 97,
    esMsgSet = 98
};

/// The sections of a document, as listed in its `content` and told to the reader's callbacks.
enum ESectionType {
    stNone = 0, ///< an unknown section name
    stObjectSection = 1,
    stObjectDataSection = 2,
    stPropertySection = 3,
    stTopologySection = 4,
    stFitSection = 5,
    stUnitSection = 6,
    stCurrencySection = 7,
    stVisualisationSection = 8,
    stMaterialSection = 9,
    stBsSection = 10,
    stSetSection = 11,
    stActivitySection = 12,
    stClashSection = 13,
    stLoggingSection = 14
};

/// The element name of a section type ("objectSection" ...), or null for `stNone` and for a
/// value out of range.
inline const wchar_t* SectionName(ESectionType type) {
    static const wchar_t* const names[] = {
        nullptr,       L"objectSection", L"objectDataSection", L"propertySection",      L"topologySection",
        L"fitSection", L"unitSection",   L"currencySection",   L"visualisationSection", L"materialSection",
        L"bsSection",  L"setSection",    L"activitySection",   L"clashSection",         L"loggingSection"};
    const int index = static_cast<int>(type);
    return index > 0 && index <= stLoggingSection ? names[index] : nullptr;
}

/// The kind of a polyline: its `type` attribute.
enum EPolylineType {
    plNone = 0, ///< no `type` given, or a text that is neither of the two
    plChain = 1,
    plPolygon = 2
};

/// The shape of a face: its `shape` attribute.
enum EFaceShape {
    fsNone = 0, ///< no `shape` given, or another text
    fsPlanar = 1,
    fsCurved = 2
};

/// The kind of a logged message.
enum EMsgTypes { mtInfo = 1, mtWarning = 2, mtError = 3, mtSummary = 4, mtDebug = 5, mtFatal = 6 };

/// How a unit rounds its values.
enum ERoundMode {
    rmUp = 0,
    rmDown = 1,
    rmNone = 2 ///< not given
};

/// What a unit's digit count counts.
enum EDigitsMode {
    dmNone = 0, ///< not given
    dmDecimal = 1,
    dmSignificant = 2,
    dmInteger = 3
};

/// A pair of coordinates, e.g. a texture coordinate u, v.
struct VCoords2D {
    double x = 0.0;
    double y = 0.0;
};

/// A point or vector in space.
struct VCoords3D {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

/// A colour as the document layer keeps it: four channels in the range 0 to 1.
struct VColor4 {
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 0.0f;
};

/// A value that a document may leave out, as the reader hands it on: the flag says whether the
/// value exists.
template <typename T> struct Nullable {
    Nullable() = default;
    Nullable(const T& value) : value(value), hasValue(true) {}

    bool HasValue() const { return hasValue; }
    const T& Value() const { return value; }

    T value{};
    bool hasValue = false;
};

/// A value that the writer may leave out: the flag says that the value is absent, and the
/// attribute is then not written.
template <typename T> struct VOptional {
    VOptional() = default;
    VOptional(const T& value) : value(value), isAbsent(false) {}

    bool IsAbsent() const { return isAbsent; }
    const T& Value() const { return value; }

    T value{};
    bool isAbsent = true;
};

} // namespace oxaIO
