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
        {QMetaType::fromType<QMarginsF>(),
         {QT_TRANSLATE_NOOP("Application", "Left"), QT_TRANSLATE_NOOP("Application", "Top"),
          QT_TRANSLATE_NOOP("Application", "Right"), QT_TRANSLATE_NOOP("Application", "Bottom")},
         2},
        {QMetaType::fromType<QLineF>(),
         {QT_TRANSLATE_NOOP("Application", "X1"), QT_TRANSLATE_NOOP("Application", "Y1"),
          QT_TRANSLATE_NOOP("Application", "X2"), QT_TRANSLATE_NOOP("Application", "Y2")},
         2},
        {QMetaType::fromType<QVector2D>(),
         {QT_TRANSLATE_NOOP("Application", "X"), QT_TRANSLATE_NOOP("Application", "Y")},
         2},
        {QMetaType::fromType<QVector3D>(),
         {QT_TRANSLATE_NOOP("Application", "X"), QT_TRANSLATE_NOOP("Application", "Y"),
          QT_TRANSLATE_NOOP("Application", "Z")},
         3},
        {QMetaType::fromType<QVector4D>(),
         {QT_TRANSLATE_NOOP("Application", "X"), QT_TRANSLATE_NOOP("Application", "Y"),
          QT_TRANSLATE_NOOP("Application", "Z"), QT_TRANSLATE_NOOP("Application", "W")},
         2},
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
