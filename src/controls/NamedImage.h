#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

/// Pictures by name: each is an SVG under src/resources/images, drawn anew at every size and scale factor.
namespace quillmeter {

/// Makes the pictures known to the toolkit, for who names them by their path, as the style sheet does.
void registerNamedImages();

/// The natural size of a picture in points; empty when there is none of that name.
[[nodiscard]] QSize namedImageSize(const QString& name);

/// The picture drawn into `size` points (its natural size when empty) at `scale` device pixels a point, its
/// device pixel ratio set accordingly. A null pixmap when there is none of that name.
[[nodiscard]] QPixmap namedImage(const QString& name, QSize size = {}, qreal scale = 1.0);

/// The picture as an icon that stays crisp at every scale factor.
[[nodiscard]] QIcon namedIcon(const QString& name);

}  // namespace quillmeter
