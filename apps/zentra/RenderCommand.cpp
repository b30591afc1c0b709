#include "Command.h"
#include "LoadedModel.h"
#include "PrivateDisplay.h"
#include "RenderRequest.h"

#include "geometry/Plane.h"
#include "mesh3D/Element.h"
#include "mesh3D_gl/Painter.h"
#include "model/System.h"
#include "oxaIO/IView.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaVisualisationSection.h"
#include "xqtgl/xQGLView.h"
#include "xqtgl/xQGLWidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QWindow>

#include <cmath>
#include <map>

namespace {

using xqtgl::xQGLCamera;
using xqtgl::xQGLWidget;

// Room around the frame on a private screen, so the window is never clipped by the screen edge.
const int screen_margin = 64;

void wait_until_shown(QWidget& widget) {
    QElapsedTimer waited;
    waited.start();
    while (!(widget.windowHandle() && widget.windowHandle()->isExposed()) && waited.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

geometry3D::Point to_point(const oxaIO::VCoords3D& c) { return geometry3D::Point(c.x, c.y, c.z); }

/// Moves the eye along its line of sight until the scene's bounding sphere fits a perspective
/// frame: the direction of the view is kept, so a plan stays a plan.
void fit_perspective_along_sight(xQGLCamera& camera, const geometry3D::boundingbox& box) {
    const geometry3D::Point centre(geometry3D::center(box));
    const double radius = 0.5 * std::sqrt(std::pow(box.xmax - box.xmin, 2) + std::pow(box.ymax - box.ymin, 2) +
                                          std::pow(box.zmax - box.zmin, 2));
    const double half_height = camera.view_angle() * M_PI / 360.0;
    const double half_width = std::atan(std::tan(half_height) * camera.aspect_ratio());
    const double distance = std::max(radius, 0.05) / std::sin(std::min(half_height, half_width));
    vmp::Vector sight = (centre - camera.eye()).to_Vector();
    sight.normalize();
    camera.lookat(centre);
    camera.eye(centre - geometry3D::Point(sight[0], sight[1], sight[2]) * distance);
}

void compass_view(xQGLWidget& widget, const QString& view) {
    static const std::map<QString, void (xQGLWidget::*)()> commands{
        {"top", &xQGLWidget::SetOrthoProjectionPlanView},
        {"north", &xQGLWidget::SetOrthoProjectionNorthView},
        {"east", &xQGLWidget::SetOrthoProjectionEastView},
        {"south", &xQGLWidget::SetOrthoProjectionSouthView},
        {"west", &xQGLWidget::SetOrthoProjectionWestView},
        {"northeast", &xQGLWidget::SetOrthoProjectionNortheastView},
        {"northwest", &xQGLWidget::SetOrthoProjectionNorthwestView},
        {"southeast", &xQGLWidget::SetOrthoProjectionSoutheastView},
        {"southwest", &xQGLWidget::SetOrthoProjectionSouthwestView}};
    (widget.*commands.at(view))();
}

/// The first camera of the stored view with that name or identifier, or null.
const oxaIO::ICamera* stored_camera(const oxa::OxaRoot& root, const QString& name) {
    for (const oxaIO::OxaObjects* document : root.OxaObjectsList())
        for (const oxaIO::IViewContainer* views : document->VisualisationSection().ViewContainers())
            for (oxaIO::IView* view : views->Views())
                if ((QString::fromStdWString(view->Name()) == name || QString::fromStdWString(view->ID()) == name) &&
                    !view->Cameras().empty())
                    return view->Cameras().front();
    return nullptr;
}

/// The stored camera on a copy of `current`. A perspective camera keeps the picture's aspect
/// ratio; an orthographic one brings its expected and current ortho sizes and aspect ratio, and
/// takes its ortho sizes as the expected ones where the document has none.
xQGLCamera camera_from(const oxaIO::ICamera& stored, const xQGLCamera& current) {
    xQGLCamera camera(current);
    camera.view_angle(stored.ViewAngle());
    camera.lookat(to_point(stored.LookAt()));
    camera.eye(to_point(stored.Eye()));
    camera.lookat(to_point(stored.LookAt()));
    if (stored.ProjectionType() != 1) {
        camera.projection(xqtgl::perspective);
        return camera;
    }
    camera.projection(xqtgl::orthographic);
    const bool expected = stored.ExpOrthoWidth() > 0.0 && stored.ExpOrthoHeight() > 0.0;
    camera.SetExpectOrthoWidth(expected ? stored.ExpOrthoWidth() : stored.OrthoWidth());
    camera.SetExpectOrthoHeight(expected ? stored.ExpOrthoHeight() : stored.OrthoHeight());
    camera.SetOrthoWidth(stored.OrthoWidth());
    camera.SetOrthoHeight(stored.OrthoHeight());
    camera.aspect_ratio(stored.AspectRatio());
    return camera;
}

/// Shows the stored camera as the viewer shows a viewpoint, which fits an orthographic view to
/// the picture's shape, keeping the cut the request asked for; then fits the far plane.
void show_stored_camera(xQGLWidget& widget, const oxaIO::ICamera& stored) {
    xqtgl::xQGLView view;
    view.camera(camera_from(stored, widget.camera()));
    view.clipping_plane(widget.options().clipping_plane());
    view.clipping_plane_enabled(widget.options().plane_clipping_enabled());
    widget.show_viewpoint(widget.add_viewpoint(0, view));
    widget.camera(xQGLCamera(widget.camera()));
}

/// Places the camera as asked; false with `problem` set when the asked viewpoint is unknown.
bool apply_view(xQGLWidget& widget, const oxa::OxaRoot& root, const RenderRequest& request, QString* problem) {
    using Projection = RenderRequest::Projection;
    if (!request.viewpoint.isEmpty()) {
        const oxaIO::ICamera* stored = stored_camera(root, request.viewpoint);
        if (!stored) {
            *problem = QString("no viewpoint named '%1'").arg(request.viewpoint);
            return false;
        }
        show_stored_camera(widget, *stored);
    } else if (request.view == "iso") {
        widget.zoom_home_norefresh();
        widget.zoom_all();
    } else {
        compass_view(widget, request.view);
    }
    const bool perspective = widget.isPerspectiveProjection();
    if (request.projection == Projection::Orthographic && perspective) {
        widget.set_orthographic_projection();
    } else if (request.projection == Projection::Perspective && !perspective) {
        xQGLCamera camera(widget.camera());
        camera.projection(xqtgl::perspective);
        camera.aspect_ratio(double(widget.width()) / widget.height());
        fit_perspective_along_sight(camera, widget.boundingbox());
        widget.camera(camera);
    }
    return true;
}

void apply_scene_options(xQGLWidget& widget, const RenderRequest& request) {
    xqtgl::xQGLWidget_Options options(widget.options());
    if (request.background)
        options.background_color(*request.background);
    if (request.clip_axis) {
        vmp::Vector normal(0.0, 0.0, 0.0);
        const double side = request.clip_negative ? -1.0 : 1.0;
        normal[*request.clip_axis] = side;
        options.clipping_plane(geometry3D::Plane(normal, side * request.clip_at));
        options.plane_clipping_enabled(true);
    }
    widget.options(options);
}

const char* const render_help =
    "Usage: zentra render PATH -o OUT.png [options]\n"
    "Draws a document, a project folder or a 3DS file into a PNG picture.\n"
    "  --size WxH            picture size (default 1280x800)\n"
    "  --view V              iso (default: south-west, above, in perspective), top, north, east, south,\n"
    "                        west, northeast, northwest, southeast or southwest (orthographic)\n"
    "  --perspective         perspective projection, keeping the view's direction\n"
    "  --orthographic        orthographic projection, keeping the view's direction\n"
    "  --viewpoint NAME      the first camera of a view stored in the document, by name or identifier;\n"
    "                        it places the camera instead of --view, so the two exclude each other\n"
    "  --background RRGGBB   background colour\n"
    "  --clip AXIS:VALUE     cut at AXIS = VALUE keeping the side above (z:12.5) or below (-z:12.5)\n"
    "  --select ID           draw that object as selected\n"
    "Without an X display the tool runs a private virtual X server (Xvfb) for the length of the run.\n";

int run_render(const QStringList& arguments, QTextStream& out, QTextStream& err) {
    if (arguments.contains("--help")) {
        out << render_help;
        return 0;
    }
    const RenderRequest request = RenderRequest::parse(arguments);
    PrivateDisplay display;
    QString problem;
    if (!display.ensure(request.size + QSize(screen_margin, screen_margin), &problem)) {
        err << "zentra render: " << problem << "\n";
        return 1;
    }
    int argc = 1;
    char name[] = "zentra";
    char* argv[] = {name, nullptr};
    QApplication application(argc, argv);

    LoadedModel model(request.input);
    for (const QString& error : model.errors())
        err << error << "\n";
    // Nothing read, nothing to draw; a model read in part is drawn, and the exit code tells.
    if (model.cancelled() || model.root().OxaObjectsList().isEmpty())
        return 1;
    out << QString("loaded %1 in %2 s\n").arg(request.input).arg(model.seconds(), 0, 'f', 2);
    out.flush();

    QElapsedTimer drawing;
    drawing.start();
    xQGLWidget widget;
    widget.resize(request.size);
    widget.show();
    wait_until_shown(widget);
    if (!widget.isValid()) {
        err << "zentra render: the display has no OpenGL; install Mesa's drivers (Debian: libgl1-mesa-dri)\n";
        return 1;
    }
    widget.autoSwap(false);
    // The widget deletes its painters.
    auto* painter = new mesh3D_gl::Painter(&widget);
    painter->set_elements(model.root().RootContainer(), const_cast<QList<oxa::HRef*>&>(model.root().HRefList()));
    widget.boundingbox(painter->boundingbox());
    apply_scene_options(widget, request);
    if (!request.selected_id.isEmpty()) {
        auto* element = dynamic_cast<mesh3D::Element*>(model.root().System()->object(request.selected_id));
        if (!element || !painter->opengl_item(element)) {
            err << "zentra render: no object with id '" << request.selected_id << "'\n";
            return 1;
        }
        painter->select_element(element, true);
        // A plain container has no selected look of its own; drawing nothing selected would
        // pass for success.
        if (!painter->is_selected(element)) {
            err << "zentra render: '" << request.selected_id
                << "' cannot be drawn selected: it is a plain container, not an object or a composite\n";
            return 1;
        }
    }
    if (!apply_view(widget, model.root(), request, &problem)) {
        err << "zentra render: " << problem << "\n";
        return 1;
    }
    widget.updateGL();
    const QImage frame = widget.grabFrameBuffer(false);
    if (!frame.save(request.output, "PNG")) {
        err << "zentra render: cannot write " << request.output << "\n";
        return 1;
    }
    out << QString("drew %1x%2 in %3 s: %4\n")
               .arg(frame.width())
               .arg(frame.height())
               .arg(drawing.nsecsElapsed() / 1e9, 0, 'f', 2)
               .arg(request.output);
    return model.errors().isEmpty() ? 0 : 1;
}

const CommandRegistration registration(
    {"render", "PATH -o OUT.png [options]",
     "draw a document, project folder or 3DS file to a PNG picture (see 'zentra render --help')", run_render,
     true});

} // namespace
