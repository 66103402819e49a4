// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorFontProperty.h"

#include "Controls/ZelPopover.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Resources/ZelLocalizedString.h"
#include "Resources/ZelNamedImages.h"
#include "Resources/private/ZelDrawnIconEngine.h"
#include "Text/ZelFontManager.h"

#include <QPainter>
#include <cmath>
#include <limits>

namespace {

constexpr QMargins g_buttonRoom{0, 0, 20, 0};
constexpr int g_popoverWidth = 245;
constexpr double g_leastSize = 1;

std::optional<QFont> fontOf(const QVariant &value)
{
    if (value.typeId() != QMetaType::QFont)
        return std::nullopt;
    return value.value<QFont>();
}

bool hasNoTarget(const QVariant &value)
{
    return ZelIsMarker(value, ZelNoSelectionMarker) || ZelIsMarker(value, ZelNotApplicableMarker);
}

/// Draws a letter that fills the rectangle.
void drawLetter(QPainter *painter, const QRect &rect)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / 14.0, rect.height() / 14.0);
    painter->setPen(QPen(Qt::black, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(QPolygonF{QPointF(2.5, 11.5), QPointF(7, 2), QPointF(11.5, 11.5)});
    painter->drawLine(QPointF(4.2, 8.2), QPointF(9.8, 8.2));
}

QIcon pickerImage()
{
    const QString name = QStringLiteral("ZelFontPickerButton");
    QIcon image = ZelNamedImages::imageNamed(name);
    if (image.isNull()) {
        image = ZelNamedImages::templateImage(QIcon(new ZelDrawnIconEngine(&drawLetter)));
        ZelNamedImages::setImageForName(image, name);
    }
    return image;
}

} // namespace

ZelInspectorFontProperty::ZelInspectorFontProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

ZelInspectorFontProperty::~ZelInspectorFontProperty()
{
    uninstall();
    delete m_popover;
}

void ZelInspectorFontProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    placeholder = configuration.localizedStringValueNamed(u"placeholder");
}

// Value

QVariant ZelInspectorFontProperty::fontSize() const
{
    const QVariant value = reflectedValue();
    if (const auto font = fontOf(value))
        return ZelFontManager::sizeOf(*font);
    return ZelIsControllerMarker(value) ? value : QVariant();
}

QStringList ZelInspectorFontProperty::searchTexts() const
{
    return {ZelLocalizedString("Font"), ZelLocalizedString("Size"),
            keyPathByStripingControllerSelectionPrefix(keyPath()) + QStringLiteral(".size")};
}

QString ZelInspectorFontProperty::refusalOfPart(const QString &keyPath, const QVariant &value) const
{
    if (keyPath != u"fontSize")
        return {};
    const auto font = fontOf(reflectedValue());
    const double size = value.toDouble();
    return refusalOf(font ? ZelFontManager::convertFontToSize(*font, size) : ZelFontManager::systemFontOfSize(size));
}

void ZelInspectorFontProperty::setFontSize(const QVariant &size)
{
    if (const ZelNumberChange *change = ZelNumberChange::of(size)) {
        changeFontSizes(*change);
        return;
    }
    bool isNumber = !ZelIsControllerMarker(size);
    const double number = isNumber ? size.toDouble(&isNumber) : 0;
    // "Not above 0" also holds for NaN.
    if (!isNumber || !(number > 0) || hasNoTarget(reflectedValue()))
        return;
    const auto font = fontOf(reflectedValue());
    const QPointer<ZelInspectorFontProperty> alive(this);
    setReflectedValue(font ? ZelFontManager::convertFontToSize(*font, number)
                           : ZelFontManager::systemFontOfSize(number));
    if (alive)
        updateViewInvocation().schedule(); // the model may have stored something else
}

void ZelInspectorFontProperty::changeFontSizes(const ZelNumberChange &change)
{
    const QPointer<ZelInspectorFontProperty> alive(this);
    updateReflectedValues([change, count = objectCount(), place = qsizetype(0)](const QVariant &value) mutable {
        const auto font = fontOf(value);
        const double own = font ? ZelFontManager::sizeOf(*font) : std::numeric_limits<double>::quiet_NaN();
        const double size = change.number(own, place++, count);
        return font && std::isfinite(size) && size > 0 ? QVariant(ZelFontManager::convertFontToSize(*font, size))
                                                       : value;
    });
    if (alive)
        updateViewInvocation().schedule(); // the model may have stored something else
}

qsizetype ZelInspectorFontProperty::objectCount() const
{
    const bool isSelection = keyPathHasControllerSelectionPrefix(keyPath());
    return isSelection ? representedObjectsForControllerSelectionKeyPath(keyPath()).size() : 1;
}

/// Why sizes that are made of the objects' own ones are refused, as a text for people; null if they are not.
QString ZelInspectorFontProperty::refusalOfSize(const QVariant &size) const
{
    const ZelNumberChange *change = ZelNumberChange::of(size);
    if (!change)
        return {};
    const qsizetype count = objectCount();
    qsizetype place = 0;
    qsizetype refusing = 0;
    combinedReflectedValue([&](const QVariant &value) {
        const auto font = fontOf(value);
        const double number = font ? change->number(ZelFontManager::sizeOf(*font), place, count) : g_leastSize;
        refusing += number >= g_leastSize && std::isfinite(number) ? 0 : 1;
        ++place;
        return QVariant();
    });
    const QString reason = ZelLocalizedString("The least value is %1.").arg(g_leastSize);
    return refusing == 0 ? QString()
           : count == 1  ? reason
                        : ZelLocalizedString("%1 This concerns %2 of %3 objects.").arg(reason).arg(refusing).arg(count);
}

/// The font to be changed; the system font if there is no single one.
QFont ZelInspectorFontProperty::currentFont() const
{
    return fontOf(reflectedValue()).value_or(ZelFontManager::platformFont(ZelFontManager::SystemFont));
}

void ZelInspectorFontProperty::writeFont(const QFont &font, QObject *sender)
{
    const QPointer<ZelInspectorFontProperty> alive(this);
    setReflectedValue(font);
    if (alive)
        userDidChangeValue(sender);
}

QString ZelInspectorFontProperty::textForValue(const QVariant &value) const
{
    const auto font = fontOf(value);
    return font ? description(*font) : ZelInspectorProperty::textForValue(value);
}

// View

void ZelInspectorFontProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_textField = new ZelPaddedTextField(container);
    m_textField->setSelectable(false);
    m_textField->setEditable(false);
    m_textField->setPadding(g_buttonRoom);
    ZelEditorLayout::setName(m_textField, title());
    ZelEditorLayout::setStretches(m_textField, 1);
    m_button = new ZelActionBarButton(container);
    m_button->setIcon(pickerImage());
    m_button->setAccessibleName(ZelLocalizedString("Font"));
    connect(m_button, &QAbstractButton::clicked, this,
            [this] { ZelExceptionReporter::run(this, [this] { selectPopover(m_button); }); });
    m_stepper = new ZelStepper(container);
    m_stepper->setMinValue(g_leastSize);
    m_stepper->setFocusPolicy(Qt::ClickFocus);
    m_stepper->setAccessibleName(ZelLocalizedString("Size"));
    connect(m_stepper, &ZelStepper::action, this, [this] { setFontSize(m_stepper->objectValue()); });
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    layOut(container);
    delete m_popover; // it showed the value for a former view
}

void ZelInspectorFontProperty::layOut(ZelView *container)
{
    const QHash<QString, QWidget *> views{{QStringLiteral("textField"), m_textField},
                                          {QStringLiteral("button"), m_button},
                                          {QStringLiteral("stepper"), m_stepper}};
    for (const QString &format :
         {QStringLiteral("H:|-2-[textField]-1-[stepper]-2-|"), QStringLiteral("V:|-2-[stepper]"),
          QStringLiteral("V:|-2-[button(==17)]"), QStringLiteral("H:[button(==16)]-4-[stepper]")})
        container->addConstraintsWithVisualFormat(format, views);
    ZelEditorLayout::layOutVertically(container, m_textField, m_label);
}

// Popover

/// The popover is made when it is first needed: the menu of all families costs more than the rest of the editor, and
/// most editors are never asked for it.
void ZelInspectorFontProperty::makePopover()
{
    if (m_popover || !isViewLoaded())
        return;
    m_popover = new ZelPopover(this);
    m_popoverView = new ZelFontPopoverView;
    m_popover->setContentWidget(m_popoverView);
    m_popover->setContentSize({g_popoverWidth, 0});
    connectPopoverView();
    if (isViewInstalled())
        showValueInPopover();
}

void ZelInspectorFontProperty::connectPopoverView()
{
    ZelFontPopoverView *view = m_popoverView;
    view->fontFamilyPopUpButton()->setItemMarks([editor = QPointer<ZelInspectorFontProperty>(this)] {
        return editor ? editor->marksOfUsed(editor->fontFamilyPopUpButton(), &ZelFontManager::availableFamilyOf)
                      : ZelPopUpButton::ItemMarks();
    });
    view->fontStylePopUpButton()->setItemMarks([editor = QPointer<ZelInspectorFontProperty>(this)] {
        return editor ? editor->marksOfUsed(editor->fontStylePopUpButton(), &ZelFontManager::faceOf)
                      : ZelPopUpButton::ItemMarks();
    });
    connect(view->fontPopUpButton(), &ZelPopUpButton::action, this,
            [this, view] { selectFont(view->fontPopUpButton()); });
    connect(view->fontFamilyPopUpButton(), &ZelPopUpButton::action, this,
            [this, view] { selectFontFamily(view->fontFamilyPopUpButton()); });
    connect(view->fontStylePopUpButton(), &ZelPopUpButton::action, this,
            [this, view] { selectFontFace(view->fontStylePopUpButton()); });
    view->fontSizeTextField()->setValueCheck([editor = QPointer<ZelInspectorFontProperty>(this)](const QVariant &size) {
        return editor ? editor->refusalOfSize(size) : QString();
    });
    connect(view->fontSizeTextField(), &ZelTextField::action, this,
            [this, view] { setFontSize(view->fontSizeTextField()->objectValue()); });
    connect(view->fontSizeStepper(), &ZelStepper::action, this,
            [this, view] { setFontSize(view->fontSizeStepper()->objectValue()); });
    connect(view->doneButton(), &QAbstractButton::clicked, this,
            [this, view] { ZelExceptionReporter::run(this, [this, view] { selectDone(view->doneButton()); }); });
}

/// A check mark for a name that all selected fonts have, and dashes for those that some have.
ZelPopUpButton::ItemMarks ZelInspectorFontProperty::marksOfUsed(const ZelPopUpButton *button,
                                                                QString (*nameOf)(const QFont &)) const
{
    const ZelPlaceScope scope(this);
    const ZelValueSummary names = valueSummary().mapped([nameOf](const QVariant &value) {
        const auto font = fontOf(value);
        return font ? QVariant(nameOf(*font)) : QVariant();
    });
    ZelPopUpButton::ItemMarks marks;
    const QList<QAction *> items = button ? button->items() : QList<QAction *>();
    for (const QAction *item : items) {
        const qsizetype count = ZelIsControllerMarker(item->data()) ? 0 : names.countOf(item->data());
        if (count > 0)
            marks.insert(item, count < names.objectCount() ? Qt::PartiallyChecked : Qt::Checked);
    }
    return marks;
}

ZelPopover *ZelInspectorFontProperty::popover()
{
    makePopover();
    return m_popover;
}

ZelFontPopoverView *ZelInspectorFontProperty::popoverView()
{
    makePopover();
    return m_popoverView;
}

QStringList ZelInspectorFontProperty::fontFamilies()
{
    return popoverView() ? m_popoverView->fontFamilies() : QStringList();
}

QStringList ZelInspectorFontProperty::fontFaces()
{
    return popoverView() ? m_popoverView->fontFaces() : QStringList();
}

void ZelInspectorFontProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_textField);
    bindEnabledKeyPathToControl(m_stepper);
    observeForUpdate(enabledKeyPath()); // the button's state depends on the value, too, so it is not bound
    observeForUpdate(keyPath());
    updateView();
}

void ZelInspectorFontProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    if (m_popover)
        m_popover->performClose();
}

bool ZelInspectorFontProperty::contains(const QWidget *control) const
{
    return (m_popoverView && m_popoverView->isAncestorOf(control)) || ZelInspectorProperty::contains(control);
}

bool ZelInspectorFontProperty::commitEditing()
{
    const QPointer<ZelInspectorFontProperty> alive(this);
    if (m_popoverView && !m_popoverView->fontSizeTextField()->commitEditing())
        return false;
    return !alive || ZelInspectorProperty::commitEditing();
}

void ZelInspectorFontProperty::discardEditing()
{
    if (m_popoverView)
        m_popoverView->fontSizeTextField()->discardEditing();
    ZelInspectorProperty::discardEditing();
}

void ZelInspectorFontProperty::updateView()
{
    if (!m_textField)
        return;
    const QPointer<ZelInspectorFontProperty> alive(this);
    Q_EMIT fontSizeChanged();
    if (!alive)
        return;
    const QVariant size = fontSize();
    m_stepper->setObjectValue(size);
    const QVariant value = reflectedValue();
    const bool canWrite = isWritable();
    m_stepper->setEditable(!hasNoTarget(size) && canWrite);
    m_stepper->setHidden(isReadOnly() || (!hasNoTarget(size) && !canWrite));
    const bool isMultiple = ZelIsMarker(value, ZelMultipleValuesMarker);
    const auto font = fontOf(value);
    m_button->setEnabled((isMultiple || font) && canWrite && isEffectivelyEnabled());
    m_textField->setDimmed(!font);
    if (font)
        m_textField->setObjectValue(description(*font));
    else if (isMultiple)
        m_textField->setObjectValue(ZelLocalizedString("Multiple Fonts"));
    else
        m_textField->setObjectValue(ZelIsNull(value) && !placeholder.isEmpty() ? placeholder
                                                                               : ZelLocalizedString("No Font"));
    if (m_popoverView)
        showValueInPopover();
}

void ZelInspectorFontProperty::showValueInPopover()
{
    const QVariant size = fontSize();
    ZelTextField *field = m_popoverView->fontSizeTextField();
    field->setNullPlaceholder(
        ZelLocalizedString(ZelIsMarker(size, ZelMultipleValuesMarker) ? "Multiple Sizes" : "No Size"));
    field->setObjectValue(ZelIsControllerMarker(size) ? QVariant() : size);
    field->setEditable(!hasNoTarget(size));
    m_popoverView->fontSizeStepper()->setObjectValue(size);
    m_popoverView->fontSizeStepper()->setEditable(!hasNoTarget(size));
    const QVariant value = reflectedValue();
    if (m_platformFont.isValid() && ZelNotEqual(value, m_platformFont)) // undone, or changed elsewhere
        selectCustomFont();
    if (const auto font = fontOf(value)) {
        m_popoverView->setFontFaces(ZelFontManager::availableFacesOfFamily(ZelFontManager::familyOf(*font)));
        m_popoverView->selectFamilyAndFace(ZelFontManager::availableFamilyOf(*font), ZelFontManager::faceOf(*font));
    } else if (ZelIsMarker(value, ZelMultipleValuesMarker)) {
        m_popoverView->selectMultiple();
    } else {
        m_popoverView->selectFamilyAndFace({}, {});
    }
}

/// Family, face unless it is the regular one, and size.
QString ZelInspectorFontProperty::description(const QFont &font)
{
    const QString face = ZelFontManager::faceOf(font);
    QString text = ZelFontManager::familyOf(font);
    if (face != QStringLiteral("Regular"))
        text += u' ' + face;
    return text + u' ' + QString::number(std::nearbyint(float(ZelFontManager::sizeOf(font))), 'f', 0); // half to even
}

// Actions

void ZelInspectorFontProperty::selectPopover(QObject *sender)
{
    auto *widget = qobject_cast<QWidget *>(sender);
    if (!widget || !popoverView())
        return;
    selectCustomFont();
    m_popover->showRelativeToRect({}, widget, Qt::BottomEdge);
}

void ZelInspectorFontProperty::selectCustomFont()
{
    m_platformFont.clear();
    m_popoverView->selectCustom();
    m_popoverView->setDetailsEnabled(true);
}

void ZelInspectorFontProperty::selectFont(QObject *sender)
{
    if (!popoverView())
        return;
    const QAction *item = m_popoverView->fontPopUpButton()->selectedItem();
    const QVariant font = item ? item->data() : QVariant();
    const QPointer<ZelInspectorFontProperty> alive(this);
    if (font.isValid())
        setReflectedValue(ZelFontManager::platformFont(ZelFontManager::PlatformFont(font.toInt())));
    if (!alive || !m_popoverView)
        return;
    m_platformFont = font.isValid() ? reflectedValue() : QVariant();
    m_popoverView->setDetailsEnabled(!font.isValid());
    userDidChangeValue(sender);
}

/// The name of the family or face that is selected; null for the items that stand for none or several.
QString ZelInspectorFontProperty::selectedName(const ZelPopUpButton *button)
{
    const QVariant value = button ? button->objectValue() : QVariant();
    return ZelIsControllerMarker(value) ? QString() : value.toString();
}

void ZelInspectorFontProperty::selectFontFamily(QObject *sender)
{
    const QString family = selectedName(fontFamilyPopUpButton());
    if (!family.isEmpty()) // otherwise the item stands for none or several
        writeFont(ZelFontManager::convertFontToFamily(currentFont(), family), sender);
}

void ZelInspectorFontProperty::selectFontFace(QObject *sender)
{
    const QString face = selectedName(fontStylePopUpButton());
    const QFont font = currentFont();
    if (!face.isEmpty())
        writeFont(ZelFontManager::convertFontToFace(font, ZelFontManager::familyOf(font), face), sender);
}

void ZelInspectorFontProperty::selectDone(QObject *)
{
    if (m_popover)
        m_popover->performClose();
}

QWidget *ZelInspectorFontProperty::viewForBaselineAlignment()
{
    view();
    return m_textField;
}
