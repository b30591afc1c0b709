#pragma once

// Small hand-made implementations of the document interfaces, as a host would write them, with
// values enough for a walk of the writer to have coordinates, colours and texture runs to write.
// Most instances count themselves in `Counted::alive`, so that a test can tell who deleted what;
// texture queries are recorded so that a test can see which run index was asked.

#include "oxaIO/IContainer.h"
#include "oxaIO/IDateTimeGroup.h"
#include "oxaIO/IGeometryObject.h"
#include "oxaIO/IItem.h"
#include "oxaIO/IMaterial.h"
#include "oxaIO/IOBB.h"
#include "oxaIO/ISchedule.h"
#include "oxaIO/ISet.h"
#include "oxaIO/IUnit.h"
#include "oxaIO/IView.h"

#include <QByteArray>
#include <QtAlgorithms>

#include <list>
#include <memory>
#include <string>
#include <vector>

namespace testmodel {

using namespace oxaIO;

/// Counts the live instances of every test class.
struct Counted {
    Counted() { ++alive; }
    Counted(const Counted&) = delete;
    ~Counted() { --alive; }
    static inline int alive = 0;
};

template <typename Base> class Named : public Base, public Counted {
public:
    explicit Named(std::wstring id, std::wstring name = {}) : id(std::move(id)), name(std::move(name)) {}
    std::wstring ID() const override { return id; }
    std::wstring Name() const override { return name; }

private:
    std::wstring id;
    std::wstring name;
};

template <typename T> void Append(const std::list<T*>& from, std::list<T*>* to) {
    to->insert(to->end(), from.begin(), from.end());
}

class Vertex : public IVertex {
public:
    Vertex(double x, double y, double z) : x(x), y(y), z(z) {}
    double X() const override { return x; }
    double Y() const override { return y; }
    double Z() const override { return z; }

private:
    double x, y, z;
};

/// Texture coordinates handed out for any run index, with the indices that were asked.
class TextureRun {
public:
    std::vector<VCoords2D> coords;
    mutable std::vector<int> askedIndices;

    void Hand(int index, std::vector<VCoords2D>* out) const {
        askedIndices.push_back(index);
        out->insert(out->end(), coords.begin(), coords.end());
    }
};

class Triangle : public ITriangle, public Counted {
public:
    Triangle(IVertex* a, IVertex* b, IVertex* c, bool root = true) : vertices{a, b, c}, root(root) {}
    IVertex* Vertex(int index) const override { return vertices[index]; }
    void TextureCoords(int index, std::vector<VCoords2D>* coords) const override {
        texture.Hand(index, coords);
    }
    bool IsRootGeometry() const override { return root; }
    TextureRun texture;

private:
    IVertex* vertices[3];
    bool root;
};

class Polygon : public IPolygon, public Counted {
public:
    Polygon(std::vector<IVertex*> vertices, EPolylineType type = plPolygon, bool root = true)
        : vertices(std::move(vertices)), type(type), root(root) {}
    /// A polygon without vertices with `tessellated` triangles in its tessellation.
    explicit Polygon(int tessellated) : Polygon(std::vector<IVertex*>{}) {
        for (int i = 0; i < tessellated; ++i)
            Tessellate(nullptr, nullptr, nullptr);
    }
    ~Polygon() override { qDeleteAll(tessellation); }
    Triangle* Tessellate(IVertex* a, IVertex* b, IVertex* c) {
        tessellation.push_back(new Triangle(a, b, c, false));
        return static_cast<Triangle*>(tessellation.back());
    }
    int Length() const override { return int(vertices.size()); }
    const IVertex* Vertex(int index) const override { return vertices[std::size_t(index)]; }
    void Tessellation(std::list<ITriangle*>* triangles) const override { Append(tessellation, triangles); }
    void TextureCoords(int index, std::vector<VCoords2D>* coords) const override {
        texture.Hand(index, coords);
    }
    bool IsRootGeometry() const override { return root; }
    EPolylineType Type() const override { return type; }
    TextureRun texture;

private:
    std::vector<IVertex*> vertices;
    std::list<ITriangle*> tessellation;
    EPolylineType type;
    bool root;
};

class Face : public IFace {
public:
    explicit Face(EFaceShape shape = fsPlanar) : shape(shape) {}
    ~Face() override {
        qDeleteAll(triangles);
        qDeleteAll(polygons);
    }
    template <typename T> T* Add(T* part) {
        if constexpr (std::is_base_of_v<ITriangle, T>)
            triangles.push_back(part);
        else
            polygons.push_back(part);
        return part;
    }
    void Triangles(std::list<ITriangle*>* list) const override { Append(triangles, list); }
    void Polygons(std::list<IPolygon*>* list) const override { Append(polygons, list); }
    EFaceShape Shape() const override { return shape; }

private:
    std::list<ITriangle*> triangles;
    std::list<IPolygon*> polygons;
    EFaceShape shape;
};

class Solid : public ISolid {
public:
    ~Solid() override { qDeleteAll(faces); }
    Face* Add(Face* face) {
        faces.push_back(face);
        return face;
    }
    void Faces(std::list<IFace*>* list) const override { Append(faces, list); }

private:
    std::list<IFace*> faces;
};

class Box : public IOBB {
public:
    Box(VCoords3D ref, VCoords3D vx, VCoords3D vy, VCoords3D vz) : ref(ref), vx(vx), vy(vy), vz(vz) {}
    VCoords3D Ref() const override { return ref; }
    VCoords3D Vx() const override { return vx; }
    VCoords3D Vy() const override { return vy; }
    VCoords3D Vz() const override { return vz; }

private:
    VCoords3D ref, vx, vy, vz;
};

/// A mesh: it owns its vertices, triangles, polygons, faces and solids.
template <typename Base> class Mesh : public Named<Base> {
public:
    using Named<Base>::Named;
    ~Mesh() override {
        qDeleteAll(vertices);
        qDeleteAll(triangles);
        qDeleteAll(polygons);
        qDeleteAll(faces);
        qDeleteAll(solids);
    }
    Vertex* AddVertex(double x, double y, double z) {
        vertices.push_back(new Vertex(x, y, z));
        return static_cast<Vertex*>(vertices.back());
    }
    Polygon* AddPolygon(Polygon* polygon) {
        polygons.push_back(polygon);
        return polygon;
    }
    /// A triangle, face or solid.
    template <typename T> T* Add(T* part) {
        if constexpr (std::is_base_of_v<ITriangle, T>)
            triangles.push_back(part);
        else if constexpr (std::is_base_of_v<IFace, T>)
            faces.push_back(part);
        else
            solids.push_back(part);
        return part;
    }

    void Triangles(std::list<ITriangle*>* list) const override { Append(triangles, list); }
    void Polygons(std::list<IPolygon*>* list) const override { Append(polygons, list); }
    void Faces(std::list<IFace*>* list) const override { Append(faces, list); }
    void Solids(std::list<ISolid*>* list) const override { Append(solids, list); }
    void Vertices(std::list<IVertex*>* list) const override { Append(vertices, list); }
    bool Negative() const override { return negative; }
    std::wstring RefID() const override { return refID; }
    const IMaterial* Material() const override { return material; }

    bool negative = false;
    std::wstring refID;
    const IMaterial* material = nullptr;

private:
    std::list<IVertex*> vertices;
    std::list<ITriangle*> triangles;
    std::list<IPolygon*> polygons;
    std::list<IFace*> faces;
    std::list<ISolid*> solids;
};

class Object3D : public Mesh<IObject3D> {
public:
    using Mesh::Mesh;
    const IOBB* OOBB() const override { return box.get(); }
    std::unique_ptr<Box> box;
};

using Object2D = Mesh<IObject2D>;
using GenericObject = Named<IGenericObject>;

/// A container that owns its children and objects, and may be composite.
class Container : public Named<IContainer> {
public:
    explicit Container(std::wstring id, std::wstring name = {}, bool composite = false)
        : Named(std::move(id), std::move(name)), composite(composite) {}
    ~Container() override {
        qDeleteAll(containers);
        qDeleteAll(objects3D);
        qDeleteAll(objects2D);
        qDeleteAll(genericObjects);
    }
    template <typename T> T* Add(T* child) {
        if constexpr (std::is_base_of_v<IContainer, T>)
            containers.push_back(child);
        else if constexpr (std::is_base_of_v<IObject3D, T>)
            objects3D.push_back(child);
        else if constexpr (std::is_base_of_v<IObject2D, T>)
            objects2D.push_back(child);
        else
            genericObjects.push_back(child);
        return child;
    }

    void Containers(std::list<IContainer*>* list) override { Append(containers, list); }
    void Objects3D(std::list<IObject3D*>* list) override { Append(objects3D, list); }
    void Objects2D(std::list<IObject2D*>* list) override { Append(objects2D, list); }
    void GenericObjects(std::list<IGenericObject*>* list) override { Append(genericObjects, list); }
    bool IsEmpty() const override {
        return containers.empty() && objects3D.empty() && objects2D.empty() && genericObjects.empty();
    }
    bool IsComposite() const override { return composite; }

private:
    std::list<IContainer*> containers;
    std::list<IObject3D*> objects3D;
    std::list<IObject2D*> objects2D;
    std::list<IGenericObject*> genericObjects;
    bool composite;
};

class Material : public Named<IMaterial> {
public:
    explicit Material(std::wstring id, std::wstring name = {}, VColor4 diffuse = {}, double transparency = 0.0,
                      std::wstring texture = {})
        : Named(std::move(id), std::move(name)), diffuse(diffuse), transparency(transparency),
          texture(std::move(texture)) {}
    VColor4 Diffuse() const override { return diffuse; }
    VColor4 Specular() const override { return {0.5f, 0.5f, 0.5f, 1.0f}; }
    VColor4 Ambient() const override { return {0.1f, 0.2f, 0.3f, 1.0f}; }
    double Transparency() const override { return transparency; }
    std::wstring TextureFileName() const override { return texture; }

private:
    VColor4 diffuse;
    double transparency;
    std::wstring texture;
};

class HRef : public Named<IHRef> {
public:
    using Named::Named;
    double ZValue() const override { return 0.0; }
};

class ObjectSet : public Named<IObjectSet> {
public:
    using Named::Named;
    void ContentType(std::wstring type) override { contentType = std::move(type); }
    std::wstring ContentType() const override { return contentType; }
    std::list<std::wstring> ElementIDs() const override { return ids; }
    std::list<IObject*> ElementList() const override { return {}; }
    void AddElementID(std::wstring id) override { ids.push_back(std::move(id)); }
    void AddElement(IObject* element) override { ids.push_back(element->ID()); }

private:
    std::wstring contentType;
    std::list<std::wstring> ids;
};

/// A set that is not an object set: never written.
class SmartSet : public Named<ISet> {
public:
    using Named::Named;
    void ContentType(std::wstring) override {}
    std::wstring ContentType() const override { return L"Object3D"; }
    std::list<std::wstring> ElementIDs() const override { return {L"wall"}; }
    std::list<IObject*> ElementList() const override { return {}; }
};

class Camera : public ICamera {
public:
    explicit Camera(int projection) : projection(projection) {}
    VCoords3D Eye() const override { return {10, -5, 3}; }
    VCoords3D LookAt() const override { return {0, 0, 1}; }
    VCoords3D Up() const override { return {0, 0, 1}; }
    double NearPlane() const override { return 0.25; }
    double FarPlane() const override { return 500; }
    double ViewAngle() const override { return 45; }
    double AspectRatio() const override { return 1.6; }
    int ProjectionType() const override { return projection; }
    double ExpOrthoWidth() const override { return 20; }
    double ExpOrthoHeight() const override { return 12.5; }
    double OrthoWidth() const override { return 19; }
    double OrthoHeight() const override { return 11.875; }
    VCoords3D SavedEye() const override { return {1, 2, 3}; }
    VCoords3D SavedLookAt() const override { return {4, 5, 6}; }

private:
    int projection;
};

class Light : public ILight {
public:
    Light(int number, int type) : number(number), type(type) {}
    VColor4 Diffuse() const override { return {1.0f, 1.0f, 1.0f, 1.0f}; }
    VColor4 Specular() const override { return {0.5f, 0.5f, 0.5f, 1.0f}; }
    VColor4 Ambient() const override { return {0.2f, 0.2f, 0.2f, 0.0f}; }
    int Type() const override { return type; }
    VCoords3D Position() const override { return {0, 0, 10}; }
    VCoords3D Direction() const override { return {0, 0, -1}; }
    bool IsOff() const override { return number > 1; }
    double Cutoff() const override { return 30; }
    int Number() const override { return number; }
    std::wstring Name() const override { return number == 0 ? L"Sun" : L""; }
    void Spot(const VCoords3D&, const VCoords3D&, double) override {}
    void Positional(const VCoords3D&) override {}
    void Directional(const VCoords3D&) override {}

private:
    int number;
    int type;
};

class ClippingPlane : public IClippingPlane {
public:
    VCoords3D Normal() const override { return {0, 0, 1}; }
    double Distance() const override { return 2.5; }
    bool IsOff() const override { return false; }
};

/// A current view with a white background that owns its cameras, lights and planes; its
/// thumbnail is the given bytes, or a file when there are none.
class View : public Named<IView> {
public:
    explicit View(std::wstring id, std::wstring name = {}, QByteArray thumbnail = {})
        : Named(std::move(id), std::move(name)), thumbnail(std::move(thumbnail)) {}
    ~View() override {
        qDeleteAll(cameras);
        qDeleteAll(lights);
        qDeleteAll(planes);
    }
    std::list<ICamera*>& Cameras() override { return cameras; }
    std::list<ILight*>& Lights() override { return lights; }
    std::list<IClippingPlane*>& ClippingPlanes() override { return planes; }
    VColor4 BackgroundColor() const override { return {1.0f, 1.0f, 1.0f, 1.0f}; }
    bool HasBackground() const override { return true; }
    bool IsCurrent() const override { return true; }
    std::wstring ThumbnailFile() const override { return thumbnail.isEmpty() ? L"view.png" : L""; }
    const unsigned char* ThumbnailData() const override {
        return thumbnail.isEmpty() ? nullptr : reinterpret_cast<const unsigned char*>(thumbnail.constData());
    }
    long ThumbnailSize() const override { return thumbnail.size(); }

private:
    QByteArray thumbnail;
    std::list<ICamera*> cameras;
    std::list<ILight*> lights;
    std::list<IClippingPlane*> planes;
};

/// A view container that owns its views and counts how often it was asked for them.
class ViewContainer : public Named<IViewContainer> {
public:
    using Named::Named;
    ~ViewContainer() override { qDeleteAll(views); }
    void AddView(IView* view) override {
        if (view)
            views.push_back(view);
    }
    const std::list<IView*>& Views() const override {
        ++viewQueries;
        return views;
    }
    bool IsEmpty() const override { return views.empty(); }
    mutable int viewQueries = 0;

private:
    std::list<IView*> views;
};

/// An item that owns its sub-items.
class Item : public IItem, public Counted {
public:
    explicit Item(std::wstring id) : id(std::move(id)) {}
    ~Item() override { qDeleteAll(subItems); }
    Item* Add(Item* item) {
        subItems.push_back(item);
        return item;
    }
    void SubItems(std::list<IItem*>* items) const override { Append(subItems, items); }
    std::wstring ID() const override { return id; }
    std::wstring Name() const override { return {}; }
    std::wstring Key() const override { return {}; }
    std::wstring MatchKey() const override { return {}; }

private:
    std::wstring id;
    std::list<IItem*> subItems;
};

class Result : public IResult, public Counted {
public:
    explicit Result(std::wstring refID) : refID(std::move(refID)) {}
    std::wstring RefID() const override { return refID; }
    VOptional<double> Value() const override { return {}; }
    long Quality() const override { return 0; }
    std::wstring Geometry() const override { return {}; }
    std::wstring Text() const override { return {}; }

private:
    std::wstring refID;
};

/// A formula that owns its results.
class Formula : public IFormula, public Counted {
public:
    ~Formula() override { qDeleteAll(results); }
    void Add(Result* result) { results.push_back(result); }
    bool IsQuantity() const override { return true; }
    bool IsOriginal() const override { return false; }
    std::wstring Text() const override { return {}; }
    std::wstring Variable() const override { return {}; }
    void Results(std::list<IResult*>* list) const override { Append(results, list); }

private:
    std::list<IResult*> results;
};

/// Quantities of an item, owning its formulas.
class ItemData : public IItemData, public Counted {
public:
    explicit ItemData(std::wstring refID) : refID(std::move(refID)) {}
    ~ItemData() override { qDeleteAll(formulas); }
    Formula* Add(Formula* formula) {
        formulas.push_back(formula);
        return formula;
    }
    std::wstring RefID() const override { return refID; }
    std::wstring Description() const override { return {}; }
    void Formulas(std::list<IFormula*>* list) const override { Append(formulas, list); }

private:
    std::wstring refID;
    std::list<IFormula*> formulas;
};

/// A length unit: plain metres, or a unit that converts to metres by `factor`.
class Unit : public IUnit, public Counted {
public:
    explicit Unit(std::wstring name = L"m", VOptional<double> factor = {}, VOptional<long> digits = {},
                  std::wstring description = {})
        : name(std::move(name)), factor(factor), digits(digits), description(std::move(description)) {}
    std::wstring Name() const override { return name; }
    std::wstring BaseUnit() const override { return factor.IsAbsent() ? L"" : L"m"; }
    VOptional<double> ConversionFactor() const override { return factor; }
    int Dimension() const override { return 1; }
    std::wstring Description() const override { return description; }
    VOptional<long> Digits() const override { return digits; }

private:
    std::wstring name;
    VOptional<double> factor;
    VOptional<long> digits;
    std::wstring description;
};

class DateTimeGroup : public IDateTimeGroup, public Counted {
public:
    int Year() const override { return 2024; }
    int Month() const override { return 6; }
    int Day() const override { return 1; }
    int Hour() const override { return 12; }
    int Minute() const override { return 0; }
    int Second() const override { return 0; }
};

/// An activity that owns its sub-activities.
class Activity : public IActivity, public Counted {
public:
    Activity(std::wstring id, std::wstring refID) : id(std::move(id)), refID(std::move(refID)) {}
    ~Activity() override { qDeleteAll(subActivities); }
    Activity* Add(Activity* activity) {
        subActivities.push_back(activity);
        return activity;
    }
    std::wstring ID() const override { return id; }
    std::wstring Name() const override { return {}; }
    std::wstring WBS() const override { return {}; }
    long Duration() const override { return -1; }
    std::wstring RefID() const override { return refID; }
    const std::list<IActivity*>& SubActivities() const override { return subActivities; }
    const IDateTimeGroup* Start() const override { return nullptr; }
    const IDateTimeGroup* End() const override { return nullptr; }

private:
    std::wstring id;
    std::wstring refID;
    std::list<IActivity*> subActivities;
};

/// A schedule that owns its activities and its dates; its reference and description differ.
class Schedule : public Named<ISchedule> {
public:
    using Named::Named;
    ~Schedule() override { qDeleteAll(activities); }
    Activity* Add(Activity* activity) {
        activities.push_back(activity);
        return activity;
    }
    std::wstring Reference() const override { return reference; }
    long Duration() const override { return 0; }
    const std::list<IActivity*>& Activities() const override { return activities; }
    std::wstring Description() const override { return L"not written"; }
    const IDateTimeGroup* Start() const override { return &start; }
    const IDateTimeGroup* End() const override { return &end; }
    std::wstring reference = L"Phase 1";

private:
    std::list<IActivity*> activities;
    DateTimeGroup start;
    DateTimeGroup end;
};

} // namespace testmodel
