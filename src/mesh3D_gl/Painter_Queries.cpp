// What the painter tells about its elements: lists, lookups by id, boxes, and the hits of
// picking.
#include "geometry/Octree.h"
#include "geometry/OctreeIterator.h"
#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "mesh3D/Triangle.h"
#include "mesh3D/Vertex.h"
#include "mesh3D_gl/Painter.h"
#include "model/System.h"
#include "oxa/OxaRoot.h"
#include "xqtgl/xQGLWidget.h"

#include <QSet>

#include <cstdio>
#include <limits>

namespace mesh3D_gl {

template <typename Test>
QList<mesh3D::Element*> Painter::leaves_where(Test test) const {
    QList<mesh3D::Element*> found;
    for (auto it = _elements.cbegin(); it != _elements.cend(); ++it)
        if (!it.key()->is_type(mesh3D::TYPE_CONTAINER) && test(*it.value()))
            found << it.key();
    return found;
}

QList<mesh3D::Element*> Painter::selected_elements() const {
    QList<mesh3D::Element*> found;
    for (auto it = _elements.cbegin(); it != _elements.cend(); ++it)
        if (it.value()->selected() && it.value() != _root)
            found << it.key();
    return found;
}

QList<mesh3D::Element*> Painter::visible_elements() const {
    return leaves_where([](const OglItemBase& item) {
        return item.path() == OglItemBase::SolidPath || item.path() == OglItemBase::TransparentPath;
    });
}

QList<mesh3D::Element*> Painter::hidden_elements() const {
    return leaves_where([](const OglItemBase& item) { return item.path() == OglItemBase::HiddenPath; });
}

mesh3D::Element* Painter::GetElementFromId(unsigned int id) {
    const long k = long(id) - (long(index()) << 16);
    if (k < 0 || k >= _index.size() || !_index[int(k)])
        return nullptr;
    return _index[int(k)]->element();
}

bool Painter::is_selected(mesh3D::Element* element) const {
    const OglItemBase* item = _elements.value(element);
    return item && item->selected();
}

bool Painter::is_selected(oxa::OxaRoot* root, const QString& id) const {
    return is_selected(_getElementFromID(root, id));
}

bool Painter::IsSolid(mesh3D::Element* element) const {
    const OglItemBase* item = _elements.value(element);
    return item && item->solid();
}

bool Painter::IsWired(mesh3D::Element* element) const {
    const OglItemBase* item = _elements.value(element);
    return item && item->wired();
}

bool Painter::IsHiddenElement(oxa::OxaRoot* root, const QString& id) const {
    const OglItemBase* item = _elements.value(_getElementFromID(root, id));
    if (!item) {
        if (root && root->MsgService())
            root->MsgService()->send_message("the element is not existed");
        return false;
    }
    return item->path() == OglItemBase::HiddenPath;
}

mesh3D::Element* Painter::_getElementFromID(oxa::OxaRoot* root, const QString& id) {
    return root ? dynamic_cast<mesh3D::Element*>(root->System()->object(id)) : nullptr;
}
mesh3D::Object3D* Painter::_getObjectFromID(oxa::OxaRoot* root, const QString& id) {
    return dynamic_cast<mesh3D::Object3D*>(_getElementFromID(root, id));
}
mesh3D::Surface* Painter::_getSurfaceFromID(oxa::OxaRoot* root, const QString& id) {
    return dynamic_cast<mesh3D::Surface*>(_getElementFromID(root, id));
}
mesh3D::Container* Painter::_getContainerFromID(oxa::OxaRoot* root, const QString& id) {
    return dynamic_cast<mesh3D::Container*>(_getElementFromID(root, id));
}

mesh3D::Element* Painter::GetTopLevelCompositeElement(mesh3D::Element* element) {
    mesh3D::Element* outermost = element;
    const auto* node = dynamic_cast<mesh3D::HierarchyElement*>(element);
    for (mesh3D::Container* parent = node ? node->Parent() : nullptr; parent; parent = parent->Parent())
        if (parent->is_type(mesh3D::TYPE_COMPOSITE))
            outermost = parent;
    return outermost;
}

OglItemBase* Painter::GetTopLevelCompositeItem(OglItemBase* item) const {
    OglItemBase* outermost = item;
    for (OglItemBase* range = item->container(); range; range = range->container())
        if (range->element()->is_type(mesh3D::TYPE_COMPOSITE))
            outermost = range;
    return outermost;
}

geometry3D::boundingbox Painter::boundingbox() const {
    if (!_root)
        return geometry3D::boundingbox();
    _root->container_element()->update_boundingbox();
    return _root->boundingbox();
}

geometry3D::boundingbox Painter::merged_box(const QList<mesh3D::Element*>& elements) const {
    geometry3D::boundingbox box;
    for (mesh3D::Element* element : elements)
        geometry3D::merge(box, _elements.value(element)->boundingbox());
    return box;
}

geometry3D::boundingbox Painter::boundingbox_selected_elements() const { return merged_box(selected_elements()); }

geometry3D::boundingbox Painter::boundingbox_visible_elements() const { return merged_box(visible_elements()); }

void Painter::process_hits(int count, unsigned int* const ids, int mode, bool single) {
    if (index() < 0) {
        std::printf("Painter::process_hits() ERROR : painter index < 0 !!\n");
        return;
    }
    QSet<OglItemBase*> hit;
    const long first = long(index()) << 16;
    for (int i = 0; i < count; ++i) {
        const long k = long(ids[i]) - first;
        if (k >= 0 && k < _index.size() && _index[int(k)])
            hit.insert(single ? _index[int(k)] : GetTopLevelCompositeItem(_index[int(k)]));
    }
    start_selection();
    for (OglItemBase* item : hit)
        item->selected(mode == 1 ? !item->selected() : true);
    end_selection();
}

void Painter::ProcessElementHit(mesh3D::Element* element, int mode, bool single) {
    mesh3D::Element* target = single ? element : GetTopLevelCompositeElement(element);
    select_element(target, mode == 1 ? !is_selected(target) : true);
}

geometry3D::point Painter::GetNextVisibleObjectPoint(const geometry3D::point& p, mesh3D::Element* element,
                                                     bool* found) {
    const geometry3D::Point eye = widget()->camera().eye();
    vmp::Vector line = (geometry3D::Point(p) - eye).to_Vector();
    line.normalize();
    double best = std::numeric_limits<double>::max();
    geometry3D::point nearest = p;
    const auto consider = [&](const mesh3D::Vertex* v) {
        const vmp::Vector d = (geometry3D::Point(*v) - eye).to_Vector();
        const double along = d[0] * line[0] + d[1] * line[1] + d[2] * line[2];
        const double distance = (d - line * along).quantity();
        if (distance < best) {
            best = distance;
            nearest = v->to_primitive();
            if (found)
                *found = true;
        }
    };
    const auto surface_points = [&](const mesh3D::Surface& surface) {
        if (_options.DrawTessellationOfAllElements()) {
            QList<mesh3D::Triangle*> triangles;
            surface.allTriangles(triangles);
            for (const mesh3D::Triangle* t : triangles)
                for (int i = 0; i < 3; ++i)
                    consider(t->vertex(i));
            return;
        }
        mesh3D::triangle_edges** edges = surface.edges();
        static const int ends[3][2] = {{0, 1}, {1, 2}, {2, 0}};
        for (int i = 0; edges && i < surface.count_triangle_edge_objects(); ++i)
            for (int e = 0; e < 3; ++e)
                if (edges[i]->flags & (1 << e))
                    for (int end : ends[e])
                        consider(edges[i]->triangle->vertex(end));
    };
    if (auto* container = dynamic_cast<mesh3D::Container*>(element)) {
        if (container->is_type(mesh3D::TYPE_COMPOSITE))
            for (mesh3D::Element* member : visible_elements())
                if (auto* surface = dynamic_cast<mesh3D::Surface*>(member))
                    if (GetTopLevelCompositeElement(member) == container)
                        surface_points(*surface);
    } else if (auto* surface = dynamic_cast<mesh3D::Surface*>(element)) {
        surface_points(*surface);
    }
    return nearest;
}

geometry3D::point Painter::GetNextVisibleObjectPointFromId(const geometry3D::point& p, unsigned int id,
                                                           bool* found) {
    mesh3D::Element* element = GetElementFromId(id);
    return element ? GetNextVisibleObjectPoint(p, element, found) : p;
}

} // namespace mesh3D_gl
