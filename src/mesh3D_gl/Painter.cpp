// Building the item lists from the model and walking them to draw.
#include "mesh3D_gl/Painter.h"

#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "mesh3D_gl/OglItemSurface.h"
#include "oxa/HRef.h"
#include "xqtgl/xQGLWidget.h"

#include <cstdio>

namespace mesh3D_gl {

int Painter::PainterElementCounter = 0;
OglItemBase* Painter::_last[3] = {nullptr, nullptr, nullptr};
OglItemBegin* Painter::_current_container = nullptr;

namespace {
int slot(OglItemBase::Path path) { return path == OglItemBase::TransparentPath ? 1 : path == OglItemBase::HiddenPath ? 2 : 0; }
const OglItemBase::Path all_paths[3] = {OglItemBase::SolidPath, OglItemBase::TransparentPath, OglItemBase::HiddenPath};
} // namespace

Painter::Painter(xqtgl::xQGLWidget* widget) : xqtgl::xQGLWidget_Painter(widget) {}

Painter::~Painter() {
    if (!_textures.isEmpty() && widget()) {
        widget()->makeCurrent();
        glDeleteTextures(GLsizei(_textures.size()), _textures.constData());
    }
    clear();
}

void Painter::clear() {
    qDeleteAll(_elements);
    _elements.clear();
    qDeleteAll(_ends);
    _ends.clear();
    _index.clear();
    _materials.clear();
    _saved_invisible.clear();
    _root = nullptr;
}

int Painter::count_elements(mesh3D::Container* container) {
    int count = 0;
    for (mesh3D::Element* child : container->children()) {
        if (child->is_type(mesh3D::TYPE_SURFACE))
            ++count;
        else if (child->is_type(mesh3D::TYPE_CONTAINER))
            count += count_elements(static_cast<mesh3D::Container*>(child));
    }
    return count;
}

void Painter::set_elements(mesh3D::Container* root) {
    QList<oxa::HRef*> none;
    set_elements(root, none);
}

void Painter::set_elements(mesh3D::Container* root, QList<oxa::HRef*>& references) {
    _building = true;
    clear();
    _index.fill(nullptr, count_elements(root) + references.size());
    _root = new OglItemBegin(root);
    _elements.insert(root, _root);
    _last[0] = _last[1] = _last[2] = _root;
    _current_container = _root;
    PainterElementCounter = 0;
    build_painter_element_list(*root, true);
    root->update_boundingbox();
    geometry3D::boundingbox box = root->boundingbox();
    build_painter_href_list(references, box, true);
    append_on_all_paths(CreateOGLItem_end(root));
    _building = false;
}

void Painter::build_painter_element_list(const mesh3D::Container& container, bool visible) {
    for (mesh3D::Element* child : container.children()) {
        if (child->is_type(mesh3D::TYPE_OBJECT3D))
            InsertObjectItem(static_cast<mesh3D::Object3D*>(child), visible);
        else if (child->is_type(mesh3D::TYPE_CONTAINER))
            InsertContainerItem(static_cast<mesh3D::Container*>(child), visible);
    }
}

void Painter::build_painter_href_list(QList<oxa::HRef*>& references, geometry3D::boundingbox& box, bool visible) {
    // A level shows as a flat box over the scene's extent at its height; levels outside the
    // scene's height range are left out.
    for (oxa::HRef* reference : references) {
        const double z = reference->ZValue();
        if (z >= box.zmin && z <= box.zmax)
            InsertHRefItem(reference, {box.xmin, box.ymin, box.xmax, box.ymax, z, z}, visible);
    }
}

OglItemSurface* Painter::CreateOglItemSurface(mesh3D::Object3D* object) {
    return new OglItemSurface(PainterElementCounter, object);
}

void Painter::InsertObjectItem(mesh3D::Object3D* object, bool visible) {
    insert_leaf(CreateOglItemSurface(object), object, visible, Linking::Append);
}

void Painter::AddObjectItem(mesh3D::Object3D* object, bool visible) {
    insert_leaf(CreateOglItemSurface(object), object, visible, Linking::IntoRange);
}

void Painter::InsertHRefItem(oxa::HRef* reference, const geometry3D::boundingbox& box, bool visible) {
    insert_leaf(new OglItemHRef(PainterElementCounter, reference, box), reference, visible, Linking::Append);
}

void Painter::insert_leaf(OglItemBase* item, mesh3D::Element* element, bool visible, Linking linking) {
    if (!item)
        return;
    _elements.insert(element, item);
    if (auto* object = dynamic_cast<mesh3D::Object3D*>(element)) {
        mesh3D::Material* material = object->material();
        if (material && !_materials.contains(material)) {
            _materials.insert(material);
            BindMaterialTextureToWidget(material);
        }
    }
    const OglItemBase::Path path = visible ? item->recommended_path() : OglItemBase::HiddenPath;
    item->container(_current_container);
    if (linking == Linking::Append)
        append(item, path);
    else
        insert_into_list(item, path);
    store_index(item);
}

void Painter::store_index(OglItemBase* item) {
    if (PainterElementCounter >= _index.size())
        _index.append(item);
    else
        _index[PainterElementCounter] = item;
    ++PainterElementCounter;
}

void Painter::InsertContainerItem(mesh3D::Container* container, bool visible) {
    insert_container(container, visible, Linking::Append);
}

void Painter::AddContainerItem(mesh3D::Container* container, bool visible) {
    insert_container(container, visible, Linking::IntoRange);
}

void Painter::insert_container(mesh3D::Container* container, bool visible, Linking linking) {
    auto* begin = new OglItemBegin(container);
    _elements.insert(container, begin);
    begin->container(_current_container);
    OglItemBegin* outer = _current_container;
    if (linking == Linking::Append) {
        append_on_all_paths(begin);
    } else {
        // Into a finished structure the new range is closed at once, so that its members can
        // be linked before its end.
        OglItemEnd* end = CreateOGLItem_end(container);
        for (OglItemBase::Path path : all_paths) {
            link_before_range_end(begin, path);
            link_before_range_end(end, path);
        }
    }
    _current_container = begin;
    for (mesh3D::Element* child : container->children()) {
        if (child->is_type(mesh3D::TYPE_OBJECT3D))
            insert_leaf(CreateOglItemSurface(static_cast<mesh3D::Object3D*>(child)), child, visible, linking);
        else if (child->is_type(mesh3D::TYPE_CONTAINER))
            insert_container(static_cast<mesh3D::Container*>(child), visible, linking);
    }
    _current_container = outer;
    if (linking == Linking::Append)
        append_on_all_paths(CreateOGLItem_end(container));
}

OglItemEnd* Painter::CreateOGLItem_end(mesh3D::Container* container) {
    // End ids count down from the top of the id space, clear of the items' numbers.
    auto* end = new OglItemEnd(MAXNROBJECTS - 1 - _ends.size(), container);
    end->container(_current_container);
    _ends.append(end);
    return end;
}

OglItemEnd* Painter::FindOGLItem_end(mesh3D::Element* container) const {
    for (OglItemEnd* end : _ends)
        if (end->element() == container)
            return end;
    return nullptr;
}

void Painter::append(OglItemBase* item, OglItemBase::Path path) {
    OglItemBase*& last = _last[slot(path)];
    last->next(item, path);
    item->previous(last);
    item->path(path);
    last = item;
}

void Painter::append_on_all_paths(OglItemBase* item) {
    for (OglItemBase::Path path : all_paths) {
        _last[slot(path)]->next(item, path);
        _last[slot(path)] = item;
    }
}

namespace {
OglItemBase* next_on(const OglItemBase* item, OglItemBase::Path path) {
    return path == OglItemBase::TransparentPath ? item->next_transparent()
           : path == OglItemBase::HiddenPath    ? item->next_hidden()
                                                : item->next_solid();
}
OglItemBase* stored_on(const OglItemBase* item, OglItemBase::Path path) {
    return path == OglItemBase::TransparentPath ? item->next_transparentStored()
           : path == OglItemBase::HiddenPath    ? item->next_hiddenStored()
                                                : item->next_solidStored();
}
} // namespace

void Painter::link_before_range_end(OglItemBase* item, OglItemBase::Path path) {
    OglItemBase* range = item->container();
    OglItemBase* end = FindOGLItem_end(range->element());
    OglItemBase* predecessor = range;
    OglItemBase* follower = stored_on(range, path) ? stored_on(range, path) : next_on(range, path);
    while (follower && follower != end) {
        predecessor = follower;
        follower = next_on(follower, path);
    }
    item->next(end, path);
    predecessor->next(item, path);
    item->previous(predecessor);
}

void Painter::insert_into_list(OglItemBase* item, OglItemBase::Path path) {
    if (item->element()->is_type(mesh3D::TYPE_CONTAINER))
        return;
    link_before_range_end(item, path);
    item->path(path);
}

void Painter::remove_from_list(OglItemBase* item) {
    const OglItemBase::Path path = item->path();
    OglItemBase* predecessor = item->previous();
    OglItemBase* follower = next_on(item, path);
    if (predecessor)
        predecessor->next(follower, path);
    if (follower && follower->path() == path)
        follower->previous(predecessor);
    item->path(OglItemBase::NoPath);
}

void Painter::add_object3D(mesh3D::Container* parent, mesh3D::Object3D* object, bool visible) {
    auto* range = dynamic_cast<OglItemBegin*>(_elements.value(parent));
    if (!range)
        return;
    _current_container = range;
    PainterElementCounter = _index.size();
    AddObjectItem(object, visible);
}

void Painter::add_container(mesh3D::Container* parent, mesh3D::Container* child, bool visible) {
    auto* range = dynamic_cast<OglItemBegin*>(_elements.value(parent));
    if (!range)
        return;
    _index.reserve(_index.size() + count_elements(child));
    _current_container = range;
    PainterElementCounter = _index.size();
    AddContainerItem(child, visible);
}

geometry3D::point Painter::render_origin() const {
    return widget() ? widget()->render_origin() : geometry3D::point{0.0, 0.0, 0.0};
}

template <typename Step>
void Painter::walk(OglItemBase::Path path, Step step) const {
    for (OglItemBase* item = _root; item; item = next_on(item, path))
        step(item);
}

void Painter::paint() {
    if (_building || !_root)
        return;
    OglItemBase::options = _options;
    OglItemBase::render_origin = render_origin();
    // Everything transparent after everything solid, so that it blends over it.
    walk(OglItemBase::SolidPath, [](OglItemBase* item) { item->paint(); });
    walk(OglItemBase::TransparentPath, [](OglItemBase* item) { item->paint(); });
}

void Painter::fast_paint() {
    if (_building || !_root)
        return;
    OglItemBase::render_origin = render_origin();
    walk(OglItemBase::SolidPath, [](OglItemBase* item) { item->fast_paint(); });
    walk(OglItemBase::TransparentPath, [](OglItemBase* item) { item->fast_paint(); });
}

void Painter::select_paint() {
    if (_building || !_root)
        return;
    const int i = index();
    if (i < 0) {
        std::printf("Painter::select_paint() ERROR : painter index < 0 !!\n");
        return;
    }
    OglItemBase::render_origin = render_origin();
    walk(OglItemBase::SolidPath, [i](OglItemBase* item) { item->select_paint(i << 16); });
    walk(OglItemBase::TransparentPath, [i](OglItemBase* item) { item->select_paint(i << 16); });
}

} // namespace mesh3D_gl
