#pragma once

#include "basic/MessageService.h"
#include "basic/color.h"
#include "geometry/primitives.h"
#include "xqtgl/xQGLCamera.h"
#include "xqtgl/xQGLMetaTypes.h"
#include "xqtgl/xQGLWidget_Options.h"
#include "zentra_export.h"

#include <QGLWidget>
#include <QHash>
#include <QList>
#include <QSet>

#include <functional>

class QPainter;

namespace geometry3D {
class Plane;
class Ray;
} // namespace geometry3D

namespace mesh3D {
class Surface;
}

namespace xqtgl {

class xQGLView;
class xQGLWidget_Handler;
class xQGLWidget_Painter;

/// The OpenGL view. It owns the camera, the options, the painters, the viewpoints and the current
/// navigation handler, draws the helpers of the scene (grid, origin, box, labels) and hands the
/// model to its painters.
///
/// Render origin: a building at national-grid coordinates would lose its millimetres in GL's
/// floats, so the view keeps an origin near the scene box (zero for a scene near zero) and every
/// coordinate reaches GL less that origin. Everything public (camera, box, picked points) is in
/// world coordinates; `to_render` and `to_world` are the only conversions.
///
/// The definition is split by concern: construction and the frame loop (xQGLWidget.cpp), scene
/// helpers and labels (xQGLWidget_Helpers.cpp), commands (xQGLWidget_Commands.cpp), picking
/// (xQGLWidget_Picking.cpp for points, xQGLWidget_Selection.cpp for colour ids,
/// xQGLWidget_GeometricPicking.cpp for rays and frustums) and the process-wide settings
/// (xQGLWidget_Settings.cpp).
class ZENTRA_EXPORT xQGLWidget : public QGLWidget {
    Q_OBJECT
public:
    explicit xQGLWidget(QWidget* parent = nullptr);
    xQGLWidget(const QGLFormat& format, QWidget* parent = nullptr, const QGLWidget* share = nullptr,
               Qt::WindowFlags flags = Qt::WindowFlags());
    /// Deletes the handler, the painters still listed and the viewpoints.
    ~xQGLWidget() override;

    // Painters
    void add(xQGLWidget_Painter* painter);
    void remove(xQGLWidget_Painter* painter);
    const QList<xQGLWidget_Painter*>& painters() const { return _painters; }
    QList<xQGLWidget_Painter*> painters(const QString& type_name) const;

    // State
    const xQGLWidget_Options& options() const { return _options; }
    void options(const xQGLWidget_Options& o) { _options = o; }
    const xQGLCamera& camera() const { return _camera; }
    /// Assigns the camera (repainting if it differs) and raises the far plane to reach the
    /// farthest corner of the grid's extent of the scene box.
    void camera(const xQGLCamera& c);
    const geometry3D::boundingbox& boundingbox() const { return _boundingbox; }
    /// Sets the scene box, moves the render origin if the box needs it, emits `boundingbox_changed`.
    void boundingbox(const geometry3D::boundingbox& box);
    bool fast_paint_status() const { return _fast_paint_status; }
    void fast_paint_status(bool on) { _fast_paint_status = on; }
    bool ignore_repaint() const { return _ignore_repaint; }
    void ignore_repaint(bool on) { _ignore_repaint = on; }
    bool autoSwap() const { return autoBufferSwap(); }
    void autoSwap(bool on) { setAutoBufferSwap(on); }
    const basic::MessageService& messages() const { return _messages; }
    basic::MessageService* MsgService() const { return _message_service; }
    void MsgService(basic::MessageService* service) { _message_service = service; }
    virtual QWidget* ContextWidget() const { return _context_widget; }
    virtual void SetContextWidget(QWidget* widget) { _context_widget = widget; }
    xQGLWidget_Handler* handler() const { return _handler; }

    // Zoom commands; each first resets the handler's half-taken input
    /// Fits the box into the view from the camera's present side (perspective) or centres it
    /// with square expected ortho sizes (orthographic).
    virtual void zoom_boundingbox(const geometry3D::boundingbox& box);
    void zoom_all();
    void zoom_to_selected();
    void zoom_to_visible();
    void zoom_home();
    void zoom_home_norefresh();
    /// Do not repaint: a caller zooming in steps repaints once.
    void zoom_in();
    void zoom_out();
    void ResetCameraPlanesAndAngle();

    // Projections and the fixed views
    /// Back to the eye and look-at saved before the first orthographic view.
    void set_perspective_projection();
    void set_orthographic_projection();
    bool isPerspectiveProjection() const { return _camera.projection() == perspective; }
    void view_X();
    void view_negX();
    void view_Y();
    void view_negY();
    void SetOrthoProjectionPlanView();
    void SetOrthoProjectionNorthView();
    void SetOrthoProjectionEastView();
    void SetOrthoProjectionSouthView();
    void SetOrthoProjectionWestView();
    void SetOrthoProjectionNorthwestView();
    void SetOrthoProjectionNortheastView();
    void SetOrthoProjectionSoutheastView();
    void SetOrthoProjectionSouthwestView();

    // Viewpoints, keyed by a running number that is never lowered
    /// Asks for a name and keeps the present camera, clipping plane and a thumbnail.
    void save_viewpoint();
    void show_viewpoint(int key);
    /// Keeps a copy under the first free key from `key` upward and returns that key.
    int add_viewpoint(int key, const xQGLView& view);
    /// Replaces the stored view by the present camera and plane; the name becomes empty.
    void update_viewpoint(int key);
    void delete_viewpoint(int key);
    void DeleteAllViewpoints();
    const QHash<int, xQGLView*>& viewpoints() const { return _viewpoints; }
    xQGLView* viewpoint(int key) const { return _viewpoints.value(key); }
    /// The key of a stored view, or -1.
    int index(xQGLView* view) const;

    // Screenshots
    void copy_to_clippboard();
    void SavePixmap();
    /// Saves the frame in the format of the name's extension; a failing save is ignored.
    void SavePixmap(const QString& name);
    /// Asks for a file name; one without an extension gets ".png".
    void SavePixmapChoose(const QString& start);

    // Navigation modes
    void set_mode_orbit();
    void set_mode_walk();
    void set_mode_pan();
    void set_mode_zoom();
    void set_mode_lookaround();
    void set_mode_select();
    /// Dispatches over the mode names; an unknown name is ignored.
    void set_navigation_mode(const QString& name);
    QString navigation_mode() const;
    void ResetHandler();

    // Commands passed on to every painter, then one repaint
    void select_all();
    void select_visible();
    void unselect_all();
    void toggle_selection();
    void hide_selected();
    void show_selected();
    void show_only_selected();
    void show_all();
    void show_all_NoRepaint();
    void hide_all();
    void hide_all_NoRepaint();
    void toggle_visibility();
    /// Shows the selection on the first call, hides it on the next, and so on.
    void show_hide_selected();

    // Render origin
    const geometry3D::point& render_origin() const { return _render_origin; }
    geometry3D::point to_render(const geometry3D::point& world) const;
    geometry3D::point to_world(const geometry3D::point& render) const;

    // Scene helpers, drawn in the current GL context
    void draw_axis(double length, const basic::color4& colour);
    void draw_grid();
    void draw_boundingbox();
    void draw_origin();
    void paint_legend();
    /// Text in the stroke font, one unit per character; usable by the painters' items as well.
    static void draw_vectortext(const char* text);
    static void draw_vectorqstring(const QString& text);
    void Draw3DString(double x, double y, double z, double sx, double sy, int width,
                      const QString& text);
    void Show2DVectorText(const QString& text, bool flag);
    void ShowText(QPainter* p, const QRect& rect, int point_size, const QString& text,
                  const QColor& c1, const QColor& c2);
    void ShowFramerate(QPainter* p, double fps);
    void ShowClippingEnabled(QPainter* p);

    // Picking of world points
    /// The world point under the window pixel (x, y) by its depth; `*hit` is false on background,
    /// and the result is then the origin. With a null `hit` the unproject is done at any depth.
    geometry3D::point pick_point(int x, int y, bool* hit = nullptr);
    /// `pick_point`, a hit only inside the scene box.
    geometry3D::point PickPointInsideBoundingBox(int x, int y, bool* hit);
    /// The pixel on the plane through the box centre, square to the line of sight.
    geometry3D::point PickPointOnBoundingBoxCenterPlane(int x, int y);
    /// Takes `n` window points (y down, z ignored) to world points at the depth of `plane_point`.
    void TransformPointsScreenToWorld(int n, const geometry3D::point* screen,
                                      geometry3D::point* world, const geometry3D::point& plane_point);

    // Picking of objects. Mode: 0 replaces the selection, 1 toggles what is hit, 2 adds to it.
    // `single`: a hit stands for itself, else for its outermost composite. Kind: 0 a click,
    // 1 a region selecting what lies wholly inside, 2 a region selecting what it touches.
    /// By ray or by colour id, as the process-wide switch says; the world point and the owning
    /// painter come back where asked for.
    mesh3D::Surface* PickObject(int x, int y, geometry3D::point* point,
                                xQGLWidget_Painter** painter = nullptr);
    /// By the colour of the id under the pixel; null on background.
    mesh3D::Surface* PickObjectGraphical(int x, int y, geometry3D::point* point,
                                         xQGLWidget_Painter** painter = nullptr);
    /// By a ray from the eye through the pixel: the nearest surface hit, and its painter.
    mesh3D::Surface* PickObjectGeometrical(int x, int y, xQGLWidget_Painter** painter, geometry3D::point* point);
    /// `PickObject`, and in `nearest` the vertex of the object's outline closest to the line of
    /// sight through the pixel, for snapping; null and both points untouched on background.
    mesh3D::Surface* PickObjectPoint(int x, int y, geometry3D::point& point, geometry3D::point& nearest);
    /// The identifier of the object under the pixel, or an empty string.
    QString PickObjectID(int x, int y);
    virtual void SelectRegion(int x, int y, int w, int h, int mode, bool single, int kind);
    void SelectRegionGraphical(int x, int y, int w, int h, int mode, bool single, bool first);
    void SelectRegionGeometrical(int x, int y, int w, int h, int mode, bool single);
    void SelectSingleGeometrical(int x, int y, int mode, bool single);
    /// The picking ids drawn in the window rectangle; `first` stops at the first one.
    void CollectIdsGraphical(QSet<unsigned int>& ids, int x, int y, int w, int h, bool first);
    void CollectIdsGraphicalWithPixelBuffer(QSet<unsigned int>& ids, int x, int y, int w, int h, bool first);
    void CollectIdsGraphicalWithWidget(QSet<unsigned int>& ids, int x, int y, int w, int h, bool first);
    void SelectCollectedIds(const QSet<unsigned int>& ids, int mode, bool single);
    /// The picking pass on the current context: every painter's items in their id colours, the
    /// window rectangle filling the read-back part of the target.
    void renderSelectionScene(int x, int y, int w, int h);
    void set_pickmatrix(int x, int y, int w, int h);
    /// 1 when a point of the surface lies inside all five planes, 2 when no point does but the
    /// points lie on the inner side of every side plane, else 0. Points on a plane count as
    /// inside; only what the clipping plane keeps counts at all.
    int ClassifySurfaceTouch(mesh3D::Surface* surface, geometry3D::Plane** const planes) const;
    /// True when every point of the surface that the clipping plane keeps lies inside all five
    /// planes, and there is such a point.
    bool ClassifySurfaceSurround(mesh3D::Surface* surface, geometry3D::Plane** const planes) const;
    static void Build4Rays(const geometry3D::Point& eye, geometry3D::point* const corners, geometry3D::Ray** const rays);
    /// The four side planes of the frustum through the near and far corners, facing inward.
    static void Build4SidePlanes(geometry3D::point* const near_corners, geometry3D::point* const far_corners,
                                 geometry3D::Plane** const planes);

    // Picking ids as colours, over the frame buffer's colour depth; white is no id.
    static void SelectID2RGB(unsigned int id, GLubyte& r, GLubyte& g, GLubyte& b);
    static unsigned int SelectRGB2ID(unsigned int r, unsigned int g, unsigned int b);
    /// The same for pictures read back at eight bits per channel.
    static unsigned int SelectRGB2IDTrue(unsigned int r, unsigned int g, unsigned int b);

    void EmitOptionChangedMessage(const QString& text, bool on);
    void EmitContextMessage(const QString& text);

    // Process-wide settings of every view
    static bool RemoteSession();
    /// Also sets single geometric selection and the fast solid selection to the same value.
    static void RemoteSession(bool on);
    static bool RemoteFastSolid();
    static void RemoteFastSolid(bool on);
    static bool RemoteFastDrawGrid();
    static void RemoteFastDrawGrid(bool on);
    static bool RemoteFastSelectedSolid();
    static void RemoteFastSelectedSolid(bool on);
    static bool RemoteZoomRect();
    static void RemoteZoomRect(bool on);
    static int RemoteFastLineStep();
    static void RemoteFastLineStep(int step);
    static int RemoteFastDistance();
    static void RemoteFastDistance(int squared_pixels);
    static bool SelectRegionGeometric();
    static void SelectRegionGeometric(bool on);
    static bool SelectRegionGeometricSurround();
    static void SelectRegionGeometricSurround(bool on);
    static bool SelectSingleGeometric();
    static void SelectSingleGeometric(bool on);
    static void GetSimActivityValues(int& r, int& g, int& b);
    static void SetSimActivityValues(int r, int g, int b);
    static void GetSimRevenueValues(int& r, int& g, int& b, int& pen);
    static void SetSimRevenueValues(int r, int g, int b, int pen);
    static void GetSimCostValues(int& r, int& g, int& b, int& pen);
    static void SetSimCostValues(int r, int g, int b, int pen);
    static void GetSimBudgetValues(int& r, int& g, int& b, int& pen);
    static void SetSimBudgetValues(int r, int g, int b, int pen);
    static void GetSimQuantityValues(int& r, int& g, int& b, int& pen);
    static void SetSimQuantityValues(int r, int g, int b, int pen);
    /// Colour depths of the frame buffer, read at GL initialisation.
    static int RedBits();
    static int GreenBits();
    static int BlueBits();

    /// Name of an OpenGL error code, "unknown" for codes it does not know.
    static QString gl_error_name(unsigned int code);

signals:
    void OptionChangedMessage(const QString& text, bool on);
    void ContextMessage(const QString& text);
    void GotFocusInEvent(xqtgl::xQGLWidget* widget);
    void selection_started();
    void selection_finished();
    void eye_position(const geometry3D::Point& eye);
    void navigation_mode(const QString& name);
    void viewpoint_created(xqtgl::xQGLView* view);
    void viewpoint_removed(xqtgl::xQGLView* view);
    void boundingbox_changed(const geometry3D::boundingbox& box);

public slots:
    void options_changed();
    void forward_selection_started(xqtgl::xQGLWidget_Painter* painter);
    void forward_selection_finished(xqtgl::xQGLWidget_Painter* painter);

protected:
    void initializeGL() override;
    void resizeGL(int w, int h) override;
    void paintGL() override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void init();
    void InitRGBBitValues();

private:
    template <typename Handler>
    void set_mode();
    void fan_out(void (xQGLWidget_Painter::*command)(), bool repaint_after);
    void zoom_to(geometry3D::boundingbox (xQGLWidget_Painter::*box)() const);
    /// Runs `steps` as one frame: repaints are ignored meanwhile, then one frame is drawn.
    void as_one_frame(const std::function<void()>& steps);
    void orthographic_view(const std::function<geometry3D::Point(const geometry3D::boundingbox&)>& eye,
                           bool plan);
    /// Looks at the box centre along X (axis 0) or Y (axis 1) from the side `side`, at the
    /// present distance.
    void axis_view(int axis, double side);
    QPixmap thumbnail_of_frame();
    static void draw_text(const QString& text, bool centred, bool use_lists);
    void apply_clipping_plane();
    static void build_font_lists();
    /// False for the empty box, whose minima lie above its maxima.
    static bool has_extent(const geometry3D::boundingbox& box);

    QList<xQGLWidget_Painter*> _painters;
    geometry3D::boundingbox _boundingbox;
    xQGLCamera _camera;
    QHash<int, xQGLView*> _viewpoints;
    xQGLWidget_Options _options;
    xQGLWidget_Handler* _handler = nullptr;
    bool _fast_paint_status = false;
    basic::MessageService _messages;
    bool _ignore_repaint = false;
    int _selection_depth = 0;
    basic::MessageService* _message_service = nullptr;
    QWidget* _context_widget = nullptr;
    geometry3D::point _render_origin{0.0, 0.0, 0.0};
};

} // namespace xqtgl
