// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QIcon>
#include <QString>

class QPainter;
class QPalette;

/// The application's images by name. Used on the main thread.
class ZEL_EXPORT ZelNamedImages
{
public:
    /// Registers or replaces an image; a null image removes the name.
    static void setImageForName(const QIcon &image, const QString &name);
    /// A null image for an unknown name.
    static QIcon imageNamed(const QString &name);
    /// Finds an image in the bundle that holds the class, and registers it under its name. The image is a template
    /// image if its file name without the extension ends in "Template". Without such an image: the log line "No URL for
    /// image resource ... found in bundle ...", and a null image.
    static QIcon imageNamedInBundleForClass(const QString &name, const QMetaObject *metaObject);

    /// The same shape in the text colour of the palette, sharp at every size and following the palette when it changes.
    /// A null image stays null; a template image looks as before.
    static QIcon templateImage(const QIcon &image);
    static bool isTemplateImage(const QIcon &image) { return image.isMask(); }

    /// The colour that a template image has in a button of a bar: the accent if the button is selected, otherwise the
    /// text colour, which is quieter unless the button is pressed. In a window that is not active there are no accents.
    static QColor templateColor(const QPalette &palette, bool isSelected, bool isPressed, bool isActive);
    /// Paints the image in the middle of the place: a template image in that colour, any other as it is.
    static void paint(QPainter *painter, const QIcon &image, const QRect &place, const QColor &color,
                      QIcon::Mode mode = QIcon::Normal, QIcon::State state = QIcon::Off);
};
