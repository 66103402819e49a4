// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
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

#include <QMetaProperty>
#include <QTime>
#include <QUrl>

namespace {

/// Values of all kinds, which users may change.
class Open : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int number MEMBER number NOTIFY changed)
    Q_PROPERTY(QString text MEMBER text NOTIFY changed)
    Q_PROPERTY(QDate day MEMBER day NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER color NOTIFY changed)
    Q_PROPERTY(QFont font MEMBER font NOTIFY changed)
    Q_PROPERTY(QStringList list MEMBER list NOTIFY changed)
    Q_PROPERTY(QRectF frame MEMBER frame NOTIFY changed)
    Q_PROPERTY(QPointF place MEMBER place NOTIFY changed)
    Q_PROPERTY(uchar byte MEMBER byte NOTIFY changed)
    Q_PROPERTY(QUrl address MEMBER address NOTIFY changed)
    Q_PROPERTY(QTime time MEMBER time NOTIFY changed)
    Q_PROPERTY(Kind kind MEMBER kind NOTIFY changed)
public:
    enum Kind { Round, Square };
    Q_ENUM(Kind)
    uchar byte = 7;
    QUrl address{QStringLiteral("http://a.example")};
    QTime time{12, 30};
    Kind kind = Square;
    int number = 1;
    QString text = QStringLiteral("text");
    QDate day{2024, 5, 6};
    QColor color = Qt::red;
    QFont font;
    QStringList list{QStringLiteral("a")};
    QRectF frame;
    QPointF place;

Q_SIGNALS:
    void changed();
};

/// The same, which they may only look at.
class Closed : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int number READ number NOTIFY changed)
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(QDate day READ day CONSTANT)
    Q_PROPERTY(QColor color READ color CONSTANT)
    Q_PROPERTY(QFont font READ font CONSTANT)
    Q_PROPERTY(QStringList list READ list CONSTANT)
    Q_PROPERTY(QRectF frame READ frame CONSTANT)
    Q_PROPERTY(QPointF place READ place CONSTANT)
public:
    int number() const { return 1; }
    QString text() const { return QStringLiteral("text"); }
    QDate day() const { return {2024, 5, 6}; }
    QColor color() const { return Qt::red; }
    QFont font() const { return {}; }
    QStringList list() const { return {QStringLiteral("a")}; }
    QRectF frame() const { return {}; }
    QPointF place() const { return {}; }

Q_SIGNALS:
    void changed();
};

using Make = std::unique_ptr<ZelInspectorProperty> (*)(QObject *owner);

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
        editor->nonNilValueKeyPath = QStringLiteral("extra");
    if constexpr (std::is_same_v<ZelInspectorNumberProperty, Editor>) {
        editor->sliderType = ZelInspectorNumberProperty::LinearSlider;
        editor->nonNilValueTitle = QStringLiteral("Set");
    }
    return editor;
}

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
            names.append(QString::fromLatin1(control->metaObject()->className()));
    }
    if (const auto *list = qobject_cast<const ZelInspectorArrayProperty *>(editor)) {
        const QAbstractItemModel *model = list->tableView()->model();
        if (model->rowCount() > 0 && model->index(0, 0).flags().testFlag(Qt::ItemIsEditable))
            names.append(QStringLiteral("row"));
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
    switch (type.id()) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return 2;
    case QMetaType::QString:
        return QStringLiteral("other");
    case QMetaType::QVariant:
        return 7;
    default:
        return {};
    }
}

class Listener : public ZelKeyValueObserver
{
public:
    void observeValueForKeyPath(const ZelKeyPath &, QObject *, const ZelKeyValueChange &, const void *) override
    {
        ++count;
    }
    int count = 0;
};

} // namespace
Q_DECLARE_METATYPE(Make)

class tst_EditorProperties : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void areReadSetAndObservedByKey_data();
    void areReadSetAndObservedByKey();
    void whatCannotBeWrittenIsOnlyShown_data();
    void whatCannotBeWrittenIsOnlyShown();
    void whatThePropertyDoesNotTakeIsRefused_data();
    void whatThePropertyDoesNotTakeIsRefused();
    void stepsStopAtWhatThePropertyTakes();
};

void tst_EditorProperties::areReadSetAndObservedByKey_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("keys");
    const auto row = [](const char *name, Make make, const char *keys) {
        QTest::newRow(name) << make << QString::fromLatin1(keys);
    };
    row("every editor", &make<ZelInspectorCustomProperty>,
        "owner titleKeyPath keyPath valueTransformer enabled enabledKeyPath enabledValueTransformer actionSelector "
        "actionName viewForBaselineAlignment baselineOffsetFromView");
    row("number", &make<ZelInspectorNumberProperty>,
        "nilValueControlIsOffWhenNil formatStyle formatUnit sliderType increment incrementKeyPath maximum "
        "maximumKeyPath minimum minimumKeyPath placeholder nonNilValueKeyPath nonNilValueTitle textField stepper "
        "slider "
        "label nonNillCheckbox");
    const char *enumeration = "editable optionGroups bitMask enumeratedDisplayValuesKeyPath enumeratedValuesKeyPath ";
    row("enumeration", &make<ZelInspectorTextEnumerationProperty>, enumeration);
    row("text enumeration", &make<ZelInspectorTextEnumerationProperty>,
        "popUpButton textField menu label separatorMenuItem noSelectionMenuItem multipleValuesMenuItem updatingValues");
    row("image enumeration", &make<ZelInspectorImageEnumerationProperty>,
        "segmentedControl resizableSegmentedControlView imageView label selectedIndex titles images enabledFlags "
        "representedObjects updatingValues");
    row("point", &make<ZelInspectorPointProperty>,
        "xTitle xTitleKeyPath yTitle yTitleKeyPath increment incrementKeyPath formatStyle formatUnit "
        "nilValueControlIsOffWhenNil nonNilValueKeyPath xProperty yProperty nonNilProperty x y nonNil updatingValues");
    row("size", &make<ZelInspectorSizeProperty>,
        "widthTitle widthTitleKeyPath heightTitle heightTitleKeyPath increment incrementKeyPath formatStyle formatUnit "
        "nilValueControlIsOffWhenNil nonNilValueKeyPath widthProperty heightProperty nonNilProperty width height "
        "nonNil");
    row("bounds", &make<ZelInspectorBoundsProperty>,
        "increment incrementKeyPath formatStyle formatUnit flipped flippedKeyPath showOriginSelector "
        "originSelectionView label originXProperty originYProperty sizeWidthProperty sizeHeightProperty anchor originX "
        "originY sizeWidth sizeHeight updatingValues internalEnabled");
    row("boolean", &make<ZelInspectorBooleanProperty>, "bits checkbox updatingValues");
    row("string", &make<ZelInspectorStringProperty>, "allowsNilValues editable placeholder textField label");
    row("date", &make<ZelInspectorDateProperty>, "datePicker label");
    row("color", &make<ZelInspectorColorProperty>,
        "colorList defaultColor defaultColorForNil defaultColorKeyPath popup supportsNil popUpButton label");
    row("resource", &make<ZelInspectorResourceProperty>, "placeholder resourcesKeyPath comboBox label");
    row("action", &make<ZelInspectorActionProperty>, "menuItemsKeyPath button");
    row("menu of actions", &make<ZelInspectorMenuActionProperty>, "menuItemsKeyPath popUpButton");
    row("font", &make<ZelInspectorFontProperty>,
        "placeholder textField button stepper label popover fontPopUpButton fontFamilyPopUpButton fontStylePopUpButton "
        "fontSizeTextField fontSizeStepper multipleFontFamiliesMenuItem noSelectionFontFamiliesMenuItem "
        "multipleFontFacesMenuItem noSelectionFontFacesMenuItem fontFamilies fontFaces fontSize");
    row("array", &make<ZelInspectorArrayProperty>,
        "defaultValue borderView scrollView tableView actionBar label reflectedValues addActionItem removeActionItem");
    row("attributed string", &make<ZelInspectorAttributedStringProperty>,
        "allowsNilValues placeholder segmentedControl resizableSegmentedControlView fontProperty textView label "
        "popover "
        "paragraphStyleInspector colorPanelActive textColorActive textColor backgroundColor font alignment "
        "firstLineHeadIndent headIndent tailIndent defaultTabInterval lineHeightMultiple maximumLineHeight "
        "minimumLineHeight lineSpacing paragraphSpacing paragraphSpacingBefore lineBreakMode hyphenationFactor "
        "tighteningFactorForTruncation headerLevel baseWritingDirection");
}

void tst_EditorProperties::areReadSetAndObservedByKey()
{
    QFETCH(Make, make);
    QFETCH(QString, keys);
    EditorOwner owner;
    const std::unique_ptr<ZelInspectorProperty> editor = make(&owner);
    editor->view();
    const QStringList names = keys.split(u' ', Qt::SkipEmptyParts);
    for (const QString &name : names) {
        const int index = editor->metaObject()->indexOfProperty(name.toLatin1());
        QVERIFY2(index >= 0, qPrintable(name));
        const QMetaProperty property = editor->metaObject()->property(index);
        const QVariant before = ZelValueForKey(editor.get(), name);
        const QVariant other = property.isWritable() ? otherValue(before, property.metaType()) : QVariant();
        if (!other.isValid() || name == QStringLiteral("fontSize")) // which needs a font
            continue;
        Listener listener;
        ZelAddObserver(editor.get(), &listener, ZelKeyPath(name), 0, nullptr);
        ZelSetValueForKey(editor.get(), other, name);
        ZelRemoveObserver(editor.get(), &listener, ZelKeyPath(name), nullptr);
        QVERIFY2(ZelEqual(ZelValueForKey(editor.get(), name), other), qPrintable(name));
        QVERIFY2(listener.count == 1, qPrintable(name));
    }
}

void tst_EditorProperties::whatCannotBeWrittenIsOnlyShown_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("key");
    const auto row = [](const char *name, Make make, const char *key) {
        QTest::newRow(name) << make << QString::fromLatin1(key);
    };
    row("number", &make<ZelInspectorNumberProperty>, "number");
    row("boolean", &make<ZelInspectorBooleanProperty>, "number");
    row("text enumeration", &make<ZelInspectorTextEnumerationProperty>, "number");
    row("image enumeration", &make<ZelInspectorImageEnumerationProperty>, "number");
    row("string", &make<ZelInspectorStringProperty>, "text");
    row("attributed string", &make<ZelInspectorAttributedStringProperty>, "text");
    row("resource", &make<ZelInspectorResourceProperty>, "text");
    row("date", &make<ZelInspectorDateProperty>, "day");
    row("color", &make<ZelInspectorColorProperty>, "color");
    row("font", &make<ZelInspectorFontProperty>, "font");
    row("array", &make<ZelInspectorArrayProperty>, "list");
    row("point", &make<ZelInspectorPointProperty>, "place");
    row("bounds", &make<ZelInspectorBoundsProperty>, "frame");
    row("a component", &make<ZelInspectorNumberProperty>, "place.x");
}

void tst_EditorProperties::whatCannotBeWrittenIsOnlyShown()
{
    QFETCH(Make, make);
    QFETCH(QString, key);
    Open open;
    Closed closed;
    EditorWindow window(0);
    const auto select = [&](const QList<QObject *> &objects) {
        window.owner->controller.setSelectedObjects(objects);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents(); // editors inside of others follow these
    };
    std::unique_ptr<ZelInspectorProperty> made = make(window.owner.get());
    made->setKeyPath(QStringLiteral("people.selection.") + key);
    const ZelInspectorProperty *editor = window.install(std::move(made));
    select({&open});
    const QString controls = controlsTakingInput(editor);
    const bool hasStepper = hasVisibleStepper(editor);
    QVERIFY(!controls.isEmpty());
    for (const QList<QObject *> &objects : {QList<QObject *>{&closed}, QList<QObject *>{&open, &closed}}) {
        select(objects);
        QCOMPARE(controlsTakingInput(editor), QString());
        QVERIFY(!hasVisibleStepper(editor));
    }
    select({&open});
    QCOMPARE(controlsTakingInput(editor), controls);
    QCOMPARE(hasVisibleStepper(editor), hasStepper);
}

void tst_EditorProperties::whatThePropertyDoesNotTakeIsRefused_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, Make make, const char *key, const char *text, const char *reason) {
        QTest::newRow(name) << make << QString::fromLatin1(key) << QString::fromLatin1(text)
                            << QString::fromLatin1(reason);
    };
    row("too large", &make<ZelInspectorNumberProperty>, "byte", "300", "The number must be between 0 and 255.");
    row("below zero", &make<ZelInspectorNumberProperty>, "byte", "-5", "The number must be between 0 and 255.");
    row("large enough", &make<ZelInspectorNumberProperty>, "byte", "255", "");
    row("no address", &make<ZelInspectorStringProperty>, "address", "http://[bad", "This is not an address.");
    row("an address", &make<ZelInspectorStringProperty>, "address", "http://b.example", "");
    row("no time", &make<ZelInspectorStringProperty>, "time", "soon", "This is not a time.");
    row("no key", &make<ZelInspectorStringProperty>, "kind", "Oval", "This must be one of Round, Square.");
    row("a key", &make<ZelInspectorStringProperty>, "kind", "Round", "");
    row("no number", &make<ZelInspectorStringProperty>, "number", "many", "This is not a number.");
    row("no resource", &make<ZelInspectorResourceProperty>, "address", "http://[bad", "This is not an address.");
}

void tst_EditorProperties::whatThePropertyDoesNotTakeIsRefused()
{
    QFETCH(Make, make);
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QString, reason);
    Open open;
    EditorWindow window(0);
    std::unique_ptr<ZelInspectorProperty> made = make(window.owner.get());
    made->setKeyPath(QStringLiteral("people.selection.") + key);
    ZelInspectorProperty *editor = window.install(std::move(made));
    window.owner->controller.setSelectedObjects({&open});
    QCoreApplication::processEvents();
    const QVariant before = open.property(key.toLatin1());
    auto *growing = editor->view()->findChild<ZelGrowingTextField *>();
    auto *field = editor->view()->findChild<ZelTextField *>();
    (growing ? static_cast<QWidget *>(growing) : field)->setFocus();
    QWidget *focused = QApplication::focusWidget();
    QTest::keyClick(focused, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(focused, text);
    QTest::keyClick(focused, Qt::Key_Return);
    QCOMPARE(growing ? growing->errorText() : field->errorText(), reason);
    QCOMPARE(growing ? growing->text() : field->text(), text);
    QCOMPARE(open.property(key.toLatin1()) == before, !reason.isEmpty());
    QCOMPARE(window.undo.stack()->count(), reason.isEmpty() ? 1 : 0);
}

void tst_EditorProperties::stepsStopAtWhatThePropertyTakes()
{
    Open open;
    open.byte = 254;
    EditorWindow window(0);
    auto made = std::make_unique<ZelInspectorNumberProperty>(window.owner.get());
    made->setKeyPath(QStringLiteral("people.selection.byte"));
    made->increment = 10;
    const auto *editor = window.install(std::move(made));
    window.owner->controller.setSelectedObjects({&open});
    editor->stepper()->stepBy(1);
    QCOMPARE(open.byte, uchar(255));
    editor->stepper()->stepBy(-26);
    QCOMPARE(open.byte, uchar(0));
    QCOMPARE(editor->textField()->text(), QStringLiteral("0"));
}

QTEST_MAIN(tst_EditorProperties)
#include "tst_EditorProperties.moc"
