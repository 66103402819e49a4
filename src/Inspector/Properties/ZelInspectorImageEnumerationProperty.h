// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Cells/ZelResizableSegmentedControlView.h"
#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorEnumerationProperty.h"

#include <QLabel>

/// Chooses one of a row of images with a segmented control, or shows the chosen image.
class ZEL_EXPORT ZelInspectorImageEnumerationProperty : public ZelInspectorEnumerationProperty
{
    Q_OBJECT
    /// The number of the chosen segment, a marker, or nothing.
    Q_PROPERTY(QVariant selectedIndex READ selectedIndex WRITE setSelectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(ZelSegmentedControl *segmentedControl MEMBER m_segmentedControl)
    Q_PROPERTY(ZelResizableSegmentedControlView *resizableSegmentedControlView MEMBER m_resizableSegmentedControlView)
    Q_PROPERTY(QLabel *imageView MEMBER m_imageView)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
    // The options, in lists of the same length; what an option lacks is the null object.
    Q_PROPERTY(QVariantList titles READ titles STORED false)
    Q_PROPERTY(QVariantList images READ images STORED false)
    Q_PROPERTY(QVariantList enabledFlags READ enabledFlags STORED false)
    Q_PROPERTY(QVariantList representedObjects READ representedObjects STORED false)
public:
    explicit ZelInspectorImageEnumerationProperty(QObject *owner);

    ZelSegmentedControl *segmentedControl() const { return m_segmentedControl; }
    ZelResizableSegmentedControlView *resizableSegmentedControlView() const { return m_resizableSegmentedControlView; }
    QLabel *imageView() const { return m_imageView; }
    ZelLabel *label() const { return m_label; }
    QVariantList titles() const;
    QVariantList images() const;
    QVariantList enabledFlags() const;
    QVariantList representedObjects() const;
    const QVariant &selectedIndex() const { return m_selectedIndex; }
    void setSelectedIndex(const QVariant &index);

    /// The value of a segment; absent beyond the last one.
    QVariant valueForSegment(qsizetype index) const;
    /// The first segment that stands for the value; none is the assertion "Unsupported value found: ", and -1.
    qsizetype segmentForValue(const QVariant &value) const;

    /// The title of the option that stands for the value.
    QString textForValue(const QVariant &value) const override;

    void loadView() override;
    void viewDidInstall() override;
    void updateView() override;
    void rebuildView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;

Q_SIGNALS:
    void selectedIndexChanged();

private:
    qsizetype findSegment(const QVariant &value) const;
    QVariantList listOf(QVariant (*part)(const Choice &)) const;
    void showImage();
    void reportUnknown(const QVariant &value);

    QPointer<ZelSegmentedControl> m_segmentedControl;
    QPointer<ZelResizableSegmentedControlView> m_resizableSegmentedControlView;
    QPointer<QLabel> m_imageView;
    QPointer<ZelLabel> m_label;
    QList<Choice> m_choices;
    QVariant m_selectedIndex;
    QString m_reportedValue; // that no segment stands for
};
