#include "mesh3D_gl/OglItemBase.h"

#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "xqtgl/xQGLWidget.h"

#include <GL/gl.h>

#include <cstdio>

namespace mesh3D_gl {

PainterOptions OglItemBase::options;
basic::MessageService OglItemBase::messages;
OglItemBase::Path OglItemBase::currentPath = OglItemBase::NoPath;
geometry3D::point OglItemBase::render_origin{0.0, 0.0, 0.0};
double OglItemBase::_selectionColorR = 1.0;
double OglItemBase::_selectionColorG = 1.0;
double OglItemBase::_selectionColorB = 0.0;
double OglItemBase::_wiredColorR = 0.0;
double OglItemBase::_wiredColorG = 0.0;
double OglItemBase::_wiredColorB = 0.0;
mesh3D::Material* OglItemBase::_tmpMaterial = nullptr;
int OglItemBase::_semaphoreRequestedMaterial = 0;

OglItemBase::OglItemBase(int id) : _id(id) {}

OglItemBase::~OglItemBase() = default;

void OglItemBase::selected(bool on) {
    if (selected() == on)
        return;
    flag(Selected, on);
    messages.send_ptr(this);
}

void OglItemBase::next(OglItemBase* item, Path) { _next = item; }

geometry3D::boundingbox OglItemBase::boundingbox() const { return geometry3D::boundingbox(); }

void OglItemBase::force(State bit, State opposite, bool on) {
    if (on) {
        flag(bit, true);
        flag(opposite, false);
    } else {
        flag(bit, false);
        flag(opposite, false);
    }
}

void OglItemBase::box_edges(const double corner[3], const double axes[3][3]) {
    for (int a = 0; a < 3; ++a) {
        const int b = (a + 1) % 3, c = (a + 2) % 3;
        for (int k = 0; k < 4; ++k) {
            double from[3];
            for (int i = 0; i < 3; ++i)
                from[i] = corner[i] + ((k & 1) ? axes[b][i] : 0.0) + ((k & 2) ? axes[c][i] : 0.0);
            vertex(from[0], from[1], from[2]);
            vertex(from[0] + axes[a][0], from[1] + axes[a][1], from[2] + axes[a][2]);
        }
    }
}

mesh3D::Material* OglItemBase::RequestTempMaterial(model::System* system) {
    if (_semaphoreRequestedMaterial == 0) {
        _tmpMaterial = new mesh3D::Material(system);
        const float a = _tmpMaterial->diffuse().a;
        _tmpMaterial->diffuse({0.4f, 0.9f, 0.0f, a});
        _tmpMaterial->ambient({0.4f, 0.9f, 0.0f, _tmpMaterial->ambient().a});
        _selectionColorR = 0.5;
        _selectionColorG = 0.5;
        _selectionColorB = 0.0;
    }
    ++_semaphoreRequestedMaterial;
    return _tmpMaterial;
}

void OglItemBase::ReleaseTempMaterial() {
    if (--_semaphoreRequestedMaterial >= 1)
        return;
    delete _tmpMaterial;
    _tmpMaterial = nullptr;
    _semaphoreRequestedMaterial = 0;
    _selectionColorR = 1.0;
    _selectionColorG = 1.0;
    _selectionColorB = 0.0;
}

void OglItemBase::SetWiredColor(double r, double g, double b) {
    _wiredColorR = r;
    _wiredColorG = g;
    _wiredColorB = b;
}

bool has_scale(const mesh3D::Container& c) {
    return c.scale_x() != 1.0 || c.scale_y() != 1.0 || c.scale_z() != 1.0;
}

// ---- begin ----

OglItemBegin::OglItemBegin(mesh3D::Container* container) : OglItemBase(-1), _container_element(container) {}

mesh3D::Element* OglItemBegin::element() const { return _container_element; }

bool OglItemBegin::is_composite() const { return _container_element->is_type(mesh3D::TYPE_COMPOSITE); }

void OglItemBegin::next(OglItemBase* item, Path path) {
    OglItemBase** own = path == TransparentPath ? &_next_transparent : path == HiddenPath ? &_next_hidden : &_next;
    OglItemBase*& stored = _stored[path == TransparentPath ? 1 : path == HiddenPath ? 2 : 0];
    (stored ? stored : *own) = item;
}

OglItemBase* OglItemBegin::endItem() const {
    OglItemBase* item = _next;
    while (item && item->element() != _container_element)
        item = item->next_solid();
    return item;
}

geometry3D::boundingbox OglItemBegin::boundingbox() const { return _container_element->boundingbox(); }

void OglItemBegin::selected(bool on) {
    if (!is_composite() || selected() == on)
        return;
    if (on) {
        _stored[0] = _next;
        _stored[1] = _next_transparent;
        _stored[2] = _next_hidden;
        OglItemBase* end = endItem();
        _next = _next_transparent = _next_hidden = end;
    } else if (_stored[0]) {
        _next = _stored[0];
        _next_transparent = _stored[1];
        _next_hidden = _stored[2];
        _stored[0] = _stored[1] = _stored[2] = nullptr;
    }
    OglItemBase::selected(on);
}

bool OglItemBegin::push_transform() const {
    const mesh3D::Container& c = *_container_element;
    if (!has_scale(c))
        return false;
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    const GLenum error = glGetError();
    if (error != GL_NO_ERROR) {
        std::printf("[%s] ERROR = %s\n", qPrintable(c.name()), qPrintable(xqtgl::xQGLWidget::gl_error_name(error)));
        std::fflush(stdout);
    }
    // Scale about the world origin, not the render origin that the vertices are relative to.
    const geometry3D::point& o = render_origin;
    glTranslated((c.scale_x() - 1.0) * o.x, (c.scale_y() - 1.0) * o.y, (c.scale_z() - 1.0) * o.z);
    glScaled(c.scale_x(), c.scale_y(), c.scale_z());
    glTranslated(c.translate_x(), c.translate_y(), c.translate_z());
    return true;
}

template <typename Step>
void OglItemBegin::walk(OglItemBase* from, OglItemBase* to, OglItemBase* (OglItemBase::*next)() const,
                        Step step) const {
    for (OglItemBase* item = from; item && item != to; item = (item->*next)())
        step(item);
}

template <typename Step>
void OglItemBegin::walk_hidden_members(Step step) const {
    for (OglItemBase* item = _next_hidden; item && item->element() != _container_element; item = item->next_hidden())
        step(item);
}

void OglItemBegin::paint() {
    push_transform();
    if (!is_composite())
        return;
    if (selected()) {
        if (ContainerVisible())
            RequestTempMaterial(_container_element->system());
        walk(_stored[0], _next, &OglItemBase::next_solid, [](OglItemBase* item) { item->paint(); });
        walk(_stored[1], _next_transparent, &OglItemBase::next_transparent, [](OglItemBase* item) { item->paint(); });
        if (ContainerVisible()) {
            walk(_stored[2], _next_hidden, &OglItemBase::next_hidden, [](OglItemBase* item) {
                const bool was = item->selected();
                item->selected(false);
                item->paint();
                item->selected(was);
            });
            if (draws_wired())
                paint_wire_box();
            ReleaseTempMaterial();
        }
    } else if (ContainerVisible()) {
        // Members of a shown composite that are on the hidden path still show, in the cheap form.
        walk_hidden_members([](OglItemBase* item) { item->fast_paint(); });
    }
}

void OglItemBegin::paint_wire_box() const {
    const geometry3D::boundingbox b = _container_element->boundingbox();
    const double corner[3] = {b.xmin, b.ymin, b.zmin};
    const double axes[3][3] = {{b.xmax - b.xmin, 0.0, 0.0}, {0.0, b.ymax - b.ymin, 0.0}, {0.0, 0.0, b.zmax - b.zmin}};
    glDisable(GL_LIGHTING);
    glColor4d(0.0, 0.0, 0.0, 1.0);
    glLineWidth(1.25f);
    glBegin(GL_LINES);
    box_edges(corner, axes);
    glEnd();
    glEnable(GL_LIGHTING);
}

void OglItemBegin::select_paint(int base) {
    push_transform();
    const auto pick = [base](OglItemBase* item) { item->select_paint(base); };
    walk(_stored[0], _next, &OglItemBase::next_solid, pick);
    walk(_stored[1], _next_transparent, &OglItemBase::next_transparent, pick);
    if (is_composite() && ContainerVisible()) {
        walk_hidden_members(pick);
        walk(_stored[2], _next_hidden, &OglItemBase::next_hidden, pick);
    }
}

// ---- end ----

OglItemEnd::OglItemEnd(int id, mesh3D::Container* container) : OglItemBase(id), _container_element(container) {}

mesh3D::Element* OglItemEnd::element() const { return _container_element; }

void OglItemEnd::next(OglItemBase* item, Path path) {
    (path == TransparentPath ? _next_transparent : path == HiddenPath ? _next_hidden : _next) = item;
}

void OglItemEnd::paint() {
    if (!has_scale(*_container_element))
        return;
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

void OglItemEnd::select_paint(int base) {
    const unsigned int id = unsigned(id_number() + base);
    glColor3f((id & 0xFF) / 255.0f, ((id >> 8) & 0xFF) / 255.0f, ((id >> 8 >> 15) & 0xFF) / 255.0f);
    paint();
}

} // namespace mesh3D_gl
