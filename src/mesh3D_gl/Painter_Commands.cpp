// What hosts and panels ask of the painter: per-element and whole-model selection, visibility,
// wire and solid forcing, transparency and transforms.
#include "mesh3D/Container.h"
#include "mesh3D/Object3D.h"
#include "mesh3D_gl/Painter.h"
#include "oxa/OxaRoot.h"

namespace mesh3D_gl {

namespace {

bool is_composite(const mesh3D::Element* element) { return element->is_type(mesh3D::TYPE_COMPOSITE); }
bool is_container(const mesh3D::Element* element) { return element->is_type(mesh3D::TYPE_CONTAINER); }
bool is_negative(const mesh3D::Element* element) {
    const auto* object = dynamic_cast<const mesh3D::Object3D*>(element);
    return object && object->Negative();
}

} // namespace

void Painter::for_children(mesh3D::Element* element, void (Painter::*command)(mesh3D::Element*)) {
    if (auto* container = dynamic_cast<mesh3D::Container*>(element))
        for (mesh3D::Element* child : container->children())
            (this->*command)(child);
}

void Painter::select_element(oxa::OxaRoot* root, const QString& id, bool on) {
    if (mesh3D::Element* element = _getElementFromID(root, id))
        select_element(element, on);
}

void Painter::select_element(mesh3D::Element* element, bool on) {
    OglItemBase* item = _elements.value(element);
    if (item && (is_composite(element) || element->is_type(mesh3D::TYPE_GEOMETRIC_ELEMENT)))
        item->selected(on);
}

void Painter::hide_element(oxa::OxaRoot* root, const QString& id) {
    if (mesh3D::Element* element = _getElementFromID(root, id))
        hide_element(element);
}

void Painter::hide_element(mesh3D::Element* element) {
    OglItemBase* item = _elements.value(element);
    if (!item)
        return;
    if (is_container(element)) {
        // A container's begin and end stay on every list; its members go.
        for_children(element, &Painter::hide_element);
        if (is_composite(element))
            item->ContainerVisible(false);
        return;
    }
    if (item->path() == OglItemBase::HiddenPath)
        return;
    remove_from_list(item);
    insert_into_list(item, OglItemBase::HiddenPath);
}

void Painter::show_element(oxa::OxaRoot* root, const QString& id) {
    if (mesh3D::Element* element = _getElementFromID(root, id))
        show_element(element);
}

void Painter::show_element(mesh3D::Element* element) {
    OglItemBase* item = _elements.value(element);
    if (!item)
        return;
    if (is_composite(element)) {
        item->ContainerVisible(true);
        return;
    }
    if (is_container(element)) {
        for_children(element, &Painter::show_element);
        return;
    }
    if (item->path() != OglItemBase::HiddenPath)
        return;
    remove_from_list(item);
    insert_into_list(item, item->recommended_path());
}

void Painter::SetCompositeVisible(mesh3D::Container* composite) {
    if (OglItemBase* item = _elements.value(composite))
        item->ContainerVisible(true);
}

template <typename Command>
void negative_siblings(const PainterOptions& options, mesh3D::Element* element, Command command) {
    const auto* object = dynamic_cast<mesh3D::Object3D*>(element);
    if (options.DrawNegative() || !object || object->Negative() || !object->Parent())
        return;
    for (mesh3D::Element* sibling : object->Parent()->children())
        if (sibling->is_type(mesh3D::TYPE_SURFACE) && is_negative(sibling))
            command(sibling);
}

void Painter::HideElementNegativeSiblings(mesh3D::Element* element) {
    negative_siblings(_options, element, [this](mesh3D::Element* e) { hide_element(e); });
}

void Painter::ShowElementNegativeSiblings(mesh3D::Element* element) {
    negative_siblings(_options, element, [this](mesh3D::Element* e) { show_element(e); });
}

using Setter = void (OglItemBase::*)(bool);

void Painter::wired_element(oxa::OxaRoot* root, const QString& id) {
    if (mesh3D::Element* element = _getElementFromID(root, id))
        wired_element(element);
}

void Painter::wired_element(mesh3D::Element* element) { force(element, true, Setter(&OglItemBase::wired)); }

void Painter::force(mesh3D::Element* element, bool on, void (OglItemBase::*setter)(bool)) {
    if (auto* container = dynamic_cast<mesh3D::Container*>(element)) {
        for (mesh3D::Element* child : container->children())
            force(child, on, setter);
    } else if (OglItemBase* item = _elements.value(element)) {
        (item->*setter)(on);
    }
}

void Painter::unwired_element(mesh3D::Element* element, bool on) { force(element, on, Setter(&OglItemBase::unwired)); }
void Painter::solid_element(mesh3D::Element* element, bool on) { force(element, on, Setter(&OglItemBase::solid)); }
void Painter::unsolid_element(mesh3D::Element* element, bool on) { force(element, on, Setter(&OglItemBase::unsolid)); }

void Painter::unwired_element(oxa::OxaRoot* root, const QString& id, bool on) {
    if (mesh3D::Element* element = _getElementFromID(root, id))
        unwired_element(element, on);
}
void Painter::solid_element(oxa::OxaRoot* root, const QString& id, bool on) {
    if (mesh3D::Element* element = _getElementFromID(root, id))
        solid_element(element, on);
}
void Painter::unsolid_element(oxa::OxaRoot* root, const QString& id, bool on) {
    if (mesh3D::Element* element = _getElementFromID(root, id))
        unsolid_element(element, on);
}

void Painter::SelectContainedElements(mesh3D::Element* element, bool on) {
    start_selection();
    if (auto* container = dynamic_cast<mesh3D::Container*>(element))
        for (mesh3D::Element* child : container->children())
            is_container(child) ? SelectContainedElements(child, on) : select_element(child, on);
    end_selection();
}

void Painter::ShowContainedElements(mesh3D::Element* element) { for_children(element, &Painter::show_element); }

void Painter::HideContainedElements(mesh3D::Element* element) { for_children(element, &Painter::hide_element); }

void Painter::TransparentElement(oxa::OxaRoot* root, mesh3D::Element* element, double transparency) {
    if (auto* container = dynamic_cast<mesh3D::Container*>(element)) {
        for (mesh3D::Element* child : container->children())
            TransparentElement(root, child, transparency);
        return;
    }
    OglItemBase* item = _elements.value(element);
    if (!item)
        return;
    item->Transparent(transparency);
    const OglItemBase::Path wanted = item->recommended_path();
    if (wanted != item->path() && item->path() != OglItemBase::HiddenPath) {
        remove_from_list(item);
        insert_into_list(item, wanted);
    }
}

void Painter::TransparentElement(oxa::OxaRoot* root, const QString& id, double transparency) {
    if (mesh3D::Element* element = _getElementFromID(root, id))
        TransparentElement(root, element, transparency);
}

void Painter::selectObjects(OglItemBase::Path path, bool on) {
    for (OglItemBase* item = _root; item;) {
        mesh3D::Element* element = item->element();
        if (item != _root && is_composite(element) && dynamic_cast<OglItemBegin*>(item)) {
            const bool shown = item->ContainerVisible();
            if (!on) {
                item->containerSelected(false);
                item->selected(false);
            } else if (path != OglItemBase::HiddenPath ? shown : !shown) {
                item->containerSelected(true);
                item->selected(true);
            }
        } else if (element && element->is_type(mesh3D::TYPE_GEOMETRIC_ELEMENT)) {
            item->selected(on);
        }
        item = path == OglItemBase::TransparentPath ? item->next_transparent()
               : path == OglItemBase::HiddenPath    ? item->next_hidden()
                                                    : item->next_solid();
    }
}

void Painter::select_elements(bool on) {
    selectObjects(OglItemBase::SolidPath, on);
    selectObjects(OglItemBase::TransparentPath, on);
    selectObjects(OglItemBase::HiddenPath, on);
}

void Painter::toggle_selection_elements() {
    for (OglItemBase* item : _elements)
        if (is_composite(item->element()) || item->element()->is_type(mesh3D::TYPE_GEOMETRIC_ELEMENT))
            item->selected(!item->selected());
}

void Painter::toggle_selection_visible_elements() {
    for (mesh3D::Element* element : visible_elements())
        select_element(element, !is_selected(element));
}

void Painter::select_all() {
    start_selection();
    select_elements(true);
    end_selection();
}

void Painter::select_visible() {
    start_selection();
    selectObjects(OglItemBase::SolidPath, true);
    selectObjects(OglItemBase::TransparentPath, true);
    end_selection();
}

void Painter::unselect_all() {
    start_selection();
    select_elements(false);
    end_selection();
}

void Painter::toggle_selection() {
    start_selection();
    toggle_selection_elements();
    end_selection();
}

void Painter::hide_selected() {
    for (mesh3D::Element* element : selected_elements())
        hide_element(element);
}

void Painter::show_selected() {
    for (mesh3D::Element* element : selected_elements())
        show_element(element);
}

void Painter::show_only_selected() {
    hide_all();
    show_selected();
}

void Painter::show_all() {
    for (OglItemBase* item : _elements) {
        if (is_composite(item->element())) {
            item->ContainerVisible(true);
        } else if (item->path() == OglItemBase::HiddenPath) {
            remove_from_list(item);
            insert_into_list(item, item->recommended_path());
        }
    }
}

void Painter::hide_all() {
    for (mesh3D::Element* element : visible_elements())
        hide_element(element);
    for (OglItemBase* item : _elements)
        if (is_composite(item->element()))
            item->ContainerVisible(false);
}

void Painter::toggle_visibility() {
    const QList<mesh3D::Element*> shown = visible_elements();
    const QList<mesh3D::Element*> hidden = hidden_elements();
    for (mesh3D::Element* element : shown)
        hide_element(element);
    for (mesh3D::Element* element : hidden)
        show_element(element);
}

int Painter::SaveInvisibleElements() {
    _saved_invisible = hidden_elements();
    return _saved_invisible.size();
}

int Painter::RestoreInvisibleElements() {
    for (mesh3D::Element* element : _saved_invisible)
        hide_element(element);
    return _saved_invisible.size();
}

void Painter::reset_scale() {
    for (OglItemBase* item : _elements)
        item->scale(1.0, 1.0, 1.0);
}

void Painter::reset_translation() {
    for (OglItemBase* item : _elements)
        item->translate(0.0, 0.0, 0.0);
}

} // namespace mesh3D_gl
