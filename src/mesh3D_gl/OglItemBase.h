#pragma once

#include "basic/MessageService.h"
#include "geometry/primitives.h"
#include "mesh3D_gl/PainterOptions.h"
#include "zentra_export.h"

#include <QString>
#include <GL/gl.h>

namespace mesh3D {
class Container;
class Element;
class Material;
} // namespace mesh3D
namespace model {
class System;
}

namespace mesh3D_gl {

/// One entry of the painter's draw lists. Items are threaded into three singly linked lists, one
/// per rendering path (solid, transparent, hidden); a plain item is on one list at a time, and
/// container items mark the start and end of their range on all three. The painter walks the
/// lists every frame; nothing is searched or allocated per frame.
class ZENTRA_EXPORT OglItemBase {
public:
    enum Path : unsigned char { NoPath = 0, SolidPath = 1, TransparentPath = 2, HiddenPath = 4 };

    explicit OglItemBase(int id);
    virtual ~OglItemBase();
    OglItemBase(const OglItemBase&) = delete;
    OglItemBase& operator=(const OglItemBase&) = delete;

    virtual void paint() = 0;
    /// The cheap form drawn while the view moves.
    virtual void fast_paint() = 0;
    /// The picking pass: the item in the colour of `id_number() + base`.
    virtual void select_paint(int base) = 0;
    /// Sets or clears the selection and tells the listeners of `messages` which item changed.
    virtual void selected(bool on);
    virtual bool selected() const { return _state & Selected; }
    virtual mesh3D::Element* element() const = 0;
    virtual OglItemBase* next_solid() const { return _next; }
    virtual OglItemBase* next_transparent() const { return _next; }
    virtual OglItemBase* next_hidden() const { return _next; }
    virtual OglItemBase* next_solidStored() const { return nullptr; }
    virtual OglItemBase* next_transparentStored() const { return nullptr; }
    virtual OglItemBase* next_hiddenStored() const { return nullptr; }
    /// The matching end of a container's range; null for other items.
    virtual OglItemBase* endItem() const { return nullptr; }
    virtual void next(OglItemBase* item, Path path);
    /// The list the item belongs on when shown: solid, or transparent for see-through items.
    virtual Path recommended_path() const = 0;
    virtual void scale(double, double, double) {}
    virtual void scale_x(double) {}
    virtual double scale_x() const { return 1.0; }
    virtual void scale_y(double) {}
    virtual double scale_y() const { return 1.0; }
    virtual void scale_z(double) {}
    virtual double scale_z() const { return 1.0; }
    virtual void translate(double, double, double) {}
    virtual void translate_x(double) {}
    virtual double translate_x() const { return 0.0; }
    virtual void translate_y(double) {}
    virtual double translate_y() const { return 0.0; }
    virtual void translate_z(double) {}
    virtual double translate_z() const { return 0.0; }
    /// Empty for items without geometry.
    virtual geometry3D::boundingbox boundingbox() const;
    virtual QString ClassName() const { return "mesh3D_gl::OpenGL_ListItem"; }

    bool containerSelected() const { return _state & ContainerSelected; }
    void containerSelected(bool on) { flag(ContainerSelected, on); }
    /// For a composite: its members are painted as part of it.
    bool ContainerVisible() const { return _container_visible; }
    void ContainerVisible(bool on) { _container_visible = on; }
    // Force flags: an item draws wires (solid faces) when forced on by its own flag, not when
    // forced off by the opposite one, and otherwise as the process-wide option says.
    bool wired() const { return _state & Wired; }
    void wired(bool on) { force(Wired, Unwired, on); }
    bool unwired() const { return _state & Unwired; }
    void unwired(bool on) { force(Unwired, Wired, on); }
    bool solid() const { return _state & Solid; }
    void solid(bool on) { force(Solid, Unsolid, on); }
    bool unsolid() const { return _state & Unsolid; }
    void unsolid(bool on) { force(Unsolid, Solid, on); }
    bool draws_solid() const { return (solid() || options.draw_solid()) && !unsolid(); }
    bool draws_wired() const { return (wired() || options.draw_wired()) && !unwired(); }
    /// 1.0 is opaque; values outside 0..1 are stored as 1.0.
    void Transparent(double value) { _transparency = value < 0.0 || value > 1.0 ? 1.0 : value; }
    double transparency() const { return _transparency; }
    Path path() const { return _path; }
    void path(Path p) { _path = p; }
    OglItemBase* previous() const { return _previous; }
    void previous(OglItemBase* item) { _previous = item; }
    /// The begin item of the container the item lies in.
    OglItemBase* container() const { return _container; }
    void container(OglItemBase* item) { _container = item; }
    int id_number() const { return _id; }

    /// A material for everything drawn until its release, so that a selected composite shows in
    /// one colour; requests nest.
    static mesh3D::Material* RequestTempMaterial(model::System* system);
    static const mesh3D::Material* TempMaterial() { return _tmpMaterial; }
    static void ReleaseTempMaterial();
    static void SetWiredColor(double r, double g, double b);

    /// The painter's options for the frame being drawn, refreshed by the painter.
    static PainterOptions options;
    /// Selection changes of single items, as item pointers (`send_ptr`).
    static basic::MessageService messages;
    static Path currentPath;
    /// The widget's render origin for the frame being drawn: every vertex reaches GL less it.
    static geometry3D::point render_origin;
    static double _selectionColorR, _selectionColorG, _selectionColorB;
    static double _wiredColorR, _wiredColorG, _wiredColorB;

    /// A world point sent to GL relative to the render origin, the one place where model
    /// coordinates become GL's.
    static void vertex(double x, double y, double z) {
        glVertex3d(x - render_origin.x, y - render_origin.y, z - render_origin.z);
    }
    static void vertex(const geometry3D::point& p) { vertex(p.x, p.y, p.z); }
    /// The twelve edges of the box at `corner` spanned by three edge vectors, inside `GL_LINES`.
    static void box_edges(const double corner[3], const double axes[3][3]);

protected:
    enum State { Selected = 1, ContainerSelected = 2, Wired = 16, Solid = 32, Unwired = 64, Unsolid = 128 };

    void flag(State bit, bool on) { _state = on ? _state | bit : _state & ~bit; }

    static mesh3D::Material* _tmpMaterial;
    static int _semaphoreRequestedMaterial;

    OglItemBase* _next = nullptr;

private:
    void force(State bit, State opposite, bool on);

    int _state = 0;
    bool _container_visible = true;
    Path _path = NoPath;
    OglItemBase* _previous = nullptr;
    OglItemBase* _container = nullptr;
    int _id;
    double _transparency = 1.0;
};

/// Base of the leaf items, which carry a model element's transform.
class ZENTRA_EXPORT OglItemAbstract : public OglItemBase {
public:
    using OglItemBase::OglItemBase;
    QString ClassName() const override { return "mesh3D_gl::OGLPainter_Abstract"; }
};

/// The start of a container's range on all three lists. For a composite, selecting it takes its
/// members off the lists (the begin item then paints them itself) and unselecting puts them back.
class ZENTRA_EXPORT OglItemBegin : public OglItemBase {
public:
    explicit OglItemBegin(mesh3D::Container* container);

    void paint() override;
    void fast_paint() override { paint(); }
    void select_paint(int base) override;
    void selected(bool on) override;
    using OglItemBase::selected;
    mesh3D::Element* element() const override;
    OglItemBase* next_transparent() const override { return _next_transparent; }
    OglItemBase* next_hidden() const override { return _next_hidden; }
    OglItemBase* next_solidStored() const override { return _stored[0]; }
    OglItemBase* next_transparentStored() const override { return _stored[1]; }
    OglItemBase* next_hiddenStored() const override { return _stored[2]; }
    OglItemBase* endItem() const override;
    /// Rewrites the stored pointer of the path while one is set, else the path's own.
    void next(OglItemBase* item, Path path) override;
    Path recommended_path() const override { return SolidPath; }
    geometry3D::boundingbox boundingbox() const override;
    QString ClassName() const override { return "mesh3D_gl::OpenGL_ListItem_begin"; }

    mesh3D::Container* container_element() const { return _container_element; }

private:
    bool is_composite() const;
    bool push_transform() const;
    /// The container's bounding box as black edges: the outline of a selected composite.
    void paint_wire_box() const;
    template <typename Step>
    void walk(OglItemBase* from, OglItemBase* to, OglItemBase* (OglItemBase::*next)() const, Step step) const;
    /// The hidden members of the range, up to its end item.
    template <typename Step>
    void walk_hidden_members(Step step) const;

    mesh3D::Container* _container_element;
    OglItemBase* _next_transparent = nullptr;
    OglItemBase* _next_hidden = nullptr;
    OglItemBase* _stored[3] = {nullptr, nullptr, nullptr};
};

/// The end of a container's range on all three lists.
class ZENTRA_EXPORT OglItemEnd : public OglItemBase {
public:
    OglItemEnd(int id, mesh3D::Container* container);

    void paint() override;
    void fast_paint() override { paint(); }
    void select_paint(int base) override;
    mesh3D::Element* element() const override;
    OglItemBase* next_transparent() const override { return _next_transparent; }
    OglItemBase* next_hidden() const override { return _next_hidden; }
    void next(OglItemBase* item, Path path) override;
    Path recommended_path() const override { return SolidPath; }
    QString ClassName() const override { return "mesh3D_gl::OpenGL_ListItem_end"; }

private:
    mesh3D::Container* _container_element;
    OglItemBase* _next_transparent = nullptr;
    OglItemBase* _next_hidden = nullptr;
};

/// True when a container's scale is not exactly one, the only case in which its transform is
/// applied.
bool has_scale(const mesh3D::Container& container);

} // namespace mesh3D_gl
