// Geometric picking: a ray from the eye through a pixel, or the frustum of a rubber rectangle,
// against the surfaces the model painters show. Independent of the frame buffer's colour depth.
#include "geometry/Octree.h"
#include "geometry/OctreeIterator.h"
#include "geometry/Plane.h"
#include "geometry/Ray.h"
#include "mesh3D/Surface.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "mesh3D_gl/Painter.h"
#include "xqtgl/xQGLWidget.h"

#include <QSet>
#include <algorithm>
#include <array>
#include <limits>

namespace xqtgl {

namespace {

using geometry3D::Point;

// A point inside the frustum lies on the inner side of a plane or on the plane itself.
bool inside(const geometry3D::Plane& plane, const Point& p) { return plane.classify(p) != geometry3D::Behind; }

Point along(const geometry3D::Ray& ray, double distance) {
    const vmp::Vector& d = ray.direction();
    return ray.origin() + Point(d[0], d[1], d[2]) * distance;
}

/// The half-space that the clipping plane keeps, as GL keeps it (n . p >= d); all of space
/// when clipping is off. What lies beyond it is not drawn, so it must not be picked either.
class kept_side {
public:
    explicit kept_side(const xQGLWidget_Options& options)
        : _on(options.plane_clipping_enabled()), _plane(options.clipping_plane()) {}

    bool cuts() const { return _on; }
    bool keeps(const Point& p) const { return !_on || _plane.distance(p) >= 0.0; }
    /// Where the segment between a kept and a removed point meets the plane.
    Point crossing(const Point& a, const Point& b) const {
        const double da = _plane.distance(a), db = _plane.distance(b);
        return a + (b - a) * (da / (da - db));
    }
    bool removes_all_of(const geometry3D::boundingbox& b) const {
        // An empty box, minima above maxima, tells nothing.
        if (!_on || b.xmin > b.xmax)
            return false;
        for (double x : {b.xmin, b.xmax})
            for (double y : {b.ymin, b.ymax})
                for (double z : {b.zmin, b.zmax})
                    if (keeps(Point(x, y, z)))
                        return false;
        return true;
    }

private:
    bool _on;
    geometry3D::Plane _plane;
};

/// The nearest hit of the ray on the surface's triangles that the clipping plane keeps, or false.
bool hit_distance(const geometry3D::Ray& ray, const mesh3D::Surface& surface, const kept_side& kept,
                  double* distance) {
    QList<mesh3D::Triangle*> triangles;
    surface.allTriangles(triangles);
    bool hit = false;
    for (const mesh3D::Triangle* triangle : triangles) {
        const geometry3D::triangle corners{{triangle->vertex(0)->to_primitive(), triangle->vertex(1)->to_primitive(),
                                            triangle->vertex(2)->to_primitive()}};
        double d = 0.0;
        if (geometry3D::intersects(ray, corners, &d) && d >= 0.0 && (!hit || d < *distance) &&
            kept.keeps(along(ray, d))) {
            *distance = d;
            hit = true;
        }
    }
    return hit;
}

/// The surfaces a painter offers to geometric picking: those it shows, where it draws solid at
/// all or the element itself is drawn solid, and not wholly cut away.
template <typename Visit>
void for_each_pickable_surface(const QList<xQGLWidget_Painter*>& painters, const kept_side& kept, Visit visit) {
    for (xQGLWidget_Painter* base : painters) {
        auto* painter = dynamic_cast<mesh3D_gl::Painter*>(base);
        if (!painter || !(painter->options().draw_solid() || painter->options().draw_wired()))
            continue;
        for (mesh3D::Element* element : painter->visible_elements()) {
            if (!painter->options().draw_solid() && !painter->IsSolid(element))
                continue;
            if (!element->is_type(mesh3D::TYPE_OBJECT3D) && !element->is_type(mesh3D::TYPE_SURFACE))
                continue;
            auto* surface = dynamic_cast<mesh3D::Surface*>(element);
            if (surface && !kept.removes_all_of(surface->getBoundingbox()))
                visit(painter, surface);
        }
    }
}

/// Calls `visit` on the points that outline what is left of the surface, until it returns false:
/// its vertices, or, under a clipping plane, the kept vertices and the points where the plane
/// cuts the triangles' edges.
template <typename Visit>
void for_each_point(const mesh3D::Surface& surface, const kept_side& kept, Visit visit) {
    if (!kept.cuts()) {
        geometry3D::OctreeIterator points(&surface.vertices());
        while (const Point* p = points.next())
            if (!visit(*p))
                return;
        return;
    }
    QList<mesh3D::Triangle*> triangles;
    surface.allTriangles(triangles);
    for (const mesh3D::Triangle* triangle : triangles)
        for (int i = 0; i < 3; ++i) {
            const Point a(triangle->vertex(i)->to_primitive()), b(triangle->vertex((i + 1) % 3)->to_primitive());
            if (kept.keeps(a) && !visit(a))
                return;
            if (kept.keeps(a) != kept.keeps(b) && !visit(kept.crossing(a, b)))
                return;
        }
}

} // namespace

void xQGLWidget::Build4Rays(const Point& eye, geometry3D::point* const corners, geometry3D::Ray** const rays) {
    for (int i = 0; i < 4; ++i) {
        vmp::Vector direction = (Point(corners[i]) - eye).to_Vector();
        direction.normalize();
        rays[i]->origin(eye);
        rays[i]->direction(direction);
    }
}

void xQGLWidget::Build4SidePlanes(geometry3D::point* const near_corners, geometry3D::point* const far_corners,
                                  geometry3D::Plane** const planes) {
    Point centre(0.0, 0.0, 0.0);
    for (int i = 0; i < 4; ++i)
        centre = centre + (Point(near_corners[i]) + Point(far_corners[i])) * 0.125;
    for (int i = 0; i < 4; ++i) {
        geometry3D::Plane side{Point(near_corners[i]), Point(near_corners[(i + 1) % 4]), Point(far_corners[i])};
        // Whichever way the rectangle was drawn, the inside of the frustum is the positive side.
        if (side.classify(centre) == geometry3D::Behind)
            side = geometry3D::Plane(vmp::Vector(-side.n()[0], -side.n()[1], -side.n()[2]), -side.d());
        *planes[i] = side;
    }
}

bool xQGLWidget::ClassifySurfaceSurround(mesh3D::Surface* surface, geometry3D::Plane** const planes) const {
    // A surface with nothing left to see is surrounded by no region.
    bool any_point = false, all_inside = true;
    for_each_point(*surface, kept_side(_options), [&](const Point& p) {
        any_point = true;
        all_inside = std::all_of(planes, planes + 5, [&](const geometry3D::Plane* plane) { return inside(*plane, p); });
        return all_inside;
    });
    return any_point && all_inside;
}

int xQGLWidget::ClassifySurfaceTouch(mesh3D::Surface* surface, geometry3D::Plane** const planes) const {
    static const std::array<int, 4> side_bits{32, 16, 2, 1};
    const int all_sides = 51;
    int seen = 0;
    bool one_point_inside = false;
    for_each_point(*surface, kept_side(_options), [&](const Point& p) {
        if (!inside(*planes[4], p))
            return true;
        int mask = 0;
        for (int i = 0; i < 4; ++i)
            if (inside(*planes[i], p))
                mask |= side_bits[i];
        one_point_inside = mask == all_sides;
        seen |= mask;
        return !one_point_inside;
    });
    if (one_point_inside)
        return 1;
    // No corner inside, but the points lie on every inner side: the surface may span the region.
    return seen == all_sides ? 2 : 0;
}

mesh3D::Surface* xQGLWidget::PickObjectGeometrical(int x, int y, xQGLWidget_Painter** painter,
                                                   geometry3D::point* point) {
    const geometry3D::point screen{double(x), double(y), 0.0};
    geometry3D::point through;
    TransformPointsScreenToWorld(1, &screen, &through, _camera.lookat().to_primitive());
    if (point)
        *point = through;
    vmp::Vector direction = (Point(through) - _camera.eye()).to_Vector();
    direction.normalize();
    const geometry3D::Ray ray(_camera.eye(), direction);
    const kept_side kept(_options);
    double nearest = std::numeric_limits<double>::max();
    mesh3D::Surface* result = nullptr;
    for_each_pickable_surface(_painters, kept, [&](mesh3D_gl::Painter* owner, mesh3D::Surface* surface) {
        double d = 0.0;
        if (hit_distance(ray, *surface, kept, &d) && d < nearest) {
            nearest = d;
            result = surface;
            if (painter)
                *painter = owner;
        }
    });
    return result;
}

void xQGLWidget::SelectSingleGeometrical(int x, int y, int mode, bool single) {
    if (mode == 0)
        for (xQGLWidget_Painter* painter : _painters)
            painter->unselect_all();
    xQGLWidget_Painter* owner = nullptr;
    mesh3D::Surface* surface = PickObjectGeometrical(x + 5, y + 5, &owner, nullptr);
    if (!surface)
        return;
    owner->start_selection();
    owner->ProcessElementHit(surface, mode, single);
    owner->end_selection();
}

void xQGLWidget::SelectRegionGeometrical(int x, int y, int w, int h, int mode, bool single) {
    const geometry3D::boundingbox& b = _boundingbox;
    const Point corners[8] = {Point(b.xmin, b.ymin, b.zmin), Point(b.xmax, b.ymin, b.zmin), Point(b.xmin, b.ymax, b.zmin),
                              Point(b.xmax, b.ymax, b.zmin), Point(b.xmin, b.ymin, b.zmax), Point(b.xmax, b.ymin, b.zmax),
                              Point(b.xmin, b.ymax, b.zmax), Point(b.xmax, b.ymax, b.zmax)};
    const Point& eye = _camera.eye();
    const Point farthest = *std::max_element(std::begin(corners), std::end(corners), [&](const Point& a, const Point& c) {
        return eye.distance(a) < eye.distance(c);
    });
    const geometry3D::point screen[4] = {{double(x), double(y), 0.0},
                                         {double(x + w), double(y), 0.0},
                                         {double(x + w), double(y + h), 0.0},
                                         {double(x), double(y + h), 0.0}};
    geometry3D::point near_corners[4], far_corners[4];
    TransformPointsScreenToWorld(4, screen, near_corners, _camera.lookat().to_primitive());
    TransformPointsScreenToWorld(4, screen, far_corners, farthest.to_primitive());

    geometry3D::Plane plane_storage[5];
    geometry3D::Plane* planes[5] = {&plane_storage[0], &plane_storage[1], &plane_storage[2], &plane_storage[3],
                                    &plane_storage[4]};
    Build4SidePlanes(near_corners, far_corners, planes);
    // The far end, square to the line of sight, facing the eye.
    plane_storage[4] = geometry3D::Plane(farthest, (eye - farthest).to_Vector());
    geometry3D::Ray ray_storage[4];
    geometry3D::Ray* rays[4] = {&ray_storage[0], &ray_storage[1], &ray_storage[2], &ray_storage[3]};
    Build4Rays(eye, near_corners, rays);

    const kept_side kept(_options);
    forward_selection_started(nullptr);
    if (mode == 0)
        for (xQGLWidget_Painter* painter : _painters)
            painter->unselect_all();
    for_each_pickable_surface(_painters, kept, [&](mesh3D_gl::Painter* owner, mesh3D::Surface* surface) {
        int result = SelectRegionGeometricSurround() ? int(ClassifySurfaceSurround(surface, planes))
                                                     : ClassifySurfaceTouch(surface, planes);
        double distance = 0.0;
        if (result == 2)
            result = std::any_of(rays, rays + 4, [&](const geometry3D::Ray* r) { return hit_distance(*r, *surface, kept, &distance); })
                         ? 1
                         : 0;
        if (result == 1) {
            owner->start_selection();
            owner->ProcessElementHit(surface, mode, single);
            owner->end_selection();
        }
    });
    forward_selection_finished(nullptr);
}

mesh3D::Surface* xQGLWidget::PickObject(int x, int y, geometry3D::point* point, xQGLWidget_Painter** painter) {
    return SelectSingleGeometric() ? PickObjectGeometrical(x, y, painter, point) : PickObjectGraphical(x, y, point, painter);
}

mesh3D::Surface* xQGLWidget::PickObjectPoint(int x, int y, geometry3D::point& point, geometry3D::point& nearest) {
    xQGLWidget_Painter* owner = nullptr;
    mesh3D::Surface* surface = PickObject(x, y, &point, &owner);
    if (surface)
        nearest = owner->GetNextVisibleObjectPoint(point, surface, nullptr);
    return surface;
}

QString xQGLWidget::PickObjectID(int x, int y) {
    const mesh3D::Surface* surface = PickObject(x, y, nullptr);
    return surface ? surface->id() : QString();
}

void xQGLWidget::SelectRegion(int x, int y, int w, int h, int mode, bool single, int kind) {
    if (kind == 0) {
        if (SelectSingleGeometric())
            SelectSingleGeometrical(x, y, mode, single);
        else
            SelectRegionGraphical(x, y, w, h, mode, single, true);
        return;
    }
    // The switch keeps the last kind asked for, on purpose: later regions reuse it.
    SelectRegionGeometricSurround(kind == 1);
    if (SelectRegionGeometric())
        SelectRegionGeometrical(x, y, w, h, mode, single);
    else
        SelectRegionGraphical(x, y, w, h, mode, single, false);
}

} // namespace xqtgl
