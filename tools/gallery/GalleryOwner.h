// SPDX-License-Identifier: MIT
#pragma once

#include <Core/Selection/ZelArrayController.h>

#include <QAction>
#include <QStringList>

/// At which the key paths of the gallery begin.
class GalleryOwner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *selectionController READ selectionController CONSTANT)
    Q_PROPERTY(double standardLimit READ standardLimit CONSTANT)
    Q_PROPERTY(QStringList patterns READ patterns CONSTANT)
    Q_PROPERTY(QList<QAction *> arrangeActions READ arrangeActions CONSTANT)

public:
    ZelArrayController *selectionController() { return &m_controller; }
    static double standardLimit() { return 50; }
    static QStringList patterns() { return {tr("Dots"), tr("Lines"), tr("Waves")}; }
    QList<QAction *> arrangeActions() { return {&m_front, &m_back}; }

public Q_SLOTS:
    void reset() {}

private:
    ZelArrayController m_controller;
    QAction m_front{tr("To Front")};
    QAction m_back{tr("To Back")};
};
