// SPDX-License-Identifier: MIT
#include "Inspector/ZelAutomaticPane.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/private/ZelAutomaticOwner.h"
#include "Resources/ZelLocalizedString.h"

namespace {

/// The nearest class from which all objects derive; null if there are none.
const QMetaObject *commonClass(const QList<QObject *> &objects)
{
    const QMetaObject *common = objects.isEmpty() ? nullptr : objects.first()->metaObject();
    for (const QObject *object : objects) {
        while (!object->metaObject()->inherits(common))
            common = common->superClass();
    }
    return common;
}

QList<ZelInspector *> living(const QList<QPointer<ZelInspector>> &boxes)
{
    QList<ZelInspector *> result;
    for (const QPointer<ZelInspector> &box : boxes) {
        if (box)
            result.append(box);
    }
    return result;
}

} // namespace

ZelAutomaticPane::ZelAutomaticPane(ZelObjectController *controller)
    : ZelAutomaticPane(controller, new ZelAutomaticOwner)
{
}

ZelAutomaticPane::ZelAutomaticPane(ZelObjectController *controller, ZelAutomaticOwner *owner)
    : ZelInspectorPane(owner)
    , m_controller(controller)
    , m_owner(owner)
{
    owner->setParent(this);
    setNote(ZelLocalizedString("No Selection"));
    if (!ZelRequire(controller, "controller"))
        return;
    const auto update = [this] { ZelExceptionReporter::run(this, [this] { this->update(); }); };
    connect(controller, &ZelObjectController::selectionWillChange, this,
            [this] { ZelExceptionReporter::run(this, [this] { commitOrDiscard(); }); });
    connect(controller, &ZelObjectController::selectionChanged, this, update);
    connect(controller, &QObject::destroyed, this, update);
    update();
}

ZelAutomaticPane::~ZelAutomaticPane()
{
    flushState();
    uninstall();
}

void ZelAutomaticPane::commitOrDiscard()
{
    const QPointer<ZelAutomaticPane> alive(this);
    if (!commitEditing() && alive)
        discardEditing();
}

void ZelAutomaticPane::update()
{
    const QList<QObject *> objects = m_controller ? m_controller->selectedObjects() : QList<QObject *>();
    const QMetaObject *common = commonClass(objects);
    if (common == m_shownClass)
        m_owner->controller.setSelectedObjects(objects);
    else
        showClass(common, objects);
}

void ZelAutomaticPane::showClass(const QMetaObject *metaObject, const QList<QObject *> &objects)
{
    const QPointer<ZelAutomaticPane> alive(this); // an edit that is committed may end it
    m_shownClass = metaObject;
    const QList<ZelInspector *> next = living(boxesOf(metaObject));
    QList<ZelInspector *> kept = inspectors();
    kept.removeIf([&](ZelInspector *box) { return !next.contains(box); });
    setInspectors(kept);
    if (alive) {
        const QList<QPointer<QObject>> guarded(objects.begin(), objects.end());
        QList<QObject *> selected;
        for (const QPointer<QObject> &object : guarded)
            selected.append(object);
        m_owner->controller.setSelectedObjects(selected);
    }
    if (alive)
        setInspectors(next);
    if (alive)
        setNote(metaObject ? QString() : ZelLocalizedString("No Selection"));
    if (alive)
        Q_EMIT shownClassChanged();
}

const QList<QPointer<ZelInspector>> &ZelAutomaticPane::boxesOf(const QMetaObject *metaObject)
{
    const auto known = m_boxesOfClasses.constFind(metaObject);
    if (known != m_boxesOfClasses.constEnd())
        return *known;
    QList<QPointer<ZelInspector>> boxes;
    for (const QMetaObject *declaring = metaObject; declaring; declaring = declaring->superClass()) {
        ZelExceptionReporter::run(this, [&] {
            if (ZelInspector *made = box(metaObject, declaring))
                boxes.prepend(made);
        });
    }
    return *m_boxesOfClasses.insert(metaObject, boxes);
}

/// The box for the properties that a base of the class declares, which is the same for many classes; null if there are
/// none.
ZelInspector *ZelAutomaticPane::box(const QMetaObject *metaObject, const QMetaObject *declaring)
{
    using Options = ZelInspectorDescription::Options;
    const auto description =
        ZelInspectorDescription::forMetaObject(metaObject, {.root = Options::Pane, .declaredBy = declaring});
    if (description.properties().isEmpty())
        return nullptr;
    QPointer<ZelInspector> &known = m_boxes[description.xml()];
    if (known)
        return known;
    ZelDeclarativeInspectorGenerator generator;
    generator.setOwner(m_owner);
    generator.setDescription(description);
    const std::unique_ptr<ZelInspectorPane> made(generator.createPane());
    ZelInspector *box = made ? made->inspectors().value(0) : nullptr;
    if (box)
        box->setParent(this);
    known = box;
    return box;
}
