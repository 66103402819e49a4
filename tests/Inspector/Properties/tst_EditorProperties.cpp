// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "FigureWindow.h"
#include "Inspector/Properties/ZelInspectorActionProperty.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/Properties/ZelInspectorColorProperty.h"
#include "Inspector/Properties/ZelInspectorDateProperty.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"
#include "Inspector/Properties/ZelInspectorPointProperty.h"
#include "Inspector/Properties/ZelInspectorResourceProperty.h"
#include "Inspector/Properties/ZelInspectorSizeProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Support/Recorder.h"

#include <QMetaProperty>

namespace {

/// A figure that users may only look at.
class Closed : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int flags MEMBER flags CONSTANT)
    Q_PROPERTY(QString name MEMBER name CONSTANT)
    Q_PROPERTY(QDate day MEMBER day CONSTANT)
    Q_PROPERTY(QColor fill MEMBER fill CONSTANT)
    Q_PROPERTY(QFont font MEMBER font CONSTANT)
    Q_PROPERTY(QStringList tags MEMBER tags CONSTANT)
    Q_PROPERTY(QRectF frame MEMBER frame CONSTANT)
    Q_PROPERTY(QPointF place MEMBER place CONSTANT)
public:
    int flags = 1;
    QString name;
    QDate day;
    QColor fill;
    QFont font;
    QStringList tags{"a"};
    QRectF frame;
    QPointF place;
};

template<typename Editor> std::unique_ptr<ZelInspectorProperty> make(QObject *owner)
{
    auto editor = std::make_unique<Editor>(owner);
    if constexpr (std::is_base_of_v<ZelInspectorEnumerationProperty, Editor>) {
        auto *option = new ZelOption;
        option->value = 1;
        auto *group = new ZelOptionGroup;
        group->setOptions({option});
        editor->setOptionGroups({group});
    }
    if constexpr (std::is_base_of_v<ZelInspectorPairProperty, Editor>)
        editor->nonNilValueKeyPath = "extra";
    if constexpr (std::is_same_v<ZelInspectorNumberProperty, Editor>) {
        editor->sliderType = ZelInspectorNumberProperty::LinearSlider;
        editor->nonNilValueTitle = "Set";
    }
    return editor;
}

/// Each editor, a key that it may edit, and what is read by key.
const struct
{
    std::unique_ptr<ZelInspectorProperty> (*make)(QObject *owner);
    const char *key;
    const char *keys;
} g_kinds[] = {
    {make<ZelInspectorCustomProperty>, "",
     "owner titleKeyPath keyPath valueTransformer enabled enabledKeyPath enabledValueTransformer actionSelector "
     "actionName readOnly viewForBaselineAlignment baselineOffsetFromView"},
    {make<ZelInspectorNumberProperty>, "flags",
     "nilValueControlIsOffWhenNil formatStyle formatUnit sliderType increment incrementKeyPath maximum maximumKeyPath "
     "minimum minimumKeyPath placeholder nonNilValueKeyPath nonNilValueTitle textField stepper slider label "
     "nonNillCheckbox"},
    {make<ZelInspectorNumberProperty>, "place.x", ""},
    {make<ZelInspectorTextEnumerationProperty>, "flags",
     "editable optionGroups bitMask enumeratedDisplayValuesKeyPath enumeratedValuesKeyPath popUpButton textField menu "
     "label separatorMenuItem noSelectionMenuItem multipleValuesMenuItem updatingValues"},
    {make<ZelInspectorImageEnumerationProperty>, "flags",
     "segmentedControl resizableSegmentedControlView imageView label selectedIndex titles images enabledFlags "
     "representedObjects updatingValues"},
    {make<ZelInspectorPointProperty>, "place",
     "xTitle xTitleKeyPath yTitle yTitleKeyPath increment incrementKeyPath formatStyle formatUnit "
     "nilValueControlIsOffWhenNil nonNilValueKeyPath xProperty yProperty nonNilProperty x y nonNil updatingValues"},
    {make<ZelInspectorSizeProperty>, "",
     "widthTitle widthTitleKeyPath heightTitle heightTitleKeyPath increment incrementKeyPath formatStyle formatUnit "
     "nilValueControlIsOffWhenNil nonNilValueKeyPath widthProperty heightProperty nonNilProperty width height nonNil"},
    {make<ZelInspectorBoundsProperty>, "frame",
     "increment incrementKeyPath formatStyle formatUnit flipped flippedKeyPath showOriginSelector originSelectionView "
     "label originXProperty originYProperty sizeWidthProperty sizeHeightProperty anchor originX originY sizeWidth "
     "sizeHeight updatingValues internalEnabled"},
    {make<ZelInspectorBooleanProperty>, "flags", "bits checkbox updatingValues"},
    {make<ZelInspectorStringProperty>, "name", "allowsNilValues editable placeholder textField label"},
    {make<ZelInspectorDateProperty>, "day", "datePicker label"},
    {make<ZelInspectorColorProperty>, "fill",
     "colorList defaultColor defaultColorForNil defaultColorKeyPath popup supportsNil popUpButton label"},
    {make<ZelInspectorResourceProperty>, "name", "placeholder resourcesKeyPath comboBox label"},
    {make<ZelInspectorActionProperty>, "", "menuItemsKeyPath button"},
    {make<ZelInspectorMenuActionProperty>, "", "menuItemsKeyPath popUpButton"},
    {make<ZelInspectorFontProperty>, "font",
     "placeholder textField button stepper label popover fontPopUpButton fontFamilyPopUpButton fontStylePopUpButton "
     "fontSizeTextField fontSizeStepper multipleFontFamiliesMenuItem noSelectionFontFamiliesMenuItem "
     "multipleFontFacesMenuItem noSelectionFontFacesMenuItem fontFamilies fontFaces"},
    {make<ZelInspectorArrayProperty>, "tags",
     "defaultValue borderView scrollView tableView actionBar label reflectedValues addActionItem removeActionItem"},
    {make<ZelInspectorAttributedStringProperty>, "name",
     "allowsNilValues placeholder segmentedControl resizableSegmentedControlView fontProperty textView label popover "
     "paragraphStyleInspector colorPanelActive textColorActive textColor backgroundColor font alignment "
     "firstLineHeadIndent headIndent tailIndent defaultTabInterval lineHeightMultiple maximumLineHeight "
     "minimumLineHeight lineSpacing paragraphSpacing paragraphSpacingBefore lineBreakMode hyphenationFactor "
     "tighteningFactorForTruncation headerLevel baseWritingDirection"},
};

/// Whether a user could change anything with it.
bool takesInput(const QWidget *control)
{
    if (control->isHidden() || !control->isEnabled())
        return false;
    const QVariant editable = control->property("editable");
    const bool isButton =
        qobject_cast<const QAbstractButton *>(control) || qobject_cast<const ZelPopUpButton *>(control);
    return editable.isValid() ? editable.toBool() : isButton;
}

/// The names of the controls that take input; a list takes it where its rows do.
QString controlsTakingInput(const ZelInspectorProperty *editor)
{
    QStringList names;
    const QList<QWidget *> controls = const_cast<ZelInspectorProperty *>(editor)->view()->findChildren<QWidget *>();
    for (const QWidget *control : controls) {
        if (takesInput(control))
            names.append(control->metaObject()->className());
    }
    if (const auto *list = qobject_cast<const ZelInspectorArrayProperty *>(editor)) {
        const QAbstractItemModel *model = list->tableView()->model();
        if (list->tableView()->isEnabled() && model->rowCount() > 0 &&
            model->index(0, 0).flags().testFlag(Qt::ItemIsEditable))
            names.append("row");
    }
    return names.join(u' ');
}

bool hasVisibleStepper(const ZelInspectorProperty *editor)
{
    const QList<ZelStepper *> steppers =
        const_cast<ZelInspectorProperty *>(editor)->view()->findChildren<ZelStepper *>();
    return std::any_of(steppers.begin(), steppers.end(),
                       [](const ZelStepper *stepper) { return !stepper->isHidden(); });
}

/// Another value of that type; absent for those that only the editor itself makes.
QVariant otherValue(const QVariant &value, QMetaType type)
{
    const QHash<int, QVariant> others{{QMetaType::Bool, !value.toBool()},
                                      {QMetaType::UInt, 2U},
                                      {QMetaType::ULongLong, 2ULL},
                                      {QMetaType::QString, "other"},
                                      {QMetaType::QVariant, 7}};
    return others.value(type.id());
}

} // namespace

/// What all editors do alike.
class tst_EditorProperties : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void areReadSetAndObservedByKey()
    {
        for (const auto &kind : g_kinds) {
            EditorOwner owner;
            const auto editor = kind.make(&owner);
            editor->view();
            for (const QString &name : QString(kind.keys).split(u' ', Qt::SkipEmptyParts)) {
                const TableRow inRow(editor->metaObject()->className() + (u' ' + name));
                const int index = editor->metaObject()->indexOfProperty(name.toLatin1());
                QVERIFY(index >= 0);
                const QMetaProperty property = editor->metaObject()->property(index);
                const QVariant before = ZelValueForKey(editor.get(), name);
                const QVariant other = property.isWritable() ? otherValue(before, property.metaType()) : QVariant();
                if (!other.isValid())
                    continue;
                Recorder recorder;
                ZelAddObserver(editor.get(), &recorder, ZelKeyPath(name), 0, nullptr);
                ZelSetValueForKey(editor.get(), other, name);
                ZelRemoveObserver(editor.get(), &recorder, ZelKeyPath(name), nullptr);
                QVERIFY(ZelEqual(ZelValueForKey(editor.get(), name), other));
                QCOMPARE(recorder.count(), 1);
            }
        }
    }

    /// Not what any selected object does not let them.
    void whatCannotBeWrittenIsOnlyShown()
    {
        for (const auto &kind : g_kinds) {
            if (!*kind.key)
                continue;
            FigureWindow window;
            Closed closed;
            auto made = kind.make(window.owner.get());
            const TableRow inRow(made->metaObject()->className());
            made->setKeyPath(u"people.selection." + QString(kind.key));
            const ZelInspectorProperty *editor = window.install(std::move(made));
            window.first.setFlags(1);
            window.select({&window.first});
            const QString controls = controlsTakingInput(editor);
            const bool hasStepper = hasVisibleStepper(editor);
            QVERIFY(!controls.isEmpty());
            for (const QList<QObject *> &objects :
                 {QList<QObject *>{&closed}, QList<QObject *>{&window.first, &closed}}) {
                window.select(objects);
                QCOMPARE(controlsTakingInput(editor), "");
                QVERIFY2(!hasVisibleStepper(editor), editor->metaObject()->className());
            }
            window.select({&window.first});
            QCOMPARE(controlsTakingInput(editor), controls);
            QCOMPARE(hasVisibleStepper(editor), hasStepper);
        }
    }

    /// Nor without a selection, or where the editor is not enabled.
    void whatIsNotEnabledIsOnlyShown()
    {
        for (const auto &kind : g_kinds) {
            if (!*kind.key)
                continue;
            FigureWindow window;
            auto made = kind.make(window.owner.get());
            const TableRow inRow(made->metaObject()->className());
            made->setKeyPath(u"people.selection." + QString(kind.key));
            made->setEnabledKeyPath("unlocked");
            const ZelInspectorProperty *editor = window.install(std::move(made));
            const auto controls = [&](bool unlocked) { // a number's checkbox is only a way to a value
                window.owner->setUnlocked(unlocked);
                FigureWindow::settle();
                const bool isNumber = qobject_cast<const ZelInspectorNumberProperty *>(editor);
                return isNumber ? controlsTakingInput(editor).remove("ZelCheckBox") : controlsTakingInput(editor);
            };
            QCOMPARE(controls(true), "");
            QCOMPARE(controls(false), "");
            QCOMPARE(controls(true), "");
            window.select({&window.first});
            QVERIFY(!controls(true).isEmpty());
            QCOMPARE(controls(false), "");
            QVERIFY(!controls(true).isEmpty());
        }
    }

    void outliveTheirOwnerAndTheirView()
    {
        for (const auto &kind : g_kinds) {
            if (!*kind.key)
                continue;
            FigureWindow window;
            auto made = kind.make(window.owner.get());
            const TableRow inRow(made->metaObject()->className());
            made->setKeyPath(u"people.selection." + QString(kind.key));
            auto *editor = window.install(std::move(made));
            window.select({&window.first, &window.second});
            const auto use = [&] {
                editor->updateView();
                editor->setReflectedValue(3);
                editor->discardEditing();
                FigureWindow::settle();
                return editor->commitEditing() && !editor->reflectedValue().isValid();
            };
            window.owner.reset();
            QVERIFY(use());
            if (auto *list = qobject_cast<ZelInspectorArrayProperty *>(editor)) {
                list->addObject(nullptr);
                QCOMPARE(list->numberOfRows(), 0);
            }
            delete editor->view();
            QVERIFY(use());
            QCOMPARE(window.first.tags, QStringList({"a", "b"}));
            QCOMPARE(window.steps(), 0);
        }
    }
};

QTEST_MAIN(tst_EditorProperties)
#include "tst_EditorProperties.moc"
