// SPDX-License-Identifier: MIT
// What editors show, compared with what the selected objects hold.
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Storm.h"
#include "Text/ZelFontManager.h"

namespace {
using Map = std::function<QVariant(const QVariant &)>;
using Keys = QList<QByteArray>;

bool g_isAmbiguous = false; ///< whether there was nothing as well as an empty text, which an unset text is like both

bool isNothing(const QVariant &value)
{
    return ZelIsNull(value) || (value.typeId() == QMetaType::QString && value.toString().isEmpty());
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

QVariant valueAt(const QObject *object, Keys keys, const Map &map);

/// The value on which the objects agree, or the marker for the first of them that disagrees or lacks the key.
QVariant foldOf(const QList<QObject *> &objects, const Keys &keys, const Map &map)
{
    QVariant result = QVariant::fromValue(ZelNoSelectionMarker);
    for (const QObject *object : objects) {
        QVariant value = valueAt(object, keys, map);
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
QVariant valueAt(const QObject *object, Keys keys, const Map &map)
{
    const QByteArray key = keys.takeFirst();
    if (const auto *controller = qobject_cast<const ZelArrayController *>(object); controller && key == "selection")
        return foldOf(controller->selectedObjects(), keys, map);
    const QMetaProperty property = object->metaObject()->property(object->metaObject()->indexOfProperty(key));
    if (!property.isValid() && !object->dynamicPropertyNames().contains(key))
        return QVariant::fromValue(ZelNotApplicableMarker);
    QVariant value = object->property(key);
    if (property.metaType() == QMetaType::fromType<QString>() && value.toString().isEmpty())
        value = QLatin1String(""); // a property of texts has no nothing
    if (const QObject *next = keys.isEmpty() ? nullptr : value.value<QObject *>())
        return valueAt(next, keys, map);
    const QVariant mapped = map(keys.isEmpty() ? value : QVariant());
    return ZelIsAbsent(mapped) ? QVariant() : mapped;
}

/// The value at the path of an editor.
struct Fold
{
    const QObject *owner;
    Keys keys;
    QVariant operator()(const Map &map = [](const QVariant &value) { return value; }) const
    {
        return valueAt(owner, keys, map);
    }
    /// What becomes of values; nothing stays nothing.
    template<typename Function> QVariant of(const Function &function) const
    {
        return (*this)([&](const QVariant &one) { return isValue(one) ? QVariant(function(one)) : QVariant(); });
    }
};

/// What an editor shows, and what it should.
struct Shown
{
    QVariant value;
    QVariant expected;
};

std::optional<Shown> shownBy(const QObject *editor, const Fold &fold)
{
    if (const auto *number = qobject_cast<const ZelInspectorNumberProperty *>(editor)) {
        const ZelValueTransformerPtr &transformer = number->valueTransformer();
        const QVariant value =
            fold([&](const QVariant &one) { return transformer ? transformer->transformedValue(one) : one; });
        return Shown{number->textField()->objectValue(), value};
    }
    if (const auto *text = qobject_cast<const ZelInspectorStringProperty *>(editor))
        return Shown{text->textField()->objectValue(), onlyValue(fold())};
    if (const auto *truth = qobject_cast<const ZelInspectorBooleanProperty *>(editor)) {
        const QVariant value = fold.of([bits = truth->bits](const QVariant &one) {
            return bits ? (one.toULongLong() & *bits) != 0 : one.toBool();
        });
        const Qt::CheckState state = ZelIsMarker(value, ZelMultipleValuesMarker) ? Qt::PartiallyChecked
                                     : isValue(value) && value.toBool()          ? Qt::Checked
                                                                                 : Qt::Unchecked;
        return Shown{int(truth->checkbox()->checkState()), int(state)};
    }
    if (const auto *color = qobject_cast<const ZelInspectorColorProperty *>(editor)) {
        const QVariant value = color->popUpButton()->selectedColor();
        return Shown{isValue(value) ? value.value<QColor>() : value, fold()};
    }
    if (const auto *date = qobject_cast<const ZelInspectorDateProperty *>(editor))
        return Shown{date->datePicker()->objectValue(), onlyValue(fold())};
    if (const auto *resource = qobject_cast<const ZelInspectorResourceProperty *>(editor))
        return Shown{resource->comboBox()->objectValue(), fold()};
    if (const auto *choice = qobject_cast<const ZelInspectorTextEnumerationProperty *>(editor)) {
        const QVariant value = fold();
        const QAction *item = ZelIsMarker(value, ZelMultipleValuesMarker) ? choice->multipleValuesMenuItem()
                              : isValue(value)                            ? choice->menuItemForValue(value)
                                                                          : nullptr;
        const ZelPopUpButton *button = choice->popUpButton(); // none where nobody can choose
        return Shown{!button || button->selectedItem() == (item ? item : choice->noSelectionMenuItem()), true};
    }
    if (const auto *size = qobject_cast<const ZelInspectorSizeProperty *>(editor))
        return Shown{QVariantList{size->property("width"), size->property("height")},
                     QVariantList{fold.of([](const QVariant &one) { return one.toSizeF().width(); }),
                                  fold.of([](const QVariant &one) { return one.toSizeF().height(); })}};
    if (const auto *array = qobject_cast<const ZelInspectorArrayProperty *>(editor))
        return Shown{array->numberOfRows(), int(onlyValue(fold()).toStringList().size())};
    if (const auto *frame = qobject_cast<const ZelInspectorBoundsProperty *>(editor)) {
        const auto part = [&](qreal (QRectF::*of)() const) {
            return fold.of([&](const QVariant &one) {
                const QRectF rect = one.toRectF();
                return (QRectF(CGRectGetOriginForAnchor(frame->anchor(), rect), rect.size()).*of)();
            });
        };
        return Shown{QVariantList{frame->originX(), frame->originY(), frame->sizeWidth(), frame->sizeHeight()},
                     QVariantList{part(&QRectF::x), part(&QRectF::y), part(&QRectF::width), part(&QRectF::height)}};
    }
    if (const auto *font = qobject_cast<const ZelInspectorFontProperty *>(editor)) {
        const QVariant value = fold(); // fonts of one size that differ otherwise have none in common
        const QVariant size = isValue(value) ? QVariant(ZelFontManager::sizeOf(value.value<QFont>())) : value;
        return Shown{font->stepper()->objectValue(), size};
    }
    if (const auto *rich = qobject_cast<const ZelInspectorAttributedStringProperty *>(editor)) {
        const auto text = [](const ZelAttributedString &string) { return QString(u'"' + string.text() + u'"'); };
        return Shown{text(rich->textView()->attributedString()), text(onlyValue(fold()).value<ZelAttributedString>())};
    }
    if (const auto *images = qobject_cast<const ZelInspectorImageEnumerationProperty *>(editor)) {
        // Without any of the bits, no segment stands for the value.
        const QVariant value = fold.of([](const QVariant &one) { return (one.toULongLong() & 0x30) >> 4; });
        return Shown{images->segmentedControl()->selectedIndex(),
                     isValue(value) && value != 0 ? QVariant(value.toULongLong() - 1) : QVariant()};
    }
    if (const auto *chooser = qobject_cast<const ZelInspectorChooser *>(editor)) {
        const QVariant value = fold();
        return Shown{chooser->currentChoice() == (isValue(value) ? chooser->choiceForValue(value) : nullptr), true};
    }
    return std::nullopt;
}

bool isSame(const QVariant &shown, const QVariant &expected)
{
    if (isNothing(shown) || isNothing(expected))
        return isNothing(shown) == isNothing(expected);
    if (ZelIsControllerMarker(shown) || expected.metaType() != QMetaType::fromType<QVariantList>())
        return shown == expected;
    const QVariantList a = shown.toList();
    const QVariantList b = expected.toList();
    // The numbers of a pair are read together, until both are known to differ.
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const QVariant &one, const QVariant &other) {
        return isSame(one, other) || (ZelIsControllerMarker(one) && ZelIsControllerMarker(other));
    });
}

/// What was typed and not taken is shown instead of the value.
bool isBeingEdited(ZelInspectorProperty *editor)
{
    const auto fields = editor->view()->findChildren<QWidget *>();
    return std::any_of(fields.begin(), fields.end(), [](const QWidget *field) {
        const auto *session = dynamic_cast<const ZelEditSession *>(field);
        return (session && session->isEditing()) || (field->property("text").isValid() && field->hasFocus());
    });
}
} // namespace

void Storm::checkEditors()
{
    if (!m_owner || !m_inspector || !m_inspector->isViewInstalled() || Fault::armed)
        return;
    const bool hasThrown = std::exchange(m_thrown, Fault::thrown) != Fault::thrown;
    const auto controllers = m_inspector->findChildren<ZelViewController *>();
    for (ZelViewController *controller : controllers) {
        const QByteArray path = controller->property("keyPath").toString().toLatin1();
        auto *editor = qobject_cast<ZelInspectorProperty *>(controller); // or a chooser
        if (path.isEmpty() || !controller->isViewInstalled() ||
            controller->property("owner").value<QObject *>() != m_owner.get() ||
            (editor && ((hasThrown && editor->valueTransformer()) || m_rekeyed.count(editor) || isBeingEdited(editor))))
            continue;
        const std::optional<Shown> shown = shownBy(controller, {m_owner.get(), path.split('.')});
        if (!shown)
            continue;
        ++Progress::shared().checks;
        if (std::exchange(g_isAmbiguous, false) || isSame(shown->value, shown->expected))
            continue;
        Progress::find(QByteArray(controller->metaObject()->className()) + " of " + path +
                           " does not show what the objects hold",
                       QStringLiteral("shows %1 instead of %2 of %3 objects%4")
                           .arg(QDebug::toString(shown->value), QDebug::toString(shown->expected))
                           .arg(sheets()->selectedObjects().size())
                           .arg(hasThrown ? u", after a fault" : u""));
        return;
    }
    if (hasThrown) { // rows that could not be read, or not be installed, get another chance
        QWidget *view = m_inspector->view();
        QLayout *layout = view->parentWidget()->layout();
        view->setParent(nullptr);
        layout->addWidget(view);
        view->show();
        settle();
    }
}
