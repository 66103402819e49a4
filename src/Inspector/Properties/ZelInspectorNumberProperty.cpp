// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorNumberProperty.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelExactInteger.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/ZelUnitNumberFormatter.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Inspector/Properties/private/ZelNumberScrubber.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelView.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const char g_valuesContext = 0; // of the bindings of the controls' values
constexpr double g_largest = std::numeric_limits<double>::max();
constexpr int g_maximumFractionDigits[] = {3, 2}; // by format style

} // namespace

ZelInspectorNumberProperty::ZelInspectorNumberProperty(QObject *owner)
    : ZelInspectorProperty(owner)
    , maximum(g_largest)
    , minimum(-g_largest)
{
}

void ZelInspectorNumberProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    placeholder = configuration.localizedStringValueNamed(u"placeholder");
    minimum = configuration.doubleValueNamed(u"minimum", 0);
    m_impliesMinimum = !configuration.hasValueNamed(u"minimum");
    minimumKeyPath = configuration.keyPathValueNamed(u"minimumKeyPath");
    maximum = configuration.doubleValueNamed(u"maximum", double(std::numeric_limits<float>::max()));
    m_impliesMaximum = !configuration.hasValueNamed(u"maximum");
    maximumKeyPath = configuration.keyPathValueNamed(u"maximumKeyPath");
    wraps = configuration.booleanValueNamed(u"wraps", false);
    increment = configuration.doubleValueNamed(u"increment", 1);
    incrementKeyPath = configuration.keyPathValueNamed(u"incrementKeyPath");
    slidesInSteps = configuration.hasValueNamed(u"increment") || configuration.hasValueNamed(u"incrementKeyPath");
    nilValueControlIsOffWhenNil = configuration.booleanValueNamed(u"nilValueControlIsOffWhenNil", true);
    nonNilValueKeyPath = configuration.keyPathValueNamed(u"nonNilValueKeyPath");
    nonNilValueTitle = configuration.localizedStringValueNamed(u"nonNilValueTitle");
    ZelEditorAttributes::storeFormatStyle(formatStyle, configuration);
    formatUnit = configuration.stringValueNamed(u"formatUnit");
    expressions = configuration.booleanValueNamed(u"expressions", true);
    ZelEditorAttributes::storeWord(sliderType, configuration, u"slider",
                                   {QStringLiteral("none"), QStringLiteral("circular"), QStringLiteral("linear")},
                                   QStringLiteral("Unsupported value: "));
}

ZelInspectorNumberProperty::~ZelInspectorNumberProperty()
{
    uninstall();
}

std::optional<double> ZelInspectorNumberProperty::numberOf(const QVariant &value)
{
    return ZelIsNumber(value) ? std::optional(value.toDouble()) : std::nullopt;
}

void ZelInspectorNumberProperty::loadView()
{
    ZelView *outer = makeEditorView();
    ZelView *container = nonNilValueTitle.isEmpty() ? outer : new ZelView(outer);
    if (!ZelCheck(sliderType <= LinearSlider, QStringLiteral("Unexpected case")))
        sliderType = NoSlider;
    if (sliderType == LinearSlider)
        addSlider(container); // before the text field in the order of tabs, as on screen
    addTextField(container);
    if (usesStepper())
        addStepper(container);
    if (sliderType == CircularSlider)
        addSlider(container);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    letTitleScrub(m_label, this);
    layOut(container);
    if (!nonNilValueTitle.isEmpty())
        addNonNilCheckbox(outer, container);
}

void ZelInspectorNumberProperty::letTitleScrub(QWidget *title, ZelInspectorNumberProperty *editor)
{
    if (!title)
        return;
    delete title->findChild<ZelNumberScrubber *>(QString(), Qt::FindDirectChildrenOnly);
    if (editor)
        new ZelNumberScrubber(title, editor);
}

void ZelInspectorNumberProperty::addTextField(ZelView *container)
{
    const auto formatter = std::make_shared<ZelUnitNumberFormatter>();
    formatter->setUnit(formatUnit);
    formatter->setMaximumFractionDigits(g_maximumFractionDigits[formatStyle == DecimalStyle]);
    formatter->setUsesGroupSeparator(true);
    formatter->setReadsExpressions(expressions);
    if (wraps) {
        formatter->setAdjustment([editor = QPointer<ZelInspectorNumberProperty>(this)](double number) {
            return editor && editor->m_textField ? editor->m_textField->stepFunction()(number, 0) : number;
        });
    }
    m_textField = new ZelTextField(container);
    m_textField->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_textField->setFormatter(formatter);
    m_textField->setValueCheck([editor = QPointer<ZelInspectorNumberProperty>(this)](const QVariant &value) {
        return editor ? editor->refusalOfTyped(value) : QString();
    });
    ZelEditorLayout::setName(m_textField, title());
    ZelEditorLayout::setStretches(m_textField, 1);
    connect(m_textField, &ZelTextField::action, this, [this] { userDidChangeValue(m_textField); });
}

/// A calculation, or digits with a fraction or an exponent, is read as a double, which may not hold an integer of 64
/// bits.
QString ZelInspectorNumberProperty::refusalOfTyped(const QVariant &value) const
{
    const auto types = ZelPropertyDomain::ofKeyPath(owner(), keyPath()).types();
    const bool isWide = std::any_of(types.begin(), types.end(), &ZelExactInteger::isWide);
    const bool isInexact = isWide && !valueTransformer() && value.typeId() == QMetaType::Double &&
                           ZelExactInteger::isInexact(value.toDouble());
    return isInexact ? ZelLocalizedString("A number of this size must be typed with all its digits.")
                     : refusalOfShown(value);
}

/// The limits of the model's property.
std::optional<ZelValueRange> ZelInspectorNumberProperty::modelRange() const
{
    const auto limits = ZelPropertyDomain::ofKeyPath(owner(), keyPath()).limits();
    return limits.isValid() ? std::optional(ZelValueRange{limits.minimum.toDouble(), limits.maximum.toDouble()})
                            : std::nullopt;
}

void ZelInspectorNumberProperty::addStepper(ZelView *container)
{
    m_stepper = new ZelStepper(container);
    m_stepper->setField(m_textField);
    ZelEditorLayout::setName(m_stepper, title());
    m_stepper->setModelRange(
        [editor = QPointer<ZelInspectorNumberProperty>(this)] { return editor ? editor->modelRange() : std::nullopt; });
    connect(m_stepper, &ZelStepper::action, this, [this] { userDidChangeValue(m_stepper); });
}

void ZelInspectorNumberProperty::addSlider(ZelView *container)
{
    m_slider = new ZelSlider(sliderType == CircularSlider ? ZelSlider::Circular : ZelSlider::Linear, container);
    m_slider->setMinValue(0);
    m_slider->setMaxValue(10);
    ZelEditorLayout::setName(m_slider, title());
    m_slider->setModelRange(
        [editor = QPointer<ZelInspectorNumberProperty>(this)] { return editor ? editor->modelRange() : std::nullopt; });
    connect(m_slider, &ZelSlider::action, this, [this] { userDidChangeValue(m_slider); });
}

void ZelInspectorNumberProperty::layOut(ZelView *container)
{
    static const QStringList formats[] = {
        {QStringLiteral("H:|-2-[textField]-1-[stepper]-2-|"), QStringLiteral("V:|-2-[stepper]")},
        {QStringLiteral("H:|-2-[textField]-3-[slider]-2-|"), QStringLiteral("V:|-2-[slider]")},
        {QStringLiteral("H:|-2-[slider]-[textField]-1-[stepper]-2-|"), QStringLiteral("V:|-2-[slider(20)]"),
         QStringLiteral("V:|-2-[stepper]")},
    };
    const QHash<QString, QWidget *> views{{QStringLiteral("textField"), m_textField},
                                          {QStringLiteral("stepper"), m_stepper},
                                          {QStringLiteral("slider"), m_slider}};
    ZelEditorLayout::layOutVertically(container, m_textField, m_label);
    for (const QString &format : formats[sliderType])
        container->addConstraintsWithVisualFormat(format, views);
    if (sliderType == LinearSlider) {
        container->addConstraint(ZelLayoutConstraint::constraintWithItem(m_slider, ZelLayoutConstraint::Trailing,
                                                                         ZelLayoutConstraint::Equal, container,
                                                                         ZelLayoutConstraint::CenterX, 1, -4));
    }
}

/// Puts the checkbox beside what was built so far, which becomes the left half.
void ZelInspectorNumberProperty::addNonNilCheckbox(ZelView *container, ZelView *content)
{
    m_nonNillCheckbox = new ZelCheckBox(nonNilValueTitle, container);
    ZelEditorLayout::setStretches(m_nonNillCheckbox);
    const QHash<QString, QWidget *> views{{QStringLiteral("contentView"), content},
                                          {QStringLiteral("nonNillCheckbox"), m_nonNillCheckbox}};
    for (const QString &format :
         {QStringLiteral("H:|[contentView]-6-[nonNillCheckbox]-2-|"), QStringLiteral("V:|[contentView]|"),
          QStringLiteral("V:|-0@250-[nonNillCheckbox]-0@250-|")})
        container->addConstraintsWithVisualFormat(format, views);
    container->addConstraint(ZelLayoutConstraint::constraintWithItem(m_nonNillCheckbox, ZelLayoutConstraint::Width,
                                                                     ZelLayoutConstraint::Equal, content,
                                                                     ZelLayoutConstraint::Width, 1, -4));
    container->addConstraint(ZelLayoutConstraint::constraintWithItem(m_nonNillCheckbox, ZelLayoutConstraint::Baseline,
                                                                     ZelLayoutConstraint::Equal, m_textField,
                                                                     ZelLayoutConstraint::Baseline));
    connect(m_nonNillCheckbox, &ZelCheckBox::action, this, [this] { toggleNilValue(m_nonNillCheckbox); });
}

QString ZelInspectorNumberProperty::textForValue(const QVariant &value) const
{
    const QString text = ZelIsNull(value) ? placeholder
                         : m_textField    ? m_textField->formatter()->stringForObjectValue(value)
                                          : QString();
    return text.isEmpty() ? ZelInspectorProperty::textForValue(value) : text;
}

void ZelInspectorNumberProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_textField);
    bindEnabledKeyPathToControl(m_stepper);
    bindEnabledKeyPathToControl(m_slider);
    bindLimits();
    bindValues();
    if (m_nonNillCheckbox)
        observeForUpdate(keyPath());
    updateView();
}

void ZelInspectorNumberProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_valuesContext);
}

/// The least difference that the field shows, in the model's unit.
double ZelInspectorNumberProperty::lastDigit() const
{
    const double shown = std::pow(10, -g_maximumFractionDigits[formatStyle == DecimalStyle]);
    const ZelValueTransformerPtr &transformer = valueTransformer();
    if (!transformer || !transformer->allowsReverseTransformation())
        return shown;
    const double inModel = std::abs(transformer->reverseTransformedValue(shown).toDouble() -
                                    transformer->reverseTransformedValue(0.0).toDouble());
    return std::isfinite(inModel) ? inModel : 0;
}

void ZelInspectorNumberProperty::bindLimits()
{
    const QString missing = QStringLiteral("Missing minimum value for number property with slider");
    ZelCheck(!m_slider || minimum, missing);
    ZelCheck(!m_slider || maximum, missing);
    if (m_textField) {
        m_textField->setMinValue(minimum.value_or(-g_largest));
        m_textField->setMaxValue(maximum.value_or(g_largest));
        m_textField->setIncrement(increment.value_or(1));
        m_textField->setStepTransformer(valueTransformer());
        m_textField->setWraps(wraps);
    }
    if (m_stepper) {
        m_stepper->setMinValue(minimum.value_or(-g_largest));
        m_stepper->setMaxValue(maximum.value_or(g_largest));
        m_stepper->setValueWraps(wraps);
        if (increment)
            m_stepper->setIncrement(*increment);
    }
    if (m_slider) {
        m_slider->setMinValue(minimum.value_or(m_slider->minValue()));
        m_slider->setMaxValue(maximum.value_or(m_slider->maxValue()));
        m_slider->setIncrement(slidesInSteps ? increment.value_or(0) : 0);
        m_slider->setResolution(lastDigit());
    }
    const auto bind = [this](QWidget *control, const QString &binding, const QString &keyPath) {
        if (control && owner() && !keyPath.isEmpty())
            ZelObservations(this).addBindingWithObject(control, binding, owner(), keyPath, {}, &ZelInstalledContext);
    };
    bind(m_textField, ZelMinValueBinding, minimumKeyPath);
    bind(m_textField, ZelMaxValueBinding, maximumKeyPath);
    bind(m_textField, ZelIncrementBinding, incrementKeyPath);
    bind(m_stepper, ZelMinValueBinding, minimumKeyPath);
    bind(m_slider, ZelMinValueBinding, minimumKeyPath);
    bind(m_stepper, ZelMaxValueBinding, maximumKeyPath);
    bind(m_slider, ZelMaxValueBinding, maximumKeyPath);
    bind(m_stepper, ZelIncrementBinding, incrementKeyPath);
    if (slidesInSteps)
        bind(m_slider, ZelIncrementBinding, incrementKeyPath);
}

void ZelInspectorNumberProperty::bindValues()
{
    m_isBoundReadOnly = isReadOnly();
    ZelBindingOptions options;
    bindValue(m_slider, options);
    options.insert(ZelHidesIfReadOnlyBindingOption, true);
    bindValue(m_stepper, options);
    options.remove(ZelHidesIfReadOnlyBindingOption);
    if (!placeholder.isNull())
        options.insert(ZelNullPlaceholderBindingOption, placeholder);
    if (valueTransformer())
        options.insert(ZelValueTransformerBindingOption, QVariant::fromValue(valueTransformer()));
    bindValue(m_textField, options);
    if (m_isBoundReadOnly && m_stepper)
        m_stepper->hide();
}

/// The binding makes the control editable or not, except in a read-only editor, where the editor does.
void ZelInspectorNumberProperty::bindValue(QWidget *control, ZelBindingOptions options)
{
    if (!control || keyPath().isEmpty() || !owner())
        return;
    if (m_isBoundReadOnly)
        options.remove(ZelHidesIfReadOnlyBindingOption);
    else
        options.insert(ZelConditionallySetsEditableBindingOption, true);
    ZelObservations(this).addBindingWithObject(control, ZelValueBinding, owner(), keyPath(), options, &g_valuesContext);
    if (m_isBoundReadOnly)
        control->setProperty("editable", false);
}

void ZelInspectorNumberProperty::updateView()
{
    if (isReadOnly() != m_isBoundReadOnly) {
        ZelObservations(this).removeAllObservationsForContext(&g_valuesContext);
        bindValues();
    }
    if (!m_nonNillCheckbox)
        return; // the other controls follow their bindings
    const QVariant value = reflectedValue();
    const bool isMixed = ZelIsMarker(value, ZelMultipleValuesMarker);
    m_nonNillCheckbox->setEnabled((isMixed || !ZelIsControllerMarker(value)) && isWritable());
    if (ZelIsControllerMarker(value))
        m_nonNillCheckbox->setObjectValue(isMixed ? value : QVariant(false));
    else
        m_nonNillCheckbox->setObjectValue(ZelIsNull(value) != nilValueControlIsOffWhenNil);
}

void ZelInspectorNumberProperty::toggleNilValue(QObject *sender)
{
    if (!m_nonNillCheckbox)
        return;
    if (m_nonNillCheckbox->checkState() == Qt::PartiallyChecked)
        m_nonNillCheckbox->setCheckState(Qt::Checked);
    const bool isOn = m_nonNillCheckbox->checkState() == Qt::Checked;
    const bool wantsValue = isOn == nilValueControlIsOffWhenNil;
    const QPointer<ZelInspectorNumberProperty> alive(this);
    setReflectedValue(wantsValue ? ZelValueForKeyPath(owner(), nonNilValueKeyPath) : QVariant());
    if (alive)
        userDidChangeValue(sender);
}

/// The limits that a description does not give, because they are the usual ones, hold for steps only.
QString ZelInspectorNumberProperty::refusalOfResult(double number) const
{
    if (wraps || !m_textField)
        return {};
    const ZelValueTransformerPtr &transformer = valueTransformer();
    const bool isReversible = transformer && transformer->allowsReverseTransformation();
    const double inModel = isReversible ? transformer->reverseTransformedValue(number).toDouble() : number;
    const bool hasMinimum = !m_impliesMinimum || !minimumKeyPath.isEmpty();
    const bool hasMaximum = !m_impliesMaximum || !maximumKeyPath.isEmpty();
    const bool isAbove = hasMaximum && inModel > m_textField->maxValue();
    if (!isAbove && !(hasMinimum && inModel < m_textField->minValue()))
        return {};
    const QVariant limit = isAbove ? m_textField->maxValue() : m_textField->minValue();
    const QVariant shown = transformer ? transformer->transformedValue(limit) : limit;
    return ZelLocalizedString(number > shown.toDouble() ? "The greatest value is %1." : "The least value is %1.")
        .arg(m_textField->formatter()->stringForObjectValue(shown));
}

QString ZelInspectorNumberProperty::textOfValue(const QVariant &modelValue) const
{
    if (!m_textField || !m_textField->formatter())
        return ZelInspectorProperty::textOfValue(modelValue);
    const QString text = m_textField->formatter()->stringForObjectValue(transformedForward(modelValue));
    return text.isEmpty() && ZelIsNull(modelValue) ? placeholder : text;
}

bool ZelInspectorNumberProperty::readText(const QString &text, QVariant *modelValue, QString *error) const
{
    QVariant number;
    if (!m_textField || !m_textField->formatter())
        return ZelInspectorProperty::readText(text, modelValue, error);
    if (!m_textField->formatter()->objectValueForString(text, &number, error))
        return false;
    *modelValue = transformedBack(number);
    return true;
}

QList<QWidget *> ZelInspectorNumberProperty::controlsNamedByRow()
{
    view();
    return {m_textField, m_stepper, m_slider};
}

QWidget *ZelInspectorNumberProperty::viewForBaselineAlignment()
{
    view();
    return m_textField;
}

bool ZelInspectorNumberProperty::canTileIntoColumnsWithWidth(double width)
{
    view();
    const QWidget *beside = sliderType == CircularSlider ? static_cast<QWidget *>(m_slider) : m_stepper;
    if (sliderType == LinearSlider || !beside)
        return false;
    const double gaps = sliderType == CircularSlider ? 7 : 5;
    return width * 0.5 > beside->sizeHint().width() + m_textField->sizeHint().width() + gaps;
}

bool ZelInspectorNumberProperty::canTileIntoColumnsWithProperty(const ZelInspectorProperty *other) const
{
    return sliderType != LinearSlider && nonNilValueTitle.isEmpty() &&
           ZelInspectorProperty::canTileIntoColumnsWithProperty(other);
}
