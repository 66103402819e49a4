// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelWindow.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorCustomProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelLocalizedString.h"
#include "Support/EditorOwner.h"
#include "Support/Folder.h"
#include "Support/Person.h"
#include "Support/Reports.h"
#include "Support/User.h"

/// Description files, in a folder that stands for the application's resources.
class Descriptions : public Folder
{
public:
    Descriptions() { ZelBundle::mainBundle().setResourcePaths({path()}); }
    ~Descriptions() { ZelBundle::mainBundle().setResourcePaths({}); }
    Q_DISABLE_COPY_MOVE(Descriptions)
};

/// A slice with this content: both kinds begin the third line.
inline QByteArray inSection(const QByteArray &rows)
{
    return "<slice>\n<section>\n" + rows + "\n</section>\n</slice>";
}
inline QByteArray inSliver(const QByteArray &editors)
{
    return "<slice><section>\n<sliver>\n" + editors + "</sliver></section></slice>";
}
inline QByteArray box(const QByteArray &title, const QByteArray &rows)
{
    return "<inspector title='" + title + "'>" + inSection(rows) + "</inspector>";
}

/// An editor that notes what it is told.
class NotingProperty : public ZelInspectorCustomProperty
{
    Q_OBJECT
public:
    explicit NotingProperty(QObject *owner)
        : ZelInspectorCustomProperty(owner)
    {
        ++alive;
    }
    ~NotingProperty() override
    {
        uninstall();
        --alive;
    }

    void refresh() override { log += u'r'; }
    void prepareForReuse() override { log += u'p'; }
    bool commitEditing() override
    {
        log += u'c';
        const bool answer = commits;
        if (whenCommitting)
            whenCommitting(); // perhaps the editor's end
        return answer;
    }
    void discardEditing() override { log += u'd'; }
    bool canTileIntoColumnsWithWidth(double) override { return true; }
    QString takeLog() { return std::exchange(log, {}); }

    QString log;
    bool commits = true;
    std::function<void()> whenCommitting;
    static inline int alive = 0;
};
