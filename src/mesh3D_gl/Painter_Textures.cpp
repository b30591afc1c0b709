// Texture pictures into the widget's GL context, once per material.
#include "mesh3D/Material.h"
#include "mesh3D_gl/Painter.h"
#include "xqtgl/xQGLWidget.h"

#include <QImage>
#include <GL/glu.h>

#include <cstdio>

namespace mesh3D_gl {

namespace {

/// The file the material's picture is read from: the path the reader resolved, else the name.
QString picture_file(const mesh3D::Material& material) {
    QString path = material.texture_path().isEmpty() ? material.texture_filename() : material.texture_path();
    return path.replace('\\', '/');
}

void report_problem(const QString& file, const char* reason) {
    std::printf("Painter::BindMaterialTextureToWidget problem [%s]\n", qPrintable(file));
    std::printf("----- gluError [%s]\n", reason);
    std::fflush(stdout);
}

} // namespace

bool Painter::BindMaterialTextureToWidget(mesh3D::Material* material) {
    if (material->texture() != 0 || material->texture_filename().isEmpty() || !widget())
        return false;
    const QString file = picture_file(*material);
    qDebug("Painter::BindMaterialTextureToWidget Texture File [%s]", qPrintable(file));
    QImage picture(file);
    if (picture.isNull()) {
        // A missing or unreadable picture leaves the surface untextured; the frame goes on.
        report_problem(file, "the picture cannot be read");
        return false;
    }
    if (picture.format() != QImage::Format_RGB32)
        picture = picture.convertToFormat(QImage::Format_RGB32);
    const int limit = _options.TextureSize();
    if (picture.width() > picture.height()) {
        if (picture.width() > limit) {
            qDebug("    Original Size %d x %d is too large, will be reduced to width %d", picture.width(),
                   picture.height(), limit);
            picture = picture.scaledToWidth(limit, Qt::SmoothTransformation);
        }
    } else if (picture.height() > limit) {
        qDebug("    Original Size %d x %d is too large, will be reduced to height %d", picture.width(),
               picture.height(), limit);
        picture = picture.scaledToHeight(limit, Qt::SmoothTransformation);
    }
    // OpenGL wants the bytes red first and the first row at the bottom.
    picture = picture.rgbSwapped().mirrored(false, true);
    qDebug("    Size %d x %d", picture.width(), picture.height());
    widget()->makeCurrent();
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    const GLint error = gluBuild2DMipmaps(GL_TEXTURE_2D, 3, picture.width(), picture.height(), GL_RGBA,
                                          GL_UNSIGNED_BYTE, picture.constBits());
    if (error != 0) {
        glDeleteTextures(1, &texture);
        report_problem(file, reinterpret_cast<const char*>(gluErrorString(GLenum(error))));
        return false;
    }
    material->texture(texture);
    _textures.append(texture);
    return true;
}

} // namespace mesh3D_gl
