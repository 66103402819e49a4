// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorNumbersProperty.h"

#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"

#include <QMarginsF>
#include <QVector4D>

namespace {

struct KindOfNumbers
{
    QMetaType type;
    QList<const char *> titles;
    int columns;
};

const KindOfNumbers &kindOf(ZelInspectorNumbersProperty::Kind kind)
{
    static const KindOfNumbers kinds[] = {
        {QMetaType::fromType<QMarginsF>(), {"Left", "Top", "Right", "Bottom"}, 2},
        {QMetaType::fromType<QLineF>(), {"X1", "Y1", "X2", "Y2"}, 2},
        {QMetaType::fromType<QVector2D>(), {"X", "Y"}, 2},
        {QMetaType::fromType<QVector3D>(), {"X", "Y", "Z"}, 3},
        {QMetaType::fromType<QVector4D>(), {"X", "Y", "Z", "W"}, 2},
    };
    return kinds[kind];
}

QStringList keysOf(ZelInspectorNumbersProperty::Kind kind)
{
    static const QStringList keys{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third"),
                                  QStringLiteral("fourth")};
    return keys.first(kindOf(kind).titles.size());
}

} // namespace

ZelInspectorNumbersProperty::ZelInspectorNumbersProperty(QObject *owner, Kind kind)
    : ZelInspectorCompositeProperty(owner, keysOf(kind), kindOf(kind).type)
    , m_kind(kind)
{
}

QVariant ZelInspectorNumbersProperty::componentIfAny(int index) const
{
    return index < kindOf(m_kind).titles.size() ? component(index) : QVariant();
}

void ZelInspectorNumbersProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorCompositeProperty::configure(configuration);
    setTitle({}); // the fields have titles of their own
    setTitleKeyPath({});
}

void ZelInspectorNumbersProperty::loadView()
{
    removeEditors();
    m_numberProperties.clear();
    ZelView *container = makeEditorView();
    const KindOfNumbers &kind = kindOf(m_kind);
    QWidget *above = nullptr;
    QList<QWidget *> row;
    for (int i = 0; i < kind.titles.size(); ++i) {
        m_numberProperties.append(makeNumberEditor(i, ZelLocalizedString(kind.titles.at(i)), actionName()));
        row.append(m_numberProperties.last()->view());
        container->addSubview(row.last());
        const bool isLast = i + 1 == kind.titles.size();
        if (row.size() < kind.columns && !isLast)
            continue;
        addRow(container, row, above, isLast);
        above = row.first();
        row.clear();
    }
}

/// Fields of one width side by side.
void ZelInspectorNumbersProperty::addRow(ZelView *container, const QList<QWidget *> &row, QWidget *above, bool isLast)
{
    QHash<QString, QWidget *> named{{QStringLiteral("above"), above ? above : container}};
    QString horizontal = QStringLiteral("H:|");
    for (int i = 0; i < row.size(); ++i) {
        const QString name = u"field" + QString::number(i);
        named.insert(name, row.at(i));
        horizontal += (i > 0 ? QStringLiteral("-4-[%1]") : QStringLiteral("[%1]")).arg(name);
        container->addConstraintsWithVisualFormat(
            (above ? QStringLiteral("V:[above][%1]") : QStringLiteral("V:|[%1]")).arg(name) +
                (isLast ? QStringLiteral("|") : QString()),
            named);
        if (i > 0)
            container->addConstraint(ZelLayoutConstraint::constraintWithItem(row.at(0), ZelLayoutConstraint::Width,
                                                                             ZelLayoutConstraint::Equal, row.at(i),
                                                                             ZelLayoutConstraint::Width));
    }
    container->addConstraintsWithVisualFormat(horizontal + u'|', named);
}

QWidget *ZelInspectorNumbersProperty::viewForBaselineAlignment()
{
    view();
    ZelInspectorNumberProperty *first = m_numberProperties.value(0);
    return first ? first->viewForBaselineAlignment() : nullptr;
}
