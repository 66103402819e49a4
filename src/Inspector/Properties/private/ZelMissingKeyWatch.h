// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKey.h"

#include <QPointer>
#include <functional>
#include <memory>

class ZelDelayedInvocation;
class ZelInspectorProperty;
class ZelObjectController;

/// Waits for a selected object that has an editor's key, and warns once when the editor is shown for a selection of
/// which no object has it. In a selection of several classes it may well be missing from some.
///
/// The first object that has the key ends it, so that nearly every editor asks one object once.
class ZelMissingKeyWatch
{
public:
    /// The block is called with the first object that has the key.
    using Found = std::function<void(const QObject *)>;
    ZelMissingKeyWatch(ZelInspectorProperty *editor, const ZelObjectController *controller, ZelKey key, Found found);
    ~ZelMissingKeyWatch();
    Q_DISABLE_COPY_MOVE(ZelMissingKeyWatch)

    /// Whether the watch is over: an object had the key, or its absence was warned of.
    bool hasEnded() const { return m_hasEnded; }

private:
    void selectionChanged();
    void warnUnlessFound();
    bool isEditorShown() const;
    void end();

    ZelInspectorProperty *m_editor;
    QPointer<const ZelObjectController> m_controller;
    ZelKey m_key;
    Found m_found;
    QMetaObject::Connection m_connection;
    std::unique_ptr<ZelDelayedInvocation> m_warning; // after everything has adapted to the selection
    bool m_hasEnded = false;
};
