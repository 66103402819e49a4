// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelPasteRefusals.h"

#include "Controls/private/ZelErrorNote.h"
#include "Controls/private/ZelRefusalMark.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Resources/ZelLocalizedString.h"

#include <QAccessible>
#include <QTimer>

namespace {

constexpr int g_noteDuration = 8000; // in milliseconds

QPointer<ZelErrorNote> g_note; // there is one at most

/// What was said concerns the objects that are selected.
void endNoteWithSelection(const ZelPasteRefusals::Editors &editors)
{
    for (const QPointer<ZelInspectorProperty> &editor : editors) {
        if (!editor || !editor->owner() || !editor->keyPathHasControllerSelectionPrefix(editor->keyPath()))
            continue;
        const QString path = editor->selectionControllerKeyPathFromKeyPath(editor->keyPath());
        const auto *controller =
            qobject_cast<ZelObjectController *>(ZelObject(ZelValueForKeyPath(editor->owner(), path)));
        if (controller)
            QObject::connect(controller, &ZelObjectController::selectionWillChange, g_note.data(),
                             [] { delete g_note; });
        return;
    }
}

} // namespace

QStringList ZelPasteRefusals::lines() const
{
    QStringList lines;
    for (const Refusal &refusal : m_refusals) {
        if (lines.size() < saidAtMost)
            lines.append(refusal.title.isEmpty() ? refusal.reason
                                                 : ZelLocalizedString("%1: %2").arg(refusal.title, refusal.reason));
    }
    if (m_refusals.size() > lines.size())
        lines.append(ZelLocalizedString("And %1 more.").arg(m_refusals.size() - lines.size()));
    return lines;
}

void ZelPasteRefusals::say(QWidget *view, const Editors &editors) const
{
    delete g_note;
    if (!view || isEmpty())
        return;
    qDeleteAll(view->findChildren<ZelRefusalMark *>()); // the fields have told the same of themselves
    const QStringList all = QStringList(ZelLocalizedString("Not pasted:")) + lines();
    ZelErrorNote::show(&g_note, view, all.join(u'\n'), ZelErrorNote::SparesControls);
    if (!g_note)
        return;
    endNoteWithSelection(editors);
    g_note->setAccessibleName(g_note->text());
    QAccessibleEvent event(g_note.data(), QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
    QTimer::singleShot(g_noteDuration, g_note.data(), &QObject::deleteLater);
}
