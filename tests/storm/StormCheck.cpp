// SPDX-License-Identifier: MIT
// What editors show, compared with what the selected objects hold.
#include "Storm.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Models.h"
#include "Progress.h"
#include "Text/ZelFontManager.h"
#include "ViewController/ZelView.h"

#include <QLayout>
#include <QMetaProperty>

namespace {

using Map = std::function<QVariant(const QVariant &)>;

bool g_isAmbiguous = false; ///< whether there was nothing as well as an empty text, which an unset text is like both

bool isNothing(const QVariant &value)
{
    return ZelIsNull(value) || (value.typeId() == QMetaType::QString && value.toString().isEmpty());
}

QVariant valueAt(const QObject *object, QList<QByteArray> keys, const Map &map);

/// The value on which the objects agree, or the marker for the first of them that disagrees or lacks the key.
QVariant foldOf(const QList<QObject *> &objects, const QList<QByteArray> &keys, const Map &map)
{
    QVariant result = QVariant::fromValue(ZelNoSelectionMarker);
    for (const QObject *object : objects) {
        const QVariant value = valueAt(object, keys, map);
        if (ZelIsControllerMarker(value))
            return value;
        g_isAmbiguous = g_isAmbiguous || (isNothing(value) && isNothing(result) && value != result);
        if (!ZelIsMarker(result, ZelNoSelectionMarker) && value != result)
            return QVariant::fromValue(ZelMultipleValuesMarker);
        result = value;
    }
    return result;
}

/// What a key path leads to, each value as the map has it. Below nothing there is nothing.
QVariant valueAt(const QObject *object, QList<QByteArray> keys, const Map &map)
{
    const QByteArray key = keys.takeFirst();
    if (const auto *controller = qobject_cast<const ZelArrayController *>(object); controller && key == "selection")
        return foldOf(controller->selectedObjects(), keys, map);
    if (object->metaObject()->indexOfProperty(key) < 0 && !object->dynamicPropertyNames().contains(key))
        return QVariant::fromValue(ZelNotApplicableMarker);
    QVariant value = object->property(key);
    const QMetaProperty property = object->metaObject()->property(object->metaObject()->indexOfProperty(key));
    if (property.metaType() == QMetaType::fromType<QString>() && value.toString().isEmpty())
        value = QLatin1String(""); // a property of texts has no nothing
    const QObject *next = keys.isEmpty() ? nullptr : value.value<QObject *>();
    if (next)
        return valueAt(next, keys, map);
    const QVariant mapped = map(keys.isEmpty() ? value : QVariant());
    return ZelIsAbsent(mapped) ? QVariant() : mapped;
}

/// What an editor shows and what it should; the same type of the two compares them.
struct Shown
{
    QVariant value;
    QVariant expected;
};
using Fold = std::function<QVariant(const Map &)>;

QVariant same(const QVariant &value)
{
    return value;
}

bool isValue(const QVariant &value)
{
    return !ZelIsNull(value) && !ZelIsControllerMarker(value);
}

/// Editors that are not bound show a marker as a placeholder, and hold no value then.
QVariant onlyValue(const QVariant &value)
{
    return isValue(value) ? value : QVariant();
}

Shown shownNumber(const ZelInspectorProperty *editor, const Fold &fold)
{
    const auto *number = qobject_cast<const ZelInspectorNumberProperty *>(editor);
    const QVariant value = fold([&](const QVariant &one) {
        const ZelValueTransformerPtr &transformer = editor->valueTransformer();
        return transformer ? transformer->transformedValue(one) : one;
    });
    return {number->textField()->objectValue(), value};
}

Shown shownText(const ZelInspectorProperty *editor, const Fold &fold)
{
    return {qobject_cast<const ZelInspectorStringProperty *>(editor)->textField()->objectValue(),
            onlyValue(fold(same))};
}

Shown shownTruth(const ZelInspectorProperty *editor, const Fold &fold)
{
    const auto *truth = qobject_cast<const ZelInspectorBooleanProperty *>(editor);
    const std::optional<quint64> bits = truth->bits;
    const QVariant value = fold(
        [&](const QVariant &one) { return bits && isValue(one) ? QVariant((one.toULongLong() & *bits) != 0) : one; });
    const Qt::CheckState state = ZelIsMarker(value, ZelMultipleValuesMarker) ? Qt::PartiallyChecked
                                 : isValue(value) && value.toBool()          ? Qt::Checked
                                                                             : Qt::Unchecked;
    return {int(truth->checkbox()->checkState()), int(state)};
}

Shown shownColor(const ZelInspectorProperty *editor, const Fold &fold)
{
    const QVariant value = qobject_cast<const ZelInspectorColorProperty *>(editor)->popUpButton()->selectedColor();
    return {isValue(value) ? value.value<QColor>() : value, fold(same)};
}

Shown shownDate(const ZelInspectorProperty *editor, const Fold &fold)
{
    return {qobject_cast<const ZelInspectorDateProperty *>(editor)->datePicker()->objectValue(), onlyValue(fold(same))};
}

Shown shownResource(const ZelInspectorProperty *editor, const Fold &fold)
{
    return {qobject_cast<const ZelInspectorResourceProperty *>(editor)->comboBox()->objectValue(), fold(same)};
}

Shown shownChoice(const ZelInspectorProperty *editor, const Fold &fold)
{
    const auto *choice = qobject_cast<const ZelInspectorTextEnumerationProperty *>(editor);
    const QVariant value = fold(same);
    const ZelMenuItem *expected = ZelIsMarker(value, ZelMultipleValuesMarker) ? choice->multipleValuesMenuItem()
                                  : isValue(value)                            ? choice->menuItemForValue(value)
                                                                              : nullptr;
    if (!expected)
        expected = choice->noSelectionMenuItem();
    if (!choice->popUpButton())
        return {};
    const QAction *shown = choice->popUpButton()->selectedItem();
    return {shown == expected, true};
}

Shown shownSize(const ZelInspectorProperty *editor, const Fold &fold)
{
    const auto width = [](const QVariant &size) {
        return isValue(size) ? QVariant(size.toSizeF().width()) : QVariant();
    };
    const auto height = [](const QVariant &size) {
        return isValue(size) ? QVariant(size.toSizeF().height()) : QVariant();
    };
    return {QVariantList{editor->property("width"), editor->property("height")},
            QVariantList{fold(width), fold(height)}};
}

Shown shownArray(const ZelInspectorProperty *editor, const Fold &fold)
{
    const QVariant value = fold(same);
    return {qobject_cast<const ZelInspectorArrayProperty *>(editor)->numberOfRows(),
            isValue(value) ? int(value.toStringList().size()) : 0};
}

Shown shownFrame(const ZelInspectorProperty *editor, const Fold &fold)
{
    const auto *frame = qobject_cast<const ZelInspectorBoundsProperty *>(editor);
    const auto component = [&](double (*part)(const QPointF &, const QSizeF &)) {
        return fold([&](const QVariant &one) {
            if (!isValue(one))
                return QVariant();
            const QRectF rect = one.toRectF();
            return QVariant(part(CGRectGetOriginForAnchor(frame->anchor(), rect), rect.size()));
        });
    };
    return {QVariantList{frame->originX(), frame->originY(), frame->sizeWidth(), frame->sizeHeight()},
            QVariantList{component([](const QPointF &origin, const QSizeF &) { return origin.x(); }),
                         component([](const QPointF &origin, const QSizeF &) { return origin.y(); }),
                         component([](const QPointF &, const QSizeF &size) { return size.width(); }),
                         component([](const QPointF &, const QSizeF &size) { return size.height(); })}};
}

Shown shownFont(const ZelInspectorProperty *editor, const Fold &fold)
{
    const QVariant value = fold(same);
    const QVariant size = isValue(value) ? QVariant(ZelFontManager::sizeOf(value.value<QFont>())) : value;
    return {qobject_cast<const ZelInspectorFontProperty *>(editor)->stepper()->objectValue(), size};
}

Shown shownRichText(const ZelInspectorProperty *editor, const Fold &fold)
{
    const QVariant value = onlyValue(fold(same));
    const auto *rich = qobject_cast<const ZelInspectorAttributedStringProperty *>(editor);
    const QString shown = rich->textView()->attributedString().text();
    return {QString(u'"' + shown + u'"'), QString(u'"' + value.value<ZelAttributedString>().text() + u'"')};
}

Shown shownImage(const ZelInspectorProperty *editor, const Fold &fold)
{
    constexpr quint64 mask = 0x30;
    const auto *images = qobject_cast<const ZelInspectorImageEnumerationProperty *>(editor);
    const QVariant value =
        fold([](const QVariant &one) { return isValue(one) ? QVariant((one.toULongLong() & mask) >> 4) : one; });
    const QVariant index = !isValue(value)            ? value
                           : value.toULongLong() == 0 ? QVariant() // no segment stands for it
                                                      : QVariant(value.toULongLong() - 1);
    return {images->segmentedControl()->selectedIndex(), onlyValue(index)};
}

struct Reader
{
    const QMetaObject *type;
    Shown (*read)(const ZelInspectorProperty *, const Fold &);
};
const Reader g_readers[] = {
    {&ZelInspectorNumberProperty::staticMetaObject, shownNumber},
    {&ZelInspectorStringProperty::staticMetaObject, shownText},
    {&ZelInspectorBooleanProperty::staticMetaObject, shownTruth},
    {&ZelInspectorColorProperty::staticMetaObject, shownColor},
    {&ZelInspectorDateProperty::staticMetaObject, shownDate},
    {&ZelInspectorResourceProperty::staticMetaObject, shownResource},
    {&ZelInspectorTextEnumerationProperty::staticMetaObject, shownChoice},
    {&ZelInspectorSizeProperty::staticMetaObject, shownSize},
    {&ZelInspectorArrayProperty::staticMetaObject, shownArray},
    {&ZelInspectorBoundsProperty::staticMetaObject, shownFrame},
    {&ZelInspectorFontProperty::staticMetaObject, shownFont},
    {&ZelInspectorAttributedStringProperty::staticMetaObject, shownRichText},
    {&ZelInspectorImageEnumerationProperty::staticMetaObject, shownImage},
};

bool isSame(const QVariant &shown, const QVariant &expected)
{
    if (isNothing(shown) || isNothing(expected))
        return isNothing(shown) == isNothing(expected);
    if (ZelIsControllerMarker(shown) || ZelIsControllerMarker(expected))
        return shown == expected;
    if (expected.metaType() == QMetaType::fromType<QVariantList>()) {
        const QVariantList a = shown.toList();
        const QVariantList b = expected.toList();
        // The numbers of a pair are read together, until both are known to differ.
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const QVariant &one, const QVariant &other) {
            return isSame(one, other) || (ZelIsControllerMarker(one) && ZelIsControllerMarker(other));
        });
    }
    return shown == expected;
}

template<typename... Fields> bool isEditing(const QWidget *widget)
{
    const auto asks = [](const auto *field) { return field && field->isEditing(); };
    return (asks(qobject_cast<const Fields *>(widget)) || ...);
}

/// What was typed and not taken is shown instead of the value.
bool isBeingEdited(ZelInspectorProperty *editor)
{
    const auto fields = editor->view()->findChildren<QWidget *>();
    return std::any_of(fields.begin(), fields.end(), [](const QWidget *field) {
        return (field->property("text").isValid() && field->hasFocus()) ||
               isEditing<ZelTextField, ZelGrowingTextField, ZelGrowingTextView, ZelDatePicker>(field);
    });
}

QByteArray textOf(const QVariant &value)
{
    return QDebug::toString(value).toUtf8();
}

} // namespace

void Storm::checkEditors()
{
    if (!m_owner || !m_inspector || !m_inspector->isViewInstalled() || Fault::armed)
        return;
    const bool hasThrown = std::exchange(m_thrown, Fault::thrown) != Fault::thrown;
    const auto editors = m_inspector->findChildren<ZelInspectorProperty *>();
    for (ZelInspectorProperty *editor : editors) {
        const auto *reader = std::find_if(std::begin(g_readers), std::end(g_readers), [&](const Reader &candidate) {
            return editor->metaObject()->inherits(candidate.type);
        });
        if (reader == std::end(g_readers) || !editor->isViewInstalled() || editor->owner() != m_owner.get() ||
            (hasThrown && editor->valueTransformer()) || editor->keyPath().isEmpty() || m_rekeyed.count(editor) ||
            isBeingEdited(editor))
            continue;
        const QByteArray path = editor->keyPath().toLatin1();
        const Shown shown =
            reader->read(editor, [&](const Map &map) { return valueAt(m_owner.get(), path.split('.'), map); });
        ++Progress::shared().checks;
        if (std::exchange(g_isAmbiguous, false) || isSame(shown.value, shown.expected))
            continue;
        Progress::shared().setDetail("shows " + textOf(shown.value) + " instead of " + textOf(shown.expected) + " of " +
                                     QByteArray::number(sheets()->selectedObjects().size()) + " objects" +
                                     (hasThrown ? ", after a fault" : ""));
        Progress::shared().find(QByteArray(editor->metaObject()->className()) + " of " + path +
                                " does not show what the objects hold");
        return;
    }
    checkChoosers();
    if (hasThrown) { // rows that could not be read, or not be installed, get another chance
        QWidget *view = m_inspector->view();
        QLayout *layout = view->parentWidget()->layout();
        view->setParent(nullptr);
        layout->addWidget(view);
        view->show();
        settle();
    }
}

void Storm::checkChoosers()
{
    const auto choosers = m_inspector->findChildren<ZelInspectorChooser *>();
    for (const ZelInspectorChooser *chooser : choosers) {
        if (!chooser->isViewInstalled() || chooser->owner() != m_owner.get())
            continue;
        const QVariant value = valueAt(m_owner.get(), chooser->keyPath().toLatin1().split('.'), same);
        const ZelInspectorChooserChoice *expected = isValue(value) ? chooser->choiceForValue(value) : nullptr;
        ++Progress::shared().checks;
        if (chooser->currentChoice() != expected) {
            Progress::shared().setDetail("the value is " + textOf(value));
            Progress::shared().find("the chooser of " + chooser->keyPath().toLatin1() + " shows another choice");
        }
    }
}
