#include "xqtgl/xQGLWidget_Painter.h"

#include "xqtgl/xQGLWidget.h"

#include <QCoreApplication>

namespace xqtgl {

xQGLWidget_Painter::xQGLWidget_Painter() = default;

xQGLWidget_Painter::xQGLWidget_Painter(xQGLWidget* widget) : _widget(widget) {
    if (_widget)
        _widget->add(this);
}

xQGLWidget_Painter::~xQGLWidget_Painter() {
    if (_widget)
        _widget->remove(this);
}

geometry3D::boundingbox xQGLWidget_Painter::boundingbox() const { return {}; }
geometry3D::boundingbox xQGLWidget_Painter::boundingbox_selected_elements() const { return {}; }
geometry3D::boundingbox xQGLWidget_Painter::boundingbox_visible_elements() const { return {}; }

void xQGLWidget_Painter::start_selection() {
    if (++_selection_depth == 1) {
        emit selection_started(this);
        QCoreApplication::processEvents();
    }
}

void xQGLWidget_Painter::end_selection() {
    if (_selection_depth-- == 1) {
        QCoreApplication::processEvents();
        emit selection_finished(this);
        QCoreApplication::processEvents();
    }
}

int xQGLWidget_Painter::index() const {
    return _widget ? _widget->painters().indexOf(const_cast<xQGLWidget_Painter*>(this)) : -1;
}

} // namespace xqtgl
