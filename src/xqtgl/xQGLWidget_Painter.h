#pragma once

#include "geometry/primitives.h"
#include "zentra_export.h"

#include <QObject>
#include <QString>

namespace mesh3D {
class Element;
}

namespace xqtgl {

class xQGLWidget;

/// The interface of anything drawn in an `xQGLWidget`. A painter registers itself with its widget
/// on construction and unregisters on destruction; the widget deletes the painters still listed
/// when it dies, so a painter must not outlive its widget.
///
/// Every mass change of selection state is bracketed by `start_selection` and `end_selection`,
/// so that panels can block their own updates for the length of the run.
class ZENTRA_EXPORT xQGLWidget_Painter : public QObject {
    Q_OBJECT
public:
    xQGLWidget_Painter();
    explicit xQGLWidget_Painter(xQGLWidget* widget);
    ~xQGLWidget_Painter() override;

    virtual void paint() = 0;
    /// Cheap drawing while the view is being moved.
    virtual void fast_paint() = 0;
    /// Drawing of the picking pass, every pickable thing in the colour of its id.
    virtual void select_paint() = 0;
    virtual void process_hits(int count, unsigned int* const ids, int mode, bool single) = 0;
    virtual void ProcessElementHit(mesh3D::Element* element, int mode, bool single) = 0;
    virtual bool HighlightNearestElementAndPoint(geometry3D::point* p) = 0;
    virtual geometry3D::boundingbox boundingbox() const;
    virtual geometry3D::boundingbox boundingbox_selected_elements() const;
    virtual geometry3D::boundingbox boundingbox_visible_elements() const;
    virtual QString type_name() const = 0;
    virtual geometry3D::point GetNextVisibleObjectPointFromId(const geometry3D::point& p,
                                                              unsigned int id, bool* found) = 0;
    virtual geometry3D::point GetNextVisibleObjectPoint(const geometry3D::point& p,
                                                        mesh3D::Element* element, bool* found) = 0;
    virtual mesh3D::Element* GetElementFromId(unsigned int id) = 0;
    virtual void select_all() = 0;
    virtual void select_visible() = 0;
    virtual void unselect_all() = 0;
    virtual void toggle_selection() {}
    virtual void hide_selected() {}
    virtual void show_selected() {}
    virtual void show_only_selected() {}
    virtual void show_all() {}
    virtual void hide_all() {}
    virtual void toggle_visibility() {}

    xQGLWidget* widget() const { return _widget; }
    void start_selection();
    void end_selection();
    /// The painter's place in its widget's list, or -1.
    int index() const;

signals:
    void selection_started(xqtgl::xQGLWidget_Painter*);
    void selection_finished(xqtgl::xQGLWidget_Painter*);

private:
    friend class xQGLWidget;
    xQGLWidget* _widget = nullptr;
    int _selection_depth = 0;
};

} // namespace xqtgl
