// Process-wide settings shared by every view: the remote-session switches, the selection
// strategy, the frame buffer's colour depths and the colours of simulation results.
#include "xqtgl/xQGLWidget.h"

#include <GL/gl.h>

namespace xqtgl {

namespace {

bool _isRemoteSession = false;
bool _remoteFastSolid = false;
bool _remoteFastDrawGrid = false;
bool _remoteFastSelectedSolid = true;
bool _remoteZoomRect = true;
int _remoteFastLineStep = 6;
int _remoteFastDistance = 200;
bool _selectRegionGeometric = true;
bool _selectRegionGeometricSurround = true;
bool _selectSingleGeometric = false;
int _rBits = 8;
int _gBits = 8;
int _bBits = 8;

int _simActivityRed = 255, _simActivityGreen = 0, _simActivityBlue = 0;
int _simRevenueRed = 100, _simRevenueGreen = 200, _simRevenueBlue = 150, _simRevenuePen = 6;
int _simCostRed = 200, _simCostGreen = 100, _simCostBlue = 140, _simCostPen = 4;
int _simBudgetRed = 10, _simBudgetGreen = 250, _simBudgetBlue = 40, _simBudegtPen = 4;
int _simQuantityRed = 10, _simQuantityGreen = 250, _simQuantityBlue = 240, _simQuantityPen = 4;

void copy4(int& r, int& g, int& b, int& pen, int sr, int sg, int sb, int spen) {
    r = sr;
    g = sg;
    b = sb;
    pen = spen;
}

} // namespace

bool xQGLWidget::RemoteSession() { return _isRemoteSession; }
void xQGLWidget::RemoteSession(bool on) {
    // Entering a remote session makes single selection geometric (no picture read back over the
    // wire); leaving it also turns the fast solid selection off.
    _isRemoteSession = on;
    _selectSingleGeometric = on;
    _remoteFastSelectedSolid = on;
}
bool xQGLWidget::RemoteFastSolid() { return _remoteFastSolid; }
void xQGLWidget::RemoteFastSolid(bool on) { _remoteFastSolid = on; }
bool xQGLWidget::RemoteFastDrawGrid() { return _remoteFastDrawGrid; }
void xQGLWidget::RemoteFastDrawGrid(bool on) { _remoteFastDrawGrid = on; }
bool xQGLWidget::RemoteFastSelectedSolid() { return _remoteFastSelectedSolid; }
void xQGLWidget::RemoteFastSelectedSolid(bool on) { _remoteFastSelectedSolid = on; }
bool xQGLWidget::RemoteZoomRect() { return _remoteZoomRect; }
void xQGLWidget::RemoteZoomRect(bool on) { _remoteZoomRect = on; }
int xQGLWidget::RemoteFastLineStep() { return _remoteFastLineStep; }
void xQGLWidget::RemoteFastLineStep(int step) { _remoteFastLineStep = step; }
int xQGLWidget::RemoteFastDistance() { return _remoteFastDistance; }
void xQGLWidget::RemoteFastDistance(int squared_pixels) { _remoteFastDistance = squared_pixels; }
bool xQGLWidget::SelectRegionGeometric() { return _selectRegionGeometric; }
void xQGLWidget::SelectRegionGeometric(bool on) { _selectRegionGeometric = on; }
bool xQGLWidget::SelectRegionGeometricSurround() { return _selectRegionGeometricSurround; }
void xQGLWidget::SelectRegionGeometricSurround(bool on) { _selectRegionGeometricSurround = on; }
bool xQGLWidget::SelectSingleGeometric() { return _selectSingleGeometric; }
void xQGLWidget::SelectSingleGeometric(bool on) { _selectSingleGeometric = on; }

int xQGLWidget::RedBits() { return _rBits; }
int xQGLWidget::GreenBits() { return _gBits; }
int xQGLWidget::BlueBits() { return _bBits; }

void xQGLWidget::InitRGBBitValues() {
    glGetIntegerv(GL_RED_BITS, &_rBits);
    glGetIntegerv(GL_GREEN_BITS, &_gBits);
    glGetIntegerv(GL_BLUE_BITS, &_bBits);
}

void xQGLWidget::GetSimActivityValues(int& r, int& g, int& b) {
    r = _simActivityRed;
    g = _simActivityGreen;
    b = _simActivityBlue;
}
void xQGLWidget::SetSimActivityValues(int r, int g, int b) {
    _simActivityRed = r;
    _simActivityGreen = g;
    _simActivityBlue = b;
}
void xQGLWidget::GetSimRevenueValues(int& r, int& g, int& b, int& pen) {
    copy4(r, g, b, pen, _simRevenueRed, _simRevenueGreen, _simRevenueBlue, _simRevenuePen);
}
void xQGLWidget::SetSimRevenueValues(int r, int g, int b, int pen) {
    copy4(_simRevenueRed, _simRevenueGreen, _simRevenueBlue, _simRevenuePen, r, g, b, pen);
}
void xQGLWidget::GetSimCostValues(int& r, int& g, int& b, int& pen) {
    copy4(r, g, b, pen, _simCostRed, _simCostGreen, _simCostBlue, _simCostPen);
}
void xQGLWidget::SetSimCostValues(int r, int g, int b, int pen) {
    copy4(_simCostRed, _simCostGreen, _simCostBlue, _simCostPen, r, g, b, pen);
}
void xQGLWidget::GetSimBudgetValues(int& r, int& g, int& b, int& pen) {
    copy4(r, g, b, pen, _simBudgetRed, _simBudgetGreen, _simBudgetBlue, _simBudegtPen);
}
void xQGLWidget::SetSimBudgetValues(int r, int g, int b, int pen) {
    copy4(_simBudgetRed, _simBudgetGreen, _simBudgetBlue, _simBudegtPen, r, g, b, pen);
}
void xQGLWidget::GetSimQuantityValues(int& r, int& g, int& b, int& pen) {
    copy4(r, g, b, pen, _simQuantityRed, _simQuantityGreen, _simQuantityBlue, _simQuantityPen);
}
void xQGLWidget::SetSimQuantityValues(int r, int g, int b, int pen) {
    copy4(_simQuantityRed, _simQuantityGreen, _simQuantityBlue, _simQuantityPen, r, g, b, pen);
}

} // namespace xqtgl
