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

/// The name of the picture to show on this desktop: that of the picture's dark version ("NAME_dark") where
/// the desktop is dark and there is one, else `name`.
[[nodiscard]] QString themedImageName(const QString& name);

/// The picture as an icon of `size` points that looks the same on a disabled button, for scale factors up to
/// 3, with `room` points left empty to its right.
[[nodiscard]] QIcon undimmedIcon(const QString& name, QSize size, int room = 0);

/// The picture as an icon that stays crisp at every scale factor: the same one whoever asks, since the
/// toolkit keeps pictures of each icon that is made.
[[nodiscard]] QIcon namedIcon(const QString& name);

}  // namespace quillmeter
