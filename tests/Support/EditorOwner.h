// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Selection/ZelArrayController.h"
#include <QVariant>
#include <stdexcept>

/// What an application gives its inspectors as owner.
class EditorOwner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *people READ people CONSTANT)
    Q_PROPERTY(QVariant extra MEMBER extra NOTIFY extraChanged)
    Q_PROPERTY(bool unlocked READ isUnlocked WRITE setUnlocked NOTIFY unlockedChanged)
    Q_PROPERTY(QVariantList values MEMBER values NOTIFY valuesChanged)
    Q_PROPERTY(QVariantList names MEMBER names NOTIFY valuesChanged)
public:
    QObject *people() { return &controller; }
    bool isUnlocked() const { return m_unlocked; }
    void setUnlocked(bool unlocked)
    {
        m_unlocked = unlocked;
        Q_EMIT unlockedChanged();
    }
    Q_INVOKABLE void noteAction() { ++actions; }
    Q_INVOKABLE void failAction() { throw std::runtime_error("action"); }

    ZelArrayController controller;
    QVariant extra;
    QVariantList values;
    QVariantList names;
    int actions = 0;

Q_SIGNALS:
    void extraChanged();
    void unlockedChanged();
    void valuesChanged();

private:
    bool m_unlocked = true;
};
