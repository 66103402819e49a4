// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Selection/ZelArrayController.h"
#include "Faults.h"

#include <QAction>
#include <QVariant>
#include <functional>
#include <memory>

/// A group of objects with a selection of its own.
class Group : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER name NOTIFY nameChanged)
    Q_PROPERTY(QObject *members READ members CONSTANT)
public:
    QObject *members() { return &controller; }
    ZelArrayController controller;
    QString name = QStringLiteral("group");

Q_SIGNALS:
    void nameChanged();
};

/// What the inspector is an inspector of.
class Owner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *sheets READ sheets CONSTANT)
    Q_PROPERTY(QObject *groups READ groups CONSTANT)
    Q_PROPERTY(bool unlocked MEMBER unlocked NOTIFY changed)
    Q_PROPERTY(QString heading MEMBER heading NOTIFY changed)
    Q_PROPERTY(double limit MEMBER limit NOTIFY changed)
    Q_PROPERTY(QVariantList values MEMBER values NOTIFY changed)
    Q_PROPERTY(QVariantList names MEMBER names NOTIFY changed)
    Q_PROPERTY(QSizeF standardSize MEMBER standardSize NOTIFY changed)
    Q_PROPERTY(QList<QAction *> menuActions READ menuActions CONSTANT)
public:
    Owner()
    {
        for (int i = 0; i < 2; ++i) {
            groupList.push_back(std::make_unique<Group>());
            groupController.addObject(groupList.back().get());
        }
        m_actions = {new QAction(QStringLiteral("First"), this), new QAction(QStringLiteral("Second"), this)};
    }

    QObject *sheets() { return &controller; }
    QObject *groups() { return &groupController; }
    QList<QAction *> menuActions() const { return m_actions; }
    Q_INVOKABLE void act()
    {
        ++actions;
        Fault::at(Fault::Action);
        if (react)
            react(actions);
    }

    std::vector<std::unique_ptr<Group>> groupList;
    ZelArrayController controller;
    ZelArrayController groupController;
    bool unlocked = true;
    QString heading = QStringLiteral("Heading");
    double limit = 50;
    QVariantList values{10, 20, 30};
    QVariantList names{QStringLiteral("Dots"), QStringLiteral("Lines"), QStringLiteral("Waves")};
    QSizeF standardSize{5, 6};
    int actions = 0;
    std::function<void(int)> react; ///< what the application does about an action, whose number it gets

Q_SIGNALS:
    void changed();

private:
    QList<QAction *> m_actions;
};
