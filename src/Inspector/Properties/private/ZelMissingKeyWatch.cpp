// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelMissingKeyWatch.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/ZelObjectController.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Observation/ZelDelayedInvocation.h"
#include "ViewController/ZelView.h"

#include <algorithm>

ZelMissingKeyWatch::ZelMissingKeyWatch(ZelInspectorProperty *editor, const ZelObjectController *controller, ZelKey key,
                                       Found found)
    : m_editor(editor)
    , m_controller(controller)
    , m_key(key)
    , m_found(std::move(found))
{
    selectionChanged();
    if (!m_hasEnded)
        m_connection = QObject::connect(controller, &ZelObjectController::selectionChanged, editor,
                                        [this] { selectionChanged(); });
}

ZelMissingKeyWatch::~ZelMissingKeyWatch()
{
    QObject::disconnect(m_connection);
}

void ZelMissingKeyWatch::selectionChanged()
{
    const QList<QPointer<QObject>> &objects = m_controller->heldObjects();
    if (objects.isEmpty() || !objects.first())
        return;
    if (ZelHasKey(objects.first(), m_key)) {
        end();
        m_found(objects.first());
        return;
    }
    if (!m_warning)
        m_warning = std::make_unique<ZelDelayedInvocation>([this] { warnUnlessFound(); });
    m_warning->schedule();
}

void ZelMissingKeyWatch::warnUnlessFound()
{
    if (m_hasEnded || !m_controller || !isEditorShown())
        return;
    const QList<QPointer<QObject>> &objects = m_controller->heldObjects();
    if (objects.isEmpty())
        return;
    const auto hasKey = [this](const QPointer<QObject> &object) { return object && ZelHasKey(object, m_key); };
    if (std::ranges::none_of(objects, hasKey))
        ZelLogWarning(QStringLiteral("No selected object has the property \"%1\"").arg(m_key.string()),
                      ZelSourcePlace::ofObject(m_editor));
    end();
}

/// Rows are hidden where they do not apply, and then their keys need not exist.
bool ZelMissingKeyWatch::isEditorShown() const
{
    return m_editor->isViewInstalled() && m_editor->view()->isVisibleTo(m_editor->view()->window());
}

void ZelMissingKeyWatch::end()
{
    m_hasEnded = true;
    QObject::disconnect(m_connection);
}
