#pragma once

// Small hand-made implementations of the document interfaces, as a host would write them.
// Every instance counts itself in `Counted::alive`, so that a test can tell who deleted what.

#include "oxaIO/IContainer.h"
#include "oxaIO/IDateTimeGroup.h"
#include "oxaIO/IGeometryObject.h"
#include "oxaIO/IItem.h"
#include "oxaIO/IMaterial.h"
#include "oxaIO/ISchedule.h"
#include "oxaIO/ISet.h"
#include "oxaIO/IUnit.h"
#include "oxaIO/IView.h"

#include <QtAlgorithms>

#include <list>
#include <string>

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

class Triangle : public ITriangle, public Counted {
public:
    IVertex* Vertex(int) const override { return nullptr; }
    void TextureCoords(int, std::vector<VCoords2D>*) const override {}
    bool IsRootGeometry() const override { return true; }
};

/// A polygon with `tessellated` triangles in its tessellation.
class Polygon : public IPolygon, public Counted {
public:
    explicit Polygon(int tessellated = 0) {
        for (int i = 0; i < tessellated; ++i)
            tessellation.push_back(new Triangle());
    }
    ~Polygon() override { qDeleteAll(tessellation); }
    int Length() const override { return 0; }
    const IVertex* Vertex(int) const override { return nullptr; }
    void Tessellation(std::list<ITriangle*>* triangles) const override { Append(tessellation, triangles); }
    void TextureCoords(int, std::vector<VCoords2D>*) const override {}
    bool IsRootGeometry() const override { return true; }
    EPolylineType Type() const override { return plPolygon; }

private:
    std::list<ITriangle*> tessellation;
};

/// The geometry queries of an object that owns a list of polygons and nothing else.
template <typename Base> class GeometryObject : public Named<Base> {
public:
    using Named<Base>::Named;
    ~GeometryObject() override { qDeleteAll(polygons); }
    void AddPolygon(IPolygon* polygon) { polygons.push_back(polygon); }

    void Triangles(std::list<ITriangle*>*) const override {}
    void Polygons(std::list<IPolygon*>* list) const override { Append(polygons, list); }
    void Faces(std::list<IFace*>*) const override {}
    void Solids(std::list<ISolid*>*) const override {}
    void Vertices(std::list<IVertex*>*) const override {}
    bool Negative() const override { return false; }
    std::wstring RefID() const override { return {}; }
    const IMaterial* Material() const override { return nullptr; }

private:
    std::list<IPolygon*> polygons;
};

class Object3D : public GeometryObject<IObject3D> {
public:
    using GeometryObject::GeometryObject;
    const IOBB* OOBB() const override { return nullptr; }
};

using Object2D = GeometryObject<IObject2D>;
using GenericObject = Named<IGenericObject>;

/// A container that owns its children and objects.
class Container : public Named<IContainer> {
public:
    using Named::Named;
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
    bool IsComposite() const override { return false; }

private:
    std::list<IContainer*> containers;
    std::list<IObject3D*> objects3D;
    std::list<IObject2D*> objects2D;
    std::list<IGenericObject*> genericObjects;
};

class Material : public Named<IMaterial> {
public:
    using Named::Named;
    VColor4 Diffuse() const override { return {}; }
    VColor4 Specular() const override { return {}; }
    VColor4 Ambient() const override { return {}; }
    double Transparency() const override { return 0.0; }
    std::wstring TextureFileName() const override { return {}; }
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

class View : public Named<IView> {
public:
    using Named::Named;
    std::list<ICamera*>& Cameras() override { return cameras; }
    std::list<ILight*>& Lights() override { return lights; }
    std::list<IClippingPlane*>& ClippingPlanes() override { return planes; }
    VColor4 BackgroundColor() const override { return {}; }
    bool HasBackground() const override { return false; }
    bool IsCurrent() const override { return false; }
    std::wstring ThumbnailFile() const override { return {}; }
    const unsigned char* ThumbnailData() const override { return nullptr; }
    long ThumbnailSize() const override { return 0; }

private:
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

class Unit : public IUnit, public Counted {
public:
    std::wstring Name() const override { return L"m"; }
    std::wstring BaseUnit() const override { return {}; }
    VOptional<double> ConversionFactor() const override { return {}; }
    int Dimension() const override { return 1; }
    std::wstring Description() const override { return {}; }
    VOptional<long> Digits() const override { return {}; }
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

/// A schedule that owns its activities and its start date.
class Schedule : public Named<ISchedule> {
public:
    using Named::Named;
    ~Schedule() override { qDeleteAll(activities); }
    Activity* Add(Activity* activity) {
        activities.push_back(activity);
        return activity;
    }
    std::wstring Reference() const override { return {}; }
    long Duration() const override { return -1; }
    const std::list<IActivity*>& Activities() const override { return activities; }
    std::wstring Description() const override { return {}; }
    const IDateTimeGroup* Start() const override { return &start; }
    const IDateTimeGroup* End() const override { return nullptr; }

private:
    std::list<IActivity*> activities;
    DateTimeGroup start;
};

} // namespace testmodel
