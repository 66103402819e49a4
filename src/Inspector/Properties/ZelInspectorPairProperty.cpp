// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorPairProperty.h"

#include "Controls/ZelControlSize.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Views/ZelVerticalStackView.h"

void ZelInspectorPairProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorCompositeProperty::configure(configuration);
    setTitle({}); // the row's label stands beside the checkbox
    setTitleKeyPath({});
    nilValueControlIsOffWhenNil = configuration.booleanValueNamed(u"nilValueControlIsOffWhenNil", true);
    nonNilValueKeyPath = configuration.keyPathValueNamed(u"nonNilValueKeyPath");
}

void ZelInspectorPairProperty::loadView()
{
    removeEditors();
    if (nonNilValueKeyPath.isEmpty()) {
        addNumberEditors(makeEditorView());
        return;
    }
    auto *stack = new ZelVerticalStackView;
    stack->setFont(ZelControlSize::smallFont());
    setView(stack);
    m_nonNilProperty = new ZelInspectorBooleanProperty(this);
    adoptEditor(m_nonNilProperty);
    m_nonNilProperty->setTitle(title());
    m_nonNilProperty->setTitleKeyPath(ownersKeyPath(titleKeyPath()));
    m_nonNilProperty->setKeyPath(QStringLiteral("nonNil"));
    m_nonNilProperty->setEnabledKeyPath(QStringLiteral("internalEnabled"));
    m_nonNilProperty->setActionSelector("toggleNilValue");
    m_nonNilProperty->setActionName(toggleActionName());
    stack->addSubview(m_nonNilProperty->view());
    if (title().isEmpty()) // the row's label names it, but only for people who see it
        m_nonNilProperty->checkbox()->setAccessibleName(titleOfComponent(0).text + u", " + titleOfComponent(1).text);
    auto *row = new ZelView;
    addNumberEditors(row);
    stack->addSubview(row);
}

void ZelInspectorPairProperty::addNumberEditors(ZelView *row)
{
    QWidget *views[2];
    for (int i = 0; i < 2; ++i) {
        const Title componentTitle = titleOfComponent(i);
        m_numberProperties[i] = makeNumberEditor(i, componentTitle.text, actionName());
        m_numberProperties[i]->setTitleKeyPath(ownersKeyPath(componentTitle.keyPath));
        views[i] = m_numberProperties[i]->view();
        row->addSubview(views[i]);
    }
    const QHash<QString, QWidget *> named{{QStringLiteral("first"), views[0]}, {QStringLiteral("second"), views[1]}};
    for (const QString &format :
         {QStringLiteral("H:|[first]-4-[second]|"), QStringLiteral("V:|[first]|"), QStringLiteral("V:|[second]|")})
        row->addConstraintsWithVisualFormat(format, named);
    row->addConstraint(ZelLayoutConstraint::constraintWithItem(
        views[0], ZelLayoutConstraint::Width, ZelLayoutConstraint::Equal, views[1], ZelLayoutConstraint::Width));
}

void ZelInspectorPairProperty::setNonNil(const QVariant &value)
{
    if (ZelEqual(value, m_nonNil))
        return;
    m_nonNil = value;
    Q_EMIT nonNilChanged();
}

void ZelInspectorPairProperty::didUpdateValues()
{
    const QVariant &first = component(0);
    setNonNil(ZelIsControllerMarker(first) ? first : QVariant(ZelIsNull(first) ? 0 : 1));
}

ZelValueSummary ZelInspectorPairProperty::valueSummaryOfPart(const QString &key) const
{
    if (key != QStringLiteral("nonNil"))
        return ZelInspectorCompositeProperty::valueSummaryOfPart(key);
    return valueSummary().mapped([](const QVariant &value) { return QVariant(!ZelIsNull(value)); });
}

QStringList ZelInspectorPairProperty::searchTexts() const
{
    QStringList texts;
    for (int i = 0; i < 2; ++i)
        texts += {titleOfComponent(i).text, keyOfPart(componentKey(i))};
    return texts;
}

void ZelInspectorPairProperty::toggleNilValue()
{
    const bool wantsValue = !ZelIsControllerMarker(m_nonNil) && m_nonNil.toBool();
    const QPointer<ZelInspectorPairProperty> alive(this);
    setReflectedValue(wantsValue ? ZelValueForKeyPath(owner(), nonNilValueKeyPath) : QVariant());
    if (alive)
        userDidChangeValue(nullptr);
}

QWidget *ZelInspectorPairProperty::viewForBaselineAlignment()
{
    view();
    ZelInspectorProperty *first =
        m_nonNilProperty ? static_cast<ZelInspectorProperty *>(m_nonNilProperty.data()) : m_numberProperties[0].data();
    return first ? first->viewForBaselineAlignment() : nullptr;
}
