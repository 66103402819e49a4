// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "EndToEnd/FigureSheet.h"
#include "Inspector/Properties/ZelInspectorActionProperty.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"
#include "Support/Recorder.h"

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
    Q_PROPERTY(QSizeF size MEMBER size CONSTANT)
public:
    int flags = 1;
    QString name;
    QDate day;
    QColor fill;
    QFont font;
    QStringList tags{"a"};
    QRectF frame;
    QPointF place;
    QSizeF size;
};

template<typename... Editors> QList<ZelInspectorProperty *(*)(QObject *owner)> makers()
{
    return {[](QObject *owner) -> ZelInspectorProperty * { return new Editors(owner); }...};
}

const auto g_makers =
    makers<ZelInspectorCustomProperty, ZelInspectorNumberProperty, ZelInspectorTextEnumerationProperty,
           ZelInspectorImageEnumerationProperty, ZelInspectorPointProperty, ZelInspectorSizeProperty,
           ZelInspectorBoundsProperty, ZelInspectorBooleanProperty, ZelInspectorStringProperty,
           ZelInspectorDateProperty, ZelInspectorColorProperty, ZelInspectorResourceProperty,
           ZelInspectorActionProperty, ZelInspectorMenuActionProperty, ZelInspectorFontProperty,
           ZelInspectorArrayProperty, ZelInspectorAttributedStringProperty>();

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

/// All editors of values, which are enabled while the owner is unlocked.
struct Window : Sheet
{
    Window()
        : Sheet(described("flags", "number", "slider='linear' nonNilValueTitle='Set' nonNilValueKeyPath='extra'") +
                    described("place.x", "number") + described("flags", "enumeration", options) +
                    described("flags", "enumeration", "style='segmented'" + options) +
                    described("size", "size", "nonNilValueKeyPath='extra'") + described("frame", "frame") +
                    described("flags", "boolean", "title='Bit'") + described("name", "string") +
                    described("day", "date") + described("fill", "color") + described("name", "resource") +
                    described("font", "font") + described("tags", "custom", "class='ZelInspectorArrayProperty'") +
                    described("name", "string", "attributed='yes'"),
                {340, 1400})
    {
        set(0, "flags", 1);
        for (auto *property : inspector->findChildren<ZelInspectorProperty *>()) {
            if (property->keyPath().startsWith("people.selection."))
                editors.append(property);
        }
    }
    static QByteArray described(const QByteArray &key, const QByteArray &type, const QByteArray &more = {})
    {
        return row(key, type, "enabledKeyPath='unlocked' " + more);
    }
    /// What users could change something with, by editor; a list takes input where its rows do.
    QStringList inputs(const QList<QObject *> &selection, bool isUnlocked = true)
    {
        owner->controller.setSelectedObjects(selection);
        owner->setUnlocked(isUnlocked);
        settle();
        QStringList all;
        for (ZelInspectorProperty *editor : editors) {
            QStringList names;
            for (const auto *control : editor->view()->findChildren<QWidget *>()) {
                const QVariant editable = control->property("editable");
                const bool isButton =
                    qobject_cast<const QAbstractButton *>(control) || qobject_cast<const ZelPopUpButton *>(control);
                if (!control->isHidden() && control->isEnabled() && (editable.isValid() ? editable.toBool() : isButton))
                    names.append(control->metaObject()->className());
            }
            if (const auto *list = qobject_cast<const ZelInspectorArrayProperty *>(editor)) {
                const QModelIndex cell = list->tableView()->model()->index(0, 0);
                if (list->tableView()->isEnabled() && cell.flags().testFlag(Qt::ItemIsEditable))
                    names.append("row");
            }
            if (!names.isEmpty())
                all.append(editor->metaObject()->className() + (u' ' + names.join(u' ')));
        }
        return all;
    }
    qsizetype visibleSteppers() const
    {
        const auto steppers = inspector->view()->findChildren<ZelStepper *>();
        return std::count_if(steppers.begin(), steppers.end(), [](const auto *one) { return !one->isHidden(); });
    }

    inline static const QByteArray options = "><option-group><option title='A' value='1'/></option-group>";
    QList<ZelInspectorProperty *> editors;
};
} // namespace

/// What is true of each editor.
class tst_EditorProperties : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void areReadSetAndObservedByKey()
    {
        const QMetaObject &base = ZelInspectorProperty::staticMetaObject;
        for (const auto make : g_makers) {
            EditorOwner owner;
            const std::unique_ptr<ZelInspectorProperty> editor(make(&owner));
            editor->setProperty("nonNilValueKeyPath", "extra");
            editor->view();
            const QMetaObject *meta = editor->metaObject();
            const bool isCustom = make == g_makers.first(); // which has what all have
            for (int i = isCustom ? base.propertyOffset() : base.propertyCount(); i < meta->propertyCount(); ++i) {
                const QMetaProperty property = meta->property(i);
                const QString name = property.name();
                const TableRow inRow(meta->className() + (u' ' + name));
                const QVariant before = ZelValueForKey(editor.get(), name);
                const QVariant other = property.isWritable() ? otherValue(before, property.metaType()) : QVariant();
                if (!other.isValid() || name == "fontSize") // which goes to the font
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

    /// Not without a selection, while the editor is not enabled, or where any selected object does not let them.
    void takeInputOnlyWhereTheyMayWrite()
    {
        Window window;
        Closed closed;
        Figure *open = window.figures[0].get();
        for (const bool isUnlocked : {true, false, true})
            QCOMPARE(window.inputs({}, isUnlocked), QStringList());
        const QStringList all = window.inputs({open});
        QCOMPARE(all.size(), window.editors.size());
        const qsizetype steppers = window.visibleSteppers();
        QVERIFY(steppers > 5);
        for (const QList<QObject *> &objects : {QList<QObject *>{&closed}, QList<QObject *>{open, &closed}}) {
            QCOMPARE(window.inputs(objects), QStringList());
            QCOMPARE(window.visibleSteppers(), 0);
            QCOMPARE(window.inputs({open}), all);
            QCOMPARE(window.visibleSteppers(), steppers);
        }
        const QStringList onlyToAValue{"ZelInspectorNumberProperty ZelCheckBox"}; // a way to one
        QCOMPARE(window.inputs({open}, false), onlyToAValue);
        QCOMPARE(window.inputs({open}), all);
    }

    void outliveTheirOwnerAndTheirView()
    {
        Window window;
        window.select({0, 1});
        window.owner.reset();
        for (const bool hasView : {true, false}) {
            for (ZelInspectorProperty *editor : window.editors) {
                const TableRow inRow(editor->metaObject()->className());
                if (!hasView)
                    delete editor->view();
                editor->updateView();
                editor->setReflectedValue(3);
                editor->discardEditing();
                if (auto *list = qobject_cast<ZelInspectorArrayProperty *>(editor)) {
                    list->addObject(nullptr);
                    QCOMPARE(list->numberOfRows(), 0);
                }
                Window::settle();
                QVERIFY(editor->commitEditing() && !editor->reflectedValue().isValid());
            }
        }
        QCOMPARE(window.figures[0]->tags, QStringList({"a", "b"}));
        QCOMPARE(window.stack.count(), 0);
    }
};
QTEST_MAIN(tst_EditorProperties)
#include "tst_EditorProperties.moc"
