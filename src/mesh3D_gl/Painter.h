#pragma once

#include "mesh3D_gl/OglItemBase.h"
#include "mesh3D_gl/PainterOptions.h"
#include "xqtgl/xQGLWidget_Painter.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QVector>

namespace mesh3D {
class Container;
class Element;
class Material;
class Object3D;
class Surface;
} // namespace mesh3D
namespace oxa {
class HRef;
class OxaRoot;
} // namespace oxa

namespace mesh3D_gl {

class OglItemEnd;
class OglItemSurface;

/// Draws a container tree and the height references of a project in an `xQGLWidget`. It makes
/// one draw item per drawable element, keeps them on the solid, transparent and hidden lists,
/// and answers every per-element request (hide, show, select, wire, solid, transparent) by
/// element or by identifier; the tree panel and the host go through it, never through items.
///
/// Picking ids: each surface and reference item has a number below `MAXNROBJECTS`; a painter's
/// ids are those numbers plus its index in the widget shifted left by 16, so several painters
/// share one id space without collisions.
///
/// The definition is split by concern: building and drawing (Painter.cpp), per-element and
/// whole-model commands (Painter_Commands.cpp), queries and picking (Painter_Queries.cpp) and
/// textures (Painter_Textures.cpp).
class ZENTRA_EXPORT Painter : public xqtgl::xQGLWidget_Painter {
    Q_OBJECT
public:
    static constexpr int MAXNROBJECTS = 65536;

    explicit Painter(xqtgl::xQGLWidget* widget);
    ~Painter() override;

    const PainterOptions& options() const { return _options; }
    void options(const PainterOptions& o) { _options = o; }
    /// Deletes every item; the painter draws nothing until the next `set_elements`.
    void clear();

    // Building
    void set_elements(mesh3D::Container* root);
    void set_elements(mesh3D::Container* root, QList<oxa::HRef*>& references);
    /// Inserts into a finished structure, at the end of the parent's range; ignored for a parent
    /// the painter does not know.
    void add_container(mesh3D::Container* parent, mesh3D::Container* child, bool visible);
    void add_object3D(mesh3D::Container* parent, mesh3D::Object3D* object, bool visible);
    /// The countable objects in the tree.
    static int count_elements(mesh3D::Container* container);
    /// The factory of surface items; a derived painter may draw objects its own way.
    virtual OglItemSurface* CreateOglItemSurface(mesh3D::Object3D* object);

    // Drawing
    void paint() override;
    void fast_paint() override;
    void select_paint() override;
    QString type_name() const override { return "mesh3D::Painter"; }

    // Queries
    int count_elements() const { return _elements.size(); }
    int count_selected_elements() const { return selected_elements().size(); }
    int count_visible_elements() const { return visible_elements().size(); }
    int count_hidden_elements() const { return hidden_elements().size(); }
    /// Every element with an item, containers included.
    QList<mesh3D::Element*> elements() const { return _elements.keys(); }
    QList<mesh3D::Element*> selected_elements() const;
    /// The leaves on the solid or transparent path.
    QList<mesh3D::Element*> visible_elements() const;
    QList<mesh3D::Element*> hidden_elements() const;
    OglItemBase* opengl_item(mesh3D::Element* element) const { return _elements.value(element); }
    mesh3D::Element* GetElementFromId(unsigned int id) override;
    bool is_selected(mesh3D::Element* element) const;
    bool is_selected(oxa::OxaRoot* root, const QString& id) const;
    bool IsSolid(mesh3D::Element* element) const;
    bool IsWired(mesh3D::Element* element) const;
    bool IsHiddenElement(oxa::OxaRoot* root, const QString& id) const;
    static mesh3D::Object3D* _getObjectFromID(oxa::OxaRoot* root, const QString& id);
    static mesh3D::Element* _getElementFromID(oxa::OxaRoot* root, const QString& id);
    static mesh3D::Surface* _getSurfaceFromID(oxa::OxaRoot* root, const QString& id);
    static mesh3D::Container* _getContainerFromID(oxa::OxaRoot* root, const QString& id);
    /// The outermost composite holding the element, or the element itself.
    static mesh3D::Element* GetTopLevelCompositeElement(mesh3D::Element* element);
    OglItemBase* GetTopLevelCompositeItem(OglItemBase* item) const;
    geometry3D::boundingbox boundingbox() const override;
    geometry3D::boundingbox boundingbox_selected_elements() const override;
    geometry3D::boundingbox boundingbox_visible_elements() const override;
    void process_hits(int count, unsigned int* const ids, int mode, bool single) override;
    void ProcessElementHit(mesh3D::Element* element, int mode, bool single) override;
    /// The vertex of the element nearest to the line from the eye through `p`.
    geometry3D::point GetNextVisibleObjectPoint(const geometry3D::point& p, mesh3D::Element* element,
                                                bool* found) override;
    geometry3D::point GetNextVisibleObjectPointFromId(const geometry3D::point& p, unsigned int id,
                                                      bool* found) override;
    /// Not offered by this painter: always false.
    bool HighlightNearestElementAndPoint(geometry3D::point*) override { return false; }

    // Per element
    virtual void select_element(oxa::OxaRoot* root, const QString& id, bool on);
    virtual void select_element(mesh3D::Element* element, bool on);
    virtual void hide_element(oxa::OxaRoot* root, const QString& id);
    virtual void hide_element(mesh3D::Element* element);
    /// With negative objects not drawn: hides the openings beside a wall with the wall.
    virtual void HideElementNegativeSiblings(mesh3D::Element* element);
    virtual void show_element(oxa::OxaRoot* root, const QString& id);
    virtual void show_element(mesh3D::Element* element);
    virtual void ShowElementNegativeSiblings(mesh3D::Element* element);
    virtual void SetCompositeVisible(mesh3D::Container* composite);
    virtual void wired_element(oxa::OxaRoot* root, const QString& id);
    virtual void wired_element(mesh3D::Element* element);
    virtual void unwired_element(oxa::OxaRoot* root, const QString& id, bool on);
    virtual void unwired_element(mesh3D::Element* element, bool on);
    virtual void solid_element(oxa::OxaRoot* root, const QString& id, bool on);
    virtual void solid_element(mesh3D::Element* element, bool on);
    virtual void unsolid_element(oxa::OxaRoot* root, const QString& id, bool on);
    virtual void unsolid_element(mesh3D::Element* element, bool on);
    void SelectContainedElements(mesh3D::Element* element, bool on);
    void ShowContainedElements(mesh3D::Element* element);
    void HideContainedElements(mesh3D::Element* element);
    /// Item transparency, 1.0 opaque; the item moves to the list its new look asks for. The
    /// caller repaints.
    void TransparentElement(oxa::OxaRoot* root, mesh3D::Element* element, double transparency);
    void TransparentElement(oxa::OxaRoot* root, const QString& id, double transparency);

    // Whole model
    void selectObjects(OglItemBase::Path path, bool on);
    void select_elements(bool on);
    void toggle_selection_elements();
    void toggle_selection_visible_elements();
    void select_all() override;
    void select_visible() override;
    void unselect_all() override;
    void toggle_selection() override;
    void hide_selected() override;
    void show_selected() override;
    void show_only_selected() override;
    void show_all() override;
    void hide_all() override;
    void toggle_visibility() override;
    /// Remembers the hidden elements; returns how many.
    int SaveInvisibleElements();
    /// Hides the remembered elements again; returns how many.
    int RestoreInvisibleElements();
    void reset_scale();
    void reset_translation();

    // Textures
    /// Loads the material's picture into a texture of the widget's context, scaled down to the
    /// options' `TextureSize`; false, with a message, when it cannot be made. The texture lives
    /// until the painter is deleted.
    bool BindMaterialTextureToWidget(mesh3D::Material* material);

protected:
    void build_painter_element_list(const mesh3D::Container& container, bool visible);
    void build_painter_href_list(QList<oxa::HRef*>& references, geometry3D::boundingbox& box, bool visible);
    void InsertContainerItem(mesh3D::Container* container, bool visible);
    void InsertObjectItem(mesh3D::Object3D* object, bool visible);
    void InsertHRefItem(oxa::HRef* reference, const geometry3D::boundingbox& box, bool visible);
    void AddContainerItem(mesh3D::Container* container, bool visible);
    void AddObjectItem(mesh3D::Object3D* object, bool visible);
    OglItemEnd* CreateOGLItem_end(mesh3D::Container* container);
    OglItemEnd* FindOGLItem_end(mesh3D::Element* container) const;
    /// Links an item at the end of its container's range on the path; containers are not moved.
    void insert_into_list(OglItemBase* item, OglItemBase::Path path);
    void remove_from_list(OglItemBase* item);

private:
    enum class Linking { Append, IntoRange };
    void insert_leaf(OglItemBase* item, mesh3D::Element* element, bool visible, Linking linking);
    void insert_container(mesh3D::Container* container, bool visible, Linking linking);
    void append(OglItemBase* item, OglItemBase::Path path);
    void append_on_all_paths(OglItemBase* item);
    void link_before_range_end(OglItemBase* item, OglItemBase::Path path);
    void store_index(OglItemBase* item);
    /// Calls `step` on every item of the path's list, from the root.
    template <typename Step>
    void walk(OglItemBase::Path path, Step step) const;
    template <typename Test>
    QList<mesh3D::Element*> leaves_where(Test test) const;
    geometry3D::boundingbox merged_box(const QList<mesh3D::Element*>& elements) const;
    /// The widget's render origin; zero for a painter without a widget.
    geometry3D::point render_origin() const;
    void for_children(mesh3D::Element* element, void (Painter::*command)(mesh3D::Element*));
    /// Sets a force flag on the element's item, or on every member of a container.
    void force(mesh3D::Element* element, bool on, void (OglItemBase::*setter)(bool));

    PainterOptions _options;
    QVector<OglItemBase*> _index;
    QList<OglItemEnd*> _ends;
    QHash<mesh3D::Element*, OglItemBase*> _elements;
    /// The materials offered for binding since the last `clear()`. Forgotten on `clear()`, since
    /// a later model may hold a new material at a freed one's address.
    QSet<mesh3D::Material*> _materials;
    /// Every texture this painter made, freed with it; kept apart from the materials, which the
    /// model may already have deleted by then.
    QVector<unsigned int> _textures;
    OglItemBegin* _root = nullptr;
    QList<mesh3D::Element*> _saved_invisible;
    bool _building = false;

    // The build's running state, shared by the insert steps.
    static int PainterElementCounter;
    static OglItemBase* _last[3];
    static OglItemBegin* _current_container;
};

} // namespace mesh3D_gl
