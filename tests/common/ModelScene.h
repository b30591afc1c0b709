#pragma once

#include "basic/numeric.h"
#include "mesh3D/Container.h"
#include "mesh3D/Material.h"
#include "mesh3D/MeshFixtures.h"
#include "mesh3D/Object3D.h"
#include "model/System.h"

#include <QColor>

/// A small model built in a test: a root container with boxes, points and materials, their
/// coordinates shifted by `offset` so the same scene can sit far from the origin.
struct ModelScene {
    model::System system{false};
    mesh3D::Container* root = new mesh3D::Container(nullptr, &system, "root", "Root");
    geometry3D::point offset;

    explicit ModelScene(geometry3D::point at = {0.0, 0.0, 0.0}) : offset(at) {}
    ~ModelScene() {
        delete root;
        mesh3D::Material::DeleteGlobalMaterials(&system);
    }

    mesh3D::Material* material(const QString& id, QColor colour, double transparency = 0.0) {
        mesh3D::Material* made = mesh3D::Material::GetGlobalMaterial(&system, id, id);
        const basic::color4 c{float(colour.redF()), float(colour.greenF()), float(colour.blueF()), 1.0f};
        made->diffuse(c);
        made->ambient(c);
        made->transparency(transparency);
        return made;
    }

    /// A unit cube whose lower corner is at (x, 0, 0) from the offset, in `parent` (the root by default).
    mesh3D::Object3D* box(const QString& id, double x, mesh3D::Material* m = nullptr, mesh3D::Container* parent = nullptr) {
        fixtures::Mesh cube = fixtures::cube(x);
        for (auto& p : cube.points)
            p = {p[0] + offset.x, p[1] + offset.y, p[2] + offset.z};
        return object(id, cube, m, parent);
    }

    mesh3D::Object3D* object(const QString& id, const fixtures::Mesh& mesh, mesh3D::Material* m = nullptr,
                             mesh3D::Container* parent = nullptr) {
        parent = parent ? parent : root;
        auto* made = new mesh3D::Object3D(parent, &system, id, basic::unit_m, id);
        parent->children().append(made);
        fixtures::build(*made, mesh, 0.0);
        if (m)
            made->material(m, false);
        made->update_normals();
        made->update_edges(basic::to_radians(45.0));
        made->update_boundingbox();
        root->update_boundingbox();
        return made;
    }

    mesh3D::Container* composite(const QString& id) {
        auto* made = new mesh3D::Container(root, &system, id, id);
        made->IsComposite(true);
        root->children().append(made);
        return made;
    }
};
