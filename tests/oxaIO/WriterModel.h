#pragma once

// Geometry and view classes with values, beside the plain ones of TestModel.h, so that a walk of
// the writer has coordinates, colours and texture runs to write. Each object owns what it
// lists; texture queries are recorded so that a test can see which run index was asked.

#include "TestModel.h"

#include "oxaIO/IOBB.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace writermodel {

using namespace oxaIO;

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

class Triangle : public ITriangle {
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

class Polygon : public IPolygon {
public:
    Polygon(std::vector<IVertex*> vertices, EPolylineType type = plPolygon, bool root = true)
        : vertices(std::move(vertices)), type(type), root(root) {}
    ~Polygon() override { qDeleteAll(tessellation); }
    Triangle* Tessellate(IVertex* a, IVertex* b, IVertex* c) {
        tessellation.push_back(new Triangle(a, b, c, false));
        return static_cast<Triangle*>(tessellation.back());
    }
    int Length() const override { return int(vertices.size()); }
    const IVertex* Vertex(int index) const override { return vertices[std::size_t(index)]; }
    void Tessellation(std::list<ITriangle*>* triangles) const override {
        testmodel::Append(tessellation, triangles);
    }
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
    void Triangles(std::list<ITriangle*>* list) const override { testmodel::Append(triangles, list); }
    void Polygons(std::list<IPolygon*>* list) const override { testmodel::Append(polygons, list); }
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
    void Faces(std::list<IFace*>* list) const override { testmodel::Append(faces, list); }

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

class Material : public testmodel::Named<IMaterial> {
public:
    Material(std::wstring id, std::wstring name, VColor4 diffuse, double transparency = 0.0,
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

/// A mesh: it owns its vertices, triangles, polygons, faces, solids and box.
template <typename Base> class Mesh : public testmodel::Named<Base> {
public:
    using testmodel::Named<Base>::Named;
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
    Vertex* At(std::size_t index) const {
        return static_cast<Vertex*>(*std::next(vertices.begin(), long(index)));
    }
    template <typename T> T* Add(T* part) {
        if constexpr (std::is_base_of_v<ITriangle, T>)
            triangles.push_back(part);
        else if constexpr (std::is_base_of_v<IPolygon, T>)
            polygons.push_back(part);
        else if constexpr (std::is_base_of_v<IFace, T>)
            faces.push_back(part);
        else
            solids.push_back(part);
        return part;
    }

    void Triangles(std::list<ITriangle*>* list) const override { testmodel::Append(triangles, list); }
    void Polygons(std::list<IPolygon*>* list) const override { testmodel::Append(polygons, list); }
    void Faces(std::list<IFace*>* list) const override { testmodel::Append(faces, list); }
    void Solids(std::list<ISolid*>* list) const override { testmodel::Append(solids, list); }
    void Vertices(std::list<IVertex*>* list) const override { testmodel::Append(vertices, list); }
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

/// A container that may be composite.
class Container : public testmodel::Container {
public:
    explicit Container(std::wstring id, std::wstring name = {}, bool composite = false)
        : testmodel::Container(std::move(id), std::move(name)), composite(composite) {}
    bool IsComposite() const override { return composite; }

private:
    bool composite;
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

/// A view that owns its cameras, lights and planes, with a background and a thumbnail.
class View : public IView {
public:
    View(std::wstring id, std::wstring name, QByteArray thumbnail = {})
        : id(std::move(id)), name(std::move(name)), thumbnail(std::move(thumbnail)) {}
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
    std::wstring ID() const override { return id; }
    std::wstring Name() const override { return name; }

private:
    std::wstring id;
    std::wstring name;
    QByteArray thumbnail;
    std::list<ICamera*> cameras;
    std::list<ILight*> lights;
    std::list<IClippingPlane*> planes;
};

/// A unit with digits and a conversion factor.
class Unit : public IUnit {
public:
    std::wstring Name() const override { return L"mm"; }
    std::wstring BaseUnit() const override { return L"m"; }
    VOptional<double> ConversionFactor() const override { return 0.001; }
    int Dimension() const override { return 1; }
    std::wstring Description() const override { return L"Millimetre"; }
    VOptional<long> Digits() const override { return 2L; }
};

/// A schedule whose reference and description differ, with an end date too.
class Schedule : public testmodel::Schedule {
public:
    using testmodel::Schedule::Schedule;
    std::wstring Reference() const override { return reference; }
    std::wstring Description() const override { return L"not written"; }
    long Duration() const override { return 0; }
    const IDateTimeGroup* End() const override { return &end; }
    std::wstring reference = L"Phase 1";

private:
    testmodel::DateTimeGroup end;
};

/// A set that is not an object set: never written.
class SmartSet : public testmodel::Named<ISet> {
public:
    using Named::Named;
    void ContentType(std::wstring) override {}
    std::wstring ContentType() const override { return L"Object3D"; }
    std::list<std::wstring> ElementIDs() const override { return {L"wall"}; }
    std::list<IObject*> ElementList() const override { return {}; }
};

} // namespace writermodel
