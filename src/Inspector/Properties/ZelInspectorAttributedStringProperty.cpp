// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"

#include "Controls/private/ZelColorPanelClient.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Inspector/Properties/private/ZelParagraphStyleValues.h"
#include "Inspector/Properties/private/ZelTextFormatBar.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Resources/ZelColor.h"
#include "Text/ZelFontManager.h"
#include "ViewController/ZelView.h"
#include "Views/ZelScrollView.h"

#include <QStyle>

#include <cmath>

using String = ZelAttributedString;
using Property = ZelInspectorAttributedStringProperty;

namespace {

/// Edits the font of the text's selection, which is a property of the text editor. It records nothing for undo, since
/// only the text is in the model.
class SelectionFontProperty : public ZelInspectorFontProperty
{
public:
    using ZelInspectorFontProperty::ZelInspectorFontProperty;
    ~SelectionFontProperty() override { uninstall(); }

protected:
    ZelUndoManager *undoManager() const override { return nullptr; }
    void changeFontSizes(const ZelNumberChange &change) override
    {
        if (auto *text = qobject_cast<ZelInspectorAttributedStringProperty *>(owner()))
            text->changeFontSizes(change);
    }
};

constexpr QSize g_popoverSize(280, 430);

Property::ParagraphStyleInspectorMaker &maker()
{
    static Property::ParagraphStyleInspectorMaker maker;
    return maker;
}

} // namespace

ZelInspectorAttributedStringProperty::ZelInspectorAttributedStringProperty(QObject *owner)
    : ZelInspectorProperty(owner)
    , m_colorPanel(new ZelColorPanelClient(
          this, [this] { return m_formattable; },
          [this] {
              const QColor color =
                  ZelColor::fromVariant(m_textColorActive ? m_textColor : m_backgroundColor).toQColor();
              return color.isValid() ? color : QColor(Qt::black);
          }))
{
    m_colorPanel->setShowsAlpha(true);
    connect(m_colorPanel, &ZelColorPanelClient::colorChosen, this, &Property::takePanelColor);
    connect(m_colorPanel, &ZelColorPanelClient::activeChanged, this, &Property::showActiveColor);
}

void ZelInspectorAttributedStringProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    placeholder = configuration.localizedStringValueNamed(u"placeholder");
    allowsNilValues = configuration.booleanValueNamed(u"allowsNilValues");
    editsMultipleValues = configuration.booleanValueOfFileNamed(u"editsMultipleValues");
}

ZelInspectorAttributedStringProperty::~ZelInspectorAttributedStringProperty()
{
    uninstall();
    deactivateColorPanel();
    // The nested controllers have this editor as their owner and commit to it when they are destroyed. This must happen
    // while the editor is still whole.
    m_popover.reset();
    m_paragraphStyleInspector.reset();
    if (m_fontProperty && m_fontProperty->isViewLoaded())
        m_fontProperty->view()->setParent(nullptr); // a controller deletes a view that has no parent
    m_fontProperty.reset();
}

const Property::ParagraphStyleInspectorMaker &ZelInspectorAttributedStringProperty::paragraphStyleInspectorMaker()
{
    return maker();
}

void ZelInspectorAttributedStringProperty::setParagraphStyleInspectorMaker(const ParagraphStyleInspectorMaker &newMaker)
{
    maker() = newMaker;
}

// The view

void ZelInspectorAttributedStringProperty::loadView()
{
    ZelView *container = makeEditorView();
    makeBar(container);
    makeFontEditor(container);
    makeTextView(container);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    layOut(container);
    updateFormattable();
}

void ZelInspectorAttributedStringProperty::makeBar(ZelView *container)
{
    m_segmentedControl = ZelTextFormatBar::make(title());
    m_resizableSegmentedControlView = new ZelResizableSegmentedControlView(m_segmentedControl, container);
    ZelEditorLayout::setStretches(m_resizableSegmentedControlView, 1);
    connect(m_segmentedControl, &ZelSegmentedControl::action, this,
            &ZelInspectorAttributedStringProperty::selectSegment);
}

void ZelInspectorAttributedStringProperty::makeFontEditor(ZelView *container)
{
    m_fontProperty = std::make_unique<SelectionFontProperty>(this);
    m_fontProperty->setPlace(place());
    m_fontProperty->setKeyPath(QStringLiteral("font"));
    m_fontProperty->setActionSelector("fontDidChange");
    m_fontProperty->setEnabledKeyPath(QStringLiteral("formattable"));
    container->addSubview(m_fontProperty->view());
    // The font editor does not send its action for a change of the size alone.
    const ZelFontPopoverView *details = m_fontProperty->popoverView();
    for (const ZelStepper *stepper : {m_fontProperty->stepper(), details->fontSizeStepper()})
        connect(stepper, &ZelStepper::action, this, &ZelInspectorAttributedStringProperty::fontDidChange);
    connect(details->fontSizeTextField(), &ZelTextField::action, this,
            &ZelInspectorAttributedStringProperty::fontDidChange);
}

void ZelInspectorAttributedStringProperty::makeTextView(ZelView *container)
{
    m_textView = new ZelInspectorTextView(container);
    m_textView->setAccessibleName(title());
    m_textView->setValueCheck([editor = QPointer<ZelInspectorAttributedStringProperty>(this)](const QVariant &value) {
        return editor ? editor->refusalOf(editor->entered(String::fromVariant(value))) : QString();
    });
    ZelEditorLayout::setStretches(m_textView, 1);
    connect(m_textView, &ZelGrowingTextView::action, this, [this] { userDidChangeValue(m_textView); });
    connect(m_textView, &ZelInspectorTextView::selectionDidChange, this,
            &ZelInspectorAttributedStringProperty::updateSegmentedControl);
    connect(m_textView, &ZelGrowingTextView::editableChanged, this,
            &ZelInspectorAttributedStringProperty::updateFormattable);
    connect(m_textView, &QTextEdit::textChanged, this, &ZelInspectorAttributedStringProperty::updateFormattable);
}

void ZelInspectorAttributedStringProperty::layOut(ZelView *container)
{
    QHash<QString, QWidget *> views{{QStringLiteral("bar"), m_resizableSegmentedControlView},
                                    {QStringLiteral("font"), m_fontProperty->view()},
                                    {QStringLiteral("text"), m_textView}};
    QString column = QStringLiteral("V:|[bar][font]-2-[text]-2-|");
    if (m_label) {
        views.insert(QStringLiteral("label"), m_label);
        column = QStringLiteral("V:|[bar][font]-2-[text][label]-2-|");
        container->addConstraintsWithVisualFormat(QStringLiteral("H:|-2-[label]-2-|"), views);
    }
    for (const QString &format :
         {column, QStringLiteral("H:|[bar]|"), QStringLiteral("H:|[font]|"), QStringLiteral("H:|-2-[text]-2-|")})
        container->addConstraintsWithVisualFormat(format, views);
}

QList<QWidget *> ZelInspectorAttributedStringProperty::controlsNamedByRow()
{
    view();
    return {m_segmentedControl, m_textView};
}

QWidget *ZelInspectorAttributedStringProperty::viewForBaselineAlignment()
{
    view();
    return m_segmentedControl;
}

void ZelInspectorAttributedStringProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    bindEnabledKeyPathToControl(m_textView);
    bindEnabledKeyPathToControl(m_segmentedControl);
    observeForUpdate(enabledKeyPath());
    observeForUpdate(keyPath());
    updateView();
}

void ZelInspectorAttributedStringProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    if (m_popover)
        m_popover->performClose(); // while the editor that it commits to is whole
    deactivateColorPanel();
}

void ZelInspectorAttributedStringProperty::updateView()
{
    if (!m_textView)
        return;
    const QVariant value = reflectedValue();
    m_textView->setNullPlaceholder(placeholder);
    const bool canWrite = isWritable();
    m_fontProperty->setReadOnly(!canWrite);
    m_textView->setEditable((!ZelIsControllerMarker(value) || overwrites(value)) && canWrite);
    m_textView->setObjectValue(value);
    updateFormattable();
    updateSegmentedControl();
}

/// Whether the value stands for several texts that what is typed replaces.
bool ZelInspectorAttributedStringProperty::overwrites(const QVariant &value) const
{
    return editsMultipleValues && ZelIsMarker(value, ZelMultipleValuesMarker);
}

void ZelInspectorAttributedStringProperty::updateFormattable()
{
    const bool hasText =
        m_textView && !(ZelIsControllerMarker(m_textView->objectValue()) && m_textView->document()->isEmpty());
    const bool formattable = hasText && m_textView->isEditable() && isEffectivelyEnabled();
    if (m_segmentedControl)
        m_segmentedControl->setEditable(formattable);
    if (ZelAssign(m_formattable, formattable))
        Q_EMIT formattableChanged();
}

// The value

void ZelInspectorAttributedStringProperty::userDidChangeValue(QObject *sender)
{
    const QVariant reflected = reflectedValue();
    if (!m_textView || (ZelIsControllerMarker(reflected) && !overwrites(reflected)))
        return;
    const String string = m_textView->attributedString();
    const QVariant value = entered(string);
    const String former = String::fromVariant(reflected);
    if (!overwrites(reflected) && (value.isValid() ? string == former : former.isNull()))
        return;
    const QPointer<ZelInspectorAttributedStringProperty> alive(this);
    setReflectedValue(value);
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
    if (alive)
        updateSegmentedControl();
}

/// The value that the text stands for. An empty one, which may be null, stands for no value or for an empty text.
QVariant ZelInspectorAttributedStringProperty::entered(const String &string) const
{
    if (!string.isEmpty())
        return QVariant::fromValue(string);
    return allowsNilValues ? QVariant() : QVariant::fromValue(String(QStringLiteral("")));
}

/// Commits the format and what was typed before, since the text is written as a whole.
void ZelInspectorAttributedStringProperty::commitFormat()
{
    if (m_textView)
        m_textView->commitEditing();
}

QString ZelInspectorAttributedStringProperty::textForValue(const QVariant &value) const
{
    const String string = String::fromVariant(value);
    return ZelInspectorProperty::textForValue(string.isEmpty() ? QVariant() : QVariant(string.text()));
}

// What the selection has

void ZelInspectorAttributedStringProperty::enumerateAttributesForSelection(const RunBlock &block) const
{
    if (!ZelRequire(bool(block), "block") || !m_textView)
        return;
    const QList<Run> runs = m_textView->selectedRuns();
    for (const Run &run : runs)
        block(run.range, run.attributes);
}

void ZelInspectorAttributedStringProperty::updateSegmentedControl()
{
    QVariant textColor = QVariant::fromValue(ZelNoSelectionMarker);
    QVariant backgroundColor = textColor;
    QVariant font = textColor;
    ZelParagraphStyleValues paragraphs;
    enumerateAttributesForSelection([&](const String::Range &, const String::Attributes &attributes) {
        textColor = combinedValueWithValue(attributes.value(String::ForegroundColor), textColor);
        backgroundColor = combinedValueWithValue(attributes.value(String::BackgroundColor), backgroundColor);
        // What the text's font leaves open is taken from the view's font.
        const QFont ownFont = attributes.value(String::Font).value<QFont>();
        const bool hasFont = attributes.contains(String::Font);
        font = combinedValueWithValue(hasFont ? ownFont.resolve(m_textView->font()) : m_textView->font(), font);
        const QVariant style = attributes.value(String::ParagraphStyle);
        if (style.isValid()) // paragraphs without a style do not count
            paragraphs.fold(style.value<ZelParagraphStyle>());
    });
    const QPointer<ZelInspectorAttributedStringProperty> alive(this);
    setProperty("textColor", textColor);
    setProperty("backgroundColor", backgroundColor);
    setProperty("font", font);
    for (const QByteArray &name : ZelParagraphStyleValues::names()) {
        if (alive)
            setProperty(name, paragraphs.value(name));
    }
    if (!alive)
        return;
    showSegments();
    m_colorPanel->showColor();
}

void ZelInspectorAttributedStringProperty::showSegments()
{
    if (m_segmentedControl)
        ZelTextFormatBar::show(m_segmentedControl, m_alignment, m_textColor, m_backgroundColor);
}

// Formatting

void ZelInspectorAttributedStringProperty::selectSegment()
{
    const qsizetype segment = m_segmentedControl ? m_segmentedControl->clickedSegment() : -1;
    switch (segment) {
    case -1:
        break;
    case TextColorSegment:
        activateTextColorPanel();
        break;
    case BackgroundColorSegment:
        activateBackgroundColorPanel();
        break;
    case MoreSegment:
        m_segmentedControl->setSegmentSelected(MoreSegment, false);
        showParagraphStyleInspector();
        break;
    default:
        for (int other = LeftSegment; other <= NaturalSegment; ++other)
            m_segmentedControl->setSegmentSelected(other, other == segment);
        setAlignmentForSelection(ZelTextFormatBar::alignmentOfSegment(segment));
        commitFormat();
    }
}

void ZelInspectorAttributedStringProperty::setAlignmentForSelection(uint alignment)
{
    if (m_textView)
        m_textView->changeParagraphStyles([alignment](ZelParagraphStyle &style) { style.alignment = alignment; });
}

void ZelInspectorAttributedStringProperty::setAttribute(const QString &name, const QVariant &value)
{
    if (m_textView)
        m_textView->setAttribute(name, value);
}

void ZelInspectorAttributedStringProperty::fontDidChange()
{
    if (m_font.typeId() != QMetaType::QFont)
        return;
    QFont font = m_font.value<QFont>();
    font.setResolveMask(QFont::AllPropertiesResolved); // the font was shown and chosen as a whole
    setAttribute(String::Font, font);
    commitFormat();
}

void ZelInspectorAttributedStringProperty::changeFontSizes(const ZelNumberChange &change)
{
    if (!m_textView)
        return;
    const qsizetype count = m_textView->selectedRuns().size();
    m_textView->changeAttribute(String::Font, [&, place = qsizetype(0)](const QVariant &own) mutable {
        QFont font = own.isValid() ? own.value<QFont>().resolve(m_textView->font()) : m_textView->font();
        const double size = change.number(ZelFontManager::sizeOf(font), place++, count);
        if (!(std::isfinite(size) && size > 0))
            return own;
        font = ZelFontManager::convertFontToSize(font, size);
        font.setResolveMask(QFont::AllPropertiesResolved);
        return QVariant(font);
    });
    commitFormat();
}

void ZelInspectorAttributedStringProperty::valuesDidFinishChanging()
{
    if (!m_textView)
        return;
    m_textView->changeParagraphStyles([this](ZelParagraphStyle &style) {
        for (const QByteArray &name : ZelParagraphStyleValues::names()) {
            if (name != "alignment")
                ZelParagraphStyleValues::store(&style, name, property(name));
        }
    });
    commitFormat();
}

// The popover

void ZelInspectorAttributedStringProperty::makePopover()
{
    if (!m_paragraphStyleInspector && maker())
        m_paragraphStyleInspector.reset(maker()(this));
    if (m_popover || !m_paragraphStyleInspector)
        return;
    m_popover = std::make_unique<ZelPopover>();
    auto *scrollView = new ZelScrollView; // a description may have more rows than there is room for
    scrollView->setDocumentView(m_paragraphStyleInspector->view());
    m_popover->setContentWidget(scrollView);
    m_popover->setContentSize(g_popoverSize);
}

void ZelInspectorAttributedStringProperty::showParagraphStyleInspector()
{
    if (!m_segmentedControl)
        return;
    makePopover();
    if (!m_popover)
        return;
    const QRect bar = m_segmentedControl->rect();
    const QRect end(bar.width() - 10, 0, 10, bar.height());
    m_popover->showRelativeToRect(QStyle::visualRect(m_segmentedControl->layoutDirection(), bar, end),
                                  m_segmentedControl, Qt::TopEdge);
}

// The colour panel

void ZelInspectorAttributedStringProperty::activateTextColorPanel()
{
    activateColorPanel(true);
}

void ZelInspectorAttributedStringProperty::activateBackgroundColorPanel()
{
    activateColorPanel(false);
}

void ZelInspectorAttributedStringProperty::activateColorPanel(bool textColor)
{
    m_textColorActive = textColor;
    m_colorPanel->showColor();
    m_colorPanel->activate(m_segmentedControl);
    showActiveColor();
}

void ZelInspectorAttributedStringProperty::deactivateColorPanel()
{
    m_colorPanel->deactivate();
}

bool ZelInspectorAttributedStringProperty::isColorPanelActive() const
{
    return m_colorPanel->isActive();
}

void ZelInspectorAttributedStringProperty::showActiveColor()
{
    if (!m_segmentedControl)
        return;
    const bool isActive = isColorPanelActive();
    m_segmentedControl->setSegmentSelected(TextColorSegment, isActive && m_textColorActive);
    m_segmentedControl->setSegmentSelected(BackgroundColorSegment, isActive && !m_textColorActive);
}

void ZelInspectorAttributedStringProperty::takePanelColor(const QColor &color)
{
    const bool isText = m_textColorActive;
    const QPointer<ZelInspectorAttributedStringProperty> alive(this);
    setProperty(isText ? "textColor" : "backgroundColor", color);
    if (!alive)
        return;
    showSegments();
    setAttribute(isText ? String::ForegroundColor : String::BackgroundColor, color);
    if (alive)
        commitFormat();
}
