// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Cells/ZelResizableSegmentedControlView.h"
#include "Controls/ZelLabel.h"
#include "Controls/ZelPopover.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/Properties/ZelInspectorTextView.h"

class ZelColorPanelClient;

/// Edits a rich text (a ZelAttributedString) in place.
///
/// Above the text there are a bar with alignment and colours and a font editor; the last segment of the bar opens a
/// popover with the paragraphs' other values. They show and edit the properties below. Each of these is folded from the
/// runs or paragraphs in the selection of the text, and is one value, the no-selection marker, or the multiple-values
/// marker. The text in the view is the working copy. Typing is written back when its edit is committed, formatting at
/// once, and always the value as a whole.
///
/// The colour panel serves one editor at a time: this one until another client takes it, it is closed, or the view is
/// uninstalled.
class ZEL_EXPORT ZelInspectorAttributedStringProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(QVariant textColor MEMBER m_textColor NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant backgroundColor MEMBER m_backgroundColor NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant font MEMBER m_font NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant alignment MEMBER m_alignment NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant firstLineHeadIndent MEMBER m_firstLineHeadIndent NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant headIndent MEMBER m_headIndent NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant tailIndent MEMBER m_tailIndent NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant defaultTabInterval MEMBER m_defaultTabInterval NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant lineHeightMultiple MEMBER m_lineHeightMultiple NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant maximumLineHeight MEMBER m_maximumLineHeight NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant minimumLineHeight MEMBER m_minimumLineHeight NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant lineSpacing MEMBER m_lineSpacing NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant paragraphSpacing MEMBER m_paragraphSpacing NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant paragraphSpacingBefore MEMBER m_paragraphSpacingBefore NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant lineBreakMode MEMBER m_lineBreakMode NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant hyphenationFactor MEMBER m_hyphenationFactor NOTIFY selectionValuesChanged)
    Q_PROPERTY(
        QVariant tighteningFactorForTruncation MEMBER m_tighteningFactorForTruncation NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant headerLevel MEMBER m_headerLevel NOTIFY selectionValuesChanged)
    Q_PROPERTY(QVariant baseWritingDirection MEMBER m_baseWritingDirection NOTIFY selectionValuesChanged)
    Q_PROPERTY(bool allowsNilValues MEMBER allowsNilValues)
    Q_PROPERTY(bool editsMultipleValues MEMBER editsMultipleValues)
    Q_PROPERTY(QString placeholder MEMBER placeholder)
    Q_PROPERTY(ZelSegmentedControl *segmentedControl MEMBER m_segmentedControl)
    Q_PROPERTY(ZelResizableSegmentedControlView *resizableSegmentedControlView MEMBER m_resizableSegmentedControlView)
    Q_PROPERTY(ZelInspectorFontProperty *fontProperty READ fontProperty STORED false)
    Q_PROPERTY(ZelInspectorTextView *textView MEMBER m_textView)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
    Q_PROPERTY(ZelPopover *popover READ popover STORED false)
    Q_PROPERTY(ZelViewController *paragraphStyleInspector READ paragraphStyleInspector STORED false)
    Q_PROPERTY(bool colorPanelActive READ isColorPanelActive STORED false)
    Q_PROPERTY(bool textColorActive READ isTextColorActive STORED false)
    /// Whether there is one text that may be changed; among several texts, only what was typed over them is one.
    Q_PROPERTY(bool formattable READ isFormattable NOTIFY formattableChanged)
public:
    enum Segment {
        LeftSegment,
        CenterSegment,
        RightSegment,
        JustifiedSegment,
        NaturalSegment,
        TextColorSegment,
        BackgroundColorSegment,
        MoreSegment,
        SegmentCount
    };
    using Run = ZelAttributedString::Run;
    using RunBlock = std::function<void(const ZelAttributedString::Range &, const ZelAttributedString::Attributes &)>;
    /// Makes the content of the popover: a controller whose editors edit the paragraph values of the owner and name
    /// valuesDidFinishChanging as their action.
    using ParagraphStyleInspectorMaker = std::function<ZelViewController *(QObject *owner)>;

    explicit ZelInspectorAttributedStringProperty(QObject *owner);
    ~ZelInspectorAttributedStringProperty() override;

    bool allowsNilValues = false; ///< whether an empty text is written back as nothing
    /// Whether several different texts can be overwritten: what is typed then becomes the text of every object. Nothing
    /// is written while nothing is typed, or if it was deleted again.
    bool editsMultipleValues = false;
    QString placeholder; ///< shown for an empty text
    /// The maker that all editors use. The library's makes a slice from the description "ZelParagraphStyle.xml" among
    /// the application's resources.
    static const ParagraphStyleInspectorMaker &paragraphStyleInspectorMaker();
    static void setParagraphStyleInspectorMaker(const ParagraphStyleInspectorMaker &maker);

    ZelSegmentedControl *segmentedControl() const { return m_segmentedControl; }
    ZelResizableSegmentedControlView *resizableSegmentedControlView() const { return m_resizableSegmentedControlView; }
    ZelInspectorFontProperty *fontProperty() const { return m_fontProperty.get(); }
    ZelInspectorTextView *textView() const { return m_textView; }
    ZelLabel *label() const { return m_label; }
    /// Null before it is first shown.
    ZelPopover *popover() const { return m_popover.get(); }
    ZelViewController *paragraphStyleInspector() const { return m_paragraphStyleInspector.get(); }
    bool isColorPanelActive() const;
    /// Whether the colour panel edits the text colour, rather than the background colour.
    bool isTextColorActive() const { return m_textColorActive; }
    bool isFormattable() const { return m_formattable; }

    /// Calls the block for each run of the selection. For an insertion point it is called once, with an empty range and
    /// the attributes of the character there; for an empty text it is not called. Asserts "block".
    void enumerateAttributesForSelection(const RunBlock &block) const;
    /// Adds the attribute to what is selected. It is written back with the edit.
    void setAttribute(const QString &name, const QVariant &value);
    /// Gives each run of what is selected a font size made from its own. It is written back with the edit.
    void changeFontSizes(const ZelNumberChange &change);
    /// Sets the alignment of the paragraphs that the selection touches. It is written back with the edit, too.
    void setAlignmentForSelection(uint alignment);
    /// Reads the values of the selection, and shows them.
    void updateSegmentedControl();
    void activateTextColorPanel();
    void activateBackgroundColorPanel();
    void deactivateColorPanel();
    void showParagraphStyleInspector();

    void configure(const ZelInspectorConfiguration &configuration) override;
    /// The beginning of the text.
    QString textForValue(const QVariant &value) const override;
    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;
    QList<QWidget *> controlsNamedByRow() override;

public Q_SLOTS:
    /// The action of the bar: does what the clicked segment stands for.
    void selectSegment();
    /// The action of the font editor.
    void fontDidChange();
    /// The action of the popover's editors: gives the paragraphs of the selection the values that are the same for all.
    /// The alignment is left to the bar.
    void valuesDidFinishChanging();

Q_SIGNALS:
    void selectionValuesChanged();
    void formattableChanged();

private:
    void makeBar(ZelView *container);
    void makeFontEditor(ZelView *container);
    void makeTextView(ZelView *container);
    void layOut(ZelView *container);
    bool overwrites(const QVariant &value) const;
    QVariant entered(const ZelAttributedString &string) const;
    void showSegments();
    void updateFormattable();
    void commitFormat();
    void makePopover();
    void activateColorPanel(bool textColor);
    void showActiveColor();
    void takePanelColor(const QColor &color);

    QPointer<ZelSegmentedControl> m_segmentedControl;
    QPointer<ZelResizableSegmentedControlView> m_resizableSegmentedControlView;
    QPointer<ZelInspectorTextView> m_textView;
    QPointer<ZelLabel> m_label;
    std::unique_ptr<ZelInspectorFontProperty> m_fontProperty;
    std::unique_ptr<ZelViewController> m_paragraphStyleInspector;
    std::unique_ptr<ZelPopover> m_popover;
    ZelColorPanelClient *m_colorPanel;
    bool m_textColorActive = false;
    bool m_formattable = false;

    QVariant m_textColor;
    QVariant m_backgroundColor;
    QVariant m_font;
    QVariant m_alignment;
    QVariant m_firstLineHeadIndent;
    QVariant m_headIndent;
    QVariant m_tailIndent;
    QVariant m_defaultTabInterval;
    QVariant m_lineHeightMultiple;
    QVariant m_maximumLineHeight;
    QVariant m_minimumLineHeight;
    QVariant m_lineSpacing;
    QVariant m_paragraphSpacing;
    QVariant m_paragraphSpacingBefore;
    QVariant m_lineBreakMode;
    QVariant m_hyphenationFactor;
    QVariant m_tighteningFactorForTruncation;
    QVariant m_headerLevel;
    QVariant m_baseWritingDirection;
};
