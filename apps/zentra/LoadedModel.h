#pragma once

#include "oxa/OxaRoot.h"

#include <QString>
#include <QStringList>

/// What a full load holds, counted over the root's tree and documents.
struct ModelCounts {
    long containers = 0, objects = 0, genericObjects = 0, vertices = 0, triangles = 0, polygons = 0;
    long materials = 0, properties = 0, contacts = 0, intersections = 0, heightReferences = 0;
    long views = 0, schedules = 0;
};

/// A document, a 3DS file or a project folder (with every subfolder holding documents) loaded into one
/// root, with a progress bar on a terminal's standard error and Ctrl-C cancelling the read.
/// Every file that could not be read leaves one line in `errors`, naming it and the reason;
/// what was read stays.
class LoadedModel {
public:
    explicit LoadedModel(const QString& path);

    oxa::OxaRoot& root() { return _root; }
    const QString& path() const { return _path; }
    bool isProject() const { return _project; }
    const QStringList& errors() const { return _errors; }
    bool cancelled() const { return _cancelled; }
    double seconds() const { return _seconds; }
    ModelCounts counts() const;
    /// True for a path ending in ".3ds", in any case.
    static bool is_3ds(const QString& path);

private:
    QString _path;
    oxa::OxaRoot _root{false};
    bool _project = false;
    bool _cancelled = false;
    double _seconds = 0;
    QStringList _errors;
};

/// Peak resident memory of the process so far, in MiB.
double peak_memory_mib();
