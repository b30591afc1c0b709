#include "RenderRequest.h"

#include "Command.h"

#include <QRegularExpression>

namespace {

// Frames beyond this edge no longer fit a software renderer's memory in reasonable time.
const int largest_edge = 16384;

QSize parse_size(const QString& text) {
    static const QRegularExpression pattern("^(\\d{1,5})x(\\d{1,5})$");
    const QRegularExpressionMatch match = pattern.match(text);
    const QSize size = match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
    if (size.width() < 1 || size.height() < 1 || size.width() > largest_edge || size.height() > largest_edge)
        throw UsageError(QString("--size wants WIDTHxHEIGHT between 1 and %1, not '%2'").arg(largest_edge).arg(text));
    return size;
}

basic::color3 parse_colour(const QString& text) {
    static const QRegularExpression pattern("^#?([0-9A-Fa-f]{6})$");
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        throw UsageError(QString("--background wants a colour RRGGBB, not '%1'").arg(text));
    const uint rgb = match.captured(1).toUInt(nullptr, 16);
    return {((rgb >> 16) & 0xFF) / 255.0f, ((rgb >> 8) & 0xFF) / 255.0f, (rgb & 0xFF) / 255.0f};
}

void parse_clip(const QString& text, RenderRequest& request) {
    static const QRegularExpression pattern("^(-?)([xyzXYZ]):(.+)$");
    const QRegularExpressionMatch match = pattern.match(text);
    bool number = false;
    const double at = match.hasMatch() ? match.captured(3).toDouble(&number) : 0.0;
    if (!number)
        throw UsageError(QString("--clip wants AXIS:VALUE such as z:12.5 or -x:3, not '%1'").arg(text));
    request.clip_negative = !match.captured(1).isEmpty();
    request.clip_axis = QString("xyz").indexOf(match.captured(2).toLower());
    request.clip_at = at;
}

} // namespace

const QStringList& RenderRequest::view_names() {
    static const QStringList names{"iso",   "top",       "north",     "east",      "south",
                                   "west",  "northeast", "northwest", "southeast", "southwest"};
    return names;
}

RenderRequest RenderRequest::parse(const QStringList& arguments) {
    RenderRequest request;
    bool view_given = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        const auto value = [&]() -> QString {
            if (i + 1 >= arguments.size())
                throw UsageError(QString("%1 needs a value").arg(argument));
            return arguments[++i];
        };
        if (argument == "-o" || argument == "--output") {
            request.output = value();
        } else if (argument == "--size") {
            request.size = parse_size(value());
        } else if (argument == "--view") {
            request.view = value();
            view_given = true;
            if (!view_names().contains(request.view))
                throw UsageError(QString("unknown view '%1'; one of %2").arg(request.view, view_names().join(", ")));
        } else if (argument == "--perspective") {
            request.projection = Projection::Perspective;
        } else if (argument == "--orthographic") {
            request.projection = Projection::Orthographic;
        } else if (argument == "--viewpoint") {
            request.viewpoint = value();
        } else if (argument == "--background") {
            request.background = parse_colour(value());
        } else if (argument == "--clip") {
            parse_clip(value(), request);
        } else if (argument == "--select") {
            request.selected_id = value();
        } else if (argument.startsWith('-') && argument.size() > 1) {
            throw UsageError(QString("unknown option '%1'").arg(argument));
        } else if (request.input.isEmpty()) {
            request.input = argument;
        } else {
            throw UsageError("give one document, project folder or 3DS file");
        }
    }
    if (view_given && !request.viewpoint.isEmpty())
        throw UsageError("--view and --viewpoint both place the camera; give one of them");
    if (request.input.isEmpty())
        throw UsageError("give a document, project folder or 3DS file to draw");
    if (request.output.isEmpty())
        throw UsageError("give the picture to write with -o OUT.png");
    return request;
}
