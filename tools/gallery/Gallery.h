// SPDX-License-Identifier: MIT
#pragma once

#include "GalleryPanel.h"

#include <QList>
#include <QPalette>
#include <QString>

/// Draws pictures of editors: a row for each state, light and dark beside each other.
class Gallery
{
public:
    explicit Gallery(const QString &folder);

    /// Draws the editor of that description, and answers whether the picture could be written.
    bool draw(const QString &name, const QByteArray &description) const;
    /// Draws all editors in one picture, from right to left.
    bool drawMirrored(const QList<QByteArray> &descriptions) const;

private:
    struct Row
    {
        QString title;
        QImage light;
        QImage dark;
    };
    static QList<GalleryPanel::State> statesOf(const QString &name, const QByteArray &description);
    template<typename Take> Row rowOf(const QString &title, Take take) const;
    QImage pictureOf(const QList<Row> &rows) const;
    bool save(const QImage &image, const QString &name) const;

    QString m_folder;
    QPalette m_light;
    QPalette m_dark;
};
