#pragma once

#include "basic/color.h"

#include <QSize>
#include <QString>

#include <optional>

/// What `zentra render` is asked to draw, read from its arguments.
struct RenderRequest {
    enum class Projection { ViewDefault, Perspective, Orthographic };

    QString input;
    QString output;
    QSize size{1280, 800};
    /// iso, top or one of the eight compass directions.
    QString view = "iso";
    Projection projection = Projection::ViewDefault;
    /// A view stored in the document, by name or identifier; asking for `view` as well is a
    /// usage error.
    QString viewpoint;
    std::optional<basic::color3> background;
    /// The half-space kept by a cut: the normal is an axis or its negative, `clip_at` its place.
    std::optional<int> clip_axis;
    bool clip_negative = false;
    double clip_at = 0.0;
    QString selected_id;

    /// Throws `UsageError` for arguments that make no request.
    static RenderRequest parse(const QStringList& arguments);
    static const QStringList& view_names();
};
